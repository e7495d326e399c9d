// CombineRgn in every mode, with destinations that are also sources, and
// the calls that change a region in place: OffsetRgn and SetRectRgn.
#include <gtest/gtest.h>

#include "region_test_helpers.h"

#include <windows.h>

using region_test::Box;
using region_test::Rects;

namespace {

// Two overlapping squares and a destination, deleted at the end.
class RegionCombine : public ::testing::Test {
protected:
    void SetUp() override
    {
        a = CreateRectRgn(0, 0, 10, 10);
        b = CreateRectRgn(5, 5, 15, 15);
        dest = CreateRectRgn(100, 100, 101, 101);
        ASSERT_NE(a, nullptr);
        ASSERT_NE(b, nullptr);
        ASSERT_NE(dest, nullptr);
    }
    void TearDown() override
    {
        EXPECT_TRUE(DeleteObject(a));
        EXPECT_TRUE(DeleteObject(b));
        EXPECT_TRUE(DeleteObject(dest));
    }

    void ExpectSourcesUntouched()
    {
        EXPECT_EQ(Rects(a), "(0,0,10,10)");
        EXPECT_EQ(Rects(b), "(5,5,15,15)");
    }

    HRGN a = nullptr;
    HRGN b = nullptr;
    HRGN dest = nullptr;
};

} // namespace

TEST_F(RegionCombine, IntersectionOfOverlappingSquaresIsTheirCommonSquare)
{
    EXPECT_EQ(CombineRgn(dest, a, b, RGN_AND), SIMPLEREGION);
    EXPECT_EQ(Rects(dest), "(5,5,10,10)");
    ExpectSourcesUntouched();
}

TEST_F(RegionCombine, UnionOfOverlappingSquaresIsComplex)
{
    EXPECT_EQ(CombineRgn(dest, a, b, RGN_OR), COMPLEXREGION);
    EXPECT_EQ(Rects(dest), "(0,0,10,5) (0,5,15,10) (5,10,15,15)");
    EXPECT_EQ(Box(dest), "(0,0,15,15)");
    ExpectSourcesUntouched();
}

TEST_F(RegionCombine, ExclusiveOrLeavesTheOverlapOut)
{
    EXPECT_EQ(CombineRgn(dest, a, b, RGN_XOR), COMPLEXREGION);
    EXPECT_EQ(Rects(dest), "(0,0,10,5) (0,5,5,10) (10,5,15,10) (5,10,15,15)");
    EXPECT_FALSE(PtInRegion(dest, 7, 7));
    EXPECT_TRUE(PtInRegion(dest, 12, 7));
    ExpectSourcesUntouched();
}

TEST_F(RegionCombine, DifferenceTakesTheSecondOutOfTheFirst)
{
    EXPECT_EQ(CombineRgn(dest, a, b, RGN_DIFF), COMPLEXREGION);
    EXPECT_EQ(Rects(dest), "(0,0,10,5) (0,5,5,10)");
    EXPECT_EQ(CombineRgn(dest, b, a, RGN_DIFF), COMPLEXREGION);
    EXPECT_EQ(Rects(dest), "(10,5,15,10) (5,10,15,15)");
    ExpectSourcesUntouched();
}

TEST_F(RegionCombine, CopyIgnoresTheSecondSource)
{
    EXPECT_EQ(CombineRgn(dest, b, nullptr, RGN_COPY), SIMPLEREGION);
    EXPECT_EQ(Rects(dest), "(5,5,15,15)");
    EXPECT_EQ(CombineRgn(dest, a, reinterpret_cast<HRGN>(1), RGN_COPY), SIMPLEREGION);
    EXPECT_EQ(Rects(dest), "(0,0,10,10)");
    ExpectSourcesUntouched();
}

TEST_F(RegionCombine, ResultsWithoutPixelsAreNullRegions)
{
    HRGN far = CreateRectRgn(50, 50, 60, 60);
    EXPECT_EQ(CombineRgn(dest, a, far, RGN_AND), NULLREGION);
    EXPECT_EQ(Rects(dest), "");
    RECT box = {1, 2, 3, 4};
    EXPECT_EQ(GetRgnBox(dest, &box), NULLREGION);
    EXPECT_EQ(region_test::Str(box), "(0,0,0,0)");
    EXPECT_EQ(CombineRgn(dest, a, a, RGN_DIFF), NULLREGION);
    EXPECT_EQ(CombineRgn(dest, a, a, RGN_XOR), NULLREGION);
    EXPECT_EQ(CombineRgn(dest, dest, a, RGN_AND), NULLREGION);
    EXPECT_EQ(CombineRgn(dest, dest, a, RGN_OR), SIMPLEREGION);
    EXPECT_EQ(Rects(dest), "(0,0,10,10)");
    DeleteObject(far);
}

TEST_F(RegionCombine, TouchingRectanglesMergeIntoASimpleRegion)
{
    HRGN right = CreateRectRgn(10, 0, 20, 10);
    HRGN below = CreateRectRgn(0, 10, 10, 20);
    EXPECT_EQ(CombineRgn(dest, a, right, RGN_OR), SIMPLEREGION);
    EXPECT_EQ(Rects(dest), "(0,0,20,10)");
    EXPECT_EQ(CombineRgn(dest, a, below, RGN_OR), SIMPLEREGION);
    EXPECT_EQ(Rects(dest), "(0,0,10,20)");
    EXPECT_EQ(CombineRgn(dest, a, right, RGN_AND), NULLREGION) << "edges touch but share no pixel";
    DeleteObject(right);
    DeleteObject(below);
}

TEST_F(RegionCombine, DestinationMayBeEitherSource)
{
    EXPECT_EQ(CombineRgn(a, a, b, RGN_AND), SIMPLEREGION);
    EXPECT_EQ(Rects(a), "(5,5,10,10)");
    EXPECT_EQ(Rects(b), "(5,5,15,15)");
    EXPECT_EQ(CombineRgn(b, a, b, RGN_XOR), COMPLEXREGION);
    EXPECT_EQ(Rects(b), "(10,5,15,10) (5,10,15,15)");
    EXPECT_EQ(CombineRgn(b, b, b, RGN_OR), COMPLEXREGION);
    EXPECT_EQ(Rects(b), "(10,5,15,10) (5,10,15,15)");
    EXPECT_EQ(CombineRgn(b, b, b, RGN_DIFF), NULLREGION);
}

TEST_F(RegionCombine, CopyOntoItselfOnlyReportsTheType)
{
    EXPECT_EQ(CombineRgn(a, a, nullptr, RGN_COPY), SIMPLEREGION);
    EXPECT_EQ(CombineRgn(dest, a, b, RGN_OR), COMPLEXREGION);
    EXPECT_EQ(CombineRgn(dest, dest, nullptr, RGN_COPY), COMPLEXREGION);
    SetRectRgn(dest, 0, 0, 0, 0);
    EXPECT_EQ(CombineRgn(dest, dest, nullptr, RGN_COPY), NULLREGION);
    EXPECT_EQ(CombineRgn(nullptr, nullptr, nullptr, RGN_COPY), ERROR);
}

TEST_F(RegionCombine, MissingSecondSourceFailsAndKeepsTheDestination)
{
    for (int mode : {RGN_AND, RGN_OR, RGN_XOR, RGN_DIFF}) {
        EXPECT_EQ(CombineRgn(dest, b, nullptr, mode), ERROR) << mode;
        EXPECT_EQ(CombineRgn(a, a, nullptr, mode), ERROR) << mode;
    }
    EXPECT_EQ(Rects(dest), "(100,100,101,101)");
    ExpectSourcesUntouched();
}

TEST_F(RegionCombine, UnknownModesFailAndKeepTheDestination)
{
    for (int mode : {0, 6, -1, 0x10001}) {
        EXPECT_EQ(CombineRgn(dest, a, b, mode), ERROR) << mode;
        EXPECT_EQ(CombineRgn(dest, a, nullptr, mode), ERROR) << mode;
    }
    EXPECT_EQ(Rects(dest), "(100,100,101,101)");
}

TEST_F(RegionCombine, MissingDestinationOrFirstSourceFails)
{
    EXPECT_EQ(CombineRgn(nullptr, a, b, RGN_OR), ERROR);
    EXPECT_EQ(CombineRgn(dest, nullptr, b, RGN_OR), ERROR);
    EXPECT_EQ(CombineRgn(dest, nullptr, b, RGN_COPY), ERROR);
    EXPECT_EQ(Rects(dest), "(100,100,101,101)");
}

TEST(RegionOffset, MovesEveryRectangleAndReportsTheType)
{
    HRGN region = CreateRectRgn(0, 0, 10, 10);
    EXPECT_EQ(OffsetRgn(region, 5, -3), SIMPLEREGION);
    EXPECT_EQ(Rects(region), "(5,-3,15,7)");
    HRGN other = CreateRectRgn(20, 20, 30, 30);
    ASSERT_EQ(CombineRgn(region, region, other, RGN_OR), COMPLEXREGION);
    EXPECT_EQ(OffsetRgn(region, -5, 3), COMPLEXREGION);
    EXPECT_EQ(Rects(region), "(0,0,10,10) (15,23,25,33)");
    EXPECT_EQ(OffsetRgn(region, 0, 0), COMPLEXREGION);
    EXPECT_EQ(Rects(region), "(0,0,10,10) (15,23,25,33)");
    DeleteObject(region);
    DeleteObject(other);
}

TEST(RegionOffset, EmptyRegionGivesErrorNotNullRegion)
{
    HRGN region = CreateRectRgn(3, 3, 3, 3);
    EXPECT_EQ(OffsetRgn(region, 1, 1), ERROR);
    EXPECT_EQ(GetRgnBox(region, nullptr), NULLREGION);
    EXPECT_EQ(OffsetRgn(nullptr, 1, 1), ERROR);
    DeleteObject(region);
}

TEST(RegionSetRect, CornersMayComeInEitherOrder)
{
    HRGN region = CreateRectRgn(0, 0, 1, 1);
    EXPECT_TRUE(SetRectRgn(region, 10, 10, 0, 0));
    EXPECT_EQ(Rects(region), "(0,0,10,10)");
    EXPECT_TRUE(SetRectRgn(region, 4, 30, 9, 20));
    EXPECT_EQ(Rects(region), "(4,20,9,30)");
    EXPECT_TRUE(SetRectRgn(region, -5, -6, -1, -2));
    EXPECT_EQ(Rects(region), "(-5,-6,-1,-2)");
    DeleteObject(region);
}

TEST(RegionSetRect, ReplacesAComplexRegionAndMayEmptyIt)
{
    HRGN region = CreateRectRgn(0, 0, 10, 10);
    HRGN other = CreateRectRgn(20, 20, 30, 30);
    ASSERT_EQ(CombineRgn(region, region, other, RGN_OR), COMPLEXREGION);
    EXPECT_TRUE(SetRectRgn(region, 1, 2, 3, 4));
    EXPECT_EQ(Rects(region), "(1,2,3,4)");
    EXPECT_TRUE(SetRectRgn(region, 5, 5, 5, 9));
    EXPECT_EQ(GetRgnBox(region, nullptr), NULLREGION);
    EXPECT_FALSE(SetRectRgn(nullptr, 0, 0, 1, 1));
    DeleteObject(region);
    DeleteObject(other);
}

TEST(RegionCreateRect, OriginStaysWhereGivenWhileSetRectRgnOrdersTheCorners)
{
    HRGN created = CreateRectRgn(10, 10, 0, 0);
    EXPECT_EQ(Rects(created), "(10,10,20,20)");
    HRGN set = CreateRectRgn(0, 0, 1, 1);
    SetRectRgn(set, 10, 10, 0, 0);
    EXPECT_EQ(Rects(set), "(0,0,10,10)");
    const RECT inverted = {7, 9, 2, 3};
    HRGN indirect = CreateRectRgnIndirect(&inverted);
    EXPECT_EQ(Rects(indirect), "(7,9,12,15)");
    DeleteObject(created);
    DeleteObject(set);
    DeleteObject(indirect);
}

TEST(RegionCreateRect, RightAndBottomEdgesAreOutside)
{
    HRGN region = CreateRectRgn(0, 0, 10, 10);
    EXPECT_TRUE(PtInRegion(region, 0, 0));
    EXPECT_TRUE(PtInRegion(region, 9, 9));
    EXPECT_FALSE(PtInRegion(region, 10, 10));
    EXPECT_FALSE(PtInRegion(region, 10, 5));
    EXPECT_FALSE(PtInRegion(region, 5, 10));
    EXPECT_FALSE(PtInRegion(region, -1, 0));
    EXPECT_EQ(GetRgnBox(region, nullptr), SIMPLEREGION);
    DeleteObject(region);
}

TEST(RegionCreateRect, EmptyRectanglesMakeEmptyRegions)
{
    for (const RECT &rect : {RECT{5, 5, 5, 10}, RECT{5, 5, 10, 5}, RECT{0, 0, 0, 0}}) {
        HRGN region = CreateRectRgnIndirect(&rect);
        ASSERT_NE(region, nullptr);
        EXPECT_EQ(GetObjectType(region), static_cast<DWORD>(OBJ_REGION));
        EXPECT_EQ(GetRgnBox(region, nullptr), NULLREGION) << region_test::Str(rect);
        EXPECT_FALSE(PtInRegion(region, 5, 5));
        DeleteObject(region);
    }
}
