// Where a line of sight meets a surface.
#pragma once

#include "GridView.h"
#include "PointBox.h"

#include <cstddef>

namespace KivoDrawingTools {

/// Whether an infinite line meets a box, faces and edges included.
/// @param boxMin, boxMax  three floats each
bool MeetsBox(const float* origin, const float* dir, const float* boxMin, const float* boxMax);

/// What a line of sight met.
enum class PickResult {
    nothing,  ///< no triangle
    triangle, ///< the hit is the nearest one
    beyond    ///< triangles, but none nearer than the limit: there is no hit
};

/// The nearest point on the triangles of a grid, two a cell, split from (c, r) to (c + 1, r + 1). Of equally
/// distant triangles the first counts, row by row. One before the origin has a negative distance and wins.
/// A triangle whose plane the line does not meet in a number counts as met, but is never the nearest.
/// @param boxMin, boxMax  the bounding box of the grid's points, three floats each
/// @param limit           distances have to be below it, in multiples of dir
/// @param hit             receives x, y, z with PickResult::triangle, else it is left alone
/// @param triedCells      if given, receives the number of cells whose triangles were computed; the others
///                        were passed over
/// @param within          if given, hits outside of it are none
PickResult PickSurface(const GridView& grid, const float* boxMin, const float* boxMax, const float* origin,
                       const float* dir, float limit, float* hit, std::size_t* triedCells = nullptr,
                       const PointBox* within = nullptr);

} // namespace KivoDrawingTools
