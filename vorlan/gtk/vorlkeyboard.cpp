// The keyboard: each thread's view of key states, focus and active window,
// keys as characters, and TranslateMessage.
#include "gtk/vorlkeyboard.h"

#include "gtk/vorlgtklock.h"
#include "gtk/vorlthread.h"

#include <gdk/gdk.h>

// ----------------------------------------------------------------------------
// The calling thread's view of the keyboard: key states as of its last
// removed input record, its focus and its active window.

SHORT WINAPI GetKeyState(int nVirtKey)
{
    // Keys above 255 are keyvals in disguise and have no state.
    if (nVirtKey < 0 || nVirtKey > 255)
        return 0;
    vorlan::GtkCriticalSection lock;
    return ThreadData::GetCurrentThreadData()->keyState[nVirtKey];
}

HWND WINAPI GetFocus(void)
{
    vorlan::GtkCriticalSection lock;
    return ThreadData::GetCurrentThreadData()->hWndFocus;
}

HWND WINAPI GetActiveWindow(void)
{
    vorlan::GtkCriticalSection lock;
    return ThreadData::GetCurrentThreadData()->hWndActive;
}

// ----------------------------------------------------------------------------
// From a virtual key to the character that WM_CHAR carries.  Letters,
// digits and the numeric keypad follow the US layout whatever the
// keyboard; every other key that makes a character reaches the queue as a
// keyval (low byte 0xFF) and is converted by GDK.

namespace {

constexpr UINT kKeyvalMarker = 0xFF;

bool IsDown(int vk)
{
    return GetKeyState(vk) < 0;
}

// The character of a key pressed with Control: the control codes.
UINT ControlCharacter(UINT vk)
{
    if (vk >= 64 && vk <= 95)
        return vk - 64;
    if (vk == VK_BACK)
        return 0x7F;
    if (vk == VK_RETURN)
        return 0x0A;
    return 0;
}

UINT LetterCharacter(UINT vk)
{
    const bool shift = IsDown(VK_SHIFT);
    const bool capsLock = (GetKeyState(VK_CAPITAL) & 1) != 0;
    return shift != capsLock ? vk : vk + 32;
}

UINT DigitCharacter(UINT vk)
{
    static const char kShiftedDigits[] = ")!@#$%^&*(";
    if (!IsDown(VK_SHIFT))
        return vk;
    return static_cast<UCHAR>(kShiftedDigits[vk - '0']);
}

UINT PlainCharacter(UINT vk)
{
    if (vk >= 'A' && vk <= 'Z')
        return LetterCharacter(vk);
    if (vk >= '0' && vk <= '9')
        return DigitCharacter(vk);
    if (vk >= VK_NUMPAD0 && vk <= VK_NUMPAD9)
        return vk - 48;
    if (vk >= VK_MULTIPLY && vk <= VK_DIVIDE)
        return vk - 64;
    switch (vk) {
    case VK_CANCEL:
        return 0x1B;
    case VK_BACK:
    case VK_TAB:
    case VK_RETURN:
    case VK_ESCAPE:
    case VK_SPACE:
        return vk;
    default:
        return 0;
    }
}

} // namespace

UINT VKToUnicode(UINT vk)
{
    if ((vk & 0xFF) == kKeyvalMarker)
        return gdk_keyval_to_unicode(vk >> 8) & 0xFFFF;
    if (IsDown(VK_CONTROL))
        return ControlCharacter(vk);
    return PlainCharacter(vk);
}

// ----------------------------------------------------------------------------
// TranslateMessage: a key press that makes a character posts WM_CHAR (or
// WM_SYSCHAR for a system key) behind what is queued.  The character is
// always a UTF-16 unit, whichever form the application uses.

namespace {

// A key going down or up; the character messages are not translated again.
bool IsKeystroke(UINT message)
{
    return message == WM_KEYDOWN || message == WM_KEYUP || message == WM_SYSKEYDOWN || message == WM_SYSKEYUP;
}

} // namespace

BOOL WINAPI TranslateMessage(const MSG *lpMsg)
{
    if (lpMsg == nullptr || !IsKeystroke(lpMsg->message))
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
