// The cores of GetWindowLong and SetWindowLong and of their pointer-sized
// forms.  The caller holds the toolkit lock.
//
// On a platform where a LONG cannot hold a pointer the 32-bit forms refuse
// the indexes that hold pointers (error 1413) and read and write 32 bits
// of the extra bytes; the pointer-sized forms read and write a whole
// pointer.  Where a LONG holds a pointer the two are the same.
#ifndef VORLAN_GTK_VORLWINDOWLONG_H
#define VORLAN_GTK_VORLWINDOWLONG_H

#include <windows.h>

#include "gtk/vorlwindow.h"
#include <cstring>

namespace vorlan {

// How many bytes a window long call reads or writes.
enum class LongWidth {
    Long,    // a LONG
    Pointer, // a LONG_PTR
};

constexpr int ByteWidth(LongWidth width)
{
    return width == LongWidth::Long ? static_cast<int>(sizeof(LONG)) : static_cast<int>(sizeof(LONG_PTR));
}

// An index whose value is a pointer or a handle.
bool IsPointerIndex(int index);

// The 32-bit forms may not reach a pointer index where a LONG is narrower
// than a pointer.
inline bool RefusedForWidth(int index, LongWidth width)
{
    return ByteWidth(width) < static_cast<int>(sizeof(LONG_PTR)) && IsPointerIndex(index);
}

// The value of a narrow access as the form's result, or as the value to
// store: a LONG sign-extends.
inline LONG_PTR Narrowed(LONG_PTR value, LongWidth width)
{
    return width == LongWidth::Long ? static_cast<LONG>(value) : value;
}

LONG_PTR GetWindowLongCore(HWND hWnd, int index, BOOL wide, LongWidth width);
LONG_PTR SetWindowLongCore(HWND hWnd, int index, LONG_PTR value, BOOL wide, LongWidth width);

} // namespace vorlan

// The A and W cores of the 32-bit forms.
LONG GetWindowLongAW(HWND hWnd, int index, BOOL wide);
LONG SetWindowLongAW(HWND hWnd, int index, LONG value, BOOL wide);
// The A and W cores of the pointer-sized forms.
LONG_PTR GetWindowLongPtrAW(HWND hWnd, int index, BOOL wide);
LONG_PTR SetWindowLongPtrAW(HWND hWnd, int index, LONG_PTR value, BOOL wide);

// ----------------------------------------------------------------------------
// Reading and writing a window's extra bytes at any offset.

namespace vorlan {

// The `size` bytes at `offset` lie inside the extra bytes.
inline bool ExtraRangeFits(const Window *pWnd, int offset, int size)
{
    return offset >= 0 && static_cast<long long>(offset) + size <= pWnd->cbExtra;
}

// 2 bytes read unsigned, 4 bytes as a LONG, 8 bytes as a LONG_PTR.  The
// range must fit.
inline LONG_PTR ReadExtra(const Window *pWnd, int offset, int size)
{
    if (size == sizeof(WORD)) {
        WORD value;
        std::memcpy(&value, pWnd->pExtra + offset, sizeof value);
        return value;
    }
    if (size == sizeof(LONG)) {
        LONG value;
        std::memcpy(&value, pWnd->pExtra + offset, sizeof value);
        return value;
    }
    LONG_PTR value;
    std::memcpy(&value, pWnd->pExtra + offset, sizeof value);
    return value;
}

// Stores the low `size` bytes of the value.  The range must fit.
inline void WriteExtra(Window *pWnd, int offset, int size, LONG_PTR value)
{
    if (size == sizeof(WORD)) {
        const WORD narrow = static_cast<WORD>(value);
        std::memcpy(pWnd->pExtra + offset, &narrow, sizeof narrow);
    } else if (size == sizeof(LONG)) {
        const LONG narrow = static_cast<LONG>(value);
        std::memcpy(pWnd->pExtra + offset, &narrow, sizeof narrow);
    } else {
        std::memcpy(pWnd->pExtra + offset, &value, sizeof value);
    }
}

// In a dialog (WF_DIALOG) a pointer-sized access at kDialogProcOffset
// reaches the dialog procedure, stored as a procedure id.
inline bool IsDialogProcedureAccess(const Window *pWnd, int offset, int size)
{
    return (pWnd->dwFlags & WF_DIALOG) != 0 && offset == kDialogProcOffset &&
           size == static_cast<int>(sizeof(LONG_PTR));
}

// In a dialog the word at kDialogFlagsOffset is read and written as 16 bits.
inline bool IsDialogFlagsAccess(const Window *pWnd, int offset)
{
    return (pWnd->dwFlags & WF_DIALOG) != 0 && offset == kDialogFlagsOffset;
}

} // namespace vorlan

#endif // VORLAN_GTK_VORLWINDOWLONG_H
