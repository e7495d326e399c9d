// The mouse: capture of the pointer by one window of a thread.
//
// Capture is a real X pointer grab on the window's GDK window, so pointer
// events reach that window wherever the pointer goes; while a window holds
// it, the window manager's close function of the window is withdrawn.
#include <windows.h>

#include "gtk/vorlgtklock.h"
#include "gtk/vorlthread.h"
#include "gtk/vorlwindow.h"
#include "gtk/vorlwindowpos.h"
#include "gtk/vorlxwindow.h"

#include <gdk/gdk.h>

namespace {

// Motion, button motion, button 1 motion, presses and releases.
constexpr GdkEventMask kCaptureEvents = static_cast<GdkEventMask>(
    GDK_POINTER_MOTION_MASK | GDK_BUTTON_MOTION_MASK | GDK_BUTTON1_MOTION_MASK | GDK_BUTTON_PRESS_MASK |
    GDK_BUTTON_RELEASE_MASK);

bool IsWindowOfThisThread(HWND hWnd)
{
    const vorlan::Window *pWnd = vorlan::getWindow(hWnd);
    return pWnd != nullptr && pWnd->dwThreadId == GetCurrentThreadId();
}

} // namespace

HWND WINAPI SetCapture(HWND hWnd)
{
    vorlan::GtkCriticalSection lock;
    if (!IsWindowOfThisThread(hWnd))
        return nullptr;
    ThreadData *data = ThreadData::GetCurrentThreadData();
    const HWND previous = data->hWndCapture;
    if (previous == hWnd)
        return previous;
    if (previous != nullptr)
        gdk_pointer_ungrab(GDK_CURRENT_TIME);
    GdkWindow *window = GetGdkWindow(hWnd);
    if (window == nullptr ||
        gdk_pointer_grab(window, FALSE, kCaptureEvents, nullptr, nullptr, GDK_CURRENT_TIME) != GDK_GRAB_SUCCESS)
        return nullptr;
    data->hWndCapture = hWnd;
    if (previous != nullptr)
        SendMessageA(previous, WM_CAPTURECHANGED, 0, reinterpret_cast<LPARAM>(hWnd));
    EnableWindowFuncs(hWnd, FALSE);
    return previous;
}

BOOL WINAPI ReleaseCapture(void)
{
    vorlan::GtkCriticalSection lock;
    ThreadData *data = ThreadData::GetCurrentThreadData();
    const HWND captured = data->hWndCapture;
    if (captured == nullptr)
        return FALSE;
    EnableWindowFuncs(captured, TRUE);
    SendMessageA(captured, WM_CAPTURECHANGED, 0, 0);
    data->hWndCapture = nullptr;
    gdk_pointer_ungrab(GDK_CURRENT_TIME);
    return TRUE;
}

HWND WINAPI GetCapture(void)
{
    vorlan::GtkCriticalSection lock;
    return ThreadData::GetCurrentThreadData()->hWndCapture;
}
