// The hidden GTK widgets whose styles give the controls their look, and the
// sizes and colours read from them for the system metrics and colours and
// for painting.
#ifndef VORLAN_GTK_VORLTHEME_H
#define VORLAN_GTK_VORLTHEME_H

#include <windows.h>

#include <gtk/gtk.h>

// ----------------------------------------------------------------------------
// The hidden GTK widgets whose styles give the controls their look.
//
// One set of real widgets, created on first use, realized and never shown
// or released.  Theme engines read these widgets when the library paints
// or measures a control part, so they see exactly what a real widget of
// that kind would show them.  The caller holds the toolkit lock.

namespace vorlan {

struct ThemeWidgets {
    GtkWidget *packingWindow;      // popup window: window background, colours
    GtkWidget *packingContainer;   // GtkFixed holding the others
    GtkWidget *label;
    GtkWidget *pushButton;
    GtkWidget *checkButton;
    GtkWidget *radioButton;
    GtkWidget *frame;
    GtkObject *adjustment;         // shared by both scroll bars
    GtkWidget *hScrollBar;
    GtkWidget *vScrollBar;
    GtkWidget *entry;
    GtkWidget *arrowButton;
    GtkWidget *arrow;              // inside arrowButton
    GtkWidget *menuBar;
    GtkWidget *menu;               // unparented popup menu
    GtkWidget *menuItem;
    GtkWidget *checkMenuItem;
    GtkWidget *separatorMenuItem;
};

// Creates the set on the first call; every call returns the same set.
const ThemeWidgets &EnsureDummyWidgets();

} // namespace vorlan

// ----------------------------------------------------------------------------
// Sizes and colours read from the theme's hidden widgets, for the system
// metrics and colours and for painting.  Each call takes the toolkit lock
// for its GTK work and reads the current style, so a theme change reaches
// every later call.

// Style properties "slider_width", "trough_border", "stepper_size" and
// "min_slider_length" of the horizontal scroll bar; null pointers are
// skipped.
void GetGtkScrollBarMetrics(int *sliderWidth, int *troughBorder, int *stepperSize,
                            int *minSliderLength);

// The entry's `base` and `text` colours for the state; null pointers are
// skipped.
void GetGtkEntryColors(GtkStateType state, GdkColor *base, GdkColor *text);

// The window background colour (`bg` of GTK_STATE_NORMAL).  A null pointer
// is ignored.
void GetGtkWindowColor(GdkColor *color);

// Adds delta to each of the red, green and blue bytes of a COLORREF, each
// clamped to 0..255 on its own; the high byte of the result is 0.
unsigned long AdjustBrightness(unsigned long color, int delta);

// A GDK colour as a COLORREF: the high byte of each 16-bit channel.
COLORREF GdkColorToColorRef(const GdkColor &color);

// ----------------------------------------------------------------------------
// Painting with the theme.  Each call paints into a drawable with the style
// of one hidden widget, as GTK's own widget of that kind would paint; `rect`
// is in drawable coordinates and `clip`, when not null, limits the paint.
// Each takes the toolkit lock.

// The background of a menu bar, and of a popup menu.
void DrawGtkMenuBarBackground(GdkDrawable *drawable, const GdkRectangle *rect, const GdkRectangle *clip);
void DrawGtkMenuBackground(GdkDrawable *drawable, const GdkRectangle *rect, const GdkRectangle *clip);
// An entry's inner background, and its sunken border.
void DrawGtkEntryBackground(GdkDrawable *drawable, const GdkRectangle *rect, const GdkRectangle *clip);
void DrawGtkEntryBorder(GdkDrawable *drawable, const GdkRectangle *rect, const GdkRectangle *clip);
// The window background.
void DrawGtkWindow(GdkDrawable *drawable, const GdkRectangle *rect, const GdkRectangle *clip);
// The window background as a plain fill through a copy of `gc`, which
// leaves child windows alone.
void DrawGtkWindow(GdkDrawable *drawable, GdkGC *gc, int x, int y, int width, int height);

// Frames painted through a device context (a window or memory DC of the
// screen): a dialog frame of SM_CXDLGFRAME by SM_CYDLGFRAME around `rect`,
// and a client edge of SM_CXEDGE by SM_CYEDGE, both inside the rectangle,
// which is in the DC's coordinates.  Other DCs paint nothing.
void DrawDialogFrame(HDC hdc, const RECT *rect);
void DrawClientEdge(HDC hdc, const RECT *rect);

#endif // VORLAN_GTK_VORLTHEME_H
