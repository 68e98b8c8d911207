// Where a widget's image goes, so that each of its pixels is one of the screen at any scale.
#pragma once

#include <cmath>

/// The whole pixels of the device next to a widget's edges.
struct DeviceArea {
    int width;                               ///< in pixels
    int height;                              ///< in pixels
    double left, top, unitWidth, unitHeight; ///< in GTK's units, from the widget's corner

    /// @param x      of the widget on its surface, in GTK's units; so are the next three
    /// @param scale  pixels in a unit
    DeviceArea(double x, double y, double unitsAcross, double unitsDown, double scale) {
        const double first = std::round(x * scale), upper = std::round(y * scale);
        const double right = std::round((x + unitsAcross) * scale);
        const double lower = std::round((y + unitsDown) * scale);
        width = static_cast<int>(right - first);
        height = static_cast<int>(lower - upper);
        left = first / scale - x;
        top = upper / scale - y;
        unitWidth = width / scale;
        unitHeight = height / scale;
    }
};
