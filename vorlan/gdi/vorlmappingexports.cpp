// Exported mapping calls and the conversion helpers built on them.
#include "gdi/vorldccall.h"

#include <cstdlib>

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
