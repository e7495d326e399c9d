// GetSystemMetrics: fixed values that window layout and painting agree
// on, the screen size, and scroll bar sizes from the theme.
#include <windows.h>

#include "gtk/vorlgtklock.h"
#include "gtk/vorlthemecolors.h"

#include <gdk/gdk.h>

namespace {

// Indexes at or above this give 0.
constexpr int kMetricCount = 70;

int ScrollBarWidth()
{
    int sliderWidth = 0;
    int troughBorder = 0;
    GetGtkScrollBarMetrics(&sliderWidth, &troughBorder, nullptr, nullptr);
    return sliderWidth + 2 * troughBorder;
}

// The values that do not depend on the screen or the theme; 0 for an
// index without a value.
int FixedMetric(int index)
{
    switch (index) {
    case SM_CYCAPTION:
        return 26;
    case SM_CXBORDER:
    case SM_CYBORDER:
    case SM_MOUSEPRESENT:
    case SM_DBCSENABLED:
        return 1;
    case SM_CXDLGFRAME:
    case SM_CYDLGFRAME:
        return 3;
    case SM_CYVTHUMB:
    case SM_CXHTHUMB:
        return 17;
    case SM_CXICON:
    case SM_CYICON:
    case SM_CXCURSOR:
    case SM_CYCURSOR:
        return 32;
    case SM_CYMENU:
        return 20;
    case SM_CXMIN:
        return 123;
    case SM_CYMIN:
        return 34;
    case SM_CXSIZE:
    case SM_CYSIZE:
        return 25;
    case SM_CXFRAME:
    case SM_CYFRAME:
    case SM_CXDRAG:
    case SM_CYDRAG:
        return 4;
    case SM_CYICONSPACING:
        return 75;
    case SM_CXEDGE:
    case SM_CYEDGE:
        return 2;
    default:
        return 0;
    }
}

int Metric(int index)
{
    switch (index) {
    case SM_CXSCREEN:
    case SM_CXFULLSCREEN:
        return gdk_screen_width();
    case SM_CYSCREEN:
        return gdk_screen_height();
    case SM_CXVSCROLL:
    case SM_CYHSCROLL:
    case SM_CYVSCROLL:
    case SM_CXHSCROLL:
        return ScrollBarWidth();
    default:
        return FixedMetric(index);
    }
}

} // namespace

int WINAPI GetSystemMetrics(int nIndex)
{
    vorlan::GtkCriticalSection lock;
    if (nIndex < 0 || nIndex >= kMetricCount)
        return 0;
    return Metric(nIndex);
}
