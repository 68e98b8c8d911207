// The axis box around the surface: ranges, ticks, labels and back planes of the three axes.
#pragma once

#include "AxisNumbers.h"
#include "computing/AxisLabelLayout.h"
#include "KivoTypes.h"

#include <memory>
#include <string>
#include <vector>

namespace KivoDrawingTools {

struct STextRenderer;

/// Axes are numbered 0 = X, 1 = Y, 2 = Z; the number is not checked. Labels are textures: members that build
/// or release them want the OpenGL context current.
class CKivoGridBox {
public:
    /// @param inverseX, inverseY, inverseZ  flags, read later and never copied: they must outlive the box
    CKivoGridBox(const bool* inverseX, const bool* inverseY, const bool* inverseZ);
    CKivoGridBox(const CKivoGridBox&) = delete;
    CKivoGridBox& operator=(const CKivoGridBox&) = delete;
    virtual ~CKivoGridBox();

    /// Chooses round ranges, steps and label precisions around a data box.
    /// @param dataMin, dataMax  three floats each; the pointers are kept
    void FitToData(const float* dataMin, const float* dataMax);
    /// The same for one axis, around the box that FitToData was given.
    void FitAxis(int axis);
    /// Sets one end of an axis; the number of intervals and the precision are kept. Without memory for the
    /// tick positions, here and in SetTickMarkNumber, everything is as before.
    void SetAxisMin(int axis, float value);
    void SetAxisMax(int axis, float value); ///< as SetAxisMin
    /// Divides the axis range by count - 1 intervals. A count of 1 makes the step infinite, 0 wraps the
    /// number of intervals to the largest unsigned value: there are no tick positions and no labels then.
    void SetTickMarkNumber(int axis, unsigned int count);
    /// Chooses the planes behind the surface, seen through the axes as m_isMirrored tells them.
    /// @param rotation  sixteen doubles, column-major
    void ChooseBackPlanes(const double* rotation);
    /// Which of the two faces across an axis is the back plane that carries the grid: whether it is the one
    /// at the box's minimum.
    bool IsGridAtMin(int axis) const { return m_backPlane[planeAcross[axis]]; }
    /// Where that face stands on the axis.
    float GridFace(int axis) const { return IsGridAtMin(axis) ? m_boxMin[axis] : m_boxMax[axis]; }

    /// Places the ticks of an axis, from the box's low face.
    void BuildTickPositions(int axis);
    /// Makes the label images of an axis, of every LeastLabelStride()-th tick; without a text renderer the
    /// old ones stay.
    void BuildTickLabels(int axis);
    /// What the label of a tick says; the axis must have tick positions.
    std::string LabelText(int axis, unsigned int tick) const;
    /// What a read-out says of a number of the data.
    /// @param asksFormat  whether the host is asked for its words; a frame must not call it
    std::string ReadOut(int axis, float number, bool asksFormat) const;
    /// Frees the labels; walks the present number of intervals, so it comes before a change of that.
    void ReleaseTickLabels(int axis);

    // Drawing; the context must be current, lighting off and the data's model-view matrix loaded.

    /// Draws the 3-D box: back planes, outlines, grid lines, ticks, labels and titles.
    /// @param worldPerPixel  length of one pixel of the screen in view-volume units
    /// @param axisScale      three scale factors
    /// @param rotation       sixteen doubles, column-major
    void Render(double worldPerPixel, const double* axisScale, const double* rotation);
    /// Draws the frame of a flat plot; in the XY plot every other label of X stands one row lower.
    void RenderXYFrame(double worldPerPixel, const double* axisScale);
    void RenderYZFrame(double worldPerPixel, const double* axisScale); ///< as RenderXYFrame, in one row
    void RenderXZFrame(double worldPerPixel, const double* axisScale); ///< as RenderXYFrame, in one row

    const bool* m_inverseAxis[3];         ///< flags of the plotter
    STextRenderer* m_textMaker = nullptr; ///< not owned; null: no labels are built
    const float* m_dataMin = nullptr;     ///< the plotter's data box
    const float* m_dataMax = nullptr;
    float m_axisMin[3] = {};    ///< first tick value
    float m_axisMax[3] = {};    ///< last tick value
    float m_boxMin[3] = {};     ///< m_axisMin - m_margin
    float m_boxMax[3] = {};     ///< m_axisMax + m_margin
    float m_tickOffset[3] = {}; ///< first tick's distance from the box's low face
    float m_margin[3] = {};
    float m_marginRatio = 0.0f;               ///< margin as a fraction of the axis length
    float m_tickStep[3] = {};                 ///< in data units
    unsigned int m_tickIntervals[3] = {};     ///< there are m_tickIntervals + 1 ticks
    bool m_backPlane[3] = {true, true, true}; ///< XZ at y min, XY at z min, YZ at x min; false: at max.
                                              ///< IsGridAtMin tells it by the axis.
    bool m_autoSwitchFramePlanes = false;
    /// Whether the last frame showed the axis's maximum on the side where its minimum is otherwise: ranges
    /// whose minimum exceeds the maximum, before the view is fitted to them.
    bool m_isMirrored[3] = {};

    // Plane geometry of the last 3-D frame. Points lie on the box's low face along their own axis.
    float m_tickBase[3][3] = {};      ///< foot of an axis's ticks, and one end of its grid lines
    float m_gridCorner[3][3] = {};    ///< where its grid lines bend, on the edge shared by two back planes
    float m_gridEnd[3][3] = {};       ///< other end of its grid lines
    float m_tickDirection[3][3] = {}; ///< unit vectors out of the box
    float m_oppositeTickDirection[3][3] = {};

    unsigned int m_precision[3] = {1, 1, 1}; ///< digits after the decimal point
    float* m_tickPositions[3] = {};          ///< m_tickIntervals + 1 distances from the low face; from new[]
    SKivoTexImage* m_tickLabels[3] = {};     ///< m_tickIntervals + 1 images; from new[]
    SKivoTexImage m_axisTitleImage[3];
    /// What the numbers of an axis stand for; null: for themselves.
    std::shared_ptr<const AxisNumbers> m_numbers[3];
    /// The host's words for the ticks that have labels; empty where it has none.
    std::vector<std::string> m_tickWords[3];
    float m_tickLength = 10.0f;  ///< in the box's pixels
    float m_labelOffset = 12.5f; ///< likewise
    float m_pixelScale = 1.0f;   ///< pixels of the screen in one of the box's, by which it measures
    bool m_showGridLines = true;
    float m_lineColor[4] = {0.0f, 0.0f, 0.0f, 1.0f}; ///< RGBA of outlines and ticks
    float m_gridColor[4] = {0.8f, 0.8f, 0.8f, 1.0f}; ///< RGBA of grid lines

    // Labels and titles of the last 3-D frame, in the box's pixels; kept from frame to frame for their
    // memory.
    AxisBoxOnScreen m_screenBox;
    AxisLabelLayout m_labelLayout;
    double m_edgeDepth[3][2] = {}; ///< of the ends of the edges with ticks, 0 to 1
    /// Labels and titles of the last frame of a flat plot, likewise.
    std::vector<PlacedImage> m_flatTexts;

private:
    static constexpr int planeAcross[] = {2, 0, 1}; // an axis's entry of m_backPlane

    struct View { // as OpenGL has it
        int viewport[4] = {};
        double modelView[16] = {};
        double projection[16] = {};
    };
    View m_flatView; // of the last frame of a flat plot

    void ChooseScale(int axis);
    bool IsAbsolute(int axis) const { return m_numbers[axis] && m_numbers[axis]->origin != 0.0; }
    double Origin(int axis) const { return m_numbers[axis] ? m_numbers[axis]->origin : 0.0; }
    double TickDistance(int axis) const;
    double TickValue(int axis, unsigned int tick) const;
    unsigned int DigitsOfTicks(int axis) const;
    std::string PlainLabelText(int axis, unsigned int tick) const;
    void AskForTickWords(int axis);
    static View CurrentView();
    float ScaledSize(int pixels) const;
    float TickLength() const { return m_tickLength * m_pixelScale; }
    TextImageSize SizeOf(const SKivoTexImage& image) const;
    void DrawPlaced(const PlacedImage& place, double depth, const SKivoTexImage& image) const;
    PlacedImage FlatPlace(const float* center, const SKivoTexImage& image, bool isUpwards) const;
    void UpdateBox(int axis, std::unique_ptr<float[]> tickPositions);
    void PlaceTicks(int axis, std::unique_ptr<float[]> tickPositions);
    void UpdateMirroring(const double* axisScale);
    void UpdatePlaneGeometry();
    void RenderOutlines() const;
    void RenderGridLines() const;
    void RenderTickMarks(const float* pixelSize) const;
    void PlaceLabels(double worldPerPixel, const double* axisScale, const double* rotation);
    void RenderLabels() const;
    double LabelDepth(int axis, double fraction) const;
    void DrawLabelQuads() const;
    float LowSide(int axis) const;
    float HighSide(int axis) const;
    void RenderFrame(int horizontal, int vertical, bool isStaggered, double worldPerPixel,
                     const double* axisScale);
    bool TakeFlatPlace(const float* center, const SKivoTexImage& image, bool isUpwards);
    float RenderHorizontalTicks(int horizontal, int vertical, bool isStaggered, const float* pixelSize);
    float RenderVerticalTicks(int horizontal, int vertical, const float* pixelSize);
};

} // namespace KivoDrawingTools
