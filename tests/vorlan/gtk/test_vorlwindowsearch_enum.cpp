// Window enumeration: order, early end, windows destroyed by the callback.
#include <gtest/gtest.h>

#include "gtk/vorlgtklock.h"
#include "support/gtk_helpers.h"
#include "support/window_checks.h"

#include <algorithm>
#include <functional>
#include <memory>
#include <thread>
#include <vector>

using namespace vorlan_test;

namespace {

struct Visits {
    std::vector<HWND> seen;
    HWND stopAt = nullptr;
    std::function<void(HWND)> onVisit;
    bool lockHeld = false;
};

BOOL CALLBACK Record(HWND hWnd, LPARAM lParam)
{
    auto *visits = reinterpret_cast<Visits *>(lParam);
    visits->seen.push_back(hWnd);
    visits->lockHeld = visits->lockHeld || vorlan::GtkCriticalSection::held_by_caller();
    if (visits->onVisit)
        visits->onVisit(hWnd);
    return hWnd != visits->stopAt;
}

LPARAM Arg(Visits &visits)
{
    return reinterpret_cast<LPARAM>(&visits);
}

// parent: a (a1, a2), b
struct SmallTree {
    TestWindow parent{ObjectSpec(nullptr, WS_POPUP)};
    TestWindow a{ObjectSpec(parent.hwnd())}, a1{ObjectSpec(a.hwnd())}, a2{ObjectSpec(a.hwnd())};
    TestWindow b{ObjectSpec(parent.hwnd())};
};

} // namespace

TEST(WindowEnumeration, ChildWindowsDepthFirstWithoutTheLockAndAZeroAnswerEndsEveryLevel)
{
    SmallTree tree;
    Visits visits;
    EXPECT_TRUE(EnumChildWindows(tree.parent.hwnd(), Record, Arg(visits)));
    EXPECT_EQ(visits.seen, (std::vector<HWND>{tree.a.hwnd(), tree.a1.hwnd(), tree.a2.hwnd(), tree.b.hwnd()}));
    EXPECT_FALSE(visits.lockHeld);

    Visits stopped;
    stopped.stopAt = tree.a1.hwnd();
    EXPECT_FALSE(EnumChildWindows(tree.parent.hwnd(), Record, Arg(stopped)));
    EXPECT_EQ(stopped.seen, (std::vector<HWND>{tree.a.hwnd(), tree.a1.hwnd()}));
}

TEST(WindowEnumeration, WindowDestroyedByTheCallbackIsSkipped)
{
    TestWindow parent(ObjectSpec(nullptr, WS_POPUP));
    auto a = std::make_unique<TestWindow>(ObjectSpec(parent.hwnd()));
    auto b = std::make_unique<TestWindow>(ObjectSpec(parent.hwnd()));
    auto c = std::make_unique<TestWindow>(ObjectSpec(parent.hwnd()));
    const std::vector<HWND> expected{a->hwnd(), c->hwnd()};
    Visits visits;
    visits.onVisit = [&](HWND hWnd) {
        if (hWnd == expected[0])
            b.reset();
    };
    EXPECT_TRUE(EnumChildWindows(parent.hwnd(), Record, Arg(visits)));
    EXPECT_EQ(visits.seen, expected);

    // The same at the top level: the next window of the thread goes.
    auto first = std::make_unique<TestWindow>(ObjectSpec(nullptr, WS_POPUP));
    auto second = std::make_unique<TestWindow>(ObjectSpec(nullptr, WS_POPUP));
    const HWND secondHandle = second->hwnd();
    Visits topVisits;
    topVisits.onVisit = [&](HWND hWnd) {
        if (hWnd == first->hwnd())
            second.reset();
    };
    EXPECT_TRUE(EnumThreadWindows(GetCurrentThreadId(), Record, Arg(topVisits)));
    EXPECT_NE(std::find(topVisits.seen.begin(), topVisits.seen.end(), first->hwnd()), topVisits.seen.end());
    EXPECT_EQ(std::find(topVisits.seen.begin(), topVisits.seen.end(), secondHandle), topVisits.seen.end());
}

TEST(WindowEnumeration, TopLevelWindowsByThread)
{
    TestWindow mine(ObjectSpec(nullptr, WS_POPUP));
    TestWindow child(ObjectSpec(mine.hwnd()));
    Visits ofThisThread, ofAll, viaDesktop;
    EXPECT_TRUE(EnumThreadWindows(GetCurrentThreadId(), Record, Arg(ofThisThread)));
    EXPECT_TRUE(EnumWindows(Record, Arg(ofAll)));
    EXPECT_TRUE(EnumChildWindows(nullptr, Record, Arg(viaDesktop)));
    for (const Visits *visits : {&ofThisThread, &ofAll, &viaDesktop}) {
        EXPECT_NE(std::find(visits->seen.begin(), visits->seen.end(), mine.hwnd()), visits->seen.end());
        EXPECT_EQ(std::find(visits->seen.begin(), visits->seen.end(), child.hwnd()), visits->seen.end())
            << "top level only";
    }

    Visits ofOtherThread;
    BOOL result = FALSE;
    std::thread([&] { result = EnumThreadWindows(GetCurrentThreadId(), Record, Arg(ofOtherThread)); }).join();
    EXPECT_TRUE(result) << "a thread without windows: no call, TRUE";
    EXPECT_TRUE(ofOtherThread.seen.empty());
}

TEST(WindowEnumeration, NullProcedureAndBadParent)
{
    TestWindow parent(ObjectSpec(nullptr, WS_POPUP));
    EXPECT_TRUE(FailsWith(87, FALSE, [] { return EnumWindows(nullptr, 0); }));
    EXPECT_TRUE(FailsWith(87, FALSE, [] { return EnumThreadWindows(GetCurrentThreadId(), nullptr, 0); }));
    EXPECT_TRUE(FailsWith(87, FALSE, [&] { return EnumChildWindows(parent.hwnd(), nullptr, 0); }));
    Visits visits;
    EXPECT_TRUE(FailsWith(1400, FALSE, [&] { return EnumChildWindows(FakeHwnd(65000), Record, Arg(visits)); }));
    EXPECT_TRUE(visits.seen.empty());
}
