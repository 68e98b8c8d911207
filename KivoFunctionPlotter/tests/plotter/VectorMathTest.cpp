// Vector and matrix routines against plain double arithmetic.
#include "support/PlotterProbe.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <vector>

using namespace KivoDrawingTools;

namespace {

using Vector = std::vector<double>;

std::mt19937 generator(7);

std::vector<float> RandomPoint(float range = 10.0f) {
    std::uniform_real_distribution<float> distribution(-range, range);
    return {distribution(generator), distribution(generator), distribution(generator)};
}

std::vector<double> RandomDoubles(std::size_t count) {
    std::uniform_real_distribution<double> distribution(-3.0, 3.0);
    std::vector<double> values(count);
    for (double& value : values)
        value = distribution(generator);
    return values;
}

Vector Difference(const std::vector<float>& a, const std::vector<float>& b) {
    return {double{a[0]} - b[0], double{a[1]} - b[1], double{a[2]} - b[2]};
}

Vector Cross(const Vector& a, const Vector& b) {
    return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}

double Dot(const Vector& a, const Vector& b) {
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

double Length(const Vector& a) {
    return std::sqrt(Dot(a, a));
}

const Vector identity = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};

} // namespace

TEST(VectorMath, MatrixMultiplyFollowsTheIndexFormula) {
    const Vector a = RandomDoubles(16), b = RandomDoubles(16);
    Vector out(16);
    PlotterProbe::MatrixMultiply(out.data(), a.data(), b.data());
    for (std::size_t i = 0; i < 4; ++i)
        for (std::size_t j = 0; j < 4; ++j) {
            const double expected = a[4 * i] * b[j] + a[4 * i + 1] * b[4 + j] + a[4 * i + 2] * b[8 + j] +
                                    a[4 * i + 3] * b[12 + j];
            EXPECT_NEAR(out[4 * i + j], expected, 1e-12) << i << ' ' << j;
        }
}

TEST(VectorMath, MatrixMultiplyWithTheIdentityKeepsTheOtherOperand) {
    const Vector a = RandomDoubles(16);
    Vector out(16);
    PlotterProbe::MatrixMultiply(out.data(), a.data(), identity.data());
    EXPECT_EQ(out, a);
    PlotterProbe::MatrixMultiply(out.data(), identity.data(), a.data());
    EXPECT_EQ(out, a);
}

TEST(VectorMath, MatrixMultiplyAppliesTheFirstOperandFirst) {
    // A quarter turn about Z, then one about X, in OpenGL's column-major order: x goes to y, y to z.
    const Vector aboutZ = {0, 1, 0, 0, -1, 0, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};
    const Vector aboutX = {1, 0, 0, 0, 0, 0, 1, 0, 0, -1, 0, 0, 0, 0, 0, 1};
    Vector product(16), image(4);
    PlotterProbe::MatrixMultiply(product.data(), aboutZ.data(), aboutX.data());
    const Vector xAxis = {1, 0, 0, 1};
    PlotterProbe::VectorMatrixMultiply(image.data(), xAxis.data(), product.data());
    EXPECT_EQ(image, (Vector{0, 0, 1, 1}));
}

TEST(VectorMath, MatrixCopyCopiesSixteenElements) {
    const Vector source = RandomDoubles(16);
    Vector target(17, -1.0);
    PlotterProbe::MatrixCopy(target.data(), source.data());
    EXPECT_EQ(Vector(target.begin(), target.begin() + 16), source);
    EXPECT_EQ(target[16], -1.0);
}

TEST(VectorMath, VectorMatrixMultiplyTransformsWithTranslation) {
    const Vector v = RandomDoubles(4), m = RandomDoubles(16);
    Vector out(4);
    PlotterProbe::VectorMatrixMultiply(out.data(), v.data(), m.data());
    for (std::size_t j = 0; j < 4; ++j)
        EXPECT_NEAR(out[j], v[0] * m[j] + v[1] * m[4 + j] + v[2] * m[8 + j] + v[3] * m[12 + j], 1e-12);
}

TEST(VectorMath, VectorMatrixMultiply3IgnoresTranslationAndLastRow) {
    const Vector v = RandomDoubles(3);
    Vector m = RandomDoubles(16), before(3), after(3);
    PlotterProbe::VectorMatrixMultiply3(before.data(), v.data(), m.data());
    for (std::size_t j = 0; j < 3; ++j)
        EXPECT_NEAR(before[j], v[0] * m[j] + v[1] * m[4 + j] + v[2] * m[8 + j], 1e-12);
    for (const std::size_t i : {3, 7, 11, 12, 13, 14, 15})
        m[i] = 1e9;
    PlotterProbe::VectorMatrixMultiply3(after.data(), v.data(), m.data());
    EXPECT_EQ(after, before);
}

TEST(VectorMath, ElementwiseOperations) {
    const float a[] = {1.5f, -2.0f, 3.25f}, b[] = {0.5f, 4.0f, -1.0f};
    float out[3] = {};
    PlotterProbe::ScalarVectorMultiply3(out, -2.0f, a);
    EXPECT_EQ((std::vector<float>(out, out + 3)), (std::vector<float>{-3.0f, 4.0f, -6.5f}));
    PlotterProbe::VectorAssign3(out, b);
    EXPECT_EQ((std::vector<float>(out, out + 3)), (std::vector<float>{0.5f, 4.0f, -1.0f}));
    PlotterProbe::VectorOffset3(out, a, b);
    EXPECT_EQ((std::vector<float>(out, out + 3)), (std::vector<float>{2.0f, 2.0f, 2.25f}));
    PlotterProbe::VectorOffset3(out, a);
    EXPECT_EQ((std::vector<float>(out, out + 3)), (std::vector<float>{3.5f, 0.0f, 5.5f}));
}

TEST(VectorMath, DistanceAndUnitDirection) {
    for (int i = 0; i < 100; ++i) {
        const std::vector<float> a = RandomPoint(), b = RandomPoint();
        const double length = Length(Difference(b, a));
        EXPECT_NEAR(PlotterProbe::Distance(a.data(), b.data()), length, 1e-5 * length);
        const Vector da(a.begin(), a.end()), db(b.begin(), b.end());
        EXPECT_NEAR(PlotterProbe::Distance(da.data(), db.data()), length, 1e-12 * length);
        float direction[3];
        PlotterProbe::NormalVector(a.data(), b.data(), direction);
        for (std::size_t k = 0; k < 3; ++k)
            EXPECT_NEAR(direction[k], (double{b[k]} - a[k]) / length, 1e-5);
    }
}

TEST(VectorMath, InterpolateMeetsBothEnds) {
    EXPECT_EQ(PlotterProbe::Interpolate(2.0f, 2.0f, 5.0f, -1.0f, 7.0f), -1.0f);
    EXPECT_EQ(PlotterProbe::Interpolate(5.0f, 2.0f, 5.0f, -1.0f, 7.0f), 7.0f);
    EXPECT_EQ(PlotterProbe::Interpolate(2.0, 2.0, 5.0, -1.0, 7.0), -1.0);
    EXPECT_EQ(PlotterProbe::Interpolate(5.0, 2.0, 5.0, -1.0, 7.0), 7.0);
    EXPECT_NEAR(PlotterProbe::Interpolate(3.0f, 2.0f, 6.0f, 10.0f, 20.0f), 12.5f, 1e-6);
    EXPECT_DOUBLE_EQ(PlotterProbe::Interpolate(8.0, 2.0, 6.0, 10.0, 20.0), 25.0);
    EXPECT_FALSE(std::isfinite(PlotterProbe::Interpolate(3.0, 2.0, 2.0, 0.0, 1.0)));
}

TEST(VectorMath, CalNormalIsTheRightHandedUnitNormal) {
    const float o[] = {0, 0, 0}, x[] = {2, 0, 0}, y[] = {0, 3, 0};
    float normal[3];
    PlotterProbe::CalNormal(o, x, y, normal);
    EXPECT_EQ((std::vector<float>(normal, normal + 3)), (std::vector<float>{0, 0, 1}));
    PlotterProbe::CalNormal(o, y, x, normal);
    EXPECT_EQ((std::vector<float>(normal, normal + 3)), (std::vector<float>{0, 0, -1}));
    for (int i = 0; i < 100; ++i) {
        const std::vector<float> p0 = RandomPoint(), p1 = RandomPoint(), p2 = RandomPoint();
        const Vector cross = Cross(Difference(p1, p0), Difference(p2, p0));
        PlotterProbe::CalNormal(p0.data(), p1.data(), p2.data(), normal);
        for (std::size_t k = 0; k < 3; ++k)
            EXPECT_NEAR(normal[k], cross[k] / Length(cross), 1e-4);
    }
    PlotterProbe::CalNormal(o, x, x, normal);
    EXPECT_FALSE(std::isfinite(normal[2]));
}

TEST(VectorMath, DotProductIsTakenInDoublePrecision) {
    const float a[] = {16777217.0f, 1.0f / 3.0f, 1e-8f}, b[] = {3.0f, 7.1f, 1.0f};
    EXPECT_EQ(PlotterProbe::DotProduct(a, b),
              double{a[0]} * b[0] + double{a[1]} * b[1] + double{a[2]} * b[2]);
}

namespace {

const float triangle[3][3] = {{0, 0, 2}, {4, 0, 2}, {0, 4, 2}};

struct Hit {
    float t;
    float point[3];
    bool inside;
};

// Down a line along -Z with a direction of length 2; in both windings.
Hit Shoot(float x, float y, bool reversed) {
    const float origin[] = {x, y, 10.0f}, direction[] = {0, 0, -2};
    const float* p1 = triangle[reversed ? 2 : 1];
    const float* p2 = triangle[reversed ? 1 : 2];
    Hit hit = {};
    hit.inside = true;
    hit.t = PlotterProbe::IntersectPlane(origin, direction, triangle[0], p1, p2, hit.point, &hit.inside);
    float other[3] = {};
    EXPECT_EQ(PlotterProbe::IntersectPlane(origin, direction, triangle[0], p1, p2, other), hit.t);
    EXPECT_EQ(other[2], hit.point[2]);
    return hit;
}

} // namespace

TEST(VectorMath, IntersectPlaneGivesTheMultipleOfTheDirection) {
    const Hit hit = Shoot(1, 1, false);
    EXPECT_FLOAT_EQ(hit.t, 4.0f);
    EXPECT_FLOAT_EQ(hit.point[0], 1.0f);
    EXPECT_FLOAT_EQ(hit.point[1], 1.0f);
    EXPECT_FLOAT_EQ(hit.point[2], 2.0f);
    const float below[] = {1, 1, 0}, down[] = {0, 0, -1};
    float point[3];
    EXPECT_FLOAT_EQ(PlotterProbe::IntersectPlane(below, down, triangle[0], triangle[1], triangle[2], point),
                    -2.0f);
}

TEST(VectorMath, IntersectPlaneTellsInsideFromOutsideInBothWindings) {
    for (const bool reversed : {false, true}) {
        EXPECT_TRUE(Shoot(1, 1, reversed).inside);
        EXPECT_TRUE(Shoot(2, 0, reversed).inside) << "on an edge";
        EXPECT_TRUE(Shoot(0, 1, reversed).inside) << "on an edge";
        EXPECT_TRUE(Shoot(2, 2, reversed).inside) << "on an edge";
        EXPECT_TRUE(Shoot(0, 0, reversed).inside) << "on a corner";
        EXPECT_TRUE(Shoot(4, 0, reversed).inside) << "on a corner";
        EXPECT_TRUE(Shoot(0, 4, reversed).inside) << "on a corner";
        EXPECT_FALSE(Shoot(1, -1, reversed).inside);
        EXPECT_FALSE(Shoot(-1, 1, reversed).inside);
        EXPECT_FALSE(Shoot(3, 3, reversed).inside);
        EXPECT_FALSE(Shoot(-1, -1, reversed).inside);
    }
}

TEST(VectorMath, IntersectPlaneAgreesWithBarycentricCoordinates) {
    int compared = 0;
    for (int i = 0; i < 2000; ++i) {
        const std::vector<float> p0 = RandomPoint(), p1 = RandomPoint(), p2 = RandomPoint();
        const std::vector<float> origin = RandomPoint(), direction = RandomPoint(1.0f);
        const Vector normal = Cross(Difference(p1, p0), Difference(p2, p0));
        const Vector d(direction.begin(), direction.end());
        const double slope = Dot(normal, d);
        if (std::fabs(slope) < 0.05 * Length(normal) * Length(d)) continue; // nearly along the plane
        const double t = Dot(normal, Difference(p0, origin)) / slope;
        Vector hit(3);
        for (std::size_t k = 0; k < 3; ++k)
            hit[k] = origin[k] + t * d[k] - p0[k];
        const Vector u = Difference(p1, p0), w = Difference(p2, p0);
        const double area = Dot(normal, normal);
        const double b1 = Dot(Cross(hit, w), normal) / area, b2 = Dot(Cross(u, hit), normal) / area;
        const double margin = std::min({b1, b2, 1.0 - b1 - b2});
        if (std::fabs(margin) < 1e-2 || Length(normal) < 5.0) continue; // too near to an edge to tell

        float point[3];
        bool inside = false;
        EXPECT_NEAR(PlotterProbe::IntersectPlane(origin.data(), direction.data(), p0.data(), p1.data(),
                                                 p2.data(), point, &inside),
                    t, 1e-3 * std::max(1.0, std::fabs(t)));
        EXPECT_EQ(inside, margin > 0.0);
        ++compared;
    }
    EXPECT_GT(compared, 1000);
}

TEST(VectorMath, IntersectPlaneAlongThePlaneIsNotFinite) {
    const float origin[] = {0, 0, 5}, along[] = {1, 0, 0};
    float point[3] = {};
    const float t = PlotterProbe::IntersectPlane(origin, along, triangle[0], triangle[1], triangle[2], point);
    EXPECT_FALSE(std::isfinite(t));
    EXPECT_FALSE(std::isfinite(point[0]));
}

// A test whose value is no number does not reject, so a triangle without area contains every hit.
TEST(VectorMath, DegenerateTriangleDoesNotReject) {
    const float origin[] = {0, 0, 5}, down[] = {0, 0, -1};
    float point[3];
    bool inside = false;
    PlotterProbe::IntersectPlane(origin, down, triangle[0], triangle[1], triangle[1], point, &inside);
    EXPECT_TRUE(inside);
}
