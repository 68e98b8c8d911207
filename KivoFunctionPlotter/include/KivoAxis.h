// Numbers that single precision cannot hold, such as coordinates of national grids, dates, pressures of which
// hundredths count: the data are differences to an origin, and what the plot writes are absolute numbers, or
// a host's own words for them. The settings belong to the plotter: they may be made before OnCreate and after
// it, with data or without, and stay until they are made again, through new data, OnDestroy and OnCreate too.
#pragma once

#include "KivoFunctionPlotter.h"

#include <functional>
#include <string>

namespace KivoDrawingTools {

/// Sets what 0 of the data stands for along an axis. With another origin than 0, as at first, the labels of
/// the axis, of the colour legend that belongs to it and the read-out of the traced point say the origin plus
/// the number of the data, computed in double precision, with as many digits as it takes to tell neighbours
/// apart, or more where the plot is told to have more. From 1e16 on numbers are written with a power of ten.
///
/// Everything else stays in the units of the data: points, ranges that are set and told, the traced point.
/// New data get ranges whose ticks are multiples of 1, 2 or 5 times a power of ten in absolute numbers. Where
/// the data's range is below about 1e-13 of the origin, double precision has no such numbers: the ticks are
/// round differences then, and labels may say the same.
///
/// With data, range, tick count and precision of the axis are chosen anew, as new data do, and its labels are
/// made; as with the plotter's own axis settings, the view is not fitted again:
/// CKivoFunctionPlotter::AutoAdjustAxisLengthRatio does that.
/// @param axis    0 for X, 1 for Y, 2 for Z
/// @param origin  finite
/// @return 0; -3 for another axis or origin; -1 when the plotter's context cannot be made current, or a label
///         cannot be made, or for a plotter that had no memory for its axes when it was made. But for 0
///         everything is as before, as it is when std::bad_alloc is thrown
KIVO_API int SetAxisOrigin(CKivoFunctionPlotter& plotter, int axis, double origin);

/// @return what SetAxisOrigin has set; 0 for a number that is no axis
KIVO_API double GetAxisOrigin(const CKivoFunctionPlotter& plotter, int axis);

/// Sets in which words the numbers of an axis are written: at its ticks, at the colour legend that belongs to
/// it, and in the read-out of the traced point. Ranges, ticks and precision stay.
///
/// The function is called when such texts are made: by this call, by new data and axis settings, changes of
/// legends, OnCreate, and when a point is traced; never by a frame or a picture. It gets finite numbers only,
/// cleaned of the rounding of single precision; for others the plot writes its own words. What it returns is
/// a text as titles are, and shows in one line: line ends become spaces, and 500 bytes are kept. Empty texts
/// leave labels out. Where it throws anything but std::bad_alloc, the text is empty.
///
/// It may ask the plotter anything, but must not destroy it. While a function is being called, its thread
/// calls none for other texts: what it changes in a plotter counts, with the plot's own words. Texts that
/// were being made then may be missing or be the plot's own until they are made again, and where it draws,
/// changes or ends the plot in the course of this call, this may return -1 although it has set the function.
/// @param axis    0 for X, 1 for Y, 2 for Z
/// @param format  called with the absolute value and the distance to the next number, above 0, or 0 where
///                there is none: between ticks, between labels of the legend, and for the read-out a
///                hundredth of that between ticks, about what can be told apart on a screen. An empty one:
///                the plot's own words, as at first
/// @return as SetAxisOrigin
KIVO_API int SetAxisLabelFormat(CKivoFunctionPlotter& plotter, int axis,
                                std::function<std::string(double value, double step)> format);

/// How the read-out of a traced point would write a coordinate, for hosts that show it elsewhere, too: in the
/// host's words where SetAxisLabelFormat has set any, else in the plot's, with the digits that it has there.
/// @param axis    0 for X, 1 for Y, 2 for Z; the text of another one is empty
/// @param number  of the data
/// @throws std::bad_alloc  without memory for the text
KIVO_API std::string ReadOutNumber(const CKivoFunctionPlotter& plotter, int axis, float number);

} // namespace KivoDrawingTools
