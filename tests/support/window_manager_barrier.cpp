// Before the tests of a process start, the window manager is made to catch
// up with everything that happened before.  X gives the window ids of a
// client that has gone to the next client, so a window manager still busy
// with a window of the previous test process would otherwise move or
// reparent a new window that happens to get the same id.  Mapping a window
// of our own and waiting until it is mapped is the barrier: the window
// manager handles its events in order.  Without one, the map is immediate.
#include <gtest/gtest.h>

#include <X11/Xlib.h>

#include <chrono>
#include <thread>

namespace {

void WaitForWindowManager()
{
    Display *display = XOpenDisplay(nullptr);
    if (display == nullptr)
        return;
    const ::Window window = XCreateSimpleWindow(display, DefaultRootWindow(display), -10, -10, 1, 1, 0, 0, 0);
    XSelectInput(display, window, StructureNotifyMask);
    XMapWindow(display, window);
    XFlush(display);
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(2);
    XEvent event;
    while (!XCheckTypedWindowEvent(display, window, MapNotify, &event) && std::chrono::steady_clock::now() < deadline)
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    XDestroyWindow(display, window);
    XCloseDisplay(display);
}

class WindowManagerBarrier : public ::testing::Environment {
public:
    void SetUp() override { WaitForWindowManager(); }
};

::testing::Environment *const g_barrier = ::testing::AddGlobalTestEnvironment(new WindowManagerBarrier);

} // namespace
