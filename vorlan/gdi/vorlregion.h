// Region objects inside the library.  An HRGN is a logical GDI object whose
// screen slot holds a GdkRegion in device coordinates; every region call
// works on that GdkRegion.  The caller of anything here holds the toolkit
// lock.
#ifndef VORLAN_GDI_VORLREGION_H
#define VORLAN_GDI_VORLREGION_H

#include <windows.h>

#include "vorlinternal.h"

#include <gdk/gdk.h>

// NULLREGION for no rectangles, SIMPLEREGION for one, COMPLEXREGION for
// more; ERROR when the handle holds no GdkRegion.
VORLAN_INTERNAL int checkRegionType(HRGN hrgn);

namespace vorlan {

// NULLREGION, SIMPLEREGION or COMPLEXREGION by the rectangles of an area;
// ERROR for no area.
VORLAN_INTERNAL int RegionAreaType(GdkRegion *area);

// A new region object holding a copy of `region`; null for a null region or
// when memory runs out.
VORLAN_INTERNAL HRGN createRgn(const GdkRegion *region);

// A new region object that takes over `region` (destroyed on failure).
VORLAN_INTERNAL HRGN AdoptGdkRegion(GdkRegion *region);

// Puts `region` into the object in place of its present one, which is
// destroyed.  FALSE (and `region` destroyed) when the handle is no region.
VORLAN_INTERNAL BOOL ReplaceGdkRegion(HRGN hrgn, GdkRegion *region);

} // namespace vorlan

#endif // VORLAN_GDI_VORLREGION_H
