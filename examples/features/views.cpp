// Feature pictures of views, plot modes, background, and pictures of other sizes.
#include "FeaturePicture.h"

#include <KivoPicture.h>

using namespace KivoDrawingTools;

namespace {

void XyPlot(CKivoFunctionPlotter& plotter) {
    // [docs: xy-plot]
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
    plotter.Rotate({0, 0}, {100, 60}); // as a drag with the right button
    plotter.Translate({0, 0}, {-40, -20});
    plotter.Zoom(0.8f); // below 1 it enlarges
    // [docs: end]
}

void Background(CKivoFunctionPlotter& plotter) {
    // [docs: background]
    plotter.SetBackgroundColor(1.0f, 1.0f, 1.0f, 1.0f);
    // [docs: end]
}

Pixels Wide(CKivoFunctionPlotter& plotter) {
    // [docs: wide]
    std::vector<unsigned char> rgba; // red, green, blue, alpha, top row first
    CapturePicture(plotter, 960, 360, rgba);
    // [docs: end]
    return {960, 360, rgba};
}

void Unchanged(CKivoFunctionPlotter&) {}

} // namespace

const std::vector<FeaturePicture> viewPictures = {
    {"xy-plot", XyPlot},
    {"yz-plot", YzPlot},
    {"xz-plot", XzPlot},
    {"turned", Turned},
    {"background", Background},
    {"wide", Unchanged, nullptr, Wide},
    {"dense", Unchanged, nullptr, nullptr, 144},
};
