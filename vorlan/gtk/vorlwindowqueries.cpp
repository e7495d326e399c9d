// What the message queues ask about a window: its thread, whether it lives,
// whether it lies below another window, and the two paint states.
//
// A handle that the window table knows is answered from its window object;
// any other handle goes on to the stand-in answers.  The caller holds the
// toolkit lock, which guards the table.
#include "gtk/vorlpumpdeps.h"

#include "gtk/vorlwindow.h"

namespace vorlan {

DWORD WindowThreadId(HWND hWnd)
{
    if (const Window *pWnd = getWindow(hWnd))
        return pWnd->dwThreadId;
    return StandInWindowThreadId(hWnd);
}

bool WindowExists(HWND hWnd)
{
    return getWindow(hWnd) != nullptr || StandInWindowExists(hWnd);
}

bool WindowIsDescendant(HWND parent, HWND hWnd)
{
    if (parent == nullptr)
        return false;
    const Window *pWnd = getWindow(hWnd);
    if (pWnd == nullptr)
        return StandInWindowIsDescendant(parent, hWnd);
    for (const Window *above = pWnd->pWndParent; above != nullptr; above = above->pWndParent) {
        if (above->hWnd == parent)
            return true;
    }
    return false;
}

bool TakeNcPaintPending(HWND hWnd)
{
    Window *pWnd = getWindow(hWnd);
    if (pWnd == nullptr)
        return TakeStandInNcPaintPending(hWnd);
    const bool pending = (pWnd->dwFlags & WF_NCPAINTPENDING) != 0;
    pWnd->dwFlags &= ~static_cast<DWORD>(WF_NCPAINTPENDING);
    return pending;
}

bool HasUpdateRegion(HWND hWnd)
{
    if (const Window *pWnd = getWindow(hWnd))
        return pWnd->hUpdateRegion != nullptr;
    return StandInHasUpdateRegion(hWnd);
}

} // namespace vorlan
