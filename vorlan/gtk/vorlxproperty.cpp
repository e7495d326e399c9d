// Publishing data on a window's X window as a property, for outside tools.
#include "gtk/vorlxwindow.h"

#include "gtk/vorlxerror.h"

#include <gdk/gdkx.h>

namespace vorlan {

BOOL putXPropertyToGdkWindow(GdkDrawable *drawable, const char *name, const void *data, int length)
{
    TemporaryXErrorHandler trap;
    Display *display = GDK_DRAWABLE_XDISPLAY(drawable);
    const Atom type = XInternAtom(display, "QTSSupportType", False);
    const Atom property = XInternAtom(display, name, False);
    XChangeProperty(display, GDK_DRAWABLE_XID(drawable), property, type, 8, PropModeReplace,
                    static_cast<const unsigned char *>(data), length);
    XSync(display, False);
    return TemporaryXErrorHandler::error_code == 0;
}

} // namespace vorlan
