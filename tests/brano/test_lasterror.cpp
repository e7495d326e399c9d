// The last error belongs to the thread that set it.
#include <windows.h>

#include <gtest/gtest.h>
#include <thread>

TEST(LastError, IsPerThread)
{
    SetLastError(ERROR_INVALID_PARAMETER);
    DWORD seenByOther = 0xdead;
    std::thread other([&] {
        seenByOther = GetLastError();
        SetLastError(ERROR_INSUFFICIENT_BUFFER);
    });
    other.join();
    EXPECT_EQ(seenByOther, 0u);
    EXPECT_EQ(GetLastError(), (DWORD)ERROR_INVALID_PARAMETER);
}
