// The default window procedure's core and the pieces of it that other
// parts of the library call directly.
#ifndef VORLAN_VORLDEFWINDOWPROC_H
#define VORLAN_VORLDEFWINDOWPROC_H

#include <windows.h>

// DefWindowProcA/W without the lock: the caller holds it.
LRESULT DefWindowProcAW(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam, BOOL wide);

// The private messages of focus, foreground and XEmbed (1015 to 1021).
LRESULT DefPrivateMessage(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam);

// Sends WM_ACTIVATEAPP with lParam as wParam to one top-level window;
// TRUE so that an enumeration goes on.
BOOL CALLBACK NotifyAppActivation(HWND hWnd, LPARAM lParam);

// The modal loop of sizing by the mouse from edge `code` (WMSZ_), starting
// at the screen point `pt`.  Escape, WM_QUIT or a lost capture put the
// window back where it was.
void DefSizeCommand(HWND hWnd, int code, POINT pt);

#endif // VORLAN_VORLDEFWINDOWPROC_H
