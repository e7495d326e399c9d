// System values inside the library: the desktop's work area and narrow
// copies of wide LOGFONT records.
#ifndef VORLAN_GTK_VORLSYSPARAMS_H
#define VORLAN_GTK_VORLSYSPARAMS_H

#include <windows.h>

// ----------------------------------------------------------------------------
// The desktop's work area: what the window manager publishes as
// _NET_WORKAREA, or the whole screen without one.

namespace vorlan {

// The work area of the first desktop as a rectangle.  The caller holds the
// toolkit lock.
RECT GetDesktopWorkArea();

} // namespace vorlan

// ----------------------------------------------------------------------------
// Narrow copies of wide LOGFONT records.

// Copies a wide LOGFONT to its narrow form: the fields before the face
// name as they are, the face name through the process code page.  TRUE
// when the face name converted.
BOOL CopyLOGFONT_W2A(const LOGFONTW *w, LOGFONTA *a);

#endif // VORLAN_GTK_VORLSYSPARAMS_H
