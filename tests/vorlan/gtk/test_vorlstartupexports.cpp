// What start-up leaves behind in this very process, which loaded the library
// like any application does, and the library's own exports of the runtime
// frame.

// GoogleTest comes before the X headers, whose macros (None, Bool) clash with it.
#include <gtest/gtest.h>

#include <vorlan.h>

#include "gtk/vorlglobals.h"
#include "gtk/vorlgtklock.h"
#include "support/gtk_helpers.h"

#include <gdk/gdkx.h>

#include <chrono>
#include <cstdlib>
#include <future>
#include <string>

using namespace vorlan_test;

namespace {

// Runs QRTInitedCallback with the two settings set (null: unset), which the
// tests' environment does not otherwise set.
void InitedCallbackWith(const char *timeCost, const char *logFile)
{
    auto put = [](const char *name, const char *value) { value ? setenv(name, value, 1) : unsetenv(name); };
    put("API_TIMECOST_LOG", timeCost);
    put("VORL_LOG_FILE", logFile);
    QRTInitedCallback();
    unsetenv("API_TIMECOST_LOG");
    unsetenv("VORL_LOG_FILE");
}

} // namespace

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

TEST(QRTInitedCallback, ReadsTimeCostLogAndLogFileCutToTheBuffer)
{
    InitedCallbackWith("7", "/var/log/app/vorlan.log");
    EXPECT_EQ(vorlan::g_vorlData.nTimeCostLog, 7);
    EXPECT_STREQ(vorlan::g_vorlData.szLogFile, "/var/log/app/vorlan.log");
    const std::string longName = "/" + std::string(400, 'l');
    InitedCallbackWith(nullptr, longName.c_str());
    EXPECT_EQ(vorlan::g_vorlData.nTimeCostLog, 0);
    EXPECT_EQ(std::string(vorlan::g_vorlData.szLogFile), longName.substr(0, MAX_PATH - 1));
    InitedCallbackWith(nullptr, nullptr);
    EXPECT_STREQ(vorlan::g_vorlData.szLogFile, "");
}

// Only a GDK window that carries a handle gives one: not an X window of
// another client, not a bare GDK window, not a pixmap with the same data.
TEST(GetWindowHandleFromXID, GivesTheHandleOfAGdkWindowThatHasOne)
{
    ForeignXWindow foreign;
    EXPECT_EQ(GetWindowHandleFromXID(foreign.xid()), nullptr);
    EXPECT_EQ(GetWindowHandleFromXID(0), nullptr);

    PlainGdkWindow plain(0, 0, 10, 10);
    EXPECT_EQ(GetWindowHandleFromXID(plain.xid()), nullptr);
    AttachHwnd(plain.window(), FakeHwnd(12));
    EXPECT_EQ(GetWindowHandleFromXID(plain.xid()), FakeHwnd(12));

    GdkPixmap *pixmap = nullptr;
    {
        vorlan::GtkCriticalSection lock;
        pixmap = gdk_pixmap_new(gdk_get_default_root_window(), 4, 4, -1);
        g_object_set_data(G_OBJECT(pixmap), "HWND", FakeHwnd(3));
    }
    EXPECT_EQ(GetWindowHandleFromXID(GDK_PIXMAP_XID(pixmap)), nullptr);
    vorlan::GtkCriticalSection lock;
    g_object_unref(pixmap);
}
