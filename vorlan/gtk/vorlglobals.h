// Process-wide state set up at start-up, and the entry points of the event
// pump that GDK calls: the X event filter and the GDK event handler.
#ifndef VORLAN_GTK_VORLGLOBALS_H
#define VORLAN_GTK_VORLGLOBALS_H

#include <windows.h>

#include <X11/Xlib.h>
#include <gdk/gdk.h>

namespace vorlan {

// First base of GlobalProcessData.  It holds nothing; its constructor brings
// up the host base library before anything else of the process data runs:
// fatal signal hooks for the host program, then GetModuleHandleA and OSInit.
struct EarlyInitializer {
    EarlyInitializer();
};

// The one process data object.  Its constructor is the library's start-up:
// GLib threads, GDK and GTK, the process-wide filter and handler, X atoms,
// the built-in window classes and the desktop window, the clipboard.
struct GlobalProcessData : EarlyInitializer {
    GlobalProcessData();

    DWORD dwMainThreadId;         // the thread that ran start-up: the main thread
    BOOL bPopupMenuRunning;       // a popup menu is being tracked
    BOOL bPopupMenuFocusPending;  // set with the former; the XEmbed focus-in consumes it
    char szLogFile[MAX_PATH];     // VORL_LOG_FILE, read by QRTInitedCallback
    LONG nTimeCostLog;            // API_TIMECOST_LOG, 0 until QRTInitedCallback ran
};

extern GlobalProcessData g_vorlData;

// Atoms interned at start-up.
extern Atom g_wm_take_focus;
extern Atom g_wm_delete_window;
extern Atom g_xembed_msg_type;

// The X error handler that was in force before VorlXErrorHandler was
// installed (only under XSynchronize).
extern XErrorHandler xErrorHandler;

} // namespace vorlan

// The desktop window, made by UserInitialize at start-up.
extern HWND g_hWndDesktop;

// Sees every X event before GDK translates it.  Installed for all windows.
GdkFilterReturn vorlan_x_event_filter(GdkXEvent *xevent, GdkEvent *event, gpointer data);

// Sees every GDK event: windows with an HWND go to the window layer, all
// others to GTK.
void vorlan_gdk_event_handler(GdkEvent *event, gpointer data);

// Takes the Expose events already queued on the display and turns them into
// invalidations at once, without waiting for the main loop.  The caller
// holds the toolkit lock.
void ProcessExposeEvents();

// Reports an X error and stops; installed only under XSynchronize.
int VorlXErrorHandler(Display *display, XErrorEvent *error);

// Reports a fatal signal and waits for a debugger; installed only in the
// host program under HOOK_FATAL_SIGNALS.
void vorl_signal_handler(int sig);

#endif // VORLAN_GTK_VORLGLOBALS_H
