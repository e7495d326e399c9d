// Conversions between Win32 rectangles (right and bottom exclusive) and
// GdkRectangles (origin and size).  Sizes that do not fit an int are cut
// to the largest int.
#ifndef VORLAN_GDI_VORLREGIONRECT_H
#define VORLAN_GDI_VORLREGIONRECT_H

#include <windows.h>

#include "vorlinternal.h"

#include <gdk/gdk.h>

namespace vorlan {

// Origin at left and top as given, width right - left and height
// bottom - top, negative for an inverted rectangle.
VORLAN_INTERNAL GdkRectangle GdkRectFromRect(const RECT &rect);
// Origin at left and top as given, size made positive.
VORLAN_INTERNAL GdkRectangle GdkRectWithAbsoluteSize(const RECT &rect);
// Origin at the smaller coordinates, size made positive: the same area
// whichever way round the corners are given.
VORLAN_INTERNAL GdkRectangle NormalizedGdkRect(const RECT &rect);
// Right = x + width, bottom = y + height.
VORLAN_INTERNAL RECT RectFromGdkRect(const GdkRectangle &rect);

} // namespace vorlan

#endif // VORLAN_GDI_VORLREGIONRECT_H
