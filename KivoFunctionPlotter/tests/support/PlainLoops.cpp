#include "PlainLoops.h"

#include "computing/VectorMath.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace KivoDrawingTools {

namespace {

// Pairs of crossed edges by case, -1 after the last. Edge i runs from corner i to corner (i + 1) % 4; a case
// has bit i set when the level is greater than the value at corner i.
constexpr int segments[16][5] = {
    {-1},       {0, 3, -1}, {0, 1, -1}, {1, 3, -1}, {1, 2, -1},       {0, 3, 1, 2, -1},
    {0, 2, -1}, {2, 3, -1}, {2, 3, -1}, {0, 2, -1}, {0, 1, 2, 3, -1}, {1, 2, -1},
    {1, 3, -1}, {0, 1, -1}, {0, 3, -1}, {-1},
};

} // namespace

std::vector<float> PlainLevelLines(const GridView& grid, int axis, float level) {
    std::vector<float> found;
    for (std::size_t r = 0; r + 1 < grid.rows; ++r)
        for (std::size_t c = 0; c + 1 < grid.columns; ++c) {
            const float* corners[4] = {grid.At(c, r), grid.At(c + 1, r), grid.At(c + 1, r + 1),
                                       grid.At(c, r + 1)};
            int index = 0;
            for (int i = 0; i < 4; ++i)
                if (level > corners[i][axis]) index += 1 << i;
            for (const int* edge = segments[index]; *edge >= 0; ++edge) {
                const float* first = corners[*edge];
                const float* second = corners[(*edge + 1) % 4];
                const double t = (static_cast<double>(level) - first[axis]) /
                                 (static_cast<double>(second[axis]) - first[axis]);
                for (int i = 0; i < 3; ++i)
                    found.push_back(
                        i == axis
                            ? level
                            : static_cast<float>(first[i] + (static_cast<double>(second[i]) - first[i]) * t));
            }
        }
    return found;
}

PickResult PlainPick(const GridView& grid, const float* origin, const float* dir, float limit, float* hit) {
    PickResult result = PickResult::nothing;
    float best = limit;
    for (std::size_t r = 1; r < grid.rows; ++r)
        for (std::size_t c = 1; c < grid.columns; ++c) {
            const float* a = grid.At(c - 1, r - 1);
            const float* triangles[2][3] = {{a, grid.At(c, r - 1), grid.At(c, r)},
                                            {a, grid.At(c, r), grid.At(c - 1, r)}};
            for (const auto& corners : triangles) {
                float point[3];
                bool inside = false;
                const float t = MeetTriangle(origin, dir, corners[0], corners[1], corners[2], point, &inside);
                if (!inside) continue;
                if (result == PickResult::nothing) result = PickResult::beyond;
                if (!(t < best)) continue;
                best = t;
                std::copy(point, point + 3, hit);
                result = PickResult::triangle;
            }
        }
    return result;
}

void PlainBounds(const GridView& grid, float* min, float* max) {
    std::copy(grid.points, grid.points + 3, min);
    std::copy(grid.points, grid.points + 3, max);
    for (std::size_t r = 0; r < grid.rows; ++r)
        for (std::size_t c = 0; c < grid.columns; ++c)
            for (int i = 0; i < 3; ++i) {
                const float value = grid.At(c, r)[i];
                if (min[i] > value)
                    min[i] = value;
                else if (value > max[i])
                    max[i] = value;
            }
}

std::vector<float> PlainColors(const GridView& grid, const CKivoGradientColor& gradient) {
    std::vector<float> colors;
    for (std::size_t r = 0; r < grid.rows; ++r)
        for (std::size_t c = 0; c < grid.columns; ++c) {
            float rgb[3];
            gradient.Evaluate(grid.At(c, r)[2], rgb);
            colors.insert(colors.end(), {rgb[0], rgb[1], rgb[2], 1.0f});
        }
    return colors;
}

std::vector<float> PlainTexcoords(unsigned int columns, unsigned int rows) {
    const float du = 1.0f / static_cast<float>(columns - 1);
    const float dv = 1.0f / static_cast<float>(rows - 1);
    std::vector<float> texcoords;
    for (unsigned int r = 0; r < rows; ++r)
        for (unsigned int c = 0; c < columns; ++c)
            texcoords.insert(texcoords.end(), {static_cast<float>(c) * du, static_cast<float>(r) * dv});
    return texcoords;
}

std::vector<unsigned int> PlainTriangles(unsigned int columns, unsigned int rows) {
    std::vector<unsigned int> indices;
    for (unsigned int r = 0; r + 1 < rows; ++r)
        for (unsigned int c = 0; c + 1 < columns; ++c) {
            const unsigned int a = r * columns + c;
            indices.insert(indices.end(), {a, a + 1, a + columns + 1, a, a + columns + 1, a + columns});
        }
    return indices;
}

std::vector<unsigned int> PlainFrameLines(unsigned int columns, unsigned int rows, unsigned int columnStep,
                                          unsigned int rowStep) {
    const unsigned int across = columns - 1, up = rows - 1;
    const unsigned int sc = std::min(across, columnStep), sr = std::min(up, rowStep);
    std::vector<unsigned int> indices;
    const auto row = [&](unsigned int r) {
        for (unsigned int c = 0; c < across; ++c)
            indices.insert(indices.end(), {r * columns + c, r * columns + c + 1});
    };
    const auto column = [&](unsigned int c) {
        for (unsigned int r = 0; r < up; ++r)
            indices.insert(indices.end(), {r * columns + c, (r + 1) * columns + c});
    };
    row(0);
    row(up);
    column(0);
    column(across);
    for (unsigned int r = sr; r < up; r += sr)
        if (r != up - 1 || up % sr >= sr / 2) row(r);
    for (unsigned int c = sc; c < across; c += sc)
        if (c != across - 1 || across % sc >= sc / 2) column(c);
    return indices;
}

bool AreIdentical(float a, float b) {
    return (std::isnan(a) && std::isnan(b)) || std::memcmp(&a, &b, sizeof(a)) == 0;
}

bool AreIdentical(const float* a, const float* b, std::size_t count) {
    return std::equal(a, a + count, b, [](float left, float right) { return AreIdentical(left, right); });
}

} // namespace KivoDrawingTools
