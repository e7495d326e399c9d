#include <gtest/gtest.h>

#include "support/dc_test_helpers.h"

#include <gdk-pixbuf/gdk-pixbuf.h>

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
