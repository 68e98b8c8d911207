// What most of the feature pictures show: the temperatures of a cooling plate below two power modules.
#pragma once

#include <cmath>
#include <vector>

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

/// Three floats x, y, z a point, row by row: 200 mm x 80 mm, a point every 2 mm.
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

/// Points on the plate, three floats x, y, z each, for places x, y.
inline std::vector<float> OnPlate(const std::vector<std::pair<float, float>>& places) {
    std::vector<float> points;
    for (const auto& [x, y] : places)
        points.insert(points.end(), {x, y, PlateTemperature(x, y)});
    return points;
}
