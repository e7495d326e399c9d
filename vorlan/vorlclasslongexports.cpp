// GetClassLong and SetClassLong in their A, W and pointer-sized forms:
// each takes the toolkit lock and runs the shared core.
#include "vorlclasslong.h"

#include "gtk/vorlgtklock.h"

using vorlan::LongWidth;

DWORD WINAPI GetClassLongA(HWND hWnd, int nIndex)
{
    vorlan::GtkCriticalSection lock;
    return static_cast<DWORD>(vorlan::GetClassLongCore(hWnd, nIndex, FALSE, LongWidth::Long));
}

DWORD WINAPI GetClassLongW(HWND hWnd, int nIndex)
{
    vorlan::GtkCriticalSection lock;
    return static_cast<DWORD>(vorlan::GetClassLongCore(hWnd, nIndex, TRUE, LongWidth::Long));
}

DWORD WINAPI SetClassLongA(HWND hWnd, int nIndex, LONG dwNewLong)
{
    vorlan::GtkCriticalSection lock;
    return static_cast<DWORD>(vorlan::SetClassLongCore(hWnd, nIndex, dwNewLong, FALSE, LongWidth::Long));
}

DWORD WINAPI SetClassLongW(HWND hWnd, int nIndex, LONG dwNewLong)
{
    vorlan::GtkCriticalSection lock;
    return static_cast<DWORD>(vorlan::SetClassLongCore(hWnd, nIndex, dwNewLong, TRUE, LongWidth::Long));
}

#if VORLAN_LP64
ULONG_PTR WINAPI GetClassLongPtrA(HWND hWnd, int nIndex)
{
    vorlan::GtkCriticalSection lock;
    return vorlan::GetClassLongCore(hWnd, nIndex, FALSE, LongWidth::Pointer);
}

ULONG_PTR WINAPI GetClassLongPtrW(HWND hWnd, int nIndex)
{
    vorlan::GtkCriticalSection lock;
    return vorlan::GetClassLongCore(hWnd, nIndex, TRUE, LongWidth::Pointer);
}

ULONG_PTR WINAPI SetClassLongPtrA(HWND hWnd, int nIndex, LONG_PTR dwNewLong)
{
    vorlan::GtkCriticalSection lock;
    return vorlan::SetClassLongCore(hWnd, nIndex, dwNewLong, FALSE, LongWidth::Pointer);
}

ULONG_PTR WINAPI SetClassLongPtrW(HWND hWnd, int nIndex, LONG_PTR dwNewLong)
{
    vorlan::GtkCriticalSection lock;
    return vorlan::SetClassLongCore(hWnd, nIndex, dwNewLong, TRUE, LongWidth::Pointer);
}
#endif
