// Which triangles are left out, beside what plain geometry says of each pixel's middle.
#include "computing/TriangleCulling.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <numeric>
#include <random>
#include <set>
#include <vector>

using namespace KivoDrawingTools;

namespace {

constexpr int width = 24, height = 17;
constexpr int subpixelBits = 4;
constexpr double step = 1.0 / 16.0; // of the positions that these bits tell apart

struct Place {
    double x, y;
};
using Triangle = std::array<Place, 3>;

const double identity[16] = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};

// From pixels of the viewport, whose origin is its lower left corner, into what OpenGL clips.
const double fromPixels[16] = {2.0 / width, 0, 0, 0, 0, 2.0 / height, 0, 0, 0, 0, 1, 0, -1, -1, 0, 1};

class Culling : public testing::Test {
protected:
    Culling() {
        const int viewport[] = {0, 0, width, height};
        EXPECT_TRUE(mapping.Find(identity, fromPixels, viewport, subpixelBits));
        culling.SetMapping(mapping);
    }

    void Add(const Triangle& triangle) {
        for (const Place& corner : triangle) {
            indices.push_back(static_cast<unsigned int>(points.size() / 3));
            for (const double value : {corner.x, corner.y, 0.25})
                points.push_back(static_cast<float>(value));
        }
    }

    TriangleCulling::Kept Cull() {
        return culling.Cull(points.data(), 3, points.size() / 3, indices.data(), indices.size());
    }

    // The numbers of the triangles that are kept.
    std::set<std::size_t> KeptTriangles() {
        const TriangleCulling::Kept kept = Cull();
        EXPECT_EQ(kept.count % 3, 0u);
        std::set<std::size_t> numbers;
        for (std::size_t i = 0; i + 2 < kept.count; i += 3) {
            EXPECT_EQ(kept.indices[i] % 3, 0u);
            EXPECT_EQ(kept.indices[i + 1], kept.indices[i] + 1);
            EXPECT_EQ(kept.indices[i + 2], kept.indices[i] + 2);
            numbers.insert(kept.indices[i] / 3);
        }
        EXPECT_EQ(numbers.size(), kept.count / 3);
        return numbers;
    }

    // As the points are held: in single precision.
    Triangle Held(std::size_t number) const {
        Triangle triangle;
        for (std::size_t i = 0; i < 3; ++i)
            triangle[i] = {points[9 * number + 3 * i], points[9 * number + 3 * i + 1]};
        return triangle;
    }

    PixelMapping mapping;
    TriangleCulling culling;
    std::vector<float> points;
    std::vector<unsigned int> indices;
};

double Cross(const Place& a, const Place& b, const Place& c) {
    return (b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x);
}

bool Holds(const Triangle& t, const Place& p) {
    if (Cross(t[0], t[1], t[2]) == 0.0) return false; // no extent
    const double side[] = {Cross(t[0], t[1], p), Cross(t[1], t[2], p), Cross(t[2], t[0], p)};
    const auto isLeft = [](double value) { return value >= 0.0; };
    const auto isRight = [](double value) { return value <= 0.0; };
    return std::all_of(side, side + 3, isLeft) || std::all_of(side, side + 3, isRight);
}

double DistanceToEdge(const Place& a, const Place& b, const Place& p) {
    const double dx = b.x - a.x, dy = b.y - a.y, length = dx * dx + dy * dy;
    const double along =
        length > 0.0 ? std::clamp(((p.x - a.x) * dx + (p.y - a.y) * dy) / length, 0.0, 1.0) : 0.0;
    return std::hypot(a.x + along * dx - p.x, a.y + along * dy - p.y);
}

double Distance(const Triangle& t, const Place& p) {
    if (Holds(t, p)) return 0.0;
    return std::min(
        {DistanceToEdge(t[0], t[1], p), DistanceToEdge(t[1], t[2], p), DistanceToEdge(t[2], t[0], p)});
}

template <typename Test>
bool IsAnyMiddle(Test test) {
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            if (test(Place{x + 0.5, y + 0.5})) return true;
    return false;
}

// Of any size, also beyond the viewport and without extent.
std::vector<Triangle> SomeTriangles(std::size_t count) {
    std::mt19937 random(20);
    std::uniform_real_distribution<double> unit(-1.0, 1.0), power(-7.0, 5.0);
    std::vector<Triangle> triangles(count);
    for (std::size_t i = 0; i < count; ++i) {
        const double size = std::exp2(power(random)), thin = i % 3 == 0 ? 0.05 : 1.0;
        const Place middle = {width * (0.5 + 0.7 * unit(random)), height * (0.5 + 0.7 * unit(random))};
        for (Place& corner : triangles[i])
            corner = {middle.x + size * unit(random), middle.y + size * thin * unit(random)};
        if (i % 17 == 0) triangles[i][2] = triangles[i][0];
        if (i % 19 == 0) // corners in middles of pixels
            for (Place& corner : triangles[i])
                corner = {std::floor(corner.x) + 0.5, std::floor(corner.y) + 0.5};
    }
    return triangles;
}

} // namespace

// Whatever way OpenGL moves the corners within the positions that it tells apart.
TEST_F(Culling, KeepsWhatCoversAMiddle) {
    for (const Triangle& triangle : SomeTriangles(3000))
        Add(triangle);
    const std::set<std::size_t> kept = KeptTriangles();
    std::mt19937 random(7);
    std::uniform_real_distribution<double> move(-step, step);
    std::size_t covering = 0;
    for (std::size_t i = 0; i < points.size() / 9; ++i) {
        bool covers = false;
        for (int tries = 0; tries < 8 && !covers; ++tries) {
            Triangle moved = Held(i);
            if (tries != 0)
                for (Place& corner : moved)
                    corner = {corner.x + move(random), corner.y + move(random)};
            covers = IsAnyMiddle([&](const Place& p) { return Holds(moved, p); });
        }
        covering += covers;
        EXPECT_TRUE(!covers || kept.count(i) != 0) << "triangle " << i;
    }
    EXPECT_GT(covering, 500u);
    EXPECT_LT(kept.size(), points.size() / 9);
}

// Nothing that is clearly between the middles; of the large ones those beyond the viewport.
TEST_F(Culling, LeavesOutWhatIsBetweenMiddles) {
    for (const Triangle& triangle : SomeTriangles(3000))
        Add(triangle);
    const std::set<std::size_t> kept = KeptTriangles();
    std::size_t clear = 0;
    for (std::size_t i = 0; i < points.size() / 9; ++i) {
        const Triangle triangle = Held(i);
        const auto [left, right] = std::minmax({triangle[0].x, triangle[1].x, triangle[2].x});
        const auto [bottom, top] = std::minmax({triangle[0].y, triangle[1].y, triangle[2].y});
        const bool isSmall = right - left < 0.9 && top - bottom < 0.9;
        const bool isBeyond = right < 0.0 || left > width || top < 0.0 || bottom > height;
        // The outside of each edge is looked at by itself, so that more is kept at sharp corners.
        if ((!isSmall && !isBeyond) ||
            IsAnyMiddle([&](const Place& p) { return Distance(triangle, p) < 0.3; }))
            continue;
        ++clear;
        EXPECT_EQ(kept.count(i), 0u) << "triangle " << i;
    }
    EXPECT_GT(clear, 800u);
}

// A corner that is no number says nothing, in viewports of few pixels and whichever way round it is, too.
TEST_F(Culling, KeepsWhatHasNoPlaceAmongFewPixels) {
    const int viewport[] = {0, 0, 3, 2};
    const double fromFewPixels[16] = {2.0 / 3, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, -1, -1, 0, 1};
    ASSERT_TRUE(mapping.Find(identity, fromFewPixels, viewport, subpixelBits));
    culling.SetMapping(mapping);
    Add({{{2.8, 0.2}, {0.2, 0.2}, {1.5, 1.9}}});
    Add({{{0.2, 0.2}, {2.8, 0.2}, {1.5, 1.9}}});
    for (const std::size_t corner : {2, 5})
        points[3 * corner + 2] = std::numeric_limits<float>::quiet_NaN();
    EXPECT_EQ(KeptTriangles().size(), 2u);
}

// Two of whose corners nearly meet, so that which way round they are is a matter of the last digit.
TEST_F(Culling, KeepsNeedlesThatCoverAMiddle) {
    const int viewport[] = {0, 0, 2, 3};
    const double fromFewPixels[16] = {1, 0, 0, 0, 0, 2.0 / 3, 0, 0, 0, 0, 1, 0, -1, -1, 0, 1};
    ASSERT_TRUE(mapping.Find(identity, fromFewPixels, viewport, subpixelBits));
    culling.SetMapping(mapping);
    std::mt19937 random(4);
    std::uniform_real_distribution<double> unit(-1.0, 1.0), power(-22.0, -16.0);
    constexpr std::size_t count = 20000;
    for (std::size_t i = 0; i < count; ++i) {
        const Place middle = {0.5 + static_cast<double>(i % 2), 0.5 + static_cast<double>(i % 3)};
        const Place way = {40.0 * unit(random), 40.0 * unit(random)};
        const double apart = std::exp2(power(random));
        const Place end = {middle.x + way.x, middle.y + way.y};
        Add({{{middle.x - way.x, middle.y - way.y},
              end,
              {end.x + apart * unit(random), end.y + apart * unit(random)}}});
    }
    EXPECT_EQ(KeptTriangles().size(), count);
}

// Found among millions by drawing them as OpenGL does.
TEST(CullingInAWindow, KeepsNeedlesThatCoverAMiddle) {
    struct Needle {
        int width, height;
        float corners[9];
    };
    const Needle needles[] = {
        {1920, 1080, {1848.06287f, -2.14077425f, 0, 1842.59375f, 1.03124988f, 0, 1842.59375f, 1.03125f, 0}},
        {1000, 800, {475.722778f, 0.739567041f, 0, 475.34375f, 0.34374997f, 0, 475.34375f, 0.34375f, 0}},
        {2, 3, {28.7350082f, 15.3674049f, 0, -16.03125f, -6.65625f, 0, -16.0312519f, -6.65625f, 0}}};
    for (const Needle& needle : needles) {
        const int viewport[] = {0, 0, needle.width, needle.height};
        double fromWindow[16] = {};
        std::copy(fromPixels, fromPixels + 16, fromWindow);
        fromWindow[0] = 2.0 / needle.width;
        fromWindow[5] = 2.0 / needle.height;
        PixelMapping mapping;
        ASSERT_TRUE(mapping.Find(identity, fromWindow, viewport, subpixelBits));
        TriangleCulling culling;
        culling.SetMapping(mapping);
        const unsigned int indices[] = {0, 1, 2};
        EXPECT_EQ(culling.Cull(needle.corners, 3, 3, indices, 3).count, 3u) << needle.width;
    }
}

// To the last pixel of the longest sides that can be counted.
TEST(CullingInAWindow, KeepsWhatIsAtTheFarEdge) {
    const int viewport[] = {0, 0, 32000, 32000};
    const double fromWindow[16] = {2.0 / 32000, 0, 0, 0, 0, 2.0 / 32000, 0, 0, 0, 0, 1, 0, -1, -1, 0, 1};
    PixelMapping mapping;
    ASSERT_TRUE(mapping.Find(identity, fromWindow, viewport, 8));
    TriangleCulling culling;
    culling.SetMapping(mapping);
    const float points[] = {31999.2f, 31999.3f, 0, 31999.8f, 31999.3f, 0, 31999.5f, 31999.9f, 0,
                            10.0f,    5.0f,     0, 32775.0f, 32780.0f, 0, 20.0f,    32700.0f, 0};
    const unsigned int indices[] = {0, 1, 2, 3, 4, 5};
    EXPECT_EQ(culling.Cull(points, 3, 6, indices, 6).count, 6u);
}

TEST_F(Culling, KeepsTheOrder) {
    for (const Triangle& triangle : SomeTriangles(500))
        Add(triangle);
    const TriangleCulling::Kept kept = Cull();
    EXPECT_NE(kept.indices, indices.data());
    EXPECT_GT(kept.count, 100u);
    EXPECT_LT(kept.count, indices.size());
    EXPECT_TRUE(std::is_sorted(kept.indices, kept.indices + kept.count));
}

// A corner that is no number, or so far off that nobody knows, says nothing about where OpenGL draws.
TEST_F(Culling, KeepsWhatHasNoPlace) {
    constexpr float none = std::numeric_limits<float>::quiet_NaN(),
                    infinite = std::numeric_limits<float>::infinity();
    const Triangle between = {{{3.55, 3.6}, {3.9, 3.6}, {3.7, 3.9}}};
    for (const float value : {none, infinite, -infinite})
        for (int coordinate = 0; coordinate < 3; ++coordinate) {
            Add(between);
            points[points.size() - 3 + coordinate] = value;
        }
    Add(between);
    const std::set<std::size_t> kept = KeptTriangles();
    for (std::size_t i = 0; i < 9; ++i)
        EXPECT_EQ(kept.count(i), 1u) << i;
    EXPECT_EQ(kept.count(9), 0u);
}

TEST_F(Culling, HandsBackWhatItCannotJudge) {
    for (const Triangle& triangle : SomeTriangles(500))
        Add(triangle);
    const std::size_t count = points.size() / 3;
    const auto cull = [&](std::size_t known) {
        return culling.Cull(points.data(), 3, known, indices.data(), indices.size());
    };
    EXPECT_EQ(cull(count - 1).indices, indices.data()) << "an index beyond the points";
    EXPECT_EQ(cull(count - 1).count, indices.size());
    EXPECT_EQ(cull(0).indices, indices.data());
    EXPECT_EQ(culling.Cull(points.data(), 3, count, indices.data(), 0).count, 0u);

    // Coordinates that have no digits for parts of a pixel.
    std::vector<float> far = points;
    far[30] = 4e6f;
    EXPECT_EQ(culling.Cull(far.data(), 3, count, indices.data(), indices.size()).indices, indices.data());
    far[30] = 4e3f;
    EXPECT_NE(culling.Cull(far.data(), 3, count, indices.data(), indices.size()).indices, indices.data());

    // Corners that lie farther apart than there is room for.
    std::vector<float> many((TriangleCulling::mostIndices + 1) * 3, 0.2f);
    std::vector<unsigned int> wide = {0, 1, TriangleCulling::mostIndices};
    EXPECT_EQ(culling.Cull(many.data(), 3, many.size() / 3, wide.data(), 3).indices, wide.data());
    wide[2] = TriangleCulling::mostIndices - 1;
    EXPECT_EQ(culling.Cull(many.data(), 3, many.size() / 3, wide.data(), 3).count, 0u);
    std::vector<unsigned int> tooMany(TriangleCulling::mostIndices + 3, 0);
    EXPECT_EQ(culling.Cull(many.data(), 3, 1, tooMany.data(), tooMany.size()).indices, tooMany.data());
}

TEST_F(Culling, ReadsPointsOfMoreFloats) {
    for (const Triangle& triangle : SomeTriangles(300))
        Add(triangle);
    const std::set<std::size_t> expected = KeptTriangles();
    std::vector<float> longer;
    for (std::size_t i = 0; i < points.size(); i += 3)
        longer.insert(longer.end(), {points[i], points[i + 1], points[i + 2], 1e30f, -7.0f});
    const TriangleCulling::Kept kept =
        culling.Cull(longer.data(), 5, longer.size() / 5, indices.data(), indices.size());
    EXPECT_EQ(kept.count, expected.size() * 3);
}

// ---- Where points come to lie

TEST(PixelMapping, FollowsTheMatrices) {
    const double modelView[16] = {0.6, 0.8, 0, 0, -0.8, 0.6, 0.1, 0, 0.2, 0.3, 0.5, 0, 4, -7, 2, 1};
    const double projection[16] = {0.05, 0, 0, 0, 0, 0.07, 0, 0, 0, 0, -0.01, 0, 0.2, -0.1, 0, 1};
    const int viewport[] = {30, 20, 300, 200};
    PixelMapping mapping;
    ASSERT_TRUE(mapping.Find(modelView, projection, viewport, 8));
    EXPECT_EQ(mapping.size[0], 300);
    EXPECT_EQ(mapping.size[1], 200);
    EXPECT_DOUBLE_EQ(mapping.snap, 1.0 / 256.0);
    const double point[] = {1.5, -2.25, 3.0, 1.0};
    double eye[4] = {}, clip[4] = {};
    for (int r = 0; r < 4; ++r)
        for (int c = 0; c < 4; ++c)
            eye[r] += modelView[4 * c + r] * point[c];
    for (int r = 0; r < 4; ++r)
        for (int c = 0; c < 4; ++c)
            clip[r] += projection[4 * c + r] * eye[c];
    for (const int side : {0, 1}) {
        const double expected = (clip[side] + 1.0) / 2.0 * viewport[2 + side] - 0.5;
        const double found = std::inner_product(point, point + 4, mapping.along[side], 0.0);
        EXPECT_NEAR(found, expected, 1e-9);
        double parts = 0.0;
        for (int i = 0; i < 4; ++i)
            parts += mapping.reach[side][i] * std::abs(point[i]);
        EXPECT_GE(parts, std::abs(found));
    }
}

// With few bits nothing is left out, with none, too; what no driver says is not taken for more.
TEST_F(Culling, GoesByThePositionsThatOpenGlTellsApart) {
    Add({{{3.7, 3.7}, {3.9, 3.7}, {3.8, 3.9}}});
    const int viewport[] = {0, 0, width, height};
    for (const int bits : {std::numeric_limits<int>::min(), -3, 0}) {
        ASSERT_TRUE(mapping.Find(identity, fromPixels, viewport, bits));
        culling.SetMapping(mapping);
        EXPECT_EQ(Cull().indices, indices.data()) << bits;
    }
    for (const int bits : {4, 8, 31, std::numeric_limits<int>::max()}) {
        ASSERT_TRUE(mapping.Find(identity, fromPixels, viewport, bits));
        culling.SetMapping(mapping);
        EXPECT_EQ(Cull().count, 0u) << bits;
    }
}

// Beside the places that single precision gives, one operation after the other.
TEST(PixelMapping, AllowsForSinglePrecision) {
    std::mt19937 random(11);
    std::uniform_real_distribution<float> unit(-1.0f, 1.0f);
    const auto fill = [&](float* matrix, float shift) {
        for (int i = 0; i < 16; ++i)
            matrix[i] = i % 4 == 3 ? (i == 15 ? 1.0f : 0.0f) : i >= 12 ? shift * unit(random) : unit(random);
    };
    const auto multiply = [](const float* a, const float* b, float* product, int columns) {
        for (int c = 0; c < columns; ++c)
            for (int r = 0; r < 4; ++r) {
                product[4 * c + r] = 0.0f;
                for (int i = 0; i < 4; ++i)
                    product[4 * c + r] += a[4 * i + r] * b[4 * c + i];
            }
    };
    double greatest = 0.0; // share of what is allowed for
    for (int turn = 0; turn < 20000; ++turn) {
        float modelView[16], projection[16], all[16], eye[4], clip[4];
        fill(modelView, 1e3f);
        fill(projection, 1e2f);
        const float point[] = {100.0f * unit(random), 0.01f * unit(random), unit(random), 1.0f};
        const int viewport[] = {-20000, turn % 500, 1 + turn % 2000, 1 + turn % 700};
        if (turn % 2 == 0) {
            multiply(projection, modelView, all, 4);
            multiply(all, point, clip, 1);
        } else {
            multiply(modelView, point, eye, 1);
            multiply(projection, eye, clip, 1);
        }
        const std::vector<double> m(modelView, modelView + 16), p(projection, projection + 16);
        PixelMapping mapping;
        ASSERT_TRUE(mapping.Find(m.data(), p.data(), viewport, 8));
        const float most[] = {std::abs(point[0]), std::abs(point[1]), std::abs(point[2])};
        for (const int side : {0, 1}) {
            const float half = 0.5f * static_cast<float>(viewport[2 + side]);
            const float origin = static_cast<float>(viewport[side]);
            const float drawn = clip[side] * half + (origin + half);
            const double place = std::inner_product(point, point + 4, mapping.along[side], 0.0);
            const double off = std::abs(static_cast<double>(drawn) - origin - 0.5 - place);
            greatest = std::max(greatest, off / (mapping.Uncertainty(side, most) - mapping.snap));
        }
    }
    EXPECT_LT(greatest, 0.5);
    EXPECT_GT(greatest, 0.01);
}

TEST(PixelMapping, RefusesPerspectiveAndViewportsOfNoUse) {
    const int viewport[] = {0, 0, 30, 20};
    PixelMapping mapping;
    EXPECT_TRUE(mapping.Find(identity, identity, viewport, 4));
    for (int i = 0; i < 4; ++i) {
        double perspective[16];
        std::copy(identity, identity + 16, perspective);
        perspective[4 * i + 3] = i == 3 ? 2.0 : -1.0;
        EXPECT_FALSE(mapping.Find(identity, perspective, viewport, 4)) << i;
    }
    // Which single precision need not bring to 1.
    double cancelling[16], other[16];
    std::copy(identity, identity + 16, cancelling);
    std::copy(identity, identity + 16, other);
    cancelling[3] = cancelling[7] = 1.0;
    other[0] = 0.1;
    other[1] = -0.1;
    other[5] = other[4] = 0.0;
    EXPECT_FALSE(mapping.Find(other, cancelling, viewport, 4));
    for (const int side : {2, 3})
        for (const int size : {0, -5, 32001, std::numeric_limits<int>::max()}) {
            int empty[] = {0, 0, 30, 20};
            empty[side] = size;
            EXPECT_FALSE(mapping.Find(identity, identity, empty, 4));
        }
}
