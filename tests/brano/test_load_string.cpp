// LoadStringW and LoadStringA against the STRINGTABLE of resources/test.rc.
#include <windows.h>

#include "resources/test_resource_ids.h"
#include "support/expect_last_error.h"

#include <cstring>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace {

constexpr WCHAR kSentinelW = 0xBEEF;
constexpr char kSentinelA = '\x5A';

std::u16string Text(const WCHAR *units, int length)
{
    return std::u16string(reinterpret_cast<const char16_t *>(units), static_cast<size_t>(length));
}

// Loads into a buffer larger than cchBufferMax and checks nothing was
// written past it.
std::u16string LoadW(UINT id, int cchBufferMax, int *result)
{
    std::vector<WCHAR> buffer(static_cast<size_t>(cchBufferMax) + 8, kSentinelW);
    *result = LoadStringW(nullptr, id, buffer.data(), cchBufferMax);
    for (size_t i = static_cast<size_t>(cchBufferMax); i < buffer.size(); ++i)
        EXPECT_EQ(buffer[i], kSentinelW) << "unit " << i << " written past cchBufferMax";
    if (cchBufferMax > 0) {
        EXPECT_EQ(buffer[static_cast<size_t>(*result)], 0) << "terminated";
    }
    return Text(buffer.data(), *result);
}

std::string LoadA(UINT id, int cchBufferMax, int *result)
{
    std::vector<char> buffer(static_cast<size_t>(cchBufferMax) + 8, kSentinelA);
    *result = LoadStringA(nullptr, id, buffer.data(), cchBufferMax);
    for (size_t i = static_cast<size_t>(cchBufferMax); i < buffer.size(); ++i)
        EXPECT_EQ(buffer[i], kSentinelA) << "byte " << i << " written past cchBufferMax";
    EXPECT_EQ(buffer[static_cast<size_t>(*result)], '\0') << "terminated";
    return std::string(buffer.data(), static_cast<size_t>(*result));
}

std::string ToAnsi(const std::u16string &text)
{
    const LPCWSTR units = reinterpret_cast<LPCWSTR>(text.data());
    const int length = static_cast<int>(text.size());
    const int bytes = WideCharToMultiByte(CP_ACP, 0, units, length, nullptr, 0, nullptr, nullptr);
    std::string ansi(static_cast<size_t>(bytes), '\0');
    WideCharToMultiByte(CP_ACP, 0, units, length, &ansi[0], bytes, nullptr, nullptr);
    return ansi;
}

std::u16string FromAnsiStrict(const std::string &ansi, bool *ok)
{
    if (ansi.empty()) {
        *ok = true;
        return std::u16string();
    }
    const int length = static_cast<int>(ansi.size());
    const int units = MultiByteToWideChar(CP_ACP, MB_ERR_INVALID_CHARS, ansi.data(), length, nullptr, 0);
    *ok = units > 0;
    if (!*ok)
        return std::u16string();
    std::vector<WCHAR> wide(static_cast<size_t>(units));
    MultiByteToWideChar(CP_ACP, MB_ERR_INVALID_CHARS, ansi.data(), length, wide.data(), units);
    return Text(wide.data(), units);
}

} // namespace

TEST(LoadStringW, StringsFromSeveralBlocksInUtf16TruncatedToBufferMinusOne)
{
    int result = 0;
    EXPECT_EQ(LoadW(IDS_HELLO, 64, &result), u"Hello, resources");
    EXPECT_EQ(result, 16);
    EXPECT_EQ(LoadW(IDS_SECOND_BLOCK, 64, &result), u"Second block");
    EXPECT_EQ(LoadW(IDS_LAST_OF_BLOCK, 64, &result), u"Last of its block");
    EXPECT_EQ(LoadW(IDS_HIGH, 64, &result), u"High id");
    EXPECT_EQ(LoadW(IDS_UNICODE, 64, &result), u"Grüße 中文");
    EXPECT_EQ(result, 8);
    EXPECT_EQ(LoadW(IDS_HELLO, 16, &result), u"Hello, resource");
    EXPECT_EQ(LoadW(IDS_HELLO, 1, &result), u"");
    EXPECT_EQ(result, 0);
}

TEST(LoadStringW, ZeroSizeReturnsAPointerIntoTheResourceMissingAndEmptyStringsNothing)
{
    const WCHAR *text = nullptr;
    const int length = LoadStringW(nullptr, IDS_HELLO, reinterpret_cast<LPWSTR>(&text), 0);
    ASSERT_EQ(length, 16);
    ASSERT_NE(text, nullptr);
    EXPECT_EQ(Text(text, length), u"Hello, resources");
    HRSRC block = FindResourceA(nullptr, MAKEINTRESOURCEA(IDS_HELLO / 16 + 1), MAKEINTRESOURCEA(6));
    const BYTE *data = static_cast<const BYTE *>(LockResource(LoadResource(nullptr, block)));
    EXPECT_EQ(reinterpret_cast<const BYTE *>(text), data + 4) << "points at the stored string";

    for (UINT id : {IDS_EMPTY, IDS_MISSING_IN_BLOCK, IDS_MISSING_BLOCK}) {
        SCOPED_TRACE(id);
        int result = -1;
        EXPECT_FAILS_WITH(LoadW(id, 8, &result), u"", ERROR_RESOURCE_NAME_NOT_FOUND);
        EXPECT_EQ(result, 0);
    }
    const WCHAR *missing = reinterpret_cast<const WCHAR *>(&missing);
    EXPECT_EQ(LoadStringW(nullptr, IDS_MISSING_BLOCK, reinterpret_cast<LPWSTR>(&missing), 0), 0);
    EXPECT_EQ(missing, nullptr);
}

TEST(LoadStringW, BadArguments)
{
    EXPECT_FAILS_WITH(LoadStringW(nullptr, IDS_HELLO, nullptr, 10), 0, ERROR_INVALID_PARAMETER);
    EXPECT_FAILS_WITH(LoadStringW(nullptr, IDS_HELLO, nullptr, 0), 0, ERROR_INVALID_PARAMETER);
    WCHAR buffer[4] = {kSentinelW, kSentinelW, kSentinelW, kSentinelW};
    EXPECT_FAILS_WITH(LoadStringW(nullptr, IDS_HELLO, buffer, -1), 0, ERROR_INVALID_PARAMETER);
    EXPECT_EQ(buffer[0], kSentinelW);
    EXPECT_FAILS_WITH(LoadStringW(reinterpret_cast<HINSTANCE>(0x12340000), IDS_HELLO, buffer, 4), 0,
                      ERROR_MOD_NOT_FOUND);
    EXPECT_EQ(buffer[0], 0);
}

TEST(LoadStringA, StringsInTheAnsiCodePageAndTruncation)
{
    int result = 0;
    EXPECT_EQ(LoadA(IDS_HELLO, 6, &result), "Hello");
    EXPECT_EQ(result, 5);
    EXPECT_EQ(LoadA(IDS_HELLO, 1, &result), "");
    EXPECT_EQ(LoadA(IDS_UNICODE, 64, &result), ToAnsi(u"Grüße 中文"));
}

// Every buffer size gives a prefix that stops at a character boundary.
TEST(LoadStringA, TruncationNeverSplitsACharacter)
{
    const std::u16string wide = u"Grüße 中文";
    const std::string full = ToAnsi(wide);
    for (int size = 1; size <= static_cast<int>(full.size()) + 1; ++size) {
        int result = 0;
        const std::string loaded = LoadA(IDS_UNICODE, size, &result);
        EXPECT_LE(result, size - 1);
        EXPECT_EQ(full.compare(0, loaded.size(), loaded), 0) << "size " << size;
        bool ok = false;
        const std::u16string back = FromAnsiStrict(loaded, &ok);
        EXPECT_TRUE(ok) << "size " << size << ": a character was cut";
        EXPECT_EQ(wide.compare(0, back.size(), back), 0) << "size " << size;
    }
}

TEST(LoadStringA, MissingStringsAndBadArguments)
{
    int result = -1;
    EXPECT_FAILS_WITH(LoadA(IDS_MISSING_BLOCK, 8, &result), "", ERROR_RESOURCE_NAME_NOT_FOUND);
    EXPECT_FAILS_WITH(LoadA(IDS_EMPTY, 8, &result), "", ERROR_RESOURCE_NAME_NOT_FOUND);
    EXPECT_FAILS_WITH(LoadStringA(nullptr, IDS_HELLO, nullptr, 8), 0, ERROR_INVALID_PARAMETER);
    char buffer[4] = {kSentinelA, kSentinelA, kSentinelA, kSentinelA};
    EXPECT_FAILS_WITH(LoadStringA(nullptr, IDS_HELLO, buffer, 0), 0, ERROR_INVALID_PARAMETER);
    EXPECT_EQ(buffer[0], kSentinelA);
}
