// An exposed rectangle of a window's X window becomes an invalidation of
// its client area.
#include "gtk/vorlgtklock.h"
#include "gtk/vorlpaint.h"
#include "gtk/vorlpumpdeps.h"

void ExposeWindows(HWND hWnd, const RECT *rect)
{
    vorlan::Window *pWnd = vorlan::getWindow(hWnd);
    if (pWnd == nullptr) {
        SetLastError(ERROR_INVALID_WINDOW_HANDLE);
        return;
    }
    RECT area = *rect;
    // A child's X window is cut to its parent's client area, so its X
    // origin lies right of or below the window's own.
    const vorlan::Window *parent = pWnd->pWndParent;
    if (parent != nullptr && parent->pWndParent != nullptr) {
        if (pWnd->rcWindow.left < parent->rcClient.left)
            OffsetRect(&area, parent->rcClient.left - pWnd->rcWindow.left, 0);
        if (pWnd->rcWindow.top < parent->rcClient.top)
            OffsetRect(&area, 0, parent->rcClient.top - pWnd->rcWindow.top);
    }
    int frameX = 0, frameY = 0;
    if (IsWindowDecorated(hWnd)) {
        frameX = GetSystemMetrics(SM_CXFRAME);
        frameY = GetSystemMetrics(SM_CYFRAME) + GetSystemMetrics(SM_CYCAPTION);
    }
    OffsetRect(&area, frameX - (pWnd->rcClient.left - pWnd->rcWindow.left),
               frameY + (pWnd->rcWindow.top - pWnd->rcClient.top));
    // Every child has an X window of its own and gets an expose of its own.
    RedrawWindow(hWnd, &area, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_NOCHILDREN | RDW_FRAME);
}
