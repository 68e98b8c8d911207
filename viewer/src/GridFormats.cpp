#include "GridFormats.h"

#include "Failure.h"
#include "Language.h"
#include "Numbers.h"
#include "Origin.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>

namespace KivoViewer {

namespace {

std::vector<float> Differences(const std::vector<double>& numbers, double origin) {
    std::vector<float> differences;
    differences.reserve(numbers.size());
    for (const double number : numbers)
        differences.push_back(static_cast<float>(number - origin));
    return differences;
}

// @param axis  x or y, for the message
std::vector<float> Coordinates(const std::string& name, char axis, const std::vector<double>& numbers,
                               double origin) {
    std::vector<float> coordinates = Differences(numbers, origin);
    if (numbers[1] < numbers[0]) std::reverse(coordinates.begin(), coordinates.end());
    if (std::adjacent_find(coordinates.begin(), coordinates.end(), std::greater_equal<>()) !=
        coordinates.end())
        throw Failure(
            name + ": " +
            Filled(Translate("Files",
                             "there are values of %1 that lie too close to each other for the distance "
                             "between the first and the last"),
                   axis));
    return coordinates;
}

double ParsedIn(const TextLines& lines, std::string_view field) {
    const std::optional<double> number = ParseNumber(field);
    if (!number) lines.Fail(Filled(Translate("Files", "not a number: %1"), Quoted(field)));
    return *number;
}

} // namespace

std::string Quoted(std::string_view field) {
    constexpr std::size_t limit = 40;
    if (field.size() <= limit) return '"' + std::string(field) + '"';
    return '"' + std::string(field.substr(0, limit)) + "...\"";
}

double NumberIn(const TextLines& lines, std::string_view field) {
    return CheckedNumber(lines, field, ParsedIn(lines, field));
}

double CheckedNumber(const TextLines& lines, std::string_view field, double number) {
    if (!std::isfinite(number))
        lines.Fail(Filled(Translate("Files", "a finite number is needed here: %1"), Quoted(field)));
    if (!FitsSinglePrecision(number))
        lines.Fail(Filled(Translate("Files", "number beyond single precision: %1"), Quoted(field)));
    return number;
}

double ValueIn(const TextLines& lines, std::string_view field) {
    constexpr double hole = std::numeric_limits<double>::quiet_NaN();
    if (field.empty()) return hole;
    const double number = ParsedIn(lines, field);
    return std::isfinite(number) ? CheckedNumber(lines, field, number) : hole;
}

bool IsLastInOrder(const std::vector<double>& coordinates) {
    const std::size_t size = coordinates.size();
    if (size < 2) return true;
    const double last = coordinates[size - 1];
    const double previous = coordinates[size - 2];
    return coordinates[1] > coordinates[0] ? last > previous : last < previous;
}

std::vector<double> EvenCoordinates(const std::string& name, double first, double step,
                                    const GridSpan& span) {
    std::vector<double> coordinates;
    for (std::size_t i = 0; i < span.Size(); ++i) {
        coordinates.push_back(first + static_cast<double>(span.At(i)) * step);
        if (!FitsSinglePrecision(coordinates.back()))
            throw Failure(name + ": " + Translate("Files", "the cells reach beyond single precision"));
        if (!IsLastInOrder(coordinates))
            throw Failure(name + ": " +
                          Translate("Files", "the cells are too small for coordinates of this size"));
    }
    return coordinates;
}

std::string TooManyPoints(std::size_t mostPoints) {
    return Filled(Translate("Files", "too many points; at most %1 can be shown"), mostPoints);
}

void FailForSize(const std::string& name, std::size_t mostPoints) {
    throw Failure(name + ": " + TooManyPoints(mostPoints));
}

void CheckSize(const std::string& name, double columns, double rows) {
    if (!(columns * rows <= static_cast<double>(maxPointCount))) FailForSize(name, maxPointCount);
}

void CheckRegion(const std::string& name, std::size_t columns, std::size_t rows) {
    if (columns < 2 || rows < 2)
        throw Failure(
            name + ": " +
            Filled(Translate("Files",
                             "a surface needs at least 2 x 2 points, and of these %1 x %2 lie in the region"),
                   columns, rows));
}

GridData MakeGrid(const std::string& name, const std::vector<double>& x, const std::vector<double>& y,
                  const std::vector<double>& z) {
    const std::size_t columns = x.size();
    const std::size_t rows = y.size();
    if (columns < 2 || rows < 2)
        throw Failure(name + ": " +
                      Filled(Translate("Files", "a surface needs at least 2 x 2 points, found %1 x %2"),
                             columns, rows));
    if (std::none_of(z.begin(), z.end(), [](double value) { return std::isfinite(value); }))
        throw Failure(name + ": " + Translate("Files", "every value is missing"));

    GridData grid;
    grid.origin[0] = OriginOfCoordinates(x);
    grid.origin[1] = OriginOfCoordinates(y);
    grid.origin[2] = OriginOfValues(z);
    grid.x = Coordinates(name, 'x', x, grid.origin[0]);
    grid.y = Coordinates(name, 'y', y, grid.origin[1]);
    grid.z = Differences(z, grid.origin[2]);
    grid.title = name.substr(name.find_last_of('/') + 1);
    const auto row = [&](std::size_t r) { return grid.z.begin() + static_cast<std::ptrdiff_t>(r * columns); };
    for (std::size_t r = 0; r < rows && x[1] < x[0]; ++r)
        std::reverse(row(r), row(r + 1));
    for (std::size_t r = 0; r < rows / 2 && y[1] < y[0]; ++r)
        std::swap_ranges(row(r), row(r + 1), row(rows - 1 - r));
    return grid;
}

} // namespace KivoViewer
