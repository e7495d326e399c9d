// Thread and process ids, the tick counter and Sleep.
#include <windows.h>

#include <gtest/gtest.h>
#include <sys/syscall.h>
#include <thread>
#include <unistd.h>

TEST(ThreadTime, ThreadAndProcessIdsAreTheKernels)
{
    const DWORD id = GetCurrentThreadId();
    EXPECT_NE(id, 0u);
    EXPECT_EQ(id, GetCurrentThreadId()) << "stable";
    EXPECT_EQ(id, static_cast<DWORD>(syscall(SYS_gettid)));
    DWORD other = 0;
    std::thread thread([&] { other = GetCurrentThreadId(); });
    thread.join();
    EXPECT_NE(other, 0u);
    EXPECT_NE(other, id);
    EXPECT_EQ(GetCurrentProcessId(), static_cast<DWORD>(getpid()));
}

TEST(ThreadTime, SleepAdvancesTheTickCount)
{
    const DWORD before = GetTickCount();
    Sleep(50);
    const DWORD elapsed = GetTickCount() - before;
    EXPECT_GE(elapsed, 50u);
    EXPECT_LT(elapsed, 5000u);
    Sleep(0);
    EXPECT_GE(GetTickCount() - before, elapsed) << "never goes backwards";
}
