// GetWindowLong and SetWindowLong in all forms, every index.
#include <gtest/gtest.h>

#include "vorlwindowproc.h"
#include "gtk/vorlstartup.h"
#include "gtk/vorleventpump.h"
#include "gtk/vorlgtklock.h"
#include "gtk/vorlwindowlong.h"
#include "support/gtk_helpers.h"
#include "support/window_checks.h"

#include <iterator>

using namespace vorlan_test;

namespace {

WindowOptions Options(DWORD style, int cbExtra = 0, HWND parent = nullptr)
{
    WindowOptions options = ObjectSpec(parent, style);
    options.cbExtra = cbExtra;
    return options;
}

} // namespace

TEST(WindowLong, BadHandleGives1400AndZeroInEveryForm)
{
    using Call = LONG_PTR (*)(HWND, int);
    const Call calls[] = {
        [](HWND h, int i) -> LONG_PTR { return GetWindowLongA(h, i); },
        [](HWND h, int i) -> LONG_PTR { return GetWindowLongW(h, i); },
        [](HWND h, int i) -> LONG_PTR { return SetWindowLongA(h, i, 5); },
        [](HWND h, int i) -> LONG_PTR { return SetWindowLongW(h, i, 5); },
        [](HWND h, int i) { return GetWindowLongPtrA(h, i); },
        [](HWND h, int i) { return GetWindowLongPtrW(h, i); },
        [](HWND h, int i) { return SetWindowLongPtrA(h, i, 5); },
        [](HWND h, int i) { return SetWindowLongPtrW(h, i, 5); },
    };
    for (int index : {GWL_STYLE, GWL_EXSTYLE, GWLP_USERDATA, GWLP_ID, GWL_VORLFLAGS, GWLP_WNDPROC, 0}) {
        for (size_t form = 0; form < std::size(calls); ++form)
            EXPECT_TRUE(FailsWith(1400, 0, [&] { return calls[form](FakeHwnd(64999), index); }))
                << "index " << index << ", form " << form;
    }
    for (HWND handle : {HWND(nullptr), HWND_BROADCAST})
        EXPECT_TRUE(FailsWith(1400, 0, [&] { return GetWindowLongW(handle, GWL_STYLE); }));
}

TEST(WindowLong, PlainFieldsAndFlagWordRoundTrip)
{
    TestWindow window(Options(WS_POPUP));
    const HWND hwnd = window.hwnd();
    EXPECT_EQ(SetWindowLongW(hwnd, GWL_STYLE, WS_POPUP | WS_VISIBLE), static_cast<LONG>(WS_POPUP));
    EXPECT_EQ(GetWindowLongA(hwnd, GWL_STYLE), static_cast<LONG>(WS_POPUP | WS_VISIBLE));
    EXPECT_EQ(SetWindowLongPtrW(hwnd, GWLP_USERDATA, 0x1234), 0);
    EXPECT_EQ(SetWindowLongW(hwnd, GWLP_USERDATA, -2), 0x1234);
    EXPECT_EQ(GetWindowLongPtrW(hwnd, GWLP_USERDATA), -2);

    EXPECT_EQ(SetWindowLongW(hwnd, GWL_VORLFLAGS, WF_OBSCURED | WF_DRAGDEST), 0);
    EXPECT_EQ(GetWindowLongW(hwnd, GWL_VORLFLAGS), WF_OBSCURED | WF_DRAGDEST);
}

TEST(WindowLong, UnknownIndexesExtraBytesBoundsAndProcedureRefusals)
{
    TestWindow window(Options(WS_POPUP, 16));
    const HWND hwnd = window.hwnd();
    EXPECT_TRUE(FailsWith(0, 0, [&] { return GetWindowLongW(hwnd, -2) | GetWindowLongW(hwnd, -100); }));
    EXPECT_TRUE(FailsWith(87, 0, [&] { return SetWindowLongW(hwnd, -2, 1); }));
    EXPECT_TRUE(FailsWith(87, 0, [&] { return SetWindowLongPtrW(hwnd, GWLP_HINSTANCE, 1); }));
    EXPECT_TRUE(FailsWith(87, 0, [&] { return SetWindowLongPtrW(hwnd, GWL_HSCROLLINFO, 1); }));

    // 16 extra bytes: a LONG at 12, a LONG_PTR at 8, nothing reaching past.
    EXPECT_TRUE(FailsWith(87, 0, [&] { return SetWindowLongW(hwnd, 16 - 3, 1); }));
    EXPECT_EQ(SetWindowLongW(hwnd, 16 - 4, 0x11223344), 0);
    EXPECT_EQ(GetWindowLongW(hwnd, 16 - 4), 0x11223344);
    EXPECT_TRUE(FailsWith(87, 0, [&] { return GetWindowLongA(hwnd, 16 - 3); }));
    EXPECT_EQ(SetWindowLongPtrW(hwnd, 16 - 8, -5), static_cast<LONG_PTR>(0x11223344) << 32);
    EXPECT_EQ(GetWindowLongPtrW(hwnd, 16 - 8), -5);
    EXPECT_TRUE(FailsWith(87, 0, [&] { return GetWindowLongPtrW(hwnd, 16 - 7); }));
    EXPECT_TRUE(FailsWith(87, 0, [&] { return SetWindowLongW(hwnd, 0x7FFFFFFF, 1); }));
    TestWindow none(Options(WS_POPUP));
    EXPECT_TRUE(FailsWith(87, 0, [&] { return GetWindowLongW(none.hwnd(), 0); }));

    // A zero procedure is refused in both forms and changes nothing.
    const LONG_PTR before = GetWindowLongPtrW(hwnd, GWLP_WNDPROC);
    EXPECT_TRUE(FailsWith(87, 0, [&] { return SetWindowLongPtrW(hwnd, GWLP_WNDPROC, 0); }));
    EXPECT_TRUE(FailsWith(87, 0, [&] { return SetWindowLongPtrA(hwnd, GWLP_WNDPROC, 0); }));
    EXPECT_EQ(GetWindowLongPtrW(hwnd, GWLP_WNDPROC), before);
    vorlan::GtkCriticalSection lock;
    EXPECT_EQ(window.object()->nIdWndProc, AllocWndProcId(DefWindowProcA, DefWindowProcW));
}

#if VORLAN_LP64
TEST(WindowLong, LongFormsRefusePointerIndexes)
{
    TestWindow window(Options(WS_POPUP));
    for (int index : {GWLP_WNDPROC, GWLP_HINSTANCE, GWLP_HWNDPARENT, GWL_HSCROLLINFO, GWL_VSCROLLINFO}) {
        EXPECT_TRUE(FailsWith(ERROR_INVALID_INDEX, 0, [&] { return GetWindowLongW(window.hwnd(), index); }));
        EXPECT_TRUE(FailsWith(ERROR_INVALID_INDEX, 0, [&] { return SetWindowLongA(window.hwnd(), index, 1); }));
    }
}
#endif

TEST(WindowLong, IdSlotIsAChildsIdAndATopLevelsMenuAndParentSlotIsTheOwner)
{
    TestWindow parent(Options(WS_POPUP));
    TestWindow child(Options(WS_CHILD, 0, parent.hwnd()));
    EXPECT_EQ(SetWindowLongW(child.hwnd(), GWL_ID, 42), 0);
    EXPECT_EQ(SetWindowLongW(child.hwnd(), GWL_ID, 42), 42);
    EXPECT_EQ(GetWindowLongPtrW(child.hwnd(), GWLP_HWNDPARENT), reinterpret_cast<LONG_PTR>(parent.hwnd()));
    EXPECT_EQ(SetWindowLongPtrW(child.hwnd(), GWLP_HWNDPARENT, reinterpret_cast<LONG_PTR>(g_hWndDesktop)), 0);

    TestWindow top(Options(WS_OVERLAPPEDWINDOW));
    EXPECT_EQ(SetWindowLongPtrW(top.hwnd(), GWLP_ID, 0x5000), 0);
    EXPECT_EQ(GetWindowLongPtrW(top.hwnd(), GWLP_ID), 0) << "not a menu";
    EXPECT_EQ(SetWindowLongPtrW(top.hwnd(), GWLP_ID, 0), 0);

    EXPECT_EQ(GetWindowLongPtrW(top.hwnd(), GWLP_HWNDPARENT), 0);
    EXPECT_EQ(SetWindowLongPtrW(top.hwnd(), GWLP_HWNDPARENT, reinterpret_cast<LONG_PTR>(parent.hwnd())), 0);
    EXPECT_EQ(GetWindowLongPtrA(top.hwnd(), GWLP_HWNDPARENT), reinterpret_cast<LONG_PTR>(parent.hwnd()));
}

TEST(WindowLong, DialogProcedureAndFlagWord)
{
    TestWindow dialog(Options(WS_POPUP, DLGWINDOWEXTRA));
    SetWindowLongW(dialog.hwnd(), GWL_VORLFLAGS, WF_DIALOG);
    EXPECT_EQ(GetWindowLongPtrW(dialog.hwnd(), DWLP_DLGPROC), 0);
    EXPECT_TRUE(FailsWith(87, 0, [&] { return SetWindowLongPtrW(dialog.hwnd(), DWLP_DLGPROC, 0); }));
    EXPECT_EQ(SetWindowLongW(dialog.hwnd(), 28, 0x12345678), 0);
    EXPECT_EQ(GetWindowLongW(dialog.hwnd(), 28), 0x5678) << "16 bits";
}

TEST(WindowStateEvents, WindowStateTogglesStyleAndVisibilitySetsObscured)
{
    TestWindow window(ObjectSpec(nullptr, WS_OVERLAPPEDWINDOW, {10, 10, 50, 50}, true));
    auto dispatch = [](GdkEvent *event) { WithGdkLockHeld([&] { vorlan_gdk_event_handler(event, nullptr); }); };
    GdkEvent event = {};
    event.window_state.type = GDK_WINDOW_STATE;
    event.window_state.window = window.object()->window;
    event.window_state.changed_mask = GDK_WINDOW_STATE_ICONIFIED;
    dispatch(&event);
    EXPECT_TRUE(GetWindowLongW(window.hwnd(), GWL_STYLE) & WS_MINIMIZE);
    event.window_state.changed_mask =
        static_cast<GdkWindowState>(GDK_WINDOW_STATE_ICONIFIED | GDK_WINDOW_STATE_MAXIMIZED);
    dispatch(&event);
    const DWORD style = GetWindowLongW(window.hwnd(), GWL_STYLE);
    EXPECT_FALSE(style & WS_MINIMIZE);
    EXPECT_TRUE(style & WS_MAXIMIZE);
    event.window_state.changed_mask = GDK_WINDOW_STATE_STICKY;
    dispatch(&event);
    EXPECT_EQ(static_cast<DWORD>(GetWindowLongW(window.hwnd(), GWL_STYLE)), style);

    event = {};
    event.visibility.type = GDK_VISIBILITY_NOTIFY;
    event.visibility.window = window.object()->window;
    event.visibility.state = GDK_VISIBILITY_FULLY_OBSCURED;
    dispatch(&event);
    EXPECT_EQ(GetWindowLongW(window.hwnd(), GWL_VORLFLAGS) & WF_OBSCURED, WF_OBSCURED);
    event.visibility.state = GDK_VISIBILITY_PARTIAL;
    dispatch(&event);
    EXPECT_EQ(GetWindowLongW(window.hwnd(), GWL_VORLFLAGS) & WF_OBSCURED, 0);
}
