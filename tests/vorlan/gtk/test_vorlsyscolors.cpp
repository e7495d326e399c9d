// GetSysColor: the fixed table, the colours that follow the theme and bad
// indexes.

#include <gtest/gtest.h>

#include "gtk/vorlthemecolors.h"

#include <windows.h>

#include <utility>

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

TEST(SysColor, ButtonAndSelectionColorsFollowTheTheme)
{
    GdkColor window = {}, base = {}, text = {};
    GetGtkWindowColor(&window);
    GetGtkEntryColors(GTK_STATE_SELECTED, &base, &text);
    const COLORREF face = GdkColorToColorRef(window);
    EXPECT_EQ(GetSysColor(COLOR_BTNFACE), face);
    EXPECT_EQ(GetSysColor(COLOR_BTNSHADOW), AdjustBrightness(face, -50));
    EXPECT_EQ(GetSysColor(COLOR_3DDKSHADOW), AdjustBrightness(face, -150));
    EXPECT_EQ(GetSysColor(COLOR_3DLIGHT), AdjustBrightness(face, 10));
    EXPECT_EQ(GetSysColor(COLOR_HIGHLIGHT), GdkColorToColorRef(base));
    EXPECT_EQ(GetSysColor(COLOR_HIGHLIGHTTEXT), GdkColorToColorRef(text));
}

TEST(SysColor, HighByteIsZeroAndIndexesOutsideTheTableGiveZero)
{
    for (int index = 0; index < 31; ++index)
        EXPECT_EQ(GetSysColor(index) & 0xFF000000u, 0u) << "index " << index;
    for (int index : {31, 1000, -1})
        EXPECT_EQ(GetSysColor(index), 0u) << "index " << index;
}
