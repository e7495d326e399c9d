// The locale calls: default ids, GetLocaleInfoW over the narrow form,
// IsValidLocale over ICU and the keyboard layout stand-ins.

#include <gtest/gtest.h>

#include <windows.h>

#include <unicode/uloc.h>

#include <cstring>
#include <string>

namespace {

constexpr LCID kEnglishUs = 0x0409;
constexpr WCHAR kSentinel = 0x2323;

std::string Narrow(const WCHAR *text)
{
    std::string result;
    for (; *text != 0; ++text)
        result.push_back(char(*text));
    return result;
}

} // namespace

TEST(LocaleIds, FollowSystemDefault)
{
    const LCID system = GetSystemDefaultLCID();
    EXPECT_EQ(GetUserDefaultLCID(), system);
    EXPECT_EQ(GetThreadLocale(), system);
    EXPECT_EQ(GetSystemDefaultLangID(), LANGIDFROMLCID(system));
    EXPECT_EQ(GetUserDefaultLangID(), LANGIDFROMLCID(system));
    EXPECT_EQ(reinterpret_cast<UINT_PTR>(GetKeyboardLayout(0)), UINT_PTR(LANGIDFROMLCID(system)));
    EXPECT_EQ(GetKeyboardLayout(12345), GetKeyboardLayout(0));
}

TEST(LocaleInfoW, WidensNarrowTextAndCountsLikeTheNarrowForm)
{
    char narrow[64] = {};
    const int narrowCount = GetLocaleInfoA(kEnglishUs, LOCALE_SENGLANGUAGE, narrow, sizeof narrow);
    ASSERT_GT(narrowCount, 0);
    static WCHAR wide[1000];
    EXPECT_EQ(GetLocaleInfoW(kEnglishUs, LOCALE_SENGLANGUAGE, wide, 64), narrowCount);
    EXPECT_EQ(Narrow(wide), std::string(narrow));
    EXPECT_EQ(GetLocaleInfoW(kEnglishUs, LOCALE_SENGLANGUAGE, wide, 1000), narrowCount);
    EXPECT_EQ(GetLocaleInfoW(kEnglishUs, LOCALE_SDECIMAL, nullptr, 0),
              GetLocaleInfoA(kEnglishUs, LOCALE_SDECIMAL, nullptr, 0));
}

TEST(LocaleInfoW, ShortBufferAndBadArgumentsFailAndLeaveTheBuffer)
{
    const int needed = GetLocaleInfoA(kEnglishUs, LOCALE_SENGLANGUAGE, nullptr, 0);
    ASSERT_GT(needed, 2);
    WCHAR wide[64];
    for (WCHAR &unit : wide)
        unit = kSentinel;
    SetLastError(0);
    EXPECT_EQ(GetLocaleInfoW(kEnglishUs, LOCALE_SENGLANGUAGE, wide, needed - 1), 0);
    EXPECT_EQ(GetLastError(), DWORD(ERROR_INSUFFICIENT_BUFFER));
    SetLastError(0);
    EXPECT_EQ(GetLocaleInfoW(kEnglishUs, LOCALE_SDECIMAL, nullptr, 4), 0);
    EXPECT_EQ(GetLastError(), DWORD(ERROR_INVALID_PARAMETER));
    SetLastError(0);
    EXPECT_EQ(GetLocaleInfoW(kEnglishUs, LOCALE_SDECIMAL, wide, -1), 0);
    EXPECT_EQ(GetLastError(), DWORD(ERROR_INVALID_PARAMETER));
    for (WCHAR unit : wide)
        EXPECT_EQ(unit, kSentinel);
}

TEST(LocaleInfoW, NumberIsTwoUnits)
{
    DWORD narrowNumber = 0;
    ASSERT_EQ(GetLocaleInfoA(kEnglishUs, LOCALE_IDIGITS | LOCALE_RETURN_NUMBER,
                             reinterpret_cast<LPSTR>(&narrowNumber), sizeof narrowNumber),
              4);
    WCHAR wide[3] = {kSentinel, kSentinel, kSentinel};
    EXPECT_EQ(GetLocaleInfoW(kEnglishUs, LOCALE_IDIGITS | LOCALE_RETURN_NUMBER, nullptr, 0), 2);
    EXPECT_EQ(GetLocaleInfoW(kEnglishUs, LOCALE_IDIGITS | LOCALE_RETURN_NUMBER, wide, 1), 0);
    EXPECT_EQ(wide[0], kSentinel);
    ASSERT_EQ(GetLocaleInfoW(kEnglishUs, LOCALE_IDIGITS | LOCALE_RETURN_NUMBER, wide, 3), 2);
    DWORD wideNumber = 0;
    std::memcpy(&wideNumber, wide, sizeof wideNumber);
    EXPECT_EQ(wideNumber, narrowNumber);
    EXPECT_EQ(wide[2], kSentinel);
}

TEST(ValidLocale, IcuLocalesAreValidAndUnknownIdsAreNot)
{
    EXPECT_TRUE(IsValidLocale(kEnglishUs, LCID_INSTALLED));
    EXPECT_TRUE(IsValidLocale(uloc_getLCID("de_DE"), LCID_SUPPORTED));
    EXPECT_TRUE(IsValidLocale(uloc_getLCID("ja_JP"), LCID_INSTALLED));
    EXPECT_FALSE(IsValidLocale(0x7FFF, LCID_INSTALLED));
    EXPECT_FALSE(IsValidLocale(0xFFFFFFFF, LCID_INSTALLED));
    EXPECT_FALSE(IsValidLocale(0, LCID_INSTALLED));
}

TEST(KeyboardStandIns, DoNothing)
{
    EXPECT_EQ(LoadKeyboardLayoutA("00000409", KLF_ACTIVATE), nullptr);
    EXPECT_EQ(ActivateKeyboardLayout(GetKeyboardLayout(0), 0), nullptr);
    EXPECT_FALSE(ExitWindowsEx(EWX_LOGOFF, 0));
}
