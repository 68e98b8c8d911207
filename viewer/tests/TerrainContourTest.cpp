// The contours of the sample terrain: how many segments they have.
#include "computing/MarchingSquares.h"
#include "GridReader.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <vector>

using namespace KivoDrawingTools;

namespace {

struct Terrain {
    std::vector<float> points;
    unsigned int columns = 0;
    unsigned int rows = 0;

    Terrain() {
        const KivoViewer::GridData grid = KivoViewer::ReadGridFile(KIVO_SAMPLE_TERRAIN);
        columns = static_cast<unsigned int>(grid.ColumnCount());
        rows = static_cast<unsigned int>(grid.RowCount());
        for (unsigned int r = 0; r < rows; ++r)
            for (unsigned int c = 0; c < columns; ++c)
                points.insert(points.end(), {grid.x[c], grid.y[r], grid.z[r * columns + c]});
    }

    float Value(unsigned int c, unsigned int r, int axis) const {
        return points[(r * columns + c) * 3 + axis];
    }

    float Extreme(int axis, bool largest) const {
        float value = points[axis];
        for (std::size_t i = axis; i < points.size(); i += 3)
            value = largest ? std::max(value, points[i]) : std::min(value, points[i]);
        return value;
    }

    // A level passes a cell once for each two changes of side along its border.
    std::uint64_t CountSegments(int axis, float level) const {
        std::uint64_t changes = 0;
        for (unsigned int r = 0; r + 1 < rows; ++r)
            for (unsigned int c = 0; c + 1 < columns; ++c) {
                const bool below[] = {level > Value(c, r, axis), level > Value(c + 1, r, axis),
                                      level > Value(c + 1, r + 1, axis), level > Value(c, r + 1, axis)};
                for (int i = 0; i < 4; ++i)
                    changes += below[i] != below[(i + 1) % 4] ? 1 : 0;
            }
        return changes / 2;
    }

    std::uint64_t TraceSegments(int axis, float level) const {
        return TraceLevelLines({points.data(), columns, rows, 3, 3 * columns}, axis, {level})[0].pointCount /
               2;
    }
};

std::uint64_t ExpectSameCounts(const Terrain& terrain, int axis, const std::vector<float>& levels) {
    std::uint64_t total = 0;
    for (const float level : levels) {
        EXPECT_EQ(terrain.TraceSegments(axis, level), terrain.CountSegments(axis, level)) << level;
        total += terrain.TraceSegments(axis, level);
    }
    return total;
}

} // namespace

TEST(TerrainContour, HasTheSegmentsOfTheSample) {
    const Terrain terrain;
    ASSERT_EQ(terrain.columns, 119u);
    ASSERT_EQ(terrain.rows, 100u);
    const auto levels = [&](int axis, auto place) {
        return place(terrain.Extreme(axis, false), terrain.Extreme(axis, true), 20);
    };
    // Across the grid each level of x passes every row of cells once, each level of y every column.
    EXPECT_EQ(ExpectSameCounts(terrain, 0, levels(0, ContourLevelsInside)), 20u * 99u);
    EXPECT_EQ(ExpectSameCounts(terrain, 1, levels(1, ContourLevelsInside)), 20u * 118u);
    EXPECT_EQ(ExpectSameCounts(terrain, 2, levels(2, ContourLevelsOfHeight)), 19137u);
}
