// The calling thread's view of the keyboard: key states as of its last
// removed input record, its focus and its active window.
#include "gtk/vorlgtklock.h"
#include "gtk/vorlthread.h"

SHORT WINAPI GetKeyState(int nVirtKey)
{
    // Keys above 255 are keyvals in disguise and have no state.
    if (nVirtKey < 0 || nVirtKey > 255)
        return 0;
    vorlan::GtkCriticalSection lock;
    return ThreadData::GetCurrentThreadData()->keyState[nVirtKey];
}

HWND WINAPI GetFocus(void)
{
    vorlan::GtkCriticalSection lock;
    return ThreadData::GetCurrentThreadData()->hWndFocus;
}

HWND WINAPI GetActiveWindow(void)
{
    vorlan::GtkCriticalSection lock;
    return ThreadData::GetCurrentThreadData()->hWndActive;
}
