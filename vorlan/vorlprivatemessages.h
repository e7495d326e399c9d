// Private window messages of the library.  They lie just below WM_USER and
// reach DefWindowProc, which handles them.
#ifndef VORLAN_VORLPRIVATEMESSAGES_H
#define VORLAN_VORLPRIVATEMESSAGES_H

// A posted WM_IME_COMPOSITION carried a result string; same wParam and
// lParam.
#define WM_PRIVATE_IME_RESULT 1014

// XEmbed: the embedded client was activated (lParam: the window).
#define WM_PRIVATE_EMBED_FOCUS_SYNC 1015
// XEmbed: the embedder lost the focus (lParam: the window).
#define WM_PRIVATE_EMBED_DEACTIVATE 1016
// XEmbed: the embedder gave the focus (lParam: the window).
#define WM_PRIVATE_EMBED_TAKE_FOCUS 1017
// Check that focus and foreground agree (lParam: the window).
#define WM_PRIVATE_FOCUS_SYNC 1019

// The foreground moved away from the window; lParam: the new foreground
// window, or 0.
#define WM_PRIVATE_LOST_FOREGROUND 1020

// Activate the window on its own thread; wParam: whether to set the X
// focus, lParam: the previous foreground window.
#define WM_PRIVATE_SET_FOREGROUND 1021

// F1 was pressed: the default procedure turns it into WM_HELP.
#define WM_KEYF1 0x004D

#endif // VORLAN_VORLPRIVATEMESSAGES_H
