// Window DCs: GetDCEx and its short forms, ReleaseDC, and the answer to
// DeleteDC that keeps the DC of a CS_OWNDC window alive.
#include "gdi/screen/vorlscreendc.h"
#include "gtk/vorlgtklock.h"
#include "gtk/vorlpaint.h"
#include "gtk/vorlpumpdeps.h"
#include "gtk/vorlwindowpos.h"
#include "gtk/vorlxwindow.h"
#include "vorlassert.h"
#include "vorlwindowclass.h"

namespace {

// Where the DC's output lies in the X window.  The window manager draws a
// decorated window's frame; the X window is only the client part.
RECT OutputRect(const vorlan::Window *pWnd, DWORD flags)
{
    const POINT frame = vorlan::FrameOrigin(pWnd->hWnd);
    const RECT &window = pWnd->rcWindow;
    const RECT &client = pWnd->rcClient;
    RECT rect;
    if (flags & DCX_WINDOW) {
        const int frameBottom = IsWindowDecorated(pWnd->hWnd) ? GetSystemMetrics(SM_CYFRAME) : 0;
        rect = {0, 0, window.right - window.left - 2 * frame.x, window.bottom - window.top - frame.y - frameBottom};
    } else {
        rect.left = client.left - window.left - frame.x;
        rect.top = client.top - window.top - frame.y;
        rect.right = rect.left + client.right - client.left;
        rect.bottom = rect.top + client.bottom - client.top;
    }
    // What sticks out of the parent's client area moves the origin out of
    // the X window.
    const POINT overhang = vorlan::ParentOverhang(pWnd);
    OffsetRect(&rect, -overhang.x, -overhang.y);
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
    vorlan::Window *pWnd = vorlan::getWindowOrFail(hWnd);
    if (pWnd == nullptr)
        return nullptr;
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
