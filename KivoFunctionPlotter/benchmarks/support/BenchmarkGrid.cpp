#include "BenchmarkGrid.h"

#include "SampleGrids.h"

#include <algorithm>
#include <cstddef>

namespace KivoBenchmark {

std::vector<float>& SquareGrid(unsigned int n) {
    static std::vector<float> points;
    if (points.size() != std::size_t{3} * n * n) points = KivoSamples::RipplePoints(n, n);
    return points;
}

std::vector<float> Coordinates(const std::vector<float>& points, int coordinate) {
    std::vector<float> values(points.size() / 3);
    for (std::size_t i = 0; i < values.size(); ++i)
        values[i] = points[3 * i + static_cast<std::size_t>(coordinate)];
    return values;
}

std::vector<float> EvenLevels(const std::vector<float>& values, unsigned int count) {
    const auto [least, greatest] = std::minmax_element(values.begin(), values.end());
    std::vector<float> levels;
    for (unsigned int k = 1; k <= count; ++k)
        levels.push_back(*least +
                         static_cast<float>(k) * ((*greatest - *least) / static_cast<float>(count + 1)));
    return levels;
}

} // namespace KivoBenchmark
