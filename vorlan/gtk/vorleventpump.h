// The event pump's entry points: the process-wide X event filter and GDK
// event handler that start-up installs, and the X filter of each top-level
// window.
#ifndef VORLAN_GTK_VORLEVENTPUMP_H
#define VORLAN_GTK_VORLEVENTPUMP_H

#include <windows.h>

#include <X11/Xlib.h>
#include <gdk/gdk.h>

// Sees every X event before GDK translates it.  Installed for all windows.
GdkFilterReturn vorlan_x_event_filter(GdkXEvent *xevent, GdkEvent *event, gpointer data);

// Sees every GDK event: windows with an HWND go to the window layer, all
// others to GTK.
void vorlan_gdk_event_handler(GdkEvent *event, gpointer data);

// The X filter of one top-level window (data: its handle): focus requests
// of the window manager, and the loss of the X focus to another client.
GdkFilterReturn topwindow_x_filter(GdkXEvent *xevent, GdkEvent *event, gpointer data);
// WM_TAKE_FOCUS for the window.  TRUE when the message was handled.
BOOL HandleClientMessages(HWND hWnd, XEvent *event);

#endif // VORLAN_GTK_VORLEVENTPUMP_H
