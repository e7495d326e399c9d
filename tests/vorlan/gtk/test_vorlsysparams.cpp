// SystemParametersInfoW and SystemParametersInfoA: each action, the work
// area under the suite's window manager, wrong record sizes, and
// CopyLOGFONT_W2A.

#include <gtest/gtest.h>

#include "gtk/vorlgtklock.h"
#include "gtk/vorllogfontcopy.h"
#include "support/gtk_helpers.h"

#include <windows.h>

#include <X11/Xatom.h>

#include <cstring>
#include <vector>

namespace {

constexpr unsigned char kSentinel = 0xA5;

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

template <typename LogFont>
void ExpectCaptionFont(const LogFont &font)
{
    EXPECT_EQ(font.lfHeight, 15);
    EXPECT_EQ(font.lfWidth, 0);
    EXPECT_EQ(font.lfWeight, 400);
    EXPECT_EQ(font.lfCharSet, 1);
    EXPECT_EQ(font.lfItalic, 0);
    EXPECT_EQ(font.lfFaceName[0], 0);
}

template <typename Metrics>
void ExpectEveryFontIsTheCaptionFont(const Metrics &metrics)
{
    ExpectCaptionFont(metrics.lfCaptionFont);
    ExpectCaptionFont(metrics.lfSmCaptionFont);
    ExpectCaptionFont(metrics.lfMenuFont);
    ExpectCaptionFont(metrics.lfStatusFont);
    ExpectCaptionFont(metrics.lfMessageFont);
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

TEST(SystemParametersW, NonClientMetricsZeroedWithOneFont)
{
    NONCLIENTMETRICSW metrics = SentinelRecord<NONCLIENTMETRICSW>(500);
    ASSERT_TRUE(SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, 0, &metrics, 0));
    EXPECT_EQ(metrics.cbSize, 0u);
    EXPECT_EQ(metrics.iBorderWidth, 0);
    EXPECT_EQ(metrics.iScrollWidth, 0);
    EXPECT_EQ(metrics.iCaptionHeight, 0);
    EXPECT_EQ(metrics.iMenuHeight, 0);
    ExpectEveryFontIsTheCaptionFont(metrics);
}

TEST(SystemParametersW, WrongRecordSizesLeaveTheRecord)
{
    for (UINT size : {440u, 0u, 499u, 504u, 340u}) {
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

TEST(SystemParametersW, HighContrastClearsFlags)
{
    HIGHCONTRASTW contrast = SentinelRecord<HIGHCONTRASTW>(sizeof(HIGHCONTRASTW));
    ASSERT_TRUE(SystemParametersInfoW(SPI_GETHIGHCONTRAST, 0, &contrast, 0));
    EXPECT_EQ(contrast.dwFlags, 0u);
    EXPECT_EQ(contrast.cbSize, sizeof(HIGHCONTRASTW));
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

TEST(SystemParametersA, NonClientMetricsNarrowedAndWrongSizesRefused)
{
    NONCLIENTMETRICSA metrics = SentinelRecord<NONCLIENTMETRICSA>(340);
    ASSERT_TRUE(SystemParametersInfoA(SPI_GETNONCLIENTMETRICS, 0, &metrics, 0));
    EXPECT_EQ(metrics.cbSize, 0u);
    EXPECT_EQ(metrics.iScrollWidth, 0);
    EXPECT_EQ(metrics.iMenuWidth, 0);
    ExpectEveryFontIsTheCaptionFont(metrics);
    for (UINT size : {500u, 0u, 339u}) {
        metrics = SentinelRecord<NONCLIENTMETRICSA>(size);
        EXPECT_FALSE(SystemParametersInfoA(SPI_GETNONCLIENTMETRICS, 0, &metrics, 0)) << size;
        EXPECT_TRUE(OnlySizeSet(metrics, size)) << size;
    }
}

TEST(SystemParametersA, OtherActionsGoToWideForm)
{
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
