// Feature pictures of titles, axes and the colour legend.
#include "FeaturePicture.h"

using KivoDrawingTools::CKivoFunctionPlotter;

namespace {

void Titles(CKivoFunctionPlotter& plotter) {
    // [docs: titles]
    plotter.SetPlotTitle("Kühlplatte, クーリングプレート: a title wider than 512 pixels takes two lines");
    plotter.SetXAxisTitle("Länge (mm)");
    plotter.SetYAxisTitle("Breite (mm)");
    plotter.SetZAxisTitle("Température (°C)");
    // [docs: end]
}

void OwnTicks(CKivoFunctionPlotter& plotter) {
    // [docs: own-ticks]
    plotter.SetZAxisMin(20.0f);
    plotter.SetZAxisMax(70.0f);
    plotter.SetZAxisTickMarkNumber(6); // 20, 30, ... 70
    plotter.SetZAxisFloatingPointPrecision(0);
    plotter.SetXAxisMin(0.0f);
    plotter.SetXAxisMax(200.0f);
    plotter.SetXAxisTickMarkNumber(5); // 0, 50, ... 200
    plotter.SetYAxisMin(0.0f);
    plotter.SetYAxisMax(80.0f);
    plotter.SetYAxisTickMarkNumber(5); // 0, 20, ... 80
    plotter.AutoAdjustAxisLengthRatio();
    // [docs: end]
}

void Flattened(CKivoFunctionPlotter& plotter) {
    // [docs: flattened]
    plotter.SetZAxisMin(0.0f);
    plotter.SetZAxisMax(150.0f);
    plotter.AutoAdjustAxisLengthRatio(); // fits the view to the new ranges
    // [docs: end]
}

void NoGridLines(CKivoFunctionPlotter& plotter) {
    // [docs: no-grid-lines]
    plotter.ShowGridLines(false);
    // [docs: end]
}

void Inverted(CKivoFunctionPlotter& plotter) {
    // [docs: inverted]
    plotter.SetInverseYAxis(true);
    // [docs: end]
}

void FixedPlanes(CKivoFunctionPlotter& plotter) {
    // [docs: fixed-planes]
    plotter.SetAutoSwitchFramePlanes(false); // the planes stay when the plot is turned
    plotter.Rotate({0, 0}, {150, 0});
    // [docs: end]
}

void Legend(CKivoFunctionPlotter& plotter) {
    // [docs: legend]
    plotter.SetGradientColorRuleFloatingPointPrecision(1);
    // [docs: end]
}

} // namespace

const std::vector<FeaturePicture> axisPictures = {
    {"titles", Titles},       {"own-ticks", OwnTicks},
    {"flattened", Flattened}, {"no-grid-lines", NoGridLines},
    {"inverted", Inverted},   {"fixed-planes", FixedPlanes},
    {"legend", Legend},
};
