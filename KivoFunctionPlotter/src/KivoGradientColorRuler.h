// The colour legend: a gradient as a bar with labelled values.
#pragma once

#include "KivoFunctionPlotter.h"

namespace KivoDrawingTools {

/// Shows one gradient. Labels are textures: members that build or release them want the OpenGL context
/// current.
class CKivoGradientColorRuler {
public:
    CKivoGradientColorRuler() = default;
    CKivoGradientColorRuler(const CKivoGradientColorRuler&) = delete;
    CKivoGradientColorRuler& operator=(const CKivoGradientColorRuler&) = delete;
    virtual ~CKivoGradientColorRuler();

    /// Takes the gradient and its colours at 0, 1/4, 1/2, 3/4 and 1 of its range.
    void SetGradient(CKivoGradientColor* gradient);
    /// Makes the labels anew from range, division count and precision; with 0 divisions they stay as they
    /// are.
    void BuildLabels();
    void ReleaseLabels();
    /// Draws bar and labels.
    /// @param viewport  x, y, width, height in window pixels
    /// @param volume    left, right, bottom, top, near, far
    void Render(const int* viewport, const double* volume) const;

    float m_colors[5][4] = {};                ///< RGBA
    CKivoGradientColor* m_gradient = nullptr; ///< not owned
    unsigned int m_precision = 3;             ///< digits after the decimal point
    unsigned int m_divisionCount = 0;         ///< intervals; there is one label more
    STextRenderer* m_textRenderer = nullptr;  ///< not owned
    SKivoTexImage* m_labels = nullptr;        ///< m_divisionCount + 1 images, bottom to top; from new[]

private:
    int LabelOverhang(double barRight, int stripWidth) const;
    void RenderLabels(double barRight, double bottom, double spacing, double worldPerPixel) const;
    void RenderBar(double left, double right, double bottom, double bandHeight) const;
};

} // namespace KivoDrawingTools
