#include "NiceScale.h"

#include <cmath>
#include <limits>

namespace KivoDrawingTools {

namespace {

// 10^k in single precision, by repeated squaring.
float PowerOfTen(int k) {
    float result = 1.0f;
    float factor = 10.0f;
    for (unsigned int n = static_cast<unsigned int>(k < 0 ? -k : k); n != 0; n >>= 1) {
        if (n & 1u) result *= factor;
        factor *= factor;
    }
    return k < 0 ? 1.0f / result : result;
}

// A quotient truncated to a count; what does not fit becomes the nearest count.
unsigned int TruncateToCount(float quotient) {
    constexpr float pastLargest = 4294967296.0f;
    if (!(quotient > 0.0f)) return 0;
    if (quotient >= pastLargest) return std::numeric_limits<unsigned int>::max();
    return static_cast<unsigned int>(quotient);
}

struct Scale {
    float min;
    float max;
    float step;
    unsigned int intervals;
};

Scale FitScale(float min, float max) {
    const float length = max - min;
    int k = (length == 0.0f ? 1 : static_cast<int>(std::log10(std::fabs(length)))) - 1;
    float step = PowerOfTen(k);
    unsigned int intervals = TruncateToCount((max - min) / step);
    while (intervals > 10) {
        step = PowerOfTen(++k);
        intervals = TruncateToCount((max - min) / step);
    }

    float low = std::trunc(min / step) - 1.0f;
    float high = std::trunc(max / step) + 1.0f;
    if (std::fabs(min - low * step) / step > 0.5f || std::fabs(high * step - max) / step > 0.5f) {
        step *= 0.5f;
        high = std::trunc(max / step) + 1.0f;
        low = std::trunc(min / step) - 1.0f;
    }
    min = low * step;
    max = high * step;
    intervals = TruncateToCount((max - min) / step);
    while (intervals > 8) {
        step *= 2.0f;
        intervals = TruncateToCount((max - min) / step);
    }

    // The top is compared as a whole number: with fractional ranges this adds one more interval even where
    // the ticks already reach the maximum.
    const float top = std::trunc(static_cast<float>(intervals) * step + min);
    if (max > top && static_cast<double>(std::fabs(top - max) / step) > 0.001) {
        ++intervals;
        max = static_cast<float>(intervals) * step + min;
    }
    return {min, max, step, intervals};
}

} // namespace

void ChooseNiceScale(float& min, float& max, float& step, unsigned int& intervals) {
    step = 0.0f;
    intervals = 0;
    if (!std::isfinite(min) || !std::isfinite(max) || !std::isfinite(max - min)) return;
    const Scale scale = FitScale(min, max);
    if (!std::isfinite(scale.min) || !std::isfinite(scale.max) || !std::isfinite(scale.step) ||
        !(scale.step > 0.0f) || !std::isfinite(scale.max - scale.min))
        return;
    min = scale.min;
    max = scale.max;
    step = scale.step;
    intervals = scale.intervals;
}

unsigned int LabelPrecision(float step) {
    if (step == 0.0f || !std::isfinite(step)) return 0;
    const int digits = 1 - static_cast<int>(std::log10(std::fabs(step)));
    return digits < 0 ? 0u : static_cast<unsigned int>(digits);
}

} // namespace KivoDrawingTools
