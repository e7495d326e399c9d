// Window position and Z-order: SetWindowPos's messages, the rectangles it
// leaves, and what X shows afterwards.
#include <gtest/gtest.h>

#include "gtk/vorlgtklock.h"
#include "support/gtk_helpers.h"
#include "support/message_recorder.h"
#include "support/window_checks.h"

#include <X11/Xlib.h>

#include <algorithm>
#include <functional>
#include <vector>

using namespace vorlan_test;
using Seq = std::vector<std::string>;

namespace {

const std::vector<UINT> kPositionMessages = {WM_WINDOWPOSCHANGING, WM_NCCALCSIZE, WM_WINDOWPOSCHANGED, WM_MOVE,
                                             WM_SIZE};

RECT RectInParent(HWND hwnd)
{
    RECT rect = WindowRectOf(hwnd);
    MapWindowPoints(nullptr, GetAncestor(hwnd, GA_PARENT), reinterpret_cast<POINT *>(&rect), 2);
    return rect;
}

// Checks that the parent's child list has the order given and that X
// stacks their X windows the same way: the first in the list lowest.
void ExpectOrder(HWND parent, const std::vector<HWND> &expected)
{
    std::vector<HWND> list;
    for (HWND child = GetWindow(parent, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT))
        list.push_back(child);
    EXPECT_EQ(list, expected);

    std::vector<XID> wanted, stacking;
    for (HWND hwnd : expected)
        wanted.push_back(XidOf(hwnd));
    vorlan::GtkCriticalSection lock;
    ::Window root, xparent, *children = nullptr;
    unsigned count = 0;
    XQueryTree(XDisplay(), XidOf(parent), &root, &xparent, &children, &count);
    for (unsigned i = 0; i < count; ++i)
        if (std::find(wanted.begin(), wanted.end(), children[i]) != wanted.end())
            stacking.push_back(children[i]);
    if (children != nullptr)
        XFree(children);
    EXPECT_EQ(stacking, wanted) << "X stacking";
}

void FlushLibraryConnection()
{
    vorlan::GtkCriticalSection lock;
    XSync(XDisplay(), False);
}

// Structure events of one window, heard on a connection of the test's own.
class StructureWatch {
public:
    explicit StructureWatch(XID xid) : m_display(XOpenDisplay(nullptr)), m_xid(xid)
    {
        FlushLibraryConnection();
        XSelectInput(m_display, xid, StructureNotifyMask);
        XSync(m_display, False);
    }
    ~StructureWatch() { XCloseDisplay(m_display); }
    StructureWatch(const StructureWatch &) = delete;
    StructureWatch &operator=(const StructureWatch &) = delete;

    std::vector<int> Events()
    {
        FlushLibraryConnection();
        XSync(m_display, False);
        std::vector<int> types;
        while (XPending(m_display) > 0) {
            XEvent event;
            XNextEvent(m_display, &event);
            if (event.xany.window == m_xid)
                types.push_back(event.type);
        }
        return types;
    }

private:
    Display *m_display;
    XID m_xid;
};

// Waits until the X window is mapped and on the screen at `expected()`.
::testing::AssertionResult XFollows(XID xid, const std::function<RECT()> &expected)
{
    PumpUntil([&] { return XWindowViewable(xid); });
    RECT x = {}, wanted = {};
    if (PumpUntil([&] {
            x = XScreenRect(xid);
            wanted = expected();
            return EqualRect(&x, &wanted) != FALSE;
        }))
        return ::testing::AssertionSuccess();
    return SameRect(x, wanted);
}

} // namespace

TEST(WindowPositioning, MessagesOfSetWindowPosDependOnWhatChanges)
{
    MessageRecorder recorder("VorlanPosResize");
    const HWND top = recorder.Create(WS_POPUP, 50, 60, 200, 150);
    const HWND child = recorder.Create(WS_CHILD | WS_VISIBLE, 10, 20, 30, 40, top);
    WINDOWPOS changedPos = {};
    recorder.Answer(WM_WINDOWPOSCHANGED, [&](HWND hwnd, WPARAM wParam, LPARAM lParam) {
        changedPos = *reinterpret_cast<const WINDOWPOS *>(lParam);
        return DefWindowProcW(hwnd, WM_WINDOWPOSCHANGED, wParam, lParam);
    });
    recorder.Clear();
    // The present position: only the changing message.
    EXPECT_TRUE(SetWindowPos(child, nullptr, 10, 20, 30, 40, SWP_NOZORDER));
    EXPECT_EQ(recorder.Sequence({child}, kPositionMessages), (Seq{"0:POSCHANGING"}));

    recorder.Clear();
    EXPECT_TRUE(SetWindowPos(child, nullptr, 12, 24, 70, 45, SWP_NOZORDER));
    EXPECT_EQ(recorder.Sequence({child}, kPositionMessages),
              (Seq{"0:POSCHANGING", "0:NCCALCSIZE", "0:POSCHANGED", "0:MOVE", "0:SIZE"}));
    EXPECT_EQ(recorder.Of(child, WM_SIZE)[0].lParam, MAKELPARAM(70, 45));
    EXPECT_EQ(recorder.Of(child, WM_MOVE)[0].lParam, MAKELPARAM(12, 24));
    EXPECT_TRUE(changedPos.x == 12 && changedPos.y == 24 && changedPos.cx == 70 && changedPos.cy == 45);

    // A resize in place keeps the client's origin: no WM_MOVE.
    recorder.Clear();
    EXPECT_TRUE(SetWindowPos(child, nullptr, 0, 0, 60, 45, SWP_NOZORDER | SWP_NOMOVE));
    EXPECT_EQ(recorder.Sequence({child}, kPositionMessages),
              (Seq{"0:POSCHANGING", "0:NCCALCSIZE", "0:POSCHANGED", "0:SIZE"}));

    // A move keeps the client's size: no WM_NCCALCSIZE, no WM_SIZE.
    recorder.Clear();
    EXPECT_TRUE(SetWindowPos(child, nullptr, 1, 2, 0, 0, SWP_NOZORDER | SWP_NOSIZE));
    EXPECT_EQ(recorder.Sequence({child}, kPositionMessages), (Seq{"0:POSCHANGING", "0:POSCHANGED", "0:MOVE"}));

    // Negative sizes count as empty; X still gets a window of at least 1x1.
    EXPECT_TRUE(SetWindowPos(child, nullptr, 10, 10, -5, -7, SWP_NOZORDER));
    EXPECT_TRUE(SameRect(RectInParent(child), RECT{10, 10, 10, 10}));
    RECT client = {1, 1, 1, 1};
    EXPECT_TRUE(GetClientRect(child, &client));
    EXPECT_TRUE(SameRect(client, RECT{0, 0, 0, 0}));
    const RECT x = XGeometry(XidOf(child));
    EXPECT_GE(x.right - x.left, 1);
    EXPECT_GE(x.bottom - x.top, 1);
}

TEST(WindowPositioning, ChangingMessageSeesNoInsertAfterAndMayMoveTheWindowElsewhere)
{
    MessageRecorder recorder("VorlanPosChanging");
    const HWND top = recorder.Create(WS_POPUP, 0, 0, 200, 150);
    const HWND child = recorder.Create(WS_CHILD | WS_VISIBLE, 0, 0, 30, 40, top);
    const HWND sibling = recorder.Create(WS_CHILD | WS_VISIBLE, 0, 0, 30, 40, top);
    WINDOWPOS seen = {};
    recorder.Answer(WM_WINDOWPOSCHANGING, [&](HWND, WPARAM, LPARAM lParam) {
        auto *pos = reinterpret_cast<WINDOWPOS *>(lParam);
        seen = *pos;
        pos->x = 33;
        pos->cx = 11;
        return LRESULT(0);
    });
    EXPECT_TRUE(SetWindowPos(child, sibling, 5, 6, 7, 8, 0));
    EXPECT_EQ(seen.hwnd, child);
    EXPECT_EQ(seen.hwndInsertAfter, nullptr);
    EXPECT_EQ(seen.x, 5);
    EXPECT_EQ(seen.cy, 8);
    EXPECT_TRUE(SameRect(RectInParent(child), RECT{33, 6, 44, 14}));
    EXPECT_TRUE(SameRect(XGeometry(XidOf(child)), RECT{33, 6, 44, 14}));
}

TEST(WindowPositioning, MovingAParentCarriesItsChildrenAlong)
{
    MessageRecorder recorder("VorlanPosCarry");
    const HWND top = recorder.Create(WS_POPUP, 100, 100, 200, 150);
    const HWND child = recorder.Create(WS_CHILD | WS_VISIBLE, 10, 10, 100, 100, top);
    const HWND grandchild = recorder.Create(WS_CHILD | WS_VISIBLE, 5, 5, 20, 20, child);
    MoveWindow(top, 150, 130, 200, 150, FALSE);
    EXPECT_TRUE(SameRect(WindowRectOf(child), RECT{160, 140, 260, 240}));
    EXPECT_TRUE(SameRect(WindowRectOf(grandchild), RECT{165, 145, 185, 165}));
    // X keeps children relative to their parents.
    EXPECT_TRUE(SameRect(XGeometry(XidOf(grandchild)), RECT{5, 5, 25, 25}));
}

TEST(WindowPositioning, DesktopAndDeadWindowsAreRefused)
{
    const HWND desktop = GetDesktopWindow();
    EXPECT_TRUE(FailsWith(0, FALSE, [&] { return SetWindowPos(desktop, nullptr, 0, 0, 10, 10, SWP_NOZORDER); }));
    const HWND bad = FakeHwnd(60001);
    RECT rect;
    POINT point = {};
    EXPECT_TRUE(FailsWith(1400, FALSE, [&] { return SetWindowPos(bad, nullptr, 0, 0, 10, 10, 0); }));
    EXPECT_TRUE(FailsWith(1400, FALSE, [&] { return GetWindowRect(bad, &rect); }));
    EXPECT_TRUE(FailsWith(1400, FALSE, [&] { return GetClientRect(bad, &rect); }));
    EXPECT_TRUE(FailsWith(1400, FALSE, [&] { return ClientToScreen(bad, &point); }));
    EXPECT_TRUE(FailsWith(1400, FALSE, [&] { return ScreenToClient(bad, &point); }));
    EXPECT_TRUE(FailsWith(1400, 0, [&] { return MapWindowPoints(bad, nullptr, &point, 1); }));
    EXPECT_FALSE(GetWindowPlacement(bad, nullptr));
    EXPECT_FALSE(MoveWindow(bad, 0, 0, 1, 1, TRUE));
    EXPECT_FALSE(BringWindowToTop(bad));
}

TEST(WindowPositioning, MapWindowPointsPacksTheOffsetAndPlacementReportsTheShowState)
{
    MessageRecorder recorder("VorlanPosMap");
    const HWND top = recorder.Create(WS_POPUP, 100, 50, 200, 150);
    const HWND child = recorder.Create(WS_CHILD, 10, 20, 30, 30, top);
    POINT points[2] = {{1, 2}, {3, 4}};
    const int packed = MapWindowPoints(child, nullptr, points, 2);
    EXPECT_EQ(LOWORD(packed), 110);
    EXPECT_EQ(HIWORD(packed), 70);
    const int back = MapWindowPoints(GetDesktopWindow(), child, points, 2);
    EXPECT_EQ(short(LOWORD(back)), -110);
    EXPECT_EQ(short(HIWORD(back)), -70);
    EXPECT_EQ(points[0].x, 1);
    EXPECT_EQ(MapWindowPoints(child, child, points, 2), 0);
    EXPECT_EQ(points[0].y, 2);

    const HWND maximized = recorder.Create(WS_POPUP | WS_MAXIMIZE, 7, 8, 20, 30);
    WINDOWPLACEMENT placement = {};
    placement.length = sizeof placement;
    placement.ptMinPosition.x = 1234;
    EXPECT_TRUE(GetWindowPlacement(maximized, &placement));
    EXPECT_EQ(placement.showCmd, UINT(SW_SHOWMAXIMIZED));
    EXPECT_EQ(placement.flags, 0u);
    EXPECT_TRUE(SameRect(placement.rcNormalPosition, RECT{7, 8, 27, 38}));
    EXPECT_EQ(placement.ptMinPosition.x, 1234);
    EXPECT_TRUE(IsZoomed(maximized));
    EXPECT_TRUE(FailsWith(87, FALSE, [&] { return GetWindowPlacement(maximized, nullptr); }));
}

TEST(WindowPositioning, HiddenTopLevelWindowGetsItsXGeometryWhenShown)
{
    MessageRecorder recorder("VorlanPosHidden");
    const HWND hwnd = recorder.Create(WS_POPUP, 20, 30, 100, 80);
    const XID xid = XidOf(hwnd);
    const RECT before = XGeometry(xid);
    StructureWatch watch(xid);
    MoveWindow(hwnd, 40, 50, 110, 90, FALSE);
    MoveWindow(hwnd, 60, 70, 120, 100, FALSE);
    MoveWindow(hwnd, 80, 90, 130, 110, FALSE);
    EXPECT_TRUE(watch.Events().empty());
    EXPECT_TRUE(SameRect(XGeometry(xid), before));
    ShowWindow(hwnd, SW_SHOWNA);
    // Wherever the window manager puts it, the window rectangle follows X.
    EXPECT_TRUE(XFollows(xid, [&] { return WindowRectOf(hwnd); }));
    const RECT shown = WindowRectOf(hwnd);
    EXPECT_EQ(shown.right - shown.left, 130);
    EXPECT_EQ(shown.bottom - shown.top, 110);
}

TEST(WindowPositioning, ChildCrossingItsParentsLeftEdgeIsRemappedInX)
{
    MessageRecorder recorder("VorlanPosCrossing");
    const HWND top = recorder.Create(WS_POPUP | WS_VISIBLE, 0, 0, 200, 150);
    const HWND child = recorder.Create(WS_CHILD | WS_VISIBLE, 10, 10, 50, 50, top);
    StructureWatch watch(XidOf(child));
    MoveWindow(child, 20, 15, 50, 50, FALSE);
    EXPECT_EQ(watch.Events(), (std::vector<int>{ConfigureNotify}));
    MoveWindow(child, -10, 15, 50, 50, FALSE);
    EXPECT_EQ(watch.Events(), (std::vector<int>{UnmapNotify, ConfigureNotify, MapNotify}));
    // The X window is cut at the parent's client edge.
    EXPECT_TRUE(SameRect(XGeometry(XidOf(child)), RECT{0, 15, 40, 65}));
}

TEST(WindowPositioning, DecoratedWindowsXWindowIsItsClientPart)
{
    MessageRecorder recorder("VorlanPosDecorated");
    const HWND hwnd = recorder.Create(WS_OVERLAPPEDWINDOW, 100, 120, 300, 200);
    ShowWindow(hwnd, SW_SHOWNA);
    const XID xid = XidOf(hwnd);
    auto clientOnScreen = [&] {
        RECT client = {};
        GetClientRect(hwnd, &client);
        MapWindowPoints(hwnd, nullptr, reinterpret_cast<POINT *>(&client), 2);
        return client;
    };
    const int frameX = GetSystemMetrics(SM_CXFRAME), frameY = GetSystemMetrics(SM_CYFRAME);
    const int caption = GetSystemMetrics(SM_CYCAPTION);
    auto expectFrame = [&] {
        const RECT window = WindowRectOf(hwnd), client = clientOnScreen();
        EXPECT_TRUE(SameRect(RECT{client.left - window.left, client.top - window.top, window.right - client.right,
                                  window.bottom - client.bottom},
                             RECT{frameX, frameY + caption, frameX, frameY}));
    };
    EXPECT_TRUE(XFollows(xid, clientOnScreen));
    expectFrame();

    // The window manager moves it: the configure event reports the frame.
    recorder.Clear();
    {
        vorlan::GtkCriticalSection lock;
        XMoveWindow(XDisplay(), xid, 250, 260);
        XFlush(XDisplay());
    }
    EXPECT_TRUE(PumpUntil([&] { return recorder.Saw(hwnd, WM_WINDOWPOSCHANGED); }));
    EXPECT_TRUE(XFollows(xid, clientOnScreen));
    expectFrame();
    EXPECT_FALSE(recorder.Saw(hwnd, WM_WINDOWPOSCHANGING));

    // It resizes it: the client takes the X window's new size, and the
    // client origin is where X shows the window.
    recorder.Clear();
    {
        vorlan::GtkCriticalSection lock;
        XResizeWindow(XDisplay(), xid, 260, 150);
        XFlush(XDisplay());
    }
    EXPECT_TRUE(PumpUntil([&] {
        RECT client = {};
        GetClientRect(hwnd, &client);
        return client.right == 260 && client.bottom == 150;
    }));
    EXPECT_TRUE(recorder.Saw(hwnd, WM_SIZE));
    EXPECT_TRUE(XFollows(xid, clientOnScreen));
    expectFrame();
    POINT origin = {0, 0};
    ClientToScreen(hwnd, &origin);
    const RECT client = clientOnScreen();
    EXPECT_EQ(origin.x, client.left);
    EXPECT_EQ(origin.y, client.top);
}

TEST(WindowZOrder, ChildListFollowsXStackingForEveryInsertAfter)
{
    MessageRecorder recorder("VorlanZOrderChildren");
    const HWND top = recorder.Create(WS_POPUP | WS_VISIBLE, 0, 0, 200, 150);
    const HWND a = recorder.Create(WS_CHILD | WS_VISIBLE, 0, 0, 50, 50, top);
    const HWND b = recorder.Create(WS_CHILD | WS_VISIBLE, 10, 10, 50, 50, top);
    const HWND c = recorder.Create(WS_CHILD | WS_VISIBLE, 20, 20, 50, 50, top);
    ExpectOrder(top, {a, b, c});

    SetWindowPos(c, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
    ExpectOrder(top, {c, a, b});
    SetWindowPos(c, HWND_BOTTOM, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
    ExpectOrder(top, {a, b, c});
    SetWindowPos(a, b, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
    ExpectOrder(top, {b, a, c});

    // BringWindowToTop and a move without SWP_NOZORDER mean HWND_TOP.
    BringWindowToTop(c);
    ExpectOrder(top, {c, b, a});
    SetWindowPos(a, nullptr, 1, 1, 50, 50, 0);
    ExpectOrder(top, {a, c, b});

    // SWP_NOZORDER leaves both alone.
    SetWindowPos(b, HWND_TOP, 2, 2, 50, 50, SWP_NOZORDER);
    ExpectOrder(top, {a, c, b});
}
