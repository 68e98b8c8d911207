// What the library computes by fast loops, computed by the plainest ones: the results have to be the same bit
// for bit.
#pragma once

#include "computing/GridView.h"
#include "computing/SurfacePicker.h"
#include "parts/KivoGradientColor.h"

#include <vector>

namespace KivoDrawingTools {

/// Cell after cell for a single level; three floats a point, two points a segment.
std::vector<float> PlainLevelLines(const GridView& grid, int axis, float level);

/// Triangle after triangle.
PickResult PlainPick(const GridView& grid, const float* origin, const float* dir, float limit, float* hit);

/// Point after point, from the first; three floats each.
void PlainBounds(const GridView& grid, float* min, float* max);

/// Four floats a point, alpha 1.
std::vector<float> PlainColors(const GridView& grid, const CKivoGradientColor& gradient);

/// Two floats a point.
std::vector<float> PlainTexcoords(unsigned int columns, unsigned int rows);

/// Six indices a cell.
std::vector<unsigned int> PlainTriangles(unsigned int columns, unsigned int rows);

/// Two indices a segment, for steps of at least 1 and at least two columns and rows.
std::vector<unsigned int> PlainFrameLines(unsigned int columns, unsigned int rows, unsigned int columnStep,
                                          unsigned int rowStep);

/// Whether two floats have the same bits, or both are no numbers.
bool AreIdentical(float a, float b);
bool AreIdentical(const float* a, const float* b, std::size_t count); ///< all of them

} // namespace KivoDrawingTools
