#include "GridWindow.h"

#include "GridFormats.h"
#include "Language.h"

#include <algorithm>
#include <cmath>

namespace KivoViewer {

namespace {

// As many points as a screen has pixels, with which the plot still keeps up.
constexpr double reducedPointCount = 4e6;

std::size_t StepFor(std::size_t columns, std::size_t rows, std::size_t mostPoints) {
    const auto most = static_cast<double>(mostPoints);
    if (static_cast<double>(columns) * static_cast<double>(rows) <= most) return 1;
    const auto reduced = static_cast<std::size_t>(std::min(reducedPointCount, most / 4.0));
    std::size_t step = 3;
    while (columns / step > 0 && rows / step > reduced / (columns / step))
        step += 2;
    return step;
}

// Of odd steps.
std::string WordsForStep(std::size_t step) {
    if (step % 10 == 1 && step % 100 != 11) return Translate("Files", "every %1st of %2 x %3 points");
    if (step % 10 == 3 && step % 100 != 13) return Translate("Files", "every %1rd of %2 x %3 points");
    return Translate("Files", "every %1th of %2 x %3 points");
}

} // namespace

std::string GridWindow::Note() const {
    if (!IsReduced()) return {};
    return Filled(WordsForStep(columns.step), columns.step, columns.count, rows.count);
}

GridWindow WindowOf(const std::string& name, GridSpan columns, GridSpan rows, std::size_t mostPoints) {
    constexpr double longest = 4294967296.0; // of a side: what says more is none, or no grid
    const auto longer = static_cast<double>(std::max(columns.count, rows.count));
    if (longer > longest) FailForSize(name, mostPoints);
    columns.step = rows.step = StepFor(columns.count, rows.count, mostPoints);
    const GridWindow window = {columns, rows};
    if (window.IsReduced() && (columns.Size() < 2 || rows.Size() < 2)) FailForSize(name, mostPoints);
    return window;
}

GridSpan CellsWithin(double corner, double step, std::size_t count, double from, double to) {
    constexpr double rounding = 1e-9; // of a centre that is an end of the range
    const double a = (from - corner) / step - 0.5;
    const double b = (to - corner) / step - 0.5;
    if (std::isnan(a) || std::isnan(b)) return {0, 0};
    const auto last = static_cast<double>(count);
    const double begin = std::clamp(std::ceil(std::min(a, b) - rounding), 0.0, last);
    const double end = std::clamp(std::floor(std::max(a, b) + rounding) + 1.0, begin, last);
    return {static_cast<std::size_t>(begin), static_cast<std::size_t>(end - begin)};
}

GridSpan CoordinatesWithin(const std::vector<double>& coordinates, double from, double to) {
    const auto isIn = [from, to](double number) { return number >= from && number <= to; };
    const auto first = std::find_if(coordinates.begin(), coordinates.end(), isIn);
    const auto last = std::find_if_not(first, coordinates.end(), isIn);
    return {static_cast<std::size_t>(first - coordinates.begin()), static_cast<std::size_t>(last - first)};
}

} // namespace KivoViewer
