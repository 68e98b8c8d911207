#include "ReducedGrid.h"

#include "MeshArrays.h"
#include "VectorClones.h"

#include <algorithm>
#include <cstdint>

namespace KivoDrawingTools {

namespace {

KIVO_VECTOR_CLONES bool LackNumbers(const float* values, std::size_t count) {
    unsigned int lacking = 0;
    for (std::size_t i = 0; i < count; ++i)
        lacking |= static_cast<unsigned int>(values[i] != values[i]);
    return lacking != 0;
}

// Of points side by side. OpenGL takes up to four floats of a point, and three of longer ones.
bool LackNumbers(const float* points, std::size_t count, std::size_t components) {
    if (components <= 4) return LackNumbers(points, count * components);
    for (std::size_t i = 0; i < count; ++i)
        if (LackNumbers(points + i * components, 3)) return true;
    return false;
}

unsigned int NearestStep(unsigned int step, unsigned int keptStep) {
    if (step == 0) return 0;
    const std::uint64_t nearest = (std::uint64_t{step} + keptStep / 2) / keptStep;
    return static_cast<unsigned int>(std::max<std::uint64_t>(nearest, 1));
}

// Whether only holes lie beside the segment from one point to the next in its row or column.
bool IsInHoles(const std::vector<unsigned char>& holes, std::size_t columns, std::size_t rows,
               std::size_t from, std::size_t to) {
    const std::size_t c = from % columns, r = from / columns;
    const bool isAlongRow = to == from + 1;
    const std::size_t across = isAlongRow ? r : c;
    const std::size_t cellColumns = columns - 1;
    const std::size_t after = r * cellColumns + c;
    const std::size_t before = after - (isAlongRow ? cellColumns : 1);
    const bool hasBefore = across > 0;
    const bool hasAfter = across + 1 < (isAlongRow ? rows : columns);
    return (!hasBefore || holes[before] != 0) && (!hasAfter || holes[after] != 0);
}

} // namespace

unsigned int KeptSide::Count() const {
    if (points < 2) return points;
    return (points - 2) / step + 2;
}

std::size_t KeptSide::Source(std::size_t kept) const {
    return std::min(kept * step, std::size_t{points} - 1);
}

KeptSide KeepAtMost(unsigned int points, unsigned int most) {
    if (points <= most) return {points, 1};
    return {points, (points - 2) / (most - 1) + 1};
}

void CopyKept(const ReducedGrid& grid, const float* values, std::size_t floatsPerPoint, std::size_t floats,
              float* kept) {
    for (std::size_t r = 0; r < grid.rows.Count(); ++r) {
        const float* const row = values + grid.rows.Source(r) * grid.columns.points * floatsPerPoint;
        for (std::size_t c = 0; c < grid.columns.Count(); ++c)
            kept = std::copy_n(row + grid.columns.Source(c) * floatsPerPoint, floats, kept);
    }
}

std::vector<unsigned char> MarkHoles(const ReducedGrid& grid, const float* points, std::size_t components) {
    const std::size_t cellColumns = grid.columns.Count() - 1;
    const std::size_t cellRows = grid.rows.Count() - 1;
    const std::size_t floatsPerRow = grid.columns.points * components;
    std::vector<unsigned char> holes(cellColumns * cellRows, 0);
    for (std::size_t r = 0; r < grid.rows.points; ++r) {
        const float* const row = points + r * floatsPerRow;
        if (!LackNumbers(row, floatsPerRow)) continue; // most rows, and whole ones are read fastest
        // A row on a side belongs to the cells before it and after it.
        const std::size_t last = std::min(r / grid.rows.step, cellRows - 1);
        const std::size_t first = last > 0 && r == last * grid.rows.step ? last - 1 : last;
        for (std::size_t c = 0; c < cellColumns; ++c) {
            const std::size_t begin = grid.columns.Source(c);
            const std::size_t end = grid.columns.Source(c + 1) + 1;
            unsigned char& before = holes[first * cellColumns + c];
            unsigned char& after = holes[last * cellColumns + c];
            if (before != 0 && after != 0) continue;
            if (LackNumbers(row + begin * components, end - begin, components)) before = after = 1;
        }
    }
    return holes;
}

std::vector<unsigned int> ReducedTriangles(const ReducedGrid& grid, const std::vector<unsigned char>& holes) {
    constexpr std::size_t perCell = 6;
    const unsigned int cellColumns = grid.columns.Count() - 1;
    const unsigned int cellRows = grid.rows.Count() - 1;
    std::vector<unsigned int> indices(std::size_t{cellColumns} * cellRows * perCell);
    FillTriangleIndices(cellColumns, cellRows, indices.data());
    auto end = indices.begin();
    for (std::size_t cell = 0; cell < holes.size(); ++cell)
        if (holes[cell] == 0)
            end = std::copy_n(indices.begin() + static_cast<std::ptrdiff_t>(cell * perCell), perCell, end);
    if (!holes.empty()) indices.erase(end, indices.end());
    return indices;
}

std::vector<unsigned int> ReducedFrameLines(const ReducedGrid& grid, unsigned int columnStep,
                                            unsigned int rowStep, const std::vector<unsigned char>& holes) {
    const std::size_t columns = grid.columns.Count();
    const std::size_t rows = grid.rows.Count();
    const FrameLines lines(grid.columns.Count() - 1, grid.rows.Count() - 1,
                           NearestStep(columnStep, grid.columns.step), NearestStep(rowStep, grid.rows.step));
    std::vector<unsigned int> indices(lines.IndexCount());
    lines.Fill(indices.data());
    if (holes.empty()) return indices;
    auto end = indices.begin();
    for (std::size_t i = 0; i < indices.size(); i += 2)
        if (!IsInHoles(holes, columns, rows, indices[i], indices[i + 1]))
            end = std::copy_n(indices.begin() + static_cast<std::ptrdiff_t>(i), 2, end);
    indices.erase(end, indices.end());
    return indices;
}

} // namespace KivoDrawingTools
