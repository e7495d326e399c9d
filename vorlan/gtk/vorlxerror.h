// A scope that catches X errors.
//
// Every X call that may touch a window of another client, or a window that
// may have gone, runs inside a TemporaryXErrorHandler: while it lives, X
// errors are stored in error_code instead of ending the process.  After an
// XSync (the destructor makes one) the code reads error_code; 0 means no
// error.  Scopes nest: each one restores the handler it found.
#ifndef VORLAN_GTK_VORLXERROR_H
#define VORLAN_GTK_VORLXERROR_H

#include <windows.h>

#include "vorlinternal.h"

#include <X11/Xlib.h>

namespace vorlan {

class VORLAN_INTERNAL TemporaryXErrorHandler {
public:
    TemporaryXErrorHandler();
    ~TemporaryXErrorHandler();
    TemporaryXErrorHandler(const TemporaryXErrorHandler &) = delete;
    TemporaryXErrorHandler &operator=(const TemporaryXErrorHandler &) = delete;

    // The code of the last X error caught, 0 if none since the innermost
    // scope opened.
    static BYTE error_code;

private:
    static int RecordError(Display *display, XErrorEvent *error);

    XErrorHandler m_previousHandler;
};

} // namespace vorlan

#endif // VORLAN_GTK_VORLXERROR_H
