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

#include "vorlinternal.h"

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
VORLAN_INTERNAL LONG GetWindowLongAW(HWND hWnd, int index, BOOL wide);
VORLAN_INTERNAL LONG SetWindowLongAW(HWND hWnd, int index, LONG value, BOOL wide);
// The A and W cores of the pointer-sized forms.
VORLAN_INTERNAL LONG_PTR GetWindowLongPtrAW(HWND hWnd, int index, BOOL wide);
VORLAN_INTERNAL LONG_PTR SetWindowLongPtrAW(HWND hWnd, int index, LONG_PTR value, BOOL wide);

#endif // VORLAN_GTK_VORLWINDOWLONG_H
