#include <gtest/gtest.h>

#include "support/palette_test_helpers.h"

using namespace vorlan_test;

namespace {

constexpr COLORREF kTeal = RGB(0x12, 0x9A, 0x7E);

} // namespace

TEST(ColourLookup, PlainAndPaletteRgbPaintThatColourWhateverTheTopByte)
{
    TestPalette palette({kRed, kBlue});
    Canvas canvas(8, 8);
    EXPECT_EQ(PaintAndRead(canvas, kTeal), kTeal);
    EXPECT_EQ(PaintAndRead(canvas, 0x7F000000 | kTeal), kTeal);
    SelectPalette(canvas, palette, FALSE);
    EXPECT_EQ(PaintAndRead(canvas, PALETTERGB(0xF0, 0x10, 0x20)), RGB(0xF0, 0x10, 0x20));
}

TEST(ColourLookup, PaletteIndexPaintsTheEntryOfTheSelectedPaletteOrBlackPastTheEnd)
{
    TestPalette palette({RGB(0x10, 0x20, 0x30), RGB(0xC8, 0x64, 0x0A), RGB(0xFF, 0xFF, 0x00)});
    TestPalette other({kBlue});
    Canvas canvas(8, 8);
    SelectPalette(canvas, palette, FALSE);
    EXPECT_EQ(PaintAndRead(canvas, PALETTEINDEX(0)), RGB(0x10, 0x20, 0x30));
    EXPECT_EQ(PaintAndRead(canvas, PALETTEINDEX(2)), RGB(0xFF, 0xFF, 0x00));
    EXPECT_EQ(PaintAndRead(canvas, PALETTEINDEX(3)), kBlack);
    EXPECT_EQ(PaintAndRead(canvas, PALETTEINDEX(0xFFFF)), kBlack);
    SelectPalette(canvas, other, FALSE);
    EXPECT_EQ(PaintAndRead(canvas, PALETTEINDEX(0)), kBlue);
}

TEST(ColourLookup, NewContextsLookIndicesUpInTheDefaultSystemPalette)
{
    Canvas canvas(8, 8);
    EXPECT_EQ(PaintAndRead(canvas, PALETTEINDEX(1)), RGB(0x80, 0x00, 0x00));
    EXPECT_EQ(PaintAndRead(canvas, PALETTEINDEX(10)), RGB(0xFF, 0xFB, 0xF0));
    EXPECT_EQ(PaintAndRead(canvas, PALETTEINDEX(19)), kWhite);
    EXPECT_EQ(PaintAndRead(canvas, PALETTEINDEX(20)), kBlack);
}

TEST(ColourLookup, TextAndBackgroundColoursMayBePaletteIndices)
{
    TestPalette palette({RGB(0x20, 0x40, 0x60), RGB(0xE0, 0xC0, 0xA0)});
    Canvas canvas(8, 8);
    SelectPalette(canvas, palette, FALSE);
    SetBkColor(canvas, PALETTEINDEX(1));
    SetTextColor(canvas, PALETTEINDEX(0));
    // An opaque pattern blit of a mono bitmap brush: 0 bits take the text
    // colour, 1 bits the background colour.
    const BYTE rows[] = {0x80, 0x00, 0x00, 0x00};
    HBITMAP mono = CreateBitmap(2, 2, 1, 1, rows);
    canvas.UseBrush(CreatePatternBrush(mono));
    DeleteObject(mono);
    PatBlt(canvas, 0, 0, 2, 2, PATCOPY);
    EXPECT_EQ(canvas.At(0, 0), RGB(0xE0, 0xC0, 0xA0));
    EXPECT_EQ(canvas.At(1, 0), RGB(0x20, 0x40, 0x60));
}

TEST(ColourLookupOnMonoBitmaps, ColoursBecomeTheNearerOfBlackAndWhiteByLuminanceAfterThePalette)
{
    Canvas mono(8, 8, 1);
    // Green weighs most, blue least.
    const struct {
        COLORREF colour;
        COLORREF painted;
    } cases[] = {{RGB(0x80, 0x80, 0x80), kWhite},
                 {RGB(0x7F, 0x7F, 0x7F), kBlack},
                 {kGreen, kWhite},
                 {kBlue, kBlack},
                 {RGB(0xFF, 0xFF, 0x00), kWhite},
                 {RGB(0x00, 0xFF, 0xFF), kWhite}};
    for (const auto &c : cases) {
        EXPECT_EQ(PaintAndRead(mono, c.colour), c.painted) << std::hex << c.colour;
        EXPECT_EQ(GetNearestColor(mono, c.colour), c.painted) << std::hex << c.colour;
    }
    // Palette indices are looked up first.
    TestPalette palette({RGB(0xF0, 0xF0, 0xF0), RGB(0x20, 0x20, 0x20)});
    SelectPalette(mono, palette, FALSE);
    EXPECT_EQ(PaintAndRead(mono, PALETTEINDEX(0)), kWhite);
    EXPECT_EQ(PaintAndRead(mono, PALETTEINDEX(5)), kBlack);
}

TEST(NearestColour, TrueColourScreenHasEveryColourAndIndicesGiveTheEntryOrBlack)
{
    TestPalette palette({RGB(0x11, 0x22, 0x33)});
    Canvas canvas(4, 4);
    EXPECT_EQ(GetNearestColor(canvas, kTeal), kTeal);
    EXPECT_EQ(GetNearestColor(canvas, 0x5A000000 | kTeal), kTeal);
    EXPECT_EQ(GetNearestColor(canvas, PALETTERGB(1, 2, 3)), RGB(1, 2, 3));
    SelectPalette(canvas, palette, FALSE);
    EXPECT_EQ(GetNearestColor(canvas, PALETTEINDEX(0)), RGB(0x11, 0x22, 0x33));
    EXPECT_EQ(GetNearestColor(canvas, PALETTEINDEX(1)), kBlack);
    // Window contexts answer like memory contexts.
    HDC screen = GetDC(nullptr);
    ASSERT_NE(screen, nullptr);
    EXPECT_EQ(GetNearestColor(screen, kTeal), kTeal);
    EXPECT_EQ(GetNearestColor(screen, PALETTEINDEX(13)), kRed);
    ReleaseDC(nullptr, screen);
}
