// Invalidation: the update region of a window grows, the window is queued
// for painting on the calling thread, and the children under the region
// get their share.
#include "gtk/vorlpaint.h"
#include "gtk/vorlthread.h"

namespace vorlan {

HRGN ClientAreaRegion(const Window *pWnd)
{
    return CreateRectRgn(0, 0, pWnd->rcClient.right - pWnd->rcClient.left,
                         pWnd->rcClient.bottom - pWnd->rcClient.top);
}

static void QueueOnCallingThread(HWND hWnd)
{
    ThreadData::GetCurrentThreadData()->QueuePaintMessage(hWnd);
}

// The client area cut to `hrgn`, or 0 when that fails.
static HRGN ClientPartOf(const Window *pWnd, HRGN hrgn)
{
    HRGN area = ClientAreaRegion(pWnd);
    if (area != nullptr && hrgn != nullptr && CombineRgn(area, area, hrgn, RGN_AND) == ERROR) {
        DeleteObject(area);
        return nullptr;
    }
    return area;
}

static bool MergeIntoUpdateRegion(Window *pWnd, HRGN area, UINT flags)
{
    if (pWnd->hUpdateRegion == nullptr) {
        pWnd->hUpdateRegion = area;
        if (flags & RDW_ERASE)
            pWnd->dwFlags |= WF_ERASEPENDING;
        else
            pWnd->dwFlags &= ~WF_ERASEPENDING;
        QueueOnCallingThread(pWnd->hWnd);
        return true;
    }
    // A merged region keeps the erase state it had; only a failed merge
    // makes sure an asked-for erase is not lost.
    const bool merged = CombineRgn(pWnd->hUpdateRegion, pWnd->hUpdateRegion, area, RGN_OR) != ERROR;
    DeleteObject(area);
    if (!merged && (flags & RDW_ERASE))
        pWnd->dwFlags |= WF_ERASEPENDING;
    return merged;
}

static bool PassesToChildren(const Window *pWnd, UINT flags)
{
    if (flags & RDW_NOCHILDREN)
        return false;
    if (!(flags & RDW_ALLCHILDREN) && (pWnd->dwStyle & WS_CLIPCHILDREN))
        return false;
    return pWnd->pWndChild != nullptr;
}

BOOL InvalidateWindowCore(Window *pWnd, HRGN hrgn, UINT flags)
{
    if (hrgn != nullptr) {
        RECT box;
        const int type = GetRgnBox(hrgn, &box);
        if (type == ERROR)
            return FALSE;
        if (IsRectEmpty(&box))
            return TRUE;
    }
    if ((flags & RDW_FRAME) && !(pWnd->dwFlags & WF_NCPAINTPENDING)) {
        pWnd->dwFlags |= WF_NCPAINTPENDING;
        QueueOnCallingThread(pWnd->hWnd);
    }
    HRGN area = ClientPartOf(pWnd, hrgn);
    if (area == nullptr)
        return FALSE;
    if (!MergeIntoUpdateRegion(pWnd, area, flags))
        return FALSE;
    if (!PassesToChildren(pWnd, flags))
        return TRUE;
    HRGN screenArea = ClientPartOf(pWnd, hrgn);
    if (screenArea == nullptr)
        return TRUE;
    RECT box;
    if (GetRgnBox(screenArea, &box) != NULLREGION && !IsRectEmpty(&box)) {
        OffsetRgn(screenArea, pWnd->rcClient.left, pWnd->rcClient.top);
        // Each child gets the part its window rectangle covers and owes a
        // frame paint.
        PassToVisibleChildren(pWnd, screenArea, &Window::rcWindow, InvalidateWindowCore, flags | RDW_FRAME);
    }
    DeleteObject(screenArea);
    return TRUE;
}

} // namespace vorlan

void InvalidateNC(HWND hWnd)
{
    vorlan::Window *pWnd = vorlan::getWindow(hWnd);
    if (pWnd == nullptr)
        return;
    pWnd->dwFlags |= WF_NCPAINTPENDING;
    vorlan::QueueOnCallingThread(hWnd);
}
