// Round axis ranges for numbers that are given as differences to an origin, and the decimals that their
// labels need. All arithmetic is in double precision.
#pragma once

namespace KivoDrawingTools {

/// Widens [min, max], which are differences to an origin, to multiples of a step of 1, 2 or 5 times a power
/// of ten, counted from zero, not from the origin; there are two to eight intervals. Where double precision
/// has no such numbers, since the range is less than a few 1e-13 of the origin, the differences themselves
/// are scaled by ChooseNiceScale, as what cannot be scaled is.
/// @param origin     finite
/// @param min, max   the range of the data; replaced by the range of the axis, which holds it
/// @param step       receives the distance between ticks
/// @param intervals  receives the number of intervals between ticks
void ChooseAbsoluteScale(double origin, float& min, float& max, float& step, unsigned int& intervals);

/// Digits after the decimal point with which numbers that are a step apart differ, of numbers of about this
/// size; no more than double precision has.
unsigned int DigitsApart(double step, double size);

/// The number that is meant by a difference to an origin, which has become inexact in several steps of single
/// precision: the shortest decimal one there.
/// @param size  the largest difference of those that the steps were taken with
/// @param step  the distance to the next such number, of which the result keeps within a thousandth; 0 where
///              there is none
double MeantNumber(double origin, double difference, double size, double step);

} // namespace KivoDrawingTools
