// TranslateMessage: a key press that makes a character posts WM_CHAR (or
// WM_SYSCHAR for a system key) behind what is queued.  The character is
// always a UTF-16 unit, whichever form the application uses.
#include "gtk/vorlkeyboard.h"

namespace {

bool IsKeyMessage(UINT message)
{
    return message == WM_KEYDOWN || message == WM_KEYUP || message == WM_SYSKEYDOWN || message == WM_SYSKEYUP;
}

} // namespace

BOOL WINAPI TranslateMessage(const MSG *lpMsg)
{
    if (lpMsg == nullptr || !IsKeyMessage(lpMsg->message))
        return FALSE;
    // The input method has this key and makes the characters itself.
    if (lpMsg->wParam == VK_PROCESSKEY)
        return TRUE;
    const WPARAM ch = VKToUnicode(static_cast<UINT>(lpMsg->wParam)) & 0xFFFF;
    if (ch == 0)
        return TRUE;
    if (lpMsg->message == WM_KEYDOWN)
        PostMessageW(lpMsg->hwnd, WM_CHAR, ch, lpMsg->lParam);
    else if (lpMsg->message == WM_SYSKEYDOWN)
        PostMessageW(lpMsg->hwnd, WM_SYSCHAR, ch, lpMsg->lParam);
    return TRUE;
}
