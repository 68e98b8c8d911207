// A plotter in an off-screen window of its own: what a control should show.
#pragma once

#include "Image.h"
#include "KivoPicture.h"
#include "KivoStyle.h"
#include "KivoWindow.h"

#include <gtest/gtest.h>

namespace KivoTest {

class BarePlot {
public:
    /// @param density  the pixel scale of its style
    BarePlot(int width, int height, float density = 1.0f)
        : m_window(KivoDrawingTools::CreateOffscreenWindow(width, height)) {
        constexpr int textPoints = 10;
        EXPECT_EQ(plotter.OnCreate(m_window, width, height, textPoints, true), 0);
        KivoDrawingTools::SKivoStyle style;
        style.pixelScale = density;
        EXPECT_EQ(KivoDrawingTools::SetStyle(plotter, style), 0);
    }
    ~BarePlot() {
        plotter.OnDestroy();
        KivoDrawingTools::ReleaseWindow(m_window);
    }
    BarePlot(const BarePlot&) = delete;
    BarePlot& operator=(const BarePlot&) = delete;

    /// A frame as a control shows it at rest.
    KivoDrawingTools::Image Smooth() {
        KivoDrawingTools::SKivoPictureOptions options;
        options.smoothing = 2;
        KivoDrawingTools::Image image;
        EXPECT_EQ(CapturePicture(plotter, options, image.rgba, image.width, image.height), 0);
        return image;
    }

    KivoDrawingTools::CKivoFunctionPlotter plotter;

private:
    KivoDrawingTools::HWND m_window;
};

} // namespace KivoTest
