// Posting and sending across threads.
#include <gtest/gtest.h>

#include "gtk/vorlgtklock.h"
#include "gtk/vorlmessage.h"
#include "gtk/vorlthread.h"
#include "support/queue_helpers.h"

#include <atomic>
#include <chrono>
#include <functional>
#include <future>
#include <thread>
#include <utility>

using namespace vorlan_test;

namespace {

constexpr UINT WM_COMPUTE = WM_USER + 10;

// wParam * 3 + lParam, so that a wrong reply shows.
LRESULT CALLBACK ComputeProc(HWND, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_COMPUTE)
        return static_cast<LRESULT>(wParam * 3) + lParam;
    return 0;
}

// A worker with a window of its own, serving messages until destroyed.
class ServingWorker {
public:
    ServingWorker()
    {
        m_thread = std::thread([this] {
            m_tid = GetCurrentThreadId();
            m_window = CreateQueueWindow(ComputeProc);
            m_ready = true;
            ServeMessagesUntil([this] { return m_stop.load(); }, [this](const MSG &) { ++m_posted; }, 60000);
        });
        SpinUntil([this] { return m_ready.load(); });
    }
    ~ServingWorker()
    {
        m_stop = true;
        m_thread.join();
    }

    HWND window() const { return m_window; }
    DWORD tid() const { return m_tid; }
    int posted() const { return m_posted; }

private:
    std::atomic<bool> m_ready{false};
    std::atomic<bool> m_stop{false};
    std::atomic<int> m_posted{0};
    HWND m_window = nullptr;
    DWORD m_tid = 0;
    std::thread m_thread;
};

class CrossThreadMessages : public ::testing::Test {
protected:
    void SetUp() override { ResetCurrentThreadQueues(); }
    void TearDown() override { ResetCurrentThreadQueues(); }
};

TEST_F(CrossThreadMessages, PostToAThreadOrWindowWithoutQueueGives1444)
{
    ThreadWithoutQueue worker;
    HWND gone = CreateQueueWindow(ComputeProc);
    DestroyWindow(gone);
    const std::pair<HWND, DWORD> targets[] = {
        {nullptr, worker.id()}, {nullptr, 0x7FFFFFF0u}, {gone, POST_TO_WINDOW_THREAD}};
    for (const auto &[hWnd, tid] : targets) {
        SetLastError(0);
        EXPECT_EQ(LockedPost(hWnd, WM_USER, 0, 0, tid), 0);
        EXPECT_EQ(GetLastError(), 1444u);
    }
}

TEST_F(CrossThreadMessages, PostsAndSendsReachTheWindowsThreadUnlessTheyCarryPointers)
{
    ServingWorker worker;
    for (UINT message : {WM_CREATE, WM_NCCREATE, WM_SETTEXT, WM_GETTEXT}) {
        SetLastError(0);
        EXPECT_EQ(LockedPost(nullptr, message), 0);
        EXPECT_EQ(GetLastError(), 87u);
        SetLastError(0);
        EXPECT_EQ(LockedSend(worker.window(), message), 0);
        EXPECT_EQ(GetLastError(), 87u);
    }
    MSG msg;
    EXPECT_FALSE(LockedPeek(&msg));
    for (int i = 0; i < 10; ++i)
        ASSERT_EQ(LockedPost(worker.window(), WM_USER), 1);
    ASSERT_EQ(LockedPost(nullptr, WM_USER, 0, 0, worker.tid()), 1);
    for (WPARAM i = 0; i < 100; ++i)
        EXPECT_EQ(LockedSend(worker.window(), WM_COMPUTE, i, 5), static_cast<LRESULT>(i * 3 + 5));
    EXPECT_TRUE(SpinUntil([&] { return worker.posted() == 11; }, 5000));
}

TEST_F(CrossThreadMessages, AWindowsThreadTakesSendsFromTheMomentTheWindowExists)
{
    std::atomic<HWND> window{nullptr};
    std::atomic<bool> answered{false};
    std::thread worker([&] {
        window = CreateQueueWindow(ComputeProc);
        // No message call yet: only the window's creation gave this thread
        // its queue.
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
        ServeMessagesUntil([&] { return answered.load(); });
    });
    SpinUntil([&] { return window.load() != nullptr; });
    EXPECT_EQ(LockedSend(window, WM_COMPUTE, 7, 1), 22);
    answered = true;
    worker.join();
}

TEST_F(CrossThreadMessages, TwoThreadsSendingToEachOtherAtOnceBothComplete)
{
    constexpr int kRounds = 200;
    std::atomic<HWND> windows[2] = {};
    std::atomic<int> arrived{0};
    std::atomic<int> correct{0};
    std::atomic<int> finished{0};
    auto run = [&](int self) {
        windows[self] = CreateQueueWindow(ComputeProc);
        SpinUntil([&] { return windows[1 - self].load() != nullptr; });
        for (int round = 0; round < kRounds; ++round) {
            const int goal = 2 * (round + 1);
            ++arrived;
            // Waiting without serving would block the other side's send.
            ServeMessagesUntil([&] { return arrived.load() >= goal; });
            correct += LockedSend(windows[1 - self], WM_COMPUTE, round, self) ==
                       static_cast<LRESULT>(round * 3 + self);
        }
        ++finished;
        ServeMessagesUntil([&] { return finished.load() == 2; });
    };
    std::thread first(run, 0);
    std::thread second(run, 1);
    const bool inTime = SpinUntil([&] { return finished.load() == 2; }, 20000);
    ASSERT_TRUE(inTime) << "two threads sending to each other did not complete";
    first.join();
    second.join();
    EXPECT_EQ(correct.load(), 2 * kRounds);
}

TEST_F(CrossThreadMessages, MainAndWorkerSendingToEachOtherAtOnceBothComplete)
{
    HWND mainWindow = CreateQueueWindow(ComputeProc);
    ServingWorker worker;
    std::atomic<bool> go{false};
    std::atomic<int> correct{0};
    std::atomic<bool> done{false};
    std::thread sender([&] {
        SpinUntil([&] { return go.load(); });
        for (WPARAM i = 0; i < 100; ++i)
            correct += LockedSend(mainWindow, WM_COMPUTE, i, 2) == static_cast<LRESULT>(i * 3 + 2);
        done = true;
    });
    go = true;
    int mainCorrect = 0;
    for (WPARAM i = 0; i < 100; ++i)
        mainCorrect += LockedSend(worker.window(), WM_COMPUTE, i, 4) == static_cast<LRESULT>(i * 3 + 4);
    EXPECT_TRUE(ServeMessagesUntil([&] { return done.load(); }));
    sender.join();
    EXPECT_EQ(mainCorrect, 100);
    EXPECT_EQ(correct.load(), 100);
    DestroyWindow(mainWindow);
}

// The main thread sends to X (outer wait).  Meanwhile Y sends to the main
// thread's window, whose procedure sends to Z (inner wait).  X answers the
// outer send while the main thread waits for Z.  Each send must get its own
// answer.
struct NestedSendScenario {
    std::atomic<bool> outerRunning{false};
    std::atomic<bool> innerStarted{false};
    std::atomic<bool> outerReplied{false};
    std::atomic<HWND> zWindow{nullptr};
    std::atomic<LRESULT> innerResult{-1};
};
NestedSendScenario *g_nested = nullptr;

LRESULT CALLBACK OuterTargetProc(HWND, UINT, WPARAM, LPARAM)
{
    g_nested->outerRunning = true;
    SpinUntil([] { return g_nested->innerStarted.load(); });
    return 111;
}

LRESULT CALLBACK InnerTargetProc(HWND, UINT, WPARAM, LPARAM)
{
    g_nested->innerStarted = true;
    SpinUntil([] { return g_nested->outerReplied.load(); });
    return 222;
}

LRESULT CALLBACK MainWindowProc(HWND, UINT, WPARAM, LPARAM)
{
    // Runs on the main thread inside the reply wait of the outer send.
    g_nested->innerResult = LockedSend(g_nested->zWindow, WM_COMPUTE);
    return 333;
}

TEST_F(CrossThreadMessages, NestedSendDuringAReplyWaitLosesNoReply)
{
    NestedSendScenario scenario;
    g_nested = &scenario;
    HWND mainWindow = CreateQueueWindow(MainWindowProc);

    std::atomic<HWND> xWindow{nullptr};
    std::atomic<bool> stop{false};
    std::thread x([&] {
        xWindow = CreateQueueWindow(OuterTargetProc);
        ServeMessagesUntil([&] { return stop.load(); }, nullptr, 30000);
    });
    // X notes the reply once its peek that ran the send has returned.
    std::thread xWatcher([&] {
        SpinUntil([&] { return scenario.innerStarted.load(); });
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
        scenario.outerReplied = true;
    });
    std::thread z([&] {
        scenario.zWindow = CreateQueueWindow(InnerTargetProc);
        ServeMessagesUntil([&] { return stop.load(); }, nullptr, 30000);
    });
    std::atomic<LRESULT> yResult{-1};
    std::thread y([&] {
        SpinUntil([&] { return scenario.outerRunning.load(); });
        yResult = LockedSend(mainWindow, WM_COMPUTE);
    });
    SpinUntil([&] { return xWindow.load() != nullptr && scenario.zWindow.load() != nullptr; });

    const LRESULT outer = LockedSend(xWindow, WM_COMPUTE);
    // Serving lets a stuck send fail the test instead of hanging the join.
    EXPECT_TRUE(ServeMessagesUntil([&] { return yResult.load() != -1; }));
    y.join();
    xWatcher.join();
    stop = true;
    x.join();
    z.join();
    EXPECT_EQ(outer, 111);
    EXPECT_EQ(scenario.innerResult.load(), 222);
    EXPECT_EQ(yResult.load(), 333);
    DestroyWindow(mainWindow);
    g_nested = nullptr;
}

TEST_F(CrossThreadMessages, SenderToAThreadThatEndsGetsZero)
{
    std::atomic<HWND> window{nullptr};
    std::atomic<bool> sending{false};
    std::thread worker([&] {
        window = CreateQueueWindow(ComputeProc);
        SpinUntil([&] { return sending.load(); });
        // Ends without serving the send queued while the lock was held.
        vorlan::GtkCriticalSection lock;
    });
    SpinUntil([&] { return window.load() != nullptr; });
    LRESULT result = -1;
    {
        vorlan::GtkCriticalSection lock;
        sending = true;
        MSG msg = {window, WM_COMPUTE, 1, 1, 0, {0, 0}};
        result = PostMessageCore(&msg, TRUE, TRUE, POST_TO_WINDOW_THREAD);
    }
    worker.join();
    EXPECT_EQ(result, 0);
}

} // namespace
