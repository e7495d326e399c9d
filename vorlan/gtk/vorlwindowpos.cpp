// Window position and Z-order: SetWindowPos and its message sequences,
// the window rectangles, the stacking of siblings, the geometry of the X
// windows, and what the window manager and the server report of position
// and state.
#include "gtk/vorlwindowpos.h"

#include <vorlan.h>

#include "gtk/vorlstartup.h"
#include "gtk/vorlwindowpaint.h"
#include "vorlnonclient.h"
#include "gtk/vorlgtklock.h"
#include "gtk/vorlwindow.h"
#include "gtk/vorlxwindow.h"

#include <algorithm>
#include <gdk/gdkx.h>

// ----------------------------------------------------------------------------
// SetWindowPos: the application's moves and the window manager's, which
// reach it from configure events with X already in place.  The window
// procedure sees WM_WINDOWPOSCHANGING first and may change the request,
// WM_NCCALCSIZE decides the client area, and WM_WINDOWPOSCHANGED reports
// what happened.  Coordinates are relative to the parent's client area.

using WindowObject = vorlan::Window;

namespace {

// The window's rectangles before and after, relative to the parent's
// client area, and the working request.
struct PositionChange {
    WINDOWPOS wp;
    RECT oldWindow;
    RECT oldClient;
    RECT newWindow;
    RECT newClient;
    POINT parentOrigin;
};

int Width(const RECT &rect)
{
    return rect.right - rect.left;
}

int Height(const RECT &rect)
{
    return rect.bottom - rect.top;
}

bool IsEmpty(const RECT &rect)
{
    return rect.right <= rect.left || rect.bottom <= rect.top;
}

RECT Relative(RECT rect, POINT origin)
{
    OffsetRect(&rect, -origin.x, -origin.y);
    return rect;
}

RECT Absolute(RECT rect, POINT origin)
{
    OffsetRect(&rect, origin.x, origin.y);
    return rect;
}

PositionChange StartChange(const WindowObject *pWnd, HWND hWnd, int x, int y, int cx, int cy, UINT flags)
{
    PositionChange change;
    change.wp = {hWnd, nullptr, x, y, cx, cy, flags};
    change.parentOrigin = {pWnd->pWndParent->rcClient.left, pWnd->pWndParent->rcClient.top};
    change.oldWindow = Relative(pWnd->rcWindow, change.parentOrigin);
    change.oldClient = Relative(pWnd->rcClient, change.parentOrigin);
    change.newWindow = change.oldWindow;
    change.newClient = change.oldClient;
    return change;
}

void ApplyMove(PositionChange &change)
{
    WINDOWPOS &wp = change.wp;
    if (wp.flags & SWP_NOMOVE)
        return;
    if (wp.x == change.newWindow.left && wp.y == change.newWindow.top)
        wp.flags |= SWP_NOMOVE;
    else
        OffsetRect(&change.newWindow, wp.x - change.newWindow.left, wp.y - change.newWindow.top);
}

void ApplySize(PositionChange &change)
{
    WINDOWPOS &wp = change.wp;
    if (wp.flags & SWP_NOSIZE)
        return;
    const int cx = std::max(0, wp.cx);
    const int cy = std::max(0, wp.cy);
    if (cx == Width(change.newWindow) && cy == Height(change.newWindow)) {
        wp.flags |= SWP_NOSIZE;
        return;
    }
    change.newWindow.right = change.newWindow.left + cx;
    change.newWindow.bottom = change.newWindow.top + cy;
}

// The client area follows the window, or the window procedure works it
// out anew.  False when the window died meanwhile.
bool CalcClient(HWND hWnd, PositionChange &change)
{
    if ((change.wp.flags & SWP_NOSIZE) && !(change.wp.flags & SWP_FRAMECHANGED)) {
        OffsetRect(&change.newClient, change.newWindow.left - change.oldWindow.left,
                   change.newWindow.top - change.oldWindow.top);
        return true;
    }
    NCCALCSIZE_PARAMS params;
    params.rgrc[0] = change.newWindow;
    params.rgrc[1] = change.oldWindow;
    params.rgrc[2] = change.oldClient;
    params.lppos = &change.wp;
    SendMessageW(hWnd, WM_NCCALCSIZE, TRUE, reinterpret_cast<LPARAM>(&params));
    if (!IsWindow(hWnd))
        return false;
    RECT &client = change.newClient;
    client = params.rgrc[0];
    client.left = std::max(client.left, change.newWindow.left);
    client.top = std::max(client.top, change.newWindow.top);
    client.right = std::max(client.right, client.left);
    client.bottom = std::max(client.bottom, client.top);
    return true;
}

void CompareClient(PositionChange &change)
{
    const RECT &o = change.oldClient;
    const RECT &n = change.newClient;
    if (n.left == o.left && n.top == o.top)
        change.wp.flags |= SWP_PRIVATE_CLIENTSTAYS;
    if (Width(n) == Width(o) && Height(n) == Height(o))
        change.wp.flags |= SWP_PRIVATE_CLIENTSIZESTAYS;
    if (n.left - change.newWindow.left == o.left - change.oldWindow.left &&
        n.top - change.newWindow.top == o.top - change.oldWindow.top)
        change.wp.flags |= SWP_PRIVATE_CLIENTOFFSETSTAYS;
}

// The output bounds of a class DC: the client area inside the window's X
// window, which for a decorated window starts inside the frame.
void UpdateClassDC(HWND hWnd, const WindowObject *pWnd)
{
    RECT bounds;
    bounds.left = pWnd->rcClient.left - pWnd->rcWindow.left;
    bounds.top = pWnd->rcClient.top - pWnd->rcWindow.top;
    bounds.right = bounds.left + Width(pWnd->rcClient);
    bounds.bottom = bounds.top + Height(pWnd->rcClient);
    const POINT frame = vorlan::FrameOrigin(hWnd);
    bounds.left -= frame.x;
    bounds.top -= frame.y;
    // A window cut by its parent draws from further up and left, as its
    // other window DCs do.
    const POINT overhang = vorlan::ParentOverhang(pWnd);
    OffsetRect(&bounds, -overhang.x, -overhang.y);
    GdiSetDCOutputBounds(pWnd->hDC, &bounds);
}

// What a resize of the client area leaves to be painted.  Only the strips
// that grew, unless the class redraws fully in the direction of change.
void InvalidateResizedClient(HWND hWnd, const PositionChange &change)
{
    const UINT flags = RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN;
    const RECT &o = change.oldClient;
    const RECT &n = change.newClient;
    const bool widthChanged = Width(n) != Width(o);
    const bool heightChanged = Height(n) != Height(o);
    const DWORD classStyle = static_cast<DWORD>(GetClassLongW(hWnd, GCL_STYLE));
    if (!(change.wp.flags & SWP_PRIVATE_CLIENTOFFSETSTAYS) || (widthChanged && (classStyle & CS_HREDRAW)) ||
        (heightChanged && (classStyle & CS_VREDRAW))) {
        RedrawWindow(hWnd, nullptr, nullptr, flags);
        return;
    }
    if (Width(n) > Width(o)) {
        const RECT strip = {Width(o), 0, Width(n), Height(n)};
        RedrawWindow(hWnd, &strip, nullptr, flags);
    }
    if (Height(n) > Height(o)) {
        const RECT strip = {0, Height(o), Width(n), Height(n)};
        RedrawWindow(hWnd, &strip, nullptr, flags);
    }
}

void StoreChange(HWND hWnd, WindowObject *pWnd, const PositionChange &change)
{
    const UINT flags = change.wp.flags;
    pWnd->rcWindow = Absolute(change.newWindow, change.parentOrigin);
    pWnd->rcClient = Absolute(change.newClient, change.parentOrigin);
    if (!(flags & SWP_PRIVATE_CLIENTSTAYS))
        vorlan::OffsetChildWindowRects(pWnd, change.newClient.left - change.oldClient.left,
                                       change.newClient.top - change.oldClient.top);
    pWnd->SyncWindowPos(&change.oldWindow, &change.oldClient, flags);
    const UINT clientStays = SWP_PRIVATE_CLIENTSTAYS | SWP_PRIVATE_CLIENTSIZESTAYS;
    if (pWnd->hDC != nullptr && (flags & clientStays) != clientStays)
        UpdateClassDC(hWnd, pWnd);
    const bool visible = (pWnd->dwStyle & WS_VISIBLE) != 0;
    if ((!(flags & SWP_NOSIZE) || (flags & SWP_FRAMECHANGED)) && !IsEmpty(change.newWindow) && visible &&
        !EqualRect(&pWnd->rcWindow, &pWnd->rcClient))
        InvalidateNC(hWnd);
    const UINT clientKept = SWP_PRIVATE_CLIENTSIZESTAYS | SWP_PRIVATE_CLIENTOFFSETSTAYS;
    if ((flags & clientKept) != clientKept && !IsEmpty(change.newClient) && visible)
        InvalidateResizedClient(hWnd, change);
}

bool NothingHappened(UINT flags)
{
    const UINT watched = SWP_PRIVATE_CLIENTSTAYS | SWP_PRIVATE_CLIENTSIZESTAYS | SWP_HIDEWINDOW |
                         SWP_SHOWWINDOW | SWP_NOZORDER | SWP_NOMOVE | SWP_NOSIZE;
    const UINT still = SWP_PRIVATE_CLIENTSTAYS | SWP_PRIVATE_CLIENTSIZESTAYS | SWP_NOZORDER | SWP_NOMOVE |
                       SWP_NOSIZE;
    return (flags & watched) == still;
}

void ReportChange(HWND hWnd, PositionChange &change)
{
    if ((change.wp.flags & SWP_PRIVATE_NOCHANGED) || NothingHappened(change.wp.flags))
        return;
    change.wp.x = change.newWindow.left;
    change.wp.y = change.newWindow.top;
    change.wp.cx = Width(change.newWindow);
    change.wp.cy = Height(change.newWindow);
    SendMessageW(hWnd, WM_WINDOWPOSCHANGED, 0, reinterpret_cast<LPARAM>(&change.wp));
}

} // namespace

BOOL SetWindowPosCore(HWND hWnd, HWND hWndAfter, int x, int y, int cx, int cy, UINT flags)
{
    WindowObject *pWnd = vorlan::getWindow(hWnd);
    if (pWnd == nullptr)
        return vorlan::FailBadHandle();
    if (hWnd == g_hWndDesktop || pWnd->foreignWindow != nullptr || pWnd->pWndParent == nullptr)
        return FALSE;
    PositionChange change = StartChange(pWnd, hWnd, x, y, cx, cy, flags);
    if (!(flags & (SWP_PRIVATE_FROMCONFIGURE | SWP_NOSENDCHANGING))) {
        SendMessageW(hWnd, WM_WINDOWPOSCHANGING, 0, reinterpret_cast<LPARAM>(&change.wp));
        if (!IsWindow(hWnd))
            return FALSE;
    }
    ApplyMove(change);
    ApplySize(change);
    if (!CalcClient(hWnd, change))
        return FALSE;
    CompareClient(change);
    const UINT unchanged = SWP_NOSIZE | SWP_NOMOVE | SWP_PRIVATE_CLIENTSIZESTAYS | SWP_PRIVATE_CLIENTSTAYS;
    pWnd = vorlan::getWindow(hWnd);
    if ((change.wp.flags & unchanged) != unchanged)
        StoreChange(hWnd, pWnd, change);
    if (change.wp.flags & SWP_HIDEWINDOW)
        ShowWindow(hWnd, SW_HIDE);
    else if (change.wp.flags & SWP_SHOWWINDOW)
        ShowWindow(hWnd, (change.wp.flags & SWP_NOACTIVATE) ? SW_SHOWNA : SW_SHOW);
    if (!(change.wp.flags & SWP_NOZORDER) && IsWindow(hWnd))
        AdjustZOrder(hWnd, hWndAfter);
    if (IsWindow(hWnd))
        ReportChange(hWnd, change);
    return TRUE;
}

BOOL WINAPI SetWindowPos(HWND hWnd, HWND hWndInsertAfter, int X, int Y, int cx, int cy, UINT uFlags)
{
    vorlan::GtkCriticalSection lock;
    return SetWindowPosCore(hWnd, hWndInsertAfter, X, Y, cx, cy, uFlags);
}

// ----------------------------------------------------------------------------
// From the Win32 rectangles of a window to the geometry of its X window.
// A hidden top-level window gets its X geometry only when it is shown, so
// moving it while hidden costs no X request.

namespace {

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

// ----------------------------------------------------------------------------
// The rectangles of a window and the calls that read them or convert
// points with them.  Window objects keep both rectangles in screen
// coordinates; the desktop (or 0) stands for the screen.

using WindowObject = vorlan::Window;

namespace {

void Offset(RECT *rect, int dx, int dy)
{
    rect->left += dx;
    rect->right += dx;
    rect->top += dy;
    rect->bottom += dy;
}

// The client origin of a window, or of the screen for 0.  False for a
// dead window.
bool ClientOrigin(HWND hWnd, POINT *origin)
{
    if (hWnd == nullptr) {
        *origin = {0, 0};
        return true;
    }
    const WindowObject *pWnd = vorlan::getWindowOrFail(hWnd);
    if (pWnd == nullptr)
        return false;
    if (hWnd == g_hWndDesktop)
        *origin = {0, 0};
    else
        *origin = {pWnd->rcClient.left, pWnd->rcClient.top};
    return true;
}

} // namespace

namespace vorlan {

void OffsetChildWindowRects(Window *pWnd, int dx, int dy)
{
    for (Window *child = pWnd->pWndChild; child != nullptr; child = child->pWndNext)
        OffsetAllWindowRects(child, dx, dy);
}

void OffsetAllWindowRects(Window *pWnd, int dx, int dy)
{
    Offset(&pWnd->rcWindow, dx, dy);
    Offset(&pWnd->rcClient, dx, dy);
    OffsetChildWindowRects(pWnd, dx, dy);
}

POINT FrameOrigin(HWND hWnd)
{
    if (!IsWindowDecorated(hWnd))
        return {0, 0};
    return {GetSystemMetrics(SM_CXFRAME), GetSystemMetrics(SM_CYFRAME) + GetSystemMetrics(SM_CYCAPTION)};
}

POINT ParentOverhang(const Window *pWnd)
{
    const Window *parent = pWnd->pWndParent;
    if (parent == nullptr || parent->pWndParent == nullptr)
        return {0, 0};
    return {std::max<LONG>(0, parent->rcClient.left - pWnd->rcWindow.left),
            std::max<LONG>(0, parent->rcClient.top - pWnd->rcWindow.top)};
}

} // namespace vorlan

BOOL GetWindowMinMaxInfo(HWND hWnd, MINMAXINFO *info)
{
    if (!IsWindow(hWnd))
        return FALSE;
    *info = MINMAXINFO{};
    info->ptMinTrackSize = {100, 30};
    info->ptMaxTrackSize = {1024, 768};
    SendMessageW(hWnd, WM_GETMINMAXINFO, 0, reinterpret_cast<LPARAM>(info));
    return TRUE;
}

BOOL WINAPI GetWindowRect(HWND hWnd, LPRECT lpRect)
{
    vorlan::GtkCriticalSection lock;
    const WindowObject *pWnd = vorlan::getWindowOrFail(hWnd);
    if (pWnd == nullptr || lpRect == nullptr)
        return FALSE;
    *lpRect = pWnd->rcWindow;
    return TRUE;
}

BOOL WINAPI GetClientRect(HWND hWnd, LPRECT lpRect)
{
    vorlan::GtkCriticalSection lock;
    const WindowObject *pWnd = vorlan::getWindowOrFail(hWnd);
    if (pWnd == nullptr || lpRect == nullptr)
        return FALSE;
    *lpRect = {0, 0, pWnd->rcClient.right - pWnd->rcClient.left, pWnd->rcClient.bottom - pWnd->rcClient.top};
    return TRUE;
}

BOOL WINAPI ScreenToClient(HWND hWnd, LPPOINT lpPoint)
{
    vorlan::GtkCriticalSection lock;
    const WindowObject *pWnd = vorlan::getWindowOrFail(hWnd);
    if (pWnd == nullptr || lpPoint == nullptr)
        return FALSE;
    lpPoint->x -= pWnd->rcClient.left;
    lpPoint->y -= pWnd->rcClient.top;
    return TRUE;
}

BOOL WINAPI ClientToScreen(HWND hWnd, LPPOINT lpPoint)
{
    vorlan::GtkCriticalSection lock;
    const WindowObject *pWnd = vorlan::getWindowOrFail(hWnd);
    if (pWnd == nullptr || lpPoint == nullptr)
        return FALSE;
    lpPoint->x += pWnd->rcClient.left;
    lpPoint->y += pWnd->rcClient.top;
    return TRUE;
}

int WINAPI MapWindowPoints(HWND hWndFrom, HWND hWndTo, LPPOINT lpPoints, UINT cPoints)
{
    vorlan::GtkCriticalSection lock;
    POINT from, to;
    if (!ClientOrigin(hWndFrom, &from) || !ClientOrigin(hWndTo, &to))
        return 0;
    const int dx = from.x - to.x;
    const int dy = from.y - to.y;
    if (dx == 0 && dy == 0)
        return 0;
    for (UINT i = 0; lpPoints != nullptr && i < cPoints; ++i) {
        lpPoints[i].x += dx;
        lpPoints[i].y += dy;
    }
    return MAKELONG(static_cast<WORD>(dx), static_cast<WORD>(dy));
}

BOOL WINAPI IsIconic(HWND hWnd)
{
    vorlan::GtkCriticalSection lock;
    const WindowObject *pWnd = vorlan::getWindow(hWnd);
    return pWnd != nullptr && (pWnd->dwStyle & WS_MINIMIZE) != 0;
}

BOOL WINAPI IsZoomed(HWND hWnd)
{
    vorlan::GtkCriticalSection lock;
    const WindowObject *pWnd = vorlan::getWindow(hWnd);
    return pWnd != nullptr && (pWnd->dwStyle & WS_MAXIMIZE) != 0;
}

// Only the show state and the window rectangle are filled in.
BOOL WINAPI GetWindowPlacement(HWND hWnd, WINDOWPLACEMENT *lpwndpl)
{
    vorlan::GtkCriticalSection lock;
    const WindowObject *pWnd = vorlan::getWindowOrFail(hWnd);
    if (pWnd == nullptr)
        return FALSE;
    if (lpwndpl == nullptr) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    lpwndpl->flags = 0;
    if (pWnd->dwStyle & WS_MAXIMIZE)
        lpwndpl->showCmd = SW_SHOWMAXIMIZED;
    else if (pWnd->dwStyle & WS_MINIMIZE)
        lpwndpl->showCmd = SW_SHOWMINIMIZED;
    else
        lpwndpl->showCmd = SW_SHOWNORMAL;
    lpwndpl->rcNormalPosition = pWnd->rcWindow;
    return TRUE;
}

BOOL WINAPI MoveWindow(HWND hWnd, int X, int Y, int nWidth, int nHeight, BOOL bRepaint)
{
    UINT flags = SWP_NOZORDER | SWP_NOACTIVATE;
    if (!bRepaint)
        flags |= SWP_NOREDRAW;
    return SetWindowPos(hWnd, nullptr, X, Y, nWidth, nHeight, flags);
}

BOOL WINAPI BringWindowToTop(HWND hWnd)
{
    return SetWindowPos(hWnd, nullptr, 0, 0, 0, 0, SWP_NOSIZE | SWP_NOMOVE);
}

// Shaped windows are not supported; the window keeps its rectangle.
int WINAPI SetWindowRgn(HWND, HRGN, BOOL)
{
    return 0;
}

// ----------------------------------------------------------------------------
// Stacking.  A parent's child list runs in the X stacking order, from the
// bottom up, so a child moves in the list and in X together.  Top-level
// windows are stacked by the window manager: they only move in X.

namespace {

// Stacks the child's X window right above the sibling's.
void StackAbove(HWND hWnd, HWND sibling)
{
    vorlan::TemporaryXErrorHandler trap;
    XWindowChanges changes = {};
    changes.sibling = GetXWindow(sibling);
    changes.stack_mode = Above;
    XConfigureWindow(GetXDisplay(hWnd), GetXWindow(hWnd), CWSibling | CWStackMode, &changes);
}

// A child goes behind a sibling, or first or last; anything else that is
// not a sibling of the window puts it on top.
HWND ChildLinkPosition(const vorlan::Window *pWnd, HWND hWndAfter)
{
    if (hWndAfter == LINK_FIRST_CHILD || hWndAfter == LINK_LAST_CHILD)
        return hWndAfter;
    const vorlan::Window *sibling = vorlan::getWindow(hWndAfter);
    if (sibling == nullptr || sibling == pWnd || sibling->pWndParent != pWnd->pWndParent)
        return LINK_LAST_CHILD;
    return hWndAfter;
}

void RestackChild(vorlan::Window *pWnd, HWND hWndAfter)
{
    const HWND hWnd = pWnd->hWnd;
    hWndAfter = ChildLinkPosition(pWnd, hWndAfter);
    const HWND parent = pWnd->pWndParent->hWnd;
    UnlinkWindow(hWnd);
    LinkWindowEx(hWnd, parent, hWndAfter);
    if (pWnd->window == nullptr)
        return;
    if (hWndAfter == LINK_FIRST_CHILD)
        gdk_window_lower(pWnd->window);
    else if (hWndAfter == LINK_LAST_CHILD)
        gdk_window_raise(pWnd->window);
    else
        StackAbove(hWnd, hWndAfter);
}

void RestackTopLevel(vorlan::Window *pWnd, HWND hWndAfter)
{
    GdkWindow *window = GetGdkWindow(pWnd->hWnd);
    if (window == nullptr)
        return;
    if (hWndAfter == HWND_BOTTOM)
        gdk_window_lower(window);
    else if (hWndAfter == HWND_TOP || hWndAfter == HWND_TOPMOST || hWndAfter == HWND_NOTOPMOST)
        gdk_window_raise(window);
}

} // namespace

void AdjustZOrder(HWND hWnd, HWND hWndAfter)
{
    vorlan::Window *pWnd = vorlan::getWindow(hWnd);
    if (pWnd == nullptr || pWnd->pWndParent == nullptr)
        return;
    if (vorlan::IsChildStyle(pWnd->dwStyle))
        RestackChild(pWnd, hWndAfter);
    else
        RestackTopLevel(pWnd, hWndAfter);
}

// ----------------------------------------------------------------------------
// The geometry of a window's X window, derived from its Win32 rectangles.
//
// A decorated top-level window's frame is drawn by the window manager, so
// its X window is only the client part.  A child's X window is cut to its
// parent's client area and placed in the coordinates of its X parent.  X
// has no empty windows: a window with nothing left becomes a 1 by 1 window
// out of sight.

using WindowObject = vorlan::Window;

namespace {

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

// ----------------------------------------------------------------------------
// The window manager moved or sized a window: X is already there, so the
// change goes through SetWindowPos only to update the Win32 rectangles and
// tell the window procedure.

namespace {

constexpr UINT kConfigureFlags =
    SWP_PRIVATE_FROMCONFIGURE | SWP_NOOWNERZORDER | SWP_NOACTIVATE | SWP_NOREDRAW | SWP_NOZORDER;

// X reports the client part of a decorated window; the Win32 rectangle
// includes the window manager's frame around it.
RECT DecoratedWindowRect(HWND hWnd)
{
    GdkWindow *window = GetGdkWindow(hWnd);
    gint x = 0, y = 0, width = 0, height = 0;
    gdk_window_get_origin(window, &x, &y);
    gdk_window_get_geometry(window, nullptr, nullptr, &width, &height, nullptr);
    const int cx = GetSystemMetrics(SM_CXFRAME);
    const int cy = GetSystemMetrics(SM_CYFRAME);
    const int caption = GetSystemMetrics(SM_CYCAPTION);
    const RECT rect = {x - cx, y - cy - caption, x + width + cx, y + height + cy};
    return rect;
}

bool IsEmbeddedWindow(HWND hWnd)
{
    const vorlan::Window *pWnd = vorlan::getWindow(hWnd);
    return (pWnd->dwFlags & WF_PLUGHOST) != 0 || vorlan::IsForeignChildWindow(hWnd);
}

} // namespace

void HandleGdkConfigureEvent(HWND hWnd, GdkEventConfigure *event)
{
    if (vorlan::getWindow(hWnd) == nullptr || event == nullptr)
        return;
    if (IsWindowDecorated(hWnd)) {
        const RECT rect = DecoratedWindowRect(hWnd);
        SetWindowPosCore(hWnd, nullptr, rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top,
                         kConfigureFlags);
        return;
    }
    POINT corner = {event->x, event->y};
    if (IsEmbeddedWindow(hWnd))
        ScreenToClient(GetParent(hWnd), &corner);
    SetWindowPosCore(hWnd, nullptr, corner.x, corner.y, event->width, event->height, kConfigureFlags);
}

// ----------------------------------------------------------------------------
// What X reports about a window's state: iconified and maximized from the
// window manager, fully obscured from the server.

namespace {

DWORD ToggledStyle(DWORD style, GdkWindowState changed)
{
    if ((changed & GDK_WINDOW_STATE_ICONIFIED) != 0)
        style ^= WS_MINIMIZE;
    if ((changed & GDK_WINDOW_STATE_MAXIMIZED) != 0)
        style ^= WS_MAXIMIZE;
    return style;
}

} // namespace

// The style follows the window manager; no WM_SIZE is generated here.
void HandleGdkWindowStateEvent(HWND hWnd, GdkEventWindowState *event)
{
    vorlan::Window *pWnd = vorlan::getWindow(hWnd);
    if (pWnd == nullptr)
        return;
    const DWORD style = ToggledStyle(pWnd->dwStyle, event->changed_mask);
    if (style != pWnd->dwStyle)
        SetWindowLongW(hWnd, GWL_STYLE, static_cast<LONG>(style));
}

namespace vorlan {

void SetWindowObscured(HWND hWnd, bool obscured)
{
    Window *pWnd = getWindow(hWnd);
    if (pWnd == nullptr)
        return;
    if (obscured)
        pWnd->dwFlags |= WF_OBSCURED;
    else
        pWnd->dwFlags &= ~WF_OBSCURED;
}

} // namespace vorlan
