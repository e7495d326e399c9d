// Validation: parts of update regions that need no painting any more.
#include "gtk/vorlpaint.h"

namespace vorlan {

static void DropUpdateRegion(Window *pWnd)
{
    DeleteObject(pWnd->hUpdateRegion);
    pWnd->hUpdateRegion = nullptr;
    pWnd->dwFlags &= ~WF_ERASEPENDING;
}

BOOL ValidateOneWindow(Window *pWnd, HRGN hrgn, UINT flags)
{
    if (flags & RDW_NOFRAME)
        pWnd->dwFlags &= ~WF_NCPAINTPENDING;
    if (pWnd->hUpdateRegion == nullptr)
        return TRUE;
    if (hrgn == nullptr) {
        DropUpdateRegion(pWnd);
        return TRUE;
    }
    const int type = CombineRgn(pWnd->hUpdateRegion, pWnd->hUpdateRegion, hrgn, RGN_DIFF);
    if (type == ERROR)
        return FALSE;
    if (type == NULLREGION)
        DropUpdateRegion(pWnd);
    else if (flags & RDW_NOERASE)
        pWnd->dwFlags &= ~WF_ERASEPENDING;
    return TRUE;
}

BOOL ValidateWindowCore(Window *pWnd, HRGN hrgn, UINT flags)
{
    HRGN area = ClientAreaRegion(pWnd);
    if (area == nullptr)
        return FALSE;
    if (hrgn != nullptr && CombineRgn(area, area, hrgn, RGN_AND) == ERROR) {
        DeleteObject(area);
        return FALSE;
    }
    const BOOL done = ValidateOneWindow(pWnd, area, flags);
    const bool toChildren =
        !(flags & RDW_NOCHILDREN) && ((flags & RDW_ALLCHILDREN) || !(pWnd->dwStyle & WS_CLIPCHILDREN));
    if (done && toChildren) {
        OffsetRgn(area, pWnd->rcClient.left, pWnd->rcClient.top);
        // Each child loses the part over its client area.
        PassToVisibleChildren(pWnd, area, &Window::rcClient, ValidateWindowCore, flags | RDW_NOFRAME);
    }
    DeleteObject(area);
    return done;
}

} // namespace vorlan
