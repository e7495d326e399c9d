// Process-wide values that start-up fills in.
#include "gtk/vorlglobals.h"

namespace vorlan {

Atom g_wm_take_focus = 0;
Atom g_wm_delete_window = 0;
Atom g_xembed_msg_type = 0;
XErrorHandler xErrorHandler = nullptr;

} // namespace vorlan

HWND g_hWndDesktop = nullptr;
