// Changes of a context's clip by rectangles and offsets given in logical
// coordinates.  Each builds the new clip in device coordinates and selects
// it, so the result is what SelectClipRgn reports.
#include "gdi/vorldc.h"
#include "gdi/vorlregion.h"

namespace vorlan {

namespace {

// Without a clip, exclusion starts from the whole 16-bit coordinate space.
constexpr GdkRectangle kWholeSpace = {-32768, -32768, 65535, 65535};

} // namespace

GdkRegion *CommonDeviceContext::deviceRectangleArea(int left, int top, int right, int bottom)
{
    POINT corners[2] = {{left, top}, {right, bottom}};
    if (!LPtoDP(corners, 2))
        return nullptr;
    RECT device = {corners[0].x, corners[0].y, corners[1].x, corners[1].y};
    NormalizeRect(device);
    const GdkRectangle box = {device.left, device.top, device.right - device.left, device.bottom - device.top};
    return gdk_region_rectangle(&box);
}

int CommonDeviceContext::IntersectClipRect(int left, int top, int right, int bottom)
{
    GdkRegion *area = deviceRectangleArea(left, top, right, bottom);
    if (area == nullptr)
        return ERROR;
    if (GdkRegion *clip = GetGdkRegion(dcState.hClipRegion))
        gdk_region_intersect(area, clip);
    return selectClipArea(area);
}

int CommonDeviceContext::ExcludeClipRect(int left, int top, int right, int bottom)
{
    GdkRegion *excluded = deviceRectangleArea(left, top, right, bottom);
    if (excluded == nullptr)
        return ERROR;
    GdkRegion *clip = GetGdkRegion(dcState.hClipRegion);
    GdkRegion *area = clip != nullptr ? gdk_region_copy(clip) : gdk_region_rectangle(&kWholeSpace);
    gdk_region_subtract(area, excluded);
    gdk_region_destroy(excluded);
    return selectClipArea(area);
}

// The offset is a distance in logical units: it is scaled by the mapping
// but not moved by the origins.
int CommonDeviceContext::OffsetClipRgn(int x, int y)
{
    GdkRegion *clip = GetGdkRegion(dcState.hClipRegion);
    if (clip == nullptr)
        return ERROR;
    POINT ends[2] = {{0, 0}, {x, y}};
    if (!LPtoDP(ends, 2))
        return ERROR;
    GdkRegion *area = gdk_region_copy(clip);
    gdk_region_offset(area, ends[1].x - ends[0].x, ends[1].y - ends[0].y);
    return selectClipArea(area);
}

} // namespace vorlan
