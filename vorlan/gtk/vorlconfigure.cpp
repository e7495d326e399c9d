// The window manager moved or sized a window: X is already there, so the
// change goes through SetWindowPos only to update the Win32 rectangles and
// tell the window procedure.
#include "gtk/vorlpumpdeps.h"
#include "gtk/vorlwindow.h"
#include "gtk/vorlwindowpos.h"
#include "gtk/vorlxwindow.h"

namespace {

constexpr UINT kConfigureFlags =
    SWP_PRIVATE_FROMCONFIGURE | SWP_NOOWNERZORDER | SWP_NOACTIVATE | SWP_NOREDRAW | SWP_NOZORDER;

// X reports the client part of a decorated window; the Win32 rectangle
// includes the window manager's frame around it.
RECT DecoratedWindowRect(HWND hWnd)
{
    GdkWindow *window = GetGdkWindow(hWnd);
    gint x = 0, y = 0, width = 0, height = 0;
    gdk_window_get_origin(window, &x, &y);
    gdk_window_get_geometry(window, nullptr, nullptr, &width, &height, nullptr);
    const int cx = GetSystemMetrics(SM_CXFRAME);
    const int cy = GetSystemMetrics(SM_CYFRAME);
    const int caption = GetSystemMetrics(SM_CYCAPTION);
    const RECT rect = {x - cx, y - cy - caption, x + width + cx, y + height + cy};
    return rect;
}

bool IsEmbeddedWindow(HWND hWnd)
{
    const vorlan::Window *pWnd = vorlan::getWindow(hWnd);
    return (pWnd->dwFlags & WF_PLUGHOST) != 0 || vorlan::IsForeignChildWindow(hWnd);
}

} // namespace

void HandleGdkConfigureEvent(HWND hWnd, GdkEventConfigure *event)
{
    if (vorlan::getWindow(hWnd) == nullptr || event == nullptr)
        return;
    if (IsWindowDecorated(hWnd)) {
        const RECT rect = DecoratedWindowRect(hWnd);
        SetWindowPosCore(hWnd, nullptr, rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top,
                         kConfigureFlags);
        return;
    }
    POINT corner = {event->x, event->y};
    if (IsEmbeddedWindow(hWnd))
        ScreenToClient(GetParent(hWnd), &corner);
    SetWindowPosCore(hWnd, nullptr, corner.x, corner.y, event->width, event->height, kConfigureFlags);
}
