// Region objects: a logical object whose screen slot holds a GdkRegion,
// freed with the object.  Creation of rectangle regions and the type of a
// region live here; the other shapes, the arithmetic and the queries have
// files of their own.
#include "gdi/vorlregion.h"

#include "gdi/vorlgdiobject.h"
#include "gdi/vorlregionrect.h"
#include "gtk/vorlgtklock.h"

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
