// Texts over a plot that stand at places of the data.
#pragma once

#include "computing/AxisLabelLayout.h"
#include "computing/SpaceOnScreen.h"
#include "drawing/GLScopes.h"
#include "KivoFunctionPlotter.h"
#include "window_system/WindowSystem.h"

#include <optional>
#include <vector>

namespace KivoDrawingTools {

/// The share of a text image's size that it is drawn at, as at the ticks.
constexpr double screenTextSize = 0.8;

/// Measures and draws in pixels of a scale of 1, from the plot's lower left corner, so that pictures of every
/// scale have the same places.
struct ScreenTexts {
    /// Where the data are.
    static SpaceOnScreen Space(const CKivoFunctionPlotter& plotter);
    /// Width and height of the plot.
    static ScreenVector Size(const CKivoFunctionPlotter& plotter);
    /// Of a text.
    static TextImageSize SizeOf(const CKivoFunctionPlotter& plotter, const SKivoTexImage& image);
    /// What a plot shows beside its data, as far as the frame has drawn it.
    static std::vector<PlacedImage> Taken(const CKivoFunctionPlotter& plotter);
    /// Adds where the coordinates of the traced point stand, if they do.
    static void AddReadOut(const CKivoFunctionPlotter& plotter, std::vector<PlacedImage>* places);
    /// How near a point is to the viewer, as the third coordinate in a PixelScope; there 0 is before
    /// everything.
    static double Nearness(const CKivoFunctionPlotter& plotter, const float* point);
    /// A length of so many pixels in the same units.
    static double Pixels(const CKivoFunctionPlotter& plotter, double count);
    /// Draws a text, which a PixelScope has to be around.
    static void Draw(const CKivoFunctionPlotter& plotter, const PlacedImage& place,
                     const SKivoTexImage& image, double nearness = 0.0);

    /// Has coordinates in these pixels for its life; what is drawn is nearer than the data.
    class PixelScope {
    public:
        explicit PixelScope(const CKivoFunctionPlotter& plotter);
        ~PixelScope() { glPopMatrix(); }
        PixelScope(const PixelScope&) = delete;
        PixelScope& operator=(const PixelScope&) = delete;

    private:
        MatrixModeScope m_modelView{GL_MODELVIEW};
    };

    static bool IsDrawable(const SKivoTexImage& image) { return image.texture != 0 && image.pixels; }
};

/// Makes a plotter's context current for its life. Where it is that already, as in the members that new data
/// come through, it stays so.
class ContextInPlace {
public:
    ContextInPlace(HDC dc, HGLRC context) {
        if (context && wglGetCurrentContext() != context) m_scope.emplace(dc, context);
        m_isCurrent = context && wglGetCurrentContext() == context;
    }
    bool IsCurrent() const { return m_isCurrent; }

private:
    std::optional<ContextScope> m_scope;
    bool m_isCurrent = false;
};

} // namespace KivoDrawingTools
