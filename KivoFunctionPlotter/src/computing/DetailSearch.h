// How much can be drawn within a time.
#pragma once

#include <functional>

namespace KivoDrawingTools {

struct MeasuredFrame {
    double milliseconds;
    bool isWhole; ///< it shows everything
};

/// Measures frames of 10, 20, 40 ... points a side, until one takes longer than the time or shows everything.
/// @param milliseconds  above 0
/// @param longestSide   of the whole grid
/// @param measure       of a frame with at most so many points a side
/// @return points a side, from those between two frames measured; 10 where the first takes longer, 0 where
///         everything is drawn within the time
unsigned int DetailWithin(double milliseconds, unsigned int longestSide,
                          const std::function<MeasuredFrame(unsigned int pointsPerSide)>& measure);

} // namespace KivoDrawingTools
