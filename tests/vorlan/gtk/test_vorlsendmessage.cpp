// SendMessageA and SendMessageW to window objects: a window of the calling
// thread has its procedure called with the caller's arguments, the A form
// reaches a wide procedure with converted text, and a window of another
// thread answers through the queues.

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

constexpr UINT WM_PROBE = WM_USER + 31;

struct Received {
    HWND hwnd = nullptr;
    UINT message = 0;
    WPARAM wParam = 0;
    LPARAM lParam = 0;
    std::u16string text;
    bool lockHeld = false;
};

Received g_received;

// Records what arrives; WM_PROBE answers wParam * 10 + lParam.
LRESULT CALLBACK RecordingProcW(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    g_received.hwnd = hWnd;
    g_received.message = message;
    g_received.wParam = wParam;
    g_received.lParam = lParam;
    g_received.lockHeld = vorlan::GtkCriticalSection::held_by_caller();
    if (message == WM_SETTEXT && lParam != 0) {
        g_received.text = reinterpret_cast<const char16_t *>(lParam);
        return TRUE;
    }
    if (message == WM_PROBE)
        return static_cast<LRESULT>(wParam * 10) + lParam;
    return 0;
}

WindowOptions HiddenTopLevel()
{
    WindowOptions options;
    options.withXWindow = false;
    return options;
}

class SendMessageCalls : public ::testing::Test {
protected:
    void SetUp() override
    {
        ResetCurrentThreadQueues();
        g_received = Received();
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

// The procedure runs without the toolkit lock, with the caller's arguments;
// the A form converts text for a wide procedure.
TEST_F(SendMessageCalls, SameThreadSendCallsTheProcedure)
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

TEST_F(SendMessageCalls, DeadWindowAnswersZeroWith1400)
{
    const HWND bogus = reinterpret_cast<HWND>(static_cast<ULONG_PTR>(0x1234));
    SetLastError(0);
    EXPECT_EQ(SendMessageW(bogus, WM_PROBE, 1, 1), 0);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_WINDOW_HANDLE));
    EXPECT_EQ(g_received.message, 0u);
}

// A send from another thread is answered through the queues; text cannot
// cross threads.
TEST_F(SendMessageCalls, WorkerSendReturnsTheProceduresResultAndTextIsRefusedWith87)
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

} // namespace
