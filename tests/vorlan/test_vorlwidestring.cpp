// The 16-bit string functions through their unsigned short overloads, and
// the ASCII-only case-insensitive comparison.
#include <gtest/gtest.h>

#include "vorlwidestring.h"

#include <cstring>
#include <string>

namespace {

// A terminated 16-bit copy of ASCII text, for building test strings.
std::u16string U(const char *ascii)
{
    std::u16string text;
    for (; *ascii != '\0'; ++ascii)
        text.push_back(char16_t(static_cast<unsigned char>(*ascii)));
    return text;
}

const WCHAR *W(const std::u16string &text)
{
    return reinterpret_cast<const WCHAR *>(text.c_str());
}

} // namespace

TEST(WideStringCompare, ResultIsExactlyMinusOneZeroOrOneAndUnitsCompareUnsigned)
{
    EXPECT_EQ(wcscmp(W(U("abc")), W(U("abc"))), 0);
    EXPECT_EQ(wcscmp(W(U("abc")), W(U("abz"))), -1);
    EXPECT_EQ(wcscmp(W(U("abz")), W(U("abc"))), 1);
    EXPECT_EQ(wcscmp(W(U("ab")), W(U("abc"))), -1);
    EXPECT_EQ(wcscmp(W(U("abc")), W(U("ab"))), 1);
    const WCHAR high[] = {0x8000, 0};
    const WCHAR low[] = {0x0001, 0};
    EXPECT_EQ(wcscmp(high, low), 1);
    EXPECT_EQ(wcscmp(low, high), -1);
}

TEST(WideToNarrowCopy, KeepsLowBytesCopiesAtMostSizeMinusOneAndTerminates)
{
    const WCHAR text[] = {'A', 0x0142, 0xFF41, 'z', 0};
    char out[8];
    std::memset(out, '#', sizeof out);
    EXPECT_EQ(wcs2str(text, out, sizeof out), out);
    EXPECT_EQ(std::string(out), std::string("A\x42\x41z"));
    std::memset(out, '#', sizeof out);
    wcs2str(W(U("abcdefgh")), out, 4);
    EXPECT_EQ(std::string(out), "abc");
    EXPECT_EQ(out[4], '#');
    // Size one or an empty source give an empty string; size zero writes nothing.
    std::memset(out, '#', sizeof out);
    wcs2str(W(U("abc")), out, 1);
    EXPECT_EQ(out[0], '\0');
    EXPECT_EQ(out[1], '#');
    out[0] = '#';
    wcs2str(W(U("")), out, 4);
    EXPECT_EQ(out[0], '\0');
    EXPECT_EQ(out[1], '#');
    out[0] = '#';
    wcs2str(W(U("abc")), out, 0);
    EXPECT_EQ(out[0], '#');
}

TEST(WideCharSearchAndCopy, FindsTheFirstOccurrenceButNeverTheTerminatorAndCopiesWithIt)
{
    const std::u16string text = U("abcabc");
    EXPECT_EQ(wcschr(W(text), 'c'), W(text) + 2);
    EXPECT_EQ(wcschr(W(text), 'x'), nullptr);
    EXPECT_EQ(wcschr(W(text), 0), nullptr);
    WCHAR out[6];
    for (WCHAR &unit : out)
        unit = 0x2323;
    wcscpy(out, W(U("abc")));
    EXPECT_EQ(out[0], 'a');
    EXPECT_EQ(out[2], 'c');
    EXPECT_EQ(out[3], 0);
    EXPECT_EQ(out[4], 0x2323);
}

TEST(WideNumberParsing, IntegersInAnyBaseFromTheLowBytesSettingTheEnd)
{
    const std::u16string text = U("  -1234xyz");
    unsigned short *end = nullptr;
    EXPECT_EQ(wcstol(W(text), &end, 10), -1234);
    EXPECT_EQ(end, W(text) + 7);
    EXPECT_EQ(wcstol(W(U("ff")), nullptr, 16), 255);
    EXPECT_EQ(wcstol(W(U("0x1A")), nullptr, 0), 26);
    const std::u16string letters = U("xyz");
    EXPECT_EQ(wcstol(W(letters), &end, 10), 0);
    EXPECT_EQ(end, W(letters)) << "no digits leave the end at the start";
    // 0x0131 narrows to '1'.
    const WCHAR wide[] = {0x0131, '2', 0};
    EXPECT_EQ(wcstol(wide, nullptr, 10), 12);
    EXPECT_EQ(_wtoi(W(U("42abc"))), 42);
    EXPECT_EQ(_wtoi(W(U(""))), 0);
}

TEST(WideNumberParsing, FloatingPointAndOnlyTheFirst254Units)
{
    const std::u16string text = U("2.5e3rest");
    unsigned short *end = nullptr;
    EXPECT_DOUBLE_EQ(wcstod(W(text), &end), 2500.0);
    EXPECT_EQ(end, W(text) + 5);
    std::u16string ones(300, u'1');
    const double value = wcstod(W(ones), &end);
    EXPECT_EQ(end, W(ones) + 254);
    EXPECT_GT(value, 1e253);
    EXPECT_LT(value, 1e254);
    end = nullptr;
    wcstol(W(ones), &end, 10);
    EXPECT_EQ(end, W(ones) + 254);
}

TEST(LongToText, BinaryIsAlways33DigitsOtherBasesAreShort)
{
    char out[40];
    std::memset(out, '#', sizeof out);
    EXPECT_EQ(ltoa(5, out, 2), out);
    EXPECT_EQ(std::strlen(out), 33u);
    EXPECT_EQ(std::string(out), std::string(30, '0') + "101");
    EXPECT_EQ(out[34], '#');
    EXPECT_EQ(std::string(ltoa(-1, out, 2)), "0" + std::string(32, '1'));
    EXPECT_EQ(std::string(ltoa(-1, out, 16)), "ffffffff");
    EXPECT_EQ(std::string(ltoa(-42, out, 10)), "-42");
    EXPECT_EQ(std::string(ltoa(123, out, 36)), "123");
}

TEST(AsciiCaseInsensitiveCompare, FoldsOnlyAsciiLettersAndGivesTheDifference)
{
    EXPECT_EQ(ascii_lstrcmpiW(W(U("Hello")), W(U("hELLO"))), 0);
    EXPECT_EQ(ascii_lstrcmpiW(W(U("abc")), W(U("ABD"))), 'c' - 'd');
    const WCHAR upperAGrave[] = {0x00C0, 0};
    const WCHAR lowerAGrave[] = {0x00E0, 0};
    EXPECT_EQ(ascii_lstrcmpiW(upperAGrave, lowerAGrave), 0xC0 - 0xE0);
    EXPECT_EQ(ascii_lstrcmpiW(upperAGrave, upperAGrave), 0);
    // '[' (91) lies just above 'Z' and must stay as it is.
    EXPECT_EQ(ascii_lstrcmpiW(W(U("[")), W(U("{"))), '[' - '{');
    EXPECT_EQ(ascii_lstrcmpiW(W(U("ab")), W(U("abc"))), -'c');
    EXPECT_EQ(ascii_lstrcmpiW(W(U("abc")), W(U("ab"))), 'c');
}
