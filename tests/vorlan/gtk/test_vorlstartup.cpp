// What start-up leaves behind in this very process, which loaded the library
// like any application does.

// GoogleTest comes before the X headers, whose macros (None, Bool) clash with it.
#include <gtest/gtest.h>

#include "gtk/vorlglobals.h"
#include "gtk/vorlgtklock.h"

#include <chrono>
#include <future>

TEST(Startup, MainThreadIsTheThreadThatLoadedTheLibraryAndGtkIsUp)
{
    EXPECT_EQ(vorlan::g_vorlData.dwMainThreadId, GetCurrentThreadId());
    const DWORD otherThread = std::async(std::launch::async, [] { return GetCurrentThreadId(); }).get();
    EXPECT_NE(vorlan::g_vorlData.dwMainThreadId, otherThread);
    EXPECT_EQ(vorlan::g_vorlData.bPopupMenuRunning, FALSE);
    vorlan::GtkCriticalSection lock;
    EXPECT_NE(gdk_display_get_default(), nullptr);
}

TEST(Startup, LeavesTheToolkitLockFree)
{
    EXPECT_EQ(vorlan::GtkCriticalSection::depth(), 0);
    EXPECT_EQ(vorlan::GtkCriticalSection::owner_thread(), vorlan::GtkCriticalSection::kNoOwner);
    // Another thread gets the lock at once.
    auto other = std::async(std::launch::async, [] { vorlan::GtkCriticalSection lock; });
    EXPECT_EQ(other.wait_for(std::chrono::seconds(5)), std::future_status::ready);
}
