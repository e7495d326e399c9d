// The window tree through the exports: relations, SetParent, window text
// and the hints the window manager reads.
#include <gtest/gtest.h>

#include "gtk/vorlgtklock.h"
#include "gtk/vorlxwindow.h"
#include "support/gtk_helpers.h"
#include "support/message_recorder.h"
#include "support/window_checks.h"

#include <gdk/gdkx.h>
#include <X11/Xatom.h>
#include <X11/Xlib.h>

#include <atomic>
#include <cstring>
#include <string>
#include <thread>
#include <vector>

using namespace vorlan_test;

namespace {

bool HasNetWmState(XID xid, const char *state)
{
    unsigned long items = 0;
    const std::string data = XPropertyData(xid, "_NET_WM_STATE", &items);
    vorlan::GtkCriticalSection lock;
    const Atom wanted = XInternAtom(XDisplay(), state, False);
    for (unsigned long i = 0; i < items; ++i) {
        long atom = 0;
        std::memcpy(&atom, data.data() + i * sizeof(long), sizeof(long));
        if (Atom(atom) == wanted)
            return true;
    }
    return false;
}

LPCWSTR W(const char16_t *text) { return reinterpret_cast<LPCWSTR>(text); }

} // namespace

TEST(WindowTreeQueries, ParentOwnerAncestorsAndGetWindowFollowTheTree)
{
    MessageRecorder recorder("VorlanTreeAncestors");
    const HWND top = recorder.Create(WS_POPUP, 0, 0, 100, 100);
    const HWND child = recorder.Create(WS_CHILD, 0, 0, 50, 50, top);
    const HWND grandchild = recorder.Create(WS_CHILD, 0, 0, 20, 20, child);
    const HWND owned = recorder.Create(WS_POPUP, 0, 0, 20, 20, top);
    const HWND ownedByOwned = recorder.Create(WS_POPUP, 0, 0, 20, 20, owned);
    const HWND overlapped = recorder.Create(WS_OVERLAPPED, 0, 0, 20, 20);
    const HWND desktop = GetDesktopWindow();

    EXPECT_EQ(GetParent(owned), top);
    EXPECT_EQ(GetParent(overlapped), nullptr);

    EXPECT_EQ(GetAncestor(grandchild, GA_PARENT), child);
    EXPECT_EQ(GetAncestor(top, GA_PARENT), desktop);
    EXPECT_EQ(GetAncestor(grandchild, GA_ROOT), top);
    EXPECT_EQ(GetAncestor(top, GA_ROOT), top);
    EXPECT_EQ(GetAncestor(grandchild, GA_ROOTOWNER), top);
    // One step up the owners, not to the owner's root.
    EXPECT_EQ(GetAncestor(ownedByOwned, GA_ROOTOWNER), owned);
    EXPECT_EQ(GetAncestor(desktop, GA_PARENT), nullptr);
    EXPECT_EQ(GetAncestor(desktop, GA_ROOT), nullptr);
    EXPECT_TRUE(FailsWith(87, nullptr, [&] { return GetAncestor(child, 4); }));
    EXPECT_TRUE(FailsWith(1400, nullptr, [] { return GetAncestor(FakeHwnd(60002), GA_PARENT); }));
    EXPECT_EQ(GetParent(FakeHwnd(60002)), nullptr);

    EXPECT_TRUE(IsChild(top, grandchild));
    EXPECT_FALSE(IsChild(grandchild, grandchild));
    EXPECT_FALSE(IsChild(top, owned));
    EXPECT_FALSE(IsChild(grandchild, top));
    EXPECT_FALSE(IsChild(top, FakeHwnd(60002)));

    const HWND second = recorder.Create(WS_CHILD, 0, 0, 10, 10, top);
    const HWND third = recorder.Create(WS_CHILD, 0, 0, 10, 10, top);
    EXPECT_EQ(GetWindow(top, GW_CHILD), child);
    EXPECT_EQ(GetWindow(child, GW_HWNDNEXT), second);
    EXPECT_EQ(GetWindow(third, GW_HWNDNEXT), nullptr);
    EXPECT_EQ(GetWindow(third, GW_HWNDPREV), second);
    EXPECT_EQ(GetWindow(third, GW_HWNDFIRST), child);
    EXPECT_EQ(GetWindow(second, GW_HWNDLAST), nullptr);
    EXPECT_EQ(GetWindow(owned, GW_OWNER), top);
    EXPECT_EQ(GetWindow(child, GW_OWNER), nullptr);
    EXPECT_TRUE(FailsWith(87, nullptr, [&] { return GetWindow(child, 6); }));
    EXPECT_TRUE(FailsWith(1400, nullptr, [] { return GetWindow(FakeHwnd(60003), GW_CHILD); }));
    // Among the desktop's children, next-sibling runs through FindWindowEx.
    EXPECT_EQ(GetWindow(top, GW_HWNDNEXT), FindWindowExA(nullptr, top, nullptr, nullptr));
}

TEST(WindowTreeQueries, ThreadUnicodeAndVisibilityQueries)
{
    MessageRecorder wide("VorlanTreeWide", true);
    MessageRecorder narrow("VorlanTreeNarrow", false);
    const HWND w = wide.Create(WS_POPUP, 0, 0, 10, 10);
    const HWND a = narrow.Create(WS_POPUP, 0, 0, 10, 10);
    EXPECT_TRUE(IsWindowUnicode(w));
    EXPECT_FALSE(IsWindowUnicode(a));

    DWORD pid = 0;
    EXPECT_EQ(GetWindowThreadProcessId(w, &pid), GetCurrentThreadId());
    EXPECT_EQ(pid, 1u);
    EXPECT_EQ(GetWindowThreadProcessId(w, nullptr), GetCurrentThreadId());
    std::atomic<DWORD> threadOfOther{0};
    std::atomic<HWND> other{nullptr};
    std::atomic<bool> created{false};
    std::atomic<bool> checked{false};
    std::thread worker([&] {
        threadOfOther = GetCurrentThreadId();
        other = CreateWindowExW(0, wide.wideClassName(), nullptr, WS_POPUP, 0, 0, 5, 5, nullptr, nullptr, nullptr,
                                nullptr);
        created = true;
        while (!checked.load())
            std::this_thread::yield();
    });
    while (!created.load())
        std::this_thread::yield();
    EXPECT_NE(other.load(), nullptr);
    EXPECT_EQ(GetWindowThreadProcessId(other, nullptr), threadOfOther.load());
    checked = true;
    worker.join();
    // The window died with its thread.
    EXPECT_FALSE(IsWindow(other));
    pid = 77;
    EXPECT_TRUE(FailsWith(1400, 0xFFFFFFFFu, [&] { return GetWindowThreadProcessId(FakeHwnd(60004), &pid); }));
    EXPECT_EQ(pid, 77u);

    EXPECT_TRUE(IsWindowVisible(GetDesktopWindow()));
    EXPECT_TRUE(FailsWith(1400, FALSE, [] { return IsWindowVisible(FakeHwnd(60004)); }));
}

TEST(WindowReparenting, ChildKeepsItsPlaceInTheClientAreaAndMovesInX)
{
    MessageRecorder recorder("VorlanReparent");
    const HWND left = recorder.Create(WS_POPUP | WS_VISIBLE, 100, 100, 200, 200);
    const HWND right = recorder.Create(WS_POPUP | WS_VISIBLE, 400, 150, 200, 200);
    const HWND child = recorder.Create(WS_CHILD | WS_VISIBLE, 10, 20, 30, 40, left);
    const HWND other = recorder.Create(WS_CHILD | WS_VISIBLE, 0, 0, 30, 40, right);

    EXPECT_EQ(SetParent(child, right), left);
    EXPECT_EQ(GetParent(child), right);
    EXPECT_EQ(GetWindow(right, GW_CHILD), other);
    EXPECT_EQ(GetWindow(other, GW_HWNDNEXT), child);
    EXPECT_EQ(GetWindow(left, GW_CHILD), nullptr);
    EXPECT_TRUE(SameRect(WindowRectOf(child), RECT{410, 170, 440, 210}));
    EXPECT_EQ(XParentOf(XidOf(child)), XidOf(right));

    // Same parent again: nothing happens.  Into itself or its own
    // descendant: refused.
    EXPECT_TRUE(FailsWith(0, nullptr, [&] { return SetParent(child, right); }));
    const HWND grandchild = recorder.Create(WS_CHILD, 0, 0, 5, 5, child);
    EXPECT_TRUE(FailsWith(87, nullptr, [&] { return SetParent(child, grandchild); }));
    EXPECT_TRUE(FailsWith(87, nullptr, [&] { return SetParent(child, child); }));
    EXPECT_EQ(GetParent(child), right);
    EXPECT_TRUE(FailsWith(1400, nullptr, [&] { return SetParent(child, FakeHwnd(60005)); }));
    EXPECT_EQ(SetParent(GetDesktopWindow(), right), nullptr);

    // To the desktop: the rectangle keeps its offset from the client
    // origin, which is now the screen's.
    EXPECT_EQ(SetParent(child, nullptr), right);
    EXPECT_EQ(GetAncestor(child, GA_PARENT), GetDesktopWindow());
    EXPECT_TRUE(SameRect(WindowRectOf(child), RECT{10, 20, 40, 60}));
    EXPECT_EQ(XParentOf(XidOf(child)), DefaultRootWindow(XDisplay()));
}

TEST(WindowText, WideAndAnsiTextRoundTripWithTruncationAndLengths)
{
    MessageRecorder recorder("VorlanTextRoundTrip");
    const HWND hwnd = recorder.Create(WS_POPUP, 0, 0, 10, 10);
    EXPECT_TRUE(SetWindowTextW(hwnd, W(u"Grüße")));
    EXPECT_EQ(GetWindowTextLengthW(hwnd), 5);
    WCHAR wide[16] = {};
    EXPECT_EQ(GetWindowTextW(hwnd, wide, 16), 5);
    EXPECT_EQ(std::u16string(reinterpret_cast<const char16_t *>(wide)), u"Grüße");
    EXPECT_EQ(GetWindowTextW(hwnd, wide, 3), 2);
    EXPECT_EQ(wide[1], u'r');
    EXPECT_EQ(wide[2], 0);

    char narrow[16] = {};
    const int ansiLength = GetWindowTextA(hwnd, narrow, 16);
    EXPECT_EQ(ansiLength, int(std::strlen(narrow)));
    EXPECT_EQ(narrow[0], 'G');
    // Asked of a wide window, the ANSI length is an upper bound in bytes.
    EXPECT_GE(GetWindowTextLengthA(hwnd), ansiLength);
    EXPECT_EQ(GetWindowTextA(hwnd, narrow, 2), 1);
    EXPECT_STREQ(narrow, "G");

    // Empty text: 0 and the buffer stays as it was.
    EXPECT_TRUE(SetWindowTextW(hwnd, nullptr));
    wide[0] = u'x';
    EXPECT_EQ(GetWindowTextW(hwnd, wide, 16), 0);
    EXPECT_EQ(wide[0], u'x');
    EXPECT_EQ(GetWindowTextLengthW(hwnd), 0);

    // An ANSI window keeps its text in the ANSI code page.
    MessageRecorder ansi("VorlanTextAnsi", false);
    const HWND narrowWindow = ansi.Create(WS_POPUP, 0, 0, 10, 10);
    EXPECT_TRUE(SetWindowTextA(narrowWindow, "abc"));
    EXPECT_EQ(GetWindowTextLengthA(narrowWindow), 3);
    EXPECT_EQ(GetWindowTextLengthW(narrowWindow), 3);
    EXPECT_EQ(GetWindowTextW(narrowWindow, wide, 8), 3);
    EXPECT_EQ(wide[2], u'c');
    EXPECT_EQ(wide[3], 0);
    EXPECT_EQ(GetWindowTextA(narrowWindow, narrow, 3), 2);
    EXPECT_STREQ(narrow, "ab");
}

TEST(WindowText, TitleReachesXAndAProcedureMayRefuseText)
{
    MessageRecorder recorder("VorlanTextTitle");
    const HWND hwnd = recorder.Create(WS_OVERLAPPEDWINDOW, 0, 0, 100, 100);
    EXPECT_TRUE(SetWindowTextW(hwnd, W(u"Überschrift")));
    EXPECT_EQ(XPropertyData(XidOf(hwnd), "_NET_WM_NAME"), "Überschrift");

    recorder.Answer(WM_SETTEXT, [](HWND, WPARAM, LPARAM) { return LRESULT(0); });
    EXPECT_FALSE(SetWindowTextW(hwnd, W(u"refused")));
    WCHAR text[32] = {};
    EXPECT_EQ(GetWindowTextW(hwnd, text, 32), 11);

    EXPECT_TRUE(FailsWith(1400, FALSE, [] { return SetWindowTextW(FakeHwnd(60006), W(u"x")); }));
    EXPECT_TRUE(FailsWith(1400, 0, [&] { return GetWindowTextW(FakeHwnd(60006), text, 32); }));
}

TEST(WindowManagerHints, DecorationsAndTaskbarFollowStyles)
{
    MessageRecorder recorder("VorlanHints");
    const HWND popup = recorder.Create(WS_POPUP, 0, 0, 50, 50);
    const HWND framed = recorder.Create(WS_OVERLAPPEDWINDOW, 0, 0, 50, 50);
    const HWND tool = recorder.Create(WS_OVERLAPPEDWINDOW, 0, 0, 50, 50, nullptr, WS_EX_TOOLWINDOW);
    const HWND app = recorder.Create(WS_OVERLAPPEDWINDOW, 0, 0, 50, 50, nullptr, WS_EX_TOOLWINDOW | WS_EX_APPWINDOW);

    // _MOTIF_WM_HINTS: flags, functions, decorations, ...; decorations 0
    // asks for no frame at all.
    auto decorations = [](HWND hwnd) -> long {
        const std::string hints = XPropertyData(XidOf(hwnd), "_MOTIF_WM_HINTS");
        if (hints.size() < 3 * sizeof(long))
            return -1;
        long flags = 0, value = 0;
        std::memcpy(&flags, hints.data(), sizeof(long));
        std::memcpy(&value, hints.data() + 2 * sizeof(long), sizeof(long));
        return (flags & 2) != 0 ? value : -1;
    };
    EXPECT_EQ(decorations(popup), 0);
    EXPECT_NE(decorations(framed), 0);

    for (HWND hwnd : {framed, tool, app})
        ShowWindow(hwnd, SW_SHOWNA);
    EXPECT_TRUE(PumpUntil([&] { return HasNetWmState(XidOf(tool), "_NET_WM_STATE_SKIP_TASKBAR"); }));
    EXPECT_TRUE(HasNetWmState(XidOf(tool), "_NET_WM_STATE_SKIP_PAGER"));
    EXPECT_FALSE(HasNetWmState(XidOf(framed), "_NET_WM_STATE_SKIP_TASKBAR"));
    EXPECT_FALSE(HasNetWmState(XidOf(app), "_NET_WM_STATE_SKIP_TASKBAR"));
}

TEST(WindowOwnership, OwnerAtCreationAndLaterChangesReachTheTransientHint)
{
    MessageRecorder recorder("VorlanOwnership");
    const HWND first = recorder.Create(WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 100, 100);
    const HWND second = recorder.Create(WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 100, 100);
    const HWND child = recorder.Create(WS_CHILD | WS_VISIBLE, 0, 0, 10, 10, first);
    // A popup given a child as its parent is owned by the child's root.
    const HWND popup = recorder.Create(WS_POPUP, 0, 0, 30, 30, child);
    ASSERT_NE(popup, nullptr);
    EXPECT_EQ(GetAncestor(popup, GA_PARENT), GetDesktopWindow());
    EXPECT_EQ(GetWindow(popup, GW_OWNER), first);
    EXPECT_EQ(GetParent(popup), first);
    EXPECT_EQ(TransientFor(XidOf(popup)), XidOf(first));

    EXPECT_EQ(SetWindowLongPtrW(popup, GWLP_HWNDPARENT, reinterpret_cast<LONG_PTR>(second)),
              reinterpret_cast<LONG_PTR>(first));
    EXPECT_EQ(GetWindow(popup, GW_OWNER), second);
    EXPECT_EQ(TransientFor(XidOf(popup)), XidOf(second));

    // An owner the user cannot see hands on the window it is transient for.
    const HWND hiddenOwner = recorder.Create(WS_POPUP, 0, 0, 30, 30, second);
    SetWindowLongPtrW(popup, GWLP_HWNDPARENT, reinterpret_cast<LONG_PTR>(hiddenOwner));
    EXPECT_EQ(GetWindow(popup, GW_OWNER), hiddenOwner);
    EXPECT_EQ(TransientFor(XidOf(popup)), XidOf(second));

    // The same rule as at creation: an owner of a child window is its root.
    SetWindowLongPtrW(popup, GWLP_HWNDPARENT, reinterpret_cast<LONG_PTR>(child));
    EXPECT_EQ(GetWindow(popup, GW_OWNER), first);

    SetWindowLongPtrW(popup, GWLP_HWNDPARENT, 0);
    EXPECT_EQ(GetWindow(popup, GW_OWNER), nullptr);
    EXPECT_EQ(TransientFor(XidOf(popup)), XID(0));
}
