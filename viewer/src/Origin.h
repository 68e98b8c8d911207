// What is subtracted from a file's numbers before single precision holds them.
#pragma once

#include <vector>

namespace KivoViewer {

/// @return what coordinates in order are to be differences to: 0 where single precision holds them as they
///         are, else a round number not above the smallest, but for rounding
double OriginOfCoordinates(const std::vector<double>& coordinates);

/// The same for values, of which some may be no numbers.
double OriginOfValues(const std::vector<double>& values);

} // namespace KivoViewer
