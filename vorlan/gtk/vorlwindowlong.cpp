// GetWindowLong and SetWindowLong in their A, W and pointer-sized forms:
// each takes the toolkit lock and runs the shared core.
#include "gtk/vorlwindowlong.h"

#include "gtk/vorlgtklock.h"

LONG WINAPI GetWindowLongA(HWND hWnd, int nIndex)
{
    vorlan::GtkCriticalSection lock;
    return GetWindowLongAW(hWnd, nIndex, FALSE);
}

LONG WINAPI GetWindowLongW(HWND hWnd, int nIndex)
{
    vorlan::GtkCriticalSection lock;
    return GetWindowLongAW(hWnd, nIndex, TRUE);
}

LONG WINAPI SetWindowLongA(HWND hWnd, int nIndex, LONG dwNewLong)
{
    vorlan::GtkCriticalSection lock;
    return SetWindowLongAW(hWnd, nIndex, dwNewLong, FALSE);
}

LONG WINAPI SetWindowLongW(HWND hWnd, int nIndex, LONG dwNewLong)
{
    vorlan::GtkCriticalSection lock;
    return SetWindowLongAW(hWnd, nIndex, dwNewLong, TRUE);
}

#if VORLAN_LP64
LONG_PTR WINAPI GetWindowLongPtrA(HWND hWnd, int nIndex)
{
    vorlan::GtkCriticalSection lock;
    return GetWindowLongPtrAW(hWnd, nIndex, FALSE);
}

LONG_PTR WINAPI GetWindowLongPtrW(HWND hWnd, int nIndex)
{
    vorlan::GtkCriticalSection lock;
    return GetWindowLongPtrAW(hWnd, nIndex, TRUE);
}

LONG_PTR WINAPI SetWindowLongPtrA(HWND hWnd, int nIndex, LONG_PTR dwNewLong)
{
    vorlan::GtkCriticalSection lock;
    return SetWindowLongPtrAW(hWnd, nIndex, dwNewLong, FALSE);
}

LONG_PTR WINAPI SetWindowLongPtrW(HWND hWnd, int nIndex, LONG_PTR dwNewLong)
{
    vorlan::GtkCriticalSection lock;
    return SetWindowLongPtrAW(hWnd, nIndex, dwNewLong, TRUE);
}
#endif
