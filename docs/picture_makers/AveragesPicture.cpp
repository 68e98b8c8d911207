// Draws docs/pictures/averages.png, two ways to average the pixels of a smooth picture: `averages_picture
// FILE.png`. On the left the bytes are averaged, as the library does, on the right the light that they stand
// for.
#include "PictureFile.h"
#include "SampleGrids.h"

#include <KivoFunctionPlotter.h>
#include <KivoPicture.h>
#include <KivoWindow.h>

#include <cmath>
#include <cstddef>
#include <cstdio>
#include <exception>
#include <stdexcept>
#include <string>
#include <vector>

using namespace KivoDrawingTools;

namespace {

constexpr int width = 640, height = 480; // of the plot
constexpr int factor = 2;
constexpr int partLeft = 170, partTop = 240, partWidth = 200, partHeight = 200;
constexpr int enlargement = 2;

using Bytes = std::vector<unsigned char>;

// The plot so many times as large, as it is before averaging.
Bytes LargePlot() {
    const HWND window = CreateOffscreenWindow(width, height);
    CKivoFunctionPlotter plotter;
    if (plotter.OnCreate(window, width, height, false) != 0) throw std::runtime_error(LastWindowError());
    std::vector<float> hill = KivoSamples::HillPoints();
    plotter.SetDataReference(hill.data(), KivoSamples::hillColumns, KivoSamples::hillRows, 1,
                             KivoSamples::hillColumns, 3);
    plotter.SetXAxisTitle("Length (m)");
    plotter.SetYAxisTitle("Width (m)");
    plotter.SetZAxisTitle("Height (m)");
    SKivoPictureOptions options;
    options.scale = factor;
    Bytes rgba;
    int largeWidth = 0, largeHeight = 0;
    CapturePicture(plotter, options, rgba, largeWidth, largeHeight);
    plotter.OnDestroy();
    ReleaseWindow(window);
    return rgba;
}

// From a byte of sRGB to light, and back.
double Light(double byte) {
    const double share = byte / 255.0;
    return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
}
double ByteOf(double light) {
    return 255.0 * (light <= 0.0031308 ? 12.92 * light : 1.055 * std::pow(light, 1.0 / 2.4) - 0.055);
}

unsigned char Average(const Bytes& large, int x, int y, int channel, bool isOfLight) {
    double sum = 0.0;
    for (int row = 0; row < factor; ++row)
        for (int column = 0; column < factor; ++column) {
            const std::size_t place =
                static_cast<std::size_t>(y * factor + row) * width * factor + x * factor + column;
            const unsigned char byte = large[place * 4 + channel];
            sum += isOfLight ? Light(byte) : byte;
        }
    const double average = sum / (factor * factor);
    return static_cast<unsigned char>(std::lround(isOfLight ? ByteOf(average) : average));
}

// The same part of both, side by side.
Bytes SideBySide(const Bytes& large) {
    constexpr int sideWidth = partWidth * enlargement;
    Bytes picture;
    for (int y = 0; y < partHeight * enlargement; ++y)
        for (int x = 0; x < 2 * sideWidth; ++x) {
            const bool isRight = x >= sideWidth;
            const int column = partLeft + (isRight ? x - sideWidth : x) / enlargement;
            for (int channel = 0; channel < 4; ++channel)
                picture.push_back(Average(large, column, partTop + y / enlargement, channel, isRight));
        }
    return picture;
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: averages_picture FILE.png\n");
        return 2;
    }
    try {
        KivoViewer::WritePictureFile(argv[1], SideBySide(LargePlot()),
                                     {2 * partWidth * enlargement, partHeight * enlargement});
    } catch (const std::exception& error) {
        std::fprintf(stderr, "averages_picture: %s\n", error.what());
        return 1;
    }
    return 0;
}
