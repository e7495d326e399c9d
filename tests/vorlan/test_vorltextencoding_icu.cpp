// WCSToMBS, MBSToWCS and CompareUnicodeString.
#include <gtest/gtest.h>

#include "support/expect_last_error.h"
#include "vorltextencoding.h"

#include <cstring>
#include <string>

namespace {

std::u16string U(const std::string &ascii)
{
    return std::u16string(ascii.begin(), ascii.end());
}

const WCHAR *W(const std::u16string &text)
{
    return reinterpret_cast<const WCHAR *>(text.c_str());
}

} // namespace

TEST(WideToAnsiEntry, ConvertsCountedOrTerminatedSourcesWithinTheSize)
{
    EXPECT_EQ(WCSToMBS(W(U("hello")), -1, nullptr, 0), 5) << "size zero: the length without terminator";
    char out[16];
    std::memset(out, '#', sizeof out);
    EXPECT_EQ(WCSToMBS(W(U("hello")), -1, out, sizeof out), 5);
    EXPECT_STREQ(out, "hello");
    EXPECT_EQ(out[6], '#');
    std::memset(out, '#', sizeof out);
    EXPECT_EQ(WCSToMBS(W(U("abcdefgh")), -1, out, 4), 3);
    EXPECT_STREQ(out, "abc");
    EXPECT_EQ(out[4], '#');
    std::memset(out, '#', sizeof out);
    EXPECT_EQ(WCSToMBS(W(U("abc")), -1, out, 1), 0);
    EXPECT_EQ(out[0], '\0');
    EXPECT_EQ(out[1], '#');
}

TEST(WideToAnsiEntry, BadArgumentsWriteNothing)
{
    EXPECT_FAILS_WITH(WCSToMBS(W(U("abc")), -1, nullptr, 4), 0, ERROR_INVALID_PARAMETER);
    char out[2] = {'#', '#'};
    EXPECT_EQ(WCSToMBS(W(U("abc")), -1, out, -1), 0);
    EXPECT_EQ(out[0], '#');
    EXPECT_EQ(WCSToMBS(nullptr, 5, out, 2), 0);
    EXPECT_EQ(out[0], '\0');
}

TEST(AnsiToWideEntry, DoesNothing)
{
    WCHAR out[4] = {0x2323, 0x2323, 0x2323, 0x2323};
    EXPECT_EQ(MBSToWCS("abc", -1, out, 4), 0);
    for (WCHAR unit : out)
        EXPECT_EQ(unit, 0x2323);
}

TEST(CompareUnicode, PrefixesAndLimitedLengthsCompareEqualCaseMattersWithoutBitZero)
{
    EXPECT_EQ(CompareUnicodeString(0, W(U("abc")), -1, W(U("abcdef")), -1), 0);
    EXPECT_EQ(CompareUnicodeString(0, W(U("abcdef")), -1, W(U("abc")), -1), 0);
    EXPECT_EQ(CompareUnicodeString(0, W(U("abX")), 2, W(U("abY")), 3), 0);
    EXPECT_EQ(CompareUnicodeString(0, W(U("xyz")), 0, W(U("abc")), -1), 0);
    EXPECT_LT(CompareUnicodeString(0, W(U("ABC")), -1, W(U("abc")), -1), 0);
    EXPECT_GT(CompareUnicodeString(0, W(U("abd")), -1, W(U("abc")), -1), 0);
    EXPECT_EQ(CompareUnicodeString(1, W(U("ABC")), -1, W(U("abc")), -1), 0);
    const WCHAR upper[] = {0x00C9, 0};
    const WCHAR lower[] = {0x00E9, 0};
    EXPECT_EQ(CompareUnicodeString(1, upper, -1, lower, -1), 0);
    EXPECT_NE(CompareUnicodeString(0, upper, -1, lower, -1), 0);
}
