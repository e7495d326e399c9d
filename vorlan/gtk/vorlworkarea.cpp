// Reads _NET_WORKAREA from the root window.
#include "gtk/vorlworkarea.h"

#include <X11/Xatom.h>
#include <gdk/gdkx.h>

namespace vorlan {

namespace {

// Four values per desktop: x, y, width, height.
constexpr unsigned long kValuesPerDesktop = 4;

struct WorkAreaProperty {
    Atom type = None;
    int format = 0;
    unsigned long count = 0;
    unsigned char *data = nullptr;

    ~WorkAreaProperty()
    {
        if (data != nullptr)
            XFree(data);
    }

    bool IsValid() const
    {
        return type == XA_CARDINAL && format == 32 && data != nullptr && count != 0 &&
               count % kValuesPerDesktop == 0;
    }

    // Format 32 items come as longs whatever their width in the protocol.
    long Value(int index) const { return reinterpret_cast<const long *>(data)[index]; }
};

// Reads the property with X errors trapped; false when X reported one.
bool ReadWorkAreaProperty(WorkAreaProperty &property)
{
    Display *display = gdk_x11_get_default_xdisplay();
    const Atom name = gdk_x11_get_xatom_by_name("_NET_WORKAREA");
    unsigned long bytesAfter = 0;
    gdk_error_trap_push();
    const int status = XGetWindowProperty(display, DefaultRootWindow(display), name, 0, G_MAXLONG / 4, False,
                                          XA_CARDINAL, &property.type, &property.format, &property.count,
                                          &bytesAfter, &property.data);
    const bool trapped = gdk_error_trap_pop() != 0;
    return status == Success && !trapped;
}

RECT ScreenRect()
{
    return RECT{0, 0, gdk_screen_width(), gdk_screen_height()};
}

} // namespace

RECT GetDesktopWorkArea()
{
    WorkAreaProperty property;
    if (!ReadWorkAreaProperty(property) || !property.IsValid())
        return ScreenRect();
    const LONG x = LONG(property.Value(0));
    const LONG y = LONG(property.Value(1));
    return RECT{x, y, LONG(x + property.Value(2)), LONG(y + property.Value(3))};
}

} // namespace vorlan
