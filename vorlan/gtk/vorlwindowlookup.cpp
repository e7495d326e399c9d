// From a GDK window to the window object behind it: the handle is attached to
// the GDK window as its "HWND" data.  All mapping from X to HWND goes through
// here.
#include "gtk/vorlpumpdeps.h"

namespace {

GQuark HwndDataKey()
{
    static const GQuark key = g_quark_from_static_string("HWND");
    return key;
}

} // namespace

HWND getAssociatedWindow(GdkDrawable *drawable)
{
    if (drawable == nullptr)
        return nullptr;
    return static_cast<HWND>(g_object_get_qdata(reinterpret_cast<GObject *>(drawable), HwndDataKey()));
}
