#include "ReducedSurface.h"

namespace KivoDrawingTools {

namespace {

bool AreEqual(const KeptSide& a, const KeptSide& b) {
    return a.points == b.points && a.step == b.step;
}

} // namespace

bool SurfaceOutline::operator==(const SurfaceOutline& other) const {
    return points == other.points && columns == other.columns && rows == other.rows &&
           components == other.components && frameLineStep[0] == other.frameLineStep[0] &&
           frameLineStep[1] == other.frameLineStep[1] && hasTexcoords == other.hasTexcoords &&
           hasNoHoles == other.hasNoHoles;
}

ReducedSurface::ReducedSurface(const SurfaceOutline& outline, const ReducedGrid& grid)
    : m_outline(outline), m_grid(grid), m_floatsPerPoint(outline.components <= 4 ? outline.components : 3),
      m_points(grid.Count() * m_floatsPerPoint), m_colors(grid.Count() * 4),
      m_texcoords(outline.hasTexcoords ? grid.Count() * 2 : 0) {
    std::vector<unsigned char> holes;
    if (!outline.hasNoHoles) holes = MarkHoles(grid, outline.points, outline.components);
    m_triangles = ReducedTriangles(grid, holes);
    m_lines = ReducedFrameLines(grid, outline.frameLineStep[0], outline.frameLineStep[1], holes);
}

bool ReducedSurface::IsFor(const SurfaceOutline& outline, const ReducedGrid& grid) const {
    return m_outline == outline && AreEqual(m_grid.columns, grid.columns) && AreEqual(m_grid.rows, grid.rows);
}

void ReducedSurface::TakeValues(const SurfaceArrays& whole) {
    CopyKept(m_grid, whole.points, whole.components, m_floatsPerPoint, m_points.data());
    CopyKept(m_grid, whole.colors, 4, 4, m_colors.data());
    if (!m_texcoords.empty()) CopyKept(m_grid, whole.texcoords, 2, 2, m_texcoords.data());
}

SurfaceArrays ReducedSurface::Arrays() const {
    return {m_points.data(),
            static_cast<unsigned int>(m_floatsPerPoint),
            m_colors.data(),
            m_texcoords.data(),
            m_triangles.data(),
            m_triangles.size(),
            m_lines.empty() ? nullptr : m_lines.data(),
            m_lines.size()};
}

} // namespace KivoDrawingTools
