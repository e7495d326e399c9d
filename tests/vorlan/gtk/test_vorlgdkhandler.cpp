// The process-wide GDK event handler: events of windows without a handle go
// to GTK; events of windows with one go to the window layer or are dropped.

// GoogleTest comes before the X headers, whose macros (None, Bool) clash with it.
#include <gtest/gtest.h>

#include "gtk/vorlglobals.h"
#include "gtk/vorlgtklock.h"
#include "support/gtk_helpers.h"

#include <gdk/gdkx.h>

#include <algorithm>
#include <vector>

using namespace vorlan_test;

namespace {

// A popup window that records the types of the events GTK delivers to it.
// Its "event" handler stops every event, so that a close request keeps the
// window.  The record outlives the window, whose destruction may add to it.
class CountedWindow {
public:
    CountedWindow() : m_popup(20, 20, 30, 30)
    {
        vorlan::GtkCriticalSection lock;
        g_signal_connect(m_popup.widget(), "event", G_CALLBACK(Record), &m_types);
    }

    GdkWindow *window() const { return m_popup.window(); }
    XID xid() const { return m_popup.xid(); }
    int count(GdkEventType type) const { return static_cast<int>(std::count(m_types.begin(), m_types.end(), type)); }
    int total() const { return static_cast<int>(m_types.size()); }

private:
    static gboolean Record(GtkWidget *, GdkEvent *event, gpointer types)
    {
        static_cast<std::vector<GdkEventType> *>(types)->push_back(event->type);
        return TRUE;
    }

    std::vector<GdkEventType> m_types;
    PopupWindow m_popup;
};

GdkEvent *NewEvent(GdkEventType type, GdkWindow *window)
{
    vorlan::GtkCriticalSection lock;
    GdkEvent *event = gdk_event_new(type);
    event->any.window = window != nullptr ? GDK_WINDOW(g_object_ref(window)) : nullptr;
    event->any.send_event = TRUE;
    if (type == GDK_BUTTON_PRESS || type == GDK_2BUTTON_PRESS || type == GDK_3BUTTON_PRESS) {
        event->button.button = 1;
        event->button.device = gdk_device_get_core_pointer();
    }
    return event;
}

void FreeEvent(GdkEvent *event)
{
    vorlan::GtkCriticalSection lock;
    gdk_event_free(event);
}

// Calls the handler as GDK does: with GDK's lock held for this thread.
void Handle(GdkEvent *event)
{
    WithGdkLockHeld([event] { vorlan_gdk_event_handler(event, nullptr); });
    FreeEvent(event);
}

// The window manager's close request: a WM_DELETE_WINDOW client message,
// which GDK turns into GDK_DELETE.
void SendCloseRequest(XID window)
{
    vorlan::GtkCriticalSection lock;
    XEvent event = {};
    event.xclient.type = ClientMessage;
    event.xclient.display = XDisplay();
    event.xclient.window = window;
    event.xclient.message_type = XInternAtom(XDisplay(), "WM_PROTOCOLS", False);
    event.xclient.format = 32;
    event.xclient.data.l[0] = static_cast<long>(XInternAtom(XDisplay(), "WM_DELETE_WINDOW", False));
    event.xclient.data.l[1] = CurrentTime;
    XSendEvent(XDisplay(), window, False, 0, &event);
    XSync(XDisplay(), False);
}

} // namespace

TEST(GdkEventHandler, EventsOfWindowWithoutHandleOrWithoutWindowGoToGtk)
{
    CountedWindow counted;
    for (GdkEventType type : {GDK_DELETE, GDK_BUTTON_PRESS, GDK_2BUTTON_PRESS}) {
        Handle(NewEvent(type, counted.window()));
        EXPECT_EQ(counted.count(type), 1) << type;
    }
    Handle(NewEvent(GDK_PROPERTY_NOTIFY, nullptr));
    EXPECT_EQ(vorlan::GtkCriticalSection::depth(), 0);
}

// Every event type, those of the table and those dropped (double clicks and
// close requests among them), stays away from GTK for a window with a handle
// (no window here wraps a GTK dialog).
TEST(GdkEventHandler, NoEventOfWindowWithHandleReachesGtk)
{
    CountedWindow counted;
    AttachHwnd(counted.window(), FakeHwnd(7));
    for (int type = GDK_DELETE; type <= GDK_DAMAGE; ++type)
        Handle(NewEvent(static_cast<GdkEventType>(type), counted.window()));
    EXPECT_EQ(counted.total(), 0);
    EXPECT_EQ(vorlan::GtkCriticalSection::depth(), 0);
    EXPECT_EQ(vorlan::GtkCriticalSection::owner_thread(), vorlan::GtkCriticalSection::kNoOwner);
}

TEST(GdkEventHandler, RunsInsideAnExportedCallWithoutChangingTheDepth)
{
    CountedWindow counted;
    GdkEvent *event = NewEvent(GDK_DELETE, counted.window());
    {
        vorlan::GtkCriticalSection exported;
        vorlan_gdk_event_handler(event, nullptr);
        EXPECT_EQ(counted.count(GDK_DELETE), 1);
        EXPECT_EQ(vorlan::GtkCriticalSection::depth(), 1);
        EXPECT_EQ(vorlan::GtkCriticalSection::owner_thread(), GetCurrentThreadId());
    }
    FreeEvent(event);
}

// Through the real pump: a close request reaches a widget through the
// library's handler, and never a window with a handle.
TEST(GdkEventHandler, IsInstalledFromStartup)
{
    CountedWindow withHandle;
    AttachHwnd(withHandle.window(), FakeHwnd(8));
    CountedWindow plain;
    PumpPending();

    SendCloseRequest(withHandle.xid());
    SendCloseRequest(plain.xid());
    EXPECT_TRUE(PumpUntil([&] { return plain.count(GDK_DELETE) > 0; }));
    EXPECT_EQ(withHandle.count(GDK_DELETE), 0);
}
