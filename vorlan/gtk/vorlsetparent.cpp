// SetParent: a child moves to another parent and keeps its place relative
// to the client origin, in the tree, in its rectangles and in X.
#include "gtk/vorlgtklock.h"
#include "gtk/vorlglobals.h"
#include "gtk/vorlpumpdeps.h"
#include "gtk/vorlwindow.h"
#include "gtk/vorlwindowpos.h"
#include "gtk/vorlwindowtree.h"
#include "gtk/vorlxwindow.h"

using WindowObject = vorlan::Window;

namespace {

bool IsSelfOrAncestor(const WindowObject *candidate, const WindowObject *pWnd)
{
    for (const WindowObject *w = candidate; w != nullptr; w = w->pWndParent) {
        if (w == pWnd)
            return true;
    }
    return false;
}

GdkWindow *ParentGdkWindow(const WindowObject *parent)
{
    if (parent->widget != nullptr)
        return gtk_widget_get_window(parent->widget);
    return GetGdkWindow(parent->hWnd);
}

void ReparentXWindow(WindowObject *pWnd, WindowObject *parent)
{
    if (pWnd->window == nullptr)
        return;
    if (parent->hWnd == g_hWndDesktop) {
        gdk_window_reparent(pWnd->window, gdk_get_default_root_window(), pWnd->rcWindow.left, pWnd->rcWindow.top);
        gdk_window_move(pWnd->window, pWnd->rcWindow.left, pWnd->rcWindow.top);
        return;
    }
    const POINT frame = vorlan::FrameOrigin(parent->hWnd);
    gdk_window_reparent(pWnd->window, ParentGdkWindow(parent), pWnd->rcWindow.left - parent->rcWindow.left - frame.x,
                        pWnd->rcWindow.top - parent->rcWindow.top - frame.y);
}

HWND SetParentCore(HWND hWnd, HWND hWndNewParent)
{
    if (hWnd == g_hWndDesktop)
        return nullptr;
    WindowObject *pWnd = vorlan::getWindow(hWnd);
    if (hWndNewParent == nullptr)
        hWndNewParent = g_hWndDesktop;
    WindowObject *parent = vorlan::getWindow(hWndNewParent);
    if (pWnd == nullptr || parent == nullptr) {
        vorlan::FailBadHandle();
        return nullptr;
    }
    WindowObject *oldParent = pWnd->pWndParent;
    if (oldParent == parent || oldParent == nullptr)
        return nullptr;
    if (IsSelfOrAncestor(parent, pWnd)) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    if (IsWindowVisible(hWnd) && !IsWindowVisible(hWndNewParent))
        RedrawWindow(hWnd, nullptr, nullptr, RDW_VALIDATE | RDW_NOERASE | RDW_ALLCHILDREN | RDW_NOFRAME);
    const HWND oldParentHandle = oldParent->hWnd;
    UnlinkWindow(hWnd);
    LinkWindow(hWnd, hWndNewParent);
    vorlan::OffsetAllWindowRects(pWnd, parent->rcClient.left - oldParent->rcClient.left,
                                 parent->rcClient.top - oldParent->rcClient.top);
    ReparentXWindow(pWnd, parent);
    vorlan::CalcXWindowRect(pWnd, &pWnd->rcXWindow);
    return oldParentHandle;
}

} // namespace

HWND WINAPI SetParent(HWND hWndChild, HWND hWndNewParent)
{
    vorlan::GtkCriticalSection lock;
    return SetParentCore(hWndChild, hWndNewParent);
}
