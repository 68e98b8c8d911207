#include "CellStrips.h"

#include <algorithm>
#include <cmath>
#include <tuple>
#include <utility>

namespace KivoDrawingTools {

namespace {

constexpr std::size_t perCell = 6;        // indices of two triangles
constexpr std::size_t stripsAtATime = 16; // between two questions whether to go on

bool AreNumbers(const float* point) {
    return std::isfinite(point[0]) && std::isfinite(point[1]) && std::isfinite(point[2]);
}

// Sums in double precision: coordinates of a grid may be large beside its cells.
struct Sum {
    double point[3] = {};
    std::size_t count = 0;

    void Add(const float* p) {
        for (int i = 0; i < 3; ++i)
            point[i] += static_cast<double>(p[i]);
        ++count;
    }
};

float Product(const float* a, const float* b, int count) {
    float sum = 0.0f;
    for (int i = 0; i < count; ++i)
        sum += a[i] * b[i];
    return std::isfinite(sum) ? sum : 0.0f;
}

} // namespace

CellStrips::CellStrips(const GridView& grid, std::vector<unsigned char> holes)
    : m_columns(grid.columns), m_rows(grid.rows), m_holes(std::move(holes)) {
    if (!HasCells()) return;
    std::vector<Sum> rows(m_rows), columns(m_columns);
    for (std::size_t r = 0; r < m_rows; ++r)
        for (std::size_t c = 0; c < m_columns; ++c) {
            const float* const point = grid.At(c, r);
            if (!AreNumbers(point)) continue;
            rows[r].Add(point);
            columns[c].Add(point);
        }
    const auto middles = [](const std::vector<Sum>& sums) {
        std::vector<Middle> result(sums.size(), Middle{});
        for (std::size_t i = 0; i < sums.size(); ++i)
            for (int k = 0; k < 3 && sums[i].count != 0; ++k)
                result[i].point[k] =
                    static_cast<float>(sums[i].point[k] / static_cast<double>(sums[i].count));
        // A row without numbers lies where its neighbour does.
        for (std::size_t i = 1; i < sums.size(); ++i)
            if (sums[i].count == 0) result[i] = result[i - 1];
        for (std::size_t i = sums.size() - 1; i-- > 0;)
            if (sums[i].count == 0 && sums[i + 1].count != 0) result[i] = result[i + 1];
        return result;
    };
    m_rowMiddles = middles(rows);
    m_columnMiddles = middles(columns);
    m_indices.reserve(std::size_t{m_columns - 1} * (m_rows - 1) * perCell);
    m_strips.reserve(std::max(m_columns, m_rows) - 1);
}

// Strips run across the direction of sight, as far as the grid has such.
void CellStrips::Arrange(const float* nearness, DrawingStop* stop) {
    if (!HasCells()) return;
    const auto ascent = [&](const std::vector<Middle>& middles) {
        return Product(nearness, middles.back().point, 2) - Product(nearness, middles.front().point, 2);
    };
    const float overRows = ascent(m_rowMiddles);
    const float overColumns = ascent(m_columnMiddles);
    const float perRow = overRows / static_cast<float>(m_rows - 1);
    const float perColumn = overColumns / static_cast<float>(m_columns - 1);
    Order order = {};
    order.alongColumns = std::fabs(perColumn) > std::fabs(perRow);
    order.hasRowsReversed = perRow < 0.0f;
    order.hasColumnsReversed = perColumn < 0.0f;
    order.isSecondFirst = perColumn > perRow;
    const auto all = [](const Order& o) {
        return std::tie(o.alongColumns, o.hasRowsReversed, o.hasColumnsReversed, o.isSecondFirst);
    };
    if (m_strips.empty() || all(order) != all(m_order)) {
        m_order = order;
        FillIndices(stop);
    }
    const std::vector<Middle>& middles = order.alongColumns ? m_columnMiddles : m_rowMiddles;
    const bool isReversed = order.alongColumns ? order.hasColumnsReversed : order.hasRowsReversed;
    for (std::size_t k = 0; k < m_strips.size(); ++k) {
        const std::size_t i = isReversed ? m_strips.size() - 1 - k : k;
        m_strips[k].place =
            0.5f * (Product(nearness, middles[i].point, 2) + Product(nearness, middles[i + 1].point, 2));
        m_strips[k].height = 0.5f * (Product(nearness + 2, middles[i].point + 2, 1) +
                                     Product(nearness + 2, middles[i + 1].point + 2, 1));
    }
}

void CellStrips::FillIndices(DrawingStop* stop) {
    m_indices.clear();
    m_strips.clear();
    const std::size_t cellColumns = m_columns - 1, cellRows = m_rows - 1;
    const std::size_t strips = m_order.alongColumns ? cellColumns : cellRows;
    const std::size_t cells = m_order.alongColumns ? cellRows : cellColumns;
    for (std::size_t s = 0; s < strips; ++s) {
        const std::size_t begin = m_indices.size();
        for (std::size_t k = 0; k < cells; ++k) {
            const std::size_t c = m_order.alongColumns ? s : k, r = m_order.alongColumns ? k : s;
            AddCell(m_order.hasColumnsReversed ? cellColumns - 1 - c : c,
                    m_order.hasRowsReversed ? cellRows - 1 - r : r);
        }
        m_strips.push_back({begin, m_indices.size(), 0.0f, 0.0f});
        if (s % stripsAtATime == stripsAtATime - 1 && IsStopped(stop)) {
            m_indices.clear(); // to be filled anew
            m_strips.clear();
            return;
        }
    }
}

void CellStrips::AddCell(std::size_t column, std::size_t row) {
    if (!m_holes.empty() && m_holes[row * (m_columns - 1) + column] != 0) return;
    const auto a = static_cast<unsigned int>(row * m_columns + column);
    const unsigned int opposite = a + m_columns + 1;
    for (const bool isFirst : {!m_order.isSecondFirst, m_order.isSecondFirst}) {
        m_indices.push_back(a);
        m_indices.push_back(isFirst ? a + 1 : opposite);
        m_indices.push_back(isFirst ? opposite : opposite - 1);
    }
}

const std::vector<StripRun>& StripMerge::Merge(const std::vector<CellStrips*>& grids) {
    m_entries.clear();
    m_runs.clear();
    for (std::size_t g = 0; g < grids.size(); ++g)
        for (std::size_t s = 0; s < grids[g]->Strips().size(); ++s) {
            const CellStrips::Strip& strip = grids[g]->Strips()[s];
            m_entries.push_back({strip.place, strip.height, g, s});
        }
    FindSlots();
    LevelHeights();
    std::sort(m_entries.begin(), m_entries.end(), [](const Entry& a, const Entry& b) {
        return std::tie(a.slot, a.height, a.grid, a.strip) < std::tie(b.slot, b.height, b.grid, b.strip);
    });
    for (const Entry& entry : m_entries) {
        const CellStrips::Strip& strip = grids[entry.grid]->Strips()[entry.strip];
        if (!m_runs.empty() && m_runs.back().grid == entry.grid && m_runs.back().end == strip.begin)
            m_runs.back().end = strip.end;
        else
            m_runs.push_back({entry.grid, strip.begin, strip.end});
    }
    return m_runs;
}

// Turns places into numbers of slots, as wide as the widest strip.
void StripMerge::FindSlots() {
    if (m_entries.empty()) return;
    float width = 0.0f;
    float farthest = m_entries[0].slot;
    for (std::size_t i = 0; i < m_entries.size(); ++i) {
        farthest = std::min(farthest, m_entries[i].slot);
        if (i != 0 && m_entries[i].grid == m_entries[i - 1].grid)
            width = std::max(width, std::fabs(m_entries[i].slot - m_entries[i - 1].slot));
    }
    for (Entry& entry : m_entries) {
        const float slot = std::floor((entry.slot - farthest) / width);
        entry.slot = std::isfinite(slot) ? slot : 0.0f;
    }
}

// The strips of a surface in one slot get their mean height, so that they stay together.
void StripMerge::LevelHeights() {
    for (std::size_t begin = 0, end = 0; begin < m_entries.size(); begin = end) {
        float sum = 0.0f;
        for (end = begin; end < m_entries.size() && m_entries[end].grid == m_entries[begin].grid &&
                          m_entries[end].slot == m_entries[begin].slot;
             ++end)
            sum += m_entries[end].height;
        const float mean = sum / static_cast<float>(end - begin);
        for (std::size_t i = begin; i < end; ++i)
            m_entries[i].height = std::isfinite(mean) ? mean : 0.0f;
    }
}

} // namespace KivoDrawingTools
