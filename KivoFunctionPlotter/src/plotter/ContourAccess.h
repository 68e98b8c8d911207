// What KivoContours.h sets, and the XY plot filled between its contours.
#pragma once

#include "KivoContours.h"

namespace KivoDrawingTools {

struct LevelSteps;

struct ContourAccess {
    static int SetInterval(CKivoFunctionPlotter& plotter, int axis, double interval, double base);
    static void SetFilled(CKivoFunctionPlotter& plotter, bool fill) { plotter.m_areContoursFilled = fill; }
    static bool AreFilled(const CKivoFunctionPlotter& plotter) { return plotter.m_areContoursFilled; }

    /// Draws the bands. Nothing is lit, and nothing has a depth.
    static void Fill(const CKivoFunctionPlotter& plotter);

private:
    static LevelSteps Bands(const CKivoFunctionPlotter& plotter);
    static void UploadColors(const CKivoFunctionPlotter& plotter, const LevelSteps& bands, int texels);
};

} // namespace KivoDrawingTools
