// Bitmap objects made inside the library.
#ifndef VORLAN_GDI_VORLBITMAPOBJECT_H
#define VORLAN_GDI_VORLBITMAPOBJECT_H

#include <windows.h>

namespace vorlan {

// A new plain bitmap with the size, planes and depth of `hbm` and a copy
// of its bits, which the caller owns; 0 when `hbm` is no live bitmap or
// memory runs out.  Pixels that live only in the source's pixmap are not
// copied.  The caller holds the toolkit lock.
HBITMAP bitmapCopy(HBITMAP hbm);

} // namespace vorlan

#endif // VORLAN_GDI_VORLBITMAPOBJECT_H
