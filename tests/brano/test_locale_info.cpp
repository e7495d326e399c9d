// GetLocaleInfoA and the default locale identifiers.
#include <windows.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <initializer_list>
#include <string>
#include <vector>

#include "support/expect_last_error.h"
#include "support/locale_child.h"

namespace {

constexpr LCID kEnglishUs = 0x0409;
constexpr LCID kGerman = 0x0407;
constexpr LCID kJapanese = 0x0411;
constexpr LCID kChinesePrc = 0x0804;
constexpr LCID kRussian = 0x0419;
constexpr LCID kHindi = 0x0439;

// The value as text; "<error N>" when the call fails.
std::string Info(LCID locale, LCTYPE type)
{
    int needed = GetLocaleInfoA(locale, type, nullptr, 0);
    if (needed <= 0)
        return "<error " + std::to_string(GetLastError()) + ">";
    std::vector<char> buffer((size_t)needed + 8, '#');
    int written = GetLocaleInfoA(locale, type, buffer.data(), needed);
    EXPECT_EQ(written, needed);
    EXPECT_EQ(buffer[(size_t)needed - 1], '\0');
    EXPECT_EQ(buffer[(size_t)needed], '#');
    return std::string(buffer.data());
}

struct Expected {
    LCTYPE type;
    const char *value;
};

void ExpectInfo(LCID locale, std::initializer_list<Expected> values)
{
    for (const Expected &e : values)
        EXPECT_EQ(Info(locale, e.type), e.value) << "locale " << std::hex << locale << " type " << e.type;
}

} // namespace

// Day names start on Monday.
TEST(LocaleInfo, EnglishUnitedStatesConventions)
{
    ExpectInfo(kEnglishUs, {
        {LOCALE_SENGLANGUAGE, "English"}, {LOCALE_SISO3166CTRYNAME, "US"}, {LOCALE_ILANGUAGE, "0409"},
        {LOCALE_SGROUPING, "3;0"}, {LOCALE_SPOSITIVESIGN, ""}, {LOCALE_SSHORTDATE, "M/d/yyyy"},
        {LOCALE_STIMEFORMAT, "h:mm:ss tt"}, {LOCALE_IFIRSTDAYOFWEEK, "6"}, {LOCALE_SDAYNAME1, "Monday"},
        {LOCALE_SDAYNAME7, "Sunday"}, {LOCALE_SABBREVMONTHNAME12, "Dec"},
    });
}

TEST(LocaleInfo, GermanConventions)
{
    ExpectInfo(kGerman, {
        {LOCALE_SNATIVELANGNAME, "Deutsch"}, {LOCALE_SDECIMAL, ","}, {LOCALE_STHOUSAND, "."},
        {LOCALE_ICURRENCY, "3"}, {LOCALE_SSHORTDATE, "dd.MM.yyyy"}, {LOCALE_STIMEFORMAT, "HH:mm:ss"},
        {LOCALE_IFIRSTWEEKOFYEAR, "2"}, {LOCALE_SDAYNAME1, "Montag"},
    });
}

TEST(LocaleInfo, EastAsianOtherLanguageNeutralAndInvariantLocales)
{
    ExpectInfo(kJapanese, {
        {LOCALE_SSHORTDATE, "yyyy/MM/dd"}, {LOCALE_IDATE, "2"}, {LOCALE_SINTLSYMBOL, "JPY"}, {LOCALE_ICURRDIGITS, "0"},
        {LOCALE_IDEFAULTANSICODEPAGE, "932"},
    });
    EXPECT_EQ(Info(kChinesePrc, LOCALE_IDEFAULTANSICODEPAGE), "936");
    EXPECT_EQ(Info(0x0404, LOCALE_IDEFAULTANSICODEPAGE), "950");
    ExpectInfo(kRussian, {{LOCALE_IDEFAULTANSICODEPAGE, "1251"}, {LOCALE_IDEFAULTCODEPAGE, "866"}});
    EXPECT_EQ(Info(kHindi, LOCALE_SGROUPING), "3;2;0");
    // A language without a sublanguage behaves as its main country.
    EXPECT_EQ(Info(0x0009, LOCALE_SISO3166CTRYNAME), "US");
    EXPECT_EQ(Info(0x0007, LOCALE_SENGCOUNTRY), "Germany");
    ExpectInfo(LOCALE_INVARIANT, {
        {LOCALE_SENGLANGUAGE, "Invariant Language"}, {LOCALE_SENGCOUNTRY, "Invariant Country"},
        {LOCALE_SISO639LANGNAME, "iv"}, {LOCALE_SDECIMAL, "."}, {LOCALE_ILANGUAGE, "007f"},
    });
    // Sort identifiers do not change locale information.
    EXPECT_EQ(Info(MAKELCID(kGerman, 1), LOCALE_SENGLANGUAGE), "German");
}

TEST(LocaleInfo, SizeQueryCountsTheTerminatorAndShortBuffersFailWithoutOverrunning)
{
    EXPECT_EQ(GetLocaleInfoA(kEnglishUs, LOCALE_SENGCOUNTRY, nullptr, 0), 14);
    char buffer[16] = "xyz";
    EXPECT_EQ(GetLocaleInfoA(kEnglishUs, LOCALE_SDECIMAL, buffer, 0), 2);
    EXPECT_STREQ(buffer, "xyz");
    char exact[14];
    EXPECT_EQ(GetLocaleInfoA(kEnglishUs, LOCALE_SENGCOUNTRY, exact, 14), 14);
    EXPECT_STREQ(exact, "United States");
    std::memset(buffer, '#', sizeof buffer);
    EXPECT_FAILS_WITH(GetLocaleInfoA(kEnglishUs, LOCALE_SENGCOUNTRY, buffer, 5), 0, ERROR_INSUFFICIENT_BUFFER);
    for (size_t i = 5; i < sizeof buffer; ++i)
        EXPECT_EQ(buffer[i], '#') << i;
}

TEST(LocaleInfo, BadArguments)
{
    char buffer[16];
    EXPECT_FAILS_WITH(GetLocaleInfoA(kEnglishUs, LOCALE_SDECIMAL, nullptr, 16), 0, ERROR_INVALID_PARAMETER);
    EXPECT_FAILS_WITH(GetLocaleInfoA(kEnglishUs, LOCALE_SDECIMAL, buffer, -1), 0, ERROR_INVALID_PARAMETER);
    EXPECT_FAILS_WITH(GetLocaleInfoA(0x1234, LOCALE_SDECIMAL, buffer, 16), 0, ERROR_INVALID_PARAMETER);
    EXPECT_FAILS_WITH(GetLocaleInfoA(kEnglishUs, 0x7777, buffer, 16), 0, ERROR_INVALID_FLAGS);
    EXPECT_FAILS_WITH(GetLocaleInfoA(kEnglishUs, 0, buffer, 16), 0, ERROR_INVALID_FLAGS);
}

TEST(LocaleInfo, ReturnNumberWritesADwordOtherModifiersAndSuccessLeaveValueAndLastErrorAlone)
{
    DWORD number = 0;
    EXPECT_EQ(GetLocaleInfoA(kEnglishUs, LOCALE_ILANGUAGE | LOCALE_RETURN_NUMBER, (LPSTR)&number, sizeof number),
              4);
    EXPECT_EQ(number, 0x0409u);
    EXPECT_EQ(GetLocaleInfoA(kGerman, LOCALE_ICOUNTRY | LOCALE_RETURN_NUMBER, (LPSTR)&number, sizeof number), 4);
    EXPECT_EQ(number, 49u);
    EXPECT_EQ(GetLocaleInfoA(kEnglishUs, LOCALE_IFIRSTDAYOFWEEK | LOCALE_RETURN_NUMBER, nullptr, 0), 4);
    char small[8];
    std::memset(small, '#', sizeof small);
    EXPECT_FAILS_WITH(GetLocaleInfoA(kEnglishUs, LOCALE_ILANGUAGE | LOCALE_RETURN_NUMBER, small, 3), 0,
                      ERROR_INSUFFICIENT_BUFFER);
    EXPECT_EQ(small[3], '#');
    EXPECT_FAILS_WITH(GetLocaleInfoA(kEnglishUs, LOCALE_SDECIMAL | LOCALE_RETURN_NUMBER, small, 8), 0,
                      ERROR_INVALID_FLAGS);

    SetLastError(0xBEEF);
    EXPECT_EQ(Info(kEnglishUs, LOCALE_SDECIMAL | LOCALE_NOUSEROVERRIDE), ".");
    EXPECT_EQ(Info(kEnglishUs, LOCALE_SDECIMAL | LOCALE_USE_CP_ACP), ".");
    EXPECT_EQ(GetLastError(), 0xBEEFu);
}

// ---- The process locale (checked in child processes) ------------------------

TEST(ProcessLocaleChild, DISABLED_MatchesExpectation)
{
    const char *expected = std::getenv("EXPECT_LCID");
    ASSERT_NE(expected, nullptr);
    LCID lcid = (LCID)std::strtoul(expected, nullptr, 16);
    EXPECT_EQ(GetSystemDefaultLCID(), lcid);
    EXPECT_EQ(GetUserDefaultLCID(), lcid);
    EXPECT_EQ(GetSystemDefaultLangID(), LANGIDFROMLCID(lcid));
    EXPECT_EQ(GetUserDefaultLangID(), LANGIDFROMLCID(lcid));
    char language[8];
    ASSERT_GT(GetLocaleInfoA(LOCALE_USER_DEFAULT, LOCALE_ILANGUAGE, language, sizeof language), 0);
    EXPECT_EQ(std::strtoul(language, nullptr, 16), (unsigned long)LANGIDFROMLCID(lcid));
}

TEST(ProcessLocale, FollowsTheLocaleEnvironment)
{
    const std::pair<const char *, const char *> cases[] = {
        {"C.UTF-8", "409"}, {"", "409"},        {"zh_TW.Big5", "404"},
        {"de_DE@euro", "407"}, {"pt", "416"}, {"sr_RS@latin", "241a"},
    };
    for (const auto &c : cases) {
        EXPECT_TRUE(locale_child::RunTestInChild("ProcessLocaleChild.DISABLED_MatchesExpectation",
                                                 {{"LANG", c.first}, {"EXPECT_LCID", c.second}}))
            << c.first;
    }
}

TEST(ProcessLocaleChild, DISABLED_GermanLatin1)
{
    EXPECT_EQ(GetACP(), 1252u);
    EXPECT_EQ(Info(LOCALE_USER_DEFAULT, LOCALE_SMONTHNAME3), "M\xE4rz");
    EXPECT_EQ(Info(LOCALE_SYSTEM_DEFAULT, LOCALE_SDECIMAL), ",");
    EXPECT_EQ(Info(LOCALE_USER_DEFAULT, LOCALE_IDEFAULTANSICODEPAGE), "1252");
    EXPECT_EQ(Info(LOCALE_USER_DEFAULT, LOCALE_IDEFAULTCODEPAGE), "437");
    // Names shown to the user are in the user's language.
    EXPECT_EQ(Info(kEnglishUs, LOCALE_SCOUNTRY), "Vereinigte Staaten");
    EXPECT_EQ(Info(kEnglishUs, LOCALE_SENGCOUNTRY), "United States");
}

TEST(ProcessLocaleChild, DISABLED_GermanUtf8)
{
    EXPECT_EQ(GetACP(), 65001u);
    EXPECT_EQ(Info(LOCALE_USER_DEFAULT, LOCALE_SMONTHNAME3), "M\xC3\xA4rz");
    EXPECT_EQ(Info(LOCALE_USER_DEFAULT, LOCALE_IDEFAULTANSICODEPAGE), "65001");
    EXPECT_EQ(Info(kJapanese, LOCALE_SNATIVELANGNAME), "\xE6\x97\xA5\xE6\x9C\xAC\xE8\xAA\x9E");
}

TEST(ProcessLocaleChild, DISABLED_EnglishUtf8)
{
    EXPECT_EQ(Info(LOCALE_USER_DEFAULT, LOCALE_SCOUNTRY), "United States");
    EXPECT_EQ(Info(LOCALE_USER_DEFAULT, LOCALE_SENGLANGUAGE), "English");
    EXPECT_EQ(Info(0, LOCALE_SDECIMAL), ".");
    // Text a page cannot show comes out as '?' rather than failing.
    EXPECT_EQ(Info(kJapanese, LOCALE_SNATIVELANGNAME).size(), 9u);
}

TEST(ProcessLocaleChild, DISABLED_EnglishLatin1)
{
    // The ANSI page has no Japanese: every character becomes '?'.
    EXPECT_EQ(Info(kJapanese, LOCALE_SNATIVELANGNAME), "???");
}

TEST(ProcessLocale, DefaultLocaleDataFollowsTheEnvironment)
{
    EXPECT_TRUE(locale_child::RunTestInChild("ProcessLocaleChild.DISABLED_GermanLatin1",
                                             {{"LANG", "de_DE.ISO-8859-1"}}));
    EXPECT_TRUE(locale_child::RunTestInChild("ProcessLocaleChild.DISABLED_GermanUtf8", {{"LC_ALL", "de_DE.UTF-8"}}));
    EXPECT_TRUE(locale_child::RunTestInChild("ProcessLocaleChild.DISABLED_EnglishUtf8", {{"LANG", "en_US.UTF-8"}}));
    EXPECT_TRUE(locale_child::RunTestInChild("ProcessLocaleChild.DISABLED_EnglishLatin1", {{"LANG", "en_US"}}));
}
