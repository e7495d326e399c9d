// Keys as characters: what TranslateMessage needs of the keyboard layer.
#ifndef VORLAN_GTK_VORLKEYBOARD_H
#define VORLAN_GTK_VORLKEYBOARD_H

#include <windows.h>

// The character a virtual key stands for, given the calling thread's
// Control, Shift and Caps Lock state as of its last removed input record;
// 0 when the key makes no character.  A value with the low byte 0xFF
// carries a GDK keyval in its upper bits.
UINT VKToUnicode(UINT vk);

#endif // VORLAN_GTK_VORLKEYBOARD_H
