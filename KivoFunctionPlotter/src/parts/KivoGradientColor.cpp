#include "KivoGradientColor.h"

#include "computing/ColorSpace.h"
#include "computing/ColorTable.h"
#include "computing/VectorClones.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <type_traits>

namespace KivoDrawingTools {

namespace {

// What a colour becomes by a round trip through RGB: its hue snaps to whole degrees.
void Reencode(float* hue, float* saturation, float* value) {
    float r, g, b;
    HsvToRgb(*hue, *saturation, *value, &r, &g, &b);
    RgbToHsv(r, g, b, hue, saturation, value);
}

// What a run of values needs to know of a gradient.
struct Ramp {
    float min, range;
    float startHue, startSaturation, startValue;
    float endHue, endSaturation, endValue;
};

constexpr std::size_t runLength = 128; // values; short, so that memory is written while the next are computed
struct HsvRun {
    float degrees[runLength], saturation[runLength], value[runLength];
    int isBeyond; // whether a hue is not within a turn, or no number
    int hasGrey;
};

struct RgbRun {
    // Alpha is 1; as a constant it would keep the compiler from storing whole colours.
    float red[runLength], green[runLength], blue[runLength], alpha[runLength];
};

// Where a value lies in the range, 0 to 1 inside it, and the degrees of its hue.
inline float FindPlace(const Ramp& ramp, float value) {
    return (value - ramp.min) / ramp.range;
}
inline float FindDegrees(const Ramp& ramp, float t) {
    return ((1.0f - t) * ramp.startHue + t * ramp.endHue) * 360.0f;
}

template <typename Stride>
inline void InterpolateRun(const Ramp& ramp, const float* values, Stride stride, std::size_t count,
                           HsvRun& run) {
    int isBeyond = 0, hasGrey = 0;
    for (std::size_t i = 0; i < count; ++i) {
        const float t = FindPlace(ramp, values[i * stride]);
        const float degrees = FindDegrees(ramp, t);
        const float saturation = (1.0f - t) * ramp.startSaturation + t * ramp.endSaturation;
        run.value[i] = (1.0f - t) * ramp.startValue + t * ramp.endValue;
        run.saturation[i] = saturation;
        run.degrees[i] = degrees;
        isBeyond |= !(std::fabs(degrees) < 360.0f);
        hasGrey |= saturation < 1e-5f;
    }
    run.isBeyond = isBeyond;
    run.hasGrey = hasGrey;
}

// One of two values, without a branch that would keep compilers from making vectors.
inline float Choose(bool isFirst, float first, float second) {
    std::uint32_t bits[2];
    std::memcpy(&bits[0], &first, sizeof(first));
    std::memcpy(&bits[1], &second, sizeof(second));
    const std::uint32_t mask = 0u - static_cast<std::uint32_t>(isFirst);
    const std::uint32_t chosen = (bits[0] & mask) | (bits[1] & ~mask);
    float value;
    std::memcpy(&value, &chosen, sizeof(value));
    return value;
}

// HsvToRgb for colours that are not grey and hues within a turn.
inline void ConvertRun(const HsvRun& run, std::size_t count, RgbRun& rgb) {
    for (std::size_t i = 0; i < count; ++i) {
        const float s = run.saturation[i], v = run.value[i];
        const float sextant = static_cast<float>(static_cast<int>(run.degrees[i])) / 360.0f * 6.0f;
        const int k = static_cast<int>(sextant);
        const float part = sextant - static_cast<float>(k);
        const float f = Choose((k & 1) == 0, 1.0f - part, part);
        const float m = (1.0f - s) * v;
        const float n = (1.0f - s * f) * v;
        rgb.red[i] = Choose((k == 2) | (k == 3), m, Choose((k == 1) | (k == 4), n, v));
        rgb.green[i] = Choose((k == 1) | (k == 2), v, Choose((k == 4) | (k == 5), m, n));
        rgb.blue[i] = Choose((k == 3) | (k == 4), v, Choose((k == 2) | (k == 5), n, m));
        rgb.alpha[i] = 1.0f;
    }
}

inline void OverwriteGrey(const HsvRun& run, std::size_t count, RgbRun& rgb) {
    for (std::size_t i = 0; i < count; ++i) {
        const bool isGrey = run.saturation[i] < 1e-5f;
        rgb.red[i] = Choose(isGrey, run.value[i], rgb.red[i]);
        rgb.green[i] = Choose(isGrey, run.value[i], rgb.green[i]);
        rgb.blue[i] = Choose(isGrey, run.value[i], rgb.blue[i]);
    }
}

inline void Interleave(const RgbRun& rgb, std::size_t count, float* rgba) {
    for (std::size_t i = 0; i < count; ++i) {
        rgba[4 * i] = rgb.red[i];
        rgba[4 * i + 1] = rgb.green[i];
        rgba[4 * i + 2] = rgb.blue[i];
        rgba[4 * i + 3] = rgb.alpha[i];
    }
}

// False, with nothing written, where a hue is beyond a turn or no number.
KIVO_VECTOR_CLONES bool ColorRun(const Ramp& ramp, const float* values, std::size_t stride, std::size_t count,
                                 float* rgba) {
    HsvRun run;
    if (stride == 3) // known to the compiler, as vectors need it
        InterpolateRun(ramp, values, std::integral_constant<std::size_t, 3>(), count, run);
    else
        InterpolateRun(ramp, values, stride, count, run);
    if (run.isBeyond) return false;
    RgbRun rgb;
    ConvertRun(run, count, rgb);
    if (run.hasGrey) OverwriteGrey(run, count, rgb);
    Interleave(rgb, count, rgba);
    return true;
}

// Any values of any gradient.
void ColorRuns(const CKivoGradientColor& gradient, const Ramp& ramp, const float* values, std::size_t stride,
               std::size_t count, float* rgba) {
    for (std::size_t start = 0; start < count; start += runLength) {
        const std::size_t length = std::min(runLength, count - start);
        const float* const run = values + start * stride;
        float* const colors = rgba + start * 4;
        if (ramp.range != 0.0f && ColorRun(ramp, run, stride, length, colors)) continue;
        for (std::size_t i = 0; i < length; ++i) {
            gradient.Evaluate(run[i * stride], colors + 4 * i);
            colors[4 * i + 3] = 1.0f;
        }
    }
}

// The colours of full saturation and brightness: one for each whole degree of hue, as RGBA.
struct PureColors {
    float rgba[360][4];

    PureColors() {
        for (std::size_t degree = 0; degree < 360; ++degree) {
            HsvRun run;
            run.degrees[0] = static_cast<float>(degree);
            run.saturation[0] = run.value[0] = 1.0f;
            RgbRun rgb;
            ConvertRun(run, 1, rgb);
            Interleave(rgb, 1, rgba[degree]);
        }
    }
};

// Between two pure colours all are pure: (1 - t) + t is 1 for every t from 0 to 1, rounding included. Hues
// that are clear of a whole turn stay below it.
bool IsPure(const Ramp& ramp) {
    const auto isPure = [](float hue, float saturation, float value) {
        return hue >= 0.0f && hue <= 0.999f && saturation == 1.0f && value == 1.0f;
    };
    return ramp.range != 0.0f && isPure(ramp.startHue, ramp.startSaturation, ramp.startValue) &&
           isPure(ramp.endHue, ramp.endSaturation, ramp.endValue);
}

constexpr std::size_t pureRunLength = 512; // values

template <typename Stride>
inline bool FindWholeDegrees(const Ramp& ramp, const float* values, Stride stride, std::size_t count,
                             int* wholeDegrees) {
    int isBeyond = 0;
    for (std::size_t i = 0; i < count; ++i) {
        const float t = FindPlace(ramp, values[i * stride]);
        const bool isWithin = (t >= 0.0f) & (t <= 1.0f);
        isBeyond |= !isWithin;
        wholeDegrees[i] = static_cast<int>(Choose(isWithin, FindDegrees(ramp, t), 0.0f));
    }
    return isBeyond == 0;
}

// For a ramp between pure colours. False, with nothing written, where a value is outside the range.
KIVO_VECTOR_CLONES bool ColorPureRun(const Ramp& ramp, const PureColors& colors, const float* values,
                                     std::size_t stride, std::size_t count, float* rgba) {
    int degrees[pureRunLength];
    const bool isWithin =
        stride == 3 // known to the compiler, as vectors need it
            ? FindWholeDegrees(ramp, values, std::integral_constant<std::size_t, 3>(), count, degrees)
            : FindWholeDegrees(ramp, values, stride, count, degrees);
    if (!isWithin) return false;
    const auto copy = [&](std::size_t i) {
        std::memcpy(rgba + 4 * i, colors.rgba[degrees[i]], sizeof(colors.rgba[0]));
    };
    std::size_t i = 0;
    for (; i + 4 <= count; i += 4) // several at once, which is faster than one by one
        for (std::size_t k = i; k < i + 4; ++k)
            copy(k);
    for (; i < count; ++i)
        copy(i);
    return true;
}

} // namespace

void CKivoGradientColor::SetColors(const float* startRgba, const float* endRgba) {
    RgbToHsv(startRgba[0], startRgba[1], startRgba[2], &m_startHue, &m_startSaturation, &m_startValue);
    m_startAlpha = startRgba[3];
    RgbToHsv(endRgba[0], endRgba[1], endRgba[2], &m_endHue, &m_endSaturation, &m_endValue);
    m_endAlpha = endRgba[3];
    m_table.reset();
}

void CKivoGradientColor::SetStartColor(const float* rgba) {
    RgbToHsv(rgba[0], rgba[1], rgba[2], &m_startHue, &m_startSaturation, &m_startValue);
    m_startAlpha = rgba[3];
    Reencode(&m_endHue, &m_endSaturation, &m_endValue);
    m_table.reset();
}

void CKivoGradientColor::SetEndColor(const float* rgba) {
    RgbToHsv(rgba[0], rgba[1], rgba[2], &m_endHue, &m_endSaturation, &m_endValue);
    m_endAlpha = rgba[3];
    Reencode(&m_startHue, &m_startSaturation, &m_startValue);
    m_table.reset();
}

void CKivoGradientColor::SetRange(float min, float max) {
    m_dataMin = min;
    m_dataMax = max;
    if (!m_isRangeHeld) FreeRange();
}

void CKivoGradientColor::HoldRange(float min, float max) {
    m_isRangeHeld = true;
    m_min = min;
    m_max = max;
    m_range = max - min;
}

void CKivoGradientColor::FreeRange() {
    m_isRangeHeld = false;
    m_min = m_dataMin;
    m_max = m_dataMax;
    m_range = m_dataMax - m_dataMin;
}

// The nearest value of a range that is held. What is no number is as good as the first one: points without a
// place have no colour either.
float CKivoGradientColor::Held(float value) const {
    const float low = m_min < m_max ? m_min : m_max;
    const float high = m_min < m_max ? m_max : m_min;
    const float atLeast = value > low ? value : low;
    return atLeast < high ? atLeast : high;
}

void CKivoGradientColor::Evaluate(float value, float* rgb) const {
    if (m_table) return m_table->At(ColorRange{m_min, m_max}.Place(value), rgb);
    if (m_isRangeHeld) value = Held(value);
    const float t = m_range != 0.0f ? (value - m_min) / m_range : 0.0f;
    const float hue = (1.0f - t) * m_startHue + t * m_endHue;
    const float saturation = (1.0f - t) * m_startSaturation + t * m_endSaturation;
    const float brightness = (1.0f - t) * m_startValue + t * m_endValue;
    HsvToRgb(hue, saturation, brightness, &rgb[0], &rgb[1], &rgb[2]);
}

void CKivoGradientColor::EvaluateAll(const float* values, std::size_t stride, std::size_t count, float* rgba,
                                     std::size_t* fromTable) const {
    if (fromTable) *fromTable = 0;
    if (m_table)
        m_table->Assign({m_min, m_max}, values, stride, count, rgba);
    else if (m_isRangeHeld)
        EvaluateHeld(values, stride, count, rgba);
    else
        EvaluateFree(values, stride, count, rgba, fromTable);
}

// Within their range all values take the fast way.
void CKivoGradientColor::EvaluateHeld(const float* values, std::size_t stride, std::size_t count,
                                      float* rgba) const {
    float held[pureRunLength];
    for (std::size_t start = 0; start < count; start += pureRunLength) {
        const std::size_t length = std::min(pureRunLength, count - start);
        for (std::size_t i = 0; i < length; ++i)
            held[i] = Held(values[(start + i) * stride]);
        EvaluateFree(held, 1, length, rgba + start * 4, nullptr);
    }
}

void CKivoGradientColor::EvaluateFree(const float* values, std::size_t stride, std::size_t count, float* rgba,
                                      std::size_t* fromTable) const {
    static const PureColors pureColors;
    const Ramp ramp = {m_min,        m_range,  m_startHue,      m_startSaturation,
                       m_startValue, m_endHue, m_endSaturation, m_endValue};
    const bool isPure = IsPure(ramp);
    std::size_t found = 0;
    for (std::size_t start = 0; start < count; start += pureRunLength) {
        const std::size_t length = std::min(pureRunLength, count - start);
        const float* const run = values + start * stride;
        float* const colors = rgba + start * 4;
        if (isPure && ColorPureRun(ramp, pureColors, run, stride, length, colors))
            found += length;
        else
            ColorRuns(*this, ramp, run, stride, length, colors);
    }
    if (fromTable) *fromTable = found;
}

} // namespace KivoDrawingTools
