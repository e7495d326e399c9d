// Start-up of the library: the constructor of the one process data object.
// It runs when the process loads the library, on the thread that loads it,
// which thereby becomes the main thread.
#include "gtk/vorlglobals.h"

#include "gtk/vorlgtklock.h"
#include "gtk/vorlpumpdeps.h"
#include "vorlinitorder.h"

#include <gdk/gdkx.h>
#include <gtk/gtk.h>

#include <cstdlib>
#include <dlfcn.h>

namespace {

// The sibling PNG helper library is only opened; whether it exists does
// not matter.
void OpenPngHelperLibrary()
{
    dlopen("qzpng.so", RTLD_NOW);
}

void DefaultDisplayWhenUnset()
{
    const char *display = std::getenv("DISPLAY");
    if (display == nullptr || *display == '\0')
        setenv("DISPLAY", ":0.0", 1);
}

// GLib has initialised its threads by itself since 2.32 and marks the call
// deprecated; it is still made so that older GLib gets thread support.
void InitializeThreads()
{
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"
    g_thread_init(nullptr);
#pragma GCC diagnostic pop
    gdk_threads_init();
}

// Under XSynchronize each X call waits for its reply and the first X error
// stops the process where it happened.
void SynchronizeXWhenAsked()
{
    if (std::getenv("XSynchronize") == nullptr)
        return;
    vorlan::xErrorHandler = XSetErrorHandler(VorlXErrorHandler);
    XSynchronize(gdk_x11_get_default_xdisplay(), True);
}

// One round trip for all atoms of start-up.
void InternAtoms()
{
    char *names[] = {const_cast<char *>("WM_TAKE_FOCUS"), const_cast<char *>("WM_DELETE_WINDOW"),
                     const_cast<char *>("_XEMBED")};
    Atom atoms[G_N_ELEMENTS(names)] = {};
    XInternAtoms(gdk_x11_get_default_xdisplay(), names, G_N_ELEMENTS(names), False, atoms);
    vorlan::g_wm_take_focus = atoms[0];
    vorlan::g_wm_delete_window = atoms[1];
    vorlan::g_xembed_msg_type = atoms[2];
}

} // namespace

namespace vorlan {

GlobalProcessData::GlobalProcessData()
{
    dwMainThreadId = GetCurrentThreadId();
    OpenPngHelperLibrary();
    nTimeCostLog = 0;
    szLogFile[0] = '\0';
    DefaultDisplayWhenUnset();
    InitializeThreads();
    // Before gtk_init, so that the filter sees the events of every window.
    gdk_window_add_filter(nullptr, vorlan_x_event_filter, nullptr);
    gtk_init(nullptr, nullptr);
    gdk_event_handler_set(vorlan_gdk_event_handler, nullptr, nullptr);

    GtkCriticalSection lock;
    SynchronizeXWhenAsked();
    InternAtoms();
    UserInitialize();
    bPopupMenuRunning = FALSE;
    InitializeClipboard();
}

GlobalProcessData g_vorlData VORLAN_INIT_ORDER(VORLAN_INIT_ORDER_PROCESS_DATA);

} // namespace vorlan
