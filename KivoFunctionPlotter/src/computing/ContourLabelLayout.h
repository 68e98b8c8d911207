// Where the values of contours stand at their lines.
#pragma once

#include "AxisLabelLayout.h"
#include "LinePaths.h"

#include <cstddef>
#include <vector>

namespace KivoDrawingTools {

/// The lines of one level, and the size of the text for it; one without size is not placed.
struct LabeledLines {
    const LinePaths* paths;
    TextImageSize label;
};

/// Where a plane is on the screen.
struct PlaneOnScreen {
    ScreenVector origin; ///< of the point (0, 0)
    ScreenVector alongX; ///< from there to (1, 0)
    ScreenVector alongY; ///< and to (0, 1)

    ScreenVector At(LinePoint point) const;
};

/// A rectangle whose sides are those of the screen.
struct ScreenArea {
    ScreenVector min;
    ScreenVector max;
};

struct PlacedLabel {
    std::size_t level; ///< index of its lines
    PlacedImage image; ///< the text's, with its gap on the left and on the right
};

/// The gap beside a label in a line, in pixels.
constexpr double contourLabelGap = 3.0;

/// Places labels along lines, one at each that is long enough, more at long ones: where the line is about
/// straight, rather level and in the middle. Long lines come first. Texts are never upside down; none meets
/// another, or one of the others, or leaves the area. The same lines and places give the same labels, and
/// while a view is moved each that stays moves with its line. There are 400 at most.
std::vector<PlacedLabel> PlaceContourLabels(const std::vector<LabeledLines>& levels,
                                            const PlaneOnScreen& plane, const ScreenArea& area,
                                            const std::vector<PlacedImage>& others);

} // namespace KivoDrawingTools
