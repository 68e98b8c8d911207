// Colours that stand at even steps of a range, with straight lines between them.
#pragma once

#include <cstddef>
#include <vector>

namespace KivoDrawingTools {

/// Values to which a table's first and last colour belong; the last may be the smaller one.
struct ColorRange {
    float min, max;

    /// Where a value lies in it: 0 to 1, the nearer end for values beyond it. 0 for what is no number, and
    /// for all values where min and max are the same.
    float Place(float value) const;
};

class ColorTable {
public:
    static constexpr std::size_t leastCount = 2;
    /// A place in the range is a float of 24 bits: of so many colours, 8 are left for what lies between two.
    static constexpr std::size_t mostCount = 65536;

    /// @param rgba   count times four floats, of which the fourth is not kept: the colours are opaque
    /// @param count  at least leastCount
    ColorTable(const float* rgba, std::size_t count);

    std::size_t Count() const { return m_steps.size(); }

    /// The colour at a place from 0 to 1. @param rgb  receives three floats
    void At(float place, float* rgb) const;

    /// The colours of values that lie stride floats apart. @param rgba  receives four floats a value
    void Assign(const ColorRange& range, const float* values, std::size_t stride, std::size_t count,
                float* rgba) const;

private:
    // A colour, and what leads from it to the next one: nothing from the last one.
    struct Step {
        float color[4];
        float toNext[4];
    };
    static void Interpolate(const Step* table, const int* steps, const float* shares, std::size_t count,
                            float* rgba);

    std::vector<Step> m_steps;
};

} // namespace KivoDrawingTools
