// The window procedure table.  A window or class names its procedure by a
// procedure id, a small integer standing for an ANSI and a wide procedure,
// either of which may be missing.  The id is the entry's index + 1; ids
// and addresses are told apart by value, since no code lives in the first
// 1024 bytes of the address space.
//
// Entries are never freed or changed once written, and the table grows by
// distinct procedures, not by windows: every window with the same
// procedure shares one entry.
#ifndef VORLAN_VORLWINDOWPROC_H
#define VORLAN_VORLWINDOWPROC_H

#include <windows.h>

#include <atomic>
#include <mutex>

// One entry: the two forms of a procedure.
struct WndProcEntry {
    WNDPROC pWndProcA;
    WNDPROC pWndProcW;
};

// The table's fixed size; AllocWndProcId gives 0 once it is full.
constexpr UINT kMaxWndProcs = 1024;

// Entries [0, g_nWndProcCount) are in use.  A writer fills an entry before
// it publishes the new count, so readers need no lock.
extern WndProcEntry g_arrWndProcs[kMaxWndProcs];
extern std::atomic<UINT> g_nWndProcCount;
// Guards the search and growth in AllocWndProcId, nothing else.
extern std::mutex g_wndProcMutex;

// The id of the entry for the pair (either may be null, not both), made
// on demand; 0 when the table is full.  A lone default procedure gets its
// other half, so it never needs a conversion thunk.
UINT AllocWndProcId(WNDPROC pWndProcA, WNDPROC pWndProcW);
// The value is a procedure id rather than an address.
BOOL IsWndProcId(LONG_PTR value);
// Fills the sides asked for (either pointer may be null); FALSE for a bad id.
BOOL GetRealWndProc(UINT id, WNDPROC *pWndProcA, WNDPROC *pWndProcW);
// The side of a valid id's pair that `wide` asks for, or the id itself when
// that side is missing: a value that only CallWindowProc understands.
LONG_PTR GetWndProc(UINT nIdWndProc, BOOL wide);

// ----------------------------------------------------------------------------
// The conversion thunks between a caller of one character form and a
// window procedure of the other.  Text parameters are converted both ways
// for the messages that carry text; every other message passes unchanged.
// The procedure must be a real address.  Both run without the toolkit
// lock, like the procedure itself.

// A wide caller reaches an ANSI procedure.
LRESULT CallWindowProcW2A(WNDPROC pWndProcA, HWND hWnd, UINT message, WPARAM wParam,
                          LPARAM lParam);
// An ANSI caller reaches a wide procedure.
LRESULT CallWindowProcA2W(WNDPROC pWndProcW, HWND hWnd, UINT message, WPARAM wParam,
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

#endif // VORLAN_VORLWINDOWPROC_H
