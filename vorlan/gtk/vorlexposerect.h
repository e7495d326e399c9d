// The rectangle of an X Expose event, in the coordinates of its X window.
#ifndef VORLAN_GTK_VORLEXPOSERECT_H
#define VORLAN_GTK_VORLEXPOSERECT_H

#include <windows.h>

#include <X11/Xlib.h>
#include <gdk/gdk.h>

namespace vorlan {

inline RECT ExposedRect(const XExposeEvent &expose)
{
    RECT rect;
    rect.left = expose.x;
    rect.top = expose.y;
    rect.right = expose.x + expose.width;
    rect.bottom = expose.y + expose.height;
    return rect;
}

inline GdkRectangle ExposedGdkRectangle(const XExposeEvent &expose)
{
    GdkRectangle rect;
    rect.x = expose.x;
    rect.y = expose.y;
    rect.width = expose.width;
    rect.height = expose.height;
    return rect;
}

} // namespace vorlan

#endif // VORLAN_GTK_VORLEXPOSERECT_H
