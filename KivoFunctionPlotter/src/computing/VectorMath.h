// Arithmetic on vectors of three floats, in single precision where not said otherwise. Nothing is checked: a
// division by a zero length gives infinities or values that are no numbers. Outputs must not share storage
// with inputs.
#pragma once

namespace KivoDrawingTools {

/// Length of a - b.
float PointDistance(const float* a, const float* b);

/// a . b, each component widened to double first.
double WideDotProduct(const float* a, const float* b);

/// out = the unit vector of (p1 - p0) x (p2 - p0).
void UnitNormal(const float* p0, const float* p1, const float* p2, float* out);

/// Where a line meets the plane through three points.
/// @param hit  receives origin + t * dir
/// @return t
float MeetPlane(const float* origin, const float* dir, const float* p0, const float* p1, const float* p2,
                float* hit);

/// The same, and whether that lies in the triangle, edges and corners included. Each edge test rejects on a
/// value below zero only, so that one without a number does not reject.
float MeetTriangle(const float* origin, const float* dir, const float* p0, const float* p1, const float* p2,
                   float* hit, bool* inside);

} // namespace KivoDrawingTools
