// Numbers as text, the same in every locale.
#pragma once

#include <optional>
#include <string_view>

namespace KivoViewer {

/// The number that the whole text is: decimal point, optional exponent and sign, "nan" and "inf" too.
/// Nothing for any other text and for numbers beyond double precision.
std::optional<double> ParseNumber(std::string_view text);

/// The same for whole numbers that are not negative.
std::optional<unsigned long> ParseCount(std::string_view text);

/// Whether a number is finite in single precision.
bool FitsSinglePrecision(double number);

/// Text without spaces and tabs at its ends.
std::string_view Trimmed(std::string_view text);

} // namespace KivoViewer
