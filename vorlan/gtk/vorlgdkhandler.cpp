// The process-wide GDK event handler.  Events of windows with an HWND go to
// the window layer; all other events go to GTK, so real GTK dialogs and
// widgets live in the same pump.
#include "gtk/vorlglobals.h"
#include "gtk/vorlgtklock.h"
#include "gtk/vorlpumpdeps.h"

#include <gtk/gtk.h>

namespace {

// The window manager asks to close the window: honoured unless a mouse
// capture runs or the window is disabled.
void HandleDelete(HWND hWnd)
{
    if (GetCapture() == nullptr && IsWindowEnabled(hWnd))
        PostMessageW(hWnd, WM_SYSCOMMAND, SC_CLOSE, 0);
}

// An embedded foreign client went away: its window closes.
void HandleDestroy(HWND hWnd)
{
    if (vorlan::IsForeignChildWindow(hWnd))
        PostMessageW(hWnd, WM_CLOSE, 0, 0);
}

void PassToWidget(HWND hWnd, GdkEvent *event)
{
    if (vorlan::HasGtkWidget(hWnd))
        gtk_main_do_event(event);
}

void HandleConfigure(HWND hWnd, GdkEvent *event)
{
    if (vorlan::IsForeignChildWindow(hWnd))
        return;
    HandleGdkConfigureEvent(hWnd, &event->configure);
    PassToWidget(hWnd, event);
}

void HandleVisibility(HWND hWnd, const GdkEventVisibility &visibility)
{
    vorlan::SetWindowObscured(hWnd, visibility.state == GDK_VISIBILITY_FULLY_OBSCURED);
}

void HandleWindowState(HWND hWnd, GdkEvent *event)
{
    HandleGdkWindowStateEvent(hWnd, &event->window_state);
    PassToWidget(hWnd, event);
}

// Events of a window with an HWND.  Types not listed here never reach GTK:
// exposure is taken by the X filter, focus, crossing, mapping and property
// changes are tracked by the window layer itself, double and triple clicks
// are computed from plain presses, and the selection and drag events that
// matter have been taken by the drag filter or by GTK widgets.
void DispatchToWindow(HWND hWnd, GdkEvent *event)
{
    switch (event->type) {
    case GDK_DELETE:
        HandleDelete(hWnd);
        break;
    case GDK_DESTROY:
        HandleDestroy(hWnd);
        break;
    case GDK_MOTION_NOTIFY:
    case GDK_BUTTON_PRESS:
    case GDK_BUTTON_RELEASE:
    case GDK_SCROLL:
        TranslateMouseEvent(event);
        break;
    case GDK_KEY_PRESS:
    case GDK_KEY_RELEASE:
        TranslateKeyEvent(event);
        break;
    case GDK_CONFIGURE:
        HandleConfigure(hWnd, event);
        break;
    case GDK_VISIBILITY_NOTIFY:
        HandleVisibility(hWnd, event->visibility);
        break;
    case GDK_WINDOW_STATE:
        HandleWindowState(hWnd, event);
        break;
    default:
        break;
    }
}

} // namespace

void vorlan_gdk_event_handler(GdkEvent *event, gpointer data)
{
    vorlan::GtkLockMark mark;
    if (vorl_drag_event_filter(event, data) != 0)
        return;
    HWND hWnd = getAssociatedWindow(event->any.window);
    if (hWnd == nullptr) {
        gtk_main_do_event(event);
        return;
    }
    DispatchToWindow(hWnd, event);
}
