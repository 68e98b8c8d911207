#include "ViewState.h"

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

} // namespace

double ViewState::ShorterSide() const {
    return std::min(std::abs(volume[1] - volume[0]), std::abs(volume[3] - volume[2]));
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
                      {}};
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
}

void ViewAccess::LayOut(CKivoFunctionPlotter& plotter, int width, int height) {
    const ViewState shown = Save(plotter);
    plotter.Reshape(width, height);
    ViewState fitted = Save(plotter);
    double* const volume = fitted.volume;
    ScaleViewBounds(shown.ShorterSide() / fitted.ShorterSide(), volume[0], volume[1], volume[2], volume[3]);
    Copy(shown.axisScale, fitted.axisScale); // the host may have lengths and middle of its own
    Copy(shown.volumeTranslate, fitted.volumeTranslate);
    Restore(plotter, fitted);
}

void ViewAccess::ApplyVolume(CKivoFunctionPlotter& plotter) {
    plotter.ApplyViewVolume();
}

void ViewAccess::ApplyCamera(CKivoFunctionPlotter& plotter) {
    plotter.ApplyViewVolume();
    plotter.ApplyModelViewMatrix();
}

} // namespace KivoDrawingTools
