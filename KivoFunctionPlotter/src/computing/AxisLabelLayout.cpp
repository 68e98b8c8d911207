#include "AxisLabelLayout.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace KivoDrawingTools {

namespace {

constexpr double axisLabelScale = 0.8;
constexpr double titleOffset = 2.8;  // in label offsets
constexpr double axisTitleGap = 4.0; // between a title and the labels of its axis
constexpr double clearance = 2.0;    // nearer, the digits of two neighbours read as one number
constexpr double borderGap = 1.0;    // left by titles that move to stay inside the viewport
constexpr double shortestEdge = 24.0;
constexpr double smallestRise = 0.2; // of a projected unit vector above its edge; lower, its face is edge-on
constexpr double largestSlant = 1.7320508075688772; // labels leave their edge at 30 degrees or more
constexpr double verticalRange = 0.02;              // keeps rounding from turning a vertical title over
constexpr std::size_t mostLabels = 1000;            // of an axis

// What a place costs a title that looks for one, in pixels of distance from the place that it should have.
constexpr double costOverBox = 200.0; // the surface may hide what stands there
constexpr double costOfLine = 80.0;
constexpr double costOfLabel = 30.0; // one that gives way

ScreenVector operator+(ScreenVector a, ScreenVector b) {
    return {a.x + b.x, a.y + b.y};
}

ScreenVector operator-(ScreenVector a, ScreenVector b) {
    return {a.x - b.x, a.y - b.y};
}

ScreenVector operator*(double s, ScreenVector a) {
    return {s * a.x, s * a.y};
}

double Dot(ScreenVector a, ScreenVector b) {
    return a.x * b.x + a.y * b.y;
}

ScreenVector TurnedLeft(ScreenVector a) {
    return {-a.y, a.x};
}

bool IsFinite(ScreenVector a) {
    return std::isfinite(a.x) && std::isfinite(a.y);
}

bool IsImage(TextImageSize size) {
    return size.width > 0.0 && size.height > 0.0 && std::isfinite(size.width) && std::isfinite(size.height);
}

// ---- Quads

// How far the quad reaches from its center along a unit vector; so many times as far along a longer one.
double Reach(const PlacedImage& quad, ScreenVector direction) {
    return std::abs(Dot(quad.right, direction)) * quad.halfWidth +
           std::abs(Dot(quad.up, direction)) * quad.halfHeight;
}

// Whether two quads are nearer than the clearance, along the sides of the first and the second.
bool AreNear(const PlacedImage& a, const PlacedImage& b) {
    const ScreenVector way = b.center - a.center;
    for (const ScreenVector axis : {a.right, a.up, b.right, b.up})
        if (std::abs(Dot(way, axis)) >= Reach(a, axis) + Reach(b, axis) + clearance) return false;
    return true;
}

bool IsNearSegment(const PlacedImage& quad, ScreenVector a, ScreenVector b) {
    const ScreenVector way = 0.5 * (a + b) - quad.center;
    const ScreenVector half = 0.5 * (b - a);
    for (const ScreenVector axis : {quad.right, quad.up})
        if (std::abs(Dot(way, axis)) >= Reach(quad, axis) + std::abs(Dot(half, axis)) + clearance)
            return false;
    const ScreenVector normal = TurnedLeft(half); // as long as half the segment
    return std::abs(Dot(way, normal)) <= Reach(quad, normal) + clearance * std::hypot(half.x, half.y);
}

bool IsInside(const PlacedImage& quad, ScreenVector viewport) {
    const double x = Reach(quad, {1.0, 0.0});
    const double y = Reach(quad, {0.0, 1.0});
    return quad.center.x >= x && quad.center.y >= y && quad.center.x + x <= viewport.x &&
           quad.center.y + y <= viewport.y;
}

// ---- Edges

// An edge's own directions on the screen.
struct EdgeFrame {
    bool isUsable = false; // finite, and long enough to tell its labels apart
    ScreenVector along;
    ScreenVector normal; // away from the middle of the box
    double length = 0.0;
    double slant = 0.0; // how far labels move along the edge on their way along the normal
};

ScreenVector MiddleOf(const AxisBoxOnScreen& box) {
    ScreenVector sum;
    for (const ScreenVector corner : box.corners)
        sum = sum + corner;
    return 0.125 * sum;
}

double SlantOf(const AxisEdge& edge, const EdgeFrame& frame) {
    for (const ScreenVector direction : {edge.tickDirection, edge.otherDirection}) {
        const double rise = Dot(direction, frame.normal);
        if (rise >= smallestRise)
            return std::clamp(Dot(direction, frame.along) / rise, -largestSlant, largestSlant);
    }
    return 0.0;
}

EdgeFrame FrameOf(const AxisBoxOnScreen& box, const AxisEdge& edge) {
    EdgeFrame frame;
    const ScreenVector span = edge.end - edge.begin;
    frame.length = std::hypot(span.x, span.y);
    if (!(frame.length >= shortestEdge) || !std::isfinite(frame.length)) return frame;
    frame.along = (1.0 / frame.length) * span;
    frame.normal = TurnedLeft(frame.along);
    const double side = Dot(0.5 * (edge.begin + edge.end) - MiddleOf(box), frame.normal);
    if (side < 0.0) frame.normal = -1.0 * frame.normal;
    frame.slant = SlantOf(edge, frame);
    frame.isUsable = std::isfinite(side);
    return frame;
}

// The label of a tick where its edge alone would have it; shown when there is one.
PlacedImage LabelAt(const AxisEdge& edge, const EdgeFrame& frame, const AxisTick& tick, double offset) {
    PlacedImage label;
    if (!IsImage(tick.label)) return label;
    label.halfWidth = 0.5 * axisLabelScale * tick.label.width;
    label.halfHeight = 0.5 * axisLabelScale * tick.label.height;
    const double distance = offset + Reach(label, frame.normal);
    const ScreenVector foot = edge.begin + tick.fraction * (edge.end - edge.begin);
    label.center = foot + distance * (frame.normal + frame.slant * frame.along);
    label.isShown = IsFinite(label.center);
    return label;
}

// Whether any of every stride-th label is too near to the one before it.
bool TouchesAtStride(const std::vector<PlacedImage>& labels, std::size_t stride) {
    const PlacedImage* previous = nullptr;
    for (std::size_t i = 0; i < labels.size(); i += stride) {
        if (!labels[i].isShown) continue;
        if (previous && AreNear(*previous, labels[i])) return true;
        previous = &labels[i];
    }
    return false;
}

// The least stride that sets neighbours apart.
std::size_t StrideOf(const std::vector<PlacedImage>& labels) {
    std::size_t stride = LeastLabelStride(labels.size());
    while (stride < labels.size() && TouchesAtStride(labels, stride))
        stride = NextLabelStride(stride);
    return stride;
}

void Thin(std::vector<PlacedImage>* labels) {
    const std::size_t stride = StrideOf(*labels);
    for (std::size_t i = 0; i < labels->size(); ++i)
        if (i % stride != 0) (*labels)[i].isShown = false;
}

// The direction in which a title along an edge reads: from left to right, on a vertical edge upwards.
ScreenVector ReadingDirection(ScreenVector along) {
    if (std::abs(along.x) < verticalRange) return {0.0, 1.0};
    return along.x < 0.0 ? -1.0 * along : along;
}

// Moves a title along its edge by as little as brings it inside the viewport, where anything does.
void SlideInside(const EdgeFrame& frame, ScreenVector viewport, PlacedImage* title) {
    double low = -0.5 * frame.length;
    double high = 0.5 * frame.length;
    const ScreenVector screenAxes[] = {{1.0, 0.0}, {0.0, 1.0}};
    const double sizes[] = {viewport.x, viewport.y};
    for (int i = 0; i < 2; ++i) {
        const double reach = Reach(*title, screenAxes[i]) + borderGap;
        const double place = Dot(title->center, screenAxes[i]);
        const double rate = Dot(frame.along, screenAxes[i]); // 0: infinite moves, harmless
        const double first = (reach - place) / rate;
        const double last = (sizes[i] - reach - place) / rate;
        low = std::max(low, std::min(first, last));
        high = std::min(high, std::max(first, last));
    }
    if (low <= high) title->center = title->center + std::clamp(0.0, low, high) * frame.along;
}

bool HasSize(ScreenVector viewport) {
    return viewport.x > 0.0 && viewport.y > 0.0;
}

// The title beyond the labels that its axis has left.
PlacedImage TitleOf(const AxisBoxOnScreen& box, const AxisEdge& edge, const EdgeFrame& frame,
                    const std::vector<PlacedImage>& labels) {
    PlacedImage title;
    if (!frame.isUsable || !IsImage(edge.title)) return title;
    double widest = 0.0;
    for (const PlacedImage& label : labels)
        if (label.isShown) widest = std::max(widest, 2.0 * Reach(label, frame.normal));
    title.right = ReadingDirection(frame.along);
    title.up = TurnedLeft(title.right);
    title.halfWidth = 0.5 * edge.title.width;
    title.halfHeight = 0.5 * edge.title.height;
    const double distance = std::max(titleOffset * box.labelOffset, box.labelOffset + widest + axisTitleGap) +
                            Reach(title, frame.normal);
    title.center = 0.5 * (edge.begin + edge.end) + distance * frame.normal;
    if (HasSize(box.viewport)) SlideInside(frame, box.viewport, &title);
    title.isShown = IsFinite(title.center);
    return title;
}

// ---- The box

// Whether an edge belongs to the outline of the whole box: no two corners lie on different sides of it.
bool IsSilhouette(const AxisBoxOnScreen& box, ScreenVector a, ScreenVector b) {
    const ScreenVector normal = TurnedLeft(b - a);
    double low = 0.0;
    double high = 0.0;
    for (const ScreenVector corner : box.corners) {
        low = std::min(low, Dot(corner - a, normal));
        high = std::max(high, Dot(corner - a, normal));
    }
    const double tolerance = 1e-6 * (high - low);
    return low >= -tolerance || high <= tolerance;
}

int Bit(unsigned int corner, int axis) {
    return static_cast<int>(corner >> axis & 1U);
}

} // namespace

std::size_t NextLabelStride(std::size_t stride) {
    std::size_t firstDigit = stride;
    while (firstDigit >= 10)
        firstDigit /= 10;
    return firstDigit == 2 ? stride / 2 * 5 : stride * 2;
}

std::size_t LeastLabelStride(std::size_t tickCount) {
    std::size_t stride = 1;
    while (tickCount / stride > mostLabels)
        stride = NextLabelStride(stride);
    return stride;
}

bool MeetsAny(const PlacedImage& image, const std::vector<PlacedImage>& others) {
    return std::any_of(others.begin(), others.end(),
                       [&image](const PlacedImage& other) { return AreNear(other, image); });
}

void ProjectAxisBox(const AxisBoxInData& box, double worldPerPixel, const double* axisScale,
                    const double* rotation, ScreenVector boxCenter, AxisBoxOnScreen* out) {
    ScreenVector unit[3];    // along each axis
    ScreenVector outward[3]; // through the face at the maximum; scales and ranges may be negative
    ScreenVector half[3];    // from the middle of the box to that face
    for (int axis = 0; axis < 3; ++axis) {
        const double length = static_cast<double>(box.boxMax[axis]) - box.boxMin[axis];
        const double pixels = length * axisScale[axis] / worldPerPixel;
        unit[axis] = {rotation[4 * axis], rotation[4 * axis + 1]};
        outward[axis] = (pixels < 0.0 ? -1.0 : 1.0) * unit[axis];
        half[axis] = 0.5 * pixels * unit[axis];
    }
    for (unsigned int corner = 0; corner < 8; ++corner) {
        out->corners[corner] = boxCenter;
        for (int axis = 0; axis < 3; ++axis)
            out->corners[corner] = out->corners[corner] + (2.0 * Bit(corner, axis) - 1.0) * half[axis];
    }
    out->backCorner = 0;
    for (int axis = 0; axis < 3; ++axis)
        if (!box.isGridAtMin[axis]) out->backCorner |= 1U << axis;
    for (int axis = 0; axis < 3; ++axis) {
        AxisEdge& edge = out->axes[axis];
        unsigned int begin = 0;
        edge.tickDirection = {};
        for (const int other : {(axis + 1) % 3, (axis + 2) % 3}) {
            const float place = box.tickBase[axis][other];
            const bool isAtMax = std::abs(place - box.boxMax[other]) < std::abs(place - box.boxMin[other]);
            if (isAtMax) begin |= 1U << other;
            const double along = box.tickDirection[axis][other];
            edge.tickDirection = edge.tickDirection + along * unit[other];
            if (along == 0.0) edge.otherDirection = (isAtMax ? 1.0 : -1.0) * outward[other];
        }
        edge.begin = out->corners[begin];
        edge.end = out->corners[begin | 1U << axis];
    }
}

void AxisLabelLayout::Place(const AxisBoxOnScreen& box) {
    CollectBoxLines(box);
    m_placed.assign(box.others.begin(), box.others.end());
    for (int axis = 0; axis < 3; ++axis) {
        const AxisEdge& edge = box.axes[axis];
        const EdgeFrame frame = FrameOf(box, edge);
        m_labels[axis].clear();
        for (const AxisTick& tick : edge.ticks)
            m_labels[axis].push_back(frame.isUsable ? LabelAt(edge, frame, tick, box.labelOffset)
                                                    : PlacedImage());
        Thin(&m_labels[axis]);
        m_titles[axis] = TitleOf(box, edge, frame, m_labels[axis]);
    }
    bool isPlaceless[3] = {};
    for (const int axis : {2, 0, 1}) {
        PlacedImage& title = m_titles[axis];
        const bool isSearching = title.isShown && box.isEachTitleWanted && HasSize(box.viewport);
        if (isSearching && ShareOverBox(title) > 0.0) title.isShown = false;
        KeepClear(box.viewport, &title);
        isPlaceless[axis] = isSearching && !title.isShown;
    }
    CollectFreeLabels(box.viewport);
    for (const int axis : {2, 0, 1})
        if (isPlaceless[axis]) FindTitlePlace(box, axis);
    for (const int axis : {2, 0, 1})
        for (PlacedImage& label : m_labels[axis])
            KeepClear(box.viewport, &label);
}

// The outlines of the back planes and the silhouette: all edges, except those inside the silhouette that end
// at the corner in front.
void AxisLabelLayout::CollectBoxLines(const AxisBoxOnScreen& box) {
    m_boxLines.clear();
    m_silhouette.clear();
    const ScreenVector middle = MiddleOf(box);
    const unsigned int frontCorner = box.backCorner ^ 7U;
    for (unsigned int a = 0; a < 8; ++a)
        for (int axis = 0; axis < 3; ++axis) {
            const unsigned int b = a | 1U << axis;
            if (b == a) continue;
            const Segment line = {box.corners[a], box.corners[b]};
            const bool isDrawn = a != frontCorner && b != frontCorner;
            const bool isSilhouette = IsSilhouette(box, line.a, line.b);
            if (isDrawn || isSilhouette) m_boxLines.push_back(line);
            if (!isSilhouette) continue;
            const bool isLeft = Dot(middle - line.a, TurnedLeft(line.b - line.a)) >= 0.0;
            m_silhouette.push_back(isLeft ? line : Segment{line.b, line.a});
        }
}

// Whether an image meets neither the box nor another image nor the border, where text cut off could be
// misread.
bool AxisLabelLayout::IsClear(const PlacedImage& image, ScreenVector viewport) const {
    const auto isNearLine = [&image](const Segment& line) { return IsNearSegment(image, line.a, line.b); };
    return (!HasSize(viewport) || IsInside(image, viewport)) &&
           std::none_of(m_boxLines.begin(), m_boxLines.end(), isNearLine) && !MeetsAny(image, m_placed);
}

// Leaves an image out that is not.
void AxisLabelLayout::KeepClear(ScreenVector viewport, PlacedImage* image) {
    if (!image->isShown) return;
    image->isShown = IsClear(*image, viewport);
    if (image->isShown) m_placed.push_back(*image);
}

// The labels that a title would cost a place.
void AxisLabelLayout::CollectFreeLabels(ScreenVector viewport) {
    m_freeLabels.clear();
    for (const std::vector<PlacedImage>& labels : m_labels)
        for (const PlacedImage& label : labels)
            if (label.isShown && IsClear(label, viewport)) m_freeLabels.push_back(label);
}

// Shares of an image's area that lie over the box, in ninths.
double AxisLabelLayout::ShareOverBox(const PlacedImage& image) const {
    int count = 0;
    for (int i = 0; i < 9; ++i) {
        const int column = i % 3 - 1, row = i / 3 - 1;
        const ScreenVector point =
            image.center + (column * image.halfWidth) * image.right + (row * image.halfHeight) * image.up;
        const bool isOver =
            std::all_of(m_silhouette.begin(), m_silhouette.end(), [point](const Segment& line) {
                return Dot(point - line.a, TurnedLeft(line.b - line.a)) > 0.0;
            });
        count += isOver ? 1 : 0;
    }
    return count / 9.0;
}

// What a place costs; the limit or more where it costs as much, or cannot be had at all.
double AxisLabelLayout::CostOf(const PlacedImage& title, ScreenVector wanted, double limit) const {
    const ScreenVector way = title.center - wanted;
    double cost = std::hypot(way.x, way.y);
    if (!(cost < limit)) return limit;
    cost += costOverBox * ShareOverBox(title);
    for (const Segment& line : m_boxLines)
        if (IsNearSegment(title, line.a, line.b)) cost += costOfLine;
    if (!(cost < limit)) return limit;
    if (MeetsAny(title, m_placed)) return limit;
    for (const PlacedImage& label : m_freeLabels)
        if (cost < limit && AreNear(label, title)) cost += costOfLabel;
    return std::min(cost, limit);
}

// Looks along the edge and across it for the place of least cost that the viewport has.
void AxisLabelLayout::FindTitlePlace(const AxisBoxOnScreen& box, int axis) {
    constexpr int stepsAlong = 4; // to each side, half the edge in all
    constexpr int stepsAcross = 32;
    const EdgeFrame frame = FrameOf(box, box.axes[axis]);
    PlacedImage title = m_titles[axis];
    const ScreenVector reach = {Reach(title, {1.0, 0.0}) + borderGap, Reach(title, {0.0, 1.0}) + borderGap};
    if (2.0 * reach.x > box.viewport.x || 2.0 * reach.y > box.viewport.y || !IsFinite(title.center)) return;
    const ScreenVector wanted = title.center;
    const double across = std::hypot(box.viewport.x, box.viewport.y) / (2 * stepsAcross);
    const double along = 0.5 * frame.length / stepsAlong;
    double least = std::numeric_limits<double>::infinity();
    for (int i = -stepsAcross; i <= stepsAcross; ++i)
        for (int j = -stepsAlong; j <= stepsAlong; ++j) {
            const ScreenVector place = wanted + (i * across) * frame.normal + (j * along) * frame.along;
            title.center = {std::clamp(place.x, reach.x, box.viewport.x - reach.x),
                            std::clamp(place.y, reach.y, box.viewport.y - reach.y)};
            const double cost = CostOf(title, wanted, least);
            if (!(cost < least)) continue;
            least = cost;
            m_titles[axis] = title;
            m_titles[axis].isShown = true;
        }
    if (m_titles[axis].isShown) m_placed.push_back(m_titles[axis]);
}

} // namespace KivoDrawingTools
