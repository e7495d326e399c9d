// Stock objects: which indices have one, what they are, and that
// deleting them changes nothing.
#include <gtest/gtest.h>

#include "gdi/vorlgdiobject.h"
#include "gdi/vorlgdisystem.h"
#include "gtk/vorlgtklock.h"

#include <cstring>

namespace {

LOGBRUSH BrushOf(int index)
{
    LOGBRUSH lb = {};
    EXPECT_EQ(GetObjectW(GetStockObject(index), sizeof lb, &lb), static_cast<int>(sizeof lb)) << index;
    return lb;
}

LOGPEN PenOf(int index)
{
    LOGPEN lp = {};
    EXPECT_EQ(GetObjectW(GetStockObject(index), sizeof lp, &lp), static_cast<int>(sizeof lp)) << index;
    return lp;
}

} // namespace

TEST(GdiStockObjects, IndicesWithoutAnObjectGiveZero)
{
    for (int index : {NULL_PEN, 9, 20, 22, 23, 1000, -1})
        EXPECT_EQ(GetStockObject(index), nullptr) << index;
}

TEST(GdiStockObjects, BrushesAndPens)
{
    EXPECT_EQ(BrushOf(WHITE_BRUSH).lbColor, 0xFFFFFFu);
    EXPECT_EQ(BrushOf(LTGRAY_BRUSH).lbColor, 0xC0C0C0u);
    EXPECT_EQ(BrushOf(GRAY_BRUSH).lbColor, 0x0D808080u);
    EXPECT_EQ(BrushOf(DKGRAY_BRUSH).lbColor, 0x404040u);
    EXPECT_EQ(BrushOf(BLACK_BRUSH).lbColor, 0u);
    EXPECT_EQ(BrushOf(BLACK_BRUSH).lbStyle, static_cast<UINT>(BS_SOLID));
    EXPECT_EQ(BrushOf(NULL_BRUSH).lbStyle, static_cast<UINT>(BS_NULL));
    EXPECT_EQ(BrushOf(DC_BRUSH).lbColor, 0xFFFFFFu);
    EXPECT_NE(GetStockObject(DC_BRUSH), GetStockObject(WHITE_BRUSH));
    const LOGPEN black = PenOf(BLACK_PEN);
    EXPECT_EQ(black.lopnStyle, static_cast<UINT>(PS_SOLID));
    EXPECT_EQ(black.lopnWidth.x, 1);
    EXPECT_EQ(black.lopnColor, 0u);
    EXPECT_EQ(PenOf(WHITE_PEN).lopnColor, 0xFFFFFFu);
    EXPECT_EQ(PenOf(DC_PEN).lopnColor, 0xFFFFFFu);
    EXPECT_NE(GetStockObject(DC_PEN), GetStockObject(WHITE_PEN));
    EXPECT_EQ(GetStockObject(GRAY_BRUSH), GetStockObject(GRAY_BRUSH));
}

TEST(GdiStockObjects, SevenFontIndicesShareOneFont)
{
    HGDIOBJ font = GetStockObject(SYSTEM_FONT);
    for (int index : {OEM_FIXED_FONT, ANSI_FIXED_FONT, ANSI_VAR_FONT, DEVICE_DEFAULT_FONT, SYSTEM_FIXED_FONT,
                      DEFAULT_GUI_FONT})
        EXPECT_EQ(GetStockObject(index), font) << index;
    LOGFONTA lf;
    ASSERT_EQ(GetObjectA(font, sizeof lf, &lf), 60);
    EXPECT_EQ(lf.lfHeight, 12);
    EXPECT_EQ(lf.lfWidth, 12);
    EXPECT_EQ(lf.lfWeight, 400);
    EXPECT_EQ(lf.lfCharSet, vorlan::CharsetOfAnsiCodePage(GetACP()));
    EXPECT_EQ(lf.lfItalic + lf.lfEscapement + lf.lfPitchAndFamily, 0);
    EXPECT_STREQ(lf.lfFaceName, "Luxi Sans");
}

TEST(GdiStockObjects, CharsetFollowsTheEastAsianCodePages)
{
    EXPECT_EQ(vorlan::CharsetOfAnsiCodePage(932), SHIFTJIS_CHARSET);
    EXPECT_EQ(vorlan::CharsetOfAnsiCodePage(936), GB2312_CHARSET);
    EXPECT_EQ(vorlan::CharsetOfAnsiCodePage(949), HANGUL_CHARSET);
    EXPECT_EQ(vorlan::CharsetOfAnsiCodePage(950), CHINESEBIG5_CHARSET);
    EXPECT_EQ(vorlan::CharsetOfAnsiCodePage(1252), ANSI_CHARSET);
    EXPECT_EQ(vorlan::CharsetOfAnsiCodePage(65001), ANSI_CHARSET);
}

TEST(GdiStockObjects, DefaultPaletteAndBitmap)
{
    HPALETTE palette = static_cast<HPALETTE>(GetStockObject(DEFAULT_PALETTE));
    PALETTEENTRY entries[32] = {};
    ASSERT_EQ(GetPaletteEntries(palette, 0, 32, entries), 20u);
    EXPECT_EQ(std::memcmp(&entries[9], "\xA6\xCA\xF0", 3), 0);
    EXPECT_EQ(std::memcmp(&entries[10], "\xFF\xFB\xF0", 3), 0);
    EXPECT_EQ(std::memcmp(&entries[19], "\xFF\xFF\xFF", 3), 0);
    BITMAP bm;
    ASSERT_EQ(GetObjectW(GetStockObject(21), sizeof bm, &bm), static_cast<int>(sizeof bm));
    EXPECT_EQ(bm.bmWidth, 1);
    EXPECT_EQ(bm.bmHeight, 1);
    EXPECT_EQ(bm.bmBitsPixel, 1);
}

TEST(GdiStockObjects, DeletingStockObjectsOrZeroChangesNothing)
{
    EXPECT_TRUE(DeleteObject(nullptr));
    for (int index = 0; index < 22; ++index) {
        HGDIOBJ stock = GetStockObject(index);
        EXPECT_TRUE(DeleteObject(stock));
        EXPECT_TRUE(DeleteObject(stock));
        EXPECT_EQ(GetStockObject(index), stock);
        if (stock != nullptr) {
            EXPECT_NE(GetObjectType(stock), 0u) << index;
        }
    }
    vorlan::GtkCriticalSection lock;
    EXPECT_TRUE(IsStockObject(nullptr));
    EXPECT_EQ(GetStockObjectIndex(GetStockObject(DC_PEN)), DC_PEN);
    EXPECT_EQ(GetStockObjectIndex(GetStockObject(DEFAULT_GUI_FONT)), SYSTEM_FONT);
    EXPECT_EQ(vorlan::GdiObject::SetStockBit(GetStockObject(BLACK_PEN)), GetStockObject(BLACK_PEN));
}
