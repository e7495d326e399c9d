// FindWindow and FindWindowEx: list order, hWndAfter, classes, titles.
#include <gtest/gtest.h>

#include "gtk/vorlstartup.h"
#include "gtk/vorlgtklock.h"
#include "gtk/vorlwindow.h"
#include "support/gtk_helpers.h"
#include "support/message_recorder.h"
#include "support/window_checks.h"

using namespace vorlan_test;

namespace {

const WCHAR *W(const char16_t *text)
{
    return reinterpret_cast<const WCHAR *>(text);
}

} // namespace

TEST(WindowFinding, NoClassNoTitleGivesTheFirstWindowAndAfterAWindowOfAnotherParentFails)
{
    TestWindow parent(ObjectSpec(nullptr, WS_POPUP)), second(ObjectSpec(nullptr, WS_POPUP));
    TestWindow a(ObjectSpec(parent.hwnd())), b(ObjectSpec(parent.hwnd()));
    TestWindow stranger(ObjectSpec(second.hwnd()));
    EXPECT_EQ(FindWindowExA(parent.hwnd(), nullptr, nullptr, nullptr), a.hwnd());
    EXPECT_EQ(FindWindowExW(parent.hwnd(), a.hwnd(), nullptr, nullptr), b.hwnd());
    EXPECT_EQ(FindWindowExW(parent.hwnd(), b.hwnd(), nullptr, nullptr), nullptr);
    {
        vorlan::GtkCriticalSection lock;
        LinkWindowEx(parent.hwnd(), g_hWndDesktop, LINK_FIRST_CHILD);
    }
    EXPECT_EQ(FindWindowW(nullptr, nullptr), parent.hwnd());
    EXPECT_EQ(FindWindowA(nullptr, nullptr), parent.hwnd());

    const HWND p = parent.hwnd(), after = stranger.hwnd();
    EXPECT_TRUE(FailsWith(1400, nullptr, [&] { return FindWindowExW(p, after, nullptr, nullptr); }));
    EXPECT_TRUE(FailsWith(1400, nullptr, [] { return FindWindowExA(FakeHwnd(65000), nullptr, nullptr, nullptr); }));
}

TEST(WindowFinding, ClassByNameOrAtomAndTitlesAskedOfTheProcedureIgnoringAsciiCaseOnly)
{
    MessageRecorder recorder("VorlanSearchTitled");
    const HWND parent = recorder.Create(WS_POPUP, 0, 0, 10, 10);
    TestWindow plain(ObjectSpec(parent));
    const HWND titled = recorder.Create(WS_CHILD, 0, 0, 5, 5, parent);
    const ATOM atom = static_cast<ATOM>(GetClassLongW(titled, GCW_ATOM));
    EXPECT_EQ(FindWindowExW(parent, nullptr, W(u"VorlanSearchTitled"), nullptr), titled);
    EXPECT_EQ(FindWindowExA(parent, nullptr, "vorlansearchtitled", nullptr), titled);
    EXPECT_EQ(FindWindowExW(parent, nullptr, reinterpret_cast<LPCWSTR>(MAKEINTATOM(atom)), nullptr), titled);
    EXPECT_EQ(FindWindowExA(parent, nullptr, "VorlanTestWindow", nullptr), plain.hwnd());
    EXPECT_EQ(FindWindowExA(parent, nullptr, "VorlanNoSuchClassName", nullptr), nullptr);

    const HWND hello = recorder.Create(WS_POPUP, 0, 0, 5, 5, nullptr, 0, 0, u"Hello World");
    const HWND umlaut = recorder.Create(WS_POPUP, 0, 0, 5, 5, nullptr, 0, 0, u"\u00C4rger 1");
    recorder.Clear();
    EXPECT_EQ(FindWindowW(W(u"VorlanSearchTitled"), W(u"hELLO wORLD")), hello);
    EXPECT_TRUE(recorder.Saw(hello, WM_GETTEXT));
    EXPECT_EQ(FindWindowA("VorlanSearchTitled", "HELLO WORLD"), hello);
    EXPECT_EQ(FindWindowW(nullptr, W(u"Hello World")), hello) << "any class";
    EXPECT_EQ(FindWindowW(W(u"VorlanSearchTitled"), W(u"\u00C4RGER 1")), umlaut);
    EXPECT_EQ(FindWindowW(W(u"VorlanSearchTitled"), W(u"\u00E4rger 1")), nullptr) << "no case folding beyond ASCII";
    EXPECT_EQ(FindWindowW(W(u"VorlanSearchTitled"), W(u"Hello World!")), nullptr) << "shorter text";
    EXPECT_EQ(FindWindowW(W(u"VorlanSearchTitled"), W(u"Hello Worle")), nullptr);
}
