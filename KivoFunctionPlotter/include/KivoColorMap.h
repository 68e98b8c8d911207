// Colours by a table instead of a gradient of two ends, and colours that stay while data change. Both belong
// to the plotter: they may be set before OnCreate and after it, with data or without, and stay until they are
// set again, through OnDestroy and OnCreate too.
//
// An axis is 0 for X, 1 for Y, 2 for Z. The colours of Z are those of the surface, of the contours of equal z
// and of the legend of the 3-D and the XY plot; those of X and Y are of the contours of equal x and y, and of
// the legends of the YZ and the XZ plot.
#pragma once

#include "KivoFunctionPlotter.h"

#include <string>
#include <vector>

namespace KivoDrawingTools {

/// Takes the colours of an axis from a table: the smallest value has the first colour, the largest the last
/// one, and between two neighbours they change linearly in red, green and blue. The legend's bar shows all of
/// them, up to 1024. The class's members that set a gradient of the axis go back to that.
/// @param rgba   four floats a colour, each from 0 to 1; they are copied. The alpha is not shown, as that of
///               gradients is not. Null for a count of 0 alone
/// @param count  2 to 65536; 0 goes back to the gradient that was set last
/// @return 0; -3 for another axis or count, a null pointer, and colours that are not within 0 to 1; -1 where
///         there was no memory for the gradient when the plotter was made. But for 0 nothing changes
/// @throws std::bad_alloc  without memory for the table: nothing has changed then
KIVO_API int SetColorMap(CKivoFunctionPlotter& plotter, int axis, const float* rgba, unsigned int count);

/// The same with a table of the plotter's.
/// @param name  one of ColorMapNames(). "viridis", "cividis", "grey" and "terrain" grow lighter by the same
///              with every step, so that they are read in grey print, too; cividis does so for those who
///              cannot tell red from green as well. "turbo" is a rainbow, which shows more steps and misleads
///              more. "coolwarm" has white in its middle, for values about a middle one, which SetColorRange
///              places
/// @return 0; -3 for another axis, a null pointer or another name; -1 where there was no memory for the
///         gradient when the plotter was made. But for 0 nothing changes
/// @throws std::bad_alloc  without memory for the table: nothing has changed then
KIVO_API int SetColorMap(CKivoFunctionPlotter& plotter, int axis, const char* name);

/// @return the names of the plotter's tables
KIVO_API std::vector<std::string> ColorMapNames();

/// Gives first and last colour of an axis to these values, whatever the data are, be the colours a table's or
/// a gradient's: so they stay while data change, and single values far from the others cost no colours.
/// Values beyond take the nearer end's colour; what is no number stays a hole. The legend has this range,
/// from min below to max above.
/// @param min  has the first colour. A min that exceeds max turns the colours round
/// @param max  has the last colour; the same as min goes back to the range of the data
/// @return 0; -3 for another axis, for values that are not finite, and where the way from one to the other is
///         not; -1 where the plotter's context cannot be made current or a number cannot be drawn, and where
///         there was no memory for the gradient when the plotter was made. But for 0 nothing changes
/// @throws std::bad_alloc  without memory for the legend's numbers: nothing has changed then
KIVO_API int SetColorRange(CKivoFunctionPlotter& plotter, int axis, float min, float max);

} // namespace KivoDrawingTools
