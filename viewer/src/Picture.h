// Pictures of a plot, drawn without a screen.
#pragma once

#include <functional>
#include <vector>

namespace KivoViewer {

class PlotScene;

constexpr int maxPictureSize = 16384; ///< in pixels, of each side
constexpr int maxResolution = 1200;   ///< in dots per inch
constexpr int usualResolution = 96;   ///< in dots per inch

/// How large a picture is.
struct PictureFormat {
    int width = 0;             ///< in pixels
    int height = 0;            ///< in pixels
    int dpi = usualResolution; ///< dots per inch that texts are sized for
};

/// Draws what a scene is made to show. Throws a Failure.
/// @param show  fills the scene, whose plotter has been created at the picture's size
/// @return red, green, blue, alpha bytes, top row first
std::vector<unsigned char> DrawPicture(const PictureFormat& format,
                                       const std::function<void(PlotScene&)>& show);

/// Draws what a scene shows in its own window, at another size. Throws a Failure.
/// @return as above
std::vector<unsigned char> CaptureScene(PlotScene& scene, int width, int height);

} // namespace KivoViewer
