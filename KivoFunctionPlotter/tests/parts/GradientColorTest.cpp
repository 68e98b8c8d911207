// The gradient map and the plotter's eighteen setters of gradient colours.
#include "computing/ColorSpace.h"
#include "parts/KivoGradientColor.h"
#include "parts/KivoGradientColorRuler.h"
#include "support/TestSurfaces.h"
#include "support/TestWindow.h"

#include <cmath>
#include <functional>
#include <string>
#include <vector>

using namespace KivoDrawingTools;

namespace {

const float red[] = {1, 0, 0, 0.25f};
const float green[] = {0, 1, 0, 0.5f};
const float orange[] = {1, 0.553f, 0.1f, 0.75f}; // its hue is no whole degree

struct Hsv {
    float h, s, v, alpha;
};

Hsv Start(const CKivoGradientColor& g) {
    return {g.m_startHue, g.m_startSaturation, g.m_startValue, g.m_startAlpha};
}

Hsv End(const CKivoGradientColor& g) {
    return {g.m_endHue, g.m_endSaturation, g.m_endValue, g.m_endAlpha};
}

Hsv Encoded(const float* rgba) {
    Hsv hsv = {0, 0, 0, rgba[3]};
    RgbToHsv(rgba[0], rgba[1], rgba[2], &hsv.h, &hsv.s, &hsv.v);
    return hsv;
}

Hsv Reencoded(Hsv hsv) {
    float rgba[] = {0, 0, 0, hsv.alpha};
    HsvToRgb(hsv.h, hsv.s, hsv.v, &rgba[0], &rgba[1], &rgba[2]);
    return Encoded(rgba);
}

bool operator==(const Hsv& a, const Hsv& b) {
    return a.h == b.h && a.s == b.s && a.v == b.v && a.alpha == b.alpha;
}

std::ostream& operator<<(std::ostream& out, const Hsv& hsv) {
    return out << hsv.h << ' ' << hsv.s << ' ' << hsv.v << ' ' << hsv.alpha;
}

} // namespace

TEST(GradientColor, RunsFromBlueToRedAtFirst) {
    const CKivoGradientColor gradient;
    EXPECT_EQ(gradient.m_min, 0.0f);
    EXPECT_EQ(gradient.m_max, 0.0f);
    EXPECT_EQ(gradient.m_range, 0.0f);
    EXPECT_EQ(Start(gradient), (Hsv{2.0f / 3.0f, 1, 1, 1}));
    EXPECT_EQ(End(gradient), (Hsv{0, 1, 1, 1}));
}

TEST(GradientColor, SetColorsEncodesBothAndKeepsTheRange) {
    CKivoGradientColor gradient;
    gradient.SetRange(-2, 6);
    gradient.SetColors(orange, green);
    EXPECT_EQ(Start(gradient), Encoded(orange));
    EXPECT_EQ(End(gradient), Encoded(green));
    EXPECT_EQ(gradient.m_min, -2.0f);
    EXPECT_EQ(gradient.m_max, 6.0f);
    EXPECT_EQ(gradient.m_range, 8.0f);
}

TEST(GradientColor, InterpolatesTheHueAsAPlainNumber) {
    CKivoGradientColor gradient;
    gradient.SetRange(10, 20);
    for (int degree = 0; degree < 240; degree += 3) {
        const double t = 1.0 - (degree + 0.5) / 240.0; // the middle of a whole degree
        float rgb[3];
        gradient.Evaluate(static_cast<float>(10.0 + 10.0 * t), rgb);
        // Full saturation: red falls from 1 to 0 between 60 and 120 degrees, and so on.
        const double sextant = degree / 60.0;
        const double expected[] = {std::fmin(1, std::fmax(0, 2 - sextant)),
                                   std::fmin(1, std::fmax(0, std::fmin(sextant, 4 - sextant))),
                                   std::fmin(1, std::fmax(0, sextant - 2))};
        for (int i = 0; i < 3; ++i)
            EXPECT_NEAR(rgb[i], expected[i], 1e-5) << degree;
    }
}

TEST(GradientColor, InterpolatesSaturationAndValue) {
    CKivoGradientColor gradient;
    const float dark[] = {0.2f, 0, 0, 1}, pale[] = {1, 0.5f, 0.5f, 1};
    gradient.SetColors(dark, pale);
    gradient.SetRange(0, 1);
    float rgb[3];
    gradient.Evaluate(0.25f, rgb); // saturation 0.875, value 0.4
    EXPECT_NEAR(rgb[0], 0.4, 1e-6);
    EXPECT_NEAR(rgb[1], 0.4 * 0.125, 1e-6);
    EXPECT_NEAR(rgb[2], 0.4 * 0.125, 1e-6);
}

// Of full and of little saturation, bright and dark: no part of the end that stays may take another's place.
TEST(GradientColor, SettingOneEndKeepsTheColourOfTheOther) {
    const float colors[][4] = {{1, 0.553f, 0.1f, 0.75f},
                               {0.25f, 0.05f, 0.1f, 1},
                               {0.9f, 0.95f, 1, 0.5f},
                               {0.5f, 0.5f, 0.5f, 1},
                               {0.2f, 0.2f, 0.2f, 0.1f},
                               {1, 1, 1, 1},
                               {0, 0, 0, 1}};
    for (const auto& kept : colors)
        for (const bool isStartKept : {true, false}) {
            SCOPED_TRACE(testing::PrintToString(kept) + (isStartKept ? " at the start" : " at the end"));
            CKivoGradientColor gradient;
            gradient.SetColors(isStartKept ? kept : red, isStartKept ? red : kept);
            gradient.SetRange(2, 3);
            isStartKept ? gradient.SetEndColor(green) : gradient.SetStartColor(green);
            EXPECT_EQ(isStartKept ? Start(gradient) : End(gradient), Reencoded(Encoded(kept)));
            EXPECT_EQ(isStartKept ? End(gradient) : Start(gradient), Encoded(green));
            float rgb[3];
            gradient.Evaluate(isStartKept ? 2.0f : 3.0f, rgb);
            for (int i = 0; i < 3; ++i)
                EXPECT_NEAR(rgb[i], kept[i], 2.0 / 60.0) << i; // its hue snaps to a whole degree, twice
        }
}

TEST(GradientColor, WithoutARangeEveryValueHasTheStartColour) {
    CKivoGradientColor gradient;
    for (const float value : {-1e30f, 0.0f, 17.0f}) {
        float rgb[3];
        gradient.Evaluate(value, rgb);
        EXPECT_EQ((std::vector<float>(rgb, rgb + 3)), (std::vector<float>{0, 0, 1}));
    }
}

TEST(GradientColor, ExtrapolatesPastTheRange) {
    CKivoGradientColor gradient;
    gradient.SetRange(0, 240);
    float rgb[3];
    gradient.Evaluate(-59.5f, rgb); // 299.5 degrees, which is magenta
    EXPECT_NEAR(rgb[0], 59.0 / 60.0, 1e-5);
    EXPECT_NEAR(rgb[1], 0.0, 1e-5);
    EXPECT_NEAR(rgb[2], 1.0, 1e-5);
}

namespace {

using Change = std::function<void(PlotterProbe&)>;

struct Setter {
    std::string name;
    Change change;
    bool x, y, z;      // the gradients it changes
    bool changesStart; // ends without a change are re-encoded
    bool changesEnd;
    bool isPacked = false; // its colours come as packed numbers, opaque
};

constexpr unsigned long packedOrange = 0x001A8CFF;
const float unpackedOrange[] = {255 / 255.0f, 140 / 255.0f, 26 / 255.0f, 1};
constexpr unsigned long packedGreen = 0x0000FF00;
const float unpackedGreen[] = {0, 1, 0, 1};

std::vector<Setter> AllSetters() {
    using P = PlotterProbe;
    return {
        {"all", [](P& p) { p.SetGradientColor(orange, green); }, true, true, true, true, true},
        {"all start", [](P& p) { p.SetGradientStartColor(orange); }, true, true, true, true, false},
        {"all end", [](P& p) { p.SetGradientEndColor(green); }, true, true, true, false, true},
        {"X", [](P& p) { p.SetXGradientColor(orange, green); }, true, false, false, true, true},
        {"X start", [](P& p) { p.SetXGradientStartColor(orange); }, true, false, false, true, false},
        {"X end", [](P& p) { p.SetXGradientEndColor(green); }, true, false, false, false, true},
        {"Y", [](P& p) { p.SetYGradientColor(orange, green); }, false, true, false, true, true},
        {"Y start", [](P& p) { p.SetYGradientStartColor(orange); }, false, true, false, true, false},
        {"Y end", [](P& p) { p.SetYGradientEndColor(green); }, false, true, false, false, true},
        {"Z", [](P& p) { p.SetZGradientColor(orange, green); }, false, false, true, true, true},
        {"Z start", [](P& p) { p.SetZGradientStartColor(orange); }, false, false, true, true, false},
        {"Z end", [](P& p) { p.SetZGradientEndColor(green); }, false, false, true, false, true},
    };
}

std::vector<Setter> AllPackedSetters() {
    using P = PlotterProbe;
    constexpr unsigned long o = packedOrange, g = packedGreen;
    return {
        {"all", [=](P& p) { p.SetGradientColor(o, g); }, true, true, true, true, true, true},
        {"all start", [=](P& p) { p.SetGradientStartColor(o); }, true, true, true, true, false, true},
        {"all end", [=](P& p) { p.SetGradientEndColor(g); }, true, true, true, false, true, true},
        {"X", [=](P& p) { p.SetXGradientColor(o, g); }, true, false, false, true, true, true},
        {"X start", [=](P& p) { p.SetXGradientStartColor(o); }, true, false, false, true, false, true},
        {"X end", [=](P& p) { p.SetXGradientEndColor(g); }, true, false, false, false, true, true},
        {"Y", [=](P& p) { p.SetYGradientColor(o, g); }, false, true, false, true, true, true},
        {"Y start", [=](P& p) { p.SetYGradientStartColor(o); }, false, true, false, true, false, true},
        {"Y end", [=](P& p) { p.SetYGradientEndColor(g); }, false, true, false, false, true, true},
        {"Z", [=](P& p) { p.SetZGradientColor(o, g); }, false, false, true, true, true, true},
        {"Z start", [=](P& p) { p.SetZGradientStartColor(o); }, false, false, true, true, false, true},
        {"Z end", [=](P& p) { p.SetZGradientEndColor(g); }, false, false, true, false, true, true},
    };
}

std::vector<Setter> EverySetter() {
    std::vector<Setter> setters = AllSetters();
    for (const Setter& setter : AllPackedSetters())
        setters.push_back(setter);
    return setters;
}

struct Axis {
    CKivoGradientColor* gradient;
    CKivoGradientColorRuler* ruler;
    bool isChanged;
};

std::vector<Axis> Axes(const PlotterProbe& plotter, const Setter& setter) {
    return {{plotter.m_xGradientColor, plotter.m_xColorRuler, setter.x},
            {plotter.m_yGradientColor, plotter.m_yColorRuler, setter.y},
            {plotter.m_zGradientColor, plotter.m_zColorRuler, setter.z}};
}

std::vector<float> SurfaceColors(const PlotterProbe& plotter) {
    return {plotter.m_colorArray, plotter.m_colorArray + std::size_t{plotter.m_vertexCount} * 4};
}

void ExpectColorNear(const float* actual, const float* expected) {
    for (int i = 0; i < 3; ++i)
        EXPECT_NEAR(actual[i], expected[i], 1.0 / 60.0 + 1e-5); // the hue snaps to a whole degree
}

class GradientSetters : public WindowTest {
protected:
    GradientSetters() {
        // Before: from a red to an orange, so that re-encoding shows.
        plot.plotter.SetData(surface.NewArray(), surface.columns, surface.rows, 1, surface.columns, 3);
        plot.plotter.SetGradientColor(red, orange);
    }

    TestSurface surface = HillSurface(12, 9);
    TestPlot plot{GetParam(), 320, 240};
};

} // namespace

TEST_P(GradientSetters, ChangeTheirGradientsAndRulersOnly) {
    for (const Setter& setter : EverySetter()) {
        SCOPED_TRACE(setter.name + (setter.isPacked ? ", packed" : ""));
        plot.plotter.SetGradientColor(red, orange);
        setter.change(plot.plotter);
        plot.plotter.EndGLOperation();
        const float* start = setter.isPacked ? unpackedOrange : orange;
        const float* end = setter.isPacked ? unpackedGreen : green;
        for (const Axis& axis : Axes(plot.plotter, setter)) {
            const Hsv keptStart = axis.isChanged ? Reencoded(Encoded(red)) : Encoded(red);
            const Hsv keptEnd = axis.isChanged ? Reencoded(Encoded(orange)) : Encoded(orange);
            const bool isNewStart = axis.isChanged && setter.changesStart;
            const bool isNewEnd = axis.isChanged && setter.changesEnd;
            EXPECT_EQ(Start(*axis.gradient), isNewStart ? Encoded(start) : keptStart);
            EXPECT_EQ(End(*axis.gradient), isNewEnd ? Encoded(end) : keptEnd);
            ExpectColorNear(axis.ruler->m_colors[0], isNewStart ? start : red);
            ExpectColorNear(axis.ruler->m_colors[4], isNewEnd ? end : orange);
            EXPECT_EQ(axis.ruler->m_colors[2][3], 1.0f);
        }
    }
}

TEST_P(GradientSetters, OnlyThoseOfZColourTheSurfaceAnew) {
    for (const Setter& setter : EverySetter()) {
        SCOPED_TRACE(setter.name + (setter.isPacked ? ", packed" : ""));
        plot.plotter.SetGradientColor(red, orange);
        const std::vector<float> before = SurfaceColors(plot.plotter);
        setter.change(plot.plotter);
        plot.plotter.EndGLOperation();
        EXPECT_EQ(SurfaceColors(plot.plotter) != before, setter.z);
    }
}

TEST_P(GradientSetters, ThoseOfXAndYAloneLeaveTheContextCurrent) {
    for (const Setter& setter : EverySetter()) {
        SCOPED_TRACE(setter.name + (setter.isPacked ? ", packed" : ""));
        const bool isFlatPlotOnly = !setter.z;
        ASSERT_EQ(wglGetCurrentContext(), nullptr);
        setter.change(plot.plotter);
        EXPECT_EQ(wglGetCurrentContext(), isFlatPlotOnly ? plot.plotter.m_hGLRC : nullptr);
        plot.plotter.EndGLOperation();
    }
}

// Each replacement sends the other end through whole degrees: red stays, an odd hue drifts once.
TEST_P(GradientSetters, ReplacingOneEndReencodesTheOther) {
    PlotterProbe& plotter = plot.plotter;
    const float before = plotter.m_zGradientColor->m_endHue;
    plotter.SetZGradientStartColor(green);
    EXPECT_NE(plotter.m_zGradientColor->m_endHue, before);
    EXPECT_NEAR(plotter.m_zGradientColor->m_endHue, before, 1.0 / 360.0);
    EXPECT_EQ(plotter.m_zGradientColor->m_endAlpha, orange[3]);
}

TEST_P(GradientSetters, PackedRedStoresItsHue) {
    plot.plotter.SetGradientStartColor(0x000000FFul);
    for (const CKivoGradientColor* gradient :
         {plot.plotter.m_xGradientColor, plot.plotter.m_yGradientColor, plot.plotter.m_zGradientColor})
        EXPECT_EQ(Start(*gradient), (Hsv{0, 1, 1, 1}));
}

TEST_P(GradientSetters, AGreyStartHasNeitherHueNorSaturation) {
    plot.plotter.SetZGradientStartColor(0x00808080ul);
    EXPECT_EQ(plot.plotter.m_zGradientColor->m_startHue, 0.0f);
    EXPECT_EQ(plot.plotter.m_zGradientColor->m_startSaturation, 0.0f);
}

KIVO_IN_ONE_WINDOW(GradientSetters);

TEST(GradientSettersWithoutWindow, StoreTheColours) {
    PlotterProbe plotter;
    for (const Setter& setter : EverySetter())
        setter.change(plotter);
    EXPECT_EQ(End(*plotter.m_xGradientColor).h, Encoded(green).h);
    EXPECT_EQ(plotter.m_colorArray, nullptr);
}
