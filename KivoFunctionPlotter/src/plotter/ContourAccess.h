// What KivoContours.h sets: levels, the XY plot filled between its contours, and values at them.
#pragma once

#include "KivoContours.h"

#include <cstdint>
#include <vector>

namespace KivoDrawingTools {

struct ContourLabel;
struct ContourLabels;
class DrawingStop;
struct LevelSteps;
struct PlaneOnScreen;
struct ScreenArea;

struct ContourAccess {
    static int SetInterval(CKivoFunctionPlotter& plotter, int axis, double interval, double base);
    static void SetFilled(CKivoFunctionPlotter& plotter, bool fill) { plotter.m_areContoursFilled = fill; }
    static bool AreFilled(const CKivoFunctionPlotter& plotter) { return plotter.m_areContoursFilled; }

    /// Draws the bands. Nothing is lit, and nothing has a depth.
    static void Fill(const CKivoFunctionPlotter& plotter);

    // ---- Values at the lines, where they are asked for
    static int SetLabeled(CKivoFunctionPlotter& plotter, bool label);
    static bool AreLabeled(const CKivoFunctionPlotter& plotter) {
        return plotter.m_contourLabels.labels != nullptr;
    }
    /// Makes the texts for what has become of contours and numbers. A host's format is asked.
    static void FollowLevels(CKivoFunctionPlotter& plotter) noexcept;
    /// Gives the texts back with the contours.
    static void ForgetLabels(CKivoFunctionPlotter& plotter) noexcept;
    /// Places the texts of a frame, and keeps the lines that are drawn next away from them.
    static void LeaveGaps(CKivoFunctionPlotter& plotter);
    /// Draws them; depth is tested afterwards.
    static void DrawLabels(const CKivoFunctionPlotter& plotter);

private:
    static std::vector<ContourLabel> Words(const CKivoFunctionPlotter& plotter);
    static std::uint64_t NewRequest(CKivoFunctionPlotter& plotter);
    static bool IsLatest(const CKivoFunctionPlotter& plotter, std::uint64_t request);
    static bool MakeLabels(CKivoFunctionPlotter& plotter, std::uint64_t request);
    static ScreenArea Area(const CKivoFunctionPlotter& plotter, const PlaneOnScreen& plane);
    static void JoinLines(const std::vector<SKivoIsoContour>& contours, DrawingStop* stop,
                          ContourLabels* labels);
    static void PlaceLabels(CKivoFunctionPlotter& plotter);
    static LevelSteps Bands(const CKivoFunctionPlotter& plotter);
    static void UploadColors(const CKivoFunctionPlotter& plotter, const LevelSteps& bands, int texels);
};

} // namespace KivoDrawingTools
