// Placeholders for the areas that are not written yet (see vorlpending.h),
// and the exported calls of those areas that other parts already use.
//
// Nothing is foreground or captured, events meant for windows are taken
// and dropped, there are no menus, cursors or carets, and the drag filters
// let everything pass.  Each definition goes away when its area provides
// the real one.
#include "gtk/vorlpending.h"

#include "gtk/vorlthread.h"

// ---- Clipboard (vorlan/gtk/vorlclipboard) ----------------------------------

namespace vorlan {
void InitializeClipboard() {}
} // namespace vorlan

// ---- Keyboard, focus and activation (vorlan/gtk/vorlkeyboard) ---------------
//
// No window is ever active or foreground yet.

void SetForegroundThreadId(DWORD) {}

HWND SetActiveWindowCore(HWND, BOOL) { return nullptr; }

void EnsureFocusAndForegroundConsistent() {}

HWND WINAPI GetForegroundWindow(void) { return nullptr; }

BOOL WINAPI SetForegroundWindow(HWND) { return FALSE; }

HWND WINAPI SetActiveWindow(HWND) { return nullptr; }

HWND WINAPI SetFocus(HWND) { return nullptr; }

void TranslateKeyEvent(GdkEvent *) {}

// Keys go to the focus window, else to the active window of the thread.
BOOL ProcessKeyMessage(_InputMSG *record)
{
    const ThreadData *data = ThreadData::GetCurrentThreadData();
    record->hwnd = data->hWndFocus ? data->hWndFocus : data->hWndActive;
    return record->hwnd != nullptr;
}

// ---- Mouse and capture (vorlan/gtk/vorlmouse) --------------------------------

BOOL WINAPI GetCursorPos(LPPOINT lpPoint)
{
    if (lpPoint == nullptr)
        return FALSE;
    lpPoint->x = 0;
    lpPoint->y = 0;
    return TRUE;
}

void TranslateMouseEvent(GdkEvent *) {}

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

// ---- Cursors and caret (vorlan/gtk/vorlcursor, vorlan/vorlcaret) ---------------

HCURSOR WINAPI LoadCursorA(HINSTANCE, LPCSTR) { return nullptr; }

HCURSOR WINAPI LoadCursorW(HINSTANCE, LPCWSTR) { return nullptr; }

HCURSOR WINAPI SetCursor(HCURSOR) { return nullptr; }

BOOL WINAPI HideCaret(HWND) { return FALSE; }

BOOL WINAPI ShowCaret(HWND) { return FALSE; }

BOOL WINAPI DestroyCaret(void) { return FALSE; }

// ---- Menus (vorlan/vorlmenu) --------------------------------------------------
//
// No window has a menu bar and no menu can be loaded.

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

void DoNCPaint(HWND, HDC) {}

// ---- Scroll bars (vorlan/vorlscrollbar) ------------------------------------------
//
// No scroll bar is painted or tracked yet; the frame still reserves their
// room.

void ScrollBar_Draw(HDC, ScrollBarInfo *, const RECT *, const RECT *) {}

void ScrollBar_MousePress(HWND, int, POINT) {}

// ---- Metafiles (vorlan/gdi/vorlmetafile) -------------------------------------------

// No metafile context records objects yet.
BOOL DeleteObjectFromMetaFile(HDC, HGDIOBJ) { return FALSE; }

// ---- Foreign windows and XEmbed (vorlan/gtk/vorlplug) ------------------------------

BOOL IsHSRWindow(Display *, XID) { return FALSE; }

void ActivateForeignWindow(Display *, XID) {}

HWND CreateForeignWindow(XID, DWORD) { return nullptr; }

void RequestXEmbedFocus(HWND) {}

// ---- Input method (vorlan/gtk/vorlimm) -----------------------------------------------

HWND WINAPI ImmGetDefaultIMEWnd(HWND) { return nullptr; }

void DestroyIMEWindow(HWND) {}

void IMFocusOut(HWND) {}

// ---- Painting of GTK dialogs (vorlan/gtk/vorlwindowpaint) ------------------------------

void ExposeWindows(GdkRectangle *) {}

// ---- Drag and drop (vorlan/gtk/vorldrag) -------------------------------------------------

GdkFilterReturn vorl_drag_x_filter(GdkXEvent *, GdkEvent *, gpointer) { return GDK_FILTER_CONTINUE; }

int vorl_drag_event_filter(GdkEvent *, gpointer) { return 0; }

// ---- Controls (vorlan/vorlbutton, vorlan/vorlstatic, vorlan/vorledit, ...) ---------------
//
// The controls have no behaviour of their own yet: each core passes the
// message on to the default window procedure of the form it was called in,
// so a control is for now a plain window that keeps its text and answers
// the default messages.

namespace {

LRESULT ControlDefaultProcAW(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam, BOOL wide)
{
    if (wide)
        return DefWindowProcW(hWnd, message, wParam, lParam);
    return DefWindowProcA(hWnd, message, wParam, lParam);
}

} // namespace

#define VORLAN_CONTROL_ENTRY_POINTS(name)                                                                   \
    LRESULT CALLBACK name##A(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam)                        \
    {                                                                                                       \
        return ControlDefaultProcAW(hWnd, message, wParam, lParam, FALSE);                                  \
    }                                                                                                       \
    LRESULT CALLBACK name##W(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam)                        \
    {                                                                                                       \
        return ControlDefaultProcAW(hWnd, message, wParam, lParam, TRUE);                                   \
    }

VORLAN_CONTROL_ENTRY_POINTS(StaticWindowProc)
VORLAN_CONTROL_ENTRY_POINTS(ButtonWindowProc)
VORLAN_CONTROL_ENTRY_POINTS(EditWindowProc)
VORLAN_CONTROL_ENTRY_POINTS(ListBoxWindowProc)
VORLAN_CONTROL_ENTRY_POINTS(ComboBoxWindowProc)
VORLAN_CONTROL_ENTRY_POINTS(ScrollBarWindowProc)
VORLAN_CONTROL_ENTRY_POINTS(MenuWindowProc)
VORLAN_CONTROL_ENTRY_POINTS(StatusBarWindowProc)

// ---- Dialog manager (vorlan/vorldialog) ------------------------------------------------------
//
// Dialog boxes are plain windows until the dialog manager exists.

LRESULT WINAPI DefDlgProcA(HWND hDlg, UINT message, WPARAM wParam, LPARAM lParam)
{
    return ControlDefaultProcAW(hDlg, message, wParam, lParam, FALSE);
}

LRESULT WINAPI DefDlgProcW(HWND hDlg, UINT message, WPARAM wParam, LPARAM lParam)
{
    return ControlDefaultProcAW(hDlg, message, wParam, lParam, TRUE);
}
