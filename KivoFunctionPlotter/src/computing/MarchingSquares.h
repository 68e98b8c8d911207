// Level lines of a grid of points.
#pragma once

#include "GridView.h"

#include <cstdint>
#include <memory>
#include <vector>

namespace KivoDrawingTools {

/// The lines on which a coordinate has one value, as pairs of points, one pair a segment.
struct LevelLines {
    std::unique_ptr<float[]> points; ///< three floats each; null when no cell is crossed
    std::uint64_t pointCount = 0;
};

/// Traces the lines on which a coordinate has certain values, by marching squares. A corner equal to a level
/// counts as above it; saddles are resolved by fixed pairings. The segments of a level follow each other as
/// their cells do, row by row. The grid is walked once for all levels: the cost grows with the cells and the
/// segments, not with their product.
/// @param axis    the coordinate: 0 = x, 1 = y, 2 = z
/// @param levels  in ascending order, repetitions included; one that is no number crosses nothing
/// @return one entry for each level
std::vector<LevelLines> TraceLevelLines(const GridView& grid, int axis, const std::vector<float>& levels);

/// Level values for contours of z: count levels, the first and last pulled in from the extremes by a fifth of
/// a spacing. With one level the spacing is no number, and nothing is crossed.
std::vector<float> ContourLevelsOfHeight(float min, float max, unsigned int count);

/// Level values for contours of x and y: count levels strictly inside the range.
std::vector<float> ContourLevelsInside(float min, float max, unsigned int count);

/// Levels at equal distances.
struct LevelSteps {
    double first = 0.0;
    double step = 0.0; ///< above 0, unless there are none
    unsigned int count = 0;
};

/// The levels that ContourLevelsOfHeight has; none without two at numbers.
LevelSteps LevelStepsOf(float min, float max, unsigned int count);
/// The sums of a base and multiples of an interval that lie between the extremes, not at them. Of more than a
/// thousand every second, third and so on is left, counted from the base.
LevelSteps LevelStepsOf(float min, float max, double interval, double base);
std::vector<float> LevelsAt(const LevelSteps& steps);

/// Level values without a margin: min + k * (max - min) / (count + 1) for k from 1 to count.
std::vector<float> ContourLevelsEven(float min, float max, unsigned int count);

} // namespace KivoDrawingTools
