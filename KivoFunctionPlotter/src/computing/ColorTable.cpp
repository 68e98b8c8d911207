#include "ColorTable.h"

#include "VectorClones.h"

#include <algorithm>
#include <cstring>
#include <type_traits>

namespace KivoDrawingTools {

namespace {

constexpr std::size_t lookUpRun = 512; // values; short, so that what is found stays in the cache

// What is no number becomes 0. Written so that compilers make vectors of it.
inline float PlaceOf(float value, float min, float width) {
    const float place = (value - min) / width;
    const float atLeast = place > 0.0f ? place : 0.0f;
    return atLeast < 1.0f ? atLeast : 1.0f;
}

template <typename Stride>
inline void FindPlaces(const ColorRange& range, const float* values, Stride stride, std::size_t count,
                       float scale, int* steps, float* shares) {
    const float min = range.min, width = range.max - range.min;
    for (std::size_t i = 0; i < count; ++i) {
        const float place = PlaceOf(values[i * stride], min, width) * scale;
        const int step = static_cast<int>(place);
        steps[i] = step;
        shares[i] = place - static_cast<float>(step);
    }
}

// The step and the share of it at which each value lies.
KIVO_VECTOR_CLONES void FindSteps(const ColorRange& range, const float* values, std::size_t stride,
                                  std::size_t count, float scale, int* steps, float* shares) {
    if (stride == 3) // known to the compiler, as vectors need it
        FindPlaces(range, values, std::integral_constant<std::size_t, 3>(), count, scale, steps, shares);
    else
        FindPlaces(range, values, stride, count, scale, steps, shares);
}

} // namespace

float ColorRange::Place(float value) const {
    return min == max ? 0.0f : PlaceOf(value, min, max - min);
}

ColorTable::ColorTable(const float* rgba, std::size_t count) : m_steps(count) {
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t next = std::min(i + 1, count - 1);
        for (std::size_t k = 0; k < 3; ++k) {
            m_steps[i].color[k] = rgba[4 * i + k];
            m_steps[i].toNext[k] = rgba[4 * next + k] - rgba[4 * i + k];
        }
        m_steps[i].color[3] = 1.0f;
        m_steps[i].toNext[3] = 0.0f;
    }
}

void ColorTable::At(float place, float* rgb) const {
    const float steps = place * static_cast<float>(m_steps.size() - 1);
    const auto index = static_cast<std::size_t>(steps);
    const float share = steps - static_cast<float>(index);
    for (std::size_t k = 0; k < 3; ++k)
        rgb[k] = m_steps[index].color[k] + share * m_steps[index].toNext[k];
}

KIVO_VECTOR_CLONES void ColorTable::Interpolate(const Step* table, const int* steps, const float* shares,
                                                std::size_t count, float* rgba) {
    const auto write = [&](std::size_t i) {
        const Step& step = table[steps[i]];
        float color[4]; // so that compilers need not ask whether rgba lies in the table
        for (std::size_t k = 0; k < 4; ++k)
            color[k] = step.color[k] + shares[i] * step.toNext[k];
        std::memcpy(rgba + 4 * i, color, sizeof(color));
    };
    std::size_t i = 0;
    for (; i + 4 <= count; i += 4) // several at once, which is faster than one by one
        for (std::size_t k = i; k < i + 4; ++k)
            write(k);
    for (; i < count; ++i)
        write(i);
}

void ColorTable::Assign(const ColorRange& range, const float* values, std::size_t stride, std::size_t count,
                        float* rgba) const {
    if (range.min == range.max) { // no value has a place of its own
        for (std::size_t i = 0; i < count; ++i)
            std::memcpy(rgba + 4 * i, m_steps.front().color, sizeof(m_steps.front().color));
        return;
    }
    int steps[lookUpRun];
    float shares[lookUpRun];
    const auto scale = static_cast<float>(m_steps.size() - 1);
    for (std::size_t start = 0; start < count; start += lookUpRun) {
        const std::size_t length = std::min(lookUpRun, count - start);
        FindSteps(range, values + start * stride, stride, length, scale, steps, shares);
        Interpolate(m_steps.data(), steps, shares, length, rgba + 4 * start);
    }
}

} // namespace KivoDrawingTools
