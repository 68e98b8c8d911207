// What is drawn, as geometry: OpenGL's feedback mode tells it exactly, before it becomes pixels.
#pragma once

#include <array>
#include <functional>
#include <vector>

namespace KivoDrawingTools {

struct DrawnVertex {
    double x = 0.0;                    ///< pixels from the window's left edge
    double y = 0.0;                    ///< pixels from its lower edge
    double depth = 0.0;                ///< 0 to 1
    std::array<float, 4> color = {};   ///< RGBA
    std::array<float, 2> texture = {}; ///< s and t

    bool operator==(const DrawnVertex& other) const;
};

/// One vertex is a point or a bitmap, two are a line, more a polygon. Quads may come as two triangles.
using DrawnPrimitive = std::vector<DrawnVertex>;
using Drawing = std::vector<DrawnPrimitive>;

/// Everything inside the view volume that a function draws in the current context, hidden or not; no pixel
/// changes. The function may be called more than once.
Drawing Record(const std::function<void()>& draw);

/// The lines of a colour. RGB, within 0.001.
Drawing LinesOfColor(const Drawing& drawing, const std::array<float, 3>& rgb);
/// The rest.
Drawing WithoutLinesOfColor(const Drawing& drawing, const std::array<float, 3>& rgb);

/// A text image: its corners in the order of its sides from the lower left one, turning to the left.
struct DrawnQuad {
    std::array<DrawnVertex, 4> corners;

    double CenterX() const;
    double CenterY() const;
    double Width() const;  ///< length of the lower side
    double Height() const; ///< length of the left side
};

/// The textured quads of a drawing, in their order.
std::vector<DrawnQuad> TexturedQuads(const Drawing& drawing);

} // namespace KivoDrawingTools
