#include "AbsoluteScale.h"

#include "NiceScale.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace KivoDrawingTools {

namespace {

constexpr double mostIntervals = 8.0;
constexpr double mostSteps = 70368744177664.0; // 2^46 from zero: ticks are then right within 2 % of a step
constexpr int mostDoubleDigits = 17;           // that a number of double precision has

double DoublePowerOfTen(int exponent) {
    double power = 1.0;
    for (int i = 0; i < exponent; ++i)
        power *= 10.0;
    return power;
}

// Rounded once where the whole number and the power are exact.
double TimesPowerOfTen(double number, int exponent) {
    return exponent < 0 ? number / DoublePowerOfTen(-exponent) : number * DoublePowerOfTen(exponent);
}

struct RoundTicks {
    double first; // in steps from zero
    double last;
    int multiple; // of the power of ten, which the step is
    int exponent;

    double At(double steps) const { return TimesPowerOfTen(steps * multiple, exponent); }
};

// The first tick at or below the low end, and the last one at or above the high end; a hair beyond the ends
// counts as at them, since the data have been rounded to single precision, and ends and quotients to double.
RoundTicks TicksAround(double low, double high, int multiple, int exponent) {
    const double step = TimesPowerOfTen(multiple, exponent);
    const auto hair = [](double steps) { return 1e-5 + std::abs(steps) * 0x1p-51; };
    const double first = low / step, last = high / step;
    return {std::floor(first + hair(first)), std::ceil(last - hair(last)), multiple, exponent};
}

// Of the steps 1, 2, 5, 10, 20, ... the least that leaves few intervals.
RoundTicks FewTicksAround(double low, double high) {
    for (int exponent = static_cast<int>(std::floor(std::log10(high - low))) - 1;; ++exponent)
        for (const int multiple : {1, 2, 5}) {
            const RoundTicks ticks = TicksAround(low, high, multiple, exponent);
            if (!(ticks.last - ticks.first > mostIntervals)) return ticks;
        }
}

bool IsSinglePrecision(double number) {
    return std::abs(number) <= static_cast<double>(std::numeric_limits<float>::max());
}

bool FindScale(double origin, float& min, float& max, float& step, unsigned int& intervals) {
    double low = origin + static_cast<double>(min);
    double high = origin + static_cast<double>(max);
    if (min == max) {
        low -= 0.5;
        high += 0.5;
    }
    if (!(high > low) || !std::isfinite(high - low)) return false;
    const RoundTicks ticks = FewTicksAround(low, high);
    if (!(std::abs(ticks.first) <= mostSteps && std::abs(ticks.last) <= mostSteps)) return false;
    const double first = ticks.At(ticks.first) - origin, last = ticks.At(ticks.last) - origin;
    if (!IsSinglePrecision(first) || !IsSinglePrecision(last) || !IsSinglePrecision(last - first))
        return false;
    min = std::min(min, static_cast<float>(first));
    max = std::max(max, static_cast<float>(last));
    step = static_cast<float>(ticks.At(1.0));
    intervals = static_cast<unsigned int>(ticks.last - ticks.first);
    return true;
}

// The shortest decimal number within the tolerance.
double RoundWithin(double value, double tolerance) {
    if (!std::isfinite(value) || !(tolerance > 0.0)) return value;
    if (std::abs(value) <= tolerance) return 0.0;
    int exponent = static_cast<int>(std::floor(std::log10(std::abs(value)))) + 1;
    for (int digits = 0; digits <= mostDoubleDigits; ++digits, --exponent) {
        const double rounded = TimesPowerOfTen(std::round(TimesPowerOfTen(value, -exponent)), exponent);
        if (std::abs(rounded - value) <= tolerance) return rounded;
    }
    return value;
}

} // namespace

void ChooseAbsoluteScale(double origin, float& min, float& max, float& step, unsigned int& intervals) {
    if (!FindScale(origin, min, max, step, intervals)) ChooseNiceScale(min, max, step, intervals);
}

unsigned int DigitsApart(double step, double size) {
    if (!(step > 0.0) || !std::isfinite(step) || !std::isfinite(size)) return 0;
    constexpr double rounding = 1e-9; // of the logarithm of a power of ten
    const double needed = std::ceil(-std::log10(step) - rounding);
    const double most = mostDoubleDigits - 1 - std::floor(std::log10(std::max(std::abs(size), step)));
    return static_cast<unsigned int>(std::max(std::min(needed, most), 0.0));
}

double MeantNumber(double origin, double difference, double size, double step) {
    const double single = size * 0x1p-21; // four times the rounding of the largest
    const double value = origin + difference;
    return RoundWithin(value,
                       (step > 0.0 ? std::min(single, step * 1e-3) : single) + std::abs(value) * 0x1p-52);
}

} // namespace KivoDrawingTools
