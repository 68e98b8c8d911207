#include "FittedNumbers.h"

#include <algorithm>
#include <cmath>
#include <ios>
#include <locale>
#include <sstream>

namespace KivoDrawingTools {

namespace {

constexpr double leastWithPower = 1e7;
constexpr double mostWithPower = 1e-4;
constexpr double rounding = 1e-6;    // of a step: what is left of single precision and of sums
constexpr int significantDigits = 6; // of values that are all the same

// The exponent of the largest power of ten that does not exceed a value above 0.
int PowerOf(double value) {
    return static_cast<int>(std::floor(std::log10(value) + 1e-12));
}

// Two places of the step are shown.
int DecimalsOf(double step, double largest) {
    if (step > 0.0) return 1 - PowerOf(step);
    return largest > 0.0 ? significantDigits - 1 - PowerOf(largest) : 0;
}

bool AreMultiples(const NumberSteps& steps, double unit) {
    const double limit = 1e-3; // of the unit, which is smaller than a step or not much larger
    for (unsigned int i = 0; i < steps.count; ++i) {
        const double units = steps.Value(i) / unit;
        if (!(std::fabs(units - std::round(units)) <= limit)) return false;
    }
    return true;
}

std::string Write(double value, std::ios::fmtflags notation, int digits) {
    std::ostringstream stream;
    stream.imbue(std::locale::classic());
    stream.setf(notation, std::ios::floatfield);
    stream.precision(digits);
    stream << value;
    return stream.str();
}

// 1.2e+09 as 1.2e9.
std::string WithShortPower(const std::string& text) {
    const std::size_t e = text.find('e');
    const bool isNegative = text[e + 1] == '-';
    const std::size_t digits = text.find_first_not_of('0', e + 2);
    return text.substr(0, e + 1) + (isNegative ? "-" : "") +
           (digits == std::string::npos ? "0" : text.substr(digits));
}

} // namespace

NumberSteps RoundSteps(double from, double to, unsigned int mostCount) {
    const double length = std::fabs(to - from);
    if (!(length > 0.0) || !std::isfinite(length)) return {};
    const double least = length / (mostCount - 1.0) * (1.0 - rounding);
    const double power = std::pow(10.0, PowerOf(least));
    double step = 10.0 * power;
    for (const double factor : {5.0, 2.0, 1.0})
        if (factor * power >= least) step = factor * power;
    const double low = std::min(from, to) / step, high = std::max(from, to) / step;
    const double firstMultiple = std::ceil(low - rounding), lastMultiple = std::floor(high + rounding);
    const auto count = static_cast<unsigned int>(std::max(lastMultiple - firstMultiple + 1.0, 0.0));
    return from < to ? NumberSteps{firstMultiple * step, step, count}
                     : NumberSteps{lastMultiple * step, -step, count};
}

FittedNumbers::FittedNumbers(double step, double largest) {
    if (!std::isfinite(largest) || largest == 0.0) return;
    m_hasPower = largest >= leastWithPower || largest < mostWithPower;
    m_decimals = std::max(DecimalsOf(std::fabs(step), largest), m_hasPower ? -PowerOf(largest) : 0);
}

FittedNumbers::FittedNumbers(const NumberSteps& steps)
    : FittedNumbers(steps.step, std::max(std::fabs(steps.first), std::fabs(steps.Last()))) {
    const int least = m_hasPower ? -PowerOf(std::max(std::fabs(steps.first), std::fabs(steps.Last()))) : 0;
    while (m_decimals > least && AreMultiples(steps, std::pow(10.0, 1 - m_decimals)))
        --m_decimals;
}

FittedNumbers FittedNumbers::Within(double min, double max) {
    return {(max - min) / 100.0, std::max(std::fabs(min), std::fabs(max))};
}

std::string FittedNumbers::Text(double value) const {
    if (std::isnan(value)) return "NaN";
    if (std::isinf(value)) return value < 0.0 ? "-inf" : "inf";
    constexpr int mostDigits = 16;
    const bool isZero = std::fabs(value) < 0.5 * std::pow(10.0, -m_decimals);
    if (!m_hasPower) return Write(isZero ? 0.0 : value, std::ios::fixed, std::min(m_decimals, mostDigits));
    if (isZero) return "0";
    const int digits = std::clamp(PowerOf(std::fabs(value)) + m_decimals, 0, mostDigits);
    return WithShortPower(Write(value, std::ios::scientific, digits));
}

} // namespace KivoDrawingTools
