// The exported message calls over the calling thread's queues: posting,
// getting and peeking, quit codes, sending on one thread and across
// threads, dispatching (timer procedures included), the hooks that
// retrieval runs, bad handles and refused arguments.

#include <gtest/gtest.h>

#include "gtk/vorlgtklock.h"
#include "gtk/vorlwindow.h"
#include "support/queue_helpers.h"
#include "support/window_objects.h"

#include <atomic>
#include <memory>
#include <string>
#include <thread>

using namespace vorlan_test;

namespace {

constexpr UINT WM_PROBE = WM_USER + 21;
const HWND kBogus = reinterpret_cast<HWND>(static_cast<ULONG_PTR>(0x1234));

struct Received {
    int calls = 0;
    HWND hwnd = nullptr;
    UINT message = 0;
    WPARAM wParam = 0;
    LPARAM lParam = 0;
    std::u16string text;
    bool lockHeld = false;
};

Received g_received;
int g_timerCalls = 0;
int g_hookCalls = 0;
int g_lastHookCode = -1;
bool g_hookLockHeld = false;

// Records what arrives; WM_PROBE answers wParam * 10 + lParam.
LRESULT CALLBACK RecordingProcW(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    ++g_received.calls;
    g_received.hwnd = hWnd;
    g_received.message = message;
    g_received.wParam = wParam;
    g_received.lParam = lParam;
    g_received.lockHeld = vorlan::GtkCriticalSection::held_by_caller();
    if (message == WM_SETTEXT && lParam != 0) {
        g_received.text = reinterpret_cast<const char16_t *>(lParam);
        return TRUE;
    }
    return message == WM_PROBE ? static_cast<LRESULT>(wParam * 10) + lParam : 0;
}

void CALLBACK CountingTimerProc(HWND, UINT, UINT_PTR, DWORD)
{
    ++g_timerCalls;
}

// Swallows the message (answers 1) or lets it pass (0).
template <LRESULT answer>
LRESULT CALLBACK RecordingHook(int code, WPARAM, LPARAM)
{
    ++g_hookCalls;
    g_lastHookCode = code;
    g_hookLockHeld = vorlan::GtkCriticalSection::held_by_caller();
    return answer;
}

// A hook of the calling thread; UnhookWindowsHookEx ends it.
HHOOK SetThreadHook(int type, HOOKPROC procedure)
{
    return SetWindowsHookExW(type, procedure, nullptr, GetCurrentThreadId());
}

WindowOptions HiddenTopLevel()
{
    WindowOptions options;
    options.withXWindow = false;
    return options;
}

// A window of the calling thread whose procedure is RecordingProcW.
class MessageCalls : public ::testing::Test {
protected:
    void SetUp() override
    {
        ResetCurrentThreadQueues();
        g_received = Received();
        g_timerCalls = g_hookCalls = 0;
        g_lastHookCode = -1;
        g_hookLockHeld = true;
        m_window = std::make_unique<TestWindow>(HiddenTopLevel());
        SetWindowLongPtrW(m_window->hwnd(), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(RecordingProcW));
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

TEST_F(MessageCalls, PostsAndQuitReachGetMessageAndPeekMessage)
{
    ASSERT_TRUE(PostMessageW(nullptr, WM_PROBE, 3, 4));
    ASSERT_TRUE(PostMessageA(window(), WM_PROBE, 1, 2));
    MSG msg = {};
    ASSERT_TRUE(PeekMessageW(&msg, nullptr, 0, 0, PM_NOREMOVE));
    EXPECT_EQ(msg.message, WM_PROBE);
    EXPECT_EQ(GetMessageW(&msg, window(), WM_PROBE, WM_PROBE), 1);
    EXPECT_EQ(msg.hwnd, window());
    EXPECT_EQ(msg.wParam, static_cast<WPARAM>(1));
    EXPECT_TRUE(PeekMessageA(&msg, nullptr, 0, 0, PM_REMOVE));
    EXPECT_EQ(msg.hwnd, nullptr);
    EXPECT_EQ(msg.message, WM_PROBE);
    EXPECT_EQ(msg.wParam, static_cast<WPARAM>(3));
    EXPECT_EQ(msg.lParam, static_cast<LPARAM>(4));
    EXPECT_FALSE(PeekMessageA(&msg, nullptr, 0, 0, PM_REMOVE));

    PostQuitMessage(42);
    EXPECT_EQ(GetMessageA(&msg, nullptr, 0, 0), 0);
    EXPECT_EQ(msg.message, static_cast<UINT>(WM_QUIT));
    EXPECT_EQ(msg.wParam, static_cast<WPARAM>(42));
    EXPECT_FALSE(PeekMessageW(&msg, nullptr, 0, 0, PM_REMOVE));
    EXPECT_EQ(g_received.calls, 0);
}

TEST_F(MessageCalls, PostThreadMessageReachesAWorkerAndNotAThreadWithoutQueue)
{
    std::atomic<DWORD> workerTid{0};
    std::atomic<UINT> received{0};
    WPARAM wParam = 0;
    std::thread worker([&] {
        MSG msg = {};
        PeekMessageW(&msg, nullptr, 0, 0, PM_NOREMOVE); // makes the queue
        workerTid = GetCurrentThreadId();
        if (GetMessageW(&msg, nullptr, 0, 0) > 0) {
            wParam = msg.wParam;
            received = msg.message;
        }
    });
    SpinUntil([&] { return workerTid.load() != 0; });
    EXPECT_TRUE(PostThreadMessageA(workerTid, WM_PROBE, 77, 0));
    worker.join();
    EXPECT_EQ(received.load(), WM_PROBE);
    EXPECT_EQ(wParam, static_cast<WPARAM>(77));

    SetLastError(0);
    EXPECT_FALSE(PostThreadMessageA(EndedThreadId(), WM_PROBE, 0, 0));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_THREAD_ID));
}

// A handle that names no window, or a window of another thread as filter,
// fails with 1400 (dispatching to no window answers 0 without an error).
TEST_F(MessageCalls, BadHandlesAndWindowsOfOtherThreadsGive1400)
{
    MSG msg = {};
    SetLastError(0);
    EXPECT_FALSE(PostMessageW(kBogus, WM_PROBE, 0, 0));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_WINDOW_HANDLE));
    SetLastError(0);
    EXPECT_EQ(SendMessageW(kBogus, WM_PROBE, 1, 1), 0);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_WINDOW_HANDLE));
    TestWindow foreign(HiddenTopLevel());
    {
        vorlan::GtkCriticalSection lock;
        foreign.object()->dwThreadId = EndedThreadId();
    }
    for (HWND hWnd : {kBogus, foreign.hwnd()}) {
        SetLastError(0);
        EXPECT_FALSE(PeekMessageW(&msg, hWnd, 0, 0, PM_REMOVE));
        EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_WINDOW_HANDLE));
        SetLastError(0);
        EXPECT_EQ(GetMessageA(&msg, hWnd, 0, 0), -1);
        EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_WINDOW_HANDLE));
    }
    msg = {kBogus, WM_PROBE, 0, 0, 0, {0, 0}};
    EXPECT_EQ(DispatchMessageA(&msg), 0);
    EXPECT_EQ(DispatchMessageW(nullptr), 0);
    EXPECT_EQ(g_received.calls, 0);
    vorlan::GtkCriticalSection lock;
    foreign.object()->dwThreadId = GetCurrentThreadId();
}

TEST_F(MessageCalls, RefusedArgumentsGive87)
{
    MSG msg = {};
    SetLastError(0);
    EXPECT_FALSE(PostMessageA(nullptr, WM_CREATE, 0, 0));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_PARAMETER));
    SetLastError(0);
    EXPECT_FALSE(PeekMessageW(&msg, nullptr, 100, 50, 0));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_PARAMETER));
    SetLastError(0);
    EXPECT_FALSE(PeekMessageA(nullptr, nullptr, 0, 0, PM_REMOVE));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_PARAMETER));
    SetLastError(0);
    EXPECT_EQ(GetMessageW(&msg, nullptr, 100, 50), -1);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_PARAMETER));
}

// The procedure runs without the toolkit lock, with the caller's arguments;
// the A form converts text for a wide procedure.
TEST_F(MessageCalls, SameThreadSendCallsTheProcedure)
{
    EXPECT_EQ(SendMessageW(window(), WM_PROBE, 4, 2), static_cast<LRESULT>(42));
    EXPECT_EQ(g_received.hwnd, window());
    EXPECT_EQ(g_received.message, WM_PROBE);
    EXPECT_EQ(g_received.wParam, static_cast<WPARAM>(4));
    EXPECT_EQ(g_received.lParam, static_cast<LPARAM>(2));
    EXPECT_FALSE(g_received.lockHeld);
    EXPECT_EQ(SendMessageA(window(), WM_SETTEXT, 0, reinterpret_cast<LPARAM>("Hello")), static_cast<LRESULT>(TRUE));
    EXPECT_EQ(g_received.message, static_cast<UINT>(WM_SETTEXT));
    EXPECT_EQ(g_received.text, u"Hello");
}

// A send from another thread is answered through the queues; text cannot
// cross threads.
TEST_F(MessageCalls, WorkerSendReturnsTheProceduresResultAndTextIsRefusedWith87)
{
    std::atomic<bool> done{false};
    std::atomic<LRESULT> result{0};
    std::atomic<LRESULT> textResult{-1};
    std::atomic<DWORD> error{0};
    const HWND target = window();
    std::thread worker([&] {
        result = SendMessageW(target, WM_PROBE, 7, 3);
        SetLastError(0);
        textResult = SendMessageA(target, WM_SETTEXT, 0, reinterpret_cast<LPARAM>("x"));
        error = GetLastError();
        done = true;
    });
    EXPECT_TRUE(ServeMessagesUntil([&] { return done.load(); }, nullptr, 10000));
    worker.join();
    EXPECT_EQ(result.load(), static_cast<LRESULT>(73));
    EXPECT_EQ(g_received.hwnd, target);
    EXPECT_EQ(g_received.message, WM_PROBE);
    EXPECT_EQ(textResult.load(), 0);
    EXPECT_EQ(error.load(), static_cast<DWORD>(ERROR_INVALID_PARAMETER));
}

// WM_TIMER with a procedure in lParam goes to that procedure only.
TEST_F(MessageCalls, DispatchGoesToTheWindowProcedureOrTheTimerProcedure)
{
    MSG msg = {window(), WM_PROBE, 0, 5, 0, {0, 0}};
    EXPECT_EQ(DispatchMessageW(&msg), 5);
    EXPECT_EQ(DispatchMessageA(&msg), 5);
    msg = {window(), WM_TIMER, 1, 0, 0, {0, 0}};
    DispatchMessageW(&msg);
    EXPECT_EQ(g_received.calls, 3);
    EXPECT_EQ(g_timerCalls, 0);
    msg.lParam = reinterpret_cast<LPARAM>(CountingTimerProc);
    EXPECT_EQ(DispatchMessageW(&msg), 0);
    EXPECT_EQ(g_received.calls, 3);
    EXPECT_EQ(g_timerCalls, 1);
}

// A keyboard hook runs without the toolkit lock for a key being removed and
// may swallow it; a message hook sees peeks with and without removal.
TEST_F(MessageCalls, HooksSeeRetrievedMessagesAndMaySwallowKeys)
{
    HHOOK hook = SetThreadHook(WH_KEYBOARD, RecordingHook<1>);
    ASSERT_NE(hook, nullptr);
    ASSERT_TRUE(PostMessageW(window(), WM_KEYDOWN, 'A', 0));
    ASSERT_TRUE(PostMessageW(window(), WM_PROBE, 0, 0));
    MSG msg = {};
    EXPECT_FALSE(PeekMessageW(&msg, nullptr, 0, 0, PM_REMOVE));
    EXPECT_EQ(g_hookCalls, 1);
    EXPECT_EQ(g_lastHookCode, HC_ACTION);
    EXPECT_FALSE(g_hookLockHeld);
    EXPECT_EQ(GetMessageW(&msg, nullptr, 0, 0), 1);
    EXPECT_EQ(msg.message, WM_PROBE);
    UnhookWindowsHookEx(hook);

    g_hookCalls = 0;
    hook = SetThreadHook(WH_GETMESSAGE, RecordingHook<0>);
    ASSERT_NE(hook, nullptr);
    ASSERT_TRUE(PostMessageW(nullptr, WM_PROBE, 0, 0));
    EXPECT_TRUE(PeekMessageW(&msg, nullptr, 0, 0, PM_NOREMOVE));
    EXPECT_EQ(g_lastHookCode, HC_NOREMOVE);
    EXPECT_TRUE(PeekMessageW(&msg, nullptr, 0, 0, PM_REMOVE));
    EXPECT_EQ(g_lastHookCode, HC_ACTION);
    EXPECT_EQ(g_hookCalls, 2);
    UnhookWindowsHookEx(hook);
}

} // namespace
