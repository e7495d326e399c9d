// Expose events taken straight from the display, ahead of the main loop, so
// that a window uncovered by ShowWindow or DestroyWindow has its update
// region before that call returns.
#include "gtk/vorlexposerect.h"
#include "gtk/vorlglobals.h"
#include "gtk/vorlpumpdeps.h"

#include <gdk/gdkx.h>

namespace {

void InvalidateWidgetWindow(GdkWindow *window, const XExposeEvent &expose)
{
    gpointer widget = nullptr;
    gdk_window_get_user_data(window, &widget);
    if (widget == nullptr)
        return;
    GdkRectangle rect = vorlan::ExposedGdkRectangle(expose);
    gdk_window_invalidate_rect(window, &rect, FALSE);
}

void DeliverExpose(const XExposeEvent &expose)
{
    GdkWindow *window = gdk_window_lookup(expose.window);
    if (window == nullptr)
        return;
    HWND hWnd = getAssociatedWindow(window);
    if (hWnd == nullptr) {
        InvalidateWidgetWindow(window, expose);
        return;
    }
    const RECT rect = vorlan::ExposedRect(expose);
    ExposeWindows(hWnd, &rect);
}

} // namespace

void ProcessExposeEvents()
{
    Display *display = gdk_x11_get_default_xdisplay();
    XEvent event;
    while (XCheckTypedEvent(display, Expose, &event))
        DeliverExpose(event.xexpose);
}
