#include "KivoGradientColor.h"

#include "ColorSpace.h"

namespace KivoDrawingTools {

namespace {

// What a colour becomes by a round trip through RGB: its hue snaps to whole degrees.
void Reencode(float* hue, float* saturation, float* value) {
    float r, g, b;
    HsvToRgb(*hue, *saturation, *value, &r, &g, &b);
    RgbToHsv(r, g, b, hue, saturation, value);
}

} // namespace

void CKivoGradientColor::SetColors(const float* startRgba, const float* endRgba) {
    RgbToHsv(startRgba[0], startRgba[1], startRgba[2], &m_startHue, &m_startSaturation, &m_startValue);
    m_startAlpha = startRgba[3];
    RgbToHsv(endRgba[0], endRgba[1], endRgba[2], &m_endHue, &m_endSaturation, &m_endValue);
    m_endAlpha = endRgba[3];
}

void CKivoGradientColor::SetStartColor(const float* rgba) {
    RgbToHsv(rgba[0], rgba[1], rgba[2], &m_startHue, &m_startSaturation, &m_startValue);
    m_startAlpha = rgba[3];
    Reencode(&m_endHue, &m_endSaturation, &m_endValue);
}

void CKivoGradientColor::SetEndColor(const float* rgba) {
    RgbToHsv(rgba[0], rgba[1], rgba[2], &m_endHue, &m_endSaturation, &m_endValue);
    m_endAlpha = rgba[3];
    Reencode(&m_startHue, &m_startSaturation, &m_startValue);
}

void CKivoGradientColor::SetRange(float min, float max) {
    m_min = min;
    m_max = max;
    m_range = max - min;
}

void CKivoGradientColor::Evaluate(float value, float* rgb) const {
    const float t = m_range != 0.0f ? (value - m_min) / m_range : 0.0f;
    const float hue = (1.0f - t) * m_startHue + t * m_endHue;
    const float saturation = (1.0f - t) * m_startSaturation + t * m_endSaturation;
    const float brightness = (1.0f - t) * m_startValue + t * m_endValue;
    HsvToRgb(hue, saturation, brightness, &rgb[0], &rgb[1], &rgb[2]);
}

} // namespace KivoDrawingTools
