#include "PublicOperations.h"

#include "AllocationFaults.h"
#include "KivoPicture.h"
#include "TestSurfaces.h"

#include <type_traits>

namespace KivoTest {

using namespace KivoDrawingTools;

namespace {

constexpr POINT inPlot = {230, 150};
constexpr POINT besideIt = {236, 146};
constexpr float blue[] = {0, 0, 1, 1};
constexpr float red[] = {1, 0, 0, 1};

void Drag(CallProbe& plotter, unsigned int flags) {
    plotter.OnRButtonDown(flags, inPlot);
    plotter.OnMouseMove(flags, besideIt);
    plotter.OnRButtonUp(0, besideIt);
}

// A member called by a lambda, whose result counts where it has one.
template <typename Call>
PublicOperation Member(const char* name, ContextUse context, Call call) {
    if constexpr (std::is_same_v<std::invoke_result_t<Call, CallProbe&>, int>)
        return {name, context, call};
    else
        return {name, context, [call](CallProbe& plotter) {
                    call(plotter);
                    return 0;
                }};
}

const std::vector<PublicOperation> operations = {
    // Core
    Member("OnDraw", ContextUse::bracketed, [](CallProbe& p) { p.OnDraw(); }),
    Member("OnSize", ContextUse::bracketed,
           [](CallProbe& p) { p.OnSize(0, RecordedPlot::width, RecordedPlot::height); }),
    Member("SetFont", ContextUse::none, [](CallProbe& p) { return p.SetFont(nullptr); }),
    Member("Renderscene", ContextUse::bracketed, [](CallProbe& p) { return p.Renderscene(); }),
    Member("SwitchToXYProjectPlot", ContextUse::bracketed,
           [](CallProbe& p) { return p.SwitchToXYProjectPlot(); }),
    Member("SwitchToYZProjectPlot", ContextUse::bracketed,
           [](CallProbe& p) { return p.SwitchToYZProjectPlot(); }),
    Member("SwitchToZXProjectPlot", ContextUse::bracketed,
           [](CallProbe& p) { return p.SwitchToZXProjectPlot(); }),
    Member("SwitchToNormalPlot", ContextUse::bracketed, [](CallProbe& p) { return p.SwitchToNormalPlot(); }),
    Member("GetCurrentPlotType", ContextUse::none, [](CallProbe& p) { p.GetCurrentPlotType(); }),
    Member("SetInverseXAxis", ContextUse::bracketed,
           [](CallProbe& p) { return p.SetInverseXAxis(!p.m_inverseXAxis); }),
    Member("SetInverseYAxis", ContextUse::bracketed,
           [](CallProbe& p) { return p.SetInverseYAxis(!p.m_inverseYAxis); }),
    Member("SetInverseZAxis", ContextUse::bracketed,
           [](CallProbe& p) { return p.SetInverseZAxis(!p.m_inverseZAxis); }),
    Member("SetAutoSwitchFramePlanes", ContextUse::none,
           [](CallProbe& p) { p.SetAutoSwitchFramePlanes(true); }),
    Member("SetBackgroundColor, floats", ContextUse::none,
           [](CallProbe& p) { p.SetBackgroundColor(1.0f, 1.0f, 0.9f, 1.0f); }),
    Member("SetBackgroundColor", ContextUse::none, [](CallProbe& p) { p.SetBackgroundColor(0xFFF0E0ul); }),
    Member("ResetBackgroundColor", ContextUse::none, [](CallProbe& p) { p.ResetBackgroundColor(); }),
    Member("ShowFrameLines", ContextUse::none, [](CallProbe& p) { p.ShowFrameLines(true); }),
    Member("IsShowFrameLines", ContextUse::none, [](CallProbe& p) { p.IsShowFrameLines(); }),
    Member("ShowXIsoContours", ContextUse::none, [](CallProbe& p) { return p.ShowXIsoContours(true); }),
    Member("IsShowXIsoContours", ContextUse::none, [](CallProbe& p) { p.IsShowXIsoContours(); }),
    Member("ShowYIsoContours", ContextUse::none, [](CallProbe& p) { return p.ShowYIsoContours(true); }),
    Member("IsShowYIsoContours", ContextUse::none, [](CallProbe& p) { p.IsShowYIsoContours(); }),
    Member("ShowZIsoContours", ContextUse::none, [](CallProbe& p) { return p.ShowZIsoContours(true); }),
    Member("IsShowZIsoContours", ContextUse::none, [](CallProbe& p) { p.IsShowZIsoContours(); }),
    Member("ShowGridLines", ContextUse::none, [](CallProbe& p) { p.ShowGridLines(true); }),
    Member("IsShowGridLines", ContextUse::none, [](CallProbe& p) { p.IsShowGridLines(); }),
    // View geometry
    Member("AutoAdjustAxisLengthRatio", ContextUse::bracketed,
           [](CallProbe& p) { p.AutoAdjustAxisLengthRatio(); }),
    Member("OnLButtonDown", ContextUse::none, [](CallProbe& p) { p.OnLButtonDown(0, inPlot); }),
    Member("OnLButtonUp", ContextUse::none, [](CallProbe& p) { p.OnLButtonUp(0, inPlot); }),
    Member("OnRButtonDown", ContextUse::none, [](CallProbe& p) { p.OnRButtonDown(MK_RBUTTON, inPlot); }),
    Member("OnMouseMove, turning", ContextUse::bracketed, [](CallProbe& p) { Drag(p, MK_RBUTTON); }),
    Member("OnMouseMove, panning", ContextUse::bracketed,
           [](CallProbe& p) { Drag(p, MK_RBUTTON | MK_SHIFT); }),
    Member("OnMouseMove, zooming", ContextUse::bracketed,
           [](CallProbe& p) { Drag(p, MK_RBUTTON | MK_CONTROL); }),
    Member("OnRButtonUp", ContextUse::none, [](CallProbe& p) { p.OnRButtonUp(0, inPlot); }),
    Member("OnMouseWheel", ContextUse::bracketed, [](CallProbe& p) { p.OnMouseWheel(0, 120, inPlot); }),
    Member("Rotate", ContextUse::bracketed, [](CallProbe& p) { p.Rotate(inPlot, besideIt); }),
    Member("Translate", ContextUse::bracketed, [](CallProbe& p) { p.Translate(inPlot, besideIt); }),
    Member("Zoom", ContextUse::bracketed, [](CallProbe& p) { p.Zoom(1.0f); }),
    Member("OnMouseMove, tracing", ContextUse::bracketed,
           [](CallProbe& p) {
               p.Trace(true);
               p.OnMouseMove(0, inPlot);
           }),
    Member("Trace, off", ContextUse::none, [](CallProbe& p) { return p.Trace(false); }),
    Member("IsTracing", ContextUse::none, [](CallProbe& p) { p.IsTracing(); }),
    Member("Trace, a point", ContextUse::bracketed, [](CallProbe& p) { p.Trace(inPlot); }),
    Member("GetTracePoint", ContextUse::none,
           [](CallProbe& p) {
               float point[3];
               p.GetTracePoint(point);
           }),
    Member("Trace_New", ContextUse::bracketed, [](CallProbe& p) { p.Trace_New(inPlot); }),
    // Surface
    Member("SetData", ContextUse::bracketed,
           [](CallProbe& p) { return p.SetData(NewHill(12, 10), 12, 10, 1, 12, 3); }),
    Member("SetDataReference", ContextUse::bracketed,
           [](CallProbe& p) {
               static float points[] = {0, 0, 0, 1, 0, 1, 0, 1, 2, 1, 1, 0.5f};
               return p.SetDataReference(points, 2, 2, 1, 2, 3);
           }),
    Member("SetFrameLineStep", ContextUse::none, [](CallProbe& p) { p.SetFrameLineStep(1, 1); }),
    Member("SetFrameLineColor", ContextUse::none, [](CallProbe& p) { p.SetFrameLineColor(0ul); }),
    Member("SetIsoContourCount", ContextUse::bracketed,
           [](CallProbe& p) {
               p.SetIsoContourCount(10);
               return p.SetIsoContourCount(20);
           }),
    // Colour
    Member("SetGradientColor, floats", ContextUse::bracketed,
           [](CallProbe& p) { p.SetGradientColor(blue, red); }),
    Member("SetGradientStartColor, floats", ContextUse::bracketed,
           [](CallProbe& p) { p.SetGradientStartColor(blue); }),
    Member("SetGradientEndColor, floats", ContextUse::bracketed,
           [](CallProbe& p) { p.SetGradientEndColor(red); }),
    Member("SetGradientColor", ContextUse::bracketed,
           [](CallProbe& p) { p.SetGradientColor(0xFF0000ul, 0x0000FFul); }),
    Member("SetGradientStartColor", ContextUse::bracketed,
           [](CallProbe& p) { p.SetGradientStartColor(0xFF0000ul); }),
    Member("SetGradientEndColor", ContextUse::bracketed,
           [](CallProbe& p) { p.SetGradientEndColor(0x0000FFul); }),
    Member("SetXGradientColor, floats", ContextUse::staysCurrent,
           [](CallProbe& p) { p.SetXGradientColor(blue, red); }),
    Member("SetXGradientStartColor, floats", ContextUse::staysCurrent,
           [](CallProbe& p) { p.SetXGradientStartColor(blue); }),
    Member("SetXGradientEndColor, floats", ContextUse::staysCurrent,
           [](CallProbe& p) { p.SetXGradientEndColor(red); }),
    Member("SetXGradientColor", ContextUse::staysCurrent,
           [](CallProbe& p) { p.SetXGradientColor(0xFF0000ul, 0x0000FFul); }),
    Member("SetXGradientStartColor", ContextUse::staysCurrent,
           [](CallProbe& p) { p.SetXGradientStartColor(0xFF0000ul); }),
    Member("SetXGradientEndColor", ContextUse::staysCurrent,
           [](CallProbe& p) { p.SetXGradientEndColor(0x0000FFul); }),
    Member("SetYGradientColor, floats", ContextUse::staysCurrent,
           [](CallProbe& p) { p.SetYGradientColor(blue, red); }),
    Member("SetYGradientStartColor, floats", ContextUse::staysCurrent,
           [](CallProbe& p) { p.SetYGradientStartColor(blue); }),
    Member("SetYGradientEndColor, floats", ContextUse::staysCurrent,
           [](CallProbe& p) { p.SetYGradientEndColor(red); }),
    Member("SetYGradientColor", ContextUse::staysCurrent,
           [](CallProbe& p) { p.SetYGradientColor(0xFF0000ul, 0x0000FFul); }),
    Member("SetYGradientStartColor", ContextUse::staysCurrent,
           [](CallProbe& p) { p.SetYGradientStartColor(0xFF0000ul); }),
    Member("SetYGradientEndColor", ContextUse::staysCurrent,
           [](CallProbe& p) { p.SetYGradientEndColor(0x0000FFul); }),
    Member("SetZGradientColor, floats", ContextUse::bracketed,
           [](CallProbe& p) { p.SetZGradientColor(blue, red); }),
    Member("SetZGradientStartColor, floats", ContextUse::bracketed,
           [](CallProbe& p) { p.SetZGradientStartColor(blue); }),
    Member("SetZGradientEndColor, floats", ContextUse::bracketed,
           [](CallProbe& p) { p.SetZGradientEndColor(red); }),
    Member("SetZGradientColor", ContextUse::bracketed,
           [](CallProbe& p) { p.SetZGradientColor(0xFF0000ul, 0x0000FFul); }),
    Member("SetZGradientStartColor", ContextUse::bracketed,
           [](CallProbe& p) { p.SetZGradientStartColor(0xFF0000ul); }),
    Member("SetZGradientEndColor", ContextUse::bracketed,
           [](CallProbe& p) { p.SetZGradientEndColor(0x0000FFul); }),
    Member("SetGradientColorRuleFloatingPointPrecision", ContextUse::bracketed,
           [](CallProbe& p) {
               p.SetGradientColorRuleFloatingPointPrecision(2);
               return p.SetGradientColorRuleFloatingPointPrecision(3);
           }),
    Member("GetGradientColorRuleFloatingPointPrecision", ContextUse::none,
           [](CallProbe& p) { p.GetGradientColorRuleFloatingPointPrecision(); }),
    // Annotation
    Member("GetPlotTitle", ContextUse::none, [](CallProbe& p) { p.GetPlotTitle(); }),
    Member("GetXAxisTitle", ContextUse::none, [](CallProbe& p) { p.GetXAxisTitle(); }),
    Member("GetYAxisTitle", ContextUse::none, [](CallProbe& p) { p.GetYAxisTitle(); }),
    Member("GetZAxisTitle", ContextUse::none, [](CallProbe& p) { p.GetZAxisTitle(); }),
    Member("SetPlotTitle", ContextUse::bracketed,
           [](CallProbe& p) { p.SetPlotTitle("A title of some length"); }),
    Member("SetXAxisTitle", ContextUse::bracketed,
           [](CallProbe& p) { p.SetXAxisTitle("A title of some length"); }),
    Member("SetYAxisTitle", ContextUse::bracketed,
           [](CallProbe& p) { p.SetYAxisTitle("A title of some length"); }),
    Member("SetZAxisTitle", ContextUse::bracketed,
           [](CallProbe& p) { p.SetZAxisTitle("A title of some length"); }),
    Member("RenderText, counted", ContextUse::callers, [](CallProbe& p) { p.RenderText(0, 0, 0, "abc", 2); }),
    Member("RenderText", ContextUse::callers, [](CallProbe& p) { p.RenderText(0, 0, 0, "abc"); }),
    Member("RenderFarText, counted", ContextUse::callers,
           [](CallProbe& p) { p.RenderFarText(0, 0, "abc", 2); }),
    Member("RenderFarText", ContextUse::callers, [](CallProbe& p) { p.RenderFarText(0, 0, "abc"); }),
    Member("RenderNearText, counted", ContextUse::callers,
           [](CallProbe& p) { p.RenderNearText(0, 0, "abc", 2); }),
    Member("RenderNearText", ContextUse::callers, [](CallProbe& p) { p.RenderNearText(0, 0, "abc"); }),
    Member("GetXAxisMin", ContextUse::none, [](CallProbe& p) { p.GetXAxisMin(); }),
    Member("GetYAxisMin", ContextUse::none, [](CallProbe& p) { p.GetYAxisMin(); }),
    Member("GetZAxisMin", ContextUse::none, [](CallProbe& p) { p.GetZAxisMin(); }),
    Member("GetXAxisMax", ContextUse::none, [](CallProbe& p) { p.GetXAxisMax(); }),
    Member("GetYAxisMax", ContextUse::none, [](CallProbe& p) { p.GetYAxisMax(); }),
    Member("GetZAxisMax", ContextUse::none, [](CallProbe& p) { p.GetZAxisMax(); }),
    Member("SetXAxisMin", ContextUse::bracketed, [](CallProbe& p) { return p.SetXAxisMin(-4.0f); }),
    Member("SetYAxisMin", ContextUse::bracketed, [](CallProbe& p) { return p.SetYAxisMin(-4.0f); }),
    Member("SetZAxisMin", ContextUse::bracketed, [](CallProbe& p) { return p.SetZAxisMin(-4.0f); }),
    Member("SetXAxisMax", ContextUse::bracketed, [](CallProbe& p) { return p.SetXAxisMax(6.0f); }),
    Member("SetYAxisMax", ContextUse::bracketed, [](CallProbe& p) { return p.SetYAxisMax(6.0f); }),
    Member("SetZAxisMax", ContextUse::bracketed, [](CallProbe& p) { return p.SetZAxisMax(6.0f); }),
    Member("GetXAxisTickMarkNumber", ContextUse::none, [](CallProbe& p) { p.GetXAxisTickMarkNumber(); }),
    Member("GetYAxisTickMarkNumber", ContextUse::none, [](CallProbe& p) { p.GetYAxisTickMarkNumber(); }),
    Member("GetZAxisTickMarkNumber", ContextUse::none, [](CallProbe& p) { p.GetZAxisTickMarkNumber(); }),
    Member("SetXAxisTickMarkNumber", ContextUse::bracketed,
           [](CallProbe& p) { return p.SetXAxisTickMarkNumber(5); }),
    Member("SetYAxisTickMarkNumber", ContextUse::bracketed,
           [](CallProbe& p) { return p.SetYAxisTickMarkNumber(5); }),
    Member("SetZAxisTickMarkNumber", ContextUse::bracketed,
           [](CallProbe& p) { return p.SetZAxisTickMarkNumber(5); }),
    Member("GetXAxisFloatingPointPrecision", ContextUse::none,
           [](CallProbe& p) { p.GetXAxisFloatingPointPrecision(); }),
    Member("GetYAxisFloatingPointPrecision", ContextUse::none,
           [](CallProbe& p) { p.GetYAxisFloatingPointPrecision(); }),
    Member("GetZAxisFloatingPointPrecision", ContextUse::none,
           [](CallProbe& p) { p.GetZAxisFloatingPointPrecision(); }),
    Member("SetXAxisFloatingPointPrecision", ContextUse::bracketed,
           [](CallProbe& p) { return p.SetXAxisFloatingPointPrecision(2); }),
    Member("SetYAxisFloatingPointPrecision", ContextUse::bracketed,
           [](CallProbe& p) { return p.SetYAxisFloatingPointPrecision(2); }),
    Member("SetZAxisFloatingPointPrecision", ContextUse::bracketed,
           [](CallProbe& p) { return p.SetZAxisFloatingPointPrecision(2); }),
    // Overlays
    Member("AddCurveData", ContextUse::none,
           [](CallProbe& p) {
               float points[] = {-2, -1, 1, 0, 0, 1.5f};
               p.AddCurveData(points, 2, 3);
           }),
    Member("SetCurveColor", ContextUse::none, [](CallProbe& p) { p.SetCurveColor(0, 0x00FF00ul); }),
    Member("SetCurveVisibility", ContextUse::none, [](CallProbe& p) { p.SetCurveVisibility(0, true); }),
    Member("SetCurveWidth", ContextUse::none, [](CallProbe& p) { p.SetCurveWidth(0, 2.0f); }),
    Member("GetPointRadiusPixelSize", ContextUse::none, [](CallProbe& p) { p.GetPointRadiusPixelSize(); }),
    Member("SetPointRadiusPixelSize", ContextUse::none,
           [](CallProbe& p) { return p.SetPointRadiusPixelSize(4); }),
    Member("AddMeasurePoints", ContextUse::bracketed,
           [](CallProbe& p) {
               static float point[3] = {};
               return p.AddMeasurePoints(1, 3, point, "Group");
           }),
    Member("AddReferenceMeasurePoints", ContextUse::bracketed,
           [](CallProbe& p) {
               static float point[3] = {};
               return p.AddReferenceMeasurePoints(1, 3, point, "Group");
           }),
    Member("GetNumMeasureGroups", ContextUse::none, [](CallProbe& p) { p.GetNumMeasureGroups(); }),
    Member("GetMeasureGroupSize", ContextUse::none, [](CallProbe& p) { p.GetMeasureGroupSize(0); }),
    Member("ShowMeasureGroup", ContextUse::none, [](CallProbe& p) { return p.ShowMeasureGroup(0, true); }),
    Member("IsShowMeasureGroup", ContextUse::none, [](CallProbe& p) { p.IsShowMeasureGroup(0); }),
    Member("ShowAllMeasureGroups", ContextUse::none,
           [](CallProbe& p) { return p.ShowAllMeasureGroups(true); }),
    Member("GetMeasureGroupColor", ContextUse::none, [](CallProbe& p) { p.GetMeasureGroupColor(0); }),
    Member("SetMeasureGroupColor", ContextUse::none,
           [](CallProbe& p) { return p.SetMeasureGroupColor(0, 0x00FF00ul); }),
    Member("GetMeasureGroupName", ContextUse::none,
           [](CallProbe& p) {
               std::string name;
               return p.GetMeasureGroupName(0, &name);
           }),
    Member("SetMeasureGroupName", ContextUse::bracketed,
           [](CallProbe& p) { return p.SetMeasureGroupName(0, "A name of some length"); }),
    Member("GetMeasureGroupIndexByName", ContextUse::none,
           [](CallProbe& p) { p.GetMeasureGroupIndexByName("A name of some length"); }),
    // Pictures
    Member("CapturePicture", ContextUse::bracketed,
           [](CallProbe& p) {
               std::vector<unsigned char> rgba;
               int width = 0, height = 0;
               return CapturePicture(p, rgba, width, height);
           }),
    Member("CapturePicture, sized", ContextUse::bracketed,
           [](CallProbe& p) {
               std::vector<unsigned char> rgba;
               return CapturePicture(p, 500, 200, rgba);
           }),
};

} // namespace

float* NewHill(unsigned int columns, unsigned int rows) {
    const WithoutAllocationFaults reliable;
    return HillSurface(columns, rows).NewArray();
}

const std::vector<PublicOperation>& PublicOperations() {
    return operations;
}

} // namespace KivoTest
