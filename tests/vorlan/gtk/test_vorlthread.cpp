// Thread data: made by its own thread only, found by id, removed when a
// worker ends (with its windows) and never for the main thread; wait and
// notify across threads.

#include <gtest/gtest.h>

#include "gtk/vorlglobals.h"
#include "gtk/vorlgtklock.h"
#include "gtk/vorltestwindows.h"
#include "gtk/vorlthread.h"
#include "support/queue_helpers.h"

#include <atomic>
#include <chrono>
#include <future>
#include <thread>

using namespace vorlan_test;

namespace {

LRESULT CALLBACK ZeroProc(HWND, UINT, WPARAM, LPARAM)
{
    return 0;
}

TEST(VorlThread, CurrentThreadDataIsMadeOnceAndTheMainThreadsHasTheDefaultContext)
{
    ThreadData *data = ThreadData::GetCurrentThreadData();
    ASSERT_NE(data, nullptr);
    EXPECT_EQ(data->tid, GetCurrentThreadId());
    EXPECT_EQ(ThreadData::GetCurrentThreadData(), data);
    EXPECT_EQ(ThreadData::GetThreadData(GetCurrentThreadId(), FALSE), data);
    ASSERT_EQ(GetCurrentThreadId(), vorlan::g_vorlData.dwMainThreadId);
    EXPECT_EQ(data->context, g_main_context_default());
}

TEST(VorlThread, NewDataStartsEmptyWithTheCaretHidden)
{
    std::thread worker([] {
        ThreadData *data = ThreadData::GetCurrentThreadData();
        EXPECT_NE(data->context, g_main_context_default());
        EXPECT_EQ(data->nCaretHide, 1);
        EXPECT_EQ(data->qsFlags.load(), 0u);
        EXPECT_TRUE(data->qMsgs.empty());
        EXPECT_EQ(data->rcCaret.right - data->rcCaret.left, 0);
        EXPECT_EQ(data->keyState[VK_SHIFT], 0);
    });
    worker.join();
}

// Thread data is made by its own thread only; id 0 without a foreground
// thread names none.
TEST(VorlThread, ForeignThreadDataIsNeverMadeFromOutside)
{
    std::promise<DWORD> idOfWorker;
    std::promise<void> release;
    std::thread worker([&] {
        idOfWorker.set_value(GetCurrentThreadId());
        release.get_future().wait();
    });
    const DWORD workerId = idOfWorker.get_future().get();
    EXPECT_EQ(ThreadData::GetThreadData(workerId, TRUE), nullptr);
    EXPECT_EQ(ThreadData::GetThreadData(workerId, FALSE), nullptr);
    EXPECT_EQ(ThreadData::GetThreadData(0, TRUE), nullptr);
    release.set_value();
    worker.join();
}

// A worker that ends loses its data and its windows; thread_exit on the
// main thread keeps both.
TEST(VorlThread, EndingWorkerLosesItsDataAndWindowsButTheMainThreadKeepsItsOwn)
{
    DWORD workerId = 0;
    HWND workerWindow = nullptr;
    std::thread worker([&] {
        workerId = GetCurrentThreadId();
        workerWindow = vorlan::testing::CreateTestWindow(ZeroProc);
    });
    worker.join();
    EXPECT_EQ(ThreadData::GetThreadData(workerId, FALSE), nullptr);
    EXPECT_FALSE(vorlan::testing::IsTestWindow(workerWindow));
    {
        std::lock_guard<std::recursive_mutex> guard(g_threadListMutex);
        for (ThreadData *data : ThreadData::list())
            EXPECT_NE(data->tid, workerId);
    }

    ThreadData *data = ThreadData::GetCurrentThreadData();
    HWND window = vorlan::testing::CreateTestWindow(ZeroProc);
    ThreadData::thread_exit(data);
    EXPECT_EQ(ThreadData::GetThreadData(GetCurrentThreadId(), FALSE), data);
    EXPECT_TRUE(vorlan::testing::IsTestWindow(window));
    vorlan::testing::DestroyTestWindow(window);
}

TEST(VorlThread, NotifyWakesAWorkerThatWaits)
{
    std::atomic<ThreadData *> workerData{nullptr};
    std::atomic<bool> woke{false};
    std::thread worker([&] {
        ThreadData *data = ThreadData::GetCurrentThreadData();
        workerData = data;
        vorlan::GtkCriticalSection lock;
        data->wait();
        woke = true;
    });
    ASSERT_TRUE(SpinUntil([&] { return workerData.load() != nullptr; }));
    // The wake-up is kept if it comes before the worker blocks.
    workerData.load()->notify();
    const bool wokeInTime = SpinUntil([&] { return woke.load(); }, 5000);
    if (!wokeInTime)
        workerData.load()->notify();
    worker.join();
    EXPECT_TRUE(wokeInTime);
}

// The pump of the main thread can take the wake-up of a message that arrives
// after the queues were looked at; waiting must not then sleep on it.
TEST(VorlThread, WaitReturnsForAMessageWhoseWakeUpWasTaken)
{
    ResetCurrentThreadQueues();
    ThreadData *data = ThreadData::GetCurrentThreadData();
    std::thread poster([] { LockedPost(nullptr, WM_USER, 0, 0, vorlan::g_vorlData.dwMainThreadId); });
    poster.join();
    while (g_main_context_iteration(nullptr, FALSE)) {
    }
    std::atomic<bool> waited{false};
    std::thread rescuer([&] {
        if (!SpinUntil([&] { return waited.load(); }, 3000))
            g_main_context_wakeup(nullptr);
    });
    const auto start = std::chrono::steady_clock::now();
    {
        vorlan::GtkCriticalSection lock;
        data->waitMessage();
    }
    waited = true;
    rescuer.join();
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(2));
    MSG msg;
    ASSERT_TRUE(LockedPeek(&msg));
    EXPECT_EQ(msg.message, static_cast<UINT>(WM_USER));
}

TEST(VorlThread, CaretWindowAndActiveWindowAreTheCallersOwn)
{
    ThreadData *data = ThreadData::GetCurrentThreadData();
    const HWND previousActive = data->hWndActive;
    HWND marker = reinterpret_cast<HWND>(0x1234);
    SetCurrentThreadActiveWindow(marker);
    EXPECT_EQ(data->hWndActive, marker);
    data->hWndCaret = marker;
    EXPECT_EQ(GetCaretWindow(), marker);
    data->hWndCaret = nullptr;
    SetCurrentThreadActiveWindow(previousActive);
}

} // namespace
