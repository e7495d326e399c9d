// X error handling: the scoped handler that records errors, and the handler
// that stops a synchronised process at its first X error.
#include "gtk/vorlxerror.h"

#include "gtk/vorlglobals.h"
#include "gtk/vorlgtklock.h"

#include <gdk/gdkx.h>

#include <cstdio>
#include <cstdlib>
#include <unistd.h>

namespace vorlan {

BYTE TemporaryXErrorHandler::error_code = 0;

TemporaryXErrorHandler::TemporaryXErrorHandler()
{
    GtkCriticalSection lock;
    error_code = 0;
    m_previousHandler = XSetErrorHandler(&TemporaryXErrorHandler::RecordError);
}

TemporaryXErrorHandler::~TemporaryXErrorHandler()
{
    GtkCriticalSection lock;
    XSync(gdk_x11_get_default_xdisplay(), False);
    XSetErrorHandler(m_previousHandler);
}

int TemporaryXErrorHandler::RecordError(Display *, XErrorEvent *error)
{
    error_code = error->error_code;
    return error->error_code;
}

} // namespace vorlan

// Installed under XSynchronize, where each X call waits for its reply, so the
// stack printed here is the one of the failing call.  The process waits for
// a debugger or a kill.
int VorlXErrorHandler(Display *display, XErrorEvent *error)
{
    OSWalkStack(0, nullptr, nullptr);
    char text[255];
    XGetErrorText(display, error->error_code, text, sizeof text);
    printf("(pid %d ) X lib error (%d:%s) occurs, waiting for debug or kill...\n",
           static_cast<int>(getpid()), error->error_code, text);
    fflush(stdout);
    if (error->error_code != 0) {
        if (getenv("XSynchronize") != nullptr)
            pause();
        exit(-1);
    }
    return 0;
}
