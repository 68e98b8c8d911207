// The arrays that a grid of points is drawn with: computed, not drawn.
#pragma once

#include "GridView.h"

#include <cstddef>

namespace KivoDrawingTools {

/// The least and greatest x, y and z of a grid with at least one point. A value that is no number is passed
/// over, unless the first point has it: then that coordinate's bounds are no numbers.
/// @param min, max  receive three floats each
/// @return whether every x, y and z is a number
bool FindBounds(const GridView& grid, float* min, float* max);

/// Texture coordinates that run from 0 to 1 across the grid, row by row; infinite or no numbers where there
/// is one column or row only.
/// @param texcoords      receives two floats a point
/// @param mostInVectors  of a row's columns that are numbered by ints, as vectors need it
void FillTexcoords(unsigned int columns, unsigned int rows, float* texcoords,
                   unsigned int mostInVectors = 1u << 30);

/// Two triangles a cell, split from its (c, r) to its (c + 1, r + 1) corner, both wound alike. Points are
/// numbered row by row.
/// @param cellColumns, cellRows  one less than the points of a row and the rows
/// @param indices                receives six indices a cell
void FillTriangleIndices(unsigned int cellColumns, unsigned int cellRows, unsigned int* indices);

/// Frame lines along the borders and along every columnStep-th column and rowStep-th row. A line right before
/// the far border is left out where the remainder of the cells by the step is less than half a step, rounded
/// down.
class FrameLines {
public:
    /// Steps are cut down to the cells there are; with none, there are no lines.
    FrameLines(unsigned int cellColumns, unsigned int cellRows, unsigned int columnStep,
               unsigned int rowStep);

    /// Number of indices, two a segment.
    std::size_t IndexCount() const;
    /// Writes them: bottom, top, left and right border, then the rows, then the columns between.
    void Fill(unsigned int* indices) const;

private:
    struct Side {
        unsigned int cells;
        unsigned int step;
        unsigned int inner; ///< lines between the borders
    };
    static Side Divide(unsigned int cells, unsigned int step);

    Side m_columns;
    Side m_rows;
};

} // namespace KivoDrawingTools
