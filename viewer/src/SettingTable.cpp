#include "SettingTable.h"

#include "Failure.h"
#include "LabelFormat.h"
#include "Numbers.h"
#include "PlotScene.h"

#include <KivoColorMap.h>

#include <algorithm>

namespace KivoViewer {

namespace {

using Table = std::vector<Setting>;
using Axis = AxisSettings;
using Plot = PlotSettings;

constexpr unsigned maxPrecision = 9;
constexpr unsigned maxTicks = 200;
constexpr unsigned maxContours = 500;
constexpr unsigned maxLineStep = 100000;
constexpr unsigned maxPointSize = 100;

std::vector<std::string> ColorNames() {
    std::vector<std::string> names = KivoDrawingTools::ColorMapNames();
    names.insert(names.begin(), "gradient");
    return names;
}

// As KivoLegendNumbers has them.
std::vector<std::string> LegendNumberNames() {
    return {"set", "fitted", "round"};
}

// a, b or c
std::string Listed(const std::vector<std::string>& names) {
    std::string text;
    for (std::size_t i = 0; i < names.size(); ++i)
        text += (i == 0 ? "" : i + 1 < names.size() ? ", " : " or ") + names[i];
    return text;
}

void AddAxis(Table& table, int axis) {
    const std::string upper(1, "XYZ"[axis]);
    const std::string lower(1, "xyz"[axis]);
    const std::string section = upper + " axis";
    table.push_back({section, lower + "-min", "From", "First tick value of the " + section,
                     SettingField(axis, &Axis::min), &PlotScene::ApplyAxes, true});
    table.push_back({section, lower + "-max", "To", "Last tick value of the " + section,
                     SettingField(axis, &Axis::max), &PlotScene::ApplyAxes, true});
    table.push_back({section, lower + "-ticks", "Ticks", "Number of ticks of the " + section,
                     SettingField(axis, &Axis::tickCount), &PlotScene::ApplyAxes, true, 2, maxTicks});
    table.push_back({section, lower + "-precision", "Decimals", "Decimals of the labels of the " + section,
                     SettingField(axis, &Axis::precision), &PlotScene::ApplyAxes, true, 0, maxPrecision});
    Setting labels = {section,
                      lower + "-labels",
                      "Numbers",
                      "How the numbers of the " + section + " are written: " + Listed(LabelFormatNames()),
                      SettingField(axis, &Axis::labels),
                      &PlotScene::ApplyLabels,
                      true};
    labels.choices = LabelFormatNames();
    table.push_back(labels);
    constexpr const char* keys[] = {"Shift+X", "Shift+Y", "Shift+Z"};
    Setting inverse = {section,
                       "inverse-" + lower,
                       "Inverse " + upper + " axis",
                       "Mirror the " + section + " of the 3-D plot",
                       SettingField(axis, &Axis::isInverse),
                       &PlotScene::ApplyView};
    inverse.key = keys[axis];
    table.push_back(inverse);
}

void AddContours(Table& table, int axis, const char* key) {
    const std::string lower(1, "xyz"[axis]);
    Setting setting = {"Contours",
                       lower + "-contours",
                       "Contours of equal " + lower,
                       "Contours of equal " + lower + " in the 3-D plot",
                       SettingField(axis, &Axis::showsContours),
                       &PlotScene::ApplySwitches};
    setting.key = key;
    table.push_back(setting);
}

void AddGradient(Table& table, int axis) {
    const std::string upper(1, "XYZ"[axis]);
    const std::string lower(1, "xyz"[axis]);
    const std::string place = axis == 2 ? "surface and its legend" : "legend of the flat plot along " + upper;
    table.push_back({"Colours", lower + "-gradient-start", upper + " axis: lowest value",
                     "Colour of the smallest value, for the " + place,
                     SettingField(axis, &Axis::gradientStart), &PlotScene::ApplyGradients});
    table.push_back({"Colours", lower + "-gradient-end", upper + " axis: highest value",
                     "Colour of the largest value, for the " + place, SettingField(axis, &Axis::gradientEnd),
                     &PlotScene::ApplyGradients});
}

void AddContourLevels(Table& table) {
    table.push_back({"Contours", "contour-count", "Levels", "Number of contour levels of each axis",
                     SettingField(&Plot::contourCount), &PlotScene::ApplyContourCount, false, 1,
                     maxContours});
    Setting interval = {"Contours",
                        "contour-interval",
                        "Interval of z",
                        "Distance of the contour levels of equal z; 0 for as many as there are levels",
                        SettingField(&Plot::contourInterval),
                        &PlotScene::ApplyContourLevels,
                        true};
    interval.isNotNegative = true;
    table.push_back(interval);
    table.push_back({"Contours", "contour-base", "Base of z",
                     "One of the contour levels, where they have an interval",
                     SettingField(&Plot::contourBase), &PlotScene::ApplyContourLevels, true});
    Setting fill = {"Contours",
                    "fill-contours",
                    "Filled contours",
                    "Colours between the contours of the flat plot of XY",
                    SettingField(&Plot::fillsContours),
                    &PlotScene::ApplySwitches};
    fill.key = "I";
    table.push_back(fill);
}

void AddLines(Table& table) {
    Setting gridLines = {"Lines",
                         "grid-lines",
                         "Grid lines",
                         "Lines from the ticks across the back planes",
                         SettingField(&Plot::showsGridLines),
                         &PlotScene::ApplySwitches};
    gridLines.key = "G";
    Setting frameLines = {"Lines",
                          "frame-lines",
                          "Frame lines",
                          "Lines on the surface",
                          SettingField(&Plot::showsFrameLines),
                          &PlotScene::ApplySwitches};
    frameLines.key = "F";
    table.insert(table.end(), {gridLines, frameLines});
    table.push_back({"Lines", "x-line-step", "Columns per frame line",
                     "Columns from one frame line to the next", SettingField(0, &Axis::lineStep),
                     &PlotScene::ApplyLineSteps, true, 1, maxLineStep});
    table.push_back({"Lines", "y-line-step", "Rows per frame line", "Rows from one frame line to the next",
                     SettingField(1, &Axis::lineStep), &PlotScene::ApplyLineSteps, true, 1, maxLineStep});
    table.push_back({"Lines", "frame-line-color", "Frame line colour", "Colour of the lines on the surface",
                     SettingField(&Plot::frameLineColor), &PlotScene::ApplySwitches});
}

void AddColors(Table& table) {
    table.push_back({"Colours", "background", "Background", "Colour behind the plot",
                     SettingField(&Plot::background), &PlotScene::ApplyColors});
    table.push_back({"Colours", "ink", "Ink", "Colour of texts and of the lines of the axes",
                     SettingField(&Plot::ink), &PlotScene::ApplyColors});
    Setting colors = {"Colours",
                      "colors",
                      "From low to high",
                      "Colours of values: " + Listed(ColorNames()),
                      SettingField(&Plot::colors),
                      &PlotScene::ApplyGradients};
    colors.choices = ColorNames();
    table.push_back(colors);
    table.push_back({"Colours", "color-range", "Range of values",
                     "Values of Z with the first and the last colour, instead of those of the data",
                     SettingField(&Plot::colorRange), &PlotScene::ApplyColorRange, true});
    Setting follow = {"Colours",
                      "colors-follow-range",
                      "Colours follow the Z axis",
                      "First and last colour at the ends of the Z axis",
                      SettingField(&Plot::colorsFollowRange),
                      &PlotScene::ApplyColorRange};
    follow.key = "C";
    table.push_back(follow);
    table.push_back({"Colours", "gradient-start", "All axes: lowest value",
                     "Colour of the smallest value, for axes without one of their own",
                     SettingField(&Plot::gradientStart), &PlotScene::ApplyGradients});
    table.push_back({"Colours", "gradient-end", "All axes: highest value",
                     "Colour of the largest value, for axes without one of their own",
                     SettingField(&Plot::gradientEnd), &PlotScene::ApplyGradients});
    AddGradient(table, 0);
    AddGradient(table, 1);
    AddGradient(table, 2);
}

void AddLegend(Table& table) {
    Setting legend = {"Legend",
                      "legend",
                      "Colour legend",
                      "The bar of colours with its numbers",
                      SettingField(&Plot::showsLegend),
                      &PlotScene::ApplyLegend};
    legend.key = "L";
    table.push_back(legend);
    table.push_back({"Legend", "legend-title", "Title", "What the colours of Z mean, above their bar",
                     SettingField(&Plot::legendTitle), &PlotScene::ApplyLegend, true});
    Setting numbers = {
        "Legend",
        "legend-numbers",
        "Numbers",
        "Numbers beside the bar: " + Listed(LegendNumberNames()) +
            "; eleven with decimals that are set, eleven with those that they need, or round ones",
        SettingField(&Plot::legendNumbers),
        &PlotScene::ApplyLegend};
    numbers.choices = LegendNumberNames();
    table.push_back(numbers);
    table.push_back({"Legend", "legend-precision", "Decimals",
                     "Decimals of the legend's labels, where they are set",
                     SettingField(&Plot::legendPrecision), &PlotScene::ApplyLegend, false, 0, maxPrecision});
    Setting groups = {"Legend",
                      "group-names",
                      "Names of measure groups",
                      "A list of the measure groups in the corner of the 3-D plot",
                      SettingField(&Plot::listsGroups),
                      &PlotScene::ApplySwitches};
    groups.key = "N";
    table.push_back(groups);
}

void AddShape(Table& table) {
    Setting planes = {"View",
                      "switch-planes",
                      "Grid always behind surface",
                      "A grid that stands behind the surface from every side",
                      SettingField(&Plot::switchesPlanes),
                      &PlotScene::ApplySwitches};
    planes.key = "B";
    table.push_back(planes);
    Setting aspect = {"View",
                      "auto-aspect",
                      "Auto aspect",
                      "A box of the same shape whatever the ranges of its axes",
                      SettingField(&Plot::fitsAspect),
                      &PlotScene::ApplyAspect};
    aspect.key = "A";
    table.push_back(aspect);
    Setting exaggeration = {"View",
                            "exaggeration",
                            "Exaggeration",
                            "How many times as long Z is drawn as X and Y, which have one scale then; 0 for "
                            "lengths as they follow from the ranges",
                            SettingField(&Plot::exaggeration),
                            &PlotScene::ApplyAspect,
                            true};
    exaggeration.isNotNegative = true;
    table.push_back(exaggeration);
}

void AddHand(Table& table) {
    Setting trace = {"View",
                     "trace",
                     "Trace the pointer",
                     "Show the point of the surface under the pointer",
                     SettingField(&Plot::traces),
                     &PlotScene::ApplyTrace};
    trace.key = "T";
    table.push_back(trace);
    Setting reduce = {"View",
                      "reduce-while-moving",
                      "Reduce while moving",
                      "Fewer points of large grids while the plot moves",
                      SettingField(&Plot::reducesMotion),
                      &PlotScene::ApplySwitches};
    reduce.key = "R";
    table.push_back(reduce);
    Setting upright = {"View",
                       "keep-upright",
                       "Keep Z upright",
                       "Left button and arrows turn it like a turntable",
                       SettingField(&Plot::keepsUpright),
                       &PlotScene::ApplySwitches};
    upright.key = "U";
    table.push_back(upright);
}

void AddView(Table& table) {
    AddShape(table);
    AddHand(table);
    Setting fit = {"View",
                   "fit-surfaces",
                   "Axes fit all surfaces",
                   "A box as large as all surfaces together",
                   SettingField(&Plot::fitsSurfaces),
                   &PlotScene::ApplyFit};
    fit.key = "S";
    table.push_back(fit);
    Setting digits = {"View",
                      "fit-digits",
                      "Digits for the range",
                      "Coordinates of the traced point with the digits that the axes need",
                      SettingField(&Plot::fitsReadOut),
                      &PlotScene::ApplySwitches};
    digits.key = "D";
    table.push_back(digits);
    table.push_back({"View", "point-size", "Point size", "Radius of measure points in pixels",
                     SettingField(&Plot::pointSize), &PlotScene::ApplySwitches, false, 1, maxPointSize});
}

Table MakeTable() {
    Table table;
    table.push_back({"Titles", "title", "Plot", "Title of the plot", SettingField(&Plot::title),
                     &PlotScene::ApplyTitles, true});
    for (int axis = 0; axis < 3; ++axis)
        table.push_back({"Titles", std::string(1, "xyz"[axis]) + "-title",
                         std::string(1, "XYZ"[axis]) + " axis",
                         std::string("Title of the ") + "XYZ"[axis] + " axis",
                         SettingField(axis, &Axis::title), &PlotScene::ApplyTitles, true});
    AddAxis(table, 0);
    AddAxis(table, 1);
    AddAxis(table, 2);
    AddContours(table, 0, "X");
    AddContours(table, 1, "Y");
    AddContours(table, 2, "Z");
    AddContourLevels(table);
    AddLines(table);
    AddColors(table);
    AddView(table);
    AddLegend(table);
    return table;
}

// ---- Values and their texts -----------------------------------------------------------------------------

std::string Format(bool on) {
    return on ? "on" : "off";
}

std::string Format(const std::optional<unsigned>& count) {
    return count ? std::to_string(*count) : std::string();
}

std::string Format(const std::optional<double>& number) {
    return number ? FormatNumber(*number) : std::string();
}

std::string Format(const std::optional<std::string>& text) {
    return text.value_or(std::string());
}

std::string Format(const std::optional<Color>& color) {
    return color ? FormatColor(*color) : std::string();
}

std::string Format(const std::optional<Choice>& choice) {
    return choice ? choice->name : std::string();
}

std::string Format(const std::optional<ValueRange>& range) {
    return range ? FormatNumber(range->from) + ':' + FormatNumber(range->to) : std::string();
}

void Parse(const Setting&, const std::string& text, bool& value) {
    if (text != "on" && text != "off") throw Failure("expected on or off, found \"" + text + '"');
    value = text == "on";
}

void Parse(const Setting& setting, const std::string& text, std::optional<unsigned>& value) {
    const auto count = ParseCount(text);
    if (!count || *count < setting.least || *count > setting.most)
        throw Failure("expected a whole number from " + std::to_string(setting.least) + " to " +
                      std::to_string(setting.most) + ", found \"" + text + '"');
    value = static_cast<unsigned>(*count);
}

void Parse(const Setting& setting, const std::string& text, std::optional<double>& value) {
    const auto number = ParseNumber(text);
    if (setting.isNotNegative && (!number || !(*number >= 0.0)))
        throw Failure("expected a number from 0 on, found \"" + text + '"');
    if (!number || !FitsSinglePrecision(*number)) throw Failure("expected a number, found \"" + text + '"');
    value = *number;
}

void Parse(const Setting&, const std::string& text, std::optional<std::string>& value) {
    value = OneLine(text);
}

void Parse(const Setting&, const std::string& text, std::optional<Color>& value) {
    value = ParseColor(text);
}

void Parse(const Setting& setting, const std::string& text, std::optional<Choice>& value) {
    if (std::find(setting.choices.begin(), setting.choices.end(), text) == setting.choices.end())
        throw Failure("expected " + Listed(setting.choices) + ", found \"" + text + '"');
    value = Choice{text};
}

void Parse(const Setting&, const std::string& text, std::optional<ValueRange>& value) {
    const std::size_t colon = text.find(':');
    const auto from = ParseNumber(text.substr(0, colon));
    const auto to = colon == std::string::npos ? std::nullopt : ParseNumber(text.substr(colon + 1));
    if (!from || !to || !FitsSinglePrecision(*from) || !FitsSinglePrecision(*to) || *from == *to)
        throw Failure("expected MIN:MAX, two different numbers, found \"" + text + '"');
    value = ValueRange{*from, *to};
}

bool HasValue(bool) {
    return true;
}

template <typename T>
bool HasValue(const std::optional<T>& value) {
    return value.has_value();
}

// Calls the action with the setting's value.
template <typename Settings, typename Action>
auto WithValue(const Setting& setting, Settings& settings, Action action) {
    return std::visit([&](const auto& field) { return action(field.In(settings)); }, setting.field);
}

} // namespace

const std::vector<Setting>& AllSettings() {
    static const Table table = MakeTable();
    return table;
}

const Setting& FindSetting(const std::string& name) {
    const Table& table = AllSettings();
    return *std::find_if(table.begin(), table.end(),
                         [&](const Setting& setting) { return setting.name == name; });
}

bool IsToggle(const Setting& setting) {
    return std::holds_alternative<Setting::Toggle>(setting.field);
}

bool IsSet(const Setting& setting, const PlotSettings& settings) {
    return WithValue(setting, settings, [](const auto& value) { return HasValue(value); });
}

std::string TextOf(const Setting& setting, const PlotSettings& settings) {
    return WithValue(setting, settings, [](const auto& value) { return Format(value); });
}

void SetFromText(const Setting& setting, const std::string& text, PlotSettings& settings) {
    WithValue(setting, settings, [&](auto& value) { Parse(setting, text, value); });
}

void Copy(const Setting& setting, const PlotSettings& from, PlotSettings& to) {
    std::visit([&](const auto& field) { field.In(to) = field.In(from); }, setting.field);
}

PlotSettings Completed(const PlotSettings& settings, const PlotSettings& others) {
    PlotSettings completed = settings;
    for (const Setting& setting : AllSettings())
        if (!IsSet(setting, settings)) Copy(setting, others, completed);
    return completed;
}

PlotSettings WithoutDataSettings(const PlotSettings& settings) {
    PlotSettings result = settings;
    for (const Setting& setting : AllSettings())
        if (setting.isOfData) Copy(setting, PlotSettings(), result);
    return result;
}

} // namespace KivoViewer
