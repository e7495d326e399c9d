// From a handle to the GDK and X windows behind it.
#include "gtk/vorlxwindow.h"

#include "gtk/vorlpumpdeps.h"
#include "gtk/vorlwindow.h"
#include "vorlassert.h"

#include <gdk/gdkx.h>
#include <gtk/gtk.h>

namespace {

GdkWindow *GdkWindowOf(const vorlan::Window *pWnd)
{
    if (pWnd->foreignWindow != nullptr)
        return pWnd->foreignWindow;
    if (pWnd->widget != nullptr)
        return gtk_widget_get_window(pWnd->widget);
    return pWnd->window;
}

} // namespace

GdkWindow *GetGdkWindow(HWND hWnd)
{
    VORLAN_ASSERT("vorlan/gtk/vorlwindowgdk", IsWindow(hWnd));
    return GdkWindowOf(vorlan::getWindow(hWnd));
}

XID GetXWindow(HWND hWnd)
{
    const vorlan::Window *pWnd = vorlan::getWindow(hWnd);
    if (pWnd == nullptr)
        return 0;
    GdkWindow *window = GdkWindowOf(pWnd);
    return window != nullptr ? GDK_WINDOW_XID(window) : 0;
}

Display *GetXDisplay(HWND hWnd)
{
    const vorlan::Window *pWnd = vorlan::getWindow(hWnd);
    GdkWindow *window = pWnd != nullptr ? GdkWindowOf(pWnd) : nullptr;
    if (window == nullptr)
        return gdk_x11_get_default_xdisplay();
    return GDK_WINDOW_XDISPLAY(window);
}

void SetModalHint(HWND hWnd)
{
    if (GdkWindow *window = GetGdkWindow(hWnd))
        gdk_window_set_modal_hint(window, TRUE);
}

BOOL IsForeignWindow(HWND hWnd)
{
    const vorlan::Window *pWnd = vorlan::getWindow(hWnd);
    return pWnd != nullptr && pWnd->foreignWindow != nullptr;
}

namespace vorlan {

bool IsForeignChildWindow(HWND hWnd)
{
    const Window *pWnd = getWindow(hWnd);
    return pWnd != nullptr && pWnd->foreignWindow != nullptr && (pWnd->dwStyle & WS_CHILD) != 0;
}

bool HasGtkWidget(HWND hWnd)
{
    const Window *pWnd = getWindow(hWnd);
    return pWnd != nullptr && pWnd->widget != nullptr;
}

} // namespace vorlan
