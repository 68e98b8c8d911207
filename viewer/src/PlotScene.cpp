#include "PlotScene.h"

#include "Failure.h"
#include "Language.h"
#include "Numbers.h"
#include "SettingTable.h"

#include <KivoColorMap.h>
#include <KivoContours.h>
#include <KivoLegend.h>
#include <KivoMotion.h>
#include <KivoPoints.h>
#include <KivoStyle.h>
#include <KivoSurfaces.h>
#include <KivoWindow.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <iterator>
#include <limits>
#include <utility>

namespace KivoViewer {

using Plotter = KivoDrawingTools::CKivoFunctionPlotter;

namespace {

constexpr Color lightGround = {255, 253, 233}, darkInk = {0, 0, 0};
constexpr Color darkGround = {30, 32, 36}, lightInk = {222, 222, 222};

// The members of one axis.
struct AxisMembers {
    void (Plotter::*setTitle)(const char*);
    float (Plotter::*min)() const;
    int (Plotter::*setMin)(float);
    float (Plotter::*max)() const;
    int (Plotter::*setMax)(float);
    unsigned int (Plotter::*tickCount)() const;
    int (Plotter::*setTickCount)(unsigned int);
    unsigned int (Plotter::*precision)() const;
    int (Plotter::*setPrecision)(unsigned int);
    int (Plotter::*setInverse)(bool);
    int (Plotter::*showContours)(bool);
    void (Plotter::*setGradient)(unsigned long, unsigned long);
};

constexpr AxisMembers axisMembers[] = {
    {&Plotter::SetXAxisTitle, &Plotter::GetXAxisMin, &Plotter::SetXAxisMin, &Plotter::GetXAxisMax,
     &Plotter::SetXAxisMax, &Plotter::GetXAxisTickMarkNumber, &Plotter::SetXAxisTickMarkNumber,
     &Plotter::GetXAxisFloatingPointPrecision, &Plotter::SetXAxisFloatingPointPrecision,
     &Plotter::SetInverseXAxis, &Plotter::ShowXIsoContours, &Plotter::SetXGradientColor},
    {&Plotter::SetYAxisTitle, &Plotter::GetYAxisMin, &Plotter::SetYAxisMin, &Plotter::GetYAxisMax,
     &Plotter::SetYAxisMax, &Plotter::GetYAxisTickMarkNumber, &Plotter::SetYAxisTickMarkNumber,
     &Plotter::GetYAxisFloatingPointPrecision, &Plotter::SetYAxisFloatingPointPrecision,
     &Plotter::SetInverseYAxis, &Plotter::ShowYIsoContours, &Plotter::SetYGradientColor},
    {&Plotter::SetZAxisTitle, &Plotter::GetZAxisMin, &Plotter::SetZAxisMin, &Plotter::GetZAxisMax,
     &Plotter::SetZAxisMax, &Plotter::GetZAxisTickMarkNumber, &Plotter::SetZAxisTickMarkNumber,
     &Plotter::GetZAxisFloatingPointPrecision, &Plotter::SetZAxisFloatingPointPrecision,
     &Plotter::SetInverseZAxis, &Plotter::ShowZIsoContours, &Plotter::SetZGradientColor},
};

float* AppendPoint(float* end, float x, float y, float z) {
    end[0] = x;
    end[1] = y;
    end[2] = z;
    return end + 3;
}

// The plotter looks for the smallest and largest values from the first point on, which must therefore not be
// a hole. Where it is one, a row comes before the grid that is all holes but for the first point: with holes
// on every side of it, nothing of that row is seen.
float* AppendFirstRow(float* end, const GridData& grid) {
    const auto value = std::find_if(grid.z.begin(), grid.z.end(), [](float z) { return std::isfinite(z); });
    end = AppendPoint(end, grid.x[0], grid.y[0], *value);
    for (std::size_t c = 1; c < grid.ColumnCount(); ++c)
        end = AppendPoint(end, grid.x[c], grid.y[0], std::numeric_limits<float>::quiet_NaN());
    return end;
}

void HandOver(Plotter& plotter, const GridData& grid) {
    const bool startsWithHole = !std::isfinite(grid.z[0]);
    const std::size_t columns = grid.ColumnCount();
    const std::size_t rows = grid.RowCount() + (startsWithHole ? 1 : 0);
    auto* const points = new float[columns * rows * 3]; // the plotter frees it
    float* end = startsWithHole ? AppendFirstRow(points, grid) : points;
    for (std::size_t r = 0; r < grid.RowCount(); ++r)
        for (std::size_t c = 0; c < columns; ++c)
            end = AppendPoint(end, grid.x[c], grid.y[r], grid.z[r * columns + c]);
    const auto columnCount = static_cast<unsigned int>(columns);
    plotter.SetData(points, columnCount, static_cast<unsigned int>(rows), 1, columnCount, 3);
}

void SetPlotterStyle(Plotter& plotter, const KivoDrawingTools::SKivoStyle& style) {
    if (SetStyle(plotter, style) != 0)
        throw Failure(Filled(Translate("Plot", "cannot draw: %1"), KivoDrawingTools::LastWindowError()));
}

void SwitchMode(Plotter& plotter, int mode) {
    switch (mode) {
    case 1:
        plotter.SwitchToXYProjectPlot();
        break;
    case 2:
        plotter.SwitchToYZProjectPlot();
        break;
    case 3:
        plotter.SwitchToZXProjectPlot();
        break;
    default:
        plotter.SwitchToNormalPlot();
    }
}

// Calls the setter where the value is a new one: labels are made anew each time.
template <typename T>
bool Change(Plotter& plotter, T (Plotter::*get)() const, int (Plotter::*set)(T), T value) {
    if ((plotter.*get)() == value) return false;
    (plotter.*set)(value);
    return true;
}

} // namespace

unsigned int FrameLineStep(std::size_t points) {
    constexpr unsigned int maxFrameLines = 25; // in each direction, so that the colours stay visible
    return static_cast<unsigned int>((points + maxFrameLines - 1) / maxFrameLines);
}

ViewerPlotter::AxisScale ViewerPlotter::Scale() const {
    return {m_axisScale[0], m_axisScale[1], m_axisScale[2]};
}

double ViewerPlotter::BoxDiagonal() const {
    double squares = 0.0;
    for (int axis = 0; axis < 3; ++axis) {
        const double min = (this->*axisMembers[axis].min)();
        const double max = (this->*axisMembers[axis].max)();
        squares += std::pow((max - min) * m_axisScale[axis], 2.0);
    }
    return std::sqrt(squares);
}

// A box that is long beside the plotter's own needs a deeper volume, also where a picture is laid out.
void ViewerPlotter::FitWithScale(const AxisScale& scale) {
    const double own = BoxDiagonal();
    if (!std::isfinite(own) || own <= 0.0) return; // axes without ranges have no scale
    std::copy(scale.begin(), scale.end(), m_axisScale);
    const double growth = BoxDiagonal() / own;
    KivoDrawingTools::ScaleViewBounds(growth, m_viewLeft, m_viewRight, m_viewBottom, m_viewTop);
    const double depth = BoxDiagonal() * KivoDrawingTools::viewShareOfBox * KivoDrawingTools::viewDepthFactor;
    m_viewVolumeFactor[2] = static_cast<float>(m_viewVolumeFactor[2] * depth / m_viewFar);
    m_viewFar = depth;
    m_viewNear = -depth;
    BeginGLOperation();
    ApplyViewVolume();
    ApplyModelViewMatrix();
    EndGLOperation();
}

void ViewerPlotter::ForgetScale() {
    m_viewVolumeFactor[2] = KivoDrawingTools::viewDepthFactor;
}

void PlotScene::ShowGrid(const GridData& grid) {
    FitAxesToSurfaces(Plotter(), m_settings.fitsSurfaces);
    ShowPointsInFlatPlots(Plotter(), true);
    // Lines at each cell would be made, and go with those that the settings have.
    const auto stepOf = [&](int axis, std::size_t points) {
        return m_settings.axes[axis].lineStep.value_or(FrameLineStep(points));
    };
    CullSmallTriangles(Plotter(), true);
    KeepFrameLineStep(Plotter(), stepOf(0, grid.ColumnCount()), stepOf(1, grid.RowCount()));
    HandOver(Plotter(), grid);
    ShowOrigin(grid.origin);
    KeepFirstSurface(grid);
    m_hasSurface = !grid.isBox;
    m_isFirstBox = grid.isBox;
    KivoDrawingTools::ResetView(Plotter()); // the same grid is lit alike, whatever was shown before

    m_curves.clear();
    ReadAutomaticSettings(grid);
    ApplyAll();
}

PlotSettings PlotScene::Effective() const {
    PlotSettings effective = Completed(m_settings, m_automatic);
    CompleteColors(effective);
    for (AxisSettings& axis : effective.axes) {
        if (!axis.gradientStart) axis.gradientStart = effective.gradientStart;
        if (!axis.gradientEnd) axis.gradientEnd = effective.gradientEnd;
    }
    if (m_settings.colorsFollowRange && !m_settings.colorRange)
        effective.colorRange = ValueRange{*effective.axes[2].min, *effective.axes[2].max};
    return effective;
}

// What is not set is what can be read with the other. Completed() has taken both as they are set.
void PlotScene::CompleteColors(PlotSettings& settings) const {
    const bool isDark = settings.background ? settings.background->IsDark()
                        : settings.ink      ? !settings.ink->IsDark()
                                            : m_isDark;
    if (!settings.background) settings.background = isDark ? darkGround : lightGround;
    if (!settings.ink) settings.ink = isDark ? lightInk : darkInk;
}

// To be called while the axes are as the data have them.
void PlotScene::ReadAutomaticRanges() {
    m_dataScale = Plotter().Scale();
    for (int i = 0; i < 3; ++i) {
        AxisSettings& axis = m_automatic.axes[i];
        m_dataRange[i][0] = (Plotter().*axisMembers[i].min)();
        m_dataRange[i][1] = (Plotter().*axisMembers[i].max)();
        axis.min = AbsoluteNumber(m_origin[i], m_dataRange[i][0]);
        axis.max = AbsoluteNumber(m_origin[i], m_dataRange[i][1]);
        axis.tickCount = (Plotter().*axisMembers[i].tickCount)();
        axis.precision = (Plotter().*axisMembers[i].precision)();
    }
    m_automatic.colorRange = ValuesOfSurfaces();
}

void PlotScene::ReadAutomaticSettings(const GridData& grid) {
    ReadAutomaticRanges();
    m_automatic.title = grid.title;
    for (int i = 0; i < 3; ++i) {
        m_automatic.axes[i].title = grid.axisTitles[i];
        m_automatic.axes[i].labels = Choice{"plain"};
    }
    m_automatic.axes[0].lineStep = FrameLineStep(grid.ColumnCount());
    m_automatic.axes[1].lineStep = FrameLineStep(grid.RowCount());
    m_automatic.contourCount = 20;
    m_automatic.contourInterval = 0.0;
    m_automatic.contourBase = 0.0;
    m_automatic.exaggeration = 0.0;
    m_automatic.frameLineColor = Color{0, 0, 0};
    m_automatic.gradientStart = Color{0, 0, 255};
    m_automatic.gradientEnd = Color{255, 0, 0};
    m_automatic.colors = Choice{"gradient"};
    m_automatic.legendTitle = "";
    m_automatic.legendNumbers = Choice{"set"};
    m_automatic.legendPrecision = 3;
    m_automatic.pointSize = 4;
}

void PlotScene::ApplyAll() {
    ApplyColors();
    ApplyTitles();
    ApplySwitches();
    ApplyLineSteps();
    ApplyContourCount();
    ApplyContourLevels();
    ApplyGradients();
    ApplyColorRange();
    ApplyLegend();
    ApplyLabels();
    ApplyTrace();
    ApplyFit();
    ApplyAspect();
    ApplyView();
    ApplyAxes();
    ApplyPointNames();
}

void PlotScene::TakeSettings(const PlotSettings& wanted) {
    const PlotSettings before = std::exchange(m_settings, wanted);
    std::vector<void (PlotScene::*)()> applied; // once each, in the table's order
    for (const Setting& setting : AllSettings())
        if (TextOf(setting, before) != TextOf(setting, wanted) &&
            std::find(applied.begin(), applied.end(), setting.apply) == applied.end())
            applied.push_back(setting.apply);
    for (void (PlotScene::*const apply)() : applied)
        (this->*apply)();
    if (before.mode != wanted.mode) ApplyView();
}

void PlotScene::ApplyTitles() {
    const PlotSettings settings = Effective();
    m_title.clear();
    ShowTitle();
    for (int i = 0; i < 3; ++i)
        (Plotter().*axisMembers[i].setTitle)(settings.axes[i].title->c_str());
}

// The lengths of the axes change on many ways; drawing the title anew takes time.
void PlotScene::ShowTitle() {
    if (!m_dataScale) return; // nothing is shown
    std::string title = *Effective().title;
    if (const auto exaggeration = m_settings.showsExaggeration ? Exaggeration() : std::nullopt) {
        const std::string words =
            "vertical exaggeration " + FormatRounded(static_cast<float>(*exaggeration)) + "x";
        title = title.empty() ? words : title + " (" + words + ")";
    }
    if (title == m_title && !title.empty()) return;
    Plotter().SetPlotTitle(title.c_str());
    m_title = title;
}

void PlotScene::FindRange(int axis, const AxisSettings& ends, float* range) const {
    range[0] = ends.min ? Difference(axis, *ends.min) : m_dataRange[axis][0];
    range[1] = ends.max ? Difference(axis, *ends.max) : m_dataRange[axis][1];
}

bool PlotScene::Rises(int axis, const AxisSettings& ends) const {
    float range[2];
    FindRange(axis, ends, range);
    return range[0] < range[1];
}

void PlotScene::ApplyAxes() {
    const PlotSettings settings = Effective();
    float ranges[3][2];
    for (int i = 0; i < 3; ++i) {
        FindRange(i, m_settings.axes[i], ranges[i]);
        if (!(ranges[i][0] < ranges[i][1]))
            throw Failure(Filled(Translate("Plot", "the %1 axis must rise, not go from %2 to %3"), "XYZ"[i],
                                 TextOf(FindSetting(std::string(1, "xyz"[i]) + "-min"), settings),
                                 TextOf(FindSetting(std::string(1, "xyz"[i]) + "-max"), settings)));
    }
    bool isNewRange = false;
    for (int i = 0; i < 3; ++i) {
        const AxisSettings& axis = settings.axes[i];
        CutToAxis(Plotter(), i, m_settings.axes[i].min || m_settings.axes[i].max);
        const AxisMembers& members = axisMembers[i];
        isNewRange |= Change(Plotter(), members.min, members.setMin, ranges[i][0]);
        isNewRange |= Change(Plotter(), members.max, members.setMax, ranges[i][1]);
        Change(Plotter(), members.tickCount, members.setTickCount, *axis.tickCount);
        Change(Plotter(), members.precision, members.setPrecision, *axis.precision);
    }
    if (isNewRange) ApplyAspect();
    if (isNewRange && m_settings.colorsFollowRange) ApplyColorRange();
    ApplyPointList();
}

void PlotScene::ApplyAspect() {
    Plotter().ForgetScale();
    Plotter().AutoAdjustAxisLengthRatio();
    KeepScale();
    if (m_settings.mode != 0) ApplyView(); // that was the 3-D plot's view
}

void PlotScene::KeepScale() {
    const double exaggeration = m_settings.exaggeration.value_or(0.0);
    if (exaggeration > 0.0)
        Plotter().FitWithScale({1.0 / exaggeration, 1.0 / exaggeration, 1.0}); // Z keeps its length
    else if (!m_settings.fitsAspect && m_dataScale)
        Plotter().FitWithScale(*m_dataScale);
    if (m_settings.showsExaggeration) ShowTitle();
}

std::optional<double> PlotScene::Exaggeration() const {
    const ViewerPlotter::AxisScale scale = Plotter().Scale();
    constexpr double rounding = 1e-6;
    if (!(std::abs(scale[0] - scale[1]) <= rounding * scale[0])) return std::nullopt;
    return scale[2] / scale[0];
}

// The flat plots stay as the plotter enters them, unmirrored.
void PlotScene::ApplyView() {
    const bool isFlat = m_settings.mode != 0;
    for (int i = 0; i < 3 && !isFlat; ++i)
        (Plotter().*axisMembers[i].setInverse)(m_settings.axes[i].isInverse);
    if (Plotter().GetCurrentPlotType() != m_settings.mode) ForgetTrace(); // it belongs to the other plot
    SwitchMode(Plotter(), m_settings.mode);
    KeepScale();
}

void PlotScene::ResetView() {
    KivoDrawingTools::ResetView(Plotter());
    KeepScale();
}

void PlotScene::ShowFrom(const Viewpoint& viewpoint) {
    double azimuth = 0.0;
    double elevation = 0.0;
    GetViewAngles(Plotter(), azimuth, elevation);
    if (m_settings.mode == 0 && (viewpoint.azimuth || viewpoint.elevation))
        SetViewAngles(Plotter(), viewpoint.azimuth.value_or(azimuth),
                      viewpoint.elevation.value_or(elevation));
    KivoDrawingTools::SKivoView view = View();
    view.zoom = viewpoint.zoom.value_or(view.zoom);
    ShowView(view);
}

void PlotScene::ShowView(const KivoDrawingTools::SKivoView& view) {
    SetView(Plotter(), view);
}

void PlotScene::Resize(int width, int height) {
    const KivoDrawingTools::SKivoView view = View();
    Plotter().OnSize(0, width, height);
    KeepScale();
    if (m_dataScale) ShowView(view);
}

// Curves of the ink's colour stay that.
void PlotScene::ApplyColors() {
    const PlotSettings settings = Effective();
    KivoDrawingTools::SKivoStyle style = GetStyle(Plotter());
    const unsigned long before = std::exchange(style.inkColor, settings.ink->Packed());
    SetPlotterStyle(Plotter(), style);
    Plotter().SetBackgroundColor(settings.background->Packed());
    for (PointSet curve : m_curves) {
        if (curve.color.Packed() != before) continue;
        curve.color = *settings.ink;
        ChangePoints(curve);
    }
}

void PlotScene::SetDark(bool isDark) {
    m_isDark = isDark;
    ApplyColors();
}

void PlotScene::ApplySwitches() {
    const PlotSettings settings = Effective();
    Plotter().ShowGridLines(settings.showsGridLines);
    Plotter().ShowFrameLines(settings.showsFrameLines);
    Plotter().SetAutoSwitchFramePlanes(settings.switchesPlanes);
    for (int i = 0; i < 3; ++i)
        (Plotter().*axisMembers[i].showContours)(settings.axes[i].showsContours);
    FillContours(Plotter(), settings.fillsContours);
    if (LabelContours(Plotter(), settings.labelsContours) != 0)
        throw Failure(Filled(Translate("Plot", "cannot draw: %1"), KivoDrawingTools::LastWindowError()));
    Plotter().SetFrameLineColor(settings.frameLineColor->Packed());
    Plotter().SetPointRadiusPixelSize(*settings.pointSize);
    FitReadOutDigits(Plotter(), settings.fitsReadOut);
    ApplyPointList();
}

void PlotScene::ApplyLineSteps() {
    const PlotSettings settings = Effective();
    Plotter().SetFrameLineStep(*settings.axes[0].lineStep, *settings.axes[1].lineStep);
}

void PlotScene::ApplyContourCount() {
    Plotter().SetIsoContourCount(*Effective().contourCount);
}

void PlotScene::ApplyContourLevels() {
    constexpr int z = 2;
    const PlotSettings settings = Effective();
    SetContourInterval(Plotter(), z, *settings.contourInterval, *settings.contourBase - m_origin[z]);
}

void PlotScene::ApplyGradients() {
    const PlotSettings settings = Effective();
    for (int i = 0; i < 3; ++i) // Z last: the others leave the context current
        (Plotter().*axisMembers[i].setGradient)(settings.axes[i].gradientStart->Packed(),
                                                settings.axes[i].gradientEnd->Packed());
    for (int i = 0; i < 3; ++i) // no name of a table: the gradient
        SetColorMap(Plotter(), i, settings.colors->name.c_str());
}

void PlotScene::ApplyColorRange() {
    constexpr int z = 2;
    float from = 0.0f, to = 0.0f; // those of the data
    if (m_settings.colorRange) {
        from = Difference(z, m_settings.colorRange->from);
        to = Difference(z, m_settings.colorRange->to);
    } else if (m_settings.colorsFollowRange) {
        from = Plotter().GetZAxisMin();
        to = Plotter().GetZAxisMax();
    }
    if (m_settings.colorRange && from == to)
        throw Failure(Filled(Translate("Plot", "the colours need a wider range than %1"),
                             TextOf(FindSetting("color-range"), m_settings)));
    if (SetColorRange(Plotter(), z, from, to) != 0)
        throw Failure(Filled(Translate("Plot", "the colours cannot have the range %1"),
                             TextOf(FindSetting("color-range"), m_settings)));
}

void PlotScene::ApplyLegend() {
    const PlotSettings settings = Effective();
    const std::vector<std::string>& names = FindSetting("legend-numbers").choices;
    const auto name = std::find(names.begin(), names.end(), settings.legendNumbers->name);
    Plotter().SetGradientColorRuleFloatingPointPrecision(*settings.legendPrecision);
    for (int i = 0; i < 3; ++i) {
        KivoDrawingTools::SKivoLegend legend;
        legend.isShown = settings.showsLegend;
        legend.numbers = static_cast<KivoDrawingTools::KivoLegendNumbers>(name - names.begin());
        if (i == 2) legend.title = *settings.legendTitle;
        if (SetLegend(Plotter(), i, legend) != 0)
            throw Failure(Filled(Translate("Plot", "cannot draw: %1"), KivoDrawingTools::LastWindowError()));
    }
}

void PlotScene::ApplyTrace() {
    Plotter().Trace(m_settings.traces && m_hasSurface);
}

void PlotScene::ForgetTrace() {
    Plotter().Trace(false);
    ApplyTrace();
}

} // namespace KivoViewer
