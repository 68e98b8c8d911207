// The part of a grid that is read, and how much of it.
#pragma once

#include "ReadOptions.h"

#include <cstddef>
#include <string>
#include <vector>

namespace KivoViewer {

/// Columns or rows of a grid, in the order of its file: every so many of a part of them. The step is an odd
/// number, so that the middle of each block of cells is a cell.
struct GridSpan {
    std::size_t first = 0;
    std::size_t count = 0;
    std::size_t step = 1;

    std::size_t Size() const { return count / step; }                           ///< that are read
    std::size_t At(std::size_t i) const { return first + step / 2 + i * step; } ///< the i-th of these
    /// Which of these an index is, or Size() where it is none.
    std::size_t Find(std::size_t index) const {
        if (index < At(0) || (index - At(0)) % step != 0) return Size();
        const std::size_t i = (index - At(0)) / step;
        return i < Size() ? i : Size();
    }
    bool Has(std::size_t index) const { return Find(index) < Size(); }
};

/// What is read of a grid.
struct GridWindow {
    GridSpan columns;
    GridSpan rows;

    bool IsReduced() const { return columns.step > 1; }
    std::size_t Size() const { return columns.Size() * rows.Size(); }
    /// What is left out, in words, or nothing.
    std::string Note() const;
};

/// The whole of a grid, or what of it may be read: every k-th row and column of one with more points than
/// that. Throws a Failure where no grid is left.
/// @param name  of the file, for the message
GridWindow WindowOf(const std::string& name, GridSpan columns, GridSpan rows, std::size_t mostPoints);

/// The cells along an axis whose centres lie in a range.
/// @param corner  of the first cell
/// @param step    from one cell to the next; may be negative
GridSpan CellsWithin(double corner, double step, std::size_t count, double from, double to);

/// The coordinates in order, of those of a grid, that lie in a range.
GridSpan CoordinatesWithin(const std::vector<double>& coordinates, double from, double to);

} // namespace KivoViewer
