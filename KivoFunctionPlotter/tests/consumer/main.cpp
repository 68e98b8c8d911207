// Draws a frame through the library, from a derived class that replaces the lighting, and prints the
// library's version.
#include <KivoFunctionPlotter.h>
#include <KivoPicture.h>
#include <KivoVersion.h>
#include <KivoWindow.h>

#include <cstdio>
#include <string>
#include <vector>

using namespace KivoDrawingTools;

namespace {

class Plot : public CKivoFunctionPlotter {
public:
    bool m_lit = false;

protected:
    int InitLighting() override {
        m_lit = true;
        return CKivoFunctionPlotter::InitLighting();
    }
};

int Fail(const char* words) {
    std::fprintf(stderr, "%s: %s\n", words, LastWindowError());
    return 1;
}

std::string VersionFromNumbers() {
    return std::to_string(KIVO_VERSION_MAJOR) + '.' + std::to_string(KIVO_VERSION_MINOR) + '.' +
           std::to_string(KIVO_VERSION_PATCH);
}

} // namespace

int main() {
    if (VersionFromNumbers() != KIVO_VERSION) return Fail("the version is not the one of its numbers");
    std::printf("%s\n", KIVO_VERSION);
    const HWND window = CreateOffscreenWindow(320, 240);
    if (!window) return Fail("no window");
    {
        Plot plot;
        if (plot.OnCreate(window, 320, 240, false) != 0 || !plot.m_lit) return Fail("not created");
        float points[] = {0, 0, 0, 1, 0, 1, 0, 1, 1, 1, 1, 0};
        plot.SetDataReference(points, 2, 2, 1, 2, 3);
        std::vector<unsigned char> rgba;
        int width = 0, height = 0;
        if (CapturePicture(plot, rgba, width, height) != 0 || width != 320 || height != 240)
            return Fail("no picture");
        bool drawn = false;
        for (std::size_t i = 4; i < rgba.size(); i += 4)
            drawn = drawn || rgba[i] != rgba[0];
        if (!drawn) return Fail("the picture is empty");
        if (plot.OnDestroy() != 0) return Fail("not released");
    }
    return ReleaseWindow(window) == 0 ? 0 : Fail("the window was not released");
}
