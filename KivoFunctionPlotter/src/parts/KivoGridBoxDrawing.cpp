// CKivoGridBox: drawing the 3-D box and the frames of the flat plots.
#include "KivoGridBox.h"

#include "drawing/GLScopes.h"
#include "drawing/TexturedQuad.h"
#include "window_system/WindowSystem.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <new>
#include <vector>

namespace KivoDrawingTools {

namespace {

constexpr float axisColors[3][4] = {{1, 0, 0, 1}, {0, 1, 0, 1}, {0, 0, 1, 1}};

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

struct UnitVector {
    explicit UnitVector(int axis, float length = 1.0f) { components[axis] = length; }
    float components[3] = {};
};

// The directions, in data units, in which the texts of a flat plot run: along its axes or, where one is
// mirrored on the screen, against it, so that they can be read.
struct ReadingDirections {
    ReadingDirections(int horizontal, int vertical, const float* pixelSize)
        : ReadingDirections(horizontal, vertical, SignOnScreen(horizontal, 0, pixelSize),
                            SignOnScreen(vertical, 1, pixelSize)) {}

    UnitVector right, up, left;

private:
    ReadingDirections(int horizontal, int vertical, float rightSign, float upSign)
        : right(horizontal, rightSign), up(vertical, upSign), left(horizontal, -rightSign) {}

    // Of an axis along the screen's x (0) or y (1), drawn at so many data units per pixel. Where the axis
    // scale is negative, so is the size of a pixel, and with it that of every image: the matrix tells the
    // sign of both together.
    static float SignOnScreen(int axis, int screenAxis, const float* pixelSize) {
        double modelView[16] = {}; // stays so where no context is current
        glGetDoublev(GL_MODELVIEW_MATRIX, modelView);
        const double alongPixel = modelView[4 * axis + screenAxis] * static_cast<double>(pixelSize[axis]);
        return alongPixel < 0.0 ? -1.0f : 1.0f;
    }
};

// The labels of one axis of a flat plot, in pixels of the screen. Those of a horizontal axis may stand in two
// rows.
class FlatLabels {
public:
    FlatLabels(const SKivoTexImage* images, const float* positions, unsigned int count, float pixelSize,
               float pixelScale, bool isHorizontal, bool isStaggered)
        : m_images(images), m_positions(positions), m_count(images ? count : 0),
          m_pixelSize(static_cast<double>(pixelSize)), m_gap(leastGap * static_cast<double>(pixelScale)),
          m_isHorizontal(isHorizontal), m_isStaggered(isStaggered) {}

    // Of 1, 2, 5, 10, ... the least that leaves labels that do not touch.
    std::size_t Stride() const {
        std::size_t stride = LeastLabelStride(m_count);
        while (stride < m_count && TouchAt(stride))
            stride = NextLabelStride(stride);
        return stride;
    }

    bool IsInLowerRow(std::size_t i) const { return m_isStaggered && i % 2 == 1; }

private:
    // In two rows, the neighbour in the same row may be the one before the last.
    bool TouchAt(std::size_t stride) const {
        for (std::size_t i = stride; i < m_count; i += stride)
            if (Touch(i - stride, i) || (i >= 2 * stride && Touch(i - 2 * stride, i))) return true;
        return false;
    }

    bool Touch(std::size_t a, std::size_t b) const {
        if (IsInLowerRow(a) != IsInLowerRow(b)) return false;
        const double distance = std::abs(static_cast<double>(m_positions[b] - m_positions[a]) / m_pixelSize);
        const double extents =
            m_isHorizontal ? m_images[a].width + m_images[b].width : m_images[a].height + m_images[b].height;
        return distance < 0.5 * extents + (m_isHorizontal ? m_gap : 0.0);
    }

    static constexpr double leastGap = 2.0; // nearer, the digits of two neighbours read as one number

    const SKivoTexImage* m_images;
    const float* m_positions;
    std::size_t m_count;
    double m_pixelSize;
    double m_gap;
    bool m_isHorizontal;
    bool m_isStaggered;
};

// A text of a flat plot. It leaves the depth buffer alone: the ground of an image hides neither the text
// beside it nor the contours, which are drawn later.
void DrawFlatText(const float* center, const UnitVector& right, const UnitVector& up, float scaleRight,
                  float scaleUp, const SKivoTexImage& image) {
    glPushAttrib(GL_DEPTH_BUFFER_BIT);
    glDepthMask(GL_FALSE);
    DrawTexturedQuad(center, right.components, up.components, static_cast<double>(scaleRight),
                     static_cast<double>(scaleUp), image);
    glPopAttrib();
}

} // namespace

// ---- The 3-D box ----------------------------------------------------------------------------------------

void CKivoGridBox::Render(double worldPerPixel, const double* axisScale, const double* rotation) {
    const LineWidthScope lines(m_pixelScale);
    UpdateMirroring(axisScale);
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

// A minimum above the maximum mirrors an axis only until the axis scale, which has its sign, is fitted to it.
void CKivoGridBox::UpdateMirroring(const double* axisScale) {
    for (int axis = 0; axis < 3; ++axis)
        m_isMirrored[axis] = (m_boxMax[axis] - m_boxMin[axis] < 0.0f) != (axisScale[axis] < 0.0);
}

// The side of an axis where its least numbers are seen, or would be if its range were not turned round.
float CKivoGridBox::LowSide(int axis) const {
    return m_isMirrored[axis] ? m_boxMax[axis] : m_boxMin[axis];
}

float CKivoGridBox::HighSide(int axis) const {
    return m_isMirrored[axis] ? m_boxMin[axis] : m_boxMax[axis];
}

// Along the other axes the box is taken as it is seen, so that the ticks stay on its near edges.
void CKivoGridBox::UpdatePlaneGeometry() {
    const float* start = m_boxMin;
    const float low[] = {LowSide(0), LowSide(1), LowSide(2)};
    const float high[] = {HighSide(0), HighSide(1), HighSide(2)};
    const bool backYLow = IsGridAtMin(1) != m_isMirrored[1];
    const bool backZLow = IsGridAtMin(2) != m_isMirrored[2];
    const bool backXLow = IsGridAtMin(0) != m_isMirrored[0];
    const float backX = backXLow ? low[0] : high[0], frontX = backXLow ? high[0] : low[0];
    const float backY = backYLow ? low[1] : high[1], frontY = backYLow ? high[1] : low[1];
    const float backZ = backZLow ? low[2] : high[2], frontZ = backZLow ? high[2] : low[2];

    SetPoint(m_tickBase[0], start[0], frontY, backZ);
    SetPoint(m_tickBase[1], frontX, start[1], backZ);
    SetPoint(m_tickBase[2], backYLow ? high[0] : low[0], backXLow ? low[1] : high[1], start[2]);
    SetPoint(m_gridCorner[0], start[0], backY, backZ);
    SetPoint(m_gridCorner[1], backX, start[1], backZ);
    SetPoint(m_gridCorner[2], backX, backY, start[2]);
    SetPoint(m_gridEnd[0], start[0], backY, frontZ);
    SetPoint(m_gridEnd[1], backX, start[1], frontZ);
    SetPoint(m_gridEnd[2], backYLow ? low[0] : high[0], backXLow ? high[1] : low[1], start[2]);

    // Out of the low side, in data units; the sign of the axis scale is in the ticks' length.
    const float outOfLow[] = {m_isMirrored[0] ? 1.0f : -1.0f, m_isMirrored[1] ? 1.0f : -1.0f,
                              m_isMirrored[2] ? 1.0f : -1.0f};
    const float outOfZ = backZLow ? outOfLow[2] : -outOfLow[2];
    SetPoint(m_tickDirection[0], 0, 0, outOfZ);
    SetPoint(m_tickDirection[1], 0, 0, outOfZ);
    if (backYLow == backXLow)
        SetPoint(m_tickDirection[2], 0, backYLow ? outOfLow[1] : -outOfLow[1], 0);
    else
        SetPoint(m_tickDirection[2], backYLow ? -outOfLow[0] : outOfLow[0], 0, 0);
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
    glColor4fv(m_lineColor);
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
    glColor4fv(m_gridColor);
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
    const float lengths[] = {TickLength() * pixelSize[2], TickLength() * pixelSize[2],
                             TickLength() * pixelSize[zTicksAlongY ? 1 : 0]};
    glColor4fv(m_lineColor);
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

// What is drawn of an image, in the box's pixels.
TextImageSize CKivoGridBox::SizeOf(const SKivoTexImage& image) const {
    if (image.texture == 0 || !image.pixels) return {};
    const double scale = static_cast<double>(m_pixelScale);
    return {image.width / scale, image.height / scale};
}

// Finds out where labels and titles stand, in the box's pixels of the viewport.
void CKivoGridBox::PlaceLabels(double worldPerPixel, const double* axisScale, const double* rotation) {
    const View view = CurrentView();
    const int* const viewport = view.viewport;
    GLdouble x = 0.0, y = 0.0, depth = 0.0;
    for (int axis = 0; axis < 3; ++axis)
        for (const int end : {0, 1}) {
            double point[] = {double{m_tickBase[axis][0]}, double{m_tickBase[axis][1]},
                              double{m_tickBase[axis][2]}};
            point[axis] = static_cast<double>(end == 0 ? m_boxMin[axis] : m_boxMax[axis]);
            gluProject(point[0], point[1], point[2], view.modelView, view.projection, viewport, &x, &y,
                       &m_edgeDepth[axis][end]);
        }
    gluProject(0.5 * (m_boxMin[0] + m_boxMax[0]), 0.5 * (m_boxMin[1] + m_boxMax[1]),
               0.5 * (m_boxMin[2] + m_boxMax[2]), view.modelView, view.projection, viewport, &x, &y, &depth);

    const AxisBoxInData box = {
        m_boxMin, m_boxMax, {IsGridAtMin(0), IsGridAtMin(1), IsGridAtMin(2)}, m_tickBase, m_tickDirection};
    const double scale = static_cast<double>(m_pixelScale);
    const ScreenVector center = {(x - viewport[0]) / scale, (y - viewport[1]) / scale};
    ProjectAxisBox(box, worldPerPixel * scale, axisScale, rotation, center, &m_screenBox);
    m_screenBox.labelOffset = static_cast<double>(m_labelOffset);
    m_screenBox.isEachTitleWanted = true;
    m_screenBox.viewport = {viewport[2] / scale, viewport[3] / scale};
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

// In pixels of the screen, over the box. What is drawn later hides the ink where it lies in front of it:
// with planes that do not switch, an edge with labels may lie before or behind the surface. Otherwise labels
// stand beside the box, and nothing hides them.
void CKivoGridBox::RenderLabels() const {
    if (!(m_screenBox.viewport.x > 0.0) || !(m_screenBox.viewport.y > 0.0)) return;
    glPushAttrib(GL_ENABLE_BIT | GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT | GL_VIEWPORT_BIT);
    const MatrixModeScope projection(GL_PROJECTION);
    glPushMatrix();
    glLoadIdentity();
    const double scale = static_cast<double>(m_pixelScale);
    glOrtho(0.0, m_screenBox.viewport.x * scale, 0.0, m_screenBox.viewport.y * scale, -1.0, 1.0);
    glMatrixMode(GL_MODELVIEW);
    glPushMatrix();
    glLoadIdentity();

    // The nearest of all, or at its place: then lines of the box may lie in front of it, too.
    if (m_autoSwitchFramePlanes)
        glDisable(GL_DEPTH_TEST);
    else
        glDepthMask(GL_FALSE);
    DrawLabelQuads();
    // Once more into the depth buffer alone: only the ink.
    glColorMask(GL_FALSE, GL_FALSE, GL_FALSE, GL_FALSE);
    glEnable(GL_ALPHA_TEST);
    glAlphaFunc(GL_GREATER, 0.25f);
    glEnable(GL_DEPTH_TEST);
    glDepthMask(GL_TRUE);
    if (m_autoSwitchFramePlanes) {
        glDepthFunc(GL_ALWAYS);
        glDepthRange(0.0, 0.0);
    }
    DrawLabelQuads();

    glPopMatrix();
    glMatrixMode(GL_PROJECTION);
    glPopMatrix();
    glPopAttrib();
}

// Of what belongs to a place on the edge of an axis; with switching planes all are alike.
double CKivoGridBox::LabelDepth(int axis, double fraction) const {
    if (m_autoSwitchFramePlanes) return 0.5;
    const double* ends = m_edgeDepth[axis];
    const double depth = ends[0] + fraction * (ends[1] - ends[0]);
    return depth > 0.0 ? std::min(depth, 1.0) : 0.0; // 0 also for what is no number
}

CKivoGridBox::View CKivoGridBox::CurrentView() {
    View view;
    glGetIntegerv(GL_VIEWPORT, view.viewport);
    glGetDoublev(GL_MODELVIEW_MATRIX, view.modelView);
    glGetDoublev(GL_PROJECTION_MATRIX, view.projection);
    return view;
}

// At a depth of 0 to 1 in a projection of pixels of the screen, from -1 to 1.
void CKivoGridBox::DrawPlaced(const PlacedImage& place, double depth, const SKivoTexImage& image) const {
    if (!place.isShown) return;
    const double scale = static_cast<double>(m_pixelScale);
    const float center[] = {static_cast<float>(place.center.x * scale),
                            static_cast<float>(place.center.y * scale),
                            static_cast<float>(1.0 - 2.0 * depth)};
    const float right[] = {static_cast<float>(place.right.x), static_cast<float>(place.right.y), 0.0f};
    const float up[] = {static_cast<float>(place.up.x), static_cast<float>(place.up.y), 0.0f};
    DrawTexturedQuad(center, right, up, 2.0 * place.halfWidth * scale / image.width,
                     2.0 * place.halfHeight * scale / image.height, image);
}

void CKivoGridBox::DrawLabelQuads() const {
    for (int axis = 0; axis < 3; ++axis) {
        const std::vector<PlacedImage>& places = m_labelLayout.Labels(axis);
        for (std::size_t i = 0; i < places.size(); ++i)
            DrawPlaced(places[i], LabelDepth(axis, m_screenBox.axes[axis].ticks[i].fraction),
                       m_tickLabels[axis][i]);
        DrawPlaced(m_labelLayout.Title(axis), LabelDepth(axis, 0.5), m_axisTitleImage[axis]);
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
                               const double* axisScale) {
    const LineWidthScope lines(m_pixelScale);
    UpdateMirroring(axisScale);
    m_flatView = CurrentView();
    m_flatTexts.clear();
    float pixelSize[3];
    for (int axis = 0; axis < 3; ++axis)
        pixelSize[axis] = static_cast<float>(worldPerPixel / axisScale[axis]);
    const float sh = pixelSize[horizontal];
    const float sv = pixelSize[vertical];
    const float hMin = m_boxMin[horizontal], hMax = m_boxMax[horizontal], hFrame = LowSide(horizontal);
    const float vMin = m_boxMin[vertical], vMax = m_boxMax[vertical], vFrame = LowSide(vertical);
    FlatPen pen(horizontal, vertical, m_boxMin);
    pen.Line(axisColors[horizontal], hMin, vFrame, hMax, vFrame);
    pen.Line(axisColors[vertical], hFrame, vMin, hFrame, vMax);

    const ReadingDirections text(horizontal, vertical, pixelSize);
    const float labelRows = RenderHorizontalTicks(horizontal, vertical, isStaggered, pixelSize);
    const SKivoTexImage& horizontalTitle = m_axisTitleImage[horizontal];
    const float titleV = vFrame - TickLength() * sv - labelRows - ScaledSize(horizontalTitle.height) * sv;
    const float* center = pen.At((hMin + hMax) / 2.0f, titleV);
    if (TakeFlatPlace(center, horizontalTitle, false))
        DrawFlatText(center, text.right, text.up, sh, sv, horizontalTitle);

    // The vertical title reads from bottom to top.
    const float labelWidth = RenderVerticalTicks(horizontal, vertical, pixelSize);
    const SKivoTexImage& verticalTitle = m_axisTitleImage[vertical];
    const float titleH =
        hFrame - TickLength() * sh - labelWidth - ScaledSize(verticalTitle.height) * sh * 1.85f;
    center = pen.At(titleH, (vMin + vMax) / 2.0f);
    if (TakeFlatPlace(center, verticalTitle, true))
        DrawFlatText(center, text.up, text.left, sv, sh, verticalTitle);
}

// A size of an image, of whole pixels, as it would be if it were scaled exactly: sums of rounded ones move
// what stands beyond them.
float CKivoGridBox::ScaledSize(int pixels) const {
    const auto size = static_cast<float>(pixels);
    return m_pixelScale == 1.0f ? size : std::round(size / m_pixelScale) * m_pixelScale;
}

// Where a text is seen, in the box's pixels of the viewport.
PlacedImage CKivoGridBox::FlatPlace(const float* center, const SKivoTexImage& image, bool isUpwards) const {
    GLdouble x = 0.0, y = 0.0, depth = 0.0;
    gluProject(static_cast<double>(center[0]), static_cast<double>(center[1]), static_cast<double>(center[2]),
               m_flatView.modelView, m_flatView.projection, m_flatView.viewport, &x, &y, &depth);
    const double scale = static_cast<double>(m_pixelScale);
    PlacedImage place;
    place.center = {(x - m_flatView.viewport[0]) / scale, (y - m_flatView.viewport[1]) / scale};
    if (isUpwards) {
        place.right = {0.0, 1.0};
        place.up = {-1.0, 0.0};
    }
    place.halfWidth = 0.5 * image.width / scale;
    place.halfHeight = 0.5 * image.height / scale;
    return place;
}

// Whether a text meets none of others; its place is taken then. Without memory for that, what comes later may
// meet it.
bool CKivoGridBox::TakeFlatPlace(const float* center, const SKivoTexImage& image, bool isUpwards) {
    PlacedImage place = FlatPlace(center, image, isUpwards);
    if (MeetsAny(place, m_screenBox.others)) return false;
    place.isShown = image.texture != 0 && image.pixels;
    try {
        if (place.isShown) m_flatTexts.push_back(place);
    } catch (const std::bad_alloc&) {
    }
    return true;
}

// Returns the room that the labels take below the ticks; negative, as all lengths, where the axis scale is.
float CKivoGridBox::RenderHorizontalTicks(int horizontal, int vertical, bool isStaggered,
                                          const float* pixelSize) {
    const float vFrame = LowSide(vertical);
    const float vFar = HighSide(vertical);
    const float tickEnd = vFrame - TickLength() * pixelSize[vertical];
    const ReadingDirections text(horizontal, vertical, pixelSize);
    const unsigned int count = m_tickPositions[horizontal] ? m_tickIntervals[horizontal] + 1 : 0;
    FlatPen pen(horizontal, vertical, m_boxMin);
    const SKivoTexImage* images = m_tickLabels[horizontal];
    const FlatLabels labels(images, m_tickPositions[horizontal], count, pixelSize[horizontal], m_pixelScale,
                            true, isStaggered);
    const std::size_t stride = labels.Stride();
    int tallest = 0;
    for (unsigned int i = 0; i < count; ++i) {
        const float p = m_boxMin[horizontal] + m_tickPositions[horizontal][i];
        pen.Line(m_lineColor, p, vFrame, p, tickEnd);
        if (m_showGridLines) pen.Line(m_gridColor, p, vFrame, p, vFar);
        if (!images) continue;
        const SKivoTexImage& label = images[i];
        const float height = ScaledSize(label.height) * pixelSize[vertical];
        tallest = std::max(tallest, label.height);
        float v = tickEnd - 0.5f * height;
        if (labels.IsInLowerRow(i)) v -= 1.15f * height;
        if (i % stride == 0 && TakeFlatPlace(pen.At(p, v), label, false))
            DrawFlatText(pen.At(p, v), text.right, text.up, pixelSize[horizontal], pixelSize[vertical],
                         label);
    }
    return 2.15f * (ScaledSize(tallest) * pixelSize[vertical]);
}

// Returns the width of the widest label, of the sign of the axis scale.
float CKivoGridBox::RenderVerticalTicks(int horizontal, int vertical, const float* pixelSize) {
    const float hFrame = LowSide(horizontal);
    const float hFar = HighSide(horizontal);
    const float tickEnd = hFrame - TickLength() * pixelSize[horizontal];
    const ReadingDirections text(horizontal, vertical, pixelSize);
    const unsigned int count = m_tickPositions[vertical] ? m_tickIntervals[vertical] + 1 : 0;
    FlatPen pen(horizontal, vertical, m_boxMin);
    const SKivoTexImage* images = m_tickLabels[vertical];
    const FlatLabels labels(images, m_tickPositions[vertical], count, pixelSize[vertical], m_pixelScale,
                            false, false);
    const std::size_t stride = labels.Stride();
    int widest = 0;
    for (unsigned int i = 0; i < count; ++i) {
        const float q = m_boxMin[vertical] + m_tickPositions[vertical][i];
        pen.Line(m_lineColor, hFrame, q, tickEnd, q);
        if (m_showGridLines) pen.Line(m_gridColor, hFrame, q, hFar, q);
        if (!images) continue;
        const SKivoTexImage& label = images[i];
        const float width = ScaledSize(label.width) * pixelSize[horizontal];
        widest = std::max(widest, label.width);
        if (i % stride == 0 && TakeFlatPlace(pen.At(tickEnd - 0.8f * width, q), label, false))
            DrawFlatText(pen.At(tickEnd - 0.8f * width, q), text.right, text.up, pixelSize[horizontal],
                         pixelSize[vertical], label);
    }
    return ScaledSize(widest) * pixelSize[horizontal];
}

} // namespace KivoDrawingTools
