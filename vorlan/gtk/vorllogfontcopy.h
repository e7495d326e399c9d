// Narrow copies of wide LOGFONT records.
#ifndef VORLAN_GTK_VORLLOGFONTCOPY_H
#define VORLAN_GTK_VORLLOGFONTCOPY_H

#include <windows.h>

#include "vorlinternal.h"

// Copies a wide LOGFONT to its narrow form: the fields before the face
// name as they are, the face name through the process code page.  TRUE
// when the face name converted.
VORLAN_INTERNAL BOOL CopyLOGFONT_W2A(const LOGFONTW *w, LOGFONTA *a);

#endif // VORLAN_GTK_VORLLOGFONTCOPY_H
