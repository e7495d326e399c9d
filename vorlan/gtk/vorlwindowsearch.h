// Search for windows by point: the filters that FindWindowFromPointEx asks
// for each candidate, and the search among a window's direct children.
// Callers hold the toolkit lock.
#ifndef VORLAN_GTK_VORLWINDOWSEARCH_H
#define VORLAN_GTK_VORLWINDOWSEARCH_H

#include <windows.h>
#include <vorlan.h>

#include "gtk/vorlwindow.h"

#include <memory>

// Take any window (FILTER_SKIP only for a null one).
FILTER_CODE DirectChildFilter(HWND hWnd, HWND hWndParent, POINT pt, LPARAM lParam);
// Take a visible window, skip a hidden one.
FILTER_CODE DirectVisibleChildFilter(HWND hWnd, HWND hWndParent, POINT pt, LPARAM lParam);
// Take an enabled window, or any window right below the desktop; skip the rest.
FILTER_CODE DirectEnabledChildFilter(HWND hWnd, HWND hWndParent, POINT pt, LPARAM lParam);
// Skip a hidden window; otherwise as DirectEnabledChildFilter.
FILTER_CODE DirectVisibleAndEnabledChildFilter(HWND hWnd, HWND hWndParent, POINT pt,
                                               LPARAM lParam);
// What WindowFromPoint finds: hidden windows are skipped, enabled ones
// searched, a disabled top-level window taken as it is and a disabled child
// skipped with everything inside it.
FILTER_CODE WindowFromPointFilter(HWND hWnd, HWND hWndParent, POINT pt, LPARAM lParam);

// The direct child of hWnd under the screen point, or 0.  bDisabled lets
// disabled children count, bInvisible hidden ones.
HWND DirectChildFromPoint(HWND hWnd, POINT pt, BOOL bDisabled, BOOL bInvisible);

// FindWindowFromPointEx without the lock: the caller holds it.
HWND FindWindowFromPointCore(HWND hWnd, POINT pt, FINDWINDOWFILTER filter);

// FindWindowExW without the lock: the caller holds it.
HWND FindWindowExCore(HWND hWndParent, HWND hWndAfter, LPCWSTR lpszClass, LPCWSTR lpszWindow);

namespace vorlan {

// A snapshot of a child list (GetWindowChildList) that frees itself.
struct WindowListDeleter {
    void operator()(HWND *list) const { FreeWindowList(list); }
};
using WindowListSnapshot = std::unique_ptr<HWND[], WindowListDeleter>;

// The point lies in the rectangle: left and top edges inside, right and
// bottom edges outside.
inline bool RectHoldsPoint(const RECT &rect, POINT pt)
{
    return pt.x >= rect.left && pt.x < rect.right && pt.y >= rect.top && pt.y < rect.bottom;
}

} // namespace vorlan

#endif // VORLAN_GTK_VORLWINDOWSEARCH_H
