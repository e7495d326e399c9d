// Window creation, showing and destruction: message order, failure paths
// and what each step leaves in X.
#include <gtest/gtest.h>

#include "gtk/vorlgtklock.h"
#include "gtk/vorlwindow.h"
#include "gtk/vorlxwindow.h"
#include "support/gtk_helpers.h"
#include "support/message_recorder.h"
#include "support/window_checks.h"

#include <thread>

using namespace vorlan_test;
using Seq = std::vector<std::string>;

namespace {

constexpr DWORD kVisibleChild = WS_CHILD | WS_VISIBLE;

bool XWindowExists(XID xid)
{
    vorlan::GtkCriticalSection lock;
    vorlan::TemporaryXErrorHandler trap;
    XWindowAttributes attributes;
    return XGetWindowAttributes(XDisplay(), xid, &attributes) != 0;
}

const std::vector<UINT> kLifecycle = {WM_NCCREATE, WM_NCCALCSIZE, WM_CREATE,  WM_SIZE,    WM_MOVE,
                                      WM_PARENTNOTIFY, WM_SHOWWINDOW, WM_DESTROY, WM_NCDESTROY};

} // namespace

TEST(WindowCreation, ChildMessagesComeInOrderWithTheArgumentsAsGivenAndParentHearsBeforeShow)
{
    MessageRecorder recorder("VorlanLifecycleOrder");
    CREATESTRUCTW seen = {};
    recorder.Answer(WM_CREATE, [&](HWND, WPARAM, LPARAM lParam) {
        seen = *reinterpret_cast<CREATESTRUCTW *>(lParam);
        return 0;
    });
    const HWND parent = recorder.Create(WS_POPUP, 10, 10, 200, 150);
    ASSERT_NE(parent, nullptr);
    recorder.Clear();
    int cookie = 0;
    const HWND child = CreateWindowExW(WS_EX_TOOLWINDOW, recorder.wideClassName(), reinterpret_cast<LPCWSTR>(u"T"),
                                       kVisibleChild, 5, 6, 50, 40, parent, reinterpret_cast<HMENU>(77), nullptr,
                                       &cookie);
    ASSERT_NE(child, nullptr);
    EXPECT_EQ(recorder.Sequence({parent, child}, kLifecycle),
              (Seq{"1:NCCREATE", "1:NCCALCSIZE", "1:CREATE", "1:SIZE", "1:MOVE", "0:PARENTNOTIFY", "1:SHOWWINDOW"}));
    EXPECT_EQ(seen.lpCreateParams, &cookie);
    EXPECT_TRUE(seen.x == 5 && seen.y == 6 && seen.cx == 50 && seen.cy == 40);
    EXPECT_EQ(seen.dwExStyle, DWORD(WS_EX_TOOLWINDOW));
    EXPECT_EQ(seen.lpszClass, recorder.wideClassName());
    const auto notice = recorder.Of(parent, WM_PARENTNOTIFY);
    ASSERT_EQ(notice.size(), 1u);
    EXPECT_EQ(notice[0].wParam, MAKEWPARAM(WM_CREATE, 77));
    EXPECT_EQ(notice[0].lParam, reinterpret_cast<LPARAM>(child));
    EXPECT_EQ(recorder.Of(child, WM_SIZE)[0].lParam, MAKELPARAM(50, 40));
    EXPECT_EQ(recorder.Of(child, WM_MOVE)[0].lParam, MAKELPARAM(5, 6));
}

TEST(WindowCreation, BadArgumentsFailWithTheirErrors)
{
    EXPECT_TRUE(FailsWith(ERROR_CANNOT_FIND_WND_CLASS, nullptr, [] {
        return CreateWindowExW(0, reinterpret_cast<LPCWSTR>(u"NoOneRegisteredThis"), nullptr, WS_POPUP, 0, 0, 10,
                               10, nullptr, nullptr, nullptr, nullptr);
    }));
    EXPECT_TRUE(FailsWith(87, nullptr, [] {
        return CreateWindowExA(0, nullptr, nullptr, WS_POPUP, 0, 0, 10, 10, nullptr, nullptr, nullptr, nullptr);
    }));
    MessageRecorder recorder("VorlanLifecycleBadParent");
    EXPECT_TRUE(FailsWith(1400, nullptr, [&] { return recorder.Create(WS_CHILD, 0, 0, 10, 10, FakeHwnd(60000)); }));
    EXPECT_TRUE(FailsWith(1400, nullptr, [&] { return recorder.Create(WS_CHILD, 0, 0, 10, 10, nullptr); }));
    EXPECT_TRUE(recorder.messages().empty());
}

TEST(WindowCreation, RefusalsAndSelfDestructionReturnZero)
{
    MessageRecorder recorder("VorlanLifecycleRefusal");
    recorder.Answer(WM_NCCREATE, [](HWND, WPARAM, LPARAM) { return LRESULT(0); });
    EXPECT_EQ(recorder.Create(WS_POPUP, 0, 0, 10, 10), nullptr);
    EXPECT_EQ(recorder.Sequence({}, {WM_NCCREATE, WM_CREATE, WM_DESTROY, WM_NCDESTROY}),
              (Seq{"?:NCCREATE", "?:DESTROY", "?:NCDESTROY"}));
    const HWND refused = recorder.messages().front().hwnd;
    EXPECT_FALSE(IsWindow(refused));

    recorder.Clear();
    recorder.Answer(WM_NCCREATE, [](HWND h, WPARAM w, LPARAM l) { return DefWindowProcW(h, WM_NCCREATE, w, l); });
    recorder.Answer(WM_CREATE, [](HWND, WPARAM, LPARAM) { return LRESULT(-1); });
    EXPECT_EQ(recorder.Create(WS_POPUP, 0, 0, 10, 10), nullptr);
    EXPECT_EQ(recorder.Sequence({}, {WM_CREATE, WM_DESTROY, WM_NCDESTROY}),
              (Seq{"?:CREATE", "?:DESTROY", "?:NCDESTROY"}));

    recorder.Clear();
    recorder.Answer(WM_CREATE, [](HWND h, WPARAM, LPARAM) {
        DestroyWindow(h);
        return LRESULT(0);
    });
    EXPECT_EQ(recorder.Create(WS_POPUP, 0, 0, 10, 10), nullptr);
    EXPECT_TRUE(recorder.Saw(recorder.messages().front().hwnd, WM_NCDESTROY));
}

// CW_USEDEFAULT: overlapped windows cascade over the work area with three
// quarters of its size; popup and child windows get zeros.
TEST(WindowCreation, DefaultPositionAndSizeCascadeOverlappedWindowsAndZeroOthers)
{
    MessageRecorder recorder("VorlanLifecycleUseDefault");
    RECT work = {};
    ASSERT_TRUE(SystemParametersInfoW(SPI_GETWORKAREA, 0, &work, 0));
    const HWND first = recorder.Create(WS_OVERLAPPED, CW_USEDEFAULT, 0, CW_USEDEFAULT, 0);
    const HWND second = recorder.Create(WS_OVERLAPPED, CW_USEDEFAULT, 999, CW_USEDEFAULT, 999);
    ASSERT_NE(first, nullptr);
    ASSERT_NE(second, nullptr);
    const RECT a = WindowRectOf(first), b = WindowRectOf(second);
    EXPECT_EQ(a.right - a.left, (work.right - work.left) * 3 / 4);
    EXPECT_EQ(a.bottom - a.top, (work.bottom - work.top) * 3 / 4);
    EXPECT_TRUE(a.left >= work.left && a.top >= work.top && a.right <= work.right && a.bottom <= work.bottom);
    const int step = GetSystemMetrics(SM_CYCAPTION) + GetSystemMetrics(SM_CYFRAME);
    EXPECT_TRUE((b.left == a.left + step && b.top == a.top + step) || (b.left == work.left && b.top == work.top))
        << "the second window is the next step of the cascade";

    const HWND sized = recorder.Create(WS_OVERLAPPED, 30, 40, CW_USEDEFAULT, 5);
    const RECT s = WindowRectOf(sized);
    EXPECT_EQ(s.left, 30);
    EXPECT_EQ(s.top, 40);
    EXPECT_EQ(s.right - s.left, (work.right - work.left) * 3 / 4);

    const HWND popup = recorder.Create(WS_POPUP, CW_USEDEFAULT, 50, CW_USEDEFAULT, 60);
    EXPECT_TRUE(SameRect(WindowRectOf(popup), RECT{0, 0, 0, 0}));
    for (HWND hwnd : {first, second, sized, popup})
        DestroyWindow(hwnd);
}

TEST(WindowShowing, TopLevelWindowGetsSizeAndMoveAtFirstShowAndChildrenFollowTheirAncestors)
{
    MessageRecorder recorder("VorlanShowTopLevel");
    const HWND hwnd = recorder.Create(WS_POPUP, 30, 40, 120, 80);
    ASSERT_NE(hwnd, nullptr);
    EXPECT_EQ(recorder.Sequence({hwnd}, kLifecycle), (Seq{"0:NCCREATE", "0:NCCALCSIZE", "0:CREATE"}));
    const HWND child = recorder.Create(kVisibleChild, 0, 0, 50, 50, hwnd);
    EXPECT_FALSE(IsWindowVisible(child));
    recorder.Clear();
    ShowWindow(hwnd, SW_SHOWNA);
    EXPECT_EQ(recorder.Sequence({hwnd, child}, kLifecycle), (Seq{"0:SIZE", "0:MOVE", "0:SHOWWINDOW"}));
    EXPECT_EQ(recorder.Of(hwnd, WM_MOVE)[0].lParam, MAKELPARAM(30, 40));
    EXPECT_TRUE(IsWindowVisible(child));
    EXPECT_TRUE(PumpUntil([&] { return XWindowViewable(XidOf(child)); }));
    recorder.Clear();
    ShowWindow(hwnd, SW_HIDE);
    ShowWindow(hwnd, SW_SHOWNA);
    EXPECT_EQ(recorder.Sequence({hwnd, child}, kLifecycle), (Seq{"0:SHOWWINDOW", "0:SHOWWINDOW"}));
}

TEST(WindowShowing, MinimizeShowsWithoutIconifyingAndReturnsPreviousVisibility)
{
    MessageRecorder recorder("VorlanShowMinimize");
    const HWND hwnd = recorder.Create(WS_POPUP, 0, 0, 40, 40);
    EXPECT_FALSE(ShowWindow(hwnd, SW_MINIMIZE));
    EXPECT_TRUE(IsWindowVisible(hwnd));
    EXPECT_FALSE(IsIconic(hwnd));
    EXPECT_TRUE(ShowWindow(hwnd, SW_HIDE));
    EXPECT_FALSE(IsWindowVisible(hwnd));
    EXPECT_FALSE(ShowWindow(GetDesktopWindow(), SW_HIDE));
    EXPECT_TRUE(FailsWith(1400, FALSE, [] { return ShowWindow(reinterpret_cast<HWND>(ULONG_PTR(0x99)), SW_SHOW); }));
}

TEST(WindowDestruction, OwnedWindowsGoFirstThenDestroyParentFirstNcDestroyChildrenFirstAndTheParentIsTold)
{
    MessageRecorder recorder("VorlanDestroyOrder");
    const HWND top = recorder.Create(WS_POPUP | WS_VISIBLE, 0, 0, 100, 100);
    const HWND child = recorder.Create(WS_CHILD | WS_VISIBLE, 0, 0, 50, 50, top);
    const HWND grandchild = recorder.Create(WS_CHILD | WS_VISIBLE, 0, 0, 20, 20, child);
    const HWND owned = recorder.Create(WS_POPUP, 0, 0, 20, 20, top);
    const XID childXid = XidOf(child);
    const XID topXid = XidOf(top);
    recorder.Clear();
    EXPECT_TRUE(DestroyWindow(top));
    EXPECT_EQ(recorder.Sequence({top, child, grandchild, owned}, {WM_DESTROY, WM_NCDESTROY}),
              (Seq{"3:DESTROY", "3:NCDESTROY", "0:DESTROY", "1:DESTROY", "2:DESTROY", "2:NCDESTROY", "1:NCDESTROY",
                   "0:NCDESTROY"}));
    for (HWND hwnd : {top, child, grandchild, owned})
        EXPECT_FALSE(IsWindow(hwnd));
    EXPECT_FALSE(XWindowExists(topXid));
    EXPECT_FALSE(XWindowExists(childXid));

    // A child tells its parent, unless WS_EX_NOPARENTNOTIFY, and leaves the
    // sibling list.
    const HWND parent = recorder.Create(WS_POPUP, 0, 0, 100, 100);
    const HWND first = recorder.Create(WS_CHILD, 0, 0, 10, 10, parent, 0, 5);
    const HWND second = recorder.Create(WS_CHILD, 0, 0, 10, 10, parent, WS_EX_NOPARENTNOTIFY, 6);
    recorder.Clear();
    EXPECT_TRUE(DestroyWindow(first));
    EXPECT_TRUE(DestroyWindow(second));
    const auto notices = recorder.Of(parent, WM_PARENTNOTIFY);
    ASSERT_EQ(notices.size(), 1u);
    EXPECT_EQ(notices[0].wParam, MAKEWPARAM(WM_DESTROY, 5));
    EXPECT_EQ(GetWindow(parent, GW_CHILD), nullptr);
}

TEST(WindowDestruction, RefusesDesktopOtherThreadsAndBadHandles)
{
    EXPECT_TRUE(FailsWith(ERROR_ACCESS_DENIED, FALSE, [] { return DestroyWindow(GetDesktopWindow()); }));
    EXPECT_TRUE(FailsWith(1400, FALSE, [] { return DestroyWindow(nullptr); }));
    MessageRecorder recorder("VorlanDestroyOtherThread");
    const HWND hwnd = recorder.Create(WS_POPUP, 0, 0, 10, 10);
    BOOL result = TRUE;
    DWORD error = 0;
    std::thread([&] {
        result = DestroyWindow(hwnd);
        error = GetLastError();
    }).join();
    EXPECT_FALSE(result);
    EXPECT_EQ(error, DWORD(ERROR_ACCESS_DENIED));
    EXPECT_TRUE(IsWindow(hwnd));
}
