// Level lines of a grid of points.
#pragma once

#include "GridView.h"

#include <cstdint>
#include <vector>

namespace KivoDrawingTools {

/// Traces the lines on which a coordinate has a value, by marching squares. A corner equal to the level
/// counts as above it; saddles are resolved by fixed pairings. Cells are visited row by row.
/// @param axis        the coordinate: 0 = x, 1 = y, 2 = z
/// @param pointCount  receives the number of points, two for each segment
/// @return three floats a point, from new[], for the caller to delete[]; null when no cell is crossed
float* TraceLevelLines(const GridView& grid, int axis, float level, std::uint64_t* pointCount);

/// Level values for contours of z: count levels, the first and last pulled in from the extremes by a fifth of
/// a spacing. With one level the spacing is no number, and nothing is crossed.
std::vector<float> ContourLevelsOfHeight(float min, float max, unsigned int count);

/// Level values for contours of x and y: count levels strictly inside the range.
std::vector<float> ContourLevelsInside(float min, float max, unsigned int count);

/// Level values without a margin: min + k * (max - min) / (count + 1) for k from 1 to count.
std::vector<float> ContourLevelsEven(float min, float max, unsigned int count);

} // namespace KivoDrawingTools
