// Axes for points without a surface.
#pragma once

#include "GridData.h"
#include "PointFile.h"

#include <vector>

namespace KivoViewer {

/// A grid whose axes hold all points, with some room around them, and which shows nothing: all values but
/// two, which hold the ends of the third axis, are holes.
GridData BoxAround(const std::vector<PointFile>& files);

} // namespace KivoViewer
