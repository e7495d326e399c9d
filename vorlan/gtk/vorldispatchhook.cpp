// The hooks that see every message a retrieval delivers: keyboard messages
// go to WH_KEYBOARD, mouse button and move messages to WH_MOUSE, all others
// to WH_GETMESSAGE.  The chains themselves live in the host base library.
#include "gtk/vorlpumpdeps.h"

#include "gtk/vorlgtklock.h"

#include <brano.h>

namespace {

bool IsKeyboardHookMessage(UINT message)
{
    return message == WM_KEYDOWN || message == WM_KEYUP || message == WM_SYSKEYDOWN || message == WM_SYSKEYUP;
}

// WM_MOUSEMOVE up to WM_MBUTTONDBLCLK; the wheel is not among them.
bool IsMouseHookMessage(UINT message)
{
    return message >= WM_MOUSEMOVE && message <= WM_MBUTTONDBLCLK;
}

} // namespace

// The hook procedures are the application's code and run without the lock.
BOOL DispatchHook(MSG *msg, BOOL remove, BOOL wide)
{
    if (msg == nullptr)
        return FALSE;
    const int code = remove ? HC_ACTION : HC_NOREMOVE;
    vorlan::GtkLockReleaser unlocked;
    if (IsKeyboardHookMessage(msg->message))
        return CallWindowsHook(WH_KEYBOARD, code, msg->wParam, msg->lParam, wide) != 0;
    if (IsMouseHookMessage(msg->message))
        return CallWindowsHook(WH_MOUSE, code, msg->wParam, msg->lParam, wide) != 0;
    return CallWindowsHook(WH_GETMESSAGE, code, msg->wParam, reinterpret_cast<LPARAM>(msg), wide) != 0;
}
