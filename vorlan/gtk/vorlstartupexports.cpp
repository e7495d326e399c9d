// The library's own exported calls of the runtime frame.
#include <vorlan.h>

#include "gtk/vorlglobals.h"
#include "gtk/vorlgtklock.h"
#include "gtk/vorlpumpdeps.h"

#include <gdk/gdkx.h>

// The host calls this once its settings can be read.
void QRTInitedCallback(void)
{
    vorlan::GtkCriticalSection lock;
    vorlan::g_vorlData.nTimeCostLog = OSGetEnvironmentLong("API_TIMECOST_LOG");
    OSGetEnvironmentString("VORL_LOG_FILE", vorlan::g_vorlData.szLogFile, sizeof vorlan::g_vorlData.szLogFile);
}

HWND GetWindowHandleFromXID(unsigned long xid)
{
    vorlan::GtkCriticalSection lock;
    gpointer object = gdk_xid_table_lookup(xid);
    if (object == nullptr || !GDK_IS_WINDOW(object))
        return nullptr;
    return getAssociatedWindow(GDK_DRAWABLE(object));
}
