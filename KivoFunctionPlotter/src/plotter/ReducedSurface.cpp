#include "ReducedSurface.h"

#include "window_system/WindowSystem.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <new>

namespace KivoDrawingTools {

void SurfaceArrays::SetVertexPointer() const {
    const bool isShort = components <= 4;
    glVertexPointer(isShort ? static_cast<GLint>(components) : 3, GL_FLOAT,
                    isShort ? 0 : static_cast<GLsizei>(components * sizeof(float)), points);
}

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
    if (!outline.hasNoHoles) m_holes = MarkHoles(grid, outline.points, outline.components);
    m_triangles = ReducedTriangles(grid, m_holes);
    m_lines = ReducedFrameLines(grid, outline.frameLineStep[0], outline.frameLineStep[1], m_holes);
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
    return {m_points.data(),    static_cast<unsigned int>(m_floatsPerPoint),
            m_grid.Count(),     m_colors.data(),
            m_texcoords.data(), m_triangles.data(),
            m_triangles.size(), m_lines.empty() ? nullptr : m_lines.data(),
            m_lines.size()};
}

CellStrips& ReducedSurface::Strips() {
    if (!m_hasStrips) {
        const unsigned int columns = m_grid.columns.Count();
        const auto floats = static_cast<unsigned int>(m_floatsPerPoint);
        m_strips =
            CellStrips({m_points.data(), columns, m_grid.rows.Count(), floats, columns * floats}, m_holes);
        m_hasStrips = true;
    }
    return m_strips;
}

const std::vector<LevelLines>* ReducedSurface::Contours(int axis, const std::vector<SKivoIsoContour>& whole) {
    FlatContours& contours = m_contours[axis];
    if (contours.AreOf(whole)) return &contours.lines;
    for (std::size_t k = 1; k < whole.size(); ++k)
        if (!(whole[k - 1].level <= whole[k].level)) return nullptr; // put in by a derived class
    try {
        contours = Trace(axis, whole);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
    return &contours.lines;
}

ReducedSurface::FlatContours ReducedSurface::Trace(int axis,
                                                   const std::vector<SKivoIsoContour>& whole) const {
    FlatContours contours;
    for (const SKivoIsoContour& contour : whole)
        contours.levels.push_back(contour.level);
    const std::vector<float> points = PointsBesideHoles();
    const unsigned int columns = m_grid.columns.Count();
    const auto floats = static_cast<unsigned int>(m_floatsPerPoint);
    const GridView grid = {points.empty() ? m_points.data() : points.data(), columns, m_grid.rows.Count(),
                           floats, columns * floats};
    contours.lines = TraceLevelLines(grid, axis, contours.levels);
    for (LevelLines& level : contours.lines)
        for (std::uint64_t i = 0; i < level.pointCount; ++i)
            level.points[3 * i + static_cast<std::size_t>(axis)] = 0.0f;
    return contours;
}

// The points without numbers at the corners of cells with holes, so that no level crosses these; empty where
// there are no such cells.
std::vector<float> ReducedSurface::PointsBesideHoles() const {
    if (std::find(m_holes.begin(), m_holes.end(), 1) == m_holes.end()) return {};
    std::vector<float> points = m_points;
    const std::size_t columns = m_grid.columns.Count();
    for (std::size_t cell = 0; cell < m_holes.size(); ++cell) {
        if (m_holes[cell] == 0) continue;
        const std::size_t corner = cell / (columns - 1) * columns + cell % (columns - 1);
        for (const std::size_t point : {corner, corner + 1, corner + columns, corner + columns + 1})
            std::fill_n(points.begin() + static_cast<std::ptrdiff_t>(point * m_floatsPerPoint), 3,
                        std::numeric_limits<float>::quiet_NaN());
    }
    return points;
}

bool ReducedSurface::FlatContours::AreOf(const std::vector<SKivoIsoContour>& whole) const {
    return std::equal(levels.begin(), levels.end(), whole.begin(), whole.end(),
                      [](float level, const SKivoIsoContour& contour) { return level == contour.level; });
}

} // namespace KivoDrawingTools
