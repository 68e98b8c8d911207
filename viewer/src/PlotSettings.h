// How the plot looks.
#pragma once

#include "Color.h"

#include <optional>
#include <string>

namespace KivoViewer {

/// One of the names that a setting knows.
struct Choice {
    std::string name;
};

/// From one value to another, which may be the smaller one.
struct ValueRange {
    double from = 0.0;
    double to = 0.0;
};

/// What belongs to one axis. What is not given follows from the data.
struct AxisSettings {
    std::optional<std::string> title;
    std::optional<double> min;          ///< first tick value
    std::optional<double> max;          ///< last tick value
    std::optional<unsigned> tickCount;  ///< at least 2
    std::optional<unsigned> precision;  ///< digits after the decimal point
    std::optional<Choice> labels;       ///< how numbers are written: LabelFormat.h has the names
    bool isInverse = false;             ///< mirrored, in the 3-D plot
    bool showsContours = false;         ///< lines where this coordinate is constant
    std::optional<unsigned> lineStep;   ///< cells from one frame line to the next; of X and Y
    std::optional<Color> gradientStart; ///< in place of the colour for all axes
    std::optional<Color> gradientEnd;   ///< in place of the colour for all axes
};

constexpr int xyMode = 1; ///< the plot mode of the flat plot of XY

/// What the user has set. What is not given is as the plotter and the data have it. SettingTable.h says what
/// each is called.
struct PlotSettings {
    int mode = 0; ///< 0: 3-D plot, 1: XY, 2: YZ, 3: XZ
    std::optional<std::string> title;
    AxisSettings axes[3];
    bool showsGridLines = true;
    bool showsFrameLines = true;
    bool switchesPlanes = true; ///< the grid stands behind the surface from every side
    bool fitsAspect = true;     ///< the box keeps its shape when axis ranges change, not the axes their units
    bool traces = false;        ///< the point under the pointer is shown
    bool fitsReadOut = true;    ///< its numbers in the plot have the digits that the ranges need, not three
    bool fitsSurfaces = true;   ///< the axes reach as far as all surfaces, not as the first
    bool reducesMotion = true;  ///< large grids show fewer points while the plot moves
    bool keepsUpright = true;   ///< the left button and the arrow keys turn the plot about Z, and up and down
    std::optional<unsigned> contourCount;
    std::optional<double> contourInterval; ///< between levels of equal z; 0: as many as are set
    std::optional<double> contourBase;     ///< one of these levels
    bool fillsContours = false;            ///< the XY plot has bands of colour between them
    std::optional<double> exaggeration;    ///< of z over x and y, of one scale; 0: lengths as they follow
    std::optional<Color> frameLineColor;
    std::optional<Color> background;
    std::optional<Color> ink; ///< of texts and of the axes' lines
    std::optional<Color> gradientStart;
    std::optional<Color> gradientEnd;
    std::optional<Choice> colors;         ///< a table's name, or gradient
    std::optional<ValueRange> colorRange; ///< values with the first and the last colour of Z
    bool colorsFollowRange = false;       ///< without such values they are the ends of the Z axis
    bool showsLegend = true;
    bool listsGroups = false;                ///< names of the measure groups stand in the 3-D plot
    std::optional<std::string> legendTitle;  ///< of Z
    std::optional<Choice> legendNumbers;     ///< as set, fitted or round
    std::optional<unsigned> legendPrecision; ///< digits after the decimal point
    std::optional<unsigned> pointSize;       ///< radius of measure points in pixels

    // What is written at places of the data, and beside the title.
    bool labelsContours = false;    ///< the XY plot has the values of its contours at their lines
    bool namesPoints = false;       ///< measure points have their names beside them
    bool listsPoints = false;       ///< those with names stand in a list, with their coordinates
    bool showsExaggeration = false; ///< the title tells how many times as long Z is drawn
};

/// How a surface looks. Not a setting: it goes with the surface.
struct SurfaceLooks {
    double opacity = 1.0;       ///< 0 to 1
    std::optional<Color> color; ///< without one its values give the colours
};

/// From where, and how near, a plot is shown at first, where that is not the start view. Not a setting: the
/// hand goes on from it.
struct Viewpoint {
    std::optional<double> azimuth;   ///< in degrees, of the 3-D plot
    std::optional<double> elevation; ///< in degrees, -90 to 90, of the 3-D plot
    std::optional<double> zoom;      ///< above 0
};

} // namespace KivoViewer
