// SetWindowPos: the application's moves and the window manager's, which
// reach it from configure events with X already in place.  The window
// procedure sees WM_WINDOWPOSCHANGING first and may change the request,
// WM_NCCALCSIZE decides the client area, and WM_WINDOWPOSCHANGED reports
// what happened.  Coordinates are relative to the parent's client area.
#include "gtk/vorlgtklock.h"
#include "gtk/vorlglobals.h"
#include "gtk/vorlpumpdeps.h"
#include "gtk/vorlwindow.h"
#include "gtk/vorlwindowpos.h"

#include <algorithm>

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
