// The geometry helpers of the drawing code.
#include <gtest/gtest.h>

#include "gdi/dc_test_helpers.h"

#include <gdk-pixbuf/gdk-pixbuf.h>

#include <unistd.h>

#include <vector>

TEST(DrawingGeometry, NegativeSizesMoveIntoTheOrigin)
{
    int x = 10, y = 20, w = -4, h = 6;
    vorlan::NormalizeXYWH(x, y, w, h);
    EXPECT_EQ((std::vector<int>{x, y, w, h}), (std::vector<int>{6, 20, 4, 6}));
    x = 0, y = 0, w = 3, h = -3;
    vorlan::NormalizeXYWH(x, y, w, h);
    EXPECT_EQ((std::vector<int>{x, y, w, h}), (std::vector<int>{0, -3, 3, 3}));
    RECT rc = {9, 8, 1, 2};
    vorlan::NormalizeRect(rc);
    EXPECT_TRUE(vorlan_test::RectIs(rc, 1, 2, 9, 8));
}

TEST(DrawingGeometry, RadialAnglesAreWholeDegreesOnTheCircle)
{
    int cx, cy, a1, a2;
    // Right of the centre, then straight up.
    vorlan::calcRadial(cx, cy, 0, 0, 100, 50, 100, 25, 50, 0, a1, a2);
    EXPECT_EQ(cx, 50);
    EXPECT_EQ(cy, 25);
    EXPECT_EQ(a1, 0);
    EXPECT_EQ(a2, 90);
    // Straight down is 270; the end is pushed past the start.
    vorlan::calcRadial(cx, cy, 0, 0, 100, 50, 50, 40, 100, 25, a1, a2);
    EXPECT_EQ(a1, 270);
    EXPECT_EQ(a2, 360);
    // Not scaled by the box's aspect: 45 degrees by the points themselves.
    // The half is added before truncation towards zero, so -135 becomes
    // -134, and the end is only pushed past the start.
    vorlan::calcRadial(cx, cy, 0, 0, 100, 50, 60, 15, 40, 35, a1, a2);
    EXPECT_EQ(a1, 45);
    EXPECT_EQ(a2, 226);
    // A negative start gets 360 added.
    vorlan::calcRadial(cx, cy, 0, 0, 100, 100, 0, 100, 0, 100, a1, a2);
    EXPECT_EQ(a1, 226);
    EXPECT_EQ(a2, 226);
}

TEST(DrawingGeometry, MirrorImageFlipsRowsAndColumnsInPlace)
{
    GdkPixbuf *pixbuf = gdk_pixbuf_new(GDK_COLORSPACE_RGB, FALSE, 8, 3, 2);
    ASSERT_NE(pixbuf, nullptr);
    const int stride = gdk_pixbuf_get_rowstride(pixbuf);
    guchar *pixels = gdk_pixbuf_get_pixels(pixbuf);
    for (int row = 0; row < 2; ++row)
        for (int col = 0; col < 3; ++col)
            for (int c = 0; c < 3; ++c)
                pixels[row * stride + col * 3 + c] = static_cast<guchar>(row * 100 + col * 10 + c);
    auto at = [&](int row, int col) { return pixels[row * stride + col * 3]; };
    vorlan::MirrorImage(pixbuf, FALSE, FALSE);
    EXPECT_EQ(at(0, 0), 0);
    vorlan::MirrorImage(pixbuf, TRUE, FALSE);
    EXPECT_EQ(at(0, 0), 20);
    EXPECT_EQ(at(0, 1), 10);
    EXPECT_EQ(at(0, 2), 0);
    EXPECT_EQ(pixels[0 * stride + 0 * 3 + 2], 22);
    vorlan::MirrorImage(pixbuf, FALSE, TRUE);
    EXPECT_EQ(at(0, 0), 120);
    EXPECT_EQ(at(1, 2), 0);
    vorlan::MirrorImage(pixbuf, TRUE, TRUE);
    EXPECT_EQ(at(0, 0), 0);
    EXPECT_EQ(at(1, 2), 120);
    vorlan::MirrorImage(nullptr, TRUE, TRUE);
    g_object_unref(pixbuf);
}

TEST(DrawingGeometry, PathBufferIsZeroedAndSizedByThePathLimitAndTheRootWindowIsRecognised)
{
    int size = 0;
    char *buffer = vorlan::pathAlloc(&size);
    ASSERT_NE(buffer, nullptr);
    long limit = pathconf("/", _PC_PATH_MAX);
    if (limit < 0)
        limit = 1024;
    EXPECT_EQ(size, limit + 2);
    for (int i = 0; i < size; ++i)
        ASSERT_EQ(buffer[i], 0);
    delete[] buffer;
    buffer = vorlan::pathAlloc(nullptr);
    EXPECT_NE(buffer, nullptr);
    delete[] buffer;
    // Only the root window is the root window.
    EXPECT_TRUE(vorlan::IsRootWindow(gdk_get_default_root_window()));
    EXPECT_FALSE(vorlan::IsRootWindow(nullptr));
    GdkPixmap *pixmap = gdk_pixmap_new(nullptr, 2, 2, 1);
    EXPECT_FALSE(vorlan::IsRootWindow(pixmap));
    g_object_unref(pixmap);
}
