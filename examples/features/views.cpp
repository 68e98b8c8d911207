// Feature pictures of views, plot modes, background, and pictures of other sizes.
#include "FeaturePicture.h"
#include "SampleGrids.h"

#include <KivoContours.h>
#include <KivoPicture.h>
#include <KivoStyle.h>
#include <KivoView.h>
#include <KivoWindow.h>

#include <stdexcept>

using namespace KivoDrawingTools;
using namespace KivoSamples;

namespace {

void XyPlot(CKivoFunctionPlotter& plotter) {
    // [docs: xy-plot]
    plotter.SwitchToXYProjectPlot();
    // [docs: end]
}

void LabeledContours(CKivoFunctionPlotter& plotter) {
    // [docs: labeled-contours]
    SetContourInterval(plotter, 2, 2.5);
    FillContours(plotter, true);
    LabelContours(plotter, true);
    plotter.SwitchToXYProjectPlot();
    // [docs: end]
}

void YzPlot(CKivoFunctionPlotter& plotter) {
    // [docs: yz-plot]
    plotter.SetXGradientColor(0x00FF0000, 0x000000FF); // each contour has the colour of its x
    plotter.SwitchToYZProjectPlot();
    // [docs: end]
}

void XzPlot(CKivoFunctionPlotter& plotter) {
    // [docs: xz-plot]
    plotter.SetYGradientColor(0x00FF0000, 0x000000FF); // each contour has the colour of its y
    plotter.SwitchToZXProjectPlot();
    // [docs: end]
}

void Turned(CKivoFunctionPlotter& plotter) {
    // [docs: turned]
    plotter.Rotate({0, 0}, {60, 25}); // as a drag with the right button
    plotter.Translate({0, 0}, {-30, 10});
    plotter.Zoom(0.9f); // below 1 it enlarges
    // [docs: end]
}

void Angles(CKivoFunctionPlotter& plotter) {
    // [docs: angles]
    SetViewAngles(plotter, -60.0, 35.0); // seen from between the large end of X and the small end of Y
    // [docs: end]
}

// A plot in a window of its own.
class PlotInWindow {
public:
    PlotInWindow(int width, int height) : m_window(CreateOffscreenWindow(width, height)) {
        if (plotter.OnCreate(m_window, width, height, true) != 0) throw std::runtime_error(LastWindowError());
    }
    ~PlotInWindow() {
        plotter.OnDestroy();
        ReleaseWindow(m_window);
    }
    PlotInWindow(const PlotInWindow&) = delete;
    PlotInWindow& operator=(const PlotInWindow&) = delete;

    Pixels Picture() {
        SKivoPictureOptions options;
        options.smoothing = 2;
        Pixels picture;
        CapturePicture(plotter, options, picture.rgba, picture.width, picture.height);
        return picture;
    }

    CKivoFunctionPlotter plotter;

private:
    HWND m_window;
};

// Pictures of the same height, side by side.
Pixels Joined(const Pixels& left, const Pixels& right) {
    Pixels joined = {left.width + right.width, left.height, {}};
    for (int row = 0; row < left.height; ++row)
        for (const Pixels* part : {&left, &right}) {
            const auto begin = part->rgba.begin() + 4 * row * part->width;
            joined.rgba.insert(joined.rgba.end(), begin, begin + 4 * part->width);
        }
    return joined;
}

Pixels LinkedViews(CKivoFunctionPlotter&) {
    PlotInWindow left(360, 320), right(280, 320);
    CKivoFunctionPlotter& plotter = left.plotter;
    CKivoFunctionPlotter& other = right.plotter;
    LoadPlate(plotter);
    static std::vector<float> hill = HillPoints();
    other.SetDataReference(hill.data(), hillColumns, hillRows, 1, hillColumns, 3);
    other.SetFrameLineStep(5, 5);
    const unsigned int flags = MK_RBUTTON;
    const POINT position = {225, 112};
    plotter.OnRButtonDown(flags, {200, 100});
    // [docs: linked-views]
    plotter.OnMouseMove(flags, position); // draws
    SetView(other, GetView(plotter));
    other.OnDraw();
    // [docs: end]
    return Joined(left.Picture(), right.Picture());
}

void Background(CKivoFunctionPlotter& plotter) {
    // [docs: background]
    plotter.SetBackgroundColor(1.0f, 1.0f, 1.0f, 1.0f);
    // [docs: end]
}

void PixelScale(CKivoFunctionPlotter& plotter) {
    // [docs: pixel-scale]
    SKivoStyle style = GetStyle(plotter);
    style.pixelScale = 1.5f; // as on a screen of 144 dots per inch
    SetStyle(plotter, style);
    // [docs: end]
}

void DarkGround(CKivoFunctionPlotter& plotter) {
    // [docs: dark-ground]
    SKivoStyle style = GetStyle(plotter);
    style.inkColor = 0x00F0F0F0;
    SetStyle(plotter, style);
    plotter.SetBackgroundColor(0x00382C28ul);
    // [docs: end]
}

void TextFace(CKivoFunctionPlotter& plotter) {
    // [docs: text-face]
    SKivoStyle style = GetStyle(plotter);
    style.textFace = "DejaVu Serif";
    style.boldText = false;
    SetStyle(plotter, style);
    // [docs: end]
}

Pixels AsShown(CKivoFunctionPlotter& plotter) {
    // [docs: as-shown]
    std::vector<unsigned char> rgba; // red, green, blue, alpha, top row first
    int width = 0, height = 0;
    CapturePicture(plotter, rgba, width, height);
    // [docs: end]
    return {width, height, rgba};
}

Pixels Smooth(CKivoFunctionPlotter& plotter) {
    std::vector<unsigned char> rgba;
    int width = 0, height = 0;
    // [docs: smooth]
    SKivoPictureOptions options;
    options.smoothing = 3;
    CapturePicture(plotter, options, rgba, width, height);
    // [docs: end]
    return {width, height, rgba};
}

Pixels Print(CKivoFunctionPlotter& plotter) {
    std::vector<unsigned char> rgba;
    int width = 0, height = 0;
    // [docs: print]
    SKivoPictureOptions options;
    options.scale = 300.0f / 96.0f; // the window's inches at 300 dots each
    options.smoothing = 2;
    CapturePicture(plotter, options, rgba, width, height);
    // [docs: end]
    return {width, height, rgba};
}

Pixels Transparent(CKivoFunctionPlotter& plotter) {
    // [docs: transparent]
    SKivoPictureOptions options;
    options.smoothing = 2;
    options.transparent = true;
    int width = 0, height = 0;
    MeasurePicture(plotter, options, width, height);
    std::vector<unsigned char> buffer(4 * width * height); // such as that of a toolkit's image
    DrawPicture(plotter, options, buffer.data(), 4 * width, KivoPixelOrder::rgba);
    // [docs: end]
    return {width, height, buffer};
}

Pixels SmoothWindow(CKivoFunctionPlotter&) {
    const HWND window = CreateOffscreenWindow(640, 480);
    CKivoFunctionPlotter plotter;
    if (plotter.OnCreate(window, 640, 480, true) != 0) throw std::runtime_error(LastWindowError());
    LoadPlate(plotter);
    // [docs: smooth-window]
    SetWindowSmoothing(window, 2); // every frame from the next one on
    plotter.Renderscene();
    // [docs: end]
    Pixels pixels = AsShown(plotter);
    plotter.OnDestroy();
    ReleaseWindow(window);
    return pixels;
}

Pixels Small(CKivoFunctionPlotter& plotter) {
    // [docs: small]
    std::vector<unsigned char> rgba; // red, green, blue, alpha, top row first
    CapturePicture(plotter, 480, 360, rgba);
    // [docs: end]
    return {480, 360, rgba};
}

Pixels Offscreen(CKivoFunctionPlotter&) {
    // [docs: off-screen]
    const HWND window = CreateOffscreenWindow(640, 480, 144); // text for 144 dots per inch
    CKivoFunctionPlotter plotter;
    if (plotter.OnCreate(window, 640, 480, true) != 0) throw std::runtime_error(LastWindowError());
    LoadPlate(plotter);
    std::vector<unsigned char> rgba;
    int width = 0, height = 0;
    CapturePicture(plotter, rgba, width, height);
    plotter.OnDestroy();
    ReleaseWindow(window);
    // [docs: end]
    return {width, height, rgba};
}

void Unchanged(CKivoFunctionPlotter&) {}

} // namespace

const std::vector<FeaturePicture> viewPictures = {
    {"xy-plot", XyPlot},
    {"labeled-contours", LabeledContours},
    {"yz-plot", YzPlot},
    {"xz-plot", XzPlot},
    {"turned", Turned},
    {"angles", Angles},
    {"linked-views", Unchanged, nullptr, LinkedViews},
    {"background", Background},
    {"pixel-scale", PixelScale},
    {"dark-ground", DarkGround},
    {"text-face", TextFace},
    {"as-shown", Unchanged, nullptr, AsShown},
    {"smooth", Unchanged, nullptr, Smooth},
    {"print", Unchanged, nullptr, Print},
    {"transparent", Unchanged, nullptr, Transparent},
    {"smooth-window", Unchanged, nullptr, SmoothWindow},
    {"small", Unchanged, nullptr, Small},
    {"off-screen", Unchanged, nullptr, Offscreen},
};
