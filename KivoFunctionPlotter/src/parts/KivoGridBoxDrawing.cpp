// CKivoGridBox: drawing the 3-D box and the frames of the flat plots.
#include "KivoGridBox.h"

#include "drawing/GLScopes.h"
#include "drawing/TexturedQuad.h"
#include "window_system/WindowSystem.h"

#include <algorithm>
#include <cstddef>
#include <vector>

namespace KivoDrawingTools {

namespace {

constexpr float axisColors[3][4] = {{1, 0, 0, 1}, {0, 1, 0, 1}, {0, 0, 1, 1}};
constexpr float lineColor[] = {0, 0, 0, 1};
constexpr float gridColor[] = {0.8f, 0.8f, 0.8f, 1};

void SetPoint(float* point, float x, float y, float z) {
    point[0] = x;
    point[1] = y;
    point[2] = z;
}

// A vertex shifted along an axis.
void Vertex(const float* point, int axis, float shift) {
    float shifted[] = {point[0], point[1], point[2]};
    shifted[axis] += shift;
    glVertex3fv(shifted);
}

// A line of its own in a flat plot, from (h0, v0) to (h1, v1).
class FlatPen {
public:
    FlatPen(int horizontal, int vertical, const float* plane)
        : m_horizontal(horizontal), m_vertical(vertical) {
        std::copy(plane, plane + 3, m_point);
    }

    const float* At(float h, float v) {
        m_point[m_horizontal] = h;
        m_point[m_vertical] = v;
        return m_point;
    }

    void Line(const float* color, float h0, float v0, float h1, float v1) {
        glColor4fv(color);
        glBegin(GL_LINES);
        glVertex3fv(At(h0, v0));
        glVertex3fv(At(h1, v1));
        glEnd();
    }

private:
    int m_horizontal;
    int m_vertical;
    float m_point[3];
};

TextImageSize SizeOf(const SKivoTexImage& image) {
    if (image.texture == 0 || !image.pixels) return {}; // nothing is drawn of it
    return {static_cast<double>(image.width), static_cast<double>(image.height)};
}

void DrawPlaced(const PlacedImage& place, const SKivoTexImage& image) {
    if (!place.isShown) return;
    const float center[] = {static_cast<float>(place.center.x), static_cast<float>(place.center.y), 0.0f};
    const float right[] = {static_cast<float>(place.right.x), static_cast<float>(place.right.y), 0.0f};
    const float up[] = {static_cast<float>(place.up.x), static_cast<float>(place.up.y), 0.0f};
    DrawTexturedQuad(center, right, up, 2.0 * place.halfWidth / image.width,
                     2.0 * place.halfHeight / image.height, image);
}

struct UnitVector {
    explicit UnitVector(int axis, float length = 1.0f) { components[axis] = length; }
    float components[3] = {};
};

// The directions in which the texts of a flat plot run: along its axes or, where one is mirrored on the
// screen, against it, so that they can be read.
struct ReadingDirections {
    ReadingDirections(int horizontal, int vertical)
        : ReadingDirections(horizontal, vertical, SignOnScreen(horizontal, 0), SignOnScreen(vertical, 1)) {}

    UnitVector right, up, left;

private:
    ReadingDirections(int horizontal, int vertical, float rightSign, float upSign)
        : right(horizontal, rightSign), up(vertical, upSign), left(horizontal, -rightSign) {}

    // Of an axis along the screen's x (0) or y (1).
    static float SignOnScreen(int axis, int screenAxis) {
        double modelView[16] = {}; // stays so where no context is current
        glGetDoublev(GL_MODELVIEW_MATRIX, modelView);
        return modelView[4 * axis + screenAxis] < 0.0 ? -1.0f : 1.0f;
    }
};

} // namespace

// ---- The 3-D box ----------------------------------------------------------------------------------------

void CKivoGridBox::Render(double worldPerPixel, const double* axisScale, const double* rotation) {
    ChooseBackPlanes(rotation);
    UpdatePlaneGeometry();
    float pixelSize[3];
    for (int axis = 0; axis < 3; ++axis)
        pixelSize[axis] = static_cast<float>(worldPerPixel / axisScale[axis]);
    RenderOutlines();
    if (m_showGridLines) RenderGridLines();
    RenderTickMarks(pixelSize);
    PlaceLabels(worldPerPixel, axisScale, rotation);
    RenderLabels();
}

void CKivoGridBox::UpdatePlaneGeometry() {
    const float* low = m_boxMin;
    const float* high = m_boxMax;
    const bool backXLow = IsGridAtMin(0), backYLow = IsGridAtMin(1), backZLow = IsGridAtMin(2);
    const float backX = GridFace(0), frontX = backXLow ? high[0] : low[0];
    const float backY = GridFace(1), frontY = backYLow ? high[1] : low[1];
    const float backZ = GridFace(2), frontZ = backZLow ? high[2] : low[2];

    SetPoint(m_tickBase[0], low[0], frontY, backZ);
    SetPoint(m_tickBase[1], frontX, low[1], backZ);
    SetPoint(m_tickBase[2], backYLow ? high[0] : low[0], backXLow ? low[1] : high[1], low[2]);
    SetPoint(m_gridCorner[0], low[0], backY, backZ);
    SetPoint(m_gridCorner[1], backX, low[1], backZ);
    SetPoint(m_gridCorner[2], backX, backY, low[2]);
    SetPoint(m_gridEnd[0], low[0], backY, frontZ);
    SetPoint(m_gridEnd[1], backX, low[1], frontZ);
    SetPoint(m_gridEnd[2], backYLow ? low[0] : high[0], backXLow ? high[1] : low[1], low[2]);

    const float outOfZ = backZLow ? -1.0f : 1.0f;
    SetPoint(m_tickDirection[0], 0, 0, outOfZ);
    SetPoint(m_tickDirection[1], 0, 0, outOfZ);
    if (backYLow == backXLow)
        SetPoint(m_tickDirection[2], 0, backYLow ? -1.0f : 1.0f, 0);
    else
        SetPoint(m_tickDirection[2], backYLow ? 1.0f : -1.0f, 0, 0);
    for (int axis = 0; axis < 3; ++axis)
        for (int i = 0; i < 3; ++i)
            m_oppositeTickDirection[axis][i] = -m_tickDirection[axis][i];
}

void CKivoGridBox::RenderOutlines() const {
    const float* low = m_boxMin;
    const float* high = m_boxMax;
    const float backX = m_gridCorner[2][0];
    const float backY = m_gridCorner[2][1];
    const float backZ = m_gridCorner[0][2];
    const float loops[3][4][3] = {{{low[0], backY, low[2]},
                                   {low[0], backY, high[2]},
                                   {high[0], backY, high[2]},
                                   {high[0], backY, low[2]}},
                                  {{low[0], low[1], backZ},
                                   {high[0], low[1], backZ},
                                   {high[0], high[1], backZ},
                                   {low[0], high[1], backZ}},
                                  {{backX, low[1], low[2]},
                                   {backX, high[1], low[2]},
                                   {backX, high[1], high[2]},
                                   {backX, low[1], high[2]}}};
    glColor4fv(lineColor);
    for (const auto& loop : loops) {
        glBegin(GL_LINE_LOOP);
        for (const auto& corner : loop)
            glVertex3fv(corner);
        glEnd();
    }
}

void CKivoGridBox::RenderGridLines() const {
    // The first and last line of an axis run along the outline. A hair behind it, they cannot break it up.
    glPushAttrib(GL_VIEWPORT_BIT);
    glDepthRange(1e-5, 1.0);
    glColor4fv(gridColor);
    glBegin(GL_LINES);
    for (int axis = 0; axis < 3; ++axis) {
        const float* positions = m_tickPositions[axis];
        const unsigned int count = positions ? m_tickIntervals[axis] + 1 : 0;
        for (unsigned int i = 0; i < count; ++i) {
            Vertex(m_tickBase[axis], axis, positions[i]);
            Vertex(m_gridCorner[axis], axis, positions[i]);
            Vertex(m_gridCorner[axis], axis, positions[i]);
            Vertex(m_gridEnd[axis], axis, positions[i]);
        }
    }
    glEnd();
    glPopAttrib();
}

void CKivoGridBox::RenderTickMarks(const float* pixelSize) const {
    const bool zTicksAlongY = m_tickDirection[2][1] != 0.0f;
    const float lengths[] = {m_tickLength * pixelSize[2], m_tickLength * pixelSize[2],
                             m_tickLength * pixelSize[zTicksAlongY ? 1 : 0]};
    glColor4fv(lineColor);
    glBegin(GL_LINES);
    for (int axis = 0; axis < 3; ++axis) {
        const float* positions = m_tickPositions[axis];
        const unsigned int count = positions ? m_tickIntervals[axis] + 1 : 0;
        float end[3];
        for (int i = 0; i < 3; ++i)
            end[i] = m_tickBase[axis][i] + lengths[axis] * m_tickDirection[axis][i];
        for (unsigned int i = 0; i < count; ++i) {
            Vertex(m_tickBase[axis], axis, positions[i]);
            Vertex(end, axis, positions[i]);
        }
    }
    glEnd();
}

// Finds out where labels and titles stand, in pixels of the viewport.
void CKivoGridBox::PlaceLabels(double worldPerPixel, const double* axisScale, const double* rotation) {
    GLint viewport[4] = {};
    GLdouble modelView[16] = {}, projection[16] = {};
    glGetIntegerv(GL_VIEWPORT, viewport);
    glGetDoublev(GL_MODELVIEW_MATRIX, modelView);
    glGetDoublev(GL_PROJECTION_MATRIX, projection);
    GLdouble x = 0.0, y = 0.0, depth = 0.0;
    gluProject(0.5 * (m_boxMin[0] + m_boxMax[0]), 0.5 * (m_boxMin[1] + m_boxMax[1]),
               0.5 * (m_boxMin[2] + m_boxMax[2]), modelView, projection, viewport, &x, &y, &depth);

    const AxisBoxInData box = {
        m_boxMin, m_boxMax, {IsGridAtMin(0), IsGridAtMin(1), IsGridAtMin(2)}, m_tickBase, m_tickDirection};
    const ScreenVector center = {x - viewport[0], y - viewport[1]};
    ProjectAxisBox(box, worldPerPixel, axisScale, rotation, center, &m_screenBox);
    m_screenBox.labelOffset = static_cast<double>(m_labelOffset);
    m_screenBox.viewport = {static_cast<double>(viewport[2]), static_cast<double>(viewport[3])};
    for (int axis = 0; axis < 3; ++axis) {
        AxisEdge& edge = m_screenBox.axes[axis];
        const SKivoTexImage* labels = m_tickLabels[axis];
        const unsigned int count = labels && m_tickPositions[axis] ? m_tickIntervals[axis] + 1 : 0;
        const double length = static_cast<double>(m_boxMax[axis] - m_boxMin[axis]);
        edge.ticks.resize(count);
        for (unsigned int i = 0; i < count; ++i) {
            edge.ticks[i].fraction = static_cast<double>(m_tickPositions[axis][i]) / length;
            edge.ticks[i].label = SizeOf(labels[i]);
        }
        edge.title = SizeOf(m_axisTitleImage[axis]);
    }
    m_labelLayout.Place(m_screenBox);
}

// In pixels of the viewport. Text stands over everything: with planes that do not switch, labels may lie in
// front of the surface, which is drawn later.
void CKivoGridBox::RenderLabels() const {
    if (!(m_screenBox.viewport.x > 0.0) || !(m_screenBox.viewport.y > 0.0)) return;
    glPushAttrib(GL_ENABLE_BIT | GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT | GL_VIEWPORT_BIT);
    const MatrixModeScope projection(GL_PROJECTION);
    glPushMatrix();
    glLoadIdentity();
    glOrtho(0.0, m_screenBox.viewport.x, 0.0, m_screenBox.viewport.y, -1.0, 1.0);
    glMatrixMode(GL_MODELVIEW);
    glPushMatrix();
    glLoadIdentity();

    glDisable(GL_DEPTH_TEST);
    DrawLabelQuads();
    // Once more into the depth buffer alone: only the ink, as the nearest of all.
    glColorMask(GL_FALSE, GL_FALSE, GL_FALSE, GL_FALSE);
    glEnable(GL_ALPHA_TEST);
    glAlphaFunc(GL_GREATER, 0.25f);
    glEnable(GL_DEPTH_TEST);
    glDepthFunc(GL_ALWAYS);
    glDepthRange(0.0, 0.0);
    DrawLabelQuads();

    glPopMatrix();
    glMatrixMode(GL_PROJECTION);
    glPopMatrix();
    glPopAttrib();
}

void CKivoGridBox::DrawLabelQuads() const {
    for (int axis = 0; axis < 3; ++axis) {
        const std::vector<PlacedImage>& places = m_labelLayout.Labels(axis);
        for (std::size_t i = 0; i < places.size(); ++i)
            DrawPlaced(places[i], m_tickLabels[axis][i]);
        DrawPlaced(m_labelLayout.Title(axis), m_axisTitleImage[axis]);
    }
}

// ---- Frames of the flat plots ---------------------------------------------------------------------------

void CKivoGridBox::RenderXYFrame(double worldPerPixel, const double* axisScale) {
    RenderFrame(0, 1, true, worldPerPixel, axisScale);
}

void CKivoGridBox::RenderYZFrame(double worldPerPixel, const double* axisScale) {
    RenderFrame(1, 2, false, worldPerPixel, axisScale);
}

void CKivoGridBox::RenderXZFrame(double worldPerPixel, const double* axisScale) {
    RenderFrame(0, 2, false, worldPerPixel, axisScale);
}

void CKivoGridBox::RenderFrame(int horizontal, int vertical, bool isStaggered, double worldPerPixel,
                               const double* axisScale) const {
    float pixelSize[3];
    for (int axis = 0; axis < 3; ++axis)
        pixelSize[axis] = static_cast<float>(worldPerPixel / axisScale[axis]);
    const float sh = pixelSize[horizontal];
    const float sv = pixelSize[vertical];
    const float hMin = m_boxMin[horizontal], hMax = m_boxMax[horizontal];
    const float vMin = m_boxMin[vertical], vMax = m_boxMax[vertical];
    FlatPen pen(horizontal, vertical, m_boxMin);
    pen.Line(axisColors[horizontal], hMin, vMin, hMax, vMin);
    pen.Line(axisColors[vertical], hMin, vMin, hMin, vMax);

    const ReadingDirections text(horizontal, vertical);
    const float labelRows = RenderHorizontalTicks(horizontal, vertical, isStaggered, pixelSize);
    const SKivoTexImage& horizontalTitle = m_axisTitleImage[horizontal];
    const float titleV =
        vMin - m_tickLength * sv - labelRows - static_cast<float>(horizontalTitle.height) * sv;
    DrawTexturedQuad(pen.At((hMin + hMax) / 2.0f, titleV), text.right.components, text.up.components, sh, sv,
                     horizontalTitle);

    // The vertical title reads from bottom to top.
    const float labelWidth = RenderVerticalTicks(horizontal, vertical, pixelSize);
    const SKivoTexImage& verticalTitle = m_axisTitleImage[vertical];
    const float titleH =
        hMin - m_tickLength * sh - labelWidth - static_cast<float>(verticalTitle.height) * sh * 1.85f;
    DrawTexturedQuad(pen.At(titleH, (vMin + vMax) / 2.0f), text.up.components, text.left.components, sv, sh,
                     verticalTitle);
}

// Returns the room that the labels take below the ticks.
float CKivoGridBox::RenderHorizontalTicks(int horizontal, int vertical, bool isStaggered,
                                          const float* pixelSize) const {
    const float vMin = m_boxMin[vertical];
    const float tickEnd = vMin - m_tickLength * pixelSize[vertical];
    const ReadingDirections text(horizontal, vertical);
    const unsigned int count = m_tickPositions[horizontal] ? m_tickIntervals[horizontal] + 1 : 0;
    FlatPen pen(horizontal, vertical, m_boxMin);
    float room = 0.0f;
    for (unsigned int i = 0; i < count; ++i) {
        const float p = m_boxMin[horizontal] + m_tickPositions[horizontal][i];
        pen.Line(lineColor, p, vMin, p, tickEnd);
        if (m_showGridLines) pen.Line(gridColor, p, vMin, p, m_boxMax[vertical]);
        if (!m_tickLabels[horizontal]) continue;
        const SKivoTexImage& label = m_tickLabels[horizontal][i];
        const float height = static_cast<float>(label.height) * pixelSize[vertical];
        room = std::max(room, 2.15f * height);
        float v = tickEnd - 0.5f * height;
        if (isStaggered && i % 2 == 1) v -= 1.15f * height;
        DrawTexturedQuad(pen.At(p, v), text.right.components, text.up.components, pixelSize[horizontal],
                         pixelSize[vertical], label);
    }
    return room;
}

// Returns the width of the widest label.
float CKivoGridBox::RenderVerticalTicks(int horizontal, int vertical, const float* pixelSize) const {
    const float hMin = m_boxMin[horizontal];
    const float tickEnd = hMin - m_tickLength * pixelSize[horizontal];
    const ReadingDirections text(horizontal, vertical);
    const unsigned int count = m_tickPositions[vertical] ? m_tickIntervals[vertical] + 1 : 0;
    FlatPen pen(horizontal, vertical, m_boxMin);
    float widest = 0.0f;
    for (unsigned int i = 0; i < count; ++i) {
        const float q = m_boxMin[vertical] + m_tickPositions[vertical][i];
        pen.Line(lineColor, hMin, q, tickEnd, q);
        if (m_showGridLines) pen.Line(gridColor, hMin, q, m_boxMax[horizontal], q);
        if (!m_tickLabels[vertical]) continue;
        const SKivoTexImage& label = m_tickLabels[vertical][i];
        const float width = static_cast<float>(label.width) * pixelSize[horizontal];
        widest = std::max(widest, width);
        DrawTexturedQuad(pen.At(tickEnd - 0.8f * width, q), text.right.components, text.up.components,
                         pixelSize[horizontal], pixelSize[vertical], label);
    }
    return widest;
}

} // namespace KivoDrawingTools
