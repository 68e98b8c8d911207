// The surface that all benchmarks take.
#pragma once

#include <vector>

namespace KivoBenchmark {

/// The ripples of SampleGrids.h at n x n points, which stay as they are. The last grid asked for is kept,
/// since making one takes longer than most of what is done with it.
std::vector<float>& SquareGrid(unsigned int n);

/// One coordinate of all points: 0 = x, 1 = y, 2 = z.
std::vector<float> Coordinates(const std::vector<float>& points, int coordinate);

/// Levels that divide the range from the least to the greatest value evenly, strictly inside it.
std::vector<float> EvenLevels(const std::vector<float>& values, unsigned int count);

} // namespace KivoBenchmark
