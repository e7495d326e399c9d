// WindowFromPoint, ChildWindowFromPoint and the search among direct
// children, all built on FindWindowFromPointEx with one of the filters.
#include "gtk/vorlglobals.h"
#include "gtk/vorlgtklock.h"
#include "gtk/vorlwindow.h"
#include "gtk/vorlwindowsearch.h"

namespace {

FINDWINDOWFILTER DirectFilterFor(BOOL bDisabled, BOOL bInvisible)
{
    if (bDisabled && bInvisible)
        return DirectChildFilter;
    if (bDisabled)
        return DirectVisibleChildFilter;
    if (bInvisible)
        return DirectEnabledChildFilter;
    return DirectVisibleAndEnabledChildFilter;
}

// The client point as a screen point, as ClientToScreen gives it.
POINT ClientToScreenPoint(const vorlan::Window *pWnd, POINT pt)
{
    return {pt.x + pWnd->rcClient.left, pt.y + pWnd->rcClient.top};
}

} // namespace

HWND DirectChildFromPoint(HWND hWnd, POINT pt, BOOL bDisabled, BOOL bInvisible)
{
    return FindWindowFromPointCore(hWnd, pt, DirectFilterFor(bDisabled, bInvisible));
}

// Where nothing of the library lies under the point, the desktop answers.
HWND WINAPI WindowFromPoint(POINT Point)
{
    vorlan::GtkCriticalSection lock;
    const HWND found = FindWindowFromPointCore(g_hWndDesktop, Point, WindowFromPointFilter);
    return found != nullptr ? found : g_hWndDesktop;
}

// Point in the parent's client coordinates.  Outside the parent's window
// rectangle: 0; inside but over no child (also in the frame): the parent.
// Hidden and disabled children count.
HWND WINAPI ChildWindowFromPoint(HWND hWndParent, POINT Point)
{
    vorlan::GtkCriticalSection lock;
    const vorlan::Window *pWnd = vorlan::getWindow(hWndParent);
    if (pWnd == nullptr) {
        vorlan::FailBadHandle();
        return nullptr;
    }
    const POINT screen = ClientToScreenPoint(pWnd, Point);
    if (!vorlan::RectHoldsPoint(pWnd->rcWindow, screen))
        return nullptr;
    const HWND found = DirectChildFromPoint(hWndParent, screen, TRUE, TRUE);
    return found != nullptr ? found : hWndParent;
}
