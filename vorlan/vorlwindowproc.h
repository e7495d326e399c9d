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

#include "vorlinternal.h"

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
extern VORLAN_INTERNAL WndProcEntry g_arrWndProcs[kMaxWndProcs];
extern VORLAN_INTERNAL std::atomic<UINT> g_nWndProcCount;
// Guards the search and growth in AllocWndProcId, nothing else.
extern VORLAN_INTERNAL std::mutex g_wndProcMutex;

// The id of the entry for the pair (either may be null, not both), made
// on demand; 0 when the table is full.  A lone default procedure gets its
// other half, so it never needs a conversion thunk.
VORLAN_INTERNAL UINT AllocWndProcId(WNDPROC pWndProcA, WNDPROC pWndProcW);
// The value is a procedure id rather than an address.
VORLAN_INTERNAL BOOL IsWndProcId(LONG_PTR value);
// Fills the sides asked for (either pointer may be null); FALSE for a bad id.
VORLAN_INTERNAL BOOL GetRealWndProc(UINT id, WNDPROC *pWndProcA, WNDPROC *pWndProcW);
// The side of a valid id's pair that `wide` asks for, or the id itself when
// that side is missing: a value that only CallWindowProc understands.
VORLAN_INTERNAL LONG_PTR GetWndProc(UINT nIdWndProc, BOOL wide);

#endif // VORLAN_VORLWINDOWPROC_H
