// Process start-up: the host base library and fatal signal hooks before
// anything else, then GLib, GDK and GTK, the process-wide values, the
// window layer (built-in classes and the desktop window), and the
// library's own exported calls of the runtime frame.
#include <vorlan.h>

#include "gtk/vorlstartup.h"
#include "gtk/vorleventpump.h"
#include "gtk/vorlxwindow.h"
#include "gtk/vorlpending.h"
#include "gtk/vorlgtklock.h"
#include "gtk/vorlwindow.h"
#include "vorlassert.h"
#include "vorlinitorder.h"

#include <gdk/gdkx.h>
#include <gtk/gtk.h>
#include <cstdlib>
#include <dlfcn.h>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <string>
#include <unistd.h>

// ----------------------------------------------------------------------------
// Start-up of the library: the constructor of the one process data object.
// It runs when the process loads the library, on the thread that loads it,
// which thereby becomes the main thread.

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

// ----------------------------------------------------------------------------
// First stage of start-up: before GLib, GDK or GTK run, the host base library
// is brought up, and the host program gets its fatal signal hooks.

namespace {

constexpr size_t kProgramNameSize = 260;
const char kHostName[] = "brano";
const char kHostPathSuffix[] = "/brano";

// The program name as the kernel recorded it: the first string of
// /proc/<pid>/cmdline, at most kProgramNameSize - 1 bytes.
void ReadProgramName(char (&name)[kProgramNameSize])
{
    std::memset(name, 0, sizeof name);
    char path[64];
    std::snprintf(path, sizeof path, "/proc/%d/cmdline", static_cast<int>(getpid()));
    FILE *file = std::fopen(path, "rb");
    if (file == nullptr)
        return;
    const size_t read = std::fread(name, 1, sizeof name - 1, file);
    static_cast<void>(read);
    std::fclose(file);
}

bool EndsWith(const char *text, const char *suffix)
{
    const size_t textLength = std::strlen(text);
    const size_t suffixLength = std::strlen(suffix);
    return textLength >= suffixLength && std::strcmp(text + textLength - suffixLength, suffix) == 0;
}

// The host program is called "brano", by that bare name or by a path.
bool IsHostProgram(const char *programName)
{
    return std::strcmp(programName, kHostName) == 0 || EndsWith(programName, kHostPathSuffix);
}

void HookFatalSignals()
{
    const int fatalSignals[] = {SIGILL, SIGSEGV, SIGHUP, SIGFPE, SIGVTALRM};
    for (int sig : fatalSignals)
        std::signal(sig, vorl_signal_handler);
}

// The host module: "brano" in the directory BRANOBIN names, else the
// program itself.
std::string HostModulePath(const char *programName)
{
    const char *directory = std::getenv("BRANOBIN");
    if (directory == nullptr)
        return programName;
    std::string path(directory);
    if (path.empty() || path.back() != '/')
        path += '/';
    path += kHostName;
    return path;
}

} // namespace

namespace vorlan {

EarlyInitializer::EarlyInitializer()
{
    char programName[kProgramNameSize];
    ReadProgramName(programName);
    if (IsHostProgram(programName) && std::getenv("HOOK_FATAL_SIGNALS") != nullptr)
        HookFatalSignals();
    GetModuleHandleA(HostModulePath(programName).c_str());
    OSInit(0);
}

} // namespace vorlan

// ----------------------------------------------------------------------------
// The window layer's part of start-up: the built-in classes and the
// desktop window, whose handle every other part compares with.

namespace {

constexpr ATOM kDesktopClassAtom = 32769;
constexpr DWORD kDesktopStyle = WS_POPUP | WS_VISIBLE | WS_CLIPSIBLINGS | WS_CLIPCHILDREN;

RECT ScreenRect()
{
    RECT rect = {0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)};
    return rect;
}

// The desktop has no parent and no X window of its own: it stands for the
// root window.
void CreateDesktopWindow()
{
    WindowClass *desktopClass = WindowClass_FindClass(kDesktopClassAtom);
    VORLAN_ASSERT(desktopClass != nullptr);
    auto *desktop = new vorlan::Window(desktopClass);
    desktop->dwStyle = kDesktopStyle;
    desktop->foreignWindow = gdk_get_default_root_window();
    desktop->rcWindow = ScreenRect();
    desktop->rcClient = desktop->rcWindow;
    g_hWndDesktop = desktop->hWnd;
}

} // namespace

void UserInitialize()
{
    WindowClass_RegisterBuiltins();
    CreateDesktopWindow();
}

// ----------------------------------------------------------------------------
// Process-wide values that start-up fills in.

namespace vorlan {

Atom g_wm_take_focus = 0;
Atom g_wm_delete_window = 0;
Atom g_xembed_msg_type = 0;
XErrorHandler xErrorHandler = nullptr;

} // namespace vorlan

HWND g_hWndDesktop = nullptr;

// ----------------------------------------------------------------------------
// The fatal signal handler of the host program: it reports the signal and
// waits, so that a debugger can be attached to the live process.

void vorl_signal_handler(int sig)
{
    OSWalkStack(0, nullptr, nullptr);
    fprintf(stderr, "(pid %d )vorlan signal %d caught, now paused. You can kill it or attach it to debug \n",
            static_cast<int>(getpid()), sig);
    pause();
    exit(-1);
}

// ----------------------------------------------------------------------------
// The library's own exported calls of the runtime frame.

// The host calls this once its settings can be read.
void QRTInitedCallback(void)
{
    vorlan::GtkCriticalSection lock;
    vorlan::g_vorlData.nTimeCostLog = OSGetEnvironmentLong("API_TIMECOST_LOG");
    OSGetEnvironmentString("VORL_LOG_FILE", vorlan::g_vorlData.szLogFile, sizeof vorlan::g_vorlData.szLogFile);
}

HWND GetWindowHandleFromXID(unsigned long xid)
{
    vorlan::GtkCriticalSection lock;
    gpointer object = gdk_xid_table_lookup(xid);
    if (object == nullptr || !GDK_IS_WINDOW(object))
        return nullptr;
    return getAssociatedWindow(GDK_DRAWABLE(object));
}
