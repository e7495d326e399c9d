// Questions put to a region: its box, whether it holds a point or touches
// a rectangle, whether two regions are equal.
#include "gdi/vorlgdiobject.h"
#include "gdi/vorlregion.h"
#include "gdi/vorlregionrect.h"
#include "gtk/vorlgtklock.h"

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
