// A host that shows a grid of 50 x 40 points off-screen and writes a byte to standard output as soon as the
// picture is presented.
#include "SampleGrids.h"
#include "support/OffscreenContext.h"

#include <KivoFunctionPlotter.h>
#include <KivoWindow.h>

#include <cstdio>
#include <vector>

using namespace KivoBenchmark;
using namespace KivoDrawingTools;

int main() {
    constexpr unsigned int columns = 50, rows = 40;
    std::vector<float> points = KivoSamples::RipplePoints(columns, rows);
    CKivoFunctionPlotter plotter;
    const HWND window = CreateOffscreenWindow(windowWidth, windowHeight);
    if (plotter.OnCreate(window, windowWidth, windowHeight, true) != 0) {
        std::fprintf(stderr, "%s\n", LastWindowError());
        return 1;
    }
    plotter.SetDataReference(points.data(), columns, rows, 1, columns, 3);
    if (plotter.Renderscene() != 0) return 1;
    std::putchar('.');
    std::fflush(stdout);
    plotter.OnDestroy();
    ReleaseWindow(window);
    return 0;
}
