// From where the viewer shows a plot: as it is told, through other sizes and grids, and back at the start.
#include "PlotScene.h"
#include "SettingTable.h"
#include "support/Image.h"
#include "support/PngImage.h"
#include "ViewerWindow.h"

#include <KivoWindow.h>

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

using namespace KivoTest;
using namespace KivoViewer;
using KivoDrawingTools::CaptureImage;
using KivoDrawingTools::Compare;
using KivoDrawingTools::Image;
using KivoDrawingTools::SKivoView;

namespace {

// A wave of so many points a side, so high.
GridData Wave(int points, float height) {
    GridData grid;
    for (int i = 0; i < points; ++i) {
        grid.x.push_back(static_cast<float>(i) * 0.25f);
        grid.y.push_back(static_cast<float>(i) * 0.5f - 1.0f);
    }
    for (const float y : grid.y)
        for (const float x : grid.x)
            grid.z.push_back(height * std::sin(x) * std::cos(y));
    return grid;
}

// A scene in a window without a screen.
class ViewerViewTest : public testing::Test {
protected:
    ViewerViewTest() : m_window(KivoDrawingTools::CreateOffscreenWindow(480, 360)) {
        EXPECT_EQ(m_plotter.OnCreate(m_window, 480, 360, true), 0);
        m_scene.ShowGrid(Wave(20, 1.0f));
    }
    ~ViewerViewTest() override {
        m_plotter.OnDestroy();
        KivoDrawingTools::ReleaseWindow(m_window);
    }

    Image Draw() { return CaptureImage(m_scene.Plotter()); }

    void Move() {
        m_scene.Plotter().Rotate({0, 0}, {80, 30});
        m_scene.Plotter().Translate({0, 0}, {40, -25});
        m_scene.Plotter().Zoom(0.7f);
    }

    void Set(const std::string& name, const std::string& text) {
        const Setting& setting = FindSetting(name);
        SetFromText(setting, text, m_scene.Settings());
        (m_scene.*setting.apply)();
    }

    void ExpectView(const SKivoView& expected) {
        const SKivoView view = m_scene.View();
        EXPECT_EQ(view.plotType, expected.plotType);
        for (int i = 0; i < 9; ++i)
            EXPECT_NEAR(view.rotation[i], expected.rotation[i], 1e-9) << i;
        EXPECT_NEAR(view.panX, expected.panX, 1e-9);
        EXPECT_NEAR(view.panY, expected.panY, 1e-9);
        EXPECT_NEAR(view.zoom, expected.zoom, 1e-9);
    }

    void ExpectAngles(double expectedAzimuth, double expectedElevation) {
        double azimuth = 0.0, elevation = 0.0;
        EXPECT_EQ(GetViewAngles(m_scene.Plotter(), azimuth, elevation), 0);
        EXPECT_NEAR(azimuth, expectedAzimuth, 0.01);
        EXPECT_NEAR(elevation, expectedElevation, 0.01);
    }

    KivoDrawingTools::HWND m_window;
    ViewerPlotter m_plotter;
    PlotScene m_scene{m_plotter};
};

TEST_F(ViewerViewTest, IsFromWhereItIsTold) {
    m_scene.ShowFrom({-60.0, 35.0, 1.5});
    ExpectAngles(-60.0, 35.0);
    EXPECT_NEAR(m_scene.View().zoom, 1.5, 1e-9);
    m_scene.ResetView();
    m_scene.ShowFrom({{}, 80.0, {}});
    ExpectAngles(45.0, 80.0);
    EXPECT_NEAR(m_scene.View().zoom, 1.0, 1e-9);
    m_scene.ResetView();
    m_scene.ShowFrom({10.0, {}, {}});
    ExpectAngles(10.0, 25.26);
}

TEST_F(ViewerViewTest, IsTheStartViewWithoutAWord) {
    const Image start = Draw();
    m_scene.ShowFrom({});
    EXPECT_EQ(Compare(start, Draw()).max, 0);
}

TEST_F(ViewerViewTest, OfFlatPlotsIsEnlargedAndNotTurned) {
    m_scene.Settings().mode = 2;
    m_scene.ApplyView();
    SKivoView view = m_scene.View();
    m_scene.ShowFrom({10.0, 20.0, 0.5});
    view.zoom = 0.5;
    ExpectView(view);
}

TEST_F(ViewerViewTest, StaysAtAnotherSize) {
    for (const char* const aspect : {"on", "off"}) {
        Set("auto-aspect", aspect);
        Set("z-max", "4");
        for (int mode = 0; mode < 4; ++mode) {
            m_scene.Settings().mode = mode;
            m_scene.ApplyView();
            if (mode == 0) Move();
            m_scene.Plotter().Zoom(1.3f);
            const SKivoView view = m_scene.View();
            m_scene.Resize(300, 400);
            ExpectView(view);
            m_scene.Resize(480, 360);
            ExpectView(view);
        }
    }
}

TEST_F(ViewerViewTest, StaysWhenAGridComesAgain) {
    Move();
    const SKivoView view = m_scene.View();
    m_scene.ShowGrid(Wave(24, 30.0f));
    ExpectAngles(45.0, 25.26);
    m_scene.ShowView(view);
    ExpectView(view);
}

// Whatever was shown before: the light, too, is that of a first grid.
TEST_F(ViewerViewTest, OfTheStartIsThatOfANewScene) {
    const Image start = Draw();
    for (int mode = 0; mode < 4; ++mode) {
        m_scene.Settings().mode = mode;
        m_scene.ApplyView();
        m_scene.ResetView();
        const Image first = Draw();
        m_scene.ShowGrid(Wave(9, 50.0f));
        Move();
        Draw();
        m_scene.ShowGrid(Wave(20, 1.0f));
        EXPECT_EQ(Compare(first, Draw()).max, 0) << mode;
        Move();
        m_scene.ResetView();
        EXPECT_EQ(Compare(first, Draw()).max, 0) << mode;
    }
    m_scene.Settings().mode = 0;
    m_scene.ApplyView();
    m_scene.ResetView();
    EXPECT_EQ(Compare(start, Draw()).max, 0);
}

// ---- In the window

class ViewerWindowViewTest : public ViewerWindow {};

TEST_F(ViewerWindowViewTest, IsThatOfThePicture) {
    const std::vector<std::string> view = {"--azimuth", "-60", "--elevation", "50", "--zoom", "1.4"};
    std::vector<std::string> arguments = {"--size",
                                          std::to_string(plotWidth) + "x" + std::to_string(plotHeight)};
    arguments.insert(arguments.end(), view.begin(), view.end());
    const Image before = m_start;
    Start(arguments);
    EXPECT_GT(Compare(m_start, before).mean, 4.0);
    arguments.insert(arguments.end(), {"--picture", Path("picture.png")});
    EXPECT_EQ(RunViewer(arguments, WithoutDisplay()).exitCode, 0);
    EXPECT_LT(Compare(m_start, ReadPng(Path("picture.png"))).mean, 0.5);
    const Image reset = After("reset", [this] { Press(homeKey); });
    EXPECT_EQ(Compare(reset, before).max, 0);
}

} // namespace
