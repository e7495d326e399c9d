// The owner of a top-level window, in the object and as WM_TRANSIENT_FOR
// in X.  A window owned by something hidden is made transient for what
// the user sees: the hidden owner's own transient parent, or the active
// window.
#include "gtk/vorlpumpdeps.h"
#include "gtk/vorlwindow.h"
#include "gtk/vorlxerror.h"
#include "gtk/vorlxwindow.h"

#include <X11/Xutil.h>

namespace {

XID TransientTarget(HWND hWnd, HWND root)
{
    Display *display = GetXDisplay(root);
    XID target = GetXWindow(root);
    if (IsWindowVisible(root))
        return target;
    ::Window transientFor = 0;
    if (XGetTransientForHint(display, target, &transientFor) && transientFor != 0)
        return transientFor;
    const HWND active = GetActiveWindow();
    if (!(GetWindowLongW(hWnd, GWL_STYLE) & WS_CHILD) && active != nullptr && vorlan::getWindow(active) != nullptr)
        return GetXWindow(active);
    return target;
}

// Sets WM_TRANSIENT_FOR unless it is there already; false on an X error.
bool SetTransientFor(HWND hWnd, XID target)
{
    Display *display = GetXDisplay(hWnd);
    const XID own = GetXWindow(hWnd);
    if (target == own || own == 0)
        return true;
    ::Window present = 0;
    if (XGetTransientForHint(display, own, &present) && present == target)
        return true;
    XSetTransientForHint(display, own, target);
    XSync(display, False);
    return vorlan::TemporaryXErrorHandler::error_code == 0;
}

void ClearTransientFor(HWND hWnd)
{
    const XID own = GetXWindow(hWnd);
    if (own == 0)
        return;
    Display *display = GetXDisplay(hWnd);
    XDeleteProperty(display, own, XInternAtom(display, "WM_TRANSIENT_FOR", False));
}

} // namespace

HWND SetOwner(HWND hWnd, HWND hWndOwner)
{
    vorlan::Window *pWnd = vorlan::getWindowOrFail(hWnd);
    if (pWnd == nullptr)
        return nullptr;
    const HWND old = vorlan::HandleOf(pWnd->pWndOwner);
    vorlan::TemporaryXErrorHandler trap;
    if (hWndOwner == nullptr) {
        ClearTransientFor(hWnd);
        pWnd->pWndOwner = nullptr;
        return old;
    }
    if (vorlan::getWindow(hWndOwner) == nullptr)
        return nullptr;
    const HWND root = GetAncestor(hWndOwner, GA_ROOT);
    if (root == nullptr)
        return nullptr;
    if (!SetTransientFor(hWnd, TransientTarget(hWnd, root))) {
        SetLastError(ERROR_INVALID_WINDOW_HANDLE);
        return nullptr;
    }
    pWnd->pWndOwner = vorlan::getWindow(root);
    return old;
}
