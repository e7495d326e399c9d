// What start-up, the X event filter and the GDK event handler call in the
// subsystems built on top of them: windows, input, painting, geometry, the
// clipboard and drag and drop.
//
// Each subsystem provides these with its own sources.  Until it does,
// vorlpending.cpp gives the minimal behaviour of a process that has no
// window objects yet: no handle is valid, nothing is foreground or
// captured, and events meant for windows are taken and dropped.  A
// subsystem that arrives deletes the matching definition there.
#ifndef VORLAN_GTK_VORLPUMPDEPS_H
#define VORLAN_GTK_VORLPUMPDEPS_H

#include <windows.h>

#include <X11/Xlib.h>
#include <gdk/gdk.h>

// ---- Start-up --------------------------------------------------------------

// Registers the built-in window classes and makes the desktop window.
void UserInitialize();

namespace vorlan {
// Prepares the one clipboard object once GTK runs.
void InitializeClipboard();
} // namespace vorlan

// ---- Window objects ---------------------------------------------------------

// The handle attached to a GDK window as its "HWND" data, or 0.
HWND getAssociatedWindow(GdkDrawable *drawable);

// TRUE when the window was not made here (also the desktop).
BOOL IsForeignWindow(HWND hWnd);

// The XID behind the window, 0 for a bad handle.
XID GetXWindow(HWND hWnd);

namespace vorlan {
// A foreign window with WS_CHILD: an embedded client.
bool IsForeignChildWindow(HWND hWnd);
// The window is the wrapper of a real GTK dialog widget.
bool HasGtkWidget(HWND hWnd);
// Sets or clears WF_OBSCURED.
void SetWindowObscured(HWND hWnd, bool obscured);
} // namespace vorlan

VORLAN_BEGIN_DECLS
HWND WINAPI GetForegroundWindow(void);
HWND WINAPI GetCapture(void);
BOOL WINAPI IsWindowEnabled(HWND hWnd);
BOOL WINAPI PostMessageW(HWND hWnd, UINT Msg, WPARAM wParam, LPARAM lParam);
VORLAN_END_DECLS

// ---- Painting ---------------------------------------------------------------

// An exposed rectangle of a window's X window becomes an invalidation.
void ExposeWindows(HWND hWnd, const RECT *rect);
// A screen rectangle uncovered by a closed GTK dialog is repainted.
void ExposeWindows(GdkRectangle *rect);

// ---- Input and geometry -----------------------------------------------------

void TranslateMouseEvent(GdkEvent *event);
void TranslateKeyEvent(GdkEvent *event);
void HandleGdkConfigureEvent(HWND hWnd, GdkEventConfigure *event);
void HandleGdkWindowStateEvent(HWND hWnd, GdkEventWindowState *event);

// ---- Drag and drop ----------------------------------------------------------

// X event filter of drag and drop; non-zero takes the event.
GdkFilterReturn vorl_drag_x_filter(GdkXEvent *xevent, GdkEvent *event, gpointer data);
// GDK event filter of drag and drop; non-zero means consumed.
int vorl_drag_event_filter(GdkEvent *event, gpointer data);

#endif // VORLAN_GTK_VORLPUMPDEPS_H
