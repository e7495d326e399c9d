// Rectangles: the rectangle calls, and filling, framing and inverting
// rectangles on a device context.
#include <windows.h>

#include <algorithm>
#include <cstdint>

// ----------------------------------------------------------------------------
// Rectangle arithmetic.  Rectangles include their left and top edges and
// exclude the right and bottom ones; a null pointer fails with 0.

namespace {

bool IsEmpty(const RECT &rect)
{
    return rect.left >= rect.right || rect.top >= rect.bottom;
}

} // namespace

BOOL WINAPI SetRect(LPRECT lprc, int xLeft, int yTop, int xRight, int yBottom)
{
    if (lprc == nullptr)
        return FALSE;
    *lprc = {xLeft, yTop, xRight, yBottom};
    return TRUE;
}

BOOL WINAPI SetRectEmpty(LPRECT lprc)
{
    return SetRect(lprc, 0, 0, 0, 0);
}

BOOL WINAPI CopyRect(LPRECT lprcDst, const RECT *lprcSrc)
{
    if (lprcDst == nullptr || lprcSrc == nullptr)
        return FALSE;
    *lprcDst = *lprcSrc;
    return TRUE;
}

BOOL WINAPI InflateRect(LPRECT lprc, int dx, int dy)
{
    if (lprc == nullptr)
        return FALSE;
    lprc->left -= dx;
    lprc->top -= dy;
    lprc->right += dx;
    lprc->bottom += dy;
    return TRUE;
}

BOOL WINAPI OffsetRect(LPRECT lprc, int dx, int dy)
{
    if (lprc == nullptr)
        return FALSE;
    lprc->left += dx;
    lprc->top += dy;
    lprc->right += dx;
    lprc->bottom += dy;
    return TRUE;
}

// The destination gets the intersection even when it is empty.
BOOL WINAPI IntersectRect(LPRECT lprcDst, const RECT *lprcSrc1, const RECT *lprcSrc2)
{
    if (lprcDst == nullptr || lprcSrc1 == nullptr || lprcSrc2 == nullptr)
        return FALSE;
    const RECT result = {std::max(lprcSrc1->left, lprcSrc2->left), std::max(lprcSrc1->top, lprcSrc2->top),
                         std::min(lprcSrc1->right, lprcSrc2->right), std::min(lprcSrc1->bottom, lprcSrc2->bottom)};
    *lprcDst = result;
    return !IsEmpty(result);
}

// An empty source takes no part; the union of two empty rectangles is
// the second.
BOOL WINAPI UnionRect(LPRECT lprcDst, const RECT *lprcSrc1, const RECT *lprcSrc2)
{
    if (lprcDst == nullptr || lprcSrc1 == nullptr || lprcSrc2 == nullptr)
        return FALSE;
    RECT result;
    if (IsEmpty(*lprcSrc1))
        result = *lprcSrc2;
    else if (IsEmpty(*lprcSrc2))
        result = *lprcSrc1;
    else
        result = {std::min(lprcSrc1->left, lprcSrc2->left), std::min(lprcSrc1->top, lprcSrc2->top),
                  std::max(lprcSrc1->right, lprcSrc2->right), std::max(lprcSrc1->bottom, lprcSrc2->bottom)};
    *lprcDst = result;
    return result.left != 0 || result.top != 0 || result.right != 0 || result.bottom != 0;
}

// The first rectangle less the second, when what is left is a rectangle:
// the second must span the first fully in one direction.
BOOL WINAPI SubtractRect(LPRECT lprcDst, const RECT *lprcSrc1, const RECT *lprcSrc2)
{
    if (lprcDst == nullptr || lprcSrc1 == nullptr || lprcSrc2 == nullptr)
        return FALSE;
    RECT result = *lprcSrc1;
    RECT overlap;
    if (IntersectRect(&overlap, lprcSrc1, lprcSrc2)) {
        const bool spansWidth = overlap.left == result.left && overlap.right == result.right;
        const bool spansHeight = overlap.top == result.top && overlap.bottom == result.bottom;
        if (spansWidth && overlap.top == result.top)
            result.top = overlap.bottom;
        else if (spansWidth && overlap.bottom == result.bottom)
            result.bottom = overlap.top;
        else if (spansHeight && overlap.left == result.left)
            result.left = overlap.right;
        else if (spansHeight && overlap.right == result.right)
            result.right = overlap.left;
    }
    *lprcDst = result;
    return !IsEmpty(result);
}

BOOL WINAPI EqualRect(const RECT *lprc1, const RECT *lprc2)
{
    if (lprc1 == nullptr || lprc2 == nullptr)
        return FALSE;
    return lprc1->left == lprc2->left && lprc1->top == lprc2->top && lprc1->right == lprc2->right &&
           lprc1->bottom == lprc2->bottom;
}

BOOL WINAPI IsRectEmpty(const RECT *lprc)
{
    return lprc == nullptr || IsEmpty(*lprc);
}

BOOL WINAPI PtInRect(const RECT *lprc, POINT pt)
{
    if (lprc == nullptr)
        return FALSE;
    return pt.x >= lprc->left && pt.x < lprc->right && pt.y >= lprc->top && pt.y < lprc->bottom;
}

// ----------------------------------------------------------------------------
// The small rectangle drawing calls of the user side: filled, framed,
// inverted and focus rectangles, all made of PatBlt and Rectangle on the
// application's DC.

namespace {

// Brush values 1 to 25 stand for system colour value - 1.
bool IsSystemColourValue(HBRUSH brush)
{
    const uintptr_t value = reinterpret_cast<uintptr_t>(brush);
    return value >= 1 && value <= 25;
}

int FillWithBrush(HDC hdc, const RECT &rect, HBRUSH brush)
{
    HGDIOBJ old = SelectObject(hdc, brush);
    const BOOL done = PatBlt(hdc, rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top, PATCOPY);
    if (old != nullptr)
        SelectObject(hdc, old);
    return done;
}

} // namespace

int WINAPI FillRect(HDC hDC, const RECT *lprc, HBRUSH hbr)
{
    if (lprc == nullptr || hbr == nullptr) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return 0;
    }
    if (!IsSystemColourValue(hbr))
        return FillWithBrush(hDC, *lprc, hbr);
    const int index = static_cast<int>(reinterpret_cast<uintptr_t>(hbr)) - 1;
    HBRUSH temporary = CreateSolidBrush(GetSysColor(index));
    const int done = FillWithBrush(hDC, *lprc, temporary);
    DeleteObject(temporary);
    return done;
}

int WINAPI FrameRect(HDC hDC, const RECT *lprc, HBRUSH hbr)
{
    if (lprc == nullptr || lprc->right <= lprc->left || lprc->bottom <= lprc->top)
        return 0;
    const RECT &r = *lprc;
    const RECT strips[4] = {
        {r.left, r.top, r.right - 1, r.top + 1},
        {r.left, r.top, r.left + 1, r.bottom - 1},
        {r.left, r.bottom - 1, r.right, r.bottom},
        {r.right - 1, r.top, r.right, r.bottom},
    };
    for (const RECT &strip : strips) {
        if (!FillRect(hDC, &strip, hbr))
            return 0;
    }
    return 1;
}

BOOL WINAPI InvertRect(HDC hDC, const RECT *lprc)
{
    if (lprc == nullptr)
        return FALSE;
    return PatBlt(hDC, lprc->left, lprc->top, lprc->right - lprc->left, lprc->bottom - lprc->top, DSTINVERT);
}

// A dotted frame drawn with XOR, so that drawing it again takes it away.
BOOL WINAPI DrawFocusRect(HDC hDC, const RECT *lprc)
{
    if (lprc == nullptr || IsRectEmpty(lprc) || GetMapMode(hDC) != MM_TEXT)
        return FALSE;
    HPEN pen = CreatePen(PS_ALTERNATE, 1, RGB(0, 0, 0));
    if (pen == nullptr)
        return FALSE;
    const int oldRop = SetROP2(hDC, R2_XORPEN);
    const int oldMode = SetBkMode(hDC, OPAQUE);
    HGDIOBJ oldPen = SelectObject(hDC, pen);
    HGDIOBJ oldBrush = SelectObject(hDC, GetStockObject(NULL_BRUSH));
    const BOOL done = Rectangle(hDC, lprc->left, lprc->top, lprc->right, lprc->bottom);
    SelectObject(hDC, oldBrush);
    SelectObject(hDC, oldPen);
    SetBkMode(hDC, oldMode);
    SetROP2(hDC, oldRop);
    DeleteObject(pen);
    return done;
}
