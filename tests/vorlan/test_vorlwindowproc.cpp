// The window procedure table and CallWindowProcA/W around it.
#include <gtest/gtest.h>

#include "gtk/vorlgtklock.h"
#include "support/window_objects.h"
#include "vorlwindowproc.h"

#include <chrono>
#include <future>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>

using vorlan::GtkCriticalSection;

namespace {

// What the last procedure call saw.
struct Call {
    int which = 0; // the N of the procedure called, 0: none
    HWND hWnd = nullptr;
    UINT message = 0;
    WPARAM wParam = 0;
    LPARAM lParam = 0;
    bool lockFree = false; // the calling thread did not own the toolkit lock
};
Call g_call;

// Distinct procedures; each gives back 1000 + N.
template <int N> LRESULT CALLBACK Proc(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    g_call = {N, hWnd, message, wParam, lParam, !GtkCriticalSection::held_by_caller()};
    return 1000 + N;
}

HWND FakeWindow()
{
    return reinterpret_cast<HWND>(0x5150);
}

WNDPROC AsProc(UINT id)
{
    return reinterpret_cast<WNDPROC>(static_cast<ULONG_PTR>(id));
}

WNDPROC FakeAddress(UINT i)
{
    return reinterpret_cast<WNDPROC>(static_cast<ULONG_PTR>(0x7f0000000000ull + 16ull * i));
}

} // namespace

// ---- The id table -------------------------------------------------------------

TEST(WindowProcTable, EntriesAreSharedByProcedureAndByEitherHalfOfAPair)
{
    const UINT id = AllocWndProcId(Proc<1>, nullptr);
    ASSERT_NE(id, 0u);
    const UINT count = g_nWndProcCount;
    EXPECT_EQ(AllocWndProcId(Proc<1>, nullptr), id);
    EXPECT_EQ(g_nWndProcCount, count) << "no entry for a procedure already there";
    EXPECT_NE(AllocWndProcId(Proc<2>, nullptr), id);
    EXPECT_NE(AllocWndProcId(nullptr, Proc<1>), id) << "the same address on the other side is another entry";
    const UINT pair = AllocWndProcId(Proc<3>, Proc<4>);
    ASSERT_NE(pair, 0u);
    EXPECT_EQ(AllocWndProcId(Proc<3>, nullptr), pair) << "ANSI half";
    EXPECT_EQ(AllocWndProcId(nullptr, Proc<4>), pair) << "wide half";
    EXPECT_EQ(AllocWndProcId(Proc<3>, Proc<4>), pair);
    const UINT otherPair = AllocWndProcId(Proc<3>, Proc<5>);
    EXPECT_NE(otherPair, pair) << "same ANSI side, another wide side";
    EXPECT_NE(AllocWndProcId(Proc<6>, Proc<4>), pair) << "same wide side, another ANSI side";
}

TEST(WindowProcTable, GetRealWndProcFillsEitherSideRefusesBadIdsAndHasTheDefaultPair)
{
    const UINT pair = AllocWndProcId(Proc<7>, Proc<8>);
    WNDPROC a = nullptr;
    WNDPROC w = nullptr;
    ASSERT_TRUE(GetRealWndProc(pair, &a, &w));
    EXPECT_EQ(a, Proc<7>);
    EXPECT_EQ(w, Proc<8>);
    a = nullptr;
    ASSERT_TRUE(GetRealWndProc(pair, &a, nullptr));
    EXPECT_EQ(a, Proc<7>);

    const UINT wideOnly = AllocWndProcId(nullptr, Proc<9>);
    a = Proc<1>;
    ASSERT_TRUE(GetRealWndProc(wideOnly, &a, &w));
    EXPECT_EQ(a, nullptr);
    EXPECT_EQ(w, Proc<9>);
    a = Proc<1>;
    w = Proc<2>;
    EXPECT_FALSE(GetRealWndProc(0, &a, &w));
    EXPECT_FALSE(GetRealWndProc(g_nWndProcCount + 1, &a, &w));
    EXPECT_FALSE(GetRealWndProc(kMaxWndProcs + 1, &a, &w));
    EXPECT_EQ(a, Proc<1>) << "untouched";
    EXPECT_EQ(w, Proc<2>) << "untouched";

    const UINT fromAnsi = AllocWndProcId(DefWindowProcA, nullptr);
    EXPECT_EQ(AllocWndProcId(nullptr, DefWindowProcW), fromAnsi);
    WNDPROC defA = nullptr;
    WNDPROC defW = nullptr;
    ASSERT_TRUE(GetRealWndProc(fromAnsi, &defA, &defW));
    EXPECT_EQ(defA, DefWindowProcA);
    EXPECT_EQ(defW, DefWindowProcW);
}

// The child fills the table with distinct addresses; its exit status tells
// which check failed.
TEST(WindowProcTable, FullTableGivesZero)
{
    const pid_t pid = fork();
    ASSERT_GE(pid, 0);
    if (pid == 0) {
        const UINT first = AllocWndProcId(FakeAddress(0), nullptr);
        UINT last = first;
        for (UINT i = 1; i < 2 * kMaxWndProcs && last != 0; ++i)
            last = AllocWndProcId(FakeAddress(i), nullptr);
        int failures = 0;
        failures |= last == 0 ? 0 : 1;
        failures |= g_nWndProcCount == kMaxWndProcs ? 0 : 2;
        failures |= AllocWndProcId(FakeAddress(0), nullptr) == first ? 0 : 4; // known ones still found
        failures |= AllocWndProcId(nullptr, FakeAddress(5000)) == 0 ? 0 : 8;
        failures |= IsWndProcId(kMaxWndProcs) ? 0 : 16;
        failures |= IsWndProcId(kMaxWndProcs + 1) ? 32 : 0;
        _exit(failures);
    }
    int status = 0;
    ASSERT_EQ(waitpid(pid, &status, 0), pid);
    ASSERT_TRUE(WIFEXITED(status));
    EXPECT_EQ(WEXITSTATUS(status), 0);
}

using WindowProcTableDeathTest = ::testing::Test;

TEST_F(WindowProcTableDeathTest, GetWndProcOfABadIdAndAllocatingNoProcedureAreFatal)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_DEATH(GetWndProc(kMaxWndProcs + 7, FALSE),
                 "vorlan/vorlwindowproc:[0-9]+:.*GetWndProc.*\\(nIdWndProc - 1\\) < g_nWndProcCount");
    EXPECT_DEATH(AllocWndProcId(nullptr, nullptr), "pWndProcA != __null \\|\\| pWndProcW != __null");
}

// ---- Window longs -----------------------------------------------------------

TEST(WindowProcTable, WindowLongsHandOutAddressesOrIds)
{
    vorlan_test::WindowOptions options;
    options.withXWindow = false;
    vorlan_test::TestWindow window(options);
    EXPECT_EQ(SetWindowLongPtrA(window.hwnd(), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(Proc<14>)),
              reinterpret_cast<LONG_PTR>(DefWindowProcA));
    EXPECT_EQ(GetWindowLongPtrA(window.hwnd(), GWLP_WNDPROC), reinterpret_cast<LONG_PTR>(Proc<14>));
    const LONG_PTR forWide = GetWindowLongPtrW(window.hwnd(), GWLP_WNDPROC);
    ASSERT_TRUE(IsWndProcId(forWide)) << "no wide procedure: a small integer";
    g_call = {};
    EXPECT_EQ(CallWindowProcW(reinterpret_cast<WNDPROC>(forWide), window.hwnd(), WM_USER, 1, 2), 1014);
    EXPECT_EQ(g_call.which, 14);
    // Setting the id back keeps it as it is.
    SetWindowLongPtrW(window.hwnd(), GWLP_WNDPROC, forWide);
    GtkCriticalSection lock;
    EXPECT_EQ(window.object()->nIdWndProc, UINT(forWide));
}

// ---- CallWindowProcA/W ------------------------------------------------------

TEST(WindowProcCalls, NullProcedureGivesZeroAndAnAddressIsTheCallersOwnForm)
{
    SetLastError(1234);
    EXPECT_EQ(CallWindowProcA(nullptr, FakeWindow(), WM_USER, 1, 2), 0);
    EXPECT_EQ(CallWindowProcW(nullptr, FakeWindow(), WM_USER, 1, 2), 0);
    EXPECT_EQ(GetLastError(), 1234u);
    g_call = {};
    EXPECT_EQ(CallWindowProcA(Proc<15>, FakeWindow(), WM_USER + 3, 0x11, 0x22), 1015);
    EXPECT_EQ(g_call.which, 15);
    EXPECT_EQ(g_call.hWnd, FakeWindow());
    EXPECT_EQ(g_call.message, UINT(WM_USER + 3));
    EXPECT_EQ(g_call.wParam, WPARAM(0x11));
    EXPECT_EQ(g_call.lParam, LPARAM(0x22));
}

TEST(WindowProcCalls, IdPicksTheCallersSideAndAMissingSideGoesThroughTheThunk)
{
    const UINT pair = AllocWndProcId(Proc<17>, Proc<18>);
    g_call = {};
    EXPECT_EQ(CallWindowProcA(AsProc(pair), FakeWindow(), WM_USER, 0, 0), 1017);
    EXPECT_EQ(g_call.which, 17);
    EXPECT_EQ(CallWindowProcW(AsProc(pair), FakeWindow(), WM_USER, 0, 0), 1018);
    EXPECT_EQ(g_call.which, 18);
    const UINT wideOnly = AllocWndProcId(nullptr, Proc<19>);
    g_call = {};
    EXPECT_EQ(CallWindowProcA(AsProc(wideOnly), FakeWindow(), WM_USER + 9, 5, 6), 1019);
    EXPECT_EQ(g_call.which, 19);
    EXPECT_EQ(g_call.wParam, WPARAM(5));
    EXPECT_EQ(g_call.lParam, LPARAM(6));
}

// ---- The toolkit lock around the procedure ----------------------------------

namespace {

std::future<void> g_otherThread;
bool g_otherThreadGotLock = false;

// Checks from inside the procedure that another thread can take the lock.
LRESULT CALLBACK LockProbeProc(HWND, UINT, WPARAM, LPARAM)
{
    g_otherThread = std::async(std::launch::async, [] { GtkCriticalSection lock; });
    g_otherThreadGotLock = g_otherThread.wait_for(std::chrono::seconds(10)) == std::future_status::ready;
    return GtkCriticalSection::held_by_caller() ? 1 : 2;
}

LRESULT CALLBACK ThrowingProc(HWND, UINT, WPARAM, LPARAM)
{
    throw std::runtime_error("from the procedure");
}

} // namespace

TEST(WindowProcCalls, LockIsFreeWhileTheProcedureRunsAndAnExceptionRestoresTheDepth)
{
    g_otherThreadGotLock = false;
    {
        GtkCriticalSection outer;
        GtkCriticalSection inner;
        EXPECT_EQ(CallWindowProcA(LockProbeProc, FakeWindow(), WM_USER, 0, 0), 2);
        EXPECT_TRUE(GtkCriticalSection::held_by_caller());
        EXPECT_EQ(GtkCriticalSection::depth(), 2) << "the depth comes back";
    }
    if (g_otherThread.valid())
        g_otherThread.wait();
    EXPECT_TRUE(g_otherThreadGotLock);

    GtkCriticalSection outer;
    GtkCriticalSection inner;
    EXPECT_THROW(CallWindowProcW(ThrowingProc, FakeWindow(), WM_USER, 0, 0), std::runtime_error);
    EXPECT_TRUE(GtkCriticalSection::held_by_caller());
    EXPECT_EQ(GtkCriticalSection::depth(), 2);
    const UINT wideOnly = AllocWndProcId(nullptr, ThrowingProc);
    EXPECT_THROW(CallWindowProcA(AsProc(wideOnly), FakeWindow(), WM_USER, 0, 0), std::runtime_error);
    EXPECT_EQ(GtkCriticalSection::depth(), 2);
}

TEST(WindowProcCalls, LockIsFreeInTheThunkAndStaysFreeWithoutIt)
{
    ASSERT_FALSE(GtkCriticalSection::held_by_caller());
    g_call = {};
    CallWindowProcA(Proc<22>, FakeWindow(), WM_USER, 0, 0);
    EXPECT_TRUE(g_call.lockFree);
    EXPECT_FALSE(GtkCriticalSection::held_by_caller());
    const UINT ansiOnly = AllocWndProcId(Proc<21>, nullptr);
    GtkCriticalSection lock;
    g_call = {};
    CallWindowProcW(AsProc(ansiOnly), FakeWindow(), WM_USER, 0, 0);
    EXPECT_EQ(g_call.which, 21);
    EXPECT_TRUE(g_call.lockFree);
    EXPECT_EQ(GtkCriticalSection::depth(), 1);
}
