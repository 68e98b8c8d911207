#include "ScreenTexts.h"

#include "drawing/TexturedQuad.h"
#include "parts/KivoGridBox.h"
#include "PlotType.h"

#include <algorithm>
#include <iterator>

namespace KivoDrawingTools {

namespace {

double PixelLength(const double* volume, const int* viewport, float scale) {
    return (volume[1] - volume[0]) / viewport[2] * static_cast<double>(scale);
}

} // namespace

// As ApplyModelViewMatrix has it.
SpaceOnScreen ScreenTexts::Space(const CKivoFunctionPlotter& plotter) {
    const double* const turned = plotter.m_rotationMatrix;
    const double volume[] = {plotter.m_viewLeft, plotter.m_viewRight};
    const double pixel = PixelLength(volume, plotter.m_plotViewport, plotter.m_pixelScale);
    const double width = plotter.m_viewRight - plotter.m_viewLeft;
    const double height = plotter.m_viewTop - plotter.m_viewBottom;
    double origin[] = {width * plotter.m_panFractionX - plotter.m_viewLeft + turned[12],
                       height * plotter.m_panFractionY - plotter.m_viewBottom + turned[13]};
    SpaceOnScreen space;
    for (int k = 0; k < 3; ++k) {
        const double along[] = {turned[4 * k] * plotter.m_axisScale[k],
                                turned[4 * k + 1] * plotter.m_axisScale[k]};
        space.along[k] = {along[0] / pixel, along[1] / pixel};
        for (int i = 0; i < 2; ++i)
            origin[i] += along[i] * plotter.m_volumeTranslate[k];
    }
    space.origin = {origin[0] / pixel, origin[1] / pixel};
    return space;
}

ScreenVector ScreenTexts::Size(const CKivoFunctionPlotter& plotter) {
    const auto scale = static_cast<double>(plotter.m_pixelScale);
    return {plotter.m_plotViewport[2] / scale, plotter.m_plotViewport[3] / scale};
}

TextImageSize ScreenTexts::SizeOf(const CKivoFunctionPlotter& plotter, const SKivoTexImage& image) {
    const double size = screenTextSize / static_cast<double>(plotter.m_pixelScale);
    return {image.width * size, image.height * size};
}

std::vector<PlacedImage> ScreenTexts::Taken(const CKivoFunctionPlotter& plotter) {
    std::vector<PlacedImage> taken;
    if (!plotter.m_gridBox) return taken;
    taken = plotter.m_gridBox->m_screenBox.others;
    if (plotter.m_plotType != normalPlot) return taken;
    const AxisLabelLayout& layout = plotter.m_gridBox->m_labelLayout;
    const auto isShown = [](const PlacedImage& place) { return place.isShown; };
    for (int axis = 0; axis < 3; ++axis) {
        const std::vector<PlacedImage>& labels = layout.Labels(axis);
        std::copy_if(labels.begin(), labels.end(), std::back_inserter(taken), isShown);
        if (layout.Title(axis).isShown) taken.push_back(layout.Title(axis));
    }
    return taken;
}

ScreenTexts::PixelScope::PixelScope(const CKivoFunctionPlotter& plotter) {
    const double volume[] = {plotter.m_viewLeft, plotter.m_viewRight};
    const double pixel = PixelLength(volume, plotter.m_plotViewport, plotter.m_pixelScale);
    const double depth = plotter.m_viewNear + 0.001 * (plotter.m_viewFar - plotter.m_viewNear);
    glPushMatrix();
    glLoadIdentity();
    glTranslated(plotter.m_viewLeft, plotter.m_viewBottom, -depth);
    glScaled(pixel, pixel, 1.0);
}

void ScreenTexts::Draw(const CKivoFunctionPlotter& plotter, const PlacedImage& place,
                       const SKivoTexImage& image) {
    const float center[] = {static_cast<float>(place.center.x), static_cast<float>(place.center.y), 0.0f};
    const float right[] = {static_cast<float>(place.right.x), static_cast<float>(place.right.y), 0.0f};
    const float up[] = {static_cast<float>(place.up.x), static_cast<float>(place.up.y), 0.0f};
    const double size = screenTextSize / static_cast<double>(plotter.m_pixelScale);
    DrawTexturedQuad(center, right, up, size, size, image);
}

} // namespace KivoDrawingTools
