// Charset, code page and language tables and their helpers.
#include <gtest/gtest.h>

#include "vorltextencoding.h"

#include <cstdlib>
#include <optional>
#include <string>

namespace {

// Sets LANG (or removes it) for the lifetime of the object.
class ScopedLang {
public:
    explicit ScopedLang(const char *value)
    {
        const char *old = std::getenv("LANG");
        if (old != nullptr)
            m_saved = old;
        if (value != nullptr)
            setenv("LANG", value, 1);
        else
            unsetenv("LANG");
    }
    ~ScopedLang()
    {
        if (m_saved)
            setenv("LANG", m_saved->c_str(), 1);
        else
            unsetenv("LANG");
    }

private:
    std::optional<std::string> m_saved;
};

std::string LangOf(UINT charset)
{
    GString *string = g_string_new("prefix:");
    vorlan::getLangByCharset(charset, string);
    std::string result(string->str);
    g_string_free(string, TRUE);
    return result;
}

} // namespace

TEST(CodepageByCharset, DefaultCharsetsGiveTheProcessPageUnknownOnesWestern)
{
    EXPECT_EQ(vorlan::getCodepageByCharset(0), GetACP());
    EXPECT_EQ(vorlan::getCodepageByCharset(1), vorlan::getCodepageByCharset(0));
    EXPECT_EQ(vorlan::getCodepageByCharset(238), 1250u);
    EXPECT_EQ(vorlan::getCodepageByCharset(163), 1252u);
    EXPECT_EQ(vorlan::getCodepageByCharset(77), 1252u);
}

TEST(LangByCharset, NamedCharsetsAndANullStringIsIgnored)
{
    EXPECT_EQ(LangOf(128), "prefix:ja");
    EXPECT_EQ(LangOf(238), "prefix:en-us");
    vorlan::getLangByCharset(128, nullptr);
}

TEST(LangByCharset, DefaultCharsetMatchesWholeLangIgnoringCaseAndNoLangGivesEnglish)
{
    {
        ScopedLang lang("ZH_cn");
        EXPECT_EQ(LangOf(1), "prefix:zh-cn");
        EXPECT_EQ(LangOf(0), "prefix:zh-cn");
    }
    {
        ScopedLang lang("zh_CN.UTF-8");
        EXPECT_EQ(LangOf(1), "prefix:en-us");
    }
    {
        ScopedLang lang("en_US.UTF-8");
        EXPECT_EQ(LangOf(0), "prefix:en-utf8");
    }
    ScopedLang lang(nullptr);
    EXPECT_EQ(LangOf(0), "prefix:en-us");
}
