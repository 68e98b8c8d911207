// Texts that measure groups are listed with.
#include "KivoLegend.h"
#include "KivoPicture.h"
#include "KivoPoints.h"
#include "parts/KivoGridBox.h"
#include "support/Image.h"
#include "support/PlotterProbe.h"
#include "support/TestSurfaces.h"
#include "support/TestWindow.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

using namespace KivoDrawingTools;

namespace {

bool IsDark(const unsigned char* rgb) {
    return rgb[0] < 80 && rgb[1] < 80 && rgb[2] < 80;
}

// Rows and columns where two pictures differ.
struct Bounds {
    Bounds(const Image& a, const Image& b) {
        for (int y = 0; y < a.height; ++y)
            for (int x = 0; x < a.width; ++x)
                if (!std::equal(a.Pixel(x, y), a.Pixel(x, y) + 3, b.Pixel(x, y))) {
                    left = std::min(left, x);
                    right = std::max(right, x);
                    top = std::min(top, y);
                    bottom = std::max(bottom, y);
                }
    }
    int left = 1 << 20, right = -1, top = 1 << 20, bottom = -1;
};

class ListedTexts : public WindowTest {
protected:
    ListedTexts() {
        const TestSurface surface = HillSurface(30, 20);
        plotter.SetData(surface.NewArray(), surface.columns, surface.rows, 1, surface.columns, 3);
        plotter.AddMeasurePoints(2, 3, points, "wells");
        plotter.AddMeasurePoints(1, 3, points, "springs");
        ShowMeasureGroupNames(plotter, true);
    }

    // Unlit contours on the ground, which the list stands over.
    Image Map() {
        ShowPointsInFlatPlots(plotter, true);
        plotter.SwitchToXYProjectPlot();
        return CaptureImage(plotter);
    }

    float points[6] = {0.0f, 0.0f, 0.5f, 1.0f, 1.0f, 0.5f};
    TestPlot plot{GetParam(), 600, 450};
    PlotterProbe& plotter = plot.plotter;
};

} // namespace

TEST_P(ListedTexts, StandInPlaceOfTheName) {
    const Image named = CaptureImage(plotter);
    ASSERT_EQ(SetListedTexts(plotter, 0, {"wells"}), 0);
    EXPECT_LE(Compare(CaptureImage(plotter), named).max, 1) << "the same words, on the ground of the plot";
    ASSERT_EQ(SetListedTexts(plotter, 0, {"B 12  0.0  0.0", "", "C 13  1.0  1.0"}), 0);
    const Bounds list(CaptureImage(plotter), named);
    EXPECT_GT(list.left, 600 / 2);
    EXPECT_LT(list.right, 600 - 4);
    EXPECT_GT(list.top, 0);
    EXPECT_LT(list.bottom, 450 / 3);
    ASSERT_EQ(SetListedTexts(plotter, 0, {}), 0);
    EXPECT_EQ(Compare(CaptureImage(plotter), named).max, 0);
    EXPECT_EQ(SetListedTexts(plotter, 2, {"no group"}), -2);
}

TEST_P(ListedTexts, AreThoseOfShownGroupsInAList) {
    bool isSeen = false;
    const auto listed = [&] {
        ASSERT_EQ(SetListedTexts(plotter, 0, {"row 1", "row 2"}), 0);
        const Image with = CaptureImage(plotter);
        ASSERT_EQ(SetListedTexts(plotter, 0, {"row 1", "row 3"}), 0);
        isSeen = Compare(CaptureImage(plotter), with).max > 0;
    };
    listed();
    EXPECT_TRUE(isSeen);
    plotter.ShowMeasureGroup(0, false);
    listed();
    EXPECT_FALSE(isSeen);
    plotter.ShowMeasureGroup(0, true);
    ShowMeasureGroupNames(plotter, false);
    listed();
    EXPECT_FALSE(isSeen);
}

// Each row takes as much as the names of groups do, until there is no room.
TEST_P(ListedTexts, StayInThePlot) {
    const auto heightOf = [this](std::size_t rows) {
        EXPECT_EQ(SetListedTexts(plotter, 0, std::vector<std::string>(rows, "B 12")), 0);
        CaptureImage(plotter);
        if (plotter.m_gridBox->m_screenBox.others.empty()) return 0.0;
        const PlacedImage& place = plotter.m_gridBox->m_screenBox.others.back();
        EXPECT_GE(place.center.y - place.halfHeight, 0.0) << rows;
        return 2.0 * place.halfHeight;
    };
    const double row = heightOf(2) - heightOf(1);
    EXPECT_GT(row, 8.0);
    EXPECT_NEAR(heightOf(11), heightOf(1) + 10.0 * row, 1e-9);
    const double all = heightOf(100);
    EXPECT_GT(all, 450 - 3.0 * row);
    const Image full = CaptureImage(plotter);
    EXPECT_EQ(heightOf(200), all);
    EXPECT_EQ(Compare(CaptureImage(plotter), full).max, 0);
    plot.window.Resize(600, 10);
    plotter.OnSize(0, 600, 10);
    EXPECT_EQ(heightOf(20), 0.0) << "not one has room";
}

TEST_P(ListedTexts, LeaveTheTitleReadable) {
    ShowMeasureGroupNames(plotter, false);
    plotter.SetPlotTitle("A title of some words that reaches far");
    const Image without = Map();
    for (const char* const text : {"B 12", "B 12  2600000.5  1200000.5  712.25  and all the rest"}) {
        SetListedTexts(plotter, 0, {text});
        ShowMeasureGroupNames(plotter, true);
        const Image with = Map();
        int covered = 0, shown = 0;
        for (int y = 0; y < 30; ++y)
            for (int x = 0; x < 600; ++x)
                covered += IsDark(without.Pixel(x, y)) && !IsDark(with.Pixel(x, y));
        for (int y = 0; y < 60; ++y)
            for (int x = 300; x < 600; ++x)
                shown += IsDark(with.Pixel(x, y)) && !IsDark(without.Pixel(x, y));
        EXPECT_EQ(covered, 0) << text;
        if (text != std::string("B 12")) {
            EXPECT_GE(Bounds(with, without).top, plotter.m_plotTitleImage->height) << "it is below";
        }
        EXPECT_GT(shown, 20) << text;
    }
}

// What is behind them would make them illegible.
TEST_P(ListedTexts, HaveAPaleGround) {
    const std::vector<std::string> rows(14, "  .            .  ");
    SetListedTexts(plotter, 1, rows);
    SetListedTexts(plotter, 0, rows);
    const Image pale = Map();
    ShowMeasureGroupNames(plotter, false);
    const Image plain = CaptureImage(plotter);
    const Bounds list(pale, plain);
    int vivid = 0, paler = 0;
    for (int y = list.top; y <= list.bottom; ++y)
        for (int x = list.left + 30; x <= list.right; ++x) {
            const unsigned char *const before = plain.Pixel(x, y), *const after = pale.Pixel(x, y);
            const int least = std::min({before[0], before[1], before[2]});
            if (least > 60 || std::max({before[0], before[1], before[2]}) < 200) continue;
            ++vivid;
            paler += std::min({after[0], after[1], after[2]}) > least + 100;
        }
    EXPECT_GT(vivid, 100);
    EXPECT_GT(paler, 0.9 * vivid);
}

TEST_P(ListedTexts, AreInLargePictures) {
    const auto pictures = [this](const std::string& text, Image* large) {
        SetListedTexts(plotter, 0, {text, "C 13  1.0  1.0"});
        SKivoPictureOptions options;
        options.scale = 3.0f;
        EXPECT_EQ(CapturePicture(plotter, options, large->rgba, large->width, large->height), 0);
        return CaptureImage(plotter);
    };
    Image largeFirst, largeOther;
    const Image first = pictures("B 12  0.0  0.1", &largeFirst);
    const Image other = pictures("W 99  7.0  7.8", &largeOther);
    const Bounds small(first, other), large(largeFirst, largeOther);
    EXPECT_NEAR(large.left, 3 * small.left, 8);
    EXPECT_NEAR(large.right, 3 * small.right, 8);
    EXPECT_NEAR(large.top, 3 * small.top, 8);
}

KIVO_IN_ONE_WINDOW(ListedTexts);
