// An exposed rectangle of a window's X window becomes an invalidation of
// its client area.
#include "gtk/vorlgtklock.h"
#include "gtk/vorlpaint.h"
#include "gtk/vorlpumpdeps.h"
#include "gtk/vorlwindowpos.h"

void ExposeWindows(HWND hWnd, const RECT *rect)
{
    vorlan::Window *pWnd = vorlan::getWindowOrFail(hWnd);
    if (pWnd == nullptr)
        return;
    RECT area = *rect;
    // A child's X window is cut to its parent's client area, so its X
    // origin lies right of or below the window's own.
    const POINT overhang = vorlan::ParentOverhang(pWnd);
    const POINT frame = vorlan::FrameOrigin(hWnd);
    OffsetRect(&area, overhang.x + frame.x - (pWnd->rcClient.left - pWnd->rcWindow.left),
               overhang.y + frame.y + (pWnd->rcWindow.top - pWnd->rcClient.top));
    // Every child has an X window of its own and gets an expose of its own.
    RedrawWindow(hWnd, &area, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_NOCHILDREN | RDW_FRAME);
}
