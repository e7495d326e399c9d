// Sizes and colours read from the theme's hidden widgets, for the system
// metrics and colours and for painting.  Each call takes the toolkit lock
// for its GTK work and reads the current style, so a theme change reaches
// every later call.
#ifndef VORLAN_GTK_VORLTHEMECOLORS_H
#define VORLAN_GTK_VORLTHEMECOLORS_H

#include <windows.h>

#include "vorlinternal.h"

#include <gtk/gtk.h>

// Style properties "slider_width", "trough_border", "stepper_size" and
// "min_slider_length" of the horizontal scroll bar; null pointers are
// skipped.
VORLAN_INTERNAL void GetGtkScrollBarMetrics(int *sliderWidth, int *troughBorder, int *stepperSize,
                                            int *minSliderLength);

// The entry's `base` and `text` colours for the state; null pointers are
// skipped.
VORLAN_INTERNAL void GetGtkEntryColors(GtkStateType state, GdkColor *base, GdkColor *text);

// The window background colour (`bg` of GTK_STATE_NORMAL).  A null pointer
// is ignored.
VORLAN_INTERNAL void GetGtkWindowColor(GdkColor *color);

// Adds delta to each of the red, green and blue bytes of a COLORREF, each
// clamped to 0..255 on its own; the high byte of the result is 0.
VORLAN_INTERNAL unsigned long AdjustBrightness(unsigned long color, int delta);

// A GDK colour as a COLORREF: the high byte of each 16-bit channel.
VORLAN_INTERNAL COLORREF GdkColorToColorRef(const GdkColor &color);

#endif // VORLAN_GTK_VORLTHEMECOLORS_H
