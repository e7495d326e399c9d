// Entry points of the built-in classes' procedures.  The controls have no
// behaviour of their own yet: each core passes the message on to the
// default window procedure of the form it was called in, so a control is
// for now a plain window that keeps its text and answers the default
// messages.
#include "vorlcontrolprocs.h"

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

// The dialog class's procedure: dialog boxes are plain windows until the
// dialog manager exists.
LRESULT WINAPI DefDlgProcA(HWND hDlg, UINT message, WPARAM wParam, LPARAM lParam)
{
    return ControlDefaultProcAW(hDlg, message, wParam, lParam, FALSE);
}

LRESULT WINAPI DefDlgProcW(HWND hDlg, UINT message, WPARAM wParam, LPARAM lParam)
{
    return ControlDefaultProcAW(hDlg, message, wParam, lParam, TRUE);
}
