#include "computing/Rotation.h"
#include "KivoView.h"
#include "PlotType.h"
#include "ViewState.h"

#include <algorithm>
#include <cmath>

namespace KivoDrawingTools {

namespace {

/// In shares of the plot's size, to the right and up.
struct Share {
    double right;
    double up;
};

/// Of a plot that has no size, all that is pointed at is at its middle.
Share ShareOf(const ViewState& state, double right, double up) {
    const double width = state.plotViewport[2];
    const double height = state.plotViewport[3];
    return {width > 0.0 ? right / width : 0.0, height > 0.0 ? up / height : 0.0};
}

/// From the place that the middle of the data is fitted to.
Share ShareAt(const ViewState& state, POINT place) {
    const double left = state.plotViewport[0];
    const double bottom = static_cast<double>(state.clientHeight) - state.plotViewport[1];
    const Share fromCorner = ShareOf(state, place.x - left, bottom - place.y);
    return {fromCorner.right - 0.5 - state.panFraction[0], fromCorner.up - 0.5 - state.panFraction[1]};
}

} // namespace

int TurnView(CKivoFunctionPlotter& plotter, double right, double down) {
    SKivoView view = GetView(plotter);
    if (!std::isfinite(right) || !std::isfinite(down) || view.plotType != normalPlot) return -3;
    double azimuth = 0.0;
    double elevation = 0.0;
    if (GetViewAngles(plotter, azimuth, elevation) == 0)
        return SetViewAngles(plotter, azimuth - std::remainder(right, 360.0),
                             std::clamp(elevation + down, -90.0, 90.0));
    TurnOnScreen(view.rotation, right, down);
    return SetView(plotter, view);
}

int ShiftView(CKivoFunctionPlotter& plotter, POINT from, POINT to) {
    const Share shift = ShareOf(ViewAccess::Save(plotter), static_cast<double>(to.x) - from.x,
                                static_cast<double>(from.y) - to.y);
    SKivoView view = GetView(plotter);
    view.panX += shift.right;
    view.panY += shift.up;
    return SetView(plotter, view);
}

int ZoomView(CKivoFunctionPlotter& plotter, double factor, POINT place) {
    const Share pointer = ShareAt(ViewAccess::Save(plotter), place);
    SKivoView view = GetView(plotter);
    view.zoom *= factor;
    view.panX = pointer.right - factor * (pointer.right - view.panX);
    view.panY = pointer.up - factor * (pointer.up - view.panY);
    return SetView(plotter, view);
}

} // namespace KivoDrawingTools
