// What stands beside the picture on demand: a legend's title and round numbers, names of groups, digits of
// the read-out.
#include "KivoAxis.h"
#include "KivoColorMap.h"
#include "KivoLegend.h"
#include "KivoStyle.h"
#include "parts/KivoGradientColorRuler.h"
#include "parts/KivoGridBox.h"
#include "parts/TextRenderer.h"
#include "support/Drawing.h"
#include "support/FilledPlot.h"
#include "support/Image.h"
#include "support/TestSurfaces.h"
#include "support/TestWindow.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <string>
#include <utility>
#include <vector>

using namespace KivoDrawingTools;

namespace {

constexpr int width = 600;
constexpr int height = 400;

std::vector<std::string> Labels(const CKivoGradientColorRuler& ruler) {
    std::vector<std::string> labels;
    for (unsigned int i = 0; i <= ruler.m_divisionCount; ++i)
        labels.push_back(ruler.LabelText(i));
    return labels;
}

SKivoLegend With(KivoLegendNumbers numbers) {
    SKivoLegend legend;
    legend.numbers = numbers;
    return legend;
}

SKivoLegend Titled(const std::string& title) {
    SKivoLegend legend;
    legend.title = title;
    return legend;
}

double Top(const DrawnQuad& quad) {
    return quad.CenterY() + 0.5 * quad.Height();
}

bool IsText(const DrawnPrimitive& primitive) {
    return std::any_of(primitive.begin(), primitive.end(), [](const DrawnVertex& vertex) {
        return vertex.texture[0] != 0.0f || vertex.texture[1] != 0.0f;
    });
}

class LegendSettings : public WindowTest {
protected:
    TestPlot plot{GetParam(), width, height};
    PlotterProbe& plotter = plot.plotter;

    void SetUp() override { FillPlot(plotter); }

    // Heights whose least and greatest are these.
    void SetHeights(float min, float max) {
        TestSurface surface = PlaneSurface(5, 4);
        for (std::size_t i = 0; i < 20; ++i)
            surface.points[3 * i + 2] = i == 0 ? min : max;
        plotter.SetData(surface.NewArray(), 5, 4, 1, 5, 3);
    }

    Drawing RecordLegend() {
        const CurrentContext context(plotter);
        return Record([&] {
            glDisable(GL_LIGHTING);
            plotter.m_zColorRuler->Render(plotter.m_legendViewport, plotter.m_legendViewVolume);
        });
    }
    std::vector<DrawnQuad> LegendQuads() { return TexturedQuads(RecordLegend()); }
    // Lowest and highest pixel of the bar.
    std::pair<double, double> Bar() {
        std::pair<double, double> range = {1e9, -1e9};
        for (const DrawnPrimitive& primitive : RecordLegend())
            for (const DrawnVertex& vertex : primitive)
                if (!IsText(primitive))
                    range = {std::min(range.first, vertex.y), std::max(range.second, vertex.y)};
        return range;
    }
    std::vector<DrawnQuad> FrameQuads() {
        const CurrentContext context(plotter);
        return TexturedQuads(Record([&] { plotter.DrawScene(); }));
    }
};

} // namespace

// ---- Numbers

// What the data are differences to counts, whichever was set first.
TEST_P(LegendSettings, NumbersAreAbsoluteOnes) {
    SetHeights(-0.3f, 4.6f);
    const auto labels = [&] { return Labels(*plotter.m_zColorRuler); };
    ASSERT_EQ(SetLegend(plotter, 2, With(KivoLegendNumbers::round)), 0);
    ASSERT_EQ(SetAxisOrigin(plotter, 2, 1e6), 0);
    EXPECT_THAT(labels(), testing::Contains("1000002.0"));
    for (const std::string& label : labels()) {
        const double halves = std::strtod(label.c_str(), nullptr) * 2.0;
        EXPECT_EQ(halves, std::floor(halves)) << label;
    }
    // Each stands at its value.
    const auto [low, high] = Bar();
    const std::vector<DrawnQuad> quads = LegendQuads();
    ASSERT_EQ(quads.size(), labels().size());
    for (std::size_t i = 0; i < quads.size(); ++i) {
        const double share = (std::strtod(labels()[i].c_str(), nullptr) - 1e6 + 0.3) / 4.9;
        EXPECT_NEAR(quads[i].CenterY(), low + share * (high - low), 0.5) << labels()[i];
    }
    ASSERT_EQ(SetLegend(plotter, 2, With(KivoLegendNumbers::fitted)), 0);
    EXPECT_NEAR(std::strtod(labels().front().c_str(), nullptr), 999999.7, 0.03);
    EXPECT_NEAR(std::strtod(labels().back().c_str(), nullptr), 1000004.6, 0.03);

    // A host's words come before all.
    ASSERT_EQ(SetLegend(plotter, 2, With(KivoLegendNumbers::round)), 0);
    ASSERT_EQ(SetAxisLabelFormat(plotter, 2,
                                 [](double value, double step) {
                                     return std::to_string(std::lround(value * 10.0)) + " by " +
                                            std::to_string(std::lround(step * 10.0));
                                 }),
              0);
    EXPECT_THAT(labels(), testing::Contains("10000020 by 5"));
}

TEST_P(LegendSettings, FittedNumbersHaveTheDigitsOfTheirRange) {
    SetHeights(0.0f, 100.0f);
    ASSERT_EQ(SetLegend(plotter, 2, With(KivoLegendNumbers::fitted)), 0);
    EXPECT_THAT(Labels(*plotter.m_zColorRuler),
                testing::ElementsAre("0", "10", "20", "30", "40", "50", "60", "70", "80", "90", "100"));
    SetHeights(0.0f, 1e30f);
    EXPECT_THAT(Labels(*plotter.m_zColorRuler),
                testing::ElementsAre("0", "1e29", "2e29", "3e29", "4e29", "5e29", "6e29", "7e29", "8e29",
                                     "9e29", "1.0e30"));
    SetHeights(-1.0f, 1.0f);
    EXPECT_EQ(Labels(*plotter.m_zColorRuler)[5], "0.0");
    ASSERT_EQ(SetLegend(plotter, 2, SKivoLegend()), 0);
    EXPECT_EQ(Labels(*plotter.m_zColorRuler)[0], "-1.000");
}

TEST_P(LegendSettings, RoundNumbersStandAtTheirColours) {
    ASSERT_EQ(SetLegend(plotter, 2, With(KivoLegendNumbers::round)), 0);
    ASSERT_EQ(SetColorMap(plotter, 2, "viridis"), 0);
    struct Range {
        float min, max;
        std::vector<std::string> labels;
    };
    const Range ranges[] = {
        {252, 534, {"300", "350", "400", "450", "500"}},
        {0, 1, {"0.0", "0.1", "0.2", "0.3", "0.4", "0.5", "0.6", "0.7", "0.8", "0.9", "1.0"}},
        {2.5f, -1.0f, {"2.5", "2.0", "1.5", "1.0", "0.5", "0.0", "-0.5", "-1.0"}}};
    for (const Range& range : ranges) {
        ASSERT_EQ(SetColorRange(plotter, 2, range.min, range.max), 0);
        ASSERT_EQ(Labels(*plotter.m_zColorRuler), range.labels);
        const std::vector<DrawnQuad> quads = LegendQuads();
        ASSERT_EQ(quads.size(), range.labels.size());
        const auto [bottom, top] = Bar();
        for (std::size_t i = 0; i < quads.size(); ++i) {
            const double value = std::strtod(range.labels[i].c_str(), nullptr);
            const double share = (value - range.min) / (static_cast<double>(range.max) - range.min);
            EXPECT_NEAR(quads[i].CenterY(), bottom + share * (top - bottom), 0.01) << range.labels[i];
        }
    }
    ASSERT_EQ(SetLegend(plotter, 2, SKivoLegend()), 0);
    EXPECT_EQ(plotter.m_zColorRuler->m_divisionCount, 10u);
    EXPECT_EQ(LegendQuads().size(), 11u);
}

TEST_P(LegendSettings, NumbersFollowNewDataAndNewWindows) {
    ASSERT_EQ(SetLegend(plotter, 2, With(KivoLegendNumbers::round)), 0);
    SetHeights(252.0f, 534.0f);
    EXPECT_THAT(Labels(*plotter.m_zColorRuler), testing::ElementsAre("300", "350", "400", "450", "500"));
    for (int i = 0; i < 2; ++i) {
        plotter.OnDestroy();
        ASSERT_EQ(plotter.OnCreate(plot.window.Handle(), width, height, true), 0);
        SetHeights(252.0f, 534.0f);
        EXPECT_EQ(LegendQuads().size(), 5u);
    }
    SetHeights(3.0f, 3.0f); // no round ones
    EXPECT_THAT(Labels(*plotter.m_zColorRuler), testing::Each("3"));
    EXPECT_EQ(LegendQuads().size(), 11u);
    SetHeights(252.0f, 534.0f);
    EXPECT_EQ(LegendQuads().size(), 5u);
    for (const float odd : {std::numeric_limits<float>::infinity(), 3e38f}) {
        SetHeights(-odd, odd);
        EXPECT_EQ(plotter.Renderscene(), 0);
    }
}

// ---- The title

TEST_P(LegendSettings, TheTitleStandsAboveBarAndNumbers) {
    for (const KivoLegendNumbers numbers : {KivoLegendNumbers::asSet, KivoLegendNumbers::round})
        for (const int stripHeight : {60, 120, 300, 900}) {
            SCOPED_TRACE(stripHeight);
            SKivoLegend legend = Titled("mm");
            legend.numbers = numbers;
            ASSERT_EQ(SetLegend(plotter, 2, legend), 0);
            plotter.OnSize(0, width, stripHeight);
            const std::vector<DrawnQuad> quads = LegendQuads();
            ASSERT_GE(quads.size(), 2u);
            const DrawnQuad& title = quads.back();
            EXPECT_NEAR(title.Width(), 0.9 * plotter.m_zColorRuler->m_titleImage.width, 0.01);
            for (std::size_t i = 0; i + 1 < quads.size(); ++i)
                EXPECT_LT(Top(quads[i]), Top(title) - title.Height());
            EXPECT_LT(Bar().second, Top(title) - title.Height());
            EXPECT_LE(Top(title), stripHeight) << "within the window";
            EXPECT_GT(Bar().second - Bar().first, 5.0);
        }
}

TEST_P(LegendSettings, AWideTitleIsDrawnSmallerAndPushesLabelsAside) {
    const double strip = plotter.m_legendViewport[2];
    ASSERT_EQ(SetLegend(plotter, 2, Titled("Pressure in Pa")), 0);
    const DrawnQuad title = LegendQuads().back();
    const SKivoTexImage& image = plotter.m_zColorRuler->m_titleImage;
    ASSERT_GT(0.9 * image.width, 0.9 * strip) << "a tenth of the strip is left of the bar";
    ASSERT_LT(0.6 * image.width, 0.9 * strip);
    EXPECT_NEAR(title.Width(), 0.9 * strip, 0.01);
    EXPECT_NEAR(title.CenterX() - 0.5 * title.Width(), 0.1 * strip, 0.01);
    // What reaches over the strip is told to the box.
    ASSERT_EQ(SetLegend(plotter, 2, Titled("A much longer title than the strip has room for")), 0);
    plotter.OnDraw();
    const DrawnQuad longer = LegendQuads().back();
    EXPECT_NEAR(longer.Width(), 0.6 * image.width, 0.01);
    ASSERT_GT(longer.CenterX() + 0.5 * longer.Width(), strip);
    const std::vector<PlacedImage>& others = plotter.m_gridBox->m_screenBox.others;
    const auto isTitle = [&](const PlacedImage& place) {
        return std::fabs(2.0 * place.halfWidth - longer.Width()) < 0.01 &&
               std::fabs(place.center.x + plotter.m_plotViewport[0] - longer.CenterX()) < 0.5 &&
               std::fabs(place.center.y + plotter.m_plotViewport[1] - longer.CenterY()) < 0.5;
    };
    EXPECT_TRUE(std::any_of(others.begin(), others.end(), isTitle));
}

TEST_P(LegendSettings, TheTitleIsDrawnInEveryStyle) {
    ASSERT_EQ(SetLegend(plotter, 2, Titled("mm")), 0);
    const int plain = plotter.m_zColorRuler->m_titleImage.width;
    SKivoStyle style;
    style.pixelScale = 2.0f;
    ASSERT_EQ(SetStyle(plotter, style), 0);
    EXPECT_NEAR(plotter.m_zColorRuler->m_titleImage.width, 2 * plain, 2);
    EXPECT_NE(plotter.m_zColorRuler->m_titleImage.texture, 0u);
    plotter.OnDestroy();
    ASSERT_EQ(plotter.OnCreate(plot.window.Handle(), width, height, true), 0);
    EXPECT_NEAR(plotter.m_zColorRuler->m_titleImage.width, 2 * plain, 2);
    EXPECT_EQ(LegendQuads().size(), 12u);
}

// ---- What stays, and what is refused

TEST_P(LegendSettings, EachAxisHasItsOwn) {
    const std::string names[] = {"first", "second", "third"};
    for (int axis = 0; axis < 3; ++axis) {
        SKivoLegend legend = Titled(names[axis]);
        legend.numbers = axis == 1 ? KivoLegendNumbers::fitted : KivoLegendNumbers::round;
        legend.isShown = axis != 0;
        ASSERT_EQ(SetLegend(plotter, axis, legend), 0);
    }
    for (int axis = 0; axis < 3; ++axis) {
        const SKivoLegend legend = GetLegend(plotter, axis);
        EXPECT_EQ(legend.title, names[axis]);
        EXPECT_EQ(legend.numbers, axis == 1 ? KivoLegendNumbers::fitted : KivoLegendNumbers::round);
        EXPECT_EQ(legend.isShown, axis != 0);
    }
    for (const int axis : {-1, 3}) {
        EXPECT_EQ(SetLegend(plotter, axis, SKivoLegend()), -3);
        EXPECT_EQ(GetLegend(plotter, axis).title, "");
    }
}

TEST_P(LegendSettings, SettingsCountWheneverTheyAreMade) {
    SKivoLegend legend = Titled("mm");
    legend.numbers = KivoLegendNumbers::round;
    const auto set = [&](PlotterProbe& p) {
        EXPECT_EQ(SetLegend(p, 2, legend), 0);
        EXPECT_EQ(ShowMeasureGroupNames(p, true), 0);
        EXPECT_EQ(FitReadOutDigits(p, true), 0);
    };
    set(plotter);
    const Image expected = CaptureImage(plotter);
    const TestWindow window(GetParam(), width, height);
    PlotterProbe other;
    set(other);
    ASSERT_EQ(other.OnCreate(window.Handle(), width, height, true), 0);
    FillPlot(other);
    EXPECT_TRUE(CaptureImage(other).rgba == expected.rgba);
    EXPECT_TRUE(IsShowMeasureGroupNames(other));
    EXPECT_TRUE(IsFitReadOutDigits(other));
    other.OnDestroy();
    EXPECT_EQ(GetLegend(other, 2).title, "mm");
}

TEST_P(LegendSettings, BackAtTheirOwnThePictureIsTheOldOne) {
    const Image before = CaptureImage(plotter);
    SKivoLegend legend = Titled("title");
    legend.numbers = KivoLegendNumbers::round;
    ASSERT_EQ(SetLegend(plotter, 2, legend), 0);
    ShowMeasureGroupNames(plotter, true);
    FitReadOutDigits(plotter, true);
    EXPECT_FALSE(CaptureImage(plotter).rgba == before.rgba);
    ASSERT_EQ(SetLegend(plotter, 2, SKivoLegend()), 0);
    ShowMeasureGroupNames(plotter, false);
    FitReadOutDigits(plotter, false);
    EXPECT_TRUE(CaptureImage(plotter).rgba == before.rgba);
}

TEST_P(LegendSettings, AHiddenLegendLeavesItsStripFree) {
    SKivoLegend legend = Titled("A much longer title than the strip has room for");
    legend.isShown = false;
    ASSERT_EQ(SetLegend(plotter, 2, legend), 0);
    plotter.m_hasTracePoint = 0;
    const Image image = CaptureImage(plotter);
    for (int x = 0; x < plotter.m_legendViewport[2]; ++x)
        for (int y = 0; y < height; ++y)
            ASSERT_TRUE(image.IsNear(x, y, {255, 253, 233})) << x << ", " << y;
    plotter.SwitchToYZProjectPlot(); // whose legend is another one
    const int column = static_cast<int>(0.16 * plotter.m_legendViewport[2]);
    EXPECT_TRUE(CaptureImage(plotter).IsNear(column, static_cast<int>(0.46 * height), {0, 255, 0}, 12));
}

TEST_P(LegendSettings, WhatIsNoLegendIsRefused) {
    const Image before = CaptureImage(plotter);
    for (const int numbers : {-1, 3, 2147483647}) {
        SKivoLegend legend = Titled("refused");
        legend.numbers = static_cast<KivoLegendNumbers>(numbers);
        EXPECT_EQ(SetLegend(plotter, 2, legend), -3);
    }
    EXPECT_TRUE(CaptureImage(plotter).rgba == before.rgba);
    // Any text is a title.
    for (const std::string& title : {std::string("\xFF\xFE"), std::string(5000, 'w'), std::string("a\0b", 3),
                                     std::string("two\nlines"), std::string(" ")}) {
        EXPECT_EQ(SetLegend(plotter, 2, Titled(title)), 0);
        EXPECT_EQ(plotter.Renderscene(), 0);
    }
}

// ---- Names of groups

TEST_P(LegendSettings, NamesOfShownGroupsAreListed) {
    ShowMeasureGroupNames(plotter, true);
    const std::size_t both = FrameQuads().size();
    plotter.ShowMeasureGroup(0, false);
    EXPECT_EQ(FrameQuads().size(), both - 1);
    plotter.ShowMeasureGroup(1, false);
    EXPECT_EQ(FrameQuads().size(), both - 2);
    ShowMeasureGroupNames(plotter, false);
    plotter.ShowAllMeasureGroups(true);
    EXPECT_EQ(FrameQuads().size(), both - 2);
    ShowMeasureGroupNames(plotter, true);
    plotter.SwitchToXYProjectPlot(); // which shows no groups
    const std::size_t flat = FrameQuads().size();
    ShowMeasureGroupNames(plotter, false);
    EXPECT_EQ(FrameQuads().size(), flat);
}

// The box is told where they stand, at every scale.
TEST_P(LegendSettings, TheBoxKeepsClearOfTheNames) {
    ShowMeasureGroupNames(plotter, true);
    for (const float scale : {1.0f, 1.5f}) {
        SKivoStyle style;
        style.pixelScale = scale;
        ASSERT_EQ(SetStyle(plotter, style), 0);
        const std::vector<DrawnQuad> quads = FrameQuads();
        ASSERT_GE(quads.size(), 2u);
        const std::vector<PlacedImage>& others = plotter.m_gridBox->m_screenBox.others;
        ASSERT_FALSE(others.empty());
        const PlacedImage& block = others.back();
        const double left = plotter.m_plotViewport[0] + scale * (block.center.x - block.halfWidth);
        const double right = plotter.m_plotViewport[0] + scale * (block.center.x + block.halfWidth);
        const double bottom = scale * (block.center.y - block.halfHeight);
        const double top = scale * (block.center.y + block.halfHeight);
        for (std::size_t i = quads.size() - 2; i < quads.size(); ++i) { // the names are drawn last
            const DrawnQuad& name = quads[i];
            EXPECT_GT(name.CenterX() - 0.5 * name.Width(), left + 0.8 * name.Height()) << "the square";
            EXPECT_LT(name.CenterX() + 0.5 * name.Width(), right + 0.5);
            EXPECT_GT(name.CenterY() - 0.5 * name.Height(), bottom - 0.5);
            EXPECT_LT(name.CenterY() + 0.5 * name.Height(), top + 0.5);
        }
        EXPECT_NEAR(top - bottom, 2 * quads.back().Height(), 0.5);
    }
}

// ---- The read-out

TEST_P(LegendSettings, TheReadOutHasTheDigitsOfTheRanges) {
    SetHeights(0.0f, 1e30f);
    const float traced[] = {1.0f, -1e-9f, 5e29f};
    std::copy(traced, traced + 3, plotter.m_tracePoint);
    const auto readOut = [&] { // the only text that comes with the traced point
        plotter.m_hasTracePoint = 0;
        const std::vector<DrawnQuad> without = FrameQuads();
        plotter.m_hasTracePoint = 1;
        const std::vector<DrawnQuad> with = FrameQuads();
        EXPECT_EQ(with.size(), without.size() + 1);
        return with[with.size() - 1 - LegendQuads().size()].Width();
    };
    const auto widthOf = [&](const char* text) {
        const CurrentContext context(plotter);
        SKivoTexImage image;
        CreateTextImage(plotter.m_textRenderer, text, &image);
        const double imageWidth = image.width;
        PlotterProbe::ReleaseTex(&image);
        return imageWidth;
    };
    FitReadOutDigits(plotter, true);
    // x runs from -3 to 5, y from -2 to 3: a hundredth of it has its second place in the third decimal.
    EXPECT_NEAR(readOut(), widthOf("(1.000, 0.000, 5.00e29)"), 0.01);
    FitReadOutDigits(plotter, false);
    EXPECT_NEAR(readOut(), widthOf("(1.000, -0.000, 500000015047466219876688855040.000)"), 0.01);
}

KIVO_IN_ONE_WINDOW(LegendSettings);
