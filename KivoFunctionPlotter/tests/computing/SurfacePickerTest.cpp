// Lines of sight against boxes and grids of triangles, without a plotter.
#include "computing/SurfacePicker.h"

#include "support/PlainLoops.h"
#include "support/TestSurfaces.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <limits>
#include <random>
#include <vector>

using namespace KivoDrawingTools;

namespace {

using Vector = std::array<double, 3>;

constexpr float noNumber = std::numeric_limits<float>::quiet_NaN();
constexpr float infinity = std::numeric_limits<float>::infinity();

struct Ray {
    float origin[3];
    float dir[3];
};

/// Packed x, y, z triples, row by row.
struct Grid {
    unsigned int columns;
    unsigned int rows;
    std::vector<float> points;

    GridView View() const { return {points.data(), columns, rows, 3, columns * 3}; }
    float* At(std::size_t column, std::size_t row) { return &points[(row * columns + column) * 3]; }
};

template <typename Height>
Grid MakeGrid(unsigned int columns, unsigned int rows, Height height) {
    Grid grid = {columns, rows, {}};
    for (unsigned int r = 0; r < rows; ++r)
        for (unsigned int c = 0; c < columns; ++c)
            for (const double value :
                 {static_cast<double>(c), static_cast<double>(r), static_cast<double>(height(c, r))})
                grid.points.push_back(static_cast<float>(value));
    return grid;
}

Grid FlatGrid(unsigned int columns, unsigned int rows) {
    return MakeGrid(columns, rows, [](unsigned int, unsigned int) { return 0.0; });
}

Vector Widen(const float* v) {
    return {v[0], v[1], v[2]};
}

Vector Minus(const Vector& a, const Vector& b) {
    return {a[0] - b[0], a[1] - b[1], a[2] - b[2]};
}

Vector Cross(const Vector& a, const Vector& b) {
    return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}

double Dot(const Vector& a, const Vector& b) {
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

/// Distance along a line to a triangle whose barycentric coordinates at the hit are at least `least`;
/// infinity where it does not meet it. By Cramer's rule, in double precision.
double TriangleDistance(const Ray& ray, const float* a, const float* b, const float* c, double least) {
    const Vector edge1 = Minus(Widen(b), Widen(a)), edge2 = Minus(Widen(c), Widen(a));
    const Vector p = Cross(Widen(ray.dir), edge2);
    const double determinant = Dot(edge1, p);
    const Vector s = Minus(Widen(ray.origin), Widen(a));
    const double u = Dot(s, p) / determinant;
    const Vector q = Cross(s, edge1);
    const double v = Dot(Widen(ray.dir), q) / determinant;
    if (u < least || v < least || 1.0 - u - v < least) return std::numeric_limits<double>::infinity();
    return Dot(edge2, q) / determinant;
}

double NearestDistance(const Grid& grid, const Ray& ray, double least) {
    double nearest = std::numeric_limits<double>::infinity();
    const GridView view = grid.View();
    for (std::size_t r = 1; r < grid.rows; ++r)
        for (std::size_t c = 1; c < grid.columns; ++c) {
            const float *low = view.At(c - 1, r - 1), *high = view.At(c, r);
            nearest = std::min(nearest, TriangleDistance(ray, low, view.At(c, r - 1), high, least));
            nearest = std::min(nearest, TriangleDistance(ray, low, high, view.At(c - 1, r), least));
        }
    return nearest;
}

/// Whether an infinite line meets a box made larger by `more` on all sides: the intervals in which it is
/// between each pair of planes have a common part.
bool MeetsWiderBox(const Ray& ray, const float* boxMin, const float* boxMax, double more) {
    double low = -std::numeric_limits<double>::infinity(), high = -low;
    for (int i = 0; i < 3; ++i) {
        const double origin = ray.origin[i], dir = ray.dir[i];
        const double t0 = (boxMin[i] - more - origin) / dir, t1 = (boxMax[i] + more - origin) / dir;
        low = std::max(low, std::min(t0, t1));
        high = std::min(high, std::max(t0, t1));
    }
    return low <= high;
}

bool MeetsUnitBox(const Ray& ray) {
    const float low[] = {0, 0, 0}, high[] = {1, 1, 1};
    return MeetsBox(ray.origin, ray.dir, low, high);
}

/// PickSurface, which has to find what the plainest walk over all triangles finds.
PickResult Pick(const GridView& grid, const Ray& ray, float limit, float* hit) {
    float low[3] = {}, high[3] = {};
    if (grid.columns > 0 && grid.rows > 0) PlainBounds(grid, low, high);
    float expected[3];
    std::copy(hit, hit + 3, expected);
    const PickResult plain = PlainPick(grid, ray.origin, ray.dir, limit, expected);
    const PickResult result = PickSurface(grid, low, high, ray.origin, ray.dir, limit, hit);
    EXPECT_EQ(result, plain);
    EXPECT_TRUE(AreIdentical(hit, expected, 3)) << hit[0] << ' ' << hit[1] << ' ' << hit[2] << " instead of "
                                                << expected[0] << ' ' << expected[1] << ' ' << expected[2];
    return result;
}

/// A line through a random point of the box, stretched as the box is, from far outside.
Ray RandomRay(const GridView& grid, std::mt19937& random) {
    float low[3] = {}, high[3] = {};
    PlainBounds(grid, low, high);
    std::normal_distribution<double> normal;
    std::uniform_real_distribution<double> share(-0.1, 1.1);
    double dir[3], length = 0.0;
    Ray ray = {};
    for (int i = 0; i < 3; ++i) {
        const double side = double{high[i]} - low[i];
        dir[i] = normal(random) * (side > 0.0 ? side : 1.0);
        if (random() % 12 == 0) dir[i] = 0.0; // along a plane of the box
        length += dir[i] * dir[i];
    }
    for (int i = 0; i < 3; ++i) {
        ray.origin[i] =
            static_cast<float>(low[i] + share(random) * (double{high[i]} - low[i]) - 30.0 * dir[i]);
        ray.dir[i] = static_cast<float>(dir[i] / std::sqrt(length));
    }
    return ray;
}

/// Many lines on one grid; returns how many of them met it.
int PickAtRandom(const GridView& grid, int lines, std::mt19937& random) {
    int met = 0;
    for (int i = 0; i < lines; ++i) {
        float hit[3] = {7, 7, 7};
        met += Pick(grid, RandomRay(grid, random), 1e30f, hit) == PickResult::triangle ? 1 : 0;
    }
    return met;
}

} // namespace

// ---- Boxes

TEST(MeetsBox, AgreesWithTheIntervalsBetweenPlanesOnRandomLines) {
    std::mt19937 random(7);
    std::uniform_real_distribution<float> place(-3.0f, 3.0f);
    const float low[] = {-1.0f, -0.5f, 0.25f}, high[] = {2.0f, 0.75f, 1.5f};
    int met = 0, missed = 0;
    for (int i = 0; i < 20000; ++i) {
        Ray ray = {};
        for (int k = 0; k < 3; ++k) {
            ray.origin[k] = place(random);
            ray.dir[k] = place(random);
        }
        const bool surely = MeetsWiderBox(ray, low, high, -1e-4);
        const bool perhaps = MeetsWiderBox(ray, low, high, 1e-4);
        if (surely != perhaps) continue; // grazes an edge
        EXPECT_EQ(MeetsBox(ray.origin, ray.dir, low, high), surely) << "line " << i;
        ++(surely ? met : missed);
    }
    EXPECT_GT(met, 1500);
    EXPECT_GT(missed, 1500);
}

TEST(MeetsBox, LinesAlongTheAxesMeetTheTwoFacesTheyCross) {
    for (int axis = 0; axis < 3; ++axis)
        for (const float sign : {1.0f, -1.0f}) {
            Ray ray = {{0.25f, 0.5f, 0.75f}, {0, 0, 0}};
            ray.origin[axis] = -5.0f;
            ray.dir[axis] = sign;
            EXPECT_TRUE(MeetsUnitBox(ray)) << "a line has no beginning";
            ray.origin[(axis + 1) % 3] = 1.5f;
            EXPECT_FALSE(MeetsUnitBox(ray));
        }
}

TEST(MeetsBox, EdgesAndCornersBelongToIt) {
    EXPECT_TRUE(MeetsUnitBox({{-3, 0, 0}, {1, 0, 0}})) << "along an edge";
    EXPECT_TRUE(MeetsUnitBox({{1, 1, 9}, {0, 0, -1}})) << "along an edge";
    EXPECT_TRUE(MeetsUnitBox({{-3, 0.5f, 1}, {1, 0, 0}})) << "in a face";
    EXPECT_TRUE(MeetsUnitBox({{2, 0, 1}, {-1, 1, 0}})) << "through the end of an edge";
    EXPECT_TRUE(MeetsUnitBox({{0, 2, 0.5f}, {1, -1, 0}})) << "across an edge from outside";
    EXPECT_FALSE(MeetsUnitBox({{0, 2.125f, 0.5f}, {1, -1, 0}}));
    EXPECT_FALSE(MeetsUnitBox({{-3, 1.0001f, 1}, {1, 0, 0}}));
}

TEST(MeetsBox, AFlatBoxIsMetThroughItsTwoWideFaces) {
    const float low[] = {0, 0, 5}, high[] = {2, 3, 5};
    const Ray through = {{1, 1, 9}, {0.125f, 0.125f, -1}}, beside = {{1, 3.5f, 9}, {0, 0.125f, -1}};
    EXPECT_TRUE(MeetsBox(through.origin, through.dir, low, high));
    EXPECT_FALSE(MeetsBox(beside.origin, beside.dir, low, high));
}

TEST(MeetsBox, WithoutADirectionNothingIsMet) {
    EXPECT_FALSE(MeetsUnitBox({{0.5f, 0.5f, 0.5f}, {noNumber, noNumber, noNumber}}));
    EXPECT_FALSE(MeetsUnitBox({{0.5f, 0.5f, 0.5f}, {0, 0, 0}}));
}

// ---- Grids

TEST(PickSurface, FindsTheNearestTriangleOnRandomLines) {
    std::mt19937 random(11);
    std::uniform_real_distribution<double> height(0.0, 3.0), share(0.0, 1.0), slope(-1.5, 1.5);
    const Grid grid = MakeGrid(9, 7, [&](unsigned int, unsigned int) { return height(random); });
    int found = 0, folds = 0, unclear = 0;
    constexpr int lines = 5000;
    for (int i = 0; i < lines; ++i) {
        const double x = 8.0 * share(random), y = 6.0 * share(random);
        const double sx = slope(random), sy = slope(random);
        const Ray ray = {{static_cast<float>(x + 10.0 * sx), static_cast<float>(y + 10.0 * sy), 11.5f},
                         {static_cast<float>(-sx), static_cast<float>(-sy), -1.0f}};
        const double clear = NearestDistance(grid, ray, 1e-4), generous = NearestDistance(grid, ray, -1e-4);
        if (std::fabs(clear - generous) > 1e-3) {
            ++unclear;
            continue;
        }
        float hit[3] = {noNumber, noNumber, noNumber};
        const PickResult result = Pick(grid.View(), ray, 1000.0f, hit);
        if (std::isinf(clear)) {
            EXPECT_EQ(result, PickResult::nothing);
            EXPECT_TRUE(std::isnan(hit[0])) << "nothing is written";
            continue;
        }
        ++found;
        folds += std::fabs(sx) + std::fabs(sy) > 1.0 ? 1 : 0;
        ASSERT_EQ(result, PickResult::triangle);
        for (int k = 0; k < 3; ++k)
            EXPECT_NEAR(hit[k], ray.origin[k] + clear * ray.dir[k], 1e-4);
    }
    EXPECT_GT(found, lines / 2);
    EXPECT_GT(folds, lines / 10);
    EXPECT_LT(unclear, lines / 50);
}

TEST(PickSurface, DistancesAreMultiplesOfTheDirectionAndLieBelowTheLimit) {
    const Grid grid = FlatGrid(3, 3);
    const Ray ray = {{0.75f, 0.25f, 8.0f}, {0, 0, -2.0f}}; // 4 directions away
    float hit[3] = {7, 7, 7};
    EXPECT_EQ(Pick(grid.View(), ray, 3.5f, hit), PickResult::beyond);
    EXPECT_EQ(Pick(grid.View(), ray, 4.0f, hit), PickResult::beyond);
    EXPECT_EQ(hit[0], 7.0f);
    EXPECT_EQ(hit[2], 7.0f);
    EXPECT_EQ(Pick(grid.View(), ray, 4.5f, hit), PickResult::triangle);
    EXPECT_EQ(std::vector<float>(hit, hit + 3), (std::vector<float>{0.75f, 0.25f, 0.0f}));
}

TEST(PickSurface, ATriangleBeforeTheOriginIsNearerThanOneAfterIt) {
    // Two sheets over the same columns: z = 4 in rows 0 and 1, z = -4 in rows 2 and 3.
    Grid grid = MakeGrid(2, 4, [](unsigned int, unsigned int r) { return r < 2 ? 4.0 : -4.0; });
    for (std::size_t c = 0; c < 2; ++c)
        for (std::size_t r = 2; r < 4; ++r)
            grid.At(c, r)[1] = static_cast<float>(3 - r);
    const Ray down = {{0.75f, 0.25f, 0}, {0, 0, -1}}, up = {{0.75f, 0.25f, 0}, {0, 0, 1}};
    float hit[3] = {};
    EXPECT_EQ(Pick(grid.View(), down, 100, hit), PickResult::triangle);
    EXPECT_EQ(hit[2], 4.0f);
    EXPECT_EQ(Pick(grid.View(), up, 100, hit), PickResult::triangle);
    EXPECT_EQ(hit[2], -4.0f);
}

TEST(PickSurface, TheDiagonalFromTheLowToTheHighCornerBelongsToBothTriangles) {
    const Ray ray = {{0.5f, 0.5f, 3.0f}, {0, 0, -1}};
    for (const std::size_t spoiled : {0u, 1u, 2u}) { // none, a corner of the first, one of the second
        Grid grid = FlatGrid(2, 2);
        if (spoiled == 1) grid.At(1, 0)[2] = noNumber;
        if (spoiled == 2) grid.At(0, 1)[2] = noNumber;
        float hit[3] = {};
        EXPECT_EQ(Pick(grid.View(), ray, 100, hit), PickResult::triangle);
        EXPECT_EQ(std::vector<float>(hit, hit + 3), (std::vector<float>{0.5f, 0.5f, 0.0f}));
    }
}

// The other diagonal would lie 0 high at the middle of the cell instead of 1.
TEST(PickSurface, CellsAreSplitFromTheLowToTheHighCorner) {
    Grid grid = FlatGrid(2, 2);
    grid.At(0, 0)[2] = grid.At(1, 1)[2] = 1.0f;
    const Ray ray = {{0.5f, 0.5f, 3.0f}, {0, 0, -1}};
    float hit[3] = {};
    EXPECT_EQ(Pick(grid.View(), ray, 100, hit), PickResult::triangle);
    EXPECT_EQ(hit[2], 1.0f);
}

// Equal distances give equal points but for the sign of a zero: from an origin in the plane, sheets that face
// each other's way are 0 and -0 away.
TEST(PickSurface, OfEquallyDistantTrianglesTheFirstStays) {
    Grid grid = FlatGrid(2, 4); // rows 2 and 3 are folded back over rows 0 and 1
    for (std::size_t c = 0; c < 2; ++c)
        for (std::size_t r = 2; r < 4; ++r)
            grid.At(c, r)[1] = static_cast<float>(3 - r);
    const Ray ray = {{0.75f, 0.25f, -0.0f}, {0, 0, -1}};
    const auto isZeroNegative = [&ray](const GridView& view) {
        float hit[3] = {};
        EXPECT_EQ(Pick(view, ray, 100, hit), PickResult::triangle);
        EXPECT_EQ(hit[2], 0.0f);
        return std::signbit(hit[2]);
    };
    const bool first = isZeroNegative({grid.At(0, 0), 2, 2, 3, 6});
    const bool last = isZeroNegative({grid.At(0, 2), 2, 2, 3, 6});
    ASSERT_NE(first, last);
    EXPECT_EQ(isZeroNegative(grid.View()), first);
}

TEST(PickSurface, TrianglesWithoutAreaAreNeverTakenButCount) {
    Grid grid = FlatGrid(3, 2);
    for (std::size_t r = 0; r < 2; ++r)
        std::copy_n(grid.At(1, r), 3, grid.At(2, r)); // the second cell has no width
    float hit[3] = {7, 7, 7};
    const Ray beside = {{9.0f, 9.0f, 3.0f}, {0, 0, -1}}, through = {{0.75f, 0.25f, 3.0f}, {0, 0, -1}};
    EXPECT_EQ(Pick(grid.View(), beside, 100, hit), PickResult::beyond);
    EXPECT_EQ(hit[0], 7.0f);
    EXPECT_EQ(Pick(grid.View(), through, 100, hit), PickResult::triangle);
    EXPECT_EQ(hit[0], 0.75f);
    EXPECT_EQ(hit[2], 0.0f);
}

TEST(PickSurface, PointsWithoutNumbersAreNeverTaken) {
    for (const float value : {noNumber, infinity, -infinity}) {
        Grid grid = FlatGrid(4, 4);
        grid.At(1, 1)[2] = value;
        float hit[3] = {7, 7, 7};
        const Ray there = {{1.25f, 1.125f, 3.0f}, {0, 0, -1}}, elsewhere = {{2.75f, 2.25f, 3.0f}, {0, 0, -1}};
        EXPECT_NE(Pick(grid.View(), there, 100, hit), PickResult::triangle);
        EXPECT_EQ(hit[0], 7.0f);
        EXPECT_EQ(Pick(grid.View(), elsewhere, 100, hit), PickResult::triangle);
        EXPECT_EQ(hit[2], 0.0f);
    }
}

TEST(PickSurface, GridsWithoutCellsHaveNothingToFind) {
    const std::vector<float> points(30, 0.0f);
    const Ray ray = {{0, 0, 1}, {0, 0, -1}};
    float hit[3] = {7, 7, 7};
    const unsigned int sizes[][2] = {{0, 0}, {0, 5}, {5, 0}, {1, 5}, {5, 1}, {1, 1}};
    for (const auto& size : sizes) {
        const GridView view = {points.data(), size[0], size[1], 3, size[0] * 3};
        EXPECT_EQ(Pick(view, ray, 100, hit), PickResult::nothing);
    }
    const GridView none = {nullptr, 0, 0, 0, 0};
    EXPECT_EQ(Pick(none, ray, 100, hit), PickResult::nothing);
    EXPECT_EQ(hit[2], 7.0f);
}

TEST(PickSurface, StridesLeadFromPointToPoint) {
    // Records of five floats, stored column by column, every third row of which is meant.
    constexpr unsigned int record = 5, storedRows = 10;
    std::vector<float> stored;
    for (unsigned int c = 0; c < 4; ++c)
        for (unsigned int r = 0; r < storedRows; ++r)
            for (const double value : {double(c), r / 3.0, r % 3 == 0 ? 0.5 * c : 50.0, 99.0, 99.0})
                stored.push_back(static_cast<float>(value));
    const GridView view = {stored.data(), 4, 4, record * storedRows, record * 3};
    const Ray ray = {{2.25f, 1.125f, 60.0f}, {0, 0, -1}};
    float hit[3] = {};
    EXPECT_EQ(Pick(view, ray, 100, hit), PickResult::triangle);
    EXPECT_NEAR(hit[2], 1.125, 1e-5);
}

// ---- Against the plainest walk

TEST(PickSurface, FindsWhatAPlainWalkFindsOnSmoothAndRoughSurfaces) {
    std::mt19937 random(3);
    for (const TestSurface& surface : AllTestSurfaces()) {
        const GridView view = {surface.points.data(), surface.columns, surface.rows, 3, 3 * surface.columns};
        EXPECT_GT(PickAtRandom(view, 400, random), 50) << surface.name;
    }
}

TEST(PickSurface, FindsWhatAPlainWalkFindsWithUnequalAxesAndOffsets) {
    std::mt19937 random(4);
    for (const float wide : {1.0f, 1e-3f, 1e3f, 1e6f, 1e-12f, 1e12f})
        for (const float high : {1.0f, 1e-4f, 1e5f, 0.0f, 1e-30f, 1e30f})
            for (const float offset : {0.0f, 6e6f, -50.0f}) {
                TestSurface surface = TerrainSurface(25, 21);
                for (std::size_t i = 0; i < surface.points.size(); i += 3) {
                    surface.points[i] = surface.points[i] * wide + offset;
                    surface.points[i + 2] = surface.points[i + 2] * high + offset;
                }
                PickAtRandom({surface.points.data(), 25, 21, 3, 75}, 40, random);
            }
}

// Rounding along the long axes moves hits along a short one by many cells.
TEST(PickSurface, FindsWhatAPlainWalkFindsOnRidgesAlongAShortAxis) {
    std::mt19937 random(8);
    for (const float offset : {0.0f, 2000.0f})
        for (const float shortSide : {0.005f, 0.002f}) {
            TestSurface surface = PlaneSurface(60, 40);
            for (std::size_t i = 0; i < surface.points.size(); i += 3) {
                const std::size_t point = i / 3;
                const float x = static_cast<float>(point % 60) / 59.0f;
                const float y = static_cast<float>(point / 60) / 39.0f;
                surface.points[i] = offset + 20.0f * x;
                surface.points[i + 1] = shortSide * y;
                surface.points[i + 2] = 10.0f * std::sin(12.0f * x) + shortSide * y;
            }
            const GridView view = {surface.points.data(), 60, 40, 3, 180};
            EXPECT_GT(PickAtRandom(view, 1000, random), 50) << offset << ' ' << shortSide;
        }
}

// Each corner alone says how large its cells are, and a line near the top is far from the other corners.
TEST(PickSurface, FindsSpikesOfOnePointFromAllSides) {
    constexpr double height = 100.0;
    std::mt19937 random(9);
    std::uniform_real_distribution<double> rough(-1.0, 1.0);
    for (const unsigned int at : {1u, 4u, 7u}) {
        Grid grid = MakeGrid(9, 9, [&](unsigned int, unsigned int) { return rough(random); });
        grid.At(at, at)[2] = static_cast<float>(height);
        int met = 0;
        for (int i = 0; i < 360; ++i) {
            const double angle = i * 3.14159265358979 / 180.0;
            const double toX = std::cos(angle), toY = std::sin(angle), beside = 0.01 * (i % 7 - 3);
            const Ray ray = {{static_cast<float>(at - 30.0 * toX - beside * toY),
                              static_cast<float>(at - 30.0 * toY + beside * toX),
                              static_cast<float>(height * (0.8 + 0.01 * (i % 13)))},
                             {static_cast<float>(toX), static_cast<float>(toY), 0.0f}};
            float hit[3] = {7, 7, 7};
            met += Pick(grid.View(), ray, 1e30f, hit) == PickResult::triangle ? 1 : 0;
        }
        EXPECT_GT(met, 300) << at;
    }
}

TEST(PickSurface, FindsWhatAPlainWalkFindsAmongDegenerateCells) {
    std::mt19937 random(5);
    std::uniform_real_distribution<float> uniform(-1.0f, 1.0f);
    for (int round = 0; round < 60; ++round) {
        TestSurface surface = HillSurface(19, 15);
        for (float& value : surface.points) {
            const unsigned int fate = static_cast<unsigned int>(random()) % 200;
            if (fate == 0) value = noNumber;
            if (fate == 1) value = infinity;
            if (fate == 2) value = uniform(random) * 1e25f;
            if (fate < 20 && round % 3 == 0) value = std::round(value); // points on each other, upright cells
            if (round % 5 == 0) value = uniform(random);                // no surface at all
        }
        std::fill_n(surface.points.begin(), 3, 0.5f);
        PickAtRandom({surface.points.data(), 19, 15, 3, 57}, 40, random);
    }
}

TEST(PickSurface, FindsWhatAPlainWalkFindsEdgeOn) {
    const TestSurface surface = PlaneSurface(30, 30);
    TestSurface ridge = PlaneSurface(30, 30);
    for (std::size_t i = 0; i < ridge.points.size(); i += 3)
        ridge.points[i + 2] = std::sin(ridge.points[i]);
    for (const TestSurface* s : {&surface, static_cast<const TestSurface*>(&ridge)})
        for (const float height : {-0.3f, 0.0f, 0.5f})
            for (const Ray& ray :
                 {Ray{{0.3f, -100, height}, {0, 1, 0}}, Ray{{-100, 0.3f, height}, {1, 0, 0}},
                  Ray{{0.25f, -100, height}, {1e-7f, 1, 0}}, Ray{{0, 0, height}, {0, 0, 0}}}) {
                float hit[3] = {7, 7, 7};
                Pick({s->points.data(), 30, 30, 3, 90}, ray, 1e30f, hit);
            }
}

// Rows are looked at in pieces of whole vectors, the last one of which may begin within the one before.
TEST(PickSurface, FindsWhatAPlainWalkFindsInRowsOfAnyLength) {
    std::mt19937 random(8);
    int hits = 0;
    for (unsigned int columns = 2; columns <= 290; ++columns) {
        const TestSurface surface = TerrainSurface(columns, 4);
        hits += PickAtRandom({surface.points.data(), columns, 4, 3, 3 * columns}, 12, random);
    }
    EXPECT_GT(hits, 290);
}

// Rows longer than what is looked at in one go.
TEST(PickSurface, FindsWhatAPlainWalkFindsInWideGrids) {
    std::mt19937 random(6);
    for (const unsigned int columns : {1024u, 1025u, 1026u, 2100u}) {
        const TestSurface surface = TerrainSurface(columns, 5);
        EXPECT_GT(PickAtRandom({surface.points.data(), columns, 5, 3, 3 * columns}, 60, random), 5);
        EXPECT_GT(PickAtRandom({surface.points.data(), 5, columns, 3 * columns, 3}, 60, random), 5);
    }
}

// Reaching triangles one by one would find the same, a hundred times slower.
TEST(PickSurface, PassesOverNearlyAllCells) {
    std::mt19937 random(9);
    for (const float offset : {0.0f, 300.0f})
        for (const float high : {1.0f, 0.05f}) {
            TestSurface surface = TerrainSurface(300, 300);
            for (std::size_t i = 0; i < surface.points.size(); i += 3) {
                surface.points[i] += offset;
                surface.points[i + 2] *= high;
            }
            const GridView grid = {surface.points.data(), 300, 300, 3, 900};
            float low[3] = {}, top[3] = {};
            PlainBounds(grid, low, top);
            std::size_t all = 0;
            for (int i = 0; i < 40; ++i) {
                const Ray ray = RandomRay(grid, random);
                float hit[3] = {};
                std::size_t tried = 0;
                PickSurface(grid, low, top, ray.origin, ray.dir, 1e30f, hit, &tried);
                all += tried;
            }
            EXPECT_LT(all / 40, 299 * 299 / 20) << offset << ' ' << high;
            EXPECT_GT(all, 40u);
        }
}

// The products of such lines leave the range of single precision.
TEST(PickSurface, FindsWhatAPlainWalkFindsAtTinyAndHugeScales) {
    std::mt19937 random(10);
    for (const float scale : {1e-20f, 1e-12f, 1e-9f, 1e-6f, 1e6f, 1e9f, 1e12f, 1e18f})
        for (const float dirScale : {1e-42f, 1e-38f, 1e-9f, 1.0f, 1e9f, 1e37f}) {
            TestSurface surface = HillSurface(17, 13);
            for (float& value : surface.points)
                value *= scale;
            const GridView grid = {surface.points.data(), 17, 13, 3, 51};
            for (int i = 0; i < 60; ++i) {
                Ray ray = RandomRay(grid, random);
                for (float& value : ray.dir)
                    value *= dirScale;
                float hit[3] = {7, 7, 7};
                Pick(grid, ray, 1e30f, hit);
            }
        }
}
