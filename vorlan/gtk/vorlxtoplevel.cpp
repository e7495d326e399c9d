// Finding one's way in the X window tree: parents, foreign windows, and the
// window below the root that holds a top-level window, which is the window
// manager's frame when there is one.
#include "gtk/vorlxwindow.h"

#include "gtk/vorlpumpdeps.h"
#include "gtk/vorlxerror.h"

#include <gdk/gdkx.h>

namespace {

GdkWindow *KnownGdkWindow(Display *display, XID xid)
{
    GdkDisplay *gdkDisplay = gdk_x11_lookup_xdisplay(display);
    if (gdkDisplay == nullptr)
        return nullptr;
    return gdk_x11_window_lookup_for_display(gdkDisplay, xid);
}

XID RootOf(Display *display, XID xid)
{
    XWindowAttributes attributes;
    if (!XGetWindowAttributes(display, xid, &attributes))
        return 0;
    return attributes.root;
}

} // namespace

BOOL IsForeignXWindow(Display *display, XID xid)
{
    if (xid == 0)
        return FALSE;
    GdkWindow *window = KnownGdkWindow(display, xid);
    return window == nullptr || gdk_window_get_window_type(window) == GDK_WINDOW_FOREIGN;
}

XID GetParentXWindow(Display *display, XID xid)
{
    vorlan::TemporaryXErrorHandler trap;
    ::Window root = None, parent = None;
    ::Window *children = nullptr;
    unsigned count = 0;
    const Status status = XQueryTree(display, xid, &root, &parent, &children, &count);
    if (children != nullptr)
        XFree(children);
    XSync(display, False);
    if (status == 0 || vorlan::TemporaryXErrorHandler::error_code != 0)
        return 0;
    return parent;
}

XID GetTopLevelXWindow(HWND hWnd)
{
    HWND top = GetAncestor(hWnd, GA_ROOT);
    XID current = GetXWindow(top);
    if (current == 0)
        return 0;
    Display *display = GetXDisplay(top);
    XID root = 0;
    {
        vorlan::TemporaryXErrorHandler trap;
        root = RootOf(display, current);
        XSync(display, False);
        if (vorlan::TemporaryXErrorHandler::error_code != 0 || root == 0)
            return 0;
    }
    while (current != 0) {
        const XID parent = GetParentXWindow(display, current);
        if (parent == root)
            return current;
        current = parent;
    }
    return 0;
}
