// Window position and stacking inside the library: the private flags of
// SetWindowPos, the rectangle helpers, and the internal steps that
// creation, showing and the X event handler share.
#ifndef VORLAN_GTK_VORLWINDOWPOS_H
#define VORLAN_GTK_VORLWINDOWPOS_H

#include <windows.h>

#include <gdk/gdk.h>

// Private SetWindowPos flags, set in the working copy of the flags or
// passed by callers inside the library.  WM_WINDOWPOSCHANGED carries them
// to the default procedure.
#define SWP_PRIVATE_CLIENTSIZESTAYS 0x800     // the client area keeps its size
#define SWP_PRIVATE_CLIENTSTAYS 0x1000        // the client area keeps its position
#define SWP_PRIVATE_NOCHANGED 0x10000         // no WM_WINDOWPOSCHANGED
#define SWP_PRIVATE_CLIENTOFFSETSTAYS 0x20000 // the client keeps its place inside the window
#define SWP_PRIVATE_FROMCONFIGURE 0x80000     // X has moved the window already

namespace vorlan {
struct Window;
// Moves both rectangles of every descendant of the window.
void OffsetChildWindowRects(Window *pWnd, int dx, int dy);
// Moves both rectangles of the window and of every descendant.
void OffsetAllWindowRects(Window *pWnd, int dx, int dy);
// The window manager's frame around a decorated window, else zeros: left
// and right in cx, top in cy.
POINT FrameOrigin(HWND hWnd);
// How far a child sticks out left of and above its parent's client area,
// which cuts its X window there; zeros for a top-level window.
POINT ParentOverhang(const Window *pWnd);
} // namespace vorlan

// Moves the window in its parent's child list and in X.  A child goes
// first (0), last (1) or behind a sibling; other windows only move in X.
void AdjustZOrder(HWND hWnd, HWND hWndAfter);

// The tracking limits of the window after WM_GETMINMAXINFO.  FALSE for a
// dead window.
BOOL GetWindowMinMaxInfo(HWND hWnd, MINMAXINFO *info);

// Sets the window manager functions (move, resize, minimize, maximize
// from the style; close when `enable`) of a window's X window.
void EnableWindowFuncs(HWND hWnd, BOOL enable);

// SetWindowPos without taking the lock: the caller holds it.
BOOL SetWindowPosCore(HWND hWnd, HWND hWndAfter, int x, int y, int cx, int cy, UINT flags);

namespace vorlan {
// Sets or clears WF_OBSCURED.
void SetWindowObscured(HWND hWnd, bool obscured);
} // namespace vorlan

// The window manager or the server moved, sized or changed the state of a
// window: the Win32 side follows.
void HandleGdkConfigureEvent(HWND hWnd, GdkEventConfigure *event);
void HandleGdkWindowStateEvent(HWND hWnd, GdkEventWindowState *event);

#endif // VORLAN_GTK_VORLWINDOWPOS_H
