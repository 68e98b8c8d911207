// Where lines meet planes and triangles.
#include "computing/VectorMath.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

using namespace KivoDrawingTools;

namespace {

struct Vector {
    float x, y, z;
    const float* Data() const { return &x; }
};

class RandomVectors {
public:
    Vector operator()() { return {m_number(m_random), m_number(m_random), m_number(m_random)}; }

private:
    std::mt19937 m_random{7};
    std::uniform_real_distribution<float> m_number{-10.0f, 10.0f};
};

double Distance(const Vector& point, const Vector& p0, const float* normal) {
    return (double{point.x} - p0.x) * normal[0] + (double{point.y} - p0.y) * normal[1] +
           (double{point.z} - p0.z) * normal[2];
}

} // namespace

TEST(Planes, AreMetWhereTheLineLiesInThem) {
    RandomVectors random;
    for (int i = 0; i < 1000; ++i) {
        const Vector origin = random(), dir = random(), p0 = random(), p1 = random(), p2 = random();
        Vector hit = {};
        float normal[3];
        const float t = MeetPlane(origin.Data(), dir.Data(), p0.Data(), p1.Data(), p2.Data(), &hit.x);
        UnitNormal(p0.Data(), p1.Data(), p2.Data(), normal);
        const double reach = 1.0 + std::max({std::fabs(hit.x), std::fabs(hit.y), std::fabs(hit.z)});
        EXPECT_NEAR(Distance(hit, p0, normal), 0.0, 1e-3 * reach) << i;
        EXPECT_NEAR(hit.y, double{origin.y} + double{t} * dir.y, 1e-5 * reach) << i;
    }
}

// The picker rules out and hits by the same numbers, to the last bit.
TEST(Planes, AreMetWhereTheirTrianglesAre) {
    RandomVectors random;
    for (int i = 0; i < 1000; ++i) {
        const Vector origin = random(), dir = random(), p0 = random(), p1 = random(), p2 = random();
        Vector plane = {}, triangle = {};
        bool isInside = false;
        EXPECT_EQ(
            MeetPlane(origin.Data(), dir.Data(), p0.Data(), p1.Data(), p2.Data(), &plane.x),
            MeetTriangle(origin.Data(), dir.Data(), p0.Data(), p1.Data(), p2.Data(), &triangle.x, &isInside))
            << i;
        EXPECT_TRUE(std::equal(&plane.x, &plane.x + 3, &triangle.x)) << i;
    }
}
