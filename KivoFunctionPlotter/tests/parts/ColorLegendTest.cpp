// The colour legend: colours, labels, view volume, and where its bar stands in the picture.
#include "parts/KivoGradientColor.h"
#include "parts/KivoGradientColorRuler.h"
#include "parts/TextRenderer.h"
#include "support/Drawing.h"
#include "support/Image.h"
#include "support/TestSurfaces.h"
#include "support/TestWindow.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstring>
#include <vector>

using namespace KivoDrawingTools;

namespace {

class LegendProbe : public PlotterProbe {
public:
    using CKivoFunctionPlotter::m_legendViewport;
    using CKivoFunctionPlotter::m_legendViewVolume;
    using CKivoFunctionPlotter::m_textRenderer;
    using CKivoFunctionPlotter::UpdateLegendViewVolume;
};

class Legend : public WindowTest {
protected:
    static constexpr int width = 600;
    static constexpr int height = 300;
    TestWindow window{GetParam(), width, height};
    LegendProbe plotter;

    void SetUp() override {
        ASSERT_EQ(plotter.OnCreate(window.Handle(), width, height, true), 0);
        const float points[] = {-2, 10, -1, 4, 10, 1, -2, 30, 0, 4, 30, 0.5f};
        float* owned = new float[12];
        std::copy(points, points + 12, owned);
        plotter.SetData(owned, 2, 2, 1, 2, 3);
    }

    void ExpectLabels(const CKivoGradientColorRuler& ruler, float min, float step, unsigned int precision) {
        ASSERT_EQ(ruler.m_divisionCount, 10u);
        const CurrentContext context(plotter);
        for (int i = 0; i <= 10; ++i) {
            SKivoTexImage expected;
            CreateTextImage(plotter.m_textRenderer,
                            FormatNumber(min + static_cast<float>(i) * step, precision).c_str(), &expected);
            const SKivoTexImage& label = ruler.m_labels[i];
            ASSERT_EQ(label.width, expected.width) << i;
            EXPECT_EQ(std::memcmp(label.pixels, expected.pixels,
                                  static_cast<std::size_t>(label.width) * label.height * 4),
                      0)
                << i;
            PlotterProbe::ReleaseTex(&expected);
        }
    }
};

} // namespace

TEST_P(Legend, ShowsFiveColoursFromStartToEnd) {
    const float expected[5][3] = {{0, 0, 1}, {0, 1, 1}, {0, 1, 0}, {1, 1, 0}, {1, 0, 0}};
    for (int stop = 0; stop < 5; ++stop) {
        for (int i = 0; i < 3; ++i)
            EXPECT_NEAR(plotter.m_zColorRuler->m_colors[stop][i], expected[stop][i], 0.02f) << stop;
        EXPECT_EQ(plotter.m_zColorRuler->m_colors[stop][3], 1.0f);
    }
}

TEST_P(Legend, LabelsAreElevenValuesFromBottomToTop) {
    EXPECT_EQ(FormatNumber(-1.0f + 0.2f, 3), "-0.800");
    ExpectLabels(*plotter.m_zColorRuler, -1.0f, 0.2f, 3);
    ExpectLabels(*plotter.m_xColorRuler, -2.0f, 0.6f, 3);
    ExpectLabels(*plotter.m_yColorRuler, 10.0f, 2.0f, 3);
}

TEST_P(Legend, PrecisionIsThreeAtFirstAndHoldsForAllLegends) {
    LegendProbe fresh;
    EXPECT_EQ(fresh.GetGradientColorRuleFloatingPointPrecision(), 3u);
    EXPECT_EQ(plotter.SetGradientColorRuleFloatingPointPrecision(0), 0);
    EXPECT_EQ(plotter.GetGradientColorRuleFloatingPointPrecision(), 0u);
    EXPECT_EQ(wglGetCurrentContext(), nullptr);
    ExpectLabels(*plotter.m_zColorRuler, -1.0f, 0.2f, 0);
    ExpectLabels(*plotter.m_xColorRuler, -2.0f, 0.6f, 0);
    ExpectLabels(*plotter.m_yColorRuler, 10.0f, 2.0f, 0);
}

TEST_P(Legend, ThePrecisionIsThatOfTheFirstRulerThereIs) {
    CKivoGradientColorRuler** const rulers[] = {&plotter.m_zColorRuler, &plotter.m_xColorRuler,
                                                &plotter.m_yColorRuler};
    CKivoGradientColorRuler* const kept[] = {*rulers[0], *rulers[1], *rulers[2]};
    for (unsigned int i = 0; i < 3; ++i)
        kept[i]->m_precision = 4 + i;
    for (unsigned int i = 0; i < 3; ++i) {
        EXPECT_EQ(plotter.GetGradientColorRuleFloatingPointPrecision(), 4 + i);
        *rulers[i] = nullptr;
    }
    EXPECT_EQ(plotter.GetGradientColorRuleFloatingPointPrecision(), 0u);
    for (int i = 0; i < 3; ++i)
        *rulers[i] = kept[i];
}

TEST_P(Legend, LabelsStayWhereThereAreNoDivisions) {
    CKivoGradientColorRuler& ruler = *plotter.m_zColorRuler;
    const SKivoTexImage* const labels = ruler.m_labels;
    const CurrentContext context(plotter);
    ruler.m_divisionCount = 0;
    ruler.m_precision = 1;
    ruler.BuildLabels();
    EXPECT_EQ(ruler.m_labels, labels);
    ruler.m_divisionCount = 10; // by which they are counted when they go
}

TEST_P(Legend, LabelsMadeWithoutAContextAreMadeAgain) {
    CKivoGradientColorRuler& ruler = *plotter.m_zColorRuler;
    ruler.m_precision = 2;
    ruler.BuildLabels();
    EXPECT_EQ(ruler.m_labels[0].texture, 0u) << "no context is current";
    plotter.SetGradientColorRuleFloatingPointPrecision(2);
    EXPECT_NE(ruler.m_labels[0].texture, 0u);
    ExpectLabels(ruler, -1.0f, 0.2f, 2);
}

TEST_P(Legend, LabelsFollowRangePrecisionAndNewContextsButNotColours) {
    CKivoGradientColorRuler& ruler = *plotter.m_zColorRuler;
    const SKivoTexImage* const labels = ruler.m_labels;
    plotter.SetZGradientColor(0x00FF0000, 0x0000FF00);
    EXPECT_EQ(ruler.m_labels, labels) << "the numbers are the same";
    ExpectLabels(ruler, -1.0f, 0.2f, 3);
    {
        const CurrentContext context(plotter);
        ruler.m_gradient->SetRange(0.0f, 5.0f);
        ruler.BuildLabels();
    }
    ExpectLabels(ruler, 0.0f, 0.5f, 3);
    plotter.SetGradientColorRuleFloatingPointPrecision(1);
    ExpectLabels(ruler, 0.0f, 0.5f, 1);
    plotter.OnDestroy();
    ASSERT_EQ(plotter.OnCreate(window.Handle(), width, height, true), 0);
    ExpectLabels(ruler, 0.0f, 0.5f, 1);
}

TEST_P(Legend, TheViewVolumeFollowsTheStrip) {
    const int strip[] = {0, 0, 100, 400};
    std::copy(strip, strip + 4, plotter.m_legendViewport);
    plotter.UpdateLegendViewVolume();
    EXPECT_NEAR(plotter.m_legendViewVolume[1], 247.386, 1e-3);
    EXPECT_NEAR(plotter.m_legendViewVolume[3], 989.545, 1e-2);
    EXPECT_NEAR(plotter.m_legendViewVolume[5], 247.386, 1e-3);
    for (int i = 0; i < 6; i += 2)
        EXPECT_EQ(plotter.m_legendViewVolume[i], -plotter.m_legendViewVolume[i + 1]);
    const int wide[] = {0, 0, 400, 100};
    std::copy(wide, wide + 4, plotter.m_legendViewport);
    plotter.UpdateLegendViewVolume();
    EXPECT_NEAR(plotter.m_legendViewVolume[1], 989.545, 1e-2);
    EXPECT_NEAR(plotter.m_legendViewVolume[3], 247.386, 1e-3);
}

TEST_P(Legend, TheBarStandsInItsStripWithTheGradientsOwnColours) {
    for (const char* title : {"", "a title"}) {
        plotter.SetPlotTitle(title);
        const Image image = CaptureImage(plotter);
        const double stripWidth = plotter.m_legendViewport[2];
        const int left = static_cast<int>(std::lround(0.10 * stripWidth));
        const int right = static_cast<int>(std::lround(0.22 * stripWidth));
        const auto row = [](double share) { return height - 1 - static_cast<int>(share * height); };
        for (const int column : {left + 1, right - 2}) {
            EXPECT_TRUE(image.IsNear(column, row(0.145), {0, 0, 255}, 12)) << title;
            EXPECT_TRUE(image.IsNear(column, row(0.34), {0, 255, 255}, 12)) << title;
            EXPECT_TRUE(image.IsNear(column, row(0.54), {0, 255, 0}, 12)) << title;
            EXPECT_TRUE(image.IsNear(column, row(0.74), {255, 255, 0}, 12)) << title;
            EXPECT_TRUE(image.IsNear(column, row(0.935), {255, 0, 0}, 12)) << title;
        }
        const int background[] = {255, 253, 233};
        EXPECT_TRUE(image.IsNear(left - 2, row(0.5), {background[0], background[1], background[2]}));
        EXPECT_TRUE(image.IsNear(right + 1, row(0.51), {background[0], background[1], background[2]}));
        EXPECT_TRUE(image.IsNear(left + 2, row(0.13), {background[0], background[1], background[2]}));
        EXPECT_TRUE(image.IsNear(left + 2, row(0.95), {background[0], background[1], background[2]}));
    }
}

// At 0.9 of their size, centred 0.6 of their width beside the bar, at the heights of their values.
TEST_P(Legend, LabelsStandBesideTheBarAtTheirValues) {
    for (const int stripWidth : {96, 300}) {
        const int strip[] = {7, 5, stripWidth, 280};
        std::copy(strip, strip + 4, plotter.m_legendViewport);
        plotter.UpdateLegendViewVolume();
        const CKivoGradientColorRuler& ruler = *plotter.m_zColorRuler;
        const CurrentContext context(plotter);
        const std::vector<DrawnQuad> quads = TexturedQuads(Record([&] {
            glDisable(GL_LIGHTING);
            ruler.Render(plotter.m_legendViewport, plotter.m_legendViewVolume);
        }));
        ASSERT_EQ(quads.size(), 11u);
        for (std::size_t i = 0; i < 11; ++i) {
            const SKivoTexImage& label = ruler.m_labels[i];
            EXPECT_NEAR(quads[i].CenterX(), strip[0] + 0.22 * stripWidth + 0.6 * label.width, 0.01) << i;
            EXPECT_NEAR(quads[i].CenterY(), strip[1] + (0.14 + 0.08 * static_cast<double>(i)) * strip[3],
                        0.01)
                << i;
            EXPECT_NEAR(quads[i].Width(), 0.9 * label.width, 0.01) << i;
            EXPECT_NEAR(quads[i].Height(), 0.9 * label.height, 0.01) << i;
            EXPECT_EQ(quads[i].corners[2].texture, (std::array<float, 2>{label.sMax, label.tMax})) << i;
            EXPECT_NEAR(quads[i].corners[0].depth, 0.5, 1e-6) << i;
        }
    }
}

TEST_P(Legend, EachPlotShowsItsOwnGradient) {
    plotter.SetXGradientColor(0x000000FF, 0x000000FF); // red
    plotter.SetYGradientColor(0x0000FF00, 0x0000FF00); // green
    plotter.EndGLOperation();
    const int column = static_cast<int>(0.16 * plotter.m_legendViewport[2]);
    plotter.SwitchToYZProjectPlot();
    EXPECT_TRUE(CaptureImage(plotter).IsNear(column, height / 2, {255, 0, 0}));
    plotter.SwitchToZXProjectPlot();
    EXPECT_TRUE(CaptureImage(plotter).IsNear(column, height / 2, {0, 255, 0}));
    plotter.SwitchToXYProjectPlot();
    EXPECT_TRUE(
        CaptureImage(plotter).IsNear(column, height - 1 - static_cast<int>(0.145 * height), {0, 0, 255}, 12));
}

KIVO_IN_ONE_WINDOW(Legend);
