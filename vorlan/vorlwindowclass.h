// The window class record.  Classes are keyed by their atom alone and are
// process-wide; a class names its window procedure by a procedure id, a
// small integer that stands for an ANSI and a wide procedure pair.
#ifndef VORLAN_VORLWINDOWCLASS_H
#define VORLAN_VORLWINDOWCLASS_H

#include <windows.h>
#include <vorlan.h>

#include "gtk/vorlwindowlong.h"
struct WindowClass {
    WindowClass *pNext;     // next in the class list
    ATOM atom;              // the class's only key
    DWORD style;            // CS_ bits (GCL_STYLE)
    UINT nIdWndProc;        // procedure id
    int cbClsExtra;         // size of the extra bytes that follow the record
    int cbWndExtra;         // extra bytes of each window of the class
    HINSTANCE hInstance;    // GCL_HMODULE
    LPWSTR pszMenuName;     // resource number below 0x10000, else an owned copy
    HICON hIcon;            // GCL_HICON
    HICON hIconSm;          // GCL_HICONSM
    HCURSOR hCursor;        // GCL_HCURSOR
    HBRUSH hbrBackground;   // GCL_HBRBACKGROUND
};

// The class list is guarded by the toolkit lock: every function below
// assumes the caller holds it.

// WindowClass_FindClass(atom), the lookup, is declared in <vorlan.h>.

// Everything a new class record starts with, apart from its atom.
struct WindowClassFields {
    DWORD style;
    UINT nIdWndProc;
    int cbClsExtra;
    int cbWndExtra;
    HINSTANCE hInstance;
    HICON hIcon;
    HCURSOR hCursor;
    HBRUSH hbrBackground;
    LPCWSTR pszMenuName; // a resource number below 0x10000 or a string to copy
    HICON hIconSm;
};

// Makes the record of a new class and links it at the tail of the list.
// Null on failure, with the error set: 1410 when the atom names a class
// already, 87 for negative extra sizes, 14 when out of memory.
WindowClass *RegisterClassCore(ATOM atom, const WindowClassFields &fields);

// Unlinks the class of the atom and frees its record and menu name copy;
// false when no class has the atom.  The atom itself is the caller's.
bool WindowClass_Remove(ATOM atom);

// The extra bytes that follow the record.
inline BYTE *ClassExtraBytes(WindowClass *wc)
{
    return reinterpret_cast<BYTE *>(wc + 1);
}

// ----------------------------------------------------------------------------
// The cores of GetClassLong and SetClassLong and of their pointer-sized
// forms.  The caller holds the toolkit lock.
//
// Where a LONG cannot hold a pointer the 32-bit forms refuse the indexes
// that hold pointers or handles (error 1413), as the window longs do.  The
// class extra bytes and the indexes without a field read and write nothing
// and give 0.

namespace vorlan {

ULONG_PTR GetClassLongCore(HWND hWnd, int index, BOOL wide, LongWidth width);
ULONG_PTR SetClassLongCore(HWND hWnd, int index, LONG_PTR value, BOOL wide, LongWidth width);

} // namespace vorlan

#endif // VORLAN_VORLWINDOWCLASS_H
