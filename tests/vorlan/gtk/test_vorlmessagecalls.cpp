// The exported message calls over the calling thread's queues: quit codes,
// posts to the thread and to a worker, peeking with and without removal,
// windows of other threads and refused arguments.

#include <gtest/gtest.h>

#include "gtk/vorlgtklock.h"
#include "gtk/vorlwindow.h"
#include "support/queue_helpers.h"
#include "support/window_objects.h"

#include <atomic>
#include <thread>

using namespace vorlan_test;

namespace {

constexpr UINT WM_PROBE = WM_USER + 21;

// The id of a thread that has ended without ever having thread data.
DWORD EndedThreadId()
{
    DWORD tid = 0;
    std::thread([&] { tid = GetCurrentThreadId(); }).join();
    return tid;
}

WindowOptions HiddenTopLevel()
{
    WindowOptions options;
    options.withXWindow = false;
    return options;
}

// A window object that claims to belong to another thread while the object
// lives.
class ForeignThreadWindow {
public:
    ForeignThreadWindow() : m_window(HiddenTopLevel())
    {
        vorlan::GtkCriticalSection lock;
        m_window.object()->dwThreadId = EndedThreadId();
    }
    ~ForeignThreadWindow()
    {
        vorlan::GtkCriticalSection lock;
        m_window.object()->dwThreadId = GetCurrentThreadId();
    }
    HWND hwnd() const { return m_window.hwnd(); }

private:
    TestWindow m_window;
};

class MessageCalls : public ::testing::Test {
protected:
    void SetUp() override { ResetCurrentThreadQueues(); }
    void TearDown() override { ResetCurrentThreadQueues(); }
};

TEST_F(MessageCalls, PostsAndQuitReachGetMessageAndPeekMessage)
{
    TestWindow window(HiddenTopLevel());
    ASSERT_TRUE(PostMessageW(nullptr, WM_PROBE, 3, 4));
    ASSERT_TRUE(PostMessageA(window.hwnd(), WM_PROBE, 1, 2));
    MSG msg = {};
    ASSERT_TRUE(PeekMessageW(&msg, nullptr, 0, 0, PM_NOREMOVE));
    EXPECT_EQ(msg.message, WM_PROBE);
    EXPECT_EQ(GetMessageW(&msg, window.hwnd(), WM_PROBE, WM_PROBE), 1);
    EXPECT_EQ(msg.hwnd, window.hwnd());
    EXPECT_EQ(msg.wParam, static_cast<WPARAM>(1));
    EXPECT_EQ(GetMessageA(&msg, nullptr, 0, 0), 1);
    EXPECT_EQ(msg.hwnd, nullptr);
    EXPECT_EQ(msg.message, WM_PROBE);
    EXPECT_EQ(msg.wParam, static_cast<WPARAM>(3));
    EXPECT_EQ(msg.lParam, static_cast<LPARAM>(4));
    EXPECT_FALSE(PeekMessageA(&msg, nullptr, 0, 0, PM_REMOVE));

    PostQuitMessage(42);
    EXPECT_EQ(GetMessageW(&msg, nullptr, 0, 0), 0);
    EXPECT_EQ(msg.message, static_cast<UINT>(WM_QUIT));
    EXPECT_EQ(msg.wParam, static_cast<WPARAM>(42));
    EXPECT_FALSE(PeekMessageW(&msg, nullptr, 0, 0, PM_REMOVE));
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

// A handle that names no window, or a window of another thread, as filter
// or target.
TEST_F(MessageCalls, BadHandlesAndWindowsOfOtherThreadsGive1400)
{
    const HWND bogus = reinterpret_cast<HWND>(static_cast<ULONG_PTR>(0x1234));
    MSG msg = {};
    SetLastError(0);
    EXPECT_FALSE(PostMessageW(bogus, WM_PROBE, 0, 0));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_WINDOW_HANDLE));
    ForeignThreadWindow foreign;
    for (HWND hWnd : {bogus, foreign.hwnd()}) {
        SetLastError(0);
        EXPECT_FALSE(PeekMessageW(&msg, hWnd, 0, 0, PM_REMOVE));
        EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_WINDOW_HANDLE));
        SetLastError(0);
        EXPECT_EQ(GetMessageA(&msg, hWnd, 0, 0), -1);
        EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_WINDOW_HANDLE));
    }
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

} // namespace
