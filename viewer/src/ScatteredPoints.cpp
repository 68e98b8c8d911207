// Grids between scattered points.
#include "Failure.h"
#include "GridFormats.h"
#include "Language.h"
#include "Numbers.h"
#include "PointGrid.h"
#include "Reach.h"
#include "Triangles.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#ifdef KIVO_HAS_GDAL
#include "GdalErrors.h"

#include <gdal_alg.h>
#endif

namespace KivoViewer {

namespace {

constexpr double noValue = std::numeric_limits<double>::quiet_NaN();

// The points with a value, as differences to the first corner, for which double precision has more digits.
struct Points {
    double originX;
    double originY;
    double width;
    double height;
    std::vector<double> x;
    std::vector<double> y;
    std::vector<double> z;

    explicit Points(const PointTable& table) {
        const Reach extentX(table.x), extentY(table.y);
        originX = extentX.least;
        originY = extentY.least;
        width = extentX.Length();
        height = extentY.Length();
        for (std::size_t i = 0; i < table.Count(); ++i) {
            if (!std::isfinite(table.z[i])) continue;
            x.push_back(table.x[i] - originX);
            y.push_back(table.y[i] - originY);
            z.push_back(table.z[i]);
        }
    }
    double Spacing() const { return std::sqrt(width * height / static_cast<double>(x.size())); }
};

// Whether all lie on a line, as far as their numbers tell.
bool AreInLine(const Points& points) {
    constexpr double rounding = 1e-12;
    std::size_t far = 0;
    const auto distance = [&points](std::size_t i) {
        return std::hypot(points.x[i] - points.x[0], points.y[i] - points.y[0]);
    };
    for (std::size_t i = 1; i < points.x.size(); ++i)
        if (distance(i) > distance(far)) far = i;
    const double dx = (points.x[far] - points.x[0]) / distance(far);
    const double dy = (points.y[far] - points.y[0]) / distance(far);
    for (std::size_t i = 1; i < points.x.size(); ++i) {
        const double aside = dx * (points.y[i] - points.y[0]) - dy * (points.x[i] - points.x[0]);
        if (std::abs(aside) > rounding * distance(far)) return false;
    }
    return true;
}

// Where a cell is not asked for: half the distance of points, in as many cells as a screen shows.
double CellFor(const Points& points) {
    constexpr double fewest = 100.0, most = 1000.0; // along the longer side
    const double side = std::max(points.width, points.height);
    const double cell = std::clamp(points.Spacing() / 2.0, side / most, side / fewest);
    const double unit = std::pow(10.0, std::floor(std::log10(cell)) - 1.0); // two digits
    return std::max(std::round(cell / unit) * unit, std::numeric_limits<double>::min());
}

// A grid from corner to corner of the points.
struct Raster {
    double cell;
    std::size_t columns;
    std::size_t rows;
    std::vector<double> z;

    Raster(const std::string& name, const Points& points, double cellSize) : cell(cellSize) {
        const double wide = std::floor(points.width / cell + 1e-9) + 1.0;
        const double high = std::floor(points.height / cell + 1e-9) + 1.0;
        CheckSize(name, wide, high);
        columns = static_cast<std::size_t>(std::max(wide, 2.0));
        rows = static_cast<std::size_t>(std::max(high, 2.0));
        z.assign(columns * rows, noValue);
    }
};

// The indices of rows or columns between two places.
std::pair<std::size_t, std::size_t> CellsBetween(double from, double to, double cell, std::size_t count) {
    const double last = static_cast<double>(count);
    const double begin = std::clamp(std::ceil(from / cell - 1e-9), 0.0, last);
    const double end = std::clamp(std::floor(to / cell + 1e-9) + 1.0, begin, last);
    return {static_cast<std::size_t>(begin), static_cast<std::size_t>(end)};
}

struct Triangle {
    double x[3];
    double y[3];
    double z[3];

    Triangle(const Points& points, const Corners& corners) {
        for (std::size_t i = 0; i < corners.size(); ++i) {
            x[i] = points.x[corners[i]];
            y[i] = points.y[corners[i]];
            z[i] = points.z[corners[i]];
        }
    }

    double LongestEdge() const {
        double longest = 0.0;
        for (int i = 0; i < 3; ++i)
            longest = std::max(longest, std::hypot(x[(i + 1) % 3] - x[i], y[(i + 1) % 3] - y[i]));
        return longest;
    }

    double DoubleArea() const { return (x[1] - x[0]) * (y[2] - y[0]) - (x[2] - x[0]) * (y[1] - y[0]); }

    // Points of one line, but for rounding: what lies between them is not known from these.
    bool IsFlat() const {
        constexpr double rounding = 1e-9;
        const double edge = LongestEdge();
        return !(std::abs(DoubleArea()) > rounding * edge * edge);
    }

    // From where to where the triangle reaches at a height that it has.
    std::pair<double, double> WidthAt(double height) const {
        double left = std::numeric_limits<double>::infinity(), right = -left;
        for (int i = 0; i < 3; ++i) {
            const int j = (i + 1) % 3;
            if (std::max(y[i], y[j]) < height || std::min(y[i], y[j]) > height) continue;
            const double share = y[i] == y[j] ? 0.0 : (height - y[i]) / (y[j] - y[i]);
            const double crossing = x[i] + share * (x[j] - x[i]);
            left = std::min({left, crossing, y[i] == y[j] ? x[j] : crossing});
            right = std::max({right, crossing, y[i] == y[j] ? x[j] : crossing});
        }
        return {left, right};
    }

    double ValueAt(double px, double py) const {
        const double area = DoubleArea();
        const double dx = px - x[0], dy = py - y[0];
        const double b = std::clamp((dx * (y[2] - y[0]) - (x[2] - x[0]) * dy) / area, 0.0, 1.0);
        const double c = std::clamp(((x[1] - x[0]) * dy - dx * (y[1] - y[0])) / area, 0.0, 1.0 - b);
        return z[0] + b * (z[1] - z[0]) + c * (z[2] - z[0]);
    }
};

void Fill(const Triangle& triangle, Raster& raster) {
    const auto [bottom, top] = std::minmax_element(triangle.y, triangle.y + 3);
    const auto [row0, row1] = CellsBetween(*bottom, *top, raster.cell, raster.rows);
    for (std::size_t row = row0; row < row1; ++row) {
        const double y = std::clamp(static_cast<double>(row) * raster.cell, *bottom, *top);
        const auto [left, right] = triangle.WidthAt(y);
        const auto [column0, column1] = CellsBetween(left, right, raster.cell, raster.columns);
        for (std::size_t column = column0; column < column1; ++column) {
            raster.z[row * raster.columns + column] =
                triangle.ValueAt(static_cast<double>(column) * raster.cell, y);
        }
    }
}

void FillLinearly(const std::string& name, const Points& points, double longestEdge, Raster& raster,
                  const Progress& progress) {
    constexpr std::size_t trianglesBetweenReports = 65536;
    const std::vector<Corners> triangles = DelaunayTriangles(points.x, points.y);
    if (triangles.empty())
        throw Failure(name + ": " +
                      Translate("Files", "the points lie too close to each other for triangles"));
    for (std::size_t i = 0; i < triangles.size(); ++i) {
        if (i % trianglesBetweenReports == 0)
            Report(progress, 0.5 + 0.5 * static_cast<double>(i) / static_cast<double>(triangles.size()));
        const Triangle triangle(points, triangles[i]);
        if (triangle.IsFlat() || (longestEdge > 0.0 && triangle.LongestEdge() > longestEdge)) continue;
        Fill(triangle, raster);
    }
}

#ifdef KIVO_HAS_GDAL

int GdalProgress(double share, const char*, void* progress) {
    const auto& report = *static_cast<const Progress*>(progress);
    return !report || report(0.5 + share / 2.0);
}

void FillByDistance(const std::string& name, const Points& points, GridMethod method, double wantedRadius,
                    Raster& raster, const Progress& progress) {
    const QuietErrors quiet;
    GDALGridNearestNeighborOptions nearest = {};
    nearest.nSizeOfStructure = sizeof nearest;
    nearest.dfNoDataValue = noValue;
    GDALGridInverseDistanceToAPowerNearestNeighborOptions inverse = {};
    inverse.nSizeOfStructure = sizeof inverse;
    inverse.dfPower = 2.0;
    inverse.nMaxPoints = 12;
    inverse.nMinPoints = 1;
    inverse.dfNoDataValue = noValue;
    constexpr double usualRadius = 3.0; // distances of points
    const double radius = wantedRadius > 0.0 ? wantedRadius : usualRadius * points.Spacing();
    nearest.dfRadius1 = nearest.dfRadius2 = inverse.dfRadius = radius;
    const bool isNearest = method == GridMethod::nearest;
    const void* const details = isNearest ? static_cast<const void*>(&nearest) : &inverse;
    const double half = raster.cell / 2.0; // GDAL has the centres of cells between the ends
    const double right = (static_cast<double>(raster.columns) - 0.5) * raster.cell;
    const double top = (static_cast<double>(raster.rows) - 0.5) * raster.cell;
    Progress report = progress;
    const CPLErr result = GDALGridCreate(
        isNearest ? GGA_NearestNeighbor : GGA_InverseDistanceToAPowerNearestNeighbor, details,
        static_cast<GUInt32>(points.x.size()), points.x.data(), points.y.data(), points.z.data(), -half,
        right, -half, top, static_cast<GUInt32>(raster.columns), static_cast<GUInt32>(raster.rows),
        GDT_Float64, raster.z.data(), GdalProgress, &report);
    Report(progress, 1.0);
    if (result != CE_None)
        throw Failure(name + ": " + Translate("Files", "no grid can be made of the points"));
}

#else

void FillByDistance(const std::string& name, const Points&, GridMethod method, double, Raster&,
                    const Progress&) {
    throw Failure(name + ": " +
                  Filled(Translate("Files", "the method %1 is GDAL's, and this program was built without it"),
                         NameOf(method)));
}

#endif

} // namespace

GridData GridScattered(const PointTable& table, const ReadOptions& options, const Progress& progress) {
    const Points points(table);
    if (points.x.size() < 3 || !(points.width > 0.0) || !(points.height > 0.0) || AreInLine(points))
        throw Failure(table.file + ": " +
                      Translate("Files", "a surface needs at least three points that do not lie on a line"));
    const GridMethod method = options.method.value_or(GridMethod::linear);
    const double cell = options.cell > 0.0 ? options.cell : CellFor(points);
    if (!options.method && options.asks)
        throw GridQuestion(
            table.file + ": " +
                Translate("Files", "the points are scattered; --grid says how a grid is made of them"),
            points.x.size(), cell);
    Raster raster(table.file, points, cell);
    if (method == GridMethod::linear)
        FillLinearly(table.file, points, options.radius, raster, progress);
    else
        FillByDistance(table.file, points, method, options.radius, raster, progress);
    GridData grid =
        MakeGrid(table.file, EvenCoordinates(table.file, points.originX, raster.cell, {0, raster.columns}),
                 EvenCoordinates(table.file, points.originY, raster.cell, {0, raster.rows}), raster.z);
    grid.note = Filled(Translate("Files", "%1 scattered points, %2 on cells of %3"), points.x.size(),
                       WordFor(method), FormatRounded(static_cast<float>(raster.cell)));
    return grid;
}

} // namespace KivoViewer
