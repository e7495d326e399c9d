// Changing a region in place: moving it and making it a rectangle.
#include "gdi/vorlgdiobject.h"
#include "gdi/vorlregion.h"
#include "gdi/vorlregionrect.h"
#include "gtk/vorlgtklock.h"

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
