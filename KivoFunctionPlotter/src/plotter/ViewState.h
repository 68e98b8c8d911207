// What a view of a plot consists of: saved, restored and laid out here alone.
#pragma once

#include "KivoFunctionPlotter.h"

namespace KivoDrawingTools {

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

    /// What the plot shows along the shorter side, in view-volume units: zooms are measured by it.
    double ShorterSide() const;
    /// Shows the same in a window so many times as large.
    void Enlarge(int factor);
    /// Brings the client point (x, y), y upwards, to the window's lower left corner.
    void ShiftTo(int x, int y);
};

/// Reaches the view of a plotter.
struct ViewAccess {
    static ViewState Save(const CKivoFunctionPlotter& plotter);
    /// Loads no matrices: ApplyCamera does.
    static void Restore(CKivoFunctionPlotter& plotter, const ViewState& view);
    /// Lays a plotter's view out for a client area of width x height, keeping what its shorter side shows.
    static void LayOut(CKivoFunctionPlotter& plotter, int width, int height);
    /// Loads viewport and projection; the context must be current.
    static void ApplyVolume(CKivoFunctionPlotter& plotter);
    /// The same and the model-view matrix.
    static void ApplyCamera(CKivoFunctionPlotter& plotter);
};

} // namespace KivoDrawingTools
