// The window objects of a thread that ends.
//
// A window cannot outlive its parent, so the windows below a dying window
// die with it whatever thread made them.  The survivors lose every link to
// the dying objects, and the dying GDK windows lose their handle, so that
// no X event reaches a handle whose slot is reused later.  No message is
// sent and no GDK window is destroyed.
#include "gtk/vorlxwindow.h"

#include "gtk/vorlglobals.h"
#include "gtk/vorlpumpdeps.h"
#include "gtk/vorlwindow.h"
#include "gtk/vorlwindowtree.h"

#include <vector>

using WindowObject = vorlan::Window;

namespace {

bool Dies(const WindowObject *pWnd, DWORD tid)
{
    for (const WindowObject *w = pWnd; w != nullptr; w = w->pWndParent) {
        if (w->hWnd == g_hWndDesktop)
            return false;
        if (w->dwThreadId == tid)
            return true;
    }
    return false;
}

std::vector<WindowObject *> GatherDyingWindows(DWORD tid)
{
    std::vector<WindowObject *> dying;
    for (WindowObject *pWnd : vorlan::window_objs) {
        if (pWnd != nullptr && Dies(pWnd, tid))
            dying.push_back(pWnd);
    }
    return dying;
}

void DetachHandle(GdkWindow *window)
{
    if (window != nullptr)
        g_object_set_data(G_OBJECT(window), "HWND", nullptr);
}

// Owners that die leave their owned windows without an owner.
void ForgetDyingOwners(DWORD tid)
{
    for (WindowObject *pWnd : vorlan::window_objs) {
        if (pWnd != nullptr && pWnd->pWndOwner != nullptr && Dies(pWnd->pWndOwner, tid))
            pWnd->pWndOwner = nullptr;
    }
}

} // namespace

void DestroyThreadWindows(DWORD tid)
{
    const std::vector<WindowObject *> dying = GatherDyingWindows(tid);
    ForgetDyingOwners(tid);
    // Taking the topmost dying windows out of surviving parents' lists
    // leaves no link from a survivor into a dying subtree.
    for (WindowObject *pWnd : dying) {
        if (pWnd->pWndParent != nullptr && !Dies(pWnd->pWndParent, tid))
            UnlinkWindow(pWnd->hWnd);
    }
    for (WindowObject *pWnd : dying) {
        DetachHandle(pWnd->window);
        DetachHandle(pWnd->foreignWindow);
        delete pWnd;
    }
    DestroyStandInWindowsOfThread(tid);
}
