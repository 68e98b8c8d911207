// PlotScene: heights along a line, and places of the XY plot.
#include "Numbers.h"
#include "PlotScene.h"

#include <cmath>

namespace KivoViewer {

PointGridView ViewerPlotter::FirstPoints() const {
    return {m_points, m_points ? m_columnCount : 0, m_points ? m_rowCount : 0};
}

// As the plotter draws it: pan, turned, lengths of the axes, the middle of the data.
std::optional<FlatPlane> ViewerPlotter::XyPlane() const {
    constexpr int xyPlot = 1;
    const double width = m_viewRight - m_viewLeft, height = m_viewTop - m_viewBottom;
    if (GetCurrentPlotType() != xyPlot || !(width > 0.0) || !(height > 0.0)) return std::nullopt;
    const double perUnit[] = {m_plotViewport[2] / width, m_plotViewport[3] / height};
    const double pan[] = {width * m_panFractionX - m_viewLeft, height * m_panFractionY - m_viewBottom};
    FlatPlane plane;
    for (int i = 0; i < 2; ++i) {
        double origin = pan[i] + m_rotationMatrix[12 + i];
        for (int axis = 0; axis < 3; ++axis)
            origin += m_rotationMatrix[4 * axis + i] * m_axisScale[axis] * m_volumeTranslate[axis];
        plane.origin[i] = m_plotViewport[i] + origin * perUnit[i];
        for (int axis = 0; axis < 2; ++axis)
            plane.along[axis][i] = m_rotationMatrix[4 * axis + i] * m_axisScale[axis] * perUnit[i];
    }
    // Pixels of the window are counted downwards.
    plane.origin[1] = m_clientHeight - plane.origin[1];
    plane.along[0][1] = -plane.along[0][1];
    plane.along[1][1] = -plane.along[1][1];
    const double area = plane.along[0][0] * plane.along[1][1] - plane.along[0][1] * plane.along[1][0];
    if (!std::isfinite(area) || area == 0.0) return std::nullopt;
    return plane;
}

std::optional<PlanePoint> PlotScene::PixelOf(double x, double y) const {
    const auto plane = Plotter().XyPlane();
    if (!plane) return std::nullopt;
    const double dx = x - m_origin[0], dy = y - m_origin[1];
    return PlanePoint{plane->origin[0] + dx * plane->along[0][0] + dy * plane->along[1][0],
                      plane->origin[1] + dx * plane->along[0][1] + dy * plane->along[1][1]};
}

std::optional<PlanePoint> PlotScene::PlaceOf(double pixelX, double pixelY) const {
    const auto plane = Plotter().XyPlane();
    if (!plane) return std::nullopt;
    const double px = pixelX - plane->origin[0], py = pixelY - plane->origin[1];
    const auto& [x, y] = plane->along;
    const double area = x[0] * y[1] - x[1] * y[0];
    return PlanePoint{m_origin[0] + (px * y[1] - py * y[0]) / area,
                      m_origin[1] + (py * x[0] - px * x[1]) / area};
}

namespace {

std::vector<double> AbsoluteNumbers(const float* numbers, std::size_t count, std::size_t stride,
                                    double origin) {
    std::vector<double> absolute;
    absolute.reserve(count);
    for (std::size_t i = 0; i < count; ++i)
        absolute.push_back(AbsoluteNumber(origin, numbers[i * stride]));
    return absolute;
}

} // namespace

SurfaceHeights HeightsOf(const GridData& grid) {
    return {AbsoluteNumbers(grid.x.data(), grid.x.size(), 1, grid.origin[0]),
            AbsoluteNumbers(grid.y.data(), grid.y.size(), 1, grid.origin[1]), grid.z.data(), 1,
            grid.origin[2]};
}

// The plotter has the points of the first surface.
SurfaceHeights PlotScene::FirstHeights() const {
    const PointGridView first = Plotter().FirstPoints();
    constexpr std::size_t stride = 3;
    return {AbsoluteNumbers(first.points, first.columns, stride, m_origin[0]),
            AbsoluteNumbers(first.points ? first.points + 1 : nullptr, first.rows, stride * first.columns,
                            m_origin[1]),
            first.points ? first.points + 2 : nullptr, stride, m_origin[2]};
}

SceneProfile PlotScene::ProfileAlong(const ProfileLine& line) const {
    SceneProfile profile;
    std::vector<SurfaceHeights> heights;
    for (const ShownSurface& surface : m_surfaces) {
        const SurfaceEntry& entry = surface.entry;
        const bool isFirst = entry.number == 0;
        if (!entry.isShown || !(entry.looks.opacity > 0.0) || (isFirst && m_isFirstBox)) continue;
        heights.push_back(isFirst ? FirstHeights() : HeightsOf(surface.grid));
        profile.names.push_back(entry.name);
        profile.colors.push_back(entry.looks.color);
    }
    if (!heights.empty()) profile.points = FollowLine(heights, line);
    return profile;
}

} // namespace KivoViewer
