// Where the data are on the screen.
#pragma once

#include "AxisLabelLayout.h"

namespace KivoDrawingTools {

/// A view without perspective.
struct SpaceOnScreen {
    ScreenVector origin;   ///< of the point (0, 0, 0)
    ScreenVector along[3]; ///< from there to a unit of x, y, z

    ScreenVector At(double x, double y, double z) const {
        return {origin.x + x * along[0].x + y * along[1].x + z * along[2].x,
                origin.y + x * along[0].y + y * along[1].y + z * along[2].y};
    }
};

} // namespace KivoDrawingTools
