// What a view of a plot consists of: saved, restored, fitted and laid out here alone.
#pragma once

#include "KivoFunctionPlotter.h"
#include "window_system/WindowSystem.h"

namespace KivoDrawingTools {

/// What views are fitted to, three floats each.
struct FittedBoxes {
    const float* axesMin;
    const float* axesMax;
    const float* dataMin;
    const float* dataMax;
};

struct ViewState {
    // As the user has it.
    int plotType;
    bool isInverse[3];
    double rotation[16]; ///< the user's pan in elements 12 and 13
    double panFraction[2];

    // As it is fitted to the data, and zoomed.
    double axisScale[3];
    double volumeTranslate[3];
    float volumeFactor[3]; ///< of later fits
    double volume[6];      ///< left, right, bottom, top, near, far

    // As it is laid out for a window.
    int clientHeight;
    int plotViewport[4];
    int legendViewport[4];
    double legendVolume[6]; ///< like volume

    // As it is to be where there are neither window nor data yet; a zoom of 0: nothing is.
    double awaitedPan[2];
    double awaitedZoom;

    /// Fits volume and middle to the boxes, for a plot type that need not be the present one; for the 3-D
    /// plot the lengths of the axes before, which the flat plots keep.
    void Fit(int type, const FittedBoxes& boxes);
    /// Fits the volume for the present plot type and the present lengths of the axes.
    void FitVolume(const FittedBoxes& boxes);
    /// Where the middle that the present plot type is fitted to stands beside the place of a fitted one: to
    /// the right and upwards, in view-volume units.
    void FindShift(const FittedBoxes& boxes, double* shift) const;
    /// What the plot shows along the shorter side, in view-volume units: zooms are measured by it.
    double ShorterSide() const;
    /// Shows the same in a window so many times as large.
    void Enlarge(int factor);
    /// Brings the client point (x, y), y upwards, to the window's lower left corner.
    void ShiftTo(int x, int y);

private:
    void SetVolume(double halfSide);
};

/// Reaches the view of a plotter.
struct ViewAccess {
    static HDC Dc(const CKivoFunctionPlotter& plotter);
    static HGLRC Context(const CKivoFunctionPlotter& plotter);
    static bool HasData(const CKivoFunctionPlotter& plotter);
    static FittedBoxes Boxes(const CKivoFunctionPlotter& plotter);
    static ViewState Save(const CKivoFunctionPlotter& plotter);
    /// Loads no matrices: ApplyCamera does.
    static void Restore(CKivoFunctionPlotter& plotter, const ViewState& view);
    /// Lays a plotter's view out for a client area of width x height, keeping what its shorter side shows.
    static void LayOut(CKivoFunctionPlotter& plotter, int width, int height);
    /// Puts the view that waits in the place of the start view of a new window.
    static void KeepAwaited(CKivoFunctionPlotter& plotter, const ViewState& before);
    /// Shows the view that waits, if there is one and nothing is missing any more; the context must be
    /// current.
    static void ShowAwaited(CKivoFunctionPlotter& plotter);
    /// Takes the user's pan back, and a view that waits.
    static void ForgetPan(CKivoFunctionPlotter& plotter);
    /// Shows the start view of the present plot type, lit as first data are; the context must be current.
    static void ShowStart(CKivoFunctionPlotter& plotter);
    /// Loads viewport and projection; the context must be current.
    static void ApplyVolume(CKivoFunctionPlotter& plotter);
    /// The same and the model-view matrix.
    static void ApplyCamera(CKivoFunctionPlotter& plotter);
};

} // namespace KivoDrawingTools
