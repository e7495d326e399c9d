// FindWindowW/A and FindWindowExW/A: list order, hWndAfter, class by name
// and by atom, titles asked of the window procedure with WM_GETTEXT.
#include <gtest/gtest.h>

#include "gtk/vorlglobals.h"
#include "gtk/vorlgtklock.h"
#include "gtk/vorlwindowtree.h"
#include "support/gtk_helpers.h"
#include "support/window_checks.h"
#include "vorlwindowclass.h"

#include <cstring>
#include <map>
#include <memory>
#include <string>

using namespace vorlan_test;

namespace {

std::map<HWND, std::u16string> g_titles;

// Keeps each window's text in g_titles and gives it out as the default
// procedure would: as much as fits, terminated, the count copied.
LRESULT CALLBACK TitledProc(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    const std::u16string &title = g_titles[hWnd];
    if (message == WM_GETTEXTLENGTH)
        return static_cast<LRESULT>(title.size());
    if (message != WM_GETTEXT || wParam == 0)
        return 0;
    const size_t count = std::min<size_t>(title.size(), wParam - 1);
    auto *buffer = reinterpret_cast<char16_t *>(lParam);
    std::memcpy(buffer, title.data(), count * sizeof(char16_t));
    buffer[count] = 0;
    return static_cast<LRESULT>(count);
}

const WCHAR *W(const char16_t *text)
{
    return reinterpret_cast<const WCHAR *>(text);
}

ATOM TitledClass()
{
    static const ATOM atom = [] {
        WNDCLASSW wc = {};
        wc.lpfnWndProc = TitledProc;
        wc.lpszClassName = W(u"VorlanSearchTitled");
        return RegisterClassW(&wc);
    }();
    return atom;
}

WindowOptions Under(HWND parent, DWORD style = WS_CHILD)
{
    return ObjectSpec(parent, style);
}

// A window of the registered class, with its procedure and a title.
std::unique_ptr<TestWindow> Titled(HWND parent, const std::u16string &title, DWORD style = WS_CHILD)
{
    WindowOptions options = Under(parent, style);
    options.classAtom = TitledClass();
    auto window = std::make_unique<TestWindow>(options);
    vorlan::GtkCriticalSection lock;
    window->object()->nIdWndProc = WindowClass_FindClass(options.classAtom)->nIdWndProc;
    g_titles[window->hwnd()] = title;
    return window;
}

} // namespace

TEST(WindowFinding, NoClassNoTitleGivesTheFirstWindowAndAfterAWindowOfAnotherParentFails)
{
    TestWindow parent(Under(nullptr, WS_POPUP)), second(Under(nullptr, WS_POPUP));
    TestWindow a(Under(parent.hwnd())), b(Under(parent.hwnd())), stranger(Under(second.hwnd()));
    EXPECT_EQ(FindWindowExA(parent.hwnd(), nullptr, nullptr, nullptr), a.hwnd());
    EXPECT_EQ(FindWindowExW(parent.hwnd(), a.hwnd(), nullptr, nullptr), b.hwnd());
    EXPECT_EQ(FindWindowExW(parent.hwnd(), b.hwnd(), nullptr, nullptr), nullptr);
    {
        vorlan::GtkCriticalSection lock;
        LinkWindowEx(parent.hwnd(), g_hWndDesktop, LINK_FIRST_CHILD);
    }
    EXPECT_EQ(FindWindowW(nullptr, nullptr), parent.hwnd());
    EXPECT_EQ(FindWindowA(nullptr, nullptr), parent.hwnd());

    SetLastError(0);
    EXPECT_EQ(FindWindowExW(parent.hwnd(), stranger.hwnd(), nullptr, nullptr), nullptr);
    EXPECT_EQ(GetLastError(), DWORD(ERROR_INVALID_WINDOW_HANDLE));
    SetLastError(0);
    EXPECT_EQ(FindWindowExA(FakeHwnd(65000), nullptr, nullptr, nullptr), nullptr);
    EXPECT_EQ(GetLastError(), DWORD(ERROR_INVALID_WINDOW_HANDLE));
}

TEST(WindowFinding, ClassByNameOrAtom)
{
    TestWindow parent(Under(nullptr, WS_POPUP));
    TestWindow plain(Under(parent.hwnd()));
    auto titled = Titled(parent.hwnd(), u"Any");
    const HWND p = parent.hwnd();
    EXPECT_EQ(FindWindowExW(p, nullptr, W(u"VorlanSearchTitled"), nullptr), titled->hwnd());
    EXPECT_EQ(FindWindowExA(p, nullptr, "vorlansearchtitled", nullptr), titled->hwnd());
    EXPECT_EQ(FindWindowExA(p, nullptr, reinterpret_cast<LPCSTR>(MAKEINTATOM(TitledClass())), nullptr),
              titled->hwnd());
    EXPECT_EQ(FindWindowExW(p, nullptr, reinterpret_cast<LPCWSTR>(MAKEINTATOM(TitledClass())), nullptr),
              titled->hwnd());
    EXPECT_EQ(FindWindowExA(p, nullptr, "VorlanTestWindow", nullptr), plain.hwnd());
    EXPECT_EQ(FindWindowExA(p, nullptr, "VorlanNoSuchClassName", nullptr), nullptr);
}

TEST(WindowFinding, TitlesMatchIgnoringAsciiCaseOnly)
{
    auto hello = Titled(nullptr, u"Hello World", WS_POPUP);
    auto umlaut = Titled(nullptr, u"\u00C4rger 1", WS_POPUP);
    EXPECT_EQ(FindWindowW(W(u"VorlanSearchTitled"), W(u"hELLO wORLD")), hello->hwnd());
    EXPECT_EQ(FindWindowA("VorlanSearchTitled", "HELLO WORLD"), hello->hwnd());
    EXPECT_EQ(FindWindowW(nullptr, W(u"Hello World")), hello->hwnd()) << "any class";
    EXPECT_EQ(FindWindowW(W(u"VorlanSearchTitled"), W(u"\u00C4RGER 1")), umlaut->hwnd());
    EXPECT_EQ(FindWindowW(W(u"VorlanSearchTitled"), W(u"\u00E4rger 1")), nullptr) << "no case folding beyond ASCII";
    EXPECT_EQ(FindWindowW(W(u"VorlanSearchTitled"), W(u"Hello World!")), nullptr) << "shorter text";
    EXPECT_EQ(FindWindowW(W(u"VorlanSearchTitled"), W(u"Hello Worle")), nullptr);
}
