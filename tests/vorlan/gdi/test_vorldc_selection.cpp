#include <gtest/gtest.h>

#include "support/dc_test_helpers.h"

#include <gdk/gdk.h>

using vorlan_test::LiveType;
using vorlan_test::MemoryDC;

TEST(DeviceContextSelection, PenBrushAndFontReturnThePreviousObject)
{
    MemoryDC dc;
    HPEN pen = CreatePen(PS_DOT, 1, 0x0000FF);
    HBRUSH brush = CreateSolidBrush(0x00FF00);
    LOGFONTW lf = {};
    lf.lfHeight = 20;
    HFONT font = CreateFontIndirectW(&lf);
    EXPECT_EQ(SelectObject(dc, pen), GetStockObject(BLACK_PEN));
    EXPECT_EQ(SelectObject(dc, brush), GetStockObject(WHITE_BRUSH));
    EXPECT_EQ(SelectObject(dc, font), GetStockObject(SYSTEM_FONT));
    EXPECT_EQ(GetCurrentObject(dc, OBJ_PEN), pen);
    EXPECT_EQ(GetCurrentObject(dc, OBJ_BRUSH), brush);
    EXPECT_EQ(GetCurrentObject(dc, OBJ_FONT), font);
    // Selecting the current object again gives it back.
    EXPECT_EQ(SelectObject(dc, pen), pen);
    EXPECT_EQ(SelectObject(dc, GetStockObject(BLACK_PEN)), pen);
    EXPECT_EQ(SelectObject(dc, GetStockObject(WHITE_BRUSH)), brush);
    EXPECT_EQ(SelectObject(dc, GetStockObject(SYSTEM_FONT)), font);
    for (HGDIOBJ object : {HGDIOBJ(pen), HGDIOBJ(brush), HGDIOBJ(font)})
        EXPECT_TRUE(DeleteObject(object));
}

TEST(DeviceContextSelection, DeletedSelectedObjectLivesUntilEveryContextLetsItGo)
{
    MemoryDC dc;
    HPEN pen = CreatePen(PS_SOLID, 3, 0x112233);
    HBRUSH brush = CreateSolidBrush(0x445566);
    SelectObject(dc, pen);
    SelectObject(dc, brush);
    EXPECT_TRUE(DeleteObject(pen));
    EXPECT_TRUE(DeleteObject(brush));
    EXPECT_EQ(LiveType(pen), static_cast<DWORD>(OBJ_PEN));
    LOGPEN lp = {};
    EXPECT_EQ(GetObjectW(pen, sizeof lp, &lp), static_cast<int>(sizeof lp));
    EXPECT_EQ(lp.lopnColor, 0x112233u);
    EXPECT_EQ(SelectObject(dc, GetStockObject(WHITE_PEN)), pen);
    EXPECT_EQ(LiveType(pen), 0u);
    // The brush goes with the context.
    EXPECT_EQ(LiveType(brush), static_cast<DWORD>(OBJ_BRUSH));
    HDC raw = dc.get();
    EXPECT_TRUE(DeleteDC(raw));
    EXPECT_EQ(LiveType(brush), 0u);
    // Selected into two contexts, it lives until both let it go.
    MemoryDC first;
    MemoryDC second;
    brush = CreateSolidBrush(0x010101);
    SelectObject(first, brush);
    SelectObject(second, brush);
    DeleteObject(brush);
    SelectObject(first, GetStockObject(BLACK_BRUSH));
    EXPECT_EQ(LiveType(brush), static_cast<DWORD>(OBJ_BRUSH));
    SelectObject(second, GetStockObject(BLACK_BRUSH));
    EXPECT_EQ(LiveType(brush), 0u);
}

TEST(DeviceContextSelection, BitmapGoesIntoOneMemoryContextAtATimeButTheDefaultOneIntoAll)
{
    MemoryDC first;
    MemoryDC second;
    HBITMAP bitmap = CreateBitmap(16, 8, 1, 1, nullptr);
    EXPECT_EQ(SelectObject(first, bitmap), GetStockObject(21));
    EXPECT_EQ(SelectObject(second, bitmap), nullptr);
    EXPECT_EQ(GetCurrentObject(second, OBJ_BITMAP), GetStockObject(21));
    // Once the first lets it go, the second may take it.
    SelectObject(first, GetStockObject(21));
    EXPECT_EQ(SelectObject(second, bitmap), GetStockObject(21));
    // The default bitmap is in every memory context at once.
    EXPECT_EQ(SelectObject(second, GetStockObject(21)), bitmap);
    MemoryDC third;
    for (HDC hdc : {first.get(), second.get(), third.get()})
        EXPECT_EQ(GetCurrentObject(hdc, OBJ_BITMAP), GetStockObject(21));
    EXPECT_TRUE(DeleteObject(bitmap));
}

TEST(DeviceContextSelection, BitmapOfAnotherDepthOrIntoAWindowContextIsRefused)
{
    MemoryDC dc;
    HBITMAP fourBits = CreateBitmap(8, 8, 1, 4, nullptr);
    ASSERT_NE(fourBits, nullptr);
    EXPECT_EQ(SelectObject(dc, fourBits), nullptr);
    const int depth = GetDeviceCaps(dc, BITSPIXEL);
    HBITMAP deep = CreateBitmap(8, 8, 1, depth, nullptr);
    EXPECT_EQ(SelectObject(dc, deep), GetStockObject(21));
    SelectObject(dc, GetStockObject(21));

    HDC window = GetDC(nullptr);
    HBITMAP mono = CreateBitmap(8, 8, 1, 1, nullptr);
    EXPECT_EQ(SelectObject(window, mono), nullptr);
    EXPECT_EQ(SelectObject(window, GetStockObject(21)), nullptr);
    EXPECT_EQ(GetCurrentObject(window, OBJ_BITMAP), nullptr);
    ReleaseDC(nullptr, window);
    // A refused bitmap isn't counted as selected anywhere.
    MemoryDC other;
    EXPECT_EQ(SelectObject(other, mono), GetStockObject(21));
    SelectObject(other, GetStockObject(21));
    for (HBITMAP bitmap : {fourBits, deep, mono})
        EXPECT_TRUE(DeleteObject(bitmap));
    EXPECT_EQ(LiveType(mono), 0u);
}

TEST(DeviceContextSelection, PalettesAndOtherHandlesAreNotSelectable)
{
    MemoryDC dc;
    MemoryDC other;
    HPALETTE palette = static_cast<HPALETTE>(GetStockObject(DEFAULT_PALETTE));
    EXPECT_EQ(SelectObject(dc, palette), nullptr);
    EXPECT_EQ(GetCurrentObject(dc, OBJ_PAL), palette);
    EXPECT_EQ(SelectObject(dc, other.get()), nullptr);
    EXPECT_EQ(SelectObject(dc, nullptr), nullptr);
    HPEN dead = CreatePen(PS_SOLID, 1, 0);
    DeleteObject(dead);
    EXPECT_EQ(SelectObject(dc, dead), nullptr);
    EXPECT_EQ(GetCurrentObject(dc, OBJ_PEN), GetStockObject(BLACK_PEN));
}

TEST(DeviceContextSelection, PaletteSelectionCountsAndRemembersTheBackgroundFlag)
{
    MemoryDC dc;
    BYTE block[sizeof(LOGPALETTE) + sizeof(PALETTEENTRY)] = {};
    auto *lp = reinterpret_cast<LOGPALETTE *>(block);
    lp->palVersion = 0x300;
    lp->palNumEntries = 2;
    HPALETTE palette = CreatePalette(lp);
    EXPECT_EQ(SelectPalette(dc, palette, FALSE), GetStockObject(DEFAULT_PALETTE));
    EXPECT_EQ(vorlan_test::StateOf(dc).bForceBackground, FALSE);
    EXPECT_TRUE(DeleteObject(palette));
    EXPECT_EQ(LiveType(palette), static_cast<DWORD>(OBJ_PAL));
    EXPECT_EQ(SelectPalette(dc, static_cast<HPALETTE>(GetStockObject(DEFAULT_PALETTE)), TRUE), palette);
    EXPECT_EQ(LiveType(palette), 0u);
    EXPECT_EQ(SelectPalette(dc, reinterpret_cast<HPALETTE>(GetStockObject(BLACK_PEN)), TRUE), nullptr);
}

TEST(DeviceContextSelection, SelectingAFontLeavesThePangoContextAlone)
{
    MemoryDC dc;
    LOGFONTW lf = {};
    lf.lfHeight = 40;
    lf.lfWeight = FW_BOLD;
    HFONT font = CreateFontIndirectW(&lf);
    PangoFontDescription *before;
    {
        vorlan::GtkCriticalSection lock;
        before = pango_font_description_copy(
            pango_context_get_font_description(vorlan::GetCommonDeviceContext(dc)->pangoContext));
    }
    SelectObject(dc, font);
    {
        vorlan::GtkCriticalSection lock;
        const PangoFontDescription *after =
            pango_context_get_font_description(vorlan::GetCommonDeviceContext(dc)->pangoContext);
        EXPECT_TRUE(pango_font_description_equal(before, after));
    }
    pango_font_description_free(before);
    SelectObject(dc, GetStockObject(SYSTEM_FONT));
    DeleteObject(font);
}
