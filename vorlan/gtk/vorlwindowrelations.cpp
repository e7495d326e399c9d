// The plain questions about a window and its place in the tree: validity,
// visibility, thread, parent, owner, siblings and children.
#include "gtk/vorlgtklock.h"
#include "gtk/vorlglobals.h"
#include "gtk/vorlpumpdeps.h"
#include "gtk/vorlwindow.h"
#include "vorlwindowproc.h"

using WindowObject = vorlan::Window;

namespace {

bool IsDesktop(const WindowObject *pWnd)
{
    return pWnd->hWnd == g_hWndDesktop;
}

HWND PreviousSibling(const WindowObject *pWnd)
{
    const WindowObject *parent = pWnd->pWndParent;
    if (parent == nullptr)
        return nullptr;
    const WindowObject *previous = nullptr;
    for (const WindowObject *sibling = parent->pWndChild; sibling != nullptr; sibling = sibling->pWndNext) {
        if (sibling == pWnd)
            return vorlan::HandleOf(previous);
        previous = sibling;
    }
    return nullptr;
}

HWND FirstSibling(const WindowObject *pWnd)
{
    const WindowObject *parent = IsDesktop(pWnd) ? pWnd : pWnd->pWndParent;
    return parent != nullptr ? vorlan::HandleOf(parent->pWndChild) : nullptr;
}

// The desktop is in no sibling list, so it has no next sibling: looking
// for it among the top-level windows fails as a bad handle.
HWND NextSibling(const WindowObject *pWnd)
{
    if (IsDesktop(pWnd)) {
        vorlan::FailBadHandle();
        return nullptr;
    }
    return vorlan::HandleOf(pWnd->pWndNext);
}

} // namespace

BOOL WINAPI IsWindow(HWND hWnd)
{
    return vorlan::getWindow(hWnd) != nullptr ? TRUE : vorlan::FailBadHandle();
}

HWND WINAPI GetDesktopWindow(void)
{
    return g_hWndDesktop;
}

BOOL WINAPI IsWindowVisible(HWND hWnd)
{
    vorlan::GtkCriticalSection lock;
    const WindowObject *pWnd = vorlan::getWindowOrFail(hWnd);
    if (pWnd == nullptr)
        return FALSE;
    for (; pWnd != nullptr; pWnd = pWnd->pWndParent) {
        if ((pWnd->dwStyle & WS_VISIBLE) == 0)
            return FALSE;
    }
    return TRUE;
}

// A dialog remembers the form its procedure was set in; any other window
// is wide when its procedure has a wide side.
BOOL WINAPI IsWindowUnicode(HWND hWnd)
{
    vorlan::GtkCriticalSection lock;
    const WindowObject *pWnd = vorlan::getWindowOrFail(hWnd);
    if (pWnd == nullptr)
        return FALSE;
    if (pWnd->dwFlags & WF_DIALOG)
        return (pWnd->dwFlags & WF_DIALOGUNICODE) != 0;
    const LONG_PTR procedure = GetWindowLongPtrW(hWnd, GWLP_WNDPROC);
    return procedure != 0 && !IsWndProcId(procedure);
}

// Every window lives in the one process, whose id is 1 here.
DWORD WINAPI GetWindowThreadProcessId(HWND hWnd, LPDWORD lpdwProcessId)
{
    vorlan::GtkCriticalSection lock;
    const WindowObject *pWnd = vorlan::getWindowOrFail(hWnd);
    if (pWnd == nullptr)
        return 0xFFFFFFFF;
    if (lpdwProcessId != nullptr)
        *lpdwProcessId = 1;
    return pWnd->dwThreadId;
}

// A popup's "parent" is its owner; a child's is its parent.
HWND WINAPI GetParent(HWND hWnd)
{
    vorlan::GtkCriticalSection lock;
    const WindowObject *pWnd = vorlan::getWindowOrFail(hWnd);
    if (pWnd == nullptr)
        return nullptr;
    if (pWnd->dwStyle & WS_POPUP)
        return vorlan::HandleOf(pWnd->pWndOwner);
    if (pWnd->dwStyle & WS_CHILD)
        return vorlan::HandleOf(pWnd->pWndParent);
    return nullptr;
}

HWND WINAPI GetAncestor(HWND hwnd, UINT gaFlags)
{
    vorlan::GtkCriticalSection lock;
    const WindowObject *pWnd = vorlan::getWindowOrFail(hwnd);
    if (pWnd == nullptr)
        return nullptr;
    if (gaFlags != GA_PARENT && gaFlags != GA_ROOT && gaFlags != GA_ROOTOWNER) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    if (gaFlags == GA_PARENT || pWnd->pWndParent == nullptr)
        return vorlan::HandleOf(pWnd->pWndParent);
    while (!IsDesktop(pWnd->pWndParent))
        pWnd = pWnd->pWndParent;
    if (gaFlags == GA_ROOTOWNER) {
        if ((pWnd->dwStyle & WS_POPUP) && pWnd->pWndOwner != nullptr)
            return pWnd->pWndOwner->hWnd;
        if (vorlan::IsChildStyle(pWnd->dwStyle))
            return g_hWndDesktop;
    }
    return pWnd->hWnd;
}

HWND WINAPI GetWindow(HWND hWnd, UINT uCmd)
{
    vorlan::GtkCriticalSection lock;
    const WindowObject *pWnd = vorlan::getWindowOrFail(hWnd);
    if (pWnd == nullptr)
        return nullptr;
    switch (uCmd) {
    case GW_HWNDFIRST:
        return FirstSibling(pWnd);
    case GW_HWNDLAST:
        return nullptr;
    case GW_HWNDNEXT:
        return NextSibling(pWnd);
    case GW_HWNDPREV:
        return PreviousSibling(pWnd);
    case GW_OWNER:
        return vorlan::HandleOf(pWnd->pWndOwner);
    case GW_CHILD:
        return vorlan::HandleOf(pWnd->pWndChild);
    default:
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
}

// Climbs through child windows only: an owned popup is no child.
BOOL WINAPI IsChild(HWND hWndParent, HWND hWnd)
{
    vorlan::GtkCriticalSection lock;
    if (hWndParent == hWnd)
        return FALSE;
    const WindowObject *parent = vorlan::getWindow(hWndParent);
    const WindowObject *pWnd = vorlan::getWindow(hWnd);
    if (parent == nullptr || pWnd == nullptr)
        return FALSE;
    while ((pWnd->dwStyle & WS_CHILD) != 0 && pWnd->pWndParent != nullptr) {
        pWnd = pWnd->pWndParent;
        if (pWnd == parent)
            return TRUE;
    }
    return FALSE;
}

BOOL WINAPI MessageBeep(UINT)
{
    vorlan::GtkCriticalSection lock;
    gdk_beep();
    return TRUE;
}

BOOL WINAPI AnimateWindow(HWND, DWORD, DWORD)
{
    vorlan::GtkCriticalSection lock;
    return FALSE;
}

BOOL WINAPI IsWindowEnabled(HWND hWnd)
{
    vorlan::GtkCriticalSection lock;
    const WindowObject *pWnd = vorlan::getWindowOrFail(hWnd);
    return pWnd != nullptr && (pWnd->dwStyle & WS_DISABLED) == 0;
}
