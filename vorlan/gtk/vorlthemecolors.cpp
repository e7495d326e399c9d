// Metrics and colours of the theme, read from the hidden widgets.
#include "gtk/vorlthemecolors.h"

#include "gtk/vorlgtklock.h"
#include "gtk/vorlthemewidgets.h"

#include <algorithm>

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
