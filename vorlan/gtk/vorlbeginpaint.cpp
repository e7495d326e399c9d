// The paint cycle of WM_PAINT: BeginPaint moves the update region into a
// DC that is clipped to it, EndPaint gives the DC back.
#include "gtk/vorlgtklock.h"
#include "gtk/vorlpaint.h"
#include "vorlassert.h"

namespace {

DWORD ClipFlagsOf(const vorlan::Window *pWnd)
{
    DWORD flags = 0;
    if (pWnd->dwStyle & WS_CLIPCHILDREN)
        flags |= DCX_CLIPCHILDREN;
    if (pWnd->dwStyle & WS_CLIPSIBLINGS)
        flags |= DCX_CLIPSIBLINGS;
    return flags;
}

// The DC to paint with, the update region moved into it.
HDC TakePaintDC(vorlan::Window *pWnd)
{
    if (pWnd->hDC == nullptr)
        return GetDCEx(pWnd->hWnd, nullptr, DCX_INTERSECTUPDATE | DCX_VALIDATE | ClipFlagsOf(pWnd));
    if (pWnd->hUpdateRegion != nullptr) {
        _SetWindowDCUpdateRegion(pWnd->hDC, pWnd->hUpdateRegion);
        DeleteObject(pWnd->hUpdateRegion);
        pWnd->hUpdateRegion = nullptr;
    }
    return pWnd->hDC;
}

// Both calls need a window and a PAINTSTRUCT; false with the error set.
bool CheckPaintArguments(HWND hWnd, const PAINTSTRUCT *lpPaint)
{
    if (vorlan::getWindowOrFail(hWnd) == nullptr)
        return false;
    if (lpPaint == nullptr) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return false;
    }
    return true;
}

} // namespace

HDC WINAPI BeginPaint(HWND hWnd, LPPAINTSTRUCT lpPaint)
{
    vorlan::GtkCriticalSection lock;
    if (!CheckPaintArguments(hWnd, lpPaint))
        return nullptr;
    if (!vorlan::SendOwedNcPaint(hWnd))
        return nullptr;
    vorlan::Window *pWnd = vorlan::getWindow(hWnd);
    HDC hdc = TakePaintDC(pWnd);
    if (hdc == nullptr)
        return nullptr;
    VORLAN_ASSERT("vorlan/gtk/vorlbeginpaint", pWnd->hUpdateRegion == (HRGN)NULL);
    HideCaret(hWnd);
    BOOL erase = FALSE;
    if (pWnd->dwFlags & WF_ERASEPENDING) {
        pWnd->dwFlags &= ~WF_ERASEPENDING;
        erase = SendMessageW(hWnd, WM_ERASEBKGND, reinterpret_cast<WPARAM>(hdc), 0) == 0;
    }
    lpPaint->hdc = hdc;
    lpPaint->fErase = erase;
    GetClipBox(hdc, &lpPaint->rcPaint);
    LPtoDP(hdc, reinterpret_cast<POINT *>(&lpPaint->rcPaint), 2);
    return hdc;
}

BOOL WINAPI EndPaint(HWND hWnd, const PAINTSTRUCT *lpPaint)
{
    vorlan::GtkCriticalSection lock;
    if (!CheckPaintArguments(hWnd, lpPaint))
        return FALSE;
    ReleaseDC(hWnd, lpPaint->hdc);
    vorlan::Window *pWnd = vorlan::getWindow(hWnd);
    if (pWnd != nullptr && lpPaint->hdc == pWnd->hDC)
        _SetWindowDCUpdateRegion(pWnd->hDC, nullptr);
    ShowCaret(hWnd);
    return TRUE;
}
