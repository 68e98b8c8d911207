#include "BareSurface.h"

#include <algorithm>
#include <cstddef>
#include <iterator>

namespace KivoBenchmark {

BareSurface::BareSurface(KivoDrawingTools::PlotterProbe& plotter) {
    const std::size_t count = plotter.m_vertexCount;
    m_points.assign(plotter.m_points, plotter.m_points + 3 * count);
    m_colors.assign(plotter.m_colorArray, plotter.m_colorArray + 4 * count);
    m_triangles.assign(plotter.m_indexArray, plotter.m_indexArray + plotter.m_indexCount);
    m_lines.assign(plotter.m_framelineIndexArray,
                   plotter.m_framelineIndexArray + plotter.m_framelineIndexCount);
    std::copy(std::begin(plotter.m_backgroundColor), std::end(plotter.m_backgroundColor), m_background);
    std::copy(std::begin(plotter.m_framelineColor), std::end(plotter.m_framelineColor), m_lineColor);

    plotter.BeginGLOperation();
    glGetIntegerv(GL_VIEWPORT, m_viewport);
    glGetDoublev(GL_PROJECTION_MATRIX, m_projection);
    glGetDoublev(GL_MODELVIEW_MATRIX, m_modelView);
    glGetLightfv(GL_LIGHT0, GL_POSITION, m_lightPosition);
    plotter.EndGLOperation();
}

void BareSurface::SetUp() const {
    constexpr GLfloat ambient[] = {0.65f, 0.65f, 0.65f, 1.0f};
    constexpr GLfloat diffuse[] = {0.2f, 0.2f, 0.2f, 1.0f};
    constexpr GLfloat specular[] = {0.4f, 0.4f, 0.4f, 1.0f};
    constexpr GLfloat materialSpecular[] = {0.11f, 0.11f, 0.11f, 1.0f};
    glLightModeli(GL_LIGHT_MODEL_TWO_SIDE, GL_TRUE);
    glColorMaterial(GL_FRONT_AND_BACK, GL_AMBIENT_AND_DIFFUSE);
    glEnable(GL_COLOR_MATERIAL);
    glMaterialfv(GL_FRONT_AND_BACK, GL_SPECULAR, materialSpecular);
    glLightfv(GL_LIGHT0, GL_AMBIENT, ambient);
    glLightfv(GL_LIGHT0, GL_DIFFUSE, diffuse);
    glLightfv(GL_LIGHT0, GL_SPECULAR, specular);
    glLightfv(GL_LIGHT0, GL_POSITION, m_lightPosition); // the model-view matrix is still the identity
    glEnable(GL_LIGHT0);
    glEnable(GL_DEPTH_TEST);
    glViewport(m_viewport[0], m_viewport[1], m_viewport[2], m_viewport[3]);
    glMatrixMode(GL_PROJECTION);
    glLoadMatrixd(m_projection);
    glMatrixMode(GL_MODELVIEW);
    glLoadMatrixd(m_modelView);
    glPolygonOffset(1.0f, 1.0f);
}

void BareSurface::Draw(bool withFrameLines) const {
    glClearColor(m_background[0], m_background[1], m_background[2], m_background[3]);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    glEnableClientState(GL_VERTEX_ARRAY);
    glVertexPointer(3, GL_FLOAT, 0, m_points.data());
    if (withFrameLines) {
        glColor4fv(m_lineColor);
        glDrawElements(GL_LINES, static_cast<GLsizei>(m_lines.size()), GL_UNSIGNED_INT, m_lines.data());
    }
    glEnable(GL_LIGHTING);
    glEnable(GL_POLYGON_OFFSET_FILL);
    glEnableClientState(GL_COLOR_ARRAY);
    glColorPointer(4, GL_FLOAT, 0, m_colors.data());
    glDrawElements(GL_TRIANGLES, static_cast<GLsizei>(m_triangles.size()), GL_UNSIGNED_INT,
                   m_triangles.data());
    glDisableClientState(GL_COLOR_ARRAY);
    glDisable(GL_POLYGON_OFFSET_FILL);
    glDisable(GL_LIGHTING);
    glDisableClientState(GL_VERTEX_ARRAY);
}

} // namespace KivoBenchmark
