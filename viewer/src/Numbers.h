// Numbers as text, the same in every locale.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace KivoViewer {

/// The number that the whole text is: decimal point, optional exponent and sign, "nan" and "inf" too.
/// Nothing for any other text and for numbers beyond double precision.
std::optional<double> ParseNumber(std::string_view text);

/// The same for whole numbers that are not negative.
std::optional<unsigned long> ParseCount(std::string_view text);

/// The shortest text that ParseNumber reads as the same number; "NaN", "inf" and "-inf" as the plot has them.
std::string FormatNumber(float number);
std::string FormatNumber(double number);

/// The same with six digits at most, for reading.
std::string FormatRounded(float number);

/// The decimal number that is meant by a difference of single precision to an origin.
double AbsoluteNumber(double origin, float difference);

/// A number with the digits that tell it from those that lie a step above and below; with a power of ten
/// where these would be many.
std::string FormatStep(double number, double step);

/// Whether a number is finite in single precision.
bool FitsSinglePrecision(double number);

/// Text without spaces and tabs at its ends.
std::string_view Trimmed(std::string_view text);

} // namespace KivoViewer
