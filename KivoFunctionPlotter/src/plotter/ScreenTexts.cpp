#include "ScreenTexts.h"

#include "drawing/TexturedQuad.h"
#include "parts/KivoGridBox.h"
#include "parts/TextRenderer.h"
#include "PlotType.h"

#include <algorithm>
#include <iterator>

namespace KivoDrawingTools {

namespace {

// Before all that is drawn, but inside the volume.
double NearestDepth(double nearPlane, double farPlane) {
    return nearPlane + 0.001 * (farPlane - nearPlane);
}

} // namespace

// As ApplyModelViewMatrix has it.
SpaceOnScreen ScreenTexts::Space(const CKivoFunctionPlotter& plotter) {
    const double* const turned = plotter.m_rotationMatrix;
    const double pixel = Pixels(plotter, 1.0);
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

double ScreenTexts::Pixels(const CKivoFunctionPlotter& plotter, double count) {
    const double pixel = (plotter.m_viewRight - plotter.m_viewLeft) / plotter.m_plotViewport[2];
    return pixel * static_cast<double>(plotter.m_pixelScale) * count;
}

double ScreenTexts::Nearness(const CKivoFunctionPlotter& plotter, const float* point) {
    double nearness = plotter.m_rotationMatrix[14] + NearestDepth(plotter.m_viewNear, plotter.m_viewFar);
    for (int k = 0; k < 3; ++k)
        nearness += plotter.m_rotationMatrix[4 * k + 2] * plotter.m_axisScale[k] *
                    (static_cast<double>(point[k]) + plotter.m_volumeTranslate[k]);
    return nearness;
}

ScreenVector ScreenTexts::Size(const CKivoFunctionPlotter& plotter) {
    const auto scale = static_cast<double>(plotter.m_pixelScale);
    return {plotter.m_plotViewport[2] / scale, plotter.m_plotViewport[3] / scale};
}

TextImageSize ScreenTexts::SizeOf(const CKivoFunctionPlotter& plotter, const SKivoTexImage& image) {
    const double size = screenTextSize / static_cast<double>(plotter.m_pixelScale);
    return {image.width * size, image.height * size};
}

// Where RenderTraceLegend draws it, after all others.
void ScreenTexts::AddReadOut(const CKivoFunctionPlotter& plotter, std::vector<PlacedImage>* places) {
    const bool isShown = plotter.m_plotType == normalPlot || plotter.m_arePointsFlat;
    if (plotter.m_hasTracePoint == 0 || !isShown || !plotter.m_textRenderer) return;
    const SIZE extent = TextImageExtent(*plotter.m_textRenderer, plotter.TraceText().c_str());
    if (extent.cx <= 0) return;
    const double scale = static_cast<double>(plotter.m_pixelScale);
    const double margin = 0.01 * plotter.m_plotViewport[2] / scale;
    PlacedImage place;
    place.isShown = true;
    place.halfWidth = 0.5 * static_cast<double>(extent.cx) / scale;
    place.halfHeight = 0.5 * static_cast<double>(extent.cy) / scale;
    place.center = {margin + place.halfWidth, margin + place.halfHeight};
    places->push_back(place);
}

std::vector<PlacedImage> ScreenTexts::Taken(const CKivoFunctionPlotter& plotter) {
    std::vector<PlacedImage> taken;
    if (!plotter.m_gridBox) return taken;
    taken = plotter.m_gridBox->m_screenBox.others;
    AddReadOut(plotter, &taken);
    if (plotter.m_plotType != normalPlot) {
        const std::vector<PlacedImage>& texts = plotter.m_gridBox->m_flatTexts;
        taken.insert(taken.end(), texts.begin(), texts.end());
        return taken;
    }
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
    const double pixel = Pixels(plotter, 1.0);
    const double depth = NearestDepth(plotter.m_viewNear, plotter.m_viewFar);
    glPushMatrix();
    glLoadIdentity();
    glTranslated(plotter.m_viewLeft, plotter.m_viewBottom, -depth);
    glScaled(pixel, pixel, 1.0);
}

void ScreenTexts::Draw(const CKivoFunctionPlotter& plotter, const PlacedImage& place,
                       const SKivoTexImage& image, double nearness) {
    const float center[] = {static_cast<float>(place.center.x), static_cast<float>(place.center.y),
                            static_cast<float>(nearness)};
    const float right[] = {static_cast<float>(place.right.x), static_cast<float>(place.right.y), 0.0f};
    const float up[] = {static_cast<float>(place.up.x), static_cast<float>(place.up.y), 0.0f};
    const double size = screenTextSize / static_cast<double>(plotter.m_pixelScale);
    DrawTexturedQuad(center, right, up, size, size, image);
}

} // namespace KivoDrawingTools
