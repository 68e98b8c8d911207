// CKivoFunctionPlotter: curves, point markers and measure groups.
#include "KivoFunctionPlotter.h"

#include "Arguments.h"
#include "computing/AxisLabelLayout.h"
#include "computing/ColorSpace.h"
#include "drawing/ClipScope.h"
#include "drawing/GLScopes.h"
#include "drawing/PointMarker.h"
#include "parts/KivoMeasurePointGroupManager.h"
#include "PictureDrawing.h"
#include "window_system/WindowSystem.h"

#include <algorithm>
#include <cstddef>
#include <limits>
#include <stdexcept>

namespace KivoDrawingTools {

namespace {

constexpr int badIndex = -2;

// Whether to leave the rest of many points at one of them; asks at each of some hundred.
auto Leaving(DrawingStop* stop) {
    constexpr std::size_t markersAtATime = 256;
    return [stop](std::size_t point) { return point % markersAtATime == 0 && IsStopped(stop); };
}

constexpr double nameListMargin = 0.01; // of the plot's width
constexpr float nameSquare = 0.8f;      // of a row's height
constexpr float nameSquareGap = 0.2f;   // of the square
constexpr float listOpacity = 0.7f;     // of the ground of texts that are listed

// What a group is listed with, a row each.
struct ListedRows {
    explicit ListedRows(const CKivoMeasurePointGroup& group)
        : images(group.m_listedImages.empty() ? &group.m_nameImage : group.m_listedImages.data()),
          count(std::max<std::size_t>(group.m_listedImages.size(), 1)) {}
    const SKivoTexImage* images;
    std::size_t count;
};

template <typename Container>
bool IsIndexOf(const Container& container, int index) {
    return index >= 0 && static_cast<std::size_t>(index) < container.size();
}

template <typename Container>
void MakeRoom(Container& container) {
    if (container.size() == container.capacity()) container.reserve(2 * container.size() + 8);
}

// Floats of so many points. No array has more of them than memory has addresses for.
std::size_t FloatCount(unsigned int pointCount, unsigned int floatsPerPoint) {
    const std::size_t most = std::vector<float>().max_size();
    if (floatsPerPoint > most / pointCount)
        throw std::length_error("the counts of points and floats exceed what memory can hold");
    return std::size_t{pointCount} * floatsPerPoint;
}

// x, y, z of a point of a curve; a coordinate that it does not have is 0.
void CopyCurvePoint(const std::vector<float>& data, std::size_t stride, std::size_t i, float* point) {
    for (std::size_t k = 0; k < 3; ++k)
        point[k] = k < stride ? data[i * stride + k] : 0.0f;
}

} // namespace

// ---- Curves ---------------------------------------------------------------------------------------------

int CKivoFunctionPlotter::AddCurveData(float* points, unsigned int pointCount, unsigned int floatsPerPoint) {
    if (!points || pointCount == 0 || floatsPerPoint == 0) return refusedArgument;
    const std::size_t size = FloatCount(pointCount, floatsPerPoint);
    // Room first, so that all containers grow or none does.
    MakeRoom(m_curvePointCounts);
    MakeRoom(m_curveVisible);
    MakeRoom(m_curveColors);
    MakeRoom(m_curveWidths);
    m_curveData.emplace_back(points, points + size);
    m_curvePointCounts.push_back(pointCount);
    m_curveVisible.push_back(true);
    m_curveColors.push_back({1.0f, 0.0f, 0.0f, 1.0f});
    m_curveWidths.push_back(1.0f);
    return static_cast<int>(m_curveData.size()) - 1;
}

int CKivoFunctionPlotter::SetCurveColor(int index, unsigned long color) {
    if (!IsIndexOf(m_curveColors, index)) return badIndex;
    float rgba[4];
    ColorToRgba(color, rgba);
    m_curveColors[static_cast<std::size_t>(index)] = {rgba[0], rgba[1], rgba[2], rgba[3]};
    return 0;
}

int CKivoFunctionPlotter::SetCurveVisibility(int index, bool visible) {
    if (!IsIndexOf(m_curveVisible, index)) return badIndex;
    m_curveVisible[static_cast<std::size_t>(index)] = visible;
    return 0;
}

int CKivoFunctionPlotter::SetCurveWidth(int index, float width) {
    if (!IsIndexOf(m_curveWidths, index)) return badIndex;
    m_curveWidths[static_cast<std::size_t>(index)] = width;
    return 0;
}

void CKivoFunctionPlotter::RenderCurves() {
    glDisable(GL_LIGHTING);
    RenderCurveLines();
    glEnable(GL_LIGHTING);
    RenderCurveMarkers();
}

void CKivoFunctionPlotter::RenderCurveLines() {
    const ClipScope cut = CutScope(allAxes);
    ForEachVisibleCurve([this](const std::vector<float>& data, std::size_t index) {
        const std::size_t count = m_curvePointCounts[index];
        const std::size_t stride = data.size() / count;
        float point[3];
        const float width = m_curveWidths[index];
        glLineWidth((width > 0.0f ? width : 1.0f) * m_pixelScale); // OpenGL refuses others
        glBegin(GL_LINES);
        for (std::size_t k = 0; k + 1 < count; ++k)
            for (const std::size_t end : {k, k + 1}) {
                CopyCurvePoint(data, stride, end, point);
                glVertex3fv(point);
            }
        glEnd();
    });
    glLineWidth(1.0f);
}

void CKivoFunctionPlotter::RenderCurveMarkers() {
    const auto isLeftAt = Leaving(PictureAccess::Stop(*this));
    const float size = MarkerSize(0.7);
    ForEachVisibleCurve([this, size, isLeftAt](const std::vector<float>& data, std::size_t index) {
        const std::size_t count = m_curvePointCounts[index];
        const std::size_t stride = data.size() / count;
        float point[3];
        for (std::size_t k = 0; k < count && !isLeftAt(k); ++k) {
            CopyCurvePoint(data, stride, k, point);
            if (IsCutAway(point)) continue;
            DrawPointMarker(point[0], point[1], point[2], size, m_axisScale);
        }
    });
}

// Sets each visible curve's colour and draws it.
template <typename Draw>
void CKivoFunctionPlotter::ForEachVisibleCurve(Draw draw) {
    std::size_t index = 0;
    for (const std::vector<float>& data : m_curveData) {
        if (m_curveVisible[index]) {
            glColor4fv(&m_curveColors[index].red);
            draw(data, index);
        }
        ++index;
    }
}

// ---- In flat plots --------------------------------------------------------------------------------------

// Over the contours, whichever is nearer, and before and behind each other.
void CKivoFunctionPlotter::RenderFlatPoints() {
    glClear(GL_DEPTH_BUFFER_BIT);
    if (m_hasTracePoint != 0) RenderTraceGuideLines();
    glEnable(GL_LIGHTING);
    RenderTracePoints();
    RenderCurves();
    RenderMeasurePoints();
    glDisable(GL_LIGHTING);
}

// ---- Point size -----------------------------------------------------------------------------------------

unsigned int CKivoFunctionPlotter::GetPointRadiusPixelSize() const {
    constexpr float pastLargest = 4294967296.0f;
    if (m_pointRadiusPixelSize >= pastLargest) return std::numeric_limits<unsigned int>::max();
    return m_pointRadiusPixelSize > 0.0f ? static_cast<unsigned int>(m_pointRadiusPixelSize) : 0;
}

int CKivoFunctionPlotter::SetPointRadiusPixelSize(unsigned int pixels) {
    m_pointRadiusPixelSize = static_cast<float>(pixels);
    return 0;
}

// Radius of a marker in view-volume units.
float CKivoFunctionPlotter::MarkerSize(double factor) const {
    const double pixel = (m_viewRight - m_viewLeft) / m_plotViewport[2];
    return static_cast<float>(pixel * static_cast<double>(m_pointRadiusPixelSize) * factor *
                              static_cast<double>(m_pixelScale));
}

// ---- Measure groups -------------------------------------------------------------------------------------

CKivoMeasurePointGroup* CKivoFunctionPlotter::FindMeasureGroup(unsigned int index) const {
    return m_measureGroups && index < m_measureGroups->m_groups.size() ? m_measureGroups->m_groups[index]
                                                                       : nullptr;
}

int CKivoFunctionPlotter::AddMeasurePoints(unsigned int pointCount, unsigned int floatsPerPoint,
                                           float* points, const char* name) {
    if (pointCount == 0 || floatsPerPoint == 0 || !points) return refusedArgument;
    FloatCount(pointCount, floatsPerPoint); // the points are read when they are drawn
    const ContextScope context(m_hDC, m_hGLRC);
    if (m_measureGroups) m_measureGroups->AddGroup(pointCount, floatsPerPoint, points, name, m_textRenderer);
    return 0;
}

int CKivoFunctionPlotter::AddReferenceMeasurePoints(unsigned int pointCount, unsigned int floatsPerPoint,
                                                    float* points, const char* name) {
    return AddMeasurePoints(pointCount, floatsPerPoint, points, name);
}

unsigned int CKivoFunctionPlotter::GetNumMeasureGroups() {
    return m_measureGroups ? static_cast<unsigned int>(m_measureGroups->m_groups.size()) : 0;
}

unsigned int CKivoFunctionPlotter::GetMeasureGroupSize(unsigned int index) {
    const CKivoMeasurePointGroup* group = FindMeasureGroup(index);
    return group ? group->m_pointCount : 0;
}

int CKivoFunctionPlotter::ShowMeasureGroup(unsigned int index, bool show) {
    CKivoMeasurePointGroup* group = FindMeasureGroup(index);
    if (!group) return badIndex;
    group->m_visible = show;
    return 0;
}

bool CKivoFunctionPlotter::IsShowMeasureGroup(unsigned int index) {
    const CKivoMeasurePointGroup* group = FindMeasureGroup(index);
    return group && group->m_visible;
}

int CKivoFunctionPlotter::ShowAllMeasureGroups(bool show) {
    for (unsigned int i = 0; i < GetNumMeasureGroups(); ++i)
        ShowMeasureGroup(i, show);
    return 0;
}

unsigned long CKivoFunctionPlotter::GetMeasureGroupColor(unsigned int index) {
    const CKivoMeasurePointGroup* group = FindMeasureGroup(index);
    return group ? RgbaToColor(group->m_color) : 0;
}

int CKivoFunctionPlotter::SetMeasureGroupColor(unsigned int index, unsigned long color) {
    CKivoMeasurePointGroup* group = FindMeasureGroup(index);
    if (!group) return badIndex;
    group->SetColor(color);
    return 0;
}

int CKivoFunctionPlotter::GetMeasureGroupName(unsigned int index, std::string* name) {
    const CKivoMeasurePointGroup* group = FindMeasureGroup(index);
    if (!group) return badIndex;
    *name = group->m_name;
    return 0;
}

int CKivoFunctionPlotter::SetMeasureGroupName(unsigned int index, const char* name) {
    CKivoMeasurePointGroup* group = FindMeasureGroup(index);
    if (!group) return badIndex;
    const ContextScope context(m_hDC, m_hGLRC);
    group->SetName(name);
    return 0;
}

int CKivoFunctionPlotter::GetMeasureGroupIndexByName(std::string name) {
    for (unsigned int i = 0; i < GetNumMeasureGroups(); ++i)
        if (FindMeasureGroup(i)->m_name == name) return static_cast<int>(i);
    return -1;
}

void CKivoFunctionPlotter::RenderMeasurePoints() {
    const auto isLeftAt = Leaving(PictureAccess::Stop(*this));
    const float size = MarkerSize(1.0);
    const MatrixModeScope modelView(GL_MODELVIEW);
    for (unsigned int g = 0; g < GetNumMeasureGroups(); ++g) {
        const CKivoMeasurePointGroup& group = *FindMeasureGroup(g);
        if (!group.m_visible) continue;
        glColor4fv(group.m_color);
        const std::size_t stride = group.m_floatsPerPoint;
        for (std::size_t k = 0; k < group.m_pointCount && !isLeftAt(k); ++k) {
            const float* p = group.m_points + k * stride;
            const float point[] = {p[0], stride > 1 ? p[1] : 0.0f, stride > 2 ? p[2] : 0.0f};
            if (!IsCutAway(point)) DrawPointMarker(point[0], point[1], point[2], size, m_axisScale);
        }
    }
}

void CKivoFunctionPlotter::RenderLegend() {
    RenderGroupNames(true);
}

struct CKivoFunctionPlotter::SNameList {
    std::size_t rowCount = 0;
    int width = 0;
    int rowHeight = 0;
    bool hasTexts = false; // of the host's
    int top = 0;           // pixels below the margin

    double Height() const { return static_cast<double>(rowHeight) * static_cast<double>(rowCount); }
    double WidthWithSquare() const {
        return width + rowHeight * static_cast<double>(nameSquare * (1.0f + nameSquareGap));
    }
};

CKivoFunctionPlotter::SNameList CKivoFunctionPlotter::MeasureGroupNames(bool areHiddenListed) const {
    SNameList list;
    for (unsigned int g = 0; const CKivoMeasurePointGroup* group = FindMeasureGroup(g); ++g) {
        if (!areHiddenListed && !group->m_visible) continue;
        const ListedRows rows(*group);
        list.rowCount += rows.count;
        list.hasTexts = list.hasTexts || !group->m_listedImages.empty();
        for (std::size_t i = 0; i < rows.count; ++i) {
            list.width = std::max(list.width, rows.images[i].width);
            list.rowHeight = std::max(list.rowHeight, rows.images[i].height);
        }
    }
    if (!list.hasTexts || list.rowHeight == 0) return list;
    // Many rows, and long ones, keep clear of the title, and in the plot.
    const double width = m_plotViewport[2], height = m_plotViewport[3], margin = nameListMargin * width;
    const SKivoTexImage* const title = m_plotTitleImage;
    const bool hasTitle = title && title->texture != 0 && title->pixels;
    if (hasTitle && width - margin - list.WidthWithSquare() < 0.5 * (width + title->width))
        list.top = title->height;
    const double room = std::max(height - list.top - 2.0 * margin, 0.0);
    list.rowCount = std::min(list.rowCount, static_cast<std::size_t>(room / list.rowHeight));
    return list;
}

// Pale, so that what lies behind is still to be seen.
void CKivoFunctionPlotter::RenderListGround(const float (*corners)[3]) const {
    glPushAttrib(GL_COLOR_BUFFER_BIT | GL_ENABLE_BIT);
    glDisable(GL_LIGHTING);
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    glEnable(GL_BLEND);
    glColor4f(m_backgroundColor[0], m_backgroundColor[1], m_backgroundColor[2], listOpacity);
    glBegin(GL_QUADS);
    for (int i = 0; i < 4; ++i)
        glVertex3fv(corners[i]);
    glEnd();
    glPopAttrib();
}

void CKivoFunctionPlotter::RenderGroupNames(bool areHiddenListed) {
    const SNameList list = MeasureGroupNames(areHiddenListed);
    const float pixel = static_cast<float>(PixelToWorld(1.0));
    const float margin = static_cast<float>((m_viewRight - m_viewLeft) * nameListMargin);
    const float rowHeight = static_cast<float>(list.rowHeight) * pixel;
    const float square = rowHeight * nameSquare;
    const float nameX = static_cast<float>(m_viewRight) - margin - static_cast<float>(list.width) * pixel;
    const float squareRight = nameX - nameSquareGap * square;
    const float squareLeft = squareRight - square;
    const float z = static_cast<float>((m_viewNear + m_viewFar) / 2.0);
    const float listTop = static_cast<float>(m_viewTop) - margin - static_cast<float>(list.top) * pixel;
    float y = listTop - rowHeight;

    const MatrixModeScope modelView(GL_MODELVIEW);
    glPushMatrix();
    glLoadIdentity();
    if (list.hasTexts && !areHiddenListed) {
        const float right = nameX + static_cast<float>(list.width) * pixel;
        const float bottom = listTop - static_cast<float>(list.rowCount) * rowHeight;
        const float ground[4][3] = {
            {squareLeft, bottom, z}, {right, bottom, z}, {right, listTop, z}, {squareLeft, listTop, z}};
        RenderListGround(ground);
    }
    std::size_t rowsLeft = list.rowCount;
    for (unsigned int g = 0; const CKivoMeasurePointGroup* group = FindMeasureGroup(g); ++g) {
        if (!areHiddenListed && !group->m_visible) continue;
        const ListedRows rows(*group);
        for (std::size_t i = 0; i < rows.count && rowsLeft > 0; ++i, --rowsLeft) {
            const SKivoTexImage& image = rows.images[i];
            const float right = nameX + static_cast<float>(image.width) * pixel;
            const float top = y + static_cast<float>(image.height) * pixel;
            const float corners[4][3] = {{nameX, y, z}, {right, y, z}, {right, top, z}, {nameX, top, z}};
            RenderListedText(corners, image);
            if (i == 0) RenderListSquare(*group, y, z, squareLeft, squareRight);
            y -= rowHeight;
        }
    }
    glPopMatrix();
}

// Where frames list the groups that are shown, in pixels of the plot.
void CKivoFunctionPlotter::AddGroupNamesPlace(std::vector<PlacedImage>* places) const {
    const SNameList list = MeasureGroupNames(false);
    if (list.rowCount == 0) return;
    const double margin = nameListMargin * m_plotViewport[2];
    PlacedImage place;
    place.halfWidth = 0.5 * list.WidthWithSquare();
    place.halfHeight = 0.5 * list.Height();
    place.center = {m_plotViewport[2] - margin - place.halfWidth,
                    m_plotViewport[3] - margin - list.top - place.halfHeight};
    place.isShown = true;
    places->push_back(place);
}

// On its quad, with the caller's lighting afterwards.
void CKivoFunctionPlotter::RenderListedText(const float (*corners)[3], const SKivoTexImage& image) {
    const GLboolean isLit = glIsEnabled(GL_LIGHTING);
    RenderTextTex(corners[0], corners[1], corners[2], corners[3], &image);
    if (!isLit) glDisable(GL_LIGHTING);
}

// In the group's colour, left of its first text.
void CKivoFunctionPlotter::RenderListSquare(const CKivoMeasurePointGroup& group, float y, float z, float left,
                                            float right) {
    const float top = y + (right - left);
    glColor4fv(group.m_color);
    glBegin(GL_QUADS);
    glVertex3f(left, y, z);
    glVertex3f(right, y, z);
    glVertex3f(right, top, z);
    glVertex3f(left, top, z);
    glEnd();
}

} // namespace KivoDrawingTools
