// The event pump's entry points: the process-wide X event filter, the GDK
// event handler, and the X filter of each top-level window.
#include "gtk/vorlwindowpaint.h"
#include "gtk/vorlstartup.h"
#include "gtk/vorleventpump.h"
#include "gtk/vorlwindowpos.h"
#include "gtk/vorlpending.h"
#include "gtk/vorlgtklock.h"
#include "gtk/vorlwindow.h"
#include "gtk/vorlxwindow.h"
#include "vorlprivatemessages.h"

#include <gdk/gdkx.h>
#include <gtk/gtk.h>

// ----------------------------------------------------------------------------
// The process-wide X event filter.  It sees every X event before GDK
// translates it: Expose events of windows with an HWND become update
// regions at once, whichever thread pumps, and never reach GDK as events.

namespace {

// An unknown X window: drop.  A GTK widget's window: GTK repaints it.  A
// window of the library: invalidate its exposed part.
GdkFilterReturn FilterExpose(const XExposeEvent &expose)
{
    GdkWindow *window = gdk_window_lookup(expose.window);
    if (window == nullptr)
        return GDK_FILTER_REMOVE;
    HWND hWnd = getAssociatedWindow(window);
    if (hWnd == nullptr)
        return GDK_FILTER_CONTINUE;
    const RECT rect = vorlan::ExposedRect(expose);
    ExposeWindows(hWnd, &rect);
    return GDK_FILTER_REMOVE;
}

// The foreground window has just been mapped: give it the X input focus,
// which the window manager does not do for windows mapped before they
// became foreground.
void FocusMappedForegroundWindow(const XMapEvent &map)
{
    HWND hWnd = GetForegroundWindow();
    if (hWnd == nullptr || IsForeignWindow(hWnd) || GetXWindow(hWnd) != map.window)
        return;
    XSetInputFocus(map.display, map.window, RevertToParent, CurrentTime);
}

GdkFilterReturn PassToDragFilter(GdkXEvent *xevent, GdkEvent *event, gpointer data)
{
    return vorl_drag_x_filter(xevent, event, data) != 0 ? GDK_FILTER_REMOVE : GDK_FILTER_CONTINUE;
}

} // namespace

GdkFilterReturn vorlan_x_event_filter(GdkXEvent *xevent, GdkEvent *event, gpointer data)
{
    vorlan::GtkLockMark mark;
    const XEvent *x = static_cast<const XEvent *>(xevent);
    switch (x->type) {
    case Expose:
        return FilterExpose(x->xexpose);
    case MapNotify:
        FocusMappedForegroundWindow(x->xmap);
        break;
    default:
        break;
    }
    return PassToDragFilter(xevent, event, data);
}

// ----------------------------------------------------------------------------
// The process-wide GDK event handler.  Events of windows with an HWND go to
// the window layer; all other events go to GTK, so real GTK dialogs and
// widgets live in the same pump.

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

// ----------------------------------------------------------------------------
// The X filter of a top-level window: the window manager's WM_TAKE_FOCUS
// requests, and the loss of the X focus to another client.  GDK never sees
// the focus events of these windows; the library keeps the activation
// itself.

namespace {

constexpr unsigned kAnyButtonMask = Button1Mask | Button2Mask | Button3Mask | Button4Mask | Button5Mask;
// The style the host shell's window object is made with.
constexpr DWORD kHostShellStyle = 0x80000000;

bool FocusIsOnSomeWindow(XID focus)
{
    return focus != None && focus != PointerRoot;
}

XID CurrentInputFocus(Display *display)
{
    ::Window focus = None;
    int revertTo = 0;
    XGetInputFocus(display, &focus, &revertTo);
    return focus;
}

// The focus went to the host shell: it becomes the foreground window.
void HandOverToHostShell(HWND hWnd)
{
    SendMessageW(hWnd, WM_PRIVATE_LOST_FOREGROUND, 0, 0);
    SetForegroundWindow(CreateForeignWindow(0, kHostShellStyle));
}

void HandleForegroundFocusOut(HWND hWnd, Display *display, XID ownXWindow)
{
    const XID focus = CurrentInputFocus(display);
    if (FocusIsOnSomeWindow(focus) && IsHSRWindow(display, focus) && focus != ownXWindow) {
        HandOverToHostShell(hWnd);
        return;
    }
    if (FocusIsOnSomeWindow(focus) && !IsForeignXWindow(display, focus))
        return; // the focus stayed in this process
    SetForegroundThreadId(0);
    SendMessageW(hWnd, WM_PRIVATE_LOST_FOREGROUND, 0, 0);
}

bool LeavesTheApplication(const XFocusChangeEvent &focus)
{
    return focus.mode == NotifyNormal && (focus.detail == NotifyNonlinear || focus.detail == NotifyNonlinearVirtual);
}

void HandleFocusOut(HWND hWnd, const XFocusChangeEvent &focus)
{
    if (LeavesTheApplication(focus) && GetForegroundWindow() == hWnd)
        HandleForegroundFocusOut(hWnd, focus.display, focus.window);
}

bool IsTakeFocus(const XClientMessageEvent &message)
{
    return static_cast<Atom>(message.data.l[0]) == vorlan::g_wm_take_focus;
}

// A press on a child activates through the mouse handling of the click.
bool ClickWillActivate(const vorlan::Window *pWnd, unsigned buttons, XID childUnderPointer)
{
    return (buttons & kAnyButtonMask) != 0 && childUnderPointer != None && pWnd->widget == nullptr;
}

} // namespace

BOOL HandleClientMessages(HWND hWnd, XEvent *event)
{
    if (!IsTakeFocus(event->xclient))
        return FALSE;
    vorlan::Window *pWnd = vorlan::getWindow(hWnd);
    if (pWnd == nullptr)
        return FALSE;
    if ((pWnd->dwFlags & WF_SKIPTAKEFOCUS) != 0) {
        pWnd->dwFlags &= ~WF_SKIPTAKEFOCUS;
        return TRUE;
    }
    ::Window root = None, child = None;
    int rootX = 0, rootY = 0, x = 0, y = 0;
    unsigned buttons = 0;
    if (!XQueryPointer(event->xclient.display, event->xclient.window, &root, &child, &rootX, &rootY, &x, &y,
                       &buttons))
        return FALSE;
    if (!ClickWillActivate(pWnd, buttons, child))
        SetForegroundWindow(hWnd);
    return TRUE;
}

GdkFilterReturn topwindow_x_filter(GdkXEvent *xevent, GdkEvent *, gpointer data)
{
    vorlan::GtkLockMark mark;
    auto *event = static_cast<XEvent *>(xevent);
    HWND hWnd = static_cast<HWND>(data);
    const XID ownXWindow = GetXWindow(hWnd);
    if (ownXWindow == 0 || event->xany.window != ownXWindow)
        return GDK_FILTER_CONTINUE;
    switch (event->type) {
    case ClientMessage:
        return HandleClientMessages(hWnd, event) ? GDK_FILTER_REMOVE : GDK_FILTER_CONTINUE;
    case FocusIn:
        return GDK_FILTER_REMOVE;
    case FocusOut:
        if (vorlan::g_vorlData.bPopupMenuRunning)
            return GDK_FILTER_CONTINUE;
        HandleFocusOut(hWnd, event->xfocus);
        return GDK_FILTER_REMOVE;
    default:
        return GDK_FILTER_CONTINUE;
    }
}
