#include "Picture.h"

#include "Failure.h"
#include "Language.h"
#include "PlotScene.h"

#include <KivoPicture.h>
#include <KivoStyle.h>
#include <KivoWindow.h>

#include <string>

namespace KivoViewer {

namespace {

constexpr int hiddenSide = 16; // of a window in which nothing is drawn

// A window without a screen.
class HiddenWindow {
public:
    HiddenWindow()
        : m_window(KivoDrawingTools::CreateOffscreenWindow(hiddenSide, hiddenSide, usualResolution)) {}
    ~HiddenWindow() { KivoDrawingTools::ReleaseWindow(m_window); }
    HiddenWindow(const HiddenWindow&) = delete;
    HiddenWindow& operator=(const HiddenWindow&) = delete;

    KivoDrawingTools::HWND Handle() const { return m_window; } ///< null where there is none

private:
    KivoDrawingTools::HWND m_window;
};

[[noreturn]] void FailToDraw() {
    throw Failure(Filled(Translate("Plot", "cannot draw: %1"), KivoDrawingTools::LastWindowError()));
}

// The library multiplies sizes by the style's scale and by the picture's, no more than 8 times each: where
// the two scales are further apart, the style has the largest one meanwhile.
class StyleScope {
public:
    StyleScope(PlotScene& scene, double wantedScale) : m_scene(scene), m_style(GetStyle(scene.Plotter())) {
        m_pictureScale = wantedScale / static_cast<double>(m_style.pixelScale);
        if (m_pictureScale <= maxScale) return;
        KivoDrawingTools::SKivoStyle style = m_style;
        style.pixelScale = static_cast<float>(maxScale);
        if (SetStyle(scene.Plotter(), style) != 0) FailToDraw();
        m_isOther = true;
        m_pictureScale = wantedScale / maxScale;
    }
    ~StyleScope() {
        if (m_isOther) SetStyle(m_scene.Plotter(), m_style);
    }
    StyleScope(const StyleScope&) = delete;
    StyleScope& operator=(const StyleScope&) = delete;

    double PictureScale() const { return m_pictureScale; }

private:
    PlotScene& m_scene;
    KivoDrawingTools::SKivoStyle m_style;
    double m_pictureScale = 1.0;
    bool m_isOther = false;
};

} // namespace

std::future<void> LoadDriver() {
    return std::async(std::launch::async | std::launch::deferred, [] {
        const HiddenWindow window;
        ViewerPlotter plotter;
        if (window.Handle()) plotter.OnCreate(window.Handle(), hiddenSide, hiddenSide, true);
    });
}

std::vector<unsigned char> DrawPicture(const PictureFormat& format,
                                       const std::function<void(PlotScene&)>& show) {
    const HiddenWindow window;
    if (!window.Handle()) FailToDraw();
    ViewerPlotter plotter; // gone before its window
    if (plotter.OnCreate(window.Handle(), format.width, format.height, true) != 0) FailToDraw();
    PlotScene scene(plotter);
    show(scene);
    return CaptureScene(scene, format);
}

std::vector<unsigned char> CaptureScene(PlotScene& scene, const PictureFormat& format) {
    const StyleScope style(scene, format.PixelScale());
    KivoDrawingTools::SKivoPictureOptions options;
    options.width = format.width;
    options.height = format.height;
    options.scale = static_cast<float>(style.PictureScale());
    options.smoothing = format.smoothing;
    options.transparent = format.isTransparent;
    std::vector<unsigned char> rgba;
    int width = 0;
    int height = 0;
    if (CapturePicture(scene.Plotter(), options, rgba, width, height) != 0) FailToDraw();
    return rgba;
}

} // namespace KivoViewer
