// Region objects: creation of every shape, arithmetic, queries, and
// painting regions on a device context.
#include "gdi/vorlregion.h"

#include "gdi/vorldc.h"
#include "gdi/vorlgdiobject.h"
#include "gtk/vorlgtklock.h"
#include "vorlassert.h"

#include <algorithm>
#include <climits>
#include <cstdlib>
#include <vector>

// ----------------------------------------------------------------------------
// Region objects: a logical object whose screen slot holds a GdkRegion,
// freed with the object.  Creation of rectangle regions and the type of a
// region live here; the other shapes, the arithmetic and the queries have
// files of their own.

using vorlan::LogicalGdiObject;

namespace {

void DestroyGdkRegion(DHANDLE region)
{
    gdk_region_destroy(reinterpret_cast<GdkRegion *>(region));
}

DHANDLE AsPhysical(GdkRegion *region)
{
    return reinterpret_cast<DHANDLE>(region);
}

} // namespace

HRGN vorlan::AdoptGdkRegion(GdkRegion *region)
{
    if (region == nullptr)
        return nullptr;
    LogicalGdiObject *object = LogicalGdiObject::Create(OBJ_REGION);
    if (object == nullptr) {
        gdk_region_destroy(region);
        return nullptr;
    }
    object->physical[kScreenSlot] = {AsPhysical(region), DestroyGdkRegion, 0};
    return static_cast<HRGN>(object->handle);
}

HRGN vorlan::createRgn(const GdkRegion *region)
{
    if (region == nullptr)
        return nullptr;
    return AdoptGdkRegion(gdk_region_copy(region));
}

BOOL vorlan::ReplaceGdkRegion(HRGN hrgn, GdkRegion *region)
{
    if (GetGdkRegion(hrgn) == nullptr) {
        gdk_region_destroy(region);
        return FALSE;
    }
    return SetPhysicalObject(hrgn, kScreenSlot, AsPhysical(region), DestroyGdkRegion, 0);
}

int vorlan::RegionAreaType(GdkRegion *area)
{
    if (area == nullptr)
        return ERROR;
    GdkRectangle *rectangles = nullptr;
    gint count = 0;
    gdk_region_get_rectangles(area, &rectangles, &count);
    g_free(rectangles);
    if (count == 0)
        return NULLREGION;
    return count == 1 ? SIMPLEREGION : COMPLEXREGION;
}

int checkRegionType(HRGN hrgn)
{
    return vorlan::RegionAreaType(GetGdkRegion(hrgn));
}

HRGN WINAPI CreateRectRgn(int x1, int y1, int x2, int y2)
{
    const RECT rect = {x1, y1, x2, y2};
    return CreateRectRgnIndirect(&rect);
}

// The origin is the left and top as given; only the size is made positive.
HRGN WINAPI CreateRectRgnIndirect(const RECT *lprect)
{
    if (lprect == nullptr) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    const GdkRectangle rect = vorlan::GdkRectWithAbsoluteSize(*lprect);
    vorlan::GtkCriticalSection lock;
    return vorlan::AdoptGdkRegion(gdk_region_rectangle(&rect));
}

// ----------------------------------------------------------------------------
// Conversions between Win32 rectangles and GdkRectangles.

namespace {

// A distance that does not fit an int becomes the nearest int.
int ClampToInt(long long value)
{
    return static_cast<int>(std::clamp<long long>(value, INT_MIN, INT_MAX));
}

int Span(LONG from, LONG to)
{
    return ClampToInt(static_cast<long long>(to) - from);
}

int AbsoluteSpan(LONG from, LONG to)
{
    return ClampToInt(std::llabs(static_cast<long long>(to) - from));
}

} // namespace

GdkRectangle vorlan::GdkRectFromRect(const RECT &rect)
{
    return {rect.left, rect.top, Span(rect.left, rect.right), Span(rect.top, rect.bottom)};
}

GdkRectangle vorlan::GdkRectWithAbsoluteSize(const RECT &rect)
{
    return {rect.left, rect.top, AbsoluteSpan(rect.left, rect.right), AbsoluteSpan(rect.top, rect.bottom)};
}

GdkRectangle vorlan::NormalizedGdkRect(const RECT &rect)
{
    return {std::min(rect.left, rect.right), std::min(rect.top, rect.bottom), AbsoluteSpan(rect.left, rect.right),
            AbsoluteSpan(rect.top, rect.bottom)};
}

RECT vorlan::RectFromGdkRect(const GdkRectangle &rect)
{
    return {rect.x, rect.y, ClampToInt(static_cast<long long>(rect.x) + rect.width),
            ClampToInt(static_cast<long long>(rect.y) + rect.height)};
}

// ----------------------------------------------------------------------------
// Elliptic and round-cornered rectangle regions.
//
// Both come from one scan conversion of an ellipse by integer midpoint
// steps.  Rows one pixel high are added from the top and the bottom edge
// towards the middle; each row is centred on the ellipse's middle column.
// A round-cornered rectangle is the ellipse of its corners with every row
// stretched by the part of the width that the corner ellipse does not
// cover, and the middle block the full height that is left.  An ellipse
// of an odd width is one pixel narrower than its box, on the right.

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

// ----------------------------------------------------------------------------
// Polygon regions.  ALTERNATE fills by the even-odd rule; every other mode
// by the winding rule.  The polygons of a poly-polygon are made one by one
// and merged: exclusive-or under ALTERNATE, so that overlaps cancel as the
// even-odd rule would have it, union under any other mode.

namespace {

GdkFillRule FillRuleOf(int mode)
{
    return mode == ALTERNATE ? GDK_EVEN_ODD_RULE : GDK_WINDING_RULE;
}

// The GdkRegion of one polygon; null for no points.  One or two points
// enclose nothing (and GDK's scan converter must not see a single point).
GdkRegion *PolygonRegion(const POINT *points, int count, int mode)
{
    if (points == nullptr || count <= 0)
        return nullptr;
    if (count < 3)
        return gdk_region_new();
    std::vector<GdkPoint> gdkPoints(count);
    for (int i = 0; i < count; ++i)
        gdkPoints[i] = {points[i].x, points[i].y};
    return gdk_region_polygon(gdkPoints.data(), count, FillRuleOf(mode));
}

} // namespace

HRGN WINAPI CreatePolygonRgn(const POINT *pptl, int cPoint, int iMode)
{
    vorlan::GtkCriticalSection lock;
    return vorlan::AdoptGdkRegion(PolygonRegion(pptl, cPoint, iMode));
}

// A polygon without points makes the whole call fail.
HRGN WINAPI CreatePolyPolygonRgn(const POINT *pptl, const INT *pc, int cPoly, int iMode)
{
    if (pptl == nullptr || pc == nullptr || cPoly <= 0)
        return nullptr;
    vorlan::GtkCriticalSection lock;
    GdkRegion *result = PolygonRegion(pptl, pc[0], iMode);
    const POINT *next = pptl + (result != nullptr ? pc[0] : 0);
    for (int i = 1; i < cPoly && result != nullptr; ++i) {
        GdkRegion *polygon = PolygonRegion(next, pc[i], iMode);
        if (polygon == nullptr) {
            gdk_region_destroy(result);
            return nullptr;
        }
        if (iMode == ALTERNATE)
            gdk_region_xor(result, polygon);
        else
            gdk_region_union(result, polygon);
        gdk_region_destroy(polygon);
        next += pc[i];
    }
    return vorlan::AdoptGdkRegion(result);
}

// ----------------------------------------------------------------------------
// CombineRgn: the result is worked out on a copy of the first source and
// then replaces the destination's region, so the destination may be one of
// the sources.

namespace {

bool IsCombineMode(int mode)
{
    return mode >= RGN_AND && mode <= RGN_COPY;
}

void ApplyCombineMode(GdkRegion *result, const GdkRegion *other, int mode)
{
    switch (mode) {
    case RGN_AND:
        gdk_region_intersect(result, other);
        break;
    case RGN_OR:
        gdk_region_union(result, other);
        break;
    case RGN_XOR:
        gdk_region_xor(result, other);
        break;
    case RGN_DIFF:
        gdk_region_subtract(result, other);
        break;
    default: // RGN_COPY: the copy is the result
        break;
    }
}

} // namespace

// The second source is not looked at for RGN_COPY.
int WINAPI CombineRgn(HRGN hrgnDst, HRGN hrgnSrc1, HRGN hrgnSrc2, int iMode)
{
    vorlan::GtkCriticalSection lock;
    if (iMode == RGN_COPY && hrgnDst == hrgnSrc1)
        return checkRegionType(hrgnDst);
    GdkRegion *destination = GetGdkRegion(hrgnDst);
    GdkRegion *source1 = GetGdkRegion(hrgnSrc1);
    GdkRegion *source2 = GetGdkRegion(hrgnSrc2);
    if (destination == nullptr || source1 == nullptr || !IsCombineMode(iMode))
        return ERROR;
    if (iMode != RGN_COPY && source2 == nullptr)
        return ERROR;
    GdkRegion *temp = gdk_region_copy(source1);
    VORLAN_ASSERT(temp);
    ApplyCombineMode(temp, source2, iMode);
    vorlan::ReplaceGdkRegion(hrgnDst, temp);
    return checkRegionType(hrgnDst);
}

// ----------------------------------------------------------------------------
// Changing a region in place: moving it and making it a rectangle.

// An empty region is not moved and gives ERROR rather than NULLREGION.
int WINAPI OffsetRgn(HRGN hrgn, int x, int y)
{
    vorlan::GtkCriticalSection lock;
    GdkRegion *region = GetGdkRegion(hrgn);
    if (region == nullptr || gdk_region_empty(region))
        return ERROR;
    gdk_region_offset(region, x, y);
    return checkRegionType(hrgn);
}

// Unlike CreateRectRgn, the corners may come in either order.
BOOL WINAPI SetRectRgn(HRGN hrgn, int left, int top, int right, int bottom)
{
    const RECT corners = {left, top, right, bottom};
    const GdkRectangle rect = vorlan::NormalizedGdkRect(corners);
    vorlan::GtkCriticalSection lock;
    if (GetGdkRegion(hrgn) == nullptr)
        return FALSE;
    return vorlan::ReplaceGdkRegion(hrgn, gdk_region_rectangle(&rect));
}

// ----------------------------------------------------------------------------
// Questions put to a region: its box, whether it holds a point or touches
// a rectangle, whether two regions are equal.

namespace {

// The region of a handle, or null when there is none or it is empty.
GdkRegion *NonEmptyRegion(HRGN hrgn)
{
    GdkRegion *region = GetGdkRegion(hrgn);
    return region != nullptr && !gdk_region_empty(region) ? region : nullptr;
}

} // namespace

// A handle that holds no region reads as an empty one; only the null
// handle fails.
int WINAPI GetRgnBox(HRGN hrgn, LPRECT lprc)
{
    if (hrgn == nullptr)
        return ERROR;
    vorlan::GtkCriticalSection lock;
    GdkRegion *region = NonEmptyRegion(hrgn);
    if (region == nullptr) {
        if (lprc != nullptr)
            *lprc = {0, 0, 0, 0};
        return NULLREGION;
    }
    if (lprc != nullptr) {
        GdkRectangle box;
        gdk_region_get_clipbox(region, &box);
        *lprc = vorlan::RectFromGdkRect(box);
    }
    return checkRegionType(hrgn);
}

BOOL WINAPI PtInRegion(HRGN hrgn, int x, int y)
{
    vorlan::GtkCriticalSection lock;
    GdkRegion *region = NonEmptyRegion(hrgn);
    return region != nullptr && gdk_region_point_in(region, x, y);
}

// True when any pixel of the rectangle lies in the region.  Corners given
// the wrong way round (as mapping modes with y growing upwards produce)
// are put in order; an empty rectangle holds no pixel.
BOOL WINAPI RectInRegion(HRGN hrgn, const RECT *lprect)
{
    if (lprect == nullptr)
        return FALSE;
    GdkRectangle rect = vorlan::NormalizedGdkRect(*lprect);
    if (rect.width == 0 || rect.height == 0)
        return FALSE;
    vorlan::GtkCriticalSection lock;
    GdkRegion *region = NonEmptyRegion(hrgn);
    if (region == nullptr)
        return FALSE;
    const GdkOverlapType overlap = gdk_region_rect_in(region, &rect);
    return overlap == GDK_OVERLAP_RECTANGLE_IN || overlap == GDK_OVERLAP_RECTANGLE_PART;
}

// ERROR when either handle holds no region.
BOOL WINAPI EqualRgn(HRGN hrgn1, HRGN hrgn2)
{
    vorlan::GtkCriticalSection lock;
    GdkRegion *region1 = GetGdkRegion(hrgn1);
    GdkRegion *region2 = GetGdkRegion(hrgn2);
    if (region1 == nullptr || region2 == nullptr)
        return ERROR;
    return gdk_region_equal(region1, region2);
}

// ----------------------------------------------------------------------------
// Painting a region with a brush.  The region becomes the clip for the
// length of the call and the brush fills its box through the context's own
// Rectangle operation under a null pen, so each kind of context paints
// regions the way it paints rectangles.

namespace {

// The clip a context had before the call, put back at the end.
class SavedClip {
public:
    explicit SavedClip(HDC hdc) : m_hdc(hdc), m_region(CreateRectRgn(0, 0, 0, 0))
    {
        if (m_region != nullptr && GetClipRgn(hdc, m_region) != 1) {
            DeleteObject(m_region);
            m_region = nullptr;
        }
    }
    ~SavedClip()
    {
        SelectClipRgn(m_hdc, m_region);
        if (m_region != nullptr)
            DeleteObject(m_region);
    }
    SavedClip(const SavedClip &) = delete;
    SavedClip &operator=(const SavedClip &) = delete;

    HRGN region() const { return m_region; }

private:
    HDC m_hdc;
    HRGN m_region;
};

// The region where the brush may paint, in device units: the region moved
// by the image of the logical origin, cut by the present clip.  Null when
// that leaves nothing.
HRGN PaintArea(HDC hdc, HRGN hrgn, const SavedClip &clip)
{
    POINT origin = {0, 0};
    if (!LPtoDP(hdc, &origin, 1))
        return nullptr;
    HRGN area = vorlan::createRgn(GetGdkRegion(hrgn));
    if (area == nullptr)
        return nullptr;
    OffsetRgn(area, origin.x, origin.y);
    if (clip.region() != nullptr && CombineRgn(area, area, clip.region(), RGN_AND) < SIMPLEREGION) {
        DeleteObject(area);
        return nullptr;
    }
    return area;
}

// The context's own Rectangle, under the lock the caller holds.
void FillBox(HDC hdc, HBRUSH hbr, const RECT &box)
{
    if (GetObjectType(hbr) != OBJ_BRUSH)
        return;
    HPEN nullPen = CreatePen(PS_NULL, 0, 0);
    HGDIOBJ oldPen = SelectObject(hdc, nullPen);
    HGDIOBJ oldBrush = SelectObject(hdc, hbr);
    if (oldBrush != nullptr) {
        vorlan::GetDeviceContext(hdc)->Rectangle(box.left, box.top, box.right + 1, box.bottom + 1);
        SelectObject(hdc, oldBrush);
    }
    if (oldPen != nullptr)
        SelectObject(hdc, oldPen);
    DeleteObject(nullPen);
}

} // namespace

BOOL WINAPI FillRgn(HDC hdc, HRGN hrgn, HBRUSH hbr)
{
    vorlan::GtkCriticalSection lock;
    if (!vorlan::IsValidHDC(hdc))
        return FALSE;
    RECT box = {};
    GetRgnBox(hrgn, &box);
    if (IsRectEmpty(&box))
        return FALSE;
    SavedClip clip(hdc);
    HRGN area = PaintArea(hdc, hrgn, clip);
    if (area == nullptr)
        return FALSE;
    SelectClipRgn(hdc, area);
    if (hbr != nullptr)
        FillBox(hdc, hbr, box);
    DeleteObject(area);
    return TRUE;
}

// The frame is what shrinking the region by |w| and |h| takes away.
BOOL WINAPI FrameRgn(HDC hdc, HRGN hrgn, HBRUSH hbr, int w, int h)
{
    vorlan::GtkCriticalSection lock;
    if (!vorlan::IsValidHDC(hdc))
        return FALSE;
    GdkRegion *region = GetGdkRegion(hrgn);
    if (region == nullptr || gdk_region_empty(region))
        return FALSE;
    GdkRegion *inner = gdk_region_copy(region);
    gdk_region_shrink(inner, w < 0 ? -w : w, h < 0 ? -h : h);
    GdkRegion *frame = gdk_region_copy(region);
    gdk_region_subtract(frame, inner);
    gdk_region_destroy(inner);
    HRGN frameRegion = vorlan::AdoptGdkRegion(frame);
    if (frameRegion == nullptr)
        return FALSE;
    FillRgn(hdc, frameRegion, hbr);
    DeleteObject(frameRegion);
    return TRUE;
}

// Neither is provided on any context.
BOOL WINAPI PaintRgn(HDC, HRGN)
{
    vorlan::GtkCriticalSection lock;
    return FALSE;
}

BOOL WINAPI InvertRgn(HDC, HRGN)
{
    vorlan::GtkCriticalSection lock;
    return FALSE;
}
