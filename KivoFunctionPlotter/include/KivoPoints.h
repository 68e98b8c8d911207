// Curves and measure points: taken away again one by one, and shown in the flat plots.
#pragma once

#include "KivoFunctionPlotter.h"

namespace KivoDrawingTools {

/// Takes a curve away. Those after it move up by one index.
/// @return 0; -2 for an index that no curve has
KIVO_API int RemoveCurve(CKivoFunctionPlotter& plotter, int index);

/// Takes a measure group away, whose points are not read any more. Those after it move up by one index.
/// @return 0; -2 for an index that no group has; -1 when the plotter's context cannot be made current:
///         nothing changes then
KIVO_API int RemoveMeasureGroup(CKivoFunctionPlotter& plotter, unsigned int index);

/// Shows curves, measure points and the traced point in the flat plots, too, over the contours; with the
/// point's coordinates, and with the names of the groups where ShowMeasureGroupNames has them listed. It
/// belongs to the plotter and stays through new data, OnDestroy and OnCreate.
/// @param show  false, at first: the flat plots have contours alone
/// @return 0
KIVO_API int ShowPointsInFlatPlots(CKivoFunctionPlotter& plotter, bool show);
KIVO_API bool ArePointsInFlatPlots(const CKivoFunctionPlotter& plotter); ///< @return whether they are shown

} // namespace KivoDrawingTools
