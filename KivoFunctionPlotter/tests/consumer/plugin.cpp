// A plugin that draws a picture through the library.
#include <KivoFunctionPlotter.h>
#include <KivoPicture.h>
#include <KivoWindow.h>

#include <vector>

using namespace KivoDrawingTools;

namespace {

bool Draw(CKivoFunctionPlotter& plotter, HWND window) {
    if (plotter.OnCreate(window, 160, 120, true) != 0) return false;
    float points[] = {0, 0, 0, 1, 0, 1, 0, 1, 1, 1, 1, 0};
    plotter.SetDataReference(points, 2, 2, 1, 2, 3);
    plotter.SetPlotTitle("Text");
    std::vector<unsigned char> rgba;
    int width = 0, height = 0;
    if (CapturePicture(plotter, rgba, width, height) != 0) return false;
    bool isDrawn = false;
    for (std::size_t i = 4; i < rgba.size(); i += 4)
        isDrawn = isDrawn || rgba[i] != rgba[0];
    return plotter.OnDestroy() == 0 && isDrawn;
}

} // namespace

/// @return whether the picture shows something
extern "C" __attribute__((visibility("default"))) bool DrawPicture() {
    const HWND window = CreateOffscreenWindow(160, 120);
    bool isDrawn = false;
    {
        CKivoFunctionPlotter plotter;
        isDrawn = Draw(plotter, window);
    }
    return ReleaseWindow(window) == 0 && isDrawn;
}
