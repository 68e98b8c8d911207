// Drawing the triangles of a large surface without those that no pixel shows.
#pragma once

#include "computing/DrawingStop.h"
#include "computing/TriangleCulling.h"

#include <cstddef>

namespace KivoDrawingTools {

/// The corners that triangles are drawn between.
struct TriangleCorners {
    const float* points;
    std::size_t components; ///< floats from a point to the next
    std::size_t count;
};

/// Draws what DrawIndexed draws of triangles, pixel for pixel.
class CulledTriangles {
public:
    /// Hands the triangles over as they are where leaving some out is no gain, and where OpenGL colours
    /// pixels by more than their middles.
    /// @param stop  asked between parts; null: nobody is asked
    void Draw(const TriangleCorners& corners, const unsigned int* indices, std::size_t count,
              DrawingStop* stop);

private:
    bool FindMapping(std::size_t triangles);

    TriangleCulling m_culling;
};

} // namespace KivoDrawingTools
