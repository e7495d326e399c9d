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

// Each visible child loses the part of `screenArea` over its client area.
static void ValidateChildren(Window *pWnd, HRGN screenArea, UINT flags)
{
    for (Window *child = pWnd->pWndChild; child != nullptr; child = child->pWndNext) {
        if (!(child->dwStyle & WS_VISIBLE))
            continue;
        HRGN part = CreateRectRgnIndirect(&child->rcClient);
        if (part == nullptr)
            continue;
        const int type = CombineRgn(part, part, screenArea, RGN_AND);
        if (type != ERROR && type != NULLREGION) {
            OffsetRgn(part, -child->rcClient.left, -child->rcClient.top);
            ValidateWindowCore(child, part, flags | RDW_NOFRAME);
        }
        DeleteObject(part);
    }
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
        ValidateChildren(pWnd, area, flags);
    }
    DeleteObject(area);
    return done;
}

} // namespace vorlan
