// The application's clip region of a context.  A context keeps its own copy
// of every region it is given, in device coordinates, so the caller may
// delete its region at once.
#include "gdi/vorldc.h"
#include "gdi/vorlregion.h"

namespace vorlan {

// A region that is no live region object leaves the clip as it was.
int CommonDeviceContext::setClipRegion(HRGN region)
{
    if (region == nullptr) {
        if (dcState.hClipRegion != nullptr)
            DeleteObject(dcState.hClipRegion);
        dcState.hClipRegion = nullptr;
        setGdkRegionToDevice(hUpdateRegion != nullptr ? GetGdkRegion(hUpdateRegion) : nullptr);
        return NULLREGION;
    }
    if (GetGdkRegion(region) == nullptr)
        return ERROR;
    if (dcState.hClipRegion == nullptr)
        dcState.hClipRegion = CreateRectRgn(0, 0, 1, 1);
    if (!CopyRegionArea(dcState.hClipRegion, region))
        return ERROR;
    GdkRegion *clip = GetGdkRegion(dcState.hClipRegion);
    if (hUpdateRegion != nullptr && GetGdkRegion(hUpdateRegion) != nullptr) {
        GdkRegion *combined = gdk_region_copy(clip);
        gdk_region_intersect(combined, GetGdkRegion(hUpdateRegion));
        setGdkRegionToDevice(combined);
        gdk_region_destroy(combined);
    } else {
        setGdkRegionToDevice(clip);
    }
    return COMPLEXREGION;
}

// The device's own result of setClipRegion only tells success; the caller
// learns what is left to draw on.
int CommonDeviceContext::SelectClipRgn(HRGN region)
{
    if (setClipRegion(region) == ERROR)
        return ERROR;
    return visibleRegionType();
}

int CommonDeviceContext::visibleRegionType()
{
    HRGN visible = CreateRectRgn(0, 0, 0, 0);
    if (visible == nullptr)
        return ERROR;
    const int type = GetVisibleRgn(visible);
    DeleteObject(visible);
    return type;
}

int CommonDeviceContext::selectClipArea(GdkRegion *area)
{
    HRGN region = AdoptGdkRegion(area);
    if (region == nullptr)
        return ERROR;
    const int type = SelectClipRgn(region);
    DeleteObject(region);
    return type;
}

int CommonDeviceContext::GetClipRgn(HRGN region)
{
    if (dcState.hClipRegion == nullptr)
        return 0;
    return CopyRegionArea(region, dcState.hClipRegion) ? 1 : -1;
}

} // namespace vorlan
