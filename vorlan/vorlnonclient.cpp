// The non-client frame: how much of a window rectangle is frame, what a
// point over the frame means, which windows the window manager frames, how
// an undecorated frame is painted, and where mouse messages over the frame
// go.
// A decorated window's caption and border belong to the window manager,
// so the library answers HTNOWHERE there and never a caption code.
#include "vorldefwindowproc.h"

#include "vorlnonclient.h"

#include <vorlan.h>

#include "gtk/vorlpending.h"
#include "gtk/vorltheme.h"
#include "gtk/vorlwindow.h"
#include "vorlscrollbarinfo.h"
#include "vorlwindowclass.h"

int _dialogUseWMD = 0;

namespace {

constexpr ATOM kDialogClassAtom = 32770;

bool HasCaption(DWORD style)
{
    return (style & WS_CAPTION) == WS_CAPTION;
}

// Overlapped windows (neither popup nor child) count as framed.
bool HasFullFrame(DWORD style)
{
    return (style & (WS_POPUP | WS_CHILD)) == 0 || HasCaption(style);
}

SIZE FrameSize(DWORD style)
{
    if (style & WS_THICKFRAME)
        return {GetSystemMetrics(SM_CXFRAME), GetSystemMetrics(SM_CYFRAME)};
    return {GetSystemMetrics(SM_CXDLGFRAME), GetSystemMetrics(SM_CYDLGFRAME)};
}

bool HasMenuBar(const vorlan::Window *pWnd)
{
    return (pWnd->dwStyle & WS_CHILD) == 0 && pWnd->hMenuOrId != 0;
}

int Width(const RECT &rect)
{
    return rect.right - rect.left;
}

int Height(const RECT &rect)
{
    return rect.bottom - rect.top;
}

bool Contains(const RECT &rect, POINT pt)
{
    return pt.x >= rect.left && pt.x < rect.right && pt.y >= rect.top && pt.y < rect.bottom;
}

// The outer strip of the given thickness on any side.
bool InEdge(const RECT &rect, POINT pt, int cx, int cy)
{
    return pt.x < rect.left + cx || pt.x >= rect.right - cx || pt.y < rect.top + cy || pt.y >= rect.bottom - cy;
}

int ScrollBarHeight()
{
    return GetSystemMetrics(SM_CYHSCROLL);
}

int ScrollBarWidth()
{
    return GetSystemMetrics(SM_CXVSCROLL);
}

void TakeScrollBars(DWORD style, DWORD exStyle, RECT *rect)
{
    if ((style & WS_HSCROLL) && ScrollBarHeight() < Height(*rect))
        rect->bottom -= ScrollBarHeight();
    if ((style & WS_VSCROLL) && ScrollBarWidth() < Width(*rect)) {
        if (exStyle & WS_EX_LEFTSCROLLBAR)
            rect->left += ScrollBarWidth();
        else
            rect->right -= ScrollBarWidth();
    }
}

// Steps 6 and 7 of the hit test: the two scroll bar strips.
LRESULT HitScrollBars(DWORD style, DWORD exStyle, RECT rect, POINT pt)
{
    const bool vertical = (style & WS_VSCROLL) && ScrollBarWidth() < Width(rect);
    if ((style & WS_HSCROLL) && ScrollBarHeight() < Height(rect)) {
        RECT bar = {rect.left, rect.bottom - ScrollBarHeight(), rect.right, rect.bottom};
        if (vertical) {
            if (exStyle & WS_EX_LEFTSCROLLBAR)
                bar.left += ScrollBarWidth();
            else
                bar.right -= ScrollBarWidth();
        }
        if (Contains(bar, pt))
            return HTHSCROLL;
        rect.bottom -= ScrollBarHeight();
    }
    if (vertical) {
        RECT bar = rect;
        if (exStyle & WS_EX_LEFTSCROLLBAR)
            bar.right = bar.left + ScrollBarWidth();
        else
            bar.left = bar.right - ScrollBarWidth();
        if (Contains(bar, pt))
            return HTVSCROLL;
    }
    return HTNOWHERE;
}

} // namespace

BOOL IsWindowDecorated(HWND hWnd)
{
    const vorlan::Window *pWnd = vorlan::getWindow(hWnd);
    if (pWnd == nullptr)
        return FALSE;
    if ((pWnd->dwStyle & WS_CHILD) != 0 && pWnd->pWndParent != nullptr)
        return FALSE;
    if (!HasCaption(pWnd->dwStyle))
        return FALSE;
    if (pWnd->pClass->atom == kDialogClassAtom)
        return _dialogUseWMD != 0;
    return TRUE;
}

void DefNCCalcSize(HWND hWnd, RECT *rect)
{
    const vorlan::Window *pWnd = vorlan::getWindow(hWnd);
    if (pWnd == nullptr || rect == nullptr)
        return;
    const DWORD style = pWnd->dwStyle;
    if (HasFullFrame(style)) {
        const SIZE frame = FrameSize(style);
        InflateRect(rect, -frame.cx, -frame.cy);
        rect->top += GetSystemMetrics(SM_CYCAPTION);
    } else if (style & WS_DLGFRAME) {
        InflateRect(rect, -GetSystemMetrics(SM_CXDLGFRAME), -GetSystemMetrics(SM_CYDLGFRAME));
    } else if (style & WS_BORDER) {
        InflateRect(rect, -GetSystemMetrics(SM_CXBORDER), -GetSystemMetrics(SM_CYBORDER));
    }
    if (HasMenuBar(pWnd))
        rect->top += MenuBar_CalcLayout(hWnd, Width(*rect));
    if (pWnd->dwExStyle & WS_EX_CLIENTEDGE)
        InflateRect(rect, -GetSystemMetrics(SM_CXEDGE), -GetSystemMetrics(SM_CYEDGE));
    TakeScrollBars(style, pWnd->dwExStyle, rect);
}

LRESULT DefNCHitTest(HWND hWnd, POINT pt)
{
    const vorlan::Window *pWnd = vorlan::getWindow(hWnd);
    if (pWnd == nullptr)
        return HTNOWHERE;
    if (Contains(pWnd->rcClient, pt))
        return HTCLIENT;
    if (!Contains(pWnd->rcWindow, pt))
        return HTNOWHERE;
    RECT rect = pWnd->rcWindow;
    const DWORD style = pWnd->dwStyle;
    if (IsWindowDecorated(hWnd)) {
        const int cx = GetSystemMetrics(SM_CXFRAME);
        const int cy = GetSystemMetrics(SM_CYFRAME);
        const int caption = GetSystemMetrics(SM_CYCAPTION);
        if (pt.x < rect.left + cx || pt.x >= rect.right - cx || pt.y < rect.top + cy + caption ||
            pt.y >= rect.bottom - cy)
            return HTNOWHERE;
        InflateRect(&rect, -cx, -cy);
        rect.top += caption;
    } else if (style & WS_BORDER) {
        if (InEdge(rect, pt, GetSystemMetrics(SM_CXBORDER), GetSystemMetrics(SM_CYBORDER)))
            return HTBORDER;
        InflateRect(&rect, -GetSystemMetrics(SM_CXBORDER), -GetSystemMetrics(SM_CYBORDER));
    }
    if (HasMenuBar(pWnd)) {
        const int barHeight = MenuBar_Height(hWnd);
        if (pt.y < rect.top + barHeight)
            return HTMENU;
        rect.top += barHeight;
    }
    if (pWnd->dwExStyle & WS_EX_CLIENTEDGE) {
        if (InEdge(rect, pt, 2, 2))
            return HTBORDER;
        InflateRect(&rect, -2, -2);
    }
    return HitScrollBars(style, pWnd->dwExStyle, rect, pt);
}

namespace {

ScrollBarInfo *BarInfo(const vorlan::Window *pWnd, int bar)
{
    auto *records = static_cast<ScrollBarInfo *>(pWnd->pScrollInfo);
    return records != nullptr ? &records[bar] : nullptr;
}

// The frame that DefNCPaint draws itself, outside in; the rectangle shrinks
// past each part.
void PaintBorders(HDC hdc, DWORD style, DWORD exStyle, RECT *rect)
{
    if (style & WS_DLGFRAME) {
        DrawDialogFrame(hdc, rect);
        InflateRect(rect, -GetSystemMetrics(SM_CXDLGFRAME), -GetSystemMetrics(SM_CYDLGFRAME));
    } else if (style & WS_BORDER) {
        HBRUSH brush = CreateSolidBrush(GetSysColor(COLOR_WINDOWFRAME));
        FrameRect(hdc, rect, brush);
        DeleteObject(brush);
        InflateRect(rect, -GetSystemMetrics(SM_CXBORDER), -GetSystemMetrics(SM_CYBORDER));
    }
    if (exStyle & WS_EX_CLIENTEDGE) {
        DrawClientEdge(hdc, rect);
        InflateRect(rect, -GetSystemMetrics(SM_CXEDGE), -GetSystemMetrics(SM_CYEDGE));
    }
}

// The two scroll bars where they fit, and the size box between them when
// both were drawn.
void PaintScrollBars(HDC hdc, const vorlan::Window *pWnd, RECT rect)
{
    const DWORD style = pWnd->dwStyle;
    const bool left = (pWnd->dwExStyle & WS_EX_LEFTSCROLLBAR) != 0;
    const bool vertical = (style & WS_VSCROLL) && ScrollBarWidth() < Width(rect);
    RECT sizeBox = {};
    if ((style & WS_HSCROLL) && ScrollBarHeight() < Height(rect)) {
        RECT bar = {rect.left, rect.bottom - ScrollBarHeight(), rect.right, rect.bottom};
        if (vertical)
            (left ? bar.left : bar.right) += left ? ScrollBarWidth() : -ScrollBarWidth();
        ScrollBar_Draw(hdc, BarInfo(pWnd, SB_HORZ), &bar, nullptr);
        rect.bottom -= ScrollBarHeight();
        sizeBox.top = rect.bottom;
        sizeBox.bottom = bar.bottom;
    }
    if (vertical) {
        RECT bar = rect;
        if (left)
            bar.right = bar.left + ScrollBarWidth();
        else
            bar.left = bar.right - ScrollBarWidth();
        ScrollBar_Draw(hdc, BarInfo(pWnd, SB_VERT), &bar, nullptr);
        sizeBox.left = bar.left;
        sizeBox.right = bar.right;
    }
    if (IsRectEmpty(&sizeBox))
        return;
    RECT bounds = {};
    GdiGetDCOutputBounds(hdc, &bounds);
    OffsetRect(&sizeBox, bounds.left, bounds.top);
    const GdkRectangle box = {sizeBox.left, sizeBox.top, Width(sizeBox), Height(sizeBox)};
    DrawGtkWindow(GetGdkDrawable(hdc), &box, &box);
}

} // namespace

// A decorated window's frame is the window manager's: only its menu bar is
// painted here.  The region does not limit the painting.
void DefNCPaint(HWND hWnd, HRGN)
{
    const vorlan::Window *pWnd = vorlan::getWindow(hWnd);
    if (pWnd == nullptr)
        return;
    if (IsWindowDecorated(hWnd)) {
        DoNCPaint(hWnd, nullptr);
        return;
    }
    HDC hdc = GetWindowDC(hWnd);
    if (hdc == nullptr)
        return;
    RECT rect = pWnd->rcWindow;
    OffsetRect(&rect, -rect.left, -rect.top);
    PaintBorders(hdc, pWnd->dwStyle, pWnd->dwExStyle, &rect);
    PaintScrollBars(hdc, pWnd, rect);
    ReleaseDC(hWnd, hdc);
}

void DefNCMouse(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_NCRBUTTONUP) {
        SendMessageW(hWnd, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(hWnd), lParam);
        return;
    }
    if (message != WM_NCLBUTTONDOWN && message != WM_NCLBUTTONDBLCLK)
        return;
    const POINT pt = {static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))};
    if (wParam == HTMENU)
        SendMessageW(hWnd, WM_SYSCOMMAND, SC_MOUSEMENU, lParam);
    else if (wParam == HTHSCROLL || wParam == HTVSCROLL)
        ScrollBar_MousePress(hWnd, wParam == HTHSCROLL ? SB_HORZ : SB_VERT, pt);
    else if (wParam >= HTLEFT && wParam <= HTBOTTOMRIGHT)
        SendMessageW(hWnd, WM_SYSCOMMAND, SC_SIZE | (wParam - (HTLEFT - WMSZ_LEFT)), lParam);
}

BOOL WINAPI AdjustWindowRectEx(LPRECT lpRect, DWORD dwStyle, BOOL bMenu, DWORD dwExStyle)
{
    if (lpRect == nullptr || (dwStyle & (WS_POPUP | WS_CHILD)) == 0) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    if (HasCaption(dwStyle)) {
        const SIZE frame = FrameSize(dwStyle);
        InflateRect(lpRect, frame.cx, frame.cy);
        lpRect->top -= GetSystemMetrics(SM_CYCAPTION);
    } else if (dwStyle & WS_BORDER) {
        InflateRect(lpRect, GetSystemMetrics(SM_CXBORDER), GetSystemMetrics(SM_CYBORDER));
    }
    if (bMenu)
        lpRect->top -= GetSystemMetrics(SM_CYMENU);
    if (dwExStyle & WS_EX_CLIENTEDGE)
        InflateRect(lpRect, 2, 2);
    return TRUE;
}

BOOL WINAPI AdjustWindowRect(LPRECT lpRect, DWORD dwStyle, BOOL bMenu)
{
    return AdjustWindowRectEx(lpRect, dwStyle, bMenu, 0);
}
