#include <gtest/gtest.h>

#include "support/canvas.h"

using namespace vorlan_test;

TEST(RegionPainting, FillKeepsTheClipAndTheSelection)
{
    Canvas canvas;
    HBRUSH brush = CreateSolidBrush(kBlue);
    ASSERT_EQ(IntersectClipRect(canvas, 0, 0, 20, 40), SIMPLEREGION);
    const HGDIOBJ penBefore = GetCurrentObject(canvas, OBJ_PEN);
    const HGDIOBJ brushBefore = GetCurrentObject(canvas, OBJ_BRUSH);
    HRGN region = CreateRectRgn(10, 10, 30, 12);
    EXPECT_TRUE(FillRgn(canvas, region, brush));
    EXPECT_EQ(canvas.Row(10, 9, 20, kBlue), ".##########.");
    EXPECT_EQ(canvas.Count(kBlue), 20);
    EXPECT_EQ(GetCurrentObject(canvas, OBJ_PEN), penBefore);
    EXPECT_EQ(GetCurrentObject(canvas, OBJ_BRUSH), brushBefore);
    RECT clipBox;
    ASSERT_NE(GetClipBox(canvas, &clipBox), ERROR);
    EXPECT_EQ(clipBox.right, 20);
    EXPECT_EQ(clipBox.bottom, 40);
    // A region beside the clip paints nothing and fails.
    HRGN beside = CreateRectRgn(30, 0, 40, 10);
    EXPECT_FALSE(FillRgn(canvas, beside, brush));
    EXPECT_EQ(canvas.Count(kBlue), 20);
    for (HGDIOBJ object : {HGDIOBJ(brush), HGDIOBJ(region), HGDIOBJ(beside)})
        DeleteObject(object);
}

// The region is in logical units: it moves with the viewport origin.
TEST(RegionPainting, FillFollowsTheViewportOrigin)
{
    Canvas canvas;
    HBRUSH brush = CreateSolidBrush(kBlue);
    HRGN region = CreateRectRgn(10, 10, 12, 12);
    SetViewportOrgEx(canvas, 5, 7, nullptr);
    EXPECT_TRUE(FillRgn(canvas, region, brush));
    SetViewportOrgEx(canvas, 0, 0, nullptr);
    EXPECT_EQ(canvas.Count(kBlue), 4);
    EXPECT_EQ(canvas.Row(17, 14, 17, kBlue), ".##.");
    EXPECT_EQ(canvas.Row(18, 14, 17, kBlue), ".##.");
    DeleteObject(region);
    DeleteObject(brush);
}

TEST(RegionPainting, EmptyOrBadRegionsAndBrushesPaintNothing)
{
    Canvas canvas;
    const int all = canvas.width() * canvas.height();
    HBRUSH brush = CreateSolidBrush(0);
    HRGN empty = CreateRectRgn(5, 5, 5, 5);
    HRGN dead = CreateRectRgn(0, 0, 10, 10);
    DeleteObject(dead);
    EXPECT_FALSE(FillRgn(canvas, empty, brush));
    EXPECT_FALSE(FillRgn(canvas, dead, brush));
    EXPECT_FALSE(FillRgn(canvas, nullptr, brush));
    EXPECT_FALSE(FrameRgn(canvas, empty, brush, 1, 1));
    EXPECT_FALSE(FrameRgn(canvas, dead, brush, 1, 1));
    EXPECT_FALSE(FrameRgn(canvas, nullptr, brush, 1, 1));
    // Without a brush, or with a handle that is no brush, nothing is drawn
    // and the call succeeds.
    HRGN region = CreateRectRgn(0, 0, 10, 10);
    EXPECT_TRUE(FillRgn(canvas, region, nullptr));
    EXPECT_TRUE(FillRgn(canvas, region, reinterpret_cast<HBRUSH>(region)));
    // Paint and invert are not provided.
    EXPECT_FALSE(PaintRgn(canvas, region));
    EXPECT_FALSE(InvertRgn(canvas, region));
    EXPECT_EQ(canvas.Count(kWhite), all);
    for (HGDIOBJ object : {HGDIOBJ(brush), HGDIOBJ(empty), HGDIOBJ(region)})
        DeleteObject(object);
}

// Negative border sizes count as their absolute values.
TEST(RegionPainting, FrameFillsTheBorderTakenOffByShrinking)
{
    Canvas canvas(60, 50);
    HBRUSH brush = CreateSolidBrush(kBlue);
    HRGN region = CreateRectRgn(10, 10, 50, 40);
    EXPECT_TRUE(FrameRgn(canvas, region, brush, -3, 2));
    EXPECT_EQ(canvas.Row(20, 9, 14, kBlue), ".###..");
    EXPECT_EQ(canvas.Row(20, 45, 50, kBlue), "..###.");
    EXPECT_EQ(canvas.Column(20, 9, 13, kBlue), ".##..");
    EXPECT_EQ(canvas.Column(20, 36, 40, kBlue), "..##.");
    RECT box;
    GetRgnBox(region, &box);
    EXPECT_EQ(box.right, 50) << "the caller's region is unchanged";
    DeleteObject(brush);
    DeleteObject(region);
}
