// Surfaces over the first one, and all of them where one shows through another.
#include "computing/ColorSpace.h"
#include "drawing/GLScopes.h"
#include "drawing/LongDraws.h"
#include "parts/KivoGradientColor.h"
#include "PictureDrawing.h"
#include "ReducedSurface.h"
#include "SurfaceLayers.h"
#include "window_system/WindowSystem.h"

#include <algorithm>
#include <cmath>
#include <new>

namespace KivoDrawingTools {

namespace {

bool IsDrawn(const SKivoSurface& looks) {
    return looks.isVisible && looks.opacity > 0.0f;
}

bool IsOpaque(const SKivoSurface& looks) {
    return looks.opacity >= 1.0f;
}

// By how much a point comes nearer to the viewer for each unit of its coordinates.
void FindNearness(float* nearness) {
    double matrix[16] = {};
    glGetDoublev(GL_MODELVIEW_MATRIX, matrix);
    for (int i = 0; i < 3; ++i)
        nearness[i] = static_cast<float>(matrix[4 * i + 2]);
}

void SetColor(const float* rgb, float opacity) {
    glColor4f(rgb[0], rgb[1], rgb[2], opacity);
}

void SetVertices(const SurfacePart& part) {
    const bool isShort = part.components <= 4;
    glVertexPointer(isShort ? static_cast<GLint>(part.components) : 3, GL_FLOAT,
                    isShort ? 0 : static_cast<GLsizei>(part.components * sizeof(float)), part.points);
}

// The colours of a part's triangles. Those of points have no opacity of their own: a texture of one texel
// brings it in.
void SetColors(const SurfacePart& part) {
    const float opacity = part.looks->opacity;
    if (!part.colors) {
        float rgba[4];
        ColorToRgba(part.looks->color, rgba);
        glDisableClientState(GL_COLOR_ARRAY);
        glDisable(GL_TEXTURE_2D);
        SetColor(rgba, opacity);
        return;
    }
    glEnableClientState(GL_COLOR_ARRAY);
    glColorPointer(4, GL_FLOAT, 0, part.colors);
    if (opacity >= 1.0f) return;
    const auto texel = static_cast<unsigned char>(std::lround(opacity * 255.0f));
    glEnable(GL_TEXTURE_2D);
    glTexImage2D(GL_TEXTURE_2D, 0, GL_ALPHA, 1, 1, 0, GL_ALPHA, GL_UNSIGNED_BYTE, &texel);
}

void DrawLinesOf(const SurfacePart& part, const float* color, float lineWidth, DrawingStop* stop) {
    if (part.lineIndexCount == 0) return;
    const LineWidthScope width(lineWidth);
    glDisable(GL_LIGHTING);
    glDisable(GL_TEXTURE_2D);
    glDisableClientState(GL_COLOR_ARRAY);
    SetColor(color, part.looks->opacity);
    SetVertices(part);
    DrawIndexed(GL_LINES, part.lines, part.lineIndexCount, stop);
    glEnable(GL_LIGHTING);
}

// A texture for the life of the object, of which its one texel is read.
class TexelScope {
public:
    TexelScope() {
        glGenTextures(1, &m_name);
        glBindTexture(GL_TEXTURE_2D, m_name);
        glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
        glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_NEAREST);
    }
    ~TexelScope() {
        glBindTexture(GL_TEXTURE_2D, 0);
        glDeleteTextures(1, &m_name);
    }
    TexelScope(const TexelScope&) = delete;
    TexelScope& operator=(const TexelScope&) = delete;

private:
    GLuint m_name = 0;
};

} // namespace

bool SurfaceAccess::IsFirstPlain(const CKivoFunctionPlotter& plotter) {
    if (!plotter.m_surfaces.layers) return true;
    const SKivoSurface& first = plotter.m_surfaces.layers->first;
    return first.isVisible && first.opacity >= 1.0f && first.isColoredByZ;
}

// The first surface, where it is not drawn as it is at first.
bool SurfaceAccess::AddFirst(CKivoFunctionPlotter& plotter, SurfacePart& part) {
    SurfaceLayers& layers = *plotter.m_surfaces.layers;
    if (!plotter.HasDrawablePoints() || !plotter.m_colorArray || !plotter.m_indexArray) return false;
    const bool isReduced = plotter.m_isFrameReduced && plotter.m_reducedSurface;
    const SurfaceArrays arrays = isReduced ? plotter.m_reducedSurface->Arrays() : plotter.WholeSurface();
    try {
        if (!isReduced && layers.stripPoints != plotter.m_points) {
            const unsigned int floats = plotter.m_componentCount, columns = plotter.m_columnCount;
            layers.firstStrips =
                CellStrips({plotter.m_points, columns, plotter.m_rowCount, floats, columns * floats}, {});
            layers.stripPoints = plotter.m_points;
        }
        part.strips = isReduced ? &plotter.m_reducedSurface->Strips() : &layers.firstStrips;
    } catch (const std::bad_alloc&) {
        return false;
    }
    part.points = arrays.points;
    part.components = arrays.components;
    part.pointCount = arrays.pointCount;
    part.colors = layers.first.isColoredByZ ? arrays.colors : nullptr;
    part.lines = arrays.lines;
    part.lineIndexCount = plotter.m_showFrameLines && arrays.lines ? arrays.lineIndexCount : 0;
    part.looks = &layers.first;
    return true;
}

// What is opaque, or what shows through.
void SurfaceAccess::Collect(CKivoFunctionPlotter& plotter, bool isOpaque) {
    SurfaceLayers& layers = *plotter.m_surfaces.layers;
    layers.parts.clear();
    SurfacePart part = {};
    if (!IsFirstPlain(plotter) && IsDrawn(layers.first) && IsOpaque(layers.first) == isOpaque &&
        AddFirst(plotter, part))
        layers.parts.push_back(part);
    for (SurfaceLayer& whole : layers.over) {
        if (!IsDrawn(whole.Looks()) || IsOpaque(whole.Looks()) != isOpaque) continue;
        SurfaceLayer& layer = plotter.m_detailOfFrame != 0 ? whole.Reduced(plotter.m_detailOfFrame) : whole;
        if (&layer != &whole) plotter.m_areLayersReduced = true;
        if (plotter.m_zGradientColor) layer.UpdateColors(*plotter.m_zGradientColor);
        layers.parts.push_back({layer.Grid().points, 3, layer.PointCount(), layer.Colors(), &layer.Strips(),
                                layer.Lines().data(), layer.Lines().size(), &layer.Looks()});
    }
}

void SurfaceAccess::DrawTriangles(const CKivoFunctionPlotter& plotter, const TriangleCorners& corners,
                                  const unsigned int* indices, std::size_t count) {
    DrawingStop* const stop = PictureAccess::Stop(plotter);
    // How much a movement shows is measured in one view, and has to be as fast where it zooms in.
    const bool isBounded = plotter.m_detailOfFrame != 0;
    if (!isBounded && plotter.m_surfaces.layers && plotter.m_surfaces.layers->culled)
        plotter.m_surfaces.layers->culled->Draw(corners, indices, count, stop);
    else
        DrawIndexed(GL_TRIANGLES, indices, count, stop);
}

// As the first surface is drawn: lines, then the triangles behind them.
void SurfaceAccess::DrawOpaque(CKivoFunctionPlotter& plotter) {
    if (!plotter.m_surfaces.layers) return;
    Collect(plotter, true);
    if (plotter.m_surfaces.layers->parts.empty()) return;
    DrawingStop* const stop = PictureAccess::Stop(plotter);
    float nearness[3];
    FindNearness(nearness);
    glEnableClientState(GL_VERTEX_ARRAY);
    for (const SurfacePart& part : plotter.m_surfaces.layers->parts) {
        if (part.strips->Indices().empty()) part.strips->Arrange(nearness, stop); // in any order
        DrawLinesOf(part, plotter.m_framelineColor, plotter.m_pixelScale, stop);
        SetVertices(part);
        SetColors(part);
        glPolygonOffset(plotter.m_pixelScale, 1.0f);
        glEnable(GL_POLYGON_OFFSET_FILL);
        DrawTriangles(plotter, {part.points, part.components, part.pointCount}, part.strips->Indices().data(),
                      part.strips->Indices().size());
        glDisable(GL_POLYGON_OFFSET_FILL);
    }
    glDisableClientState(GL_VERTEX_ARRAY);
    glDisableClientState(GL_COLOR_ARRAY);
}

// From far to near, over all that is opaque, and behind what of that is nearer; then their lines.
void SurfaceAccess::DrawSeeThrough(CKivoFunctionPlotter& plotter) {
    if (!plotter.m_surfaces.layers) return;
    SurfaceLayers& layers = *plotter.m_surfaces.layers;
    Collect(plotter, false);
    if (layers.parts.empty()) return;
    DrawingStop* const stop = PictureAccess::Stop(plotter);
    float nearness[3];
    FindNearness(nearness);
    layers.strips.clear();
    for (const SurfacePart& part : layers.parts) {
        part.strips->Arrange(nearness, stop);
        layers.strips.push_back(part.strips);
    }

    glPushAttrib(GL_ENABLE_BIT | GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    glEnable(GL_BLEND);
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    glDepthMask(GL_FALSE);
    glEnableClientState(GL_VERTEX_ARRAY);
    {
        const TexelScope texel;
        const SurfacePart* last = nullptr;
        for (const StripRun& run : layers.merge.Merge(layers.strips)) {
            const SurfacePart& part = layers.parts[run.grid];
            if (&part != last) {
                SetVertices(part);
                SetColors(part);
                last = &part;
            }
            DrawIndexed(GL_TRIANGLES, part.strips->Indices().data() + run.begin, run.end - run.begin, stop);
        }
    }
    for (const SurfacePart& part : layers.parts)
        DrawLinesOf(part, plotter.m_framelineColor, plotter.m_pixelScale, stop);
    glDisableClientState(GL_VERTEX_ARRAY);
    glDisableClientState(GL_COLOR_ARRAY);
    glPopAttrib();
}

} // namespace KivoDrawingTools
