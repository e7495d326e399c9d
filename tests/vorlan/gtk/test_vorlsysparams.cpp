// SystemParametersInfo, CopyLOGFONT_W2A and the locale calls.
#include <gtest/gtest.h>

#include "gtk/vorlgtklock.h"
#include "gtk/vorlsysparams.h"
#include "support/gtk_helpers.h"

#include <windows.h>

#include <X11/Xatom.h>
#include <unicode/uloc.h>

#include <cstring>
#include <string>
#include <vector>

namespace {

constexpr unsigned char kSentinel = 0xA5;
constexpr WCHAR kWideSentinel = 0x2323;

// A record of `size` bytes filled with the sentinel, with cbSize set.
template <typename Record>
Record SentinelRecord(UINT cbSize)
{
    Record record;
    std::memset(&record, kSentinel, sizeof record);
    record.cbSize = cbSize;
    return record;
}

template <typename Record>
bool OnlySizeSet(const Record &record, UINT cbSize)
{
    Record expected = SentinelRecord<Record>(cbSize);
    return std::memcmp(&record, &expected, sizeof record) == 0;
}

// _NET_WORKAREA of the root window read straight through Xlib: x, y, w, h
// of the first desktop, or nothing.
std::vector<long> NetWorkArea()
{
    vorlan::GtkCriticalSection lock;
    Display *display = vorlan_test::XDisplay();
    Atom type = None;
    int format = 0;
    unsigned long count = 0, after = 0;
    unsigned char *data = nullptr;
    const Atom name = XInternAtom(display, "_NET_WORKAREA", False);
    XGetWindowProperty(display, DefaultRootWindow(display), name, 0, 1024, False, XA_CARDINAL, &type, &format,
                       &count, &after, &data);
    std::vector<long> values;
    if (data != nullptr && format == 32 && count >= 4)
        values.assign(reinterpret_cast<long *>(data), reinterpret_cast<long *>(data) + 4);
    if (data != nullptr)
        XFree(data);
    return values;
}

// Every font of the record is the caption font: 15 high, normal weight.
template <typename Metrics>
void ExpectEveryFontIsTheCaptionFont(const Metrics &metrics)
{
    EXPECT_EQ(metrics.lfCaptionFont.lfHeight, 15);
    EXPECT_EQ(metrics.lfCaptionFont.lfWeight, 400);
    const auto &caption = metrics.lfCaptionFont;
    for (const auto *font : {&metrics.lfSmCaptionFont, &metrics.lfMenuFont, &metrics.lfStatusFont,
                             &metrics.lfMessageFont})
        EXPECT_EQ(std::memcmp(font, &caption, sizeof caption), 0);
}

constexpr LCID kEnglishUs = 0x0409;

std::string Narrow(const WCHAR *text)
{
    std::string result;
    for (; *text != 0; ++text)
        result.push_back(char(*text));
    return result;
}

} // namespace

TEST(SystemParametersW, SimpleActionsAndUnknownActions)
{
    for (UINT action : {SPI_GETDRAGFULLWINDOWS, SPI_GETFOCUSBORDERWIDTH, SPI_GETFOCUSBORDERHEIGHT}) {
        UINT value[2] = {77, 77};
        EXPECT_TRUE(SystemParametersInfoW(action, 0, value, 0)) << action;
        EXPECT_EQ(value[0], 1u) << action;
        EXPECT_EQ(value[1], 77u) << action;
        EXPECT_FALSE(SystemParametersInfoW(action, 0, nullptr, 0)) << action;
    }
    EXPECT_TRUE(SystemParametersInfoW(SPI_SETFOREGROUNDLOCKTIMEOUT, 0, nullptr, 0));

    UINT value = 77;
    SetLastError(0);
    EXPECT_FALSE(SystemParametersInfoW(SPI_GETBORDER, 0, &value, 0));
    EXPECT_EQ(GetLastError(), DWORD(ERROR_INVALID_PARAMETER));
    EXPECT_EQ(value, 77u);
    EXPECT_FALSE(SystemParametersInfoW(0xFFFF, 0, &value, 0));
}

TEST(SystemParametersW, NonClientMetricsZeroedWithOneFontAndHighContrastWithoutFlags)
{
    NONCLIENTMETRICSW metrics = SentinelRecord<NONCLIENTMETRICSW>(500);
    ASSERT_TRUE(SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, 0, &metrics, 0));
    EXPECT_EQ(metrics.cbSize, 0u);
    EXPECT_EQ(metrics.iScrollWidth, 0);
    ExpectEveryFontIsTheCaptionFont(metrics);

    HIGHCONTRASTW contrast = SentinelRecord<HIGHCONTRASTW>(sizeof(HIGHCONTRASTW));
    ASSERT_TRUE(SystemParametersInfoW(SPI_GETHIGHCONTRAST, 0, &contrast, 0));
    EXPECT_EQ(contrast.dwFlags, 0u);
    EXPECT_EQ(contrast.cbSize, sizeof(HIGHCONTRASTW));
}

TEST(SystemParametersW, WrongRecordSizesLeaveTheRecord)
{
    for (UINT size : {0u, 499u, 504u, 340u}) {
        NONCLIENTMETRICSW metrics = SentinelRecord<NONCLIENTMETRICSW>(size);
        EXPECT_FALSE(SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, 0, &metrics, 0)) << size;
        EXPECT_TRUE(OnlySizeSet(metrics, size)) << size;
    }
    EXPECT_FALSE(SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, 0, nullptr, 0));

    HIGHCONTRASTW contrast = SentinelRecord<HIGHCONTRASTW>(sizeof(HIGHCONTRASTW) + 4);
    EXPECT_FALSE(SystemParametersInfoW(SPI_GETHIGHCONTRAST, 0, &contrast, 0));
    EXPECT_TRUE(OnlySizeSet(contrast, sizeof(HIGHCONTRASTW) + 4));
    EXPECT_FALSE(SystemParametersInfoW(SPI_GETHIGHCONTRAST, 0, nullptr, 0));
}

TEST(SystemParametersW, WorkAreaIsWindowManagersWorkArea)
{
    const std::vector<long> area = NetWorkArea();
    ASSERT_EQ(area.size(), 4u) << "the suite runs under a window manager";
    RECT rect = {-1, -1, -1, -1};
    ASSERT_TRUE(SystemParametersInfoW(SPI_GETWORKAREA, 0, &rect, 0));
    EXPECT_EQ(rect.left, area[0]);
    EXPECT_EQ(rect.top, area[1]);
    EXPECT_EQ(rect.right, area[0] + area[2]);
    EXPECT_EQ(rect.bottom, area[1] + area[3]);
    EXPECT_FALSE(SystemParametersInfoW(SPI_GETWORKAREA, 0, nullptr, 0));
}

TEST(SystemParametersA, NonClientMetricsNarrowedWrongSizesRefusedAndOtherActionsWide)
{
    NONCLIENTMETRICSA metrics = SentinelRecord<NONCLIENTMETRICSA>(340);
    ASSERT_TRUE(SystemParametersInfoA(SPI_GETNONCLIENTMETRICS, 0, &metrics, 0));
    EXPECT_EQ(metrics.cbSize, 0u);
    EXPECT_EQ(metrics.iMenuWidth, 0);
    ExpectEveryFontIsTheCaptionFont(metrics);
    for (UINT size : {500u, 0u, 339u}) {
        metrics = SentinelRecord<NONCLIENTMETRICSA>(size);
        EXPECT_FALSE(SystemParametersInfoA(SPI_GETNONCLIENTMETRICS, 0, &metrics, 0)) << size;
        EXPECT_TRUE(OnlySizeSet(metrics, size)) << size;
    }

    // Other actions go to the wide form.
    UINT value = 0;
    EXPECT_TRUE(SystemParametersInfoA(SPI_GETDRAGFULLWINDOWS, 0, &value, 0));
    EXPECT_EQ(value, 1u);
    RECT wide = {}, narrow = {};
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &wide, 0);
    EXPECT_TRUE(SystemParametersInfoA(SPI_GETWORKAREA, 0, &narrow, 0));
    EXPECT_EQ(std::memcmp(&wide, &narrow, sizeof wide), 0);
    SetLastError(0);
    EXPECT_FALSE(SystemParametersInfoA(SPI_GETBORDER, 0, &value, 0));
    EXPECT_EQ(GetLastError(), DWORD(ERROR_INVALID_PARAMETER));
}

TEST(CopyLogFont, CopiesNumbersAndFaceNameCutsLongNamesAndRefusesNull)
{
    LOGFONTW wide = {};
    wide.lfHeight = -13;
    wide.lfWeight = 700;
    wide.lfItalic = 1;
    wide.lfCharSet = 128;
    wide.lfPitchAndFamily = 0x22;
    const WCHAR face[] = {'S', 'a', 'n', 's', 0};
    std::memcpy(wide.lfFaceName, face, sizeof face);
    LOGFONTA narrow;
    std::memset(&narrow, kSentinel, sizeof narrow);
    ASSERT_TRUE(CopyLOGFONT_W2A(&wide, &narrow));
    EXPECT_EQ(std::memcmp(&narrow, &wide, 28), 0);
    EXPECT_STREQ(narrow.lfFaceName, "Sans");

    // An unterminated face name is cut and terminated.
    for (WCHAR &unit : wide.lfFaceName)
        unit = 'x';
    std::memset(&narrow, kSentinel, sizeof narrow);
    EXPECT_TRUE(CopyLOGFONT_W2A(&wide, &narrow));
    EXPECT_EQ(std::strlen(narrow.lfFaceName), 31u);

    EXPECT_FALSE(CopyLOGFONT_W2A(nullptr, &narrow));
    EXPECT_FALSE(CopyLOGFONT_W2A(&wide, nullptr));
}

TEST(LocaleIds, FollowSystemDefaultAndTheStandInsDoNothing)
{
    const LCID system = GetSystemDefaultLCID();
    EXPECT_EQ(GetUserDefaultLCID(), system);
    EXPECT_EQ(GetThreadLocale(), system);
    EXPECT_EQ(GetUserDefaultLangID(), LANGIDFROMLCID(system));
    EXPECT_EQ(reinterpret_cast<UINT_PTR>(GetKeyboardLayout(0)), UINT_PTR(LANGIDFROMLCID(system)));
    EXPECT_EQ(GetKeyboardLayout(12345), GetKeyboardLayout(0));
    // The keyboard and session stand-ins do nothing.
    EXPECT_EQ(LoadKeyboardLayoutA("00000409", KLF_ACTIVATE), nullptr);
    EXPECT_EQ(ActivateKeyboardLayout(GetKeyboardLayout(0), 0), nullptr);
    EXPECT_FALSE(ExitWindowsEx(EWX_LOGOFF, 0));
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
        unit = kWideSentinel;
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
        EXPECT_EQ(unit, kWideSentinel);
}

TEST(LocaleInfoW, NumberIsTwoUnits)
{
    DWORD narrowNumber = 0;
    ASSERT_EQ(GetLocaleInfoA(kEnglishUs, LOCALE_IDIGITS | LOCALE_RETURN_NUMBER,
                             reinterpret_cast<LPSTR>(&narrowNumber), sizeof narrowNumber),
              4);
    WCHAR wide[3] = {kWideSentinel, kWideSentinel, kWideSentinel};
    EXPECT_EQ(GetLocaleInfoW(kEnglishUs, LOCALE_IDIGITS | LOCALE_RETURN_NUMBER, nullptr, 0), 2);
    EXPECT_EQ(GetLocaleInfoW(kEnglishUs, LOCALE_IDIGITS | LOCALE_RETURN_NUMBER, wide, 1), 0);
    EXPECT_EQ(wide[0], kWideSentinel);
    ASSERT_EQ(GetLocaleInfoW(kEnglishUs, LOCALE_IDIGITS | LOCALE_RETURN_NUMBER, wide, 3), 2);
    DWORD wideNumber = 0;
    std::memcpy(&wideNumber, wide, sizeof wideNumber);
    EXPECT_EQ(wideNumber, narrowNumber);
    EXPECT_EQ(wide[2], kWideSentinel);
}

TEST(ValidLocale, IcuLocalesAreValidAndUnknownIdsAreNot)
{
    EXPECT_TRUE(IsValidLocale(kEnglishUs, LCID_INSTALLED));
    EXPECT_TRUE(IsValidLocale(uloc_getLCID("ja_JP"), LCID_SUPPORTED));
    EXPECT_FALSE(IsValidLocale(0xFFFFFFFF, LCID_INSTALLED));
    EXPECT_FALSE(IsValidLocale(0, LCID_INSTALLED));
}
