// The X side of window objects: the GDK and X windows behind a handle, the
// geometry of a window's X window, window manager protocols, X focus.
// Callers hold the toolkit lock.
#ifndef VORLAN_GTK_VORLXWINDOW_H
#define VORLAN_GTK_VORLXWINDOW_H

#include <windows.h>

#include "vorlinternal.h"

#include <X11/Xlib.h>
#include <gdk/gdk.h>

namespace vorlan {
struct Window;

// The geometry of the window's X window, in the X parent's coordinates,
// derived from its Win32 rectangles: the window manager's frame taken off a
// decorated top-level window, a child cut to its parent's client area, and
// (-1, -1, 0, 0) when nothing is left.
VORLAN_INTERNAL void CalcXWindowRect(Window *pWnd, RECT *rect);

// Sets an 8-bit property of type "QTSSupportType" on the drawable's X
// window.  TRUE when X reported no error.
VORLAN_INTERNAL BOOL putXPropertyToGdkWindow(GdkDrawable *drawable, const char *name, const void *data,
                                             int length);
} // namespace vorlan

// The GDK window of a live window: the foreign one if any, else the GTK
// dialog's, else its own.
VORLAN_INTERNAL GdkWindow *GetGdkWindow(HWND hWnd);
// The X display of the window; the default display for a bad handle.
VORLAN_INTERNAL Display *GetXDisplay(HWND hWnd);
// Marks the window as modal for the window manager.
VORLAN_INTERNAL void SetModalHint(HWND hWnd);

// FALSE for 0; TRUE when GDK does not know the X window or it is foreign.
VORLAN_INTERNAL BOOL IsForeignXWindow(Display *display, XID xid);
// The X parent of the X window, or 0 (also on an X error).
VORLAN_INTERNAL XID GetParentXWindow(Display *display, XID xid);
// The X window just below the root that holds the window's top-level
// ancestor: with a window manager, the frame around it.  0 on an X error.
VORLAN_INTERNAL XID GetTopLevelXWindow(HWND hWnd);
// Gives the X input focus to the window (a foreign one through
// WM_TAKE_FOCUS) unless it has it already.  TRUE when X reported no error.
VORLAN_INTERNAL BOOL SetXInputFocusWithoutEvents(Display *display, XID window, Time time, BOOL foreign);

// For a window that is not a child: the window manager asks before giving
// it the focus (WM_TAKE_FOCUS) and asks before closing it
// (WM_DELETE_WINDOW), and topwindow_x_filter watches its X window.
VORLAN_INTERNAL void SetWMInputMode(HWND hWnd);
// Under QTS_SUPPORT, publishes the class name and control id of the window
// as properties of its X window.  Always TRUE.
VORLAN_INTERNAL BOOL SetXWindowInfo(HWND hWnd);

// The X filter of one top-level window (data: its handle): focus requests
// of the window manager, and the loss of the X focus to another client.
VORLAN_INTERNAL GdkFilterReturn topwindow_x_filter(GdkXEvent *xevent, GdkEvent *event, gpointer data);
// WM_TAKE_FOCUS for the window.  TRUE when the message was handled.
VORLAN_INTERNAL BOOL HandleClientMessages(HWND hWnd, XEvent *event);

// Frees the window objects of a thread that ends, with every window below
// them.  Sends no message and destroys no GDK window.
VORLAN_INTERNAL void DestroyThreadWindows(DWORD tid);

#endif // VORLAN_GTK_VORLXWINDOW_H
