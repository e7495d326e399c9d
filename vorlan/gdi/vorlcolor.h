// Palettes and colours inside the library: how a colour value becomes a
// colour of a GDK colormap.
#ifndef VORLAN_GDI_VORLCOLOR_H
#define VORLAN_GDI_VORLCOLOR_H

#include <windows.h>

#include <gdk/gdk.h>

namespace vorlan {

// Allocates the nearest colour to the low 24 bits of `color` in `colormap`
// (red in the low byte) and fills `out` with its pixel and with the red,
// green and blue the colormap really gives for that pixel.
void getGdkColor(GdkColor *out, COLORREF color, GdkColormap *colormap);

} // namespace vorlan

#endif // VORLAN_GDI_VORLCOLOR_H
