// Checks a failing call: its result and the last error it leaves.  The last
// error is cleared first, so a value left over from an earlier call cannot
// make the check pass.
#ifndef VORLAN_TESTS_BRANO_EXPECT_LAST_ERROR_H
#define VORLAN_TESTS_BRANO_EXPECT_LAST_ERROR_H

#include <gtest/gtest.h>

#define EXPECT_FAILS_WITH(call, failed, error)                                                                         \
    do {                                                                                                               \
        SetLastError(0);                                                                                               \
        EXPECT_EQ((call), (failed)) << #call;                                                                          \
        EXPECT_EQ(GetLastError(), static_cast<DWORD>(error)) << #call;                                                 \
    } while (0)

#endif
