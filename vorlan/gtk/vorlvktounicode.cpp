// From a virtual key to the character that WM_CHAR carries.  Letters,
// digits and the numeric keypad follow the US layout whatever the
// keyboard; every other key that makes a character reaches the queue as a
// keyval (low byte 0xFF) and is converted by GDK.
#include "gtk/vorlkeyboard.h"

#include <gdk/gdk.h>

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
