// Exported drawing calls: lines, shapes, pixels, pattern blits, flood fills.
#include "gdi/vorldc.h"
#include "vorlassert.h"

#include <vector>

using vorlan::CallOnDC;
using vorlan::DeviceContext;

namespace {

// A point array the call may read: not null, and long enough.
bool IsPointArray(const POINT *points, int count, int least)
{
    if (points == nullptr || count < least) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return false;
    }
    return true;
}

// The area to fill, device coordinates: the polygons' region cut by the
// context's clip; null when nothing of it is left.
HRGN PolyPolygonArea(DeviceContext *dc, const POINT *points, const INT *counts, int polygons)
{
    size_t total = 0;
    for (int i = 0; i < polygons; ++i) {
        if (counts[i] <= 0)
            return nullptr;
        total += static_cast<size_t>(counts[i]);
    }
    std::vector<POINT> device(points, points + total);
    dc->LPtoDP(device.data(), static_cast<int>(total));
    HRGN area = CreatePolyPolygonRgn(device.data(), counts, polygons, dc->GetPolyFillMode());
    if (area == nullptr)
        return nullptr;
    HRGN clip = CreateRectRgn(0, 0, 0, 0);
    int type = SIMPLEREGION;
    if (clip != nullptr && dc->GetClipRgn(clip) == 1)
        type = CombineRgn(area, area, clip, RGN_AND);
    if (clip != nullptr)
        DeleteObject(clip);
    RECT box = {};
    if (type < SIMPLEREGION || GetRgnBox(area, &box) == NULLREGION || IsRectEmpty(&box)) {
        DeleteObject(area);
        return nullptr;
    }
    return area;
}

// The pixel calls under the toolkit lock: a handle that is no context gives
// CLR_INVALID and clears the last error.
template <typename Call> COLORREF CallOnPixel(HDC hdc, Call call)
{
    vorlan::GtkCriticalSection lock;
    DeviceContext *dc = vorlan::GetDeviceContext(hdc);
    if (dc == nullptr) {
        SetLastError(0);
        return CLR_INVALID;
    }
    return call(dc);
}

} // namespace

BOOL WINAPI LineTo(HDC hdc, int x, int y)
{
    return CallOnDC(hdc, FALSE, [&](DeviceContext *dc) { return dc->LineTo(x, y); });
}

BOOL WINAPI Polyline(HDC hdc, const POINT *apt, int cpt)
{
    return CallOnDC(hdc, FALSE,
                    [&](DeviceContext *dc) { return IsPointArray(apt, cpt, 1) ? dc->Polyline(apt, cpt) : FALSE; });
}

BOOL WINAPI Polygon(HDC hdc, const POINT *apt, int cpt)
{
    return CallOnDC(hdc, FALSE,
                    [&](DeviceContext *dc) { return IsPointArray(apt, cpt, 2) ? dc->Polygon(apt, cpt) : FALSE; });
}

// The brush fills the region of the polygons: the context is clipped to it
// and its bounding box drawn as a rectangle, so that the pen shows only
// where the box's outline lies inside the region.
BOOL WINAPI PolyPolygon(HDC hdc, const POINT *apt, const INT *asz, int csz)
{
    return CallOnDC(hdc, FALSE, [&](DeviceContext *dc) -> BOOL {
        if (apt == nullptr || asz == nullptr || csz <= 0) {
            SetLastError(ERROR_INVALID_PARAMETER);
            return FALSE;
        }
        HRGN area = PolyPolygonArea(dc, apt, asz, csz);
        if (area == nullptr)
            return FALSE;
        RECT box = {};
        GetRgnBox(area, &box);
        dc->DPtoLP(reinterpret_cast<POINT *>(&box), 2);
        HRGN saved = CreateRectRgn(0, 0, 0, 0);
        const bool hadClip = saved != nullptr && dc->GetClipRgn(saved) == 1;
        dc->SelectClipRgn(area);
        dc->Rectangle(box.left, box.top, box.right, box.bottom);
        dc->SelectClipRgn(hadClip ? saved : nullptr);
        if (saved != nullptr)
            DeleteObject(saved);
        DeleteObject(area);
        return TRUE;
    });
}

BOOL WINAPI Rectangle(HDC hdc, int left, int top, int right, int bottom)
{
    return CallOnDC(hdc, FALSE, [&](DeviceContext *dc) { return dc->Rectangle(left, top, right, bottom); });
}

BOOL WINAPI RoundRect(HDC hdc, int left, int top, int right, int bottom, int width, int height)
{
    return CallOnDC(hdc, FALSE, [&](DeviceContext *dc) {
        if (width == 0 || height == 0)
            return dc->Rectangle(left, top, right, bottom);
        return dc->RoundRect(left, top, right, bottom, width, height);
    });
}

BOOL WINAPI Ellipse(HDC hdc, int left, int top, int right, int bottom)
{
    return CallOnDC(hdc, FALSE, [&](DeviceContext *dc) { return dc->Ellipse(left, top, right, bottom); });
}

BOOL WINAPI Arc(HDC hdc, int x1, int y1, int x2, int y2, int x3, int y3, int x4, int y4)
{
    return CallOnDC(hdc, FALSE, [&](DeviceContext *dc) { return dc->Arc(x1, y1, x2, y2, x3, y3, x4, y4); });
}

BOOL WINAPI Chord(HDC hdc, int x1, int y1, int x2, int y2, int x3, int y3, int x4, int y4)
{
    return CallOnDC(hdc, FALSE, [&](DeviceContext *dc) { return dc->Chord(x1, y1, x2, y2, x3, y3, x4, y4); });
}

BOOL WINAPI Pie(HDC hdc, int left, int top, int right, int bottom, int xr1, int yr1, int xr2, int yr2)
{
    return CallOnDC(hdc, FALSE,
                    [&](DeviceContext *dc) { return dc->Pie(left, top, right, bottom, xr1, yr1, xr2, yr2); });
}

BOOL WINAPI PatBlt(HDC hdc, int x, int y, int w, int h, DWORD rop)
{
    return CallOnDC(hdc, FALSE, [&](DeviceContext *dc) { return dc->PatBlt(x, y, w, h, rop); });
}

COLORREF WINAPI SetPixel(HDC hdc, int x, int y, COLORREF color)
{
    return CallOnPixel(hdc, [&](DeviceContext *dc) { return dc->SetPixel(x, y, color); });
}

COLORREF WINAPI GetPixel(HDC hdc, int x, int y)
{
    return CallOnPixel(hdc, [&](DeviceContext *dc) { return dc->GetPixel(x, y); });
}

BOOL WINAPI SetPixelV(HDC hdc, int x, int y, COLORREF color)
{
    const COLORREF result = SetPixel(hdc, x, y, color);
    if (result == CLR_INVALID || result == static_cast<COLORREF>(-2))
        SetLastError(0);
    return result != CLR_INVALID;
}

BOOL WINAPI FloodFill(HDC hdc, int x, int y, COLORREF color)
{
    return CallOnDC(hdc, FALSE, [&](DeviceContext *dc) { return dc->FloodFill(x, y, color); });
}

BOOL WINAPI ExtFloodFill(HDC hdc, int x, int y, COLORREF color, UINT type)
{
    return CallOnDC(hdc, FALSE, [&](DeviceContext *dc) { return dc->ExtFloodFill(x, y, color, type); });
}

// The shapes and colour updates every concrete context must draw itself.

namespace vorlan {

BOOL CommonDeviceContext::LineTo(int, int)
{
    VORLAN_FAIL("false");
}

BOOL CommonDeviceContext::Polyline(const POINT *, int)
{
    VORLAN_FAIL("false");
}

BOOL CommonDeviceContext::Rectangle(int, int, int, int)
{
    VORLAN_FAIL("false");
}

BOOL CommonDeviceContext::RoundRect(int, int, int, int, int, int)
{
    VORLAN_FAIL("false");
}

BOOL CommonDeviceContext::Ellipse(int, int, int, int)
{
    VORLAN_FAIL("false");
}

BOOL CommonDeviceContext::Polygon(const POINT *, int)
{
    VORLAN_FAIL("false");
}

BOOL CommonDeviceContext::Arc(int, int, int, int, int, int, int, int)
{
    VORLAN_FAIL("false");
}

BOOL CommonDeviceContext::Chord(int, int, int, int, int, int, int, int)
{
    VORLAN_FAIL("false");
}

BOOL CommonDeviceContext::Pie(int, int, int, int, int, int, int, int)
{
    VORLAN_FAIL("false");
}

} // namespace vorlan
