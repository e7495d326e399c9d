// GetSystemMetrics and GetSysColor: the fixed values, the screen and bad
// indexes (the values that follow the theme are checked under two themes in
// child processes); the theme's hidden widgets and the brightness arithmetic
// of the 3D colours; and which system value calls take the toolkit lock.

#include <gtest/gtest.h>

#include "gtk/vorlgtklock.h"
#include "gtk/vorlthemecolors.h"
#include "gtk/vorlthemewidgets.h"
#include "support/gdk_lock_counter.h"

#include <windows.h>

#include <gdk/gdk.h>

#include <functional>
#include <utility>
#include <vector>

using vorlan_test::GdkLockCounter;

TEST(SystemMetrics, FixedValuesAndScreenSize)
{
    // One entry of each value group, the first and last index among them.
    const std::pair<int, int> expected[] = {
        {SM_CYCAPTION, 26}, {SM_CXBORDER, 1},     {SM_CYDLGFRAME, 3}, {SM_CXHTHUMB, 17},      {SM_CYCURSOR, 32},
        {SM_CYMENU, 20},    {SM_DBCSENABLED, 1},  {SM_CXMIN, 123},    {SM_CYMIN, 34},         {SM_CYSIZE, 25},
        {SM_CXFRAME, 4},    {SM_CYDRAG, 4},       {SM_CYEDGE, 2},     {SM_CYICONSPACING, 75},
    };
    for (const auto &entry : expected)
        EXPECT_EQ(GetSystemMetrics(entry.first), entry.second) << "index " << entry.first;

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

TEST(SysColor, FixedTableEntries)
{
    // The ends of the table and the entries beside the ones the theme sets.
    const std::pair<int, COLORREF> expected[] = {
        {COLOR_SCROLLBAR, 0xC8D0D4},    {COLOR_WINDOWFRAME, 0x000000},         {COLOR_APPWORKSPACE, 0x808080},
        {COLOR_GRAYTEXT, 0x99A8AC},     {COLOR_BTNTEXT, 0x000000},             {COLOR_INACTIVECAPTIONTEXT, 0xF8E4D8},
        {COLOR_BTNHIGHLIGHT, 0xFFFFFF}, {COLOR_INFOTEXT, 0x000000},            {25, 0xB5B5B5},
        {COLOR_MENUBAR, 0xD8E9EC},
    };
    for (const auto &entry : expected)
        EXPECT_EQ(GetSysColor(entry.first), entry.second) << "index " << entry.first;
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

TEST(ThemeWidgets, CreatedOnceAndRealizedNeverShown)
{
    vorlan::GtkCriticalSection lock;
    const vorlan::ThemeWidgets &widgets = vorlan::EnsureDummyWidgets();
    EXPECT_EQ(&widgets, &vorlan::EnsureDummyWidgets());
    for (GtkWidget *widget : {widgets.packingWindow, widgets.packingContainer, widgets.label, widgets.pushButton,
                              widgets.checkButton, widgets.radioButton, widgets.frame, widgets.hScrollBar,
                              widgets.vScrollBar, widgets.entry, widgets.arrowButton, widgets.arrow,
                              widgets.menuBar, widgets.menu, widgets.menuItem, widgets.checkMenuItem,
                              widgets.separatorMenuItem}) {
        ASSERT_NE(widget, nullptr);
        EXPECT_TRUE(GTK_WIDGET_REALIZED(widget));
        EXPECT_FALSE(GTK_WIDGET_VISIBLE(widget));
    }
    EXPECT_EQ(gtk_range_get_adjustment(GTK_RANGE(widgets.hScrollBar)),
              gtk_range_get_adjustment(GTK_RANGE(widgets.vScrollBar)));
}

TEST(ThemeScrollBarMetrics, MatchStyleOfARealScrollBarAndSkipNullPointers)
{
    int slider = -1, trough = -1, stepper = -1, minimum = -1;
    GetGtkScrollBarMetrics(&slider, &trough, &stepper, &minimum);
    int troughOnly = -1;
    GetGtkScrollBarMetrics(nullptr, &troughOnly, nullptr, nullptr);
    GetGtkScrollBarMetrics(nullptr, nullptr, nullptr, nullptr);
    vorlan::GtkCriticalSection lock;
    GtkWidget *window = gtk_window_new(GTK_WINDOW_POPUP);
    GtkWidget *bar = gtk_hscrollbar_new(nullptr);
    gtk_container_add(GTK_CONTAINER(window), bar);
    gtk_widget_realize(bar);
    int expected[4] = {};
    gtk_widget_style_get(bar, "slider-width", &expected[0], "trough-border", &expected[1], "stepper-size",
                         &expected[2], "min-slider-length", &expected[3], nullptr);
    gtk_widget_destroy(window);
    EXPECT_EQ(slider, expected[0]);
    EXPECT_EQ(trough, expected[1]);
    EXPECT_EQ(stepper, expected[2]);
    EXPECT_EQ(minimum, expected[3]);
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
