#include "PublicMembers.h"

#include "KivoAxis.h"
#include "KivoColorMap.h"
#include "KivoContours.h"
#include "KivoLegend.h"
#include "KivoMotion.h"
#include "KivoPicture.h"
#include "KivoPoints.h"
#include "KivoStyle.h"
#include "KivoSurfaces.h"
#include "KivoView.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <tuple>
#include <type_traits>
#include <utility>

namespace KivoDrawingTools {

PublicMember& PublicMember::Adds() {
    repetition = Repetition::adds;
    return *this;
}

PublicMember& PublicMember::Changes() {
    repetition = Repetition::changes;
    return *this;
}

PublicMember& PublicMember::Refuses(int result) {
    refusals.push_back(result);
    return *this;
}

PublicMember& PublicMember::GivesSystemCodes() {
    hasSystemCodes = true;
    return *this;
}

std::string PublicMember::MemberName() const {
    return name.substr(0, name.find('('));
}

bool PublicMember::IsDocumented(int result) const {
    return result == 0 || hasSystemCodes ||
           std::find(refusals.begin(), refusals.end(), result) != refusals.end();
}

namespace {

using P = PlotterProbe;
using A = Arguments;

constexpr ContextUse none = ContextUse::none;
constexpr ContextUse callers = ContextUse::callers;
constexpr ContextUse bracketed = ContextUse::bracketed;
constexpr ContextUse staysCurrent = ContextUse::staysCurrent;
constexpr ContextUse lifetime = ContextUse::lifetime;

constexpr POINT inPlot = {230, 150};
constexpr POINT besideIt = {236, 146};
constexpr float blue[] = {0, 0, 1, 1};
constexpr float red[] = {1, 0, 0, 1};

// ---- Kinds of arguments, each with what a sensible caller would pass

template <typename Take>
struct Argument {
    const char* kind;
    Take From; ///< takes it from a source
};

template <typename Take>
Argument(const char*, Take) -> Argument<Take>;

auto Window() {
    return Argument{"window", [](A& a) { return a.Window(); }};
}
auto Flag(bool plausible) {
    return Argument{"flag", [=](A& a) { return a.Flag(plausible); }};
}
auto Float(float plausible) {
    return Argument{"float", [=](A& a) { return a.Float(plausible); }};
}
auto Int(int plausible) {
    return Argument{"int", [=](A& a) { return a.Int(plausible); }};
}
auto Delta(int plausible) {
    return Argument{"delta", [=](A& a) { return static_cast<short>(a.Int(plausible)); }};
}
auto Unsigned(unsigned int plausible) {
    return Argument{"unsigned", [=](A& a) { return a.Unsigned(plausible); }};
}
auto Group() {
    return Argument{"group", [](A& a) { return a.GroupIndex(); }};
}
auto TextHeight(int plausible) {
    return Argument{"height", [=](A& a) { return a.Of(Amount::textHeight, plausible); }};
}
auto Count(const char* kind, Amount amount, int plausible) {
    return Argument{kind, [=](A& a) { return static_cast<unsigned int>(a.Of(amount, plausible)); }};
}
auto Ticks(int plausible) {
    return Count("ticks", Amount::ticks, plausible);
}
auto Contours(int plausible) {
    return Count("contours", Amount::contours, plausible);
}
auto Digits(int plausible) {
    return Count("digits", Amount::digits, plausible);
}
auto Keys(unsigned int plausible) {
    return Argument{"keys", [=](A& a) { return a.KeyState(plausible); }};
}
auto Point(POINT plausible) {
    return Argument{"point", [=](A& a) { return a.Point(plausible); }};
}
auto Color(unsigned long plausible) {
    return Argument{"color", [=](A& a) { return a.Color(plausible); }};
}
auto Rgba(const float* plausible) {
    return Argument{"rgba", [=](A& a) { return a.Rgba(plausible); }};
}
auto Text(const char* plausible) {
    return Argument{"text", [=](A& a) { return a.Text(plausible); }};
}

// ---- Rows of the table

// A member called by a function of plotter and source, whose result counts when it is an int.
template <typename Call>
PublicMember Member(const std::string& name, ContextUse context, Call call) {
    if constexpr (std::is_same_v<std::invoke_result_t<Call, P&, A&>, int>)
        return {name, context, call};
    else
        return {name, context, [call](P& plotter, A& source) {
                    call(plotter, source);
                    return 0;
                }};
}

// They are drawn in the order of the list in braces; in which order a call evaluates its arguments is the
// compiler's choice.
template <typename Call, typename... Kinds>
PublicMember Named(const char* name, Call call, ContextUse context, Kinds... kinds) {
    std::string list;
    for (const char* const kind : std::initializer_list<const char*>{kinds.kind...})
        list += (list.empty() ? "" : ", ") + std::string(kind);
    return Member(std::string(name) + "(" + list + ")", context, [=](P& plotter, [[maybe_unused]] A& source) {
        const auto drawn = std::tuple{kinds.From(source)...};
        return std::apply([&](const auto&... arguments) { return call(plotter, arguments...); }, drawn);
    });
}

// KIVO_MEMBER(name, context, arguments...): the member of this name, whichever of its overloads takes these
// kinds of arguments.
#define KIVO_MEMBER(name, ...)                                                                               \
    Named(                                                                                                   \
        #name, [](P& plotter, const auto&... arguments) { return plotter.name(arguments...); }, __VA_ARGS__)

int Capture(P& plotter, A&) {
    std::vector<unsigned char> rgba;
    int width = 0, height = 0;
    const int result = CapturePicture(plotter, rgba, width, height);
    return rgba.size() == std::size_t{4} * width * height ? result : contradiction;
}

int CaptureSized(P& plotter, A& source) {
    std::vector<unsigned char> rgba;
    const int width = source.Of(Amount::pictureSize, 500);
    const int height = source.Of(Amount::pictureSize, 200);
    const int result = CapturePicture(plotter, width, height, rgba);
    return rgba.size() == (result == 0 ? std::size_t{4} * width * height : 0) ? result : contradiction;
}

// Says yes to each seventh question.
SKivoStopRequest StopAtTheSeventh() {
    thread_local int asked = 0;
    const auto ask = [](void* count) { return ++*static_cast<int*>(count) % 7 == 0; };
    return {ask, &asked};
}

SKivoPictureOptions SmoothOptions(A& source) {
    SKivoPictureOptions options;
    options.width = source.Of(Amount::pictureSize, 300);
    options.height = source.Of(Amount::pictureSize, 200);
    options.scale = source.Float(1.25f);
    options.smoothing = source.Int(2);
    options.transparent = source.Flag(true);
    options.moving = source.Flag(true);
    if (source.Flag(false)) options.stop = StopAtTheSeventh();
    return options;
}

int Measure(P& plotter, A& source) {
    int width = -1, height = -1;
    const int result = MeasurePicture(plotter, SmoothOptions(source), width, height);
    return (result == 0) == (width > 0 && height > 0) ? result : contradiction;
}

int CaptureSmooth(P& plotter, A& source) {
    std::vector<unsigned char> rgba;
    int width = 0, height = 0;
    const int result = CapturePicture(plotter, SmoothOptions(source), rgba, width, height);
    return rgba.size() == std::size_t{4} * width * height ? result : contradiction;
}

// A buffer of any size, and one that is too small.
int DrawSmooth(P& plotter, A& source) {
    SKivoPictureOptions options = SmoothOptions(source);
    options.transparent = false;
    int width = 0, height = 0;
    const int result = MeasurePicture(plotter, options, width, height);
    const std::size_t rowBytes = std::size_t{4} * width + 8;
    std::vector<unsigned char> pixels(rowBytes * height);
    if (result != 0) return result;
    const int refused = DrawPicture(plotter, options, pixels.data(), 3, KivoPixelOrder::rgba);
    if (refused != -3) return refused == 0 ? contradiction : refused;
    return DrawPicture(plotter, options, pixels.data(), rowBytes, KivoPixelOrder::bgra);
}

// Its own view is one that any plot can take.
int TakeOwnView(P& plotter, A&) {
    return TakeView(plotter, plotter);
}

// Some members are called with two values, so that there is something to do each time.

// ---- Core

const std::vector<PublicMember> coreMembers = {
    KIVO_MEMBER(OnCreate, lifetime, Window(), Flag(true)).Refuses(-1),
    KIVO_MEMBER(OnCreate, lifetime, Window(), Int(400), Int(300), Flag(true)).Refuses(-1),
    KIVO_MEMBER(OnCreate, lifetime, Window(), Int(400), Int(300), TextHeight(10), Flag(true)).Refuses(-1),
    KIVO_MEMBER(OnDestroy, lifetime),
    KIVO_MEMBER(OnDraw, bracketed),
    KIVO_MEMBER(OnSize, bracketed, Unsigned(0), Int(400), Int(300)),
    Member("SetFont(font)", none, [](P& p, A&) { return p.SetFont(nullptr); }),
    KIVO_MEMBER(Renderscene, bracketed).GivesSystemCodes(),
    KIVO_MEMBER(SwitchToXYProjectPlot, bracketed),
    KIVO_MEMBER(SwitchToYZProjectPlot, bracketed),
    KIVO_MEMBER(SwitchToZXProjectPlot, bracketed),
    KIVO_MEMBER(SwitchToNormalPlot, bracketed),
    Member("GetCurrentPlotType()", none,
           [](P& p, A&) {
               const int type = p.GetCurrentPlotType();
               return type >= 0 && type <= 3 ? 0 : contradiction;
           }),
    Member("SetInverseXAxis(flag)", bracketed,
           [](P& p, A& a) { return p.SetInverseXAxis(a.Flag(!p.m_inverseXAxis)); })
        .Changes(),
    Member("SetInverseYAxis(flag)", bracketed,
           [](P& p, A& a) { return p.SetInverseYAxis(a.Flag(!p.m_inverseYAxis)); })
        .Changes(),
    Member("SetInverseZAxis(flag)", bracketed,
           [](P& p, A& a) { return p.SetInverseZAxis(a.Flag(!p.m_inverseZAxis)); })
        .Changes(),
    KIVO_MEMBER(SetAutoSwitchFramePlanes, none, Flag(true)),
    KIVO_MEMBER(SetBackgroundColor, none, Float(1.0f), Float(1.0f), Float(0.9f), Float(1.0f)),
    KIVO_MEMBER(SetBackgroundColor, none, Color(0xFFF0E0)),
    KIVO_MEMBER(ResetBackgroundColor, none),
    KIVO_MEMBER(ShowFrameLines, none, Flag(true)),
    KIVO_MEMBER(IsShowFrameLines, none),
    KIVO_MEMBER(ShowXIsoContours, none, Flag(true)),
    KIVO_MEMBER(IsShowXIsoContours, none),
    KIVO_MEMBER(ShowYIsoContours, none, Flag(true)),
    KIVO_MEMBER(IsShowYIsoContours, none),
    KIVO_MEMBER(ShowZIsoContours, none, Flag(true)),
    KIVO_MEMBER(IsShowZIsoContours, none),
    KIVO_MEMBER(ShowGridLines, none, Flag(true)),
    KIVO_MEMBER(IsShowGridLines, none),
};

// ---- View geometry

const std::vector<PublicMember> viewMembers = {
    KIVO_MEMBER(AutoAdjustAxisLengthRatio, bracketed),
    KIVO_MEMBER(OnLButtonDown, none, Keys(0), Point(inPlot)),
    KIVO_MEMBER(OnLButtonUp, none, Keys(0), Point(inPlot)),
    KIVO_MEMBER(OnRButtonDown, none, Keys(MK_RBUTTON), Point(inPlot)),
    KIVO_MEMBER(OnRButtonUp, none, Keys(0), Point(inPlot)),
    KIVO_MEMBER(OnMouseMove, none, Keys(0), Point(inPlot)).Changes(),
    KIVO_MEMBER(OnMouseWheel, bracketed, Keys(0), Delta(120), Point(inPlot)).Changes(),
    KIVO_MEMBER(Rotate, bracketed, Point(inPlot), Point(besideIt)).Changes(),
    KIVO_MEMBER(Translate, bracketed, Point(inPlot), Point(besideIt)).Changes(),
    KIVO_MEMBER(Zoom, bracketed, Float(1.0f)),
    KIVO_MEMBER(Trace, none, Flag(false)),
    KIVO_MEMBER(IsTracing, none),
    Member("GetTracePoint(point)", none,
           [](P& p, A&) {
               float point[3];
               p.GetTracePoint(point);
           }),
    KIVO_MEMBER(Trace, bracketed, Point(inPlot)).Refuses(1),
    Member("Trace_New(point)", bracketed,
           [](P& p, A& a) { return p.Trace_New(a.Point(inPlot)) == 1 ? 0 : contradiction; }),
};

// ---- Surface

const std::vector<PublicMember> surfaceMembers = {
    Member("SetData(grid)", bracketed,
           [](P& p, A& a) {
               const GridArguments grid = a.GridToTakeOver();
               return p.SetData(grid.points, grid.columns, grid.rows, grid.columnStride, grid.rowStride,
                                grid.components);
           }),
    Member("SetDataReference(grid)", bracketed,
           [](P& p, A& a) {
               const GridArguments grid = a.GridToRefer();
               return p.SetDataReference(grid.points, grid.columns, grid.rows, grid.columnStride,
                                         grid.rowStride, grid.components);
           }),
    KIVO_MEMBER(SetFrameLineStep, none, Unsigned(1), Unsigned(1)),
    KIVO_MEMBER(SetFrameLineColor, none, Color(0)),
    Member("SetIsoContourCount(contours)", bracketed,
           [](P& p, A& a) {
               p.SetIsoContourCount(Contours(10).From(a));
               return p.SetIsoContourCount(Contours(20).From(a));
           })
        .Refuses(-3),
};

// ---- Colour

const std::vector<PublicMember> colorMembers = {
    KIVO_MEMBER(SetGradientColor, bracketed, Rgba(blue), Rgba(red)),
    KIVO_MEMBER(SetGradientStartColor, bracketed, Rgba(blue)),
    KIVO_MEMBER(SetGradientEndColor, bracketed, Rgba(red)),
    KIVO_MEMBER(SetGradientColor, bracketed, Color(0xFF0000), Color(0x0000FF)),
    KIVO_MEMBER(SetGradientStartColor, bracketed, Color(0xFF0000)),
    KIVO_MEMBER(SetGradientEndColor, bracketed, Color(0x0000FF)),
    KIVO_MEMBER(SetXGradientColor, staysCurrent, Rgba(blue), Rgba(red)),
    KIVO_MEMBER(SetXGradientStartColor, staysCurrent, Rgba(blue)),
    KIVO_MEMBER(SetXGradientEndColor, staysCurrent, Rgba(red)),
    KIVO_MEMBER(SetXGradientColor, staysCurrent, Color(0xFF0000), Color(0x0000FF)),
    KIVO_MEMBER(SetXGradientStartColor, staysCurrent, Color(0xFF0000)),
    KIVO_MEMBER(SetXGradientEndColor, staysCurrent, Color(0x0000FF)),
    KIVO_MEMBER(SetYGradientColor, staysCurrent, Rgba(blue), Rgba(red)),
    KIVO_MEMBER(SetYGradientStartColor, staysCurrent, Rgba(blue)),
    KIVO_MEMBER(SetYGradientEndColor, staysCurrent, Rgba(red)),
    KIVO_MEMBER(SetYGradientColor, staysCurrent, Color(0xFF0000), Color(0x0000FF)),
    KIVO_MEMBER(SetYGradientStartColor, staysCurrent, Color(0xFF0000)),
    KIVO_MEMBER(SetYGradientEndColor, staysCurrent, Color(0x0000FF)),
    KIVO_MEMBER(SetZGradientColor, bracketed, Rgba(blue), Rgba(red)),
    KIVO_MEMBER(SetZGradientStartColor, bracketed, Rgba(blue)),
    KIVO_MEMBER(SetZGradientEndColor, bracketed, Rgba(red)),
    KIVO_MEMBER(SetZGradientColor, bracketed, Color(0xFF0000), Color(0x0000FF)),
    KIVO_MEMBER(SetZGradientStartColor, bracketed, Color(0xFF0000)),
    KIVO_MEMBER(SetZGradientEndColor, bracketed, Color(0x0000FF)),
    Member("SetGradientColorRuleFloatingPointPrecision(digits)", bracketed,
           [](P& p, A& a) {
               p.SetGradientColorRuleFloatingPointPrecision(Digits(2).From(a));
               return p.SetGradientColorRuleFloatingPointPrecision(Digits(3).From(a));
           }),
    KIVO_MEMBER(GetGradientColorRuleFloatingPointPrecision, none),
};

// ---- Annotation

const std::vector<PublicMember> annotationMembers = {
    KIVO_MEMBER(GetPlotTitle, none),
    KIVO_MEMBER(GetXAxisTitle, none),
    KIVO_MEMBER(GetYAxisTitle, none),
    KIVO_MEMBER(GetZAxisTitle, none),
    KIVO_MEMBER(SetPlotTitle, bracketed, Text("A title of some length")),
    KIVO_MEMBER(SetXAxisTitle, bracketed, Text("A title of some length")),
    KIVO_MEMBER(SetYAxisTitle, bracketed, Text("A title of some length")),
    KIVO_MEMBER(SetZAxisTitle, bracketed, Text("A title of some length")),
    Member("CreateTextImage(text)", callers,
           [](P& p, A& a) {
               SKivoTexImage image;
               const int result = p.CreateTextImage(p.m_textRenderer, a.Text("A text"), &image);
               p.ReleaseTex(&image);
               return result;
           })
        .Refuses(-1),
    Member("RenderText(float, float, float, text, count)", callers,
           [](P& p, A& a) {
               const float x = a.Float(0.0f), y = a.Float(0.0f), z = a.Float(0.0f);
               const char* const text = a.Text("abcd");
               p.RenderText(x, y, z, text, std::strlen(text) / 2);
           }),
    KIVO_MEMBER(RenderText, callers, Float(0.0f), Float(0.0f), Float(0.0f), Text("abc")),
    Member("RenderFarText(float, float, text, count)", callers,
           [](P& p, A& a) {
               const float x = a.Float(0.0f), y = a.Float(0.0f);
               const char* const text = a.Text("abcd");
               p.RenderFarText(x, y, text, std::strlen(text) / 2);
           }),
    KIVO_MEMBER(RenderFarText, callers, Float(0.0f), Float(0.0f), Text("abc")),
    Member("RenderNearText(float, float, text, count)", callers,
           [](P& p, A& a) {
               const float x = a.Float(0.0f), y = a.Float(0.0f);
               const char* const text = a.Text("abcd");
               p.RenderNearText(x, y, text, std::strlen(text) / 2);
           }),
    KIVO_MEMBER(RenderNearText, callers, Float(0.0f), Float(0.0f), Text("abc")),
    KIVO_MEMBER(GetXAxisMin, none),
    KIVO_MEMBER(GetYAxisMin, none),
    KIVO_MEMBER(GetZAxisMin, none),
    KIVO_MEMBER(GetXAxisMax, none),
    KIVO_MEMBER(GetYAxisMax, none),
    KIVO_MEMBER(GetZAxisMax, none),
    KIVO_MEMBER(SetXAxisMin, bracketed, Float(-4.0f)),
    KIVO_MEMBER(SetYAxisMin, bracketed, Float(-4.0f)),
    KIVO_MEMBER(SetZAxisMin, bracketed, Float(-4.0f)),
    KIVO_MEMBER(SetXAxisMax, bracketed, Float(6.0f)),
    KIVO_MEMBER(SetYAxisMax, bracketed, Float(6.0f)),
    KIVO_MEMBER(SetZAxisMax, bracketed, Float(6.0f)),
    KIVO_MEMBER(GetXAxisTickMarkNumber, none),
    KIVO_MEMBER(GetYAxisTickMarkNumber, none),
    KIVO_MEMBER(GetZAxisTickMarkNumber, none),
    KIVO_MEMBER(SetXAxisTickMarkNumber, bracketed, Ticks(5)),
    KIVO_MEMBER(SetYAxisTickMarkNumber, bracketed, Ticks(5)),
    KIVO_MEMBER(SetZAxisTickMarkNumber, bracketed, Ticks(5)),
    KIVO_MEMBER(GetXAxisFloatingPointPrecision, none),
    KIVO_MEMBER(GetYAxisFloatingPointPrecision, none),
    KIVO_MEMBER(GetZAxisFloatingPointPrecision, none),
    KIVO_MEMBER(SetXAxisFloatingPointPrecision, bracketed, Digits(2)),
    KIVO_MEMBER(SetYAxisFloatingPointPrecision, bracketed, Digits(2)),
    KIVO_MEMBER(SetZAxisFloatingPointPrecision, bracketed, Digits(2)),
};

// ---- Overlays

const std::vector<PublicMember> overlayMembers = {
    Member("AddCurveData(points)", none,
           [](P& p, A& a) {
               const PointArguments curve = a.Points();
               return std::min(p.AddCurveData(curve.points, curve.count, curve.floatsPerPoint), 0);
           })
        .Adds()
        .Refuses(-3),
    KIVO_MEMBER(SetCurveColor, none, Int(0), Color(0x00FF00)).Refuses(-2),
    KIVO_MEMBER(SetCurveVisibility, none, Int(0), Flag(true)).Refuses(-2),
    KIVO_MEMBER(SetCurveWidth, none, Int(0), Float(2.0f)).Refuses(-2),
    KIVO_MEMBER(GetPointRadiusPixelSize, none),
    KIVO_MEMBER(SetPointRadiusPixelSize, none, Unsigned(4)),
    Member("AddMeasurePoints(points, text)", bracketed,
           [](P& p, A& a) {
               const PointArguments group = a.Points();
               return p.AddMeasurePoints(group.count, group.floatsPerPoint, group.points, a.Text("Group"));
           })
        .Adds()
        .Refuses(-3),
    Member("AddReferenceMeasurePoints(points, text)", bracketed,
           [](P& p, A& a) {
               const PointArguments group = a.Points();
               return p.AddReferenceMeasurePoints(group.count, group.floatsPerPoint, group.points,
                                                  a.Text("Group"));
           })
        .Adds()
        .Refuses(-3),
    KIVO_MEMBER(GetNumMeasureGroups, none),
    KIVO_MEMBER(GetMeasureGroupSize, none, Group()),
    KIVO_MEMBER(ShowMeasureGroup, none, Group(), Flag(true)).Refuses(-2),
    KIVO_MEMBER(IsShowMeasureGroup, none, Group()),
    KIVO_MEMBER(ShowAllMeasureGroups, none, Flag(true)),
    KIVO_MEMBER(GetMeasureGroupColor, none, Group()),
    KIVO_MEMBER(SetMeasureGroupColor, none, Group(), Color(0x00FF00)).Refuses(-2),
    Member("GetMeasureGroupName(group)", none,
           [](P& p, A& a) {
               std::string name;
               return p.GetMeasureGroupName(a.GroupIndex(), &name);
           })
        .Refuses(-2),
    KIVO_MEMBER(SetMeasureGroupName, bracketed, Group(), Text("A name of some length")).Refuses(-2),
    Member("GetMeasureGroupIndexByName(text)", none,
           [](P& p, A& a) { p.GetMeasureGroupIndexByName(a.Text("A name of some length")); }),
};

// ---- KivoPicture.h

const std::vector<PublicMember> pictureFunctions = {
    Member("CapturePicture()", bracketed, Capture).Refuses(-1),
    Member("CapturePicture(size, size)", bracketed, CaptureSized).Refuses(-1).Refuses(-3),
    Member("CapturePicture(options)", bracketed, CaptureSmooth).Refuses(-1).Refuses(-3),
    Member("DrawPicture(options)", bracketed, DrawSmooth).Refuses(-1).Refuses(-3),
    Member("MeasurePicture(options)", none, Measure).Refuses(-1).Refuses(-3),
    Member("TakeView(plotter)", bracketed, TakeOwnView).Refuses(-1).Refuses(-3),
};

// ---- KivoStyle.h

// Another one before the one that there is already, so that texts and fonts are made in every call.
int SetStyleAnew(P& plotter, A& source) {
    SKivoStyle style;
    style.pixelScale = source.Float(1.0f);
    style.inkColor = source.Color(0);
    style.textFace = source.Text("");
    style.boldText = source.Flag(true);
    if (style.pixelScale == GetStyle(plotter).pixelScale) {
        SKivoStyle other;
        other.pixelScale = 1.5f;
        other.inkColor = 0x00E0F0FF;
        other.textFace = "DejaVu Serif";
        other.boldText = false;
        if (const int result = SetStyle(plotter, other)) return result;
    }
    return SetStyle(plotter, style);
}

const std::vector<PublicMember> styleFunctions = {
    Member("GetStyle()", none, [](P& p, A&) { return GetStyle(p).pixelScale > 0.0f ? 0 : contradiction; }),
    Member("SetStyle(float, color, text, flag)", bracketed, SetStyleAnew).Refuses(-1).Refuses(-3),
    Member("OnDensityChanged()", bracketed, [](P& p, A&) { return OnDensityChanged(p); }).Refuses(-1),
};

// ---- KivoMotion.h

const std::vector<PublicMember> motionFunctions = {
    Member("CullSmallTriangles(flag)", none, [](P& p, A& a) { return CullSmallTriangles(p, a.Flag(true)); }),
    Member("SetMotionDetail(unsigned)", none,
           [](P& p, A& a) { return SetMotionDetail(p, Unsigned(5).From(a)); })
        .Refuses(-3),
    Member("IsDetailReduced()", none, [](P& p, A&) { IsDetailReduced(p); }),
    Member("RenderMovedScene()", bracketed, [](P& p, A&) { return RenderMovedScene(p); }).GivesSystemCodes(),
    Member("SetRedrawRequest()", none, [](P& p, A&) { return SetRedrawRequest(p, nullptr, nullptr); }),
    Member("MotionDetailFor(float)", bracketed, [](P& p, A& a) { MotionDetailFor(p, a.Float(1.0f)); }),
    Member("MotionDetailFor(float, stop)", bracketed,
           [](P& p, A& a) { MotionDetailFor(p, a.Float(1.0f), StopAtTheSeventh()); }),
};

// ---- KivoSurfaces.h

SKivoSurface SomeLooks(A& source) {
    SKivoSurface looks;
    looks.isVisible = source.Flag(true);
    looks.opacity = source.Float(0.5f);
    looks.isColoredByZ = source.Flag(true);
    looks.color = source.Color(0x000080FF);
    looks.frameLineStep[0] = source.Unsigned(1);
    looks.frameLineStep[1] = source.Unsigned(2);
    return looks;
}

// Its number, or what refuses it.
int AddOver(P& plotter, A& source) {
    const GridArguments grid = source.GridToRefer();
    const SKivoSurface looks = SomeLooks(source);
    return AddSurface(plotter, grid.points, grid.columns, grid.rows, grid.columnStride, grid.rowStride,
                      grid.components, looks);
}

// The last few stay.
int AddOneMore(P& plotter, A& source) {
    const int number = AddOver(plotter, source);
    if (number > 3) RemoveSurface(plotter, number - 3);
    return std::min(number, 0);
}

int AddAndRemove(P& plotter, A& source) {
    const int number = AddOver(plotter, source);
    return number < 0 ? number : RemoveSurface(plotter, source.Int(number));
}

int GetLooks(P& plotter, A& source) {
    SKivoSurface looks;
    return GetSurface(plotter, source.Int(0), &looks);
}

// The axis itself, or a number that is none: what were set for others, sensible arguments would not
// replace.
int AxisOrNone(A& source, int axis) {
    const int drawn = source.Int(axis);
    return drawn >= 0 && drawn < 3 ? axis : drawn;
}

const std::vector<PublicMember> surfaceFunctions = {
    Member("AddSurface(grid, looks)", none, AddOneMore).Adds().Refuses(-3),
    Member("SetSurface(int, looks)", none,
           [](P& p, A& a) {
               const int surface = a.Int(0);
               return SetSurface(p, surface, SomeLooks(a));
           })
        .Refuses(-2)
        .Refuses(-3),
    Member("GetSurface(int)", none, GetLooks).Refuses(-2),
    Member("GetSurfaceCount()", none, [](P& p, A&) { GetSurfaceCount(p); }),
    Member("FitAxesToSurfaces(flag)", bracketed,
           [](P& p, A& a) {
               const bool all = a.Flag(true);
               FitAxesToSurfaces(p, !all);
               return FitAxesToSurfaces(p, all);
           }),
    Member("KeepFrameLineStep(count, count)", none,
           [](P& p, A& a) {
               const unsigned int columnStep = a.Unsigned(3);
               return KeepFrameLineStep(p, columnStep, a.Unsigned(2));
           }),
    Member("AxesFitSurfaces()", none, [](P& p, A&) { AxesFitSurfaces(p); }),
    Member("CutToAxis(int, flag)", none,
           [](P& p, A& a) {
               const int axis = AxisOrNone(a, 2);
               return CutToAxis(p, axis, a.Flag(true));
           })
        .Refuses(-3),
    Member("IsCutToAxis(int)", none, [](P& p, A& a) { IsCutToAxis(p, a.Int(2)); }),
    Member("TracedSurface()", none, [](P& p, A&) { TracedSurface(p); }),
    Member("RemoveSurface(grid, looks, int)", none, AddAndRemove).Refuses(-2).Refuses(-3),
};

// ---- KivoAxis.h

// Another one before the one that there is already, so that labels are made in every call.
int SetOriginAnew(P& plotter, A& source) {
    const int axis = AxisOrNone(source, 0);
    const double origin = static_cast<double>(source.Float(1000.0f)) * source.Float(1.0f);
    if (origin == GetAxisOrigin(plotter, axis)) {
        if (const int result = SetAxisOrigin(plotter, axis, -0.125)) return result;
    }
    return SetAxisOrigin(plotter, axis, origin);
}

int SetFormat(P& plotter, A& source) {
    const int axis = AxisOrNone(source, 1);
    if (!source.Flag(true)) return SetAxisLabelFormat(plotter, axis, nullptr);
    const std::string unit = source.Text(" m");
    return SetAxisLabelFormat(plotter, axis, [unit](double value, double step) {
        return std::to_string(static_cast<int>(std::clamp(value / (step + 1.0), -1e6, 1e6))) + unit;
    });
}

const std::vector<PublicMember> axisFunctions = {
    Member("SetAxisOrigin(int, float, float)", bracketed, SetOriginAnew).Refuses(-1).Refuses(-3),
    Member("GetAxisOrigin(int)", none, [](P& p, A& a) { GetAxisOrigin(p, a.Int(2)); }),
    Member("SetAxisLabelFormat(int, flag, text)", bracketed, SetFormat).Refuses(-1).Refuses(-3),
    Member("ReadOutNumber(int, float)", none,
           [](P& p, A& a) {
               const int axis = a.Int(2);
               ReadOutNumber(p, axis, a.Float(0.5f));
           }),
};

// ---- KivoColorMap.h

int SetTable(P& plotter, A& source) {
    const int axis = source.Int(2);
    float colors[8];
    std::copy_n(source.Rgba(blue), 4, colors);
    std::copy_n(source.Rgba(red), 4, colors + 4);
    return SetColorMap(plotter, axis, colors, 2);
}

// Held and free again, so that there is something to do each time.
int HoldColorRange(P& plotter, A& source) {
    const int axis = source.Int(2);
    const float min = source.Float(-1.0f), max = source.Float(0.5f);
    const int held = SetColorRange(plotter, axis, min, max);
    const int free = SetColorRange(plotter, axis, min, min);
    return held != 0 ? held : free;
}

const std::vector<PublicMember> colorMapFunctions = {
    Member("SetColorMap(int, rgba, rgba)", none, SetTable).Refuses(-1).Refuses(-3),
    Member("SetColorMap(int, text)", none,
           [](P& p, A& a) {
               const int axis = a.Int(2);
               return SetColorMap(p, axis, a.Text("viridis"));
           })
        .Refuses(-1)
        .Refuses(-3),
    Member("ColorMapNames()", none, [](P&, A&) { return ColorMapNames().empty() ? contradiction : 0; }),
    Member("SetColorRange(int, float, float)", bracketed, HoldColorRange).Refuses(-1).Refuses(-3),
};

// ---- KivoContours.h

const std::vector<PublicMember> contourFunctions = {
    Member("SetContourInterval(int, float, float)", none,
           [](P& p, A& a) {
               const int axis = a.Int(2);
               const auto interval = static_cast<double>(a.Float(0.125f));
               const auto base = static_cast<double>(a.Float(0.5f));
               const int result = SetContourInterval(p, axis, interval, base);
               const int back = SetContourInterval(p, axis, 0.0);
               return result != 0 ? result : back;
           })
        .Refuses(-3),
    Member("FillContours(flag)", none, [](P& p, A& a) { return FillContours(p, a.Flag(true)); }),
    Member("AreContoursFilled()", none, [](P& p, A&) { AreContoursFilled(p); }),
    Member("LabelContours(flag)", bracketed,
           [](P& p, A& a) {
               const int result = LabelContours(p, a.Flag(true));
               const int back = LabelContours(p, false);
               return result != 0 ? result : back;
           })
        .Refuses(-1),
    Member("AreContoursLabeled()", none, [](P& p, A&) { AreContoursLabeled(p); }),
};

// ---- KivoPoints.h

const std::vector<PublicMember> pointFunctions = {
    Member("RemoveCurve(int)", none, [](P& p, A& a) { return RemoveCurve(p, a.Int(0)); })
        .Changes()
        .Refuses(-2),
    Member("RemoveMeasureGroup(group)", bracketed,
           [](P& p, A& a) { return RemoveMeasureGroup(p, a.GroupIndex()); })
        .Changes()
        .Refuses(-1)
        .Refuses(-2),
    Member("ShowPointsInFlatPlots(flag)", none,
           [](P& p, A& a) { return ShowPointsInFlatPlots(p, a.Flag(true)); }),
    Member("ArePointsInFlatPlots()", none, [](P& p, A&) { ArePointsInFlatPlots(p); }),
    Member("SetMeasurePointNames(group, text)", bracketed,
           [](P& p, A& a) {
               const unsigned int group = a.GroupIndex();
               const int result = SetMeasurePointNames(p, group, {a.Text("B 12"), "", "C"});
               const int back = SetMeasurePointNames(p, group, {});
               return result != 0 ? result : back;
           })
        .Refuses(-1)
        .Refuses(-2),
    Member("SetListedTexts(group, text)", bracketed,
           [](P& p, A& a) {
               const unsigned int group = a.GroupIndex();
               const int result = SetListedTexts(p, group, {a.Text("B 12  3.0  4.0"), "", "C"});
               const int back = SetListedTexts(p, group, {});
               return result != 0 ? result : back;
           })
        .Refuses(-1)
        .Refuses(-2),
};

// ---- KivoLegend.h

// Another one before the one that there is at first, so that texts are made in every call.
int SetLegendAnew(P& plotter, A& source) {
    const int axis = source.Int(2);
    SKivoLegend legend;
    legend.title = source.Text("A unit");
    legend.numbers = source.Flag(true) ? KivoLegendNumbers::round : KivoLegendNumbers::fitted;
    const int result = SetLegend(plotter, axis, legend);
    legend = {};
    legend.isShown = source.Flag(true);
    const int back = SetLegend(plotter, axis, legend);
    return result != 0 ? result : back;
}

const std::vector<PublicMember> legendFunctions = {
    Member("GetLegend(int)", none, [](P& p, A& a) { GetLegend(p, a.Int(2)); }),
    Member("SetLegend(int, text, flag, flag)", bracketed, SetLegendAnew).Refuses(-1).Refuses(-3),
    Member("ShowMeasureGroupNames(flag)", none,
           [](P& p, A& a) { return ShowMeasureGroupNames(p, a.Flag(true)); }),
    Member("IsShowMeasureGroupNames()", none, [](P& p, A&) { IsShowMeasureGroupNames(p); }),
    Member("FitReadOutDigits(flag)", none, [](P& p, A& a) { return FitReadOutDigits(p, a.Flag(true)); }),
    Member("IsFitReadOutDigits()", none, [](P& p, A&) { IsFitReadOutDigits(p); }),
};

// ---- KivoView.h

// One of two views of the 3-D plot, whichever is not shown, so that there is something to do in every call.
int SetOtherView(P& plotter, A& source) {
    SKivoView view;
    view.plotType = source.Int(0);
    view.panX = static_cast<double>(source.Float(0.125f));
    view.panY = static_cast<double>(source.Float(-0.125f));
    view.zoom = static_cast<double>(source.Float(1.25f));
    view.inverse[0] = source.Flag(true);
    view.mirrored = source.Flag(false);
    const SKivoView shown = GetView(plotter);
    if (shown.rotation[0] == 1.0 && shown.plotType == 0) {
        view.rotation[0] = view.rotation[4] = static_cast<double>(source.Float(0.0f));
        view.rotation[1] = 1.0;
        view.rotation[3] = -1.0;
    }
    return SetView(plotter, view);
}

int SetOtherAngles(P& plotter, A& source) {
    double azimuth = 0.0, elevation = 0.0;
    GetViewAngles(plotter, azimuth, elevation);
    const float plausible = azimuth < 30.0 ? 60.0f : 20.0f;
    SKivoView view = GetView(plotter);
    if (view.plotType != 0) { // which is not turned
        view.plotType = 0;
        if (const int result = SetView(plotter, view)) return result;
    }
    return SetViewAngles(plotter, static_cast<double>(source.Float(plausible)),
                         static_cast<double>(source.Float(30.0f)));
}

int TellView(P& plotter, A&) {
    const SKivoView view = GetView(plotter);
    const double numbers[] = {view.panX, view.panY, view.zoom, view.rotation[0]};
    const bool areFinite =
        std::all_of(numbers, numbers + 4, [](double number) { return std::isfinite(number); });
    return areFinite && view.zoom > 0.0 ? 0 : contradiction;
}

const std::vector<PublicMember> viewFunctions = {
    Member("GetView()", none, TellView),
    Member("SetView(view)", bracketed, SetOtherView).Changes().Refuses(-1).Refuses(-3),
    Member("ResetView()", bracketed, [](P& p, A&) { return ResetView(p); }).Changes().Refuses(-1),
    Member("SetViewAngles(float, float)", bracketed, SetOtherAngles).Changes().Refuses(-1).Refuses(-3),
    Member("GetViewAngles()", none,
           [](P& p, A&) {
               double azimuth = 0.0, elevation = 0.0;
               const int result = GetViewAngles(p, azimuth, elevation);
               return result == 0 || result == 1 ? 0 : contradiction;
           }),
};

// ---- Steps of a hand

// Others than the ones before.
POINT OtherPlace(A& source, int x) {
    return source.Point({x, 90});
}

const std::vector<PublicMember> stepFunctions = {
    Member("TurnView(float, float)", bracketed,
           [](P& p, A& a) {
               if (p.GetCurrentPlotType() != 0) p.SwitchToNormalPlot();
               return TurnView(p, static_cast<double>(a.Float(7.0f)), static_cast<double>(a.Float(3.0f)));
           })
        .Changes()
        .Refuses(-1)
        .Refuses(-3),
    Member("ShiftView(point, point)", bracketed,
           [](P& p, A& a) { return ShiftView(p, OtherPlace(a, 120), OtherPlace(a, 131)); })
        .Changes()
        .Refuses(-1)
        .Refuses(-3),
    Member("ZoomView(float, point)", bracketed,
           [](P& p, A& a) { return ZoomView(p, static_cast<double>(a.Float(1.01f)), OtherPlace(a, 140)); })
        .Changes()
        .Refuses(-1)
        .Refuses(-3),
};

std::vector<PublicMember> AllMembers() {
    std::vector<PublicMember> all;
    for (const auto* const part :
         {&coreMembers, &viewMembers, &surfaceMembers, &colorMembers, &annotationMembers, &overlayMembers,
          &pictureFunctions, &styleFunctions, &motionFunctions, &surfaceFunctions, &axisFunctions,
          &colorMapFunctions, &contourFunctions, &pointFunctions, &legendFunctions, &viewFunctions,
          &stepFunctions})
        all.insert(all.end(), part->begin(), part->end());
    return all;
}

} // namespace

const std::vector<PublicMember>& PublicMembers() {
    static const std::vector<PublicMember> all = AllMembers();
    return all;
}

} // namespace KivoDrawingTools
