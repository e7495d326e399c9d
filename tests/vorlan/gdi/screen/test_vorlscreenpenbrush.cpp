#include <gtest/gtest.h>

#include "support/canvas.h"

#include <cstring>
#include <vector>

using namespace vorlan_test;

namespace {

// A 2 x 2 checkerboard bitmap of the screen's depth: red at (0, 0) and
// (1, 1), blue elsewhere.  Rows of blue, green, red, padded to 16 bits.
HBITMAP ColourChecker(HDC like)
{
    const BYTE rows[] = {0, 0, 255, 255, 0, 0, 255, 0, 0, 0, 0, 255};
    EXPECT_EQ(GetDeviceCaps(like, BITSPIXEL), 24);
    return CreateBitmap(2, 2, 1, 24, rows);
}

// A 2 x 1 mono bitmap: 0 (black) on the left, 1 (white) on the right.
HBITMAP MonoPair()
{
    const BYTE row[] = {0x40, 0x00};
    return CreateBitmap(2, 1, 1, 1, row);
}

// A packed 2 x 2 DIB of 24 bits, bottom-up: bottom row green, white; top
// row red, blue.
HGLOBAL PackedDib()
{
    const size_t rowBytes = 8; // 2 x 3 rounded up to 4
    HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, sizeof(BITMAPINFOHEADER) + 2 * rowBytes);
    auto *header = static_cast<BITMAPINFOHEADER *>(GlobalLock(memory));
    std::memset(header, 0, sizeof(BITMAPINFOHEADER) + 2 * rowBytes);
    header->biSize = sizeof(BITMAPINFOHEADER);
    header->biWidth = 2;
    header->biHeight = 2;
    header->biPlanes = 1;
    header->biBitCount = 24;
    header->biCompression = BI_RGB;
    BYTE *bits = reinterpret_cast<BYTE *>(header + 1);
    const BYTE bottom[] = {0, 255, 0, 255, 255, 255};
    const BYTE top[] = {0, 0, 255, 255, 0, 0};
    std::memcpy(bits, bottom, sizeof(bottom));
    std::memcpy(bits + rowBytes, top, sizeof(top));
    GlobalUnlock(memory);
    return memory;
}

} // namespace

TEST(ScreenBrushes, SolidBrushFillsInItsColourAndAHatchedOneSolidWhite)
{
    Canvas canvas;
    canvas.UseBrush(CreateSolidBrush(RGB(10, 200, 30)));
    Rectangle(canvas, 0, 0, 10, 10);
    EXPECT_EQ(canvas.At(4, 4), RGB(10, 200, 30));
    canvas.Clear(kBlack);
    canvas.UseBrush(CreateHatchBrush(HS_CROSS, kRed));
    canvas.UsePen(CreatePen(PS_NULL, 1, kBlack));
    Rectangle(canvas, 0, 0, 10, 10);
    EXPECT_EQ(canvas.Row(4, 0, 9, kWhite), "#########.");
    EXPECT_EQ(canvas.Count(kRed), 0);
}

TEST(ScreenBrushes, ColourPatternTilesFromTheBrushOrigin)
{
    Canvas canvas;
    HBITMAP checker = ColourChecker(canvas);
    canvas.UseBrush(CreatePatternBrush(checker));
    DeleteObject(checker); // the brush keeps its own copy
    PatBlt(canvas, 0, 0, 6, 6, PATCOPY);
    EXPECT_EQ(canvas.Row(0, 0, 5, kRed), "#.#.#.");
    EXPECT_EQ(canvas.Row(1, 0, 5, kRed), ".#.#.#");
    EXPECT_EQ(canvas.Row(1, 0, 5, kBlue), "#.#.#.");

    SetBrushOrgEx(canvas, 1, 0, nullptr);
    PatBlt(canvas, 0, 0, 6, 6, PATCOPY);
    EXPECT_EQ(canvas.Row(0, 0, 5, kRed), ".#.#.#");
}

TEST(ScreenBrushes, MonoPatternTakesTextAndBackgroundColours)
{
    Canvas canvas;
    HBITMAP pair = MonoPair();
    canvas.UseBrush(CreatePatternBrush(pair));
    DeleteObject(pair);
    SetTextColor(canvas, kRed);
    SetBkColor(canvas, kBlue);
    PatBlt(canvas, 0, 0, 4, 1, PATCOPY);
    EXPECT_EQ(canvas.Row(0, 0, 3, kRed), "#.#.");
    EXPECT_EQ(canvas.Row(0, 0, 3, kBlue), ".#.#");

    // New colours reach the next primitive that applies the brush.
    SetTextColor(canvas, kGreen);
    PatBlt(canvas, 0, 1, 4, 1, PATCOPY);
    EXPECT_EQ(canvas.Row(1, 0, 3, kGreen), "#.#.");
}

TEST(ScreenBrushes, DibPatternBrushPaintsItsPictureTopRowFirst)
{
    Canvas canvas;
    HGLOBAL dib = PackedDib();
    canvas.UseBrush(CreateDIBPatternBrush(dib, DIB_RGB_COLORS));
    PatBlt(canvas, 0, 0, 4, 4, PATCOPY);
    EXPECT_EQ(canvas.At(0, 0), kRed);
    EXPECT_EQ(canvas.At(1, 0), kBlue);
    EXPECT_EQ(canvas.At(0, 1), kGreen);
    EXPECT_EQ(canvas.At(1, 1), kWhite);
    EXPECT_EQ(canvas.At(2, 2), kRed);
    canvas.UseBrush(static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
    EXPECT_EQ(GlobalFree(dib), nullptr);
}

TEST(ScreenBrushes, PatternSurvivesAPenDrawnAfterIt)
{
    Canvas canvas;
    HBITMAP checker = ColourChecker(canvas);
    canvas.UseBrush(CreatePatternBrush(checker));
    DeleteObject(checker);
    canvas.UsePen(CreatePen(PS_SOLID, 1, kGreen));
    Rectangle(canvas, 0, 0, 8, 8);
    EXPECT_EQ(canvas.Row(0, 0, 8, kGreen), "########.");
    EXPECT_EQ(canvas.Row(2, 1, 4, kRed), ".#.#");
    // Solid again after the pattern.
    PatBlt(canvas, 20, 20, 4, 4, BLACKNESS);
    EXPECT_EQ(canvas.Row(21, 20, 23, kBlack), "####");
}

TEST(ScreenBrushes, ColourPatternsOnAMonoBitmapFillNothingWhileMonoPatternsKeepTheirBits)
{
    Canvas mono(8, 8, 1);
    HBITMAP checker = ColourChecker(mono);
    mono.UseBrush(CreatePatternBrush(checker));
    DeleteObject(checker);
    EXPECT_TRUE(PatBlt(mono, 0, 0, 8, 8, PATCOPY));
    EXPECT_EQ(mono.Count(kWhite), 64);
    HGLOBAL dib = PackedDib();
    mono.UseBrush(CreateDIBPatternBrush(dib, DIB_RGB_COLORS));
    EXPECT_TRUE(PatBlt(mono, 0, 0, 8, 8, PATCOPY));
    EXPECT_EQ(mono.Count(kWhite), 64);
    mono.UseBrush(static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
    GlobalFree(dib);
    // A mono pattern keeps its bits.
    HBITMAP pair = MonoPair();
    mono.UseBrush(CreatePatternBrush(pair));
    DeleteObject(pair);
    PatBlt(mono, 0, 0, 4, 1, PATCOPY);
    EXPECT_EQ(mono.Row(0, 0, 3, kBlack), "#.#.");
}
