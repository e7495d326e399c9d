// StringTranslator: results, where long text spills to the heap, counted
// sources, the intermediate slot and failures.
#include <gtest/gtest.h>

#include "vorltextencoding.h"

#include <cstddef>
#include <string>

using vorlan::StringTranslator;

namespace {

constexpr UINT kWestern = 1252;

std::u16string U(const std::string &ascii)
{
    return std::u16string(ascii.begin(), ascii.end());
}

const WCHAR *W(const std::u16string &text)
{
    return reinterpret_cast<const WCHAR *>(text.c_str());
}

std::u16string AsU16(const WCHAR *text)
{
    return std::u16string(reinterpret_cast<const char16_t *>(text));
}

bool InsideObject(const StringTranslator &translator, const void *pointer)
{
    const char *begin = reinterpret_cast<const char *>(&translator);
    const char *at = static_cast<const char *>(pointer);
    return at >= begin && at < begin + sizeof translator;
}

} // namespace

TEST(StringTranslatorToNarrow, CountedSourceIsTerminatedBehindItsTextAndMayNotBeEmpty)
{
    StringTranslator translator;
    const std::u16string text = U("abcdef");
    EXPECT_STREQ(translator.Utf16ToAnsi(W(text), 3), "abc");
    const char *full = translator.Utf16ToAnsi(W(U(std::string(63, 'z'))), 63);
    ASSERT_NE(full, nullptr);
    EXPECT_TRUE(InsideObject(translator, full));
    const char *spilled = translator.Utf16ToAnsi(W(U(std::string(64, 'z'))), 64);
    ASSERT_NE(spilled, nullptr);
    EXPECT_EQ(std::string(spilled), std::string(64, 'z'));
    EXPECT_FALSE(InsideObject(translator, spilled));
    const std::u16string empty;
    EXPECT_EQ(translator.Utf16ToAnsi(W(empty), 0), nullptr);
    const char *result = translator.Utf16ToAnsi(W(empty), -1);
    ASSERT_NE(result, nullptr);
    EXPECT_STREQ(result, "");
}

TEST(StringTranslatorToNarrow, ExplicitCodePageAndUtf8)
{
    StringTranslator translator;
    const WCHAR text[] = {'c', 0xE9, 0};
    EXPECT_STREQ(translator.Utf16ToAnsi(text, -1, kWestern), "c\xe9");
    EXPECT_STREQ(translator.Utf16ToUtf8(text), "c\xc3\xa9");
}

TEST(StringTranslatorToWide, ThirtyOneUnitsStayInlineThirtyTwoGoToHeapAndCountedSourcesAreTerminated)
{
    StringTranslator translator;
    const WCHAR *inlineResult = translator.AnsiToUtf16(std::string(31, 'a').c_str());
    ASSERT_NE(inlineResult, nullptr);
    EXPECT_EQ(AsU16(inlineResult), U(std::string(31, 'a')));
    EXPECT_TRUE(InsideObject(translator, inlineResult));
    const WCHAR *heapResult = translator.AnsiToUtf16(std::string(32, 'b').c_str());
    ASSERT_NE(heapResult, nullptr);
    EXPECT_EQ(AsU16(heapResult), U(std::string(32, 'b')));
    EXPECT_FALSE(InsideObject(translator, heapResult));
    const WCHAR *counted = translator.AnsiToUtf16("abcdef", 2);
    ASSERT_NE(counted, nullptr);
    EXPECT_EQ(AsU16(counted), U("ab"));
    EXPECT_EQ(translator.AnsiToUtf16("abc", 0), nullptr);
    const WCHAR *decoded = translator.Utf8ToUtf16("w\xc3\xb6rld");
    ASSERT_NE(decoded, nullptr);
    EXPECT_EQ(AsU16(decoded), (std::u16string{u'w', u'\u00f6', u'r', u'l', u'd'}));
}

TEST(StringTranslatorThroughWide, KeepsTheIntermediateAndLongTextSpillsBothSlots)
{
    StringTranslator translator;
    const char *result = translator.Utf8ToAnsi("caf\xc3\xa9", -1, kWestern);
    ASSERT_NE(result, nullptr);
    EXPECT_STREQ(result, "caf\xe9");
    ASSERT_NE(translator.wide(), nullptr);
    EXPECT_EQ(AsU16(translator.wide()), (std::u16string{u'c', u'a', u'f', u'\u00e9'}));
    EXPECT_STREQ(translator.AnsiToUtf8("\xe9t\xe9xyz", 3, kWestern), "\xc3\xa9t\xc3\xa9");
    const std::string text(100, 'q');
    result = translator.AnsiToUtf8(text.c_str(), -1, kWestern);
    ASSERT_NE(result, nullptr);
    EXPECT_EQ(std::string(result), text);
    EXPECT_FALSE(InsideObject(translator, result));
    EXPECT_FALSE(InsideObject(translator, translator.wide()));
}

TEST(StringTranslatorFailure, InvalidSourceOrHostFailureGivesNullAndClears)
{
    StringTranslator translator;
    EXPECT_EQ(translator.Utf8ToAnsi("", 0, kWestern), nullptr);
    EXPECT_EQ(translator.wide(), nullptr);
    EXPECT_EQ(translator.narrow(), nullptr);
    ASSERT_NE(translator.Utf16ToAnsi(W(U(std::string(80, 'k')))), nullptr);
    // The host knows no code page 12.
    EXPECT_EQ(translator.AnsiToUtf16("abc", -1, 12), nullptr);
    EXPECT_EQ(translator.wide(), nullptr);
    EXPECT_EQ(translator.narrow(), nullptr);
}

TEST(StringTranslatorClear, EachConversionStartsFresh)
{
    StringTranslator translator;
    ASSERT_NE(translator.AnsiToUtf16(std::string(50, 'w').c_str()), nullptr);
    ASSERT_NE(translator.Utf16ToAnsi(W(U("n"))), nullptr);
    EXPECT_EQ(translator.wide(), nullptr);
    translator.Clear();
    EXPECT_EQ(translator.narrow(), nullptr);
    translator.Clear();
    EXPECT_EQ(translator.narrow(), nullptr);
}
