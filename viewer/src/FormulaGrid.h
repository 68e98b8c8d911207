// Grids of points from a formula.
#pragma once

#include "GridData.h"

#include <string>

namespace KivoViewer {

/// Evenly spaced values of a variable, both ends included.
struct Range {
    double from = -3.0;
    double to = 3.0;
    std::size_t count = 61; ///< at least 2
};

/// The range that "from:to:count" stands for. Throws a Failure that says what is wrong with the text.
Range ParseRange(const std::string& text);

/// Evaluates a formula of x and y on a grid. Values that are not finite become holes. Throws a Failure for a
/// formula that cannot be understood or has no finite value at all.
GridData MakeFormulaGrid(const std::string& formula, const Range& x, const Range& y);

} // namespace KivoViewer
