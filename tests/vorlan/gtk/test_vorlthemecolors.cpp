// Metrics and colours read from the theme's hidden widgets, and the
// brightness arithmetic of the 3D colours.

#include <gtest/gtest.h>

#include "gtk/vorlgtklock.h"
#include "gtk/vorlthemecolors.h"
#include "gtk/vorlthemewidgets.h"

TEST(AdjustBrightness, ClampsEachChannelAloneAndClearsTheHighByte)
{
    EXPECT_EQ(AdjustBrightness(RGB(255, 128, 0), 10), RGB(255, 138, 10));
    EXPECT_EQ(AdjustBrightness(RGB(255, 128, 0), -150), RGB(105, 0, 0));
    EXPECT_EQ(AdjustBrightness(0xFF102030ul, 0), 0x102030ul);
    EXPECT_EQ(AdjustBrightness(0x01FFFFFFul, 5), 0xFFFFFFul);
    // Extreme deltas saturate instead of overflowing.
    EXPECT_EQ(AdjustBrightness(RGB(1, 2, 3), 1 << 30), 0xFFFFFFul);
    EXPECT_EQ(AdjustBrightness(RGB(200, 100, 50), -(1 << 30)), 0ul);
}

TEST(ThemeWidgets, CreatedOnceAndRealizedNeverShown)
{
    vorlan::GtkCriticalSection lock;
    const vorlan::ThemeWidgets &widgets = vorlan::EnsureDummyWidgets();
    EXPECT_EQ(&widgets, &vorlan::EnsureDummyWidgets());
    for (GtkWidget *widget : {widgets.packingWindow, widgets.packingContainer, widgets.label, widgets.pushButton,
                              widgets.checkButton, widgets.radioButton, widgets.frame, widgets.hScrollBar,
                              widgets.vScrollBar, widgets.entry, widgets.arrowButton, widgets.arrow,
                              widgets.menuBar, widgets.menu, widgets.menuItem, widgets.checkMenuItem,
                              widgets.separatorMenuItem}) {
        ASSERT_NE(widget, nullptr);
        EXPECT_TRUE(GTK_WIDGET_REALIZED(widget));
        EXPECT_FALSE(GTK_WIDGET_VISIBLE(widget));
    }
    EXPECT_EQ(gtk_widget_get_parent(widgets.hScrollBar), widgets.packingContainer);
    EXPECT_EQ(gtk_widget_get_parent(widgets.arrow), widgets.arrowButton);
    EXPECT_EQ(gtk_widget_get_parent(widgets.menuItem), widgets.menu);
    EXPECT_EQ(gtk_range_get_adjustment(GTK_RANGE(widgets.hScrollBar)),
              gtk_range_get_adjustment(GTK_RANGE(widgets.vScrollBar)));
}

TEST(ThemeScrollBarMetrics, MatchStyleOfARealScrollBarAndSkipNullPointers)
{
    int slider = -1, trough = -1, stepper = -1, minimum = -1;
    GetGtkScrollBarMetrics(&slider, &trough, &stepper, &minimum);
    int troughOnly = -1;
    GetGtkScrollBarMetrics(nullptr, &troughOnly, nullptr, nullptr);
    GetGtkScrollBarMetrics(nullptr, nullptr, nullptr, nullptr);
    vorlan::GtkCriticalSection lock;
    GtkWidget *window = gtk_window_new(GTK_WINDOW_POPUP);
    GtkWidget *bar = gtk_hscrollbar_new(nullptr);
    gtk_container_add(GTK_CONTAINER(window), bar);
    gtk_widget_realize(bar);
    int expected[4] = {};
    gtk_widget_style_get(bar, "slider-width", &expected[0], "trough-border", &expected[1], "stepper-size",
                         &expected[2], "min-slider-length", &expected[3], nullptr);
    gtk_widget_destroy(window);
    EXPECT_EQ(slider, expected[0]);
    EXPECT_EQ(trough, expected[1]);
    EXPECT_EQ(stepper, expected[2]);
    EXPECT_EQ(minimum, expected[3]);
    EXPECT_GT(slider, 0);
    EXPECT_EQ(troughOnly, trough);
}

TEST(ThemeColors, WindowAndEntryColorsComeFromTheHiddenWidgetsStyles)
{
    GdkColor window = {}, base = {}, text = {}, baseOnly = {};
    GetGtkWindowColor(&window);
    GetGtkWindowColor(nullptr);
    GetGtkEntryColors(GTK_STATE_SELECTED, &base, &text);
    GetGtkEntryColors(GTK_STATE_SELECTED, &baseOnly, nullptr);
    vorlan::GtkCriticalSection lock;
    const GtkStyle *windowStyle = gtk_widget_get_style(vorlan::EnsureDummyWidgets().packingWindow);
    EXPECT_EQ(window.red, windowStyle->bg[GTK_STATE_NORMAL].red);
    EXPECT_EQ(window.green, windowStyle->bg[GTK_STATE_NORMAL].green);
    EXPECT_EQ(window.blue, windowStyle->bg[GTK_STATE_NORMAL].blue);
    const GtkStyle *entryStyle = gtk_widget_get_style(vorlan::EnsureDummyWidgets().entry);
    EXPECT_EQ(base.red, entryStyle->base[GTK_STATE_SELECTED].red);
    EXPECT_EQ(base.blue, entryStyle->base[GTK_STATE_SELECTED].blue);
    EXPECT_EQ(text.green, entryStyle->text[GTK_STATE_SELECTED].green);
    EXPECT_EQ(baseOnly.red, base.red);
}

TEST(ThemeColors, BadStateWritesNothingAndChannelsBecomeTheirHighBytes)
{
    GdkColor base = {1, 2, 3, 4};
    GetGtkEntryColors(static_cast<GtkStateType>(99), &base, nullptr);
    EXPECT_EQ(base.pixel, 1u);
    EXPECT_EQ(base.red, 2);
    const GdkColor color = {0, 0x12FF, 0x3400, 0xAB01};
    EXPECT_EQ(GdkColorToColorRef(color), RGB(0x12, 0x34, 0xAB));
}
