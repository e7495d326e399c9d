// The X side of window objects: the GDK and X windows behind a handle, the
// geometry of a window's X window, window manager protocols, X focus.
// Callers hold the toolkit lock.
#ifndef VORLAN_GTK_VORLXWINDOW_H
#define VORLAN_GTK_VORLXWINDOW_H

#include <windows.h>

#include <X11/Xlib.h>
#include <gdk/gdk.h>

namespace vorlan {
struct Window;

// The geometry of the window's X window, in the X parent's coordinates,
// derived from its Win32 rectangles: the window manager's frame taken off a
// decorated top-level window, a child cut to its parent's client area, and
// (-1, -1, 0, 0) when nothing is left.
void CalcXWindowRect(Window *pWnd, RECT *rect);

// Sets an 8-bit property of type "QTSSupportType" on the drawable's X
// window.  TRUE when X reported no error.
BOOL putXPropertyToGdkWindow(GdkDrawable *drawable, const char *name, const void *data,
                             int length);
} // namespace vorlan

// The GDK window of a live window: the foreign one if any, else the GTK
// dialog's, else its own.
GdkWindow *GetGdkWindow(HWND hWnd);
// The X display of the window; the default display for a bad handle.
Display *GetXDisplay(HWND hWnd);
// Marks the window as modal for the window manager.
void SetModalHint(HWND hWnd);

// FALSE for 0; TRUE when GDK does not know the X window or it is foreign.
BOOL IsForeignXWindow(Display *display, XID xid);
// The X parent of the X window, or 0 (also on an X error).
XID GetParentXWindow(Display *display, XID xid);
// The X window just below the root that holds the window's top-level
// ancestor: with a window manager, the frame around it.  0 on an X error.
XID GetTopLevelXWindow(HWND hWnd);
// Gives the X input focus to the window (a foreign one through
// WM_TAKE_FOCUS) unless it has it already.  TRUE when X reported no error.
BOOL SetXInputFocusWithoutEvents(Display *display, XID window, Time time, BOOL foreign);

// For a window that is not a child: the window manager asks before giving
// it the focus (WM_TAKE_FOCUS) and asks before closing it
// (WM_DELETE_WINDOW), and topwindow_x_filter watches its X window.
void SetWMInputMode(HWND hWnd);
// Under QTS_SUPPORT, publishes the class name and control id of the window
// as properties of its X window.  Always TRUE.
BOOL SetXWindowInfo(HWND hWnd);



// ----------------------------------------------------------------------------
// A scope that catches X errors.
//
// Every X call that may touch a window of another client, or a window that
// may have gone, runs inside a TemporaryXErrorHandler: while it lives, X
// errors are stored in error_code instead of ending the process.  After an
// XSync (the destructor makes one) the code reads error_code; 0 means no
// error.  Scopes nest: each one restores the handler it found.

namespace vorlan {

class TemporaryXErrorHandler {
public:
    TemporaryXErrorHandler();
    ~TemporaryXErrorHandler();
    TemporaryXErrorHandler(const TemporaryXErrorHandler &) = delete;
    TemporaryXErrorHandler &operator=(const TemporaryXErrorHandler &) = delete;

    // The code of the last X error caught, 0 if none since the innermost
    // scope opened.
    static BYTE error_code;

private:
    static int RecordError(Display *display, XErrorEvent *error);

    XErrorHandler m_previousHandler;
};

} // namespace vorlan

// TRUE when the window was not made here (also the desktop).
BOOL IsForeignWindow(HWND hWnd);

// The XID behind the window, 0 for a bad handle.
XID GetXWindow(HWND hWnd);

namespace vorlan {
// A foreign window with WS_CHILD: an embedded client.
bool IsForeignChildWindow(HWND hWnd);
// The window is the wrapper of a real GTK dialog widget.
bool HasGtkWidget(HWND hWnd);
} // namespace vorlan

// Reports an X error and stops; installed only under XSynchronize.
int VorlXErrorHandler(Display *display, XErrorEvent *error);

#endif // VORLAN_GTK_VORLXWINDOW_H
