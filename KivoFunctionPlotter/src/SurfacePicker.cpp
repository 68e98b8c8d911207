#include "SurfacePicker.h"

#include "VectorMath.h"

#include <algorithm>
#include <cstddef>
#include <iterator>

namespace KivoDrawingTools {

namespace {

// The faces of a box in the order in which they are tried: which corners three of its points are (0 for the
// minimum, 1 for the maximum of x, y, z), and the two coordinates in which a hit has to be within bounds.
struct Face {
    int corners[3][3];
    int axes[2];
};

constexpr Face faces[6] = {
    {{{0, 0, 0}, {1, 0, 0}, {1, 1, 0}}, {0, 1}}, // z min
    {{{0, 0, 1}, {1, 0, 1}, {1, 1, 1}}, {0, 1}}, // z max
    {{{0, 0, 0}, {0, 1, 0}, {0, 1, 1}}, {1, 2}}, // x min
    {{{1, 0, 0}, {1, 1, 0}, {1, 1, 1}}, {1, 2}}, // x max
    {{{0, 0, 0}, {0, 0, 1}, {1, 0, 1}}, {2, 0}}, // y min
    {{{0, 1, 0}, {0, 1, 1}, {1, 1, 1}}, {2, 0}}, // y max
};

bool MeetsFace(const Face& face, const float* origin, const float* dir, const float* boxMin,
               const float* boxMax) {
    float points[3][3];
    for (int p = 0; p < 3; ++p)
        for (int i = 0; i < 3; ++i)
            points[p][i] = face.corners[p][i] ? boxMax[i] : boxMin[i];
    float hit[3];
    MeetPlane(origin, dir, points[0], points[1], points[2], hit);
    return std::all_of(face.axes, face.axes + 2,
                       [&](int axis) { return hit[axis] >= boxMin[axis] && hit[axis] <= boxMax[axis]; });
}

// The nearest hit so far.
struct Nearest {
    const float* origin;
    const float* dir;
    float distance;
    float* point;
    PickResult result = PickResult::nothing;

    void Try(const float* p0, const float* p1, const float* p2) {
        float hit[3];
        bool inside = false;
        const float t = MeetTriangle(origin, dir, p0, p1, p2, hit, &inside);
        if (!inside) return;
        if (result == PickResult::nothing) result = PickResult::beyond;
        if (!(t < distance)) return;
        distance = t;
        std::copy(hit, hit + 3, point);
        result = PickResult::triangle;
    }
};

} // namespace

bool MeetsBox(const float* origin, const float* dir, const float* boxMin, const float* boxMax) {
    return std::any_of(std::begin(faces), std::end(faces),
                       [&](const Face& face) { return MeetsFace(face, origin, dir, boxMin, boxMax); });
}

PickResult PickSurface(const GridView& grid, const float* origin, const float* dir, float limit, float* hit) {
    Nearest nearest = {origin, dir, limit, hit};
    for (std::size_t r = 1; r < grid.rows; ++r)
        for (std::size_t c = 1; c < grid.columns; ++c) {
            const float* corner = grid.At(c, r);
            nearest.Try(grid.At(c - 1, r - 1), grid.At(c, r - 1), corner);
            nearest.Try(grid.At(c - 1, r - 1), corner, grid.At(c - 1, r));
        }
    return nearest.result;
}

} // namespace KivoDrawingTools
