// Colours from tables and held ranges: the surface, the contours, the legend's bar and its numbers.
#include "computing/ColorTable.h"
#include "computing/NamedColors.h"
#include "KivoColorMap.h"
#include "KivoMotion.h"
#include "KivoPicture.h"
#include "KivoStyle.h"
#include "parts/KivoGradientColor.h"
#include "parts/KivoGradientColorRuler.h"
#include "parts/TextRenderer.h"
#include "support/Drawing.h"
#include "support/FilledPlot.h"
#include "support/Image.h"
#include "support/TestSurfaces.h"
#include "support/TestWindow.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <functional>
#include <limits>
#include <string>
#include <utility>
#include <vector>

using namespace KivoDrawingTools;

namespace {

constexpr int width = 400;
constexpr int height = 300;
constexpr float infinity = std::numeric_limits<float>::infinity();
constexpr float noNumber = std::numeric_limits<float>::quiet_NaN();

// Black, red, yellow, white; alphas that no picture shows.
constexpr float embers[] = {0, 0, 0, 1, 1, 0, 0, 0.5f, 1, 1, 0, 0, 1, 1, 1, 1};

struct Color {
    float r, g, b;
    bool operator==(const Color& other) const { return r == other.r && g == other.g && b == other.b; }
};

std::ostream& operator<<(std::ostream& out, const Color& color) {
    return out << color.r << ' ' << color.g << ' ' << color.b;
}

bool AreNear(const Color& a, const Color& b) {
    return std::fabs(a.r - b.r) < 1e-5f && std::fabs(a.g - b.g) < 1e-5f && std::fabs(a.b - b.b) < 1e-5f;
}

// Between black and white through red and yellow: each channel rises over its own third.
Color Ember(double share) {
    const auto channel = [&](int third) {
        return static_cast<float>(std::clamp(3.0 * share - third, 0.0, 1.0));
    };
    return {channel(0), channel(1), channel(2)};
}

// Of the point with this number.
Color SurfaceColor(const PlotterProbe& plotter, std::size_t point) {
    const float* const rgba = plotter.m_colorArray + 4 * point;
    return {rgba[0], rgba[1], rgba[2]};
}

std::vector<std::string> Labels(const CKivoGradientColorRuler& ruler) {
    std::vector<std::string> labels;
    for (unsigned int i = 0; i <= ruler.m_divisionCount; ++i)
        labels.push_back(ruler.LabelText(i));
    return labels;
}

class ColorMap : public WindowTest {
protected:
    TestPlot plot{GetParam(), width, height};
    PlotterProbe& plotter = plot.plotter;
    TestSurface surface = PlaneSurface(9, 6);

    void SetUp() override { Load(); }
    void Load() {
        plotter.SetDataReference(surface.points.data(), surface.columns, surface.rows, 1, surface.columns, 3);
    }
    void ExpectEmbers(float min, float max) {
        for (std::size_t i = 0; i < plotter.m_vertexCount; ++i) {
            const double z = surface.points[3 * i + 2];
            EXPECT_TRUE(AreNear(SurfaceColor(plotter, i), Ember((z - min) / (double{max} - min))))
                << i << ": " << SurfaceColor(plotter, i);
        }
    }
    // Bytes from the middle of the bar, at a share of its height.
    void ExpectBar(double share, const Color& color) {
        const Image image = CaptureImage(plotter);
        const int column = static_cast<int>(0.16 * plotter.m_legendViewport[2]);
        const double y = (0.14 + 0.8 * share) * height;
        const int row = height - 1 - static_cast<int>(y);
        const int rgb[] = {static_cast<int>(std::lround(255 * color.r)),
                           static_cast<int>(std::lround(255 * color.g)),
                           static_cast<int>(std::lround(255 * color.b))};
        EXPECT_TRUE(image.IsNear(column, row, rgb, 4)) << share;
    }
};

} // namespace

// ---- Tables

TEST_P(ColorMap, TheSurfaceHasTheTablesColours) {
    ASSERT_EQ(SetColorMap(plotter, 2, embers, 4), 0);
    ExpectEmbers(surface.Min(2), surface.Max(2));
    // Data that come later, too.
    surface = HillSurface(20, 13);
    Load();
    ExpectEmbers(surface.Min(2), surface.Max(2));
}

TEST_P(ColorMap, NamedTablesAreThoseOfTheirNames) {
    EXPECT_EQ(ColorMapNames(), ColorTableNames());
    for (const std::string& name : ColorMapNames()) {
        ASSERT_EQ(SetColorMap(plotter, 2, name.c_str()), 0);
        const std::vector<float> rgba = NamedColorTable(name);
        const std::size_t lowest = 0, highest = plotter.m_vertexCount - 1; // of the plane
        EXPECT_EQ(SurfaceColor(plotter, lowest), (Color{rgba[0], rgba[1], rgba[2]})) << name;
        EXPECT_EQ(SurfaceColor(plotter, highest), (Color{rgba[1020], rgba[1021], rgba[1022]})) << name;
    }
}

TEST_P(ColorMap, TheContoursOfEachAxisHaveItsColours) {
    plotter.ShowXIsoContours(true);
    plotter.ShowYIsoContours(true);
    plotter.ShowZIsoContours(true);
    plotter.ShowFrameLines(false);
    for (int axis = 0; axis < 3; ++axis) {
        ASSERT_EQ(SetColorMap(plotter, axis, embers, 4), 0);
        const std::vector<SKivoIsoContour>* const contours[] = {
            &plotter.m_flatXIsoContours, &plotter.m_flatYIsoContours, &plotter.m_flatZIsoContours};
        ASSERT_GT(contours[axis]->size(), 5u);
        const CurrentContext context(plotter);
        const Drawing drawing = Record([&] { plotter.DrawScene(); });
        for (const SKivoIsoContour& contour : *contours[axis]) {
            const double min = surface.Min(axis), max = surface.Max(axis);
            const Color color = Ember((contour.level - min) / (max - min));
            EXPECT_FALSE(LinesOfColor(drawing, {color.r, color.g, color.b}).empty()) << axis << ": " << color;
        }
        EXPECT_EQ(SetColorMap(plotter, axis, nullptr, 0), 0);
    }
}

TEST_P(ColorMap, TheLegendsBarShowsTheTable) {
    const std::function<void()> showLegends[] = {[&] { plotter.SwitchToYZProjectPlot(); },
                                                 [&] { plotter.SwitchToZXProjectPlot(); },
                                                 [&] { plotter.SwitchToNormalPlot(); }};
    for (int axis = 0; axis < 3; ++axis) {
        ASSERT_EQ(SetColorMap(plotter, axis, embers, 4), 0);
        showLegends[axis]();
        for (const double share : {0.01, 0.2, 1.0 / 3.0, 0.5, 2.0 / 3.0, 0.9, 0.99})
            ExpectBar(share, Ember(share));
    }
}

// Each is a band of two neighbours, and no more than 1024 are drawn.
TEST_P(ColorMap, TheBarIsAsFineAsTheTable) {
    std::vector<float> stripes; // black and white in turn
    for (int i = 0; i < 41; ++i)
        for (int k = 0; k < 4; ++k)
            stripes.push_back(i % 2 == 0 ? 0.0f : 1.0f);
    ASSERT_EQ(SetColorMap(plotter, 2, stripes.data(), 41), 0);
    for (int i = 1; i < 40; ++i) {
        const float grey = i % 2 == 0 ? 0.0f : 1.0f;
        const Image image = CaptureImage(plotter);
        const int row = height - 1 - static_cast<int>((0.14 + 0.8 * i / 40.0) * height);
        const int column = static_cast<int>(0.16 * plotter.m_legendViewport[2]);
        EXPECT_NEAR(image.Pixel(column, row)[0], 255.0f * grey, 50) << i;
    }
    const std::vector<float> many(std::size_t{4} * 65536, 0.25f);
    ASSERT_EQ(SetColorMap(plotter, 2, many.data(), 65536), 0);
    for (const double share : {0.01, 0.5, 0.99})
        ExpectBar(share, {0.25f, 0.25f, 0.25f});
}

TEST_P(ColorMap, OtherAxesAndTheLegendsNumbersStay) {
    const std::vector<std::string> labels = Labels(*plotter.m_zColorRuler);
    const SKivoTexImage* const images = plotter.m_zColorRuler->m_labels;
    const Color before = SurfaceColor(plotter, 7);
    ASSERT_EQ(SetColorMap(plotter, 0, "viridis"), 0);
    ASSERT_EQ(SetColorMap(plotter, 1, "viridis"), 0);
    EXPECT_EQ(SurfaceColor(plotter, 7), before);
    ASSERT_EQ(SetColorMap(plotter, 2, "viridis"), 0);
    EXPECT_FALSE(SurfaceColor(plotter, 7) == before);
    EXPECT_EQ(Labels(*plotter.m_zColorRuler), labels);
    EXPECT_EQ(plotter.m_zColorRuler->m_labels, images);
}

// ---- Back to the gradient

TEST_P(ColorMap, WithoutTableAndRangeThePictureIsTheOldOne) {
    plotter.SetGradientColor(0x00804020UL, 0x0040C0FFUL);
    const Image before = CaptureImage(plotter);
    ASSERT_EQ(SetColorMap(plotter, 2, "turbo"), 0);
    ASSERT_EQ(SetColorRange(plotter, 2, -1.0f, 1.0f), 0);
    EXPECT_FALSE(CaptureImage(plotter).rgba == before.rgba);
    ASSERT_EQ(SetColorRange(plotter, 2, 5.0f, 5.0f), 0);
    ASSERT_EQ(SetColorMap(plotter, 2, embers, 0), 0);
    EXPECT_TRUE(CaptureImage(plotter).rgba == before.rgba);
}

namespace {

struct GradientSetter {
    int axis; // 3: all
    std::function<void(PlotterProbe&)> set;
};

std::vector<GradientSetter> GradientSetters() {
    static const float blue[] = {0, 0, 1, 1}, red[] = {1, 0, 0, 1};
    return {{3, [](PlotterProbe& p) { p.SetGradientColor(blue, red); }},
            {3, [](PlotterProbe& p) { p.SetGradientStartColor(blue); }},
            {3, [](PlotterProbe& p) { p.SetGradientEndColor(red); }},
            {3, [](PlotterProbe& p) { p.SetGradientColor(0xFF0000UL, 0x0000FFUL); }},
            {3, [](PlotterProbe& p) { p.SetGradientStartColor(0xFF0000UL); }},
            {3, [](PlotterProbe& p) { p.SetGradientEndColor(0x0000FFUL); }},
            {0, [](PlotterProbe& p) { p.SetXGradientColor(blue, red); }},
            {0, [](PlotterProbe& p) { p.SetXGradientStartColor(0xFF0000UL); }},
            {0, [](PlotterProbe& p) { p.SetXGradientEndColor(red); }},
            {1, [](PlotterProbe& p) { p.SetYGradientColor(0xFF0000UL, 0x0000FFUL); }},
            {1, [](PlotterProbe& p) { p.SetYGradientStartColor(blue); }},
            {1, [](PlotterProbe& p) { p.SetYGradientEndColor(0x0000FFUL); }},
            {2, [](PlotterProbe& p) { p.SetZGradientColor(blue, red); }},
            {2, [](PlotterProbe& p) { p.SetZGradientStartColor(0xFF0000UL); }},
            {2, [](PlotterProbe& p) { p.SetZGradientEndColor(red); }}};
}

} // namespace

TEST_P(ColorMap, TheClassesSettersGoBackToTheirGradients) {
    for (const GradientSetter& setter : GradientSetters()) {
        for (int axis = 0; axis < 3; ++axis)
            ASSERT_EQ(SetColorMap(plotter, axis, "grey"), 0);
        setter.set(plotter);
        plotter.EndGLOperation();
        const CKivoGradientColor* const gradients[] = {plotter.m_xGradientColor, plotter.m_yGradientColor,
                                                       plotter.m_zGradientColor};
        for (int axis = 0; axis < 3; ++axis) {
            float rgb[3];
            gradients[axis]->Evaluate(gradients[axis]->m_min, rgb);
            const bool isGradient = setter.axis == 3 || setter.axis == axis;
            EXPECT_EQ((Color{rgb[0], rgb[1], rgb[2]}), isGradient ? (Color{0, 0, 1}) : (Color{0, 0, 0}));
        }
        const Color lowest = setter.axis >= 2 ? Color{0, 0, 1} : Color{0, 0, 0};
        EXPECT_EQ(SurfaceColor(plotter, 0), lowest);
    }
}

// ---- Ranges

TEST_P(ColorMap, AHeldRangeHasItsColoursWhateverTheDataAre) {
    ASSERT_EQ(SetColorMap(plotter, 2, embers, 4), 0);
    ASSERT_EQ(SetColorRange(plotter, 2, -1.0f, 2.0f), 0);
    ExpectEmbers(-1.0f, 2.0f);
    for (float& number : surface.points)
        number *= 0.5f;
    Load();
    ExpectEmbers(-1.0f, 2.0f);
    // Back to what the data have now.
    ASSERT_EQ(SetColorRange(plotter, 2, 0.0f, 0.0f), 0);
    ExpectEmbers(surface.Min(2), surface.Max(2));
    for (float& number : surface.points)
        number *= 3.0f;
    Load();
    ExpectEmbers(surface.Min(2), surface.Max(2));
}

// Within the range each value has the colour that it has where the data have that range; beyond it the ends'.
TEST_P(ColorMap, AHeldRangeWorksWithGradients) {
    for (const auto& [start, end] : {std::pair{0xFF0000UL, 0x0000FFUL}, {0x4040FFUL, 0xE08080UL}}) {
        plotter.SetZGradientColor(start, end);
        CKivoGradientColor plain = *plotter.m_zGradientColor;
        for (const auto& [min, max] : {std::pair{-0.5f, 1.5f}, {1.5f, -0.5f}}) {
            ASSERT_EQ(SetColorRange(plotter, 2, min, max), 0);
            plain.SetRange(min, max);
            for (std::size_t i = 0; i < plotter.m_vertexCount; ++i) {
                float rgb[3];
                plain.Evaluate(std::clamp(surface.points[3 * i + 2], -0.5f, 1.5f), rgb);
                EXPECT_EQ(SurfaceColor(plotter, i), (Color{rgb[0], rgb[1], rgb[2]})) << i;
            }
        }
        ASSERT_EQ(SetColorRange(plotter, 2, 0.0f, 0.0f), 0);
    }
}

TEST_P(ColorMap, ARangeThatIsTurnedRoundTurnsTheColours) {
    ASSERT_EQ(SetColorMap(plotter, 2, embers, 4), 0);
    ASSERT_EQ(SetColorRange(plotter, 2, 2.0f, -1.0f), 0);
    ExpectEmbers(2.0f, -1.0f);
    ExpectBar(0.99, Ember(0.99)); // the first colour is below, with the greater number beside it
    EXPECT_EQ(plotter.m_zColorRuler->LabelText(0), "2.000");
    EXPECT_EQ(plotter.m_zColorRuler->LabelText(10), "-1.000");
}

TEST_P(ColorMap, SingleValuesFarAwayCostNoColours) {
    surface.points[3 * 20 + 2] = 1e9f;
    surface.points[3 * 30 + 2] = -1e9f;
    Load();
    ASSERT_EQ(SetColorMap(plotter, 2, embers, 4), 0);
    ASSERT_EQ(SetColorRange(plotter, 2, -3.0f, 7.0f), 0);
    ExpectEmbers(-3.0f, 7.0f);
    EXPECT_EQ(SurfaceColor(plotter, 20), (Color{1, 1, 1}));
    EXPECT_EQ(SurfaceColor(plotter, 30), (Color{0, 0, 0}));
}

TEST_P(ColorMap, HolesStay) {
    plotter.ShowFrameLines(false);
    const int whole = CountInk(plot.SurfaceImage());
    for (const std::size_t i : {20u, 21u, 22u, 31u})
        surface.points[3 * i + 2] = noNumber;
    Load();
    const int withHole = CountInk(plot.SurfaceImage());
    ASSERT_LT(withHole, whole);
    ASSERT_EQ(SetColorRange(plotter, 2, -1.0f, 2.0f), 0);
    EXPECT_EQ(CountInk(plot.SurfaceImage()), withHole);
    for (const char* name : {"viridis", "turbo"}) { // of which no colour is white
        ASSERT_EQ(SetColorMap(plotter, 2, name), 0);
        EXPECT_EQ(CountInk(plot.SurfaceImage()), withHole);
    }
    for (std::size_t i = 0; i < 4 * std::size_t{plotter.m_vertexCount}; ++i)
        EXPECT_TRUE(plotter.m_colorArray[i] >= 0.0f && plotter.m_colorArray[i] <= 1.0f) << i;
}

TEST_P(ColorMap, TheLegendsNumbersAreThoseOfTheRange) {
    const CKivoGradientColorRuler* const rulers[] = {plotter.m_xColorRuler, plotter.m_yColorRuler,
                                                     plotter.m_zColorRuler};
    plotter.SetGradientColorRuleFloatingPointPrecision(1);
    for (int axis = 0; axis < 3; ++axis) {
        const std::vector<std::string> ofData = Labels(*rulers[axis]);
        ASSERT_EQ(SetColorRange(plotter, axis, -5.0f, 5.0f), 0);
        EXPECT_THAT(Labels(*rulers[axis]), testing::ElementsAre("-5.0", "-4.0", "-3.0", "-2.0", "-1.0", "0.0",
                                                                "1.0", "2.0", "3.0", "4.0", "5.0"));
        { // the images show them
            const CurrentContext context(plotter);
            for (unsigned int i = 0; i <= 10; ++i) {
                SKivoTexImage expected;
                CreateTextImage(plotter.m_textRenderer, rulers[axis]->LabelText(i).c_str(), &expected);
                const SKivoTexImage& label = rulers[axis]->m_labels[i];
                ASSERT_EQ(label.width, expected.width) << i;
                EXPECT_NE(label.texture, 0u);
                EXPECT_EQ(std::memcmp(label.pixels, expected.pixels,
                                      static_cast<std::size_t>(label.width) * label.height * 4),
                          0);
                PlotterProbe::ReleaseTex(&expected);
            }
        }
        ASSERT_EQ(SetColorRange(plotter, axis, 1.0f, 1.0f), 0);
        EXPECT_EQ(Labels(*rulers[axis]), ofData);
    }
}

// ---- What stays

// A plot that got everything after its data, and others that got it at another time.
TEST_P(ColorMap, SettingsCountWheneverTheyAreMade) {
    const auto set = [](PlotterProbe& p) {
        EXPECT_EQ(SetColorMap(p, 2, "viridis"), 0);
        EXPECT_EQ(SetColorMap(p, 0, embers, 4), 0);
        EXPECT_EQ(SetColorRange(p, 2, -1.0f, 3.0f), 0);
    };
    const auto pictures = [&](PlotterProbe& p) {
        std::vector<Image> images = {CaptureImage(p)};
        p.SwitchToYZProjectPlot();
        images.push_back(CaptureImage(p));
        return images;
    };
    set(plotter);
    const std::vector<Image> expected = pictures(plotter);

    const TestWindow window(GetParam(), width, height);
    PlotterProbe other;
    set(other); // before there is a window
    for (int i = 0; i < 2; ++i) {
        ASSERT_EQ(other.OnCreate(window.Handle(), width, height, true), 0);
        other.SetDataReference(surface.points.data(), surface.columns, surface.rows, 1, surface.columns, 3);
        const std::vector<Image> images = pictures(other);
        EXPECT_TRUE(images[0].rgba == expected[0].rgba);
        EXPECT_TRUE(images[1].rgba == expected[1].rgba);
        other.OnDestroy();
        if (i == 0) { // made without a window, where there was one before
            EXPECT_EQ(SetColorMap(other, 2, nullptr, 0), 0);
            EXPECT_EQ(SetColorRange(other, 2, 0.0f, 0.0f), 0);
            set(other);
        }
    }
}

TEST_P(ColorMap, ScaledAndSmoothPicturesHaveTheColours) {
    ASSERT_EQ(SetColorMap(plotter, 2, embers, 4), 0);
    ASSERT_EQ(SetColorRange(plotter, 2, -2.0f, 4.0f), 0);
    const auto expectBar = [&](const std::vector<unsigned char>& rgba, int w, int h) {
        for (const double share : {0.1, 0.5, 0.9}) {
            const int row = h - 1 - static_cast<int>((0.14 + 0.8 * share) * h);
            const int column = static_cast<int>(0.16 * 0.16 * w);
            const unsigned char* const pixel = &rgba[4 * (static_cast<std::size_t>(row) * w + column)];
            const Color color = Ember(share);
            EXPECT_NEAR(pixel[0], 255 * color.r, 4) << share;
            EXPECT_NEAR(pixel[1], 255 * color.g, 4) << share;
            EXPECT_NEAR(pixel[2], 255 * color.b, 4) << share;
        }
    };
    SKivoPictureOptions options;
    options.smoothing = 2;
    for (const float scale : {1.0f, 2.0f}) {
        options.scale = scale;
        std::vector<unsigned char> rgba;
        int w = 0, h = 0;
        ASSERT_EQ(CapturePicture(plotter, options, rgba, w, h), 0);
        expectBar(rgba, w, h);
    }
    SKivoStyle style;
    style.pixelScale = 1.5f;
    ASSERT_EQ(SetStyle(plotter, style), 0);
    const Image image = CaptureImage(plotter);
    expectBar(image.rgba, image.width, image.height);
    EXPECT_EQ(plotter.m_zColorRuler->LabelText(0), "-2.000");
}

// ---- Refusals

TEST_P(ColorMap, WhatIsNoTableChangesNothing) {
    ASSERT_EQ(SetColorMap(plotter, 2, "viridis"), 0);
    ASSERT_EQ(SetColorRange(plotter, 2, 0.0f, 1.0f), 0);
    const Image before = CaptureImage(plotter);
    for (const int axis : {-1, 3, 2147483647, -2147483647}) {
        EXPECT_EQ(SetColorMap(plotter, axis, embers, 4), -3);
        EXPECT_EQ(SetColorMap(plotter, axis, embers, 0), -3);
        EXPECT_EQ(SetColorMap(plotter, axis, "grey"), -3);
        EXPECT_EQ(SetColorRange(plotter, axis, 0.0f, 2.0f), -3);
    }
    // Of such counts nothing is read.
    for (const unsigned int count : {1u, 65537u, 0x40000000u, 0x40000001u, 0xFFFFFFFFu})
        EXPECT_EQ(SetColorMap(plotter, 2, embers, count), -3) << count;
    EXPECT_EQ(SetColorMap(plotter, 2, nullptr, 4), -3);
    EXPECT_EQ(SetColorMap(plotter, 2, nullptr), -3);
    for (const char* name : {"", "Grey", "gray", "viridis ", "\xFF"})
        EXPECT_EQ(SetColorMap(plotter, 2, name), -3) << name;
    for (const float channel : {noNumber, infinity, -infinity, -1e-6f, 1.001f, 255.0f})
        for (std::size_t i = 0; i < 16; ++i) {
            std::vector<float> rgba(embers, embers + 16);
            rgba[i] = channel;
            EXPECT_EQ(SetColorMap(plotter, 2, rgba.data(), 4), -3) << channel;
        }
    EXPECT_TRUE(CaptureImage(plotter).rgba == before.rgba);
}

TEST_P(ColorMap, WhatIsNoRangeChangesNothing) {
    ASSERT_EQ(SetColorRange(plotter, 2, -1.0f, 1.0f), 0);
    const Image before = CaptureImage(plotter);
    for (const float bad : {noNumber, infinity, -infinity})
        for (const auto& [min, max] : {std::pair{bad, 1.0f}, {1.0f, bad}, {bad, bad}})
            EXPECT_EQ(SetColorRange(plotter, 2, min, max), -3) << min << " to " << max;
    EXPECT_EQ(SetColorRange(plotter, 2, -3e38f, 3e38f), -3) << "no float has this width";
    EXPECT_TRUE(CaptureImage(plotter).rgba == before.rgba);
    // Narrow and wide ones are ranges.
    for (const auto& [min, max] :
         {std::pair{0.0f, 1e-45f}, {-1e38f, 1e38f}, {1.0f, std::nextafter(1.0f, 2.0f)}}) {
        EXPECT_EQ(SetColorRange(plotter, 2, min, max), 0);
        EXPECT_EQ(plotter.Renderscene(), 0);
    }
}

// Data that have no range, or none in single precision.
TEST_P(ColorMap, DataWithoutARangeHaveColours) {
    ASSERT_EQ(SetColorMap(plotter, 2, embers, 4), 0);
    surface = ConstantSurface(9, 6);
    Load();
    EXPECT_EQ(SurfaceColor(plotter, 5), (Color{0, 0, 0}));
    EXPECT_EQ(plotter.Renderscene(), 0);
    for (const auto& [one, other] : {std::pair{-3e38f, 3e38f}, {0.0f, infinity}, {noNumber, noNumber}}) {
        for (std::size_t i = 0; i < plotter.m_vertexCount; ++i)
            surface.points[3 * i + 2] = i % 2 == 0 ? one : other;
        Load();
        for (std::size_t i = 0; i < 4 * std::size_t{plotter.m_vertexCount}; ++i)
            EXPECT_TRUE(plotter.m_colorArray[i] >= 0.0f && plotter.m_colorArray[i] <= 1.0f) << i;
        EXPECT_EQ(plotter.Renderscene(), 0);
    }
}

KIVO_IN_ONE_WINDOW(ColorMap);
