// GetLocaleInfoA and the default locale identifiers.
#include <windows.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "locale_child.h"

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

struct Failure {
    int result;
    DWORD error;
};

Failure InfoFailure(LCID locale, LCTYPE type, char *buffer, int size)
{
    SetLastError(0xBEEF);
    int result = GetLocaleInfoA(locale, type, buffer, size);
    return {result, GetLastError()};
}

} // namespace

TEST(LocaleInfo, EnglishUnitedStatesNames)
{
    EXPECT_EQ(Info(kEnglishUs, LOCALE_SENGLANGUAGE), "English");
    EXPECT_EQ(Info(kEnglishUs, LOCALE_SENGCOUNTRY), "United States");
    EXPECT_EQ(Info(kEnglishUs, LOCALE_SNATIVELANGNAME), "English");
    EXPECT_EQ(Info(kEnglishUs, LOCALE_SNATIVECTRYNAME), "United States");
    EXPECT_EQ(Info(kEnglishUs, LOCALE_SISO639LANGNAME), "en");
    EXPECT_EQ(Info(kEnglishUs, LOCALE_SISO3166CTRYNAME), "US");
    EXPECT_EQ(Info(kEnglishUs, LOCALE_SABBREVLANGNAME), "ENU");
    EXPECT_EQ(Info(kEnglishUs, LOCALE_SABBREVCTRYNAME), "USA");
    EXPECT_EQ(Info(kEnglishUs, LOCALE_ILANGUAGE), "0409");
    EXPECT_EQ(Info(kEnglishUs, LOCALE_IDEFAULTLANGUAGE), "0409");
    EXPECT_EQ(Info(kEnglishUs, LOCALE_ICOUNTRY), "1");
}

TEST(LocaleInfo, EnglishUnitedStatesNumbers)
{
    EXPECT_EQ(Info(kEnglishUs, LOCALE_SDECIMAL), ".");
    EXPECT_EQ(Info(kEnglishUs, LOCALE_STHOUSAND), ",");
    EXPECT_EQ(Info(kEnglishUs, LOCALE_SGROUPING), "3;0");
    EXPECT_EQ(Info(kEnglishUs, LOCALE_SLIST), ",");
    EXPECT_EQ(Info(kEnglishUs, LOCALE_IMEASURE), "1");
    EXPECT_EQ(Info(kEnglishUs, LOCALE_SNATIVEDIGITS), "0123456789");
    EXPECT_EQ(Info(kEnglishUs, LOCALE_SNEGATIVESIGN), "-");
    EXPECT_EQ(Info(kEnglishUs, LOCALE_SPOSITIVESIGN), "");
    EXPECT_EQ(Info(kEnglishUs, LOCALE_SCURRENCY), "$");
    EXPECT_EQ(Info(kEnglishUs, LOCALE_SINTLSYMBOL), "USD");
    EXPECT_EQ(Info(kEnglishUs, LOCALE_ICURRDIGITS), "2");
    EXPECT_EQ(Info(kEnglishUs, LOCALE_ICURRENCY), "0");
}

TEST(LocaleInfo, EnglishUnitedStatesDatesAndTimes)
{
    EXPECT_EQ(Info(kEnglishUs, LOCALE_SSHORTDATE), "M/d/yyyy");
    EXPECT_EQ(Info(kEnglishUs, LOCALE_SLONGDATE), "dddd, MMMM d, yyyy");
    EXPECT_EQ(Info(kEnglishUs, LOCALE_STIMEFORMAT), "h:mm:ss tt");
    EXPECT_EQ(Info(kEnglishUs, LOCALE_SDATE), "/");
    EXPECT_EQ(Info(kEnglishUs, LOCALE_STIME), ":");
    EXPECT_EQ(Info(kEnglishUs, LOCALE_IDATE), "0");
    EXPECT_EQ(Info(kEnglishUs, LOCALE_ILDATE), "0");
    EXPECT_EQ(Info(kEnglishUs, LOCALE_ITIME), "0");
    EXPECT_EQ(Info(kEnglishUs, LOCALE_ITIMEMARKPOSN), "0");
    EXPECT_EQ(Info(kEnglishUs, LOCALE_ICENTURY), "1");
    EXPECT_EQ(Info(kEnglishUs, LOCALE_IDAYLZERO), "0");
    EXPECT_EQ(Info(kEnglishUs, LOCALE_IMONLZERO), "0");
    EXPECT_EQ(Info(kEnglishUs, LOCALE_ITLZERO), "0");
    EXPECT_EQ(Info(kEnglishUs, LOCALE_S1159), "AM");
    EXPECT_EQ(Info(kEnglishUs, LOCALE_S2359), "PM");
    EXPECT_EQ(Info(kEnglishUs, LOCALE_ICALENDARTYPE), "1");
    EXPECT_EQ(Info(kEnglishUs, LOCALE_IFIRSTDAYOFWEEK), "6");
    EXPECT_EQ(Info(kEnglishUs, LOCALE_IFIRSTWEEKOFYEAR), "0");
}

TEST(LocaleInfo, DayAndMonthNamesStartOnMondayAndJanuary)
{
    EXPECT_EQ(Info(kEnglishUs, LOCALE_SDAYNAME1), "Monday");
    EXPECT_EQ(Info(kEnglishUs, LOCALE_SDAYNAME6), "Saturday");
    EXPECT_EQ(Info(kEnglishUs, LOCALE_SDAYNAME7), "Sunday");
    EXPECT_EQ(Info(kEnglishUs, LOCALE_SABBREVDAYNAME1), "Mon");
    EXPECT_EQ(Info(kEnglishUs, LOCALE_SABBREVDAYNAME7), "Sun");
    EXPECT_EQ(Info(kEnglishUs, LOCALE_SMONTHNAME1), "January");
    EXPECT_EQ(Info(kEnglishUs, LOCALE_SMONTHNAME12), "December");
    EXPECT_EQ(Info(kEnglishUs, LOCALE_SABBREVMONTHNAME1), "Jan");
    EXPECT_EQ(Info(kEnglishUs, LOCALE_SABBREVMONTHNAME12), "Dec");
}

TEST(LocaleInfo, GermanConventions)
{
    EXPECT_EQ(Info(kGerman, LOCALE_SENGLANGUAGE), "German");
    EXPECT_EQ(Info(kGerman, LOCALE_SENGCOUNTRY), "Germany");
    EXPECT_EQ(Info(kGerman, LOCALE_SNATIVELANGNAME), "Deutsch");
    EXPECT_EQ(Info(kGerman, LOCALE_SABBREVLANGNAME), "DEU");
    EXPECT_EQ(Info(kGerman, LOCALE_ICOUNTRY), "49");
    EXPECT_EQ(Info(kGerman, LOCALE_SDECIMAL), ",");
    EXPECT_EQ(Info(kGerman, LOCALE_STHOUSAND), ".");
    EXPECT_EQ(Info(kGerman, LOCALE_SLIST), ";");
    EXPECT_EQ(Info(kGerman, LOCALE_IMEASURE), "0");
    EXPECT_EQ(Info(kGerman, LOCALE_SINTLSYMBOL), "EUR");
    EXPECT_EQ(Info(kGerman, LOCALE_ICURRENCY), "3");
    EXPECT_EQ(Info(kGerman, LOCALE_INEGCURR), "8");
    EXPECT_EQ(Info(kGerman, LOCALE_SSHORTDATE), "dd.MM.yyyy");
    EXPECT_EQ(Info(kGerman, LOCALE_SLONGDATE), "dddd, d. MMMM yyyy");
    EXPECT_EQ(Info(kGerman, LOCALE_STIMEFORMAT), "HH:mm:ss");
    EXPECT_EQ(Info(kGerman, LOCALE_SDATE), ".");
    EXPECT_EQ(Info(kGerman, LOCALE_IDATE), "1");
    EXPECT_EQ(Info(kGerman, LOCALE_ITIME), "1");
    EXPECT_EQ(Info(kGerman, LOCALE_ITLZERO), "1");
    EXPECT_EQ(Info(kGerman, LOCALE_IDAYLZERO), "1");
    EXPECT_EQ(Info(kGerman, LOCALE_IMONLZERO), "1");
    EXPECT_EQ(Info(kGerman, LOCALE_IFIRSTDAYOFWEEK), "0");
    EXPECT_EQ(Info(kGerman, LOCALE_IFIRSTWEEKOFYEAR), "2");
    EXPECT_EQ(Info(kGerman, LOCALE_SDAYNAME1), "Montag");
}

TEST(LocaleInfo, EastAsianAndOtherLocales)
{
    EXPECT_EQ(Info(kJapanese, LOCALE_SSHORTDATE), "yyyy/MM/dd");
    EXPECT_EQ(Info(kJapanese, LOCALE_IDATE), "2");
    EXPECT_EQ(Info(kJapanese, LOCALE_SINTLSYMBOL), "JPY");
    EXPECT_EQ(Info(kJapanese, LOCALE_ICURRDIGITS), "0");
    EXPECT_EQ(Info(kJapanese, LOCALE_IDEFAULTANSICODEPAGE), "932");
    EXPECT_EQ(Info(kChinesePrc, LOCALE_SENGLANGUAGE), "Chinese");
    EXPECT_EQ(Info(kChinesePrc, LOCALE_SISO3166CTRYNAME), "CN");
    EXPECT_EQ(Info(kChinesePrc, LOCALE_SABBREVLANGNAME), "CHS");
    EXPECT_EQ(Info(kChinesePrc, LOCALE_IDEFAULTANSICODEPAGE), "936");
    EXPECT_EQ(Info(0x0404, LOCALE_IDEFAULTANSICODEPAGE), "950");
    EXPECT_EQ(Info(kRussian, LOCALE_IDEFAULTANSICODEPAGE), "1251");
    EXPECT_EQ(Info(kRussian, LOCALE_IDEFAULTCODEPAGE), "866");
    EXPECT_EQ(Info(kHindi, LOCALE_SGROUPING), "3;2;0");
}

TEST(LocaleInfo, LanguageNeutralAndInvariantIdentifiers)
{
    // A language without a sublanguage behaves as its main country.
    EXPECT_EQ(Info(0x0009, LOCALE_SISO3166CTRYNAME), "US");
    EXPECT_EQ(Info(0x0007, LOCALE_SENGCOUNTRY), "Germany");
    EXPECT_EQ(Info(LOCALE_INVARIANT, LOCALE_SENGLANGUAGE), "Invariant Language");
    EXPECT_EQ(Info(LOCALE_INVARIANT, LOCALE_SENGCOUNTRY), "Invariant Country");
    EXPECT_EQ(Info(LOCALE_INVARIANT, LOCALE_SISO639LANGNAME), "iv");
    EXPECT_EQ(Info(LOCALE_INVARIANT, LOCALE_SDECIMAL), ".");
    EXPECT_EQ(Info(LOCALE_INVARIANT, LOCALE_ILANGUAGE), "007f");
    // Sort identifiers do not change locale information.
    EXPECT_EQ(Info(MAKELCID(kGerman, 1), LOCALE_SENGLANGUAGE), "German");
}

TEST(LocaleInfo, SizeQueryCountsTheTerminator)
{
    EXPECT_EQ(GetLocaleInfoA(kEnglishUs, LOCALE_SENGCOUNTRY, nullptr, 0), 14);
    char buffer[4] = "xyz";
    EXPECT_EQ(GetLocaleInfoA(kEnglishUs, LOCALE_SDECIMAL, buffer, 0), 2);
    EXPECT_STREQ(buffer, "xyz");
    char exact[14];
    EXPECT_EQ(GetLocaleInfoA(kEnglishUs, LOCALE_SENGCOUNTRY, exact, 14), 14);
    EXPECT_STREQ(exact, "United States");
}

TEST(LocaleInfo, ShortBufferFailsWithoutOverrunning)
{
    char buffer[16];
    std::memset(buffer, '#', sizeof buffer);
    Failure failure = InfoFailure(kEnglishUs, LOCALE_SENGCOUNTRY, buffer, 5);
    EXPECT_EQ(failure.result, 0);
    EXPECT_EQ(failure.error, (DWORD)ERROR_INSUFFICIENT_BUFFER);
    for (size_t i = 5; i < sizeof buffer; ++i)
        EXPECT_EQ(buffer[i], '#') << i;
}

TEST(LocaleInfo, BadArguments)
{
    char buffer[16];
    Failure failure = InfoFailure(kEnglishUs, LOCALE_SDECIMAL, nullptr, 16);
    EXPECT_EQ(failure.result, 0);
    EXPECT_EQ(failure.error, (DWORD)ERROR_INVALID_PARAMETER);
    failure = InfoFailure(kEnglishUs, LOCALE_SDECIMAL, buffer, -1);
    EXPECT_EQ(failure.error, (DWORD)ERROR_INVALID_PARAMETER);
    failure = InfoFailure(0x1234, LOCALE_SDECIMAL, buffer, 16);
    EXPECT_EQ(failure.result, 0);
    EXPECT_EQ(failure.error, (DWORD)ERROR_INVALID_PARAMETER);
    failure = InfoFailure(kEnglishUs, 0x7777, buffer, 16);
    EXPECT_EQ(failure.result, 0);
    EXPECT_EQ(failure.error, (DWORD)ERROR_INVALID_FLAGS);
    failure = InfoFailure(kEnglishUs, 0, buffer, 16);
    EXPECT_EQ(failure.error, (DWORD)ERROR_INVALID_FLAGS);
}

TEST(LocaleInfo, ModifierFlags)
{
    EXPECT_EQ(Info(kEnglishUs, LOCALE_SDECIMAL | LOCALE_NOUSEROVERRIDE), ".");
    EXPECT_EQ(Info(kEnglishUs, LOCALE_SDECIMAL | LOCALE_USE_CP_ACP), ".");
}

TEST(LocaleInfo, ReturnNumberWritesADword)
{
    DWORD number = 0;
    EXPECT_EQ(GetLocaleInfoA(kEnglishUs, LOCALE_ILANGUAGE | LOCALE_RETURN_NUMBER, (LPSTR)&number, sizeof number),
              4);
    EXPECT_EQ(number, 0x0409u);
    EXPECT_EQ(GetLocaleInfoA(kGerman, LOCALE_ICOUNTRY | LOCALE_RETURN_NUMBER, (LPSTR)&number, sizeof number), 4);
    EXPECT_EQ(number, 49u);
    EXPECT_EQ(GetLocaleInfoA(kEnglishUs, LOCALE_IFIRSTDAYOFWEEK | LOCALE_RETURN_NUMBER, nullptr, 0), 4);
}

TEST(LocaleInfo, ReturnNumberNeedsRoomAndANumericType)
{
    char small[8];
    std::memset(small, '#', sizeof small);
    Failure failure = InfoFailure(kEnglishUs, LOCALE_ILANGUAGE | LOCALE_RETURN_NUMBER, small, 3);
    EXPECT_EQ(failure.result, 0);
    EXPECT_EQ(failure.error, (DWORD)ERROR_INSUFFICIENT_BUFFER);
    EXPECT_EQ(small[3], '#');
    failure = InfoFailure(kEnglishUs, LOCALE_SDECIMAL | LOCALE_RETURN_NUMBER, small, 8);
    EXPECT_EQ(failure.result, 0);
    EXPECT_EQ(failure.error, (DWORD)ERROR_INVALID_FLAGS);
}

TEST(LocaleInfo, SuccessLeavesTheLastErrorAlone)
{
    char buffer[8];
    SetLastError(0xBEEF);
    EXPECT_EQ(GetLocaleInfoA(kEnglishUs, LOCALE_SDECIMAL, buffer, 8), 2);
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
        {"en_US.UTF-8", "409"}, {"C", "409"},           {"POSIX", "409"},      {"C.UTF-8", "409"},
        {"", "409"},            {"zh_CN.UTF-8", "804"}, {"zh_TW.Big5", "404"}, {"de_DE@euro", "407"},
        {"fr_CA.UTF-8", "c0c"}, {"ja_JP.eucJP", "411"}, {"ko_KR", "412"},      {"pt", "416"},
        {"en_GB", "809"},       {"sr_RS@latin", "241a"},
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
