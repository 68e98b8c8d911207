// Feature pictures of the surface: colours, frame lines, contours, holes.
#include "FeaturePicture.h"
#include "SampleGrids.h"

#include <KivoColorMap.h>

#include <limits>

using namespace KivoDrawingTools;
using namespace KivoSamples;

namespace {

void Surface(CKivoFunctionPlotter&) {}

void Gradient(CKivoFunctionPlotter& plotter) {
    // [docs: gradient]
    plotter.SetZGradientColor(0x00802000, 0x0000D0FF); // 0x00BBGGRR: from dark blue to amber
    // [docs: end]
}

void OneHue(CKivoFunctionPlotter& plotter) {
    // [docs: one-hue]
    const float pale[] = {1.0f, 0.9f, 0.8f, 1.0f};
    const float dark[] = {0.7f, 0.1f, 0.0f, 1.0f};
    plotter.SetZGradientColor(pale, dark);
    // [docs: end]
}

void NamedTable(CKivoFunctionPlotter& plotter) {
    // [docs: color-map]
    SetColorMap(plotter, 2, "viridis"); // of z: 0 and 1 are x and y
    // [docs: end]
}

void OwnTable(CKivoFunctionPlotter& plotter) {
    // [docs: own-colors]
    const float bands[] = {
        0.1f, 0.4f, 0.7f, 1, 0.1f, 0.4f, 0.7f, 1, // cold: a colour that stands twice is a band
        0.9f, 0.9f, 0.8f, 1, 0.9f, 0.9f, 0.8f, 1, // as it should be
        0.8f, 0.2f, 0.1f, 1, 0.8f, 0.2f, 0.1f, 1, // too hot
    };
    SetColorMap(plotter, 2, bands, 6); // four floats a colour, six colours
    // [docs: end]
}

void ColorRange(CKivoFunctionPlotter& plotter) {
    // [docs: color-range]
    SetColorMap(plotter, 2, "coolwarm");
    SetColorRange(plotter, 2, 40.0f, 60.0f); // white at 50, whatever comes
    // [docs: end]
}

void FrameLines(CKivoFunctionPlotter& plotter) {
    // [docs: frame-lines]
    plotter.SetFrameLineStep(10, 5); // every tenth column, every fifth row
    plotter.SetFrameLineColor(0x00FFFFFF);
    // [docs: end]
}

void NoFrameLines(CKivoFunctionPlotter& plotter) {
    // [docs: no-frame-lines]
    plotter.ShowFrameLines(false);
    // [docs: end]
}

void Holes(CKivoFunctionPlotter& plotter) {
    // [docs: holes]
    static std::vector<float> drilled = PlatePoints();
    for (std::size_t i = 0; i < drilled.size(); i += 3)
        if (std::hypot(drilled[i] - 100.0f, drilled[i + 1] - 40.0f) < 11.0f)
            drilled[i + 2] = std::numeric_limits<float>::quiet_NaN();
    plotter.SetDataReference(drilled.data(), plateColumns, plateRows, 1, plateColumns, 3);
    plotter.SetFrameLineStep(4, 4); // new data go back to a step of 1
    // [docs: end]
}

void ZContours(CKivoFunctionPlotter& plotter) {
    // [docs: z-contours]
    plotter.ShowZIsoContours(true); // 20 levels, on the floor of the box
    plotter.SetZAxisMin(0.0f);      // which this takes away from the surface
    plotter.SetZAxisMax(80.0f);
    plotter.SetZAxisTickMarkNumber(5);
    plotter.AutoAdjustAxisLengthRatio();
    // [docs: end]
}

void AllContours(CKivoFunctionPlotter& plotter) {
    // [docs: all-contours]
    plotter.ShowXIsoContours(true);
    plotter.ShowYIsoContours(true);
    plotter.ShowZIsoContours(true);
    plotter.SetIsoContourCount(8);
    // [docs: end]
}

} // namespace

const std::vector<FeaturePicture> surfacePictures = {
    {"surface", Surface},        {"gradient", Gradient},           {"one-hue", OneHue},
    {"color-map", NamedTable},   {"own-colors", OwnTable},         {"color-range", ColorRange},
    {"frame-lines", FrameLines}, {"no-frame-lines", NoFrameLines}, {"holes", Holes},
    {"z-contours", ZContours},   {"all-contours", AllContours},
};
