// The shared cores of the exported message calls.
#ifndef VORLAN_GTK_VORLMESSAGE_H
#define VORLAN_GTK_VORLMESSAGE_H

#include <windows.h>

#include "vorlinternal.h"

// The window filter of a message retrieval: 0 and -1 always pass; any other
// handle must name a live window of the calling thread.  Sets 1400 and
// answers false otherwise.  The caller holds the toolkit lock.
VORLAN_INTERNAL bool CheckRetrievalWindow(HWND hWnd);

// The arguments of PeekMessage: a message record, a filter window that
// passes CheckRetrievalWindow, min <= max.  Sets 87 or 1400 and answers
// false otherwise.  The caller holds the toolkit lock.
VORLAN_INTERNAL bool CheckRetrievalArguments(const MSG *msg, HWND hWnd, UINT min, UINT max);

// The core of PeekMessageA and PeekMessageW; the caller holds the toolkit
// lock.  Of `flags` only PM_REMOVE counts.
VORLAN_INTERNAL BOOL PeekMessageAW(MSG *msg, HWND hWnd, UINT min, UINT max, UINT flags, BOOL wide);

#endif // VORLAN_GTK_VORLMESSAGE_H
