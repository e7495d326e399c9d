// Converting the MSG handed to a message hook between its ANSI and wide
// forms, for hooks installed with the other form of SetWindowsHookEx.
#ifndef BRANO_HOOK_MESSAGE_CONVERSION_H
#define BRANO_HOOK_MESSAGE_CONVERSION_H

#include <windows.h>

namespace brano {

// Whether the message carries a character in wParam whose encoding
// depends on the form (WM_CHAR, WM_DEADCHAR, WM_SYSCHAR, WM_SYSDEADCHAR).
bool IsCharacterMessage(UINT message);

// An ANSI character wParam (the bytes of one character in the ANSI code
// page, first byte lowest) as a UTF-16 unit, and back.  A character that
// does not convert is passed through unchanged.
WPARAM AnsiCharToWide(WPARAM ansi);
WPARAM WideCharToAnsi(WPARAM wide);

} // namespace brano

#endif
