// A plot without any window system: an off-screen window, one frame, a PNG file.
// `offscreen_picture FILE.png [WIDTH HEIGHT]` needs no display.
#include "Hill.h"
#include "PngFile.h"

#include <KivoFunctionPlotter.h>
#include <KivoPicture.h>
#include <KivoWindow.h>

#include <cstdio>
#include <cstdlib>
#include <vector>

using namespace KivoDrawingTools;

int main(int argc, char** argv) {
    if (argc != 2 && argc != 4) {
        std::fprintf(stderr, "usage: offscreen_picture FILE.png [WIDTH HEIGHT]\n");
        return 2;
    }
    const int width = argc == 4 ? std::atoi(argv[2]) : 900;
    const int height = argc == 4 ? std::atoi(argv[3]) : 600;

    // [docs: attach]
    std::vector<float> points = HillPoints();
    CKivoFunctionPlotter plotter;
    const HWND window = CreateOffscreenWindow(width, height);
    if (plotter.OnCreate(window, width, height, false) != 0) {
        std::fprintf(stderr, "offscreen_picture: %s\n", LastWindowError());
        return 1;
    }
    plotter.SetDataReference(points.data(), hillColumns, hillRows, 1, hillColumns, 3);

    std::vector<unsigned char> rgba;
    int drawnWidth = 0;
    int drawnHeight = 0;
    const bool isDrawn = CapturePicture(plotter, rgba, drawnWidth, drawnHeight) == 0;
    plotter.OnDestroy();
    ReleaseWindow(window);
    // [docs: end]
    if (!isDrawn || !WritePng(argv[1], rgba, drawnWidth, drawnHeight)) {
        std::fprintf(stderr, "offscreen_picture: %s was not written\n", argv[1]);
        return 1;
    }
    return 0;
}
