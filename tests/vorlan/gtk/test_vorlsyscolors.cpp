// GetSysColor: the fixed table, the colours that follow the theme, bad
// indexes and the toolkit lock.

#include <gtest/gtest.h>

#include "gtk/vorlthemecolors.h"
#include "support/gdk_lock_counter.h"

#include <windows.h>

#include <map>

using vorlan_test::GdkLockCounter;

namespace {

COLORREF ThemeWindowColor()
{
    GdkColor color = {};
    GetGtkWindowColor(&color);
    return GdkColorToColorRef(color);
}

COLORREF ThemeSelection(bool text)
{
    GdkColor base = {}, foreground = {};
    GetGtkEntryColors(GTK_STATE_SELECTED, &base, &foreground);
    return GdkColorToColorRef(text ? foreground : base);
}

} // namespace

TEST(SysColor, FixedTable)
{
    const std::map<int, COLORREF> expected = {
        {COLOR_SCROLLBAR, 0xC8D0D4},
        {COLOR_BACKGROUND, 0x984E00},
        {COLOR_ACTIVECAPTION, 0xE35400},
        {COLOR_INACTIVECAPTION, 0xDF967A},
        {COLOR_MENU, 0xFFFFFF},
        {COLOR_WINDOW, 0xFFFFFF},
        {COLOR_WINDOWFRAME, 0x000000},
        {COLOR_MENUTEXT, 0x000000},
        {COLOR_WINDOWTEXT, 0x000000},
        {COLOR_CAPTIONTEXT, 0xFFFFFF},
        {COLOR_ACTIVEBORDER, 0xC8D0D4},
        {COLOR_INACTIVEBORDER, 0xC8D0D4},
        {COLOR_APPWORKSPACE, 0x808080},
        {COLOR_GRAYTEXT, 0x99A8AC},
        {COLOR_BTNTEXT, 0x000000},
        {COLOR_INACTIVECAPTIONTEXT, 0xF8E4D8},
        {COLOR_BTNHIGHLIGHT, 0xFFFFFF},
        {COLOR_INFOTEXT, 0x000000},
        {COLOR_INFOBK, 0xE1FFFF},
        {25, 0xB5B5B5},
        {COLOR_HOTLIGHT, 0x800000},
        {COLOR_GRADIENTACTIVECAPTION, 0xFF953D},
        {COLOR_GRADIENTINACTIVECAPTION, 0xEBB99D},
        {COLOR_MENUHILIGHT, 0xC56A31},
        {COLOR_MENUBAR, 0xD8E9EC},
    };
    for (const auto &entry : expected)
        EXPECT_EQ(GetSysColor(entry.first), entry.second) << "index " << entry.first;
}

TEST(SysColor, ButtonColorsFollowWindowColor)
{
    const COLORREF face = ThemeWindowColor();
    EXPECT_EQ(GetSysColor(COLOR_BTNFACE), face);
    EXPECT_EQ(GetSysColor(COLOR_BTNSHADOW), AdjustBrightness(face, -50));
    EXPECT_EQ(GetSysColor(COLOR_3DDKSHADOW), AdjustBrightness(face, -150));
    EXPECT_EQ(GetSysColor(COLOR_3DLIGHT), AdjustBrightness(face, 10));
}

TEST(SysColor, SelectionColorsFollowEntry)
{
    EXPECT_EQ(GetSysColor(COLOR_HIGHLIGHT), ThemeSelection(false));
    EXPECT_EQ(GetSysColor(COLOR_HIGHLIGHTTEXT), ThemeSelection(true));
}

TEST(SysColor, HighByteIsAlwaysZero)
{
    for (int index = 0; index < 31; ++index)
        EXPECT_EQ(GetSysColor(index) & 0xFF000000u, 0u) << "index " << index;
}

TEST(SysColor, IndexesOutsideTableGiveZero)
{
    EXPECT_EQ(GetSysColor(31), 0u);
    EXPECT_EQ(GetSysColor(1000), 0u);
    EXPECT_EQ(GetSysColor(-1), 0u);
}

TEST(SysColor, TakesTheToolkitLockOnce)
{
    GdkLockCounter counter;
    GetSysColor(COLOR_BTNSHADOW);
    EXPECT_EQ(counter.enters(), 1);
    GetSysColor(COLOR_WINDOW);
    GetSysColor(31);
    EXPECT_EQ(counter.enters(), 3);
    EXPECT_EQ(counter.leaves(), 3);
}
