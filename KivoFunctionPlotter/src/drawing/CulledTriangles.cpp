#include "CulledTriangles.h"

#include "LongDraws.h"
#include "window_system/WindowSystem.h"

#include <algorithm>

namespace KivoDrawingTools {

namespace {

constexpr GLenum samplesOfPixel = 0x80A9; // GL_SAMPLES, which headers of 1.1 do not have

// Asked from OpenGL 1.3 on, which has it.
bool HasSeveralSamples() {
    const GLubyte* const version = glGetString(GL_VERSION);
    if (!version || version[0] < '1' || version[0] > '9') return true;
    const bool isOld = version[0] == '1' && version[1] == '.' && version[2] < '3';
    if (isOld) return false;
    GLint samples = 0;
    glGetIntegerv(samplesOfPixel, &samples);
    return samples > 1;
}

// Whether a triangle colours the pixels whose middles it covers, and does nothing else.
bool AreMiddlesAll() {
    GLint modes[2] = {}, rendering = 0;
    glGetIntegerv(GL_POLYGON_MODE, modes);
    glGetIntegerv(GL_RENDER_MODE, &rendering);
    return modes[0] == GL_FILL && modes[1] == GL_FILL && rendering == GL_RENDER &&
           !glIsEnabled(GL_POLYGON_SMOOTH) && !HasSeveralSamples();
}

} // namespace

bool CulledTriangles::FindMapping(std::size_t triangles) {
    GLint viewport[4] = {};
    glGetIntegerv(GL_VIEWPORT, viewport);
    // Fewer, larger ones have few among them that no pixel shows.
    const double pixels = static_cast<double>(viewport[2]) * viewport[3];
    if (static_cast<double>(triangles) < pixels / 2.0 || !AreMiddlesAll()) return false;
    GLdouble modelView[16] = {}, projection[16] = {};
    GLint bits = 0;
    glGetDoublev(GL_MODELVIEW_MATRIX, modelView);
    glGetDoublev(GL_PROJECTION_MATRIX, projection);
    glGetIntegerv(GL_SUBPIXEL_BITS, &bits);
    PixelMapping mapping;
    if (!mapping.Find(modelView, projection, viewport, bits)) return false;
    m_culling.SetMapping(mapping);
    return true;
}

void CulledTriangles::Draw(const TriangleCorners& corners, const unsigned int* indices, std::size_t count,
                           DrawingStop* stop) {
    constexpr std::size_t homogeneous = 4; // OpenGL divides by the last of four floats
    if (corners.components == homogeneous || !FindMapping(count / 3))
        return DrawIndexed(GL_TRIANGLES, indices, count, stop);
    constexpr std::size_t most = TriangleCulling::mostIndices;
    for (std::size_t start = 0; start < count && !IsStopped(stop); start += most) {
        const TriangleCulling::Kept kept = m_culling.Cull(corners.points, corners.components, corners.count,
                                                          indices + start, std::min(count - start, most));
        if (kept.count != 0) DrawIndexed(GL_TRIANGLES, kept.indices, kept.count);
    }
}

} // namespace KivoDrawingTools
