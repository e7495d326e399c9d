// What X reports about a window's state: iconified and maximized from the
// window manager, fully obscured from the server.
#include "gtk/vorlpumpdeps.h"
#include "gtk/vorlwindow.h"

namespace {

DWORD ToggledStyle(DWORD style, GdkWindowState changed)
{
    if ((changed & GDK_WINDOW_STATE_ICONIFIED) != 0)
        style ^= WS_MINIMIZE;
    if ((changed & GDK_WINDOW_STATE_MAXIMIZED) != 0)
        style ^= WS_MAXIMIZE;
    return style;
}

} // namespace

// The style follows the window manager; no WM_SIZE is generated here.
void HandleGdkWindowStateEvent(HWND hWnd, GdkEventWindowState *event)
{
    vorlan::Window *pWnd = vorlan::getWindow(hWnd);
    if (pWnd == nullptr)
        return;
    const DWORD style = ToggledStyle(pWnd->dwStyle, event->changed_mask);
    if (style != pWnd->dwStyle)
        SetWindowLongW(hWnd, GWL_STYLE, static_cast<LONG>(style));
}

namespace vorlan {

void SetWindowObscured(HWND hWnd, bool obscured)
{
    Window *pWnd = getWindow(hWnd);
    if (pWnd == nullptr)
        return;
    if (obscured)
        pWnd->dwFlags |= WF_OBSCURED;
    else
        pWnd->dwFlags &= ~WF_OBSCURED;
}

} // namespace vorlan
