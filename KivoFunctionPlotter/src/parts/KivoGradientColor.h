// A colour gradient over a range of values.
#pragma once

#include <cstddef>
#include <memory>
#include <utility>

namespace KivoDrawingTools {

class ColorTable;

/// Maps a value to a colour between a start and an end colour, linearly in hue, saturation and value. The hue
/// is a plain number without wrap-around: from blue (2/3) to red (0) it passes through green. A table can
/// stand in the place of the two colours, and a range that is held in that of the data's.
class CKivoGradientColor {
public:
    virtual ~CKivoGradientColor() = default;

    /// Sets both colours, four floats RGBA each; the range is kept.
    void SetColors(const float* startRgba, const float* endRgba);
    /// Replaces the start colour. The end colour is converted to RGB and back, its alpha kept.
    void SetStartColor(const float* rgba);
    /// Replaces the end colour. The start colour is converted to RGB and back, its alpha kept.
    void SetEndColor(const float* rgba);
    /// Sets the range of the data: m_min, m_max and m_range, unless one is held.
    void SetRange(float min, float max);

    /// Takes the colours from a table until two colours are set; null: from these at once.
    void SetTable(std::shared_ptr<const ColorTable> table) { m_table = std::move(table); }
    const ColorTable* Table() const { return m_table.get(); }
    /// Takes these values for first and last colour, and for all values beyond them, whatever the data are.
    void HoldRange(float min, float max);
    /// Goes back to the range of the data.
    void FreeRange();
    bool IsRangeHeld() const { return m_isRangeHeld; }

    /// The colour of a value; values outside the range extrapolate, a range of 0 gives the start colour.
    /// Those of a table and of a range that is held do not: the nearer end's colour is theirs.
    /// @param rgb  receives three floats
    void Evaluate(float value, float* rgb) const;
    /// The colours of values that lie stride floats apart.
    /// @param rgba       receives four floats a value, alpha 1
    /// @param fromTable  if given, receives the number of values whose colours came from a table, as those
    /// within
    ///                   the range between pure colours should
    void EvaluateAll(const float* values, std::size_t stride, std::size_t count, float* rgba,
                     std::size_t* fromTable = nullptr) const;

    float m_min = 0.0f;             ///< value of the start colour
    float m_max = 0.0f;             ///< value of the end colour
    float m_range = 0.0f;           ///< m_max - m_min
    float m_startHue = 2.0f / 3.0f; ///< in turns
    float m_startSaturation = 1.0f;
    float m_startValue = 1.0f;
    float m_startAlpha = 1.0f;
    float m_endHue = 0.0f; ///< in turns
    float m_endSaturation = 1.0f;
    float m_endValue = 1.0f;
    float m_endAlpha = 1.0f;

private:
    float Held(float value) const;
    void EvaluateHeld(const float* values, std::size_t stride, std::size_t count, float* rgba) const;
    void EvaluateFree(const float* values, std::size_t stride, std::size_t count, float* rgba,
                      std::size_t* fromTable) const;

    std::shared_ptr<const ColorTable> m_table; // null: the two colours
    bool m_isRangeHeld = false;
    float m_dataMin = 0.0f; // the range that SetRange was given last
    float m_dataMax = 0.0f;
};

} // namespace KivoDrawingTools
