// Window manager protocols of windows that are not children.
//
// The library follows the Globally Active input model of the ICCCM: the
// window manager does not give the focus itself but asks through
// WM_TAKE_FOCUS, and the library decides (topwindow_x_filter).  A close
// request arrives as WM_DELETE_WINDOW, which GDK turns into GDK_DELETE.
#include "gtk/vorlxwindow.h"

#include "gtk/vorlglobals.h"
#include "gtk/vorlwindow.h"

#include <gdk/gdkx.h>

void SetWMInputMode(HWND hWnd)
{
    vorlan::Window *pWnd = vorlan::getWindow(hWnd);
    if (pWnd == nullptr || pWnd->window == nullptr)
        return;
    gdk_window_set_accept_focus(pWnd->window, FALSE);
    Atom protocols[] = {vorlan::g_wm_take_focus, vorlan::g_wm_delete_window};
    XSetWMProtocols(GDK_WINDOW_XDISPLAY(pWnd->window), GDK_WINDOW_XID(pWnd->window), protocols,
                    G_N_ELEMENTS(protocols));
    gdk_window_add_filter(nullptr, topwindow_x_filter, hWnd);
}
