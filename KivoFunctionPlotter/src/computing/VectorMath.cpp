#include "VectorMath.h"

#include <cmath>

namespace KivoDrawingTools {

float PointDistance(const float* a, const float* b) {
    const float x = a[0] - b[0];
    const float y = a[1] - b[1];
    const float z = a[2] - b[2];
    return std::sqrt(x * x + y * y + z * z);
}

double WideDotProduct(const float* a, const float* b) {
    double sum = 0.0;
    for (int i = 0; i < 3; ++i)
        sum += static_cast<double>(a[i]) * static_cast<double>(b[i]);
    return sum;
}

void UnitNormal(const float* p0, const float* p1, const float* p2, float* out) {
    const float u[] = {p1[0] - p0[0], p1[1] - p0[1], p1[2] - p0[2]};
    const float v[] = {p2[0] - p0[0], p2[1] - p0[1], p2[2] - p0[2]};
    const float x = u[1] * v[2] - u[2] * v[1];
    const float y = u[2] * v[0] - u[0] * v[2];
    const float z = u[0] * v[1] - u[1] * v[0];
    const float length = std::sqrt(x * x + y * y + z * z);
    out[0] = x / length;
    out[1] = y / length;
    out[2] = z / length;
}

namespace {

// Where a line meets the plane through a point.
float MeetPlaneWithNormal(const float* origin, const float* dir, const float* p0, const float* n,
                          float* hit) {
    const float planeDistance = n[0] * p0[0] + n[1] * p0[1] + n[2] * p0[2];
    const float originDistance = n[0] * origin[0] + n[1] * origin[1] + n[2] * origin[2];
    const float slope = n[0] * dir[0] + n[1] * dir[1] + n[2] * dir[2];
    const float t = (planeDistance - originDistance) / slope;
    for (int i = 0; i < 3; ++i)
        hit[i] = origin[i] + t * dir[i];
    return t;
}

} // namespace

float MeetPlane(const float* origin, const float* dir, const float* p0, const float* p1, const float* p2,
                float* hit) {
    float n[3];
    UnitNormal(p0, p1, p2, n);
    return MeetPlaneWithNormal(origin, dir, p0, n, hit);
}

float MeetTriangle(const float* origin, const float* dir, const float* p0, const float* p1, const float* p2,
                   float* hit, bool* inside) {
    float n[3], c[3];
    UnitNormal(p0, p1, p2, n);
    const float t = MeetPlaneWithNormal(origin, dir, p0, n, hit);
    *inside = false;
    UnitNormal(p0, p1, hit, c);
    if (WideDotProduct(n, c) < 0.0) return t;
    // (p2 - p1) x (hit - p1), and so on around the triangle
    UnitNormal(p1, p2, hit, c);
    if (WideDotProduct(n, c) < 0.0) return t;
    UnitNormal(p2, p0, hit, c);
    if (WideDotProduct(n, c) < 0.0) return t;
    *inside = true;
    return t;
}

} // namespace KivoDrawingTools
