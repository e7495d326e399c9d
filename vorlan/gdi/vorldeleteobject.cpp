// DeleteObject: the application gives up its reference.  An object still
// selected into a context or held by a saved state lives on until those
// let it go.
#include "gdi/vorlgdiobject.h"
#include "gtk/vorlgtklock.h"

BOOL WINAPI DeleteObject(HGDIOBJ ho)
{
    vorlan::GtkCriticalSection lock;
    return ReleaseRef(ho, vorlan::kObjectRef) != -1;
}
