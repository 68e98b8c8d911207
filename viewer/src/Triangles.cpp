#include "Triangles.h"

#include <boost/polygon/voronoi.hpp>

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace KivoViewer {

namespace {

using Voronoi = boost::polygon::voronoi_diagram<double>;

// Distances from one end of a side, as whole numbers from one end of their range to the other.
std::int32_t WholeNumber(double distance, double side) {
    constexpr double half = 2147483647.0;
    return static_cast<std::int32_t>(std::lround(distance / side * 2.0 * half - half));
}

// Around a corner of the diagram lie the cells of three points, or of more, which lie on a circle.
void AddTriangles(const Voronoi::vertex_type& vertex, std::vector<Corners>& triangles) {
    const Voronoi::edge_type* const first = vertex.incident_edge();
    const auto pointOf = [](const Voronoi::edge_type* edge) { return edge->cell()->source_index(); };
    const Voronoi::edge_type* edge = first->rot_next();
    for (const auto* next = edge->rot_next(); next != first; edge = next, next = next->rot_next())
        triangles.push_back({pointOf(first), pointOf(edge), pointOf(next)});
}

} // namespace

std::vector<Corners> DelaunayTriangles(const std::vector<double>& x, const std::vector<double>& y) {
    if (x.empty()) return {};
    const auto [left, right] = std::minmax_element(x.begin(), x.end());
    const auto [bottom, top] = std::minmax_element(y.begin(), y.end());
    const double side = std::max(*right - *left, *top - *bottom);
    if (!(side > 0.0)) return {};
    boost::polygon::voronoi_builder<std::int32_t> builder; // exact for these
    for (std::size_t i = 0; i < x.size(); ++i)
        builder.insert_point(WholeNumber(x[i] - *left, side), WholeNumber(y[i] - *bottom, side));
    Voronoi diagram;
    builder.construct(&diagram);
    std::vector<Corners> triangles;
    triangles.reserve(diagram.num_vertices());
    for (const Voronoi::vertex_type& vertex : diagram.vertices())
        AddTriangles(vertex, triangles);
    return triangles;
}

} // namespace KivoViewer
