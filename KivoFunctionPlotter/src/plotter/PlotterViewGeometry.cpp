// CKivoFunctionPlotter: vector helpers, view volume and camera, screen mapping and mouse navigation.
#include "KivoFunctionPlotter.h"

#include "computing/FittedNumbers.h"
#include "computing/SurfacePicker.h"
#include "computing/VectorMath.h"
#include "drawing/Camera.h"
#include "drawing/ClipScope.h"
#include "drawing/GLScopes.h"
#include "drawing/PointMarker.h"
#include "drawing/TexturedQuad.h"
#include "parts/KivoGradientColor.h"
#include "parts/KivoGridBox.h"
#include "parts/TextRenderer.h"
#include "PlotType.h"
#include "SurfaceLayers.h"
#include "ViewState.h"
#include "window_system/WindowSystem.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

namespace KivoDrawingTools {

namespace {

// Where a fixed orientation sends the data axes in eye space: x to the right, y up, z towards the viewer.
struct Orientation {
    double x[3];
    double y[3];
    double z[3];
};

constexpr Orientation frontView = {{0, 0, 1}, {1, 0, 0}, {0, 1, 0}};
constexpr Orientation backView = {{0, 0, -1}, {-1, 0, 0}, {0, 1, 0}};
constexpr Orientation topView = {{0, -1, 0}, {1, 0, 0}, {0, 0, 1}};
constexpr Orientation bottomView = {{0, 1, 0}, {1, 0, 0}, {0, 0, -1}};
constexpr Orientation leftView = {{-1, 0, 0}, {0, 0, 1}, {0, 1, 0}};
constexpr Orientation rightView = {{1, 0, 0}, {0, 0, -1}, {0, 1, 0}};
constexpr Orientation isoView = {
    {-0.707107f, -0.408204f, 0.577382f}, {0.707107f, -0.408204f, 0.577382f}, {0.0f, 0.816541f, 0.577288f}};
constexpr Orientation xyView = {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}};
constexpr Orientation yzView = frontView;
constexpr Orientation xzView = rightView;

bool IsWithin(std::int64_t value, std::int64_t low, std::int64_t high) {
    return low <= value && value <= high;
}

bool Contains(const RECT& rect, POINT pt) {
    return IsWithin(pt.x, rect.left, rect.right) && IsWithin(pt.y, rect.top, rect.bottom);
}

// The way from one point to another; in double precision, where no difference of coordinates overflows.
struct Way {
    double x;
    double y;
};

// Whether OpenGL, which computes in single precision, has a number for each. Not a number compares as false.
bool FitSinglePrecision(const double* numbers, int count) {
    return std::all_of(numbers, numbers + count, [](double number) {
        return std::abs(number) <= static_cast<double>(std::numeric_limits<float>::max());
    });
}

Way WayBetween(POINT from, POINT to) {
    return {static_cast<double>(to.x) - from.x, static_cast<double>(to.y) - from.y};
}

} // namespace

// ---- Vector and matrix helpers --------------------------------------------------------------------------

void CKivoFunctionPlotter::MatrixMultiply(double* out, const double* a, const double* b) {
    for (int i = 0; i < 4; ++i)
        for (int j = 0; j < 4; ++j) {
            double sum = 0.0;
            for (int k = 0; k < 4; ++k)
                sum += a[4 * i + k] * b[4 * k + j];
            out[4 * i + j] = sum;
        }
}

void CKivoFunctionPlotter::MatrixCopy(double* dst, const double* src) {
    std::copy(src, src + 16, dst);
}

void CKivoFunctionPlotter::VectorMatrixMultiply(double* out, const double* v, const double* m) {
    for (int j = 0; j < 4; ++j) {
        double sum = 0.0;
        for (int k = 0; k < 4; ++k)
            sum += v[k] * m[4 * k + j];
        out[j] = sum;
    }
}

void CKivoFunctionPlotter::VectorMatrixMultiply3(double* out, const double* v, const double* m) {
    for (int j = 0; j < 3; ++j)
        out[j] = v[0] * m[j] + v[1] * m[4 + j] + v[2] * m[8 + j];
}

void CKivoFunctionPlotter::ScalarVectorMultiply3(float* out, float s, const float* v) {
    for (int i = 0; i < 3; ++i)
        out[i] = s * v[i];
}

void CKivoFunctionPlotter::VectorAssign3(float* dst, const float* src) {
    for (int i = 0; i < 3; ++i)
        dst[i] = src[i];
}

void CKivoFunctionPlotter::VectorOffset3(float* out, const float* a, const float* b) {
    for (int i = 0; i < 3; ++i)
        out[i] = a[i] + b[i];
}

void CKivoFunctionPlotter::VectorOffset3(float* a, const float* b) {
    for (int i = 0; i < 3; ++i)
        a[i] += b[i];
}

float CKivoFunctionPlotter::Distance(const float* a, const float* b) {
    return PointDistance(a, b);
}

double CKivoFunctionPlotter::Distance(const double* a, const double* b) {
    const double x = a[0] - b[0];
    const double y = a[1] - b[1];
    const double z = a[2] - b[2];
    return std::sqrt(x * x + y * y + z * z);
}

void CKivoFunctionPlotter::NormalVector(const float* from, const float* to, float* out) {
    const float length = Distance(from, to);
    for (int i = 0; i < 3; ++i)
        out[i] = (to[i] - from[i]) / length;
}

float CKivoFunctionPlotter::Interpolate(float x, float x0, float x1, float y0, float y1) {
    return (x - x0) * (y1 - y0) / (x1 - x0) + y0;
}

double CKivoFunctionPlotter::Interpolate(double x, double x0, double x1, double y0, double y1) {
    return (x - x0) * (y1 - y0) / (x1 - x0) + y0;
}

void CKivoFunctionPlotter::CalNormal(const float* p0, const float* p1, const float* p2, float* out) {
    UnitNormal(p0, p1, p2, out);
}

float CKivoFunctionPlotter::IntersectPlane(const float* origin, const float* dir, const float* p0,
                                           const float* p1, const float* p2, float* hit) {
    return MeetPlane(origin, dir, p0, p1, p2, hit);
}

float CKivoFunctionPlotter::IntersectPlane(const float* origin, const float* dir, const float* p0,
                                           const float* p1, const float* p2, float* hit, bool* inside) {
    return MeetTriangle(origin, dir, p0, p1, p2, hit, inside);
}

double CKivoFunctionPlotter::DotProduct(const float* a, const float* b) {
    return WideDotProduct(a, b);
}

// ---- View volume and camera -----------------------------------------------------------------------------

void CKivoFunctionPlotter::ApplyViewVolume() {
    SetViewport(m_plotViewport);
    const MatrixModeScope projection(GL_PROJECTION);
    glLoadIdentity();
    const double volume[] = {m_viewLeft, m_viewRight, m_viewBottom, m_viewTop, m_viewNear, m_viewFar};
    MultiplyOrtho(volume);
}

void CKivoFunctionPlotter::ApplyModelViewMatrix() {
    const MatrixModeScope modelView(GL_MODELVIEW);
    glLoadIdentity();
    glTranslated((m_viewRight - m_viewLeft) * m_panFractionX, (m_viewTop - m_viewBottom) * m_panFractionY,
                 0.0);
    glMultMatrixd(m_rotationMatrix);
    glScaled(m_axisScale[0], m_axisScale[1], m_axisScale[2]);
    glTranslated(m_volumeTranslate[0], m_volumeTranslate[1], m_volumeTranslate[2]);
}

void CKivoFunctionPlotter::_ApplyInverseAxisToModelViewMatrix() {
    const bool inverse[] = {m_inverseXAxis, m_inverseYAxis, m_inverseZAxis};
    for (int axis = 0; axis < 3; ++axis)
        for (int i = 4 * axis; inverse[axis] && i < 4 * axis + 3; ++i)
            m_rotationMatrix[i] = -m_rotationMatrix[i];
}

void CKivoFunctionPlotter::SetVolumeCenter(float x, float y, float z) {
    m_volumeTranslate[0] = -x;
    m_volumeTranslate[1] = -y;
    m_volumeTranslate[2] = -z;
    ApplyModelViewMatrix();
}

void CKivoFunctionPlotter::IncreaseTranslation(float dx, float dy, float dz) {
    m_rotationMatrix[12] += dx;
    m_rotationMatrix[13] += dy + dz;
    ApplyModelViewMatrix();
}

void CKivoFunctionPlotter::IncreaseRotation(float angle, float x, float y, float z) {
    double turned[16];
    TurnMatrix(angle, x, y, z, turned);
    MatrixCopy(m_rotationMatrix, turned);
    ApplyModelViewMatrix();
}

void CKivoFunctionPlotter::TurnMatrix(float angle, float x, float y, float z, double* turned) const {
    constexpr float pi = 3.1415925f;
    const float k = 1.0f / std::sqrt(x * x + y * y + z * z + 1.0f);
    const float halfAngle = angle * pi / 180.0f * 0.5f;
    const float s = std::sin(halfAngle);
    const float w = std::cos(halfAngle);
    const float qx = k * x * s;
    const float qy = k * y * s;
    const float qz = k * z * s;
    const double rotation[16] = {1.0f - 2.0f * (qy * qy + qz * qz),
                                 2.0f * (qx * qy + w * qz),
                                 2.0f * (qx * qz - w * qy),
                                 0.0,
                                 2.0f * (qx * qy - w * qz),
                                 1.0f - 2.0f * (qx * qx + qz * qz),
                                 2.0f * (qy * qz + w * qx),
                                 0.0,
                                 2.0f * (qx * qz + w * qy),
                                 2.0f * (qy * qz - w * qx),
                                 1.0f - 2.0f * (qx * qx + qy * qy),
                                 0.0,
                                 0.0,
                                 0.0,
                                 0.0,
                                 1.0};
    MatrixMultiply(turned, m_rotationMatrix, rotation);
}

void CKivoFunctionPlotter::IncreaseZooming(float factor) {
    ScaleView(1.0 / static_cast<double>(factor));
}

void CKivoFunctionPlotter::ScaleView(double scale) {
    ScaleViewBounds(scale, m_viewLeft, m_viewRight, m_viewBottom, m_viewTop);
    ApplyViewVolume();
}

void CKivoFunctionPlotter::IncreaseScale(float d) {
    m_viewLeft += d;
    m_viewRight -= d;
    m_viewBottom += d;
    m_viewTop -= d;
}

void CKivoFunctionPlotter::FitView(int plotType) {
    if (!m_gridBox) return;
    ViewState view = ViewAccess::Save(*this);
    view.Fit(plotType, ViewAccess::Boxes(*this));
    ViewAccess::Restore(*this, view);
    ApplyViewVolume();
}

void CKivoFunctionPlotter::UpdateBoundingBoxToViewVolume() {
    FitView(normalPlot);
}

void CKivoFunctionPlotter::UpdateXYBoundingBoxToViewVolume() {
    FitView(xyPlot);
}

void CKivoFunctionPlotter::UpdateYZBoundingBoxToViewVolume() {
    FitView(yzPlot);
}

void CKivoFunctionPlotter::UpdateXZBoundingBoxToViewVolume() {
    FitView(xzPlot);
}

void CKivoFunctionPlotter::UpdateBoundingBoxToViewVolume(float* const min, float* const max) {
    VectorAssign3(m_boundingBoxMin, min);
    VectorAssign3(m_boundingBoxMax, max);
    if (m_zGradientColor) m_zGradientColor->SetRange(min[2], max[2]);
    if (m_xGradientColor) m_xGradientColor->SetRange(min[0], max[0]);
    if (m_yGradientColor) m_yGradientColor->SetRange(min[1], max[1]);
    RebuildRuler(m_zColorRuler, m_zGradientColor);
    RebuildRuler(m_xColorRuler, m_xGradientColor);
    RebuildRuler(m_yColorRuler, m_yGradientColor);
    UpdateLightsPosition();
    if (m_gridBox) m_gridBox->FitToData(m_boundingBoxMin, m_boundingBoxMax);
    UpdateBoundingBoxToViewVolume();
    UpdateLegendViewVolume();
}

void CKivoFunctionPlotter::AutoAdjustAxisLengthRatio() {
    const ContextScope context(m_hDC, m_hGLRC);
    UpdateBoundingBoxToViewVolume();
}

void CKivoFunctionPlotter::SetRotationBlock(const double* x, const double* y, const double* z) {
    std::copy(x, x + 3, m_rotationMatrix);
    std::copy(y, y + 3, m_rotationMatrix + 4);
    std::copy(z, z + 3, m_rotationMatrix + 8);
}

void CKivoFunctionPlotter::ApplyOrientation(const double* x, const double* y, const double* z) {
    SetRotationBlock(x, y, z);
    _ApplyInverseAxisToModelViewMatrix();
    ApplyModelViewMatrix();
}

void CKivoFunctionPlotter::ApplyFrontView() {
    ApplyOrientation(frontView.x, frontView.y, frontView.z);
}

void CKivoFunctionPlotter::ApplyBackView() {
    ApplyOrientation(backView.x, backView.y, backView.z);
}

void CKivoFunctionPlotter::ApplyTopView() {
    ApplyOrientation(topView.x, topView.y, topView.z);
}

void CKivoFunctionPlotter::ApplyBottomView() {
    ApplyOrientation(bottomView.x, bottomView.y, bottomView.z);
}

void CKivoFunctionPlotter::ApplyLeftView() {
    ApplyOrientation(leftView.x, leftView.y, leftView.z);
}

void CKivoFunctionPlotter::ApplyRightView() {
    ApplyOrientation(rightView.x, rightView.y, rightView.z);
}

void CKivoFunctionPlotter::ApplyIsoView() {
    ApplyOrientation(isoView.x, isoView.y, isoView.z);
}

void CKivoFunctionPlotter::ApplyNormalPlotView() {
    UpdateBoundingBoxToViewVolume();
    SetRotationBlock(isoView.x, isoView.y, isoView.z);
    _ApplyInverseAxisToModelViewMatrix();
    {
        const MatrixModeScope modelView(GL_MODELVIEW);
        glPushMatrix();
        glLoadIdentity();
        glRotatef(-10.0f, 1.0f, 0.0f, 0.0f);
        glMultMatrixd(m_rotationMatrix);
        GLdouble tilted[16];
        MatrixCopy(tilted, m_rotationMatrix); // stays where no context answers
        glGetDoublev(GL_MODELVIEW_MATRIX, tilted);
        // The pan is tilted with the rest. One at the end of single precision that gets beyond it stays.
        const int count = FitSinglePrecision(tilted + 12, 3) ? 16 : 12;
        std::copy(tilted, tilted + count, m_rotationMatrix);
        glPopMatrix();
    }
    ApplyModelViewMatrix();
}

void CKivoFunctionPlotter::ApplyXYPlotView() {
    UpdateXYBoundingBoxToViewVolume();
    SetRotationBlock(xyView.x, xyView.y, xyView.z);
    ApplyModelViewMatrix();
}

void CKivoFunctionPlotter::ApplyYZPlotView() {
    UpdateYZBoundingBoxToViewVolume();
    SetRotationBlock(yzView.x, yzView.y, yzView.z);
    ApplyModelViewMatrix();
}

void CKivoFunctionPlotter::ApplyXZPlotView() {
    UpdateXZBoundingBoxToViewVolume();
    SetRotationBlock(xzView.x, xzView.y, xzView.z);
    ApplyModelViewMatrix();
}

// ---- Mouse navigation -----------------------------------------------------------------------------------

void CKivoFunctionPlotter::OnLButtonDown(unsigned int, POINT) {}

void CKivoFunctionPlotter::OnLButtonUp(unsigned int, POINT) {}

void CKivoFunctionPlotter::OnRButtonDown(unsigned int, POINT pt) {
    if (!IsClientPointInViewport(pt)) return;
    m_lastMouseX = pt.x;
    m_lastMouseY = pt.y;
    m_mouseButtonDown = true;
    m_detailOfDrag = m_motionDetail;
}

void CKivoFunctionPlotter::OnRButtonUp(unsigned int, POINT pt) {
    if (!IsClientPointInViewport(pt)) return;
    m_lastMouseX = pt.x;
    m_lastMouseY = pt.y;
    m_mouseButtonDown = false;
}

void CKivoFunctionPlotter::OnMouseMove(unsigned int flags, POINT pt) {
    if (!IsClientPointInViewport(pt)) return;
    const POINT last = {m_lastMouseX, m_lastMouseY};
    m_lastMouseX = pt.x;
    m_lastMouseY = pt.y;

    if (m_mouseButtonDown) {
        if (!(flags & MK_RBUTTON)) return; // released outside the viewport
        if (flags & MK_CONTROL)
            Zoom(last, pt);
        else if (flags & MK_SHIFT)
            Translate(last, pt);
        else if (m_plotType != normalPlot)
            return;
        else
            Rotate(last, pt);
        ShowMoved(m_detailOfDrag);
    } else if (!m_traceEnabled || m_plotType != normalPlot) {
        return;
    } else {
        Trace(pt);
        ShowMoved(0);
    }
}

void CKivoFunctionPlotter::OnMouseWheel(unsigned int, short delta, POINT pt) {
    if (!IsScreenPointInViewport(pt)) return;
    Zoom(delta < 0 ? 1.04f : 0.96f);
    ShowMoved(m_motionDetail);
}

void CKivoFunctionPlotter::Rotate(POINT from, POINT to) {
    const ContextScope context(m_hDC, m_hGLRC);
    const Way way = WayBetween(from, to);
    const float dx = static_cast<float>(way.x);
    const float dy = static_cast<float>(way.y);
    const float angle = std::sqrt(dx * dx + dy * dy) * (160.0f / static_cast<float>(m_plotViewport[2]));
    if (!std::isfinite(angle)) return; // nothing would bring a rotation without numbers back
    double turned[16];
    TurnMatrix(angle, dy, dx, 0.0f, turned);
    if (!FitSinglePrecision(turned, 16)) return; // it turns the pan as well
    MatrixCopy(m_rotationMatrix, turned);
    ApplyModelViewMatrix();
}

void CKivoFunctionPlotter::Translate(POINT from, POINT to) {
    const ContextScope context(m_hDC, m_hGLRC);
    const Way way = WayBetween(from, to);
    const double k =
        static_cast<double>(static_cast<float>(m_viewRight - m_viewLeft)) * 0.8 / m_plotViewport[2];
    const double pan[] = {m_rotationMatrix[12] + way.x * k, m_rotationMatrix[13] - way.y * k};
    if (!FitSinglePrecision(pan, 2)) return; // nothing would bring such a pan back
    m_rotationMatrix[12] = pan[0];
    m_rotationMatrix[13] = pan[1];
    ApplyModelViewMatrix();
}

void CKivoFunctionPlotter::Zoom(float factor) {
    const ContextScope context(m_hDC, m_hGLRC);
    const float scale = 1.0f / (1.0f / factor); // in single precision
    ScaleView(scale);
}

void CKivoFunctionPlotter::Zoom(POINT from, POINT to) {
    const ContextScope context(m_hDC, m_hGLRC);
    const double dy = WayBetween(from, to).y;
    const double height = m_plotViewport[3];
    const double factor = dy > 0.0 ? 1.0 + dy / height : 1.0 - (-dy) / height;
    ScaleView(1.0 / factor);
}

// ---- Screen mapping -------------------------------------------------------------------------------------

void CKivoFunctionPlotter::Project(float x, float y, float z, float* const out) {
    const std::vector<SPoint3f> in = {{x, y, z}};
    std::vector<SPoint3f> projected;
    Project(in, projected);
    out[0] = projected[0].x;
    out[1] = projected[0].y;
    out[2] = projected[0].z;
}

void CKivoFunctionPlotter::Project(const std::vector<SPoint3f>& in, std::vector<SPoint3f>& out) {
    GLdouble projection[16] = {};
    GLdouble modelView[16] = {};
    glGetDoublev(GL_PROJECTION_MATRIX, projection);
    glGetDoublev(GL_MODELVIEW_MATRIX, modelView);
    out.resize(in.size());
    for (std::size_t i = 0; i < in.size(); ++i) {
        GLdouble x = 0.0, y = 0.0, z = 0.0;
        gluProject(in[i].x, in[i].y, in[i].z, modelView, projection, m_plotViewport, &x, &y, &z);
        out[i] = {static_cast<float>(x), static_cast<float>(y), static_cast<float>(z)};
    }
}

void CKivoFunctionPlotter::UnProject(POINT pt, float* const nearPt, float* const farPt) {
    ApplyViewVolume();
    ApplyModelViewMatrix();
    GLdouble projection[16] = {};
    GLdouble modelView[16] = {};
    glGetDoublev(GL_PROJECTION_MATRIX, projection);
    glGetDoublev(GL_MODELVIEW_MATRIX, modelView);
    double windowX = 0.0, windowY = 0.0;
    WindowToViewport(pt, &windowX, &windowY);

    // The depths -1 and 1 reach beyond the depth range, which does no harm to an orthographic camera.
    const auto unproject = [&](double depth, float* out) {
        GLdouble x = 0.0, y = 0.0, z = 0.0;
        gluUnProject(windowX, windowY, depth, modelView, projection, m_plotViewport, &x, &y, &z);
        out[0] = static_cast<float>(x);
        out[1] = static_cast<float>(y);
        out[2] = static_cast<float>(z);
    };
    unproject(-1.0, nearPt);
    unproject(1.0, farPt);
}

void CKivoFunctionPlotter::WindowToViewport(POINT pt, double* x, double* y) {
    *x = pt.x;
    *y = static_cast<double>(m_clientHeight) - pt.y - m_plotViewport[1];
}

float CKivoFunctionPlotter::PixelToWorld(int n) {
    return PixelToWorld(static_cast<float>(n));
}

float CKivoFunctionPlotter::PixelToWorld(float n) {
    return static_cast<float>(PixelToWorld(static_cast<double>(n)));
}

double CKivoFunctionPlotter::PixelToWorld(double n) {
    return (m_viewRight - m_viewLeft) * n / m_plotViewport[2];
}

float CKivoFunctionPlotter::PixelToUnscaledWorldX(float n) {
    return static_cast<float>(PixelToWorld(n) / m_axisScale[0]);
}

float CKivoFunctionPlotter::PixelToUnscaledWorldY(float n) {
    return static_cast<float>(PixelToWorld(n) / m_axisScale[1]);
}

float CKivoFunctionPlotter::PixelToUnscaledWorldZ(float n) {
    return static_cast<float>(PixelToWorld(n) / m_axisScale[2]);
}

bool CKivoFunctionPlotter::IsScreenPointInWindow(POINT pt) {
    RECT rect = {};
    return GetWindowRect(m_hWnd, &rect) && Contains(rect, pt);
}

bool CKivoFunctionPlotter::IsClientPointInWindow(POINT pt) {
    RECT rect = {};
    return GetClientRect(m_hWnd, &rect) && Contains(rect, pt);
}

bool CKivoFunctionPlotter::IsScreenPointInViewport(POINT pt) {
    RECT rect = {};
    if (!GetWindowRect(m_hWnd, &rect)) return false;
    const std::int64_t x = static_cast<std::int64_t>(pt.x) - rect.left;
    const std::int64_t y = static_cast<std::int64_t>(rect.bottom) - pt.y;
    return IsWithin(x, 0, m_plotViewport[2]) && IsWithin(y, 0, m_plotViewport[3]);
}

bool CKivoFunctionPlotter::IsClientPointInViewport(POINT pt) {
    return IsWithin(pt.x, 0, m_plotViewport[2]) && IsWithin(pt.y, 0, m_plotViewport[3]);
}

// ---- Ranges of the axes ---------------------------------------------------------------------------------

// What is shown of the data: without end along axes that cut nothing.
PointBox CKivoFunctionPlotter::CutBox() const {
    constexpr float endless = std::numeric_limits<float>::infinity();
    PointBox box = {{-endless, -endless, -endless}, {endless, endless, endless}};
    for (int axis = 0; axis < 3 && m_gridBox; ++axis) {
        if (!m_isCutToAxis[axis]) continue;
        box.min[axis] = std::min(m_gridBox->m_boxMin[axis], m_gridBox->m_boxMax[axis]);
        box.max[axis] = std::max(m_gridBox->m_boxMin[axis], m_gridBox->m_boxMax[axis]);
    }
    return box;
}

// With the data's model-view matrix loaded.
ClipScope CKivoFunctionPlotter::CutScope(unsigned int axes) const {
    return {CutBox(), axes};
}

bool CKivoFunctionPlotter::IsCutAway(const float* point) const {
    return !CutBox().Holds(point);
}

// ---- Trace ----------------------------------------------------------------------------------------------

int CKivoFunctionPlotter::Trace(bool enable) {
    m_traceEnabled = enable;
    if (!enable) m_hasTracePoint = 0;
    return 0;
}

bool CKivoFunctionPlotter::IsTracing() const {
    return m_traceEnabled;
}

bool CKivoFunctionPlotter::GetTracePoint(float* const out) {
    if (m_hasTracePoint == 0) return false;
    VectorAssign3(out, m_tracePoint);
    return true;
}

void CKivoFunctionPlotter::FindLineOfSight(POINT pt, float* nearPt, float* farPt) {
    const ContextScope context(m_hDC, m_hGLRC);
    UnProject(pt, nearPt, farPt);
}

int CKivoFunctionPlotter::Trace(POINT pt) {
    float nearPt[3] = {}, farPt[3] = {};
    FindLineOfSight(pt, nearPt, farPt);
    if (m_surfaces.layers) return SurfaceAccess::Trace(*this, nearPt, farPt);
    if (!IsIntersectWithBoundingBox(nearPt, farPt)) return 1;
    if (!HasReadablePoints()) return 1;

    const float length = Distance(nearPt, farPt);
    float dir[3];
    NormalVector(nearPt, farPt, dir);
    // With hits beyond the limit alone there is a trace point, and it is the one from before.
    const PointBox range = CutBox();
    if (PickSurface(Grid(), m_boundingBoxMin, m_boundingBoxMax, nearPt, dir, length, m_tracePoint, nullptr,
                    &range) == PickResult::nothing)
        return 1;
    m_hasTracePoint = 1;
    AskForTraceWords();
    return 0;
}

int CKivoFunctionPlotter::Trace_New(POINT pt) {
    float nearPt[3] = {}, farPt[3] = {};
    FindLineOfSight(pt, nearPt, farPt);
    IsIntersectWithBoundingBox(nearPt, farPt);
    return 1;
}

bool CKivoFunctionPlotter::IsIntersectWithBoundingBox(const float* const nearPt, const float* const farPt) {
    m_hasTracePoint = 0;
    float dir[3];
    NormalVector(nearPt, farPt, dir);
    return MeetsBox(nearPt, dir, m_boundingBoxMin, m_boundingBoxMax);
}

bool CKivoFunctionPlotter::SelectTriangle(POINT, float*, float*, float*) {
    return false;
}

void CKivoFunctionPlotter::RenderTracePoints() {
    if (m_hasTracePoint == 0) return;
    constexpr float magenta[] = {1.0f, 0.05f, 1.0f, 1.0f};
    glColor4fv(magenta);
    DrawPointMarker(m_tracePoint[0], m_tracePoint[1], m_tracePoint[2], MarkerSize(1.0), m_axisScale);
}

std::string CKivoFunctionPlotter::ReadOut(int axis, float value, bool asksFormats) const {
    if (m_gridBox && m_gridBox->m_numbers[axis]) return m_gridBox->ReadOut(axis, value, asksFormats);
    if (!m_hasFittedReadOut) return FormatNumber(value, 3);
    const auto min = static_cast<double>(m_boundingBoxMin[axis]);
    const auto max = static_cast<double>(m_boundingBoxMax[axis]);
    return FittedNumbers::Within(min, max).Text(static_cast<double>(value));
}

void CKivoFunctionPlotter::RenderTraceLegend() {
    if (m_hasTracePoint == 0 || !m_textRenderer) return;
    SKivoTexImage image;
    if (CreateTextImage(m_textRenderer, TraceText().c_str(), &image) != 0) {
        ReleaseTextImage(&image);
        return;
    }
    // Drawn pixel for pixel, but not on whole ones: unfiltered, its digits stay sharp.
    glBindTexture(GL_TEXTURE_2D, image.texture);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_NEAREST);
    glBindTexture(GL_TEXTURE_2D, 0);

    // Both margins are a hundredth of the width, and both sides are measured by the width of a pixel.
    const float margin = static_cast<float>((m_viewRight - m_viewLeft) * 0.01);
    const float pixel = static_cast<float>(PixelToWorld(1.0));
    const float center[] = {0.5f * static_cast<float>(image.width) * pixel,
                            0.5f * static_cast<float>(image.height) * pixel, 0.0f};
    constexpr float toTheRight[] = {1, 0, 0};
    constexpr float upwards[] = {0, 1, 0};
    {
        const MatrixModeScope modelView(GL_MODELVIEW);
        glPushMatrix();
        glLoadIdentity();
        glTranslatef(static_cast<float>(m_viewLeft) + margin, static_cast<float>(m_viewBottom) + margin,
                     0.0f);
        DrawTexturedQuad(center, toTheRight, upwards, pixel, pixel, image);
        glPopMatrix();
    }
    ReleaseTextImage(&image);
}

} // namespace KivoDrawingTools
