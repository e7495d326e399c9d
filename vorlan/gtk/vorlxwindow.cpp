// The X window of a window object.
//
// Every window that is not the desktop, not foreign and not a GTK dialog
// wrapper has an X window of its own, controls included, so that X clips
// and stacks siblings.  It starts as a 1 by 1 window at the origin; the
// geometry code gives it its place.  X paints no background: the library
// paints every pixel itself.
#include "gtk/vorlwindow.h"

#include "gtk/vorlglobals.h"
#include "gtk/vorlxerror.h"
#include "gtk/vorlxwindow.h"
#include "vorlassert.h"

namespace {

// Exposure, pointer motion and buttons, keys, focus changes, visibility.
constexpr gint kWindowEventMask = GDK_EXPOSURE_MASK | GDK_POINTER_MOTION_MASK | GDK_BUTTON_MOTION_MASK |
                                  GDK_BUTTON1_MOTION_MASK | GDK_BUTTON2_MOTION_MASK | GDK_BUTTON3_MOTION_MASK |
                                  GDK_BUTTON_PRESS_MASK | GDK_BUTTON_RELEASE_MASK | GDK_KEY_PRESS_MASK |
                                  GDK_KEY_RELEASE_MASK | GDK_FOCUS_CHANGE_MASK | GDK_VISIBILITY_NOTIFY_MASK;
static_assert(kWindowEventMask == 0x24FF6, "event mask of window objects");

bool IsDesktop(const vorlan::Window *pWnd)
{
    return pWnd->hWnd == g_hWndDesktop;
}

void AttachHandle(GdkWindow *window, HWND hWnd)
{
    g_object_set_data(G_OBJECT(window), "HWND", hWnd);
}

} // namespace

namespace vorlan {

void Window::CreateOSWindow()
{
    VORLAN_ASSERT("vorlan/gtk/vorlxwindow", this->pWndParent);
    const bool topLevel = IsDesktop(pWndParent);
    GdkWindowAttr attributes = {};
    attributes.window_type = topLevel ? GDK_WINDOW_TOPLEVEL : GDK_WINDOW_CHILD;
    attributes.wclass = GDK_INPUT_OUTPUT;
    attributes.x = 0;
    attributes.y = 0;
    attributes.width = 1;
    attributes.height = 1;
    attributes.event_mask = kWindowEventMask;
    GdkWindow *parentWindow = topLevel ? nullptr : GetGdkWindow(pWndParent->hWnd);
    window = gdk_window_new(parentWindow, &attributes, GDK_WA_X | GDK_WA_Y);
    VORLAN_ASSERT("vorlan/gtk/vorlxwindow", this->window);
    // A real X window even below another GDK window: X, not GDK, clips and
    // stacks siblings, and the X geometry is the one the library computes.
    gdk_window_ensure_native(window);
    gdk_window_set_back_pixmap(window, nullptr, FALSE);
    AttachHandle(window, hWnd);
}

void Window::CreateForeignWindow(XID xid, DWORD style)
{
    TemporaryXErrorHandler trap;
    foreignWindow = gdk_window_foreign_new(xid);
    dwStyle = style | WS_VISIBLE;
    if (foreignWindow != nullptr)
        AttachHandle(foreignWindow, hWnd);
}

} // namespace vorlan
