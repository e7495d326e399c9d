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

#include "gdi/screen/vorlscreendc.h"

#include "gtk/vorlgtklock.h"
#include "gtk/vorlmessage.h"
#include "gtk/vorltestwindows.h"
#include "gtk/vorlthread.h"
#include "gtk/vorlglobals.h"
#include "gtk/vorlwindow.h"
#include "gtk/vorlxwindow.h"
#include "vorlwindowclass.h"

// ---- Start-up --------------------------------------------------------------

namespace vorlan {
void InitializeClipboard() {}
} // namespace vorlan

// ---- Window objects ---------------------------------------------------------

HWND WINAPI GetForegroundWindow(void) { return nullptr; }

HWND WINAPI GetCapture(void) { return nullptr; }

// ---- Painting ---------------------------------------------------------------

void ExposeWindows(GdkRectangle *) {}

// ---- Input and geometry -----------------------------------------------------

void TranslateMouseEvent(GdkEvent *) {}

void TranslateKeyEvent(GdkEvent *) {}



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

// ---- Window lifecycle and activation -------------------------------------------
//
// No window is ever active or foreground yet.

void SetForegroundThreadId(DWORD) {}

BOOL WINAPI SetForegroundWindow(HWND) { return FALSE; }

HWND WINAPI SetActiveWindow(HWND) { return nullptr; }

HWND SetActiveWindowCore(HWND, BOOL) { return nullptr; }

HWND WINAPI SetFocus(HWND) { return nullptr; }

BOOL WINAPI ReleaseCapture(void) { return FALSE; }

void EnsureFocusAndForegroundConsistent() {}

// ---- Painting -------------------------------------------------------------------
//
// The window manager draws the frames of decorated windows; the library's
// own frames are not drawn yet.

void DefNCPaint(HWND, HRGN) {}

// ---- Cursors, caret and input method ----------------------------------------------

BOOL WINAPI HideCaret(HWND) { return FALSE; }

BOOL WINAPI ShowCaret(HWND) { return FALSE; }

HCURSOR WINAPI LoadCursorA(HINSTANCE, LPCSTR) { return nullptr; }

HCURSOR WINAPI LoadCursorW(HINSTANCE, LPCWSTR) { return nullptr; }

HCURSOR WINAPI SetCursor(HCURSOR) { return nullptr; }

BOOL WINAPI DestroyCaret(void) { return FALSE; }

HWND WINAPI ImmGetDefaultIMEWnd(HWND) { return nullptr; }

void DestroyIMEWindow(HWND) {}

void IMFocusOut(HWND) {}

void RequestXEmbedFocus(HWND) {}

// ---- Frame and menus -------------------------------------------------------------
//
// There are no menus: no window has a menu bar and no menu can be loaded.

BOOL WINAPI IsMenu(HMENU) { return FALSE; }

HMENU WINAPI GetMenu(HWND) { return nullptr; }

HMENU WINAPI LoadMenuW(HINSTANCE, LPCWSTR)
{
    SetLastError(ERROR_RESOURCE_NAME_NOT_FOUND);
    return nullptr;
}

void Menu_Release(HMENU, BOOL) {}

void Menu_AddRef(HMENU) {}

void MenuBar_UpdateLayout(HWND) {}

int MenuBar_CalcLayout(HWND, int) { return 0; }

int MenuBar_Height(HWND) { return 0; }

int MenuBar_HitTest(HWND, POINT) { return -1; }

BOOL MenuBar_Track(HWND, int, BOOL) { return FALSE; }

int Menu_FindAccelItem(HMENU, WCHAR) { return -1; }

HWND GetMenuOwner() { return nullptr; }

void ExitMenu() {}

void DefNCMouse(HWND, UINT, WPARAM, LPARAM) {}

void DefSizeCommand(HWND, int, POINT) {}

// ---- Device contexts ---------------------------------------------------------------

// No metafile context records objects yet.
BOOL DeleteObjectFromMetaFile(HDC, HGDIOBJ) { return FALSE; }

// ---- Foreign windows -----------------------------------------------------------------

BOOL IsHSRWindow(Display *, XID) { return FALSE; }

void ActivateForeignWindow(Display *, XID) {}

HWND CreateForeignWindow(XID, DWORD) { return nullptr; }
