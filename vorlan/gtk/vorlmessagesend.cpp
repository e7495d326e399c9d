// SendMessageA/W and their core: a window of the calling thread has its
// procedure called directly, a window of another thread gets the message
// through the queues and the caller waits for the reply.
#include "gtk/vorlgtklock.h"
#include "gtk/vorlpostmessage.h"
#include "gtk/vorlpumpdeps.h"
#include "gtk/vorlwindow.h"
#include "vorlwindowproc.h"

namespace {

// The window's procedure in the caller's form, through CallWindowProc,
// which drops the lock around it.  No hook runs for a sent message.
LRESULT CallOwnProcedure(const vorlan::Window *pWnd, UINT message, WPARAM wParam, LPARAM lParam, BOOL wide)
{
    const UINT id = pWnd->nIdWndProc;
    if (id == 0)
        return 0;
    const HWND hWnd = pWnd->hWnd;
    auto procedure = reinterpret_cast<WNDPROC>(GetWndProc(id, wide));
    if (wide)
        return CallWindowProcW(procedure, hWnd, message, wParam, lParam);
    return CallWindowProcA(procedure, hWnd, message, wParam, lParam);
}

LRESULT SendToOtherThread(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam, BOOL wide)
{
    tagMSG msg = {hWnd, message, wParam, lParam, 0, {0, 0}};
    return PostMessageCore(&msg, wide, TRUE, POST_TO_WINDOW_THREAD);
}

} // namespace

LRESULT SendMessageAW(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam, BOOL wide)
{
    if (!vorlan::WindowExists(hWnd)) {
        SetLastError(ERROR_INVALID_WINDOW_HANDLE);
        return 0;
    }
    if (vorlan::WindowThreadId(hWnd) != GetCurrentThreadId())
        return SendToOtherThread(hWnd, message, wParam, lParam, wide);
    if (const vorlan::Window *pWnd = vorlan::getWindow(hWnd))
        return CallOwnProcedure(pWnd, message, wParam, lParam, wide);
    return vorlan::SendToStandInWindow(hWnd, message, wParam, lParam);
}

LRESULT WINAPI SendMessageA(HWND hWnd, UINT Msg, WPARAM wParam, LPARAM lParam)
{
    vorlan::GtkCriticalSection lock;
    return SendMessageAW(hWnd, Msg, wParam, lParam, FALSE);
}

LRESULT WINAPI SendMessageW(HWND hWnd, UINT Msg, WPARAM wParam, LPARAM lParam)
{
    vorlan::GtkCriticalSection lock;
    return SendMessageAW(hWnd, Msg, wParam, lParam, TRUE);
}
