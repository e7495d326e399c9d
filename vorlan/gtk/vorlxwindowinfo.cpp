// Under QTS_SUPPORT each window tells outside tools its class name and
// control id through properties of its X window.
#include "gtk/vorlxwindow.h"

#include "gtk/vorlpumpdeps.h"

#include <cstring>

namespace {

bool Enabled()
{
    return OSGetEnvironmentLong("QTS_SUPPORT") != 0;
}

} // namespace

BOOL SetXWindowInfo(HWND hWnd)
{
    if (!Enabled() || !IsWindow(hWnd))
        return TRUE;
    GdkWindow *window = GetGdkWindow(hWnd);
    if (window == nullptr)
        return TRUE;
    char className[256] = "";
    GetClassNameA(hWnd, className, sizeof className);
    vorlan::putXPropertyToGdkWindow(window, "classname", className, static_cast<int>(std::strlen(className)));
    const LONG controlId = GetWindowLongW(hWnd, GWL_ID);
    vorlan::putXPropertyToGdkWindow(window, "controlid", &controlId, sizeof controlId);
    return TRUE;
}
