// The default procedure's answers to the library's private messages of
// focus, foreground and XEmbed.  They reach the window on its own thread,
// so that activation changes run where the window's queue lives.
#include "vorldefwindowproc.h"

#include "gtk/vorlpumpdeps.h"
#include "gtk/vorlthread.h"
#include "gtk/vorlwindow.h"
#include "vorlprivatemessages.h"

namespace {

// The focus is the window itself or lies below it.
bool HoldsFocus(HWND hWnd)
{
    const HWND focus = GetFocus();
    return focus != nullptr && (focus == hWnd || IsChild(hWnd, focus));
}

bool IsTopLevel(HWND hWnd)
{
    return GetAncestor(hWnd, GA_PARENT) == GetDesktopWindow();
}

// The foreground moved away: the window loses its activation, and when
// the foreground left this thread altogether every top-level window hears
// that the application is inactive.
void OnLostForeground(HWND hWnd, LPARAM lParam)
{
    IMFocusOut(hWnd);
    SetCurrentThreadActiveWindow(nullptr);
    if (IsTopLevel(hWnd) && SendMessageW(hWnd, WM_NCACTIVATE, FALSE, 0) != 0)
        SendMessageW(hWnd, WM_ACTIVATE, MAKEWPARAM(WA_INACTIVE, IsIconic(hWnd)), lParam);
    const HWND next = reinterpret_cast<HWND>(lParam);
    if (next != nullptr && vorlan::WindowExists(next) && vorlan::WindowThreadId(next) == GetCurrentThreadId())
        return;
    EnumWindows(NotifyAppActivation, FALSE);
}

void OnEmbedDeactivate(HWND hWnd, LPARAM lParam)
{
    if (!HoldsFocus(hWnd))
        return;
    SendMessageW(hWnd, WM_ACTIVATE, WA_INACTIVE, lParam);
    SetFocus(reinterpret_cast<HWND>(lParam));
}

void OnEmbedTakeFocus(HWND hWnd)
{
    if (HoldsFocus(hWnd))
        return;
    const HWND active = GetActiveWindow();
    if (active != nullptr && !IsChild(active, hWnd))
        return;
    SetFocus(hWnd);
}

} // namespace

BOOL CALLBACK NotifyAppActivation(HWND hWnd, LPARAM lParam)
{
    SendMessageA(hWnd, WM_ACTIVATEAPP, static_cast<WPARAM>(lParam), 0);
    return TRUE;
}

LRESULT DefPrivateMessage(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_PRIVATE_EMBED_FOCUS_SYNC:
        if (HoldsFocus(hWnd))
            RequestXEmbedFocus(hWnd);
        EnsureFocusAndForegroundConsistent();
        return 0;
    case WM_PRIVATE_EMBED_DEACTIVATE:
        OnEmbedDeactivate(hWnd, lParam);
        return 0;
    case WM_PRIVATE_EMBED_TAKE_FOCUS:
        OnEmbedTakeFocus(hWnd);
        return 0;
    case WM_PRIVATE_FOCUS_SYNC:
        EnsureFocusAndForegroundConsistent();
        return 0;
    case WM_PRIVATE_LOST_FOREGROUND:
        OnLostForeground(hWnd, lParam);
        return 0;
    case WM_PRIVATE_SET_FOREGROUND:
        SetActiveWindowCore(hWnd, static_cast<BOOL>(wParam));
        return GetActiveWindow() == hWnd;
    default:
        return 0;
    }
}
