// The order of cells against lines of sight, each followed through all triangles.
#include "computing/CellStrips.h"

#include "computing/MeshArrays.h"
#include "support/TestSurfaces.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <random>
#include <vector>

using namespace KivoDrawingTools;

namespace {

using Triangle = std::array<unsigned int, 3>;

GridView View(const TestSurface& surface) {
    return {surface.points.data(), surface.columns, surface.rows, 3, surface.columns * 3};
}

std::vector<Triangle> Triangles(const std::vector<unsigned int>& indices) {
    std::vector<Triangle> triangles;
    for (std::size_t i = 0; i + 2 < indices.size(); i += 3)
        triangles.push_back({indices[i], indices[i + 1], indices[i + 2]});
    return triangles;
}

// What a grid's triangles are without an order: as the surface has them.
std::vector<Triangle> PlainTriangles(unsigned int columns, unsigned int rows) {
    std::vector<unsigned int> indices(std::size_t{columns - 1} * (rows - 1) * 6);
    FillTriangleIndices(columns - 1, rows - 1, indices.data());
    return Triangles(indices);
}

std::vector<Triangle> Sorted(std::vector<Triangle> triangles) {
    std::sort(triangles.begin(), triangles.end());
    return triangles;
}

// How near a triangle is where a line of sight meets it; no number where it does not. axes: the two
// directions of the screen and the one to the viewer.
float NearnessAt(const float* const (&corners)[3], const float (&axes)[3][3], float x, float y) {
    double place[3][3];
    for (int i = 0; i < 3; ++i)
        for (int a = 0; a < 3; ++a) {
            place[i][a] = 0.0;
            for (int k = 0; k < 3; ++k)
                place[i][a] += static_cast<double>(axes[a][k]) * static_cast<double>(corners[i][k]);
        }
    double weight[3], sum = 0.0;
    for (int i = 0; i < 3; ++i) {
        const double* const p = place[(i + 1) % 3];
        const double* const q = place[(i + 2) % 3];
        weight[i] = (p[0] - x) * (q[1] - y) - (q[0] - x) * (p[1] - y);
        sum += weight[i];
    }
    double nearness = 0.0;
    for (int i = 0; i < 3; ++i) {
        if (!(weight[i] / sum > 1e-9)) return std::numeric_limits<float>::quiet_NaN();
        nearness += weight[i] / sum * place[i][2];
    }
    return static_cast<float>(nearness);
}

class LineOfSight {
public:
    explicit LineOfSight(unsigned int seed) : m_random(seed) {
        std::normal_distribution<float> normal;
        float(&u)[3] = m_axes[0];
        float(&v)[3] = m_axes[1];
        float(&w)[3] = m_axes[2];
        for (int i = 0; i < 3; ++i)
            w[i] = normal(m_random), u[i] = normal(m_random);
        Normalise(w);
        const float along = u[0] * w[0] + u[1] * w[1] + u[2] * w[2];
        for (int i = 0; i < 3; ++i)
            u[i] -= along * w[i];
        Normalise(u);
        for (int i = 0; i < 3; ++i)
            v[i] = w[(i + 1) % 3] * u[(i + 2) % 3] - w[(i + 2) % 3] * u[(i + 1) % 3];
    }

    const float* Nearness() const { return m_axes[2]; }

    // A place on the screen near which a point lies.
    void Aim(const float* point) {
        std::uniform_real_distribution<float> off(-0.2f, 0.2f);
        for (int a = 0; a < 2; ++a)
            m_aim[a] =
                m_axes[a][0] * point[0] + m_axes[a][1] * point[1] + m_axes[a][2] * point[2] + off(m_random);
    }

    float NearnessOf(const TestSurface& surface, const Triangle& triangle) const {
        const float* const corners[] = {&surface.points[3 * triangle[0]], &surface.points[3 * triangle[1]],
                                        &surface.points[3 * triangle[2]]};
        return NearnessAt(corners, m_axes, m_aim[0], m_aim[1]);
    }

private:
    static void Normalise(float (&v)[3]) {
        const float length = std::sqrt(v[0] * v[0] + v[1] * v[1] + v[2] * v[2]);
        for (float& x : v)
            x /= length;
    }

    std::mt19937 m_random;
    float m_axes[3][3] = {};
    float m_aim[2] = {};
};

struct Drawn {
    const TestSurface* surface;
    Triangle triangle;
};

// Pairs of triangles on lines of sight, and how many of them are drawn in the wrong order.
struct Pairs {
    int all = 0, wrong = 0;
};

Pairs FollowLines(LineOfSight& sight, const std::vector<Drawn>& drawn, const TestSurface& aim) {
    Pairs pairs;
    for (std::size_t point = 0; point < aim.points.size(); point += 3) {
        sight.Aim(&aim.points[point]);
        float last = -std::numeric_limits<float>::infinity();
        for (const Drawn& d : drawn) {
            const float nearness = sight.NearnessOf(*d.surface, d.triangle);
            if (std::isnan(nearness)) continue;
            if (std::isfinite(last)) ++pairs.all;
            if (nearness < last - 1e-5f) ++pairs.wrong;
            last = nearness;
        }
    }
    return pairs;
}

TestSurface Mirrored(TestSurface surface, int axis) {
    for (std::size_t i = static_cast<std::size_t>(axis); i < surface.points.size(); i += 3)
        surface.points[i] = -surface.points[i];
    return surface;
}

} // namespace

TEST(CellStrips, HaveEachTriangleOnce) {
    for (const auto& [columns, rows] : {std::pair{2U, 2U}, {7U, 5U}, {5U, 8U}, {2U, 9U}}) {
        const TestSurface surface = NoiseSurface(columns, rows);
        CellStrips strips(View(surface), {});
        for (int sign = 0; sign < 16; ++sign) {
            const float first = sign & 1 ? -1.0f : 1.0f, second = sign & 2 ? -1.0f : 1.0f;
            const float nearness[] = {sign & 4 ? first * 0.1f : first, sign & 4 ? second : second * 0.1f,
                                      sign & 8 ? 1.0f : -1.0f};
            strips.Arrange(nearness);
            EXPECT_EQ(Sorted(Triangles(strips.Indices())), Sorted(PlainTriangles(columns, rows))) << sign;
        }
    }
}

TEST(CellStrips, NoTriangleIsDrawnBeforeOneBehindIt) {
    Pairs all;
    for (unsigned int seed = 0; seed < 60; ++seed) {
        TestSurface surface = NoiseSurface(9, 7);
        if (seed % 2 != 0) surface = Mirrored(surface, 0);
        if (seed % 3 == 0) surface = Mirrored(surface, 1);
        CellStrips strips(View(surface), {});
        LineOfSight sight(seed);
        strips.Arrange(sight.Nearness());
        std::vector<Drawn> drawn;
        for (const Triangle& triangle : Triangles(strips.Indices()))
            drawn.push_back({&surface, triangle});
        const Pairs pairs = FollowLines(sight, drawn, surface);
        EXPECT_EQ(pairs.wrong, 0) << seed;
        all.all += pairs.all;
    }
    EXPECT_GT(all.all, 500) << "lines of sight that meet more than one triangle";
}

TEST(CellStrips, LeaveHolesOut) {
    const TestSurface surface = NoiseSurface(4, 3);
    CellStrips strips(View(surface), {0, 1, 0, 0, 0, 1});
    const float nearness[] = {0.3f, 1.0f, 0.5f};
    strips.Arrange(nearness);
    std::vector<Triangle> left;
    const std::vector<Triangle> plain = PlainTriangles(4, 3);
    for (std::size_t i = 0; i < plain.size(); ++i)
        if (i / 2 != 1 && i / 2 != 5) left.push_back(plain[i]);
    EXPECT_EQ(Sorted(Triangles(strips.Indices())), Sorted(left));
}

TEST(CellStrips, TakeWhatIsNoNumber) {
    constexpr float none = std::numeric_limits<float>::quiet_NaN();
    TestSurface surface = NoiseSurface(5, 4);
    for (unsigned int c = 0; c < 5; ++c)
        for (int k = 0; k < 3; ++k)
            surface.points[3 * c + static_cast<std::size_t>(k)] = none; // the first row
    CellStrips strips(View(surface), {});
    for (const float number : {1.0f, none, std::numeric_limits<float>::infinity(), 0.0f}) {
        const float nearness[] = {number, -number, number};
        strips.Arrange(nearness);
        EXPECT_EQ(Sorted(Triangles(strips.Indices())), Sorted(PlainTriangles(5, 4))) << number;
        for (const CellStrips::Strip& strip : strips.Strips())
            EXPECT_TRUE(std::isfinite(strip.place) && std::isfinite(strip.height)) << number;
    }
    CellStrips none1(GridView{surface.points.data(), 1, 4, 3, 3}, {});
    const float nearness[] = {1, 1, 1};
    none1.Arrange(nearness);
    EXPECT_TRUE(none1.Indices().empty());
    CellStrips().Arrange(nearness);
}

// One over the other, of the same and of another number of points.
TEST(StripMerge, DrawsWhatLiesBehindFirst) {
    Pairs all;
    for (unsigned int seed = 0; seed < 60; ++seed) {
        const TestSurface base = HillSurface(11, 9);
        TestSurface top = seed % 2 == 0 ? HillSurface(11, 9) : HillSurface(21, 17);
        for (std::size_t i = 2; i < top.points.size(); i += 3)
            top.points[i] = top.points[i] * 0.5f + 3.0f;
        const TestSurface* const surfaces[] = {seed % 3 == 0 ? &top : &base, seed % 3 == 0 ? &base : &top};
        CellStrips strips[] = {CellStrips(View(*surfaces[0]), {}), CellStrips(View(*surfaces[1]), {})};
        LineOfSight sight(seed);
        for (CellStrips& s : strips)
            s.Arrange(sight.Nearness());
        StripMerge merge;
        std::vector<Drawn> drawn;
        for (const StripRun& run : merge.Merge({&strips[0], &strips[1]})) {
            const std::vector<unsigned int>& indices = strips[run.grid].Indices();
            for (std::size_t i = run.begin; i < run.end; i += 3)
                drawn.push_back({surfaces[run.grid], {indices[i], indices[i + 1], indices[i + 2]}});
        }
        EXPECT_EQ(drawn.size(), (strips[0].Indices().size() + strips[1].Indices().size()) / 3);
        const Pairs pairs = FollowLines(sight, drawn, base);
        EXPECT_EQ(pairs.wrong, 0) << seed << ", of " << pairs.all;
        all.all += pairs.all;
    }
    EXPECT_GT(all.all, 2000);
}

TEST(StripMerge, OfOneSurfaceIsOneRun) {
    const TestSurface surface = NoiseSurface(20, 30);
    CellStrips strips(View(surface), {});
    const float nearness[] = {0.4f, 0.6f, 0.5f};
    strips.Arrange(nearness);
    StripMerge merge;
    const std::vector<StripRun>& runs = merge.Merge({&strips});
    ASSERT_EQ(runs.size(), 1U);
    EXPECT_EQ(runs[0].end, strips.Indices().size());
    EXPECT_TRUE(merge.Merge({}).empty());
}
