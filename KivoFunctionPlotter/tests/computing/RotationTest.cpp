// Rotations: the nearest one to nine numbers, and those of upright views.
#include "computing/Rotation.h"
#include "support/Matrices.h"

#include <gmock/gmock.h>

#include <cmath>
#include <limits>
#include <random>
#include <vector>

using namespace KivoDrawingTools;

namespace {

using Numbers = std::array<double, 9>;

Numbers BlockOf(const Matrix& matrix) {
    return {matrix[0], matrix[1], matrix[2], matrix[4], matrix[5],
            matrix[6], matrix[8], matrix[9], matrix[10]};
}

double Difference(const Numbers& a, const Numbers& b) {
    double squares = 0.0;
    for (std::size_t i = 0; i < 9; ++i)
        squares += (a[i] - b[i]) * (a[i] - b[i]);
    return std::sqrt(squares);
}

Numbers Nearest(const Numbers& numbers) {
    Numbers rotation = {};
    EXPECT_TRUE(NearestRotation(numbers.data(), rotation.data()));
    return rotation;
}

Numbers Upright(double azimuth, double elevation) {
    Numbers rotation = {};
    UprightRotation(azimuth, elevation, rotation.data());
    return rotation;
}

class AnyRotation {
public:
    Matrix Next() {
        std::normal_distribution<double> normal;
        const double x = normal(m_random), y = normal(m_random), z = normal(m_random);
        const double length = std::sqrt(x * x + y * y + z * z);
        return Rotation(Within(-180.0, 180.0), x / length, y / length, z / length);
    }

    double Within(double low, double high) {
        return std::uniform_real_distribution<double>(low, high)(m_random);
    }

private:
    std::mt19937 m_random{7};
};

} // namespace

TEST(Rotation, IsExactAndStaysSo) {
    AnyRotation any;
    for (int i = 0; i < 200; ++i) {
        Numbers rough = BlockOf(any.Next());
        for (double& number : rough)
            number = std::round(number * 1000.0) / 1000.0;
        const Numbers rotation = Nearest(rough);
        EXPECT_LT(Difference(rotation, rough), 0.002);
        EXPECT_NEAR(Determinant(rotation.data()), 1.0, 1e-13);
        for (std::size_t a = 0; a < 3; ++a)
            for (std::size_t b = 0; b < 3; ++b) {
                double product = 0.0;
                for (std::size_t k = 0; k < 3; ++k)
                    product += rotation[3 * a + k] * rotation[3 * b + k];
                EXPECT_NEAR(product, a == b ? 1.0 : 0.0, 1e-14);
            }
        EXPECT_EQ(Nearest(rotation), rotation);
    }
}

// What is left out of a rotation, as a stretch along its own axes, tells where it was.
TEST(Rotation, OfAStretchedOneIsTheOneThatWasStretched) {
    AnyRotation any;
    for (int i = 0; i < 100; ++i) {
        const Matrix rotation = any.Next(), axes = any.Next();
        const Matrix stretched = axes *
                                 Scaling(any.Within(0.2, 5.0), any.Within(0.2, 5.0), any.Within(0.2, 5.0)) *
                                 Inverse(axes) * rotation;
        EXPECT_LT(Difference(Nearest(BlockOf(stretched)), BlockOf(rotation)), 1e-12);
    }
}

TEST(Rotation, IsNearerThanOthers) {
    AnyRotation any;
    for (int i = 0; i < 100; ++i) {
        Matrix rough = any.Next();
        for (double& number : rough)
            number += any.Within(-0.1, 0.1);
        const Numbers nearest = Nearest(BlockOf(rough));
        const Matrix embedded = {nearest[0], nearest[1], nearest[2], 0,          nearest[3], nearest[4],
                                 nearest[5], 0,          nearest[6], nearest[7], nearest[8], 0,
                                 0,          0,          0,          1};
        for (const double angle : {-2.0, -0.1, 0.1, 2.0})
            for (const Matrix& turn :
                 {Rotation(angle, 1, 0, 0), Rotation(angle, 0, 1, 0), Rotation(angle, 0, 0, 1)})
                EXPECT_GT(Difference(BlockOf(turn * embedded), BlockOf(rough)),
                          Difference(nearest, BlockOf(rough)));
    }
}

TEST(Rotation, IsNotFoundForWhatIsNone) {
    constexpr double infinity = std::numeric_limits<double>::infinity();
    constexpr double large = std::numeric_limits<double>::max();
    const std::vector<Numbers> none = {
        {0, 0, 0, 0, 0, 0, 0, 0, 0},        {1, 0, 0, 0, 1, 0, 0, 0, -1},
        {1, 0, 0, 0, 1, 0, 1, 1, 0},        {1, 0, 0, 0, std::nan(""), 0, 0, 0, 1},
        {1, 0, 0, 0, 1, infinity, 0, 0, 1}, {large, large, 0, -large, large, 0, 0, 0, large},
    };
    for (const Numbers& numbers : none) {
        Numbers rotation = {5, 5, 5, 5, 5, 5, 5, 5, 5};
        EXPECT_FALSE(NearestRotation(numbers.data(), rotation.data())) << testing::PrintToString(numbers);
        EXPECT_THAT(rotation, testing::Each(5.0));
    }
    EXPECT_LT(Difference(Nearest({1e-10, 0, 0, 0, 1e-10, 0, 0, 0, 1e-10}), {1, 0, 0, 0, 1, 0, 0, 0, 1}),
              1e-14);
}

// The viewer turns round Z, then climbs.
TEST(Rotation, OfAnUprightViewIsOneRoundZAndATilt) {
    const Matrix front = {0, 0, 1, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 0, 1}; // X to the viewer, Y right, Z up
    for (const double azimuth : {-200.0, -90.0, -12.5, 0.0, 30.0, 45.0, 90.0, 135.0, 180.0, 270.0, 359.0})
        for (const double elevation : {-90.0, -60.0, -1.0, 0.0, 25.0, 89.5, 90.0}) {
            const Matrix expected = Rotation(elevation, 1, 0, 0) * front * Rotation(-azimuth, 0, 0, 1);
            EXPECT_LT(Difference(Upright(azimuth, elevation), BlockOf(expected)), 1e-13)
                << azimuth << ", " << elevation;
        }
}

TEST(Rotation, OfRightAnglesHasWholeNumbers) {
    for (int azimuth = -720; azimuth <= 720; azimuth += 90)
        for (int elevation = -90; elevation <= 90; elevation += 90)
            for (const double number : Upright(azimuth, elevation))
                EXPECT_TRUE(number == 0.0 || number == 1.0 || number == -1.0)
                    << azimuth << ", " << elevation << ": " << number;
    EXPECT_EQ(Upright(360.0 * 1000000000.0 + 30.0, 0.0), Upright(30.0, 0.0));
}

TEST(Rotation, TellsItsAngles) {
    for (double azimuth = -179.5; azimuth <= 180.0; azimuth += 7.25)
        for (const double elevation : {-90.0, -89.999, -45.0, 0.0, 1e-7, 25.26, 89.9999999, 90.0}) {
            double foundAzimuth = 0.0, foundElevation = 0.0;
            const Numbers rotation = Upright(azimuth, elevation);
            EXPECT_TRUE(FindUprightAngles(rotation.data(), foundAzimuth, foundElevation));
            EXPECT_NEAR(foundAzimuth, azimuth, 1e-11);
            EXPECT_NEAR(foundElevation, elevation, 1e-11);
        }
    double azimuth = 0.0, elevation = 0.0;
    for (const double half : {180.0, -180.0, 540.0}) {
        EXPECT_TRUE(FindUprightAngles(Upright(half, 10.0).data(), azimuth, elevation));
        EXPECT_EQ(azimuth, 180.0) << half;
    }
}

TEST(Rotation, TellsFromWhereALeaningOneIsSeen) {
    const Numbers upright = Upright(70.0, 20.0);
    const Matrix embedded = {upright[0], upright[1], upright[2], 0, upright[3], upright[4], upright[5], 0,
                             upright[6], upright[7], upright[8], 0, 0,          0,          0,          1};
    double azimuth = 0.0, elevation = 0.0;
    for (const double lean : {-179.0, -90.0, -0.02, 0.02, 45.0, 180.0}) {
        EXPECT_FALSE(
            FindUprightAngles(BlockOf(Rotation(lean, 0, 0, 1) * embedded).data(), azimuth, elevation))
            << lean;
        EXPECT_NEAR(azimuth, 70.0, 1e-11);
        EXPECT_NEAR(elevation, 20.0, 1e-11);
    }
    for (const double lean : {-0.009, 0.009})
        EXPECT_TRUE(FindUprightAngles(BlockOf(Rotation(lean, 0, 0, 1) * embedded).data(), azimuth, elevation))
            << lean;
    // Straight from above, whatever is up on the screen is upright.
    EXPECT_TRUE(FindUprightAngles(BlockOf(Rotation(33.0, 0, 0, 1)).data(), azimuth, elevation));
    EXPECT_NEAR(azimuth, -90.0 - 33.0, 1e-11);
    EXPECT_EQ(elevation, 90.0);
}

// ---- Turns on the screen

TEST(TurnOnScreen, IsARotationAboutTheScreensAxes) {
    AnyRotation any;
    for (int i = 0; i < 200; ++i) {
        const Numbers before = BlockOf(any.Next());
        const double right = any.Within(-400.0, 400.0), down = any.Within(-400.0, 400.0);
        const Numbers aside = BlockOf(Rotation(right, 0.0, 1.0, 0.0));
        const Numbers over = BlockOf(Rotation(down, 1.0, 0.0, 0.0));
        Numbers turned = before;
        TurnOnScreen(turned.data(), right, down);
        for (int axis = 0; axis < 3; ++axis) {
            double expected[3] = {before[3 * axis], before[3 * axis + 1], before[3 * axis + 2]};
            for (const Numbers& turn : {aside, over}) {
                double next[3];
                for (int row = 0; row < 3; ++row)
                    next[row] =
                        turn[row] * expected[0] + turn[3 + row] * expected[1] + turn[6 + row] * expected[2];
                std::copy(next, next + 3, expected);
            }
            for (int row = 0; row < 3; ++row)
                EXPECT_NEAR(turned[3 * axis + row], expected[row], 1e-12) << right << ", " << down;
        }
    }
}

TEST(TurnOnScreen, WhatIsNearGoesToTheRightAndDown) {
    Numbers turned = {0, 0, 1, 1, 0, 0, 0, 1, 0}; // X towards the viewer
    TurnOnScreen(turned.data(), 90.0, 0.0);
    EXPECT_EQ(turned[0], 1.0);
    turned = {0, 0, 1, 1, 0, 0, 0, 1, 0};
    TurnOnScreen(turned.data(), 0.0, 90.0);
    EXPECT_EQ(turned[1], -1.0);
}
