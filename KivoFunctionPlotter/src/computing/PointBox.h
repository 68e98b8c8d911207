// A box along the axes.
#pragma once

namespace KivoDrawingTools {

struct PointBox {
    float min[3];
    float max[3];

    /// Whether no coordinate of a point lies outside.
    bool Holds(const float* point) const {
        for (int i = 0; i < 3; ++i)
            if (point[i] < min[i] || point[i] > max[i]) return false;
        return true;
    }
};

} // namespace KivoDrawingTools
