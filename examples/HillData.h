// The surface that all examples show.
#pragma once

#include <cmath>
#include <vector>

constexpr unsigned int hillColumns = 60;
constexpr unsigned int hillRows = 50;

/// Three floats x, y, z a point, row by row: z = sin(x) cos(y) for x from -3 to 3 and y from -2 to 2.
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
