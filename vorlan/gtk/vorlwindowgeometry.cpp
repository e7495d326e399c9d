// The rectangles of a window and the calls that read them or convert
// points with them.  Window objects keep both rectangles in screen
// coordinates; the desktop (or 0) stands for the screen.
#include "gtk/vorlgtklock.h"
#include "gtk/vorlglobals.h"
#include "gtk/vorlpumpdeps.h"
#include "gtk/vorlwindow.h"
#include "gtk/vorlwindowpos.h"

#include <algorithm>

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
