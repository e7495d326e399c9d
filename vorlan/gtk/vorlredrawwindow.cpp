// RedrawWindow and the calls made of it: invalidation and validation of a
// rectangle or region, and painting at once.
#include "gtk/vorlgtklock.h"
#include "gtk/vorlpaint.h"

namespace {

// Invalidates or validates as the flags say; false when the core failed.
// A hidden window takes neither: ShowWindow invalidates it whole.
bool ChangeUpdateRegion(vorlan::Window *pWnd, const RECT *rect, HRGN hrgn, UINT flags)
{
    if (!(flags & (RDW_INVALIDATE | RDW_VALIDATE)) || !IsWindowVisible(pWnd->hWnd))
        return true;
    HRGN made = nullptr;
    if (hrgn == nullptr && rect != nullptr) {
        if (IsRectEmpty(rect))
            return true;
        made = CreateRectRgnIndirect(rect);
        if (made == nullptr)
            return true;
        hrgn = made;
    }
    const BOOL done = (flags & RDW_INVALIDATE) ? vorlan::InvalidateWindowCore(pWnd, hrgn, flags)
                                               : vorlan::ValidateWindowCore(pWnd, hrgn, flags);
    if (made != nullptr)
        DeleteObject(made);
    return done != FALSE;
}

} // namespace

BOOL WINAPI RedrawWindow(HWND hWnd, const RECT *lprcUpdate, HRGN hrgnUpdate, UINT flags)
{
    vorlan::GtkCriticalSection lock;
    vorlan::Window *pWnd = vorlan::getWindowOrFail(hWnd);
    if (pWnd == nullptr)
        return FALSE;
    if (!ChangeUpdateRegion(pWnd, lprcUpdate, hrgnUpdate, flags))
        return FALSE;
    if (flags & (RDW_UPDATENOW | RDW_ERASENOW))
        return vorlan::UpdateWindowCore(hWnd, flags);
    return TRUE;
}

BOOL WINAPI InvalidateRect(HWND hWnd, const RECT *lpRect, BOOL bErase)
{
    return RedrawWindow(hWnd, lpRect, nullptr, RDW_INVALIDATE | (bErase ? RDW_ERASE : 0));
}

BOOL WINAPI InvalidateRgn(HWND hWnd, HRGN hRgn, BOOL bErase)
{
    return RedrawWindow(hWnd, nullptr, hRgn, RDW_INVALIDATE | (bErase ? RDW_ERASE : 0));
}

BOOL WINAPI ValidateRect(HWND hWnd, const RECT *lpRect)
{
    return RedrawWindow(hWnd, lpRect, nullptr, RDW_VALIDATE);
}

BOOL WINAPI UpdateWindow(HWND hWnd)
{
    return RedrawWindow(hWnd, nullptr, nullptr, RDW_UPDATENOW);
}
