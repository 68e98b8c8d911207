// One grid minus another.
#pragma once

#include "GridData.h"

namespace KivoViewer {

/// The values of a grid less those of another at the same places, which lie between its points by linear
/// interpolation along both axes. Where the other has none it is a hole. Throws a Failure where no place has
/// both.
GridData DifferenceOf(const GridData& grid, const GridData& other);

} // namespace KivoViewer
