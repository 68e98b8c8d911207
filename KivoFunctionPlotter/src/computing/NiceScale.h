// Round axis ranges and tick steps.
#pragma once

namespace KivoDrawingTools {

/// Widens [min, max] to multiples of a step derived from a power of ten, with about 8 intervals at most.
/// All arithmetic is in single precision. Values that cannot be scaled (infinite, not a number, or with a
/// span or step past the range of float) are left as they are, with step 0 and 0 intervals.
/// @param min, max   the data range; replaced by the axis range
/// @param step       receives the distance between ticks
/// @param intervals  receives the number of intervals between ticks
void ChooseNiceScale(float& min, float& max, float& step, unsigned int& intervals);

/// Digits after the decimal point for labels at multiples of a step: 1 - trunc(log10 |step|), at least 0.
unsigned int LabelPrecision(float step);

} // namespace KivoDrawingTools
