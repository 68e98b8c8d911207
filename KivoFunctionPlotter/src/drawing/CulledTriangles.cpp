#include "CulledTriangles.h"

#include "LongDraws.h"
#include "window_system/WindowSystem.h"

#include <algorithm>
#include <string_view>

namespace KivoDrawingTools {

namespace {

constexpr GLenum sampleBuffers = 0x80A8; // GL_SAMPLE_BUFFERS, which headers of 1.1 do not have

// The parts of a drawing between which a stop is asked for are those that are culled.
static_assert(TriangleCulling::mostIndices == elementsAtATime);

// Whether triangles are looked for in other places of a pixel than its middle. OpenGL 1.3 and the extension
// before it know the question.
bool HasSamples() {
    const auto text = [](GLenum name) {
        const auto* const found = reinterpret_cast<const char*>(glGetString(name));
        return std::string_view(found ? found : "");
    };
    const std::string_view version = text(GL_VERSION);
    if (version.size() < 3 || version[0] < '1' || version[0] > '9' || version[1] != '.') return true;
    const bool isOld = version[0] == '1' && version[2] < '3';
    if (isOld && text(GL_EXTENSIONS).find("GL_ARB_multisample") == std::string_view::npos) return false;
    GLint buffers = 0;
    glGetIntegerv(sampleBuffers, &buffers);
    return buffers != 0;
}

// Whether a triangle colours the pixels whose middles it covers, now, and does nothing else.
bool AreMiddlesAll() {
    GLint modes[2] = {}, rendering = 0, list = 0;
    glGetIntegerv(GL_POLYGON_MODE, modes);
    glGetIntegerv(GL_RENDER_MODE, &rendering);
    glGetIntegerv(GL_LIST_INDEX, &list); // what is noted may be drawn in another view
    return modes[0] == GL_FILL && modes[1] == GL_FILL && rendering == GL_RENDER && list == 0 &&
           !glIsEnabled(GL_POLYGON_SMOOTH) && !HasSamples();
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
