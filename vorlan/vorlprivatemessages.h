// Private window messages of the library.  They lie just below WM_USER and
// reach DefWindowProc, which handles them.
#ifndef VORLAN_VORLPRIVATEMESSAGES_H
#define VORLAN_VORLPRIVATEMESSAGES_H

// A posted WM_IME_COMPOSITION carried a result string; same wParam and
// lParam.
#define WM_PRIVATE_IME_RESULT 1014

// The foreground moved away from the window; lParam: the new foreground
// window, or 0.
#define WM_PRIVATE_LOST_FOREGROUND 1020

#endif // VORLAN_VORLPRIVATEMESSAGES_H
