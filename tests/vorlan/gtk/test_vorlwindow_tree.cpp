// Links of the window tree and the child lists.
#include <gtest/gtest.h>

#include "gtk/vorlstartup.h"
#include "gtk/vorlgtklock.h"
#include "gtk/vorlwindow.h"
#include "support/gtk_helpers.h"
#include "support/window_checks.h"

#include <algorithm>
#include <vector>

using namespace vorlan_test;

namespace {

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

bool Relink(HWND hwnd, HWND parent, HWND after)
{
    vorlan::GtkCriticalSection lock;
    return LinkWindowEx(hwnd, parent, after);
}

} // namespace

TEST(WindowTree, LinkAppendsLinkExPlacesFirstLastOrBehindAndUnlinkClears)
{
    TestWindow parent(ObjectSpec(nullptr));
    const HWND p = parent.hwnd();
    TestWindow a(ObjectSpec(p)), b(ObjectSpec(p)), c(ObjectSpec(p));
    EXPECT_EQ(Children(p), (std::vector<HWND>{a.hwnd(), b.hwnd(), c.hwnd()}));
    ASSERT_TRUE(Relink(c.hwnd(), p, LINK_FIRST_CHILD));
    EXPECT_EQ(Children(p), (std::vector<HWND>{c.hwnd(), a.hwnd(), b.hwnd()}));
    ASSERT_TRUE(Relink(c.hwnd(), p, a.hwnd()));
    EXPECT_EQ(Children(p), (std::vector<HWND>{a.hwnd(), c.hwnd(), b.hwnd()}));
    ASSERT_TRUE(Relink(a.hwnd(), p, LINK_LAST_CHILD));
    EXPECT_EQ(Children(p), (std::vector<HWND>{c.hwnd(), b.hwnd(), a.hwnd()}));

    {
        vorlan::GtkCriticalSection lock;
        ASSERT_TRUE(UnlinkWindow(c.hwnd()));
    }
    EXPECT_EQ(Children(p), (std::vector<HWND>{b.hwnd(), a.hwnd()}));
}

TEST(WindowTree, ChildListOfTheDesktopOrOfOneThread)
{
    TestWindow parent(ObjectSpec(nullptr));
    const std::vector<HWND> topLevel = Children(nullptr);
    EXPECT_NE(std::find(topLevel.begin(), topLevel.end(), parent.hwnd()), topLevel.end());
    EXPECT_EQ(topLevel, Children(g_hWndDesktop));

    TestWindow mine(ObjectSpec(parent.hwnd()));
    {
        TestWindow other(ObjectSpec(parent.hwnd()));
        {
            vorlan::GtkCriticalSection lock;
            other.object()->dwThreadId = GetCurrentThreadId() + 1;
        }
        EXPECT_EQ(Children(parent.hwnd(), GetCurrentThreadId()), std::vector<HWND>{mine.hwnd()});
        EXPECT_EQ(Children(parent.hwnd()).size(), 2u);
    }
    EXPECT_TRUE(Children(mine.hwnd()).empty());
}

TEST(WindowTree, BadHandlesGive1400)
{
    TestWindow window(ObjectSpec(nullptr));
    const HWND bad = FakeHwnd(65000), good = window.hwnd();
    vorlan::GtkCriticalSection lock;
    EXPECT_TRUE(FailsWith(1400, FALSE, [&] { return LinkWindow(bad, good); }));
    EXPECT_TRUE(FailsWith(1400, FALSE, [&] { return LinkWindowEx(good, bad, LINK_FIRST_CHILD); }));
    EXPECT_TRUE(FailsWith(1400, FALSE, [&] { return UnlinkWindow(bad); }));
    EXPECT_TRUE(FailsWith(1400, nullptr, [&] { return GetWindowChildList(bad); }));
    EXPECT_TRUE(FailsWith(87, FALSE, [] { return FreeWindowList(nullptr); }));
}
