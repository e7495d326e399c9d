// Timers: SetTimer and KillTimer over GLib timeout sources of the default
// main context.
//
// Each tick queues one WM_TIMER on the thread that runs the default context,
// the main thread, which dispatches it (calling the timer procedure when
// there is one).  Ticks come only while the main thread waits or pumps, and
// are never merged.  A killed timer's source ends at its next tick, which
// frees the record; a window's timer ends at the first tick after the
// window has gone.  The lists are guarded by the toolkit lock.
#include <windows.h>

#include "gtk/vorlgtklock.h"
#include "gtk/vorlthread.h"
#include "gtk/vorlwindow.h"

#include <glib.h>

#include <algorithm>
#include <list>

namespace {

// Win32's shortest period; a shorter one is raised to it.
constexpr UINT kMinimumElapse = USER_TIMER_MINIMUM;

struct Timer {
    bool bKilled = false;
    HWND hWnd = nullptr;
    UINT_PTR nId = 0;     // for a timer without a window, the record's address
    UINT nElapse = 0;
    TIMERPROC pfnTimer = nullptr;
};

// In the order of creation.
std::list<Timer *> s_windowTimerList;
std::list<Timer *> s_nonwindowTimerList;

gboolean timer_signal_handler(gpointer data)
{
    vorlan::GtkCriticalSection lock;
    Timer *timer = static_cast<Timer *>(data);
    if (timer->bKilled) {
        delete timer;
        return FALSE;
    }
    if (timer->hWnd != nullptr && vorlan::getWindow(timer->hWnd) == nullptr) {
        s_windowTimerList.remove(timer);
        delete timer;
        return FALSE;
    }
    ThreadData::GetCurrentThreadData()->QueueTimerMessage(timer->hWnd, WM_TIMER, timer->nId,
                                                          reinterpret_cast<LPARAM>(timer->pfnTimer));
    return TRUE;
}

Timer *StartTimer(HWND hWnd, UINT_PTR id, UINT elapse, TIMERPROC proc)
{
    Timer *timer = new Timer;
    timer->hWnd = hWnd;
    timer->nId = hWnd != nullptr ? id : reinterpret_cast<UINT_PTR>(timer);
    timer->nElapse = std::max(elapse, kMinimumElapse);
    timer->pfnTimer = proc;
    (hWnd != nullptr ? s_windowTimerList : s_nonwindowTimerList).push_back(timer);
    g_timeout_add(timer->nElapse, timer_signal_handler, timer);
    return timer;
}

std::list<Timer *>::iterator FindWindowTimer(HWND hWnd, UINT_PTR id)
{
    return std::find_if(s_windowTimerList.begin(), s_windowTimerList.end(),
                        [&](const Timer *t) { return t->hWnd == hWnd && t->nId == id; });
}

void Kill(std::list<Timer *> &list, std::list<Timer *>::iterator it)
{
    (*it)->bKilled = true;
    list.erase(it);
}

} // namespace

// A window's timer that exists already keeps its period and procedure.
// The result is 1 for a window's timer and the new id without a window.
UINT_PTR WINAPI SetTimer(HWND hWnd, UINT_PTR nIDEvent, UINT uElapse, TIMERPROC lpTimerFunc)
{
    vorlan::GtkCriticalSection lock;
    if (hWnd == nullptr)
        return StartTimer(nullptr, 0, uElapse, lpTimerFunc)->nId;
    if (FindWindowTimer(hWnd, nIDEvent) == s_windowTimerList.end())
        StartTimer(hWnd, nIDEvent, uElapse, lpTimerFunc);
    return 1;
}

BOOL WINAPI KillTimer(HWND hWnd, UINT_PTR uIDEvent)
{
    vorlan::GtkCriticalSection lock;
    if (hWnd == nullptr) {
        const auto it = std::find(s_nonwindowTimerList.begin(), s_nonwindowTimerList.end(),
                                  reinterpret_cast<Timer *>(uIDEvent));
        if (it == s_nonwindowTimerList.end())
            return FALSE;
        Kill(s_nonwindowTimerList, it);
        return TRUE;
    }
    if (vorlan::getWindow(hWnd) == nullptr)
        return FALSE;
    const auto it = FindWindowTimer(hWnd, uIDEvent);
    if (it != s_windowTimerList.end())
        Kill(s_windowTimerList, it);
    return TRUE;
}
