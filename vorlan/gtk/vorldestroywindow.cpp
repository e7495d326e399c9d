// DestroyWindow.  Owned top-level windows go first, then the window and
// its children: WM_DESTROY reaches the parent before its children,
// WM_NCDESTROY the children before the parent.  The X windows go last, in
// one request for the whole tree.
#include "gtk/vorlgtklock.h"
#include "gtk/vorlglobals.h"
#include "gtk/vorlpumpdeps.h"
#include "gtk/vorlthread.h"
#include "gtk/vorlwindow.h"
#include "gtk/vorlwindowtree.h"
#include "gtk/vorlxwindow.h"

#include <cstdlib>

using WindowObject = vorlan::Window;

namespace {

// The window is hWnd itself or lies below it.
bool IsSelfOrDescendant(HWND hWnd, HWND other)
{
    return other != nullptr && (other == hWnd || IsChild(hWnd, other));
}

void DestroyOwnedWindows(HWND hWnd)
{
    HWND *list = GetWindowChildListEx(nullptr, GetCurrentThreadId());
    if (list == nullptr)
        return;
    for (HWND *entry = list; *entry != nullptr; ++entry) {
        if (IsWindow(*entry) && GetWindow(*entry, GW_OWNER) == hWnd)
            DestroyWindow(*entry);
    }
    FreeWindowList(list);
}

// Caret, focus and capture do not outlive their window.
void ReleaseThreadState(HWND hWnd)
{
    if (IsSelfOrDescendant(hWnd, GetCaretWindow()))
        DestroyCaret();
    if (IsSelfOrDescendant(hWnd, GetFocus()))
        SetFocus(nullptr);
    if (IsSelfOrDescendant(hWnd, GetCapture()))
        ReleaseCapture();
}

void FreeMenu(WindowObject *pWnd)
{
    if ((pWnd->dwStyle & WS_CHILD) || pWnd->hMenuOrId == 0)
        return;
    const HMENU menu = reinterpret_cast<HMENU>(pWnd->hMenuOrId);
    if (IsMenu(menu))
        Menu_Release(menu, TRUE);
    std::free(pWnd->pMenuBar);
    pWnd->pMenuBar = nullptr;
}

void FreeWindowObject(HWND hWnd)
{
    WindowObject *pWnd = vorlan::getWindowOrFail(hWnd);
    if (pWnd == nullptr)
        return;
    if (pWnd->pWndParent != nullptr)
        UnlinkWindow(hWnd);
    FreeMenu(pWnd);
    // Late X events of this window must find no handle.
    if (GdkWindow *window = GetGdkWindow(hWnd))
        g_object_set_data(G_OBJECT(window), "HWND", nullptr);
    delete pWnd;
}

void DestroyWindowCore(HWND hWnd)
{
    SendMessageW(hWnd, WM_DESTROY, 0, 0);
    DestroyIMEWindow(hWnd);
    if (HWND *children = GetWindowChildList(hWnd)) {
        for (HWND *child = children; *child != nullptr; ++child) {
            if (IsWindow(*child))
                DestroyWindowCore(*child);
        }
        FreeWindowList(children);
    }
    SendMessageW(hWnd, WM_NCDESTROY, 0, 0);
    FreeWindowObject(hWnd);
}

void NotifyParentOfDestroy(HWND hWnd)
{
    const WindowObject *pWnd = vorlan::getWindow(hWnd);
    if (!vorlan::IsChildStyle(pWnd->dwStyle) || (pWnd->dwExStyle & WS_EX_NOPARENTNOTIFY))
        return;
    const WPARAM wParam = MAKEWPARAM(WM_DESTROY, static_cast<WORD>(pWnd->hMenuOrId));
    SendMessageW(GetParent(hWnd), WM_PARENTNOTIFY, wParam, reinterpret_cast<LPARAM>(hWnd));
}

BOOL DestroyWindowAW(HWND hWnd)
{
    WindowObject *pWnd = vorlan::getWindow(hWnd);
    if (pWnd == nullptr)
        return vorlan::FailBadHandle();
    if (hWnd == g_hWndDesktop || pWnd->dwThreadId != GetCurrentThreadId()) {
        SetLastError(ERROR_ACCESS_DENIED);
        return FALSE;
    }
    NotifyParentOfDestroy(hWnd);
    if (IsWindow(hWnd))
        DestroyOwnedWindows(hWnd);
    if (IsWindow(hWnd))
        ReleaseThreadState(hWnd);
    pWnd = vorlan::getWindow(hWnd);
    if (pWnd == nullptr)
        return TRUE;
    GtkWidget *widget = pWnd->widget;
    GdkWindow *window = pWnd->window;
    const HWND owner = vorlan::HandleOf(pWnd->pWndOwner);
    const bool visible = (pWnd->dwStyle & WS_VISIBLE) != 0;
    DestroyWindowCore(hWnd);
    if (visible && owner != nullptr && GetForegroundWindow() == hWnd)
        SetForegroundWindow(owner);
    if (widget != nullptr)
        gtk_widget_destroy(widget);
    else if (window != nullptr)
        gdk_window_destroy(window);
    gdk_flush();
    if (visible)
        ProcessExposeEvents();
    return TRUE;
}

} // namespace

BOOL WINAPI DestroyWindow(HWND hWnd)
{
    vorlan::GtkCriticalSection lock;
    return DestroyWindowAW(hWnd);
}
