// Contours at levels of the host's choosing, their values at the lines, and the XY plot filled between them.
// The settings belong to the plotter: they may be made before OnCreate and after it, with data or without,
// and stay until they are made again, through new data, OnDestroy and OnCreate too.
#pragma once

#include "KivoFunctionPlotter.h"

namespace KivoDrawingTools {

/// Traces the contours of an axis at a base and its multiples of an interval above and below, as far as they
/// lie between the smallest and the largest value of the data. Of more than a thousand only every second,
/// third and so on remains, counted from the base. Contours that CreateIsoContourSKivoTexImage draws as a
/// picture keep their levels.
/// @param axis      0 for X, 1 for Y, 2 for Z
/// @param interval  from one level to the next, in units of the data; 0, at first: as many levels as
///                  CKivoFunctionPlotter::SetIsoContourCount was told
/// @param base      one of the levels, in units of the data: differences to the origin of SetAxisOrigin
/// @return 0; -3 for another axis, an interval below 0, and numbers that are not finite: nothing changes then
/// @throws std::bad_alloc  without memory for the contours: nothing has changed then
KIVO_API int SetContourInterval(CKivoFunctionPlotter& plotter, int axis, double interval, double base = 0.0);

/// Fills the XY plot between the contours of equal z: each band in the colour of the middle between its
/// levels, below the grid and the lines, which have the colour of the ink then. Of more than 2,047 levels the
/// bands are of one height each, as many as that. Other surfaces than the first are not shown.
/// @param fill  false, at first: lines alone
/// @return 0
KIVO_API int FillContours(CKivoFunctionPlotter& plotter, bool fill);
KIVO_API bool AreContoursFilled(const CKivoFunctionPlotter& plotter); ///< @return whether they are

/// Writes the values of the contours of equal z along their lines in the XY plot, filled or not: upright, one
/// at each line that is long enough on the screen, more at long ones, in a gap of the line, where it is
/// straightest; none meets another text or the border. The words are those of SetAxisLabelFormat, as they
/// were when contours, origin or format last changed, else the digits that tell the levels apart. Those that
/// there is no memory or no context for later on are left out. A frame has 400 values at most. Of levels that
/// cross more than 1,048,576 cells in all, as on noisy data, only those have values that fit into this sum,
/// from the lowest on. Contours drawn as a picture have none.
/// @param label  false, at first: lines alone
/// @return 0; -1 when the plotter's context cannot be made current, or the system cannot draw the values:
///         nothing changes then
/// @throws std::bad_alloc  without memory for the values: nothing has changed then
KIVO_API int LabelContours(CKivoFunctionPlotter& plotter, bool label);
KIVO_API bool AreContoursLabeled(const CKivoFunctionPlotter& plotter); ///< @return whether they are

} // namespace KivoDrawingTools
