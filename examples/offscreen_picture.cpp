// A plot without any window system: an off-screen window, one frame, a PNG file.
// `offscreen_picture FILE.png [WIDTH HEIGHT]` needs no display.
#include "Hill.h"

#include <KivoFunctionPlotter.h>
#include <KivoPicture.h>
#include <KivoWindow.h>

#include <png.h>

#include <cstdio>
#include <cstdlib>
#include <vector>

using namespace KivoDrawingTools;

namespace {

bool WritePng(const char* path, const std::vector<unsigned char>& rgba, int width, int height) {
    png_image image = {};
    image.version = PNG_IMAGE_VERSION;
    image.width = static_cast<png_uint_32>(width);
    image.height = static_cast<png_uint_32>(height);
    image.format = PNG_FORMAT_RGBA;
    return png_image_write_to_file(&image, path, 0, rgba.data(), 0, nullptr) != 0;
}

} // namespace

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
