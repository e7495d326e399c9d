// Timers: ticks against the clock, ids, periods and procedures, and what
// killing a timer or its window does.
#include <gtest/gtest.h>

#include "support/message_recorder.h"
#include "support/queue_helpers.h"

#include <chrono>
#include <vector>

using vorlan_test::MessageRecorder;

namespace {

using Clock = std::chrono::steady_clock;

// Runs the thread's message loop for `ms` milliseconds, dispatching every
// message, and returns the WM_TIMER messages it took.
std::vector<MSG> RunLoop(int ms)
{
    std::vector<MSG> timers;
    const auto end = Clock::now() + std::chrono::milliseconds(ms);
    const UINT_PTR waker = SetTimer(nullptr, 0, 10, nullptr);
    while (Clock::now() < end) {
        MSG msg;
        if (!GetMessageW(&msg, nullptr, 0, 0))
            break;
        if (msg.message == WM_TIMER && msg.wParam != waker)
            timers.push_back(msg);
        DispatchMessageW(&msg);
    }
    KillTimer(nullptr, waker);
    return timers;
}

int CountFor(const std::vector<MSG> &timers, HWND hwnd, UINT_PTR id)
{
    int count = 0;
    for (const MSG &msg : timers)
        count += msg.hwnd == hwnd && msg.wParam == id;
    return count;
}

int g_procedureCalls = 0;

void CALLBACK CountingProc(HWND, UINT message, UINT_PTR, DWORD)
{
    g_procedureCalls += message == WM_TIMER;
}

class Timers : public ::testing::Test {
protected:
    void SetUp() override { vorlan_test::ResetCurrentThreadQueues(); }
    void TearDown() override { vorlan_test::ResetCurrentThreadQueues(); }
    MessageRecorder recorder{"VorlanTimers"};
};

// Short periods are raised to 10 ms, not more; a second SetTimer on the same
// window and id keeps the first period.  Bounds are generous: ticks come
// only while the loop waits.
TEST_F(Timers, PeriodsTickAgainstTheClockAndTheFirstPeriodStays)
{
    const HWND hwnd = recorder.Create(WS_POPUP, 0, 0, 10, 10);
    EXPECT_EQ(SetTimer(hwnd, 1, 1, nullptr), 1u);
    EXPECT_EQ(SetTimer(hwnd, 2, 100, nullptr), 1u);
    EXPECT_EQ(SetTimer(hwnd, 2, 10, nullptr), 1u);
    // A second: 10 ms gives up to 100 ticks, the 36 ms of older systems at
    // most 28.
    const std::vector<MSG> timers = RunLoop(1000);
    const int fast = CountFor(timers, hwnd, 1), slow = CountFor(timers, hwnd, 2);
    EXPECT_GE(fast, 40);
    EXPECT_LE(fast, 105);
    EXPECT_GE(slow, 4);
    EXPECT_LE(slow, 11);
    EXPECT_TRUE(KillTimer(hwnd, 1));
    EXPECT_TRUE(KillTimer(hwnd, 2));
    EXPECT_TRUE(KillTimer(hwnd, 77)) << "an unknown id of a live window";
    EXPECT_EQ(CountFor(RunLoop(100), hwnd, 1), 0);
    DestroyWindow(hwnd);
}

TEST_F(Timers, TimerWithoutAWindowGetsItsOwnIdAndRunsItsProcedure)
{
    g_procedureCalls = 0;
    const UINT_PTR id = SetTimer(nullptr, 5, 20, CountingProc);
    EXPECT_NE(id, 0u);
    EXPECT_NE(id, 5u);
    EXPECT_FALSE(KillTimer(nullptr, 5));
    const std::vector<MSG> timers = RunLoop(200);
    EXPECT_GE(CountFor(timers, nullptr, id), 3);
    EXPECT_EQ(g_procedureCalls, CountFor(timers, nullptr, id));
    EXPECT_TRUE(KillTimer(nullptr, id));
    EXPECT_FALSE(KillTimer(nullptr, id));
}

TEST_F(Timers, AQueuedTickOutlivesKillTimerAndADeadWindowsTimerStops)
{
    const HWND hwnd = recorder.Create(WS_POPUP, 0, 0, 10, 10);
    SetTimer(hwnd, 3, 10, nullptr);
    // Wait for a tick without taking it.
    const auto end = Clock::now() + std::chrono::seconds(2);
    MSG msg;
    while (Clock::now() < end && !PeekMessageW(&msg, hwnd, WM_TIMER, WM_TIMER, PM_NOREMOVE))
        WaitMessage();
    EXPECT_TRUE(KillTimer(hwnd, 3));
    EXPECT_TRUE(PeekMessageW(&msg, hwnd, WM_TIMER, WM_TIMER, PM_REMOVE));
    EXPECT_EQ(msg.wParam, 3u);

    SetTimer(hwnd, 4, 10, nullptr);
    DestroyWindow(hwnd);
    EXPECT_EQ(CountFor(RunLoop(100), hwnd, 4), 0);
    EXPECT_FALSE(KillTimer(hwnd, 4)) << "a dead window";
}

} // namespace
