#include "BenchmarkGrid.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace KivoBenchmark {

std::vector<float> GridPoints(unsigned int columns, unsigned int rows) {
    std::vector<float> points;
    points.reserve(std::size_t{3} * columns * rows);
    for (unsigned int r = 0; r < rows; ++r)
        for (unsigned int c = 0; c < columns; ++c) {
            const double x = -1.0 + 2.0 * c / (columns - 1);
            const double y = -1.0 + 2.0 * r / (rows - 1);
            const double z = std::sin(6.0 * x) * std::cos(5.0 * y) * std::exp(-(x * x + y * y));
            points.push_back(static_cast<float>(x));
            points.push_back(static_cast<float>(y));
            points.push_back(static_cast<float>(z));
        }
    return points;
}

std::vector<float>& SquareGrid(unsigned int n) {
    static std::vector<float> points;
    if (points.size() != std::size_t{3} * n * n) points = GridPoints(n, n);
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
