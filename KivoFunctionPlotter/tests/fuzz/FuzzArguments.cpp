#include "FuzzArguments.h"

#include <algorithm>
#include <cstdint>

namespace KivoDrawingTools {

// Numbers that take time when they are large: those are rare.
int FuzzArguments::Of(Amount amount, int) {
    static constexpr int ticks[] = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 12, 14, 15, 40, 200};
    static constexpr int contours[] = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 12, 15, 19, 60, 300};
    static constexpr int digits[] = {0, 0, 0, 1, 1, 2, 2, 3, 3, 4, 5, 6, 8, 20, 1000, -1};
    static constexpr int heights[] = {0, 1, 2, 3, 5, 8, 9, 10, 10, 10, 12, 14, 20, -10, -20, 60};
    switch (amount) {
    case Amount::ticks:
        return ticks[m_input.Below(16)];
    case Amount::contours:
        return contours[m_input.Below(16)];
    case Amount::digits:
        return digits[m_input.Below(16)];
    case Amount::textHeight:
        return heights[m_input.Below(16)];
    case Amount::pictureSize:
        return std::min(m_input.Int(), 300);
    }
    return 0;
}

POINT FuzzArguments::Point(POINT) {
    POINT point;
    const bool isAnywhere = m_input.Flag();
    point.x = isAnywhere ? m_input.Int() : static_cast<int>(m_input.Below(m_width));
    point.y = isAnywhere ? m_input.Int() : static_cast<int>(m_input.Below(m_height));
    return point;
}

std::vector<float> FuzzArguments::Numbers(std::size_t count) {
    std::vector<float> numbers(count);
    for (float& number : numbers)
        number = m_input.IsEmpty() ? 1.0f : m_input.Float();
    return numbers;
}

// ---- Grids and points

/// @return how many floats the interface asks for
std::size_t FuzzArguments::Shape(GridArguments& grid) {
    grid = {};
    grid.columns = m_input.Below(9);
    grid.rows = m_input.Below(9);
    grid.components = m_input.Below(7);
    grid.columnStride = 1;
    grid.rowStride = grid.columns;
    if (m_input.Below(4) == 0) {
        grid.columnStride = m_input.Below(5);
        grid.rowStride = m_input.Below(50);
    }
    if (grid.columns == 0 || grid.rows == 0) return 0;
    const std::size_t last =
        std::size_t{grid.columns - 1} * grid.columnStride + std::size_t{grid.rows - 1} * grid.rowStride;
    return (last + 1) * grid.components;
}

// A smooth surface at any place and of any height, with some points replaced by anything.
std::vector<float> FuzzArguments::Surface(const GridArguments& grid, std::size_t count) {
    std::vector<float> points(count);
    const float offset = m_input.Float();
    const float step = m_input.Float();
    const float height = m_input.Float();
    const std::size_t columns = std::max(grid.columns, 1u);
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t component = i % grid.components, place = i / grid.components;
        const auto column = static_cast<float>(place % columns);
        const auto row = static_cast<float>(place / columns);
        points[i] = component == 0   ? offset + column * step
                    : component == 1 ? offset + row * step
                                     : height * column * row;
    }
    for (unsigned int holes = m_input.Below(6); holes > 0 && count > 0; --holes) {
        float& hole = points[m_input.Byte() % count];
        hole = m_input.Float();
    }
    return points;
}

GridArguments FuzzArguments::GridToTakeOver() {
    GridArguments grid;
    const std::size_t count = Shape(grid);
    const std::vector<float> points = Surface(grid, count);
    if (grid.columns == 0 || grid.rows == 0) return grid;
    grid.points = new float[count];
    std::copy(points.begin(), points.end(), grid.points);
    return grid;
}

GridArguments FuzzArguments::GridToRefer() {
    GridArguments grid;
    const std::size_t count = Shape(grid);
    grid.points = Keep(Surface(grid, count));
    return grid;
}

PointArguments FuzzArguments::Points() {
    PointArguments points = {};
    points.count = m_input.Below(6);
    points.floatsPerPoint = m_input.Below(5);
    float* const array = Keep(Numbers(std::size_t{points.count} * points.floatsPerPoint));
    points.points = m_input.Below(8) == 0 ? nullptr : array;
    return points;
}

} // namespace KivoDrawingTools
