// What stands beside the picture: the colour legends, the names of the measure groups, the read-out of the
// traced point. A header of its own, since a legend belongs to gradients as much as to the tables of
// KivoColorMap.h, and groups and read-outs to neither. All settings belong to the plotter: they may be made
// before OnCreate and after it, with data or without, and stay until they are made again, through OnDestroy
// and OnCreate too.
#pragma once

#include "KivoFunctionPlotter.h"

#include <string>

namespace KivoDrawingTools {

/// @param axis  0 for X, whose legend the YZ plot has, 1 for Y, of the XZ plot, 2 for Z, of the 3-D and the
///              XY plot; with another one the result is as a legend is made
/// @return how a legend looks: KivoTypes.h has the record
/// @throws std::bad_alloc  without memory for its title
KIVO_API SKivoLegend GetLegend(const CKivoFunctionPlotter& plotter, int axis);

/// Lets a legend look another way from the next frame on.
/// @param axis  as of GetLegend
/// @return 0; -3 for another axis, and numbers that are none of these; -1 where the plotter's context cannot
///         be made current, or a text cannot be drawn, and where there was no memory for the legend when the
///         plotter was made. But for 0 nothing changes, as when std::bad_alloc is thrown
KIVO_API int SetLegend(CKivoFunctionPlotter& plotter, int axis, const SKivoLegend& legend);

/// Lists names and colours of the measure groups that are shown, in the upper right corner of the 3-D plot.
/// @param show  false, at first: no list
/// @return 0; -1 when names that no window has drawn yet want the plotter's context, and it cannot be made
///         current: nothing changes then
KIVO_API int ShowMeasureGroupNames(CKivoFunctionPlotter& plotter, bool show);
/// @return whether they are listed
KIVO_API bool IsShowMeasureGroupNames(const CKivoFunctionPlotter& plotter);

/// Writes the coordinates of the traced point with the digits that their axes' ranges need: right to a
/// twentieth of a hundredth of the range, as the numbers of KivoLegendNumbers::fitted are to that of a step.
/// @param fit  false, at first: three digits after the point
/// @return 0
KIVO_API int FitReadOutDigits(CKivoFunctionPlotter& plotter, bool fit);
KIVO_API bool IsFitReadOutDigits(const CKivoFunctionPlotter& plotter); ///< @return whether they are fitted

} // namespace KivoDrawingTools
