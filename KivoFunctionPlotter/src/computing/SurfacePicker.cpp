#include "SurfacePicker.h"

#include "CellMarks.h"
#include "VectorClones.h"
#include "VectorMath.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <type_traits>

namespace KivoDrawingTools {

namespace {

// Whether a line meets the face of a box that lies at a place on an axis.
bool MeetsFace(int axis, float place, const float* origin, const float* dir, const float* boxMin,
               const float* boxMax) {
    const int first = (axis + 1) % 3, second = (axis + 2) % 3;
    float corners[3][3];
    for (float* corner : corners) {
        std::copy_n(boxMin, 3, corner);
        corner[axis] = place;
    }
    corners[1][first] = corners[2][first] = boxMax[first];
    corners[2][second] = boxMax[second];
    float hit[3];
    MeetPlane(origin, dir, corners[0], corners[1], corners[2], hit);
    return hit[first] >= boxMin[first] && hit[first] <= boxMax[first] && hit[second] >= boxMin[second] &&
           hit[second] <= boxMax[second];
}

// The nearest hit so far.
struct Nearest {
    const float* origin;
    const float* dir;
    float distance;
    float* point;
    const PointBox* within;
    PickResult result = PickResult::nothing;

    void Try(const float* p0, const float* p1, const float* p2) {
        float hit[3];
        bool inside = false;
        const float t = MeetTriangle(origin, dir, p0, p1, p2, hit, &inside);
        if (!inside || (within && !within->Holds(hit))) return;
        if (result == PickResult::nothing) result = PickResult::beyond;
        if (!(t < distance)) return;
        distance = t;
        std::copy(hit, hit + 3, point);
        result = PickResult::triangle;
    }
};

// The view along the line of sight, in which it is a point, of a box brought to sides from 1 to 2. A cell is
// passed over where it is clear of that point and both its triangles show enough of their area.
// SurfacePicker.md proves that MeetTriangle rejects these, with all its rounding.
struct SightView {
    float axes[3][3];        // across, up and along: factors for differences of coordinates
    float margin;            // how far off the line a cell has to be, beside its size
    float leastArea, needle; // twice an area has to exceed leastArea + needle * size squared
};

float Narrow(double value) {
    return static_cast<float>(std::clamp(value, -1e30, 1e30));
}

// Values that are no numbers, or of no use, lead to comparisons that are false: then no cell is passed over.
SightView LookAlong(const float* origin, const float* dir, const float* boxMin, const float* boxMax) {
    double side[3], scale[3], sight[3], magnitude = 0.0;
    for (int i = 0; i < 3; ++i)
        side[i] = static_cast<double>(boxMax[i]) - static_cast<double>(boxMin[i]);
    const double longest = *std::max_element(side, side + 3);
    for (int i = 0; i < 3; ++i) {
        scale[i] = std::exp2(-std::logb(side[i] > 0.0 ? side[i] : longest));
        sight[i] = dir[i] * scale[i];
        const double farthest = std::max(std::fabs(boxMin[i]), std::fabs(boxMax[i]));
        magnitude += (farthest + std::fabs(origin[i])) * scale[i];
    }
    const double length = std::hypot(sight[0], sight[1], sight[2]);
    const double x = sight[0] / length, y = sight[1] / length, z = sight[2] / length;
    const double sign = std::copysign(1.0, z), a = -1.0 / (sign + z); // for two axes at right angles to that
    const double axes[3][3] = {
        {1.0 + sign * x * x * a, sign * x * y * a, -sign * x}, {x * y * a, sign + y * y * a, -y}, {x, y, z}};
    SightView view = {};
    for (int i = 0; i < 9; ++i)
        view.axes[i / 3][i % 3] = Narrow(axes[i / 3][i % 3] * scale[i % 3]);

    constexpr double epsilon = 1.0 / 16777216; // half a unit in the last place of 1.0f
    const double most = *std::max_element(scale, scale + 3);
    const double spread = most / *std::min_element(scale, scale + 3);
    const double margin = 128.0 * epsilon * magnitude * spread;
    const double dirLength = std::hypot(dir[0], dir[1], dir[2]);
    const bool isUsable = margin < 1e30 && dirLength > 1e-6 && dirLength < 1e6;
    view.margin = isUsable ? static_cast<float>(margin) : std::numeric_limits<float>::infinity();
    view.needle = Narrow(1e-4 * spread + 1e-17 * magnitude * longest * longest);
    view.leastArea = Narrow(1e-18 * most * most);
    return view;
}

constexpr std::size_t stretch = 512; // cells of a row that are looked at in one go

struct Row {
    float x[stretch + 1], y[stretch + 1], z[stretch + 1];
};

template <typename Stride>
inline void Split(const float* points, Stride stride, std::size_t count, Row& row) {
    for (std::size_t i = 0; i < count; ++i) {
        row.x[i] = points[i * stride];
        row.y[i] = points[i * stride + 1];
        row.z[i] = points[i * stride + 2];
    }
}

struct Seen {
    float across, up, along;
};

inline Seen See(const SightView& view, float x, float y, float z) {
    const auto& [across, up, along] = view.axes;
    return {x * across[0] + y * across[1] + z * across[2], x * up[0] + y * up[1] + z * up[2],
            x * along[0] + y * along[1] + z * along[2]};
}

// Sets a byte for each cell between two rows that the line may meet, clears it for the others.
KIVO_VECTOR_CLONES void MarkCells(const SightView& view, const float* origin, const float* lowerPoints,
                                  const float* upperPoints, std::size_t stride, std::size_t cells,
                                  unsigned char* marks) {
    Row lower, upper;
    if (stride == 3) { // known to the compiler, as vectors need it
        Split(lowerPoints, std::integral_constant<std::size_t, 3>(), cells + 1, lower);
        Split(upperPoints, std::integral_constant<std::size_t, 3>(), cells + 1, upper);
    } else {
        Split(lowerPoints, stride, cells + 1, lower);
        Split(upperPoints, stride, cells + 1, upper);
    }
    int passedOver[stretch];
    for (std::size_t i = 0; i < cells; ++i) {
        const float x = lower.x[i], y = lower.y[i], z = lower.z[i];
        const Seen a = See(view, x - origin[0], y - origin[1], z - origin[2]);
        const Seen b = See(view, lower.x[i + 1] - x, lower.y[i + 1] - y, lower.z[i + 1] - z); // from a
        const Seen c = See(view, upper.x[i + 1] - x, upper.y[i + 1] - y, upper.z[i + 1] - z);
        const Seen d = See(view, upper.x[i] - x, upper.y[i] - y, upper.z[i] - z);
        float size = std::fabs(b.across);
        for (const float extent : {b.up, b.along, c.across, c.up, c.along, d.across, d.up, d.along})
            size = std::max(size, std::fabs(extent));
        const float distance = std::max(std::fabs(a.across), std::fabs(a.up));
        const float least = view.leastArea + view.needle * size * size;
        // Without branches, so that the loop becomes vector instructions.
        passedOver[i] = static_cast<int>(distance > view.margin + 4.0f * size) &
                        static_cast<int>(std::fabs(b.across * c.up - b.up * c.across) > least) &
                        static_cast<int>(std::fabs(c.across * d.up - c.up * d.across) > least);
    }
    for (std::size_t i = 0; i < cells; ++i)
        marks[i] = static_cast<unsigned char>(1 ^ passedOver[i]);
}

} // namespace

bool MeetsBox(const float* origin, const float* dir, const float* boxMin, const float* boxMax) {
    for (int axis = 0; axis < 3; ++axis)
        if (MeetsFace(axis, boxMin[axis], origin, dir, boxMin, boxMax) ||
            MeetsFace(axis, boxMax[axis], origin, dir, boxMin, boxMax))
            return true;
    return false;
}

PickResult PickSurface(const GridView& grid, const float* boxMin, const float* boxMax, const float* origin,
                       const float* dir, float limit, float* hit, std::size_t* triedCells,
                       const PointBox* within) {
    const SightView view = LookAlong(origin, dir, boxMin, boxMax);
    std::size_t tried = 0;
    Nearest nearest = {origin, dir, limit, hit, within};
    for (std::size_t r = 0; r + 1 < grid.rows; ++r)
        for (std::size_t first = 0; first + 1 < grid.columns; first += stretch) {
            const std::size_t cells = std::min(stretch, grid.columns - 1 - first);
            unsigned char marks[stretch] = {};
            MarkCells(view, origin, grid.At(first, r), grid.At(first, r + 1), grid.columnStride, cells,
                      marks);
            ForEachMark(marks, MarkRoom(cells), [&](std::size_t i) {
                const float* const low = grid.At(first + i, r);
                const float* const high = grid.At(first + i + 1, r + 1);
                nearest.Try(low, grid.At(first + i + 1, r), high);
                nearest.Try(low, high, grid.At(first + i, r + 1));
                ++tried;
            });
        }
    if (triedCells) *triedCells = tried;
    return nearest.result;
}

} // namespace KivoDrawingTools
