// The cells of grids in the order in which they are drawn where one shows through the other.
#pragma once

#include "DrawingStop.h"
#include "GridView.h"

#include <cstddef>
#include <vector>

namespace KivoDrawingTools {

/// The triangles of a grid in strips, a row or a column of cells each, from far to near. Seen along parallel
/// lines no strip of a surface over x and y lies before one that comes after it, nor a cell within a strip.
class CellStrips {
public:
    struct Strip {
        std::size_t begin; ///< in Indices()
        std::size_t end;
        float place;  ///< how near its middle is as seen from above
        float height; ///< how much nearer it is for its height
    };

    CellStrips() = default;
    /// Notes where the rows and columns lie, and makes room for the order.
    /// @param grid   what is no number among its points is passed over
    /// @param holes  one for each cell, row by row, where not 0 without triangles; empty where there is none
    CellStrips(const GridView& grid, std::vector<unsigned char> holes);

    /// Puts the cells in order. It takes no memory.
    /// @param nearness  by how much a point comes nearer for each unit of its x, y and z
    /// @param stop      asked between strips; there may be none of them once it is wanted
    void Arrange(const float* nearness, DrawingStop* stop = nullptr);

    /// Of all triangles, as FillTriangleIndices splits cells; after Arrange.
    const std::vector<unsigned int>& Indices() const { return m_indices; }
    const std::vector<Strip>& Strips() const { return m_strips; }

private:
    // The mean of the points of a row or column that are numbers.
    struct Middle {
        float point[3];
    };

    bool HasCells() const { return m_columns > 1 && m_rows > 1; }
    void FillIndices(DrawingStop* stop);
    void AddCell(std::size_t column, std::size_t row);

    unsigned int m_columns = 0;
    unsigned int m_rows = 0;
    std::vector<unsigned char> m_holes;
    std::vector<Middle> m_rowMiddles;
    std::vector<Middle> m_columnMiddles;
    std::vector<unsigned int> m_indices;
    std::vector<Strip> m_strips;

    struct Order {
        bool alongColumns;       // a strip is a column of cells
        bool hasRowsReversed;    // the last row is the farthest
        bool hasColumnsReversed; // and the last column
        bool isSecondFirst;      // of a cell's triangles
    };
    Order m_order = {};
};

/// A part of the triangles of one of several grids.
struct StripRun {
    std::size_t grid;
    std::size_t begin, end; ///< in the grid's Indices()
};

/// The strips of grids that lie over each other from far to near: those that lie in the same place as seen
/// from above, within the widest of all strips, from the farthest height to the nearest.
class StripMerge {
public:
    /// @param grids  arranged for the same view
    const std::vector<StripRun>& Merge(const std::vector<CellStrips*>& grids);

private:
    struct Entry {
        float slot; // at first the place
        float height;
        std::size_t grid;
        std::size_t strip;
    };

    void FindSlots();
    void LevelHeights();

    std::vector<Entry> m_entries;
    std::vector<StripRun> m_runs;
};

} // namespace KivoDrawingTools
