#include "KivoPoints.h"

#include "drawing/GLScopes.h"
#include "parts/KivoMeasurePointGroupManager.h"
#include "PointAccess.h"
#include "window_system/WindowSystem.h"

#include <cstddef>
#include <iterator>

namespace KivoDrawingTools {

namespace {

constexpr int noSuchPoints = -2;

template <typename List>
void Erase(List& list, std::ptrdiff_t index) {
    list.erase(std::next(list.begin(), index));
}

} // namespace

int PointAccess::RemoveCurve(CKivoFunctionPlotter& plotter, int index) {
    if (index < 0 || static_cast<std::size_t>(index) >= plotter.m_curveData.size()) return noSuchPoints;
    Erase(plotter.m_curveData, index);
    Erase(plotter.m_curvePointCounts, index);
    Erase(plotter.m_curveVisible, index);
    Erase(plotter.m_curveColors, index);
    Erase(plotter.m_curveWidths, index);
    return 0;
}

int PointAccess::RemoveGroup(CKivoFunctionPlotter& plotter, unsigned int index) {
    CKivoMeasurePointGroup* const group = plotter.FindMeasureGroup(index);
    if (!group) return noSuchPoints;
    const ContextScope context(plotter.m_hDC, plotter.m_hGLRC);
    if (plotter.m_hGLRC && !wglGetCurrentContext()) return -1;
    Erase(plotter.m_measureGroups->m_groups, static_cast<std::ptrdiff_t>(index));
    delete group;
    return 0;
}

int RemoveCurve(CKivoFunctionPlotter& plotter, int index) {
    return PointAccess::RemoveCurve(plotter, index);
}

int RemoveMeasureGroup(CKivoFunctionPlotter& plotter, unsigned int index) {
    return PointAccess::RemoveGroup(plotter, index);
}

int ShowPointsInFlatPlots(CKivoFunctionPlotter& plotter, bool show) {
    PointAccess::ShowFlat(plotter, show);
    return 0;
}

bool ArePointsInFlatPlots(const CKivoFunctionPlotter& plotter) {
    return PointAccess::AreFlat(plotter);
}

} // namespace KivoDrawingTools
