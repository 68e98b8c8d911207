// PlotScene: absolute numbers, which the plotter has as differences to an origin.
#include "Failure.h"
#include "LabelFormat.h"
#include "Language.h"
#include "Numbers.h"
#include "PlotScene.h"

#include <KivoAxis.h>
#include <KivoSurfaces.h>
#include <KivoWindow.h>

#include <algorithm>

namespace KivoViewer {

namespace {

[[noreturn]] void FailToShowNumbers() {
    throw Failure(Filled(Translate("Plot", "cannot draw: %1"), KivoDrawingTools::LastWindowError()));
}

} // namespace

// Measure points stay where they are.
void PlotScene::ShowOrigin(const double* origin) {
    if (std::equal(origin, origin + 3, m_origin)) return;
    for (int i = 0; i < 3; ++i) {
        if (SetAxisOrigin(Plotter(), i, origin[i]) != 0) FailToShowNumbers();
        m_origin[i] = origin[i];
    }
    Plotter().AutoAdjustAxisLengthRatio(); // for the new ranges
    for (MeasurePoints& group : m_groups) {
        const std::vector<float> differences = Differences(group.file);
        std::copy(differences.begin(), differences.end(),
                  group.differences.begin()); // the plotter reads these
    }
}

float PlotScene::Difference(int axis, double number) const {
    return static_cast<float>(number - m_origin[axis]);
}

std::vector<float> PlotScene::Differences(const PointFile& file) const {
    std::vector<float> differences;
    differences.reserve(file.points.size());
    for (std::size_t i = 0; i < file.points.size(); ++i)
        differences.push_back(Difference(static_cast<int>(i % 3), file.points[i]));
    return differences;
}

void PlotScene::ApplyLabels() {
    const PlotSettings settings = Effective();
    for (int i = 0; i < 3; ++i) {
        const std::string& name = settings.axes[i].labels->name;
        if (name == m_labelFormats[i]) continue;
        if (SetAxisLabelFormat(Plotter(), i, LabelFormatOf(name)) != 0) FailToShowNumbers();
        m_labelFormats[i] = name;
    }
    ApplyPointList();
}

// ---- The traced point -----------------------------------------------------------------------------------

std::string PlotScene::ReadOut(const float* point) const {
    std::string text;
    for (int i = 0; i < 3; ++i)
        text += std::string(i > 0 ? "   " : "") + "xyz"[i] + " = " + ReadOutNumber(Plotter(), i, point[i]);
    const int traced = TracedSurface(Plotter());
    for (const ShownSurface& surface : m_surfaces)
        if (m_surfaces.size() > 1 && surface.entry.number == traced) text += "   " + surface.entry.name;
    return text;
}

} // namespace KivoViewer
