// The surface of a plotter drawn by nothing but OpenGL 1.1 client arrays.
#pragma once

#include "support/PlotterProbe.h"

#include <GL/gl.h>

#include <vector>

namespace KivoBenchmark {

/// A plotter's arrays, copied, and the state in which its surface is drawn.
class BareSurface {
public:
    /// @param plotter  one that has drawn a frame of packed points
    explicit BareSurface(KivoDrawingTools::PlotterProbe& plotter);

    /// Sets the lights, matrices and viewport in the current context, which is fresh.
    void SetUp() const;
    /// Clears the window and draws the surface over its frame lines, if these are wanted; does not wait for
    /// the renderer.
    void Draw(bool withFrameLines) const;

private:
    std::vector<float> m_points;
    std::vector<float> m_colors;
    std::vector<unsigned int> m_triangles;
    std::vector<unsigned int> m_lines;
    GLint m_viewport[4] = {};
    GLdouble m_projection[16] = {};
    GLdouble m_modelView[16] = {};
    GLfloat m_lightPosition[4] = {}; ///< in eye coordinates
    GLfloat m_background[4] = {};
    GLfloat m_lineColor[4] = {};
};

} // namespace KivoBenchmark
