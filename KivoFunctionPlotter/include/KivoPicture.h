// The plot as pixels. An OpenGL context of the host's own that is current is current again afterwards,
// whatever window the plot is in; otherwise none is.
#pragma once

#include "KivoFunctionPlotter.h"

#include <cstddef>
#include <vector>

namespace KivoDrawingTools {

/// Draws one frame at the window's size without presenting it and reads it back. It is smoothed as the window
/// is (SetWindowSmoothing). A megabyte that it is read through is kept until OnDestroy.
/// @param plotter  a plotter whose OnCreate succeeded
/// @param rgba     receives width * height * 4 bytes, red, green, blue, alpha (always 255), top row first
/// @param width    receives the picture's width in pixels
/// @param height   receives the picture's height in pixels
/// @return 0; -1 when the plotter has no usable window or OpenGL context, then nothing is changed
/// @throws std::bad_alloc  when there is no memory for these bytes; nothing is changed then
KIVO_API int CapturePicture(CKivoFunctionPlotter& plotter, std::vector<unsigned char>& rgba, int& width,
                            int& height);

/// The same at a size of its own, larger than the window too: the frame is then drawn in tiles. Rotation, pan
/// and zoom are kept; labels keep their size in pixels. Afterwards the plotter is as before.
/// @param plotter       a plotter whose OnCreate succeeded
/// @param wantedWidth   in pixels, 1 to 16384
/// @param wantedHeight  in pixels, 1 to 16384
/// @param rgba          receives wantedWidth * wantedHeight * 4 bytes, as above
/// @return as above; -3 for a size that is refused
KIVO_API int CapturePicture(CKivoFunctionPlotter& plotter, int wantedWidth, int wantedHeight,
                            std::vector<unsigned char>& rgba);

/// Ends a drawing that takes long. The function is asked in the thread that draws, every few milliseconds of
/// a large surface or picture; once it says yes, the rest is left. It must neither throw nor use the plotter,
/// but may look at what another thread has set. Steps that are short in all but the largest plots, as making
/// texts, are not broken off; nor is what a driver does by itself once it has been told what to draw.
struct SKivoStopRequest {
    bool (*isWanted)(void* context) = nullptr; ///< null: nobody is asked
    void* context = nullptr;                   ///< what it is called with
};

/// How a picture is to be drawn. As it is made: as the window shows it, but not smoothed.
struct SKivoPictureOptions {
    /// In pixels, 1 to 16384; 0 for the window's width times the scale.
    int width = 0;
    /// In pixels, 1 to 16384; 0 for the window's height times the scale.
    int height = 0;
    /// Every size that is given in pixels is multiplied by this, as by SKivoStyle::pixelScale, with which it
    /// is multiplied in turn. Above 0, up to 8; the two together up to 32. With a scale of 300 / 96 and the
    /// pixels of a page at 300 dots per inch, texts and lines take the part of the page that they have of a
    /// window of 96 dots per inch.
    float scale = 1.0f;
    /// So many times as large the picture is drawn, along each side, and averaged, so that texts and lines
    /// have soft edges: 1 to 4. All positions and sizes stay. It is smoothed less where OpenGL would not draw
    /// it so large: sides of more pixels than its viewports have (in most drivers 16384), lines that are
    /// wider than its widest, texts more than 16 times as large as at first.
    int smoothing = 1;
    /// Whether the background is left out: alpha then says how opaque a pixel is, and the colours are not
    /// multiplied by it. The frame is drawn twice.
    bool transparent = false;
    /// Whether it shows no more of the surface than a frame of a drag would: see SetMotionDetail of
    /// KivoMotion.h. For hosts that show pictures instead of a window.
    bool moving = false;
    /// Whether to leave the rest of it; at first nobody is asked.
    SKivoStopRequest stop;
};

/// The order of a pixel's four bytes.
enum class KivoPixelOrder {
    rgba, ///< red, green, blue, alpha
    bgra  ///< blue, green, red, alpha
};

/// The size of a picture in pixels.
/// @param plotter  a plotter whose OnCreate succeeded
/// @param width    receives it
/// @param height   receives it
/// @return 0; -1 when the plotter has no usable window; -3 for options beyond their limits: then nothing is
///         changed
KIVO_API int MeasurePicture(const CKivoFunctionPlotter& plotter, const SKivoPictureOptions& options,
                            int& width, int& height);

/// Draws one frame as the options say, without presenting it. Rotation, pan and zoom are those of the window.
/// Afterwards the plotter is as before.
///
/// What it is drawn with is kept for the next picture, which allocates nothing but the label of a traced
/// point where the options and the plot's texts are the same; another size or scale in between makes it anew.
/// OnDestroy gives it back: a surface of the picture's size times the smoothing in both directions, eight
/// bytes a pixel, up to 268 MB (larger pictures are drawn in tiles), the texts once more, in the square of
/// scale times smoothing as much memory as the plot's own, and one megabyte.
/// @param plotter  a plotter whose OnCreate succeeded
/// @param options  size, scale, smoothing, ground
/// @param pixels   receives the picture, four bytes a pixel, top row first
/// @param rowBytes from the start of a row to that of the next, at least four times the width
/// @param order    of the bytes of a pixel
/// @return 0; -1 when the plotter has no usable window or OpenGL context, or there is no memory for such a
///         picture: LastWindowError() says which; the pixels are then undefined, everything else is
///         unchanged. -3 for options beyond their limits, null or rows that are too short: then nothing is
///         changed. -4 when it was stopped: the pixels are undefined, everything else is unchanged
KIVO_API int DrawPicture(CKivoFunctionPlotter& plotter, const SKivoPictureOptions& options,
                         unsigned char* pixels, std::size_t rowBytes, KivoPixelOrder order);

/// The same into a vector.
/// @param rgba    receives width * height * 4 bytes, red, green, blue, alpha, top row first
/// @param width   receives the picture's width in pixels
/// @param height  receives the picture's height in pixels
/// @return as DrawPicture; after a failure all three are unchanged
KIVO_API int CapturePicture(CKivoFunctionPlotter& plotter, const SKivoPictureOptions& options,
                            std::vector<unsigned char>& rgba, int& width, int& height);

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
