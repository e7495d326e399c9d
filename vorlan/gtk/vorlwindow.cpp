// The window object table: slots, handles, and the life of the record.
//
// A new object takes the first free slot from currentIndex upward, wrapping
// at the end of the table, and the search then goes on behind it: a handle
// that has just been freed is reused as late as possible, so a stale handle
// keeps failing for as long as the table allows.
#include "gtk/vorlwindow.h"

#include "gtk/vorlpumpdeps.h"
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
    VORLAN_ASSERT("vorlan/gtk/vorlwindow", wc->nIdWndProc != 0);
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
