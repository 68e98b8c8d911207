// Absolute numbers and a host's own words: at ticks, in legends and read-outs, whatever happens meanwhile.
#include "KivoAxis.h"
#include "KivoPicture.h"
#include "KivoStyle.h"
#include "parts/KivoGradientColorRuler.h"
#include "parts/KivoGridBox.h"
#include "parts/TextRenderer.h"
#include "support/Drawing.h"
#include "support/Image.h"
#include "support/PublicMembers.h"
#include "support/TestWindow.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <iterator>
#include <limits>
#include <memory>
#include <new>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

using namespace KivoDrawingTools;

namespace {

using Texts = std::vector<std::string>;

// Half a unit of a number's last digit.
double HalfDigit(const std::string& number) {
    const std::size_t point = number.find('.');
    const double digits = point == std::string::npos ? 0.0 : static_cast<double>(number.size() - point - 1);
    return 0.5 * std::pow(10.0, -digits);
}

double Number(const std::string& text) {
    char* end = nullptr;
    const double number = std::strtod(text.c_str(), &end);
    EXPECT_TRUE(!text.empty() && *end == 0) << text;
    return number;
}

class AxisNumbersInWindow : public WindowTest {
protected:
    AxisNumbersInWindow() { SetSpan(0.0f, 100.0f); }

    // A saddle; each coordinate runs from first to last.
    void SetSpan(float first, float last) {
        const float middle = first + (last - first) * 0.4f;
        const float points[] = {first, first, first,  last, first, middle,
                                first, last,  middle, last, last,  last};
        float* owned = new float[12];
        std::copy(points, points + 12, owned);
        plotter.SetData(owned, 2, 2, 1, 2, 3);
    }

    void SetOrigins(double origin) {
        for (int axis = 0; axis < 3; ++axis)
            EXPECT_EQ(SetAxisOrigin(plotter, axis, origin), 0);
    }

    const CKivoGridBox& Box() const { return *plotter.m_gridBox; }
    const CKivoGradientColorRuler& Ruler(int axis) const {
        const CKivoGradientColorRuler* const rulers[] = {plotter.m_xColorRuler, plotter.m_yColorRuler,
                                                         plotter.m_zColorRuler};
        return *rulers[axis];
    }
    Texts Labels(int axis) const {
        Texts labels;
        for (unsigned int i = 0; i <= Box().m_tickIntervals[axis]; ++i)
            labels.push_back(Box().LabelText(axis, i));
        return labels;
    }
    Texts LegendLabels(int axis) const {
        Texts labels;
        for (unsigned int i = 0; i <= Ruler(axis).m_divisionCount; ++i)
            labels.push_back(Ruler(axis).LabelText(i));
        return labels;
    }
    // In units of the data.
    double TickPlace(int axis, unsigned int tick) const {
        return static_cast<double>(Box().m_boxMin[axis]) +
               static_cast<double>(Box().m_tickPositions[axis][tick]);
    }

    // Each label is the image of its text.
    void ExpectImages(const SKivoTexImage* images, const Texts& texts) {
        ASSERT_NE(images, nullptr);
        const CurrentContext context(plotter);
        for (std::size_t i = 0; i < texts.size(); ++i) {
            if (texts[i].empty()) {
                EXPECT_EQ(images[i].pixels, nullptr);
                continue;
            }
            SKivoTexImage expected;
            CreateTextImage(plotter.m_textRenderer, texts[i].c_str(), &expected);
            ASSERT_NE(images[i].pixels, nullptr) << texts[i];
            ASSERT_EQ(images[i].width, expected.width) << texts[i];
            ASSERT_EQ(images[i].height, expected.height) << texts[i];
            EXPECT_EQ(std::memcmp(images[i].pixels, expected.pixels,
                                  static_cast<std::size_t>(expected.width) * expected.height * 4),
                      0)
                << texts[i];
            EXPECT_TRUE(glIsTexture(images[i].texture)) << texts[i];
            ReleaseTextImage(&expected);
        }
    }
    void ExpectImagesOfAllLabels() {
        for (int axis = 0; axis < 3; ++axis) {
            ExpectImages(Box().m_tickLabels[axis], Labels(axis));
            ExpectImages(Ruler(axis).m_labels, LegendLabels(axis));
        }
    }

    TestPlot plot{GetParam(), 400, 300};
    PlotterProbe& plotter = plot.plotter;
};

void ExpectNumbersInOrder(const Texts& labels) {
    for (std::size_t i = 1; i < labels.size(); ++i)
        EXPECT_LT(Number(labels[i - 1]), Number(labels[i]));
}

} // namespace

// ---- Origins

TEST_P(AxisNumbersInWindow, LabelsSayAbsoluteNumbers) {
    for (const double origin : {0.0, 1.0, -1.0, 1e6, 1e9, 2451545.0, 5630000.25}) {
        for (const float span : {1e-3f, 0.25f, 7.0f, 1000.0f, 1e6f}) {
            SCOPED_TRACE(testing::Message() << origin << " and " << span);
            SetSpan(-0.3f * span, 0.7f * span);
            SetOrigins(origin);
            for (int axis = 0; axis < 3; ++axis) {
                const Texts labels = Labels(axis);
                char written[40]; // the step as a decimal, of which it is the rounding
                std::snprintf(written, sizeof(written), "%.5e", static_cast<double>(Box().m_tickStep[axis]));
                const double step = std::strtod(written, nullptr);
                ASSERT_GE(labels.size(), 3u);
                ExpectNumbersInOrder(labels);
                for (unsigned int i = 0; i < labels.size(); ++i) {
                    const double place = origin + TickPlace(axis, i);
                    EXPECT_NEAR(Number(labels[i]), place, HalfDigit(labels[i]) + 2e-3 * step);
                    if (origin == 0.0) continue; // the plot's own ticks
                    const double steps = Number(labels[i]) / step;
                    EXPECT_NEAR(steps, std::round(steps), std::abs(steps) * 4e-16 + 1e-9) << labels[i];
                }
                if (origin != 0.0) ExpectNumbersInOrder(LegendLabels(axis));
            }
        }
    }
    ExpectImagesOfAllLabels();
}

TEST_P(AxisNumbersInWindow, LabelsHaveTheDigitsThatTheyNeed) {
    SetSpan(0.0f, 1000.0f);
    SetOrigins(5630000.0);
    EXPECT_EQ(Labels(0), (Texts{"5630000", "5630200", "5630400", "5630600", "5630800", "5631000"}));
    SetSpan(0.0f, 1.0f);
    EXPECT_EQ(Labels(1),
              (Texts{"5630000.0", "5630000.2", "5630000.4", "5630000.6", "5630000.8", "5630001.0"}));
    SetOrigins(101325.0);
    SetSpan(0.0f, 0.04f);
    EXPECT_EQ(Labels(2).front(), "101325.000");
    EXPECT_EQ(Labels(2)[1], "101325.005");
    EXPECT_EQ(LegendLabels(2)[3], "101325.0120");
}

// Ticks stand where their numbers are, in every kind of plot.
TEST_P(AxisNumbersInWindow, TicksOnTheScreenFitTheirNumbers) {
    constexpr double origin = 5630000.3;
    SetOrigins(origin);
    struct FlatPlot {
        int (CKivoFunctionPlotter::*show)();
        int horizontal;
    };
    const FlatPlot flatPlots[] = {{&CKivoFunctionPlotter::SwitchToXYProjectPlot, 0},
                                  {&CKivoFunctionPlotter::SwitchToYZProjectPlot, 1},
                                  {&CKivoFunctionPlotter::SwitchToZXProjectPlot, 0}};
    for (const bool isReversed : {false, true})
        for (const bool isInverse : {false, true})
            for (const FlatPlot& flat : flatPlots) {
                SCOPED_TRACE(testing::Message() << flat.horizontal << isReversed << isInverse);
                plotter.SetInverseXAxis(false), plotter.SetInverseYAxis(false);
                SetSpan(0.0f, 100.0f);
                plotter.SwitchToNormalPlot();
                plotter.AutoAdjustAxisLengthRatio();
                if (isReversed) {
                    plotter.SetXAxisMin(119.7f), plotter.SetXAxisMax(-0.3f);
                    plotter.SetYAxisMin(119.7f), plotter.SetYAxisMax(-0.3f);
                    plotter.AutoAdjustAxisLengthRatio();
                }
                std::invoke(flat.show, plotter);
                plotter.SetInverseXAxis(isInverse), plotter.SetInverseYAxis(isInverse);
                const int axis = flat.horizontal;
                std::vector<double> ticks, expected;
                const CurrentContext context(plotter);
                const Drawing drawing = Record([&] { plotter.DrawScene(); });
                for (const DrawnPrimitive& line : LinesOfColor(drawing, {0, 0, 0}))
                    if (std::abs(line[0].x - line[1].x) < 1e-3 && std::abs(line[0].y - line[1].y) > 1.0)
                        ticks.push_back(line[0].x);
                for (const std::string& label : Labels(axis)) {
                    float place[3] = {Box().m_boxMin[0], Box().m_boxMin[1], Box().m_boxMin[2]};
                    place[axis] = static_cast<float>(Number(label) - origin);
                    float onScreen[3];
                    plotter.Project(place[0], place[1], place[2], onScreen);
                    expected.push_back(static_cast<double>(onScreen[0]));
                }
                std::sort(ticks.begin(), ticks.end());
                std::sort(expected.begin(), expected.end());
                EXPECT_THAT(ticks, testing::Pointwise(testing::DoubleNear(0.05), expected));
            }
}

TEST_P(AxisNumbersInWindow, SettersSpeakOfTheData) {
    SetOrigins(1e6);
    EXPECT_EQ(plotter.SetXAxisMin(-0.5f), 0);
    EXPECT_EQ(plotter.SetXAxisMax(0.25f), 0);
    EXPECT_EQ(plotter.SetXAxisTickMarkNumber(4), 0);
    EXPECT_EQ(plotter.GetXAxisMin(), -0.5f);
    EXPECT_EQ(plotter.GetXAxisMax(), 0.25f);
    EXPECT_EQ(Labels(0), (Texts{"999999.5", "999999.8", "1000000.0", "1000000.2"}));
    EXPECT_EQ(plotter.SetXAxisFloatingPointPrecision(2), 0);
    EXPECT_EQ(Labels(0), (Texts{"999999.50", "999999.75", "1000000.00", "1000000.25"}));
    EXPECT_EQ(plotter.SetXAxisMin(0.25f), 0);
    EXPECT_EQ(plotter.SetXAxisMax(-0.5f), 0);
    EXPECT_EQ(Labels(0), (Texts{"1000000.25", "1000000.00", "999999.75", "999999.50"}));
    ExpectImagesOfAllLabels();
}

TEST_P(AxisNumbersInWindow, AnOriginConcernsItsAxisAlone) {
    const Texts x = Labels(0), y = Labels(1), z = Labels(2), legend = LegendLabels(2);
    EXPECT_EQ(SetAxisOrigin(plotter, 1, 5000.0), 0);
    EXPECT_EQ(Labels(0), x);
    EXPECT_NE(Labels(1), y);
    EXPECT_EQ(Labels(2), z);
    EXPECT_EQ(LegendLabels(2), legend);
    EXPECT_EQ(LegendLabels(1).front(), "5000.000");
    EXPECT_EQ(LegendLabels(1).back(), "5100.000");
    for (const int axis : {0, 1, 2})
        EXPECT_EQ(GetAxisOrigin(plotter, axis), axis == 1 ? 5000.0 : 0.0);
}

TEST_P(AxisNumbersInWindow, BackAtTheStartThePlotIsAsItWas) {
    plotter.OnDraw(); // data set after a frame place the lights by its matrix
    SetSpan(0.0f, 100.0f);
    const Image before = CaptureImage(plotter);
    const Texts labels = Labels(0), legend = LegendLabels(2);
    SetOrigins(77.0);
    EXPECT_EQ(SetAxisLabelFormat(plotter, 2, [](double, double) { return "word"; }), 0);
    EXPECT_FALSE(CaptureImage(plotter).rgba == before.rgba);
    SetOrigins(0.0);
    EXPECT_EQ(SetAxisLabelFormat(plotter, 2, nullptr), 0);
    EXPECT_TRUE(CaptureImage(plotter).rgba == before.rgba);
    EXPECT_EQ(Labels(0), labels);
    EXPECT_EQ(LegendLabels(2), legend);
    EXPECT_EQ(Box().m_numbers[0], nullptr);
}

TEST_P(AxisNumbersInWindow, SettingsStay) {
    SetOrigins(1e6);
    EXPECT_EQ(SetAxisLabelFormat(plotter, 1, [](double, double) { return "word"; }), 0);
    const Texts x = Labels(0), legend = LegendLabels(2);
    SetSpan(0.0f, 3.0f);
    EXPECT_NE(Labels(0), x);
    EXPECT_EQ(plotter.OnDestroy(), 0);
    EXPECT_EQ(plotter.OnCreate(plot.window.Handle(), 400, 300, true), 0);
    SetSpan(0.0f, 100.0f);
    EXPECT_EQ(Labels(0), x);
    EXPECT_EQ(LegendLabels(2), legend);
    EXPECT_THAT(Labels(1), testing::Each("word"));
    EXPECT_THAT(LegendLabels(1), testing::Each("word"));
    EXPECT_EQ(GetAxisOrigin(plotter, 0), 1e6);
    ExpectImagesOfAllLabels();
}

TEST_P(AxisNumbersInWindow, BadInputChangesNothing) {
    SetOrigins(1e6);
    const Texts x = Labels(0), z = Labels(2);
    const float* const positions = Box().m_tickPositions[0];
    const double infinity = std::numeric_limits<double>::infinity();
    for (const double origin : {infinity, -infinity, std::numeric_limits<double>::quiet_NaN()})
        EXPECT_EQ(SetAxisOrigin(plotter, 0, origin), -3);
    for (const int axis : {-1, 3, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
        EXPECT_EQ(SetAxisOrigin(plotter, axis, 1.0), -3);
        EXPECT_EQ(SetAxisLabelFormat(plotter, axis, [](double, double) { return "word"; }), -3);
        EXPECT_EQ(GetAxisOrigin(plotter, axis), 0.0);
    }
    EXPECT_EQ(Labels(0), x);
    EXPECT_EQ(Labels(2), z);
    EXPECT_EQ(Box().m_tickPositions[0], positions);
    EXPECT_EQ(GetAxisOrigin(plotter, 0), 1e6);
}

TEST_P(AxisNumbersInWindow, OriginsBeyondPrecisionAreDrawnAllTheSame) {
    const double largest = std::numeric_limits<double>::max();
    for (const double origin : {1e15, 1e16, -1e18, 1e300, largest, -largest})
        for (const float span : {1e-3f, 1.0f, 1e6f}) {
            SCOPED_TRACE(testing::Message() << origin << " and " << span);
            SetSpan(0.0f, span);
            SetOrigins(origin);
            for (int axis = 0; axis < 3; ++axis)
                for (const std::string& label : Labels(axis)) {
                    EXPECT_LT(label.size(), 26u) << label;
                    EXPECT_NEAR(Number(label) / origin, 1.0, 1e-8) << label;
                }
            EXPECT_EQ(plotter.Renderscene(), 0);
            EXPECT_LT(plotter.GetXAxisMin(), plotter.GetXAxisMax());
        }
}

TEST(AxisNumbers, AreSetWithoutWindowToo) {
    PlotterProbe plotter;
    EXPECT_EQ(SetAxisOrigin(plotter, 0, 1e6), 0);
    EXPECT_EQ(SetAxisLabelFormat(plotter, 1, [](double, double) { return "word"; }), 0);
    float points[] = {0, 0, 0, 1, 0, 1, 0, 1, 1, 1, 1, 2};
    plotter.SetDataReference(points, 2, 2, 1, 2, 3);
    EXPECT_EQ(plotter.m_gridBox->LabelText(0, 0), "1000000.0");
    EXPECT_EQ(SetAxisOrigin(plotter, 0, 0.5), 0);
    EXPECT_EQ(plotter.GetXAxisMin(), -0.1f) << "0.4, in units of the data";
    EXPECT_EQ(plotter.m_gridBox->LabelText(0, 0), "0.4");
    EXPECT_EQ(plotter.OnDestroy(), 0);
    EXPECT_EQ(SetAxisOrigin(plotter, 0, 3.0), 0);
}

// ---- The host's words

namespace {

struct Asked {
    double value;
    double step;
};

} // namespace

TEST_P(AxisNumbersInWindow, AFormatIsAskedForEachLabel) {
    std::vector<Asked> asked;
    SetOrigins(2451545.0);
    ASSERT_EQ(SetAxisLabelFormat(plotter, 2,
                                 [&](double value, double step) {
                                     asked.push_back({value, step});
                                     return "day " + std::to_string(asked.size());
                                 }),
              0);
    ASSERT_EQ(asked.size(), 7u + 11u);
    for (unsigned int i = 0; i < 7; ++i) {
        EXPECT_EQ(asked[i].value, 2451540.0 + 20.0 * i);
        EXPECT_EQ(asked[i].step, 20.0);
        EXPECT_EQ(Labels(2)[i], "day " + std::to_string(i + 1));
    }
    for (unsigned int i = 0; i <= 10; ++i) {
        EXPECT_EQ(asked[7 + i].value, 2451545.0 + 10.0 * i);
        EXPECT_EQ(asked[7 + i].step, 10.0);
        EXPECT_EQ(LegendLabels(2)[i], "day " + std::to_string(i + 8));
    }
    ExpectImagesOfAllLabels();
}

// Without an origin the plot's own ticks, as decimals.
TEST_P(AxisNumbersInWindow, AFormatGetsCleanNumbers) {
    SetSpan(0.0f, 0.6f);
    std::vector<Asked> asked;
    ASSERT_EQ(SetAxisLabelFormat(plotter, 0,
                                 [&](double value, double step) {
                                     asked.push_back({value, step});
                                     return std::string("x");
                                 }),
              0);
    ASSERT_EQ(asked.size(), 9u + 11u);
    const double expected[] = {-0.05, 0.05, 0.15, 0.25, 0.35, 0.45, 0.55, 0.65, 0.75};
    for (std::size_t i = 0; i < 9; ++i) {
        EXPECT_EQ(asked[i].value, expected[i]);
        EXPECT_EQ(asked[i].step, 0.1);
    }
    const Texts own = Labels(1);
    plotter.SetXAxisMin(0.3f); // reversed ranges have steps above 0, too
    plotter.SetXAxisMax(-0.3f);
    EXPECT_GT(asked.back().step, 0.0);
    EXPECT_EQ(Labels(1), own);
}

TEST_P(AxisNumbersInWindow, OddTextsAreHarmless) {
    const std::string invalid = "\xFF\xC3(\xE2\x82";
    const std::string oddTexts[] = {"",
                                    " ",
                                    "two\nlines",
                                    "\r\n",
                                    invalid,
                                    std::string("a\0b", 3),
                                    std::string(100000, 'm'),
                                    std::string(3000, '\n'),
                                    "&",
                                    "\xE2\x80\xA8"};
    for (const std::string& text : oddTexts) {
        for (int axis = 0; axis < 3; ++axis)
            ASSERT_EQ(SetAxisLabelFormat(plotter, axis, [&](double, double) { return text; }), 0);
        for (const auto show :
             {&CKivoFunctionPlotter::SwitchToXYProjectPlot, &CKivoFunctionPlotter::SwitchToZXProjectPlot,
              &CKivoFunctionPlotter::SwitchToNormalPlot}) {
            std::invoke(show, plotter);
            EXPECT_EQ(plotter.Renderscene(), 0);
        }
        for (const std::string& label : Labels(0)) {
            EXPECT_LE(label.size(), 500u);
            EXPECT_EQ(label.find_first_of("\r\n"), std::string::npos);
        }
        ExpectImagesOfAllLabels();
    }
    EXPECT_EQ(SetAxisLabelFormat(plotter, 0, [](double, double) { return "two\nlines"; }), 0);
    EXPECT_THAT(Labels(0), testing::Each("two lines"));
}

TEST_P(AxisNumbersInWindow, AnExceptionLeavesTheLabelEmpty) {
    const auto isOdd = [](double value) { return std::fmod(std::abs(std::round(value)), 2.0) == 1.0; };
    for (int axis = 0; axis < 3; ++axis)
        ASSERT_EQ(SetAxisLabelFormat(plotter, axis,
                                     [&](double value, double) -> std::string {
                                         if (isOdd(value / 10.0)) throw std::runtime_error("odd");
                                         if (value > 1e9) throw 3;
                                         return "even";
                                     }),
                  0);
    EXPECT_EQ(LegendLabels(0), (Texts{"even", "", "even", "", "even", "", "even", "", "even", "", "even"}));
    ExpectImagesOfAllLabels();
    EXPECT_EQ(plotter.Renderscene(), 0);
    // Lack of memory is told, and changes nothing.
    const Texts before = Labels(0);
    const auto fail = [](double, double) -> std::string { throw std::bad_alloc(); };
    EXPECT_THROW(SetAxisLabelFormat(plotter, 0, fail), std::bad_alloc);
    EXPECT_EQ(Labels(0), before);
    ExpectImagesOfAllLabels();
    EXPECT_EQ(wglGetCurrentContext(), nullptr);
}

TEST_P(AxisNumbersInWindow, WhatIsNoNumberIsNotAsked) {
    const float infinity = std::numeric_limits<float>::infinity();
    const float nan = std::numeric_limits<float>::quiet_NaN();
    bool isAsked = false;
    for (int axis = 0; axis < 3; ++axis)
        ASSERT_EQ(SetAxisLabelFormat(plotter, axis,
                                     [&](double value, double step) {
                                         EXPECT_TRUE(std::isfinite(value) && std::isfinite(step));
                                         EXPECT_GE(step, 0.0);
                                         isAsked = true;
                                         return std::string("number");
                                     }),
                  0);
    for (const double origin : {0.0, 1e6}) {
        SetOrigins(origin);
        for (const auto& span :
             {std::array<float, 2>{0.0f, infinity}, {-infinity, infinity}, {-3e38f, 3e38f}}) {
            SetSpan(span[0], span[1]);
            EXPECT_EQ(plotter.Renderscene(), 0);
        }
        SetSpan(0.0f, 1.0f);
        isAsked = false;
        plotter.SetXAxisMin(nan);
        EXPECT_FALSE(isAsked);
        EXPECT_EQ(Labels(0).front(), "NaN");
        plotter.SetXAxisMin(infinity);
        EXPECT_FALSE(isAsked);
        plotter.SetXAxisMin(0.0f);
        EXPECT_TRUE(isAsked);
        for (const unsigned int count : {1u, 0u, 5000u, 2u})
            EXPECT_EQ(plotter.SetXAxisTickMarkNumber(count), 0);
        EXPECT_EQ(plotter.Renderscene(), 0);
    }
}

TEST_P(AxisNumbersInWindow, FramesPicturesAndStylesDoNotAsk) {
    int asked = 0;
    for (int axis = 0; axis < 3; ++axis)
        ASSERT_EQ(SetAxisLabelFormat(plotter, axis,
                                     [&](double, double) {
                                         ++asked;
                                         return "word " + std::to_string(asked % 7);
                                     }),
                  0);
    for (int y = 100; y < 200 && plotter.Trace({230, y}) != 0; ++y) {
    }
    EXPECT_EQ(plotter.m_hasTracePoint, 1);
    const int before = asked;
    plotter.OnDraw();
    CaptureImage(plotter, 800, 500);
    SKivoPictureOptions options;
    options.scale = 2.0f;
    std::vector<unsigned char> rgba;
    int width = 0, height = 0;
    EXPECT_EQ(CapturePicture(plotter, options, rgba, width, height), 0);
    SKivoStyle style;
    style.pixelScale = 2.0f;
    EXPECT_EQ(SetStyle(plotter, style), 0);
    EXPECT_EQ(asked, before);
    ExpectImagesOfAllLabels(); // with the words that there were
    plotter.SwitchToXYProjectPlot();
    plotter.OnDraw();
    EXPECT_EQ(asked, before);
    SetSpan(0.0f, 1.0f);
    EXPECT_GT(asked, before);
}

TEST_P(AxisNumbersInWindow, ReadOutsSayAbsoluteNumbersAndWords) {
    std::vector<Asked> asked;
    SetSpan(0.0f, 0.1f);
    SetOrigins(5630000.0);
    EXPECT_EQ(Box().ReadOut(0, 0.0625f, true), "5630000.0625");
    SetSpan(0.0f, 100.0f);
    EXPECT_EQ(Box().ReadOut(0, 12.5f, true), "5630012.500");
    ASSERT_EQ(SetAxisLabelFormat(plotter, 1,
                                 [&](double value, double step) {
                                     asked.push_back({value, step});
                                     return std::string("word");
                                 }),
              0);
    EXPECT_EQ(Box().ReadOut(1, 12.5f, true), "word");
    EXPECT_EQ(asked.back().value, 5630012.5);
    EXPECT_EQ(asked.back().step, 0.2);
    EXPECT_EQ(Box().ReadOut(1, 12.5f, false), "5630012.500");
}

// ---- Functions that change the plot

namespace {

using Act = std::function<void()>;

class FormatThatActs : public AxisNumbersInWindow {
protected:
    // Acts at the first label of an axis, and at every eighth text after it.
    void SetFormat(const Act& act) {
        SetAxisLabelFormat(plotter, 2, [act, calls = 0](double, double) mutable {
            if (calls++ % 8 == 0) act();
            return "word";
        });
    }

    // The plot is what it would be without all that.
    void ExpectToWork() {
        plotter.EndGLOperation();
        if (!plotter.m_hGLRC) Create();
        for (int axis = 0; axis < 3; ++axis) {
            ASSERT_EQ(SetAxisLabelFormat(plotter, axis, nullptr), 0);
            ASSERT_EQ(SetAxisOrigin(plotter, axis, 0.0), 0);
        }
        plotter.SetGradientColorRuleFloatingPointPrecision(3);
        SetSpan(0.0f, 100.0f);
        EXPECT_EQ(plotter.Renderscene(), 0);
        EXPECT_EQ(Labels(2), (Texts{"-5", "15", "35", "55", "75", "95", "115"}));
        ExpectImagesOfAllLabels();
    }

    // With the legends of x and y, which the format does not concern.
    std::vector<Image> FlatPictures() {
        std::vector<Image> pictures;
        for (const auto show :
             {&CKivoFunctionPlotter::SwitchToYZProjectPlot, &CKivoFunctionPlotter::SwitchToZXProjectPlot}) {
            std::invoke(show, plotter);
            pictures.push_back(CaptureImage(plotter));
        }
        plotter.SwitchToNormalPlot();
        return pictures;
    }

    void Create() { ASSERT_EQ(plotter.OnCreate(plot.window.Handle(), 400, 300, true), 0); }
};

} // namespace

TEST_P(FormatThatActs, MayCallAnyMember) {
    PlausibleArguments arguments;
    for (const PublicMember& member : PublicMembers()) {
        if (member.context == ContextUse::callers) continue;
        SCOPED_TRACE(member.name);
        const Act act = [&] { member.run(plotter, arguments); };
        SetFormat(act);
        SetSpan(0.0f, 100.0f);
        plotter.Trace({230, 150});
        plotter.OnDraw();
        if (!plotter.m_hGLRC) Create();
        SetAxisLabelFormat(plotter, 2, nullptr);
    }
    ExpectToWork();
}

// What takes its labels away while they are being made, in every member that makes them.
TEST_P(FormatThatActs, MayUndoWhatItIsAskedFor) {
    constexpr std::size_t endingActs = 2; // the first ones
    const Act acts[] = {[&] { plotter.OnDestroy(); },
                        [&] { plotter.OnDestroy(), Create(); },
                        [&] { SetSpan(3.0f, 5.0f); },
                        [&] { plotter.SetZAxisTickMarkNumber(plotter.GetZAxisTickMarkNumber() + 3); },
                        [&] { plotter.SetZAxisTickMarkNumber(0); },
                        [&] { SetAxisOrigin(plotter, 2, GetAxisOrigin(plotter, 2) + 1.0); },
                        [&] { SetAxisLabelFormat(plotter, 2, nullptr); },
                        [&] { // and that one does it again
                            SetFormat([&] { SetFormat([&] { SetSpan(1.0f, 2.0f); }); });
                        }};
    const Act members[] = {[&] { SetSpan(0.0f, 50.0f); },
                           [&] { SetAxisOrigin(plotter, 2, GetAxisOrigin(plotter, 2) + 5000.0); },
                           [&] { plotter.SetZAxisMin(-7.0f); },
                           [&] { plotter.SetZAxisTickMarkNumber(9); },
                           [&] { plotter.SetZAxisFloatingPointPrecision(1); },
                           [&] { plotter.SetGradientColorRuleFloatingPointPrecision(1); },
                           [&] { plotter.SetZGradientColor(0x0000FFul, 0x00FF00ul); },
                           [&] { Create(); },
                           [&] {
                               plotter.Trace({230, 150});
                           }};
    const std::vector<Image> before = FlatPictures();
    for (std::size_t a = 0; a < std::size(acts); ++a)
        for (std::size_t m = 0; m < std::size(members); ++m) {
            SCOPED_TRACE(testing::Message() << "act " << a << " in member " << m);
            bool mayAct = false; // in the member, not before
            SetFormat([&] {
                if (mayAct) acts[a]();
            });
            mayAct = true;
            members[m]();
            mayAct = false;
            plotter.OnDraw();
            SetAxisLabelFormat(plotter, 2, nullptr);
            ExpectToWork();
            if (a >= endingActs) continue;
            const std::vector<Image> after = FlatPictures(); // no texture has gone with those of another plot
            for (std::size_t i = 0; i < before.size(); ++i)
                EXPECT_TRUE(ImagesAgree(after[i], before[i], 0, 0, "flat"));
        }
}

// What was asked for before is not said of what came after.
TEST_P(FormatThatActs, LeavesTheNumbersOfWhatItChanges) {
    bool isFirst = true;
    SetFormat([&] {
        if (std::exchange(isFirst, false)) plotter.SetZAxisTickMarkNumber(3);
    });
    EXPECT_EQ(Labels(2), (Texts{"-5", "55", "115"}));
    isFirst = true;
    bool isLegend = false;
    SetAxisLabelFormat(plotter, 2, [&](double, double step) {
        isLegend = step == 10.0; // that of the ticks is 60
        if (isLegend && std::exchange(isFirst, false)) plotter.SetGradientColorRuleFloatingPointPrecision(1);
        return "word";
    });
    EXPECT_TRUE(isLegend);
    EXPECT_THAT(Labels(2), testing::Each("word"));
    EXPECT_EQ(LegendLabels(2).front(), "0.0");
    EXPECT_EQ(LegendLabels(2).back(), "100.0");
}

KIVO_IN_ONE_WINDOW(FormatThatActs);
KIVO_IN_ONE_WINDOW(AxisNumbersInWindow);
