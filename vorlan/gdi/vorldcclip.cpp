// The application's clip region of a context.  A context keeps its own copy
// of every region it is given, in device coordinates, so the caller may
// delete its region at once.
#include "gdi/vorldc.h"

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

int CommonDeviceContext::SelectClipRgn(HRGN region) { return setClipRegion(region); }

int CommonDeviceContext::GetClipRgn(HRGN region)
{
    if (dcState.hClipRegion == nullptr)
        return 0;
    return CopyRegionArea(region, dcState.hClipRegion) ? 1 : -1;
}

// The rectangle clip calls arrive with the rest of clipping.
int CommonDeviceContext::IntersectClipRect(int, int, int, int) { return ERROR; }

int CommonDeviceContext::ExcludeClipRect(int, int, int, int) { return ERROR; }

int CommonDeviceContext::GetClipBox(LPRECT rect)
{
    if (rect == nullptr) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return ERROR;
    }
    SetRectEmpty(rect);
    return ERROR;
}

BOOL CommonDeviceContext::RectVisible(const RECT *rect)
{
    if (rect == nullptr)
        SetLastError(ERROR_INVALID_PARAMETER);
    return FALSE;
}

int CommonDeviceContext::OffsetClipRgn(int, int) { return ERROR; }

} // namespace vorlan
