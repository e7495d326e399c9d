// The geometry of a window's X window, derived from its Win32 rectangles.
//
// A decorated top-level window's frame is drawn by the window manager, so
// its X window is only the client part.  A child's X window is cut to its
// parent's client area and placed in the coordinates of its X parent.  X
// has no empty windows: a window with nothing left becomes a 1 by 1 window
// out of sight.
#include "gtk/vorlxwindow.h"

#include "gtk/vorlglobals.h"
#include "gtk/vorlpumpdeps.h"
#include "gtk/vorlwindow.h"

#include <algorithm>

using WindowObject = vorlan::Window;

namespace {

bool IsEmpty(const RECT &rect)
{
    return rect.right <= rect.left || rect.bottom <= rect.top;
}

RECT Intersection(const RECT &a, const RECT &b)
{
    RECT result = {std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right),
                   std::min(a.bottom, b.bottom)};
    return result;
}

bool IsDesktop(const WindowObject *pWnd)
{
    return pWnd->hWnd == g_hWndDesktop;
}

// The window manager's frame taken off the window rectangle.
RECT ClientPartOfDecorated(RECT rect)
{
    const int side = GetSystemMetrics(SM_CXFRAME);
    const int bottom = GetSystemMetrics(SM_CYFRAME);
    const int top = bottom + GetSystemMetrics(SM_CYCAPTION);
    rect.left += side;
    rect.top += top;
    rect.right -= side;
    rect.bottom -= bottom;
    return rect;
}

// Screen position of the X window that a child of `parent` lies in: the
// sum of the X positions of the ancestors up to the desktop, or up to a
// foreign ancestor, whose own screen position ends the sum.
POINT XParentOrigin(const WindowObject *parent)
{
    POINT origin = {0, 0};
    for (const WindowObject *ancestor = parent; ancestor != nullptr && !IsDesktop(ancestor);
         ancestor = ancestor->pWndParent) {
        if (ancestor->foreignWindow != nullptr) {
            origin.x += ancestor->rcWindow.left;
            origin.y += ancestor->rcWindow.top;
            break;
        }
        origin.x += ancestor->rcXWindow.left;
        origin.y += ancestor->rcXWindow.top;
    }
    return origin;
}

RECT ChildXRect(const WindowObject *pWnd)
{
    RECT rect = Intersection(pWnd->rcWindow, pWnd->pWndParent->rcClient);
    if (IsEmpty(rect))
        return rect;
    const POINT origin = XParentOrigin(pWnd->pWndParent);
    rect.left -= origin.x;
    rect.right -= origin.x;
    rect.top -= origin.y;
    rect.bottom -= origin.y;
    return rect;
}

RECT XRect(WindowObject *pWnd)
{
    if (pWnd->pWndParent == nullptr)
        return pWnd->rcWindow;
    if (IsDesktop(pWnd->pWndParent))
        return IsWindowDecorated(pWnd->hWnd) ? ClientPartOfDecorated(pWnd->rcWindow) : pWnd->rcWindow;
    return ChildXRect(pWnd);
}

} // namespace

namespace vorlan {

void CalcXWindowRect(WindowObject *pWnd, RECT *rect)
{
    *rect = XRect(pWnd);
    if (IsEmpty(*rect))
        *rect = RECT{-1, -1, 0, 0};
}

} // namespace vorlan
