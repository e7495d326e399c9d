// What regions answer: their box and type, whether they hold a point or
// touch a rectangle, and whether two of them are equal.
#include <gtest/gtest.h>

#include "region_test_helpers.h"

#include <windows.h>

using region_test::Str;

namespace {

// A 10 by 10 square with a 4 by 4 hole in the middle.
HRGN SquareWithHole()
{
    HRGN square = CreateRectRgn(0, 0, 10, 10);
    HRGN hole = CreateRectRgn(3, 3, 7, 7);
    EXPECT_EQ(CombineRgn(square, square, hole, RGN_DIFF), COMPLEXREGION);
    DeleteObject(hole);
    return square;
}

} // namespace

TEST(RegionBox, GivesTheBoundingBoxAndTheType)
{
    HRGN region = SquareWithHole();
    RECT box = {};
    EXPECT_EQ(GetRgnBox(region, &box), COMPLEXREGION);
    EXPECT_EQ(Str(box), "(0,0,10,10)");
    HRGN other = CreateRectRgn(-20, 30, -10, 40);
    CombineRgn(region, region, other, RGN_OR);
    EXPECT_EQ(GetRgnBox(region, &box), COMPLEXREGION);
    EXPECT_EQ(Str(box), "(-20,0,10,40)");
    EXPECT_EQ(GetRgnBox(other, &box), SIMPLEREGION);
    EXPECT_EQ(Str(box), "(-20,30,-10,40)");
    DeleteObject(region);
    DeleteObject(other);
}

TEST(RegionBox, BoxMayBeOmitted)
{
    HRGN region = SquareWithHole();
    EXPECT_EQ(GetRgnBox(region, nullptr), COMPLEXREGION);
    DeleteObject(region);
}

TEST(RegionBox, EmptyRegionHasAZeroBox)
{
    HRGN region = CreateRectRgn(40, 40, 40, 50);
    RECT box = {1, 2, 3, 4};
    EXPECT_EQ(GetRgnBox(region, &box), NULLREGION);
    EXPECT_EQ(Str(box), "(0,0,0,0)");
    DeleteObject(region);
}

TEST(RegionBox, NullHandleFailsWithoutTouchingTheBox)
{
    RECT box = {1, 2, 3, 4};
    EXPECT_EQ(GetRgnBox(nullptr, &box), ERROR);
    EXPECT_EQ(Str(box), "(1,2,3,4)");
}

TEST(RegionPoint, HolesAndEdgesAreOutside)
{
    HRGN region = SquareWithHole();
    EXPECT_TRUE(PtInRegion(region, 0, 0));
    EXPECT_TRUE(PtInRegion(region, 2, 5));
    EXPECT_FALSE(PtInRegion(region, 3, 3));
    EXPECT_FALSE(PtInRegion(region, 6, 6));
    EXPECT_TRUE(PtInRegion(region, 7, 7));
    EXPECT_TRUE(PtInRegion(region, 9, 0));
    EXPECT_FALSE(PtInRegion(region, 10, 0));
    EXPECT_FALSE(PtInRegion(region, 0, 10));
    EXPECT_FALSE(PtInRegion(nullptr, 0, 0));
    DeleteObject(region);
}

TEST(RegionRect, AnyPixelInsideIsEnough)
{
    HRGN region = SquareWithHole();
    const RECT inside = {0, 0, 3, 10};
    const RECT overlapping = {8, 8, 20, 20};
    const RECT covering = {-5, -5, 50, 50};
    const RECT cornerPixel = {9, 9, 10, 10};
    EXPECT_TRUE(RectInRegion(region, &inside));
    EXPECT_TRUE(RectInRegion(region, &overlapping));
    EXPECT_TRUE(RectInRegion(region, &covering));
    EXPECT_TRUE(RectInRegion(region, &cornerPixel));
    DeleteObject(region);
}

TEST(RegionRect, RectanglesInHolesOrBeyondTheEdgesMiss)
{
    HRGN region = SquareWithHole();
    const RECT inHole = {3, 3, 7, 7};
    const RECT beyondRight = {10, 0, 20, 10};
    const RECT beyondBottom = {0, 10, 10, 20};
    const RECT farAway = {100, 100, 110, 110};
    EXPECT_FALSE(RectInRegion(region, &inHole));
    EXPECT_FALSE(RectInRegion(region, &beyondRight));
    EXPECT_FALSE(RectInRegion(region, &beyondBottom));
    EXPECT_FALSE(RectInRegion(region, &farAway));
    DeleteObject(region);
}

TEST(RegionRect, InvertedRectanglesAreTakenInOrderAndEmptyOnesMiss)
{
    HRGN region = CreateRectRgn(0, 0, 10, 10);
    const RECT inverted = {9, 9, 5, 5};
    const RECT invertedOutside = {20, 20, 10, 10};
    const RECT upsideDown = {2, 8, 4, 2};
    const RECT noWidth = {5, 5, 5, 9};
    const RECT noHeight = {5, 5, 9, 5};
    EXPECT_TRUE(RectInRegion(region, &inverted));
    EXPECT_FALSE(RectInRegion(region, &invertedOutside));
    EXPECT_TRUE(RectInRegion(region, &upsideDown));
    EXPECT_FALSE(RectInRegion(region, &noWidth));
    EXPECT_FALSE(RectInRegion(region, &noHeight));
    EXPECT_FALSE(RectInRegion(region, nullptr));
    DeleteObject(region);
}

TEST(RegionRect, EmptyRegionTouchesNothing)
{
    HRGN region = CreateRectRgn(0, 0, 0, 0);
    const RECT everything = {-1000, -1000, 1000, 1000};
    EXPECT_FALSE(RectInRegion(region, &everything));
    EXPECT_FALSE(RectInRegion(nullptr, &everything));
    DeleteObject(region);
}

TEST(RegionEquality, SameShapeMadeDifferentlyIsEqual)
{
    HRGN whole = CreateRectRgn(0, 0, 20, 10);
    HRGN left = CreateRectRgn(0, 0, 10, 10);
    HRGN right = CreateRectRgn(10, 0, 20, 10);
    HRGN joined = CreateRectRgn(0, 0, 1, 1);
    CombineRgn(joined, left, right, RGN_OR);
    const POINT corners[] = {{0, 0}, {20, 0}, {20, 10}, {0, 10}};
    HRGN polygon = CreatePolygonRgn(corners, 4, WINDING);
    EXPECT_TRUE(EqualRgn(whole, joined));
    EXPECT_TRUE(EqualRgn(whole, polygon));
    EXPECT_TRUE(EqualRgn(whole, whole));
    EXPECT_FALSE(EqualRgn(whole, left));
    EXPECT_FALSE(EqualRgn(left, right));
    for (HRGN r : {whole, left, right, joined, polygon})
        DeleteObject(r);
}

TEST(RegionEquality, EmptyRegionsAreEqualWhereverTheyWereMade)
{
    HRGN empty1 = CreateRectRgn(0, 0, 0, 0);
    HRGN empty2 = CreateRectRgn(50, 60, 50, 90);
    HRGN full = CreateRectRgn(0, 0, 1, 1);
    EXPECT_TRUE(EqualRgn(empty1, empty2));
    EXPECT_FALSE(EqualRgn(empty1, full));
    EXPECT_EQ(EqualRgn(empty1, nullptr), ERROR);
    EXPECT_EQ(EqualRgn(nullptr, empty1), ERROR);
    for (HRGN r : {empty1, empty2, full})
        DeleteObject(r);
}
