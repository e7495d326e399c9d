// The process-wide X event filter.  It sees every X event before GDK
// translates it: Expose events of windows with an HWND become update
// regions at once, whichever thread pumps, and never reach GDK as events.
#include "gtk/vorlexposerect.h"
#include "gtk/vorlglobals.h"
#include "gtk/vorlgtklock.h"
#include "gtk/vorlpumpdeps.h"

#include <gdk/gdkx.h>

namespace {

// An unknown X window: drop.  A GTK widget's window: GTK repaints it.  A
// window of the library: invalidate its exposed part.
GdkFilterReturn FilterExpose(const XExposeEvent &expose)
{
    GdkWindow *window = gdk_window_lookup(expose.window);
    if (window == nullptr)
        return GDK_FILTER_REMOVE;
    HWND hWnd = getAssociatedWindow(window);
    if (hWnd == nullptr)
        return GDK_FILTER_CONTINUE;
    const RECT rect = vorlan::ExposedRect(expose);
    ExposeWindows(hWnd, &rect);
    return GDK_FILTER_REMOVE;
}

// The foreground window has just been mapped: give it the X input focus,
// which the window manager does not do for windows mapped before they
// became foreground.
void FocusMappedForegroundWindow(const XMapEvent &map)
{
    HWND hWnd = GetForegroundWindow();
    if (hWnd == nullptr || IsForeignWindow(hWnd) || GetXWindow(hWnd) != map.window)
        return;
    XSetInputFocus(map.display, map.window, RevertToParent, CurrentTime);
}

GdkFilterReturn PassToDragFilter(GdkXEvent *xevent, GdkEvent *event, gpointer data)
{
    return vorl_drag_x_filter(xevent, event, data) != 0 ? GDK_FILTER_REMOVE : GDK_FILTER_CONTINUE;
}

} // namespace

GdkFilterReturn vorlan_x_event_filter(GdkXEvent *xevent, GdkEvent *event, gpointer data)
{
    vorlan::GtkLockMark mark;
    const XEvent *x = static_cast<const XEvent *>(xevent);
    switch (x->type) {
    case Expose:
        return FilterExpose(x->xexpose);
    case MapNotify:
        FocusMappedForegroundWindow(x->xmap);
        break;
    default:
        break;
    }
    return PassToDragFilter(xevent, event, data);
}
