// The menu of a plot: copying and saving its picture, and the start view.
#pragma once

#include <gtk/gtk.h>

/// The actions plot.copy, plot.save and plot.reset-view of a class of plots.
void InstallPlotActions(GtkWidgetClass* type);

/// Opens the menu at a place of the widget.
/// @param menu  made where it is null; a child of the widget, to be placed with it and unparented with it
void OpenPlotMenu(GtkWidget* widget, GtkWidget** menu, double x, double y);
