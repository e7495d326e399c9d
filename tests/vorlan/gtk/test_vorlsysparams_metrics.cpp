// GetSystemMetrics and GetSysColor at their edges, the 3D colour
// arithmetic, and which system value calls take the toolkit lock.
#include <gtest/gtest.h>

#include "gtk/vorlgtklock.h"
#include "gtk/vorltheme.h"
#include "support/gdk_lock_counter.h"

#include <windows.h>

#include <gdk/gdk.h>

#include <functional>
#include <utility>
#include <vector>

using vorlan_test::GdkLockCounter;

TEST(SystemMetrics, ScreenSizeIsTheDisplays)
{
    int width = 0, height = 0;
    {
        vorlan::GtkCriticalSection lock;
        width = gdk_screen_width();
        height = gdk_screen_height();
    }
    EXPECT_EQ(GetSystemMetrics(SM_CXSCREEN), width);
    EXPECT_EQ(GetSystemMetrics(SM_CXFULLSCREEN), width);
    EXPECT_EQ(GetSystemMetrics(SM_CYSCREEN), height);
}

TEST(SystemMetrics, IndexesWithoutValueGiveZeroAndNoneIsNegative)
{
    for (int index : {SM_CYFULLSCREEN, 18, 22, 23, 43, 44, 47, 67, 70, 71, 1000, -1, -1000})
        EXPECT_EQ(GetSystemMetrics(index), 0) << "index " << index;
    for (int index = 0; index < 70; ++index)
        EXPECT_GE(GetSystemMetrics(index), 0) << "index " << index;
}

TEST(SysColor, HighByteIsZeroAndIndexesOutsideTheTableGiveZero)
{
    for (int index = 0; index < 31; ++index)
        EXPECT_EQ(GetSysColor(index) & 0xFF000000u, 0u) << "index " << index;
    for (int index : {31, 1000, -1})
        EXPECT_EQ(GetSysColor(index), 0u) << "index " << index;
}

TEST(AdjustBrightness, ClampsEachChannelAloneAndClearsTheHighByte)
{
    EXPECT_EQ(AdjustBrightness(RGB(255, 128, 0), 10), RGB(255, 138, 10));
    EXPECT_EQ(AdjustBrightness(RGB(255, 128, 0), -150), RGB(105, 0, 0));
    EXPECT_EQ(AdjustBrightness(0xFF102030ul, 0), 0x102030ul);
    EXPECT_EQ(AdjustBrightness(0x01FFFFFFul, 5), 0xFFFFFFul);
    // Extreme deltas saturate instead of overflowing.
    EXPECT_EQ(AdjustBrightness(RGB(1, 2, 3), 1 << 30), 0xFFFFFFul);
    EXPECT_EQ(AdjustBrightness(RGB(200, 100, 50), -(1 << 30)), 0ul);
}

TEST(ThemeScrollBarMetrics, NullPointersAreSkipped)
{
    int trough = -1, troughOnly = -1;
    GetGtkScrollBarMetrics(nullptr, nullptr, nullptr, nullptr);
    GetGtkScrollBarMetrics(nullptr, &trough, nullptr, nullptr);
    int slider = -1, stepper = -1, minimum = -1;
    GetGtkScrollBarMetrics(&slider, &troughOnly, &stepper, &minimum);
    EXPECT_GT(slider, 0);
    EXPECT_EQ(troughOnly, trough);
}

// The values themselves are checked through GetSysColor under two themes.
TEST(ThemeColors, NullPointersAreSkippedBadStatesWriteNothingAndChannelsBecomeTheirHighBytes)
{
    GetGtkWindowColor(nullptr);
    GdkColor text = {};
    GetGtkEntryColors(GTK_STATE_SELECTED, nullptr, &text);
    GdkColor base = {1, 2, 3, 4};
    GetGtkEntryColors(static_cast<GtkStateType>(99), &base, nullptr);
    EXPECT_EQ(base.pixel, 1u);
    EXPECT_EQ(base.red, 2);
    const GdkColor color = {0, 0x12FF, 0x3400, 0xAB01};
    EXPECT_EQ(GdkColorToColorRef(color), RGB(0x12, 0x34, 0xAB));
}

// Metrics, colours, parameters and the theme reads each take the toolkit
// lock exactly once, also on their failure paths; the locale calls take none.
TEST(SystemValueCalls, TakeTheToolkitLockOnceAndLocaleCallsNone)
{
    const std::vector<std::pair<const char *, std::function<void()>>> locked = {
        {"GetSystemMetrics", [] { GetSystemMetrics(SM_CXVSCROLL); }},
        {"GetSystemMetrics bad index", [] { GetSystemMetrics(-5); }},
        {"GetSysColor", [] { GetSysColor(COLOR_BTNSHADOW); }},
        {"GetSysColor bad index", [] { GetSysColor(31); }},
        {"SystemParametersInfoW", [] {
             RECT rect;
             SystemParametersInfoW(SPI_GETWORKAREA, 0, &rect, 0);
         }},
        {"SystemParametersInfoW bad action", [] { SystemParametersInfoW(0xFFFF, 0, nullptr, 0); }},
        {"SystemParametersInfoA", [] {
             NONCLIENTMETRICSA metrics = {};
             metrics.cbSize = 340;
             SystemParametersInfoA(SPI_GETNONCLIENTMETRICS, 0, &metrics, 0);
         }},
        {"SystemParametersInfoA to the wide form", [] {
             UINT value = 0;
             SystemParametersInfoA(SPI_GETDRAGFULLWINDOWS, 0, &value, 0);
         }},
        {"GetGtkWindowColor", [] {
             GdkColor color = {};
             GetGtkWindowColor(&color);
         }},
        {"GetGtkEntryColors", [] {
             GdkColor color = {};
             GetGtkEntryColors(GTK_STATE_NORMAL, &color, nullptr);
         }},
        {"GetGtkScrollBarMetrics", [] {
             int slider = 0;
             GetGtkScrollBarMetrics(&slider, nullptr, nullptr, nullptr);
         }},
    };
    for (const auto &call : locked) {
        SCOPED_TRACE(call.first);
        GdkLockCounter counter;
        call.second();
        EXPECT_EQ(counter.enters(), 1);
        EXPECT_EQ(counter.leaves(), 1);
    }

    GdkLockCounter counter;
    WCHAR wide[64];
    GetLocaleInfoW(0x0409, LOCALE_SENGLANGUAGE, wide, 64);
    IsValidLocale(0x0409, LCID_INSTALLED);
    GetThreadLocale();
    GetKeyboardLayout(0);
    EXPECT_EQ(counter.enters(), 0);
}
