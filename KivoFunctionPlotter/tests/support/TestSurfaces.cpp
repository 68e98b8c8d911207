#include "TestSurfaces.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>

namespace KivoDrawingTools {

namespace {

template <typename Height>
TestSurface MakeSurface(const char* name, unsigned int columns, unsigned int rows, Height height) {
    TestSurface surface = {name, columns, rows, {}};
    surface.points.reserve(std::size_t{columns} * rows * 3);
    for (unsigned int r = 0; r < rows; ++r)
        for (unsigned int c = 0; c < columns; ++c) {
            const double x = -3.0 + (columns > 1 ? 8.0 * c / (columns - 1) : 0.0);
            const double y = -2.0 + (rows > 1 ? 5.0 * r / (rows - 1) : 0.0);
            for (const double value : {x, y, height(x, y)})
                surface.points.push_back(static_cast<float>(value));
        }
    return surface;
}

} // namespace

float* TestSurface::NewArray() const {
    float* array = new float[points.size()];
    std::copy(points.begin(), points.end(), array);
    return array;
}

const float* TestSurface::Point(unsigned int column, unsigned int row) const {
    return points.data() + (std::size_t{row} * columns + column) * 3;
}

float TestSurface::Min(int coordinate) const {
    float least = points[static_cast<std::size_t>(coordinate)];
    for (std::size_t i = static_cast<std::size_t>(coordinate); i < points.size(); i += 3)
        least = std::min(least, points[i]);
    return least;
}

float TestSurface::Max(int coordinate) const {
    float greatest = points[static_cast<std::size_t>(coordinate)];
    for (std::size_t i = static_cast<std::size_t>(coordinate); i < points.size(); i += 3)
        greatest = std::max(greatest, points[i]);
    return greatest;
}

TestSurface PlaneSurface(unsigned int columns, unsigned int rows) {
    return MakeSurface("plane", columns, rows, [](double x, double y) { return 0.5 * x + y + 1.0; });
}

TestSurface HillSurface(unsigned int columns, unsigned int rows) {
    return MakeSurface("hill", columns, rows,
                       [](double x, double y) { return 2.0 * std::sin(x) * std::cos(y); });
}

TestSurface SaddleSurface(unsigned int columns, unsigned int rows) {
    return MakeSurface("saddle", columns, rows, [](double x, double y) { return x * x / 4.0 - y * y / 2.0; });
}

TestSurface StepSurface(unsigned int columns, unsigned int rows) {
    return MakeSurface("steps", columns, rows, [](double x, double y) { return std::floor(x + y); });
}

TestSurface NoiseSurface(unsigned int columns, unsigned int rows) {
    std::uint32_t state = 12345;
    return MakeSurface("noise", columns, rows, [&state](double, double) {
        state = state * 1664525u + 1013904223u;
        return (state >> 8) / 16777216.0;
    });
}

TestSurface ConstantSurface(unsigned int columns, unsigned int rows) {
    return MakeSurface("constant", columns, rows, [](double, double) { return 5.0; });
}

TestSurface TerrainSurface(unsigned int columns, unsigned int rows) {
    const auto height = [](double x, double y) {
        return 14.0 * std::sin(0.06 * x) * std::cos(0.05 * y) + 8.0 * std::sin(0.13 * x + 0.11 * y) +
               4.0 * std::cos(0.21 * x - 0.17 * y);
    };
    TestSurface surface = {"terrain", columns, rows, {}};
    for (unsigned int r = 0; r < rows; ++r)
        for (unsigned int c = 0; c < columns; ++c) {
            const double x = 100.0 * c / (columns - 1);
            const double y = 100.0 * r / (rows - 1);
            for (const double value : {x, y, height(x, y)})
                surface.points.push_back(static_cast<float>(value));
        }
    return surface;
}

std::vector<TestSurface> AllTestSurfaces() {
    return {PlaneSurface(2, 2),  HillSurface(30, 20),   SaddleSurface(9, 14),  StepSurface(12, 7),
            NoiseSurface(25, 6), ConstantSurface(5, 4), TerrainSurface(33, 21)};
}

} // namespace KivoDrawingTools
