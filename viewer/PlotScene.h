// What the viewer shows: a grid, how it looks, curves and measure points, in a plotter.
#pragma once

#include "GridData.h"
#include "PlotSettings.h"
#include "PointFile.h"

#include <KivoFunctionPlotter.h>

#include <list>
#include <string>
#include <vector>

namespace KivoViewer {

/// A curve as the viewer lists it.
struct CurveEntry {
    std::string name;
    Color color;
    bool isShown = true;
};

/// The plotter, with what only a derived class can do.
class ViewerPlotter : public KivoDrawingTools::CKivoFunctionPlotter {
public:
    /// Puts the plot back to where it stood at first; switching modes keeps the shift.
    void ForgetShift();
};

/// A plotter with the viewer's data and settings. To be used after the plotter's OnCreate. Nothing here draws
/// a frame.
class PlotScene {
public:
    PlotScene() = default;
    PlotScene(const PlotScene&) = delete;
    PlotScene& operator=(const PlotScene&) = delete;

    ViewerPlotter& Plotter() { return m_plotter; }

    /// Shows a grid with the present settings in the start view. Curves go with the grid that they lay over,
    /// measure groups stay. Throws a Failure where an axis range cannot be; the grid is shown all the same,
    /// with the ranges that follow from it.
    void ShowGrid(const GridData& grid);

    /// The settings; a change is brought to the plot by the setting's apply member or by ApplyAll.
    PlotSettings& Settings() { return m_settings; }
    const PlotSettings& Settings() const { return m_settings; }
    /// The settings with what is not set as the plotter and the data have it.
    PlotSettings Effective() const;

    void ApplyAll(); ///< throws as ApplyAxes
    void ApplyTitles();
    /// Ranges, ticks and label precision. Throws a Failure for a range that does not rise; the axes are then
    /// as before.
    void ApplyAxes();
    /// The plot mode, not turned or zoomed; the 3-D plot with inverse axes.
    void ApplyView();
    /// The same, and not shifted: as at first.
    void ResetView();
    void ApplySwitches(); ///< what takes effect with the next frame: visibility, plain colours, point size
    void ApplyLineSteps();
    void ApplyContourCount();
    void ApplyGradients();
    void ApplyLegend();
    void ApplyTrace();

    /// Draws a line through the points, in the next of a few colours. Titled by the file's name.
    void AddCurve(const PointFile& file);
    const std::vector<CurveEntry>& Curves() const { return m_curves; }
    void ShowCurve(std::size_t index, bool show);
    void SetCurveColor(std::size_t index, const Color& color);

    /// Shows the points as a measure group named like the file. The plotter itself lists the groups.
    void AddMeasureGroup(const PointFile& file);

private:
    void ReadAutomaticSettings(const GridData& grid);

    PlotSettings m_settings;
    PlotSettings m_automatic; ///< what holds where nothing is set
    std::vector<CurveEntry> m_curves;
    std::list<std::vector<float>> m_groupPoints; ///< the plotter reads them at each frame
    ViewerPlotter m_plotter;                     ///< gone before the points
};

} // namespace KivoViewer
