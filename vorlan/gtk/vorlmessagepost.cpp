// PostMessageA/W, PostThreadMessageA and PostQuitMessage: argument checks
// and the toolkit lock around PostMessageCore and the quit flag.
#include "gtk/vorlgtklock.h"
#include "gtk/vorlpostmessage.h"
#include "gtk/vorlpumpdeps.h"
#include "gtk/vorlthread.h"

namespace {

// hWnd 0 posts to the calling thread; any other handle must name a live
// window, whose thread gets the message.
BOOL PostMessageAW(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam, BOOL wide)
{
    vorlan::GtkCriticalSection lock;
    if (hWnd != nullptr && !vorlan::WindowExists(hWnd)) {
        SetLastError(ERROR_INVALID_WINDOW_HANDLE);
        return FALSE;
    }
    tagMSG msg = {hWnd, message, wParam, lParam, 0, {0, 0}};
    return PostMessageCore(&msg, wide, FALSE, POST_TO_WINDOW_THREAD) != 0;
}

} // namespace

BOOL WINAPI PostMessageA(HWND hWnd, UINT Msg, WPARAM wParam, LPARAM lParam)
{
    return PostMessageAW(hWnd, Msg, wParam, lParam, FALSE);
}

BOOL WINAPI PostMessageW(HWND hWnd, UINT Msg, WPARAM wParam, LPARAM lParam)
{
    return PostMessageAW(hWnd, Msg, wParam, lParam, TRUE);
}

BOOL WINAPI PostThreadMessageA(DWORD idThread, UINT Msg, WPARAM wParam, LPARAM lParam)
{
    vorlan::GtkCriticalSection lock;
    tagMSG msg = {nullptr, Msg, wParam, lParam, 0, {0, 0}};
    return PostMessageCore(&msg, FALSE, FALSE, idThread) != 0;
}

// Nothing is queued: the next retrieval that finds the flag makes WM_QUIT.
void WINAPI PostQuitMessage(int nExitCode)
{
    vorlan::GtkCriticalSection lock;
    ThreadData *data = ThreadData::GetCurrentThreadData();
    data->nQuitCode = nExitCode;
    data->qsFlags.fetch_or(QS_FLAG_QUIT);
}
