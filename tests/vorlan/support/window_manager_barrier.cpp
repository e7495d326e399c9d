// Before the tests of a process start, the window manager is made to catch
// up with everything that happened before.  X gives the window ids of a
// client that has gone to the next client, so a window manager still busy
// with a window of the previous test process would otherwise move or
// reparent a new window that happens to get the same id.  Mapping a window
// of our own and waiting until the window manager has mapped it is the
// barrier: it handles its events in order.
#include <gtest/gtest.h>

#include <X11/Xlib.h>

#include <chrono>
#include <thread>

namespace {

bool HasWindowManager(Display *display)
{
    const Atom check = XInternAtom(display, "_NET_SUPPORTING_WM_CHECK", True);
    if (check == None)
        return false;
    Atom type = None;
    int format = 0;
    unsigned long count = 0, after = 0;
    unsigned char *data = nullptr;
    XGetWindowProperty(display, DefaultRootWindow(display), check, 0, 1, False, AnyPropertyType, &type, &format,
                       &count, &after, &data);
    if (data != nullptr)
        XFree(data);
    return count == 1;
}

void WaitForMapNotify(Display *display, ::Window window)
{
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(2);
    XEvent event;
    while (std::chrono::steady_clock::now() < deadline) {
        if (XCheckTypedWindowEvent(display, window, MapNotify, &event))
            return;
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
}

void WaitForWindowManager()
{
    Display *display = XOpenDisplay(nullptr);
    if (display == nullptr)
        return;
    if (HasWindowManager(display)) {
        const ::Window window =
            XCreateSimpleWindow(display, DefaultRootWindow(display), -10, -10, 1, 1, 0, 0, 0);
        XSelectInput(display, window, StructureNotifyMask);
        XMapWindow(display, window);
        XFlush(display);
        WaitForMapNotify(display, window);
        XDestroyWindow(display, window);
        XSync(display, False);
    }
    XCloseDisplay(display);
}

class WindowManagerBarrier : public ::testing::Environment {
public:
    void SetUp() override { WaitForWindowManager(); }
};

::testing::Environment *const g_barrier = ::testing::AddGlobalTestEnvironment(new WindowManagerBarrier);

} // namespace
