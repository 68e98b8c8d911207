#include "AxisLabelLayout.h"

#include <algorithm>
#include <cmath>

namespace KivoDrawingTools {

namespace {

constexpr double labelScale = 0.8;
constexpr double titleOffset = 2.8; // in label offsets
constexpr double titleGap = 4.0;    // between a title and the labels of its axis
constexpr double clearance = 2.0;   // below this the digits of two neighbours read as one number
constexpr double shortestEdge = 24.0;
constexpr double smallestRise =
    0.1; // share of a tick's length away from its edge; below, its face is edge-on
constexpr double largestSlant = 1.7320508075688772; // labels leave their edge at 30 degrees or more
constexpr double verticalRange = 0.02;              // keeps rounding from turning a vertical title over
constexpr std::size_t mostLabels = 1000;            // bounds the number of pairs that are compared

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

// Half of the quad's length along a unit vector.
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
    const double length = std::hypot(half.x, half.y);
    if (!(length > 0.0)) return true;
    const ScreenVector normal = (1.0 / length) * TurnedLeft(half);
    return std::abs(Dot(way, normal)) < Reach(quad, normal) + clearance;
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
    double slant = 0.0;  // how far labels move along the edge on their way along the normal
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
    const double length = std::hypot(span.x, span.y);
    if (!(length >= shortestEdge) || !std::isfinite(length)) return frame;
    frame.along = (1.0 / length) * span;
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
    label.halfWidth = 0.5 * labelScale * tick.label.width;
    label.halfHeight = 0.5 * labelScale * tick.label.height;
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

// Keeps every stride-th label, with the least stride of 1, 2, 5, 10, 20, 50, ... that sets neighbours apart.
void Thin(std::vector<PlacedImage>* labels) {
    std::size_t decade = 1;
    std::size_t stride = 1;
    while (stride < labels->size() &&
           (labels->size() / stride > mostLabels || TouchesAtStride(*labels, stride))) {
        if (stride == 5 * decade) decade *= 10;
        stride = stride < decade ? decade : stride == decade ? 2 * decade : 5 * decade;
    }
    for (std::size_t i = 0; i < labels->size(); ++i)
        if (i % stride != 0) (*labels)[i].isShown = false;
}

// The direction in which a title along an edge reads: from left to right, on a vertical edge upwards.
ScreenVector ReadingDirection(ScreenVector along) {
    if (std::abs(along.x) < verticalRange) return {0.0, 1.0};
    return along.x < 0.0 ? -1.0 * along : along;
}

} // namespace

void ProjectAxisBox(const AxisBoxInData& box, double worldPerPixel, const double* axisScale,
                    const double* rotation, ScreenVector boxCenter, AxisBoxOnScreen* out) {
    // From the middle of the box to its maximum along each axis; the differences of large coordinates come
    // first.
    ScreenVector half[3];
    double middle[3];
    for (int axis = 0; axis < 3; ++axis) {
        middle[axis] = 0.5 * (static_cast<double>(box.boxMin[axis]) + box.boxMax[axis]);
        const double length = 0.5 * (static_cast<double>(box.boxMax[axis]) - box.boxMin[axis]);
        const double pixels = length * axisScale[axis] / worldPerPixel;
        half[axis] = pixels * ScreenVector{rotation[4 * axis], rotation[4 * axis + 1]};
    }
    for (unsigned int corner = 0; corner < 8; ++corner) {
        out->corners[corner] = boxCenter;
        for (unsigned int axis = 0; axis < 3; ++axis)
            out->corners[corner] = out->corners[corner] + (corner >> axis & 1 ? 1.0 : -1.0) * half[axis];
    }
    out->backCorner =
        (box.backPlane[2] ? 0U : 1U) | (box.backPlane[0] ? 0U : 2U) | (box.backPlane[1] ? 0U : 4U);
    for (int axis = 0; axis < 3; ++axis) {
        AxisEdge& edge = out->axes[axis];
        unsigned int begin = 0;
        for (int other = 0; other < 3; ++other) {
            if (other == axis) continue;
            const float* base = box.tickBase[axis];
            const bool isAtMax =
                std::abs(base[other] - box.boxMax[other]) < std::abs(base[other] - box.boxMin[other]);
            if (isAtMax) begin |= 1U << other;
        }
        edge.begin = out->corners[begin];
        edge.end = out->corners[begin | 1U << axis];
    }
    (void)middle;
}

void AxisLabelLayout::Place(const AxisBoxOnScreen& box) {}

} // namespace KivoDrawingTools
