#include <gtest/gtest.h>

#include "support/region_test_helpers.h"

#include <windows.h>

#include <cmath>
#include <utility>
#include <vector>

using region_test::Box;
using region_test::Picture;
using region_test::Rects;
using region_test::RowRuns;

namespace {

using Runs = std::vector<std::pair<int, int>>;

// Each row of the box holds at most one run of pixels, mirrored about the
// box's middle column (as given by `mirrorWidth`) and about its middle row.
void ExpectOneRunPerRowMirrored(HRGN region, const RECT &box, int mirrorWidth)
{
    for (int y = box.top; y < box.bottom; ++y) {
        const Runs runs = RowRuns(region, y, box.left - 5, box.right + 5);
        ASSERT_LE(runs.size(), 1u) << "row " << y;
        EXPECT_EQ(runs, RowRuns(region, box.top + box.bottom - 1 - y, box.left - 5, box.right + 5)) << "row " << y;
        if (runs.empty())
            continue;
        EXPECT_EQ(runs[0].first - box.left, box.left + mirrorWidth - runs[0].second) << "row " << y;
    }
}

// Pixels whose centres lie clearly inside the true ellipse of the box are
// held, pixels clearly outside are not.
void ExpectCloseToTheTrueEllipse(HRGN region, const RECT &box, double tolerance)
{
    const double a = (box.right - box.left) / 2.0;
    const double b = (box.bottom - box.top) / 2.0;
    for (int y = box.top - 2; y < box.bottom + 2; ++y) {
        for (int x = box.left - 2; x < box.right + 2; ++x) {
            const double distance = std::hypot((x + 0.5 - box.left - a) / a, (y + 0.5 - box.top - b) / b);
            if (distance < 1 - tolerance) {
                EXPECT_TRUE(PtInRegion(region, x, y)) << x << "," << y;
            } else if (distance > 1 + tolerance) {
                EXPECT_FALSE(PtInRegion(region, x, y)) << x << "," << y;
            }
        }
    }
}

} // namespace

TEST(RegionEllipse, CircleFillsItsBoxSymmetricallyWithItsExtremePointsInside)
{
    const RECT box = {0, 0, 100, 100};
    HRGN circle = CreateEllipticRgnIndirect(&box);
    ASSERT_NE(circle, nullptr);
    EXPECT_EQ(GetRgnBox(circle, nullptr), COMPLEXREGION);
    EXPECT_EQ(Box(circle), "(0,0,100,100)");
    ExpectOneRunPerRowMirrored(circle, box, 100);
    ExpectCloseToTheTrueEllipse(circle, box, 0.03);
    for (const POINT &p : {POINT{50, 0}, POINT{49, 0}, POINT{50, 99}, POINT{0, 50}, POINT{99, 50}, POINT{0, 49},
                           POINT{99, 49}, POINT{50, 50}})
        EXPECT_TRUE(PtInRegion(circle, p.x, p.y)) << p.x << "," << p.y;
    for (const POINT &p : {POINT{0, 0}, POINT{99, 0}, POINT{0, 99}, POINT{99, 99}, POINT{50, -1}, POINT{100, 50},
                           POINT{-1, 50}, POINT{50, 100}, POINT{10, 10}})
        EXPECT_FALSE(PtInRegion(circle, p.x, p.y)) << p.x << "," << p.y;
    // The indirect form is the same shape and needs a rectangle.
    HRGN direct = CreateEllipticRgn(0, 0, 100, 100);
    EXPECT_TRUE(EqualRgn(circle, direct));
    SetLastError(0);
    EXPECT_EQ(CreateEllipticRgnIndirect(nullptr), nullptr);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_PARAMETER));
    DeleteObject(circle);
    DeleteObject(direct);
}

TEST(RegionEllipse, SmallCircleHasTheExpectedPixelsAndOddWidthLosesItsRightmostColumn)
{
    HRGN circle = CreateEllipticRgn(0, 0, 10, 10);
    EXPECT_EQ(Picture(circle, 0, 0, 10, 10), "...####...\n"
                                             "..######..\n"
                                             ".########.\n"
                                             "##########\n"
                                             "##########\n"
                                             "##########\n"
                                             "##########\n"
                                             ".########.\n"
                                             "..######..\n"
                                             "...####...\n");
    const RECT box = {0, 0, 9, 9};
    HRGN odd = CreateEllipticRgnIndirect(&box);
    EXPECT_EQ(Box(odd), "(0,0,8,9)");
    ExpectOneRunPerRowMirrored(odd, box, 8);
    DeleteObject(circle);
    DeleteObject(odd);
}

TEST(RegionEllipse, CornerOrderAndPositionDoNotChangeTheShape)
{
    HRGN ordered = CreateEllipticRgn(0, 0, 40, 30);
    HRGN inverted = CreateEllipticRgn(40, 30, 0, 0);
    HRGN mixed = CreateEllipticRgn(40, 0, 0, 30);
    HRGN moved = CreateEllipticRgn(-100, 200, -60, 230);
    EXPECT_TRUE(EqualRgn(ordered, inverted));
    EXPECT_TRUE(EqualRgn(ordered, mixed));
    ASSERT_EQ(OffsetRgn(moved, 100, -200), COMPLEXREGION);
    EXPECT_TRUE(EqualRgn(ordered, moved));
    for (HRGN r : {ordered, inverted, mixed, moved})
        DeleteObject(r);
}

TEST(RegionEllipse, TinyThinEmptyAndHugeBoxes)
{
    for (const RECT &box : {RECT{0, 0, 3, 3}, RECT{0, 0, 2, 2}, RECT{0, 0, 2, 7}, RECT{0, 0, 5, 3}}) {
        SCOPED_TRACE(region_test::Str(box));
        HRGN ellipse = CreateEllipticRgnIndirect(&box);
        ASSERT_NE(ellipse, nullptr);
        HRGN outside = CreateRectRgnIndirect(&box);
        EXPECT_EQ(CombineRgn(outside, ellipse, outside, RGN_DIFF), NULLREGION) << "stays inside its box";
        EXPECT_NE(GetRgnBox(ellipse, nullptr), NULLREGION);
        DeleteObject(ellipse);
        DeleteObject(outside);
    }
    // Boxes without area give empty regions, thin ones rectangles.
    HRGN noWidth = CreateEllipticRgn(5, 5, 5, 50);
    HRGN noHeight = CreateEllipticRgn(5, 5, 50, 5);
    HRGN thin = CreateEllipticRgn(5, 5, 6, 50);
    EXPECT_EQ(GetRgnBox(noWidth, nullptr), NULLREGION);
    EXPECT_EQ(GetRgnBox(noHeight, nullptr), NULLREGION);
    EXPECT_EQ(Rects(thin), "(5,5,6,50)");
    for (HRGN r : {noWidth, noHeight, thin})
        DeleteObject(r);
    // Huge ellipses fail without an object.
    EXPECT_EQ(CreateEllipticRgn(0, 0, 3000000, 10), nullptr);
    EXPECT_EQ(CreateEllipticRgn(-2000000000, 0, 2000000000, 10), nullptr);
}

TEST(RegionRoundRect, StraightEdgesBetweenEllipticCorners)
{
    const RECT box = {0, 0, 100, 60};
    HRGN round = CreateRoundRectRgn(0, 0, 100, 60, 20, 16);
    HRGN corners = CreateEllipticRgn(0, 0, 20, 16);
    ASSERT_NE(round, nullptr);
    EXPECT_EQ(Box(round), "(0,0,100,60)");
    ExpectOneRunPerRowMirrored(round, box, 100);
    for (int y = 8; y < 52; ++y)
        EXPECT_EQ(RowRuns(round, y, -5, 105), (Runs{{0, 100}})) << "row " << y;
    EXPECT_EQ(RowRuns(round, 0, -5, 105), RowRuns(round, 59, -5, 105));
    // Each corner is the matching quarter of the corner ellipse.
    for (int y = 0; y < 8; ++y) {
        for (int x = 0; x < 10; ++x) {
            const bool inCorner = PtInRegion(corners, x, y);
            EXPECT_EQ(PtInRegion(round, x, y), inCorner) << x << "," << y;
            EXPECT_EQ(PtInRegion(round, x + 80 + 10, y), PtInRegion(corners, x + 10, y)) << x << "," << y;
            EXPECT_EQ(PtInRegion(round, x, y + 52), PtInRegion(corners, x, y + 8)) << x << "," << y;
        }
    }
    EXPECT_FALSE(PtInRegion(round, 0, 0));
    EXPECT_TRUE(PtInRegion(round, 50, 0));
    EXPECT_TRUE(PtInRegion(round, 0, 30));
    for (HRGN r : {round, corners})
        DeleteObject(r);
}

// No corners give the rectangle, corners as large as the box the ellipse,
// and negative corner sizes count as positive.
TEST(RegionRoundRect, CornerSizesAtTheirLimits)
{
    HRGN rect = CreateRectRgn(0, 0, 30, 20);
    for (const auto &size : {std::pair<int, int>{0, 0}, {0, 10}, {10, 0}, {1, 1}}) {
        HRGN round = CreateRoundRectRgn(0, 0, 30, 20, size.first, size.second);
        EXPECT_TRUE(EqualRgn(round, rect)) << size.first << "x" << size.second;
        DeleteObject(round);
    }
    HRGN inverted = CreateRoundRectRgn(30, 20, 0, 0, 0, 0);
    EXPECT_TRUE(EqualRgn(inverted, rect));
    HRGN ellipse = CreateEllipticRgn(10, 10, 110, 70);
    HRGN exact = CreateRoundRectRgn(10, 10, 110, 70, 100, 60);
    HRGN larger = CreateRoundRectRgn(10, 10, 110, 70, 500, 900);
    EXPECT_TRUE(EqualRgn(exact, ellipse));
    EXPECT_TRUE(EqualRgn(larger, ellipse));
    HRGN positive = CreateRoundRectRgn(0, 0, 50, 40, 12, 8);
    HRGN negative = CreateRoundRectRgn(0, 0, 50, 40, -12, -8);
    EXPECT_TRUE(EqualRgn(positive, negative));
    for (HRGN r : {rect, inverted, ellipse, exact, larger, positive, negative})
        DeleteObject(r);
}
