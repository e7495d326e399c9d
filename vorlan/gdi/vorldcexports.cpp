// Exported attribute, selection and save-stack calls of contexts.
#include "gdi/vorldccall.h"

using vorlan::CallOnDC;
using vorlan::CallOnTrustedDC;
using vorlan::DeviceContext;

HGDIOBJ WINAPI SelectObject(HDC hdc, HGDIOBJ h)
{
    return CallOnDC(hdc, HGDIOBJ(nullptr), [&](DeviceContext *dc) { return dc->SelectObject(h); });
}

HGDIOBJ WINAPI GetCurrentObject(HDC hdc, UINT type)
{
    return CallOnDC(hdc, HGDIOBJ(nullptr), [&](DeviceContext *dc) { return dc->GetCurrentObject(type); });
}

HPALETTE WINAPI SelectPalette(HDC hdc, HPALETTE hPal, BOOL bForceBkgd)
{
    return CallOnDC(hdc, HPALETTE(nullptr), [&](DeviceContext *dc) { return dc->SelectPalette(hPal, bForceBkgd); });
}

int WINAPI SaveDC(HDC hdc)
{
    return CallOnDC(hdc, 0, [&](DeviceContext *dc) { return dc->SaveDC(); });
}

BOOL WINAPI RestoreDC(HDC hdc, int nSavedDC)
{
    return CallOnDC(hdc, FALSE, [&](DeviceContext *dc) { return dc->RestoreDC(nSavedDC); });
}

HWND WINAPI WindowFromDC(HDC hdc)
{
    return CallOnDC(hdc, HWND(nullptr), [&](DeviceContext *dc) { return dc->WindowFromDC(); });
}

int WINAPI SetBkMode(HDC hdc, int mode)
{
    return CallOnDC(hdc, 0, [&](DeviceContext *dc) { return dc->SetBkMode(mode); });
}

int WINAPI GetBkMode(HDC hdc)
{
    return CallOnDC(hdc, 0, [&](DeviceContext *dc) { return dc->GetBkMode(); });
}

int WINAPI SetPolyFillMode(HDC hdc, int mode)
{
    return CallOnDC(hdc, 0, [&](DeviceContext *dc) { return dc->SetPolyFillMode(mode); });
}

int WINAPI GetPolyFillMode(HDC hdc)
{
    return CallOnDC(hdc, 0, [&](DeviceContext *dc) { return dc->GetPolyFillMode(); });
}

int WINAPI SetROP2(HDC hdc, int rop2)
{
    return CallOnDC(hdc, 0, [&](DeviceContext *dc) { return dc->SetROP2(rop2); });
}

int WINAPI GetROP2(HDC hdc)
{
    return CallOnDC(hdc, 0, [&](DeviceContext *dc) { return dc->GetROP2(); });
}

int WINAPI SetStretchBltMode(HDC hdc, int mode)
{
    return CallOnDC(hdc, 0, [&](DeviceContext *dc) { return dc->SetStretchBltMode(mode); });
}

DWORD WINAPI SetMapperFlags(HDC hdc, DWORD flags)
{
    return CallOnDC(hdc, DWORD(0), [&](DeviceContext *dc) { return dc->SetMapperFlags(flags); });
}

BOOL WINAPI SetBrushOrgEx(HDC hdc, int x, int y, LPPOINT lppt)
{
    return CallOnDC(hdc, FALSE, [&](DeviceContext *dc) { return dc->SetBrushOrgEx(x, y, lppt); });
}

BOOL WINAPI GetBrushOrgEx(HDC hdc, LPPOINT lppt)
{
    return CallOnDC(hdc, FALSE, [&](DeviceContext *dc) { return dc->GetBrushOrgEx(lppt); });
}

COLORREF WINAPI SetTextColor(HDC hdc, COLORREF color)
{
    return CallOnDC(hdc, CLR_INVALID, [&](DeviceContext *dc) { return dc->SetTextColor(color); });
}

COLORREF WINAPI GetTextColor(HDC hdc)
{
    return CallOnDC(hdc, CLR_INVALID, [&](DeviceContext *dc) { return dc->GetTextColor(); });
}

COLORREF WINAPI SetBkColor(HDC hdc, COLORREF color)
{
    return CallOnDC(hdc, CLR_INVALID, [&](DeviceContext *dc) { return dc->SetBkColor(color); });
}

COLORREF WINAPI GetBkColor(HDC hdc)
{
    return CallOnDC(hdc, CLR_INVALID, [&](DeviceContext *dc) { return dc->GetBkColor(); });
}

int WINAPI GetDeviceCaps(HDC hdc, int index)
{
    return CallOnDC(hdc, -1, [&](DeviceContext *dc) { return dc->GetDeviceCaps(index); });
}

int WINAPI SetTextCharacterExtra(HDC hdc, int extra)
{
    return CallOnDC(hdc, int(0x80000000), [&](DeviceContext *dc) { return dc->SetTextCharacterExtra(extra); });
}

int WINAPI GetTextCharacterExtra(HDC hdc)
{
    return CallOnDC(hdc, int(0x80000000), [&](DeviceContext *dc) { return dc->GetTextCharacterExtra(); });
}

// These four and MoveToEx expect a valid context and set no error for a
// handle that isn't one.
DWORD WINAPI SetLayout(HDC hdc, DWORD l)
{
    return CallOnTrustedDC(hdc, GDI_ERROR, [&](DeviceContext *dc) { return dc->SetLayout(l); });
}

DWORD WINAPI GetLayout(HDC hdc)
{
    return CallOnTrustedDC(hdc, GDI_ERROR, [&](DeviceContext *dc) { return dc->GetLayout(); });
}

UINT WINAPI SetTextAlign(HDC hdc, UINT align)
{
    return CallOnTrustedDC(hdc, UINT(GDI_ERROR), [&](DeviceContext *dc) { return dc->SetTextAlign(align); });
}

UINT WINAPI GetTextAlign(HDC hdc)
{
    return CallOnTrustedDC(hdc, UINT(GDI_ERROR), [&](DeviceContext *dc) { return dc->GetTextAlign(); });
}

BOOL WINAPI MoveToEx(HDC hdc, int x, int y, LPPOINT lppt)
{
    return CallOnTrustedDC(hdc, FALSE, [&](DeviceContext *dc) { return dc->MoveToEx(x, y, lppt); });
}

DHANDLE RealizeObject(HDC hdc, HGDIOBJ object)
{
    return CallOnDC(hdc, DHANDLE(0), [&](DeviceContext *dc) { return dc->RealizeObject(object); });
}
