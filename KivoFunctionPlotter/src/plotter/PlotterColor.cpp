// CKivoFunctionPlotter: gradient colours and the colour legends' settings.
#include "KivoFunctionPlotter.h"

#include "computing/ColorSpace.h"
#include "drawing/GLScopes.h"
#include "parts/KivoGradientColor.h"
#include "parts/KivoGradientColorRuler.h"
#include "window_system/WindowSystem.h"

#include <cmath>

namespace KivoDrawingTools {

namespace {

struct Rgba {
    explicit Rgba(unsigned long color) { ColorToRgba(color, channels); }
    float channels[4];
};

} // namespace

void CKivoFunctionPlotter::RebuildRuler(CKivoGradientColorRuler* ruler, CKivoGradientColor* gradient) {
    if (!ruler || !gradient) return;
    ruler->SetGradient(gradient);
    ruler->BuildLabels();
}

// ---- All gradients --------------------------------------------------------------------------------------

template <typename Change>
void CKivoFunctionPlotter::ChangeAllGradients(Change change) {
    CKivoGradientColor* gradients[] = {m_zGradientColor, m_xGradientColor, m_yGradientColor};
    for (CKivoGradientColor* gradient : gradients)
        if (gradient) change(*gradient);
    const ContextScope context(m_hDC, m_hGLRC);
    RebuildRuler(m_zColorRuler, m_zGradientColor);
    RebuildRuler(m_xColorRuler, m_xGradientColor);
    RebuildRuler(m_yColorRuler, m_yGradientColor);
    AssignColorData();
}

void CKivoFunctionPlotter::SetGradientColor(float const* startRgba, float const* endRgba) {
    ChangeAllGradients([=](CKivoGradientColor& gradient) { gradient.SetColors(startRgba, endRgba); });
}

void CKivoFunctionPlotter::SetGradientStartColor(float const* rgba) {
    ChangeAllGradients([=](CKivoGradientColor& gradient) { gradient.SetStartColor(rgba); });
}

void CKivoFunctionPlotter::SetGradientEndColor(float const* rgba) {
    ChangeAllGradients([=](CKivoGradientColor& gradient) { gradient.SetEndColor(rgba); });
}

void CKivoFunctionPlotter::SetGradientColor(unsigned long startColor, unsigned long endColor) {
    SetGradientColor(Rgba(startColor).channels, Rgba(endColor).channels);
}

void CKivoFunctionPlotter::SetGradientStartColor(unsigned long color) {
    SetGradientStartColor(Rgba(color).channels);
}

void CKivoFunctionPlotter::SetGradientEndColor(unsigned long color) {
    SetGradientEndColor(Rgba(color).channels);
}

// ---- X and Y gradients: the surface keeps its colours, and the context stays current --------------------

template <typename Change>
void CKivoFunctionPlotter::ChangeFlatPlotGradient(CKivoGradientColor* gradient,
                                                  CKivoGradientColorRuler* ruler, Change change) {
    if (gradient) change(*gradient);
    ContextScope context(m_hDC, m_hGLRC);
    RebuildRuler(ruler, gradient);
    context.Keep();
}

void CKivoFunctionPlotter::SetXGradientColor(float const* startRgba, float const* endRgba) {
    ChangeFlatPlotGradient(m_xGradientColor, m_xColorRuler,
                           [=](CKivoGradientColor& gradient) { gradient.SetColors(startRgba, endRgba); });
}

void CKivoFunctionPlotter::SetXGradientStartColor(float const* rgba) {
    ChangeFlatPlotGradient(m_xGradientColor, m_xColorRuler,
                           [=](CKivoGradientColor& gradient) { gradient.SetStartColor(rgba); });
}

void CKivoFunctionPlotter::SetXGradientEndColor(float const* rgba) {
    ChangeFlatPlotGradient(m_xGradientColor, m_xColorRuler,
                           [=](CKivoGradientColor& gradient) { gradient.SetEndColor(rgba); });
}

void CKivoFunctionPlotter::SetXGradientColor(unsigned long startColor, unsigned long endColor) {
    SetXGradientColor(Rgba(startColor).channels, Rgba(endColor).channels);
}

void CKivoFunctionPlotter::SetXGradientStartColor(unsigned long color) {
    SetXGradientStartColor(Rgba(color).channels);
}

void CKivoFunctionPlotter::SetXGradientEndColor(unsigned long color) {
    SetXGradientEndColor(Rgba(color).channels);
}

void CKivoFunctionPlotter::SetYGradientColor(float const* startRgba, float const* endRgba) {
    ChangeFlatPlotGradient(m_yGradientColor, m_yColorRuler,
                           [=](CKivoGradientColor& gradient) { gradient.SetColors(startRgba, endRgba); });
}

void CKivoFunctionPlotter::SetYGradientStartColor(float const* rgba) {
    ChangeFlatPlotGradient(m_yGradientColor, m_yColorRuler,
                           [=](CKivoGradientColor& gradient) { gradient.SetStartColor(rgba); });
}

void CKivoFunctionPlotter::SetYGradientEndColor(float const* rgba) {
    ChangeFlatPlotGradient(m_yGradientColor, m_yColorRuler,
                           [=](CKivoGradientColor& gradient) { gradient.SetEndColor(rgba); });
}

void CKivoFunctionPlotter::SetYGradientColor(unsigned long startColor, unsigned long endColor) {
    SetYGradientColor(Rgba(startColor).channels, Rgba(endColor).channels);
}

void CKivoFunctionPlotter::SetYGradientStartColor(unsigned long color) {
    SetYGradientStartColor(Rgba(color).channels);
}

void CKivoFunctionPlotter::SetYGradientEndColor(unsigned long color) {
    SetYGradientEndColor(Rgba(color).channels);
}

// ---- Z gradient: the surface takes its colours from it --------------------------------------------------

template <typename Change>
void CKivoFunctionPlotter::ChangeSurfaceGradient(Change change) {
    if (m_zGradientColor) change(*m_zGradientColor);
    const ContextScope context(m_hDC, m_hGLRC);
    RebuildRuler(m_zColorRuler, m_zGradientColor);
    AssignColorData();
}

void CKivoFunctionPlotter::SetZGradientColor(float const* startRgba, float const* endRgba) {
    ChangeSurfaceGradient([=](CKivoGradientColor& gradient) { gradient.SetColors(startRgba, endRgba); });
}

void CKivoFunctionPlotter::SetZGradientStartColor(float const* rgba) {
    ChangeSurfaceGradient([=](CKivoGradientColor& gradient) { gradient.SetStartColor(rgba); });
}

void CKivoFunctionPlotter::SetZGradientEndColor(float const* rgba) {
    ChangeSurfaceGradient([=](CKivoGradientColor& gradient) { gradient.SetEndColor(rgba); });
}

void CKivoFunctionPlotter::SetZGradientColor(unsigned long startColor, unsigned long endColor) {
    SetZGradientColor(Rgba(startColor).channels, Rgba(endColor).channels);
}

void CKivoFunctionPlotter::SetZGradientStartColor(unsigned long color) {
    SetZGradientStartColor(Rgba(color).channels);
}

void CKivoFunctionPlotter::SetZGradientEndColor(unsigned long color) {
    SetZGradientEndColor(Rgba(color).channels);
}

// ---- Legend ---------------------------------------------------------------------------------------------

int CKivoFunctionPlotter::SetGradientColorRuleFloatingPointPrecision(unsigned int precision) {
    const ContextScope context(m_hDC, m_hGLRC);
    for (CKivoGradientColorRuler* ruler : {m_zColorRuler, m_xColorRuler, m_yColorRuler}) {
        if (!ruler) continue;
        ruler->m_precision = precision;
        ruler->BuildLabels();
    }
    return 0;
}

unsigned int CKivoFunctionPlotter::GetGradientColorRuleFloatingPointPrecision() const {
    for (const CKivoGradientColorRuler* ruler : {m_zColorRuler, m_xColorRuler, m_yColorRuler})
        if (ruler) return ruler->m_precision;
    return 0;
}

void CKivoFunctionPlotter::UpdateLegendViewVolume() {
    const int width = m_legendViewport[2];
    const int height = m_legendViewport[3];
    // The square of the height is a 32-bit product, which wraps for heights that no window has.
    const auto heightSquare =
        static_cast<std::int32_t>(static_cast<std::uint32_t>(height) * static_cast<std::uint32_t>(height));
    const double r = 0.6 * std::sqrt(heightSquare + static_cast<double>(width) * width);
    const bool isWide = width >= height;
    const double halfWidth = isWide ? r * width / height : r;
    const double halfHeight = isWide ? r : r * height / width;
    const double volume[] = {-halfWidth, halfWidth, -halfHeight, halfHeight, -r, r};
    for (int i = 0; i < 6; ++i)
        m_legendViewVolume[i] = volume[i];
}

} // namespace KivoDrawingTools
