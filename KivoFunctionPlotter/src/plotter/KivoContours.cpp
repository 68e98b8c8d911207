#include "KivoContours.h"

#include "Arguments.h"
#include "computing/MarchingSquares.h"
#include "ContourAccess.h"
#include "drawing/ClipScope.h"
#include "NewContours.h"
#include "parts/KivoGradientColor.h"
#include "PictureDrawing.h"
#include "ReducedSurface.h"
#include "SurfaceLayers.h"
#include "window_system/WindowSystem.h"

#include <algorithm>
#include <cmath>

namespace KivoDrawingTools {

namespace {

constexpr int mostTexels = 2048; // of which every system takes a row

} // namespace

// What takes memory comes first.
int ContourAccess::SetInterval(CKivoFunctionPlotter& plotter, int axis, double interval, double base) {
    std::vector<SKivoIsoContour>* const all[] = {&plotter.m_flatXIsoContours, &plotter.m_flatYIsoContours,
                                                 &plotter.m_flatZIsoContours};
    double& presentInterval = plotter.m_contourInterval[axis];
    double& presentBase = plotter.m_contourBase[axis];
    if (interval == presentInterval && base == presentBase) return 0;
    std::swap(presentInterval, interval);
    std::swap(presentBase, base);
    const bool isTraced = plotter.m_points && (axis != 2 || !plotter.m_useIsoContourTexture);
    if (!isTraced) return 0;
    NewContours traced;
    try {
        plotter.AssignFlatContours(traced.records, axis, plotter.m_isoContourCount);
    } catch (...) {
        std::swap(presentInterval, interval);
        std::swap(presentBase, base);
        throw;
    }
    all[axis]->swap(traced.records);
    if (axis == 2) FollowLevels(plotter);
    return 0;
}

// ---- Bands ----------------------------------------------------------------------------------------------

// The levels that the lines have, from those of the z contours on.
LevelSteps ContourAccess::Bands(const CKivoFunctionPlotter& plotter) {
    const float min = plotter.m_boundingBoxMin[2], max = plotter.m_boundingBoxMax[2];
    const double interval = plotter.m_contourInterval[2];
    LevelSteps bands = interval > 0.0 ? LevelStepsOf(min, max, interval, plotter.m_contourBase[2])
                                      : LevelStepsOf(min, max, plotter.m_isoContourCount);
    if (bands.count < mostTexels && bands.step > 0.0) return bands;
    const double range = static_cast<double>(max) - static_cast<double>(min);
    const unsigned int count = bands.count == 0 ? 0 : mostTexels - 1;
    const double step = range / (count + 1.0);
    return {static_cast<double>(min) + step, step > 0.0 ? step : 1.0, count};
}

// A texel for each band, in the colour of its middle.
void ContourAccess::UploadColors(const CKivoFunctionPlotter& plotter, const LevelSteps& bands, int texels) {
    const auto min = static_cast<double>(plotter.m_boundingBoxMin[2]);
    const auto max = static_cast<double>(plotter.m_boundingBoxMax[2]);
    unsigned char rgba[4 * mostTexels];
    for (int i = 0; i < texels; ++i) {
        const double low = std::max(min, bands.first + (i - 1) * bands.step);
        const double high = std::min(max, bands.first + i * bands.step);
        float color[4] = {0, 0, 0, 1};
        plotter.m_zGradientColor->Evaluate(static_cast<float>(0.5 * (low + high)), color);
        for (int k = 0; k < 3; ++k)
            rgba[4 * i + k] = static_cast<unsigned char>(std::lround(std::clamp(color[k], 0.0f, 1.0f) * 255));
        rgba[4 * i + 3] = 255;
    }
    for (const GLenum filter : {GL_TEXTURE_MIN_FILTER, GL_TEXTURE_MAG_FILTER})
        glTexParameteri(GL_TEXTURE_2D, filter, GL_NEAREST);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, GL_CLAMP);
    glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA8, texels, 1, 0, GL_RGBA, GL_UNSIGNED_BYTE, rgba);
}

// Each pixel finds its band by its z, which a texture coordinate follows: the edges are as sharp as the
// picture.
void ContourAccess::Fill(const CKivoFunctionPlotter& plotter) {
    if (!plotter.HasDrawablePoints() || !plotter.m_indexArray || !plotter.m_zGradientColor) return;
    const bool isReduced = plotter.m_isFrameReduced && plotter.m_reducedSurface;
    const SurfaceArrays surface = isReduced ? plotter.m_reducedSurface->Arrays() : plotter.WholeSurface();
    const LevelSteps bands = Bands(plotter);
    int texels = 1;
    while (texels < static_cast<int>(bands.count) + 1)
        texels *= 2;
    const double length = bands.step * texels;
    const float alongZ[] = {0.0f, 0.0f, static_cast<float>(1.0 / length),
                            static_cast<float>((bands.step - bands.first) / length)};
    glPushAttrib(GL_ENABLE_BIT | GL_TEXTURE_BIT);
    GLuint texture = 0;
    glGenTextures(1, &texture);
    glBindTexture(GL_TEXTURE_2D, texture);
    UploadColors(plotter, bands, texels);
    glDisable(GL_DEPTH_TEST);
    glEnable(GL_TEXTURE_2D);
    glEnable(GL_TEXTURE_GEN_S);
    glTexGeni(GL_S, GL_TEXTURE_GEN_MODE, GL_OBJECT_LINEAR);
    glTexGenfv(GL_S, GL_OBJECT_PLANE, alongZ);
    glColor4f(1.0f, 1.0f, 1.0f, 1.0f);
    {
        const ClipScope cut = plotter.CutScope(allAxes);
        surface.SetVertexPointer();
        glEnableClientState(GL_VERTEX_ARRAY);
        SurfaceAccess::DrawTriangles(plotter, {surface.points, surface.components, surface.pointCount},
                                     surface.triangles, surface.triangleIndexCount);
        glDisableClientState(GL_VERTEX_ARRAY);
    }
    glBindTexture(GL_TEXTURE_2D, 0);
    glDeleteTextures(1, &texture);
    glPopAttrib();
}

// ---- The host's side ------------------------------------------------------------------------------------

int SetContourInterval(CKivoFunctionPlotter& plotter, int axis, double interval, double base) {
    if (!IsAxis(axis) || !std::isfinite(interval) || interval < 0.0 || !std::isfinite(base))
        return refusedArgument;
    return ContourAccess::SetInterval(plotter, axis, interval, base);
}

int FillContours(CKivoFunctionPlotter& plotter, bool fill) {
    ContourAccess::SetFilled(plotter, fill);
    return 0;
}

int LabelContours(CKivoFunctionPlotter& plotter, bool label) {
    return ContourAccess::SetLabeled(plotter, label);
}

bool AreContoursLabeled(const CKivoFunctionPlotter& plotter) {
    return ContourAccess::AreLabeled(plotter);
}

bool AreContoursFilled(const CKivoFunctionPlotter& plotter) {
    return ContourAccess::AreFilled(plotter);
}

} // namespace KivoDrawingTools
