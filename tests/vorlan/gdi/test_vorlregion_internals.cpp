#include <gtest/gtest.h>

#include "support/region_test_helpers.h"

#include "gdi/vorlgdiobject.h"
#include "gdi/vorlregion.h"
#include "gtk/vorlgtklock.h"

#include <climits>
#include <string>

using region_test::Rects;
using region_test::Str;

namespace {

std::string GdkStr(const GdkRectangle &r)
{
    return "x" + std::to_string(r.x) + " y" + std::to_string(r.y) + " " + std::to_string(r.width) + "x" +
           std::to_string(r.height);
}

} // namespace

// Plain conversion keeps the sign of the size, the absolute one the origin
// as given, the normalised one orders the corners; sizes beyond an int are
// cut.
TEST(RegionRectConversions, EachConversionTreatsCornersAndSizesItsOwnWay)
{
    EXPECT_EQ(GdkStr(vorlan::GdkRectFromRect({1, 2, 11, 22})), "x1 y2 10x20");
    EXPECT_EQ(GdkStr(vorlan::GdkRectFromRect({10, 20, 5, 30})), "x10 y20 -5x10");
    EXPECT_EQ(GdkStr(vorlan::GdkRectFromRect({3, 3, 3, 3})), "x3 y3 0x0");
    EXPECT_EQ(GdkStr(vorlan::GdkRectWithAbsoluteSize({10, 20, 5, 30})), "x10 y20 5x10");
    EXPECT_EQ(GdkStr(vorlan::GdkRectWithAbsoluteSize({10, 20, 0, 0})), "x10 y20 10x20");
    EXPECT_EQ(GdkStr(vorlan::NormalizedGdkRect({10, 20, 5, 30})), "x5 y20 5x10");
    EXPECT_EQ(GdkStr(vorlan::NormalizedGdkRect({10, 20, 0, 0})), "x0 y0 10x20");
    EXPECT_EQ(GdkStr(vorlan::NormalizedGdkRect({-1, -2, -3, -4})), "x-3 y-4 2x2");
    EXPECT_EQ(Str(vorlan::RectFromGdkRect({1, 2, 3, 4})), "(1,2,4,6)");
    EXPECT_EQ(Str(vorlan::RectFromGdkRect({-5, -5, 0, 0})), "(-5,-5,-5,-5)");
    EXPECT_EQ(vorlan::GdkRectWithAbsoluteSize({INT_MIN, 0, INT_MAX, 1}).width, INT_MAX);
    EXPECT_EQ(vorlan::GdkRectFromRect({INT_MAX, 0, INT_MIN, 1}).width, INT_MIN);
    EXPECT_EQ(vorlan::NormalizedGdkRect({INT_MAX, INT_MIN, INT_MIN, INT_MAX}).height, INT_MAX);
    EXPECT_EQ(vorlan::RectFromGdkRect({INT_MAX - 1, 0, 5, 1}).right, INT_MAX);
}

TEST(RegionFromGdk, AdoptedRegionIsUsedAsItIsAndAReplacedOneGoes)
{
    vorlan::GtkCriticalSection lock;
    const GdkRectangle first = {0, 0, 5, 5};
    const GdkRectangle second = {7, 7, 1, 1};
    GdkRegion *gdkRegion = gdk_region_rectangle(&first);
    HRGN region = vorlan::AdoptGdkRegion(gdkRegion);
    ASSERT_NE(region, nullptr);
    EXPECT_EQ(GetGdkRegion(region), gdkRegion);
    GdkRegion *replacement = gdk_region_rectangle(&second);
    EXPECT_TRUE(vorlan::ReplaceGdkRegion(region, replacement));
    EXPECT_EQ(GetGdkRegion(region), replacement);
    EXPECT_EQ(Rects(region), "(7,7,8,8)");
    EXPECT_EQ(vorlan::AdoptGdkRegion(nullptr), nullptr);
    DeleteObject(region);
}
