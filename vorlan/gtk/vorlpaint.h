// Update regions and the paint cycle: how a window's update region grows
// and shrinks, what queues it for painting, and how it gets a DC.
#ifndef VORLAN_GTK_VORLPAINT_H
#define VORLAN_GTK_VORLPAINT_H

#include "gtk/vorlwindow.h"
#include "vorlinternal.h"

#include <windows.h>

// RedrawWindow flag of the recursion of UpdateWindowCore into a child: the
// ancestors are already done.
#define RDW_PRIVATE_CHILD 0x1000

namespace vorlan {

// Adds the part of `hrgn` (client coordinates; 0 for the whole client
// area) that lies in the client area to the window's update region and
// passes it on to the children as the flags say.
VORLAN_INTERNAL BOOL InvalidateWindowCore(Window *pWnd, HRGN hrgn, UINT flags);
// Takes `hrgn` (0: everything) out of one window's update region.
VORLAN_INTERNAL BOOL ValidateOneWindow(Window *pWnd, HRGN hrgn, UINT flags);
// The same for the window and, as the flags say, its children.
VORLAN_INTERNAL BOOL ValidateWindowCore(Window *pWnd, HRGN hrgn, UINT flags);
// Sends the paint messages the window owes now, then does its children.
VORLAN_INTERNAL BOOL UpdateWindowCore(HWND hWnd, UINT flags);

// Hands each visible child the part of `screenArea` (screen coordinates)
// that its rectangle `covered` (rcWindow or rcClient) lies over, in the
// child's client coordinates, through `apply(child, part, flags)`.
VORLAN_INTERNAL void PassToVisibleChildren(Window *pWnd, HRGN screenArea, RECT Window::*covered,
                                           BOOL (*apply)(Window *, HRGN, UINT), UINT flags);

// A new region of the window's client area in client coordinates, or 0.
VORLAN_INTERNAL HRGN ClientAreaRegion(const Window *pWnd);
// Sends the owed WM_NCPAINT, if any.  False when the window died of it.
VORLAN_INTERNAL bool SendOwedNcPaint(HWND hWnd);
// Sends WM_ERASEBKGND on a DC of the window; the procedure's answer.
VORLAN_INTERNAL LRESULT SendEraseBackground(HWND hWnd);

} // namespace vorlan

VORLAN_BEGIN_DECLS
// Installs `hrgn` (DC coordinates, copied; 0 removes it) as the painting
// clip of a window DC.
VORLAN_INTERNAL int _SetWindowDCUpdateRegion(HDC hdc, HRGN hrgn);
// Answers DeleteDC for a window's DC: the kept DC of a CS_OWNDC window
// stays, every other DC goes.
VORLAN_INTERNAL BOOL UserDeleteDCProc(HDC hdc, HWND hWnd);
VORLAN_END_DECLS

#endif // VORLAN_GTK_VORLPAINT_H
