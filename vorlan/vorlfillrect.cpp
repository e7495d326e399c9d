// The small rectangle drawing calls of the user side: filled, framed,
// inverted and focus rectangles, all made of PatBlt and Rectangle on the
// application's DC.
#include <windows.h>

#include <cstdint>

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
