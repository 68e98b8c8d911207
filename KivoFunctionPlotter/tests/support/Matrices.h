// Matrices of transformations, in double precision and OpenGL's column-major order, computed by tests for
// themselves.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

namespace KivoDrawingTools {

using Matrix = std::array<double, 16>;
using Vector4 = std::array<double, 4>;

inline Matrix Identity() {
    return {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};
}

inline Matrix FromArray(const double* elements) {
    Matrix m;
    for (std::size_t i = 0; i < 16; ++i)
        m[i] = elements[i];
    return m;
}

/// The mathematical product: b is applied first, then a.
inline Matrix operator*(const Matrix& a, const Matrix& b) {
    Matrix product = {};
    for (std::size_t row = 0; row < 4; ++row)
        for (std::size_t column = 0; column < 4; ++column)
            for (std::size_t k = 0; k < 4; ++k)
                product[4 * column + row] += a[4 * k + row] * b[4 * column + k];
    return product;
}

inline Vector4 operator*(const Matrix& m, const Vector4& v) {
    Vector4 image = {};
    for (std::size_t row = 0; row < 4; ++row)
        for (std::size_t k = 0; k < 4; ++k)
            image[row] += m[4 * k + row] * v[k];
    return image;
}

inline Matrix Translation(double x, double y, double z) {
    return {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, x, y, z, 1};
}

inline Matrix Scaling(double x, double y, double z) {
    return {x, 0, 0, 0, 0, y, 0, 0, 0, 0, z, 0, 0, 0, 0, 1};
}

/// A turn by an angle in degrees about an axis of length 1 (Rodrigues' formula).
inline Matrix Rotation(double degrees, double x, double y, double z) {
    const double angle = degrees * 3.14159265358979323846 / 180.0;
    const double c = std::cos(angle), s = std::sin(angle), d = 1.0 - c;
    return {x * x * d + c,
            y * x * d + z * s,
            z * x * d - y * s,
            0,
            x * y * d - z * s,
            y * y * d + c,
            z * y * d + x * s,
            0,
            x * z * d + y * s,
            y * z * d - x * s,
            z * z * d + c,
            0,
            0,
            0,
            0,
            1};
}

inline Matrix Orthographic(double left, double right, double bottom, double top, double zNear, double zFar) {
    return {2 / (right - left),
            0,
            0,
            0,
            0,
            2 / (top - bottom),
            0,
            0,
            0,
            0,
            -2 / (zFar - zNear),
            0,
            -(right + left) / (right - left),
            -(top + bottom) / (top - bottom),
            -(zFar + zNear) / (zFar - zNear),
            1};
}

/// By Gauss and Jordan, with the largest pivot of each column.
inline Matrix Inverse(Matrix m) {
    Matrix inverse = Identity();
    for (std::size_t i = 0; i < 4; ++i) {
        std::size_t pivot = i;
        for (std::size_t row = i; row < 4; ++row)
            if (std::fabs(m[4 * i + row]) > std::fabs(m[4 * i + pivot])) pivot = row;
        for (std::size_t column = 0; column < 4; ++column) {
            std::swap(m[4 * column + i], m[4 * column + pivot]);
            std::swap(inverse[4 * column + i], inverse[4 * column + pivot]);
        }
        const double divisor = m[4 * i + i];
        for (std::size_t column = 0; column < 4; ++column) {
            m[4 * column + i] /= divisor;
            inverse[4 * column + i] /= divisor;
        }
        for (std::size_t row = 0; row < 4; ++row) {
            const double factor = row == i ? 0.0 : m[4 * i + row];
            for (std::size_t column = 0; column < 4; ++column) {
                m[4 * column + row] -= factor * m[4 * column + i];
                inverse[4 * column + row] -= factor * inverse[4 * column + i];
            }
        }
    }
    return inverse;
}

/// limit: relative to the largest expected element.
inline void ExpectMatrixNear(const Matrix& actual, const Matrix& expected, double limit) {
    double largest = 1e-30;
    for (const double element : expected)
        largest = std::max(largest, std::fabs(element));
    for (std::size_t i = 0; i < 16; ++i)
        EXPECT_NEAR(actual[i], expected[i], limit * largest) << "element " << i;
}

} // namespace KivoDrawingTools
