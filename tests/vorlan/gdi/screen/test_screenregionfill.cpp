// The screen context's hook for the region painting calls: a device region
// filled with the selected brush, inside the context's clip.
#include <gtest/gtest.h>

#include "gdi/screen/canvas.h"
#include "gdi/screen/vorlscreendc.h"
#include "gtk/vorlgtklock.h"

using namespace vorlan_test;

namespace {

BOOL FillArea(HDC hdc, const GdkRectangle &first, const GdkRectangle &second)
{
    vorlan::GtkCriticalSection lock;
    GdkRegion *area = gdk_region_rectangle(&first);
    gdk_region_union_with_rect(area, &second);
    ScreenContext *context = GetScreenContext(hdc);
    const BOOL done = context != nullptr && context->FillDeviceRegion(area);
    gdk_region_destroy(area);
    return done;
}

} // namespace

TEST(ScreenRegionFill, FillsEveryRectangleOfTheRegionInsideTheClipAndNothingElse)
{
    Canvas canvas;
    canvas.UseBrush(CreateSolidBrush(kBlue));
    EXPECT_TRUE(FillArea(canvas, GdkRectangle{2, 2, 4, 3}, GdkRectangle{10, 10, 2, 2}));
    EXPECT_EQ(canvas.Row(2, 1, 6, kBlue), ".####.");
    EXPECT_EQ(canvas.Column(2, 1, 5, kBlue), ".###.");
    EXPECT_EQ(canvas.At(10, 10), kBlue);
    EXPECT_EQ(canvas.At(11, 11), kBlue);
    EXPECT_EQ(canvas.Count(kBlue), 12 + 4);

    // Inside the clip only, and the clip is kept.
    canvas.Clear();
    HRGN clip = CreateRectRgn(0, 0, 4, 40);
    SelectClipRgn(canvas, clip);
    DeleteObject(clip);
    EXPECT_TRUE(FillArea(canvas, GdkRectangle{2, 2, 6, 2}, GdkRectangle{0, 0, 0, 0}));
    EXPECT_EQ(canvas.Row(2, 0, 8, kBlue), "..##.....");
    // The clip is the application's again afterwards.
    PatBlt(canvas, 0, 20, 10, 1, BLACKNESS);
    EXPECT_EQ(canvas.Row(20, 0, 8, kBlack), "####.....");
}

TEST(ScreenRegionFill, NullBrushPaintsNothing)
{
    Canvas canvas;
    canvas.UseBrush(static_cast<HBRUSH>(GetStockObject(NULL_BRUSH)));
    EXPECT_FALSE(FillArea(canvas, GdkRectangle{0, 0, 5, 5}, GdkRectangle{0, 0, 0, 0}));
    EXPECT_EQ(canvas.Count(kWhite), canvas.width() * canvas.height());
}

TEST(ScreenBackgroundMode, ModeAndColourReachTheGC)
{
    Canvas canvas;
    auto fill = [&] {
        vorlan::GtkCriticalSection lock;
        GdkGCValues values;
        gdk_gc_get_values(GetGdkGC(canvas), &values);
        return values.fill;
    };
    EXPECT_EQ(fill(), GDK_SOLID);
    EXPECT_EQ(SetBkMode(canvas, TRANSPARENT), OPAQUE);
    EXPECT_EQ(fill(), GDK_STIPPLED);
    EXPECT_EQ(SetBkMode(canvas, OPAQUE), TRANSPARENT);
    EXPECT_EQ(fill(), GDK_SOLID);
    EXPECT_EQ(GetBkMode(canvas), OPAQUE);
    // The background colour reaches the GC too.
    EXPECT_EQ(SetBkColor(canvas, kRed), kWhite);
    EXPECT_EQ(GetBkColor(canvas), kRed);
    vorlan::GtkCriticalSection lock;
    GdkGCValues values;
    gdk_gc_get_values(GetGdkGC(canvas), &values);
    EXPECT_EQ(values.background.pixel, 0xFF0000u);
}
