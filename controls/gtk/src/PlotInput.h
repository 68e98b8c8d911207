// What a hand does to a plot: GTK's gestures and keys, handed on in pixels of the image.
#pragma once

#include "PlotWidget.h"

/// Adds the controllers of a plot to its widget, which owns them.
/// @param plot  lives as long as the widget
/// @param menu  opens the menu at a place in GTK's units; called with the widget
void AddPlotInput(GtkWidget* widget, PlotWidget& plot, void (*menu)(GtkWidget* widget, double x, double y));
