// The viewer's scene in a window without a screen.
#pragma once

#include "GridData.h"
#include "PlotScene.h"
#include "SettingTable.h"
#include "support/Image.h"
#include "support/PlotterProbe.h"

#include <KivoWindow.h>

#include <gtest/gtest.h>

#include <string>

namespace KivoTest {

/// A hill of the height 1 around 0, which single precision holds.
inline KivoViewer::GridData Hill() {
    KivoViewer::GridData grid;
    grid.title = "Hill";
    for (int i = 0; i <= 20; ++i) {
        grid.x.push_back(static_cast<float>(i) * 0.2f - 2.0f);
        grid.y.push_back(static_cast<float>(i) * 0.2f - 2.0f);
    }
    for (const float y : grid.y)
        for (const float x : grid.x)
            grid.z.push_back(1.0f / (1.0f + x * x + 2.0f * y * y));
    return grid;
}

/// The same grid higher up.
inline KivoViewer::GridData Shifted(KivoViewer::GridData grid, float height) {
    grid.title = "Shifted";
    for (float& z : grid.z)
        z += height;
    return grid;
}

class ViewerScene : public testing::Test {
protected:
    ViewerScene() : m_window(KivoDrawingTools::CreateOffscreenWindow(480, 360)) {
        EXPECT_EQ(m_plotter.OnCreate(m_window, 480, 360, true), 0);
        m_scene.ShowGrid(Hill());
    }
    ~ViewerScene() override {
        m_plotter.OnDestroy();
        KivoDrawingTools::ReleaseWindow(m_window);
    }

    KivoDrawingTools::Image Draw() { return KivoDrawingTools::CaptureImage(m_scene.Plotter()); }

    void Set(const std::string& name, const std::string& text) {
        const KivoViewer::Setting& setting = KivoViewer::FindSetting(name);
        SetFromText(setting, text, m_scene.Settings());
        (m_scene.*setting.apply)();
    }

    void Unset(const std::string& name) {
        const KivoViewer::Setting& setting = KivoViewer::FindSetting(name);
        Copy(setting, KivoViewer::PlotSettings(), m_scene.Settings());
        (m_scene.*setting.apply)();
    }

    KivoDrawingTools::HWND m_window;
    KivoViewer::ViewerPlotter m_plotter;
    KivoViewer::PlotScene m_scene{m_plotter};
};

} // namespace KivoTest
