#include "PictureMode.h"

#include "Failure.h"
#include "PlotScene.h"
#include "PngWriter.h"

#include <KivoPicture.h>
#include <KivoWindow.h>

#include <algorithm>
#include <memory>

namespace KivoViewer {

namespace {

// Larger pictures are drawn in tiles: not every OpenGL has windows of any size.
constexpr int maxWindowSize = 4096;

// A window of the picture's proportions.
KivoDrawingTools::HWND CreateWindowFor(const Options& options) {
    const int longer = std::max(options.width, options.height);
    const auto fitted = [&](int length) {
        return longer <= maxWindowSize ? length
                                       : std::max(1, static_cast<int>(1.0 * length * maxWindowSize / longer));
    };
    return KivoDrawingTools::CreateOffscreenWindow(fitted(options.width), fitted(options.height),
                                                   options.dpi);
}

[[noreturn]] void FailToDraw() {
    throw Failure(std::string("cannot draw: ") + KivoDrawingTools::LastWindowError());
}

} // namespace

void WritePicture(const Content& content, const Options& options) {
    using KivoDrawingTools::HWND;
    const auto release = [](HWND window) { KivoDrawingTools::ReleaseWindow(window); };
    const std::unique_ptr<std::remove_pointer_t<HWND>, decltype(release)> window(CreateWindowFor(options),
                                                                                 release);
    if (!window) FailToDraw();
    PlotScene scene; // gone before its window
    if (scene.Plotter().OnCreate(window.get(), options.width, options.height, true) != 0) FailToDraw();
    ShowContent(scene, content, options);
    if (options.traceAt) scene.TraceAt(options.traceAt->x, options.traceAt->y);
    std::vector<unsigned char> rgba;
    if (CapturePicture(scene.Plotter(), options.width, options.height, rgba) != 0) FailToDraw();
    WritePng(options.picture, rgba, options.width, options.height);
}

} // namespace KivoViewer
