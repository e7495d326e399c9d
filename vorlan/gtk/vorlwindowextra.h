// Reading and writing a window's extra bytes at any offset.
#ifndef VORLAN_GTK_VORLWINDOWEXTRA_H
#define VORLAN_GTK_VORLWINDOWEXTRA_H

#include "gtk/vorlwindow.h"

#include <cstring>

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

#endif // VORLAN_GTK_VORLWINDOWEXTRA_H
