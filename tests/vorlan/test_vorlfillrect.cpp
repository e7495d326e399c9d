// Filled, framed, inverted and focus rectangles, read back from a memory
// context pixel by pixel.
#include <gtest/gtest.h>

#include "gdi/screen/canvas.h"

using namespace vorlan_test;

TEST(RectangleDrawing, FillTakesBrushesAndSystemColourValues)
{
    Canvas canvas;
    HBRUSH blue = CreateSolidBrush(kBlue);
    const RECT rect = {2, 3, 6, 5};
    EXPECT_TRUE(FillRect(canvas, &rect, blue));
    EXPECT_EQ(canvas.Row(3, 1, 6, kBlue), ".####.");
    EXPECT_EQ(canvas.Column(2, 2, 5, kBlue), ".##.");
    EXPECT_EQ(canvas.Count(kBlue), 8);
    // The caller's brush lives on; the DC's own selection is back.
    EXPECT_EQ(GetObjectType(blue), DWORD(OBJ_BRUSH));
    EXPECT_NE(GetCurrentObject(canvas, OBJ_BRUSH), static_cast<HGDIOBJ>(blue));

    const COLORREF window = GetSysColor(COLOR_WINDOW);
    canvas.Clear(kBlack);
    const RECT all = {0, 0, 40, 40};
    EXPECT_TRUE(FillRect(canvas, &all, reinterpret_cast<HBRUSH>(COLOR_WINDOW + 1)));
    EXPECT_EQ(canvas.Count(window), 40 * 40);

    SetLastError(0);
    EXPECT_EQ(FillRect(canvas, nullptr, blue), 0);
    EXPECT_EQ(GetLastError(), DWORD(ERROR_INVALID_PARAMETER));
    EXPECT_EQ(FillRect(canvas, &rect, nullptr), 0);
    EXPECT_EQ(GetLastError(), DWORD(ERROR_INVALID_PARAMETER));
    DeleteObject(blue);
}

TEST(RectangleDrawing, FrameIsOnePixelInsideTheRectangle)
{
    Canvas canvas;
    HBRUSH red = CreateSolidBrush(kRed);
    const RECT rect = {2, 2, 8, 6};
    EXPECT_TRUE(FrameRect(canvas, &rect, red));
    EXPECT_EQ(canvas.Row(2, 1, 8, kRed), ".######.");
    EXPECT_EQ(canvas.Row(3, 1, 8, kRed), ".#....#.");
    EXPECT_EQ(canvas.Row(5, 1, 8, kRed), ".######.");
    EXPECT_EQ(canvas.Count(kRed), 2 * 6 + 2 * 2);
    const RECT flat = {2, 2, 8, 2};
    EXPECT_EQ(FrameRect(canvas, &flat, red), 0);
    DeleteObject(red);
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
