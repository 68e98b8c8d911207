#include "ColorSpace.h"

#include <cmath>

namespace KivoDrawingTools {

namespace {

// Whole degrees of a hue, truncated, with the sign kept. The remainder is taken before the conversion to an
// integer, so that no hue is too large for it.
int WholeDegrees(float hue) {
    const float degrees = hue * 360.0f;
    if (!std::isfinite(degrees)) return 0;
    return static_cast<int>(std::fmod(std::trunc(degrees), 360.0f));
}

} // namespace

void RgbToHsv(float r, float g, float b, float* h, float* s, float* v) {
    float largest = r > g ? r : g;
    largest = largest > b ? largest : b;
    float smallest = r < g ? r : g;
    smallest = smallest < b ? smallest : b;

    const float delta = largest - smallest;
    float hue = 0.0f;
    float saturation = 0.0f;
    if (!(std::fabs(static_cast<double>(delta)) < 1e-5)) {
        if (r == smallest)
            hue = (3.0f - (g - b) / delta) / 6.0f;
        else if (g == smallest)
            hue = (5.0f - (b - r) / delta) / 6.0f;
        else
            hue = (1.0f - (r - g) / delta) / 6.0f;
        saturation = delta / largest;
    }
    *h = std::fmod(hue, 1.0f);
    *s = saturation;
    *v = largest;
}

void HsvToRgb(float h, float s, float v, float* r, float* g, float* b) {
    if (s == 0.0f || s < 1e-5f) {
        *r = *g = *b = v;
        return;
    }
    const float sextant = static_cast<float>(WholeDegrees(h)) / 360.0f * 6.0f;
    const int i = static_cast<int>(sextant);
    float f = sextant - static_cast<float>(i);
    if (i % 2 == 0) f = 1.0f - f;
    const float m = (1.0f - s) * v;
    const float n = (1.0f - s * f) * v;

    const auto assign = [&](float red, float green, float blue) {
        *r = red;
        *g = green;
        *b = blue;
    };
    switch (i) {
    case 1:
        return assign(n, v, m);
    case 2:
        return assign(m, v, n);
    case 3:
        return assign(m, n, v);
    case 4:
        return assign(n, m, v);
    case 5:
        return assign(v, m, n);
    default:
        return assign(v, n, m); // 0, and every negative degree count
    }
}

void ColorToRgba(unsigned long color, float* rgba) {
    for (int channel = 0; channel < 3; ++channel)
        rgba[channel] = static_cast<float>(static_cast<double>((color >> (8 * channel)) & 0xFFu) / 255.0);
    rgba[3] = 1.0f;
}

unsigned long RgbaToColor(const float* rgba) {
    unsigned long color = 0;
    for (int channel = 0; channel < 3; ++channel) {
        // The remainder is taken before the conversion, so that no value is too large for it.
        const float scaled = rgba[channel] * 255.0f;
        const float byte = std::isfinite(scaled) ? std::fmod(std::trunc(scaled), 256.0f) : 0.0f;
        color |= (static_cast<unsigned long>(static_cast<long>(byte)) & 0xFFu) << (8 * channel);
    }
    return color;
}

} // namespace KivoDrawingTools
