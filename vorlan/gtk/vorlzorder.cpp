// Stacking.  A parent's child list runs in the X stacking order, from the
// bottom up, so a child moves in the list and in X together.  Top-level
// windows are stacked by the window manager: they only move in X.
#include "gtk/vorlpumpdeps.h"
#include "gtk/vorlwindow.h"
#include "gtk/vorlwindowpos.h"
#include "gtk/vorlwindowtree.h"
#include "gtk/vorlxerror.h"
#include "gtk/vorlxwindow.h"

#include <gdk/gdkx.h>

namespace {

// Stacks the child's X window right above the sibling's.
void StackAbove(HWND hWnd, HWND sibling)
{
    vorlan::TemporaryXErrorHandler trap;
    XWindowChanges changes = {};
    changes.sibling = GetXWindow(sibling);
    changes.stack_mode = Above;
    XConfigureWindow(GetXDisplay(hWnd), GetXWindow(hWnd), CWSibling | CWStackMode, &changes);
}

// A child goes behind a sibling, or first or last; anything else that is
// not a sibling of the window puts it on top.
HWND ChildLinkPosition(const vorlan::Window *pWnd, HWND hWndAfter)
{
    if (hWndAfter == LINK_FIRST_CHILD || hWndAfter == LINK_LAST_CHILD)
        return hWndAfter;
    const vorlan::Window *sibling = vorlan::getWindow(hWndAfter);
    if (sibling == nullptr || sibling == pWnd || sibling->pWndParent != pWnd->pWndParent)
        return LINK_LAST_CHILD;
    return hWndAfter;
}

void RestackChild(vorlan::Window *pWnd, HWND hWndAfter)
{
    const HWND hWnd = pWnd->hWnd;
    hWndAfter = ChildLinkPosition(pWnd, hWndAfter);
    const HWND parent = pWnd->pWndParent->hWnd;
    UnlinkWindow(hWnd);
    LinkWindowEx(hWnd, parent, hWndAfter);
    if (pWnd->window == nullptr)
        return;
    if (hWndAfter == LINK_FIRST_CHILD)
        gdk_window_lower(pWnd->window);
    else if (hWndAfter == LINK_LAST_CHILD)
        gdk_window_raise(pWnd->window);
    else
        StackAbove(hWnd, hWndAfter);
}

void RestackTopLevel(vorlan::Window *pWnd, HWND hWndAfter)
{
    GdkWindow *window = GetGdkWindow(pWnd->hWnd);
    if (window == nullptr)
        return;
    if (hWndAfter == HWND_BOTTOM)
        gdk_window_lower(window);
    else if (hWndAfter == HWND_TOP || hWndAfter == HWND_TOPMOST || hWndAfter == HWND_NOTOPMOST)
        gdk_window_raise(window);
}

} // namespace

void AdjustZOrder(HWND hWnd, HWND hWndAfter)
{
    vorlan::Window *pWnd = vorlan::getWindow(hWnd);
    if (pWnd == nullptr || pWnd->pWndParent == nullptr)
        return;
    if (vorlan::IsChildStyle(pWnd->dwStyle))
        RestackChild(pWnd, hWndAfter);
    else
        RestackTopLevel(pWnd, hWndAfter);
}
