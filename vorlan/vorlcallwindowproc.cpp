// CallWindowProcA and CallWindowProcW: a procedure given as an address or
// as a procedure id, called in the caller's character form or through the
// conversion thunk when only the other form exists.  The application's
// code runs without the toolkit lock.
#include "gtk/vorlgtklock.h"
#include "vorlwindowproc.h"
#include "vorlwindowprocthunks.h"

namespace {

LRESULT CallWindowProcAW(WNDPROC proc, HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam, bool wide)
{
    vorlan::GtkCriticalSection lock;
    if (proc == nullptr)
        return 0;
    // A plain address is a procedure of the caller's own form.
    WNDPROC pA = wide ? nullptr : proc;
    WNDPROC pW = wide ? proc : nullptr;
    const auto value = reinterpret_cast<LONG_PTR>(proc);
    if (IsWndProcId(value))
        GetRealWndProc(static_cast<UINT>(value), &pA, &pW);
    vorlan::GtkLockReleaser unlocked;
    if (wide)
        return pW != nullptr ? pW(hWnd, message, wParam, lParam) : CallWindowProcW2A(pA, hWnd, message, wParam, lParam);
    return pA != nullptr ? pA(hWnd, message, wParam, lParam) : CallWindowProcA2W(pW, hWnd, message, wParam, lParam);
}

} // namespace

LRESULT WINAPI CallWindowProcA(WNDPROC lpPrevWndFunc, HWND hWnd, UINT Msg, WPARAM wParam, LPARAM lParam)
{
    return CallWindowProcAW(lpPrevWndFunc, hWnd, Msg, wParam, lParam, false);
}

LRESULT WINAPI CallWindowProcW(WNDPROC lpPrevWndFunc, HWND hWnd, UINT Msg, WPARAM wParam, LPARAM lParam)
{
    return CallWindowProcAW(lpPrevWndFunc, hWnd, Msg, wParam, lParam, true);
}
