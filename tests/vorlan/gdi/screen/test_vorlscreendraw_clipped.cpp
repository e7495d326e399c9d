#include <gtest/gtest.h>

#include "support/canvas.h"

using namespace vorlan_test;

TEST(ScreenClippedDrawing, RectangleClipCutsFillsAndPensAtItsEdges)
{
    Canvas canvas;
    canvas.UseBrush(CreateSolidBrush(kBlue));
    canvas.UsePen(CreatePen(PS_SOLID, 1, kBlue));
    HRGN clip = CreateRectRgn(5, 6, 15, 12);
    EXPECT_EQ(SelectClipRgn(canvas, clip), SIMPLEREGION);
    DeleteObject(clip);
    Rectangle(canvas, 0, 0, 40, 40);
    EXPECT_EQ(canvas.Row(8, 3, 16, kBlue), "..##########..");
    EXPECT_EQ(canvas.Column(10, 4, 13, kBlue), "..######..");
    EXPECT_EQ(canvas.Count(kBlue), 10 * 6);

    // Lines too, and the clip answers for visibility.
    canvas.Clear();
    MoveToEx(canvas, 0, 8, nullptr);
    LineTo(canvas, 40, 8);
    EXPECT_EQ(canvas.Row(8, 3, 16, kBlue), "..##########..");
    EXPECT_EQ(SetPixel(canvas, 20, 20, kRed), COLORREF(-1));
    EXPECT_EQ(canvas.At(20, 20), COLORREF(-1));
    const RECT outside = {20, 20, 30, 30};
    EXPECT_FALSE(RectVisible(canvas, &outside));
    SelectClipRgn(canvas, nullptr);
    EXPECT_EQ(canvas.At(20, 20), kWhite);
}

TEST(ScreenClippedDrawing, ExcludedAndIntersectedRectanglesFollowTheMapping)
{
    Canvas canvas;
    canvas.UseBrush(CreateSolidBrush(kGreen));
    canvas.UsePen(static_cast<HPEN>(GetStockObject(NULL_PEN)));
    SetViewportOrgEx(canvas, 10, 10, nullptr);
    EXPECT_EQ(IntersectClipRect(canvas, 0, 0, 20, 20), SIMPLEREGION);
    EXPECT_EQ(ExcludeClipRect(canvas, 5, 5, 10, 10), COMPLEXREGION);
    PatBlt(canvas, -10, -10, 40, 40, PATCOPY);
    // Read back in device pixels.
    SetViewportOrgEx(canvas, 0, 0, nullptr);
    SelectClipRgn(canvas, nullptr);
    EXPECT_EQ(canvas.Row(17, 8, 31, kGreen), "..#####.....##########..");
    EXPECT_EQ(canvas.Row(12, 8, 31, kGreen), "..####################..");
    EXPECT_EQ(canvas.Count(kGreen), 20 * 20 - 5 * 5);
}

TEST(ScreenClippedDrawing, SavedClipComesBackForDrawing)
{
    Canvas canvas;
    canvas.UseBrush(CreateSolidBrush(kRed));
    const int saved = SaveDC(canvas);
    IntersectClipRect(canvas, 0, 0, 4, 4);
    PatBlt(canvas, 0, 0, 40, 40, PATCOPY);
    EXPECT_EQ(canvas.Count(kRed), 16);
    RestoreDC(canvas, saved);
    PatBlt(canvas, 0, 0, 40, 40, PATCOPY);
    EXPECT_EQ(canvas.Count(kRed), 40 * 40);
}

TEST(ScreenClippedDrawing, FillRgnPaintsExactlyTheRegion)
{
    Canvas canvas;
    HBRUSH brush = CreateSolidBrush(kBlue);
    HRGN region = CreateRectRgn(2, 3, 8, 6);
    HRGN second = CreateRectRgn(20, 20, 23, 22);
    CombineRgn(region, region, second, RGN_OR);
    EXPECT_TRUE(FillRgn(canvas, region, brush));
    EXPECT_EQ(canvas.Row(4, 1, 8, kBlue), ".######.");
    EXPECT_EQ(canvas.Column(5, 2, 6, kBlue), ".###.");
    EXPECT_EQ(canvas.Count(kBlue), 6 * 3 + 3 * 2);

    // An elliptic region: its widest row and nothing at the box corners.
    canvas.Clear();
    HRGN ellipse = CreateEllipticRgn(0, 0, 20, 10);
    EXPECT_TRUE(FillRgn(canvas, ellipse, brush));
    EXPECT_EQ(canvas.At(0, 5), kBlue);
    EXPECT_EQ(canvas.At(19, 5), kBlue);
    EXPECT_EQ(canvas.At(0, 0), kWhite);
    EXPECT_EQ(canvas.At(20, 5), kWhite);
    for (HGDIOBJ object : {static_cast<HGDIOBJ>(brush), static_cast<HGDIOBJ>(region),
                           static_cast<HGDIOBJ>(second), static_cast<HGDIOBJ>(ellipse)})
        DeleteObject(object);
}
