// PlotScene: the surfaces.
#include "Failure.h"
#include "Language.h"
#include "Numbers.h"
#include "PlotScene.h"

#include <KivoSurfaces.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <iterator>
#include <limits>
#include <utility>

namespace KivoViewer {

namespace {

using KivoDrawingTools::SKivoSurface;

constexpr Color surfaceColors[] = {{230, 159, 0}, {0, 158, 115}, {204, 121, 167}, {86, 180, 233}};
constexpr double usualOpacity = 0.7;

SKivoSurface ToPlotter(const SurfaceEntry& surface, std::size_t columns, std::size_t rows) {
    SKivoSurface values;
    values.isVisible = surface.isShown;
    values.opacity = static_cast<float>(surface.looks.opacity);
    values.isColoredByZ = !surface.looks.color;
    if (surface.looks.color) values.color = surface.looks.color->Packed();
    if (surface.hasLines) {
        values.frameLineStep[0] = FrameLineStep(columns);
        values.frameLineStep[1] = FrameLineStep(rows);
    }
    return values;
}

// Coordinates or values from one origin to another.
std::vector<float> Moved(const std::vector<float>& numbers, double from, double to) {
    std::vector<float> moved;
    moved.reserve(numbers.size());
    for (const float number : numbers)
        moved.push_back(static_cast<float>(from - to + static_cast<double>(number)));
    return moved;
}

bool Rises(const std::vector<float>& numbers) {
    return std::isfinite(numbers.front()) && std::isfinite(numbers.back()) &&
           std::adjacent_find(numbers.begin(), numbers.end(), std::greater_equal<>()) == numbers.end();
}

std::vector<float> PointsOf(const GridData& grid, const double* origin) {
    const std::vector<float> x = Moved(grid.x, grid.origin[0], origin[0]);
    const std::vector<float> y = Moved(grid.y, grid.origin[1], origin[1]);
    const std::vector<float> z = Moved(grid.z, grid.origin[2], origin[2]);
    if (!Rises(x) || !Rises(y))
        throw Failure(grid.title + ": " +
                      Translate("Plot", "it lies too far from the first surface to be shown with it"));
    std::vector<float> points;
    points.reserve(z.size() * 3);
    for (std::size_t i = 0; i < z.size(); ++i)
        points.insert(points.end(), {x[i % x.size()], y[i / x.size()], z[i]});
    return points;
}

} // namespace

SurfaceLooks UsualLooks(std::size_t index) {
    SurfaceLooks looks;
    if (index == 0) return looks;
    looks.opacity = usualOpacity;
    looks.color = surfaceColors[(index - 1) % std::size(surfaceColors)];
    return looks;
}

std::optional<Color> ParseSurfaceColor(const std::string& text) {
    if (text == "values") return std::nullopt;
    try {
        return ParseColor(text);
    } catch (const Failure&) {
        throw Failure(Filled(
            Translate("Settings", "expected values, or a colour such as ff8000 or red, found \"%1\""), text));
    }
}

PlotScene::ShownSurface PlotScene::ShownOf(const GridData& grid) {
    ShownSurface shown = {{}, grid.ColumnCount(), grid.RowCount(), 0.0, 0.0, {}};
    shown.entry.name = OneLine(grid.title);
    shown.entry.path = grid.path;
    shown.entry.reading = grid.reading;
    float min = std::numeric_limits<float>::max();
    float max = std::numeric_limits<float>::lowest();
    for (const float z : grid.z) {
        if (!std::isfinite(z)) continue;
        min = std::min(min, z);
        max = std::max(max, z);
    }
    shown.min = AbsoluteNumber(grid.origin[2], min);
    shown.max = AbsoluteNumber(grid.origin[2], max);
    return shown;
}

void PlotScene::KeepFirstSurface(const GridData& grid) {
    m_surfaces.clear();
    m_surfaces.push_back(ShownOf(grid));
    ChangeSurface(m_surfaces[0].entry);
}

void PlotScene::AddSurface(const GridData& grid, const SurfaceLooks& looks) {
    const std::vector<float> points = PointsOf(grid, m_origin);
    ShownSurface shown = ShownOf(grid);
    shown.entry.looks = looks;
    shown.grid.x = grid.x;
    shown.grid.y = grid.y;
    shown.grid.z = grid.z;
    std::copy_n(grid.origin, 3, shown.grid.origin);
    m_surfaces.reserve(m_surfaces.size() + 1); // afterwards nothing may fail
    const KivoDrawingTools::SKivoView view = View();
    const auto columns = static_cast<unsigned int>(shown.columns);
    const auto rows = static_cast<unsigned int>(shown.rows);
    shown.entry.number = KivoDrawingTools::AddSurface(Plotter(), points.data(), columns, rows, 1, columns, 3,
                                                      ToPlotter(shown.entry, columns, rows));
    if (shown.entry.number <= 0)
        throw Failure(grid.title + ": " + Translate("Plot", "it cannot be laid over another surface"));
    m_surfaces.push_back(std::move(shown));
    m_hasSurface = true;
    ApplyTrace();
    FollowSurfaces(view);
}

std::size_t PlotScene::PointCount() const {
    std::size_t count = 0;
    for (const ShownSurface& surface : m_surfaces)
        count += surface.columns * surface.rows;
    return count;
}

std::vector<SurfaceEntry> PlotScene::Surfaces() const {
    std::vector<SurfaceEntry> surfaces;
    for (const ShownSurface& surface : m_surfaces)
        surfaces.push_back(surface.entry);
    if (!surfaces.empty()) surfaces[0].hasLines = m_settings.showsFrameLines;
    return surfaces;
}

void PlotScene::ChangeSurface(const SurfaceEntry& surface) {
    for (ShownSurface& shown : m_surfaces) {
        if (shown.entry.number != surface.number) continue;
        SKivoSurface values = ToPlotter(surface, shown.columns, shown.rows);
        SKivoSurface present;
        GetSurface(Plotter(), surface.number, &present);
        if (surface.number == 0) std::copy_n(present.frameLineStep, 2, values.frameLineStep);
        SetSurface(Plotter(), surface.number, values);
        shown.entry = surface;
    }
}

void PlotScene::RemoveSurface(int number) {
    const KivoDrawingTools::SKivoView view = View();
    if (KivoDrawingTools::RemoveSurface(Plotter(), number) != 0) return;
    const auto isIt = [number](const ShownSurface& surface) { return surface.entry.number == number; };
    m_surfaces.erase(std::remove_if(m_surfaces.begin(), m_surfaces.end(), isIt), m_surfaces.end());
    FollowSurfaces(view);
}

// After a surface has come or gone. Axes that are made for all of them have forgotten what is set.
void PlotScene::FollowSurfaces(const KivoDrawingTools::SKivoView& view) {
    if (m_settings.fitsSurfaces) FollowRanges(view);
}

// The plot has fitted the axes anew. What is shown does not depend on what was there before.
void PlotScene::FollowRanges(const KivoDrawingTools::SKivoView& view) {
    ReadAutomaticRanges();
    ApplyAspect();
    ApplyAxes();
    ResetView(); // lit as a first grid is
    ShowView(view);
}

void PlotScene::ApplyFit() {
    if (AxesFitSurfaces(Plotter()) == m_settings.fitsSurfaces) return;
    const KivoDrawingTools::SKivoView view = View();
    FitAxesToSurfaces(Plotter(), m_settings.fitsSurfaces);
    FollowRanges(view);
}

ValueRange PlotScene::ValuesOfSurfaces() const {
    ValueRange values = {m_surfaces[0].min, m_surfaces[0].max};
    for (const ShownSurface& surface : m_surfaces) {
        if (!m_settings.fitsSurfaces) break;
        values.from = std::min(values.from, surface.min);
        values.to = std::max(values.to, surface.max);
    }
    return values;
}

} // namespace KivoViewer
