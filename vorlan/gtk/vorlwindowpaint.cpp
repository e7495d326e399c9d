// Invalidation and painting: update regions, the paint cycle of BeginPaint
// and EndPaint, window DCs, and X exposes turned into invalidations.
#include "gdi/screen/vorlscreendc.h"

#include <vorlan.h>
#include "gtk/vorlwindowpaint.h"
#include "vorlnonclient.h"
#include "gtk/vorlgtklock.h"
#include "gtk/vorlthread.h"
#include "gtk/vorlwindowpos.h"
#include "gtk/vorlwindowsearch.h"
#include "gtk/vorlwindow.h"
#include "gtk/vorlxwindow.h"
#include "vorlassert.h"
#include "vorlwindowclass.h"

#include <gdk/gdkx.h>

// ----------------------------------------------------------------------------
// Invalidation: the update region of a window grows, the window is queued
// for painting on the calling thread, and the children under the region
// get their share.

namespace vorlan {

HRGN ClientAreaRegion(const Window *pWnd)
{
    return CreateRectRgn(0, 0, pWnd->rcClient.right - pWnd->rcClient.left,
                         pWnd->rcClient.bottom - pWnd->rcClient.top);
}

static void QueueOnCallingThread(HWND hWnd)
{
    ThreadData::GetCurrentThreadData()->QueuePaintMessage(hWnd);
}

// The client area cut to `hrgn`, or 0 when that fails.
static HRGN ClientPartOf(const Window *pWnd, HRGN hrgn)
{
    HRGN area = ClientAreaRegion(pWnd);
    if (area != nullptr && hrgn != nullptr && CombineRgn(area, area, hrgn, RGN_AND) == ERROR) {
        DeleteObject(area);
        return nullptr;
    }
    return area;
}

static bool MergeIntoUpdateRegion(Window *pWnd, HRGN area, UINT flags)
{
    if (pWnd->hUpdateRegion == nullptr) {
        pWnd->hUpdateRegion = area;
        if (flags & RDW_ERASE)
            pWnd->dwFlags |= WF_ERASEPENDING;
        else
            pWnd->dwFlags &= ~WF_ERASEPENDING;
        QueueOnCallingThread(pWnd->hWnd);
        return true;
    }
    // A merged region keeps the erase state it had; only a failed merge
    // makes sure an asked-for erase is not lost.
    const bool merged = CombineRgn(pWnd->hUpdateRegion, pWnd->hUpdateRegion, area, RGN_OR) != ERROR;
    DeleteObject(area);
    if (!merged && (flags & RDW_ERASE))
        pWnd->dwFlags |= WF_ERASEPENDING;
    return merged;
}

static bool PassesToChildren(const Window *pWnd, UINT flags)
{
    if (flags & RDW_NOCHILDREN)
        return false;
    if (!(flags & RDW_ALLCHILDREN) && (pWnd->dwStyle & WS_CLIPCHILDREN))
        return false;
    return pWnd->pWndChild != nullptr;
}

BOOL InvalidateWindowCore(Window *pWnd, HRGN hrgn, UINT flags)
{
    if (hrgn != nullptr) {
        RECT box;
        const int type = GetRgnBox(hrgn, &box);
        if (type == ERROR)
            return FALSE;
        if (IsRectEmpty(&box))
            return TRUE;
    }
    if ((flags & RDW_FRAME) && !(pWnd->dwFlags & WF_NCPAINTPENDING)) {
        pWnd->dwFlags |= WF_NCPAINTPENDING;
        QueueOnCallingThread(pWnd->hWnd);
    }
    HRGN area = ClientPartOf(pWnd, hrgn);
    if (area == nullptr)
        return FALSE;
    if (!MergeIntoUpdateRegion(pWnd, area, flags))
        return FALSE;
    if (!PassesToChildren(pWnd, flags))
        return TRUE;
    HRGN screenArea = ClientPartOf(pWnd, hrgn);
    if (screenArea == nullptr)
        return TRUE;
    RECT box;
    if (GetRgnBox(screenArea, &box) != NULLREGION && !IsRectEmpty(&box)) {
        OffsetRgn(screenArea, pWnd->rcClient.left, pWnd->rcClient.top);
        // Each child gets the part its window rectangle covers and owes a
        // frame paint.
        PassToVisibleChildren(pWnd, screenArea, &Window::rcWindow, InvalidateWindowCore, flags | RDW_FRAME);
    }
    DeleteObject(screenArea);
    return TRUE;
}

} // namespace vorlan

void InvalidateNC(HWND hWnd)
{
    vorlan::Window *pWnd = vorlan::getWindow(hWnd);
    if (pWnd == nullptr)
        return;
    pWnd->dwFlags |= WF_NCPAINTPENDING;
    vorlan::QueueOnCallingThread(hWnd);
}

// ----------------------------------------------------------------------------
// Validation: parts of update regions that need no painting any more.

namespace vorlan {

static void DropUpdateRegion(Window *pWnd)
{
    DeleteObject(pWnd->hUpdateRegion);
    pWnd->hUpdateRegion = nullptr;
    pWnd->dwFlags &= ~WF_ERASEPENDING;
}

BOOL ValidateOneWindow(Window *pWnd, HRGN hrgn, UINT flags)
{
    if (flags & RDW_NOFRAME)
        pWnd->dwFlags &= ~WF_NCPAINTPENDING;
    if (pWnd->hUpdateRegion == nullptr)
        return TRUE;
    if (hrgn == nullptr) {
        DropUpdateRegion(pWnd);
        return TRUE;
    }
    const int type = CombineRgn(pWnd->hUpdateRegion, pWnd->hUpdateRegion, hrgn, RGN_DIFF);
    if (type == ERROR)
        return FALSE;
    if (type == NULLREGION)
        DropUpdateRegion(pWnd);
    else if (flags & RDW_NOERASE)
        pWnd->dwFlags &= ~WF_ERASEPENDING;
    return TRUE;
}

BOOL ValidateWindowCore(Window *pWnd, HRGN hrgn, UINT flags)
{
    HRGN area = ClientAreaRegion(pWnd);
    if (area == nullptr)
        return FALSE;
    if (hrgn != nullptr && CombineRgn(area, area, hrgn, RGN_AND) == ERROR) {
        DeleteObject(area);
        return FALSE;
    }
    const BOOL done = ValidateOneWindow(pWnd, area, flags);
    const bool toChildren =
        !(flags & RDW_NOCHILDREN) && ((flags & RDW_ALLCHILDREN) || !(pWnd->dwStyle & WS_CLIPCHILDREN));
    if (done && toChildren) {
        OffsetRgn(area, pWnd->rcClient.left, pWnd->rcClient.top);
        // Each child loses the part over its client area.
        PassToVisibleChildren(pWnd, area, &Window::rcClient, ValidateWindowCore, flags | RDW_NOFRAME);
    }
    DeleteObject(area);
    return done;
}

} // namespace vorlan

// ----------------------------------------------------------------------------
// The share of an area that each visible child of a window lies under, for
// invalidation and validation alike.

namespace vorlan {

void PassToVisibleChildren(Window *pWnd, HRGN screenArea, RECT Window::*covered,
                           BOOL (*apply)(Window *, HRGN, UINT), UINT flags)
{
    for (Window *child = pWnd->pWndChild; child != nullptr; child = child->pWndNext) {
        if (!(child->dwStyle & WS_VISIBLE))
            continue;
        HRGN part = CreateRectRgnIndirect(&(child->*covered));
        if (part == nullptr)
            continue;
        const int type = CombineRgn(part, part, screenArea, RGN_AND);
        if (type != ERROR && type != NULLREGION) {
            OffsetRgn(part, -child->rcClient.left, -child->rcClient.top);
            apply(child, part, flags);
        }
        DeleteObject(part);
    }
}

} // namespace vorlan

// ----------------------------------------------------------------------------
// RedrawWindow and the calls made of it: invalidation and validation of a
// rectangle or region, and painting at once.

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

// ----------------------------------------------------------------------------
// Painting at once: the frame and the client area a window owes, then its
// children, parents before children.

namespace vorlan {

bool SendOwedNcPaint(HWND hWnd)
{
    Window *pWnd = getWindow(hWnd);
    if (pWnd == nullptr)
        return false;
    if (pWnd->dwFlags & WF_NCPAINTPENDING) {
        pWnd->dwFlags &= ~WF_NCPAINTPENDING;
        SendMessageW(hWnd, WM_NCPAINT, 1, 0);
    }
    return getWindow(hWnd) != nullptr;
}

LRESULT SendEraseBackground(HWND hWnd)
{
    HDC hdc = GetDC(hWnd);
    const LRESULT answer = SendMessageW(hWnd, WM_ERASEBKGND, reinterpret_cast<WPARAM>(hdc), 0);
    ReleaseDC(hWnd, hdc);
    return answer;
}

// What the window is about to paint need not be painted by its ancestors.
static void ValidateUnderWindow(Window *pWnd)
{
    if (IsRectEmpty(&pWnd->rcWindow) || !IsWindowVisible(pWnd->hWnd))
        return;
    HRGN region = CreateRectRgnIndirect(&pWnd->rcWindow);
    if (region == nullptr)
        return;
    int dx = 0, dy = 0;
    for (Window *ancestor = pWnd->pWndParent; ancestor != nullptr && ancestor->pWndParent != nullptr;
         ancestor = ancestor->pWndParent) {
        OffsetRgn(region, dx - ancestor->rcClient.left, dy - ancestor->rcClient.top);
        dx = ancestor->rcClient.left;
        dy = ancestor->rcClient.top;
        ValidateOneWindow(ancestor, region, 0);
    }
    DeleteObject(region);
}

static void PaintClientArea(HWND hWnd, UINT flags)
{
    Window *pWnd = getWindow(hWnd);
    if (pWnd == nullptr || pWnd->hUpdateRegion == nullptr)
        return;
    if (!(flags & RDW_ERASENOW)) {
        SendMessageW(hWnd, WM_PAINT, 0, 0);
    } else if (pWnd->dwFlags & WF_ERASEPENDING) {
        pWnd->dwFlags &= ~WF_ERASEPENDING;
        SendEraseBackground(hWnd);
    }
}

BOOL UpdateWindowCore(HWND hWnd, UINT flags)
{
    Window *pWnd = getWindowOrFail(hWnd);
    if (pWnd == nullptr)
        return FALSE;
    if (!(flags & RDW_PRIVATE_CHILD))
        ValidateUnderWindow(pWnd);
    if (!SendOwedNcPaint(hWnd))
        return TRUE;
    PaintClientArea(hWnd, flags);
    if (getWindow(hWnd) == nullptr || (flags & RDW_NOCHILDREN))
        return TRUE;
    WindowListSnapshot children(GetWindowChildList(hWnd));
    for (HWND *child = children.get(); child != nullptr && *child != nullptr; ++child) {
        if (IsWindow(*child) && (GetWindowLongW(*child, GWL_STYLE) & WS_VISIBLE))
            UpdateWindowCore(*child, flags | RDW_PRIVATE_CHILD);
    }
    return TRUE;
}

} // namespace vorlan

// ----------------------------------------------------------------------------
// What the application may ask of an update region, and LockWindowUpdate.

namespace {

HWND g_hWndLocked;

// The common frame of the two queries: the owed frame paint first, then
// the region if any; with bErase the owed background erase.  Null when
// the window is bad or died.
vorlan::Window *WindowWithPaintOwedDone(HWND hWnd)
{
    if (vorlan::getWindowOrFail(hWnd) == nullptr)
        return nullptr;
    if (!vorlan::SendOwedNcPaint(hWnd))
        return nullptr;
    return vorlan::getWindow(hWnd);
}

void EraseIfOwed(vorlan::Window *pWnd, BOOL bErase)
{
    if (!bErase || !(pWnd->dwFlags & WF_ERASEPENDING))
        return;
    pWnd->dwFlags &= ~WF_ERASEPENDING;
    vorlan::SendEraseBackground(pWnd->hWnd);
}

} // namespace

int WINAPI GetUpdateRgn(HWND hWnd, HRGN hRgn, BOOL bErase)
{
    vorlan::GtkCriticalSection lock;
    if (vorlan::getWindow(hWnd) != nullptr && hRgn == nullptr) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return ERROR;
    }
    vorlan::Window *pWnd = WindowWithPaintOwedDone(hWnd);
    if (pWnd == nullptr)
        return ERROR;
    // Like the rectangle query, the answer only tells whether there is an
    // update region: 1, or 0 with hRgn emptied.
    if (pWnd->hUpdateRegion == nullptr) {
        SetRectRgn(hRgn, 0, 0, 0, 0);
        return 0;
    }
    if (CombineRgn(hRgn, pWnd->hUpdateRegion, nullptr, RGN_COPY) == ERROR)
        return 0;
    EraseIfOwed(pWnd, bErase);
    return 1;
}

BOOL WINAPI GetUpdateRect(HWND hWnd, LPRECT lpRect, BOOL bErase)
{
    vorlan::GtkCriticalSection lock;
    vorlan::Window *pWnd = WindowWithPaintOwedDone(hWnd);
    if (pWnd == nullptr)
        return FALSE;
    if (pWnd->hUpdateRegion == nullptr) {
        if (lpRect != nullptr)
            SetRectEmpty(lpRect);
        return FALSE;
    }
    if (lpRect != nullptr)
        GetRgnBox(pWnd->hUpdateRegion, lpRect);
    EraseIfOwed(pWnd, bErase);
    return TRUE;
}

BOOL WINAPI LockWindowUpdate(HWND hWndLock)
{
    vorlan::GtkCriticalSection lock;
    vorlan::Window *pWnd = vorlan::getWindow(hWndLock);
    if (hWndLock != nullptr && pWnd == nullptr) {
        SetLastError(ERROR_INVALID_WINDOW_HANDLE);
        return FALSE;
    }
    if (hWndLock == g_hWndLocked)
        return TRUE;
    if (vorlan::Window *previous = vorlan::getWindow(g_hWndLocked))
        previous->dwFlags &= ~WF_UPDATELOCKED;
    g_hWndLocked = hWndLock;
    if (pWnd != nullptr)
        pWnd->dwFlags |= WF_UPDATELOCKED;
    return TRUE;
}

// ----------------------------------------------------------------------------
// The paint cycle of WM_PAINT: BeginPaint moves the update region into a
// DC that is clipped to it, EndPaint gives the DC back.

namespace {

DWORD ClipFlagsOf(const vorlan::Window *pWnd)
{
    DWORD flags = 0;
    if (pWnd->dwStyle & WS_CLIPCHILDREN)
        flags |= DCX_CLIPCHILDREN;
    if (pWnd->dwStyle & WS_CLIPSIBLINGS)
        flags |= DCX_CLIPSIBLINGS;
    return flags;
}

// The DC to paint with, the update region moved into it.
HDC TakePaintDC(vorlan::Window *pWnd)
{
    if (pWnd->hDC == nullptr)
        return GetDCEx(pWnd->hWnd, nullptr, DCX_INTERSECTUPDATE | DCX_VALIDATE | ClipFlagsOf(pWnd));
    if (pWnd->hUpdateRegion != nullptr) {
        _SetWindowDCUpdateRegion(pWnd->hDC, pWnd->hUpdateRegion);
        DeleteObject(pWnd->hUpdateRegion);
        pWnd->hUpdateRegion = nullptr;
    }
    return pWnd->hDC;
}

// Both calls need a window and a PAINTSTRUCT; false with the error set.
bool CheckPaintArguments(HWND hWnd, const PAINTSTRUCT *lpPaint)
{
    if (vorlan::getWindowOrFail(hWnd) == nullptr)
        return false;
    if (lpPaint == nullptr) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return false;
    }
    return true;
}

} // namespace

HDC WINAPI BeginPaint(HWND hWnd, LPPAINTSTRUCT lpPaint)
{
    vorlan::GtkCriticalSection lock;
    if (!CheckPaintArguments(hWnd, lpPaint))
        return nullptr;
    if (!vorlan::SendOwedNcPaint(hWnd))
        return nullptr;
    vorlan::Window *pWnd = vorlan::getWindow(hWnd);
    HDC hdc = TakePaintDC(pWnd);
    if (hdc == nullptr)
        return nullptr;
    VORLAN_ASSERT(pWnd->hUpdateRegion == (HRGN)NULL);
    HideCaret(hWnd);
    BOOL erase = FALSE;
    if (pWnd->dwFlags & WF_ERASEPENDING) {
        pWnd->dwFlags &= ~WF_ERASEPENDING;
        erase = SendMessageW(hWnd, WM_ERASEBKGND, reinterpret_cast<WPARAM>(hdc), 0) == 0;
    }
    lpPaint->hdc = hdc;
    lpPaint->fErase = erase;
    GetClipBox(hdc, &lpPaint->rcPaint);
    LPtoDP(hdc, reinterpret_cast<POINT *>(&lpPaint->rcPaint), 2);
    return hdc;
}

BOOL WINAPI EndPaint(HWND hWnd, const PAINTSTRUCT *lpPaint)
{
    vorlan::GtkCriticalSection lock;
    if (!CheckPaintArguments(hWnd, lpPaint))
        return FALSE;
    ReleaseDC(hWnd, lpPaint->hdc);
    vorlan::Window *pWnd = vorlan::getWindow(hWnd);
    if (pWnd != nullptr && lpPaint->hdc == pWnd->hDC)
        _SetWindowDCUpdateRegion(pWnd->hDC, nullptr);
    ShowCaret(hWnd);
    return TRUE;
}

// ----------------------------------------------------------------------------
// Window DCs: GetDCEx and its short forms, ReleaseDC, and the answer to
// DeleteDC that keeps the DC of a CS_OWNDC window alive.

namespace {

// Where the DC's output lies in the X window.  The window manager draws a
// decorated window's frame; the X window is only the client part.
RECT OutputRect(const vorlan::Window *pWnd, DWORD flags)
{
    const POINT frame = vorlan::FrameOrigin(pWnd->hWnd);
    const RECT &window = pWnd->rcWindow;
    const RECT &client = pWnd->rcClient;
    RECT rect;
    if (flags & DCX_WINDOW) {
        const int frameBottom = IsWindowDecorated(pWnd->hWnd) ? GetSystemMetrics(SM_CYFRAME) : 0;
        rect = {0, 0, window.right - window.left - 2 * frame.x, window.bottom - window.top - frame.y - frameBottom};
    } else {
        rect.left = client.left - window.left - frame.x;
        rect.top = client.top - window.top - frame.y;
        rect.right = rect.left + client.right - client.left;
        rect.bottom = rect.top + client.bottom - client.top;
    }
    // What sticks out of the parent's client area moves the origin out of
    // the X window.
    const POINT overhang = vorlan::ParentOverhang(pWnd);
    OffsetRect(&rect, -overhang.x, -overhang.y);
    return rect;
}

void AdoptAsWindowDC(vorlan::Window *pWnd, HDC dc, DWORD flags)
{
    if (!(flags & DCX_WINDOW) && !(flags & DCX_CACHE) && (pWnd->pClass->style & CS_OWNDC))
        pWnd->hDC = dc;
    if (pWnd->hUpdateRegion == nullptr)
        return;
    if (flags & DCX_INTERSECTUPDATE)
        _SetWindowDCUpdateRegion(dc, pWnd->hUpdateRegion);
    if (flags & DCX_VALIDATE) {
        DeleteObject(pWnd->hUpdateRegion);
        pWnd->hUpdateRegion = nullptr;
    }
}

// The "whole window" region of WM_NCPAINT, which limits nothing.
const HRGN kWholeWindowRegion = reinterpret_cast<HRGN>(1);

bool UsesClipRegion(HRGN hrgnClip, DWORD flags)
{
    return (flags & (DCX_INTERSECTRGN | DCX_EXCLUDERGN)) != 0 && hrgnClip != nullptr &&
           hrgnClip != kWholeWindowRegion;
}

// Where the DC's origin lies on the screen: the window's top left corner
// (for a decorated window, the corner of the part the library draws), or
// the client area's.
POINT DCOriginOnScreen(const vorlan::Window *pWnd, DWORD flags)
{
    if (!(flags & DCX_WINDOW))
        return {pWnd->rcClient.left, pWnd->rcClient.top};
    const POINT frame = vorlan::FrameOrigin(pWnd->hWnd);
    return {pWnd->rcWindow.left + frame.x, pWnd->rcWindow.top + frame.y};
}

// The caller's region (screen coordinates) as the DC's painting clip (DC
// coordinates): the region itself with DCX_INTERSECTRGN, the rest of the
// DC's area with DCX_EXCLUDERGN, cut by the update region with
// DCX_INTERSECTUPDATE.
HRGN PaintingClip(const vorlan::Window *pWnd, HRGN hrgnClip, DWORD flags, const RECT &area)
{
    const POINT origin = DCOriginOnScreen(pWnd, flags);
    HRGN clip = CreateRectRgn(0, 0, 0, 0);
    CombineRgn(clip, hrgnClip, nullptr, RGN_COPY);
    OffsetRgn(clip, -origin.x, -origin.y);
    if (flags & DCX_EXCLUDERGN) {
        HRGN whole = CreateRectRgn(0, 0, area.right - area.left, area.bottom - area.top);
        CombineRgn(clip, whole, clip, RGN_DIFF);
        DeleteObject(whole);
    }
    if ((flags & DCX_INTERSECTUPDATE) && pWnd->hUpdateRegion != nullptr)
        CombineRgn(clip, clip, pWnd->hUpdateRegion, RGN_AND);
    return clip;
}

} // namespace

// A clip region given with DCX_INTERSECTRGN or DCX_EXCLUDERGN is in screen
// coordinates and becomes the caller's no longer: it is deleted once the DC
// has its own copy.  (HRGN)1, the whole window of WM_NCPAINT, limits
// nothing.  The kept DC of a CS_OWNDC window is returned unclipped.
HDC WINAPI GetDCEx(HWND hWnd, HRGN hrgnClip, DWORD flags)
{
    vorlan::GtkCriticalSection lock;
    if (hWnd == nullptr)
        hWnd = GetDesktopWindow();
    vorlan::Window *pWnd = vorlan::getWindowOrFail(hWnd);
    if (pWnd == nullptr)
        return nullptr;
    const bool clipped = UsesClipRegion(hrgnClip, flags);
    if (clipped && GetObjectType(hrgnClip) != OBJ_REGION) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    if (!(flags & (DCX_WINDOW | DCX_CACHE)) && pWnd->hDC != nullptr)
        return pWnd->hDC;
    const RECT rect = OutputRect(pWnd, flags);
    HRGN clip = clipped ? PaintingClip(pWnd, hrgnClip, flags, rect) : nullptr;
    HDC dc = GdiCreateWindowDC(hWnd, flags, GetGdkWindow(hWnd), &rect);
    if (dc != nullptr && GdiSetDeleteDCProc(dc, UserDeleteDCProc, hWnd))
        AdoptAsWindowDC(pWnd, dc, flags);
    if (dc != nullptr && clip != nullptr) {
        _SetWindowDCUpdateRegion(dc, clip);
        DeleteObject(hrgnClip);
    }
    if (clip != nullptr)
        DeleteObject(clip);
    return dc;
}

HDC WINAPI GetDC(HWND hWnd)
{
    const LONG style = GetWindowLongW(hWnd, GWL_STYLE);
    DWORD flags = 0;
    if (style & WS_CLIPCHILDREN)
        flags |= DCX_CLIPCHILDREN;
    if (style & WS_CLIPSIBLINGS)
        flags |= DCX_CLIPSIBLINGS;
    return GetDCEx(hWnd, nullptr, flags);
}

HDC WINAPI GetWindowDC(HWND hWnd)
{
    return GetDCEx(hWnd, nullptr, DCX_WINDOW);
}

int WINAPI ReleaseDC(HWND hWnd, HDC hDC)
{
    vorlan::GtkCriticalSection lock;
    if (hWnd != nullptr && vorlan::getWindow(hWnd) == nullptr)
        return 0;
    DeleteDC(hDC);
    gdk_flush();
    return 1;
}

BOOL UserDeleteDCProc(HDC hdc, HWND hWnd)
{
    const vorlan::Window *pWnd = vorlan::getWindow(hWnd);
    if (pWnd == nullptr)
        return FALSE;
    return hdc != pWnd->hDC;
}

// ----------------------------------------------------------------------------
// An exposed rectangle of a window's X window becomes an invalidation of
// its client area.

void ExposeWindows(HWND hWnd, const RECT *rect)
{
    vorlan::Window *pWnd = vorlan::getWindowOrFail(hWnd);
    if (pWnd == nullptr)
        return;
    RECT area = *rect;
    // A child's X window is cut to its parent's client area, so its X
    // origin lies right of or below the window's own.
    const POINT overhang = vorlan::ParentOverhang(pWnd);
    const POINT frame = vorlan::FrameOrigin(hWnd);
    OffsetRect(&area, overhang.x + frame.x - (pWnd->rcClient.left - pWnd->rcWindow.left),
               overhang.y + frame.y + (pWnd->rcWindow.top - pWnd->rcClient.top));
    // Every child has an X window of its own and gets an expose of its own.
    RedrawWindow(hWnd, &area, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_NOCHILDREN | RDW_FRAME);
}

// ----------------------------------------------------------------------------
// Expose events taken straight from the display, ahead of the main loop, so
// that a window uncovered by ShowWindow or DestroyWindow has its update
// region before that call returns.

namespace {

void InvalidateWidgetWindow(GdkWindow *window, const XExposeEvent &expose)
{
    gpointer widget = nullptr;
    gdk_window_get_user_data(window, &widget);
    if (widget == nullptr)
        return;
    GdkRectangle rect = vorlan::ExposedGdkRectangle(expose);
    gdk_window_invalidate_rect(window, &rect, FALSE);
}

void DeliverExpose(const XExposeEvent &expose)
{
    GdkWindow *window = gdk_window_lookup(expose.window);
    if (window == nullptr)
        return;
    HWND hWnd = getAssociatedWindow(window);
    if (hWnd == nullptr) {
        InvalidateWidgetWindow(window, expose);
        return;
    }
    const RECT rect = vorlan::ExposedRect(expose);
    ExposeWindows(hWnd, &rect);
}

} // namespace

void ProcessExposeEvents()
{
    Display *display = gdk_x11_get_default_xdisplay();
    XEvent event;
    while (XCheckTypedEvent(display, Expose, &event))
        DeliverExpose(event.xexpose);
}
