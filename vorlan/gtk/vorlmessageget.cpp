// PeekMessageA/W, GetMessageA/W and WaitMessage: argument checks and the
// toolkit lock around the calling thread's ThreadData.
#include "gtk/vorlmessage.h"

#include "gtk/vorlgtklock.h"
#include "gtk/vorlpumpdeps.h"
#include "gtk/vorlthread.h"

namespace {

const HWND kThreadMessagesOnly = reinterpret_cast<HWND>(static_cast<LONG_PTR>(-1));

// Checks the arguments once, under the lock; -1 stands for an error.
int CheckGetMessageArguments(const MSG *msg, HWND hWnd, UINT min, UINT max)
{
    vorlan::GtkCriticalSection lock;
    return CheckRetrievalArguments(msg, hWnd, min, max) ? 1 : -1;
}

// No lock is held between the turns: the wait drops it, and other threads
// may post, send or destroy windows meanwhile.
BOOL GetMessageAW(MSG *msg, HWND hWnd, UINT min, UINT max, BOOL wide)
{
    if (CheckGetMessageArguments(msg, hWnd, min, max) < 0)
        return -1;
    for (;;) {
        BOOL found;
        {
            vorlan::GtkCriticalSection lock;
            found = PeekMessageAW(msg, hWnd, min, max, PM_REMOVE, wide);
        }
        if (found)
            return msg->message == WM_QUIT ? FALSE : TRUE;
        WaitMessage();
    }
}

} // namespace

bool CheckRetrievalWindow(HWND hWnd)
{
    if (hWnd == nullptr || hWnd == kThreadMessagesOnly)
        return true;
    if (!vorlan::WindowExists(hWnd) || vorlan::WindowThreadId(hWnd) != GetCurrentThreadId()) {
        SetLastError(ERROR_INVALID_WINDOW_HANDLE);
        return false;
    }
    return true;
}

bool CheckRetrievalArguments(const MSG *msg, HWND hWnd, UINT min, UINT max)
{
    if (msg == nullptr) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return false;
    }
    if (!CheckRetrievalWindow(hWnd))
        return false;
    if (min > max) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return false;
    }
    return true;
}

BOOL PeekMessageAW(MSG *msg, HWND hWnd, UINT min, UINT max, UINT flags, BOOL wide)
{
    if (!CheckRetrievalArguments(msg, hWnd, min, max))
        return FALSE;
    ThreadData *data = ThreadData::GetCurrentThreadData();
    return data->peekMessage(msg, hWnd, min, max, flags & PM_REMOVE, wide);
}

BOOL WINAPI PeekMessageA(LPMSG lpMsg, HWND hWnd, UINT wMsgFilterMin, UINT wMsgFilterMax, UINT wRemoveMsg)
{
    vorlan::GtkCriticalSection lock;
    return PeekMessageAW(lpMsg, hWnd, wMsgFilterMin, wMsgFilterMax, wRemoveMsg, FALSE);
}

BOOL WINAPI PeekMessageW(LPMSG lpMsg, HWND hWnd, UINT wMsgFilterMin, UINT wMsgFilterMax, UINT wRemoveMsg)
{
    vorlan::GtkCriticalSection lock;
    return PeekMessageAW(lpMsg, hWnd, wMsgFilterMin, wMsgFilterMax, wRemoveMsg, TRUE);
}

BOOL WINAPI GetMessageA(LPMSG lpMsg, HWND hWnd, UINT wMsgFilterMin, UINT wMsgFilterMax)
{
    return GetMessageAW(lpMsg, hWnd, wMsgFilterMin, wMsgFilterMax, FALSE);
}

BOOL WINAPI GetMessageW(LPMSG lpMsg, HWND hWnd, UINT wMsgFilterMin, UINT wMsgFilterMax)
{
    return GetMessageAW(lpMsg, hWnd, wMsgFilterMin, wMsgFilterMax, TRUE);
}

// Returns once something wakes the thread, which may be an event that
// brings no message.
BOOL WINAPI WaitMessage(void)
{
    vorlan::GtkCriticalSection lock;
    ThreadData *data = ThreadData::GetCurrentThreadData();
    if (data == nullptr) {
        SetLastError(ERROR_INVALID_THREAD_ID);
        return FALSE;
    }
    data->waitMessage();
    return TRUE;
}
