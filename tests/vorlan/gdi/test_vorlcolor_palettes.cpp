#include <gtest/gtest.h>

#include "support/palette_test_helpers.h"
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
    // A mono bitmap doesn't change the context's depth.
    TestPalette second({kRed});
    Canvas mono(4, 4, 1);
    ASSERT_NE(SelectPalette(mono, second, FALSE), nullptr);
    EXPECT_NE(SelectPalette(other, second, FALSE), nullptr);
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
    EXPECT_EQ(SelectPalette(canvas, reinterpret_cast<HPALETTE>(static_cast<ULONG_PTR>(0x7008FFF0)), FALSE),
              nullptr);
    EXPECT_EQ(GetCurrentObject(canvas, OBJ_PAL), GetStockObject(DEFAULT_PALETTE));
}

TEST(PaletteOnTrueColourScreen, PaletteCallsDoNothing)
{
    TestPalette palette({kRed, kGreen, kBlue});
    Canvas canvas(4, 4);
    HDC screen = GetDC(nullptr);
    ASSERT_NE(screen, nullptr);
    EXPECT_EQ(GetDeviceCaps(canvas, RASTERCAPS) & RC_PALETTE, 0);
    SelectPalette(canvas, palette, FALSE);
    for (HDC hdc : {canvas.hdc(), screen}) {
        EXPECT_EQ(RealizePalette(hdc), 0u);
        EXPECT_EQ(GetSystemPaletteUse(hdc), 0u);
        EXPECT_FALSE(UpdateColors(hdc));
        EXPECT_EQ(GetSystemPaletteEntries(hdc, 0, 0, nullptr), 0u);
        PALETTEENTRY entries[4];
        std::memset(entries, 0xAB, sizeof entries);
        EXPECT_EQ(GetSystemPaletteEntries(hdc, 0, 4, entries), 0u);
        EXPECT_EQ(entries[0].peRed, 0xAB);
    }
    ReleaseDC(nullptr, screen);
}
