// DispatchMessage and the hooks that retrieval runs: timer procedures,
// window procedures, and hooks that swallow or see messages.

#include <gtest/gtest.h>

#include "gtk/vorlgtklock.h"
#include "support/queue_helpers.h"
#include "support/window_objects.h"

#include <memory>

using namespace vorlan_test;

namespace {

constexpr UINT WM_PROBE = WM_USER + 41;

int g_procedureCalls = 0;
int g_timerCalls = 0;
int g_hookCalls = 0;
int g_lastHookCode = -1;
bool g_hookLockHeld = false;

LRESULT CALLBACK CountingProcW(HWND, UINT message, WPARAM, LPARAM)
{
    ++g_procedureCalls;
    return message == WM_PROBE ? 5 : 0;
}

void CALLBACK CountingTimerProc(HWND, UINT, UINT_PTR, DWORD)
{
    ++g_timerCalls;
}

LRESULT CALLBACK SwallowingHook(int code, WPARAM, LPARAM)
{
    ++g_hookCalls;
    g_lastHookCode = code;
    g_hookLockHeld = vorlan::GtkCriticalSection::held_by_caller();
    return 1;
}

LRESULT CALLBACK WatchingHook(int code, WPARAM, LPARAM)
{
    ++g_hookCalls;
    g_lastHookCode = code;
    return 0;
}

WindowOptions HiddenTopLevel()
{
    WindowOptions options;
    options.withXWindow = false;
    return options;
}

// A hook of the calling thread for the lifetime of the object.
class ThreadHook {
public:
    ThreadHook(int type, HOOKPROC procedure)
        : m_hook(SetWindowsHookExW(type, procedure, nullptr, GetCurrentThreadId()))
    {
    }
    ~ThreadHook() { UnhookWindowsHookEx(m_hook); }
    ThreadHook(const ThreadHook &) = delete;
    ThreadHook &operator=(const ThreadHook &) = delete;
    bool valid() const { return m_hook != nullptr; }

private:
    HHOOK m_hook;
};

class Dispatch : public ::testing::Test {
protected:
    void SetUp() override
    {
        ResetCurrentThreadQueues();
        g_procedureCalls = g_timerCalls = g_hookCalls = 0;
        g_lastHookCode = -1;
        g_hookLockHeld = false;
        m_window = std::make_unique<TestWindow>(HiddenTopLevel());
        SetWindowLongPtrW(m_window->hwnd(), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(CountingProcW));
    }
    void TearDown() override
    {
        m_window.reset();
        ResetCurrentThreadQueues();
    }
    HWND window() const { return m_window->hwnd(); }

private:
    std::unique_ptr<TestWindow> m_window;
};

// A message goes to the window procedure, a WM_TIMER with a procedure in
// lParam to that procedure only; no message or a dead window answer 0.
TEST_F(Dispatch, MessageGoesToTheWindowProcedureOrTheTimerProcedure)
{
    MSG msg = {window(), WM_PROBE, 0, 0, 0, {0, 0}};
    EXPECT_EQ(DispatchMessageW(&msg), 5);
    EXPECT_EQ(DispatchMessageA(&msg), 5);
    msg = {window(), WM_TIMER, 1, 0, 0, {0, 0}};
    DispatchMessageW(&msg);
    EXPECT_EQ(g_procedureCalls, 3);
    EXPECT_EQ(g_timerCalls, 0);
    msg.lParam = reinterpret_cast<LPARAM>(CountingTimerProc);
    EXPECT_EQ(DispatchMessageW(&msg), 0);
    EXPECT_EQ(g_procedureCalls, 3);
    EXPECT_EQ(g_timerCalls, 1);

    EXPECT_EQ(DispatchMessageW(nullptr), 0);
    msg = {reinterpret_cast<HWND>(static_cast<ULONG_PTR>(0x1234)), WM_PROBE, 0, 0, 0, {0, 0}};
    EXPECT_EQ(DispatchMessageA(&msg), 0);
    EXPECT_EQ(g_procedureCalls, 3);
}

TEST_F(Dispatch, KeyboardHookSwallowsARemovedKey)
{
    ThreadHook hook(WH_KEYBOARD, SwallowingHook);
    ASSERT_TRUE(hook.valid());
    ASSERT_TRUE(PostMessageW(window(), WM_KEYDOWN, 'A', 0));
    ASSERT_TRUE(PostMessageW(window(), WM_PROBE, 0, 0));
    MSG msg = {};
    EXPECT_FALSE(PeekMessageW(&msg, nullptr, 0, 0, PM_REMOVE));
    EXPECT_EQ(g_hookCalls, 1);
    EXPECT_EQ(g_lastHookCode, HC_ACTION);
    EXPECT_FALSE(g_hookLockHeld);
    EXPECT_EQ(GetMessageW(&msg, nullptr, 0, 0), 1);
    EXPECT_EQ(msg.message, WM_PROBE);
}

TEST_F(Dispatch, MessageHookSeesAPeekWithoutRemoval)
{
    ThreadHook hook(WH_GETMESSAGE, WatchingHook);
    ASSERT_TRUE(hook.valid());
    ASSERT_TRUE(PostMessageW(nullptr, WM_PROBE, 0, 0));
    MSG msg = {};
    EXPECT_TRUE(PeekMessageW(&msg, nullptr, 0, 0, PM_NOREMOVE));
    EXPECT_EQ(g_lastHookCode, HC_NOREMOVE);
    EXPECT_TRUE(PeekMessageW(&msg, nullptr, 0, 0, PM_REMOVE));
    EXPECT_EQ(g_lastHookCode, HC_ACTION);
    EXPECT_EQ(g_hookCalls, 2);
}

} // namespace
