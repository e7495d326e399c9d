// Polygon regions.  ALTERNATE fills by the even-odd rule; every other mode
// by the winding rule.  The polygons of a poly-polygon are made one by one
// and merged: exclusive-or under ALTERNATE, so that overlaps cancel as the
// even-odd rule would have it, union under any other mode.
#include "gdi/vorlgdiobject.h"
#include "gdi/vorlregion.h"
#include "gtk/vorlgtklock.h"

#include <vector>

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
