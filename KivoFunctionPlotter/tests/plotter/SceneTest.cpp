// One fixed scene, kept as files where the environment asks for it, so that platforms can be compared.
#include "parts/KivoGradientColorRuler.h"
#include "parts/KivoGridBox.h"
#include "support/Image.h"
#include "support/TestSurfaces.h"
#include "support/TestWindow.h"

#include <cstdlib>
#include <string>

using namespace KivoDrawingTools;

namespace {

class SceneTest : public WindowTest {};

// Fonts are the platform's own, so that text is no part of what can be compared.
void RemoveText(PlotterProbe& plotter) {
    const CurrentContext context(plotter);
    for (int axis = 0; axis < 3; ++axis)
        plotter.m_gridBox->ReleaseTickLabels(axis);
    plotter.m_zColorRuler->ReleaseLabels();
}

} // namespace

TEST_P(SceneTest, TerrainIsDrawnInItsColours) {
    const TestSurface terrain = TerrainSurface(80, 60);
    TestPlot plot(GetParam(), 640, 480);
    plot.plotter.SetData(terrain.NewArray(), 80, 60, 1, 80, 3);
    plot.plotter.SetFrameLineStep(4, 4);
    RemoveText(plot.plotter);
    const Image image = CaptureImage(plot.plotter);
    ASSERT_EQ(image.width, 640);
    ASSERT_EQ(image.height, 480);

    // Every part of the gradient takes its share of the picture, right of the legend.
    int red = 0, green = 0, blue = 0;
    for (int y = 0; y < 480; ++y)
        for (int x = 110; x < 640; ++x) {
            const unsigned char* p = image.Pixel(x, y);
            red += p[0] > p[1] + 80 && p[0] > p[2] + 80 ? 1 : 0;
            green += p[1] > p[0] + 80 && p[1] > p[2] + 80 ? 1 : 0;
            blue += p[2] > p[0] + 80 && p[2] > p[1] + 80 ? 1 : 0;
        }
    EXPECT_GT(red, 300);
    EXPECT_GT(green, 3000);
    EXPECT_GT(blue, 300);

    const char* output = std::getenv("KIVO_SCENE_OUTPUT");
    if (output && *output) {
        const char* kind = GetParam() == WindowKind::offscreen ? "-offscreen.pam" : "-onscreen.pam";
        EXPECT_TRUE(WritePam(image, std::string(output) + kind)) << output;
    }
}

KIVO_IN_EVERY_WINDOW(SceneTest);
