// Window text: the cores that the default window procedure runs for
// WM_SETTEXT, WM_GETTEXT and WM_GETTEXTLENGTH.  The caller holds the
// toolkit lock.  The text is kept as UTF-16 and given to the GDK window
// as its title.
#ifndef VORLAN_GTK_VORLWINDOWTEXT_H
#define VORLAN_GTK_VORLWINDOWTEXT_H

#include <windows.h>

#include "vorlinternal.h"

// Stores the text (null counts as empty).  TRUE, or 0 with 1400 for a bad
// handle and 8 when out of memory.
VORLAN_INTERNAL BOOL DefSetTextAW(HWND hWnd, const void *text, BOOL wide);
VORLAN_INTERNAL BOOL DefSetTextW(HWND hWnd, LPCWSTR text);
VORLAN_INTERNAL BOOL DefSetTextA(HWND hWnd, LPCSTR text);

// Copies at most size - 1 units (bytes for ANSI) and a terminator, and
// returns the count; size 0 asks for the length.  An empty text gives 0
// and leaves the buffer alone.
VORLAN_INTERNAL int DefGetTextAW(HWND hWnd, void *buffer, int size, BOOL wide);
VORLAN_INTERNAL int DefGetTextW(HWND hWnd, LPWSTR buffer, int size);
VORLAN_INTERNAL int DefGetTextA(HWND hWnd, LPSTR buffer, int size);

#endif // VORLAN_GTK_VORLWINDOWTEXT_H
