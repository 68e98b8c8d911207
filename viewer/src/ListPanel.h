// What the side panel's lists of points and surfaces share.
#pragma once

#include "Color.h"

#include <QColor>

namespace KivoViewer {

/// Columns that every list begins with.
enum ListColumn { nameColumn, colorColumn, firstOwnColumn };

constexpr int listHeight = 90; ///< in pixels, at least

inline QColor ToQt(const Color& color) {
    return {color.red, color.green, color.blue};
}

} // namespace KivoViewer
