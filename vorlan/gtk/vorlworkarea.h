// The desktop's work area: what the window manager publishes as
// _NET_WORKAREA, or the whole screen without one.
#ifndef VORLAN_GTK_VORLWORKAREA_H
#define VORLAN_GTK_VORLWORKAREA_H

#include <windows.h>

#include "vorlinternal.h"

namespace vorlan {

// The work area of the first desktop as a rectangle.  The caller holds the
// toolkit lock.
VORLAN_INTERNAL RECT GetDesktopWorkArea();

} // namespace vorlan

#endif // VORLAN_GTK_VORLWORKAREA_H
