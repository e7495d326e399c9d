// EnumThreadWindows, EnumWindows, EnumChildWindows.
//
// Each level works on a snapshot of the child list, and the callback runs
// without the toolkit lock, so a callback may create and destroy windows:
// a window of the snapshot that has died by the time its turn comes is
// passed over silently.
#include "gtk/vorlglobals.h"
#include "gtk/vorlgtklock.h"
#include "gtk/vorlwindow.h"
#include "gtk/vorlwindowsearch.h"

namespace {

bool IsAlive(HWND hWnd)
{
    return vorlan::getWindow(hWnd) != nullptr;
}

BOOL CallWithoutLock(WNDENUMPROC proc, HWND hWnd, LPARAM lParam)
{
    vorlan::GtkLockReleaser unlocked;
    return proc(hWnd, lParam);
}

BOOL RefuseNullProc()
{
    SetLastError(ERROR_INVALID_PARAMETER);
    return FALSE;
}

// The top-level windows of thread tid (0: of all threads).  The result is
// the last answer of the callback, TRUE when it was never called.
BOOL EnumTopLevelWindows(DWORD tid, WNDENUMPROC proc, LPARAM lParam)
{
    vorlan::WindowListSnapshot list(GetWindowChildListEx(nullptr, tid));
    if (!list)
        return FALSE;
    BOOL answer = TRUE;
    for (HWND *entry = list.get(); *entry != nullptr && answer; ++entry) {
        if (IsAlive(*entry))
            answer = CallWithoutLock(proc, *entry, lParam);
    }
    return answer;
}

// One level of EnumChildWindows: each child, then its own children.
// Returns false once an answer was 0 (or a snapshot failed), which ends
// the walk at every level; *answer holds the last answer.
bool EnumChildLevel(HWND hWnd, WNDENUMPROC proc, LPARAM lParam, BOOL *answer)
{
    vorlan::WindowListSnapshot list(GetWindowChildList(hWnd));
    if (!list) {
        *answer = FALSE;
        return false;
    }
    for (HWND *entry = list.get(); *entry != nullptr; ++entry) {
        if (!IsAlive(*entry))
            continue;
        *answer = CallWithoutLock(proc, *entry, lParam);
        if (!*answer)
            return false;
        if (IsAlive(*entry) && !EnumChildLevel(*entry, proc, lParam, answer))
            return false;
    }
    return true;
}

} // namespace

BOOL WINAPI EnumThreadWindows(DWORD dwThreadId, WNDENUMPROC lpfn, LPARAM lParam)
{
    if (lpfn == nullptr)
        return RefuseNullProc();
    vorlan::GtkCriticalSection lock;
    return EnumTopLevelWindows(dwThreadId, lpfn, lParam);
}

BOOL WINAPI EnumWindows(WNDENUMPROC lpEnumFunc, LPARAM lParam)
{
    return EnumThreadWindows(0, lpEnumFunc, lParam);
}

BOOL WINAPI EnumChildWindows(HWND hWndParent, WNDENUMPROC lpEnumFunc, LPARAM lParam)
{
    if (hWndParent == nullptr || hWndParent == g_hWndDesktop)
        return EnumWindows(lpEnumFunc, lParam);
    if (lpEnumFunc == nullptr)
        return RefuseNullProc();
    vorlan::GtkCriticalSection lock;
    BOOL answer = TRUE;
    EnumChildLevel(hWndParent, lpEnumFunc, lParam, &answer);
    return answer;
}
