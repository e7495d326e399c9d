// Selecting and realising palettes, the system palette calls on a
// true-colour screen, nearest palette entries, and what bad context and
// palette handles give.
#include <gtest/gtest.h>

#include "gdi/palette_test_helpers.h"
#include "gdi/vorlgdiobject.h"
#include "gtk/vorlgtklock.h"

#include <cstring>

using namespace vorlan_test;

namespace {

// The depth a palette was tied to by its first selection, 0 when none.
ULONG_PTR TiedDepth(HPALETTE palette)
{
    vorlan::GtkCriticalSection lock;
    return GetPhysicalObject(palette, vorlan::kScreenSlot);
}

void TieToDepth(HPALETTE palette, ULONG_PTR depth)
{
    vorlan::GtkCriticalSection lock;
    SetPhysicalObject(palette, vorlan::kScreenSlot, depth, nullptr, 0);
}

HDC BogusDC() { return reinterpret_cast<HDC>(static_cast<ULONG_PTR>(0x7003FFF0)); }

} // namespace

TEST(PaletteSelection, FirstSelectionTiesThePaletteToTheContextsDepth)
{
    TestPalette palette({kRed});
    Canvas canvas(4, 4);
    EXPECT_EQ(TiedDepth(palette), 0u);
    EXPECT_EQ(SelectPalette(canvas, palette, FALSE), GetStockObject(DEFAULT_PALETTE));
    EXPECT_EQ(TiedDepth(palette), static_cast<ULONG_PTR>(GetDeviceCaps(canvas, BITSPIXEL)));
    // Another context of the same depth takes it too.
    Canvas other(4, 4);
    EXPECT_EQ(SelectPalette(other, palette, TRUE), GetStockObject(DEFAULT_PALETTE));
    EXPECT_EQ(GetCurrentObject(other, OBJ_PAL), palette.get());
}

TEST(PaletteSelection, PaletteTiedToAnotherDepthIsRefused)
{
    TestPalette palette({kRed});
    TieToDepth(palette, 16);
    Canvas canvas(4, 4);
    EXPECT_EQ(SelectPalette(canvas, palette, FALSE), nullptr);
    EXPECT_EQ(GetCurrentObject(canvas, OBJ_PAL), GetStockObject(DEFAULT_PALETTE));
    EXPECT_EQ(PaintAndRead(canvas, PALETTEINDEX(0)), kBlack);
}

TEST(PaletteSelection, MonoBitmapDoesNotChangeTheContextsDepth)
{
    TestPalette palette({kRed});
    Canvas mono(4, 4, 1);
    ASSERT_NE(SelectPalette(mono, palette, FALSE), nullptr);
    Canvas colour(4, 4);
    EXPECT_NE(SelectPalette(colour, palette, FALSE), nullptr);
}

TEST(PaletteSelection, HandlesThatAreNoPalettesAreRefused)
{
    Canvas canvas(4, 4);
    HBRUSH brush = CreateSolidBrush(kRed);
    EXPECT_EQ(SelectPalette(canvas, reinterpret_cast<HPALETTE>(brush), FALSE), nullptr);
    DeleteObject(brush);
    HPALETTE dead = nullptr;
    {
        TestPalette palette({kRed});
        dead = palette;
    }
    EXPECT_EQ(SelectPalette(canvas, dead, FALSE), nullptr);
    EXPECT_EQ(SelectPalette(canvas, nullptr, FALSE), nullptr);
    EXPECT_EQ(SelectPalette(canvas, reinterpret_cast<HPALETTE>(static_cast<ULONG_PTR>(0x7008FFF0)), FALSE), nullptr);
    EXPECT_EQ(GetCurrentObject(canvas, OBJ_PAL), GetStockObject(DEFAULT_PALETTE));
}

TEST(PaletteOnTrueColourScreen, PaletteCallsDoNothing)
{
    TestPalette palette({kRed, kGreen, kBlue});
    Canvas canvas(4, 4);
    EXPECT_EQ(GetDeviceCaps(canvas, RASTERCAPS) & RC_PALETTE, 0);
    SelectPalette(canvas, palette, FALSE);
    EXPECT_EQ(RealizePalette(canvas), 0u);
    EXPECT_EQ(GetSystemPaletteUse(canvas), 0u);
    EXPECT_FALSE(UpdateColors(canvas));
    PALETTEENTRY entries[4];
    std::memset(entries, 0xAB, sizeof entries);
    EXPECT_EQ(GetSystemPaletteEntries(canvas, 0, 4, entries), 0u);
    EXPECT_EQ(entries[0].peRed, 0xAB);
}

TEST(PaletteOnTrueColourScreen, WindowContextsHaveNoPaletteEither)
{
    HDC screen = GetDC(nullptr);
    ASSERT_NE(screen, nullptr);
    EXPECT_EQ(RealizePalette(screen), 0u);
    EXPECT_EQ(GetSystemPaletteUse(screen), 0u);
    EXPECT_EQ(GetSystemPaletteEntries(screen, 0, 0, nullptr), 0u);
    ReleaseDC(nullptr, screen);
}

TEST(NearestPaletteIndex, ExactMatchElseNearestBySumOfDifferences)
{
    TestPalette palette({RGB(0, 0, 0), RGB(200, 100, 0), RGB(200, 100, 0), RGB(255, 255, 255)});
    EXPECT_EQ(GetNearestPaletteIndex(palette, RGB(200, 100, 0)), 1u);
    EXPECT_EQ(GetNearestPaletteIndex(palette, RGB(190, 90, 10)), 1u);
    EXPECT_EQ(GetNearestPaletteIndex(palette, RGB(240, 240, 250)), 3u);
    EXPECT_EQ(GetNearestPaletteIndex(palette, RGB(10, 10, 10)), 0u);
}

TEST(NearestPaletteIndex, DefaultPaletteHasTheSystemColours)
{
    HPALETTE system = static_cast<HPALETTE>(GetStockObject(DEFAULT_PALETTE));
    EXPECT_EQ(GetNearestPaletteIndex(system, RGB(0xA6, 0xCA, 0xF0)), 9u);
    EXPECT_EQ(GetNearestPaletteIndex(system, RGB(0xFF, 0xFB, 0xF0)), 10u);
    EXPECT_EQ(GetNearestPaletteIndex(system, RGB(0x00, 0xFF, 0x00)), 14u);
    EXPECT_EQ(GetNearestPaletteIndex(system, RGB(0xFE, 0x01, 0x02)), 13u);
}

TEST(NearestPaletteIndex, BadPaletteHandleGivesZero)
{
    HBRUSH brush = CreateSolidBrush(kRed);
    EXPECT_EQ(GetNearestPaletteIndex(reinterpret_cast<HPALETTE>(brush), kRed), 0u);
    DeleteObject(brush);
    EXPECT_EQ(GetNearestPaletteIndex(nullptr, kRed), 0u);
}

TEST(PaletteCallsWithBadContexts, FailWithInvalidParameter)
{
    HPALETTE palette = static_cast<HPALETTE>(GetStockObject(DEFAULT_PALETTE));
    HBRUSH brush = CreateSolidBrush(kRed);
    for (HDC hdc : {HDC(nullptr), BogusDC(), reinterpret_cast<HDC>(brush)}) {
        SCOPED_TRACE(reinterpret_cast<ULONG_PTR>(hdc));
        SetLastError(0);
        EXPECT_EQ(SelectPalette(hdc, palette, FALSE), nullptr);
        EXPECT_EQ(GetLastError(), 87u);
        SetLastError(0);
        EXPECT_EQ(RealizePalette(hdc), GDI_ERROR);
        EXPECT_EQ(GetLastError(), 87u);
        SetLastError(0);
        EXPECT_EQ(GetNearestColor(hdc, kRed), CLR_INVALID);
        EXPECT_EQ(GetLastError(), 87u);
        PALETTEENTRY entries[2];
        EXPECT_EQ(GetSystemPaletteEntries(hdc, 0, 2, entries), 0u);
        EXPECT_EQ(GetSystemPaletteUse(hdc), 0u);
        EXPECT_FALSE(UpdateColors(hdc));
    }
    DeleteObject(brush);
}

TEST(PaletteCallsWithBadContexts, DeletedContextFails)
{
    HDC dc = CreateCompatibleDC(nullptr);
    DeleteDC(dc);
    EXPECT_EQ(SelectPalette(dc, static_cast<HPALETTE>(GetStockObject(DEFAULT_PALETTE)), FALSE), nullptr);
    EXPECT_EQ(RealizePalette(dc), GDI_ERROR);
    EXPECT_EQ(GetNearestColor(dc, kRed), CLR_INVALID);
}
