#include "Rotation.h"

#include <algorithm>
#include <cmath>

namespace KivoDrawingTools {

namespace {

constexpr double degree = 3.14159265358979323846 / 180.0;
constexpr double exactness = 1e-14; // of what counts as a rotation to the last digits
constexpr double uprightness = 0.01 * degree;

struct SineAndCosine {
    double sine;
    double cosine;
};

// Quarters of a turn are taken off first, so that they have whole numbers.
SineAndCosine OfDegrees(double angle) {
    int quarters = 0;
    const double rest = std::remquo(angle, 90.0, &quarters) * degree;
    const double sine = std::sin(rest);
    const double cosine = std::cos(rest);
    switch (static_cast<unsigned int>(quarters) % 4) {
    case 1:
        return {cosine, -sine};
    case 2:
        return {-sine, -cosine};
    case 3:
        return {-cosine, sine};
    default:
        return {sine, cosine};
    }
}

bool AreFinite(const double* matrix) {
    return std::all_of(matrix, matrix + 9, [](double number) { return std::isfinite(number); });
}

double DotProduct(const double* a, const double* b) {
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

// By how much the columns miss lengths of 1 and right angles.
double Deviation(const double* matrix) {
    double most = 0.0;
    for (int i = 0; i < 3; ++i)
        for (int j = i; j < 3; ++j)
            most =
                std::max(most, std::abs(DotProduct(matrix + 3 * i, matrix + 3 * j) - (i == j ? 1.0 : 0.0)));
    return most;
}

// The transposed inverse: its columns are the cross products of the others, over the determinant.
void InvertTransposed(const double* matrix, double* inverse) {
    const double determinant = Determinant(matrix);
    for (int column = 0; column < 3; ++column) {
        const double* const a = matrix + 3 * ((column + 1) % 3);
        const double* const b = matrix + 3 * ((column + 2) % 3);
        for (int row = 0; row < 3; ++row) {
            const int next = (row + 1) % 3;
            const int last = (row + 2) % 3;
            inverse[3 * column + row] = (a[next] * b[last] - a[last] * b[next]) / determinant;
        }
    }
}

} // namespace

double Determinant(const double* matrix) {
    return matrix[0] * (matrix[4] * matrix[8] - matrix[5] * matrix[7]) -
           matrix[3] * (matrix[1] * matrix[8] - matrix[2] * matrix[7]) +
           matrix[6] * (matrix[1] * matrix[5] - matrix[2] * matrix[4]);
}

// Newton's method for the polar decomposition: the mean of a matrix and its transposed inverse is nearer to
// the rotation, and soon with twice as many digits in every step.
bool NearestRotation(const double* matrix, double* rotation) {
    constexpr int mostSteps = 100;
    if (!AreFinite(matrix) || !(Determinant(matrix) > 0.0)) return false;
    double near[9];
    std::copy(matrix, matrix + 9, near);
    for (int step = 0; step < mostSteps && AreFinite(near) && Deviation(near) > exactness; ++step) {
        double inverse[9];
        InvertTransposed(near, inverse);
        for (int i = 0; i < 9; ++i)
            near[i] = 0.5 * (near[i] + inverse[i]);
    }
    if (!AreFinite(near) || Deviation(near) > exactness) return false;
    std::copy(near, near + 9, rotation);
    return true;
}

void UprightRotation(double azimuth, double elevation, double* rotation) {
    const SineAndCosine side = OfDegrees(azimuth);
    const SineAndCosine height = OfDegrees(elevation);
    const double upright[] = {-side.sine,
                              -height.sine * side.cosine,
                              height.cosine * side.cosine,
                              side.cosine,
                              -height.sine * side.sine,
                              height.cosine * side.sine,
                              0.0,
                              height.cosine,
                              height.sine};
    std::copy(upright, upright + 9, rotation);
}

// The rows of the matrix are the viewer's directions among the axes. In an upright view the one to the right
// is level, which tells the azimuth also where the viewer looks straight down.
bool FindUprightAngles(const double* rotation, double& azimuth, double& elevation) {
    const double right[] = {rotation[0], rotation[3], rotation[6]};
    const double viewer[] = {rotation[2], rotation[5], rotation[8]};
    const double upwards = rotation[7];
    const bool isUpright = std::abs(right[2]) < uprightness && upwards > -uprightness;
    azimuth = (isUpright ? std::atan2(-right[0], right[1]) : std::atan2(viewer[1], viewer[0])) / degree;
    if (azimuth <= -180.0) azimuth = 180.0; // of a zero with a sign
    elevation = std::atan2(viewer[2], std::hypot(viewer[0], viewer[1])) / degree;
    return isUpright;
}

void TurnOnScreen(double* rotation, double right, double down) {
    const SineAndCosine aside = OfDegrees(right);
    const SineAndCosine over = OfDegrees(down);
    for (double* axis = rotation; axis != rotation + 9; axis += 3) {
        const double nearer = axis[2] * aside.cosine - axis[0] * aside.sine;
        axis[0] = axis[0] * aside.cosine + axis[2] * aside.sine;
        axis[2] = nearer * over.cosine + axis[1] * over.sine;
        axis[1] = axis[1] * over.cosine - nearer * over.sine;
    }
}

} // namespace KivoDrawingTools
