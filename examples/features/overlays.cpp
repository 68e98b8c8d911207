// Feature pictures of what lies over the surface: curves, measure points, the traced point.
#include "FeaturePicture.h"
#include "SampleGrids.h"

#include <KivoLegend.h>
#include <KivoPoints.h>

#include <cmath>
#include <cstdio>

using namespace KivoDrawingTools;
using namespace KivoSamples;

namespace {

void Curve(CKivoFunctionPlotter& plotter) {
    // [docs: curve]
    std::vector<float> channel; // x, y, z of the coolant's way
    for (float x = 5.0f; x <= 195.0f; x += 5.0f) {
        const float y = 62.0f + 12.0f * std::sin(x / 16.0f);
        channel.insert(channel.end(), {x, y, PlateTemperature(x, y) + 1.0f});
    }
    const int index = plotter.AddCurveData(channel.data(), static_cast<unsigned int>(channel.size() / 3), 3);
    plotter.SetCurveColor(index, 0x00FF00FF); // 0x00BBGGRR
    plotter.SetCurveWidth(index, 3.0f);
    // [docs: end]
}

} // namespace

void MeasurePoints(CKivoFunctionPlotter& plotter) {
    // [docs: measure-points]
    static std::vector<float> outlet =
        OnPlate({{194, 15}, {194, 40}, {194, 65}}); // the plotter keeps no copy
    static std::vector<float> modules = OnPlate({{60, 48}, {75, 48}, {145, 32}, {145, 48}});
    plotter.AddMeasurePoints(3, 3, outlet.data(), "Outlet");
    plotter.AddMeasurePoints(4, 3, modules.data(), "Modules");
    plotter.SetMeasureGroupColor(0, 0x00000000);
    plotter.SetMeasureGroupColor(1, 0x00FF00FF);
    plotter.SetPointRadiusPixelSize(6);
    // [docs: end]
}

namespace {

void GroupNames(CKivoFunctionPlotter& plotter) {
    MeasurePoints(plotter);
    // [docs: group-names]
    ShowMeasureGroupNames(plotter, true);
    // [docs: end]
}

void PointNames(CKivoFunctionPlotter& plotter) {
    MeasurePoints(plotter);
    // [docs: point-names]
    SetMeasurePointNames(plotter, 0, {"low", "middle", "high"});
    SetMeasurePointNames(plotter, 1, {"A1", "A2", "B1", "B2"});
    // [docs: end]
}

void Traced(CKivoFunctionPlotter& plotter) {
    // [docs: trace]
    FitReadOutDigits(plotter, true); // no more digits than the ranges need, and no less
    plotter.Trace(true);             // from now on every mouse move over the plot traces
    plotter.Trace({433, 215});       // as a mouse move to this pixel does
    float point[3] = {};
    if (plotter.GetTracePoint(point)) std::printf("%g mm, %g mm: %g °C\n", point[0], point[1], point[2]);
    // [docs: end]
}

} // namespace

const std::vector<FeaturePicture> overlayPictures = {
    {"curve", Curve},
    {"measure-points", MeasurePoints},
    {"group-names", GroupNames},
    {"point-names", PointNames},
    {"trace", Traced},
};
