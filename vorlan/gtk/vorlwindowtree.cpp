// Links of the window tree and the child lists built from them.  The caller
// holds the toolkit lock.
#include "gtk/vorlwindowtree.h"

#include "gtk/vorlglobals.h"
#include "gtk/vorlwindow.h"

#include <cstdlib>

using WindowObject = vorlan::Window;

namespace {

// The link that points at `child` in its parent's list, or null.
WindowObject **LinkTo(WindowObject *child)
{
    if (child->pWndParent == nullptr)
        return nullptr;
    for (WindowObject **link = &child->pWndParent->pWndChild; *link != nullptr; link = &(*link)->pWndNext) {
        if (*link == child)
            return link;
    }
    return nullptr;
}

void Detach(WindowObject *pWnd)
{
    if (WindowObject **link = LinkTo(pWnd))
        *link = pWnd->pWndNext;
    pWnd->pWndNext = nullptr;
    pWnd->pWndParent = nullptr;
}

WindowObject **LastLink(WindowObject *parent)
{
    WindowObject **link = &parent->pWndChild;
    while (*link != nullptr)
        link = &(*link)->pWndNext;
    return link;
}

// Where a window goes in the parent's list for the position hWndAfter.
WindowObject **InsertionLink(WindowObject *parent, HWND hWndAfter)
{
    if (hWndAfter == LINK_FIRST_CHILD)
        return &parent->pWndChild;
    if (hWndAfter != LINK_LAST_CHILD) {
        WindowObject *after = vorlan::getWindow(hWndAfter);
        if (after != nullptr && after->pWndParent == parent)
            return &after->pWndNext;
    }
    return LastLink(parent);
}

bool TakesThread(const WindowObject *pWnd, DWORD tid)
{
    return tid == 0 || pWnd->dwThreadId == tid;
}

size_t CountChildren(const WindowObject *parent, DWORD tid)
{
    size_t count = 0;
    for (const WindowObject *child = parent->pWndChild; child != nullptr; child = child->pWndNext)
        count += TakesThread(child, tid) ? 1 : 0;
    return count;
}

} // namespace

BOOL LinkWindow(HWND hWnd, HWND hWndParent)
{
    return LinkWindowEx(hWnd, hWndParent, LINK_LAST_CHILD);
}

BOOL LinkWindowEx(HWND hWnd, HWND hWndParent, HWND hWndAfter)
{
    WindowObject *pWnd = vorlan::getWindow(hWnd);
    WindowObject *parent = vorlan::getWindow(hWndParent);
    if (pWnd == nullptr || parent == nullptr || pWnd == parent)
        return vorlan::FailBadHandle();
    Detach(pWnd);
    WindowObject **link = InsertionLink(parent, hWndAfter);
    pWnd->pWndNext = *link;
    *link = pWnd;
    pWnd->pWndParent = parent;
    return TRUE;
}

BOOL UnlinkWindow(HWND hWnd)
{
    WindowObject *pWnd = vorlan::getWindow(hWnd);
    if (pWnd == nullptr)
        return vorlan::FailBadHandle();
    Detach(pWnd);
    return TRUE;
}

HWND *GetWindowChildListEx(HWND hWnd, DWORD tid)
{
    WindowObject *parent = vorlan::getWindow(hWnd != nullptr ? hWnd : g_hWndDesktop);
    if (parent == nullptr) {
        vorlan::FailBadHandle();
        return nullptr;
    }
    HWND *list = static_cast<HWND *>(std::malloc((CountChildren(parent, tid) + 1) * sizeof(HWND)));
    if (list == nullptr) {
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);
        return nullptr;
    }
    size_t used = 0;
    for (const WindowObject *child = parent->pWndChild; child != nullptr; child = child->pWndNext) {
        if (TakesThread(child, tid))
            list[used++] = child->hWnd;
    }
    list[used] = nullptr;
    return list;
}

HWND *GetWindowChildList(HWND hWnd)
{
    return GetWindowChildListEx(hWnd, 0);
}

BOOL FreeWindowList(HWND *list)
{
    if (list == nullptr) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    std::free(list);
    return TRUE;
}
