// Filled, framed, inverted and focus rectangles, read back from a memory
// context pixel by pixel.
#include <gtest/gtest.h>

#include "support/canvas.h"

using namespace vorlan_test;

namespace {

using BrushPainter = int(WINAPI *)(HDC, const RECT *, HBRUSH);

// A white canvas with one rectangle painted by FillRect or FrameRect in a
// solid brush, which lives as long as the canvas.
struct BrushedRectangle {
    BrushedRectangle(BrushPainter paint, COLORREF colour, const RECT &where)
        : brush(CreateSolidBrush(colour)), painted(paint(canvas, &where, brush) != 0)
    {
    }
    ~BrushedRectangle() { DeleteObject(brush); }
    Canvas canvas;
    HBRUSH brush;
    bool painted;
};

} // namespace

TEST(RectangleDrawing, FillTakesBrushesAndSystemColourValues)
{
    const RECT rect = {2, 3, 6, 5};
    BrushedRectangle blue(FillRect, kBlue, rect);
    Canvas &canvas = blue.canvas;
    EXPECT_TRUE(blue.painted);
    EXPECT_EQ(canvas.Row(3, 1, 6, kBlue), ".####.");
    EXPECT_EQ(canvas.Column(2, 2, 5, kBlue), ".##.");
    EXPECT_EQ(canvas.Count(kBlue), 8);
    // The caller's brush lives on; the DC's own selection is back.
    EXPECT_EQ(GetObjectType(blue.brush), DWORD(OBJ_BRUSH));
    EXPECT_NE(GetCurrentObject(canvas, OBJ_BRUSH), static_cast<HGDIOBJ>(blue.brush));

    const COLORREF window = GetSysColor(COLOR_WINDOW);
    canvas.Clear(kBlack);
    const RECT all = {0, 0, 40, 40};
    EXPECT_TRUE(FillRect(canvas, &all, reinterpret_cast<HBRUSH>(COLOR_WINDOW + 1)));
    EXPECT_EQ(canvas.Count(window), 40 * 40);

    SetLastError(0);
    EXPECT_EQ(FillRect(canvas, nullptr, blue.brush), 0);
    EXPECT_EQ(GetLastError(), DWORD(ERROR_INVALID_PARAMETER));
    EXPECT_EQ(FillRect(canvas, &rect, nullptr), 0);
    EXPECT_EQ(GetLastError(), DWORD(ERROR_INVALID_PARAMETER));
}

TEST(RectangleDrawing, FrameIsOnePixelInsideTheRectangle)
{
    BrushedRectangle red(FrameRect, kRed, {2, 2, 8, 6});
    EXPECT_TRUE(red.painted);
    EXPECT_EQ(red.canvas.Row(2, 1, 8, kRed), ".######.");
    EXPECT_EQ(red.canvas.Row(3, 1, 8, kRed), ".#....#.");
    EXPECT_EQ(red.canvas.Row(5, 1, 8, kRed), ".######.");
    EXPECT_EQ(red.canvas.Count(kRed), 2 * 6 + 2 * 2);
    const RECT flat = {2, 2, 8, 2};
    EXPECT_EQ(FrameRect(red.canvas, &flat, red.brush), 0);
}

TEST(RectangleDrawing, InvertAndFocusRectanglesUndoThemselves)
{
    Canvas canvas;
    const RECT rect = {4, 4, 12, 10};
    EXPECT_TRUE(InvertRect(canvas, &rect));
    EXPECT_EQ(canvas.Count(kBlack), 8 * 6);
    EXPECT_TRUE(InvertRect(canvas, &rect));
    EXPECT_EQ(canvas.Count(kWhite), 40 * 40);

    EXPECT_TRUE(DrawFocusRect(canvas, &rect));
    const int dotted = canvas.Count(kBlack);
    EXPECT_GT(dotted, 0);
    EXPECT_LT(dotted, 2 * 8 + 2 * 6);
    EXPECT_EQ(canvas.At(5, 6), kWhite);
    EXPECT_TRUE(DrawFocusRect(canvas, &rect));
    EXPECT_EQ(canvas.Count(kWhite), 40 * 40);

    // Only in MM_TEXT and for a rectangle with an inside.
    SetMapMode(canvas, MM_LOMETRIC);
    EXPECT_FALSE(DrawFocusRect(canvas, &rect));
    SetMapMode(canvas, MM_TEXT);
    const RECT empty = {4, 4, 4, 10};
    EXPECT_FALSE(DrawFocusRect(canvas, &empty));
    EXPECT_EQ(canvas.Count(kWhite), 40 * 40);
    EXPECT_EQ(GetROP2(canvas), R2_COPYPEN);
}
