// A program that loads libvorlan and reports what the library's start-up did
// in it.  The start-up tests run it as a child process with a controlled
// environment and program name (argv[0]).
//
// The probe defines GetModuleHandleA, OSInit, signal and gtk_init itself.
// Being part of the executable, these definitions come first in symbol
// lookup, so the library's calls reach them; each records what it sees and
// forwards to the real function.  Everything here runs before the probe's
// own static objects are constructed, so the records are plain arrays.
// The probe calls one of the library's exports, as every application does,
// so that the linker keeps the library as a dependency.
//
// Usage: vorlan_startup_probe [report | xsync-state | x-error | raise-hup]
//   report       print the records (the default)
//   xsync-state  also print whether the X connection is synchronous
//   x-error      make a request on a window that does not exist
//   raise-hup    raise SIGHUP
// With VORLAN_PROBE_STOP_AT_GTK_INIT set, the probe prints the records when
// the library calls gtk_init and exits there, before any X connection.
#include <windows.h>
#include <vorlan.h>

#include <X11/Xlib.h>
#include <dlfcn.h>
#include <gdk/gdkx.h>
#include <gtk/gtk.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <unistd.h>

namespace {

char g_modulePath[1024];
char g_callsBeforeGtkInit[256];
char g_displayAtGtkInit[256];
char g_hookedSignals[128];
bool g_gtkInitReached;

void Append(char *buffer, size_t size, const char *text)
{
    const size_t used = std::strlen(buffer);
    std::snprintf(buffer + used, size - used, "%s%s", used == 0 ? "" : ",", text);
}

void RecordCall(const char *name)
{
    if (!g_gtkInitReached)
        Append(g_callsBeforeGtkInit, sizeof g_callsBeforeGtkInit, name);
}

template <typename Function>
Function RealFunction(const char *name)
{
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

void PrintRecords()
{
    std::printf("module_path=%s\n", g_modulePath);
    std::printf("calls_before_gtk_init=%s\n", g_callsBeforeGtkInit);
    std::printf("display_at_gtk_init=%s\n", g_displayAtGtkInit);
    std::printf("hooked_signals=%s\n", g_hookedSignals);
    std::fflush(stdout);
}

bool IsSynchronous(Display *display)
{
    // XSynchronize returns the after-function that was in force: the
    // synchronising one when the connection was synchronous already.
    const bool synchronous = XSynchronize(display, True) != nullptr;
    if (!synchronous)
        XSynchronize(display, False);
    return synchronous;
}

void MakeRequestOnMissingWindow(Display *display)
{
    Window window = XCreateSimpleWindow(display, DefaultRootWindow(display), 0, 0, 10, 10, 0, 0, 0);
    XDestroyWindow(display, window);
    XMapWindow(display, window);
    XSync(display, False);
}

} // namespace

// The library is built with hidden visibility by default; the interposing
// definitions must be visible to the dynamic linker.
#define PROBE_INTERPOSE __attribute__((visibility("default")))

extern "C" {

PROBE_INTERPOSE HMODULE WINAPI GetModuleHandleA(LPCSTR name)
{
    std::snprintf(g_modulePath, sizeof g_modulePath, "%s", name != nullptr ? name : "(null)");
    RecordCall("GetModuleHandleA");
    return RealFunction<HMODULE (*)(LPCSTR)>("GetModuleHandleA")(name);
}

PROBE_INTERPOSE BOOL OSInit(DWORD flags)
{
    RecordCall("OSInit");
    return RealFunction<BOOL (*)(DWORD)>("OSInit")(flags);
}

PROBE_INTERPOSE __sighandler_t signal(int sig, __sighandler_t handler) __THROW
{
    if (handler != SIG_DFL && handler != SIG_IGN) {
        char number[16];
        std::snprintf(number, sizeof number, "%d", sig);
        Append(g_hookedSignals, sizeof g_hookedSignals, number);
    }
    return RealFunction<__sighandler_t (*)(int, __sighandler_t)>("signal")(sig, handler);
}

PROBE_INTERPOSE void gtk_init(int *argc, char ***argv)
{
    const char *display = std::getenv("DISPLAY");
    std::snprintf(g_displayAtGtkInit, sizeof g_displayAtGtkInit, "%s", display != nullptr ? display : "(unset)");
    g_gtkInitReached = true;
    if (std::getenv("VORLAN_PROBE_STOP_AT_GTK_INIT") != nullptr) {
        PrintRecords();
        _exit(0);
    }
    RealFunction<void (*)(int *, char ***)>("gtk_init")(argc, argv);
}

} // extern "C"

int main(int argc, char **argv)
{
    const char *mode = argc > 1 ? argv[1] : "report";
    PrintRecords();
    Display *display = gdk_x11_get_default_xdisplay();
    std::printf("root_window_handle=%p\n", static_cast<void *>(GetWindowHandleFromXID(DefaultRootWindow(display))));
    if (std::strcmp(mode, "xsync-state") == 0) {
        std::printf("x_synchronous=%d\n", IsSynchronous(display) ? 1 : 0);
    } else if (std::strcmp(mode, "x-error") == 0) {
        MakeRequestOnMissingWindow(display);
        std::printf("x_error_passed\n");
    } else if (std::strcmp(mode, "raise-hup") == 0) {
        raise(SIGHUP);
        std::printf("hup_passed\n");
    }
    std::fflush(stdout);
    return 0;
}
