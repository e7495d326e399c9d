// Region objects: a logical object whose screen slot holds a GdkRegion,
// freed with the object.
#include "gdi/vorlgdiobject.h"
#include "gtk/vorlgtklock.h"

#include <cstdlib>

using vorlan::LogicalGdiObject;

namespace {

void DestroyGdkRegion(DHANDLE region)
{
    gdk_region_destroy(reinterpret_cast<GdkRegion *>(region));
}

// A region object that takes over `region`.
HRGN NewRegionObject(GdkRegion *region)
{
    LogicalGdiObject *object = LogicalGdiObject::Create(OBJ_REGION);
    if (object == nullptr) {
        gdk_region_destroy(region);
        return nullptr;
    }
    object->physical[vorlan::kScreenSlot] = {reinterpret_cast<DHANDLE>(region), DestroyGdkRegion, 0};
    return static_cast<HRGN>(object->handle);
}

} // namespace

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
    const GdkRectangle rect = {lprect->left, lprect->top, std::abs(lprect->right - lprect->left),
                               std::abs(lprect->bottom - lprect->top)};
    vorlan::GtkCriticalSection lock;
    GdkRegion *region = gdk_region_rectangle(&rect);
    if (region == nullptr)
        return nullptr;
    return NewRegionObject(region);
}
