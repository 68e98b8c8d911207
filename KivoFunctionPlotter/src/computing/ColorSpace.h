// Conversions between RGB and HSV, as the gradients use them. Hue is in turns: 1 is 360 degrees.
#pragma once

namespace KivoDrawingTools {

/// Converts r, g, b from 0 to 1. Greys get hue and saturation 0; hue lies in [0, 1).
void RgbToHsv(float r, float g, float b, float* h, float* s, float* v);

/// Converts back, with the hue snapped to whole degrees. A hue outside 0 to 1 is folded back when positive; a
/// negative one, or one that is no finite number, is computed as if it lay in the first sixth of the circle,
/// so that channels can leave the range from 0 to 1.
void HsvToRgb(float h, float s, float v, float* r, float* g, float* b);

/// Converts 0x00BBGGRR to four floats: each byte divided by 255, alpha 1.
void ColorToRgba(unsigned long color, float* rgba);

/// Converts back: each channel truncated from value * 255 to 8 bits, alpha dropped.
unsigned long RgbaToColor(const float* rgba);

} // namespace KivoDrawingTools
