// The values of contours in the XY plot.
#include "KivoAxis.h"
#include "KivoContours.h"
#include "KivoLegend.h"
#include "KivoPicture.h"
#include "KivoPoints.h"
#include "KivoStyle.h"
#include "KivoView.h"
#include "support/Image.h"
#include "support/PlotterProbe.h"
#include "support/TestSurfaces.h"
#include "support/TestWindow.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <future>
#include <new>
#include <stdexcept>
#include <string>
#include <thread>
#include <utility>
#include <vector>

using namespace KivoDrawingTools;

namespace {

bool IsRed(const unsigned char* rgb) {
    return rgb[0] > 200 && rgb[1] < 60 && rgb[2] < 60;
}

bool IsDark(const unsigned char* rgb) {
    return rgb[0] < 80 && rgb[1] < 80 && rgb[2] < 80;
}

class LabeledContours : public WindowTest {
protected:
    LabeledContours() {
        ShowHill();
        plotter.SetZGradientColor(0x0000FF, 0x0000FF);
        SetContourInterval(plotter, 2, 0.5);
        plotter.SwitchToXYProjectPlot();
    }

    void ShowHill() {
        const TestSurface surface = HillSurface(30, 20);
        plotter.SetData(surface.NewArray(), surface.columns, surface.rows, 1, surface.columns, 3);
    }

    TestPlot plot{GetParam(), 600, 450};
    PlotterProbe& plotter = plot.plotter;
};

} // namespace

TEST_P(LabeledContours, AreDrawnOnDemandInGapsOfTheLines) {
    EXPECT_FALSE(AreContoursLabeled(plotter));
    const Image lines = CaptureImage(plotter);
    ASSERT_EQ(LabelContours(plotter, true), 0);
    EXPECT_TRUE(AreContoursLabeled(plotter));
    const Image labeled = CaptureImage(plotter);
    EXPECT_GT(labeled.Count(IsDark), lines.Count(IsDark) + 100);
    EXPECT_LT(labeled.Count(IsRed), lines.Count(IsRed) - 60) << "no gap";
    EXPECT_EQ(Compare(CaptureImage(plotter), labeled).max, 0) << "another place in each frame";
    EXPECT_EQ(LabelContours(plotter, true), 0);
    EXPECT_EQ(Compare(CaptureImage(plotter), labeled).max, 0);
    ASSERT_EQ(LabelContours(plotter, false), 0);
    EXPECT_EQ(Compare(CaptureImage(plotter), lines).max, 0);
}

TEST_P(LabeledContours, AreInNoOtherPlot) {
    void (*const plots[])(PlotterProbe&) = {[](PlotterProbe& p) { p.SwitchToNormalPlot(); },
                                            [](PlotterProbe& p) { p.SwitchToYZProjectPlot(); },
                                            [](PlotterProbe& p) { p.SwitchToZXProjectPlot(); }};
    plotter.ShowZIsoContours(true);
    for (const auto show : plots) {
        show(plotter);
        LabelContours(plotter, false);
        const Image without = CaptureImage(plotter);
        LabelContours(plotter, true);
        EXPECT_EQ(Compare(CaptureImage(plotter), without).max, 0);
    }
}

TEST_P(LabeledContours, AreReadableOnBands) {
    FillContours(plotter, true);
    const Image bands = CaptureImage(plotter);
    ASSERT_EQ(LabelContours(plotter, true), 0);
    const Image labeled = CaptureImage(plotter);
    EXPECT_GT(Compare(labeled, bands).max, 200);
    int uncovered = 0; // of the lines, which are as dark as the texts
    for (int y = 0; y < bands.height; ++y)
        for (int x = 0; x < bands.width; ++x)
            if (IsDark(bands.Pixel(x, y)) && IsRed(labeled.Pixel(x, y))) ++uncovered;
    EXPECT_GT(uncovered, 60);
}

TEST_P(LabeledContours, HaveTheWordsOfTheAxis) {
    std::vector<double> asked, steps;
    const auto note = [&](double value, double step) {
        asked.push_back(value);
        steps.push_back(step);
        return std::to_string(value);
    };
    SetAxisOrigin(plotter, 2, 1000.0);
    ASSERT_EQ(SetAxisLabelFormat(plotter, 2, note), 0);
    asked.clear();
    steps.clear();
    LabelContours(plotter, true);
    EXPECT_EQ(asked, (std::vector<double>{998.5, 999.0, 999.5, 1000.0, 1000.5, 1001.0, 1001.5}));
    EXPECT_EQ(steps, std::vector<double>(7, 0.5));
    asked.clear();
    plotter.OnDraw();
    EXPECT_TRUE(asked.empty()) << "a host may not be asked while a frame is drawn";
    SetContourInterval(plotter, 2, 1.0, 0.25);
    EXPECT_EQ(asked, (std::vector<double>{998.25, 999.25, 1000.25, 1001.25}));
}

TEST_P(LabeledContours, FollowTheirWords) {
    SKivoLegend hidden; // whose numbers have the same words
    hidden.isShown = false;
    SetLegend(plotter, 2, hidden);
    LabelContours(plotter, true);
    const Image plain = CaptureImage(plotter);
    SetAxisLabelFormat(plotter, 2, [](double, double) { return std::string(); });
    const Image empty = CaptureImage(plotter);
    EXPECT_LT(empty.Count(IsDark), plain.Count(IsDark) - 100) << "without words there is nothing to draw";
    SetAxisLabelFormat(plotter, 2, nullptr);
    EXPECT_EQ(Compare(CaptureImage(plotter), plain).max, 0);
    plotter.SetIsoContourCount(7);
    SetContourInterval(plotter, 2, 0.7);
    EXPECT_GT(Compare(CaptureImage(plotter), plain).max, 100);
    SetContourInterval(plotter, 2, 0.5);
    EXPECT_EQ(Compare(CaptureImage(plotter), plain).max, 0);
}

TEST_P(LabeledContours, OutliveDataAndWindows) {
    LabelContours(plotter, true);
    const Image before = CaptureImage(plotter);
    ShowHill();
    plotter.SwitchToXYProjectPlot();
    EXPECT_EQ(Compare(CaptureImage(plotter), before).max, 0);
    plotter.OnDestroy();
    EXPECT_TRUE(AreContoursLabeled(plotter));
    EXPECT_EQ(LabelContours(plotter, false), 0);
    EXPECT_EQ(LabelContours(plotter, true), 0);
    ShowHill(); // before there is a window
    ASSERT_EQ(plotter.OnCreate(plot.window.Handle(), 600, 450, false), 0);
    plotter.SwitchToXYProjectPlot();
    EXPECT_GT(CaptureImage(plotter).Count(IsDark), 100);
}

TEST_P(LabeledContours, AreAsLargeAsTheStyleSays) {
    LabelContours(plotter, true);
    const Image plain = CaptureImage(plotter);
    SKivoStyle style = GetStyle(plotter);
    style.pixelScale = 2.0f;
    SKivoPictureOptions options;
    options.scale = 2.0f;
    std::vector<unsigned char> rgba;
    Image large;
    ASSERT_EQ(CapturePicture(plotter, options, large.rgba, large.width, large.height), 0);
    ASSERT_EQ(large.width, 2 * plain.width);
    int agreeing = 0, dark = 0; // what is dark in the plain one is dark in the large one, or beside it
    for (int y = 1; y + 1 < plain.height; ++y)
        for (int x = 1; x + 1 < plain.width; ++x) {
            if (!IsDark(plain.Pixel(x, y))) continue;
            ++dark;
            bool isFound = false;
            for (int dy = -2; dy < 4; ++dy)
                for (int dx = -2; dx < 4; ++dx)
                    isFound = isFound || IsDark(large.Pixel(2 * x + dx, 2 * y + dy));
            agreeing += isFound ? 1 : 0;
        }
    EXPECT_GT(agreeing, 0.95 * dark);
    EXPECT_EQ(Compare(CaptureImage(plotter), plain).max, 0);
    SetStyle(plotter, style);
    EXPECT_GT(CaptureImage(plotter).Count(IsDark), plain.Count(IsDark));
}

TEST_P(LabeledContours, LetAHostDoAnythingWhileItIsAsked) {
    void (*const doings[])(PlotterProbe&) = {
        [](PlotterProbe& p) { LabelContours(p, false); },
        [](PlotterProbe& p) { SetContourInterval(p, 2, 0.21); },
        [](PlotterProbe& p) { p.SetIsoContourCount(3); },
        [](PlotterProbe& p) { p.OnDraw(); },
        [](PlotterProbe&) { throw std::runtime_error("no words"); },
        [](PlotterProbe& p) { p.OnDestroy(); },
    };
    for (const auto doing : doings) {
        SetAxisLabelFormat(plotter, 2, nullptr);
        LabelContours(plotter, true);
        SetContourInterval(plotter, 2, 0.5);
        SetAxisLabelFormat(plotter, 2, [&](double value, double) {
            doing(plotter);
            return std::to_string(value);
        });
        SetContourInterval(plotter, 2, 0.4);
        plotter.OnDraw();
        ShowHill();
        plotter.OnDraw();
    }
}

// In the lower left corner, which contours are moved across.
TEST_P(LabeledContours, LeaveTheTracedPointReadable) {
    ShowPointsInFlatPlots(plotter, true);
    SKivoView view = GetView(plotter);
    view.zoom = 4.0;
    SetView(plotter, view);
    const Image untraced = CaptureImage(plotter);
    plotter.m_hasTracePoint = 1;
    plotter.m_tracePoint[0] = plotter.m_tracePoint[1] = 100.0f; // its mark is out of sight
    const Image traced = CaptureImage(plotter);
    std::vector<std::pair<int, int>> readOut;
    for (int y = 0; y < traced.height; ++y)
        for (int x = 0; x < traced.width; ++x)
            if (!std::equal(traced.Pixel(x, y), traced.Pixel(x, y) + 3, untraced.Pixel(x, y)))
                readOut.emplace_back(x, y);
    ASSERT_FALSE(readOut.empty());
    int labeled = 0;
    for (int i = 0; i < 12; ++i) {
        view.panY = 0.03 * i;
        SetView(plotter, view);
        LabelContours(plotter, false);
        const Image lines = CaptureImage(plotter);
        LabelContours(plotter, true);
        const Image values = CaptureImage(plotter);
        labeled += values.Count(IsDark) > lines.Count(IsDark);
        int meeting = 0;
        for (const auto& [x, y] : readOut) // and what is beside its digits
            for (const int dx : {-2, 0, 2})
                meeting +=
                    !std::equal(values.Pixel(x + dx, y), values.Pixel(x + dx, y) + 3, lines.Pixel(x + dx, y));
        EXPECT_EQ(meeting, 0) << i;
    }
    EXPECT_GT(labeled, 6);
}

// What a host asks for while it is asked is newer than what it was asked for.
TEST_P(LabeledContours, AreTheLatest) {
    bool isFirst = false;
    SetAxisLabelFormat(plotter, 2, [&](double, double) { // of those within it is not asked
        if (std::exchange(isFirst, false)) SetContourInterval(plotter, 2, 0.5, 0.25);
        return std::string();
    });
    ASSERT_EQ(LabelContours(plotter, true), 0);
    isFirst = true;
    SetContourInterval(plotter, 2, 0.45);
    const Image latest = CaptureImage(plotter);
    LabelContours(plotter, false);
    EXPECT_GT(latest.Count(IsDark), CaptureImage(plotter).Count(IsDark) + 100);
}

// Elsewhere a thread has the context.
TEST_P(LabeledContours, AreNoneWhereTheContextWasElsewhereMeanwhile) {
    ASSERT_EQ(LabelContours(plotter, true), 0);
    const Image before = CaptureImage(plotter);
    std::promise<bool> taken;
    std::promise<void> done;
    std::thread elsewhere([&] {
        taken.set_value(wglMakeCurrent(plotter.m_hDC, plotter.m_hGLRC) != 0);
        done.get_future().wait();
        wglMakeCurrent(nullptr, nullptr);
    });
    const bool isTaken = taken.get_future().get();
    SetContourInterval(plotter, 2, 0.5, 0.25);
    done.set_value();
    elsewhere.join();
    ASSERT_TRUE(isTaken);
    const Image meanwhile = CaptureImage(plotter);
    LabelContours(plotter, false);
    EXPECT_EQ(Compare(CaptureImage(plotter), meanwhile).max, 0)
        << "values of other contours, or gaps for them";
    LabelContours(plotter, true);
    SetContourInterval(plotter, 2, 0.5);
    EXPECT_EQ(Compare(CaptureImage(plotter), before).max, 0);
}

TEST_P(LabeledContours, SayTheLevelsOfADerivedClass) {
    std::vector<double> asked;
    const auto note = [&](double value, double) {
        asked.push_back(value);
        return std::to_string(value);
    };
    LabelContours(plotter, true);
    plotter.m_flatZIsoContours[3].level = 0.125f;
    SKivoLegend hidden; // whose numbers are asked for, too
    hidden.isShown = false;
    SetLegend(plotter, 2, hidden);
    ASSERT_EQ(SetAxisLabelFormat(plotter, 2, note), 0);
    EXPECT_EQ(std::count(asked.begin(), asked.end(), 0.125), 1);
}

// A frame waits for the lines: a million of segments are joined at most, those of all levels together.
TEST_P(LabeledContours, HaveLinesOfAMillionSegmentsAtMost) {
    LabelContours(plotter, true);
    const auto labels = [this](std::uint64_t segments) {
        ShowHill();
        plotter.SwitchToXYProjectPlot();
        SKivoIsoContour& first = plotter.m_flatZIsoContours.front();
        delete[] first.points;
        first.points = new float[6 * segments](); // without a length, which draws nothing
        first.pointCount = 2 * segments;
        return CaptureImage(plotter).Count(IsDark);
    };
    const int all = labels(1);
    EXPECT_GT(all, labels(1u << 20) + 100) << "no segments are left for the others";
    EXPECT_EQ(labels((1u << 20) + 1), all) << "what is too much by itself takes nothing from the others";
}

TEST_P(LabeledContours, AreNoneWithoutMemoryForTheirWords) {
    SetAxisLabelFormat(plotter, 2, [this](double value, double) {
        if (AreContoursLabeled(plotter)) throw std::bad_alloc();
        return std::to_string(value);
    });
    const Image lines = CaptureImage(plotter);
    EXPECT_THROW(LabelContours(plotter, true), std::bad_alloc);
    EXPECT_FALSE(AreContoursLabeled(plotter));
    EXPECT_EQ(Compare(CaptureImage(plotter), lines).max, 0);
}

KIVO_IN_ONE_WINDOW(LabeledContours);
