// The filters of the search by point.  Each answers from the window objects
// alone and sends no message: visibility is WS_VISIBLE on the window and on
// every ancestor, a window is enabled while it lacks WS_DISABLED.
#include "gtk/vorlwindowsearch.h"

#include "gtk/vorlglobals.h"
#include "gtk/vorlwindow.h"

namespace {

bool IsShown(const vorlan::Window *pWnd)
{
    for (; pWnd != nullptr; pWnd = pWnd->pWndParent) {
        if ((pWnd->dwStyle & WS_VISIBLE) == 0)
            return false;
    }
    return true;
}

bool IsEnabled(const vorlan::Window *pWnd)
{
    return (pWnd->dwStyle & WS_DISABLED) == 0;
}

// A disabled window right below the desktop still counts: the desktop's
// children are what a click on the screen can reach.
bool CountsAsEnabled(const vorlan::Window *pWnd, HWND hWndParent)
{
    return hWndParent == g_hWndDesktop || IsEnabled(pWnd);
}

} // namespace

FILTER_CODE DirectChildFilter(HWND hWnd, HWND, POINT, LPARAM)
{
    return vorlan::getWindow(hWnd) != nullptr ? FILTER_TAKE : FILTER_SKIP;
}

FILTER_CODE DirectVisibleChildFilter(HWND hWnd, HWND, POINT, LPARAM)
{
    const vorlan::Window *pWnd = vorlan::getWindow(hWnd);
    return pWnd != nullptr && IsShown(pWnd) ? FILTER_TAKE : FILTER_SKIP;
}

FILTER_CODE DirectEnabledChildFilter(HWND hWnd, HWND hWndParent, POINT, LPARAM)
{
    const vorlan::Window *pWnd = vorlan::getWindow(hWnd);
    return pWnd != nullptr && CountsAsEnabled(pWnd, hWndParent) ? FILTER_TAKE : FILTER_SKIP;
}

FILTER_CODE DirectVisibleAndEnabledChildFilter(HWND hWnd, HWND hWndParent, POINT, LPARAM)
{
    const vorlan::Window *pWnd = vorlan::getWindow(hWnd);
    if (pWnd == nullptr || !IsShown(pWnd))
        return FILTER_SKIP;
    return CountsAsEnabled(pWnd, hWndParent) ? FILTER_TAKE : FILTER_SKIP;
}

FILTER_CODE WindowFromPointFilter(HWND hWnd, HWND hWndParent, POINT, LPARAM)
{
    const vorlan::Window *pWnd = vorlan::getWindow(hWnd);
    if (pWnd == nullptr || !IsShown(pWnd))
        return FILTER_SKIP;
    if (IsEnabled(pWnd))
        return FILTER_DESCEND_OR_TAKE;
    return hWndParent == g_hWndDesktop ? FILTER_TAKE : FILTER_SKIP;
}
