// The hidden GTK widgets whose styles give the controls their look.
//
// One set of real widgets, created on first use, realized and never shown
// or released.  Theme engines read these widgets when the library paints
// or measures a control part, so they see exactly what a real widget of
// that kind would show them.  The caller holds the toolkit lock.
#ifndef VORLAN_GTK_VORLTHEMEWIDGETS_H
#define VORLAN_GTK_VORLTHEMEWIDGETS_H

#include <gtk/gtk.h>

#include "vorlinternal.h"

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
VORLAN_INTERNAL const ThemeWidgets &EnsureDummyWidgets();

} // namespace vorlan

#endif // VORLAN_GTK_VORLTHEMEWIDGETS_H
