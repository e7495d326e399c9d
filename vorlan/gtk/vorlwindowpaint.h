// Update regions and the paint cycle: how a window's update region grows
// and shrinks, what queues it for painting, how it gets a DC, and how X
// exposes become invalidations.
#ifndef VORLAN_GTK_VORLWINDOWPAINT_H
#define VORLAN_GTK_VORLWINDOWPAINT_H

#include <windows.h>

#include "gtk/vorlwindow.h"
#include <X11/Xlib.h>
#include <gdk/gdk.h>

// RedrawWindow flag of the recursion of UpdateWindowCore into a child: the
// ancestors are already done.
#define RDW_PRIVATE_CHILD 0x1000

namespace vorlan {

// Adds the part of `hrgn` (client coordinates; 0 for the whole client
// area) that lies in the client area to the window's update region and
// passes it on to the children as the flags say.
BOOL InvalidateWindowCore(Window *pWnd, HRGN hrgn, UINT flags);
// Takes `hrgn` (0: everything) out of one window's update region.
BOOL ValidateOneWindow(Window *pWnd, HRGN hrgn, UINT flags);
// The same for the window and, as the flags say, its children.
BOOL ValidateWindowCore(Window *pWnd, HRGN hrgn, UINT flags);
// Sends the paint messages the window owes now, then does its children.
BOOL UpdateWindowCore(HWND hWnd, UINT flags);

// Hands each visible child the part of `screenArea` (screen coordinates)
// that its rectangle `covered` (rcWindow or rcClient) lies over, in the
// child's client coordinates, through `apply(child, part, flags)`.
void PassToVisibleChildren(Window *pWnd, HRGN screenArea, RECT Window::*covered,
                           BOOL (*apply)(Window *, HRGN, UINT), UINT flags);

// A new region of the window's client area in client coordinates, or 0.
HRGN ClientAreaRegion(const Window *pWnd);
// Sends the owed WM_NCPAINT, if any.  False when the window died of it.
bool SendOwedNcPaint(HWND hWnd);
// Sends WM_ERASEBKGND on a DC of the window; the procedure's answer.
LRESULT SendEraseBackground(HWND hWnd);

} // namespace vorlan

VORLAN_BEGIN_DECLS
// Answers DeleteDC for a window's DC: the kept DC of a CS_OWNDC window
// stays, every other DC goes.
BOOL UserDeleteDCProc(HDC hdc, HWND hWnd);
VORLAN_END_DECLS

// ----------------------------------------------------------------------------
// The rectangle of an X Expose event, in the coordinates of its X window.

namespace vorlan {

inline RECT ExposedRect(const XExposeEvent &expose)
{
    RECT rect;
    rect.left = expose.x;
    rect.top = expose.y;
    rect.right = expose.x + expose.width;
    rect.bottom = expose.y + expose.height;
    return rect;
}

inline GdkRectangle ExposedGdkRectangle(const XExposeEvent &expose)
{
    GdkRectangle rect;
    rect.x = expose.x;
    rect.y = expose.y;
    rect.width = expose.width;
    rect.height = expose.height;
    return rect;
}

} // namespace vorlan

// An exposed rectangle of a window's X window becomes an invalidation.
void ExposeWindows(HWND hWnd, const RECT *rect);

// Marks the frame for WM_NCPAINT and queues the window for painting.
void InvalidateNC(HWND hWnd);

// Takes the Expose events already queued on the display and turns them into
// invalidations at once, without waiting for the main loop.  The caller
// holds the toolkit lock.
void ProcessExposeEvents();

#endif // VORLAN_GTK_VORLWINDOWPAINT_H
