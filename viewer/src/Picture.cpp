#include "Picture.h"

#include "Failure.h"
#include "PlotScene.h"

#include <KivoPicture.h>
#include <KivoWindow.h>

#include <algorithm>
#include <memory>
#include <string>
#include <type_traits>

namespace KivoViewer {

namespace {

// Larger pictures are drawn in tiles: not every OpenGL has windows of any size.
constexpr int maxWindowSize = 4096;

// A window of the picture's proportions.
KivoDrawingTools::HWND CreateWindowFor(const PictureFormat& format) {
    const int longer = std::max(format.width, format.height);
    const auto fitted = [&](int length) {
        return longer <= maxWindowSize ? length
                                       : std::max(1, static_cast<int>(1.0 * length * maxWindowSize / longer));
    };
    return KivoDrawingTools::CreateOffscreenWindow(fitted(format.width), fitted(format.height), format.dpi);
}

[[noreturn]] void FailToDraw() {
    throw Failure(std::string("cannot draw: ") + KivoDrawingTools::LastWindowError());
}

} // namespace

std::vector<unsigned char> DrawPicture(const PictureFormat& format,
                                       const std::function<void(PlotScene&)>& show) {
    using KivoDrawingTools::HWND;
    const auto release = [](HWND window) { KivoDrawingTools::ReleaseWindow(window); };
    const std::unique_ptr<std::remove_pointer_t<HWND>, decltype(release)> window(CreateWindowFor(format),
                                                                                 release);
    if (!window) FailToDraw();
    PlotScene scene; // gone before its window
    if (scene.Plotter().OnCreate(window.get(), format.width, format.height, true) != 0) FailToDraw();
    show(scene);
    return CaptureScene(scene, format.width, format.height);
}

std::vector<unsigned char> CaptureScene(PlotScene& scene, int width, int height) {
    std::vector<unsigned char> rgba;
    if (CapturePicture(scene.Plotter(), width, height, rgba) != 0) FailToDraw();
    return rgba;
}

} // namespace KivoViewer
