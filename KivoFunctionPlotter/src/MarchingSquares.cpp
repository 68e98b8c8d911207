#include "MarchingSquares.h"

#include <algorithm>
#include <cstddef>

namespace KivoDrawingTools {

namespace {

// Corners of a cell: 0 at (c, r), 1 at (c + 1, r), 2 at (c + 1, r + 1), 3 at (c, r + 1). Edge i runs from
// corner i to corner (i + 1) % 4. A case has bit i set when the level is greater than the value at corner i.
struct Case {
    int edgeCount; // two for each segment
    int edges[4];
};

constexpr Case cases[16] = {
    {0, {}},     {2, {0, 3}}, {2, {0, 1}}, {2, {1, 3}}, {2, {1, 2}},       {4, {0, 3, 1, 2}},
    {2, {0, 2}}, {2, {2, 3}}, {2, {2, 3}}, {2, {0, 2}}, {4, {0, 1, 2, 3}}, {2, {1, 2}},
    {2, {1, 3}}, {2, {0, 1}}, {2, {0, 3}}, {0, {}},
};

void AppendCrossing(const float* first, const float* second, int axis, float level,
                    std::vector<float>& points) {
    const double from = static_cast<double>(first[axis]);
    const double t = (static_cast<double>(level) - from) / (static_cast<double>(second[axis]) - from);
    for (int i = 0; i < 3; ++i) {
        const double start = static_cast<double>(first[i]);
        points.push_back(
            i == axis ? level : static_cast<float>(start + (static_cast<double>(second[i]) - start) * t));
    }
}

std::vector<float> LevelsFrom(float low, float step, unsigned int first, unsigned int count) {
    std::vector<float> levels;
    levels.reserve(count);
    for (unsigned int k = 0; k < count; ++k)
        levels.push_back(low + static_cast<float>(first + k) * step);
    return levels;
}

} // namespace

float* TraceLevelLines(const GridView& grid, int axis, float level, std::uint64_t* pointCount) {
    std::vector<float> found;
    for (std::size_t r = 0; r + 1 < grid.rows; ++r)
        for (std::size_t c = 0; c + 1 < grid.columns; ++c) {
            const float* corners[4] = {grid.At(c, r), grid.At(c + 1, r), grid.At(c + 1, r + 1),
                                       grid.At(c, r + 1)};
            unsigned int index = 0;
            for (unsigned int i = 0; i < 4; ++i)
                if (level > corners[i][axis]) index |= 1u << i;
            const Case& crossed = cases[index];
            for (int i = 0; i < crossed.edgeCount; ++i) {
                const int edge = crossed.edges[i];
                AppendCrossing(corners[edge], corners[(edge + 1) % 4], axis, level, found);
            }
        }
    *pointCount = found.size() / 3;
    if (found.empty()) return nullptr;
    float* points = new float[found.size()];
    std::copy(found.begin(), found.end(), points);
    return points;
}

std::vector<float> ContourLevelsOfHeight(float min, float max, unsigned int count) {
    const float intervals = static_cast<float>(count) - 1.0f;
    const float margin = 0.2f * ((max - min) / intervals);
    const float low = min + margin;
    const float step = ((max - margin) - low) / intervals;
    return LevelsFrom(low, step, 0, count);
}

std::vector<float> ContourLevelsInside(float min, float max, unsigned int count) {
    const float intervals = static_cast<float>(count) + 1.0f;
    const float margin = 0.2f * ((max - min) / intervals);
    const float low = min + margin;
    const float step = ((max - margin) - low) / intervals;
    return LevelsFrom(low, step, 1, count);
}

std::vector<float> ContourLevelsEven(float min, float max, unsigned int count) {
    const float step = (max - min) / (static_cast<float>(count) + 1.0f);
    return LevelsFrom(min, step, 1, count);
}

} // namespace KivoDrawingTools
