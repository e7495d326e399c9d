// The painting clip of a window DC: the part of the window's update region
// that BeginPaint hands over.  It combines with the application's clip and
// is not part of the saved state.
#include "gdi/vorldc.h"
#include "gdi/vorlregion.h"
#include "gtk/vorlgtklock.h"
#include "gtk/vorlpaint.h"

namespace vorlan {

int CommonDeviceContext::setUpdateRgn(HRGN region)
{
    if (region == nullptr) {
        if (hUpdateRegion != nullptr)
            DeleteObject(hUpdateRegion);
        hUpdateRegion = nullptr;
    } else {
        if (GetGdkRegion(region) == nullptr)
            return ERROR;
        if (hUpdateRegion == nullptr)
            hUpdateRegion = CreateRectRgn(0, 0, 0, 0);
        if (!CopyRegionArea(hUpdateRegion, region))
            return ERROR;
    }
    GdkRegion *clip = GetGdkRegion(dcState.hClipRegion);
    GdkRegion *update = GetGdkRegion(hUpdateRegion);
    if (clip != nullptr && update != nullptr) {
        GdkRegion *combined = gdk_region_copy(clip);
        gdk_region_intersect(combined, update);
        setGdkRegionToDevice(combined);
        gdk_region_destroy(combined);
    } else {
        setGdkRegionToDevice(clip != nullptr ? clip : update);
    }
    return 1;
}

} // namespace vorlan

int _SetWindowDCUpdateRegion(HDC hdc, HRGN hrgn)
{
    vorlan::GtkCriticalSection lock;
    vorlan::CommonDeviceContext *context = vorlan::GetCommonDeviceContext(hdc);
    return context != nullptr ? context->setUpdateRgn(hrgn) : ERROR;
}
