#include <gtest/gtest.h>

#include "support/region_test_helpers.h"

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

TEST(RegionBox, GivesTheBoundingBoxAndTheTypeOrAZeroBoxWhenEmpty)
{
    HRGN region = SquareWithHole();
    RECT box = {};
    EXPECT_EQ(GetRgnBox(region, &box), COMPLEXREGION);
    EXPECT_EQ(Str(box), "(0,0,10,10)");
    EXPECT_EQ(GetRgnBox(region, nullptr), COMPLEXREGION) << "the box may be omitted";
    HRGN other = CreateRectRgn(-20, 30, -10, 40);
    CombineRgn(region, region, other, RGN_OR);
    EXPECT_EQ(GetRgnBox(region, &box), COMPLEXREGION);
    EXPECT_EQ(Str(box), "(-20,0,10,40)");
    SetRectRgn(region, 40, 40, 40, 50);
    box = {1, 2, 3, 4};
    EXPECT_EQ(GetRgnBox(region, &box), NULLREGION);
    EXPECT_EQ(Str(box), "(0,0,0,0)");
    // A null handle fails without touching the box.
    box = {1, 2, 3, 4};
    EXPECT_EQ(GetRgnBox(nullptr, &box), ERROR);
    EXPECT_EQ(Str(box), "(1,2,3,4)");
    DeleteObject(region);
    DeleteObject(other);
}

TEST(RegionPoint, HolesAndEdgesAreOutside)
{
    HRGN region = SquareWithHole();
    for (const POINT &p : {POINT{0, 0}, POINT{2, 5}, POINT{7, 7}, POINT{9, 0}})
        EXPECT_TRUE(PtInRegion(region, p.x, p.y)) << p.x << "," << p.y;
    for (const POINT &p : {POINT{3, 3}, POINT{6, 6}, POINT{10, 0}, POINT{0, 10}})
        EXPECT_FALSE(PtInRegion(region, p.x, p.y)) << p.x << "," << p.y;
    EXPECT_FALSE(PtInRegion(nullptr, 0, 0));
    DeleteObject(region);
}

TEST(RegionRect, AnyPixelInsideIsEnoughInvertedRectanglesAreOrderedAndEmptyOnesMiss)
{
    HRGN holed = SquareWithHole();
    HRGN square = CreateRectRgn(0, 0, 10, 10);
    HRGN empty = CreateRectRgn(0, 0, 0, 0);
    const struct {
        HRGN region;
        RECT rect;
        BOOL touches;
    } cases[] = {
        {holed, {0, 0, 3, 10}, TRUE},
        {holed, {8, 8, 20, 20}, TRUE},
        {holed, {9, 9, 10, 10}, TRUE},
        {holed, {3, 3, 7, 7}, FALSE},
        {holed, {10, 0, 20, 10}, FALSE},
        {square, {9, 9, 5, 5}, TRUE},
        {square, {2, 8, 4, 2}, TRUE},
        {square, {5, 5, 5, 9}, FALSE},
        {empty, {-1000, -1000, 1000, 1000}, FALSE},
        {nullptr, {-1000, -1000, 1000, 1000}, FALSE},
    };
    for (const auto &c : cases)
        EXPECT_EQ(RectInRegion(c.region, &c.rect), c.touches) << Str(c.rect);
    EXPECT_FALSE(RectInRegion(square, nullptr));
    for (HRGN r : {holed, square, empty})
        DeleteObject(r);
}

TEST(RegionEquality, SameShapeMadeDifferentlyIsEqualAndEmptyRegionsAreEqualAnywhere)
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
    EXPECT_FALSE(EqualRgn(whole, left));
    EXPECT_FALSE(EqualRgn(left, right));
    HRGN empty1 = CreateRectRgn(0, 0, 0, 0);
    HRGN empty2 = CreateRectRgn(50, 60, 50, 90);
    EXPECT_TRUE(EqualRgn(empty1, empty2));
    EXPECT_FALSE(EqualRgn(empty1, left));
    EXPECT_EQ(EqualRgn(empty1, nullptr), ERROR);
    EXPECT_EQ(EqualRgn(nullptr, empty1), ERROR);
    for (HRGN r : {whole, left, right, joined, polygon, empty1, empty2})
        DeleteObject(r);
}
