// Start-up state, the scoped X error trap, and the process-wide X event
// filter and GDK event handler that start-up installs.

// GoogleTest comes before the X headers, whose macros (None, Bool) clash with it.
#include <gtest/gtest.h>

#include <vorlan.h>

#include "gtk/vorlstartup.h"
#include "gtk/vorleventpump.h"
#include "gtk/vorlgtklock.h"
#include "gtk/vorlxwindow.h"
#include "support/gtk_helpers.h"

#include <gdk/gdkx.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <future>
#include <string>
#include <vector>

using namespace vorlan_test;
using vorlan::TemporaryXErrorHandler;

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

void FreezeUpdates(GdkWindow *window)
{
    vorlan::GtkCriticalSection lock;
    gdk_window_freeze_updates(window);
}

// Records the event types GTK delivers; stopping each keeps a closed window.
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
    XEvent event = ProtocolMessage(window, XInternAtom(XDisplay(), "WM_DELETE_WINDOW", False));
    XSendEvent(XDisplay(), window, False, 0, &event);
    XSync(XDisplay(), False);
}

int g_outerErrors = 0;

int CountingHandler(Display *, XErrorEvent *)
{
    ++g_outerErrors;
    return 0;
}

class OuterHandler {
public:
    OuterHandler()
    {
        vorlan::GtkCriticalSection lock;
        g_outerErrors = 0;
        m_previous = XSetErrorHandler(CountingHandler);
    }
    ~OuterHandler()
    {
        vorlan::GtkCriticalSection lock;
        XSetErrorHandler(m_previous);
    }

private:
    XErrorHandler m_previous;
};

XErrorHandler CurrentHandler()
{
    vorlan::GtkCriticalSection lock;
    XErrorHandler current = XSetErrorHandler(nullptr);
    XSetErrorHandler(current);
    return current;
}

Status GetAttributes(XID window)
{
    vorlan::GtkCriticalSection lock;
    XWindowAttributes attributes;
    return XGetWindowAttributes(XDisplay(), window, &attributes);
}

// Runs QRTInitedCallback with the two settings set (null: unset), which the
// tests' environment does not otherwise set.
void InitedCallbackWith(const char *timeCost, const char *logFile)
{
    auto put = [](const char *name, const char *value) { value ? setenv(name, value, 1) : unsetenv(name); };
    put("API_TIMECOST_LOG", timeCost);
    put("VORL_LOG_FILE", logFile);
    QRTInitedCallback();
    unsetenv("API_TIMECOST_LOG");
    unsetenv("VORL_LOG_FILE");
}

} // namespace

TEST(Startup, MainThreadIsTheThreadThatLoadedTheLibrary)
{
    EXPECT_EQ(vorlan::g_vorlData.dwMainThreadId, GetCurrentThreadId());
}

TEST(Startup, LeavesTheToolkitLockFree)
{
    EXPECT_EQ(vorlan::GtkCriticalSection::depth(), 0);
    EXPECT_EQ(vorlan::GtkCriticalSection::owner_thread(), vorlan::GtkCriticalSection::kNoOwner);
    // Another thread gets the lock at once.
    auto other = std::async(std::launch::async, [] { vorlan::GtkCriticalSection lock; });
    EXPECT_EQ(other.wait_for(std::chrono::seconds(5)), std::future_status::ready);
}

TEST(QRTInitedCallback, ReadsTimeCostLogAndLogFileCutToTheBuffer)
{
    InitedCallbackWith("7", "/var/log/app/vorlan.log");
    EXPECT_EQ(vorlan::g_vorlData.nTimeCostLog, 7);
    EXPECT_STREQ(vorlan::g_vorlData.szLogFile, "/var/log/app/vorlan.log");
    const std::string longName = "/" + std::string(400, 'l');
    InitedCallbackWith(nullptr, longName.c_str());
    EXPECT_EQ(vorlan::g_vorlData.nTimeCostLog, 0);
    EXPECT_EQ(std::string(vorlan::g_vorlData.szLogFile), longName.substr(0, MAX_PATH - 1));
    InitedCallbackWith(nullptr, nullptr);
    EXPECT_STREQ(vorlan::g_vorlData.szLogFile, "");
}

TEST(GetWindowHandleFromXID, GivesTheHandleOfAGdkWindowThatHasOne)
{
    ForeignXWindow foreign;
    EXPECT_EQ(GetWindowHandleFromXID(foreign.xid()), nullptr);
    EXPECT_EQ(GetWindowHandleFromXID(0), nullptr);

    PlainGdkWindow plain(0, 0, 10, 10);
    EXPECT_EQ(GetWindowHandleFromXID(plain.xid()), nullptr);
    AttachHwnd(plain.window(), FakeHwnd(12));
    EXPECT_EQ(GetWindowHandleFromXID(plain.xid()), FakeHwnd(12));

    GdkPixmap *pixmap = nullptr;
    {
        vorlan::GtkCriticalSection lock;
        pixmap = gdk_pixmap_new(gdk_get_default_root_window(), 4, 4, -1);
        g_object_set_data(G_OBJECT(pixmap), "HWND", FakeHwnd(3));
    }
    EXPECT_EQ(GetWindowHandleFromXID(GDK_PIXMAP_XID(pixmap)), nullptr);
    vorlan::GtkCriticalSection lock;
    g_object_unref(pixmap);
}

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

TEST(TemporaryXErrorHandler, StartsWithoutErrorAndCatchesTheErrorOfAGoneWindow)
{
    {
        TemporaryXErrorHandler trap;
        GetAttributes(DestroyedXWindow());
        EXPECT_EQ(vorlan::GtkCriticalSection::depth(), 0);
    }
    ASSERT_NE(TemporaryXErrorHandler::error_code, 0);
    EXPECT_EQ(vorlan::GtkCriticalSection::owner_thread(), vorlan::GtkCriticalSection::kNoOwner);
    {
        TemporaryXErrorHandler trap;
        EXPECT_EQ(TemporaryXErrorHandler::error_code, 0);
        ForeignXWindow live;
        EXPECT_NE(GetAttributes(live.xid()), 0);
        EXPECT_EQ(TemporaryXErrorHandler::error_code, 0);
    }
}

TEST(TemporaryXErrorHandler, SyncsOnLeavingSoLateErrorsAreCaught)
{
    const XID gone = DestroyedXWindow();
    {
        TemporaryXErrorHandler trap;
        vorlan::GtkCriticalSection lock;
        XMapWindow(XDisplay(), gone); // no reply: the error comes at the next sync
    }
    EXPECT_EQ(TemporaryXErrorHandler::error_code, BadWindow);
}

TEST(TemporaryXErrorHandler, NestedScopesRestoreEachLevelAndThePreviousHandler)
{
    OuterHandler outer;
    const XErrorHandler before = CurrentHandler();
    {
        TemporaryXErrorHandler outerTrap;
        const XErrorHandler trapHandler = CurrentHandler();
        EXPECT_NE(trapHandler, before);
        {
            TemporaryXErrorHandler innerTrap;
            GetAttributes(DestroyedXWindow());
        }
        EXPECT_EQ(CurrentHandler(), trapHandler);
        EXPECT_EQ(TemporaryXErrorHandler::error_code, BadWindow);
    }
    EXPECT_EQ(g_outerErrors, 0);
    EXPECT_EQ(CurrentHandler(), before);
    GetAttributes(DestroyedXWindow());
    EXPECT_EQ(g_outerErrors, 1);
}
