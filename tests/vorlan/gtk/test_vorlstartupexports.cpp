// The library's own exports of the runtime frame.

// GoogleTest comes before the X headers, whose macros (None, Bool) clash with it.
#include <gtest/gtest.h>

#include <vorlan.h>

#include "gtk/vorlglobals.h"
#include "gtk/vorlgtklock.h"
#include "support/gtk_helpers.h"

#include <gdk/gdkx.h>

#include <cstdlib>
#include <optional>
#include <string>

using namespace vorlan_test;

namespace {

class ScopedEnvironment {
public:
    ScopedEnvironment(const char *name, const char *value) : m_name(name)
    {
        if (const char *old = std::getenv(name))
            m_old = old;
        if (value != nullptr)
            setenv(name, value, 1);
        else
            unsetenv(name);
    }
    ~ScopedEnvironment()
    {
        if (m_old.has_value())
            setenv(m_name.c_str(), m_old->c_str(), 1);
        else
            unsetenv(m_name.c_str());
    }

private:
    std::string m_name;
    std::optional<std::string> m_old;
};

} // namespace

TEST(QRTInitedCallback, ReadsTimeCostLogAndLogFileCutToTheBuffer)
{
    {
        ScopedEnvironment timeCost("API_TIMECOST_LOG", "7");
        ScopedEnvironment logFile("VORL_LOG_FILE", "/var/log/app/vorlan.log");
        QRTInitedCallback();
        EXPECT_EQ(vorlan::g_vorlData.nTimeCostLog, 7);
        EXPECT_STREQ(vorlan::g_vorlData.szLogFile, "/var/log/app/vorlan.log");
    }
    const std::string longName = "/" + std::string(400, 'l');
    ScopedEnvironment logFile("VORL_LOG_FILE", longName.c_str());
    QRTInitedCallback();
    EXPECT_EQ(std::string(vorlan::g_vorlData.szLogFile), longName.substr(0, MAX_PATH - 1));
}

TEST(QRTInitedCallback, MissingSettingsGiveZeroAndEmptyName)
{
    ScopedEnvironment timeCost("API_TIMECOST_LOG", nullptr);
    ScopedEnvironment logFile("VORL_LOG_FILE", nullptr);
    QRTInitedCallback();
    EXPECT_EQ(vorlan::g_vorlData.nTimeCostLog, 0);
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
