// Grids of points to show: those of tests, benchmarks and examples. Each is packed, three floats x, y, z a
// point, row by row, as CKivoFunctionPlotter::SetData expects them.
#pragma once

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace KivoSamples {

// ---- Examples

// A hill of 60 x 50 points.

constexpr unsigned int hillColumns = 60;
constexpr unsigned int hillRows = 50;

/// z = sin(x) cos(y) for x from -3 to 3 and y from -2 to 2.
inline std::vector<float> HillPoints() {
    std::vector<float> points;
    for (unsigned int r = 0; r < hillRows; ++r)
        for (unsigned int c = 0; c < hillColumns; ++c) {
            const float x = -3.0f + 6.0f * static_cast<float>(c) / (hillColumns - 1);
            const float y = -2.0f + 4.0f * static_cast<float>(r) / (hillRows - 1);
            points.insert(points.end(), {x, y, std::sin(x) * std::cos(y)});
        }
    return points;
}

// The temperatures of a cooling plate below two power modules, 200 mm x 80 mm, a point every 2 mm.

constexpr unsigned int plateColumns = 101;
constexpr unsigned int plateRows = 41;

/// Degrees Celsius at a place of the plate, in millimetres. The coolant flows from left to right and warms.
inline float PlateTemperature(float x, float y) {
    const auto module = [x, y](float centerX, float centerY, float radius, float rise) {
        const float distance = std::hypot(x - centerX, y - centerY) / radius;
        return rise * std::exp(-distance * distance);
    };
    return 24.0f + 0.06f * x + module(60.0f, 48.0f, 28.0f, 38.0f) + module(145.0f, 32.0f, 22.0f, 27.0f);
}

inline std::vector<float> PlatePoints() {
    std::vector<float> points;
    for (unsigned int row = 0; row < plateRows; ++row)
        for (unsigned int column = 0; column < plateColumns; ++column) {
            const float x = 2.0f * static_cast<float>(column);
            const float y = 2.0f * static_cast<float>(row);
            points.insert(points.end(), {x, y, PlateTemperature(x, y)});
        }
    return points;
}

/// Points on the plate for places x, y.
inline std::vector<float> OnPlate(const std::vector<std::pair<float, float>>& places) {
    std::vector<float> points;
    for (const auto& [x, y] : places)
        points.insert(points.end(), {x, y, PlateTemperature(x, y)});
    return points;
}

// ---- Tests and benchmarks, of any size

/// A range of coordinates, cut evenly.
struct Range {
    double from, length;

    double At(unsigned int index, unsigned int count) const {
        return from + (count > 1 ? length * index / (count - 1) : 0.0);
    }
};

/// A grid over two ranges with z = height(x, y), which is called row by row.
template <typename Height>
std::vector<float> Grid(unsigned int columns, unsigned int rows, Range xRange, Range yRange, Height height) {
    std::vector<float> points;
    points.reserve(std::size_t{columns} * rows * 3);
    for (unsigned int r = 0; r < rows; ++r)
        for (unsigned int c = 0; c < columns; ++c) {
            const double x = xRange.At(c, columns);
            const double y = yRange.At(r, rows);
            for (const double value : {x, y, height(x, y)})
                points.push_back(static_cast<float>(value));
        }
    return points;
}

constexpr Range testX = {-3.0, 8.0}; ///< to 5
constexpr Range testY = {-2.0, 5.0}; ///< to 3

/// z = 0.5 x + y + 1
inline std::vector<float> PlanePoints(unsigned int columns, unsigned int rows) {
    return Grid(columns, rows, testX, testY, [](double x, double y) { return 0.5 * x + y + 1.0; });
}

/// z = 2 sin x cos y
inline std::vector<float> HighHillPoints(unsigned int columns, unsigned int rows) {
    return Grid(columns, rows, testX, testY,
                [](double x, double y) { return 2.0 * std::sin(x) * std::cos(y); });
}

/// z = x^2 / 4 - y^2 / 2
inline std::vector<float> SaddlePoints(unsigned int columns, unsigned int rows) {
    return Grid(columns, rows, testX, testY, [](double x, double y) { return x * x / 4.0 - y * y / 2.0; });
}

/// z = whole part of x + y
inline std::vector<float> StepPoints(unsigned int columns, unsigned int rows) {
    return Grid(columns, rows, testX, testY, [](double x, double y) { return std::floor(x + y); });
}

/// z from 0 to 1, always the same
inline std::vector<float> NoisePoints(unsigned int columns, unsigned int rows) {
    std::uint32_t state = 12345;
    return Grid(columns, rows, testX, testY, [&state](double, double) {
        state = state * 1664525u + 1013904223u;
        return (state >> 8) / 16777216.0;
    });
}

/// z = 5
inline std::vector<float> ConstantPoints(unsigned int columns, unsigned int rows) {
    return Grid(columns, rows, testX, testY, [](double, double) { return 5.0; });
}

/// A sum of sines over x, y from 0 to 100, z within about -30 to 30.
inline std::vector<float> TerrainPoints(unsigned int columns, unsigned int rows) {
    constexpr Range range = {0.0, 100.0};
    return Grid(columns, rows, range, range, [](double x, double y) {
        return 14.0 * std::sin(0.06 * x) * std::cos(0.05 * y) + 8.0 * std::sin(0.13 * x + 0.11 * y) +
               4.0 * std::cos(0.21 * x - 0.17 * y);
    });
}

/// z = sin(6x) cos(5y) exp(-(x^2 + y^2)) for x and y from -1 to 1
inline std::vector<float> RipplePoints(unsigned int columns, unsigned int rows) {
    constexpr Range range = {-1.0, 2.0};
    return Grid(columns, rows, range, range, [](double x, double y) {
        return std::sin(6.0 * x) * std::cos(5.0 * y) * std::exp(-(x * x + y * y));
    });
}

} // namespace KivoSamples
