// GTK and X helpers for tests that run against the live display that the
// library opened at start-up.
#ifndef VORLAN_TESTS_SUPPORT_GTK_HELPERS_H
#define VORLAN_TESTS_SUPPORT_GTK_HELPERS_H

#include <windows.h>

#include <X11/Xlib.h>
#include <gtk/gtk.h>

#include <functional>

namespace vorlan_test {

// The library's X connection.
Display *XDisplay();

// Runs the default main context, as the library's pump does: without the
// toolkit lock, so that GDK takes it for its dispatch.  Returns whether
// `done` became true before the timeout.
bool PumpUntil(const std::function<bool()> &done, int timeoutMilliseconds = 5000);

// Runs the default main context until nothing is pending.
void PumpPending();

// A popup (override-redirect) window, mapped and viewable: the window
// manager takes no part, so it maps at once.  Destroyed with the object.
class PopupWindow {
public:
    PopupWindow(int x, int y, int width, int height);
    ~PopupWindow();
    PopupWindow(const PopupWindow &) = delete;
    PopupWindow &operator=(const PopupWindow &) = delete;

    GtkWidget *widget() const { return m_widget; }
    GdkWindow *window() const { return gtk_widget_get_window(m_widget); }
    XID xid() const;

private:
    GtkWidget *m_widget;
};

// A plain GDK window (no widget), shown and viewable.  Destroyed with the
// object.
class PlainGdkWindow {
public:
    PlainGdkWindow(int x, int y, int width, int height);
    ~PlainGdkWindow();
    PlainGdkWindow(const PlainGdkWindow &) = delete;
    PlainGdkWindow &operator=(const PlainGdkWindow &) = delete;

    GdkWindow *window() const { return m_window; }
    XID xid() const;

private:
    GdkWindow *m_window;
};

// An X window that GDK does not know.  Destroyed with the object.
class ForeignXWindow {
public:
    ForeignXWindow();
    ~ForeignXWindow();
    ForeignXWindow(const ForeignXWindow &) = delete;
    ForeignXWindow &operator=(const ForeignXWindow &) = delete;

    XID xid() const { return m_xid; }

private:
    XID m_xid;
};

// An XID that names no window any more.
XID DestroyedXWindow();

// Attaches a window handle to a GDK window as the library does.
void AttachHwnd(GdkWindow *window, HWND hWnd);

// A handle value as the window table forms it: slot + 0x4D726577.
HWND FakeHwnd(unsigned slot);

// Sends an Expose event for the rectangle to the window (to this client)
// and waits until it is in the client's queue.
void SendExpose(XID window, int x, int y, int width, int height);

// The update area that GDK has collected for the window, cleared by the
// call.  Empty when nothing was invalidated.
GdkRectangle TakeUpdateArea(GdkWindow *window);

// A WM_PROTOCOLS client message carrying `protocol`, as the window manager
// sends it to a top-level window.
XEvent ProtocolMessage(XID window, Atom protocol);

// Runs `call` with GDK's lock held the way GDK holds it around its dispatch.
void WithGdkLockHeld(const std::function<void()> &call);

} // namespace vorlan_test

#endif // VORLAN_TESTS_SUPPORT_GTK_HELPERS_H
