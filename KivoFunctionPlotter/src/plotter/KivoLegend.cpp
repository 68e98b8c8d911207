#include "KivoLegend.h"

#include "Arguments.h"
#include "drawing/GLScopes.h"
#include "parts/KivoGradientColorRuler.h"
#include "PointAccess.h"
#include "window_system/WindowSystem.h"

#include <utility>

namespace KivoDrawingTools {

namespace {

bool IsLegend(const SKivoLegend& legend) {
    return legend.numbers == KivoLegendNumbers::asSet || legend.numbers == KivoLegendNumbers::fitted ||
           legend.numbers == KivoLegendNumbers::round;
}

bool AreEqual(const SKivoLegend& a, const SKivoLegend& b) {
    return a.isShown == b.isShown && a.title == b.title && a.numbers == b.numbers;
}

} // namespace

// Reaches a plotter's legends, and what else KivoLegend.h sets.
struct LegendAccess {
    // Null where there was no memory for it when the plotter was made.
    static CKivoGradientColorRuler* Ruler(const CKivoFunctionPlotter& plotter, int axis) {
        CKivoGradientColorRuler* const rulers[] = {plotter.m_xColorRuler, plotter.m_yColorRuler,
                                                   plotter.m_zColorRuler};
        return rulers[axis];
    }
    static int Set(CKivoFunctionPlotter& plotter, CKivoGradientColorRuler& ruler, const SKivoLegend& legend);

    static bool HasGroupNames(const CKivoFunctionPlotter& plotter) { return plotter.m_hasGroupNames; }
    static void FitReadOut(CKivoFunctionPlotter& plotter, bool fit) { plotter.m_hasFittedReadOut = fit; }
    static bool HasFittedReadOut(const CKivoFunctionPlotter& plotter) { return plotter.m_hasFittedReadOut; }
};

// What can fail is done with a ruler beside the plotter's, which then takes its texts.
int LegendAccess::Set(CKivoFunctionPlotter& plotter, CKivoGradientColorRuler& ruler,
                      const SKivoLegend& legend) {
    if (AreEqual(legend, ruler.m_legend)) return 0;
    if (!plotter.m_hGLRC) {
        SKivoLegend taken = legend;
        std::swap(ruler.m_legend, taken);
        return 0;
    }
    const ContextScope context(plotter.m_hDC, plotter.m_hGLRC);
    if (!wglGetCurrentContext()) return -1;
    CKivoGradientColorRuler changed;
    changed.MakeLike(ruler, ruler.m_gradient, legend);
    if (!changed.HasTextsOf(ruler)) return -1;
    ruler.ExchangeTexts(changed);
    return 0;
}

SKivoLegend GetLegend(const CKivoFunctionPlotter& plotter, int axis) {
    const CKivoGradientColorRuler* const ruler = IsAxis(axis) ? LegendAccess::Ruler(plotter, axis) : nullptr;
    return ruler ? ruler->m_legend : SKivoLegend();
}

int SetLegend(CKivoFunctionPlotter& plotter, int axis, const SKivoLegend& legend) {
    if (!IsAxis(axis) || !IsLegend(legend)) return refusedArgument;
    CKivoGradientColorRuler* const ruler = LegendAccess::Ruler(plotter, axis);
    return ruler ? LegendAccess::Set(plotter, *ruler, legend) : -1;
}

int ShowMeasureGroupNames(CKivoFunctionPlotter& plotter, bool show) {
    return PointAccess::ListGroups(plotter, show);
}

bool IsShowMeasureGroupNames(const CKivoFunctionPlotter& plotter) {
    return LegendAccess::HasGroupNames(plotter);
}

int FitReadOutDigits(CKivoFunctionPlotter& plotter, bool fit) {
    LegendAccess::FitReadOut(plotter, fit);
    return 0;
}

bool IsFitReadOutDigits(const CKivoFunctionPlotter& plotter) {
    return LegendAccess::HasFittedReadOut(plotter);
}

} // namespace KivoDrawingTools
