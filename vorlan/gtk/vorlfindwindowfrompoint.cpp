// FindWindowFromPointEx: the window under a screen point, as a filter
// chooses among the candidates.
//
// Below a window of the library the search walks its child list, first in
// the list first.  Below the desktop and foreign windows the X server
// answers instead: it knows the stacking of every client, so a window of
// another program that lies over one of ours hides it.
#include <vorlan.h>

#include "gtk/vorlgtklock.h"
#include "gtk/vorlpumpdeps.h"
#include "gtk/vorlwindow.h"
#include "gtk/vorlwindowsearch.h"
#include "gtk/vorlxerror.h"

#include <gdk/gdkx.h>

namespace {

// The handle of a live window whose GDK window is the X window, or 0.
HWND LiveHandleOfXWindow(Display *display, XID xid)
{
    gpointer object = gdk_xid_table_lookup_for_display(gdk_x11_lookup_xdisplay(display), xid);
    if (object == nullptr || !GDK_IS_WINDOW(object))
        return nullptr;
    const HWND hWnd = getAssociatedWindow(GDK_DRAWABLE(object));
    return vorlan::getWindow(hWnd) != nullptr ? hWnd : nullptr;
}

// Asks X for the window under the point inside the X window of pWnd and
// steps down through X windows without a handle (window manager frames,
// other clients) until one has a handle.  0 when the point leads to no
// such window, or on an X error.
HWND WindowUnderXPoint(const vorlan::Window *pWnd, POINT pt)
{
    GdkWindow *gdkWindow = pWnd->foreignWindow;
    Display *display = GDK_WINDOW_XDISPLAY(gdkWindow);
    const ::Window origin = GDK_WINDOW_XID(gdkWindow);
    const int x = pt.x - pWnd->rcClient.left;
    const int y = pt.y - pWnd->rcClient.top;
    vorlan::TemporaryXErrorHandler trap;
    ::Window below = origin;
    for (;;) {
        ::Window child = None;
        int childX = 0, childY = 0;
        if (!XTranslateCoordinates(display, origin, below, x, y, &childX, &childY, &child) ||
            vorlan::TemporaryXErrorHandler::error_code != 0 || child == None)
            return nullptr;
        if (HWND hWnd = LiveHandleOfXWindow(display, child))
            return hWnd;
        below = child;
    }
}

// Carries out the filter's answer for a candidate.  0 means: nothing here,
// go on.  A candidate that a message of the filter destroyed is passed over.
HWND FollowFilterCode(HWND candidate, FILTER_CODE code, POINT pt, FINDWINDOWFILTER filter)
{
    if (vorlan::getWindow(candidate) == nullptr)
        return nullptr;
    switch (code) {
    case FILTER_TAKE:
        return candidate;
    case FILTER_DESCEND_OR_TAKE:
        if (HWND found = FindWindowFromPointCore(candidate, pt, filter))
            return found;
        return vorlan::getWindow(candidate) != nullptr ? candidate : nullptr;
    case FILTER_DESCEND_ONLY:
        return FindWindowFromPointCore(candidate, pt, filter);
    default:
        return nullptr;
    }
}

HWND SearchChildList(HWND hWnd, POINT pt, FINDWINDOWFILTER filter)
{
    vorlan::WindowListSnapshot list(GetWindowChildList(hWnd));
    if (!list)
        return nullptr;
    for (HWND *entry = list.get(); *entry != nullptr; ++entry) {
        const vorlan::Window *child = vorlan::getWindow(*entry);
        if (child == nullptr || !vorlan::RectHoldsPoint(child->rcWindow, pt))
            continue;
        if (HWND found = FollowFilterCode(*entry, filter(*entry, hWnd, pt, 0), pt, filter))
            return found;
    }
    return nullptr;
}

HWND SearchXWindows(const vorlan::Window *pWnd, POINT pt, FINDWINDOWFILTER filter)
{
    const HWND hWnd = pWnd->hWnd;
    const HWND found = WindowUnderXPoint(pWnd, pt);
    if (found == nullptr)
        return nullptr;
    return FollowFilterCode(found, filter(found, hWnd, pt, 0), pt, filter);
}

} // namespace

HWND FindWindowFromPointCore(HWND hWnd, POINT pt, FINDWINDOWFILTER filter)
{
    const vorlan::Window *pWnd = vorlan::getWindow(hWnd);
    if (pWnd == nullptr || !vorlan::RectHoldsPoint(pWnd->rcClient, pt))
        return nullptr;
    if (pWnd->foreignWindow == nullptr)
        return SearchChildList(hWnd, pt, filter);
    return SearchXWindows(pWnd, pt, filter);
}

HWND FindWindowFromPointEx(HWND hWnd, POINT pt, FINDWINDOWFILTER filter)
{
    if (filter == nullptr) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    vorlan::GtkCriticalSection lock;
    if (vorlan::getWindow(hWnd) == nullptr) {
        vorlan::FailBadHandle();
        return nullptr;
    }
    return FindWindowFromPointCore(hWnd, pt, filter);
}
