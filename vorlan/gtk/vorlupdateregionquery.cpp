// What the application may ask of an update region, and LockWindowUpdate.
#include "gtk/vorlgtklock.h"
#include "gtk/vorlpaint.h"

namespace {

HWND g_hWndLocked;

// The common frame of the two queries: the owed frame paint first, then
// the region if any; with bErase the owed background erase.  Null when
// the window is bad or died.
vorlan::Window *WindowWithPaintOwedDone(HWND hWnd)
{
    if (vorlan::getWindowOrFail(hWnd) == nullptr)
        return nullptr;
    if (!vorlan::SendOwedNcPaint(hWnd))
        return nullptr;
    return vorlan::getWindow(hWnd);
}

void EraseIfOwed(vorlan::Window *pWnd, BOOL bErase)
{
    if (!bErase || !(pWnd->dwFlags & WF_ERASEPENDING))
        return;
    pWnd->dwFlags &= ~WF_ERASEPENDING;
    vorlan::SendEraseBackground(pWnd->hWnd);
}

} // namespace

int WINAPI GetUpdateRgn(HWND hWnd, HRGN hRgn, BOOL bErase)
{
    vorlan::GtkCriticalSection lock;
    if (vorlan::getWindow(hWnd) != nullptr && hRgn == nullptr) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return ERROR;
    }
    vorlan::Window *pWnd = WindowWithPaintOwedDone(hWnd);
    if (pWnd == nullptr)
        return ERROR;
    // Like the rectangle query, the answer only tells whether there is an
    // update region: 1, or 0 with hRgn emptied.
    if (pWnd->hUpdateRegion == nullptr) {
        SetRectRgn(hRgn, 0, 0, 0, 0);
        return 0;
    }
    if (CombineRgn(hRgn, pWnd->hUpdateRegion, nullptr, RGN_COPY) == ERROR)
        return 0;
    EraseIfOwed(pWnd, bErase);
    return 1;
}

BOOL WINAPI GetUpdateRect(HWND hWnd, LPRECT lpRect, BOOL bErase)
{
    vorlan::GtkCriticalSection lock;
    vorlan::Window *pWnd = WindowWithPaintOwedDone(hWnd);
    if (pWnd == nullptr)
        return FALSE;
    if (pWnd->hUpdateRegion == nullptr) {
        if (lpRect != nullptr)
            SetRectEmpty(lpRect);
        return FALSE;
    }
    if (lpRect != nullptr)
        GetRgnBox(pWnd->hUpdateRegion, lpRect);
    EraseIfOwed(pWnd, bErase);
    return TRUE;
}

BOOL WINAPI LockWindowUpdate(HWND hWndLock)
{
    vorlan::GtkCriticalSection lock;
    vorlan::Window *pWnd = vorlan::getWindow(hWndLock);
    if (hWndLock != nullptr && pWnd == nullptr) {
        SetLastError(ERROR_INVALID_WINDOW_HANDLE);
        return FALSE;
    }
    if (hWndLock == g_hWndLocked)
        return TRUE;
    if (vorlan::Window *previous = vorlan::getWindow(g_hWndLocked))
        previous->dwFlags &= ~WF_UPDATELOCKED;
    g_hWndLocked = hWndLock;
    if (pWnd != nullptr)
        pWnd->dwFlags |= WF_UPDATELOCKED;
    return TRUE;
}
