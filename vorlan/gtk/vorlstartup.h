// Process start-up: the process data object and the process-wide values it
// sets up.
#ifndef VORLAN_GTK_VORLSTARTUP_H
#define VORLAN_GTK_VORLSTARTUP_H

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

// Registers the built-in window classes and makes the desktop window.
void UserInitialize();

// Reports a fatal signal and waits for a debugger; installed only in the
// host program under HOOK_FATAL_SIGNALS.
void vorl_signal_handler(int sig);

#endif // VORLAN_GTK_VORLSTARTUP_H
