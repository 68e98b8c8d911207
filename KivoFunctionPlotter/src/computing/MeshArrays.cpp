#include "MeshArrays.h"

#include "VectorClones.h"

#include <algorithm>
#include <type_traits>

namespace KivoDrawingTools {

namespace {

// Least and greatest of the floats at equal places of triples. Lanes of whole vectors keep their own.
constexpr std::size_t lanes = 24; // eight triples
struct LaneBounds {
    float min[lanes], max[lanes];
    unsigned int lacking[lanes]; // not 0 where a number is missing
};

KIVO_VECTOR_CLONES void WidenByTriples(const float* triples, std::size_t count, LaneBounds& bounds) {
    LaneBounds local = bounds;
    for (std::size_t start = 0; start < count; start += 8)
        for (std::size_t k = 0; k < lanes; ++k) {
            const float value = triples[3 * start + k];
            local.min[k] = local.min[k] > value ? value : local.min[k];
            local.max[k] = value > local.max[k] ? value : local.max[k];
            local.lacking[k] |= static_cast<unsigned int>(value != value);
        }
    bounds = local;
}

// Returns whether each coordinate is a number.
bool Widen(const float* point, float* min, float* max) {
    for (int i = 0; i < 3; ++i) {
        if (min[i] > point[i])
            min[i] = point[i];
        else if (point[i] > max[i])
            max[i] = point[i];
    }
    return point[0] == point[0] && point[1] == point[1] && point[2] == point[2];
}

// Of zeros that differ in sign the first one met is the bound. Lanes cannot tell which that is.
void TakeFirstZero(const GridView& grid, std::size_t coordinate, float& bound) {
    for (std::size_t r = 0; r < grid.rows; ++r)
        for (std::size_t c = 0; c < grid.columns; ++c)
            if (grid.At(c, r)[coordinate] == 0.0f) {
                bound = grid.At(c, r)[coordinate];
                return;
            }
}

bool FindBoundsOfTriples(const GridView& grid, float* min, float* max) {
    LaneBounds bounds = {};
    bool areNumbers = true;
    for (std::size_t k = 0; k < lanes; ++k)
        bounds.min[k] = bounds.max[k] = grid.points[k % 3];
    const std::size_t whole = grid.columns / 8 * 8;
    for (std::size_t r = 0; r < grid.rows; ++r) {
        WidenByTriples(grid.At(0, r), whole, bounds);
        for (std::size_t c = whole; c < grid.columns; ++c)
            areNumbers &= Widen(grid.At(c, r), min, max);
    }
    for (std::size_t k = 0; k < lanes; k += 3) {
        Widen(bounds.min + k, min, max);
        Widen(bounds.max + k, min, max);
    }
    for (std::size_t i = 0; i < 3; ++i) {
        if (min[i] == 0.0f) TakeFirstZero(grid, i, min[i]);
        if (max[i] == 0.0f) TakeFirstZero(grid, i, max[i]);
    }
    return areNumbers && std::all_of(bounds.lacking, bounds.lacking + lanes,
                                     [](unsigned int lacking) { return lacking == 0; });
}

KIVO_VECTOR_CLONES void AddToAll(const unsigned int* indices, std::size_t count, unsigned int offset,
                                 unsigned int* sums) {
    for (std::size_t i = 0; i < count; ++i)
        sums[i] = indices[i] + offset;
}

KIVO_VECTOR_CLONES void FillTexcoordRow(int columns, float du, float v, float* texcoords) {
    for (int c = 0; c < columns; ++c) {
        texcoords[2 * c] = static_cast<float>(c) * du;
        texcoords[2 * c + 1] = v;
    }
}

} // namespace

bool FindBounds(const GridView& grid, float* min, float* max) {
    std::copy_n(grid.points, 3, min);
    std::copy_n(grid.points, 3, max);
    if (grid.columnStride == 3) return FindBoundsOfTriples(grid, min, max);
    bool areNumbers = true;
    for (std::size_t r = 0; r < grid.rows; ++r)
        for (std::size_t c = 0; c < grid.columns; ++c)
            areNumbers &= Widen(grid.At(c, r), min, max);
    return areNumbers;
}

void FillTexcoords(unsigned int columns, unsigned int rows, float* texcoords, unsigned int mostInVectors) {
    const float du = 1.0f / static_cast<float>(std::max(columns, 1u) - 1);
    const float dv = 1.0f / static_cast<float>(std::max(rows, 1u) - 1);
    for (std::size_t r = 0; r < rows; ++r) {
        const float v = static_cast<float>(r) * dv;
        float* const row = texcoords + r * columns * 2;
        const unsigned int inVectors = std::min(columns, mostInVectors);
        FillTexcoordRow(static_cast<int>(inVectors), du, v, row);
        for (std::size_t c = inVectors; c < columns; ++c) {
            row[2 * c] = static_cast<float>(c) * du;
            row[2 * c + 1] = v;
        }
    }
}

void FillTriangleIndices(unsigned int cellColumns, unsigned int cellRows, unsigned int* indices) {
    if (cellRows == 0) return;
    const unsigned int columns = cellColumns + 1;
    unsigned int* index = indices;
    for (unsigned int a = 0; a < cellColumns; ++a)
        for (const unsigned int corner : {a, a + 1, a + columns + 1, a, a + columns + 1, a + columns})
            *index++ = corner;
    const std::size_t perRow = std::size_t{cellColumns} * 6;
    for (std::size_t r = 1; r < cellRows; ++r)
        AddToAll(indices + (r - 1) * perRow, perRow, columns, indices + r * perRow);
}

FrameLines::Side FrameLines::Divide(unsigned int cells, unsigned int step) {
    Side side = {cells, std::min(cells, step), 0};
    if (side.step == 0) return side;
    side.inner = (cells - 1) / side.step;
    const bool endsBesideBorder = side.inner > 0 && side.inner * side.step == cells - 1;
    if (endsBesideBorder && cells % side.step < side.step / 2) --side.inner;
    return side;
}

FrameLines::FrameLines(unsigned int cellColumns, unsigned int cellRows, unsigned int columnStep,
                       unsigned int rowStep)
    : m_columns(Divide(cellColumns, columnStep)), m_rows(Divide(cellRows, rowStep)) {}

std::size_t FrameLines::IndexCount() const {
    if (m_columns.step == 0 || m_rows.step == 0) return 0;
    return 2 * ((std::size_t{m_rows.inner} + 2) * m_columns.cells +
                (std::size_t{m_columns.inner} + 2) * m_rows.cells);
}

void FrameLines::Fill(unsigned int* indices) const {
    if (IndexCount() == 0) return;
    const unsigned int columns = m_columns.cells + 1;
    const std::size_t perRow = std::size_t{m_columns.cells} * 2;
    const std::size_t perColumn = std::size_t{m_rows.cells} * 2;
    unsigned int* const bottom = indices;
    unsigned int* const left = bottom + 2 * perRow;
    unsigned int* next = left + 2 * perColumn;

    for (unsigned int c = 0; c < m_columns.cells; ++c) {
        bottom[2 * std::size_t{c}] = c;
        bottom[2 * std::size_t{c} + 1] = c + 1;
    }
    AddToAll(bottom, perRow, m_rows.cells * columns, bottom + perRow);
    for (unsigned int r = 0; r < m_rows.cells; ++r) {
        left[2 * std::size_t{r}] = r * columns;
        left[2 * std::size_t{r} + 1] = (r + 1) * columns;
    }
    AddToAll(left, perColumn, m_columns.cells, left + perColumn);
    for (unsigned int i = 1; i <= m_rows.inner; ++i, next += perRow)
        AddToAll(bottom, perRow, i * m_rows.step * columns, next);
    for (unsigned int i = 1; i <= m_columns.inner; ++i, next += perColumn)
        AddToAll(left, perColumn, i * m_columns.step, next);
}

} // namespace KivoDrawingTools
