// UTF-8 GStrings from 16-bit units and ANSI bytes, and back to units.
#include <gtest/gtest.h>

#include "vorltextencoding.h"

#include <string>

namespace {

std::string Take(GString *string)
{
    std::string text(string->str, string->len);
    g_string_free(string, TRUE);
    return text;
}

} // namespace

TEST(WideToUtf8, EncodesEachUnitSkipsZeroUnitsAndGivesEmptyForNoText)
{
    const WCHAR text[] = {'a', 0x00E9, 0x20AC, 0};
    EXPECT_EQ(Take(vorlan::WideCharToUTF8(text, 3)), "a\xc3\xa9\xe2\x82\xac");
    const WCHAR gap[] = {'a', 0, 'b', 0};
    EXPECT_EQ(Take(vorlan::WideCharToUTF8(gap, 3)), "ab");
    EXPECT_EQ(Take(vorlan::WideCharToUTF8(nullptr, 4)), "");
    EXPECT_EQ(Take(vorlan::WideCharToUTF8(text, 0)), "");
    EXPECT_EQ(Take(vorlan::WideCharToUTF8(text, -3)), "");
}

TEST(AnsiToUtf8, ValidUtf8PassesThroughOtherTextIsConvertedFromTheLocale)
{
    EXPECT_EQ(Take(vorlan::ANSItoUTF8("w\xc3\xb6rld!", 6)), "w\xc3\xb6rld");
    EXPECT_EQ(Take(vorlan::ANSItoUTF8("plain", -1)), "plain");
    const std::string converted = Take(vorlan::ANSItoUTF8("caf\xe9", 4));
    EXPECT_TRUE(g_utf8_validate(converted.c_str(), gssize(converted.size()), nullptr));
    EXPECT_EQ(Take(vorlan::ANSItoUTF8(nullptr, 5)), "");
}

TEST(WideFromUtf8, SignExtendsEachByteAndNeverReadsBeyondTheString)
{
    GString *string = g_string_new("a\xc3\xa9");
    WCHAR out[6] = {0x2323, 0x2323, 0x2323, 0x2323, 0x2323, 0x2323};
    EXPECT_EQ(vorlan::WideCharFromUTF8(string, 3, out), 1);
    EXPECT_EQ(out[0], 'a');
    EXPECT_EQ(out[1], 0xFFC3);
    EXPECT_EQ(out[2], 0xFFA9);
    EXPECT_EQ(out[3], 0);
    EXPECT_EQ(out[4], 0x2323);
    g_string_free(string, TRUE);
    GString *shorter = g_string_new("ab");
    WCHAR wide[8];
    EXPECT_EQ(vorlan::WideCharFromUTF8(shorter, 100, wide), 1);
    EXPECT_EQ(wide[2], 0);
    g_string_free(shorter, TRUE);
}

TEST(WideFromUtf8, NullArgumentsGiveZeroAndWriteNothing)
{
    GString *string = g_string_new("abc");
    WCHAR out[2] = {0x2323, 0x2323};
    EXPECT_EQ(vorlan::WideCharFromUTF8(nullptr, 3, out), 0);
    EXPECT_EQ(vorlan::WideCharFromUTF8(string, 3, nullptr), 0);
    EXPECT_EQ(out[0], 0x2323);
    g_string_free(string, TRUE);
}
