// ShowWindow.  Minimize and maximize requests only show the window: those
// style bits follow what X reports.  A top-level window shown for the first
// time gets its owed WM_SIZE and WM_MOVE, its X position, and the
// foreground unless the caller asked for no activation.
#include "gtk/vorlgtklock.h"
#include "gtk/vorlglobals.h"
#include "gtk/vorlpumpdeps.h"
#include "gtk/vorlthread.h"
#include "gtk/vorlwindow.h"
#include "gtk/vorlwindowpos.h"
#include "gtk/vorlxerror.h"
#include "gtk/vorlxwindow.h"
#include "vorlprivatemessages.h"

#include <gdk/gdkx.h>

using WindowObject = vorlan::Window;

namespace {

bool IsTopLevel(const WindowObject *pWnd)
{
    return pWnd->pWndParent != nullptr && pWnd->pWndParent->hWnd == g_hWndDesktop;
}

bool Activates(int nCmdShow)
{
    return nCmdShow != SW_SHOWNOACTIVATE && nCmdShow != SW_SHOWNA;
}

// Whether the server has the top-level window mapped; false when X
// cannot say.
bool QueryMapped(HWND hWnd, bool *mapped)
{
    vorlan::TemporaryXErrorHandler trap;
    XWindowAttributes attributes;
    if (!XGetWindowAttributes(GetXDisplay(hWnd), GetXWindow(hWnd), &attributes))
        return false;
    *mapped = attributes.map_state != IsUnmapped;
    return true;
}

// The first WM_SIZE and WM_MOVE of a top-level window.  False when the
// window died.
bool SendPendingSize(HWND hWnd)
{
    WindowObject *pWnd = vorlan::getWindow(hWnd);
    pWnd->dwFlags &= ~WF_SIZEPENDING;
    const RECT client = pWnd->rcClient;
    const RECT parentClient = pWnd->pWndParent->rcClient;
    SendMessageW(hWnd, WM_SIZE, SIZE_RESTORED, MAKELPARAM(client.right - client.left, client.bottom - client.top));
    if (!IsWindow(hWnd))
        return false;
    SendMessageW(hWnd, WM_MOVE, 0, MAKELPARAM(client.left - parentClient.left, client.top - parentClient.top));
    return IsWindow(hWnd) != FALSE;
}

void MapWindow(WindowObject *pWnd)
{
    if (pWnd->widget != nullptr) {
        gtk_widget_show(pWnd->widget);
        return;
    }
    const bool topLevel = IsTopLevel(pWnd);
    if (pWnd->dwFlags & WF_MOVEPENDING) {
        pWnd->dwFlags &= ~WF_MOVEPENDING;
        pWnd->SyncWindowPos(nullptr, nullptr, 0);
    }
    if (topLevel)
        gdk_window_show(pWnd->window);
    else
        gdk_window_show_unraised(pWnd->window);
    if (topLevel) {
        const POINT frame = vorlan::FrameOrigin(pWnd->hWnd);
        gdk_window_move(pWnd->window, frame.x + pWnd->rcWindow.left, frame.y + pWnd->rcWindow.top);
    }
}

void Show(WindowObject *pWnd)
{
    pWnd->dwStyle |= WS_VISIBLE;
    if (pWnd->widget == nullptr)
        RedrawWindow(pWnd->hWnd, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN | RDW_FRAME);
    MapWindow(pWnd);
}

void Hide(WindowObject *pWnd, bool wasVisible)
{
    const HWND hWnd = pWnd->hWnd;
    if (pWnd->widget == nullptr)
        RedrawWindow(hWnd, nullptr, nullptr, RDW_VALIDATE | RDW_NOERASE | RDW_ALLCHILDREN | RDW_NOFRAME);
    pWnd->dwStyle &= ~WS_VISIBLE;
    if (IsTopLevel(pWnd) && wasVisible && GetForegroundWindow() == hWnd && pWnd->pWndOwner != nullptr)
        SetForegroundWindow(pWnd->pWndOwner->hWnd);
    pWnd = vorlan::getWindow(hWnd);
    if (pWnd == nullptr)
        return;
    if (pWnd->widget != nullptr)
        gtk_widget_hide(pWnd->widget);
    else if (pWnd->window != nullptr)
        gdk_window_hide(pWnd->window);
}

// A hidden window keeps neither the foreground nor the activation.
void GiveUpActivation(HWND hWnd)
{
    if (GetForegroundWindow() == hWnd) {
        SetForegroundThreadId(0);
        SendMessageW(hWnd, WM_PRIVATE_LOST_FOREGROUND, 0, 0);
    }
    if (IsWindow(hWnd) && GetActiveWindow() == hWnd)
        SetActiveWindow(nullptr);
}

// A newly shown top-level window: the window manager's focus offer for a
// first map is declined once, and the window becomes the foreground.
void FinishFirstShow(HWND hWnd, bool wasMapped, int nCmdShow)
{
    bool error;
    {
        vorlan::TemporaryXErrorHandler trap;
        XSync(GetXDisplay(hWnd), False);
        error = vorlan::TemporaryXErrorHandler::error_code != 0;
    }
    if (error)
        return;
    if (!wasMapped)
        vorlan::getWindow(hWnd)->dwFlags |= WF_SKIPTAKEFOCUS;
    if (Activates(nCmdShow))
        SetForegroundWindow(hWnd);
}

BOOL ShowWindowCore(HWND hWnd, int nCmdShow)
{
    WindowObject *pWnd = vorlan::getWindow(hWnd);
    if (pWnd == nullptr)
        return vorlan::FailBadHandle();
    if (hWnd == g_hWndDesktop)
        return FALSE;
    const BOOL wasVisible = (pWnd->dwStyle & WS_VISIBLE) != 0;
    const bool show = nCmdShow != SW_HIDE;
    const bool topLevel = IsTopLevel(pWnd);
    bool mapped = false;
    if (topLevel && pWnd->window != nullptr && !QueryMapped(hWnd, &mapped))
        return wasVisible;
    if (show && !vorlan::IsChildStyle(pWnd->dwStyle) && (pWnd->dwFlags & WF_SIZEPENDING) && !SendPendingSize(hWnd))
        return wasVisible;
    SendMessageW(hWnd, WM_SHOWWINDOW, show, 0);
    pWnd = vorlan::getWindow(hWnd);
    if (pWnd == nullptr)
        return wasVisible;
    if (show) {
        Show(pWnd);
    } else {
        Hide(pWnd, wasVisible);
        GiveUpActivation(hWnd);
    }
    if (show && topLevel && !wasVisible && IsWindow(hWnd))
        FinishFirstShow(hWnd, mapped, nCmdShow);
    gdk_flush();
    ProcessExposeEvents();
    return wasVisible;
}

} // namespace

BOOL WINAPI ShowWindow(HWND hWnd, int nCmdShow)
{
    vorlan::GtkCriticalSection lock;
    return ShowWindowCore(hWnd, nCmdShow);
}
