#include "TriangleCulling.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace KivoDrawingTools {

namespace {

// What single precision loses on the way of a point to its place, as parts of all that is summed up there:
// the product of the matrices, two transformations, the clipping, the viewport, and the places that are kept
// here. Each takes a few of these; the double of them all is allowed for.
constexpr double roundings = 64.0 * std::numeric_limits<float>::epsilon();
// Beyond this a place says too little.
constexpr double mostUncertain = 0.5;
// Pixels in which a triangle is looked for exactly; the few that cover more are drawn.
constexpr int fewPixels = 6;
// So far away, in pixels, no corner has a place.
constexpr float farthest = 1e6f;
// Pixels of a side that are counted in 16 bits, with some beyond the edges.
constexpr int longestSide = 32000;

double Sum(const double* row, double x, double y, double z) {
    return row[0] * x + row[1] * y + row[2] * z + row[3];
}

// The whole number at or below, of a number that is not far below 0.
int FloorOf(float value) {
    constexpr int above = 8;
    return static_cast<int>(value + static_cast<float>(above)) - above;
}

} // namespace

// ---- Where points come to lie ---------------------------------------------------------------------------

bool PixelMapping::Find(const double* modelView, const double* projection, const int* viewport,
                        int subpixelBits) {
    for (const int side : {viewport[2], viewport[3]})
        if (side <= 0 || side > longestSide) return false;
    double clip[4][4] = {}, sums[4][4] = {};
    for (int row = 0; row < 4; ++row)
        for (int column = 0; column < 4; ++column)
            for (int i = 0; i < 4; ++i) {
                const double product = projection[4 * i + row] * modelView[4 * column + i];
                clip[row][column] += product;
                sums[row][column] += std::abs(product);
            }
    // Without signs: what cancels out here need not do so in single precision.
    if (sums[3][0] != 0.0 || sums[3][1] != 0.0 || sums[3][2] != 0.0 || clip[3][3] != 1.0) return false;
    for (const int side : {0, 1}) {
        size[side] = viewport[2 + side];
        const double half = 0.5 * size[side];
        for (int i = 0; i < 4; ++i) {
            along[side][i] = half * clip[side][i];
            reach[side][i] = half * sums[side][i];
        }
        along[side][3] += half - 0.5;
        reach[side][3] += half + std::abs(static_cast<double>(viewport[side]));
    }
    snap = std::ldexp(1.0, -std::max(subpixelBits, 0));
    return true;
}

double PixelMapping::Uncertainty(int side, const float* most) const {
    return snap + roundings * Sum(reach[side], most[0], most[1], most[2]);
}

// ---- Triangles ------------------------------------------------------------------------------------------

TriangleCulling::TriangleCulling() : m_corners(mostIndices), m_kept(mostIndices) {}

TriangleCulling::Kept TriangleCulling::Cull(const float* points, std::size_t components,
                                            std::size_t pointCount, const unsigned int* indices,
                                            std::size_t count) {
    const Kept all = {indices, count};
    if (count == 0 || count > mostIndices) return all;
    const auto [first, last] = std::minmax_element(indices, indices + count);
    const std::size_t begin = *first, corners = *last - begin + std::size_t{1};
    if (*last >= pointCount || corners > m_corners.size()) return all;
    const float* const used = points + begin * components;
    if (!FindUncertainty(used, components, corners)) return all;
    PlaceCorners(used, components, corners);

    unsigned int* kept = m_kept.data();
    const Corner* const corner = m_corners.data();
    for (std::size_t i = 0; i + 2 < count; i += 3) {
        const unsigned int a = indices[i], b = indices[i + 1], c = indices[i + 2];
        if (!MayShow(corner[a - begin], corner[b - begin], corner[c - begin])) continue;
        kept[0] = a;
        kept[1] = b;
        kept[2] = c;
        kept += 3;
    }
    return {m_kept.data(), static_cast<std::size_t>(kept - m_kept.data())};
}

// What is no number counts as nothing: a triangle with such a corner is kept anyway.
bool TriangleCulling::FindUncertainty(const float* points, std::size_t components, std::size_t count) {
    float most[3] = {};
    for (std::size_t i = 0; i < count; ++i)
        for (int k = 0; k < 3; ++k) {
            const float size = std::abs(points[i * components + k]);
            most[k] = size > most[k] && size < std::numeric_limits<float>::infinity() ? size : most[k];
        }
    for (const int side : {0, 1}) {
        m_uncertainty[side] = m_mapping.Uncertainty(side, most);
        if (!(m_uncertainty[side] <= mostUncertain)) return false;
    }
    return true;
}

void TriangleCulling::PlaceCorners(const float* points, std::size_t components, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i)
        for (const int side : {0, 1})
            Place(side, points + i * components, m_corners[i]);
}

void TriangleCulling::Place(int side, const float* point, Corner& corner) const {
    const auto size = static_cast<float>(m_mapping.size[side]);
    const auto uncertainty = static_cast<float>(m_uncertainty[side]);
    const auto at = static_cast<float>(Sum(m_mapping.along[side], point[0], point[1], point[2]));
    const bool hasPlace = std::abs(at) < farthest;
    const float inside = std::min(std::max(hasPlace ? at : 0.0f, -3.0f), size + 3.0f);
    const int first = hasPlace ? FloorOf(inside - uncertainty) + 1 : 0;
    const int last = hasPlace ? FloorOf(inside + uncertainty) : m_mapping.size[side] - 1;
    corner.place[side] = hasPlace ? at : std::numeric_limits<float>::quiet_NaN();
    corner.pixels.first[side] = static_cast<short>(std::max(first, 0));
    corner.pixels.minusLast[side] = static_cast<short>(-std::min(last, m_mapping.size[side] - 1));
}

bool TriangleCulling::MayShow(const Corner& a, const Corner& b, const Corner& c) const {
    Pixels all;
    for (const int side : {0, 1}) {
        all.first[side] = std::min({a.pixels.first[side], b.pixels.first[side], c.pixels.first[side]});
        all.minusLast[side] =
            std::min({a.pixels.minusLast[side], b.pixels.minusLast[side], c.pixels.minusLast[side]});
    }
    const int across = 1 - all.minusLast[0] - all.first[0];
    const int up = 1 - all.minusLast[1] - all.first[1];
    if (across <= 0 || up <= 0) return false;
    return across * up > fewPixels || MayCoverOneOf(a, b, c, all);
}

// A middle that lies on the outer side of an edge, farther off than the corners can be from their places, is
// not covered. Which side that is has to be sure: of a needle, whose far corners nearly meet, it is not.
bool TriangleCulling::MayCoverOneOf(const Corner& a, const Corner& b, const Corner& c,
                                    const Pixels& pixels) const {
    const Corner* const corners[] = {&a, &b, &c};
    const auto along = [&](const Corner& to, int side) {
        return static_cast<double>(to.place[side]) - static_cast<double>(a.place[side]);
    };
    const double left = along(b, 0) * along(c, 1), right = along(b, 1) * along(c, 0);
    constexpr double sure = 1e-14;
    if (!(std::abs(left - right) > sure * (std::abs(left) + std::abs(right)))) return true; // no number, too
    const float sign = left < right ? -1.0f : 1.0f;
    const auto offX = static_cast<float>(m_uncertainty[0]), offY = static_cast<float>(m_uncertainty[1]);
    // Of each edge, how far inside a pixel's middle lies: a linear function of where that is.
    float perX[3], perY[3], atZero[3];
    for (int i = 0; i < 3; ++i) {
        const float* const from = corners[i]->place;
        const float* const to = corners[i == 2 ? 0 : i + 1]->place;
        perX[i] = -sign * (to[1] - from[1]);
        perY[i] = sign * (to[0] - from[0]);
        const float slack = std::abs(perX[i]) * offX + std::abs(perY[i]) * offY;
        const auto x = static_cast<float>(pixels.first[0]), y = static_cast<float>(pixels.first[1]);
        atZero[i] = perX[i] * (x - from[0]) + perY[i] * (y - from[1]) + slack;
    }
    const int across = 1 - pixels.minusLast[0] - pixels.first[0];
    const int up = 1 - pixels.minusLast[1] - pixels.first[1];
    for (int y = 0; y < up; ++y)
        for (int x = 0; x < across; ++x) {
            bool isInside = true;
            for (int i = 0; i < 3; ++i) {
                const float inside =
                    atZero[i] + static_cast<float>(x) * perX[i] + static_cast<float>(y) * perY[i];
                isInside &= !(inside < 0.0f);
            }
            if (isInside) return true;
        }
    return false;
}

} // namespace KivoDrawingTools
