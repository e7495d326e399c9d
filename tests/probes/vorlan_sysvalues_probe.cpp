// Loads libvorlan and prints the system values that depend on the desktop
// (the GTK theme, the window manager, the screen) as key=value lines.  The
// tests run it under chosen themes and X servers.
//
// Usage: vorlan_sysvalues_probe [strut]
//   strut  first maps a dock window that reserves kStrutTop pixels at the
//          top of the screen and waits until the window manager has taken
//          them out of _NET_WORKAREA
#include <windows.h>

#include <X11/Xatom.h>
#include <X11/Xlib.h>

#include <chrono>
#include <cstdio>
#include <cstring>
#include <thread>

namespace {

void PrintColor(const char *name, int index)
{
    std::printf("%s=%06lx\n", name, static_cast<unsigned long>(GetSysColor(index)));
}

void PrintMetric(const char *name, int index)
{
    std::printf("%s=%d\n", name, GetSystemMetrics(index));
}

void PrintWorkArea()
{
    RECT area = {-1, -1, -1, -1};
    const BOOL ok = SystemParametersInfoW(SPI_GETWORKAREA, 0, &area, 0);
    std::printf("workarea_ok=%d\n", ok);
    std::printf("workarea=%ld,%ld,%ld,%ld\n", long(area.left), long(area.top), long(area.right),
                long(area.bottom));
}

constexpr long kStrutTop = 40;

long WorkAreaTop(Display *display)
{
    Atom type = None;
    int format = 0;
    unsigned long count = 0, after = 0;
    unsigned char *data = nullptr;
    XGetWindowProperty(display, DefaultRootWindow(display), XInternAtom(display, "_NET_WORKAREA", False), 0, 4,
                       False, XA_CARDINAL, &type, &format, &count, &after, &data);
    const long top = (data != nullptr && format == 32 && count >= 4) ? reinterpret_cast<long *>(data)[1] : -1;
    if (data != nullptr)
        XFree(data);
    return top;
}

// A dock window with a top strut, on a connection of its own that stays
// open until the process ends.
void ReserveTopStrip()
{
    Display *display = XOpenDisplay(nullptr);
    if (display == nullptr)
        return;
    const Window root = DefaultRootWindow(display);
    const Window dock = XCreateSimpleWindow(display, root, 0, 0, 200, kStrutTop, 0, 0, 0);
    const Atom dockType = XInternAtom(display, "_NET_WM_WINDOW_TYPE_DOCK", False);
    XChangeProperty(display, dock, XInternAtom(display, "_NET_WM_WINDOW_TYPE", False), XA_ATOM, 32,
                    PropModeReplace, reinterpret_cast<const unsigned char *>(&dockType), 1);
    const long strut[4] = {0, 0, kStrutTop, 0};
    XChangeProperty(display, dock, XInternAtom(display, "_NET_WM_STRUT", False), XA_CARDINAL, 32,
                    PropModeReplace, reinterpret_cast<const unsigned char *>(strut), 4);
    XMapWindow(display, dock);
    XSync(display, False);
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(10);
    while (WorkAreaTop(display) != kStrutTop && std::chrono::steady_clock::now() < deadline)
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    std::printf("strut_top=%ld\n", WorkAreaTop(display));
}

} // namespace

int main(int argc, char **argv)
{
    if (argc > 1 && std::strcmp(argv[1], "strut") == 0)
        ReserveTopStrip();
    PrintColor("btnface", COLOR_BTNFACE);
    PrintColor("btnshadow", COLOR_BTNSHADOW);
    PrintColor("3ddkshadow", COLOR_3DDKSHADOW);
    PrintColor("3dlight", COLOR_3DLIGHT);
    PrintColor("highlight", COLOR_HIGHLIGHT);
    PrintColor("highlighttext", COLOR_HIGHLIGHTTEXT);
    PrintColor("btnhighlight", COLOR_BTNHIGHLIGHT);
    PrintColor("inactivecaptiontext", COLOR_INACTIVECAPTIONTEXT);
    PrintMetric("cxvscroll", SM_CXVSCROLL);
    PrintMetric("cyhscroll", SM_CYHSCROLL);
    PrintMetric("cyvscroll", SM_CYVSCROLL);
    PrintMetric("cxhscroll", SM_CXHSCROLL);
    PrintMetric("cxscreen", SM_CXSCREEN);
    PrintMetric("cyscreen", SM_CYSCREEN);
    PrintWorkArea();
    return 0;
}
