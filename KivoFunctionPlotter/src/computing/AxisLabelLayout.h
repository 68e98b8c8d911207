// Where the tick labels and axis titles of the 3-D box stand on the screen.
#pragma once

#include <cstddef>
#include <vector>

namespace KivoDrawingTools {

/// A point or direction on the screen, in pixels; y points upwards.
struct ScreenVector {
    double x = 0.0;
    double y = 0.0;
};

/// Size of a text image in pixels. Sizes that are not positive and finite mean that there is no image.
struct TextImageSize {
    double width = 0.0;
    double height = 0.0;
};

/// One tick of an axis.
struct AxisTick {
    double fraction = 0.0; ///< where it stands on its edge: 0 at the begin, 1 at the end
    TextImageSize label;
};

/// The edge of the box that carries an axis's ticks.
struct AxisEdge {
    ScreenVector begin;
    ScreenVector end;
    ScreenVector tickDirection;  ///< projection of the unit vector along the ticks
    ScreenVector otherDirection; ///< projection of the outward unit vector of the other face at this edge
    std::vector<AxisTick> ticks; ///< in their order along the edge
    TextImageSize title;
};

/// A text image as a quad that faces the viewer. Left out, it keeps the place it would have had. Its
/// corners are center +- right * halfWidth +- up * halfHeight.
struct PlacedImage {
    bool isShown = false;
    ScreenVector center;
    ScreenVector right = {1.0, 0.0}; ///< unit vector
    ScreenVector up = {0.0, 1.0};    ///< right, turned left by a quarter; never points downwards
    double halfWidth = 0.0;
    double halfHeight = 0.0;

    /// A corner, by -1 or 1 to the right and upwards.
    ScreenVector Corner(double toRight, double upwards) const {
        const double w = toRight * halfWidth, h = upwards * halfHeight;
        return {center.x + w * right.x + h * up.x, center.y + w * right.y + h * up.y};
    }
};

/// The projected box. Positions share any one origin, the viewport's lower left corner where its size is
/// given.
struct AxisBoxOnScreen {
    /// Bits 0, 1 and 2 of a corner's number are set at the box's maximum of x, y and z.
    ScreenVector corners[8];
    unsigned int backCorner = 0; ///< the corner that the three outlined back planes share
    AxisEdge axes[3];            ///< X, Y, Z
    double labelOffset = 12.5;   ///< distance between an edge and its labels
    ScreenVector viewport;       ///< width and height; 0: unknown, nothing keeps clear of the border
    /// Whether a title that has no free place at its edge looks for another one inside the viewport, over
    /// lines of the box at last, before it is left out.
    bool isEachTitleWanted = false;
    std::vector<PlacedImage> others; ///< what stands there already; all images keep clear of it
};

/// The box as CKivoGridBox holds it; the pointers are only read during a call.
struct AxisBoxInData {
    const float* boxMin;
    const float* boxMax;
    bool isGridAtMin[3];             ///< for each axis, whether the grid is on the face at its minimum
    const float (*tickBase)[3];      ///< a point of the edge of each axis
    const float (*tickDirection)[3]; ///< unit vectors along an axis other than the edge's
};

/// Projects corners, edges and directions; ticks, titles, offset and viewport stay as they are.
/// @param worldPerPixel  length of one pixel in view-volume units
/// @param axisScale      three scale factors, applied before the rotation
/// @param rotation       sixteen doubles, column-major
/// @param boxCenter      where the middle of the box stands on the screen
void ProjectAxisBox(const AxisBoxInData& box, double worldPerPixel, const double* axisScale,
                    const double* rotation, ScreenVector boxCenter, AxisBoxOnScreen* out);

/// The next of 1, 2, 5, 10, 20, 50, ...
std::size_t NextLabelStride(std::size_t stride);

/// The stride of 1, 2, 5, 10, 20, 50, ... that leaves a thousand of an axis's labels; the layout never shows
/// one between. Bounds the number of pairs that are compared, and of labels that need images.
std::size_t LeastLabelStride(std::size_t tickCount);

/// Whether an image is nearer than two pixels to any of others.
bool MeetsAny(const PlacedImage& image, const std::vector<PlacedImage>& others);

/// Places labels beyond their ticks and titles beyond the labels. Where neighbours would touch, every second,
/// fifth, tenth ... label of an axis remains, and what would meet the lines of the box, another image or the
/// viewport's border is left out, titles only after a search where they are wanted. Edges of less than 24
/// pixels show nothing. Keeps its memory from one frame to the next.
class AxisLabelLayout {
public:
    void Place(const AxisBoxOnScreen& box);

    /// One entry for each tick of the axis, as last placed.
    const std::vector<PlacedImage>& Labels(int axis) const { return m_labels[axis]; }
    const PlacedImage& Title(int axis) const { return m_titles[axis]; }

private:
    void CollectBoxLines(const AxisBoxOnScreen& box);
    bool IsClear(const PlacedImage& image, ScreenVector viewport) const;
    void KeepClear(ScreenVector viewport, PlacedImage* image);
    void CollectFreeLabels(ScreenVector viewport);
    void FindTitlePlace(const AxisBoxOnScreen& box, int axis);
    double CostOf(const PlacedImage& title, ScreenVector wanted, double limit) const;
    double ShareOverBox(const PlacedImage& image) const;

    struct Segment {
        ScreenVector a;
        ScreenVector b;
    };
    std::vector<PlacedImage> m_labels[3];
    PlacedImage m_titles[3];
    std::vector<Segment> m_boxLines;
    std::vector<PlacedImage> m_placed;
    std::vector<PlacedImage> m_freeLabels; ///< that stand clear of all but each other
    std::vector<Segment> m_silhouette;     ///< turning left around the box
};

} // namespace KivoDrawingTools
