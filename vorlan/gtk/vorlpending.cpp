// Behaviour of a process without window objects, for the calls that the
// event pump and start-up make into the window, input, painting, clipboard
// and drag-and-drop subsystems (declared in vorlpumpdeps.h).
//
// No handle is valid here, nothing is foreground or captured, events meant
// for windows are taken and dropped, and the drag filters let everything
// pass.  Each definition goes away when its subsystem provides the real one.
#include "gtk/vorlpumpdeps.h"

// ---- Start-up --------------------------------------------------------------

void UserInitialize() {}

namespace vorlan {
void InitializeClipboard() {}
} // namespace vorlan

// ---- Window objects ---------------------------------------------------------

BOOL IsForeignWindow(HWND) { return FALSE; }

XID GetXWindow(HWND) { return 0; }

namespace vorlan {
bool IsForeignChildWindow(HWND) { return false; }
bool HasGtkWidget(HWND) { return false; }
void SetWindowObscured(HWND, bool) {}
} // namespace vorlan

HWND WINAPI GetForegroundWindow(void) { return nullptr; }

HWND WINAPI GetCapture(void) { return nullptr; }

BOOL WINAPI IsWindowEnabled(HWND) { return FALSE; }

BOOL WINAPI PostMessageW(HWND, UINT, WPARAM, LPARAM) { return FALSE; }

// ---- Painting ---------------------------------------------------------------

void ExposeWindows(HWND, const RECT *) {}

void ExposeWindows(GdkRectangle *) {}

// ---- Input and geometry -----------------------------------------------------

void TranslateMouseEvent(GdkEvent *) {}

void TranslateKeyEvent(GdkEvent *) {}

void HandleGdkConfigureEvent(HWND, GdkEventConfigure *) {}

void HandleGdkWindowStateEvent(HWND, GdkEventWindowState *) {}

// ---- Drag and drop ----------------------------------------------------------

GdkFilterReturn vorl_drag_x_filter(GdkXEvent *, GdkEvent *, gpointer) { return GDK_FILTER_CONTINUE; }

int vorl_drag_event_filter(GdkEvent *, gpointer) { return 0; }
