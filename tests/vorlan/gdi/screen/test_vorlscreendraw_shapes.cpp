#include <gtest/gtest.h>

#include "support/canvas.h"

using namespace vorlan_test;

namespace {

// Red outline, blue fill.
void UseRedPenBlueBrush(Canvas &canvas)
{
    canvas.UsePen(CreatePen(PS_SOLID, 1, kRed));
    canvas.UseBrush(CreateSolidBrush(kBlue));
}

} // namespace

TEST(ScreenRectangles, FilledRectangleCoversTenByTenWithThePenOnTheEdgeWhicheverCornerComesFirst)
{
    Canvas canvas;
    UseRedPenBlueBrush(canvas);
    EXPECT_TRUE(Rectangle(canvas, 0, 0, 10, 10));
    EXPECT_EQ(canvas.Row(0, 0, 10, kRed), "##########.");
    EXPECT_EQ(canvas.Row(9, 0, 10, kRed), "##########.");
    EXPECT_EQ(canvas.Column(9, 0, 10, kRed), "##########.");
    EXPECT_EQ(canvas.Row(5, 0, 10, kBlue), ".########..");
    EXPECT_EQ(canvas.Count(kRed), 36);
    EXPECT_EQ(canvas.Count(kBlue), 64);
    // Reversed corners and a round rectangle without corners: the same.
    for (int shape = 0; shape < 2; ++shape) {
        canvas.Clear();
        EXPECT_TRUE(shape == 0 ? Rectangle(canvas, 10, 10, 0, 0) : RoundRect(canvas, 0, 0, 10, 10, 0, 4));
        EXPECT_EQ(canvas.Count(kRed), 36) << shape;
        EXPECT_EQ(canvas.Count(kBlue), 64) << shape;
    }
}

TEST(ScreenRectangles, NullPenFillsUpToTheSecondLastPixelAndNullBrushLeavesTheInside)
{
    Canvas canvas;
    canvas.UsePen(CreatePen(PS_NULL, 1, kBlack));
    canvas.UseBrush(CreateSolidBrush(kBlue));
    Rectangle(canvas, 0, 0, 10, 10);
    EXPECT_EQ(canvas.Row(0, 0, 10, kBlue), "#########..");
    EXPECT_EQ(canvas.Column(0, 0, 10, kBlue), "#########..");
    EXPECT_EQ(canvas.Count(kBlue), 81);
    canvas.Clear();
    canvas.UsePen(CreatePen(PS_SOLID, 1, kBlack));
    canvas.UseBrush(static_cast<HBRUSH>(GetStockObject(NULL_BRUSH)));
    Rectangle(canvas, 2, 2, 8, 8);
    EXPECT_EQ(canvas.Row(4, 1, 8, kBlack), ".#....#.");
}

TEST(ScreenRectangles, WindowOriginMovesTheShape)
{
    Canvas canvas;
    UseRedPenBlueBrush(canvas);
    SetWindowOrgEx(canvas, -5, -5, nullptr);
    Rectangle(canvas, 0, 0, 4, 4);
    SetWindowOrgEx(canvas, 0, 0, nullptr);
    EXPECT_EQ(canvas.Row(5, 4, 9, kRed), ".####.");
    EXPECT_EQ(canvas.At(6, 6), kBlue);
}

TEST(ScreenRectangles, RoundRectRoundsItsCornersOnly)
{
    Canvas canvas;
    UseRedPenBlueBrush(canvas);
    EXPECT_TRUE(RoundRect(canvas, 0, 0, 30, 20, 4, 4));
    // Straight sides between the corners, a free corner pixel.
    EXPECT_EQ(canvas.NotAll(kRed, {{15, 0}, {15, 20}, {0, 10}, {30, 10}}), "");
    EXPECT_EQ(canvas.At(0, 0), kWhite);
    EXPECT_EQ(canvas.At(15, 10), kBlue);
}

TEST(ScreenEllipses, EllipseTouchesItsBoxAtTheExtremePoints)
{
    Canvas canvas;
    UseRedPenBlueBrush(canvas);
    EXPECT_TRUE(Ellipse(canvas, 0, 0, 20, 10));
    // GDK's box is (l, t, r - l, b - t): the outline reaches r and b.
    EXPECT_EQ(canvas.NotAll(kRed, {{0, 5}, {20, 5}, {10, 0}, {10, 10}}), "");
    EXPECT_EQ(canvas.At(10, 5), kBlue);
    EXPECT_EQ(canvas.NotAll(kWhite, {{0, 0}, {20, 10}, {21, 5}}), "");
}

// From the right (0 degrees) to the top (90): the upper right quarter.
TEST(ScreenEllipses, ArcAndPieTakeOnlyTheCounterClockwiseSpan)
{
    Canvas arc;
    arc.UsePen(CreatePen(PS_SOLID, 1, kRed));
    EXPECT_TRUE(Arc(arc, 0, 0, 20, 20, 20, 10, 10, 0));
    EXPECT_EQ(arc.NotAll(kRed, {{20, 9}, {11, 0}}), "");
    EXPECT_EQ(arc.NotAll(kWhite, {{0, 10}, {10, 20}}), "");
    EXPECT_EQ(arc.Count(kBlue), 0);

    // The pie fills its slice and draws both radii.
    Canvas canvas;
    UseRedPenBlueBrush(canvas);
    EXPECT_TRUE(Pie(canvas, 0, 0, 20, 20, 20, 10, 10, 0));
    EXPECT_EQ(canvas.Row(10, 10, 19, kRed), "##########");
    EXPECT_EQ(canvas.Column(10, 1, 10, kRed), "##########");
    EXPECT_EQ(canvas.At(14, 6), kBlue);
    EXPECT_EQ(canvas.NotAll(kWhite, {{5, 14}, {5, 6}, {14, 14}}), "");
}

TEST(ScreenEllipses, PieAndChordWithEqualRadialPointsDrawTheWholeEllipse)
{
    Canvas pie;
    UseRedPenBlueBrush(pie);
    Pie(pie, 0, 0, 20, 20, 20, 10, 20, 10);
    Canvas ellipse;
    UseRedPenBlueBrush(ellipse);
    Ellipse(ellipse, 0, 0, 20, 20);
    Canvas chord;
    UseRedPenBlueBrush(chord);
    Chord(chord, 0, 0, 20, 20, 3, 3, 3, 3);
    for (int y = 0; y <= 20; ++y) {
        EXPECT_EQ(pie.Row(y, 0, 20, kRed), ellipse.Row(y, 0, 20, kRed)) << y;
        EXPECT_EQ(chord.Row(y, 0, 20, kBlue), ellipse.Row(y, 0, 20, kBlue)) << y;
    }
}

TEST(ScreenEllipses, ChordFillsBetweenItsStringAndTheArc)
{
    Canvas canvas;
    UseRedPenBlueBrush(canvas);
    // The half above the horizontal diameter: from 0 to 180 degrees.
    EXPECT_TRUE(Chord(canvas, 0, 0, 20, 20, 20, 10, 0, 10));
    EXPECT_EQ(canvas.Row(10, 1, 19, kRed), std::string(19, '#'));
    EXPECT_EQ(canvas.At(10, 4), kBlue);
    EXPECT_EQ(canvas.At(10, 15), kWhite);
    EXPECT_EQ(canvas.At(10, 0), kRed);
}

TEST(ScreenPolygons, PolygonFillsAndOutlinesButRefusesFewerThanTwoPoints)
{
    Canvas canvas;
    UseRedPenBlueBrush(canvas);
    const POINT one[] = {{2, 2}};
    EXPECT_FALSE(Polygon(canvas, one, 1));
    EXPECT_FALSE(Polygon(canvas, nullptr, 4));
    EXPECT_EQ(canvas.Count(kWhite), canvas.width() * canvas.height());
    const POINT square[] = {{2, 2}, {12, 2}, {12, 12}, {2, 12}};
    EXPECT_TRUE(Polygon(canvas, square, 4));
    EXPECT_EQ(canvas.Row(2, 1, 13, kRed), ".###########.");
    EXPECT_EQ(canvas.Row(7, 1, 13, kBlue), "..#########..");
}

TEST(ScreenPolygons, FillModeDecidesTheInsideOfCrossingShapes)
{
    // Two nested squares drawn the same way round: alternate leaves the
    // inner one empty, winding fills it.
    const POINT points[] = {{0, 0}, {20, 0}, {20, 20}, {0, 20}, {5, 5}, {15, 5}, {15, 15}, {5, 15}};
    const INT counts[] = {4, 4};
    Canvas canvas;
    canvas.UsePen(CreatePen(PS_NULL, 1, kBlack));
    canvas.UseBrush(CreateSolidBrush(kBlue));
    EXPECT_EQ(SetPolyFillMode(canvas, ALTERNATE), ALTERNATE);
    EXPECT_TRUE(PolyPolygon(canvas, points, counts, 2));
    EXPECT_EQ(canvas.At(2, 10), kBlue);
    EXPECT_EQ(canvas.At(10, 10), kWhite);
    canvas.Clear();
    EXPECT_EQ(SetPolyFillMode(canvas, WINDING), ALTERNATE);
    EXPECT_EQ(GetPolyFillMode(canvas), WINDING);
    EXPECT_TRUE(PolyPolygon(canvas, points, counts, 2));
    EXPECT_EQ(canvas.NotAll(kBlue, {{2, 10}, {10, 10}}), "");
}

TEST(ScreenPolygons, PolyPolygonRefusesBadArgumentsAndLeavesTheClipAsItWas)
{
    Canvas canvas;
    canvas.UseBrush(CreateSolidBrush(kBlue));
    const POINT points[] = {{0, 0}, {10, 0}, {10, 10}, {0, 10}};
    const INT counts[] = {4};
    const INT zero[] = {0};
    EXPECT_FALSE(PolyPolygon(canvas, nullptr, counts, 1));
    EXPECT_FALSE(PolyPolygon(canvas, points, nullptr, 1));
    EXPECT_FALSE(PolyPolygon(canvas, points, counts, 0));
    EXPECT_FALSE(PolyPolygon(canvas, points, zero, 1));
    EXPECT_EQ(canvas.Count(kWhite), canvas.width() * canvas.height());
    EXPECT_TRUE(PolyPolygon(canvas, points, counts, 1));
    EXPECT_EQ(canvas.At(3, 3), kBlue);
    HRGN clip = CreateRectRgn(0, 0, 0, 0);
    EXPECT_EQ(GetClipRgn(canvas, clip), 0);
    DeleteObject(clip);
    // Drawing afterwards reaches outside the polygon again.
    Rectangle(canvas, 20, 20, 30, 30);
    EXPECT_EQ(canvas.At(25, 25), kBlue);
}

TEST(ScreenFloodFill, FloodFillsAreNotProvided)
{
    Canvas canvas;
    EXPECT_FALSE(FloodFill(canvas, 5, 5, kBlack));
    EXPECT_FALSE(ExtFloodFill(canvas, 5, 5, kWhite, FLOODFILLSURFACE));
    EXPECT_EQ(canvas.Count(kWhite), canvas.width() * canvas.height());
}
