#include "KivoColorMap.h"

#include "Arguments.h"
#include "computing/ColorTable.h"
#include "computing/NamedColors.h"
#include "drawing/GLScopes.h"
#include "parts/KivoGradientColor.h"
#include "parts/KivoGradientColorRuler.h"
#include "window_system/WindowSystem.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <utility>

namespace KivoDrawingTools {

namespace {

constexpr int withoutGradient = -1;

bool IsTable(const float* rgba, unsigned int count) {
    if (!rgba || count < ColorTable::leastCount || count > ColorTable::mostCount) return false;
    return std::all_of(rgba, rgba + std::size_t{count} * 4,
                       [](float channel) { return channel >= 0.0f && channel <= 1.0f; }); // no number is not
}

bool IsRange(float min, float max) {
    return std::isfinite(min) && std::isfinite(max) && std::isfinite(max - min);
}

} // namespace

// Reaches a plotter's gradients and what shows them. A change is made to a copy of the gradient, which takes
// its place once everything that can fail has been done.
struct ColorMapAccess {
    static int SetTable(CKivoFunctionPlotter& plotter, int axis, std::shared_ptr<const ColorTable> table);
    static int SetRange(CKivoFunctionPlotter& plotter, int axis, float min, float max);

private:
    static CKivoGradientColor* Gradient(const CKivoFunctionPlotter& plotter, int axis);
    static CKivoGradientColorRuler* Ruler(const CKivoFunctionPlotter& plotter, int axis);
    static void Recolor(CKivoFunctionPlotter& plotter, int axis, CKivoGradientColor changed);
};

// Null where there was no memory for it when the plotter was made.
CKivoGradientColor* ColorMapAccess::Gradient(const CKivoFunctionPlotter& plotter, int axis) {
    CKivoGradientColor* const gradients[] = {plotter.m_xGradientColor, plotter.m_yGradientColor,
                                             plotter.m_zGradientColor};
    return gradients[axis];
}

CKivoGradientColorRuler* ColorMapAccess::Ruler(const CKivoFunctionPlotter& plotter, int axis) {
    CKivoGradientColorRuler* const rulers[] = {plotter.m_xColorRuler, plotter.m_yColorRuler,
                                               plotter.m_zColorRuler};
    return rulers[axis];
}

// The surface has colours of its own, which there may be no memory for.
void ColorMapAccess::Recolor(CKivoFunctionPlotter& plotter, int axis, CKivoGradientColor changed) {
    CKivoGradientColor& gradient = *Gradient(plotter, axis);
    std::swap(gradient, changed);
    try {
        if (axis == 2) plotter.AssignColorData();
    } catch (...) {
        std::swap(gradient, changed);
        throw;
    }
    if (CKivoGradientColorRuler* const ruler = Ruler(plotter, axis)) ruler->SetGradient(&gradient);
}

int ColorMapAccess::SetTable(CKivoFunctionPlotter& plotter, int axis,
                             std::shared_ptr<const ColorTable> table) {
    const CKivoGradientColor* const gradient = Gradient(plotter, axis);
    if (!gradient) return withoutGradient;
    if (!table && !gradient->Table()) return 0;
    CKivoGradientColor changed = *gradient;
    changed.SetTable(std::move(table));
    Recolor(plotter, axis, changed);
    return 0;
}

int ColorMapAccess::SetRange(CKivoFunctionPlotter& plotter, int axis, float min, float max) {
    const CKivoGradientColor* const gradient = Gradient(plotter, axis);
    if (!gradient) return withoutGradient;
    CKivoGradientColor changed = *gradient;
    if (min == max)
        changed.FreeRange();
    else
        changed.HoldRange(min, max);
    if (changed.IsRangeHeld() == gradient->IsRangeHeld() && changed.m_min == gradient->m_min &&
        changed.m_max == gradient->m_max)
        return 0;

    CKivoGradientColorRuler* const ruler = Ruler(plotter, axis);
    if (!plotter.m_hGLRC || !ruler) { // no label shows
        Recolor(plotter, axis, changed);
        return 0;
    }
    const ContextScope context(plotter.m_hDC, plotter.m_hGLRC);
    if (!wglGetCurrentContext()) return -1;
    CKivoGradientColorRuler relabelled;
    relabelled.MakeLike(*ruler, &changed, ruler->m_legend);
    if (!relabelled.HasTextsOf(*ruler)) return -1;
    Recolor(plotter, axis, changed);
    ruler->ExchangeTexts(relabelled);
    return 0;
}

int SetColorMap(CKivoFunctionPlotter& plotter, int axis, const float* rgba, unsigned int count) {
    if (!IsAxis(axis)) return refusedArgument;
    if (count == 0) return ColorMapAccess::SetTable(plotter, axis, nullptr);
    if (!IsTable(rgba, count)) return refusedArgument;
    return ColorMapAccess::SetTable(plotter, axis, std::make_shared<const ColorTable>(rgba, count));
}

int SetColorMap(CKivoFunctionPlotter& plotter, int axis, const char* name) {
    if (!IsAxis(axis) || !name) return refusedArgument;
    const std::vector<float> rgba = NamedColorTable(name);
    return rgba.empty() ? refusedArgument
                        : SetColorMap(plotter, axis, rgba.data(), static_cast<unsigned int>(rgba.size() / 4));
}

std::vector<std::string> ColorMapNames() {
    return ColorTableNames();
}

int SetColorRange(CKivoFunctionPlotter& plotter, int axis, float min, float max) {
    if (!IsAxis(axis) || !IsRange(min, max)) return refusedArgument;
    return ColorMapAccess::SetRange(plotter, axis, min, max);
}

} // namespace KivoDrawingTools
