#include <gtest/gtest.h>

#include "support/region_test_helpers.h"

#include "gdi/vorlgdiobject.h"
#include "gtk/vorlgtklock.h"

#include <windows.h>

using region_test::Box;
using region_test::Picture;
using region_test::Rects;

namespace {

// A five-pointed star drawn in one stroke: its edges cross, and the
// pentagon in the middle is wound twice.
const POINT kStar[] = {{50, 0}, {79, 90}, {2, 35}, {98, 35}, {21, 90}};

unsigned LiveGdiObjects()
{
    vorlan::GtkCriticalSection lock;
    unsigned count = 0;
    for (unsigned i = 0; i < vorlan::kGdiTableSize; ++i)
        count += vorlan::GdiObject::gdiTable[i] != nullptr;
    return count;
}

} // namespace

TEST(RegionPolygon, SquareHoldsTheSamePixelsAsTheRectangle)
{
    const POINT corners[] = {{0, 0}, {10, 0}, {10, 10}, {0, 10}};
    for (int mode : {ALTERNATE, WINDING}) {
        HRGN polygon = CreatePolygonRgn(corners, 4, mode);
        ASSERT_NE(polygon, nullptr);
        EXPECT_EQ(Rects(polygon), "(0,0,10,10)") << mode;
        EXPECT_EQ(GetRgnBox(polygon, nullptr), SIMPLEREGION);
        DeleteObject(polygon);
    }
}

TEST(RegionPolygon, TriangleHasSteppedRows)
{
    const POINT corners[] = {{0, 0}, {6, 0}, {0, 6}};
    HRGN triangle = CreatePolygonRgn(corners, 3, ALTERNATE);
    EXPECT_EQ(Picture(triangle, 0, 0, 7, 7), "######.\n"
                                             "#####..\n"
                                             "####...\n"
                                             "###....\n"
                                             "##.....\n"
                                             "#......\n"
                                             ".......\n");
    EXPECT_EQ(GetRgnBox(triangle, nullptr), COMPLEXREGION);
    DeleteObject(triangle);
}

TEST(RegionPolygon, SelfCrossingStarIsHollowUnderAlternateAndFullUnderWinding)
{
    HRGN alternate = CreatePolygonRgn(kStar, 5, ALTERNATE);
    HRGN winding = CreatePolygonRgn(kStar, 5, WINDING);
    ASSERT_NE(alternate, nullptr);
    ASSERT_NE(winding, nullptr);
    EXPECT_FALSE(PtInRegion(alternate, 50, 50));
    EXPECT_TRUE(PtInRegion(winding, 50, 50));
    for (const POINT &arm : {POINT{50, 20}, POINT{15, 38}, POINT{85, 38}, POINT{25, 85}, POINT{75, 85}}) {
        EXPECT_TRUE(PtInRegion(alternate, arm.x, arm.y)) << arm.x << "," << arm.y;
        EXPECT_TRUE(PtInRegion(winding, arm.x, arm.y)) << arm.x << "," << arm.y;
    }
    for (const POINT &out : {POINT{10, 80}, POINT{90, 80}, POINT{50, 95}, POINT{10, 10}}) {
        EXPECT_FALSE(PtInRegion(alternate, out.x, out.y)) << out.x << "," << out.y;
        EXPECT_FALSE(PtInRegion(winding, out.x, out.y)) << out.x << "," << out.y;
    }
    // The two differ by the middle pentagon only.
    HRGN middle = CreateRectRgn(0, 0, 0, 0);
    EXPECT_EQ(CombineRgn(middle, winding, alternate, RGN_DIFF), COMPLEXREGION);
    EXPECT_EQ(CombineRgn(middle, alternate, winding, RGN_DIFF), NULLREGION);
    EXPECT_EQ(Box(alternate), Box(winding));
    for (HRGN r : {alternate, winding, middle})
        DeleteObject(r);
}

TEST(RegionPolygon, ModesOtherThanAlternateFillByWinding)
{
    HRGN winding = CreatePolygonRgn(kStar, 5, WINDING);
    for (int mode : {0, 3, -1}) {
        HRGN other = CreatePolygonRgn(kStar, 5, mode);
        EXPECT_TRUE(EqualRgn(other, winding)) << mode;
        DeleteObject(other);
    }
    DeleteObject(winding);
}

TEST(RegionPolygon, FewerThanThreePointsEncloseNothingAndNoneFail)
{
    const POINT points[] = {{3, 4}, {30, 40}};
    for (int count : {1, 2}) {
        HRGN region = CreatePolygonRgn(points, count, ALTERNATE);
        ASSERT_NE(region, nullptr) << count;
        EXPECT_EQ(GetRgnBox(region, nullptr), NULLREGION) << count;
        DeleteObject(region);
    }
    // No points fail without an object.
    const unsigned before = LiveGdiObjects();
    EXPECT_EQ(CreatePolygonRgn(nullptr, 3, ALTERNATE), nullptr);
    EXPECT_EQ(CreatePolygonRgn(kStar, 0, ALTERNATE), nullptr);
    EXPECT_EQ(CreatePolygonRgn(kStar, -5, WINDING), nullptr);
    EXPECT_EQ(LiveGdiObjects(), before);
}

TEST(RegionPolyPolygon, NestingMakesAHoleUnderAlternateAndMergesUnderWinding)
{
    const INT counts[] = {4, 4};
    const POINT nested[] = {{0, 0}, {20, 0}, {20, 20}, {0, 20}, {5, 5}, {15, 5}, {15, 15}, {5, 15}};
    HRGN holed = CreatePolyPolygonRgn(nested, counts, 2, ALTERNATE);
    HRGN full = CreatePolyPolygonRgn(nested, counts, 2, WINDING);
    EXPECT_EQ(Rects(holed), "(0,0,20,5) (0,5,5,15) (15,5,20,15) (0,15,20,20)");
    EXPECT_EQ(Rects(full), "(0,0,20,20)");
    for (HRGN r : {holed, full})
        DeleteObject(r);
}

TEST(RegionPolyPolygon, EachPolygonTakesTheNextPointsAndOneIsThePolygonRegion)
{
    const POINT points[] = {{0, 0},  {4, 0},  {4, 4},   {0, 4},   {10, 0},
                            {14, 0}, {14, 4}, {20, 20}, {24, 20}, {24, 24}};
    const INT counts[] = {4, 3, 3};
    HRGN region = CreatePolyPolygonRgn(points, counts, 3, WINDING);
    HRGN expected = CreateRectRgn(0, 0, 4, 4);
    HRGN triangle1 = CreatePolygonRgn(points + 4, 3, WINDING);
    HRGN triangle2 = CreatePolygonRgn(points + 7, 3, WINDING);
    CombineRgn(expected, expected, triangle1, RGN_OR);
    CombineRgn(expected, expected, triangle2, RGN_OR);
    EXPECT_TRUE(EqualRgn(region, expected));
    EXPECT_EQ(Box(region), "(0,0,24,24)");
    for (HRGN r : {region, expected, triangle1, triangle2})
        DeleteObject(r);
    // One polygon is the polygon region.
    const INT count = 5;
    for (int mode : {ALTERNATE, WINDING}) {
        HRGN poly = CreatePolyPolygonRgn(kStar, &count, 1, mode);
        HRGN single = CreatePolygonRgn(kStar, 5, mode);
        EXPECT_TRUE(EqualRgn(poly, single)) << mode;
        DeleteObject(poly);
        DeleteObject(single);
    }
}

TEST(RegionPolyPolygon, BadArgumentsOrAnEmptyPolygonFailWithoutAnObject)
{
    const POINT points[] = {{0, 0}, {4, 0}, {4, 4}, {0, 4}, {10, 0}, {14, 0}, {14, 4}};
    const INT counts[] = {4, 3};
    const INT emptyFirst[] = {0, 4};
    const INT emptySecond[] = {4, 0, 3};
    const INT negative[] = {4, -3};
    const unsigned before = LiveGdiObjects();
    EXPECT_EQ(CreatePolyPolygonRgn(nullptr, counts, 2, ALTERNATE), nullptr);
    EXPECT_EQ(CreatePolyPolygonRgn(points, nullptr, 2, ALTERNATE), nullptr);
    EXPECT_EQ(CreatePolyPolygonRgn(points, counts, 0, ALTERNATE), nullptr);
    EXPECT_EQ(CreatePolyPolygonRgn(points, counts, -1, WINDING), nullptr);
    EXPECT_EQ(CreatePolyPolygonRgn(points, emptyFirst, 2, ALTERNATE), nullptr);
    EXPECT_EQ(CreatePolyPolygonRgn(points, emptySecond, 3, WINDING), nullptr);
    EXPECT_EQ(CreatePolyPolygonRgn(points, negative, 2, ALTERNATE), nullptr);
    EXPECT_EQ(LiveGdiObjects(), before);
}
