// What the viewer shows: a grid, how it looks, curves and measure points, in a plotter.
#pragma once

#include "GridData.h"
#include "PlotSettings.h"
#include "PointFile.h"
#include "Profile.h"

#include <KivoFunctionPlotter.h>
#include <KivoView.h>

#include <array>
#include <functional>
#include <list>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace KivoViewer {

/// A curve or a group of measure points, as the viewer lists it.
struct PointSet {
    enum class Kind { measureGroup, curve };

    Kind kind = Kind::measureGroup;
    std::size_t index = 0; ///< among those of its kind, in the order of adding
    std::string name;
    Color color;
    bool isShown = true;
    std::string path = {};    ///< of its file; empty for others
    std::string group = {};   ///< of a file with several: the one that it is
    ReadOptions reading = {}; ///< how the file was read
};

/// A surface, as the viewer lists it.
struct SurfaceEntry {
    int number = 0; ///< of the plotter; 0 for the first
    std::string name;
    bool isShown = true;
    bool hasLines = false; ///< frame lines
    SurfaceLooks looks;
    std::string path = {};    ///< of its file; empty for others
    ReadOptions reading = {}; ///< how the file was read
};

/// How a surface is shown that is the first, second and so on, where nobody says: the first by its values,
/// the others in one colour each, and so that what lies behind them shows through.
SurfaceLooks UsualLooks(std::size_t index);

/// The colour that a text stands for, none for "values". Throws a Failure that says what is wrong with it.
std::optional<Color> ParseSurfaceColor(const std::string& text);

/// The cells from one frame line to the next, of so many columns or rows of points.
unsigned int FrameLineStep(std::size_t points);

/// A place on a plane, of the data or of a window.
struct PlanePoint {
    double x;
    double y;
};

/// Where the plane of x and y is in a window, in pixels from its upper left corner.
struct FlatPlane {
    double origin[2];   ///< of the point (0, 0)
    double along[2][2]; ///< from there to a unit of x, and of y
};

/// The points of a surface, row by row, three floats each.
struct PointGridView {
    const float* points;
    std::size_t columns;
    std::size_t rows;
};

/// Heights of the surfaces that are shown, along a line.
struct SceneProfile {
    std::vector<ProfilePoint> points;
    std::vector<std::string> names;           ///< of the surfaces
    std::vector<std::optional<Color>> colors; ///< none where values give them
};

/// @return as long as the grid lives
SurfaceHeights HeightsOf(const GridData& grid);

/// The plotter, with what only a derived class can do.
class ViewerPlotter : public KivoDrawingTools::CKivoFunctionPlotter {
public:
    using AxisScale = std::array<double, 3>; ///< lengths of the units of X, Y and Z

    AxisScale Scale() const;
    /// Gives the axes' units these lengths, and fits the view to the grid box as the plotter has fitted it to
    /// its own. To be called after whatever fits the view: the plotter then scales the axes anew.
    void FitWithScale(const AxisScale& scale);
    /// Takes back what that has done for later fits.
    void ForgetScale();

    /// The client point in the middle of the plot, beside the legend.
    KivoDrawingTools::POINT PlotCenter() const { return {m_plotViewport[2] / 2, m_plotViewport[3] / 2}; }

    /// Of the surface that the axes are made for; before it may come a row of holes with the y of the next.
    PointGridView FirstPoints() const;
    /// None where another plot is shown.
    std::optional<FlatPlane> XyPlane() const;

private:
    double BoxDiagonal() const;
};

/// What a plotter shows, with the viewer's data and settings. To be used after the plotter's OnCreate.
/// Nothing here draws a frame.
class PlotScene {
public:
    /// @param plotter  draws nothing any more once the scene is gone, whose points it reads
    /// @param reach    called before anything reaches the plotter: no other thread may be at it then
    explicit PlotScene(ViewerPlotter& plotter, std::function<void()> reach = {})
        : m_plotter(plotter), m_reach(std::move(reach)) {}
    PlotScene(const PlotScene&) = delete;
    PlotScene& operator=(const PlotScene&) = delete;

    ViewerPlotter& Plotter() const {
        if (m_reach) m_reach();
        return m_plotter;
    }
    /// Of all surfaces: what takes long is in proportion to it.
    std::size_t PointCount() const;

    /// Shows a grid with the present settings in the start view. Curves and other surfaces go with the grid
    /// that they lay over, measure groups stay. Throws a Failure where an axis range cannot be; the grid is
    /// shown all the same, with the ranges that follow from it.
    void ShowGrid(const GridData& grid);

    /// Lays another grid over those that are shown, in the same view. Throws a Failure where it cannot be
    /// shown; all is as before then.
    void AddSurface(const GridData& grid, const SurfaceLooks& looks);
    /// The first one, and those over it in the order of adding.
    std::vector<SurfaceEntry> Surfaces() const;
    /// Shows, hides, colours the surface of this number. The frame lines of the first one are the setting.
    void ChangeSurface(const SurfaceEntry& surface);
    /// Takes a surface away. The first one stays: the axes are made for it.
    void RemoveSurface(int number);

    /// Which of light and dark the colours of ink and background are where the settings have neither. Throws
    /// a Failure.
    void SetDark(bool isDark);
    bool IsDark() const { return m_isDark; }

    /// The settings; a change is brought to the plot by the setting's apply member or by ApplyAll.
    PlotSettings& Settings() { return m_settings; }
    const PlotSettings& Settings() const { return m_settings; }
    /// The settings with what is not set as the plotter and the data have it.
    PlotSettings Effective() const;

    void ApplyAll(); ///< throws as ApplyAxes
    /// Takes other settings and applies those that differ. Throws as what applies them.
    void TakeSettings(const PlotSettings& wanted);
    void ApplyTitles();
    /// Ranges, ticks and label precision. Throws a Failure for a range that does not rise; the axes are then
    /// as before.
    void ApplyAxes();
    /// Whether an axis with these ends has a range; what they leave open is as the data have it.
    bool Rises(int axis, const AxisSettings& ends) const;
    /// Lengths of the axes, in the view fitted to them: not zoomed.
    void ApplyAspect();
    /// The plot mode, not turned or zoomed; the 3-D plot with inverse axes.
    void ApplyView();
    /// The present plot mode as at first: not turned, zoomed or shifted, lit as a first grid is.
    void ResetView();
    /// Shows the plot from somewhere else, as far as that is given; the flat plots are not turned.
    void ShowFrom(const Viewpoint& viewpoint);
    /// How the plot is looked at, for ShowView after another grid was shown.
    KivoDrawingTools::SKivoView View() const { return GetView(Plotter()); }
    void ShowView(const KivoDrawingTools::SKivoView& view);
    /// Lays the plot out for a window of another size, in the same view.
    void Resize(int width, int height);
    void ApplyColors(); ///< ink and background; throws a Failure
    /// What takes effect with the next frame: visibility, plain colours, point size. How much is drawn while
    /// the plot moves is its window's.
    void ApplySwitches();
    void ApplyLineSteps();
    void ApplyContourCount();
    void ApplyContourLevels();
    void ApplyGradients();
    void ApplyColorRange();
    void ApplyLegend(); ///< throws a Failure
    void ApplyLabels(); ///< how numbers are written; throws a Failure
    void ApplyFit();    ///< the surfaces that the axes are made for; throws as ApplyAxes
    void ApplyTrace();
    void ApplyPointNames();
    /// The list of points: to be called after all that changes points, or how numbers are written.
    void ApplyPointList();
    /// How many times as long a unit of Z is drawn as one of X and Y; nothing where these differ.
    std::optional<double> Exaggeration() const;

    /// Adds the points of a file, named by it: as a line in the next of a few colours, or as a measure group.
    void AddPoints(PointSet::Kind kind, const PointFile& file);
    /// Measure groups, then curves.
    std::vector<PointSet> PointSets();
    /// Names, colours and shows or hides the set of this kind and index.
    void ChangePoints(const PointSet& set);
    /// Takes the set of this kind and index away; those after it move up.
    void RemovePoints(PointSet::Kind kind, std::size_t index);
    void RemoveAllPoints();

    /// Shows the point of the surface at a place of the window, as far as there is one.
    /// @param x, y  in pixels from the upper left corner
    void TraceAt(int x, int y);
    /// The words for a point that is traced: its coordinates, as the plot writes them, and its surface, where
    /// there are several.
    /// @param point  as the plotter tells it
    std::string ReadOut(const float* point) const;

    /// Heights along a line in absolute numbers.
    SceneProfile ProfileAlong(const ProfileLine& line) const;
    /// Where the XY plot has a place in absolute numbers, in pixels from the upper left corner, and the other
    /// way round; none where another plot is shown.
    std::optional<PlanePoint> PixelOf(double x, double y) const;
    std::optional<PlanePoint> PlaceOf(double pixelX, double pixelY) const; ///< as above

private:
    /// A surface with what is needed of its grid.
    struct ShownSurface {
        SurfaceEntry entry;
        std::size_t columns;
        std::size_t rows;
        double min;         ///< of its values
        double max;         ///< of its values
        GridData grid = {}; ///< its numbers alone; of the first surface the plotter has them
    };

    /// A measure group, and what the plotter reads of it at each frame.
    struct MeasurePoints {
        PointFile file;
        std::vector<float> differences;
    };

    static ShownSurface ShownOf(const GridData& grid);
    SurfaceHeights FirstHeights() const;
    void ShowOrigin(const double* origin);
    void KeepFirstSurface(const GridData& grid);
    void FollowSurfaces(const KivoDrawingTools::SKivoView& view);
    void FollowRanges(const KivoDrawingTools::SKivoView& view);
    void ReadAutomaticRanges();
    void FindRange(int axis, const AxisSettings& ends, float* range) const;
    ValueRange ValuesOfSurfaces() const;
    float Difference(int axis, double number) const;
    std::vector<float> Differences(const PointFile& file) const;
    void AddCurve(const PointFile& file);
    void AddMeasureGroup(const PointFile& file);
    PointSet MeasureGroup(std::size_t index, const PointFile& file);
    void ChangeMeasureGroup(const PointSet& group);
    void CompleteColors(PlotSettings& settings) const;
    void KeepScale();
    void ForgetTrace();
    void ShowTitle();
    void ReadAutomaticSettings(const GridData& grid);

    ViewerPlotter& m_plotter; ///< by Plotter() alone
    std::function<void()> m_reach;
    PlotSettings m_settings;
    bool m_isDark = false;
    bool m_hasSurface = false;                                   ///< to be traced
    bool m_isFirstBox = false;                                   ///< the first surface is none
    PlotSettings m_automatic;                                    ///< what holds where nothing is set
    std::optional<ViewerPlotter::AxisScale> m_dataScale;         ///< as the data gave it
    std::vector<PointSet> m_curves;                              ///< the plotter does not tell what it has
    std::list<MeasurePoints> m_groups;                           ///< as they were added
    std::vector<ShownSurface> m_surfaces;                        ///< the first, and those over it
    double m_origin[3] = {0.0, 0.0, 0.0};                        ///< of all points of the plotter
    float m_dataRange[3][2] = {};                                ///< of the axes, as the data gave it
    std::string m_title;                                         ///< that the plotter has
    std::string m_labelFormats[3] = {"plain", "plain", "plain"}; ///< that the plotter has
};

} // namespace KivoViewer
