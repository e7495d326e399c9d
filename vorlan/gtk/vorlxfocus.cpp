// Giving the X input focus to a window without a detour through the window
// manager.
#include "gtk/vorlxwindow.h"

#include "gtk/vorlpumpdeps.h"
#include "gtk/vorlxerror.h"

namespace {

XID CurrentInputFocus(Display *display)
{
    ::Window focus = None;
    int revertTo = 0;
    XGetInputFocus(display, &focus, &revertTo);
    return focus;
}

// A foreign client keeps the focus in a window of its own below the one
// that is known here.
bool HasFocusAlready(Display *display, XID window, BOOL foreign, XID focus)
{
    if (!foreign)
        return focus == window;
    if (focus == None || focus == PointerRoot)
        return false;
    return GetParentXWindow(display, focus) == window;
}

} // namespace

BOOL SetXInputFocusWithoutEvents(Display *display, XID window, Time time, BOOL foreign)
{
    if (HasFocusAlready(display, window, foreign, CurrentInputFocus(display)))
        return TRUE;
    vorlan::TemporaryXErrorHandler trap;
    if (foreign)
        ActivateForeignWindow(display, window);
    else
        XSetInputFocus(display, window, RevertToParent, time);
    XSync(display, False);
    return vorlan::TemporaryXErrorHandler::error_code == 0;
}
