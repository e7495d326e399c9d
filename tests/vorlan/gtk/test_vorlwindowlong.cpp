// GetWindowLong and SetWindowLong in all forms, every index.
#include <gtest/gtest.h>

#include "vorlwindowproc.h"
#include "gtk/vorlglobals.h"
#include "gtk/vorlgtklock.h"
#include "gtk/vorlwindowlong.h"
#include "support/gtk_helpers.h"
#include "support/window_objects.h"
#include "vorlscrollbarinfo.h"

using namespace vorlan_test;

namespace {

WindowOptions Options(DWORD style, int cbExtra = 0, HWND parent = nullptr)
{
    WindowOptions options;
    options.style = style;
    options.cbExtra = cbExtra;
    options.parent = parent;
    options.withXWindow = false;
    return options;
}

HWND Bad()
{
    return reinterpret_cast<HWND>(0x4D726577 + 64999);
}

void ExpectError(DWORD error)
{
    EXPECT_EQ(GetLastError(), error);
    SetLastError(0);
}

} // namespace

TEST(WindowLong, BadHandleGives1400AndZeroInEveryForm)
{
    for (int index : {GWL_STYLE, GWL_EXSTYLE, GWLP_USERDATA, GWLP_ID, GWL_VORLFLAGS, GWLP_WNDPROC, 0}) {
        SetLastError(0);
        EXPECT_EQ(GetWindowLongA(Bad(), index), 0);
        ExpectError(1400);
        EXPECT_EQ(GetWindowLongW(Bad(), index), 0);
        ExpectError(1400);
        EXPECT_EQ(SetWindowLongA(Bad(), index, 5), 0);
        ExpectError(1400);
        EXPECT_EQ(SetWindowLongW(Bad(), index, 5), 0);
        ExpectError(1400);
        EXPECT_EQ(GetWindowLongPtrA(Bad(), index), 0);
        ExpectError(1400);
        EXPECT_EQ(GetWindowLongPtrW(Bad(), index), 0);
        ExpectError(1400);
        EXPECT_EQ(SetWindowLongPtrA(Bad(), index, 5), 0);
        ExpectError(1400);
        EXPECT_EQ(SetWindowLongPtrW(Bad(), index, 5), 0);
        ExpectError(1400);
    }
    EXPECT_EQ(GetWindowLongW(nullptr, GWL_STYLE), 0);
    ExpectError(1400);
    EXPECT_EQ(GetWindowLongW(HWND_BROADCAST, GWL_STYLE), 0);
    ExpectError(1400);
}

TEST(WindowLong, PlainFieldsRoundTrip)
{
    TestWindow window(Options(WS_POPUP));
    EXPECT_EQ(SetWindowLongW(window.hwnd(), GWL_STYLE, WS_POPUP | WS_VISIBLE), static_cast<LONG>(WS_POPUP));
    EXPECT_EQ(GetWindowLongA(window.hwnd(), GWL_STYLE), static_cast<LONG>(WS_POPUP | WS_VISIBLE));
    EXPECT_EQ(SetWindowLongA(window.hwnd(), GWL_EXSTYLE, WS_EX_TOPMOST), 0);
    EXPECT_EQ(GetWindowLongW(window.hwnd(), GWL_EXSTYLE), WS_EX_TOPMOST);
    EXPECT_EQ(SetWindowLongPtrW(window.hwnd(), GWLP_USERDATA, 0x1234), 0);
    EXPECT_EQ(GetWindowLongPtrA(window.hwnd(), GWLP_USERDATA), 0x1234);
    EXPECT_EQ(GetWindowLongW(window.hwnd(), GWLP_USERDATA), 0x1234);
    EXPECT_EQ(SetWindowLongW(window.hwnd(), GWLP_USERDATA, -2), 0x1234);
    EXPECT_EQ(GetWindowLongPtrW(window.hwnd(), GWLP_USERDATA), -2);
}

TEST(WindowLong, PrivateFlagWord)
{
    TestWindow window(Options(WS_POPUP));
    EXPECT_EQ(SetWindowLongW(window.hwnd(), GWL_VORLFLAGS, WF_OBSCURED | WF_DRAGDEST), 0);
    EXPECT_EQ(GetWindowLongW(window.hwnd(), GWL_VORLFLAGS), WF_OBSCURED | WF_DRAGDEST);
    vorlan::GtkCriticalSection lock;
    EXPECT_EQ(window.object()->dwFlags, static_cast<DWORD>(WF_OBSCURED | WF_DRAGDEST));
}

TEST(WindowLong, UnknownIndexes)
{
    TestWindow window(Options(WS_POPUP));
    SetLastError(0);
    EXPECT_EQ(GetWindowLongW(window.hwnd(), -2), 0);
    EXPECT_EQ(GetWindowLongW(window.hwnd(), -100), 0);
    ExpectError(0);
    EXPECT_EQ(SetWindowLongW(window.hwnd(), -2, 1), 0);
    ExpectError(87);
    EXPECT_EQ(SetWindowLongPtrW(window.hwnd(), GWLP_HINSTANCE, 1), 0);
    ExpectError(87);
    EXPECT_EQ(SetWindowLongPtrW(window.hwnd(), GWL_HSCROLLINFO, 1), 0);
    ExpectError(87);
}

TEST(WindowLong, ExtraBytesBounds)
{
    TestWindow window(Options(WS_POPUP, 16));
    SetLastError(0);
    EXPECT_EQ(SetWindowLongW(window.hwnd(), 16 - 3, 1), 0);
    ExpectError(87);
    EXPECT_EQ(SetWindowLongW(window.hwnd(), 16 - 4, 0x11223344), 0);
    EXPECT_EQ(GetWindowLongW(window.hwnd(), 16 - 4), 0x11223344);
    EXPECT_EQ(GetWindowLongA(window.hwnd(), 16 - 3), 0);
    ExpectError(87);
    EXPECT_EQ(SetWindowLongPtrW(window.hwnd(), 16 - 8, -5), static_cast<LONG_PTR>(0x11223344) << 32);
    EXPECT_EQ(GetWindowLongPtrW(window.hwnd(), 16 - 8), -5);
    EXPECT_EQ(GetWindowLongPtrW(window.hwnd(), 16 - 7), 0);
    ExpectError(87);
    EXPECT_EQ(SetWindowLongW(window.hwnd(), 0x7FFFFFFF, 1), 0);
    ExpectError(87);
    TestWindow none(Options(WS_POPUP));
    EXPECT_EQ(GetWindowLongW(none.hwnd(), 0), 0);
    ExpectError(87);
}

TEST(WindowLong, ScrollRecordsAreMadeOnceWithTheirDefaults)
{
    TestWindow window(Options(WS_POPUP));
    const LONG_PTR horizontal = GetWindowLongPtrW(window.hwnd(), GWL_HSCROLLINFO);
    const LONG_PTR vertical = GetWindowLongPtrW(window.hwnd(), GWL_VSCROLLINFO);
    ASSERT_NE(horizontal, 0);
    EXPECT_EQ(GetWindowLongPtrW(window.hwnd(), GWL_HSCROLLINFO), horizontal);
    EXPECT_EQ(vertical, horizontal + static_cast<LONG_PTR>(sizeof(ScrollBarInfo)));
    auto *records = reinterpret_cast<ScrollBarInfo *>(horizontal);
    EXPECT_EQ(records[0].nMax, 100);
    EXPECT_EQ(records[0].uFlags, 4u);
    EXPECT_EQ(records[1].nMax, 100);
    EXPECT_EQ(records[1].uFlags, 5u);
    EXPECT_EQ(records[0].nMin, 0);
    EXPECT_EQ(records[1].nPos, 0);
}

TEST(WindowLong, WindowProcedure)
{
    TestWindow window(Options(WS_POPUP));
    SetLastError(0);
    EXPECT_EQ(SetWindowLongPtrW(window.hwnd(), GWLP_WNDPROC, 0), 0);
    ExpectError(87);
    const LONG_PTR before = GetWindowLongPtrW(window.hwnd(), GWLP_WNDPROC);
    EXPECT_EQ(SetWindowLongPtrA(window.hwnd(), GWLP_WNDPROC, 0), 0);
    ExpectError(87);
    EXPECT_EQ(GetWindowLongPtrW(window.hwnd(), GWLP_WNDPROC), before);
    vorlan::GtkCriticalSection lock;
    EXPECT_EQ(window.object()->nIdWndProc, AllocWndProcId(DefWindowProcA, DefWindowProcW));
}

#if VORLAN_LP64
TEST(WindowLong, LongFormsRefusePointerIndexes)
{
    TestWindow window(Options(WS_POPUP));
    for (int index : {GWLP_WNDPROC, GWLP_HINSTANCE, GWLP_HWNDPARENT, GWL_HSCROLLINFO, GWL_VSCROLLINFO}) {
        SetLastError(0);
        EXPECT_EQ(GetWindowLongW(window.hwnd(), index), 0);
        ExpectError(ERROR_INVALID_INDEX);
        EXPECT_EQ(SetWindowLongA(window.hwnd(), index, 1), 0);
        ExpectError(ERROR_INVALID_INDEX);
    }
    vorlan::GtkCriticalSection lock;
    EXPECT_EQ(window.object()->pScrollInfo, nullptr);
}
#endif

TEST(WindowLong, ChildKeepsItsId)
{
    TestWindow parent(Options(WS_POPUP));
    TestWindow child(Options(WS_CHILD, 0, parent.hwnd()));
    EXPECT_EQ(SetWindowLongW(child.hwnd(), GWL_ID, 42), 0);
    EXPECT_EQ(GetWindowLongW(child.hwnd(), GWL_ID), 42);
    EXPECT_EQ(SetWindowLongW(child.hwnd(), GWL_ID, 42), 42);
    EXPECT_EQ(GetWindowLongPtrW(child.hwnd(), GWLP_HWNDPARENT), reinterpret_cast<LONG_PTR>(parent.hwnd()));
    EXPECT_EQ(SetWindowLongPtrW(child.hwnd(), GWLP_HWNDPARENT, reinterpret_cast<LONG_PTR>(g_hWndDesktop)), 0);
    vorlan::GtkCriticalSection lock;
    EXPECT_EQ(child.object()->pWndOwner, nullptr);
}

TEST(WindowLong, TopLevelSlotTakesOnlyMenus)
{
    TestWindow window(Options(WS_OVERLAPPEDWINDOW));
    EXPECT_EQ(SetWindowLongPtrW(window.hwnd(), GWLP_ID, 0x5000), 0);
    EXPECT_EQ(GetWindowLongPtrW(window.hwnd(), GWLP_ID), 0) << "not a menu";
    EXPECT_EQ(SetWindowLongPtrW(window.hwnd(), GWLP_ID, 0), 0);
}

TEST(WindowLong, TopLevelAnswersItsOwner)
{
    TestWindow owner(Options(WS_POPUP));
    TestWindow window(Options(WS_POPUP));
    EXPECT_EQ(GetWindowLongPtrW(window.hwnd(), GWLP_HWNDPARENT), 0);
    EXPECT_EQ(SetWindowLongPtrW(window.hwnd(), GWLP_HWNDPARENT, reinterpret_cast<LONG_PTR>(owner.hwnd())), 0);
    EXPECT_EQ(GetWindowLongPtrA(window.hwnd(), GWLP_HWNDPARENT), reinterpret_cast<LONG_PTR>(owner.hwnd()));
}

TEST(WindowLong, HInstanceComesFromTheClass)
{
    TestWindow window(Options(WS_POPUP));
    {
        vorlan::GtkCriticalSection lock;
        window.object()->pClass->hInstance = reinterpret_cast<HINSTANCE>(0x7000);
    }
    EXPECT_EQ(GetWindowLongPtrW(window.hwnd(), GWLP_HINSTANCE), 0x7000);
}

TEST(WindowLong, DialogProcedureAndFlagWord)
{
    TestWindow dialog(Options(WS_POPUP, DLGWINDOWEXTRA));
    SetWindowLongW(dialog.hwnd(), GWL_VORLFLAGS, WF_DIALOG);
    EXPECT_EQ(GetWindowLongPtrW(dialog.hwnd(), DWLP_DLGPROC), 0);
    SetLastError(0);
    EXPECT_EQ(SetWindowLongPtrW(dialog.hwnd(), DWLP_DLGPROC, 0), 0);
    ExpectError(87);
    EXPECT_EQ(SetWindowLongW(dialog.hwnd(), 28, 0x12345678), 0);
    EXPECT_EQ(GetWindowLongW(dialog.hwnd(), 28), 0x5678) << "16 bits";
    vorlan::GtkCriticalSection lock;
    EXPECT_EQ(dialog.object()->pExtra[28], 0x78);
    EXPECT_EQ(dialog.object()->pExtra[29], 0x56);
}

namespace {

// Runs the process-wide GDK handler on an event of the window, as GDK does.
void Dispatch(GdkEvent *event)
{
    vorlan_test::WithGdkLockHeld([&] { vorlan_gdk_event_handler(event, nullptr); });
}

} // namespace

TEST(WindowStateEvents, WindowStateTogglesStyle)
{
    WindowOptions options = Options(WS_OVERLAPPEDWINDOW);
    options.withXWindow = true;
    options.rcWindow = {10, 10, 50, 50};
    TestWindow window(options);
    GdkEvent event = {};
    event.window_state.type = GDK_WINDOW_STATE;
    event.window_state.window = window.object()->window;
    event.window_state.changed_mask = GDK_WINDOW_STATE_ICONIFIED;
    Dispatch(&event);
    EXPECT_TRUE(GetWindowLongW(window.hwnd(), GWL_STYLE) & WS_MINIMIZE);
    event.window_state.changed_mask =
        static_cast<GdkWindowState>(GDK_WINDOW_STATE_ICONIFIED | GDK_WINDOW_STATE_MAXIMIZED);
    Dispatch(&event);
    const DWORD style = GetWindowLongW(window.hwnd(), GWL_STYLE);
    EXPECT_FALSE(style & WS_MINIMIZE);
    EXPECT_TRUE(style & WS_MAXIMIZE);
    event.window_state.changed_mask = GDK_WINDOW_STATE_STICKY;
    Dispatch(&event);
    EXPECT_EQ(static_cast<DWORD>(GetWindowLongW(window.hwnd(), GWL_STYLE)), style);
}

TEST(WindowStateEvents, VisibilitySetsObscured)
{
    WindowOptions options = Options(WS_POPUP);
    options.withXWindow = true;
    options.rcWindow = {10, 10, 50, 50};
    TestWindow window(options);
    GdkEvent event = {};
    event.visibility.type = GDK_VISIBILITY_NOTIFY;
    event.visibility.window = window.object()->window;
    event.visibility.state = GDK_VISIBILITY_FULLY_OBSCURED;
    Dispatch(&event);
    EXPECT_EQ(GetWindowLongW(window.hwnd(), GWL_VORLFLAGS) & WF_OBSCURED, WF_OBSCURED);
    event.visibility.state = GDK_VISIBILITY_PARTIAL;
    Dispatch(&event);
    EXPECT_EQ(GetWindowLongW(window.hwnd(), GWL_VORLFLAGS) & WF_OBSCURED, 0);
}
