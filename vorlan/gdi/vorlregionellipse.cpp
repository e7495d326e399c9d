// Elliptic and round-cornered rectangle regions.
//
// Both come from one scan conversion of an ellipse by integer midpoint
// steps.  Rows one pixel high are added from the top and the bottom edge
// towards the middle; each row is centred on the ellipse's middle column.
// A round-cornered rectangle is the ellipse of its corners with every row
// stretched by the part of the width that the corner ellipse does not
// cover, and the middle block the full height that is left.  An ellipse
// of an odd width is one pixel narrower than its box, on the right.
#include "gdi/vorlgdiobject.h"
#include "gdi/vorlregion.h"
#include "gdi/vorlregionrect.h"
#include "gtk/vorlgtklock.h"

#include <algorithm>
#include <cstdlib>

namespace {

// The widest or tallest ellipse that is scan converted; up to it the
// midpoint terms stay well inside 64 bits.  Larger ones fail.
constexpr long long kLargestEllipseSide = 1 << 20;

// The rows of one ellipse as they are found, added to a region.
class EllipseRows {
public:
    EllipseRows(GdkRegion *region, long long centreX, long long stretch, long long top, long long bottom)
        : region_(region), x_(centreX), stretch_(stretch), top_(top), bottom_(bottom)
    {
    }

    // One row at the top, which then moves down, and one at the bottom,
    // which moves up first.
    void addRowPair()
    {
        add(top_, 1);
        ++top_;
        --bottom_;
        add(bottom_, 1);
    }

    // One pixel more on each side of the centre.
    void widen()
    {
        --x_;
        width_ += 2;
    }

    // The block between the two row positions.
    void addMiddle() { add(top_, bottom_ - top_); }

private:
    void add(long long y, long long height)
    {
        const GdkRectangle row = {static_cast<gint>(x_), static_cast<gint>(y), static_cast<gint>(width_ + stretch_),
                                  static_cast<gint>(height)};
        if (row.width > 0 && row.height > 0)
            gdk_region_union_with_rect(region_, &row);
    }

    GdkRegion *region_;
    long long x_;
    long long width_ = 0;
    long long stretch_;
    long long top_;
    long long bottom_;
};

// Adds an ellipse `width` by `height` whose box starts at (left, top) and
// whose bottom row position starts at `bottom`, every row `stretch` wider.
// Both axes are at least 2 long.
void ScanEllipse(GdkRegion *region, long long left, long long top, long long bottom, long long width, long long height,
                 long long stretch)
{
    const long long a2 = width * width / 4;
    const long long b2 = height * height / 4;
    long long dy = height * a2;
    long long dx = 0;
    long long d = b2 - dy / 2 + a2 / 4;
    EllipseRows rows(region, left + width / 2, stretch, top, bottom);

    // The flat part near the top and bottom: a row is finished whenever the
    // midpoint falls outside.
    while (dy > dx) {
        if (d > 0) {
            rows.addRowPair();
            dy -= 2 * a2;
            d -= dy;
        }
        rows.widen();
        dx += 2 * b2;
        d += b2 + dx;
    }

    // The steep part at the sides: one row each step, widening while the
    // midpoint lies inside.
    if (dy >= 0) {
        long long d2 = d + (3 * (a2 - b2) / 2 - (dx + dy)) / 2;
        long long e = dy - 2 * a2;
        long long f = a2 - e;
        for (;;) {
            rows.addRowPair();
            if (d2 < 0) {
                rows.widen();
                dx += 2 * b2;
                d2 += dx;
            }
            e -= 2 * a2;
            f += 2 * a2;
            if (e + 2 * a2 < 0)
                break;
            d2 += f - 2 * a2;
        }
    }
    rows.addMiddle();
}

// The region of `box` with its corners cut by an ellipse of `cornerWidth`
// by `cornerHeight`, both already cut to the box.  The rows of the corner
// ellipse are stretched by `stretch`.  A corner ellipse shorter than 2 on
// either axis leaves the plain rectangle.  Small ellipses can reach a pixel
// past the box on the left; nothing outside the box is kept.
GdkRegion *CutCornersRegion(const RECT &box, long long cornerWidth, long long cornerHeight, long long stretch)
{
    const GdkRectangle rect = vorlan::NormalizedGdkRect(box);
    if (cornerWidth < 2 || cornerHeight < 2)
        return gdk_region_rectangle(&rect);
    if (cornerWidth > kLargestEllipseSide || cornerHeight > kLargestEllipseSide)
        return nullptr;
    GdkRegion *region = gdk_region_new();
    ScanEllipse(region, rect.x, rect.y, static_cast<long long>(rect.y) + rect.height, cornerWidth, cornerHeight,
                stretch);
    GdkRegion *inBox = gdk_region_rectangle(&rect);
    gdk_region_intersect(region, inBox);
    gdk_region_destroy(inBox);
    return region;
}

long long Side(LONG from, LONG to)
{
    return std::llabs(static_cast<long long>(to) - from);
}

} // namespace

HRGN WINAPI CreateEllipticRgn(int x1, int y1, int x2, int y2)
{
    const RECT box = {x1, y1, x2, y2};
    vorlan::GtkCriticalSection lock;
    return vorlan::AdoptGdkRegion(CutCornersRegion(box, Side(x1, x2), Side(y1, y2), 0));
}

HRGN WINAPI CreateEllipticRgnIndirect(const RECT *lprect)
{
    if (lprect == nullptr) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    return CreateEllipticRgn(lprect->left, lprect->top, lprect->right, lprect->bottom);
}

// A corner ellipse larger than the rectangle is cut to it.  The rows of the
// corner ellipse are always an even number of pixels wide, so the stretch
// makes up the rest of the width and the shape is the same on both sides.
HRGN WINAPI CreateRoundRectRgn(int x1, int y1, int x2, int y2, int w, int h)
{
    const RECT box = {x1, y1, x2, y2};
    const long long width = Side(x1, x2);
    const long long cornerWidth = std::min(std::llabs(static_cast<long long>(w)), width);
    const long long cornerHeight = std::min(std::llabs(static_cast<long long>(h)), Side(y1, y2));
    const long long stretch = width - cornerWidth / 2 * 2;
    vorlan::GtkCriticalSection lock;
    return vorlan::AdoptGdkRegion(CutCornersRegion(box, cornerWidth, cornerHeight, stretch));
}
