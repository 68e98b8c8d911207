// The surface that all benchmarks take.
#pragma once

#include <vector>

namespace KivoBenchmark {

/// z = sin(6x) cos(5y) exp(-(x^2 + y^2)) on [-1, 1] x [-1, 1]: packed x, y, z triples, row by row.
std::vector<float> GridPoints(unsigned int columns, unsigned int rows);

/// The points of a grid of n x n points, which stay as they are. The last grid asked for is kept, since
/// making one takes longer than most of what is done with it.
std::vector<float>& SquareGrid(unsigned int n);

/// One coordinate of all points: 0 = x, 1 = y, 2 = z.
std::vector<float> Coordinates(const std::vector<float>& points, int coordinate);

/// Levels that divide the range from the least to the greatest value evenly, strictly inside it.
std::vector<float> EvenLevels(const std::vector<float>& values, unsigned int count);

} // namespace KivoBenchmark
