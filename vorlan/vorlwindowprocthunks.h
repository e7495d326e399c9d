// The conversion thunks between a caller of one character form and a
// window procedure of the other.  Text parameters are converted both ways
// for the messages that carry text; every other message passes unchanged.
// The procedure must be a real address.  Both run without the toolkit
// lock, like the procedure itself.
#ifndef VORLAN_VORLWINDOWPROCTHUNKS_H
#define VORLAN_VORLWINDOWPROCTHUNKS_H

#include <windows.h>

#include "vorlinternal.h"

// A wide caller reaches an ANSI procedure.
VORLAN_INTERNAL LRESULT CallWindowProcW2A(WNDPROC pWndProcA, HWND hWnd, UINT message, WPARAM wParam,
                                          LPARAM lParam);
// An ANSI caller reaches a wide procedure.
VORLAN_INTERNAL LRESULT CallWindowProcA2W(WNDPROC pWndProcW, HWND hWnd, UINT message, WPARAM wParam,
                                          LPARAM lParam);

namespace vorlan {

// The text messages whose lParam is one terminated string and whose wParam
// passes unchanged.
inline bool IsPlainStringMessage(UINT message)
{
    switch (message) {
    case EM_REPLACESEL:
    case LB_ADDSTRING:
    case LB_INSERTSTRING:
    case LB_SELECTSTRING:
    case LB_FINDSTRING:
    case LB_FINDSTRINGEXACT:
        return true;
    default:
        return false;
    }
}

// A class name of a CREATESTRUCT is a string when its high word is not 0,
// otherwise an atom.
template <typename Char> bool IsClassNameString(const Char *name)
{
    return (reinterpret_cast<ULONG_PTR>(name) >> 16) != 0;
}

} // namespace vorlan

#endif // VORLAN_VORLWINDOWPROCTHUNKS_H
