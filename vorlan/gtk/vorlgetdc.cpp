// Window DCs: GetDCEx and its short forms, ReleaseDC, and the answer to
// DeleteDC that keeps the DC of a CS_OWNDC window alive.
#include "gdi/screen/vorlscreendc.h"
#include "gtk/vorlgtklock.h"
#include "gtk/vorlpaint.h"
#include "gtk/vorlpumpdeps.h"
#include "gtk/vorlxwindow.h"
#include "vorlassert.h"
#include "vorlwindowclass.h"

#include <algorithm>

namespace {

struct FrameSizes {
    int x, top, bottom;
};

// The window manager draws a decorated window's frame; the DC draws only
// into the X window, which is the client part.
FrameSizes FrameOf(HWND hWnd)
{
    if (!IsWindowDecorated(hWnd))
        return {0, 0, 0};
    const int frameY = GetSystemMetrics(SM_CYFRAME);
    return {GetSystemMetrics(SM_CXFRAME), frameY + GetSystemMetrics(SM_CYCAPTION), frameY};
}

// Where the DC's output lies in the X window.
RECT OutputRect(const vorlan::Window *pWnd, DWORD flags)
{
    const FrameSizes frame = FrameOf(pWnd->hWnd);
    const RECT &window = pWnd->rcWindow;
    const RECT &client = pWnd->rcClient;
    RECT rect;
    if (flags & DCX_WINDOW) {
        rect = {0, 0, window.right - window.left - 2 * frame.x, window.bottom - window.top - frame.top - frame.bottom};
    } else {
        rect.left = client.left - window.left - frame.x;
        rect.top = client.top - window.top - frame.top;
        rect.right = rect.left + client.right - client.left;
        rect.bottom = rect.top + client.bottom - client.top;
    }
    // A child's X window is cut to its parent's client area: what sticks
    // out on the left or top moves the origin out of the X window.
    const vorlan::Window *parent = pWnd->pWndParent;
    if (parent != nullptr && parent->pWndParent != nullptr) {
        OffsetRect(&rect, -std::max<LONG>(0, parent->rcClient.left - window.left),
                   -std::max<LONG>(0, parent->rcClient.top - window.top));
    }
    return rect;
}

void AdoptAsWindowDC(vorlan::Window *pWnd, HDC dc, DWORD flags)
{
    if (!(flags & DCX_WINDOW) && !(flags & DCX_CACHE) && (pWnd->pClass->style & CS_OWNDC))
        pWnd->hDC = dc;
    if (pWnd->hUpdateRegion == nullptr)
        return;
    if (flags & DCX_INTERSECTUPDATE)
        _SetWindowDCUpdateRegion(dc, pWnd->hUpdateRegion);
    if (flags & DCX_VALIDATE) {
        DeleteObject(pWnd->hUpdateRegion);
        pWnd->hUpdateRegion = nullptr;
    }
}

} // namespace

HDC WINAPI GetDCEx(HWND hWnd, HRGN hrgnClip, DWORD flags)
{
    VORLAN_ASSERT("vorlan/gtk/vorlgetdc", hrgnClip == 0);
    vorlan::GtkCriticalSection lock;
    if (hWnd == nullptr)
        hWnd = GetDesktopWindow();
    vorlan::Window *pWnd = vorlan::getWindow(hWnd);
    if (pWnd == nullptr) {
        SetLastError(ERROR_INVALID_WINDOW_HANDLE);
        return nullptr;
    }
    if (!(flags & (DCX_WINDOW | DCX_CACHE)) && pWnd->hDC != nullptr)
        return pWnd->hDC;
    const RECT rect = OutputRect(pWnd, flags);
    HDC dc = GdiCreateWindowDC(hWnd, flags, GetGdkWindow(hWnd), &rect);
    if (dc != nullptr && GdiSetDeleteDCProc(dc, UserDeleteDCProc, hWnd))
        AdoptAsWindowDC(pWnd, dc, flags);
    return dc;
}

HDC WINAPI GetDC(HWND hWnd)
{
    const LONG style = GetWindowLongW(hWnd, GWL_STYLE);
    DWORD flags = 0;
    if (style & WS_CLIPCHILDREN)
        flags |= DCX_CLIPCHILDREN;
    if (style & WS_CLIPSIBLINGS)
        flags |= DCX_CLIPSIBLINGS;
    return GetDCEx(hWnd, nullptr, flags);
}

HDC WINAPI GetWindowDC(HWND hWnd)
{
    return GetDCEx(hWnd, nullptr, DCX_WINDOW);
}

int WINAPI ReleaseDC(HWND hWnd, HDC hDC)
{
    vorlan::GtkCriticalSection lock;
    if (hWnd != nullptr && vorlan::getWindow(hWnd) == nullptr)
        return 0;
    DeleteDC(hDC);
    gdk_flush();
    return 1;
}

BOOL UserDeleteDCProc(HDC hdc, HWND hWnd)
{
    const vorlan::Window *pWnd = vorlan::getWindow(hWnd);
    if (pWnd == nullptr)
        return FALSE;
    return hdc != pWnd->hDC;
}
