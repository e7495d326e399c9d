// Coordinate mapping: map modes, origins and extents, the conversions
// between logical and device coordinates, and the transform calls.
#include <windows.h>

#include "gdi/vorldc.h"

#include <climits>
#include <cmath>
#include <cstdlib>

// ----------------------------------------------------------------------------
// Coordinate mapping of a context: map modes, window and viewport origins
// and extents, and the affine transform built from them.
//
// Each change of an origin or extent rebuilds the logical-to-device
// transform and its inverse.  Conversions round halves towards positive
// infinity, in extended precision.

namespace vorlan {

namespace {

constexpr XFORM kIdentity = {1.0f, 0.0f, 0.0f, 1.0f, 0.0f, 0.0f};

// A result beyond the range of a LONG saturates; a result that isn't a
// number (only a transform built from infinite scales can give one) is 0.
LONG ToLong(long double value)
{
    if (std::isnan(value))
        return 0;
    if (value >= static_cast<long double>(INT_MAX))
        return INT_MAX;
    if (value <= static_cast<long double>(INT_MIN))
        return INT_MIN;
    return static_cast<LONG>(value);
}

// Viewport units per window unit along one axis.  A zero window extent
// collapses the axis onto the viewport origin instead of dividing by zero;
// such a transform has no inverse.
double AxisScale(LONG viewportExtent, LONG windowExtent)
{
    if (windowExtent == 0)
        return 0.0;
    return static_cast<double>(viewportExtent) / static_cast<double>(windowExtent);
}

// Extents of the metric and English modes: the screen's pixels over its
// size in the mode's logical units.
struct ModeExtents {
    SIZE viewport;
    SIZE window;
};

bool FixedModeExtents(int mode, int hs, int vs, int hr, int vr, ModeExtents &out)
{
    out.viewport = {hr, -vr};
    switch (mode) {
    case MM_TEXT:
        out.viewport = {1, 1};
        out.window = {1, 1};
        return true;
    case MM_LOMETRIC:
        out.window = {hs * 10, vs * 10};
        return true;
    case MM_HIMETRIC:
        out.window = {hs * 100, vs * 100};
        return true;
    case MM_LOENGLISH:
        out.window = {(hs * 1000 + 127) / 254, (vs * 1000 + 127) / 254};
        return true;
    case MM_HIENGLISH:
        out.window = {(hs * 10000 + 127) / 254, (vs * 10000 + 127) / 254};
        return true;
    case MM_TWIPS:
        out.window = {(hs * 14400 + 127) / 254, (vs * 14400 + 127) / 254};
        return true;
    default:
        return false;
    }
}

// A whole-number offset of a LONG, saturated like the general case.
LONG OffsetLong(LONG value, FLOAT offset)
{
    const long long sum = static_cast<long long>(value) + static_cast<long long>(offset);
    if (sum >= INT_MAX)
        return INT_MAX;
    if (sum <= INT_MIN)
        return INT_MIN;
    return static_cast<LONG>(sum);
}

// Offsets no larger than this are exact in a FLOAT and in a long long.
constexpr FLOAT kExactOffset = 16777216.0f;

bool IsWholeTranslation(const XFORM &xform)
{
    return xform.eM11 == 1.0f && xform.eM22 == 1.0f && xform.eM12 == 0.0f && xform.eM21 == 0.0f &&
           std::fabs(xform.eDx) <= kExactOffset && std::fabs(xform.eDy) <= kExactOffset &&
           xform.eDx == std::trunc(xform.eDx) && xform.eDy == std::trunc(xform.eDy);
}

} // namespace

POINT TransformPoint(const XFORM &xform, LONG x, LONG y)
{
    // The usual MM_TEXT mapping moves points by whole numbers: no rounding
    // to do, and drawing calls convert points all the time.
    if (IsWholeTranslation(xform))
        return {OffsetLong(x, xform.eDx), OffsetLong(y, xform.eDy)};
    const long double lx = x;
    const long double ly = y;
    const long double dx = std::floor(lx * xform.eM11 + ly * xform.eM21 + xform.eDx + 0.5L);
    const long double dy = std::floor(lx * xform.eM12 + ly * xform.eM22 + xform.eDy + 0.5L);
    return {ToLong(dx), ToLong(dy)};
}

BOOL InvertXform(const XFORM &in, XFORM &out)
{
    const double det = static_cast<double>(in.eM22) * in.eM11 - static_cast<double>(in.eM12) * in.eM21;
    if (!std::isfinite(det) || std::fabs(det) < 1e-12)
        return FALSE;
    XFORM inverse;
    inverse.eM11 = static_cast<FLOAT>(in.eM22 / det);
    inverse.eM12 = static_cast<FLOAT>(-in.eM12 / det);
    inverse.eM21 = static_cast<FLOAT>(-in.eM21 / det);
    inverse.eM22 = static_cast<FLOAT>(in.eM11 / det);
    inverse.eDx = -in.eDx * inverse.eM11 - in.eDy * inverse.eM21;
    inverse.eDy = -in.eDx * inverse.eM12 - in.eDy * inverse.eM22;
    out = inverse;
    return TRUE;
}

void CommonDeviceContext::init_coordinate_system()
{
    dcState.ptViewportOrg = {0, 0};
    dcState.ptWindowOrg = {0, 0};
    dcState.szViewportExt = {1, 1};
    dcState.szWindowExt = {1, 1};
    dcState.xformWorld = kIdentity;
    dcState.xformWorldToDevice = kIdentity;
    dcState.xformDeviceToWorld = kIdentity;
}

void CommonDeviceContext::updateXforms()
{
    const double sx = AxisScale(dcState.szViewportExt.cx, dcState.szWindowExt.cx);
    const double sy = AxisScale(dcState.szViewportExt.cy, dcState.szWindowExt.cy);
    XFORM page;
    page.eM11 = static_cast<FLOAT>(sx);
    page.eM12 = 0.0f;
    page.eM21 = 0.0f;
    page.eM22 = static_cast<FLOAT>(sy);
    page.eDx = static_cast<FLOAT>(dcState.ptViewportOrg.x - sx * dcState.ptWindowOrg.x);
    page.eDy = static_cast<FLOAT>(dcState.ptViewportOrg.y - sy * dcState.ptWindowOrg.y);
    ::CombineTransform(&dcState.xformWorldToDevice, &dcState.xformWorld, &page);
    InvertXform(dcState.xformWorldToDevice, dcState.xformDeviceToWorld);
}

int CommonDeviceContext::GetMapMode() { return dcState.nMapMode; }

// The fixed modes take their extents from the screen's size; the others
// keep whatever extents are set.  MM_ISOTROPIC gets no aspect correction.
int CommonDeviceContext::SetMapMode(int mode)
{
    if (mode < 1)
        return 0;
    const int old = dcState.nMapMode;
    if (mode == old)
        return old;
    ModeExtents extents;
    if (FixedModeExtents(mode, GetDeviceCaps(HORZSIZE), GetDeviceCaps(VERTSIZE), GetDeviceCaps(HORZRES),
                         GetDeviceCaps(VERTRES), extents)) {
        dcState.szViewportExt = extents.viewport;
        dcState.szWindowExt = extents.window;
    }
    dcState.nMapMode = mode;
    updateXforms();
    return old;
}

BOOL CommonDeviceContext::GetWindowOrgEx(LPPOINT point)
{
    if (point == nullptr)
        return FALSE;
    *point = dcState.ptWindowOrg;
    return TRUE;
}

BOOL CommonDeviceContext::GetViewportOrgEx(LPPOINT point)
{
    if (point == nullptr)
        return FALSE;
    *point = dcState.ptViewportOrg;
    return TRUE;
}

BOOL CommonDeviceContext::SetWindowOrgEx(int x, int y, LPPOINT old)
{
    if (old != nullptr)
        *old = dcState.ptWindowOrg;
    dcState.ptWindowOrg = {x, y};
    updateXforms();
    return TRUE;
}

BOOL CommonDeviceContext::SetViewportOrgEx(int x, int y, LPPOINT old)
{
    if (old != nullptr)
        *old = dcState.ptViewportOrg;
    dcState.ptViewportOrg = {x, y};
    updateXforms();
    return TRUE;
}

BOOL CommonDeviceContext::SetWindowExtEx(int cx, int cy, LPSIZE old)
{
    if (old != nullptr)
        *old = dcState.szWindowExt;
    dcState.szWindowExt = {cx, cy};
    updateXforms();
    return TRUE;
}

BOOL CommonDeviceContext::SetViewportExtEx(int cx, int cy, LPSIZE old)
{
    if (old != nullptr)
        *old = dcState.szViewportExt;
    dcState.szViewportExt = {cx, cy};
    updateXforms();
    return TRUE;
}

// The sum wraps like the LONG arithmetic of the origin itself.
BOOL CommonDeviceContext::OffsetViewportOrgEx(int dx, int dy, LPPOINT old)
{
    if (old != nullptr)
        *old = dcState.ptViewportOrg;
    dcState.ptViewportOrg.x = static_cast<LONG>(static_cast<DWORD>(dcState.ptViewportOrg.x) + static_cast<DWORD>(dx));
    dcState.ptViewportOrg.y = static_cast<LONG>(static_cast<DWORD>(dcState.ptViewportOrg.y) + static_cast<DWORD>(dy));
    updateXforms();
    return TRUE;
}

// Not provided on these contexts: nothing changes.
BOOL CommonDeviceContext::OffsetWindowOrgEx(int, int, LPPOINT) { return FALSE; }

BOOL CommonDeviceContext::ScaleWindowExtEx(int, int, int, int, LPSIZE) { return FALSE; }

BOOL CommonDeviceContext::ScaleViewportExtEx(int, int, int, int, LPSIZE) { return FALSE; }

BOOL CommonDeviceContext::LPtoDP(LPPOINT points, int count)
{
    if (count == 0)
        return TRUE;
    if (count < 0 || points == nullptr)
        return FALSE;
    for (int i = 0; i < count; ++i)
        points[i] = TransformPoint(dcState.xformWorldToDevice, points[i].x, points[i].y);
    return TRUE;
}

BOOL CommonDeviceContext::DPtoLP(LPPOINT points, int count)
{
    if (count == 0)
        return TRUE;
    if (count < 0 || points == nullptr)
        return FALSE;
    for (int i = 0; i < count; ++i)
        points[i] = TransformPoint(dcState.xformDeviceToWorld, points[i].x, points[i].y);
    return TRUE;
}

} // namespace vorlan

// ----------------------------------------------------------------------------
// Exported mapping calls and the conversion helpers built on them.

using vorlan::CallOnDC;
using vorlan::DeviceContext;

int WINAPI SetMapMode(HDC hdc, int iMode)
{
    return CallOnDC(hdc, 0, [&](DeviceContext *dc) { return dc->SetMapMode(iMode); });
}

int WINAPI GetMapMode(HDC hdc)
{
    return CallOnDC(hdc, 0, [&](DeviceContext *dc) { return dc->GetMapMode(); });
}

BOOL WINAPI SetViewportOrgEx(HDC hdc, int x, int y, LPPOINT lppt)
{
    return CallOnDC(hdc, FALSE, [&](DeviceContext *dc) { return dc->SetViewportOrgEx(x, y, lppt); });
}

BOOL WINAPI SetViewportOrg(HDC hdc, int x, int y, LPPOINT lppt)
{
    return SetViewportOrgEx(hdc, x, y, lppt);
}

BOOL WINAPI GetViewportOrgEx(HDC hdc, LPPOINT lppoint)
{
    return CallOnDC(hdc, FALSE, [&](DeviceContext *dc) { return dc->GetViewportOrgEx(lppoint); });
}

BOOL WINAPI OffsetViewportOrgEx(HDC hdc, int x, int y, LPPOINT lppt)
{
    return CallOnDC(hdc, FALSE, [&](DeviceContext *dc) { return dc->OffsetViewportOrgEx(x, y, lppt); });
}

BOOL WINAPI SetViewportExtEx(HDC hdc, int x, int y, LPSIZE lpsz)
{
    return CallOnDC(hdc, FALSE, [&](DeviceContext *dc) { return dc->SetViewportExtEx(x, y, lpsz); });
}

BOOL WINAPI ScaleViewportExtEx(HDC hdc, int xn, int xd, int yn, int yd, LPSIZE lpsz)
{
    return CallOnDC(hdc, FALSE, [&](DeviceContext *dc) { return dc->ScaleViewportExtEx(xn, xd, yn, yd, lpsz); });
}

BOOL WINAPI SetWindowOrgEx(HDC hdc, int x, int y, LPPOINT lppt)
{
    return CallOnDC(hdc, FALSE, [&](DeviceContext *dc) { return dc->SetWindowOrgEx(x, y, lppt); });
}

BOOL WINAPI GetWindowOrgEx(HDC hdc, LPPOINT lppoint)
{
    return CallOnDC(hdc, FALSE, [&](DeviceContext *dc) { return dc->GetWindowOrgEx(lppoint); });
}

BOOL WINAPI OffsetWindowOrgEx(HDC hdc, int x, int y, LPPOINT lppt)
{
    return CallOnDC(hdc, FALSE, [&](DeviceContext *dc) { return dc->OffsetWindowOrgEx(x, y, lppt); });
}

BOOL WINAPI SetWindowExtEx(HDC hdc, int x, int y, LPSIZE lpsz)
{
    return CallOnDC(hdc, FALSE, [&](DeviceContext *dc) { return dc->SetWindowExtEx(x, y, lpsz); });
}

BOOL WINAPI ScaleWindowExtEx(HDC hdc, int xn, int xd, int yn, int yd, LPSIZE lpsz)
{
    return CallOnDC(hdc, FALSE, [&](DeviceContext *dc) { return dc->ScaleWindowExtEx(xn, xd, yn, yd, lpsz); });
}

BOOL WINAPI LPtoDP(HDC hdc, LPPOINT lppt, int c)
{
    return CallOnDC(hdc, FALSE, [&](DeviceContext *dc) { return dc->LPtoDP(lppt, c); });
}

BOOL WINAPI DPtoLP(HDC hdc, LPPOINT lppt, int c)
{
    return CallOnDC(hdc, FALSE, [&](DeviceContext *dc) { return dc->DPtoLP(lppt, c); });
}

namespace vorlan {

BOOL transforXY(HDC hdc, int *x, int *y)
{
    POINT point = {*x, *y};
    if (!::LPtoDP(hdc, &point, 1))
        return FALSE;
    *x = point.x;
    *y = point.y;
    return TRUE;
}

BOOL transforWidthAndHeight(HDC hdc, int *x, int *y, int *w, int *h)
{
    int right = *x + *w;
    int bottom = *y + *h;
    if (!transforXY(hdc, x, y) || !transforXY(hdc, &right, &bottom))
        return FALSE;
    *w = right - *x;
    *h = bottom - *y;
    return TRUE;
}

namespace {

using Conversion = BOOL(WINAPI *)(HDC, LPPOINT, int);

// The sizes are the absolute differences of the images of the origin and
// of the size's corner; a missing size counts as 0.
BOOL ConvertSize(Conversion convert, HDC hdc, int *cx, int *cy)
{
    POINT points[2] = {{0, 0}, {cx != nullptr ? *cx : 0, cy != nullptr ? *cy : 0}};
    if (!convert(hdc, points, 2))
        return FALSE;
    if (cx != nullptr)
        *cx = static_cast<int>(std::abs(static_cast<long long>(points[1].x) - points[0].x));
    if (cy != nullptr)
        *cy = static_cast<int>(std::abs(static_cast<long long>(points[1].y) - points[0].y));
    return TRUE;
}

} // namespace

BOOL TransLPSize2DPSize(HDC hdc, int *cx, int *cy) { return ConvertSize(::LPtoDP, hdc, cx, cy); }

BOOL TransDPSize2LPSize(HDC hdc, int *cx, int *cy) { return ConvertSize(::DPtoLP, hdc, cx, cy); }

void UpsetRectangle(int height, RECT *rc)
{
    const int h = std::abs(height);
    const LONG top = rc->top;
    rc->top = h - rc->bottom;
    rc->bottom = h - top;
}

void LeftRightRectangle(int width, RECT *rc)
{
    const LONG left = rc->left;
    rc->left = width - rc->right;
    rc->right = width - left;
}

} // namespace vorlan

// ----------------------------------------------------------------------------
// CombineTransform: the product of two affine transforms, the first applied
// first.

BOOL WINAPI CombineTransform(LPXFORM lpxfOut, const XFORM *lpxf1, const XFORM *lpxf2)
{
    if (lpxfOut == nullptr || lpxf1 == nullptr || lpxf2 == nullptr)
        return FALSE;
    // Both inputs are read before anything is written: the result may be
    // one of them.
    const XFORM a = *lpxf1;
    const XFORM b = *lpxf2;
    lpxfOut->eM11 = a.eM11 * b.eM11 + a.eM12 * b.eM21;
    lpxfOut->eM12 = a.eM11 * b.eM12 + a.eM12 * b.eM22;
    lpxfOut->eM21 = a.eM21 * b.eM11 + a.eM22 * b.eM21;
    lpxfOut->eM22 = a.eM21 * b.eM12 + a.eM22 * b.eM22;
    lpxfOut->eDx = a.eDx * b.eM11 + a.eDy * b.eM21 + b.eDx;
    lpxfOut->eDy = a.eDx * b.eM12 + a.eDy * b.eM22 + b.eDy;
    return TRUE;
}
