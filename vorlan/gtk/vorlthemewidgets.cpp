// Creation of the hidden theme widgets, in a fixed order: each widget is
// put into its parent and realized at once.
#include "gtk/vorlthemewidgets.h"

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
