#include "Difference.h"

#include "Failure.h"
#include "Language.h"
#include "Origin.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <vector>

namespace KivoViewer {

namespace {

// A place between two rows or columns; what lies outside has no cell.
struct Place {
    std::size_t cell = 0;
    double share = 0.0; // of the way to the next
    bool isInside = false;
};

// Both kinds of coordinates rise.
std::vector<Place> PlacesOf(const std::vector<float>& at, double atOrigin, const std::vector<float>& among,
                            double amongOrigin) {
    constexpr double rounding = 1e-6; // of a cell: an edge is an edge in either grid's numbers
    std::vector<Place> places;
    places.reserve(at.size());
    std::size_t cell = 0;
    for (const float number : at) {
        const double place = atOrigin - amongOrigin + static_cast<double>(number);
        while (cell + 2 < among.size() && place > static_cast<double>(among[cell + 1]))
            ++cell;
        const auto low = static_cast<double>(among[cell]), high = static_cast<double>(among[cell + 1]);
        const double share = (place - low) / (high - low);
        const bool isInside = share >= -rounding && share <= 1.0 + rounding;
        places.push_back({cell, std::clamp(share, 0.0, 1.0), isInside});
    }
    return places;
}

// A point that counts for nothing may be a hole.
double Between(double a, double b, double share) {
    if (share == 0.0) return a;
    if (share == 1.0) return b;
    return a + share * (b - a);
}

double ValueAt(const GridData& grid, const Place& column, const Place& row) {
    if (!column.isInside || !row.isInside) return std::numeric_limits<double>::quiet_NaN();
    const auto along = [&](std::size_t r) {
        const float* const points = &grid.z[r * grid.ColumnCount() + column.cell];
        return Between(static_cast<double>(points[0]), static_cast<double>(points[1]), column.share);
    };
    return Between(along(row.cell), along(row.cell + 1), row.share);
}

} // namespace

GridData DifferenceOf(const GridData& grid, const GridData& other) {
    GridData difference = grid;
    difference.title = grid.title + " - " + other.title;
    const std::vector<Place> columns = PlacesOf(grid.x, grid.origin[0], other.x, other.origin[0]);
    const std::vector<Place> rows = PlacesOf(grid.y, grid.origin[1], other.y, other.origin[1]);
    std::vector<double> values;
    values.reserve(grid.z.size());
    for (std::size_t i = 0; i < grid.z.size(); ++i)
        values.push_back(grid.origin[2] - other.origin[2] + static_cast<double>(grid.z[i]) -
                         ValueAt(other, columns[i % columns.size()], rows[i / columns.size()]));
    if (std::none_of(values.begin(), values.end(), [](double value) { return std::isfinite(value); }))
        throw Failure(difference.title + ": " + Translate("Files", "no place has a value of both"));
    difference.origin[2] = OriginOfValues(values);
    for (std::size_t i = 0; i < values.size(); ++i)
        difference.z[i] = static_cast<float>(values[i] - difference.origin[2]);
    return difference;
}

} // namespace KivoViewer
