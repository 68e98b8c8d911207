// Numbers that single precision cannot hold: origins of grids, absolute numbers, and how they are written.
#include "GridReader.h"
#include "LabelFormat.h"
#include "Numbers.h"
#include "Origin.h"
#include "ViewerData.h"
#include "ViewerScene.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

using namespace KivoTest;
using namespace KivoViewer;
using KivoDrawingTools::Compare;
using KivoDrawingTools::Image;

namespace {

// An ASCII grid of a slope across and along.
std::string Slope(const char* x, const char* y, const char* cell, int count, double z, double step) {
    const std::string size = std::to_string(count);
    std::string text = "ncols " + size + "\nnrows " + size + "\nxllcenter " + x + "\nyllcenter " + y +
                       "\ncellsize " + cell + '\n';
    for (int r = 0; r < count; ++r) {
        for (int c = 0; c < count; ++c)
            text += FormatNumber(z + step * (c + count - 1 - r)) + ' ';
        text += '\n';
    }
    return text;
}

TEST(ViewerOriginTest, KeepsNumbersThatSinglePrecisionHolds) {
    EXPECT_EQ(OriginOfCoordinates({-3, -1.5, 0.1, 2}), 0.0);
    EXPECT_EQ(OriginOfCoordinates({0.1, 0.2, 0.3}), 0.0);
    EXPECT_EQ(OriginOfCoordinates({5000, 5010, 5020}), 0.0) << "whole numbers";
    EXPECT_EQ(OriginOfCoordinates({2000, 2001, 2024}), 0.0) << "years";
    EXPECT_EQ(OriginOfValues({412.3, 1203.7, hole, 280.25}), 0.0);
    EXPECT_EQ(OriginOfValues({1000000.1, 1000000.1}), 0.0) << "a plain has no range";
    EXPECT_EQ(OriginOfValues({hole, hole}), 0.0);
    EXPECT_EQ(OriginOfValues({-3e38, 3e38}), 0.0);
}

TEST(ViewerOriginTest, IsARoundNumberBelowTheSmallest) {
    EXPECT_EQ(OriginOfCoordinates({5630012.25, 5630012.5, 5630012.75}), 5630012.2);
    EXPECT_EQ(OriginOfCoordinates({5630745.05, 5630845.15, 5630945.25}), 5630700.0);
    EXPECT_EQ(OriginOfCoordinates({5630000, 5629999.9, 5629999.8}), 5629999.8) << "falling ones, too";
    EXPECT_EQ(OriginOfValues({hole, 1000000.4, 1000002.1}), 1000000.0);
    EXPECT_EQ(OriginOfValues({-1000000.4, -1000002.1}), -1000003.0);
    EXPECT_EQ(OriginOfValues({293.15, 293.16}), 293.15);
    EXPECT_EQ(OriginOfCoordinates({7000000, 7000001, 7000002}), 7000000.0) << "far beyond the range";
}

TEST(ViewerOriginTest, KeepsAllDigitsOfNationalGrids) {
    for (const char* const cell : {"0.5", "0.25", "0.1", "0.001"}) {
        const GridData grid = ReadGrid(Slope("440000.3", "5630000", cell, 50, 1e6, 0.1), "north.asc");
        const double step = *ParseNumber(cell);
        for (int i = 0; i < 50; ++i) {
            EXPECT_NEAR(AbsoluteNumber(grid.origin[0], grid.x[i]), 440000.3 + i * step, 1e-6 * step);
            EXPECT_NEAR(AbsoluteNumber(grid.origin[1], grid.y[i]), 5630000.0 + i * step, 1e-6 * step);
            EXPECT_NEAR(AbsoluteNumber(grid.origin[2], grid.z[i]), 1e6 + i * 0.1, 1e-6);
        }
    }
}

TEST(ViewerNumbersTest, WritesTheDigitsThatTellNeighboursApart) {
    const struct {
        double number;
        double step;
        const char* text;
    } cases[] = {
        {5630012.25, 0.01, "5630012.25"},
        {5630012.25, 0.1, "5630012.2"}, // to even
        {5630012.25, 0.025, "5630012.25"},
        {-0.0004, 0.01, "0.00"},
        {-0.006, 0.01, "-0.01"},
        {412.6, 1.0, "413"},
        {412.6, 20.0, "413"},
        {1.5e30, 1e28, "1.5e+30"},
        {1.25e-12, 1e-14, "1.25e-12"},
        {2.0, 0.0, "2"},
        {0.0, 0.0, "0"},
    };
    for (const auto& each : cases)
        EXPECT_EQ(FormatStep(each.number, each.step), each.text) << each.number << ' ' << each.step;
}

TEST(ViewerLabelsTest, WritesNumbersInOtherWords) {
    const struct {
        const char* format;
        double value;
        double step;
        const char* text;
    } cases[] = {
        {"engineering", 12500, 500, "12.5k"},
        {"engineering", 10000, 2500, "10.0k"},
        {"engineering", -0.00047, 0.00001, "-470µ"},
        {"engineering", 999.5, 0.5, "999.5"},
        {"engineering", 5e6, 1e6, "5M"},
        {"engineering", 0, 1, "0"},
        {"engineering", 1e-9, 1, "0"},
        {"engineering", 3e27, 1e27, "3000Y"},
        {"engineering", 47000, 0, "47.0000k"},
        {"powers", 12500, 500, "1.25·10⁴"},
        {"powers", 10000, 2500, "1.00·10⁴"},
        {"powers", -0.02, 0.01, "-2·10⁻²"},
        {"powers", 3e-20, 1e-3, "0"},
        {"date", 0, 1, "1970-01-01"},
        {"date", -1, 7, "1969-12-31"},
        {"date", 11016, 1, "2000-02-29"},
        {"date", 11017, 1, "2000-03-01"},
        {"date", 20599, 30, "2026-05-26"},
        {"date", 20599.75, 0.25, "2026-05-26 18:00"},
        {"date", 20599.999999, 0.25, "2026-05-27 00:00"},
        {"date", 20599.5 + 1.0 / 86400, 1e-5, "2026-05-26 12:00:01"},
        {"date", -719528, 1, "0000-01-01"},
        {"date", 1e12, 1, "1e+12"},
    };
    for (const auto& each : cases)
        EXPECT_EQ(LabelFormatOf(each.format)(each.value, each.step), each.text)
            << each.format << ' ' << each.value;
    EXPECT_FALSE(LabelFormatOf("plain"));
    EXPECT_FALSE(LabelFormatOf("Date"));
}

class ViewerOriginSceneTest : public ViewerScene {
protected:
    ViewerOriginSceneTest() { m_scene.ShowGrid(Far()); }

    // The hill, far from 0 along all axes.
    static GridData Far() {
        GridData grid = Hill();
        for (int i = 0; i < 3; ++i)
            grid.origin[i] = origin[i];
        return grid;
    }

    static constexpr double origin[] = {440000.0, 5630000.0, 1e6};
};

TEST_F(ViewerOriginSceneTest, ShowsTheSurfaceAsNearTo0) {
    for (int i = 0; i < 3; ++i) {
        AxisSettings& axis = m_scene.Settings().axes[i];
        axis.min = origin[i] - 2.0;
        axis.max = origin[i] + 2.0;
    }
    m_scene.ApplyAxes();
    EXPECT_EQ(m_scene.Plotter().GetXAxisMin(), -2.0f);
    EXPECT_EQ(m_scene.Plotter().GetYAxisMax(), 2.0f);
    EXPECT_EQ(m_scene.Plotter().GetZAxisMin(), -2.0f);
    const Image distant = Draw();
    const auto isColorful = [](const unsigned char* rgb) {
        return std::max({rgb[0], rgb[1], rgb[2]}) - std::min({rgb[0], rgb[1], rgb[2]}) > 60;
    };
    for (AxisSettings& axis : m_scene.Settings().axes) {
        axis.min = -2.0;
        axis.max = 2.0;
    }
    m_scene.ShowGrid(Hill());
    const Image close = Draw();
    EXPECT_GT(Compare(distant, close).max, 50) << "the labels";
    int differing = 0;
    for (int y = 0; y < distant.height; ++y)
        for (int x = 0; x < distant.width; ++x)
            differing += isColorful(distant.Pixel(x, y)) != isColorful(close.Pixel(x, y));
    EXPECT_LT(differing, 60);
}

TEST_F(ViewerOriginSceneTest, HasAxesInAbsoluteNumbers) {
    const PlotSettings effective = m_scene.Effective();
    EXPECT_EQ(TextOf(FindSetting("x-min"), effective), "439998");
    EXPECT_EQ(TextOf(FindSetting("y-max"), effective), "5630002");
    EXPECT_EQ(effective.colorRange->to, 1000001.0);
    const Image before = Draw();
    Set("y-min", "5629997.3");
    EXPECT_FLOAT_EQ(m_scene.Plotter().GetYAxisMin(), -2.7f);
    Set("color-range", "1000000.5:1000001");
    EXPECT_GT(Compare(before, Draw()).max, 50);
    Unset("y-min");
    Unset("color-range");
    EXPECT_EQ(Compare(before, Draw()).max, 0);
}

TEST_F(ViewerOriginSceneTest, ReadsOutAllDigits) {
    const float point[] = {0.125f, -0.25f, 0.5f};
    EXPECT_EQ(m_scene.ReadOut(point), "x = 440000.125   y = 5629999.750   z = 1000000.500");
    Set("y-labels", "engineering");
    EXPECT_EQ(m_scene.ReadOut(point), "x = 440000.125   y = 5.629999750M   z = 1000000.500");
    m_scene.ShowGrid(Hill());
    Unset("y-labels");
    EXPECT_EQ(m_scene.ReadOut(point), "x = 0.125   y = -0.250   z = 0.5000");
}

// Points are where they are, whatever the plot's numbers are differences to.
TEST_F(ViewerOriginSceneTest, ShowsPointsInAbsoluteNumbers) {
    const auto isCyan = [](const unsigned char* rgb) { return rgb[0] < 60 && rgb[1] > 150 && rgb[2] > 150; };
    Set("gradient-start", "red"); // nothing else is cyan
    Set("gradient-end", "red");
    for (const PointSet::Kind kind : {PointSet::Kind::measureGroup, PointSet::Kind::curve}) {
        m_scene.AddPoints(kind, {"far", {439999, 5630000, 1000001.2, 440001, 5630000, 1000001.2}});
        PointSet set = kind == PointSet::Kind::curve ? m_scene.PointSets().back() : m_scene.PointSets()[0];
        set.color = {0, 255, 255};
        m_scene.ChangePoints(set);
        EXPECT_GT(Draw().Count(isCyan), 20);
        set.isShown = kind == PointSet::Kind::measureGroup;
        m_scene.ChangePoints(set);
    }
    m_scene.ShowGrid(Hill());
    EXPECT_EQ(Draw().Count(isCyan), 0) << "far away";
    m_scene.ShowGrid(Far());
    EXPECT_GT(Draw().Count(isCyan), 20);
}

} // namespace
