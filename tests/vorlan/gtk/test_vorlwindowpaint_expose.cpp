// Expose events taken from the display ahead of the main loop.
#include <gtest/gtest.h>

#include "gtk/vorlwindowpaint.h"
#include "gtk/vorlgtklock.h"
#include "support/gtk_helpers.h"

#include <gdk/gdkx.h>

using namespace vorlan_test;

namespace {

// Freezes updates and clears whatever the mapping exposed.
void StartClean(GdkWindow *window)
{
    PumpPending();
    vorlan::GtkCriticalSection lock;
    gdk_window_freeze_updates(window);
    XSync(XDisplay(), False);
    ProcessExposeEvents();
    TakeUpdateArea(window);
}

void ProcessExposeEventsLocked()
{
    vorlan::GtkCriticalSection lock;
    ProcessExposeEvents();
}

bool ExposeQueuedFor(XID window)
{
    vorlan::GtkCriticalSection lock;
    XEvent event;
    if (!XCheckTypedWindowEvent(XDisplay(), window, Expose, &event))
        return false;
    XPutBackEvent(XDisplay(), &event);
    return true;
}

} // namespace

TEST(ProcessExposeEvents, InvalidatesTheExposedPartOfAWidgetWindow)
{
    PopupWindow popup(300, 300, 40, 40);
    GdkWindow *window = popup.window();
    StartClean(window);
    SendExpose(popup.xid(), 4, 5, 6, 7);
    ProcessExposeEventsLocked();
    const GdkRectangle area = TakeUpdateArea(window);
    EXPECT_TRUE(area.x == 4 && area.y == 5 && area.width == 6 && area.height == 7)
        << area.x << "," << area.y << " " << area.width << "x" << area.height;
}

TEST(ProcessExposeEvents, DropsExposesOfForeignWindowsAndOfWindowsWithHandlesAndLeavesOtherEvents)
{
    ForeignXWindow foreign;
    SendExpose(foreign.xid(), 0, 0, 5, 5);
    ASSERT_TRUE(ExposeQueuedFor(foreign.xid()));
    ProcessExposeEventsLocked();
    EXPECT_FALSE(ExposeQueuedFor(foreign.xid()));

    // A window with a handle is repainted through its update region, not
    // through GDK's.
    PlainGdkWindow plain(300, 300, 40, 40);
    AttachHwnd(plain.window(), FakeHwnd(9));
    StartClean(plain.window());
    SendExpose(plain.xid(), 1, 1, 5, 5);
    {
        vorlan::GtkCriticalSection lock;
        XEvent event = {};
        event.xclient.type = ClientMessage;
        event.xclient.display = XDisplay();
        event.xclient.window = plain.xid();
        event.xclient.message_type = XInternAtom(XDisplay(), "VORLAN_TEST_MESSAGE", False);
        event.xclient.format = 32;
        XSendEvent(XDisplay(), event.xclient.window, False, 0, &event);
        XSync(XDisplay(), False);
    }
    ProcessExposeEventsLocked();
    EXPECT_FALSE(ExposeQueuedFor(plain.xid()));
    EXPECT_EQ(TakeUpdateArea(plain.window()).width, 0);
    vorlan::GtkCriticalSection lock;
    XEvent event;
    EXPECT_TRUE(XCheckTypedWindowEvent(XDisplay(), plain.xid(), ClientMessage, &event));
}
