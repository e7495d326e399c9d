// The process-wide X event filter: which Expose events it takes, and that it
// is installed for every window from start-up on.

// GoogleTest comes before the X headers, whose macros (None, Bool) clash with it.
#include <gtest/gtest.h>

#include "gtk/vorlglobals.h"
#include "gtk/vorlgtklock.h"
#include "support/gtk_helpers.h"

#include <gdk/gdkx.h>

using namespace vorlan_test;

namespace {

XEvent MakeExpose(XID window)
{
    XEvent event = {};
    event.xexpose.type = Expose;
    event.xexpose.display = XDisplay();
    event.xexpose.window = window;
    event.xexpose.x = 3;
    event.xexpose.y = 4;
    event.xexpose.width = 5;
    event.xexpose.height = 6;
    return event;
}

// Calls the filter as GDK does: with GDK's lock held for this thread.
GdkFilterReturn Filter(XEvent event)
{
    GdkEvent gdkEvent = {};
    GdkFilterReturn result = GDK_FILTER_CONTINUE;
    WithGdkLockHeld([&] { result = vorlan_x_event_filter(&event, &gdkEvent, nullptr); });
    return result;
}

// The update area that GDK has collected for the window, cleared by the
// call.  Empty when nothing was invalidated.
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

void FreezeUpdates(GdkWindow *window)
{
    vorlan::GtkCriticalSection lock;
    gdk_window_freeze_updates(window);
}

} // namespace

// Expose events of windows GDK does not know or that carry a handle are
// taken; those of a GTK widget's window and other events go on to GDK.
TEST(XEventFilter, TakesExposeOfUnknownWindowsAndWindowsWithHandle)
{
    ForeignXWindow foreign;
    PopupWindow popup(10, 10, 30, 30);
    PlainGdkWindow plain(10, 10, 30, 30);
    AttachHwnd(plain.window(), FakeHwnd(1));
    EXPECT_EQ(Filter(MakeExpose(foreign.xid())), GDK_FILTER_REMOVE);
    EXPECT_EQ(Filter(MakeExpose(popup.xid())), GDK_FILTER_CONTINUE);
    EXPECT_EQ(Filter(MakeExpose(plain.xid())), GDK_FILTER_REMOVE);
    XEvent event = {};
    event.xconfigure.type = ConfigureNotify;
    event.xconfigure.display = XDisplay();
    event.xconfigure.window = popup.xid();
    EXPECT_EQ(Filter(event), GDK_FILTER_CONTINUE);
}

TEST(XEventFilter, MapOfWindowThatIsNotForegroundChangesNoFocus)
{
    PopupWindow popup(10, 10, 30, 30);
    Window focusBefore = 0;
    int revert = 0;
    {
        vorlan::GtkCriticalSection lock;
        XGetInputFocus(XDisplay(), &focusBefore, &revert);
    }
    XEvent event = {};
    event.xmap.type = MapNotify;
    event.xmap.display = XDisplay();
    event.xmap.window = popup.xid();
    EXPECT_EQ(Filter(event), GDK_FILTER_CONTINUE);
    Window focusAfter = 0;
    {
        vorlan::GtkCriticalSection lock;
        XSync(XDisplay(), False);
        XGetInputFocus(XDisplay(), &focusAfter, &revert);
    }
    EXPECT_EQ(focusAfter, focusBefore);
}

TEST(XEventFilter, LeavesTheLockAsItFoundIt)
{
    ForeignXWindow foreign;
    Filter(MakeExpose(foreign.xid()));
    EXPECT_EQ(vorlan::GtkCriticalSection::depth(), 0);
    EXPECT_EQ(vorlan::GtkCriticalSection::owner_thread(), vorlan::GtkCriticalSection::kNoOwner);
    // Called inside an exported call instead of by GDK.
    vorlan::GtkCriticalSection exported;
    XEvent event = MakeExpose(foreign.xid());
    GdkEvent gdkEvent = {};
    EXPECT_EQ(vorlan_x_event_filter(&event, &gdkEvent, nullptr), GDK_FILTER_REMOVE);
    EXPECT_EQ(vorlan::GtkCriticalSection::depth(), 1);
    EXPECT_EQ(vorlan::GtkCriticalSection::owner_thread(), GetCurrentThreadId());
}

// Through the real pump: GDK collects the exposed area of a widget's window,
// while the area of a window with a handle never reaches GDK.  Updates are
// frozen so that the collected areas stay readable.
TEST(XEventFilter, IsInstalledForAllWindowsFromStartup)
{
    PopupWindow popup(100, 100, 40, 40);
    PlainGdkWindow plain(200, 100, 40, 40);
    GdkWindow *widgetWindow = popup.window();
    GdkWindow *handleWindow = plain.window();
    AttachHwnd(handleWindow, FakeHwnd(2));
    PumpPending();
    FreezeUpdates(widgetWindow);
    FreezeUpdates(handleWindow);
    TakeUpdateArea(widgetWindow);
    TakeUpdateArea(handleWindow);

    SendExpose(plain.xid(), 1, 2, 7, 8);
    SendExpose(popup.xid(), 1, 2, 7, 8);
    GdkRectangle widgetArea = {0, 0, 0, 0};
    ASSERT_TRUE(PumpUntil([&] {
        const GdkRectangle area = TakeUpdateArea(widgetWindow);
        if (area.width != 0)
            widgetArea = area;
        return widgetArea.width != 0;
    }));
    // A late Expose of the mapping may have joined; the sent area is inside.
    EXPECT_LE(widgetArea.x, 1);
    EXPECT_LE(widgetArea.y, 2);
    EXPECT_GE(widgetArea.x + widgetArea.width, 8);
    EXPECT_GE(widgetArea.y + widgetArea.height, 10);
    const GdkRectangle handleArea = TakeUpdateArea(handleWindow);
    EXPECT_EQ(handleArea.width, 0);
    EXPECT_EQ(handleArea.height, 0);
}
