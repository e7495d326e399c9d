// DispatchMessageA and DispatchMessageW: a WM_TIMER with a timer procedure
// calls that procedure, any other message goes to the window's procedure.
// No lock is taken here; the application's code runs without it.
#include "gtk/vorlgtklock.h"

namespace {

LRESULT CallTimerProcedure(const MSG &msg)
{
    auto procedure = reinterpret_cast<TIMERPROC>(msg.lParam);
    const int depth = vorlan::GtkCriticalSection::leave_all();
    procedure(msg.hwnd, WM_TIMER, msg.wParam, GetTickCount());
    vorlan::GtkCriticalSection::enter_all(depth);
    return 0;
}

LRESULT DispatchMessageAW(const MSG *msg, BOOL wide)
{
    if (msg == nullptr)
        return 0;
    if (msg->message == WM_TIMER && msg->lParam != 0)
        return CallTimerProcedure(*msg);
    const LONG_PTR value = wide ? GetWindowLongPtrW(msg->hwnd, GWLP_WNDPROC) : GetWindowLongPtrA(msg->hwnd, GWLP_WNDPROC);
    auto procedure = reinterpret_cast<WNDPROC>(value);
    if (procedure == nullptr)
        return 0;
    if (wide)
        return CallWindowProcW(procedure, msg->hwnd, msg->message, msg->wParam, msg->lParam);
    return CallWindowProcA(procedure, msg->hwnd, msg->message, msg->wParam, msg->lParam);
}

} // namespace

LRESULT WINAPI DispatchMessageA(const MSG *lpMsg)
{
    return DispatchMessageAW(lpMsg, FALSE);
}

LRESULT WINAPI DispatchMessageW(const MSG *lpMsg)
{
    return DispatchMessageAW(lpMsg, TRUE);
}
