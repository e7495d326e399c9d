// The X side of window objects, checked on the server: X windows and their
// geometry, window manager protocols, properties, focus and frames.
#include <gtest/gtest.h>

#include "gtk/vorlglobals.h"
#include "gtk/vorlgtklock.h"
#include "gtk/vorlxerror.h"
#include "gtk/vorlxwindow.h"
#include "support/gtk_helpers.h"
#include "support/window_objects.h"

#include <X11/Xatom.h>
#include <X11/Xutil.h>
#include <gdk/gdkx.h>

#include <cstdlib>
#include <cstring>
#include <string>

using namespace vorlan_test;

namespace {

WindowOptions Top(DWORD style, RECT rect, RECT client = {0, 0, 0, 0})
{
    WindowOptions options;
    options.style = style;
    options.rcWindow = rect;
    options.rcClient = client;
    return options;
}

WindowOptions Child(HWND parent, RECT rect)
{
    WindowOptions options;
    options.parent = parent;
    options.style = WS_CHILD | WS_VISIBLE;
    options.rcWindow = rect;
    return options;
}

RECT XRectOf(HWND hWnd)
{
    vorlan::GtkCriticalSection lock;
    RECT rect;
    vorlan::CalcXWindowRect(vorlan::getWindow(hWnd), &rect);
    return rect;
}

void ExpectRect(const RECT &rect, LONG left, LONG top, LONG right, LONG bottom)
{
    EXPECT_EQ(rect.left, left);
    EXPECT_EQ(rect.top, top);
    EXPECT_EQ(rect.right, right);
    EXPECT_EQ(rect.bottom, bottom);
}

bool Matches(const ServerGeometry &geometry, int x, int y, unsigned width, unsigned height)
{
    return geometry.x == x && geometry.y == y && geometry.width == width && geometry.height == height;
}

// A top-level window's configure request goes through the window manager,
// so its geometry arrives a moment later.
void ExpectGeometry(XID window, int x, int y, unsigned width, unsigned height)
{
    PumpUntil([&] { return Matches(QueryServerGeometry(window), x, y, width, height); }, 3000);
    const ServerGeometry geometry = QueryServerGeometry(window);
    EXPECT_EQ(geometry.x, x);
    EXPECT_EQ(geometry.y, y);
    EXPECT_EQ(geometry.width, width);
    EXPECT_EQ(geometry.height, height);
}

XID XParentOf(XID window)
{
    vorlan::GtkCriticalSection lock;
    return GetParentXWindow(XDisplay(), window);
}

XID RootXWindow()
{
    return DefaultRootWindow(XDisplay());
}

void Show(HWND hWnd)
{
    vorlan::GtkCriticalSection lock;
    gdk_window_show(vorlan::getWindow(hWnd)->window);
    gdk_flush();
}

bool IsMapped(XID window)
{
    vorlan::GtkCriticalSection lock;
    XWindowAttributes attributes;
    return XGetWindowAttributes(XDisplay(), window, &attributes) && attributes.map_state == IsViewable;
}

// The property's 8-bit data as a string, with its type's name.
std::string ReadProperty(XID window, const char *name, std::string *typeName)
{
    vorlan::GtkCriticalSection lock;
    Display *display = XDisplay();
    Atom type = None;
    int format = 0;
    unsigned long count = 0, after = 0;
    unsigned char *data = nullptr;
    XGetWindowProperty(display, window, XInternAtom(display, name, False), 0, 1024, False, AnyPropertyType, &type,
                       &format, &count, &after, &data);
    std::string value;
    if (data != nullptr) {
        value.assign(reinterpret_cast<char *>(data), count);
        XFree(data);
    }
    if (typeName != nullptr && type != None) {
        char *text = XGetAtomName(display, type);
        *typeName = text;
        XFree(text);
    }
    return value;
}

} // namespace

TEST(XWindow, TopLevelAndChildGetXWindowsOfTheirOwn)
{
    TestWindow top(Top(WS_POPUP, {100, 100, 300, 250}));
    TestWindow child(Child(top.hwnd(), {110, 120, 160, 170}));
    vorlan::GtkCriticalSection lock;
    GdkWindow *topWindow = top.object()->window;
    GdkWindow *childWindow = child.object()->window;
    ASSERT_NE(topWindow, nullptr);
    ASSERT_NE(childWindow, nullptr);
    EXPECT_EQ(gdk_window_get_window_type(topWindow), GDK_WINDOW_TOPLEVEL);
    EXPECT_EQ(gdk_window_get_window_type(childWindow), GDK_WINDOW_CHILD);
    EXPECT_EQ(gdk_window_get_parent(childWindow), topWindow);
    EXPECT_EQ(g_object_get_data(G_OBJECT(topWindow), "HWND"), top.hwnd());
    EXPECT_EQ(g_object_get_data(G_OBJECT(childWindow), "HWND"), child.hwnd());
    EXPECT_EQ(gdk_window_get_events(childWindow) & 0x24FF6, 0x24FF6);
    EXPECT_EQ(gdk_window_get_events(childWindow) & (GDK_ENTER_NOTIFY_MASK | GDK_LEAVE_NOTIFY_MASK), 0);
    EXPECT_EQ(GetGdkWindow(child.hwnd()), childWindow);
    EXPECT_EQ(GetXDisplay(child.hwnd()), XDisplay());
    EXPECT_FALSE(IsForeignXWindow(XDisplay(), GDK_WINDOW_XID(childWindow)));
}

TEST(XWindow, GeometryOfTopLevelAndChildOnTheServer)
{
    TestWindow top(Top(WS_POPUP, {100, 100, 300, 250}));
    TestWindow child(Child(top.hwnd(), {110, 120, 160, 170}));
    ExpectGeometry(top.xid(), 100, 100, 200, 150);
    ExpectGeometry(child.xid(), 10, 20, 50, 50);
    EXPECT_EQ(XParentOf(child.xid()), top.xid());
    vorlan::GtkCriticalSection lock;
    ExpectRect(child.object()->rcXWindow, 10, 20, 60, 70);
}

TEST(XWindow, DecoratedTopLevelIsOnlyItsClientPart)
{
    TestWindow top(Top(WS_OVERLAPPEDWINDOW, {100, 100, 300, 250}));
    const int fx = GetSystemMetrics(SM_CXFRAME), fy = GetSystemMetrics(SM_CYFRAME);
    const int ftop = fy + GetSystemMetrics(SM_CYCAPTION);
    ExpectRect(XRectOf(top.hwnd()), 100 + fx, 100 + ftop, 300 - fx, 250 - fy);
    ExpectGeometry(top.xid(), 100 + fx, 100 + ftop, 200 - 2 * fx, 150 - ftop - fy);
}

TEST(XWindow, ChildIsCutToParentClientArea)
{
    TestWindow top(Top(WS_POPUP, {100, 100, 300, 300}, {110, 130, 290, 290}));
    TestWindow child(Child(top.hwnd(), {250, 250, 350, 350}));
    ExpectRect(XRectOf(child.hwnd()), 150, 150, 190, 190);
    ExpectGeometry(child.xid(), 150, 150, 40, 40);
}

TEST(XWindow, ChildOutsideParentClientAreaIsOutOfSight)
{
    TestWindow top(Top(WS_POPUP, {100, 100, 300, 300}));
    TestWindow child(Child(top.hwnd(), {400, 400, 450, 450}));
    ExpectRect(XRectOf(child.hwnd()), -1, -1, 0, 0);
    ExpectGeometry(child.xid(), -1, -1, 1, 1);
}

TEST(XWindow, EmptyWindowIsOutOfSight)
{
    TestWindow top(Top(WS_POPUP, {100, 100, 100, 300}));
    ExpectRect(XRectOf(top.hwnd()), -1, -1, 0, 0);
}

TEST(XWindow, GrandchildIsPlacedInItsXParent)
{
    TestWindow top(Top(WS_POPUP, {100, 100, 300, 300}));
    TestWindow child(Child(top.hwnd(), {120, 120, 220, 220}));
    TestWindow grandchild(Child(child.hwnd(), {130, 140, 150, 160}));
    ExpectRect(XRectOf(grandchild.hwnd()), 10, 20, 30, 40);
    ExpectGeometry(grandchild.xid(), 10, 20, 20, 20);
    ExpectGeometry(top.xid(), 100, 100, 200, 200);
    vorlan::GtkCriticalSection lock;
    int rootX = 0, rootY = 0;
    ::Window unused;
    XTranslateCoordinates(XDisplay(), grandchild.xid(), RootXWindow(), 0, 0, &rootX, &rootY, &unused);
    EXPECT_EQ(rootX, 130);
    EXPECT_EQ(rootY, 140);
}

TEST(XWindow, ChildOfForeignWindowIsPlacedInIt)
{
    PlainGdkWindow plain(50, 60, 100, 100);
    WindowOptions hostOptions = Top(WS_POPUP, {50, 60, 150, 160});
    hostOptions.withXWindow = false;
    TestWindow host(hostOptions);
    {
        vorlan::GtkCriticalSection lock;
        host.object()->foreignWindow = plain.window();
    }
    WindowOptions childOptions = Child(host.hwnd(), {70, 90, 100, 120});
    childOptions.withXWindow = false;
    TestWindow child(childOptions);
    ExpectRect(XRectOf(child.hwnd()), 20, 30, 50, 60);
    vorlan::GtkCriticalSection lock;
    host.object()->foreignWindow = nullptr;
}

TEST(XWindow, UnlinkedWindowKeepsItsRectangle)
{
    WindowOptions options = Top(WS_POPUP, {5, 6, 25, 36});
    options.withXWindow = false;
    TestWindow window(options);
    {
        vorlan::GtkCriticalSection lock;
        window.object()->pWndParent = nullptr;
    }
    ExpectRect(XRectOf(window.hwnd()), 5, 6, 25, 36);
    vorlan::GtkCriticalSection lock;
    window.object()->pWndParent = vorlan::getWindow(g_hWndDesktop);
}

TEST(XWindow, WMInputModeSetsProtocolsAndInputHint)
{
    TestWindow top(Top(WS_OVERLAPPEDWINDOW, {100, 100, 300, 250}));
    {
        vorlan::GtkCriticalSection lock;
        SetWMInputMode(top.hwnd());
    }
    Show(top.hwnd());
    vorlan::GtkCriticalSection lock;
    Atom *protocols = nullptr;
    int count = 0;
    ASSERT_TRUE(XGetWMProtocols(XDisplay(), top.xid(), &protocols, &count));
    ASSERT_EQ(count, 2);
    EXPECT_EQ(protocols[0], vorlan::g_wm_take_focus);
    EXPECT_EQ(protocols[1], vorlan::g_wm_delete_window);
    XFree(protocols);
    XWMHints *hints = XGetWMHints(XDisplay(), top.xid());
    ASSERT_NE(hints, nullptr);
    EXPECT_TRUE(hints->flags & InputHint);
    EXPECT_FALSE(hints->input);
    XFree(hints);
}

TEST(XWindow, ClassNameAndControlIdUnderQtsSupport)
{
    TestWindow top(Top(WS_POPUP, {100, 100, 300, 250}));
    TestWindow child(Child(top.hwnd(), {110, 120, 160, 170}));
    SetWindowLongW(child.hwnd(), GWL_ID, 0x0A0B0C0D);
    {
        vorlan::GtkCriticalSection lock;
        EXPECT_TRUE(SetXWindowInfo(child.hwnd()));
    }
    EXPECT_EQ(ReadProperty(child.xid(), "classname", nullptr), "");
    setenv("QTS_SUPPORT", "1", 1);
    {
        vorlan::GtkCriticalSection lock;
        EXPECT_TRUE(SetXWindowInfo(child.hwnd()));
    }
    unsetenv("QTS_SUPPORT");
    std::string type;
    EXPECT_EQ(ReadProperty(child.xid(), "classname", &type), "VorlanTestWindow");
    EXPECT_EQ(type, "QTSSupportType");
    const std::string id = ReadProperty(child.xid(), "controlid", &type);
    ASSERT_EQ(id.size(), 4u);
    LONG value = 0;
    std::memcpy(&value, id.data(), 4);
    EXPECT_EQ(value, 0x0A0B0C0D);
}

TEST(XWindow, PropertyOnDeadXWindowReportsFailure)
{
    vorlan::GtkCriticalSection lock;
    GdkWindowAttr attributes = {};
    attributes.window_type = GDK_WINDOW_TOPLEVEL;
    attributes.wclass = GDK_INPUT_OUTPUT;
    attributes.width = 10;
    attributes.height = 10;
    GdkWindow *window = gdk_window_new(nullptr, &attributes, 0);
    XDestroyWindow(XDisplay(), GDK_WINDOW_XID(window));
    XSync(XDisplay(), False);
    EXPECT_FALSE(vorlan::putXPropertyToGdkWindow(window, "classname", "x", 1));
    vorlan::TemporaryXErrorHandler trap;
    gdk_window_destroy(window);
}

TEST(XWindow, ForeignAndParentXWindows)
{
    ForeignXWindow foreign;
    vorlan::GtkCriticalSection lock;
    EXPECT_FALSE(IsForeignXWindow(XDisplay(), 0));
    EXPECT_TRUE(IsForeignXWindow(XDisplay(), foreign.xid()));
    EXPECT_EQ(GetParentXWindow(XDisplay(), foreign.xid()), RootXWindow());
    EXPECT_EQ(GetParentXWindow(XDisplay(), DestroyedXWindow()), 0u);
}

TEST(XWindow, InputFocusIsGivenOnce)
{
    TestWindow top(Top(WS_POPUP, {100, 100, 300, 250}));
    Show(top.hwnd());
    ASSERT_TRUE(PumpUntil([&] { return IsMapped(top.xid()); }));
    vorlan::GtkCriticalSection lock;
    EXPECT_TRUE(SetXInputFocusWithoutEvents(XDisplay(), top.xid(), CurrentTime, FALSE));
    ::Window focus = None;
    int revert = 0;
    XGetInputFocus(XDisplay(), &focus, &revert);
    EXPECT_EQ(focus, top.xid());
    EXPECT_TRUE(SetXInputFocusWithoutEvents(XDisplay(), top.xid(), CurrentTime, FALSE));
    EXPECT_FALSE(SetXInputFocusWithoutEvents(XDisplay(), DestroyedXWindow(), CurrentTime, FALSE));
}

TEST(XWindow, TopLevelXWindowIsTheWindowManagerFrame)
{
    TestWindow top(Top(WS_OVERLAPPEDWINDOW, {100, 100, 300, 250}));
    TestWindow child(Child(top.hwnd(), {120, 140, 160, 170}));
    {
        vorlan::GtkCriticalSection lock;
        EXPECT_EQ(GetTopLevelXWindow(child.hwnd()), top.xid()) << "unmapped: no frame yet";
    }
    Show(top.hwnd());
    ASSERT_TRUE(PumpUntil([&] { return XParentOf(top.xid()) != RootXWindow(); }))
        << "the window manager did not frame the window";
    vorlan::GtkCriticalSection lock;
    const XID frame = GetTopLevelXWindow(child.hwnd());
    EXPECT_NE(frame, 0u);
    EXPECT_NE(frame, top.xid());
    EXPECT_EQ(GetParentXWindow(XDisplay(), frame), RootXWindow());
    EXPECT_EQ(GetTopLevelXWindow(top.hwnd()), frame);
    EXPECT_EQ(GetTopLevelXWindow(reinterpret_cast<HWND>(0x4D726577 + 64998)), 0u);
}
