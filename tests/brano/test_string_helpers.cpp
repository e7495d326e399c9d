// lstr*, CompareString, the Char* helpers, the host copy helpers, MulDiv.
#include <windows.h>

#include <gtest/gtest.h>

#include <climits>
#include <cstring>
#include <string>

#include "support/expect_last_error.h"
#include "support/locale_child.h"

namespace {

WCHAR *W(char16_t *text)
{
    return reinterpret_cast<WCHAR *>(text);
}

const WCHAR *W(const char16_t *text)
{
    return reinterpret_cast<const WCHAR *>(text);
}

std::u16string U(const WCHAR *text)
{
    return std::u16string(reinterpret_cast<const char16_t *>(text));
}

int Compare(LCID locale, DWORD flags, const char16_t *first, const char16_t *second)
{
    return CompareStringW(locale, flags, W(first), -1, W(second), -1);
}

constexpr LCID kEnglishUs = 0x0409;
constexpr LCID kSwedish = 0x041D;

} // namespace

// ---- Lengths and copies ------------------------------------------------------

TEST(StringCopy, LengthsCopiesAndAppendsAndNullArgumentsGiveNullWithoutFaulting)
{
    EXPECT_EQ(lstrlenA(nullptr), 0);
    EXPECT_EQ(lstrlenW(nullptr), 0);
    EXPECT_EQ(lstrlenA("four"), 4);
    EXPECT_EQ(lstrlenW(W(u"\u4E2D\u6587")), 2);
    char bytes[16];
    EXPECT_EQ(lstrcpyA(bytes, "abc"), bytes);
    EXPECT_EQ(lstrcatA(bytes, "def"), bytes);
    EXPECT_STREQ(bytes, "abcdef");
    WCHAR wide[16];
    EXPECT_EQ(lstrcpyW(wide, W(u"ab")), wide);
    EXPECT_EQ(lstrcatW(wide, W(u"\u00E9")), wide);
    EXPECT_EQ(U(wide), u"ab\u00E9");

    char kept[8] = "keep";
    WCHAR keptWide[8] = {'k', 0};
    EXPECT_EQ(lstrcpyA(nullptr, "x"), nullptr);
    EXPECT_EQ(lstrcpyA(kept, nullptr), nullptr);
    EXPECT_EQ(lstrcpyW(keptWide, nullptr), nullptr);
    EXPECT_EQ(lstrcatA(nullptr, "x"), nullptr);
    EXPECT_EQ(lstrcatA(kept, nullptr), nullptr);
    EXPECT_EQ(lstrcatW(nullptr, W(u"x")), nullptr);
    EXPECT_EQ(lstrcpynA(nullptr, "x", 4), nullptr);
    EXPECT_EQ(lstrcpynA(kept, nullptr, 4), nullptr);
    EXPECT_EQ(lstrcpynW(keptWide, nullptr, 4), nullptr);
    EXPECT_STREQ(kept, "keep");
}

TEST(StringCopy, BoundedCopyTruncatesAndTerminatesAndASizeBelowOneWritesNothing)
{
    char bytes[8];
    std::memset(bytes, 'Z', sizeof bytes);
    EXPECT_EQ(lstrcpynA(bytes, "abcdefgh", 4), bytes);
    EXPECT_STREQ(bytes, "abc");
    EXPECT_EQ(bytes[4], 'Z');
    EXPECT_EQ(lstrcpynA(bytes, "ab", 8), bytes);
    EXPECT_STREQ(bytes, "ab");
    EXPECT_EQ(lstrcpynA(bytes, "new", 0), bytes);
    EXPECT_EQ(lstrcpynA(bytes, "new", -3), bytes);
    EXPECT_STREQ(bytes, "ab");
    EXPECT_EQ(lstrcpynA(bytes, "ab", 1), bytes);
    EXPECT_STREQ(bytes, "");
    WCHAR wide[4] = {'x', 'x', 'x', 'x'};
    EXPECT_EQ(lstrcpynW(wide, W(u"\u4E2D\u6587\u5B57"), 3), wide);
    EXPECT_EQ(U(wide), u"\u4E2D\u6587");
}

TEST(HostCopy, CstrncpyAlwaysTerminatesAndCsetmemFillsExactlyTheBlock)
{
    char bytes[8];
    std::memset(bytes, 'Z', sizeof bytes);
    EXPECT_EQ(Cstrncpy(bytes, "abcdefghij", 5), bytes);
    EXPECT_STREQ(bytes, "abcd");
    EXPECT_EQ(bytes[5], 'Z');
    EXPECT_EQ(Cstrncpy(bytes, "xy", 8), bytes);
    EXPECT_STREQ(bytes, "xy");
    EXPECT_EQ(Cstrncpy(bytes, "q", 0), bytes);
    EXPECT_STREQ(bytes, "xy");
    EXPECT_EQ(Cstrncpy(bytes, nullptr, 4), bytes);
    EXPECT_STREQ(bytes, "");
    EXPECT_EQ(Cstrncpy(nullptr, "x", 4), nullptr);

    unsigned char block[6] = {1, 1, 1, 1, 1, 1};
    EXPECT_EQ(Csetmem(block + 1, 4, 0x1FF), block + 1);
    const unsigned char filled[6] = {1, 0xFF, 0xFF, 0xFF, 0xFF, 1};
    EXPECT_EQ(std::memcmp(block, filled, sizeof block), 0);
    EXPECT_EQ(Csetmem(nullptr, 4, 0), nullptr);
}

// ---- MulDiv ----------------------------------------------------------------------

TEST(MulDiv, RoundsHalfAwayFromZeroWithA64BitIntermediateAndFailsWithMinusOne)
{
    // {number, numerator, denominator, result}
    const int cases[][4] = {
        // Halves round away from zero, whatever the signs.
        {1, 1, 2, 1}, {-1, 1, 2, -1}, {1, 1, -2, -1}, {-1, -1, -2, -1}, {-3, 1, 2, -2}, {-5, 3, 4, -4}, {1, 1, 3, 0},
        // The product is 64 bits wide.
        {INT_MAX, INT_MAX, INT_MAX, INT_MAX}, {INT_MIN, 1, 1, INT_MIN},
        // Division by zero and results that do not fit.
        {0, 0, 0, -1}, {INT_MAX, 2, 1, -1}, {INT_MIN, -1, 1, -1},
    };
    for (const auto &c : cases)
        EXPECT_EQ(MulDiv(c[0], c[1], c[2]), c[3]) << c[0] << " * " << c[1] << " / " << c[2];
}

// ---- CompareString -----------------------------------------------------------------

TEST(CompareString, OrdersLinguisticallyByTheLocale)
{
    EXPECT_EQ(Compare(kEnglishUs, 0, u"abc", u"abd"), CSTR_LESS_THAN);
    // Case only breaks ties (lower case first); letters come before case.
    EXPECT_EQ(Compare(kEnglishUs, 0, u"a", u"A"), CSTR_LESS_THAN);
    EXPECT_EQ(Compare(kEnglishUs, 0, u"a", u"B"), CSTR_LESS_THAN);
    EXPECT_EQ(Compare(kEnglishUs, 0, u"B", u"a"), CSTR_GREATER_THAN);
    EXPECT_EQ(Compare(kEnglishUs, 0, u"", u"a"), CSTR_LESS_THAN);
    // Swedish sorts a-umlaut after z; English sorts it with a.
    EXPECT_EQ(Compare(kEnglishUs, 0, u"\u00E4", u"z"), CSTR_LESS_THAN);
    EXPECT_EQ(Compare(kSwedish, 0, u"\u00E4", u"z"), CSTR_GREATER_THAN);
    EXPECT_EQ(Compare(LOCALE_INVARIANT, 0, u"a", u"B"), CSTR_LESS_THAN);
}

TEST(CompareString, CaseAccentSymbolKanaWidthAndDigitFlagsAndWordSort)
{
    EXPECT_EQ(Compare(kEnglishUs, NORM_IGNORECASE, u"Hello", u"hELLO"), CSTR_EQUAL);
    EXPECT_EQ(Compare(kEnglishUs, 0, u"caf\u00E9", u"cafe"), CSTR_GREATER_THAN);
    EXPECT_EQ(Compare(kEnglishUs, NORM_IGNORECASE, u"caf\u00E9", u"CAFE"), CSTR_GREATER_THAN);
    EXPECT_EQ(Compare(kEnglishUs, NORM_IGNORENONSPACE, u"caf\u00E9", u"cafe"), CSTR_EQUAL);
    // Ignoring accents still tells case apart, lower case first.
    EXPECT_EQ(Compare(kEnglishUs, NORM_IGNORENONSPACE, u"caf\u00E9", u"CAFE"), CSTR_LESS_THAN);
    EXPECT_EQ(Compare(kEnglishUs, NORM_IGNORENONSPACE | NORM_IGNORECASE, u"caf\u00E9", u"CAFE"), CSTR_EQUAL);
    // Precomposed and decomposed forms are the same text.
    EXPECT_EQ(Compare(kEnglishUs, 0, u"\u00E9", u"e\u0301"), CSTR_EQUAL);
    EXPECT_EQ(Compare(kEnglishUs, 0, u"coo", u"co-op"), CSTR_LESS_THAN);
    EXPECT_EQ(Compare(kEnglishUs, 0, u"co-op", u"cop"), CSTR_LESS_THAN);
    EXPECT_EQ(Compare(kEnglishUs, 0, u"it's", u"itself"), CSTR_LESS_THAN);
    EXPECT_NE(Compare(kEnglishUs, 0, u"it's", u"its"), CSTR_EQUAL);
    EXPECT_NE(Compare(kEnglishUs, 0, u"co-op", u"coop"), CSTR_EQUAL);
    // String sort treats the hyphen as a symbol, before all letters.
    EXPECT_EQ(Compare(kEnglishUs, SORT_STRINGSORT, u"co-op", u"coo"), CSTR_LESS_THAN);
    EXPECT_EQ(Compare(kEnglishUs, NORM_IGNORESYMBOLS, u"a.b, c!", u"abc"), CSTR_EQUAL);
    EXPECT_NE(Compare(kEnglishUs, 0, u"a.b", u"ab"), CSTR_EQUAL);
    EXPECT_NE(Compare(kEnglishUs, 0, u"\u30AB", u"\u304B"), CSTR_EQUAL);
    EXPECT_EQ(Compare(kEnglishUs, NORM_IGNOREKANATYPE, u"\u30AB", u"\u304B"), CSTR_EQUAL);
    EXPECT_NE(Compare(kEnglishUs, 0, u"\uFF21", u"A"), CSTR_EQUAL);
    EXPECT_EQ(Compare(kEnglishUs, NORM_IGNOREWIDTH, u"\uFF21\uFF42", u"Ab"), CSTR_EQUAL);
    EXPECT_EQ(Compare(kEnglishUs, NORM_IGNOREWIDTH | NORM_IGNOREKANATYPE, u"\uFF76", u"\u304B"), CSTR_EQUAL);
    EXPECT_EQ(Compare(kEnglishUs, 0, u"file10", u"file9"), CSTR_LESS_THAN);
    EXPECT_EQ(Compare(kEnglishUs, SORT_DIGITSASNUMBERS, u"file10", u"file9"), CSTR_GREATER_THAN);
}

TEST(CompareString, ExplicitLengthsAndTheAnsiForm)
{
    EXPECT_EQ(CompareStringW(kEnglishUs, 0, W(u"abcX"), 3, W(u"abcY"), 3), CSTR_EQUAL);
    EXPECT_EQ(CompareStringW(kEnglishUs, 0, W(u"abc"), 2, W(u"abc"), -1), CSTR_LESS_THAN);
    EXPECT_EQ(CompareStringW(kEnglishUs, 0, W(u"x"), 0, W(u"y"), 0), CSTR_EQUAL);
    EXPECT_EQ(CompareStringA(kEnglishUs, 0, "abcX", 3, "abcY", 3), CSTR_EQUAL);
    EXPECT_EQ(CompareStringA(kEnglishUs, NORM_IGNORECASE, "HELLO", -1, "hello", -1), CSTR_EQUAL);
    EXPECT_EQ(CompareStringA(kEnglishUs, 0, "apple", -1, "Banana", -1), CSTR_LESS_THAN);
    SetLastError(0xBEEF);
    EXPECT_EQ(CompareStringA(kEnglishUs, 0, "x", -1, "x", -1), CSTR_EQUAL);
    EXPECT_EQ(GetLastError(), 0xBEEFu);
}

TEST(CompareString, BadArguments)
{
    EXPECT_FAILS_WITH(CompareStringW(kEnglishUs, 0, nullptr, -1, W(u"a"), -1), 0, ERROR_INVALID_PARAMETER);
    EXPECT_FAILS_WITH(CompareStringA(kEnglishUs, 0, "a", -1, nullptr, -1), 0, ERROR_INVALID_PARAMETER);
    EXPECT_FAILS_WITH(CompareStringW(kEnglishUs, 0x00400000, W(u"a"), -1, W(u"a"), -1), 0, ERROR_INVALID_FLAGS);
    EXPECT_FAILS_WITH(CompareStringW(0x1234, 0, W(u"a"), -1, W(u"a"), -1), 0, ERROR_INVALID_PARAMETER);
}

// ---- lstrcmp ---------------------------------------------------------------------

TEST(Lstrcmp, NullSortsFirstAndTheOrderIsLinguisticNotOrdinal)
{
    EXPECT_EQ(lstrcmpA(nullptr, nullptr), 0);
    EXPECT_LT(lstrcmpA(nullptr, ""), 0);
    EXPECT_GT(lstrcmpA("", nullptr), 0);
    EXPECT_EQ(lstrcmpW(nullptr, nullptr), 0);
    EXPECT_LT(lstrcmpiW(nullptr, W(u"a")), 0);
    EXPECT_GT(lstrcmpiA("a", nullptr), 0);
    // Code unit order would put "B" (0x42) before "a" (0x61).
    EXPECT_LT(lstrcmpA("a", "B"), 0);
    EXPECT_LT(lstrcmpW(W(u"abc"), W(u"ABC")), 0);
    EXPECT_EQ(lstrcmpiW(W(u"\u00C9T\u00C9"), W(u"\u00E9t\u00E9")), 0);
    EXPECT_LT(lstrcmpiW(W(u"apple"), W(u"BANANA")), 0);
}

TEST(LstrcmpChild, DISABLED_SwedishOrder)
{
    EXPECT_GT(lstrcmpW(W(u"\u00E4"), W(u"z")), 0);
    EXPECT_GT(lstrcmpiW(W(u"\u00C4"), W(u"z")), 0);
}

TEST(LstrcmpChild, DISABLED_EnglishOrder)
{
    EXPECT_LT(lstrcmpW(W(u"\u00E4"), W(u"z")), 0);
    EXPECT_LT(lstrcmpA("\xC3\xA4", "z"), 0);
}

TEST(Lstrcmp, UsesTheProcessLocale)
{
    EXPECT_TRUE(locale_child::RunTestInChild("LstrcmpChild.DISABLED_SwedishOrder", {{"LANG", "sv_SE.UTF-8"}}));
    EXPECT_TRUE(locale_child::RunTestInChild("LstrcmpChild.DISABLED_EnglishOrder", {{"LANG", "en_US.UTF-8"}}));
}

// ---- Character helpers -------------------------------------------------------------

TEST(CharCase, StringsInPlaceOneToOneAndSingleCharactersInThePointer)
{
    char16_t text[] = u"Hello \u00C9T\u00C9 \u0130 \u03A3";
    EXPECT_EQ(CharLowerW(W(text)), W(text));
    EXPECT_EQ(std::u16string(text), u"hello \u00E9t\u00E9 i \u03C3");
    EXPECT_EQ(CharUpperW(W(text)), W(text));
    EXPECT_EQ(std::u16string(text), u"HELLO \u00C9T\u00C9 I \u03A3");
    char ansi[] = "MiXeD 123 [Z]";
    EXPECT_EQ(CharLowerA(ansi), ansi);
    EXPECT_STREQ(ansi, "mixed 123 [z]");
    EXPECT_EQ(CharUpperA(ansi), ansi);
    EXPECT_STREQ(ansi, "MIXED 123 [Z]");

    // Full case mapping would turn sharp s into "SS"; Win32 maps one to one.
    char16_t street[] = u"stra\u00DFe";
    CharUpperW(W(street));
    EXPECT_EQ(std::u16string(street), u"STRA\u00DFE");
    char16_t deseret[] = u"\U00010400x";
    CharLowerW(W(deseret));
    EXPECT_EQ(std::u16string(deseret), u"\U00010428x");
    char16_t lone[] = {0xD801, u'A', 0};
    CharLowerW(W(lone));
    EXPECT_EQ(lone[0], 0xD801);
    EXPECT_EQ(lone[1], u'a');

    EXPECT_EQ((UINT_PTR)CharLowerW((LPWSTR)(UINT_PTR)u'Q'), (UINT_PTR)u'q');
    EXPECT_EQ((UINT_PTR)CharUpperW((LPWSTR)(UINT_PTR)0x00E9), (UINT_PTR)0x00C9);
    EXPECT_EQ((UINT_PTR)CharUpperW((LPWSTR)(UINT_PTR)u'7'), (UINT_PTR)u'7');
    EXPECT_EQ((UINT_PTR)CharLowerA((LPSTR)(UINT_PTR)'Q'), (UINT_PTR)'q');
    EXPECT_EQ((UINT_PTR)CharUpperA((LPSTR)(UINT_PTR)'q'), (UINT_PTR)'Q');
    EXPECT_EQ(CharLowerW(nullptr), nullptr);
}

TEST(CharNextPrev, StopAtTheEndsAndWideMovesOverCombiningMarksAndPairs)
{
    const WCHAR *text = W(u"ab");
    EXPECT_EQ(CharNextW(text), text + 1);
    EXPECT_EQ(CharNextW(text + 2), text + 2);
    EXPECT_EQ(CharPrevW(text, text + 2), text + 1);
    EXPECT_EQ(CharPrevW(text, text), text);
    EXPECT_EQ(CharPrevW(text, text + 1), text);
    EXPECT_EQ(CharNextW(nullptr), nullptr);
    const char *ansi = "ab";
    EXPECT_EQ(CharNextA(ansi), ansi + 1);
    EXPECT_EQ(CharNextA(ansi + 2), ansi + 2);
    EXPECT_EQ(CharPrevA(ansi, ansi + 2), ansi + 1);
    EXPECT_EQ(CharPrevA(ansi, ansi), ansi);
    EXPECT_EQ(CharNextA(nullptr), nullptr);
    const WCHAR *marked = W(u"a\u030A\u0301b\U0001F600c");
    EXPECT_EQ(CharNextW(marked), marked + 3);
    EXPECT_EQ(CharNextW(marked + 3), marked + 4);
    EXPECT_EQ(CharNextW(marked + 4), marked + 6);
    EXPECT_EQ(CharPrevW(marked, marked + 3), marked);
    EXPECT_EQ(CharPrevW(marked, marked + 6), marked + 4);
    // A mark at the very start stays where it is.
    const WCHAR *mark = W(u"\u0301x");
    EXPECT_EQ(CharPrevW(mark, mark + 1), mark);
}

// ---- The "A" helpers in particular ANSI pages (child processes) -----------------

TEST(AnsiCharsChild, DISABLED_Windows1252)
{
    ASSERT_EQ(GetACP(), 1252u);
    char text[] = "\xC0\xC9 \xDE x";
    CharLowerA(text);
    EXPECT_STREQ(text, "\xE0\xE9 \xFE x");
    CharUpperA(text);
    EXPECT_STREQ(text, "\xC0\xC9 \xDE X");
    EXPECT_EQ((UINT_PTR)CharLowerA((LPSTR)(UINT_PTR)0xC9), (UINT_PTR)0xE9);
    // y-diaeresis has its capital at 0x9F; micro sign and sharp s have no
    // capital in the page and stay.
    char y[] = "\xFF\xB5\xDF";
    CharUpperA(y);
    EXPECT_STREQ(y, "\x9F\xB5\xDF");
    EXPECT_TRUE(IsCharAlphaA((CHAR)0xC0));
    EXPECT_FALSE(IsCharAlphaA((CHAR)0xD7)); // multiplication sign
    EXPECT_FALSE(IsCharAlphaNumericA((CHAR)0xA9));
    const char *bytes = "\xE9x";
    EXPECT_EQ(CharNextA(bytes), bytes + 1);
}

TEST(AnsiCharsChild, DISABLED_Utf8)
{
    ASSERT_EQ(GetACP(), 65001u);
    char text[] = "\xC3\x80\xC3\x89 A \xE2\x82\xAC";
    CharLowerA(text);
    EXPECT_STREQ(text, "\xC3\xA0\xC3\xA9 a \xE2\x82\xAC");
    const char *bytes = "\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80!";
    EXPECT_EQ(CharNextA(bytes), bytes + 2);
    EXPECT_EQ(CharNextA(bytes + 2), bytes + 5);
    EXPECT_EQ(CharNextA(bytes + 5), bytes + 9);
    EXPECT_EQ(CharPrevA(bytes, bytes + 9), bytes + 5);
    EXPECT_EQ(CharPrevA(bytes, bytes + 5), bytes + 2);
    // A lead byte without its continuation is one character.
    const char *broken = "\xE2x";
    EXPECT_EQ(CharNextA(broken), broken + 1);
    EXPECT_FALSE(IsCharAlphaA((CHAR)0xC3));
    EXPECT_TRUE(IsCharAlphaA('q'));
}

TEST(AnsiCharsChild, DISABLED_ShiftJis)
{
    ASSERT_EQ(GetACP(), 932u);
    // Full-width A lowers to full-width a; the trail byte of katakana A
    // (0x83 0x41) looks like 'A' and must stay.
    char text[] = "\x82\x60\x83\x41Q";
    CharLowerA(text);
    EXPECT_STREQ(text, "\x82\x81\x83\x41q");
    const char *bytes = "\x83\x41z\x82";
    EXPECT_EQ(CharNextA(bytes), bytes + 2);
    EXPECT_EQ(CharNextA(bytes + 2), bytes + 3);
    EXPECT_EQ(CharNextA(bytes + 3), bytes + 4); // lead byte before the terminator
    EXPECT_EQ(CharPrevA(bytes, bytes + 3), bytes + 2);
    EXPECT_EQ(CharPrevA(bytes, bytes + 2), bytes);
    EXPECT_FALSE(IsCharAlphaA((CHAR)0x83));
    EXPECT_TRUE(IsCharAlphaA((CHAR)0xB1)); // half-width katakana A
}

TEST(AnsiChars, FollowTheAnsiPage)
{
    EXPECT_TRUE(locale_child::RunTestInChild("AnsiCharsChild.DISABLED_Windows1252", {{"LANG", "de_DE.ISO-8859-1"}}));
    EXPECT_TRUE(locale_child::RunTestInChild("AnsiCharsChild.DISABLED_Utf8", {{"LANG", "fr_FR.UTF-8"}}));
    EXPECT_TRUE(locale_child::RunTestInChild("AnsiCharsChild.DISABLED_ShiftJis", {{"LANG", "ja_JP.SJIS"}}));
}
