// GTK and X helpers for the tests.
#include "support/gtk_helpers.h"

#include "gtk/vorlgtklock.h"

#include <gdk/gdkx.h>

#include <chrono>
#include <thread>

namespace vorlan_test {

Display *XDisplay() { return gdk_x11_get_default_xdisplay(); }

bool PumpUntil(const std::function<bool()> &done, int timeoutMilliseconds)
{
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::milliseconds(timeoutMilliseconds);
    while (!done()) {
        if (std::chrono::steady_clock::now() >= deadline)
            return false;
        if (!g_main_context_iteration(nullptr, FALSE))
            std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
    return true;
}

void PumpPending()
{
    while (g_main_context_pending(nullptr))
        g_main_context_iteration(nullptr, FALSE);
}

namespace {

bool GdkWindowIsViewable(GdkWindow *window)
{
    vorlan::GtkCriticalSection lock;
    return gdk_window_is_viewable(window) != FALSE;
}

XID CreateXWindow()
{
    vorlan::GtkCriticalSection lock;
    Display *display = XDisplay();
    const XID window = XCreateSimpleWindow(display, DefaultRootWindow(display), 0, 0, 20, 20, 0, 0, 0);
    XSync(display, False);
    return window;
}

} // namespace

PopupWindow::PopupWindow(int x, int y, int width, int height)
{
    {
        vorlan::GtkCriticalSection lock;
        m_widget = gtk_window_new(GTK_WINDOW_POPUP);
        gtk_window_move(GTK_WINDOW(m_widget), x, y);
        gtk_window_set_default_size(GTK_WINDOW(m_widget), width, height);
        gtk_widget_show(m_widget);
    }
    PumpUntil([this] { return GdkWindowIsViewable(window()); });
}

PopupWindow::~PopupWindow()
{
    vorlan::GtkCriticalSection lock;
    gtk_widget_destroy(m_widget);
}

XID PopupWindow::xid() const { return GDK_WINDOW_XID(window()); }

PlainGdkWindow::PlainGdkWindow(int x, int y, int width, int height)
{
    {
        vorlan::GtkCriticalSection lock;
        GdkWindowAttr attributes = {};
        attributes.x = x;
        attributes.y = y;
        attributes.width = width;
        attributes.height = height;
        attributes.wclass = GDK_INPUT_OUTPUT;
        attributes.window_type = GDK_WINDOW_TEMP;
        attributes.event_mask = GDK_EXPOSURE_MASK | GDK_STRUCTURE_MASK;
        m_window = gdk_window_new(nullptr, &attributes, GDK_WA_X | GDK_WA_Y);
        gdk_window_show(m_window);
    }
    PumpUntil([this] { return GdkWindowIsViewable(m_window); });
}

PlainGdkWindow::~PlainGdkWindow()
{
    vorlan::GtkCriticalSection lock;
    gdk_window_destroy(m_window);
}

XID PlainGdkWindow::xid() const { return GDK_WINDOW_XID(m_window); }

ForeignXWindow::ForeignXWindow() : m_xid(CreateXWindow()) {}

ForeignXWindow::~ForeignXWindow()
{
    vorlan::GtkCriticalSection lock;
    XDestroyWindow(XDisplay(), m_xid);
}

XID DestroyedXWindow()
{
    const XID window = CreateXWindow();
    vorlan::GtkCriticalSection lock;
    XDestroyWindow(XDisplay(), window);
    XSync(XDisplay(), False);
    return window;
}

void AttachHwnd(GdkWindow *window, HWND hWnd)
{
    vorlan::GtkCriticalSection lock;
    g_object_set_data(G_OBJECT(window), "HWND", hWnd);
}

HWND FakeHwnd(unsigned slot)
{
    return reinterpret_cast<HWND>(static_cast<uintptr_t>(0x4D726577u + slot));
}

void SendExpose(XID window, int x, int y, int width, int height)
{
    vorlan::GtkCriticalSection lock;
    XEvent event = {};
    event.xexpose.type = Expose;
    event.xexpose.display = XDisplay();
    event.xexpose.window = window;
    event.xexpose.x = x;
    event.xexpose.y = y;
    event.xexpose.width = width;
    event.xexpose.height = height;
    XSendEvent(XDisplay(), window, False, 0, &event);
    XSync(XDisplay(), False);
}

void WithGdkLockHeld(const std::function<void()> &call)
{
    gdk_threads_enter();
    call();
    gdk_threads_leave();
}

GdkRectangle TakeUpdateArea(GdkWindow *window)
{
    vorlan::GtkCriticalSection lock;
    GdkRectangle box = {0, 0, 0, 0};
    if (GdkRegion *region = gdk_window_get_update_area(window)) {
        gdk_region_get_clipbox(region, &box);
        gdk_region_destroy(region);
    }
    return box;
}

XEvent ProtocolMessage(XID window, Atom protocol)
{
    XEvent event = {};
    event.xclient.type = ClientMessage;
    event.xclient.display = XDisplay();
    event.xclient.window = window;
    event.xclient.message_type = XInternAtom(XDisplay(), "WM_PROTOCOLS", False);
    event.xclient.format = 32;
    event.xclient.data.l[0] = static_cast<long>(protocol);
    event.xclient.data.l[1] = CurrentTime;
    return event;
}

} // namespace vorlan_test
