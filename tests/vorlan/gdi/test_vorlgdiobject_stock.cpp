#include <gtest/gtest.h>

#include "gdi/vorlgdisystem.h"

#include <cstring>

TEST(GdiStockObjects, IndicesWithoutAnObjectGiveZero)
{
    for (int index : {NULL_PEN, 9, 20, 22, 23, 1000, -1})
        EXPECT_EQ(GetStockObject(index), nullptr) << index;
}

TEST(GdiStockObjects, BrushesAndPens)
{
    const struct {
        int index;
        UINT style;
        COLORREF colour;
    } brushes[] = {{GRAY_BRUSH, BS_SOLID, 0x0D808080}, {NULL_BRUSH, BS_NULL, 0}, {DC_BRUSH, BS_SOLID, 0xFFFFFF}},
      pens[] = {{BLACK_PEN, PS_SOLID, 0}, {DC_PEN, PS_SOLID, 0xFFFFFF}};
    for (const auto &b : brushes) {
        LOGBRUSH lb = {};
        ASSERT_EQ(GetObjectW(GetStockObject(b.index), sizeof lb, &lb), static_cast<int>(sizeof lb)) << b.index;
        EXPECT_EQ(lb.lbStyle, b.style) << b.index;
        if (b.style == BS_SOLID) {
            EXPECT_EQ(lb.lbColor, b.colour) << b.index;
        }
    }
    for (const auto &p : pens) {
        LOGPEN lp = {};
        ASSERT_EQ(GetObjectW(GetStockObject(p.index), sizeof lp, &lp), static_cast<int>(sizeof lp)) << p.index;
        EXPECT_EQ(lp.lopnStyle, p.style) << p.index;
        EXPECT_EQ(lp.lopnWidth.x, 1) << p.index;
        EXPECT_EQ(lp.lopnColor, p.colour) << p.index;
    }
    EXPECT_NE(GetStockObject(DC_BRUSH), GetStockObject(WHITE_BRUSH));
    EXPECT_NE(GetStockObject(DC_PEN), GetStockObject(WHITE_PEN));
}

// Seven font indices share one font, whose charset follows the code page.
TEST(GdiStockObjects, SevenFontIndicesShareOneFont)
{
    HGDIOBJ font = GetStockObject(SYSTEM_FONT);
    for (int index :
         {OEM_FIXED_FONT, ANSI_FIXED_FONT, ANSI_VAR_FONT, DEVICE_DEFAULT_FONT, SYSTEM_FIXED_FONT, DEFAULT_GUI_FONT})
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

TEST(GdiStockObjects, DefaultPaletteAndBitmap)
{
    HPALETTE palette = static_cast<HPALETTE>(GetStockObject(DEFAULT_PALETTE));
    PALETTEENTRY entries[32] = {};
    ASSERT_EQ(GetPaletteEntries(palette, 0, 32, entries), 20u);
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
}
