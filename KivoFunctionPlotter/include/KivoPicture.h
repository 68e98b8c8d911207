// The plot as pixels. An OpenGL context of the host's own that is current is current again afterwards,
// whatever window the plot is in; otherwise none is.
#pragma once

#include "KivoFunctionPlotter.h"

#include <vector>

namespace KivoDrawingTools {

/// Draws one frame at the window's size without presenting it and reads it back.
/// @param plotter  a plotter whose OnCreate succeeded
/// @param rgba     receives width * height * 4 bytes, red, green, blue, alpha (always 255), top row first
/// @param width    receives the picture's width in pixels
/// @param height   receives the picture's height in pixels
/// @return 0; -1 when the plotter has no usable window or OpenGL context, then nothing is changed
KIVO_API int CapturePicture(CKivoFunctionPlotter& plotter, std::vector<unsigned char>& rgba, int& width,
                            int& height);

/// The same at a size of its own, larger than the window too: the frame is then drawn in tiles of the
/// window's size. Rotation, pan and zoom are kept; labels keep their size in pixels. Afterwards the plotter
/// is as before.
/// @param plotter       a plotter whose OnCreate succeeded
/// @param wantedWidth   in pixels, 1 to 16384
/// @param wantedHeight  in pixels, 1 to 16384
/// @param rgba          receives wantedWidth * wantedHeight * 4 bytes, as above
/// @return as above; -3 for a size that is refused
KIVO_API int CapturePicture(CKivoFunctionPlotter& plotter, int wantedWidth, int wantedHeight,
                            std::vector<unsigned char>& rgba);

/// Makes a plotter show its data in the view of another, for pictures of what that shows by a plotter with a
/// window of its own, such as one with texts of another size. Plot type, rotation, pan, zoom, mirrored axes,
/// lengths and middle of the axes and the size laid out for become the other's; everything else stays. The
/// next OnSize fits the view anew.
/// @param plotter  a plotter whose OnCreate succeeded
/// @param shown    the other; not changed
/// @return 0; -1 when the plotter has no usable window or OpenGL context, -3 when the other has not been laid
///         out for any size yet: then nothing is changed
KIVO_API int TakeView(CKivoFunctionPlotter& plotter, const CKivoFunctionPlotter& shown);

} // namespace KivoDrawingTools
