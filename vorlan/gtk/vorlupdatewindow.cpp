// Painting at once: the frame and the client area a window owes, then its
// children, parents before children.
#include "gtk/vorlgtklock.h"
#include "gtk/vorlpaint.h"
#include "gtk/vorlpumpdeps.h"
#include "gtk/vorlwindowsearch.h"
#include "gtk/vorlwindowtree.h"

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
