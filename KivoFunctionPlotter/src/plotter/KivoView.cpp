#include "KivoView.h"

#include "computing/Rotation.h"
#include "drawing/GLScopes.h"
#include "PlotType.h"
#include "ViewState.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <limits>

namespace KivoDrawingTools {

namespace {

constexpr double mostDeviation = 0.001; // of a number of a rotation

// ---- Records

bool AreFinite(std::initializer_list<double> numbers) {
    return std::all_of(numbers.begin(), numbers.end(), [](double number) { return std::isfinite(number); });
}

bool AreEqual(const SKivoView& a, const SKivoView& b) {
    return a.plotType == b.plotType && std::equal(a.rotation, a.rotation + 9, b.rotation) &&
           a.panX == b.panX && a.panY == b.panY && a.zoom == b.zoom &&
           std::equal(a.inverse, a.inverse + 3, b.inverse) && a.mirrored == b.mirrored;
}

// Puts the nearest rotation in the place of the one given.
bool CorrectView(SKivoView& view) {
    double rotation[9];
    if (!NearestRotation(view.rotation, rotation)) return false;
    for (int i = 0; i < 9; ++i)
        if (std::abs(rotation[i] - view.rotation[i]) > mostDeviation) return false;
    std::copy(rotation, rotation + 9, view.rotation);
    return view.plotType >= normalPlot && view.plotType <= xzPlot && AreFinite({view.panX, view.panY}) &&
           std::isfinite(view.zoom) && view.zoom > 0.0;
}

// ---- What OpenGL, which computes in single precision, has numbers for

constexpr double largest = std::numeric_limits<float>::max();

bool IsLength(double number) {
    return number >= 1.0 / largest && number <= largest; // no number is none
}

bool HasLaidOut(const ViewState& state) {
    return state.plotViewport[2] > 0 && state.plotViewport[3] > 0 && IsLength(state.ShorterSide()) &&
           AreFinite({state.axisScale[0], state.axisScale[1], state.axisScale[2], state.volumeTranslate[0],
                      state.volumeTranslate[1], state.volumeTranslate[2]});
}

bool IsDrawable(const ViewState& state) {
    return IsLength(std::abs(state.volume[1] - state.volume[0])) &&
           IsLength(std::abs(state.volume[3] - state.volume[2])) && std::abs(state.rotation[12]) <= largest &&
           std::abs(state.rotation[13]) <= largest;
}

// ---- From the plotter's fields, and to them

double Width(const ViewState& state) {
    return state.volume[1] - state.volume[0];
}

double Height(const ViewState& state) {
    return state.volume[3] - state.volume[2];
}

bool IsInverted(const ViewState& state, int axis) {
    return state.plotType == normalPlot && state.isInverse[axis];
}

void Negate(double* column) {
    for (int row = 0; row < 3; ++row)
        column[row] = -column[row];
}

// A view volume turned round, as by Zoom with a negative factor, is a turn or a mirror image.
bool FindOrientation(const ViewState& state, SKivoView& view) {
    const double signs[] = {Width(state) < 0.0 ? -1.0 : 1.0, Height(state) < 0.0 ? -1.0 : 1.0, 1.0};
    double matrix[9];
    for (int axis = 0; axis < 3; ++axis) {
        for (int row = 0; row < 3; ++row)
            matrix[3 * axis + row] = signs[row] * state.rotation[4 * axis + row];
        if (IsInverted(state, axis)) Negate(matrix + 3 * axis);
    }
    const bool isMirrored = Determinant(matrix) < 0.0;
    if (isMirrored) Negate(matrix);
    if (!NearestRotation(matrix, view.rotation)) return false;
    view.mirrored = isMirrored;
    return true;
}

bool FindPlace(const ViewState& state, const FittedBoxes& boxes, SKivoView& view) {
    if (!IsDrawable(state)) return false;
    ViewState fitted = state;
    fitted.FitVolume(boxes);
    double shift[2];
    state.FindShift(boxes, shift);
    const double panX = shift[0] / Width(state);
    const double panY = shift[1] / Height(state);
    const double zoom = fitted.ShorterSide() / state.ShorterSide();
    if (!AreFinite({panX, panY, zoom}) || zoom <= 0.0) return false;
    view.panX = panX;
    view.panY = panY;
    view.zoom = zoom;
    return true;
}

// @return whether all of it has been found; the rest of the view is as it was made
bool FindView(const ViewState& state, const FittedBoxes& boxes, SKivoView& view) {
    view.plotType = state.plotType;
    std::copy(state.isInverse, state.isInverse + 3, view.inverse);
    const bool isOriented = FindOrientation(state, view);
    if (state.awaitedZoom == 0.0) return FindPlace(state, boxes, view) && isOriented;
    view.panX = state.awaitedPan[0];
    view.panY = state.awaitedPan[1];
    view.zoom = state.awaitedZoom;
    return isOriented;
}

void SetOrientation(const SKivoView& view, ViewState& state) {
    state.plotType = view.plotType;
    std::copy(view.inverse, view.inverse + 3, state.isInverse);
    std::fill(state.rotation, state.rotation + 16, 0.0);
    state.rotation[15] = 1.0;
    for (int axis = 0; axis < 3; ++axis) {
        std::copy(view.rotation + 3 * axis, view.rotation + 3 * axis + 3, state.rotation + 4 * axis);
        if (IsInverted(state, axis)) Negate(state.rotation + 4 * axis);
    }
    if (view.mirrored) Negate(state.rotation);
}

// The start view's matrix is a rotation to six digits. It stays to the last one where the plot is not turned.
void KeepOrientation(const SKivoView& view, const ViewState& before, ViewState& state) {
    SKivoView present;
    if (!FindOrientation(before, present) || !std::equal(view.rotation, view.rotation + 9, present.rotation))
        return;
    double kept[12];
    for (int i = 0; i < 12; ++i) {
        kept[i] = i % 4 == 3 ? 0.0 : before.rotation[i];
        if (std::abs(kept[i] - state.rotation[i]) > mostDeviation) return;
    }
    std::copy(kept, kept + 12, state.rotation);
}

void SetPlace(const SKivoView& view, const FittedBoxes& boxes, ViewState& state) {
    const double depth[] = {state.volume[4], state.volume[5]};
    state.FitVolume(boxes);
    ScaleViewBounds(1.0 / view.zoom, state.volume[0], state.volume[1], state.volume[2], state.volume[3]);
    std::copy(depth, depth + 2, state.volume + 4); // a derived class may have a deeper one
    double shift[2];
    state.FindShift(boxes, shift); // of a middle that is not the fitted one
    state.rotation[12] = view.panX * Width(state) - shift[0];
    state.rotation[13] = view.panY * Height(state) - shift[1];
}

enum class Arranged { shown, waiting, refused };

// What the fields of a plotter are to be; where the view is refused, the state is of no use.
Arranged Arrange(const SKivoView& view, const FittedBoxes& boxes, bool hasAll, ViewState& state) {
    const bool keepsFit = state.plotType == normalPlot && view.plotType == normalPlot;
    const ViewState before = state;
    SetOrientation(view, state);
    KeepOrientation(view, before, state);
    state.awaitedPan[0] = view.panX;
    state.awaitedPan[1] = view.panY;
    state.awaitedZoom = view.zoom;
    if (!hasAll) return Arranged::waiting;

    ViewState placed = state;
    if (!keepsFit) placed.Fit(view.plotType, boxes);
    ViewState fitted = placed;
    fitted.FitVolume(boxes);
    if (!HasLaidOut(fitted)) return Arranged::waiting;
    SetPlace(view, boxes, placed);
    if (!IsDrawable(placed)) return Arranged::refused;
    state = placed;
    state.awaitedZoom = 0.0;
    return Arranged::shown;
}

bool HasAll(const CKivoFunctionPlotter& plotter) {
    return ViewAccess::Context(plotter) && ViewAccess::HasData(plotter);
}

} // namespace

void ViewAccess::ShowAwaited(CKivoFunctionPlotter& plotter) {
    if (plotter.m_awaitedZoom == 0.0 || !HasAll(plotter)) return;
    const ViewState before = Save(plotter);
    const FittedBoxes boxes = Boxes(plotter);
    ViewState state = before;
    SKivoView view;
    FindView(before, boxes, view);
    switch (Arrange(view, boxes, true, state)) {
    case Arranged::shown:
        Restore(plotter, state);
        ApplyCamera(plotter);
        return;
    case Arranged::waiting:
        return;
    case Arranged::refused:
        break;
    }
    plotter.m_awaitedZoom = 0.0; // as fitted
    ApplyCamera(plotter);
}

SKivoView GetView(const CKivoFunctionPlotter& plotter) {
    SKivoView view;
    FindView(ViewAccess::Save(plotter), ViewAccess::Boxes(plotter), view);
    return view;
}

int SetView(CKivoFunctionPlotter& plotter, const SKivoView& view) {
    SKivoView taken = view;
    if (!CorrectView(taken)) return -3;
    const FittedBoxes boxes = ViewAccess::Boxes(plotter);
    const ViewState before = ViewAccess::Save(plotter);
    ViewState state = before;
    const Arranged arranged = Arrange(taken, boxes, HasAll(plotter), state);
    if (arranged == Arranged::refused) return -3;
    SKivoView present;
    const bool isShown = FindView(before, boxes, present) && AreEqual(taken, present);
    if (arranged == Arranged::shown && isShown) return 0; // it stays to the last digit
    if (!ViewAccess::Context(plotter)) {
        ViewAccess::Restore(plotter, state);
        return 0;
    }
    const ContextScope context(ViewAccess::Dc(plotter), ViewAccess::Context(plotter));
    if (!wglGetCurrentContext()) return -1;
    ViewAccess::Restore(plotter, state);
    ViewAccess::ApplyCamera(plotter);
    return 0;
}

int ResetView(CKivoFunctionPlotter& plotter) {
    if (!ViewAccess::Context(plotter)) {
        ViewAccess::ForgetPan(plotter);
        return 0;
    }
    const ContextScope context(ViewAccess::Dc(plotter), ViewAccess::Context(plotter));
    if (!wglGetCurrentContext()) return -1;
    ViewAccess::ShowStart(plotter);
    return 0;
}

int SetViewAngles(CKivoFunctionPlotter& plotter, double azimuth, double elevation) {
    SKivoView view = GetView(plotter);
    const bool isHeight = elevation >= -90.0 && elevation <= 90.0; // no number is none
    if (!std::isfinite(azimuth) || !isHeight || view.plotType != normalPlot) return -3;
    UprightRotation(azimuth, elevation, view.rotation);
    view.mirrored = false;
    return SetView(plotter, view);
}

int GetViewAngles(const CKivoFunctionPlotter& plotter, double& azimuth, double& elevation) {
    return FindUprightAngles(GetView(plotter).rotation, azimuth, elevation) ? 0 : 1;
}

} // namespace KivoDrawingTools
