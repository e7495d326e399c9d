// The hidden GTK widgets whose styles give the controls their look, and the
// sizes and colours read from them.
#include "gtk/vorltheme.h"

#include <vorlan.h>

#include "gtk/vorlgtklock.h"

#include <algorithm>
#include <initializer_list>

// ----------------------------------------------------------------------------
// Creation of the hidden theme widgets, in a fixed order: each widget is
// put into its parent and realized at once.

namespace vorlan {

namespace {

ThemeWidgets s_widgets;

void RealizeInContainer(GtkWidget *widget)
{
    gtk_fixed_put(GTK_FIXED(s_widgets.packingContainer), widget, 0, 0);
    gtk_widget_realize(widget);
}

void RealizeInMenu(GtkWidget *item)
{
    gtk_menu_shell_append(GTK_MENU_SHELL(s_widgets.menu), item);
    gtk_widget_realize(item);
}

void CreatePackingWindow()
{
    s_widgets.packingWindow = gtk_window_new(GTK_WINDOW_POPUP);
    gtk_widget_realize(s_widgets.packingWindow);
    s_widgets.packingContainer = gtk_fixed_new();
    gtk_container_add(GTK_CONTAINER(s_widgets.packingWindow), s_widgets.packingContainer);
    gtk_widget_realize(s_widgets.packingContainer);
}

void CreateButtons()
{
    s_widgets.label = gtk_label_new("Label");
    RealizeInContainer(s_widgets.label);
    s_widgets.pushButton = gtk_button_new_with_label("Hello");
    RealizeInContainer(s_widgets.pushButton);
    s_widgets.checkButton = gtk_check_button_new_with_label("Hello");
    RealizeInContainer(s_widgets.checkButton);
    s_widgets.radioButton = gtk_radio_button_new_with_label(nullptr, "Hello");
    RealizeInContainer(s_widgets.radioButton);
    s_widgets.frame = gtk_frame_new(nullptr);
    RealizeInContainer(s_widgets.frame);
}

void CreateScrollBars()
{
    s_widgets.adjustment = gtk_adjustment_new(50, 0, 100, 0, 0, 0);
    GtkAdjustment *adjustment = GTK_ADJUSTMENT(s_widgets.adjustment);
    s_widgets.hScrollBar = gtk_hscrollbar_new(adjustment);
    RealizeInContainer(s_widgets.hScrollBar);
    s_widgets.vScrollBar = gtk_vscrollbar_new(adjustment);
    RealizeInContainer(s_widgets.vScrollBar);
}

void CreateEntryAndArrow()
{
    s_widgets.entry = gtk_entry_new();
    RealizeInContainer(s_widgets.entry);
    s_widgets.arrowButton = gtk_button_new();
    RealizeInContainer(s_widgets.arrowButton);
    s_widgets.arrow = gtk_arrow_new(GTK_ARROW_DOWN, GTK_SHADOW_OUT);
    gtk_container_add(GTK_CONTAINER(s_widgets.arrowButton), s_widgets.arrow);
    gtk_widget_realize(s_widgets.arrow);
}

void CreateMenus()
{
    s_widgets.menuBar = gtk_menu_bar_new();
    RealizeInContainer(s_widgets.menuBar);
    s_widgets.menu = gtk_menu_new();
    gtk_widget_realize(s_widgets.menu);
    s_widgets.menuItem = gtk_menu_item_new_with_label("Menu Item");
    RealizeInMenu(s_widgets.menuItem);
    gtk_widget_realize(gtk_bin_get_child(GTK_BIN(s_widgets.menuItem)));
    s_widgets.checkMenuItem = gtk_check_menu_item_new_with_label("Check Menu Item");
    RealizeInMenu(s_widgets.checkMenuItem);
    s_widgets.separatorMenuItem = gtk_separator_menu_item_new();
    RealizeInMenu(s_widgets.separatorMenuItem);
}

} // namespace

const ThemeWidgets &EnsureDummyWidgets()
{
    if (s_widgets.packingWindow == nullptr) {
        CreatePackingWindow();
        CreateButtons();
        CreateScrollBars();
        CreateEntryAndArrow();
        CreateMenus();
    }
    return s_widgets;
}

} // namespace vorlan

// ----------------------------------------------------------------------------
// Metrics and colours of the theme, read from the hidden widgets.

namespace {

int ClampChannel(int value)
{
    return std::clamp(value, 0, 255);
}

int Channel(unsigned long color, int shift)
{
    return int((color >> shift) & 0xFF);
}

BYTE HighByte(guint16 channel)
{
    return BYTE(channel >> 8);
}

} // namespace

void GetGtkScrollBarMetrics(int *sliderWidth, int *troughBorder, int *stepperSize, int *minSliderLength)
{
    vorlan::GtkCriticalSection lock;
    GtkWidget *scrollBar = vorlan::EnsureDummyWidgets().hScrollBar;
    int values[4] = {};
    gtk_widget_style_get(scrollBar, "slider_width", &values[0], "trough_border", &values[1], "stepper_size",
                         &values[2], "min_slider_length", &values[3], nullptr);
    int *targets[4] = {sliderWidth, troughBorder, stepperSize, minSliderLength};
    for (int i = 0; i < 4; ++i)
        if (targets[i] != nullptr)
            *targets[i] = values[i];
}

void GetGtkEntryColors(GtkStateType state, GdkColor *base, GdkColor *text)
{
    if (state < GTK_STATE_NORMAL || state > GTK_STATE_INSENSITIVE)
        return;
    vorlan::GtkCriticalSection lock;
    GtkStyle *style = gtk_widget_get_style(vorlan::EnsureDummyWidgets().entry);
    if (base != nullptr)
        *base = style->base[state];
    if (text != nullptr)
        *text = style->text[state];
}

void GetGtkWindowColor(GdkColor *color)
{
    if (color == nullptr)
        return;
    vorlan::GtkCriticalSection lock;
    GtkStyle *style = gtk_widget_get_style(vorlan::EnsureDummyWidgets().packingWindow);
    *color = style->bg[GTK_STATE_NORMAL];
}

unsigned long AdjustBrightness(unsigned long color, int delta)
{
    // Any delta beyond one channel's range gives the same result.
    delta = std::clamp(delta, -255, 255);
    const int red = ClampChannel(Channel(color, 0) + delta);
    const int green = ClampChannel(Channel(color, 8) + delta);
    const int blue = ClampChannel(Channel(color, 16) + delta);
    return RGB(red, green, blue);
}

COLORREF GdkColorToColorRef(const GdkColor &color)
{
    return RGB(HighByte(color.red), HighByte(color.green), HighByte(color.blue));
}

// ----------------------------------------------------------------------------
// Painting with the theme's styles.

namespace {

GdkRectangle *Area(const GdkRectangle *clip)
{
    return const_cast<GdkRectangle *>(clip);
}

using StylePaint = void (*)(GtkWidget *widget, GdkDrawable *drawable, const GdkRectangle &rect,
                            GdkRectangle *area);

// Runs `paint` with the widget that `pick` chooses from the hidden set,
// under the toolkit lock.
void PaintWith(GtkWidget *vorlan::ThemeWidgets::*pick, GdkDrawable *drawable, const GdkRectangle *rect,
               const GdkRectangle *clip, StylePaint paint)
{
    if (drawable == nullptr || rect == nullptr)
        return;
    vorlan::GtkCriticalSection lock;
    GtkWidget *widget = vorlan::EnsureDummyWidgets().*pick;
    paint(widget, drawable, *rect, Area(clip));
}

void DefaultBackground(GtkWidget *widget, GdkDrawable *drawable, const GdkRectangle &r, GdkRectangle *area,
                       gboolean setBg)
{
    gtk_style_apply_default_background(widget->style, drawable, setBg, GTK_STATE_NORMAL, area, r.x, r.y, r.width,
                                       r.height);
}

} // namespace

void DrawGtkMenuBarBackground(GdkDrawable *drawable, const GdkRectangle *rect, const GdkRectangle *clip)
{
    PaintWith(&vorlan::ThemeWidgets::menuBar, drawable, rect, clip,
              [](GtkWidget *w, GdkDrawable *d, const GdkRectangle &r, GdkRectangle *area) {
                  DefaultBackground(w, d, r, area, FALSE);
                  gtk_paint_box(w->style, d, GTK_STATE_NORMAL, GTK_SHADOW_OUT, area, w, "menubar", r.x, r.y,
                                r.width, r.height);
              });
}

void DrawGtkMenuBackground(GdkDrawable *drawable, const GdkRectangle *rect, const GdkRectangle *clip)
{
    PaintWith(&vorlan::ThemeWidgets::menu, drawable, rect, clip,
              [](GtkWidget *w, GdkDrawable *d, const GdkRectangle &r, GdkRectangle *area) {
                  DefaultBackground(w, d, r, area, TRUE);
                  gtk_paint_box(w->style, d, GTK_STATE_NORMAL, GTK_SHADOW_OUT, area, w, "menu", r.x, r.y, r.width,
                                r.height);
              });
}

void DrawGtkEntryBackground(GdkDrawable *drawable, const GdkRectangle *rect, const GdkRectangle *clip)
{
    PaintWith(&vorlan::ThemeWidgets::entry, drawable, rect, clip,
              [](GtkWidget *w, GdkDrawable *d, const GdkRectangle &r, GdkRectangle *area) {
                  gtk_paint_flat_box(w->style, d, GTK_STATE_NORMAL, GTK_SHADOW_NONE, area, w, "entry_bg", r.x, r.y,
                                     r.width, r.height);
              });
}

void DrawGtkEntryBorder(GdkDrawable *drawable, const GdkRectangle *rect, const GdkRectangle *clip)
{
    PaintWith(&vorlan::ThemeWidgets::entry, drawable, rect, clip,
              [](GtkWidget *w, GdkDrawable *d, const GdkRectangle &r, GdkRectangle *area) {
                  gtk_paint_shadow(w->style, d, GTK_STATE_NORMAL, GTK_SHADOW_IN, area, w, "entry", r.x, r.y,
                                   r.width, r.height);
              });
}

void DrawGtkWindow(GdkDrawable *drawable, const GdkRectangle *rect, const GdkRectangle *clip)
{
    PaintWith(&vorlan::ThemeWidgets::packingWindow, drawable, rect, clip,
              [](GtkWidget *w, GdkDrawable *d, const GdkRectangle &r, GdkRectangle *area) {
                  DefaultBackground(w, d, r, area, FALSE);
                  gtk_paint_flat_box(w->style, d, GTK_STATE_NORMAL, GTK_SHADOW_NONE, area, w, "base", r.x, r.y,
                                     r.width, r.height);
              });
}

void DrawGtkWindow(GdkDrawable *drawable, GdkGC *gc, int x, int y, int width, int height)
{
    if (drawable == nullptr || gc == nullptr)
        return;
    vorlan::GtkCriticalSection lock;
    GtkStyle *style = vorlan::EnsureDummyWidgets().packingWindow->style;
    GdkGC *fill = gdk_gc_new(drawable);
    gdk_gc_copy(fill, gc);
    gdk_gc_set_subwindow(fill, GDK_CLIP_BY_CHILDREN);
    GdkPixmap *tile = style->bg_pixmap[GTK_STATE_NORMAL];
    if (tile != nullptr && tile != reinterpret_cast<GdkPixmap *>(GDK_PARENT_RELATIVE)) {
        gdk_gc_set_fill(fill, GDK_TILED);
        gdk_gc_set_tile(fill, tile);
    } else {
        gdk_gc_set_rgb_fg_color(fill, &style->bg[GTK_STATE_NORMAL]);
    }
    gdk_draw_rectangle(drawable, fill, TRUE, x, y, width, height);
    g_object_unref(fill);
}

namespace {

using StripPaint = void (*)(GdkDrawable *drawable, const GdkRectangle *rect, const GdkRectangle *clip);

// Paints the whole rectangle four times, each time clipped to one strip of
// the frame of thickness cx by cy inside it: top, bottom, left, right.
void PaintFrameStrips(GdkDrawable *drawable, const GdkRectangle &rect, int cx, int cy,
                      std::initializer_list<StripPaint> paints)
{
    const int sideHeight = rect.height - 2 * cy;
    const GdkRectangle strips[4] = {
        {rect.x, rect.y, rect.width, cy},
        {rect.x, rect.y + rect.height - cy, rect.width, cy},
        {rect.x, rect.y + cy, cx, sideHeight},
        {rect.x + rect.width - cx, rect.y + cy, cx, sideHeight},
    };
    for (const GdkRectangle &strip : strips) {
        if (strip.width <= 0 || strip.height <= 0)
            continue;
        for (StripPaint paint : paints)
            paint(drawable, &rect, &strip);
    }
}

GdkRectangle ToGdk(const RECT &rect, POINT origin)
{
    return {rect.left + origin.x, rect.top + origin.y, rect.right - rect.left, rect.bottom - rect.top};
}

// The drawable of a screen DC and the DC's place in it.
bool DrawableOf(HDC hdc, GdkDrawable **drawable, POINT *origin)
{
    RECT bounds = {};
    *drawable = GetGdkDrawable(hdc);
    if (*drawable == nullptr || !GdiGetDCOutputBounds(hdc, &bounds))
        return false;
    *origin = {bounds.left, bounds.top};
    return true;
}

} // namespace

void DrawDialogFrame(HDC hdc, const RECT *rect)
{
    GdkDrawable *drawable = nullptr;
    POINT origin = {};
    if (rect == nullptr || !DrawableOf(hdc, &drawable, &origin))
        return;
    PaintFrameStrips(drawable, ToGdk(*rect, origin), GetSystemMetrics(SM_CXDLGFRAME),
                     GetSystemMetrics(SM_CYDLGFRAME), {DrawGtkMenuBackground});
}

void DrawClientEdge(HDC hdc, const RECT *rect)
{
    GdkDrawable *drawable = nullptr;
    POINT origin = {};
    if (rect == nullptr || !DrawableOf(hdc, &drawable, &origin))
        return;
    PaintFrameStrips(drawable, ToGdk(*rect, origin), GetSystemMetrics(SM_CXEDGE), GetSystemMetrics(SM_CYEDGE),
                     {DrawGtkEntryBackground, DrawGtkEntryBorder});
}
