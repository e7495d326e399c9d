// The non-client frame inside the library: which windows the window manager
// frames, the client rectangle of a window rectangle, and the part of the
// window a screen point lies in.
#ifndef VORLAN_VORLNONCLIENT_H
#define VORLAN_VORLNONCLIENT_H

#include <windows.h>

// The window manager draws the window's frame: the X window is only the
// client part.
BOOL IsWindowDecorated(HWND hWnd);

// Non-zero once dialog boxes are framed by the window manager.
extern int _dialogUseWMD;

void DefNCCalcSize(HWND hWnd, RECT *rect);
LRESULT DefNCHitTest(HWND hWnd, POINT pt);

// Paints the frame of an undecorated window (and the menu bar of a
// decorated one); the region does not limit what is painted.
void DefNCPaint(HWND hWnd, HRGN hRgn);
// WM_NCLBUTTONDOWN and WM_NCLBUTTONDBLCLK over the menu bar, the scroll bars
// and the sizing edges, and WM_NCRBUTTONUP, become their commands.
void DefNCMouse(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam);

#endif // VORLAN_VORLNONCLIENT_H
