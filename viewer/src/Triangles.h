// Triangles between scattered points.
#pragma once

#include <array>
#include <cstddef>
#include <vector>

namespace KivoViewer {

/// A triangle, as the indices of its corners.
using Corners = std::array<std::size_t, 3>;

/// The Delaunay triangles of points, which cover their convex hull. They are found for places rounded to
/// parts of the longer side, 2^32 of them: a step is shorter than a five-hundredth of a cell of any grid that
/// can be shown. Of points that are one then, one is a corner.
/// @return none where all points lie on a line
std::vector<Corners> DelaunayTriangles(const std::vector<double>& x, const std::vector<double>& y);

} // namespace KivoViewer
