// Checks of windows on the X server and of their rectangles.
#include "support/window_checks.h"

#include "gtk/vorlgtklock.h"
#include "gtk/vorlxwindow.h"
#include "support/gtk_helpers.h"

#include <gdk/gdkx.h>
#include <X11/Xutil.h>

namespace vorlan_test {

XID XidOf(HWND hwnd)
{
    vorlan::GtkCriticalSection lock;
    GdkWindow *window = GetGdkWindow(hwnd);
    return window != nullptr ? GDK_WINDOW_XID(window) : 0;
}

RECT XGeometry(XID xid)
{
    const ServerGeometry g = QueryServerGeometry(xid);
    return RECT{g.x, g.y, g.x + int(g.width), g.y + int(g.height)};
}

RECT XScreenRect(XID xid)
{
    const RECT local = XGeometry(xid);
    vorlan::GtkCriticalSection lock;
    int x = 0, y = 0;
    ::Window child;
    XTranslateCoordinates(XDisplay(), xid, DefaultRootWindow(XDisplay()), 0, 0, &x, &y, &child);
    return RECT{x, y, x + local.right - local.left, y + local.bottom - local.top};
}

XID XParentOf(XID xid)
{
    vorlan::GtkCriticalSection lock;
    ::Window root, parent = 0, *children = nullptr;
    unsigned count = 0;
    XQueryTree(XDisplay(), xid, &root, &parent, &children, &count);
    if (children != nullptr)
        XFree(children);
    return parent;
}

XID TransientFor(XID xid)
{
    vorlan::GtkCriticalSection lock;
    ::Window target = 0;
    XGetTransientForHint(XDisplay(), xid, &target);
    return target;
}

bool XWindowViewable(XID xid)
{
    vorlan::GtkCriticalSection lock;
    XWindowAttributes attributes;
    return XGetWindowAttributes(XDisplay(), xid, &attributes) && attributes.map_state == IsViewable;
}

std::string XPropertyData(XID xid, const char *name, unsigned long *items, std::string *typeName)
{
    vorlan::GtkCriticalSection lock;
    Atom type = None;
    int format = 0;
    unsigned long count = 0, after = 0;
    unsigned char *data = nullptr;
    XGetWindowProperty(XDisplay(), xid, XInternAtom(XDisplay(), name, False), 0, 1024, False, AnyPropertyType, &type,
                       &format, &count, &after, &data);
    std::string bytes;
    if (data != nullptr) {
        bytes.assign(reinterpret_cast<char *>(data),
                     count * (format == 8 ? 1 : format == 16 ? sizeof(short) : sizeof(long)));
        XFree(data);
    }
    if (items != nullptr)
        *items = count;
    if (typeName != nullptr && type != None) {
        char *text = XGetAtomName(XDisplay(), type);
        *typeName = text;
        XFree(text);
    }
    return bytes;
}

RECT WindowRectOf(HWND hwnd)
{
    RECT rect = {};
    GetWindowRect(hwnd, &rect);
    return rect;
}

::testing::AssertionResult SameRect(const RECT &actual, const RECT &expected)
{
    if (EqualRect(&actual, &expected))
        return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure() << "(" << actual.left << "," << actual.top << ")-(" << actual.right << ","
                                         << actual.bottom << ") instead of (" << expected.left << "," << expected.top
                                         << ")-(" << expected.right << "," << expected.bottom << ")";
}

WindowOptions ObjectSpec(HWND parent, DWORD style, RECT rect, bool withXWindow)
{
    WindowOptions options;
    options.parent = parent;
    options.style = style;
    options.rcWindow = rect;
    options.withXWindow = withXWindow;
    return options;
}

} // namespace vorlan_test
