// The window object table: slots, handles, and the life of the record.
//
// A new object takes the first free slot from currentIndex upward, wrapping
// at the end of the table, and the search then goes on behind it: a handle
// that has just been freed is reused as late as possible, so a stale handle
// keeps failing for as long as the table allows.
#include "gtk/vorlwindow.h"

#include <vorlan.h>

#include "gtk/vorlstartup.h"
#include "vorlassert.h"
#include "vorlwindowclass.h"

#include <cstdio>
#include <cstdlib>

namespace vorlan {

WCHAR g_wszEmptyText[1] = {0};
Window *window_objs[kWindowSlots] = {};
unsigned currentIndex = 0;

Window *getWindow(HWND hWnd)
{
    const ULONG_PTR slot = reinterpret_cast<ULONG_PTR>(hWnd) - kHandleBase;
    if (slot >= kWindowSlots)
        return nullptr;
    return window_objs[slot];
}

} // namespace vorlan

namespace {

[[noreturn]] void StopOnFullTable()
{
    std::puts("vorlan fatal error: window object table full");
    std::fflush(stdout);
    std::abort();
}

unsigned NextSlot(unsigned slot)
{
    return slot + 1 < vorlan::kWindowSlots ? slot + 1 : 0;
}

// One pass over every slot, from currentIndex on and round past the end.
unsigned FindFreeSlot()
{
    unsigned slot = vorlan::currentIndex % vorlan::kWindowSlots;
    for (unsigned tried = 0; tried < vorlan::kWindowSlots; ++tried) {
        if (vorlan::window_objs[slot] == nullptr)
            return slot;
        slot = NextSlot(slot);
    }
    StopOnFullTable();
}

BYTE *AllocateExtraBytes(int size)
{
    if (size <= 0)
        return nullptr;
    return static_cast<BYTE *>(std::calloc(size, 1));
}

void ReleaseOwnDC(HDC hDC)
{
    if (hDC == nullptr)
        return;
    // Without its callback the class DC no longer survives DeleteDC.
    GdiSetDeleteDCProc(hDC, nullptr, nullptr);
    DeleteDC(hDC);
}

} // namespace

namespace vorlan {

Window::Window(WindowClass *wc)
    : hWnd(nullptr), pClass(wc), pWndParent(nullptr), pWndOwner(nullptr), pWndChild(nullptr),
      pWndNext(nullptr), hMenuOrId(0), hDC(nullptr), rcWindow(), rcClient(), nIdWndProc(0), dwStyle(0),
      dwExStyle(0), dwFlags(0), lUserData(0), cbExtra(0), pExtra(nullptr), hUpdateRegion(nullptr),
      pszText(g_wszEmptyText), pMenuBar(nullptr), pScrollInfo(nullptr), dwThreadId(GetCurrentThreadId()),
      pIMContext(nullptr), widget(nullptr), window(nullptr), foreignWindow(nullptr), rcXWindow()
{
    VORLAN_ASSERT(wc->nIdWndProc != 0);
    nIdWndProc = wc->nIdWndProc;
    cbExtra = wc->cbWndExtra;
    pExtra = AllocateExtraBytes(cbExtra);

    const unsigned slot = FindFreeSlot();
    window_objs[slot] = this;
    hWnd = HandleOfSlot(slot);
    currentIndex = NextSlot(slot);
}

Window::~Window()
{
    if (pszText != g_wszEmptyText)
        std::free(pszText);
    std::free(pExtra);
    std::free(pScrollInfo);
    ReleaseOwnDC(hDC);
    if (hUpdateRegion != nullptr)
        DeleteObject(hUpdateRegion);
    window_objs[reinterpret_cast<ULONG_PTR>(hWnd) - kHandleBase] = nullptr;
}

} // namespace vorlan

// ----------------------------------------------------------------------------
// From a GDK window to the window object behind it: the handle is attached to
// the GDK window as its "HWND" data.  All mapping from X to HWND goes through
// here.

namespace {

GQuark HwndDataKey()
{
    static const GQuark key = g_quark_from_static_string("HWND");
    return key;
}

} // namespace

HWND getAssociatedWindow(GdkDrawable *drawable)
{
    if (drawable == nullptr)
        return nullptr;
    return static_cast<HWND>(g_object_get_qdata(reinterpret_cast<GObject *>(drawable), HwndDataKey()));
}

// ----------------------------------------------------------------------------
// Links of the window tree and the child lists built from them.  The caller
// holds the toolkit lock.

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
