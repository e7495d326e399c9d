// Small geometry helpers of the drawing code.
#include "gdi/vorldc.h"

#include <cerrno>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <new>
#include <unistd.h>
#include <utility>

namespace vorlan {

void NormalizeXYWH(int &x, int &y, int &w, int &h)
{
    if (w < 0) {
        x += w;
        w = -w;
    }
    if (h < 0) {
        y += h;
        h = -h;
    }
}

void NormalizeRect(RECT &rc)
{
    if (rc.left > rc.right)
        std::swap(rc.left, rc.right);
    if (rc.top > rc.bottom)
        std::swap(rc.top, rc.bottom);
}

namespace {

constexpr double kPi = 3.1415926;

// Whole degrees of the direction from the centre to a point, y upward.
int RadialAngle(int cx, int cy, int x, int y)
{
    const int dy = cy - y;
    const int dx = x - cx;
    if (dx == 0)
        return dy >= 1 ? 90 : 270;
    return static_cast<int>(std::atan2(static_cast<double>(dy), static_cast<double>(dx)) * 180.0 / kPi + 0.5);
}

} // namespace

void calcRadial(int &cx, int &cy, int l, int t, int r, int b, int x1, int y1, int x2, int y2, int &a1, int &a2)
{
    cx = l + ((r - l) >> 1);
    cy = t + ((b - t) >> 1);
    a1 = RadialAngle(cx, cy, x1, y1);
    while (a1 < 0)
        a1 += 360;
    a2 = RadialAngle(cx, cy, x2, y2);
    while (a2 < a1)
        a2 += 360;
}

// Rows are as wide as width x channels, rounded up to 4 bytes.
void MirrorImage(GdkPixbuf *pixbuf, BOOL flipX, BOOL flipY)
{
    if (pixbuf == nullptr || (!flipX && !flipY))
        return;
    const int width = gdk_pixbuf_get_width(pixbuf);
    const int height = gdk_pixbuf_get_height(pixbuf);
    const int channels = gdk_pixbuf_get_n_channels(pixbuf);
    const int stride = (width * channels + 3) & ~3;
    guchar *pixels = gdk_pixbuf_get_pixels(pixbuf);
    if (flipX) {
        for (int row = 0; row < height; ++row) {
            guchar *line = pixels + static_cast<size_t>(row) * stride;
            for (int left = 0, right = width - 1; left < right; ++left, --right) {
                for (int c = 0; c < channels; ++c)
                    std::swap(line[left * channels + c], line[right * channels + c]);
            }
        }
    }
    if (flipY) {
        const size_t rowBytes = static_cast<size_t>(width) * channels;
        for (int top = 0, bottom = height - 1; top < bottom; ++top, --bottom) {
            guchar *a = pixels + static_cast<size_t>(top) * stride;
            guchar *b = pixels + static_cast<size_t>(bottom) * stride;
            for (size_t i = 0; i < rowBytes; ++i)
                std::swap(a[i], b[i]);
        }
    }
}

namespace {

// 0 until first asked; the path limit plus room for a terminator and one
// more character.
long s_pathMax = 0;
constexpr long kGuessedPathMax = 1024;

} // namespace

char *pathAlloc(int *size)
{
    if (s_pathMax == 0) {
        errno = 0;
        const long limit = pathconf("/", _PC_PATH_MAX);
        if (limit < 0) {
            if (errno != 0)
                std::perror("pathconf error for _PC_PATH_MAX");
            s_pathMax = kGuessedPathMax;
        } else {
            s_pathMax = limit;
        }
        s_pathMax += 2;
    }
    char *buffer = new (std::nothrow) char[s_pathMax]();
    if (buffer == nullptr)
        std::perror("new mem error for pathname");
    if (size != nullptr)
        *size = static_cast<int>(s_pathMax);
    return buffer;
}

BOOL IsRootWindow(GdkDrawable *drawable)
{
    return drawable != nullptr && drawable == gdk_get_default_root_window();
}

} // namespace vorlan
