// The window class record.  Classes are keyed by their atom alone and are
// process-wide; a class names its window procedure by a procedure id, a
// small integer that stands for an ANSI and a wide procedure pair.
#ifndef VORLAN_VORLWINDOWCLASS_H
#define VORLAN_VORLWINDOWCLASS_H

#include <windows.h>

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

#endif // VORLAN_VORLWINDOWCLASS_H
