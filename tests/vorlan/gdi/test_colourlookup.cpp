// How colour values reach the pixels of a true-colour screen: plain RGB,
// entries of the selected palette by index, RGB matched to the palette,
// and the nearer of black and white on mono bitmaps.
#include <gtest/gtest.h>

#include "gdi/palette_test_helpers.h"

using namespace vorlan_test;

namespace {

constexpr COLORREF kTeal = RGB(0x12, 0x9A, 0x7E);

} // namespace

TEST(ColourLookup, PlainRgbPaintsThatColourWhateverItsTopByte)
{
    Canvas canvas(8, 8);
    EXPECT_EQ(PaintAndRead(canvas, kTeal), kTeal);
    EXPECT_EQ(PaintAndRead(canvas, 0x7F000000 | kTeal), kTeal);
    EXPECT_EQ(PaintAndRead(canvas, 0x04000000 | kRed), kRed);
}

TEST(ColourLookup, PaletteIndexPaintsTheEntryOfTheSelectedPalette)
{
    TestPalette palette({RGB(0x10, 0x20, 0x30), RGB(0xC8, 0x64, 0x0A), RGB(0xFF, 0xFF, 0x00)});
    Canvas canvas(8, 8);
    SelectPalette(canvas, palette, FALSE);
    EXPECT_EQ(PaintAndRead(canvas, PALETTEINDEX(0)), RGB(0x10, 0x20, 0x30));
    EXPECT_EQ(PaintAndRead(canvas, PALETTEINDEX(1)), RGB(0xC8, 0x64, 0x0A));
    EXPECT_EQ(PaintAndRead(canvas, PALETTEINDEX(2)), RGB(0xFF, 0xFF, 0x00));
}

TEST(ColourLookup, PaletteIndexPastTheEndPaintsBlack)
{
    TestPalette palette({kRed, kGreen});
    Canvas canvas(8, 8);
    SelectPalette(canvas, palette, FALSE);
    EXPECT_EQ(PaintAndRead(canvas, PALETTEINDEX(2)), kBlack);
    EXPECT_EQ(PaintAndRead(canvas, PALETTEINDEX(0xFFFF)), kBlack);
}

TEST(ColourLookup, NewContextsLookIndicesUpInTheDefaultSystemPalette)
{
    Canvas canvas(8, 8);
    EXPECT_EQ(PaintAndRead(canvas, PALETTEINDEX(1)), RGB(0x80, 0x00, 0x00));
    EXPECT_EQ(PaintAndRead(canvas, PALETTEINDEX(8)), RGB(0xC0, 0xDC, 0xC0));
    EXPECT_EQ(PaintAndRead(canvas, PALETTEINDEX(9)), RGB(0xA6, 0xCA, 0xF0));
    EXPECT_EQ(PaintAndRead(canvas, PALETTEINDEX(10)), RGB(0xFF, 0xFB, 0xF0));
    EXPECT_EQ(PaintAndRead(canvas, PALETTEINDEX(11)), RGB(0xA0, 0xA0, 0xA4));
    EXPECT_EQ(PaintAndRead(canvas, PALETTEINDEX(19)), kWhite);
    EXPECT_EQ(PaintAndRead(canvas, PALETTEINDEX(20)), kBlack);
}

TEST(ColourLookup, PaletteRgbIsPlainRgbOnATrueColourScreen)
{
    TestPalette palette({kRed, kBlue});
    Canvas canvas(8, 8);
    SelectPalette(canvas, palette, FALSE);
    EXPECT_EQ(PaintAndRead(canvas, PALETTERGB(0xF0, 0x10, 0x20)), RGB(0xF0, 0x10, 0x20));
}

TEST(ColourLookup, SelectingAnotherPaletteChangesWhatAnIndexPaints)
{
    TestPalette first({kRed});
    TestPalette second({kBlue});
    Canvas canvas(8, 8);
    SelectPalette(canvas, first, FALSE);
    EXPECT_EQ(PaintAndRead(canvas, PALETTEINDEX(0)), kRed);
    SelectPalette(canvas, second, FALSE);
    EXPECT_EQ(PaintAndRead(canvas, PALETTEINDEX(0)), kBlue);
}

TEST(ColourLookup, TextAndBackgroundColoursMayBePaletteIndices)
{
    TestPalette palette({RGB(0x20, 0x40, 0x60), RGB(0xE0, 0xC0, 0xA0)});
    Canvas canvas(8, 8);
    SelectPalette(canvas, palette, FALSE);
    SetBkColor(canvas, PALETTEINDEX(1));
    // A hatched brush isn't drawn with its hatch; an opaque pattern blit of
    // a mono bitmap brush is: 0 bits take the text colour, 1 bits the
    // background colour.
    const BYTE rows[] = {0x80, 0x00, 0x00, 0x00};
    HBITMAP mono = CreateBitmap(2, 2, 1, 1, rows);
    SetTextColor(canvas, PALETTEINDEX(0));
    HBRUSH brush = CreatePatternBrush(mono);
    canvas.UseBrush(brush);
    PatBlt(canvas, 0, 0, 2, 2, PATCOPY);
    EXPECT_EQ(canvas.At(0, 0), RGB(0xE0, 0xC0, 0xA0));
    EXPECT_EQ(canvas.At(1, 0), RGB(0x20, 0x40, 0x60));
    canvas.UseBrush(static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
    DeleteObject(mono);
}

TEST(ColourLookupOnMonoBitmaps, ColoursBecomeTheNearerOfBlackAndWhiteByLuminance)
{
    Canvas mono(8, 8, 1);
    EXPECT_EQ(PaintAndRead(mono, RGB(0x80, 0x80, 0x80)), kWhite);
    EXPECT_EQ(PaintAndRead(mono, RGB(0x7F, 0x7F, 0x7F)), kBlack);
    // Green weighs most, blue least.
    EXPECT_EQ(PaintAndRead(mono, kGreen), kWhite);
    EXPECT_EQ(PaintAndRead(mono, kRed), kBlack);
    EXPECT_EQ(PaintAndRead(mono, kBlue), kBlack);
    EXPECT_EQ(PaintAndRead(mono, RGB(0xFF, 0xFF, 0x00)), kWhite);
    EXPECT_EQ(PaintAndRead(mono, RGB(0x00, 0xFF, 0xFF)), kWhite);
}

TEST(ColourLookupOnMonoBitmaps, PaletteIndicesAreLookedUpFirst)
{
    TestPalette palette({RGB(0xF0, 0xF0, 0xF0), RGB(0x20, 0x20, 0x20)});
    Canvas mono(8, 8, 1);
    SelectPalette(mono, palette, FALSE);
    EXPECT_EQ(PaintAndRead(mono, PALETTEINDEX(0)), kWhite);
    EXPECT_EQ(PaintAndRead(mono, PALETTEINDEX(1)), kBlack);
    EXPECT_EQ(PaintAndRead(mono, PALETTEINDEX(5)), kBlack);
}

TEST(ColourLookupOnMonoBitmaps, NearestColourIsBlackOrWhite)
{
    Canvas mono(8, 8, 1);
    EXPECT_EQ(GetNearestColor(mono, RGB(0x80, 0x80, 0x80)), kWhite);
    EXPECT_EQ(GetNearestColor(mono, RGB(0x7F, 0x7F, 0x7F)), kBlack);
    EXPECT_EQ(GetNearestColor(mono, kGreen), kWhite);
    EXPECT_EQ(GetNearestColor(mono, kBlue), kBlack);
}

TEST(NearestColour, TrueColourScreenHasEveryColour)
{
    Canvas canvas(4, 4);
    EXPECT_EQ(GetNearestColor(canvas, kTeal), kTeal);
    EXPECT_EQ(GetNearestColor(canvas, 0x5A000000 | kTeal), kTeal);
    EXPECT_EQ(GetNearestColor(canvas, PALETTERGB(1, 2, 3)), RGB(1, 2, 3));
}

TEST(NearestColour, PaletteIndexGivesTheEntryOrBlack)
{
    TestPalette palette({RGB(0x11, 0x22, 0x33)});
    Canvas canvas(4, 4);
    SelectPalette(canvas, palette, FALSE);
    EXPECT_EQ(GetNearestColor(canvas, PALETTEINDEX(0)), RGB(0x11, 0x22, 0x33));
    EXPECT_EQ(GetNearestColor(canvas, PALETTEINDEX(1)), kBlack);
}

TEST(NearestColour, WindowContextsAnswerLikeMemoryContexts)
{
    HDC screen = GetDC(nullptr);
    ASSERT_NE(screen, nullptr);
    EXPECT_EQ(GetNearestColor(screen, kTeal), kTeal);
    EXPECT_EQ(GetNearestColor(screen, PALETTEINDEX(13)), kRed);
    ReleaseDC(nullptr, screen);
}
