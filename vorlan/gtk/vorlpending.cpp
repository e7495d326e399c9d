// Minimal behaviour of the subsystems that the event pump, start-up and the
// window objects call into but that are not there yet (declared in
// vorlpumpdeps.h): the default procedure, lifecycle, activation,
// frame, menus, device contexts, input, painting, clipboard, foreign
// windows and drag and drop.
//
// Nothing is foreground or captured, events meant for windows are taken
// and dropped, and the drag filters let everything pass.  Each definition
// goes away when its subsystem provides the real one.
#include "gtk/vorlpumpdeps.h"

#include "gtk/vorlgtklock.h"
#include "gtk/vorlpostmessage.h"
#include "gtk/vorltestwindows.h"
#include "gtk/vorlthread.h"
#include "gtk/vorlglobals.h"
#include "gtk/vorlwindow.h"
#include "vorlwindowclass.h"

// ---- Start-up --------------------------------------------------------------

namespace vorlan {
void InitializeClipboard() {}
} // namespace vorlan

// ---- Window objects ---------------------------------------------------------

HWND WINAPI GetForegroundWindow(void) { return nullptr; }

HWND WINAPI GetCapture(void) { return nullptr; }

BOOL WINAPI IsWindowEnabled(HWND) { return FALSE; }

// ---- Painting ---------------------------------------------------------------

void ExposeWindows(HWND, const RECT *) {}

void ExposeWindows(GdkRectangle *) {}

// ---- Input and geometry -----------------------------------------------------

void TranslateMouseEvent(GdkEvent *) {}

void TranslateKeyEvent(GdkEvent *) {}

void HandleGdkConfigureEvent(HWND, GdkEventConfigure *) {}


// ---- Drag and drop ----------------------------------------------------------

GdkFilterReturn vorl_drag_x_filter(GdkXEvent *, GdkEvent *, gpointer) { return GDK_FILTER_CONTINUE; }

int vorl_drag_event_filter(GdkEvent *, gpointer) { return 0; }

// ---- Message queues -----------------------------------------------------------
//
// Handles that the window table does not know are asked of the stand-in
// windows, and a send within the thread to one calls its procedure.

namespace vorlan {

DWORD StandInWindowThreadId(HWND hWnd) { return testing::TestWindowThread(hWnd); }

bool StandInWindowExists(HWND hWnd) { return testing::IsTestWindow(hWnd); }

bool StandInWindowIsDescendant(HWND parent, HWND hWnd) { return testing::IsTestWindowDescendant(parent, hWnd); }

bool TakeStandInNcPaintPending(HWND hWnd) { return testing::TakeTestWindowNcPaintPending(hWnd); }

bool StandInHasUpdateRegion(HWND hWnd) { return testing::TestWindowHasUpdateRegion(hWnd); }

} // namespace vorlan

namespace vorlan {

LRESULT SendToStandInWindow(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    WNDPROC procedure = testing::TestWindowProcedure(hWnd);
    if (procedure == nullptr)
        return 0;
    GtkLockReleaser unlocked;
    return procedure(hWnd, message, wParam, lParam);
}

} // namespace vorlan

// Keys go to the focus window, else to the active window of the thread.
BOOL ProcessKeyMessage(_InputMSG *record)
{
    const ThreadData *data = ThreadData::GetCurrentThreadData();
    record->hwnd = data->hWndFocus ? data->hWndFocus : data->hWndActive;
    return record->hwnd != nullptr;
}

// The pointer goes to the capture window, else to the active window; the
// screen point stands for the client point.
BOOL ProcessMouseMessage(_InputMSG *record)
{
    const ThreadData *data = ThreadData::GetCurrentThreadData();
    record->hwnd = data->hWndCapture ? data->hWndCapture : data->hWndActive;
    if (record->hwnd == nullptr)
        return FALSE;
    if (record->message != WM_MOUSEWHEEL)
        record->wParam = 0;
    record->lParam = MAKELPARAM(record->pt.x, record->pt.y);
    return TRUE;
}

void DestroyStandInWindowsOfThread(DWORD tid) { vorlan::testing::DestroyTestWindowsOfThread(tid); }

BOOL WINAPI GetCursorPos(LPPOINT lpPoint)
{
    if (lpPoint == nullptr)
        return FALSE;
    lpPoint->x = 0;
    lpPoint->y = 0;
    return TRUE;
}

// ---- Window procedures ---------------------------------------------------------

// Placeholder until the default window procedure exists.
LRESULT WINAPI DefWindowProcA(HWND, UINT, WPARAM, LPARAM) { return 0; }

// Placeholder until the default window procedure exists.
LRESULT WINAPI DefWindowProcW(HWND, UINT, WPARAM, LPARAM) { return 0; }

// ---- Window lifecycle and activation -------------------------------------------
//
// Before the lifecycle layer an owner is only recorded; no X transient
// hint is set.

BOOL WINAPI IsWindow(HWND hWnd)
{
    if (vorlan::getWindow(hWnd) != nullptr)
        return TRUE;
    SetLastError(ERROR_INVALID_WINDOW_HANDLE);
    return FALSE;
}

HWND WINAPI GetAncestor(HWND hwnd, UINT gaFlags)
{
    vorlan::Window *pWnd = vorlan::getWindow(hwnd);
    if (pWnd == nullptr) {
        SetLastError(ERROR_INVALID_WINDOW_HANDLE);
        return nullptr;
    }
    if (gaFlags == GA_PARENT)
        return vorlan::HandleOf(pWnd->pWndParent);
    if (gaFlags != GA_ROOT && gaFlags != GA_ROOTOWNER) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    if (pWnd->pWndParent == nullptr)
        return nullptr;
    while (pWnd->pWndParent != nullptr && pWnd->pWndParent->hWnd != g_hWndDesktop)
        pWnd = pWnd->pWndParent;
    return pWnd->hWnd;
}

HWND SetOwner(HWND hWnd, HWND hWndOwner)
{
    vorlan::Window *pWnd = vorlan::getWindow(hWnd);
    if (pWnd == nullptr) {
        SetLastError(ERROR_INVALID_WINDOW_HANDLE);
        return nullptr;
    }
    vorlan::Window *owner = vorlan::getWindow(hWndOwner);
    if (hWndOwner != nullptr && owner == nullptr)
        return nullptr;
    HWND old = vorlan::HandleOf(pWnd->pWndOwner);
    pWnd->pWndOwner = owner;
    return old;
}

void SetForegroundThreadId(DWORD) {}

BOOL WINAPI SetWindowPos(HWND, HWND, int, int, int, int, UINT) { return FALSE; }

BOOL WINAPI SetForegroundWindow(HWND) { return FALSE; }

// ---- Frame and menus -------------------------------------------------------------
//
// No dialog has been run through DialogBoxParamA yet, so dialogs are never
// decorated.  There are no menus.

BOOL IsWindowDecorated(HWND hWnd)
{
    constexpr ATOM kDialogClassAtom = 32770;
    vorlan::Window *pWnd = vorlan::getWindow(hWnd);
    if (pWnd == nullptr)
        return FALSE;
    if ((pWnd->dwStyle & WS_CHILD) != 0 && pWnd->pWndParent != nullptr)
        return FALSE;
    if ((pWnd->dwStyle & WS_CAPTION) != WS_CAPTION)
        return FALSE;
    return pWnd->pClass->atom != kDialogClassAtom;
}

BOOL WINAPI IsMenu(HMENU) { return FALSE; }

void Menu_Release(HMENU, BOOL) {}

void Menu_AddRef(HMENU) {}

void MenuBar_UpdateLayout(HWND) {}

// ---- Device contexts ---------------------------------------------------------------

BOOL GdiSetDeleteDCProc(HDC, DeleteDCProc, HWND) { return FALSE; }

BOOL WINAPI DeleteDC(HDC) { return FALSE; }

void _SetDCSubWindowMode(HDC, BOOL) {}

// No metafile context records objects yet.
BOOL DeleteObjectFromMetaFile(HDC, HGDIOBJ) { return FALSE; }

// ---- Foreign windows -----------------------------------------------------------------

BOOL IsHSRWindow(Display *, XID) { return FALSE; }

void ActivateForeignWindow(Display *, XID) {}

HWND CreateForeignWindow(XID, DWORD) { return nullptr; }
