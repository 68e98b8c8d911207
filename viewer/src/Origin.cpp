#include "Origin.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace KivoViewer {

namespace {

constexpr double leastGain = 4.0;       // times as exact, or the numbers stay as they are
constexpr double farAway = 1024.0;      // times the range: pixels then move by what the camera rounds
constexpr double sharedByNumbers = 1e4; // parts of what has to be told apart

struct Extent {
    double min = std::numeric_limits<double>::infinity();
    double max = -std::numeric_limits<double>::infinity();
    double rounding = 0.0; // by which single precision moves a number, at most

    double Range() const { return max - min; }
    double Farthest() const { return std::max(std::abs(min), std::abs(max)); }
};

Extent ExtentOf(const std::vector<double>& numbers) {
    Extent extent;
    for (const double number : numbers) {
        if (!std::isfinite(number)) continue;
        extent.min = std::min(extent.min, number);
        extent.max = std::max(extent.max, number);
        extent.rounding =
            std::max(extent.rounding, std::abs(number - static_cast<double>(static_cast<float>(number))));
    }
    return extent;
}

// @param detail  that has to be told apart
double OriginOf(const Extent& extent, double detail) {
    const double range = extent.Range();
    if (!(range > 0.0) || extent.Farthest() < leastGain * range) return 0.0;
    const bool isHeld = extent.rounding <= detail / sharedByNumbers;
    if (isHeld && extent.Farthest() < farAway * range) return 0.0;
    const double unit = std::pow(10.0, std::floor(std::log10(range)));
    constexpr double rounding = 1e-6;
    const double units = std::floor(extent.min / unit + rounding);
    // Below 1 the power of ten is not exact: what is divided by one that is, is the nearest number.
    return unit < 1.0 ? units / std::round(1.0 / unit) : units * unit;
}

} // namespace

double OriginOfCoordinates(const std::vector<double>& coordinates) {
    double finest = std::numeric_limits<double>::infinity();
    for (std::size_t i = 1; i < coordinates.size(); ++i)
        finest = std::min(finest, std::abs(coordinates[i] - coordinates[i - 1]));
    return OriginOf(ExtentOf(coordinates), finest);
}

double OriginOfValues(const std::vector<double>& values) {
    constexpr double shades = 100.0; // that are told apart by colour
    const Extent extent = ExtentOf(values);
    return OriginOf(extent, extent.Range() / shades);
}

} // namespace KivoViewer
