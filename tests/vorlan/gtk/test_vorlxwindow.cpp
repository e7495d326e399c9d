// The X side of window objects, checked on the server: X windows and their
// geometry, window manager protocols, properties, focus and frames.
#include <gtest/gtest.h>

#include "gtk/vorlstartup.h"
#include "gtk/vorlgtklock.h"
#include "gtk/vorlxwindow.h"
#include "support/gtk_helpers.h"
#include "support/window_checks.h"

#include <X11/Xutil.h>
#include <gdk/gdkx.h>

#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>

using namespace vorlan_test;

namespace {

WindowOptions Top(DWORD style, RECT rect, RECT client = {0, 0, 0, 0})
{
    WindowOptions options = ObjectSpec(nullptr, style, rect, true);
    options.rcClient = client;
    return options;
}

WindowOptions Child(HWND parent, RECT rect)
{
    return ObjectSpec(parent, WS_CHILD | WS_VISIBLE, rect, true);
}

RECT XRectOf(HWND hWnd)
{
    vorlan::GtkCriticalSection lock;
    RECT rect;
    vorlan::CalcXWindowRect(vorlan::getWindow(hWnd), &rect);
    return rect;
}

// The server's geometry as x, y, width, height, once the window manager
// has passed a top-level window's configure request on.
RECT ServerGeometryOf(XID window, const RECT &expected)
{
    auto asRect = [&] {
        const ServerGeometry g = QueryServerGeometry(window);
        return RECT{g.x, g.y, LONG(g.width), LONG(g.height)};
    };
    PumpUntil([&] {
        const RECT now = asRect();
        return EqualRect(&now, &expected) != FALSE;
    }, 3000);
    return asRect();
}

void Show(HWND hWnd)
{
    vorlan::GtkCriticalSection lock;
    gdk_window_show(vorlan::getWindow(hWnd)->window);
    gdk_flush();
}

} // namespace

// CalcXWindowRect and what the server then has: a decorated window's X
// window is its client part, a child is cut to its parent's client area,
// and nothing to show is (-1, -1, 0, 0), a 1x1 window out of sight.
TEST(XWindow, XGeometryOfTopLevelAndChildWindowsOnTheServer)
{
    const int fx = GetSystemMetrics(SM_CXFRAME), fy = GetSystemMetrics(SM_CYFRAME);
    const int ftop = fy + GetSystemMetrics(SM_CYCAPTION);
    const RECT none = {0, 0, 0, 0}, outOfSight = {-1, -1, 0, 0};
    struct Case {
        const char *what;
        DWORD style;
        RECT top, client, child, expected;
    } const cases[] = {
        {"plain top level", WS_POPUP, {100, 100, 300, 250}, none, none, {100, 100, 300, 250}},
        {"child", WS_POPUP, {100, 100, 300, 250}, none, {110, 120, 160, 170}, {10, 20, 60, 70}},
        {"decorated top level", WS_OVERLAPPEDWINDOW, {100, 100, 300, 250}, none, none,
         {100 + fx, 100 + ftop, 300 - fx, 250 - fy}},
        {"child cut by the client area", WS_POPUP, {100, 100, 300, 300}, {110, 130, 290, 290},
         {250, 250, 350, 350}, {150, 150, 190, 190}},
        {"child outside the client area", WS_POPUP, {100, 100, 300, 300}, none, {400, 400, 450, 450}, outOfSight},
        {"empty top level", WS_POPUP, {100, 100, 100, 300}, none, none, outOfSight},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.what);
        TestWindow top(Top(c.style, c.top, c.client));
        std::unique_ptr<TestWindow> child;
        if (!IsRectEmpty(&c.child))
            child = std::make_unique<TestWindow>(Child(top.hwnd(), c.child));
        const TestWindow &window = child != nullptr ? *child : top;
        EXPECT_TRUE(SameRect(XRectOf(window.hwnd()), c.expected));
        const RECT server = EqualRect(&c.expected, &outOfSight)
                                ? RECT{-1, -1, 1, 1}
                                : RECT{c.expected.left, c.expected.top, c.expected.right - c.expected.left,
                                       c.expected.bottom - c.expected.top};
        EXPECT_TRUE(SameRect(ServerGeometryOf(window.xid(), server), server)) << "x, y, width, height";
        EXPECT_EQ(XParentOf(window.xid()), child != nullptr ? top.xid() : XID(DefaultRootWindow(XDisplay())));
    }
}

TEST(XWindow, ChildOfAForeignWindowIsPlacedInItAndAnUnlinkedWindowKeepsItsRectangle)
{
    PlainGdkWindow plain(50, 60, 100, 100);
    TestWindow host(ObjectSpec(nullptr, WS_POPUP, {50, 60, 150, 160}));
    TestWindow child(ObjectSpec(host.hwnd(), WS_CHILD | WS_VISIBLE, {70, 90, 100, 120}));
    {
        vorlan::GtkCriticalSection lock;
        host.object()->foreignWindow = plain.window();
    }
    EXPECT_TRUE(SameRect(XRectOf(child.hwnd()), {20, 30, 50, 60}));
    {
        vorlan::GtkCriticalSection lock;
        host.object()->foreignWindow = nullptr;
        host.object()->pWndParent = nullptr;
    }
    EXPECT_TRUE(SameRect(XRectOf(host.hwnd()), {50, 60, 150, 160}));
    vorlan::GtkCriticalSection lock;
    host.object()->pWndParent = vorlan::getWindow(g_hWndDesktop);
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
    EXPECT_EQ(XPropertyData(child.xid(), "classname"), "");
    setenv("QTS_SUPPORT", "1", 1);
    {
        vorlan::GtkCriticalSection lock;
        EXPECT_TRUE(SetXWindowInfo(child.hwnd()));
    }
    unsetenv("QTS_SUPPORT");
    std::string type;
    EXPECT_EQ(XPropertyData(child.xid(), "classname", nullptr, &type), "VorlanTestWindow");
    EXPECT_EQ(type, "QTSSupportType");
    const std::string id = XPropertyData(child.xid(), "controlid", nullptr, &type);
    ASSERT_EQ(id.size(), 4u);
    LONG value = 0;
    std::memcpy(&value, id.data(), 4);
    EXPECT_EQ(value, 0x0A0B0C0D);
}

TEST(XWindow, ForeignParentAndDeadXWindows)
{
    ForeignXWindow foreign;
    TestWindow own(Top(WS_POPUP, {100, 100, 300, 250}));
    vorlan::GtkCriticalSection lock;
    EXPECT_FALSE(IsForeignXWindow(XDisplay(), 0));
    EXPECT_FALSE(IsForeignXWindow(XDisplay(), own.xid()));
    EXPECT_TRUE(IsForeignXWindow(XDisplay(), foreign.xid()));
    EXPECT_EQ(GetParentXWindow(XDisplay(), foreign.xid()), DefaultRootWindow(XDisplay()));
    EXPECT_EQ(GetParentXWindow(XDisplay(), DestroyedXWindow()), 0u);

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

TEST(XWindow, InputFocusIsGivenOnce)
{
    TestWindow top(Top(WS_POPUP, {100, 100, 300, 250}));
    Show(top.hwnd());
    ASSERT_TRUE(PumpUntil([&] { return XWindowViewable(top.xid()); }));
    vorlan::GtkCriticalSection lock;
    EXPECT_TRUE(SetXInputFocusWithoutEvents(XDisplay(), top.xid(), CurrentTime, FALSE));
    ::Window focus = None;
    int revert = 0;
    XGetInputFocus(XDisplay(), &focus, &revert);
    EXPECT_EQ(focus, top.xid());
    EXPECT_TRUE(SetXInputFocusWithoutEvents(XDisplay(), top.xid(), CurrentTime, FALSE));
    EXPECT_FALSE(SetXInputFocusWithoutEvents(XDisplay(), DestroyedXWindow(), CurrentTime, FALSE));
}

TEST(XWindow, ShownTopLevelHasItsProtocolsAndInputHintAndTheFrameIsItsTopLevelXWindow)
{
    TestWindow top(Top(WS_OVERLAPPEDWINDOW, {100, 100, 300, 250}));
    TestWindow child(Child(top.hwnd(), {120, 140, 160, 170}));
    {
        vorlan::GtkCriticalSection lock;
        EXPECT_EQ(GetTopLevelXWindow(child.hwnd()), top.xid()) << "unmapped: no frame yet";
        SetWMInputMode(top.hwnd());
    }
    Show(top.hwnd());
    ASSERT_TRUE(PumpUntil([&] { return XParentOf(top.xid()) != DefaultRootWindow(XDisplay()); }))
        << "the window manager did not frame the window";
    vorlan::GtkCriticalSection lock;
    const XID frame = GetTopLevelXWindow(child.hwnd());
    EXPECT_NE(frame, 0u);
    EXPECT_NE(frame, top.xid());
    EXPECT_EQ(GetParentXWindow(XDisplay(), frame), DefaultRootWindow(XDisplay()));
    EXPECT_EQ(GetTopLevelXWindow(top.hwnd()), frame);
    EXPECT_EQ(GetTopLevelXWindow(FakeHwnd(64998)), 0u);

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
