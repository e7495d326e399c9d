// From the Win32 rectangles of a window to the geometry of its X window.
// A hidden top-level window gets its X geometry only when it is shown, so
// moving it while hidden costs no X request.
#include "gtk/vorlglobals.h"
#include "gtk/vorlpumpdeps.h"
#include "gtk/vorlwindow.h"
#include "gtk/vorlwindowpos.h"
#include "gtk/vorlxwindow.h"

#include <algorithm>

namespace {

int Width(const RECT &rect)
{
    return rect.right - rect.left;
}

int Height(const RECT &rect)
{
    return rect.bottom - rect.top;
}

bool SameRect(const RECT &a, const RECT &b)
{
    return EqualRect(&a, &b) != FALSE;
}

bool SameSize(const RECT &a, const RECT &b)
{
    return Width(a) == Width(b) && Height(a) == Height(b);
}

void MoveResize(GdkWindow *window, const RECT &rect)
{
    gdk_window_move_resize(window, rect.left, rect.top, std::max(1, Width(rect)), std::max(1, Height(rect)));
}

// A window manager lets a window that the user cannot size take exactly
// this size.
void FixSize(GdkWindow *window, const RECT &rect)
{
    GdkGeometry geometry = {};
    geometry.min_width = geometry.max_width = std::max(1, Width(rect));
    geometry.min_height = geometry.max_height = std::max(1, Height(rect));
    gdk_window_set_geometry_hints(window, &geometry,
                                  static_cast<GdkWindowHints>(GDK_HINT_MIN_SIZE | GDK_HINT_MAX_SIZE));
}

bool IsTopLevel(const vorlan::Window *pWnd)
{
    return pWnd->pWndParent != nullptr && pWnd->pWndParent->hWnd == g_hWndDesktop;
}

// The corner lies at or right and below the parent's client origin.
bool CornerInsideParent(const RECT &windowInParent)
{
    return windowInParent.left >= 0 && windowInParent.top >= 0;
}

// A child crossing its parent's left or top client edge changes where its
// origin lies inside its X window; hiding it around the move makes X
// expose the whole window again.
void MoveChildXWindow(vorlan::Window *pWnd, const RECT *oldWindow, const RECT &xRect)
{
    const RECT &parentClient = pWnd->pWndParent->rcClient;
    RECT now = pWnd->rcWindow;
    OffsetRect(&now, -parentClient.left, -parentClient.top);
    const bool oldInside = oldWindow == nullptr || CornerInsideParent(*oldWindow);
    if (oldInside && CornerInsideParent(now)) {
        MoveResize(pWnd->window, xRect);
        return;
    }
    gdk_window_hide(pWnd->window);
    MoveResize(pWnd->window, xRect);
    gdk_window_show_unraised(pWnd->window);
}

void SyncWidget(vorlan::Window *pWnd, UINT flags)
{
    GtkWindow *widget = GTK_WINDOW(pWnd->widget);
    gtk_window_resize(widget, std::max(1, Width(pWnd->rcWindow)), std::max(1, Height(pWnd->rcWindow)));
    if ((flags & SWP_NOMOVE) == 0)
        gtk_window_move(widget, pWnd->rcWindow.left, pWnd->rcWindow.top);
}

void SyncOwnXWindow(vorlan::Window *pWnd, const RECT *oldWindow, const RECT &xRect)
{
    if (pWnd->window == nullptr || SameRect(xRect, pWnd->rcXWindow))
        return;
    if (!SameSize(xRect, pWnd->rcXWindow) && (pWnd->dwStyle & WS_THICKFRAME) == 0)
        FixSize(pWnd->window, xRect);
    if ((pWnd->dwStyle & WS_VISIBLE) != 0 && !IsTopLevel(pWnd))
        MoveChildXWindow(pWnd, oldWindow, xRect);
    else
        MoveResize(pWnd->window, xRect);
    gdk_flush();
}

// Children's X windows lie in their parent's X window; only the direct
// children move with it, deeper levels are relative to them.
void SyncChildXWindows(vorlan::Window *pWnd)
{
    for (vorlan::Window *child = pWnd->pWndChild; child != nullptr; child = child->pWndNext) {
        RECT xRect;
        vorlan::CalcXWindowRect(child, &xRect);
        if (child->window == nullptr || SameRect(xRect, child->rcXWindow))
            continue;
        MoveResize(child->window, xRect);
        child->rcXWindow = xRect;
    }
    gdk_flush();
}

} // namespace

namespace vorlan {

void Window::SyncWindowPos(const RECT *oldWindow, const RECT *, UINT flags)
{
    if (IsTopLevel(this) && (dwStyle & WS_VISIBLE) == 0) {
        dwFlags |= WF_MOVEPENDING;
        return;
    }
    RECT xRect;
    CalcXWindowRect(this, &xRect);
    if ((flags & SWP_PRIVATE_FROMCONFIGURE) == 0) {
        if (widget != nullptr)
            SyncWidget(this, flags);
        else
            SyncOwnXWindow(this, oldWindow, xRect);
    }
    const RECT previous = rcXWindow;
    rcXWindow = xRect;
    const UINT clientStays = SWP_PRIVATE_CLIENTSTAYS | SWP_PRIVATE_CLIENTSIZESTAYS;
    if ((flags & clientStays) == clientStays && SameSize(xRect, previous))
        return;
    SyncChildXWindows(this);
}

} // namespace vorlan
