// Rectangle arithmetic.  Rectangles include their left and top edges and
// exclude the right and bottom ones; a null pointer fails with 0.
#include <windows.h>

#include <algorithm>

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
