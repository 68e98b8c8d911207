// Drawing that ends at the faces of a box.
#pragma once

#include "computing/PointBox.h"
#include "window_system/WindowSystem.h"

#include <algorithm>
#include <cmath>

namespace KivoDrawingTools {

constexpr unsigned int allAxes = 7; ///< a bit for each

/// For the life of the object what lies outside of a box is not drawn. The faces stand where the model-view
/// matrix is as on making it.
class ClipScope {
public:
    /// @param box   has no faces across axes along which it is endless
    /// @param axes  of those the axes that count, a bit for each; where none is left, nothing is called
    ClipScope(const PointBox& box, unsigned int axes) {
        for (int axis = 0; axis < 3; ++axis) {
            const auto min = static_cast<double>(box.min[axis]);
            const auto max = static_cast<double>(box.max[axis]);
            if ((axes >> static_cast<unsigned int>(axis) & 1) == 0 || !std::isfinite(max - min)) continue;
            m_hasFaces[axis] = true;
            // What lies in a face stays, wherever it is rounded to.
            const double margin = 1e-5 * (max - min) + 2e-7 * std::max(std::fabs(min), std::fabs(max));
            SetPlane(2 * axis, axis, 1.0, margin - min);
            SetPlane(2 * axis + 1, axis, -1.0, margin + max);
        }
    }
    ~ClipScope() {
        for (int plane = 0; plane < 6; ++plane)
            if (m_hasFaces[plane / 2]) glDisable(static_cast<GLenum>(GL_CLIP_PLANE0 + plane));
    }
    ClipScope(const ClipScope&) = delete;
    ClipScope& operator=(const ClipScope&) = delete;

private:
    static void SetPlane(int plane, int axis, double sign, double distance) {
        double equation[] = {0.0, 0.0, 0.0, distance};
        equation[axis] = sign;
        const auto name = static_cast<GLenum>(GL_CLIP_PLANE0 + plane);
        glClipPlane(name, equation);
        glEnable(name);
    }

    bool m_hasFaces[3] = {};
};

} // namespace KivoDrawingTools
