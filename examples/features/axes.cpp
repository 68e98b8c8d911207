// Feature pictures of titles, axes and the colour legend.
#include "FeaturePicture.h"
#include "SampleGrids.h"

#include <KivoAxis.h>
#include <KivoLegend.h>

#include <cmath>
#include <cstdio>
#include <ctime>
#include <string>

using namespace KivoDrawingTools;

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

// A terrain as somebody has measured it.
struct Measured {
    double east, north;
    float height;
};

std::vector<Measured> Survey() {
    std::vector<float> hill = KivoSamples::HillPoints();
    std::vector<Measured> survey;
    for (std::size_t i = 0; i < hill.size(); i += 3)
        survey.push_back({368420.5 + 25.0 * static_cast<double>(hill[i]),
                          5630150.25 + 30.0 * static_cast<double>(hill[i + 1]), 212.0f + 8.0f * hill[i + 2]});
    return survey;
}

void NationalGrid(CKivoFunctionPlotter& plotter) {
    const std::vector<Measured> survey = Survey();
    constexpr unsigned int columns = KivoSamples::hillColumns, rows = KivoSamples::hillRows;
    // [docs: national-grid]
    const double east = survey[0].east, north = survey[0].north; // 368345.5 and 5630090.25
    static std::vector<float> points;
    for (const Measured& at : survey) {
        const double x = at.east - east, y = at.north - north; // in double precision
        points.insert(points.end(), {static_cast<float>(x), static_cast<float>(y), at.height});
    }
    SetAxisOrigin(plotter, 0, east);
    SetAxisOrigin(plotter, 1, north);
    plotter.SetDataReference(points.data(), columns, rows, 1, columns, 3);
    // [docs: end]
    plotter.SetPlotTitle("Survey");
    plotter.SetXAxisTitle("East (m)");
    plotter.SetYAxisTitle("North (m)");
    plotter.SetZAxisTitle("Height (m)");
}

// The temperature of four weeks: x are days from the first one, y the hours of a day.
constexpr unsigned int days = 29, hours = 25;

std::vector<float> Weather() {
    std::vector<float> points;
    for (unsigned int hour = 0; hour < hours; ++hour)
        for (unsigned int day = 0; day < days; ++day) {
            const auto x = static_cast<float>(day), y = static_cast<float>(hour);
            const float spring = 0.25f * x + 3.0f * std::sin(0.6f * x);
            points.insert(points.end(), {x, y, spring - 5.0f * std::cos(0.2618f * (y - 3.0f))});
        }
    return points;
}

void Dates(CKivoFunctionPlotter& plotter) {
    static std::vector<float> weather = Weather();
    // [docs: dates]
    SetAxisOrigin(plotter, 0, 20513.0); // days since 1970: x = 0 is 1 March 2026
    SetAxisLabelFormat(plotter, 0, [](double day, double step) {
        const auto seconds = static_cast<std::time_t>(std::llround(day * 86400.0));
        char text[32];
        std::strftime(text, sizeof(text), step < 1.0 ? "%d %b %H:%M" : "%d %b", std::gmtime(&seconds));
        return std::string(text);
    });
    plotter.SetDataReference(weather.data(), days, hours, 1, days, 3);
    // [docs: end]
    plotter.SetPlotTitle("Four weeks");
    plotter.SetXAxisTitle("Day");
    plotter.SetYAxisTitle("Hour");
}

void RoundLegend(CKivoFunctionPlotter& plotter) {
    // [docs: round-legend]
    SKivoLegend legend;
    legend.title = "Temp. (°C)";
    legend.numbers = KivoLegendNumbers::round; // and no more digits than they need
    SetLegend(plotter, 2, legend);             // of z: 0 and 1 are x and y
    // [docs: end]
}

} // namespace

const std::vector<FeaturePicture> axisPictures = {
    {"titles", Titles},
    {"own-ticks", OwnTicks},
    {"flattened", Flattened},
    {"no-grid-lines", NoGridLines},
    {"inverted", Inverted},
    {"fixed-planes", FixedPlanes},
    {"legend", Legend},
    {"round-legend", RoundLegend},
    {"national-grid", NationalGrid},
    {"dates", Dates},
};
