// The window object table: handle form, slot reuse, the record's defaults
// and the stop on a full table.
#include <gtest/gtest.h>

#include "vorlwindowproc.h"
#include "gtk/vorlglobals.h"
#include "gtk/vorlgtklock.h"
#include "gtk/vorlwindow.h"
#include "support/child_process.h"
#include "support/window_objects.h"

#include <cstdio>
#include <cstdlib>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

using namespace vorlan_test;

namespace {

ULONG_PTR Value(HWND hWnd)
{
    return reinterpret_cast<ULONG_PTR>(hWnd);
}

WindowOptions ObjectOnly()
{
    WindowOptions options;
    options.withXWindow = false;
    return options;
}

} // namespace

TEST(WindowTable, DesktopHoldsSlotZero)
{
    EXPECT_EQ(Value(g_hWndDesktop), 0x4D726577u);
    vorlan::GtkCriticalSection lock;
    vorlan::Window *desktop = vorlan::getWindow(g_hWndDesktop);
    ASSERT_NE(desktop, nullptr);
    EXPECT_EQ(desktop->dwStyle, 0x96000000u);
    EXPECT_EQ(desktop->pWndParent, nullptr);
    EXPECT_EQ(desktop->window, nullptr);
    EXPECT_EQ(desktop->foreignWindow, gdk_get_default_root_window());
    EXPECT_EQ(desktop->rcWindow.right, gdk_screen_width());
    EXPECT_EQ(desktop->rcClient.bottom, gdk_screen_height());
    EXPECT_NE(desktop->foreignWindow, nullptr);
}

// Run in a fresh process, where no window exists but the desktop.
TEST(WindowTable, FirstWindowAfterDesktopIsSlotOne)
{
    if (std::getenv("VORLAN_TEST_FRESH_TABLE") != nullptr) {
        TestWindow window(ObjectOnly());
        std::printf("first=%lx\n", static_cast<unsigned long>(Value(window.hwnd())));
        return;
    }
    ChildOptions options;
    options.path = "/proc/self/exe";
    options.argv = {"vorlan_tests", "--gtest_filter=WindowTable.FirstWindowAfterDesktopIsSlotOne"};
    options.environment["VORLAN_TEST_FRESH_TABLE"] = "1";
    const ChildResult result = RunChild(options);
    ASSERT_TRUE(result.exited) << result.Transcript();
    EXPECT_EQ(result.Value("first"), std::optional<std::string>("4d726578")) << result.Transcript();
}

TEST(WindowTable, BadHandlesGiveNoObject)
{
    EXPECT_EQ(vorlan::getWindow(nullptr), nullptr);
    EXPECT_EQ(vorlan::getWindow(HWND_BROADCAST), nullptr);
    EXPECT_EQ(vorlan::getWindow(reinterpret_cast<HWND>(0x4D726577 + 65535)), nullptr);
    EXPECT_EQ(vorlan::getWindow(reinterpret_cast<HWND>(0x4D726576)), nullptr);
    EXPECT_EQ(vorlan::getWindow(reinterpret_cast<HWND>(static_cast<LONG_PTR>(-1))), nullptr);
}

TEST(WindowTable, NewObjectHasItsDefaults)
{
    WindowOptions options = ObjectOnly();
    options.cbExtra = 12;
    TestWindow window(options);
    vorlan::GtkCriticalSection lock;
    vorlan::Window *pWnd = window.object();
    ASSERT_NE(pWnd, nullptr);
    EXPECT_EQ(pWnd->hWnd, window.hwnd());
    EXPECT_EQ(pWnd->nIdWndProc, AllocWndProcId(DefWindowProcA, DefWindowProcW));
    EXPECT_EQ(pWnd->cbExtra, 12);
    ASSERT_NE(pWnd->pExtra, nullptr);
    for (int i = 0; i < 12; ++i)
        EXPECT_EQ(pWnd->pExtra[i], 0);
    EXPECT_EQ(pWnd->pszText, vorlan::g_wszEmptyText);
    EXPECT_EQ(pWnd->dwThreadId, GetCurrentThreadId());
    EXPECT_EQ(pWnd->dwFlags, 0u);
}

TEST(WindowTable, FreedSlotIsNotReusedAtOnce)
{
    HWND first;
    {
        TestWindow window(ObjectOnly());
        first = window.hwnd();
    }
    EXPECT_EQ(vorlan::getWindow(first), nullptr);
    TestWindow next(ObjectOnly());
    EXPECT_GT(Value(next.hwnd()), Value(first));
}

TEST(WindowTable, SearchWrapsAtTheEnd)
{
    unsigned saved;
    {
        vorlan::GtkCriticalSection lock;
        saved = vorlan::currentIndex;
        vorlan::currentIndex = vorlan::kWindowSlots - 1;
    }
    {
        TestWindow last(ObjectOnly());
        EXPECT_EQ(Value(last.hwnd()), 0x4D726577u + 65534u);
        vorlan::GtkCriticalSection lock;
        EXPECT_EQ(vorlan::currentIndex, 0u);
        TestWindow wrapped(ObjectOnly());
        EXPECT_EQ(Value(wrapped.hwnd()), 0x4D726577u + 1u) << "slot 0 is the desktop's";
    }
    vorlan::GtkCriticalSection lock;
    vorlan::currentIndex = saved;
}

// The child fills every slot; the next window stops the process with the
// message on the standard output.
TEST(WindowTable, FullTableStopsTheProcess)
{
    int pipeFds[2];
    ASSERT_EQ(pipe(pipeFds), 0);
    const pid_t pid = fork();
    ASSERT_GE(pid, 0);
    if (pid == 0) {
        dup2(pipeFds[1], STDOUT_FILENO);
        close(pipeFds[0]);
        static WindowClass wc = {};
        wc.nIdWndProc = AllocWndProcId(DefWindowProcA, DefWindowProcW);
        for (unsigned i = 0; i <= vorlan::kWindowSlots; ++i)
            new vorlan::Window(&wc);
        std::printf("table never filled\n");
        std::fflush(stdout);
        _exit(0);
    }
    close(pipeFds[1]);
    std::string output;
    char buffer[256];
    ssize_t got;
    while ((got = read(pipeFds[0], buffer, sizeof buffer)) > 0)
        output.append(buffer, got);
    close(pipeFds[0]);
    int status = 0;
    waitpid(pid, &status, 0);
    EXPECT_NE(output.find("vorlan fatal error: window object table full\n"), std::string::npos) << output;
    EXPECT_EQ(output.find("never"), std::string::npos);
    EXPECT_FALSE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
}
