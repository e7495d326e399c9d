// Region objects inside the library.  An HRGN is a logical GDI object whose
// screen slot holds a GdkRegion in device coordinates; every region call
// works on that GdkRegion.  The caller of anything here holds the toolkit
// lock.
#ifndef VORLAN_GDI_VORLREGION_H
#define VORLAN_GDI_VORLREGION_H

#include <windows.h>

#include <gdk/gdk.h>

// NULLREGION for no rectangles, SIMPLEREGION for one, COMPLEXREGION for
// more; ERROR when the handle holds no GdkRegion.
int checkRegionType(HRGN hrgn);

namespace vorlan {

// NULLREGION, SIMPLEREGION or COMPLEXREGION by the rectangles of an area;
// ERROR for no area.
int RegionAreaType(GdkRegion *area);

// A new region object holding a copy of `region`; null for a null region or
// when memory runs out.
HRGN createRgn(const GdkRegion *region);

// A new region object that takes over `region` (destroyed on failure).
HRGN AdoptGdkRegion(GdkRegion *region);

// Puts `region` into the object in place of its present one, which is
// destroyed.  FALSE (and `region` destroyed) when the handle is no region.
BOOL ReplaceGdkRegion(HRGN hrgn, GdkRegion *region);

} // namespace vorlan

// ----------------------------------------------------------------------------
// Conversions between Win32 rectangles (right and bottom exclusive) and
// GdkRectangles (origin and size).  Sizes that do not fit an int are cut
// to the largest int.

namespace vorlan {

// Origin at left and top as given, width right - left and height
// bottom - top, negative for an inverted rectangle.
GdkRectangle GdkRectFromRect(const RECT &rect);
// Origin at left and top as given, size made positive.
GdkRectangle GdkRectWithAbsoluteSize(const RECT &rect);
// Origin at the smaller coordinates, size made positive: the same area
// whichever way round the corners are given.
GdkRectangle NormalizedGdkRect(const RECT &rect);
// Right = x + width, bottom = y + height.
RECT RectFromGdkRect(const GdkRectangle &rect);

} // namespace vorlan

#endif // VORLAN_GDI_VORLREGION_H
