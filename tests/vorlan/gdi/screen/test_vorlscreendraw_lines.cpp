#include <gtest/gtest.h>

#include "support/canvas.h"

using namespace vorlan_test;

namespace {

// Moves the current position to (x, y) and gives the one it left.
std::string PositionLeft(HDC hdc, int x, int y)
{
    POINT from = {};
    MoveToEx(hdc, x, y, &from);
    return "(" + std::to_string(from.x) + "," + std::to_string(from.y) + ")";
}

} // namespace

TEST(ScreenLines, LinesInEveryDirectionLeaveOutTheirLastPixel)
{
    Canvas canvas;
    MoveToEx(canvas, 10, 5, nullptr);
    EXPECT_TRUE(LineTo(canvas, 20, 5));
    EXPECT_EQ(canvas.Row(5, 9, 21, kBlack), ".##########..");
    EXPECT_EQ(canvas.Row(4, 9, 21, kBlack), ".............");
    EXPECT_EQ(PositionLeft(canvas, 3, 2), "(20,5)");
    LineTo(canvas, 3, 8);
    EXPECT_EQ(canvas.Column(3, 1, 9, kBlack), ".######..");
    MoveToEx(canvas, 20, 12, nullptr);
    LineTo(canvas, 14, 12);
    EXPECT_EQ(canvas.Row(12, 14, 20, kBlack), ".######");
    // A diagonal is shortened on both axes.
    MoveToEx(canvas, 25, 25, nullptr);
    LineTo(canvas, 30, 30);
    for (int i = 0; i < 5; ++i)
        EXPECT_EQ(canvas.At(25 + i, 25 + i), kBlack) << i;
    EXPECT_EQ(canvas.At(30, 30), kWhite);
}

TEST(ScreenLines, LineToTheCurrentPositionDrawsNothingAndANullPenFails)
{
    Canvas canvas;
    MoveToEx(canvas, 7, 7, nullptr);
    EXPECT_TRUE(LineTo(canvas, 7, 7));
    canvas.UsePen(CreatePen(PS_NULL, 1, kBlack));
    MoveToEx(canvas, 1, 1, nullptr);
    EXPECT_FALSE(LineTo(canvas, 9, 1));
    EXPECT_EQ(PositionLeft(canvas, 0, 0), "(1,1)") << "the position is kept";
    EXPECT_EQ(canvas.Count(kBlack), 0);
}

TEST(ScreenLines, PolylineKeepsItsEndPointAndTheCurrentPosition)
{
    Canvas canvas;
    canvas.UsePen(CreatePen(PS_SOLID, 1, kRed));
    MoveToEx(canvas, 30, 30, nullptr);
    const POINT points[] = {{2, 2}, {12, 2}, {12, 8}};
    EXPECT_TRUE(Polyline(canvas, points, 3));
    EXPECT_EQ(canvas.Row(2, 1, 13, kRed), ".###########.");
    EXPECT_EQ(canvas.Column(12, 1, 9, kRed), ".#######.");
    EXPECT_EQ(PositionLeft(canvas, 0, 0), "(30,30)");
}

TEST(ScreenLines, LinesFollowTheMapping)
{
    Canvas canvas;
    SetViewportOrgEx(canvas, 10, 10, nullptr);
    MoveToEx(canvas, 0, 0, nullptr);
    LineTo(canvas, 5, 0);
    SetViewportOrgEx(canvas, 0, 0, nullptr);
    EXPECT_EQ(canvas.Row(10, 9, 15, kBlack), ".#####.");
}

TEST(ScreenPenStyles, DashedPenPaintsItsGapsOnAnOpaqueBackground)
{
    Canvas canvas;
    canvas.UsePen(CreatePen(PS_DASH, 1, kBlack));
    SetBkColor(canvas, kRed);
    MoveToEx(canvas, 0, 3, nullptr);
    LineTo(canvas, 30, 3);
    // 17 on, 6 off in the background colour.
    EXPECT_EQ(canvas.Row(3, 0, 29, kBlack), std::string(17, '#') + "......" + std::string(7, '#'));
    EXPECT_EQ(canvas.Row(3, 17, 22, kRed), "######");
}

TEST(ScreenPenStyles, DashedPenLeavesItsGapsOnATransparentBackgroundOrWhenWide)
{
    Canvas canvas;
    canvas.UsePen(CreatePen(PS_DOT, 1, kBlack));
    SetBkColor(canvas, kRed);
    SetBkMode(canvas, TRANSPARENT);
    MoveToEx(canvas, 0, 3, nullptr);
    LineTo(canvas, 13, 3);
    EXPECT_EQ(canvas.Row(3, 0, 12, kBlack), "###...###...#");
    EXPECT_EQ(canvas.Row(3, 0, 12, kWhite), "...###...###.");
    canvas.Clear();
    SetBkMode(canvas, OPAQUE);
    canvas.UsePen(CreatePen(PS_DASH, 2, kBlack));
    MoveToEx(canvas, 0, 10, nullptr);
    LineTo(canvas, 30, 10);
    EXPECT_EQ(canvas.Count(kRed), 0);
    EXPECT_EQ(canvas.At(3, 10), kBlack);
    EXPECT_EQ(canvas.At(20, 10), kWhite);
}

TEST(ScreenPenStyles, DashDotAndAlternatePatterns)
{
    Canvas canvas;
    SetBkMode(canvas, TRANSPARENT);
    canvas.UsePen(CreatePen(PS_DASHDOT, 1, kBlack));
    MoveToEx(canvas, 0, 1, nullptr);
    LineTo(canvas, 24, 1);
    EXPECT_EQ(canvas.Row(1, 0, 22, kBlack), "##########.....###.....");
    LOGPEN alternate = {PS_ALTERNATE, {1, 0}, kBlack};
    canvas.UsePen(CreatePenIndirect(&alternate));
    MoveToEx(canvas, 0, 5, nullptr);
    LineTo(canvas, 9, 5);
    EXPECT_EQ(canvas.Row(5, 0, 7, kBlack), "#.#.#.#.");
}

TEST(ScreenPenStyles, WidePenIsCentredWithButtEndsAndItsWidthFollowsTheMapping)
{
    Canvas canvas;
    canvas.UsePen(CreatePen(PS_SOLID, 5, kBlue));
    MoveToEx(canvas, 10, 20, nullptr);
    LineTo(canvas, 30, 20);
    EXPECT_EQ(canvas.Column(15, 16, 24, kBlue), "..#####..");
    // Butt ends: nothing before the start point.
    EXPECT_EQ(canvas.At(9, 20), kWhite);
    EXPECT_EQ(canvas.At(10, 20), kBlue);
    canvas.Clear();
    SetMapMode(canvas, MM_ANISOTROPIC);
    SetWindowExtEx(canvas, 1, 1, nullptr);
    SetViewportExtEx(canvas, 3, 3, nullptr);
    canvas.UsePen(CreatePen(PS_SOLID, 1, kBlack));
    MoveToEx(canvas, 2, 3, nullptr);
    LineTo(canvas, 10, 3);
    SetMapMode(canvas, MM_TEXT);
    EXPECT_EQ(canvas.Column(12, 6, 12, kBlack), "..###..");
}
