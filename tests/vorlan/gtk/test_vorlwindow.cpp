// The window object table: handle form, slot reuse and the stop on a full
// table.
#include <gtest/gtest.h>

#include "vorlwindowproc.h"
#include "gtk/vorlstartup.h"
#include "gtk/vorlgtklock.h"
#include "gtk/vorlwindow.h"
#include "support/child_process.h"
#include "support/window_checks.h"

#include <cstdio>
#include <cstdlib>
#include <string>

using namespace vorlan_test;

namespace {

ULONG_PTR Value(HWND hWnd)
{
    return reinterpret_cast<ULONG_PTR>(hWnd);
}

const WindowOptions kObjectOnly = ObjectSpec(nullptr, WS_POPUP);

// Runs one test of this binary again in a fresh process, with `variable`
// set so that it does its child part.
ChildResult RunInChild(const char *test, const char *variable)
{
    ChildOptions options;
    options.path = "/proc/self/exe";
    options.argv = {"vorlan_tests", std::string("--gtest_filter=") + test};
    options.environment[variable] = "1";
    return RunChild(options);
}

} // namespace

TEST(WindowTable, DesktopHoldsSlotZeroAndBadHandlesGiveNoObject)
{
    EXPECT_EQ(Value(g_hWndDesktop), 0x4D726577u);
    for (HWND bad : {HWND(nullptr), HWND_BROADCAST, reinterpret_cast<HWND>(0x4D726577 + 65535),
                     reinterpret_cast<HWND>(0x4D726576), reinterpret_cast<HWND>(static_cast<LONG_PTR>(-1))})
        EXPECT_EQ(vorlan::getWindow(bad), nullptr) << bad;
    vorlan::GtkCriticalSection lock;
    vorlan::Window *desktop = vorlan::getWindow(g_hWndDesktop);
    ASSERT_NE(desktop, nullptr);
    EXPECT_EQ(desktop->foreignWindow, gdk_get_default_root_window());
}

TEST(WindowTable, FirstWindowAfterDesktopIsSlotOne)
{
    if (std::getenv("VORLAN_TEST_FRESH_TABLE") != nullptr) {
        TestWindow window(kObjectOnly);
        std::printf("first=%lx\n", static_cast<unsigned long>(Value(window.hwnd())));
        return;
    }
    const ChildResult result = RunInChild("WindowTable.FirstWindowAfterDesktopIsSlotOne", "VORLAN_TEST_FRESH_TABLE");
    ASSERT_TRUE(result.exited) << result.Transcript();
    EXPECT_EQ(result.Value("first"), std::optional<std::string>("4d726578")) << result.Transcript();
}

TEST(WindowTable, FreedSlotIsNotReusedAtOnceAndTheSearchWrapsPastTheDesktop)
{
    HWND first;
    {
        TestWindow window(kObjectOnly);
        first = window.hwnd();
    }
    EXPECT_EQ(vorlan::getWindow(first), nullptr);
    {
        TestWindow next(kObjectOnly);
        EXPECT_GT(Value(next.hwnd()), Value(first));
    }

    unsigned saved;
    {
        vorlan::GtkCriticalSection lock;
        saved = vorlan::currentIndex;
        vorlan::currentIndex = vorlan::kWindowSlots - 1;
    }
    {
        TestWindow last(kObjectOnly);
        EXPECT_EQ(Value(last.hwnd()), 0x4D726577u + 65534u);
        EXPECT_EQ(vorlan::currentIndex, 0u);
        TestWindow wrapped(kObjectOnly);
        EXPECT_EQ(Value(wrapped.hwnd()), 0x4D726577u + 1u) << "slot 0 is the desktop's";
    }
    vorlan::GtkCriticalSection lock;
    vorlan::currentIndex = saved;
}

TEST(WindowTable, FullTableStopsTheProcess)
{
    if (std::getenv("VORLAN_TEST_FILL_TABLE") != nullptr) {
        static WindowClass wc = {};
        wc.nIdWndProc = AllocWndProcId(DefWindowProcA, DefWindowProcW);
        for (unsigned i = 0; i <= vorlan::kWindowSlots; ++i)
            new vorlan::Window(&wc);
        std::printf("table never filled\n");
        return;
    }
    const ChildResult result = RunInChild("WindowTable.FullTableStopsTheProcess", "VORLAN_TEST_FILL_TABLE");
    EXPECT_NE(result.out.find("vorlan fatal error: window object table full\n"), std::string::npos)
        << result.Transcript();
    EXPECT_EQ(result.out.find("never"), std::string::npos);
    EXPECT_FALSE(result.exited && result.exitStatus == 0);
}
