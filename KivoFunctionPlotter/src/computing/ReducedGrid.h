// Every k-th row and column of a grid, in place of the whole.
#pragma once

#include <cstddef>
#include <vector>

namespace KivoDrawingTools {

/// What remains of the points of a side: every step-th one from the first, and the last.
struct KeptSide {
    unsigned int points; ///< of the whole
    unsigned int step;   ///< 1 keeps them all

    /// How many remain.
    unsigned int Count() const;
    /// The number among all points of one that remains, below Count().
    std::size_t Source(std::size_t kept) const;
};

/// The smallest step that leaves at most so many points.
/// @param most  at least 2, since both ends stay
KeptSide KeepAtMost(unsigned int points, unsigned int most);

/// The rows and columns that remain of a grid whose points lie packed, row by row.
struct ReducedGrid {
    KeptSide columns;
    KeptSide rows;

    bool IsWhole() const { return columns.step == 1 && rows.step == 1; }
    std::size_t Count() const { return std::size_t{columns.Count()} * rows.Count(); }
};

/// Copies the first floats of each point that remains.
/// @param values          of the whole grid
/// @param floatsPerPoint  from one point's values to the next point's
/// @param floats          that are copied of each, packed
void CopyKept(const ReducedGrid& grid, const float* values, std::size_t floatsPerPoint, std::size_t floats,
              float* kept);

/// Whether a number is missing among the points that lie in each cell of the reduced grid or on its sides,
/// row by row; so no hole is lost, however small. Sides have at least two points.
/// @param components  floats of a point, at least 3; of more than 4 the first three count
std::vector<unsigned char> MarkHoles(const ReducedGrid& grid, const float* points, std::size_t components);

/// Triangles as FillTriangleIndices has them, of the points that remain; none in cells with holes.
/// @param holes  from MarkHoles; empty where there is none
std::vector<unsigned int> ReducedTriangles(const ReducedGrid& grid, const std::vector<unsigned char>& holes);

/// Frame lines as FrameLines has them, of the points that remain, with the steps that come nearest to those
/// of the whole grid. A segment that only cells with holes touch is left out.
/// @param columnStep, rowStep  in cells of the whole grid
std::vector<unsigned int> ReducedFrameLines(const ReducedGrid& grid, unsigned int columnStep,
                                            unsigned int rowStep, const std::vector<unsigned char>& holes);

} // namespace KivoDrawingTools
