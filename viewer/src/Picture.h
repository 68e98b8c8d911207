// Pictures of a plot, drawn without a screen.
#pragma once

#include <functional>
#include <future>
#include <vector>

namespace KivoViewer {

class PlotScene;

constexpr int maxPictureSize = 16384;  ///< in pixels, of each side
constexpr int maxResolution = 1200;    ///< in dots per inch
constexpr int usualResolution = 96;    ///< in dots per inch
constexpr int maxSmoothing = 4;        ///< along each side
constexpr int usualSmoothing = 2;      ///< along each side
constexpr double minScale = 0.1;       ///< that a picture is asked for
constexpr double maxScale = 8.0;       ///< as above
constexpr double maxPixelScale = 32.0; ///< of resolution and scale together

/// How large a picture is, and how it is drawn.
struct PictureFormat {
    int width = 0;                  ///< in pixels
    int height = 0;                 ///< in pixels
    int dpi = usualResolution;      ///< dots per inch that texts, lines and points are sized for
    double scale = 1.0;             ///< on top of that
    int smoothing = usualSmoothing; ///< so many times as fine it is drawn along each side, and averaged
    bool isTransparent = false;     ///< the background is left out

    /// The pixels for one at the usual resolution, of texts, lines, ticks and points alike.
    double PixelScale() const { return scale * dpi / usualResolution; }
};

/// Has the driver and the fonts loaded by another thread, which takes as long as reading a large file, so
/// that the next plotter is made at once. Where nothing can be drawn, that one says so.
/// @return at its end it waits for the thread
std::future<void> LoadDriver();

/// Draws what a scene is made to show. Throws a Failure.
/// @param show  fills the scene, whose plotter has been created at the picture's size
/// @return red, green, blue, alpha bytes, top row first
std::vector<unsigned char> DrawPicture(const PictureFormat& format,
                                       const std::function<void(PlotScene&)>& show);

/// Draws what a scene shows in its own window, whose texts are of the size that they have at the usual
/// resolution, times the plotter's style. Throws a Failure.
/// @return as above
std::vector<unsigned char> CaptureScene(PlotScene& scene, const PictureFormat& format);

} // namespace KivoViewer
