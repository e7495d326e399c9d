#include <gtest/gtest.h>

#include "support/region_test_helpers.h"

#include <windows.h>

using region_test::Rects;

namespace {

// Two overlapping squares and a destination, deleted at the end.
class RegionCombine : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_NE(a, nullptr);
        ASSERT_NE(b, nullptr);
        ASSERT_NE(dest, nullptr);
    }
    void TearDown() override
    {
        for (HRGN r : {a, b, dest})
            EXPECT_TRUE(DeleteObject(r));
    }

    void ExpectSourcesUntouched()
    {
        EXPECT_EQ(Rects(a), "(0,0,10,10)");
        EXPECT_EQ(Rects(b), "(5,5,15,15)");
    }

    HRGN a = CreateRectRgn(0, 0, 10, 10);
    HRGN b = CreateRectRgn(5, 5, 15, 15);
    HRGN dest = CreateRectRgn(100, 100, 101, 101);
};

} // namespace

TEST_F(RegionCombine, EveryModeOfTwoOverlappingSquares)
{
    const struct {
        int mode;
        bool swapped;
        int type;
        const char *rects;
    } cases[] = {
        {RGN_AND, false, SIMPLEREGION, "(5,5,10,10)"},
        {RGN_OR, false, COMPLEXREGION, "(0,0,10,5) (0,5,15,10) (5,10,15,15)"},
        {RGN_XOR, false, COMPLEXREGION, "(0,0,10,5) (0,5,5,10) (10,5,15,10) (5,10,15,15)"},
        {RGN_DIFF, false, COMPLEXREGION, "(0,0,10,5) (0,5,5,10)"},
        {RGN_DIFF, true, COMPLEXREGION, "(10,5,15,10) (5,10,15,15)"},
        {RGN_COPY, false, SIMPLEREGION, "(0,0,10,10)"},
        {RGN_COPY, true, SIMPLEREGION, "(5,5,15,15)"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(testing::Message() << "mode " << c.mode << (c.swapped ? " swapped" : ""));
        EXPECT_EQ(CombineRgn(dest, c.swapped ? b : a, c.swapped ? a : b, c.mode), c.type);
        EXPECT_EQ(Rects(dest), c.rects);
        ExpectSourcesUntouched();
    }
    // The copy ignores the second source, even one that is no region.
    EXPECT_EQ(CombineRgn(dest, b, nullptr, RGN_COPY), SIMPLEREGION);
    EXPECT_EQ(CombineRgn(dest, a, reinterpret_cast<HRGN>(1), RGN_COPY), SIMPLEREGION);
    EXPECT_EQ(Rects(dest), "(0,0,10,10)");
}

TEST_F(RegionCombine, ResultsWithoutPixelsAreNullAndTouchingRectanglesMerge)
{
    HRGN far = CreateRectRgn(50, 50, 60, 60);
    EXPECT_EQ(CombineRgn(dest, a, far, RGN_AND), NULLREGION);
    EXPECT_EQ(Rects(dest), "");
    RECT box = {1, 2, 3, 4};
    EXPECT_EQ(GetRgnBox(dest, &box), NULLREGION);
    EXPECT_EQ(region_test::Str(box), "(0,0,0,0)");
    EXPECT_EQ(CombineRgn(dest, a, a, RGN_DIFF), NULLREGION);
    EXPECT_EQ(CombineRgn(dest, dest, a, RGN_AND), NULLREGION);
    EXPECT_EQ(CombineRgn(dest, dest, a, RGN_OR), SIMPLEREGION);
    EXPECT_EQ(Rects(dest), "(0,0,10,10)");

    HRGN right = CreateRectRgn(10, 0, 20, 10);
    HRGN below = CreateRectRgn(0, 10, 10, 20);
    EXPECT_EQ(CombineRgn(dest, a, right, RGN_OR), SIMPLEREGION);
    EXPECT_EQ(Rects(dest), "(0,0,20,10)");
    EXPECT_EQ(CombineRgn(dest, a, below, RGN_OR), SIMPLEREGION);
    EXPECT_EQ(Rects(dest), "(0,0,10,20)");
    EXPECT_EQ(CombineRgn(dest, a, right, RGN_AND), NULLREGION) << "edges touch but share no pixel";
    for (HRGN r : {far, right, below})
        DeleteObject(r);
}

TEST_F(RegionCombine, DestinationMayBeEitherSourceAndCopyOntoItselfReportsTheType)
{
    EXPECT_EQ(CombineRgn(dest, a, b, RGN_OR), COMPLEXREGION);
    EXPECT_EQ(CombineRgn(dest, dest, nullptr, RGN_COPY), COMPLEXREGION);
    SetRectRgn(dest, 0, 0, 0, 0);
    EXPECT_EQ(CombineRgn(dest, dest, nullptr, RGN_COPY), NULLREGION);
    EXPECT_EQ(CombineRgn(a, a, nullptr, RGN_COPY), SIMPLEREGION);

    EXPECT_EQ(CombineRgn(a, a, b, RGN_AND), SIMPLEREGION);
    EXPECT_EQ(Rects(a), "(5,5,10,10)");
    EXPECT_EQ(Rects(b), "(5,5,15,15)");
    EXPECT_EQ(CombineRgn(b, a, b, RGN_XOR), COMPLEXREGION);
    EXPECT_EQ(Rects(b), "(10,5,15,10) (5,10,15,15)");
    EXPECT_EQ(CombineRgn(b, b, b, RGN_OR), COMPLEXREGION);
    EXPECT_EQ(Rects(b), "(10,5,15,10) (5,10,15,15)");
    EXPECT_EQ(CombineRgn(b, b, b, RGN_DIFF), NULLREGION);
}

TEST_F(RegionCombine, MissingRegionsOrUnknownModesFailAndKeepTheDestination)
{
    for (int mode : {RGN_AND, RGN_OR, RGN_XOR, RGN_DIFF}) {
        EXPECT_EQ(CombineRgn(dest, b, nullptr, mode), ERROR) << mode;
        EXPECT_EQ(CombineRgn(a, a, nullptr, mode), ERROR) << mode;
    }
    for (int mode : {0, 6, -1, 0x10001}) {
        EXPECT_EQ(CombineRgn(dest, a, b, mode), ERROR) << mode;
        EXPECT_EQ(CombineRgn(dest, a, nullptr, mode), ERROR) << mode;
    }
    EXPECT_EQ(CombineRgn(nullptr, a, b, RGN_OR), ERROR);
    EXPECT_EQ(CombineRgn(dest, nullptr, b, RGN_OR), ERROR);
    EXPECT_EQ(CombineRgn(dest, nullptr, b, RGN_COPY), ERROR);
    EXPECT_EQ(CombineRgn(nullptr, nullptr, nullptr, RGN_COPY), ERROR);
    EXPECT_EQ(Rects(dest), "(100,100,101,101)");
    ExpectSourcesUntouched();
}

TEST(RegionOffset, MovesEveryRectangleAndReportsTheTypeButAnEmptyRegionGivesError)
{
    HRGN region = CreateRectRgn(0, 0, 10, 10);
    EXPECT_EQ(OffsetRgn(region, 5, -3), SIMPLEREGION);
    EXPECT_EQ(Rects(region), "(5,-3,15,7)");
    HRGN other = CreateRectRgn(20, 20, 30, 30);
    ASSERT_EQ(CombineRgn(region, region, other, RGN_OR), COMPLEXREGION);
    EXPECT_EQ(OffsetRgn(region, -5, 3), COMPLEXREGION);
    EXPECT_EQ(Rects(region), "(0,0,10,10) (15,23,25,33)");
    SetRectRgn(region, 3, 3, 3, 3);
    EXPECT_EQ(OffsetRgn(region, 1, 1), ERROR);
    EXPECT_EQ(GetRgnBox(region, nullptr), NULLREGION);
    EXPECT_EQ(OffsetRgn(nullptr, 1, 1), ERROR);
    DeleteObject(region);
    DeleteObject(other);
}

TEST(RegionSetRect, OrdersTheCornersAndReplacesOrEmptiesAComplexRegion)
{
    HRGN region = CreateRectRgn(0, 0, 10, 10);
    HRGN other = CreateRectRgn(20, 20, 30, 30);
    ASSERT_EQ(CombineRgn(region, region, other, RGN_OR), COMPLEXREGION);
    EXPECT_TRUE(SetRectRgn(region, 10, 10, 0, 0));
    EXPECT_EQ(Rects(region), "(0,0,10,10)");
    EXPECT_TRUE(SetRectRgn(region, 4, 30, 9, 20));
    EXPECT_EQ(Rects(region), "(4,20,9,30)");
    EXPECT_TRUE(SetRectRgn(region, 5, 5, 5, 9));
    EXPECT_EQ(GetRgnBox(region, nullptr), NULLREGION);
    EXPECT_FALSE(SetRectRgn(nullptr, 0, 0, 1, 1));
    DeleteObject(region);
    DeleteObject(other);
}

// Unlike SetRectRgn, creation keeps the first corner as the origin.
TEST(RegionCreateRect, OriginStaysWhereGivenAndRegionsHaveNoObjectRecord)
{
    HRGN created = CreateRectRgn(10, 10, 0, 0);
    EXPECT_EQ(Rects(created), "(10,10,20,20)");
    const RECT inverted = {7, 9, 2, 3};
    HRGN indirect = CreateRectRgnIndirect(&inverted);
    EXPECT_EQ(Rects(indirect), "(7,9,12,15)");
    EXPECT_EQ(CreateRectRgnIndirect(nullptr), nullptr);
    // A region has no GetObject record.
    SetLastError(5);
    EXPECT_EQ(GetObjectW(created, 0, nullptr), 0);
    EXPECT_EQ(GetLastError(), 0u);
    DeleteObject(created);
    DeleteObject(indirect);
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
