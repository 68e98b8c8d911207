// Draws the pictures of docs/features.md: `feature_pictures FOLDER`. It needs no display.
#include "../PngFile.h"
#include "FeaturePicture.h"
#include "SampleGrids.h"

#include <KivoPicture.h>
#include <KivoWindow.h>

#include <cstdio>
#include <exception>
#include <string>

using namespace KivoDrawingTools;
using namespace KivoSamples;

void LoadPlate(CKivoFunctionPlotter& plotter) {
    // [docs: surface]
    static std::vector<float> plate = PlatePoints(); // x, y, z of 101 x 41 points
    plotter.SetDataReference(plate.data(), plateColumns, plateRows, 1, plateColumns, 3);
    plotter.SetFrameLineStep(4, 4);
    plotter.SetPlotTitle("Cooling plate");
    plotter.SetXAxisTitle("x (mm)");
    plotter.SetYAxisTitle("y (mm)");
    plotter.SetZAxisTitle("Temperature (°C)");
    // [docs: end]
}

namespace {

constexpr int width = 640;
constexpr int height = 480;

Pixels Capture(CKivoFunctionPlotter& plotter) {
    SKivoPictureOptions options;
    options.smoothing = 2;
    Pixels picture;
    CapturePicture(plotter, options, picture.rgba, picture.width, picture.height);
    return picture;
}

int Draw(const FeaturePicture& picture, const std::string& folder) {
    const HWND window = CreateOffscreenWindow(width, height);
    const auto plotter = picture.make ? picture.make() : std::make_unique<CKivoFunctionPlotter>();
    if (plotter->OnCreate(window, width, height, false) != 0) {
        std::fprintf(stderr, "feature_pictures: %s\n", LastWindowError());
        return 1;
    }
    LoadPlate(*plotter);
    picture.prepare(*plotter);
    const Pixels pixels = (picture.capture ? picture.capture : Capture)(*plotter);
    plotter->OnDestroy();
    ReleaseWindow(window);
    const std::string path = folder + "/" + picture.name + ".png";
    if (WritePng(path, pixels.rgba, pixels.width, pixels.height)) return 0;
    std::fprintf(stderr, "feature_pictures: %s was not written\n", path.c_str());
    return 1;
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: feature_pictures FOLDER\n");
        return 2;
    }
    try {
        for (const auto* pictures : {&surfacePictures, &axisPictures, &overlayPictures, &viewPictures,
                                     &motionPictures, &layerPictures, &derivedPictures})
            for (const FeaturePicture& picture : *pictures)
                if (Draw(picture, argv[1]) != 0) return 1;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "feature_pictures: %s\n", error.what());
        return 1;
    }
    return 0;
}
