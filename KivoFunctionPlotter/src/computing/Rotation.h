// Rotations as matrices of nine numbers, column by column: where the axes X, Y and Z come to, each to the
// right, up and towards the viewer.
#pragma once

namespace KivoDrawingTools {

/// Of nine numbers.
double Determinant(const double* matrix);

/// The rotation that differs least from a matrix; one that is exact already stays as it is.
/// @param rotation  receives it; left alone where there is none
/// @return whether it has been found: not where numbers are not finite or the determinant is not above 0
bool NearestRotation(const double* matrix, double* rotation);

/// Z points up, and the viewer stands so many degrees to the left of X, seen from above, and above the plane
/// of X and Y. Multiples of 90 degrees give whole numbers.
void UprightRotation(double azimuth, double elevation, double* rotation);

/// From where the viewer looks.
/// @param azimuth    receives an angle above -180 to 180
/// @param elevation  receives an angle from -90 to 90
/// @return whether UprightRotation gives this rotation for them, within a hundredth of a degree
bool FindUprightAngles(const double* rotation, double& azimuth, double& elevation);

/// Turns about the screen's own axes: what is near moves to the right, then down, by so many degrees.
void TurnOnScreen(double* rotation, double right, double down);

} // namespace KivoDrawingTools
