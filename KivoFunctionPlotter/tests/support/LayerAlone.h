// One layer of a plot by itself, to be judged in pixels.
#pragma once

#include "Image.h"
#include "Matrices.h"
#include "TestWindow.h"

#include <algorithm>
#include <stdexcept>

namespace KivoDrawingTools {

/// A layer on white, seen along -z without perspective; the data's origin lies on the middle of the picture,
/// where four pixels meet.
template <typename Plotter, int pictureWidth, int pictureHeight>
class LayerAlone : public WindowTest {
protected:
    static constexpr int width = pictureWidth, height = pictureHeight;

    LayerAlone() {
        if (plotter.OnCreate(window.Handle(), width, height, true) != 0)
            throw std::runtime_error(LastWindowError());
        const int viewport[] = {0, 0, width, height};
        std::copy_n(viewport, 4, plotter.m_plotViewport);
        plotter.m_panFractionX = plotter.m_panFractionY = 0.0;
        std::copy_n(Identity().data(), 16, plotter.m_rotationMatrix);
        SetCamera(1.0, 1.0, 1.0, 1.0);
    }

    /// pixel: its length in units of the view volume.
    void SetCamera(double pixel, double scaleX, double scaleY, double scaleZ) {
        plotter.m_viewRight = width / 2 * pixel;
        plotter.m_viewLeft = -plotter.m_viewRight;
        plotter.m_viewTop = height / 2 * pixel;
        plotter.m_viewBottom = -plotter.m_viewTop;
        plotter.m_viewFar = 1000.0 * pixel;
        plotter.m_viewNear = -plotter.m_viewFar;
        const double scale[] = {scaleX, scaleY, scaleZ};
        std::copy_n(scale, 3, plotter.m_axisScale);
    }

    /// What a function draws in the plot's context; it must leave lighting as it is, and no error.
    template <typename Layer>
    Image Draw(bool isLit, Layer layer) {
        const CurrentContext context(plotter);
        plotter.ApplyViewVolume();
        plotter.ApplyModelViewMatrix();
        glClearColor(1, 1, 1, 1);
        glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
        (isLit ? glEnable : glDisable)(GL_LIGHTING);
        glGetError(); // making the fonts leaves one on some systems
        layer();
        EXPECT_EQ(glIsEnabled(GL_LIGHTING) == GL_TRUE, isLit);
        EXPECT_EQ(glGetError(), GLenum{GL_NO_ERROR});
        return ReadBuffer(GL_BACK, width, height);
    }

    TestWindow window{GetParam(), width, height};
    Plotter plotter;
};

} // namespace KivoDrawingTools
