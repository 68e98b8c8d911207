#include "ViewState.h"

#include "drawing/GLScopes.h"
#include "parts/KivoGridBox.h"
#include "PlotType.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>

namespace KivoDrawingTools {

namespace {

template <typename T, std::size_t count>
void Copy(const T (&from)[count], T (&to)[count]) {
    std::copy(from, from + count, to);
}

// Hosts lay plots out for any size. What is drawn adds to these numbers.
int WithinHalfInt(std::int64_t number) {
    constexpr std::int64_t most = std::numeric_limits<int>::max() / 2;
    return static_cast<int>(std::clamp(number, -most, most));
}

// How a plot type is fitted.
struct PlotFit {
    bool isFitted[3];  ///< axes whose lengths make the diagonal
    bool isShifted[3]; ///< axes whose point at 35 % is put at the centre, which leaves room for labels
    double share;      ///< of the diagonal, that becomes the half size of the shorter side
};

// The XY plot shifts only its vertical axis, the other two flat ones both of theirs.
constexpr PlotFit plotFits[] = {{{true, true, true}, {false, false, false}, viewShareOfBox},
                                {{true, true, false}, {false, true, false}, 0.55},
                                {{false, true, true}, {false, true, true}, 0.55},
                                {{true, false, true}, {true, false, true}, 0.55}};

// What is no plot type is fitted like the 3-D plot.
const PlotFit& FitOf(int type) {
    return plotFits[type >= xyPlot && type <= xzPlot ? type : normalPlot];
}

double HalfSide(const PlotFit& fit, const double* axisScale, const FittedBoxes& boxes) {
    double squares = 0.0;
    for (int axis = 0; axis < 3; ++axis) {
        if (!fit.isFitted[axis]) continue;
        const double side = static_cast<double>(boxes.axesMin[axis]) * axisScale[axis] -
                            static_cast<double>(boxes.axesMax[axis]) * axisScale[axis];
        squares += side * side;
    }
    return std::sqrt(squares) * fit.share;
}

// The point that comes to the centre, as the plotter keeps it. An axis of negative scale has its maximum
// where others have their minimum.
double FittedTranslate(const PlotFit& fit, int axis, double axisScale, const FittedBoxes& boxes) {
    const double min = static_cast<double>(boxes.dataMin[axis]);
    const double max = static_cast<double>(boxes.dataMax[axis]);
    if (!fit.isShifted[axis]) return -(min + max) * 0.5;
    const double nearMin = axisScale < 0.0 ? 0.35 : 0.65;
    const double nearMax = axisScale < 0.0 ? 0.65 : 0.35;
    return -(nearMin * min + nearMax * max);
}

} // namespace

double ViewState::ShorterSide() const {
    return std::min(std::abs(volume[1] - volume[0]), std::abs(volume[3] - volume[2]));
}

void ViewState::Fit(int type, const FittedBoxes& boxes) {
    const PlotFit& fit = FitOf(type);
    if (&fit == &plotFits[normalPlot]) {
        const double height = static_cast<double>(boxes.axesMax[2] - boxes.axesMin[2]);
        axisScale[0] = 1.2 * height / static_cast<double>(boxes.axesMax[0] - boxes.axesMin[0]);
        axisScale[1] = 1.2 * height / static_cast<double>(boxes.axesMax[1] - boxes.axesMin[1]);
        axisScale[2] = 1.0;
    }
    SetVolume(HalfSide(fit, axisScale, boxes));
    for (int axis = 0; axis < 3; ++axis)
        volumeTranslate[axis] = FittedTranslate(fit, axis, axisScale[axis], boxes);
}

void ViewState::FitVolume(const FittedBoxes& boxes) {
    SetVolume(HalfSide(FitOf(plotType), axisScale, boxes));
}

void ViewState::SetVolume(double halfSide) {
    const float r = static_cast<float>(halfSide);
    const double width = plotViewport[2];
    const double height = plotViewport[3];
    const bool isWide = width >= height;
    const double aspectX = isWide ? width / height : 1.0;
    const double aspectY = isWide ? 1.0 : height / width;
    volume[1] = static_cast<double>(r * volumeFactor[0]) * aspectX;
    volume[0] = -volume[1];
    volume[3] = static_cast<double>(r * volumeFactor[1]) * aspectY;
    volume[2] = -volume[3];
    volume[5] = static_cast<double>(r * volumeFactor[2]);
    volume[4] = -volume[5];
}

void ViewState::FindShift(const FittedBoxes& boxes, double* shift) const {
    const PlotFit& fit = FitOf(plotType);
    for (int i = 0; i < 2; ++i) {
        shift[i] = rotation[12 + i];
        for (int axis = 0; axis < 3; ++axis)
            shift[i] += rotation[4 * axis + i] * axisScale[axis] *
                        (volumeTranslate[axis] - FittedTranslate(fit, axis, axisScale[axis], boxes));
    }
}

void ViewState::Enlarge(int factor) {
    const auto enlarge = [factor](int& number) { number = WithinHalfInt(std::int64_t{number} * factor); };
    enlarge(clientHeight);
    for (int* const viewport : {plotViewport, legendViewport})
        std::for_each(viewport, viewport + 4, enlarge);
}

void ViewState::ShiftTo(int x, int y) {
    for (int* const viewport : {plotViewport, legendViewport}) {
        viewport[0] = WithinHalfInt(std::int64_t{viewport[0]} - x);
        viewport[1] = WithinHalfInt(std::int64_t{viewport[1]} - y);
    }
}

HDC ViewAccess::Dc(const CKivoFunctionPlotter& plotter) {
    return plotter.m_hDC;
}

HGLRC ViewAccess::Context(const CKivoFunctionPlotter& plotter) {
    return plotter.m_hGLRC;
}

bool ViewAccess::HasData(const CKivoFunctionPlotter& plotter) {
    return plotter.HasReadablePoints();
}

FittedBoxes ViewAccess::Boxes(const CKivoFunctionPlotter& plotter) {
    static constexpr float nothing[3] = {};
    const CKivoGridBox* const box = plotter.m_gridBox;
    return {box ? box->m_boxMin : nothing, box ? box->m_boxMax : nothing, plotter.m_boundingBoxMin,
            plotter.m_boundingBoxMax};
}

ViewState ViewAccess::Save(const CKivoFunctionPlotter& plotter) {
    ViewState view = {plotter.m_plotType,
                      {plotter.m_inverseXAxis, plotter.m_inverseYAxis, plotter.m_inverseZAxis},
                      {},
                      {plotter.m_panFractionX, plotter.m_panFractionY},
                      {},
                      {},
                      {},
                      {plotter.m_viewLeft, plotter.m_viewRight, plotter.m_viewBottom, plotter.m_viewTop,
                       plotter.m_viewNear, plotter.m_viewFar},
                      plotter.m_clientHeight,
                      {},
                      {},
                      {},
                      {plotter.m_awaitedPan[0], plotter.m_awaitedPan[1]},
                      plotter.m_awaitedZoom};
    Copy(plotter.m_rotationMatrix, view.rotation);
    Copy(plotter.m_axisScale, view.axisScale);
    Copy(plotter.m_volumeTranslate, view.volumeTranslate);
    Copy(plotter.m_viewVolumeFactor, view.volumeFactor);
    Copy(plotter.m_plotViewport, view.plotViewport);
    Copy(plotter.m_legendViewport, view.legendViewport);
    Copy(plotter.m_legendViewVolume, view.legendVolume);
    return view;
}

void ViewAccess::Restore(CKivoFunctionPlotter& plotter, const ViewState& view) {
    plotter.m_plotType = view.plotType;
    plotter.m_inverseXAxis = view.isInverse[0];
    plotter.m_inverseYAxis = view.isInverse[1];
    plotter.m_inverseZAxis = view.isInverse[2];
    Copy(view.rotation, plotter.m_rotationMatrix);
    plotter.m_panFractionX = view.panFraction[0];
    plotter.m_panFractionY = view.panFraction[1];
    Copy(view.axisScale, plotter.m_axisScale);
    Copy(view.volumeTranslate, plotter.m_volumeTranslate);
    Copy(view.volumeFactor, plotter.m_viewVolumeFactor);
    plotter.m_viewLeft = view.volume[0];
    plotter.m_viewRight = view.volume[1];
    plotter.m_viewBottom = view.volume[2];
    plotter.m_viewTop = view.volume[3];
    plotter.m_viewNear = view.volume[4];
    plotter.m_viewFar = view.volume[5];
    plotter.m_clientHeight = view.clientHeight;
    Copy(view.plotViewport, plotter.m_plotViewport);
    Copy(view.legendViewport, plotter.m_legendViewport);
    Copy(view.legendVolume, plotter.m_legendViewVolume);
    Copy(view.awaitedPan, plotter.m_awaitedPan);
    plotter.m_awaitedZoom = view.awaitedZoom;
}

void ViewAccess::LayOut(CKivoFunctionPlotter& plotter, int width, int height) {
    const ViewState shown = Save(plotter);
    plotter.Reshape(width, height);
    if (shown.awaitedZoom != 0.0) return; // nothing has been fitted before
    ViewState fitted = Save(plotter);
    double* const volume = fitted.volume;
    ScaleViewBounds(shown.ShorterSide() / fitted.ShorterSide(), volume[0], volume[1], volume[2], volume[3]);
    Copy(shown.axisScale, fitted.axisScale); // the host may have lengths and middle of its own
    Copy(shown.volumeTranslate, fitted.volumeTranslate);
    Restore(plotter, fitted);
}

void ViewAccess::KeepAwaited(CKivoFunctionPlotter& plotter, const ViewState& before) {
    if (before.awaitedZoom == 0.0) return;
    plotter.m_plotType = before.plotType;
    Copy(before.rotation, plotter.m_rotationMatrix);
}

void ViewAccess::ForgetPan(CKivoFunctionPlotter& plotter) {
    plotter.m_awaitedZoom = 0.0;
    std::fill(plotter.m_rotationMatrix + 12, plotter.m_rotationMatrix + 15, 0.0);
}

void ViewAccess::ShowStart(CKivoFunctionPlotter& plotter) {
    ForgetPan(plotter);
    for (int i = 0; i < 4; ++i) // of a derived class's own, since the start view sets all others
        plotter.m_rotationMatrix[4 * i + 3] = i == 3 ? 1.0 : 0.0;
    if (HasData(plotter)) {
        const MatrixModeScope modelView(GL_MODELVIEW);
        glPushMatrix();
        glLoadIdentity();
        plotter.UpdateLightsPosition();
        glPopMatrix();
    }
    plotter.UpdateBoundingBoxToViewVolume(); // flat plots keep the lengths that the axes have in the 3-D plot
    plotter.ApplyStartView();
}

void ViewAccess::ApplyVolume(CKivoFunctionPlotter& plotter) {
    plotter.ApplyViewVolume();
}

void ViewAccess::ApplyCamera(CKivoFunctionPlotter& plotter) {
    plotter.ApplyViewVolume();
    plotter.ApplyModelViewMatrix();
}

} // namespace KivoDrawingTools
