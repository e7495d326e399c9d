// Clipping of a device context: its clip and meta regions, the visible
// region, and the exported clip calls.
#include "gdi/vorldc.h"
#include "gdi/vorlregion.h"
#include "gtk/vorlwindow.h"

// ----------------------------------------------------------------------------
// The application's clip region of a context.  A context keeps its own copy
// of every region it is given, in device coordinates, so the caller may
// delete its region at once.

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

// ----------------------------------------------------------------------------
// Changes of a context's clip by rectangles and offsets given in logical
// coordinates.  Each builds the new clip in device coordinates and selects
// it, so the result is what SelectClipRgn reports.

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

// ----------------------------------------------------------------------------
// Copies of regions that a context keeps.  Everything goes through the
// region module, so the area of a region object is always a GdkRegion
// owned by the object.

namespace vorlan {

BOOL CopyRegionArea(HRGN dest, HRGN source)
{
    GdkRegion *sourceRegion = GetGdkRegion(source);
    if (sourceRegion == nullptr || GetGdkRegion(dest) == nullptr)
        return FALSE;
    if (dest == source)
        return TRUE;
    return ReplaceGdkRegion(dest, gdk_region_copy(sourceRegion));
}

BOOL ReplaceRegionArea(HRGN dest, GdkRegion *area) { return ReplaceGdkRegion(dest, area); }

HRGN CopyRegionObject(HRGN region) { return createRgn(GetGdkRegion(region)); }

} // namespace vorlan

// ----------------------------------------------------------------------------
// What of a context can be drawn on: its clip box and the visibility of a
// rectangle, both asked in logical coordinates, and the cut of a device
// rectangle to the visible area.

namespace vorlan {

namespace {

// An empty region object for GetVisibleRgn to fill, deleted with the scope.
class VisibleArea {
public:
    explicit VisibleArea(CommonDeviceContext *context)
        : m_region(CreateRectRgn(0, 0, 0, 0)), m_type(m_region != nullptr ? context->GetVisibleRgn(m_region) : ERROR)
    {
    }
    ~VisibleArea()
    {
        if (m_region != nullptr)
            DeleteObject(m_region);
    }
    VisibleArea(const VisibleArea &) = delete;
    VisibleArea &operator=(const VisibleArea &) = delete;

    HRGN region() const { return m_region; }
    int type() const { return m_type; }
    RECT box() const
    {
        RECT rc = {};
        GetRgnBox(m_region, &rc);
        return rc;
    }

private:
    HRGN m_region;
    int m_type;
};

bool FullyObscured(HWND window)
{
    return window != nullptr && (GetWindowLongW(window, GWL_VORLFLAGS) & WF_OBSCURED) != 0;
}

} // namespace

// Any visible area is reported as COMPLEXREGION, a single rectangle too.
int CommonDeviceContext::GetClipBox(LPRECT rect)
{
    if (rect == nullptr) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return ERROR;
    }
    SetRectEmpty(rect);
    VisibleArea visible(this);
    if (visible.type() <= NULLREGION)
        return visible.type();
    *rect = visible.box();
    DPtoLP(reinterpret_cast<LPPOINT>(rect), 2);
    return COMPLEXREGION;
}

// The caller's rectangle is read only; its device image is normalised
// before the test, so flipped mappings work.
BOOL CommonDeviceContext::RectVisible(const RECT *rect)
{
    if (rect == nullptr) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    if (FullyObscured(WindowFromDC()))
        return FALSE;
    VisibleArea visible(this);
    if (visible.type() < SIMPLEREGION)
        return FALSE;
    RECT device = *rect;
    if (!LPtoDP(reinterpret_cast<LPPOINT>(&device), 2))
        return FALSE;
    NormalizeRect(device);
    return RectInRegion(visible.region(), &device);
}

BOOL CommonDeviceContext::ClipDevRect(RECT *rect)
{
    if (rect == nullptr)
        return FALSE;
    VisibleArea visible(this);
    switch (visible.type()) {
    case ERROR:
        return FALSE;
    case NULLREGION:
        SetRectEmpty(rect);
        return TRUE;
    case SIMPLEREGION: {
        NormalizeRect(*rect);
        const RECT box = visible.box();
        IntersectRect(rect, rect, &box);
        return TRUE;
    }
    default: {
        NormalizeRect(*rect);
        const GdkRectangle wanted = {rect->left, rect->top, rect->right - rect->left, rect->bottom - rect->top};
        GdkRegion *overlap = gdk_region_rectangle(&wanted);
        gdk_region_intersect(overlap, GetGdkRegion(visible.region()));
        GdkRectangle box;
        gdk_region_get_clipbox(overlap, &box);
        gdk_region_destroy(overlap);
        SetRect(rect, box.x, box.y, box.x + box.width, box.y + box.height);
        return TRUE;
    }
    }
}

} // namespace vorlan

// ----------------------------------------------------------------------------
// Exported clip calls of contexts.  A handle that is no live context gives
// error 87 and the call's failure value.

using vorlan::CallOnDC;
using vorlan::DeviceContext;

int WINAPI SelectClipRgn(HDC hdc, HRGN hrgn)
{
    return CallOnDC(hdc, ERROR, [&](DeviceContext *dc) { return dc->SelectClipRgn(hrgn); });
}

int WINAPI GetClipRgn(HDC hdc, HRGN hrgn)
{
    return CallOnDC(hdc, -1, [&](DeviceContext *dc) { return dc->GetClipRgn(hrgn); });
}

int WINAPI IntersectClipRect(HDC hdc, int left, int top, int right, int bottom)
{
    return CallOnDC(hdc, ERROR, [&](DeviceContext *dc) { return dc->IntersectClipRect(left, top, right, bottom); });
}

int WINAPI ExcludeClipRect(HDC hdc, int left, int top, int right, int bottom)
{
    return CallOnDC(hdc, ERROR, [&](DeviceContext *dc) { return dc->ExcludeClipRect(left, top, right, bottom); });
}

int WINAPI OffsetClipRgn(HDC hdc, int x, int y)
{
    return CallOnDC(hdc, ERROR, [&](DeviceContext *dc) { return dc->OffsetClipRgn(x, y); });
}

int WINAPI GetClipBox(HDC hdc, LPRECT lprect)
{
    return CallOnDC(hdc, ERROR, [&](DeviceContext *dc) { return dc->GetClipBox(lprect); });
}

BOOL WINAPI RectVisible(HDC hdc, const RECT *lprect)
{
    return CallOnDC(hdc, FALSE, [&](DeviceContext *dc) { return dc->RectVisible(lprect); });
}
