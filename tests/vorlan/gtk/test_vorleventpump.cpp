// The X filter of top-level windows and DestroyThreadWindows.
#include <gtest/gtest.h>

#include "vorlwindowproc.h"
#include "gtk/vorlstartup.h"
#include "gtk/vorleventpump.h"
#include "gtk/vorlgtklock.h"
#include "gtk/vorlwindow.h"
#include "gtk/vorlxwindow.h"
#include "support/gtk_helpers.h"
#include "support/window_checks.h"

#include <gdk/gdkx.h>

#include <thread>

using namespace vorlan_test;

namespace {

WindowOptions Top()
{
    return ObjectSpec(nullptr, WS_OVERLAPPEDWINDOW, {100, 100, 300, 250}, true);
}

XEvent Focus(int type, XID window)
{
    XEvent event = {};
    event.xfocus.type = type;
    event.xfocus.display = XDisplay();
    event.xfocus.window = window;
    event.xfocus.mode = NotifyNormal;
    event.xfocus.detail = NotifyNonlinear;
    return event;
}

GdkFilterReturn Filter(XEvent event, HWND hWnd)
{
    GdkEvent gdkEvent = {};
    GdkFilterReturn result = GDK_FILTER_CONTINUE;
    WithGdkLockHeld([&] { result = topwindow_x_filter(&event, &gdkEvent, hWnd); });
    return result;
}

DWORD Flags(HWND hWnd)
{
    return static_cast<DWORD>(GetWindowLongW(hWnd, GWL_VORLFLAGS));
}

} // namespace

TEST(TopWindowFilter, TakesTakeFocusAndFocusEventsOfItsWindowAndPassesTheRest)
{
    TestWindow top(Top());
    TestWindow other(Top());
    const XID xid = top.xid();
    EXPECT_EQ(Filter(ProtocolMessage(xid, vorlan::g_wm_take_focus), top.hwnd()), GDK_FILTER_REMOVE);
    EXPECT_EQ(Filter(ProtocolMessage(xid, vorlan::g_wm_delete_window), top.hwnd()), GDK_FILTER_CONTINUE);
    // The skip flag swallows one WM_TAKE_FOCUS and is used up.
    SetWindowLongW(top.hwnd(), GWL_VORLFLAGS, WF_SKIPTAKEFOCUS);
    EXPECT_EQ(Filter(ProtocolMessage(xid, vorlan::g_wm_take_focus), top.hwnd()), GDK_FILTER_REMOVE);
    EXPECT_EQ(Flags(top.hwnd()) & WF_SKIPTAKEFOCUS, 0u);

    // Focus events never reach GDK, unless a popup menu runs.
    EXPECT_EQ(Filter(Focus(FocusIn, xid), top.hwnd()), GDK_FILTER_REMOVE);
    EXPECT_EQ(Filter(Focus(FocusOut, xid), top.hwnd()), GDK_FILTER_REMOVE);
    vorlan::g_vorlData.bPopupMenuRunning = TRUE;
    EXPECT_EQ(Filter(Focus(FocusOut, xid), top.hwnd()), GDK_FILTER_CONTINUE);
    vorlan::g_vorlData.bPopupMenuRunning = FALSE;

    EXPECT_EQ(Filter(Focus(FocusIn, other.xid()), top.hwnd()), GDK_FILTER_CONTINUE);
    XEvent key = {};
    key.xkey.type = KeyPress;
    key.xkey.window = xid;
    EXPECT_EQ(Filter(key, top.hwnd()), GDK_FILTER_CONTINUE);
    HWND dead = top.hwnd();
    {
        TestWindow gone(Top());
        dead = gone.hwnd();
    }
    EXPECT_EQ(Filter(Focus(FocusIn, xid), dead), GDK_FILTER_CONTINUE);
}

TEST(TopWindowFilter, InstalledFilterSeesServerMessages)
{
    TestWindow top(Top());
    {
        vorlan::GtkCriticalSection lock;
        SetWMInputMode(top.hwnd());
        SetWindowLongW(top.hwnd(), GWL_VORLFLAGS, WF_SKIPTAKEFOCUS);
        XEvent event = ProtocolMessage(top.xid(), vorlan::g_wm_take_focus);
        XSendEvent(XDisplay(), top.xid(), False, NoEventMask, &event);
        XFlush(XDisplay());
    }
    EXPECT_TRUE(PumpUntil([&] { return (Flags(top.hwnd()) & WF_SKIPTAKEFOCUS) == 0; }));
}

TEST(ThreadWindows, WindowsOfAnEndingThreadGo)
{
    TestWindow survivor(Top());
    HWND workerTop = nullptr, workerChild = nullptr, adopted = nullptr;
    DWORD workerTid = 0;
    GdkWindow *workerWindow = nullptr;
    std::thread worker([&] {
        workerTid = GetCurrentThreadId();
        vorlan::GtkCriticalSection lock;
        static WindowClass wc = {};
        wc.nIdWndProc = AllocWndProcId(DefWindowProcA, DefWindowProcW);
        auto *top = new vorlan::Window(&wc);
        top->dwStyle = WS_POPUP;
        LinkWindow(top->hWnd, g_hWndDesktop);
        top->CreateOSWindow();
        auto *child = new vorlan::Window(&wc);
        child->dwStyle = WS_CHILD;
        LinkWindow(child->hWnd, top->hWnd);
        workerTop = top->hWnd;
        workerChild = child->hWnd;
        workerWindow = top->window;
    });
    worker.join();
    TestWindow below(ObjectSpec(workerChild, WS_CHILD));
    adopted = below.hwnd();
    {
        vorlan::GtkCriticalSection lock;
        survivor.object()->pWndOwner = vorlan::getWindow(workerTop);
        DestroyThreadWindows(workerTid);
        EXPECT_EQ(vorlan::getWindow(workerTop), nullptr);
        EXPECT_EQ(vorlan::getWindow(workerChild), nullptr);
        EXPECT_EQ(vorlan::getWindow(adopted), nullptr) << "a window dies with its parent";
        EXPECT_EQ(survivor.object()->pWndOwner, nullptr);
        EXPECT_EQ(g_object_get_data(G_OBJECT(workerWindow), "HWND"), nullptr);
        ASSERT_NE(vorlan::getWindow(g_hWndDesktop), nullptr);
        HWND *list = GetWindowChildList(nullptr);
        for (HWND *h = list; *h != nullptr; ++h)
            EXPECT_NE(*h, workerTop);
        FreeWindowList(list);
        gdk_window_destroy(workerWindow);
    }
}
