// The X filter of a top-level window: the window manager's WM_TAKE_FOCUS
// requests, and the loss of the X focus to another client.  GDK never sees
// the focus events of these windows; the library keeps the activation
// itself.
#include "gtk/vorlxwindow.h"

#include "gtk/vorlglobals.h"
#include "gtk/vorlgtklock.h"
#include "gtk/vorlpumpdeps.h"
#include "gtk/vorlwindow.h"
#include "vorlprivatemessages.h"

#include <gdk/gdkx.h>

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
