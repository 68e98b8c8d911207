#include "SurfacePicker.h"

#include "CellMarks.h"
#include "VectorClones.h"
#include "VectorMath.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <iterator>
#include <limits>
#include <type_traits>

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

// The nearest hit so far. Cells are numbered row by row and may come in any order.
struct Nearest {
    const float* origin;
    const float* dir;
    float distance;
    float* point;
    std::size_t cell = 0;
    PickResult result = PickResult::nothing;

    void TryCell(const GridView& grid, std::size_t c, std::size_t r) {
        const float* low = grid.At(c, r);
        const float* high = grid.At(c + 1, r + 1);
        const std::size_t index = r * grid.columns + c;
        Try(low, grid.At(c + 1, r), high, index);
        Try(low, high, grid.At(c, r + 1), index);
    }

private:
    void Try(const float* p0, const float* p1, const float* p2, std::size_t index) {
        float hit[3];
        bool inside = false;
        const float t = MeetTriangle(origin, dir, p0, p1, p2, hit, &inside);
        if (!inside) return;
        if (result == PickResult::nothing) result = PickResult::beyond;
        if (!(t < distance || (t == distance && index < cell))) return;
        distance = t;
        cell = index;
        std::copy(hit, hit + 3, point);
        result = PickResult::triangle;
    }
};

// The view along the line of sight, in which it is a point: a cell is passed over when its outline in this
// view is clear of that point, and both its triangles show enough of their area. The second condition makes
// sure that MeetTriangle, with all its rounding, says so too: seen edge-on, thin as needles, of no area or
// with points that are no numbers, triangles may count as met wherever they lie. Cells are looked at in
// single precision first, many at a time; those that remain once more in double precision.
//
// Coordinates are scaled by powers of two to about the unit box first. This changes no rounding in
// MeetTriangle but the sums over the three coordinates of its edge tests, which weigh the coordinates by the
// squares of the scales; a stronger condition makes up for that.
template <typename Real>
struct SightView {
    Real center[3];                  // the point of the line nearest to the middle of the box
    Real across[3], up[3], along[3]; // scaled axes of the view: point - center times these
    Real radius;                     // no point of the box is farther from the center
    Real margin;                     // how clear of the line, at 0, an outline has to be, rounding included
    // An area has to exceed leastArea + size * (areaError + needle * size).
    Real leastArea, areaError, needle;
};

constexpr double epsilon = 1.0 / 16777216; // half a unit in the last place of 1.0f

double Dot(const double* a, const double* b) {
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

void Cross(const double* a, const double* b, double* out) {
    for (int i = 0; i < 3; ++i)
        out[i] = a[(i + 1) % 3] * b[(i + 2) % 3] - a[(i + 2) % 3] * b[(i + 1) % 3];
}

void Normalize(double* v) {
    const double length = std::sqrt(Dot(v, v));
    for (int i = 0; i < 3; ++i)
        v[i] /= length;
}

// Powers of two that bring the box to sides from 1 to 2; a side without length takes the scale of the
// longest. False where a side is no number.
bool ScaleToUnitBox(const float* boxMin, const float* boxMax, double* scale, double* shortest,
                    double* longest) {
    double sides[3];
    for (int i = 0; i < 3; ++i)
        sides[i] = static_cast<double>(boxMax[i]) - static_cast<double>(boxMin[i]);
    *longest = std::max({sides[0], sides[1], sides[2]});
    *shortest = *longest;
    for (int i = 0; i < 3; ++i) {
        if (!std::isfinite(sides[i]) || !(*longest > 0.0)) return false;
        const double side = sides[i] > 0.0 ? sides[i] : *longest;
        *shortest = std::min(*shortest, side);
        scale[i] = std::ldexp(1.0, -std::ilogb(side));
    }
    return true;
}

// False where no triangle can be ruled out safely.
bool LookAlong(const float* origin, const float* dir, const float* boxMin, const float* boxMax,
               SightView<double>& view) {
    constexpr double largest = std::numeric_limits<float>::max() / 4.0; // of what has to fit single precision
    double scale[3], shortest = 0.0, longest = 0.0;
    if (!ScaleToUnitBox(boxMin, boxMax, scale, &shortest, &longest)) return false;

    double axes[3][3] = {}; // across, up, along
    double toBox[3];
    double magnitude = 0.0; // of all coordinates that take part
    double diagonal = 0.0;  // of the box, squared
    for (int i = 0; i < 3; ++i) {
        const double middle = 0.5 * (static_cast<double>(boxMin[i]) + static_cast<double>(boxMax[i]));
        axes[2][i] = dir[i] * scale[i];
        toBox[i] = (middle - origin[i]) * scale[i];
        const double side = (static_cast<double>(boxMax[i]) - static_cast<double>(boxMin[i])) * scale[i];
        diagonal += side * side;
        magnitude += (std::fabs(origin[i]) + std::max(std::fabs(boxMin[i]), std::fabs(boxMax[i]))) * scale[i];
    }
    Normalize(axes[2]);
    const int flattest =
        static_cast<int>(std::min_element(axes[2], axes[2] + 3,
                                          [](double a, double b) { return std::fabs(a) < std::fabs(b); }) -
                         axes[2]);
    double unit[3] = {};
    unit[flattest] = 1.0;
    Cross(unit, axes[2], axes[0]);
    Normalize(axes[0]);
    Cross(axes[2], axes[0], axes[1]);

    const double distance = Dot(toBox, axes[2]);
    double offLine[3]; // how far rounding puts the center off the line
    for (int i = 0; i < 3; ++i) {
        const double center = origin[i] + distance * axes[2][i] / scale[i];
        if (!(std::fabs(center) < largest)) return false;
        view.center[i] = static_cast<float>(center);
        offLine[i] = (view.center[i] - center) * scale[i];
        view.across[i] = axes[0][i] * scale[i];
        view.up[i] = axes[1][i] * scale[i];
        view.along[i] = axes[2][i] * scale[i];
    }
    const double toLine = std::sqrt(std::max(0.0, Dot(toBox, toBox) - distance * distance));
    view.radius = 0.5 * std::sqrt(diagonal) + toLine;
    // What MeetTriangle may be off, across the line of sight, and the center. It judges a hit that is off the
    // triangle's plane by the place below it, which another axis's scale can stretch.
    const double spread = *std::max_element(scale, scale + 3) / *std::min_element(scale, scale + 3);
    view.margin = 32.0 * epsilon * magnitude * spread + std::sqrt(Dot(offLine, offLine));
    // The first term keeps the rounding of normals and distances small against the triangle, the second makes
    // up for unequal scales, the third keeps squares of areas below the largest float.
    view.needle = std::max({1e-4, 2e-5 * longest / shortest, 1.5e-18 * longest * longest});
    view.leastArea = 1e-17 / (shortest * shortest); // and this above the smallest
    view.areaError = 0.0;
    return view.needle < 0.25 && view.margin < largest && view.leastArea < largest && view.radius < largest;
}

// The same view for single precision, with its rounding allowed for.
SightView<float> InSinglePrecision(const SightView<double>& view) {
    SightView<float> narrow = {};
    for (int i = 0; i < 3; ++i) {
        narrow.center[i] = static_cast<float>(view.center[i]);
        narrow.across[i] = static_cast<float>(view.across[i]);
        narrow.up[i] = static_cast<float>(view.up[i]);
        narrow.along[i] = static_cast<float>(view.along[i]);
    }
    narrow.radius = static_cast<float>(view.radius);
    narrow.margin = static_cast<float>(view.margin + 16.0 * epsilon * view.radius);
    narrow.leastArea = static_cast<float>(view.leastArea);
    narrow.areaError = static_cast<float>(16.0 * epsilon * view.radius);
    narrow.needle = static_cast<float>(view.needle);
    return narrow;
}

// A point in that view.
template <typename Real>
struct Seen {
    Real across, up, along;
};

template <typename Real>
inline Seen<Real> See(const SightView<Real>& view, const float* point) {
    const Real x = point[0] - view.center[0];
    const Real y = point[1] - view.center[1];
    const Real z = point[2] - view.center[2];
    return {x * view.across[0] + y * view.across[1] + z * view.across[2],
            x * view.up[0] + y * view.up[1] + z * view.up[2],
            x * view.along[0] + y * view.along[1] + z * view.along[2]};
}

// Written so that compilers make vector instructions of them; of two values one of which is no number they
// return the second.
template <typename Real>
inline Real Least(Real a, Real b, Real c, Real d) {
    const Real first = a < b ? a : b;
    const Real second = c < d ? c : d;
    return first < second ? first : second;
}
template <typename Real>
inline Real Greatest(Real a, Real b, Real c, Real d) {
    const Real first = a > b ? a : b;
    const Real second = c > d ? c : d;
    return first > second ? first : second;
}

// 1 for a cell a, b, c, d, around its border from the low corner, that the line surely does not meet, else 0.
template <typename Real>
inline int IsPassedOver(const SightView<Real>& view, const Seen<Real>& a, const Seen<Real>& b,
                        const Seen<Real>& c, const Seen<Real>& d) {
    const Real left = Least(a.across, b.across, c.across, d.across);
    const Real right = Greatest(a.across, b.across, c.across, d.across);
    const Real bottom = Least(a.up, b.up, c.up, d.up);
    const Real top = Greatest(a.up, b.up, c.up, d.up);
    const Real depth =
        Greatest(a.along, b.along, c.along, d.along) - Least(a.along, b.along, c.along, d.along);
    const Real size = (right - left) + (top - bottom) + depth;
    const Real distance = Greatest(left, -right, bottom, -top);
    const int isClear = distance > view.margin + size / 16;

    const Real acrossDiagonal = c.across - a.across, upDiagonal = c.up - a.up;
    const Real first = std::fabs((b.across - a.across) * upDiagonal - (b.up - a.up) * acrossDiagonal);
    const Real second = std::fabs(acrossDiagonal * (d.up - a.up) - upDiagonal * (d.across - a.across));
    const Real least = view.leastArea + size * (view.areaError + view.needle * size);
    return isClear & (first > least) & (second > least);
}

// A stretch of a row of points in that view.
constexpr std::size_t stretch = 1024; // cells; long enough for memory to be read ahead
struct SeenRow {
    float across[stretch + 1], up[stretch + 1], along[stretch + 1];

    Seen<float> At(std::size_t i) const { return {across[i], up[i], along[i]}; }
};

template <typename Stride>
inline void SeePoints(const SightView<float>& view, const float* points, Stride stride, std::size_t begin,
                      std::size_t end, SeenRow& row) {
    for (std::size_t i = begin; i < end; ++i) {
        const Seen<float> seen = See(view, points + i * stride);
        row.across[i] = seen.across;
        row.up[i] = seen.up;
        row.along[i] = seen.along;
    }
}

// Has some floats on their way from memory while others are worked on.
inline void ReadAhead(const float* floats, std::size_t count) {
#if defined(__GNUC__)
    constexpr std::size_t cacheLine = 64 / sizeof(float);
    for (std::size_t i = 0; i < count; i += cacheLine)
        __builtin_prefetch(floats + i);
#else
    (void)floats, (void)count;
#endif
}

// Where to begin instead, so that a range has whole vectors only: what it then has in common with the one
// before is done twice, which is faster than a rest done one by one.
inline std::size_t WidenedBegin(std::size_t begin, std::size_t end) {
    constexpr std::size_t lanes = 16; // of the widest vectors
    const std::size_t whole = (end - begin + lanes - 1) / lanes * lanes;
    return whole <= end ? end - whole : begin;
}

// Fills the upper row with count points, at least two, of which those of the next row are read ahead where
// there is one, and sets a byte for each cell between it and the lower one that the line may meet, clears it
// for the others. In short pieces, so that the memory is read while cells are judged; these are one piece
// behind, as what has just been stored is slow to load at other places.
KIVO_VECTOR_CLONES void MarkCells(const SightView<float>& view, const float* points, const float* next,
                                  std::size_t stride, std::size_t count, const SeenRow& lower, SeenRow& upper,
                                  unsigned char* marks) {
    constexpr std::size_t piece = 128; // whole vectors
    int passedOver[piece];
    for (std::size_t begin = 0; begin < count - 1 + piece; begin += piece) {
        if (begin < count) {
            const std::size_t end = std::min(count, begin + piece);
            const std::size_t first = WidenedBegin(begin, end);
            if (stride == 3) // known to the compiler, as vectors need it
                SeePoints(view, points, std::integral_constant<std::size_t, 3>(), first, end, upper);
            else
                SeePoints(view, points, stride, first, end, upper);
            const std::size_t ahead = begin + 3 * piece; // far enough for memory to answer in time
            if (ahead < count)
                ReadAhead(points + ahead * stride, (std::min(count - ahead, piece) - 1) * stride + 1);
            else if (next && ahead - count < count)
                ReadAhead(next + (ahead - count) * stride,
                          (std::min(2 * count - ahead, piece) - 1) * stride + 1);
        }
        if (begin == 0) continue;
        const std::size_t end = std::min(begin, count - 1);
        const std::size_t first = WidenedBegin(begin - piece, end);
        for (std::size_t k = 0; k < end - first; ++k) {
            const std::size_t i = first + k;
            passedOver[k] = IsPassedOver(view, lower.At(i), lower.At(i + 1), upper.At(i + 1), upper.At(i));
        }
        for (std::size_t k = 0; k < end - first; ++k)
            marks[first + k] = static_cast<unsigned char>(1 ^ passedOver[k]);
    }
}

// Tries the cells of some columns in all rows.
void PickInColumns(const GridView& grid, std::size_t first, std::size_t count, const SightView<double>& view,
                   Nearest& nearest) {
    const SightView<float> narrow = InSinglePrecision(view);
    SeenRow rows[2];
    unsigned char marks[stretch] = {};
    SeePoints<std::size_t>(narrow, grid.At(first, 0), grid.columnStride, 0, count + 1, rows[0]);
    for (std::size_t r = 0; r + 1 < grid.rows; ++r) {
        const SeenRow& lower = rows[r % 2];
        SeenRow& upper = rows[(r + 1) % 2];
        const float* const next = r + 2 < grid.rows ? grid.At(first, r + 2) : nullptr;
        MarkCells(narrow, grid.At(first, r + 1), next, grid.columnStride, count + 1, lower, upper, marks);
        ForEachMark(marks, MarkRoom(count), [&](std::size_t i) {
            const std::size_t c = first + i;
            if (!IsPassedOver(view, See(view, grid.At(c, r)), See(view, grid.At(c + 1, r)),
                              See(view, grid.At(c + 1, r + 1)), See(view, grid.At(c, r + 1))))
                nearest.TryCell(grid, c, r);
        });
    }
}

} // namespace

bool MeetsBox(const float* origin, const float* dir, const float* boxMin, const float* boxMax) {
    return std::any_of(std::begin(faces), std::end(faces),
                       [&](const Face& face) { return MeetsFace(face, origin, dir, boxMin, boxMax); });
}

PickResult PickSurface(const GridView& grid, const float* boxMin, const float* boxMax, const float* origin,
                       const float* dir, float limit, float* hit) {
    Nearest nearest = {origin, dir, limit, hit};
    if (grid.columns < 2 || grid.rows < 2) return nearest.result;
    const std::size_t cells = grid.columns - 1;
    SightView<double> view = {};
    if (LookAlong(origin, dir, boxMin, boxMax, view)) {
        for (std::size_t first = 0; first < cells; first += stretch)
            PickInColumns(grid, first, std::min(stretch, cells - first), view, nearest);
    } else {
        for (std::size_t r = 0; r + 1 < grid.rows; ++r)
            for (std::size_t c = 0; c < cells; ++c)
                nearest.TryCell(grid, c, r);
    }
    return nearest.result;
}

} // namespace KivoDrawingTools
