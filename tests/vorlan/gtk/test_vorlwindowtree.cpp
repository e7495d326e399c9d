// Links of the window tree and the child lists.
#include <gtest/gtest.h>

#include "gtk/vorlglobals.h"
#include "gtk/vorlgtklock.h"
#include "gtk/vorlwindowtree.h"
#include "support/window_objects.h"

#include <algorithm>
#include <vector>

using namespace vorlan_test;

namespace {

WindowOptions ChildOf(HWND parent)
{
    WindowOptions options;
    options.parent = parent;
    options.style = WS_CHILD;
    options.withXWindow = false;
    return options;
}

std::vector<HWND> Children(HWND parent, DWORD tid = 0)
{
    vorlan::GtkCriticalSection lock;
    std::vector<HWND> result;
    HWND *list = GetWindowChildListEx(parent, tid);
    if (list == nullptr)
        return result;
    for (HWND *h = list; *h != nullptr; ++h)
        result.push_back(*h);
    FreeWindowList(list);
    return result;
}

HWND Bad()
{
    return reinterpret_cast<HWND>(0x4D726577 + 65000);
}

} // namespace

TEST(WindowTree, LinkWindowAppends)
{
    TestWindow parent(ChildOf(nullptr));
    TestWindow a(ChildOf(parent.hwnd())), b(ChildOf(parent.hwnd())), c(ChildOf(parent.hwnd()));
    EXPECT_EQ(Children(parent.hwnd()), (std::vector<HWND>{a.hwnd(), b.hwnd(), c.hwnd()}));
    vorlan::GtkCriticalSection lock;
    EXPECT_EQ(a.object()->pWndParent, parent.object());
    EXPECT_EQ(parent.object()->pWndChild, a.object());
}

TEST(WindowTree, LinkWindowExPlacesFirstLastOrBehindSibling)
{
    TestWindow parent(ChildOf(nullptr));
    TestWindow a(ChildOf(parent.hwnd())), b(ChildOf(parent.hwnd())), c(ChildOf(parent.hwnd()));
    {
        vorlan::GtkCriticalSection lock;
        ASSERT_TRUE(LinkWindowEx(c.hwnd(), parent.hwnd(), LINK_FIRST_CHILD));
    }
    EXPECT_EQ(Children(parent.hwnd()), (std::vector<HWND>{c.hwnd(), a.hwnd(), b.hwnd()}));
    {
        vorlan::GtkCriticalSection lock;
        ASSERT_TRUE(LinkWindowEx(c.hwnd(), parent.hwnd(), a.hwnd()));
    }
    EXPECT_EQ(Children(parent.hwnd()), (std::vector<HWND>{a.hwnd(), c.hwnd(), b.hwnd()}));
    {
        vorlan::GtkCriticalSection lock;
        ASSERT_TRUE(LinkWindowEx(a.hwnd(), parent.hwnd(), LINK_LAST_CHILD));
    }
    EXPECT_EQ(Children(parent.hwnd()), (std::vector<HWND>{c.hwnd(), b.hwnd(), a.hwnd()}));
}

TEST(WindowTree, UnlinkClearsLinks)
{
    TestWindow parent(ChildOf(nullptr));
    TestWindow a(ChildOf(parent.hwnd())), b(ChildOf(parent.hwnd()));
    vorlan::GtkCriticalSection lock;
    ASSERT_TRUE(UnlinkWindow(a.hwnd()));
    EXPECT_EQ(a.object()->pWndParent, nullptr);
    EXPECT_EQ(a.object()->pWndNext, nullptr);
    EXPECT_EQ(parent.object()->pWndChild, b.object());
}

TEST(WindowTree, ZeroMeansTheDesktop)
{
    TestWindow top(ChildOf(nullptr));
    const std::vector<HWND> children = Children(nullptr);
    EXPECT_NE(std::find(children.begin(), children.end(), top.hwnd()), children.end());
    EXPECT_EQ(Children(nullptr), Children(g_hWndDesktop));
}

TEST(WindowTree, ChildListOfOneThread)
{
    TestWindow parent(ChildOf(nullptr));
    TestWindow mine(ChildOf(parent.hwnd()));
    {
        TestWindow other(ChildOf(parent.hwnd()));
        {
            vorlan::GtkCriticalSection lock;
            other.object()->dwThreadId = GetCurrentThreadId() + 1;
        }
        EXPECT_EQ(Children(parent.hwnd(), GetCurrentThreadId()), std::vector<HWND>{mine.hwnd()});
        EXPECT_EQ(Children(parent.hwnd()).size(), 2u);
    }
    TestWindow empty(ChildOf(nullptr));
    EXPECT_TRUE(Children(empty.hwnd()).empty());
}

TEST(WindowTree, BadHandlesGive1400)
{
    TestWindow window(ChildOf(nullptr));
    vorlan::GtkCriticalSection lock;
    SetLastError(0);
    EXPECT_FALSE(LinkWindow(Bad(), window.hwnd()));
    EXPECT_EQ(GetLastError(), 1400u);
    SetLastError(0);
    EXPECT_FALSE(LinkWindowEx(window.hwnd(), Bad(), LINK_FIRST_CHILD));
    EXPECT_EQ(GetLastError(), 1400u);
    SetLastError(0);
    EXPECT_FALSE(UnlinkWindow(Bad()));
    EXPECT_EQ(GetLastError(), 1400u);
    SetLastError(0);
    EXPECT_EQ(GetWindowChildList(Bad()), nullptr);
    EXPECT_EQ(GetLastError(), 1400u);
    SetLastError(0);
    EXPECT_FALSE(FreeWindowList(nullptr));
    EXPECT_EQ(GetLastError(), 87u);
}
