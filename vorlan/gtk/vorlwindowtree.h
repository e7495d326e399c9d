// The window tree: each window sits in its parent's child list, which runs
// from the bottom to the top of the X stacking.
#ifndef VORLAN_GTK_VORLWINDOWTREE_H
#define VORLAN_GTK_VORLWINDOWTREE_H

#include <windows.h>

#include "vorlinternal.h"

// Positions for LinkWindowEx besides a sibling's handle.
#define LINK_FIRST_CHILD ((HWND)0)
#define LINK_LAST_CHILD ((HWND)1)

// Puts the window at the end of the parent's child list.
VORLAN_INTERNAL BOOL LinkWindow(HWND hWnd, HWND hWndParent);
// Puts the window first (LINK_FIRST_CHILD), last (LINK_LAST_CHILD) or
// directly behind the sibling hWndAfter in the parent's child list and makes
// hWndParent its parent.  A window still linked elsewhere is unlinked first;
// a sibling that is not in the list places the window last.  Bad handles:
// error 1400, FALSE.
VORLAN_INTERNAL BOOL LinkWindowEx(HWND hWnd, HWND hWndParent, HWND hWndAfter);
// Takes the window out of its parent's child list; it is left with no
// parent and no next sibling.
VORLAN_INTERNAL BOOL UnlinkWindow(HWND hWnd);

// A malloc'd array of the child handles in list order, ended by 0.  hWnd 0
// means the desktop.  The Ex form takes only windows of thread tid unless
// tid is 0.  Errors: 1400 for a bad handle, 8 when out of memory.
VORLAN_INTERNAL HWND *GetWindowChildList(HWND hWnd);
VORLAN_INTERNAL HWND *GetWindowChildListEx(HWND hWnd, DWORD tid);
// Frees a child list; null gives error 87 and FALSE.
VORLAN_INTERNAL BOOL FreeWindowList(HWND *list);

#endif // VORLAN_GTK_VORLWINDOWTREE_H
