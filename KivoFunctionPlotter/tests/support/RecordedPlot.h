// A plot whose calls are recorded.
#pragma once

#include "CallRecorder.h"
#include "TestWindow.h"

#include <memory>
#include <string>
#include <vector>

namespace KivoTest {

/// A plotter whose drawing steps are public too.
class CallProbe : public KivoDrawingTools::PlotterProbe {
public:
    using CKivoFunctionPlotter::CreateIsoContourData;
    using CKivoFunctionPlotter::CreateIsoContourSKivoTexImage;
    using CKivoFunctionPlotter::Render3DText;
    using CKivoFunctionPlotter::RenderCurves;
    using CKivoFunctionPlotter::RenderFlatXIsoContour;
    using CKivoFunctionPlotter::RenderFlatYIsoContour;
    using CKivoFunctionPlotter::RenderFlatZIsoContour;
    using CKivoFunctionPlotter::RenderIsoContour;
    using CKivoFunctionPlotter::RenderLegend;
    using CKivoFunctionPlotter::RenderMeasurePoints;
    using CKivoFunctionPlotter::RenderPlotName;
    using CKivoFunctionPlotter::RenderTextTex;
    using CKivoFunctionPlotter::RenderTraceLegend;
    using CKivoFunctionPlotter::RenderTracePoints;
};

/// A plotter in a window without a screen.
class RecordedPlot {
public:
    static constexpr int width = 400;
    static constexpr int height = 300;

    /// Creates the plotter in the window, without data.
    RecordedPlot();
    /// Gives it a hill of 12 x 10 points and something for every layer to draw: titles, all contours, two
    /// curves, two measure groups and a traced point.
    void Fill();

    KivoDrawingTools::TestWindow window{KivoDrawingTools::WindowKind::offscreen, width, height};
    float measured[6] = {0, 0, 1, 1, 1, 0.5f}; ///< the points of both groups; outlive the plotter
    CallProbe plotter;
};

/// Names what a plotter holds at present: "window", "dc", "context", "memory dc", "text font", "points",
/// "colors" and so on.
void NameFields(CallRecorder& recorder, const CallProbe& plotter);

/// Records an action; what the plotter holds before or after it is named.
template <typename Action>
std::unique_ptr<CallRecorder> Record(const CallProbe& plotter, Action action) {
    auto recorder = std::make_unique<CallRecorder>();
    NameFields(*recorder, plotter);
    action();
    recorder->Stop();
    NameFields(*recorder, plotter);
    return recorder;
}

/// The same for a step that wants the context current, which is not recorded.
template <typename Action>
std::unique_ptr<CallRecorder> RecordStep(CallProbe& plotter, Action action) {
    const KivoDrawingTools::CurrentContext context(plotter);
    return Record(plotter, action);
}

using Texts = std::vector<std::string>;
void Append(Texts& texts, const Texts& more);

/// The texts with each making of a text image in one line: image "0.500" as texture 7.
Texts WithImagesInOneLine(const Texts& texts);
/// The texts without their arguments.
Texts NamesOf(const Texts& texts);

} // namespace KivoTest
