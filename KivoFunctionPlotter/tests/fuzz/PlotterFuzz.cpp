// The plotter: any sequence of public calls with any arguments, on small grids in an off-screen window.
//
// The input is a sequence of records, each a byte that chooses the call and what the call takes for its
// arguments. Arrays have exactly the size that the interface asks for, so that a sanitizer sees every access
// beyond. Numbers that stand for memory that is really taken (ticks, contours, points) are kept small.
#include "FuzzInput.h"
#include "KivoPicture.h"
#include "KivoWindow.h"
#include "window_system/WindowSystem.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <list>
#include <memory>
#include <string>
#include <vector>

namespace {

using namespace KivoDrawingTools;
using KivoTest::FuzzInput;

constexpr int windowWidth = 120;
constexpr int windowHeight = 90;

void Require(bool holds, const char* what) {
    if (holds) return;
    std::fprintf(stderr, "does not hold: %s\n", what);
    std::abort();
}

/// The plotter with what its host owns.
class Host : public CKivoFunctionPlotter {
public:
    ~Host() override { OnDestroy(); }

    using CKivoFunctionPlotter::BeginGLOperation;
    using CKivoFunctionPlotter::EndGLOperation;

    float* Keep(std::vector<float> numbers) {
        auto array = std::make_unique<float[]>(numbers.size());
        std::copy(numbers.begin(), numbers.end(), array.get());
        m_kept.push_back(std::move(array));
        return m_kept.back().get();
    }

    bool mayBeCurrent = false; ///< the context may be current after the call

private:
    std::list<std::unique_ptr<float[]>> m_kept; ///< until the plotter is gone
};

HWND Window() {
    static const HWND window = CreateOffscreenWindow(windowWidth, windowHeight);
    Require(window != nullptr, "an off-screen window can be made");
    return window;
}

std::vector<float> Numbers(FuzzInput& input, std::size_t count) {
    std::vector<float> numbers(count);
    for (float& number : numbers)
        number = input.IsEmpty() ? 1.0f : input.Float();
    return numbers;
}

POINT Point(FuzzInput& input) {
    if (input.Flag()) return {input.Int(), input.Int()};
    return {static_cast<int>(input.Below(windowWidth)), static_cast<int>(input.Below(windowHeight))};
}

struct Rgba {
    explicit Rgba(FuzzInput& input) : channels(Numbers(input, 4)) {}
    std::vector<float> channels;
};

// ---- Data

struct GridShape {
    unsigned int columns, rows, columnStride, rowStride, components;
    std::size_t floats; ///< that the interface asks for
};

GridShape Shape(FuzzInput& input) {
    GridShape shape = {};
    shape.columns = input.Below(9);
    shape.rows = input.Below(9);
    shape.components = input.Below(7);
    shape.columnStride = 1;
    shape.rowStride = shape.columns;
    if (input.Below(4) == 0) {
        shape.columnStride = input.Below(5);
        shape.rowStride = input.Below(50);
    }
    if (shape.columns == 0 || shape.rows == 0) return shape;
    const std::size_t last =
        std::size_t{shape.columns - 1} * shape.columnStride + std::size_t{shape.rows - 1} * shape.rowStride;
    shape.floats = (last + 1) * shape.components;
    return shape;
}

// A smooth surface at any place and of any height, with some points replaced by anything.
std::vector<float> Points(FuzzInput& input, const GridShape& shape) {
    std::vector<float> points(shape.floats);
    const float offset = input.Float();
    const float step = input.Float();
    const float height = input.Float();
    for (std::size_t i = 0; i < points.size(); ++i) {
        const std::size_t component = i % shape.components;
        const auto place = static_cast<float>(i / shape.components);
        const auto columns = static_cast<float>(std::max(shape.columns, 1u));
        const float column = place - columns * static_cast<float>(static_cast<int>(place / columns));
        const float row = static_cast<float>(static_cast<int>(place / columns));
        points[i] = component == 0   ? offset + column * step
                    : component == 1 ? offset + row * step
                                     : height * column * row;
    }
    for (unsigned int holes = input.Below(6); holes > 0 && !points.empty(); --holes)
        points[input.Byte() % points.size()] = input.Float();
    return points;
}

void SetData(Host& host, FuzzInput& input, bool isReference) {
    const GridShape shape = Shape(input);
    const std::vector<float> points = Points(input, shape);
    float* array = nullptr;
    if (isReference) {
        array = host.Keep(points);
    } else if (shape.columns != 0 && shape.rows != 0) {
        array = new float[points.size()];
        std::copy(points.begin(), points.end(), array);
    }
    const auto set = isReference ? &Host::SetDataReference : &Host::SetData;
    const int result =
        (host.*set)(array, shape.columns, shape.rows, shape.columnStride, shape.rowStride, shape.components);
    Require(result == 0, "data are taken");
}

void AddCurve(Host& host, FuzzInput& input) {
    const unsigned int points = input.Below(6);
    const unsigned int stride = input.Below(5);
    std::vector<float> numbers = Numbers(input, std::size_t{points} * stride);
    host.AddCurveData(input.Below(8) == 0 ? nullptr : numbers.data(), points, stride);
}

void AddGroup(Host& host, FuzzInput& input) {
    const unsigned int points = input.Below(6);
    const unsigned int stride = input.Below(5);
    float* const array = host.Keep(Numbers(input, std::size_t{points} * stride));
    const std::string name = input.Text();
    if (input.Flag())
        host.AddMeasurePoints(points, stride, array, name.c_str());
    else
        host.AddReferenceMeasurePoints(points, stride, array, name.c_str());
}

// ---- Calls

// Numbers that take time when they are large: those are rare.

unsigned int TickCount(FuzzInput& input) {
    static constexpr unsigned int counts[] = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 12, 14, 15, 40, 200};
    return counts[input.Below(16)];
}

unsigned int ContourCount(FuzzInput& input) {
    static constexpr unsigned int counts[] = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 12, 15, 19, 60, 300};
    return counts[input.Below(16)];
}

unsigned int Precision(FuzzInput& input) {
    static constexpr unsigned int precisions[] = {0, 0, 0, 1, 1, 2,  2,    3,
                                                  3, 4, 5, 6, 8, 20, 1000, UINT32_MAX};
    return precisions[input.Below(16)];
}

int FontSize(FuzzInput& input) {
    static constexpr int sizes[] = {0, 1, 2, 3, 5, 8, 9, 10, 10, 10, 12, 14, 20, -10, -20, 60};
    return sizes[input.Below(16)];
}

void Capture(Host& host, FuzzInput& input) {
    std::vector<unsigned char> rgba;
    int width = 0, height = 0;
    const int result = CapturePicture(host, rgba, width, height);
    Require(result == -1 || rgba.size() == std::size_t{4} * windowWidth * windowHeight, "pictures are whole");
    const int wantedWidth = std::min(input.Int(), 300);
    const int wantedHeight = std::min(input.Int(), 300);
    CapturePicture(host, wantedWidth, wantedHeight, rgba);
}

void DrawBitmapText(Host& host, FuzzInput& input) {
    const std::string text = input.Text();
    const float x = input.Float(), y = input.Float(), z = input.Float();
    host.BeginGLOperation();
    host.RenderText(x, y, z, text.c_str());
    host.RenderText(x, y, z, text.c_str(), text.size() / 2);
    host.RenderFarText(x, y, text.c_str());
    host.RenderNearText(x, y, text.c_str(), text.size());
    host.EndGLOperation();
}

void NameGroup(Host& host, FuzzInput& input) {
    const unsigned int index = input.Below(12);
    const int result = host.SetMeasureGroupName(index, input.Text().c_str());
    std::string name;
    Require(host.GetMeasureGroupName(index, &name) == result, "groups are found by reading and writing");
    if (result == 0) Require(host.GetMeasureGroupIndexByName(name) >= 0, "a group has its name");
}

void ReadSettings(Host& host, FuzzInput&) {
    float traced[3];
    host.GetTracePoint(traced);
    host.GetXAxisMin(), host.GetYAxisMin(), host.GetZAxisMin();
    host.GetXAxisMax(), host.GetYAxisMax(), host.GetZAxisMax();
    host.GetXAxisTickMarkNumber(), host.GetYAxisTickMarkNumber(), host.GetZAxisTickMarkNumber();
    host.GetXAxisFloatingPointPrecision(), host.GetYAxisFloatingPointPrecision();
    host.GetZAxisFloatingPointPrecision(), host.GetGradientColorRuleFloatingPointPrecision();
    host.GetPointRadiusPixelSize(), host.GetCurrentPlotType(), host.IsTracing(), host.IsShowFrameLines();
    const unsigned int groups = host.GetNumMeasureGroups();
    for (unsigned int i = 0; i <= groups; ++i)
        host.GetMeasureGroupSize(i), host.IsShowMeasureGroup(i), host.GetMeasureGroupColor(i);
    Require(std::string(host.GetPlotTitle()).size() <= 80000, "titles are as long as they were set");
}

using Call = void (*)(Host& host, FuzzInput& input);

const Call lifeCalls[] = {
    [](Host& h, FuzzInput& in) { h.OnCreate(Window(), in.Flag()); },
    [](Host& h, FuzzInput& in) { h.OnCreate(Window(), in.Int(), in.Int(), in.Flag()); },
    [](Host& h, FuzzInput& in) { h.OnCreate(Window(), windowWidth, windowHeight, FontSize(in), true); },
    [](Host& h, FuzzInput& in) { h.OnCreate(nullptr, in.Int(), in.Int(), in.Flag()); },
    [](Host& h, FuzzInput&) { Require(h.OnDestroy() == 0, "OnDestroy succeeds"); },
};

const Call viewCalls[] = {
    [](Host& h, FuzzInput&) { h.OnDraw(); },
    [](Host& h, FuzzInput&) { h.Renderscene(); },
    [](Host& h, FuzzInput& in) { h.OnSize(in.Below(5), in.Int(), in.Int()); },
    [](Host& h, FuzzInput&) { h.OnSize(0, windowWidth, windowHeight); },
    [](Host& h, FuzzInput&) { h.SetFont(nullptr); },
    [](Host& h, FuzzInput&) { h.SwitchToNormalPlot(); },
    [](Host& h, FuzzInput&) { h.SwitchToXYProjectPlot(); },
    [](Host& h, FuzzInput&) { h.SwitchToYZProjectPlot(); },
    [](Host& h, FuzzInput&) { h.SwitchToZXProjectPlot(); },
    [](Host& h, FuzzInput& in) { h.SetInverseXAxis(in.Flag()); },
    [](Host& h, FuzzInput& in) { h.SetInverseYAxis(in.Flag()); },
    [](Host& h, FuzzInput& in) { h.SetInverseZAxis(in.Flag()); },
    [](Host& h, FuzzInput& in) { h.SetAutoSwitchFramePlanes(in.Flag()); },
    [](Host& h, FuzzInput&) { h.AutoAdjustAxisLengthRatio(); },
    [](Host& h, FuzzInput& in) { h.OnLButtonDown(in.Unsigned(), Point(in)); },
    [](Host& h, FuzzInput& in) { h.OnLButtonUp(in.Unsigned(), Point(in)); },
    [](Host& h, FuzzInput& in) { h.OnRButtonDown(in.Unsigned(), Point(in)); },
    [](Host& h, FuzzInput& in) { h.OnRButtonUp(in.Unsigned(), Point(in)); },
    [](Host& h, FuzzInput& in) { h.OnMouseMove(in.Byte(), Point(in)); },
    [](Host& h, FuzzInput& in) { h.OnMouseMove(MK_RBUTTON, Point(in)); },
    [](Host& h, FuzzInput& in) { h.OnMouseMove(MK_RBUTTON | MK_CONTROL, Point(in)); },
    [](Host& h, FuzzInput& in) { h.OnMouseMove(MK_RBUTTON | MK_SHIFT, Point(in)); },
    [](Host& h, FuzzInput& in) { h.OnMouseWheel(0, static_cast<short>(in.Int()), Point(in)); },
    [](Host& h, FuzzInput& in) { h.Rotate(Point(in), Point(in)); },
    [](Host& h, FuzzInput& in) { h.Translate(Point(in), Point(in)); },
    [](Host& h, FuzzInput& in) { h.Zoom(in.Float()); },
    [](Host& h, FuzzInput& in) { h.Trace(in.Flag()); },
    [](Host& h, FuzzInput& in) { h.Trace(Point(in)); },
    [](Host& h, FuzzInput& in) { h.Trace_New(Point(in)); },
    Capture,
};

const Call dataCalls[] = {
    [](Host& h, FuzzInput& in) { SetData(h, in, false); },
    [](Host& h, FuzzInput& in) { SetData(h, in, true); },
    [](Host& h, FuzzInput& in) { h.SetFrameLineStep(in.Unsigned(), in.Unsigned()); },
    [](Host& h, FuzzInput& in) { h.SetFrameLineColor(in.Bits()); },
    [](Host& h, FuzzInput& in) { h.SetIsoContourCount(ContourCount(in)); },
    [](Host& h, FuzzInput& in) { h.ShowFrameLines(in.Flag()); },
    [](Host& h, FuzzInput& in) { h.ShowXIsoContours(in.Flag()); },
    [](Host& h, FuzzInput& in) { h.ShowYIsoContours(in.Flag()); },
    [](Host& h, FuzzInput& in) { h.ShowZIsoContours(in.Flag()); },
    [](Host& h, FuzzInput& in) { h.ShowGridLines(in.Flag()); },
    AddCurve,
    [](Host& h, FuzzInput& in) { h.SetCurveColor(in.Int(), in.Bits()); },
    [](Host& h, FuzzInput& in) { h.SetCurveVisibility(in.Int(), in.Flag()); },
    [](Host& h, FuzzInput& in) { h.SetCurveWidth(in.Int(), in.Float()); },
    [](Host& h, FuzzInput& in) { h.SetPointRadiusPixelSize(in.Unsigned()); },
    AddGroup,
    NameGroup,
    [](Host& h, FuzzInput& in) { h.ShowMeasureGroup(in.Below(12), in.Flag()); },
    [](Host& h, FuzzInput& in) { h.ShowAllMeasureGroups(in.Flag()); },
    [](Host& h, FuzzInput& in) { h.SetMeasureGroupColor(in.Below(12), in.Bits()); },
};

const Call axisCalls[] = {
    [](Host& h, FuzzInput& in) { h.SetXAxisMin(in.Float()); },
    [](Host& h, FuzzInput& in) { h.SetYAxisMin(in.Float()); },
    [](Host& h, FuzzInput& in) { h.SetZAxisMin(in.Float()); },
    [](Host& h, FuzzInput& in) { h.SetXAxisMax(in.Float()); },
    [](Host& h, FuzzInput& in) { h.SetYAxisMax(in.Float()); },
    [](Host& h, FuzzInput& in) { h.SetZAxisMax(in.Float()); },
    [](Host& h, FuzzInput& in) { h.SetXAxisTickMarkNumber(TickCount(in)); },
    [](Host& h, FuzzInput& in) { h.SetYAxisTickMarkNumber(TickCount(in)); },
    [](Host& h, FuzzInput& in) { h.SetZAxisTickMarkNumber(TickCount(in)); },
    [](Host& h, FuzzInput& in) { h.SetXAxisFloatingPointPrecision(Precision(in)); },
    [](Host& h, FuzzInput& in) { h.SetYAxisFloatingPointPrecision(Precision(in)); },
    [](Host& h, FuzzInput& in) { h.SetZAxisFloatingPointPrecision(Precision(in)); },
    [](Host& h, FuzzInput& in) { h.SetGradientColorRuleFloatingPointPrecision(Precision(in)); },
    [](Host& h, FuzzInput& in) { h.SetPlotTitle(in.Text().c_str()); },
    [](Host& h, FuzzInput& in) { h.SetXAxisTitle(in.Text().c_str()); },
    [](Host& h, FuzzInput& in) { h.SetYAxisTitle(in.Text().c_str()); },
    [](Host& h, FuzzInput& in) { h.SetZAxisTitle(in.Text().c_str()); },
    [](Host& h, FuzzInput&) { h.SetPlotTitle(h.GetPlotTitle()); },
    DrawBitmapText,
    ReadSettings,
};

const Call colorCalls[] = {
    [](Host& h, FuzzInput& in) { h.SetBackgroundColor(in.Float(), in.Float(), in.Float(), in.Float()); },
    [](Host& h, FuzzInput& in) { h.SetBackgroundColor(in.Bits()); },
    [](Host& h, FuzzInput&) { h.ResetBackgroundColor(); },
    [](Host& h, FuzzInput& in) { h.SetGradientColor(Rgba(in).channels.data(), Rgba(in).channels.data()); },
    [](Host& h, FuzzInput& in) { h.SetGradientStartColor(Rgba(in).channels.data()); },
    [](Host& h, FuzzInput& in) { h.SetGradientEndColor(in.Bits()); },
    [](Host& h, FuzzInput& in) { h.SetZGradientColor(in.Bits(), in.Bits()); },
    [](Host& h, FuzzInput& in) { h.SetZGradientEndColor(Rgba(in).channels.data()); },
    [](Host& h, FuzzInput& in) {
        h.SetXGradientColor(Rgba(in).channels.data(), Rgba(in).channels.data());
        h.mayBeCurrent = true;
    },
    [](Host& h, FuzzInput& in) {
        h.SetXGradientEndColor(in.Bits());
        h.mayBeCurrent = true;
    },
    [](Host& h, FuzzInput& in) {
        h.SetYGradientStartColor(Rgba(in).channels.data());
        h.mayBeCurrent = true;
    },
    [](Host& h, FuzzInput& in) {
        h.SetYGradientColor(in.Bits(), in.Bits());
        h.mayBeCurrent = true;
    },
};

template <std::size_t count>
Call Choose(const Call (&calls)[count], FuzzInput& input) {
    return calls[input.Below(count)];
}

Call ChooseCall(FuzzInput& input) {
    const unsigned int group = input.Below(16);
    if (group == 0) return Choose(lifeCalls, input);
    if (group < 6) return Choose(viewCalls, input);
    if (group < 11) return Choose(dataCalls, input);
    if (group < 14) return Choose(axisCalls, input);
    return Choose(colorCalls, input);
}

// Whatever has happened, data that make sense are drawn again once the plot is created anew.
void CheckItStillWorks(Host& host) {
    static float points[] = {0, 0, 0, 1, 0, 1, 0, 1, 1, 1, 1, 0};
    Require(host.OnDestroy() == 0, "OnDestroy succeeds in the end");
    Require(host.OnCreate(Window(), windowWidth, windowHeight, true) == 0, "OnCreate succeeds in the end");
    host.SetDataReference(points, 2, 2, 1, 2, 3);
    Require(host.Renderscene() == 0, "a frame succeeds in the end");
    Require(wglGetCurrentContext() == nullptr, "no context is current in the end");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr int mostCalls = 60;
    FuzzInput input(data, size);
    Host host;
    const unsigned int frame = input.Below(16); // around the calls
    if (frame != 0) host.OnCreate(Window(), windowWidth, windowHeight, true);
    for (int i = 0; i < mostCalls && !input.IsEmpty(); ++i) {
        host.mayBeCurrent = wglGetCurrentContext() != nullptr; // then calls without OpenGL leave it so
        ChooseCall(input)(host, input);
        Require(host.mayBeCurrent || wglGetCurrentContext() == nullptr, "no context stays current");
    }
    if (frame < 4) CheckItStillWorks(host);
    return 0;
}
