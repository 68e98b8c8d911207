#include "SettingTable.h"

#include "Failure.h"
#include "LabelFormat.h"
#include "Language.h"
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

std::string AxisName(int axis) {
    return Filled(Translate("Settings", "%1 axis"), "XYZ"[axis]);
}

void AddAxis(Table& table, int axis) {
    const std::string upper(1, "XYZ"[axis]);
    const std::string lower(1, "xyz"[axis]);
    const std::string section = AxisName(axis);
    table.push_back({section, lower + "-min", Translate("Settings", "From"),
                     Filled(Translate("Settings", "First tick value of the %1 axis"), upper),
                     SettingField(axis, &Axis::min), &PlotScene::ApplyAxes, true});
    table.push_back({section, lower + "-max", Translate("Settings", "To"),
                     Filled(Translate("Settings", "Last tick value of the %1 axis"), upper),
                     SettingField(axis, &Axis::max), &PlotScene::ApplyAxes, true});
    table.push_back({section, lower + "-ticks", Translate("Settings", "Ticks"),
                     Filled(Translate("Settings", "Number of ticks of the %1 axis"), upper),
                     SettingField(axis, &Axis::tickCount), &PlotScene::ApplyAxes, true, 2, maxTicks});
    table.push_back({section, lower + "-precision", Translate("Settings", "Decimals"),
                     Filled(Translate("Settings", "Decimals of the labels of the %1 axis"), upper),
                     SettingField(axis, &Axis::precision), &PlotScene::ApplyAxes, true, 0, maxPrecision});
    Setting labels = {section,
                      lower + "-labels",
                      Translate("Settings", "Numbers"),
                      Filled(Translate("Settings", "How the numbers of the %1 axis are written"), upper),
                      SettingField(axis, &Axis::labels),
                      &PlotScene::ApplyLabels,
                      true};
    labels.choices = LabelFormatNames();
    table.push_back(labels);
    constexpr const char* keys[] = {"Shift+X", "Shift+Y", "Shift+Z"};
    Setting inverse = {section,
                       "inverse-" + lower,
                       Filled(Translate("Settings", "Inverse %1 axis"), upper),
                       Filled(Translate("Settings", "Mirror the %1 axis of the 3-D plot"), upper),
                       SettingField(axis, &Axis::isInverse),
                       &PlotScene::ApplyView};
    inverse.key = keys[axis];
    table.push_back(inverse);
}

void AddContours(Table& table, int axis, const char* key) {
    const std::string lower(1, "xyz"[axis]);
    Setting setting = {Translate("Settings", "Contours"),
                       lower + "-contours",
                       Filled(Translate("Settings", "Contours of equal %1"), lower),
                       Filled(Translate("Settings", "Contours of equal %1 in the 3-D plot"), lower),
                       SettingField(axis, &Axis::showsContours),
                       &PlotScene::ApplySwitches};
    setting.key = key;
    table.push_back(setting);
}

void AddGradient(Table& table, int axis) {
    const std::string upper(1, "XYZ"[axis]);
    const std::string lower(1, "xyz"[axis]);
    const bool isZ = axis == 2;
    table.push_back(
        {Translate("Settings", "Colours"), lower + "-gradient-start",
         Filled(Translate("Settings", "%1 axis: lowest value"), upper),
         isZ ? Translate("Settings", "Colour of the smallest value, for the surface and its legend")
             : Filled(Translate("Settings",
                                "Colour of the smallest value, for the legend of the flat plot along %1"),
                      upper),
         SettingField(axis, &Axis::gradientStart), &PlotScene::ApplyGradients});
    table.push_back(
        {Translate("Settings", "Colours"), lower + "-gradient-end",
         Filled(Translate("Settings", "%1 axis: highest value"), upper),
         isZ ? Translate("Settings", "Colour of the largest value, for the surface and its legend")
             : Filled(Translate("Settings",
                                "Colour of the largest value, for the legend of the flat plot along %1"),
                      upper),
         SettingField(axis, &Axis::gradientEnd), &PlotScene::ApplyGradients});
}

void AddContourLevels(Table& table) {
    table.push_back({Translate("Settings", "Contours"), "contour-count", Translate("Settings", "Levels"),
                     Translate("Settings", "Number of contour levels of each axis"),
                     SettingField(&Plot::contourCount), &PlotScene::ApplyContourCount, false, 1,
                     maxContours});
    Setting interval = {
        Translate("Settings", "Contours"),
        "contour-interval",
        Translate("Settings", "Interval of z"),
        Translate("Settings", "Distance of the contour levels of equal z; 0 for as many as there are levels"),
        SettingField(&Plot::contourInterval),
        &PlotScene::ApplyContourLevels,
        true};
    interval.isNotNegative = true;
    table.push_back(interval);
    table.push_back({Translate("Settings", "Contours"), "contour-base", Translate("Settings", "Base of z"),
                     Translate("Settings", "One of the contour levels, where they have an interval"),
                     SettingField(&Plot::contourBase), &PlotScene::ApplyContourLevels, true});
    Setting fill = {Translate("Settings", "Contours"),
                    "fill-contours",
                    Translate("Settings", "Filled contours"),
                    Translate("Settings", "Colours between the contours of the flat plot of XY"),
                    SettingField(&Plot::fillsContours),
                    &PlotScene::ApplySwitches};
    fill.key = "I";
    table.push_back(fill);
    Setting label = {Translate("Settings", "Contours"),
                     "label-contours",
                     Translate("Settings", "Label contours"),
                     Translate("Settings", "Values at the contours of the flat plot of XY"),
                     SettingField(&Plot::labelsContours),
                     &PlotScene::ApplySwitches};
    label.key = "V";
    table.push_back(label);
}

void AddLines(Table& table) {
    Setting gridLines = {Translate("Settings", "Lines"),
                         "grid-lines",
                         Translate("Settings", "Grid lines"),
                         Translate("Settings", "Lines from the ticks across the back planes"),
                         SettingField(&Plot::showsGridLines),
                         &PlotScene::ApplySwitches};
    gridLines.key = "G";
    gridLines.without = Translate("Settings", "Without lines from the ticks across the back planes");
    Setting frameLines = {Translate("Settings", "Lines"),       "frame-lines",
                          Translate("Settings", "Frame lines"), Translate("Settings", "Lines on the surface"),
                          SettingField(&Plot::showsFrameLines), &PlotScene::ApplySwitches};
    frameLines.key = "F";
    frameLines.without = Translate("Settings", "Without lines on the surface");
    table.insert(table.end(), {gridLines, frameLines});
    table.push_back({Translate("Settings", "Lines"), "x-line-step",
                     Translate("Settings", "Columns per frame line"),
                     Translate("Settings", "Columns from one frame line to the next"),
                     SettingField(0, &Axis::lineStep), &PlotScene::ApplyLineSteps, true, 1, maxLineStep});
    table.push_back({Translate("Settings", "Lines"), "y-line-step",
                     Translate("Settings", "Rows per frame line"),
                     Translate("Settings", "Rows from one frame line to the next"),
                     SettingField(1, &Axis::lineStep), &PlotScene::ApplyLineSteps, true, 1, maxLineStep});
    table.push_back({Translate("Settings", "Lines"), "frame-line-color",
                     Translate("Settings", "Frame line colour"),
                     Translate("Settings", "Colour of the lines on the surface"),
                     SettingField(&Plot::frameLineColor), &PlotScene::ApplySwitches});
}

void AddColors(Table& table) {
    table.push_back({Translate("Settings", "Colours"), "background", Translate("Settings", "Background"),
                     Translate("Settings", "Colour behind the plot"), SettingField(&Plot::background),
                     &PlotScene::ApplyColors});
    table.push_back({Translate("Settings", "Colours"), "ink", Translate("Settings", "Ink"),
                     Translate("Settings", "Colour of texts and of the lines of the axes"),
                     SettingField(&Plot::ink), &PlotScene::ApplyColors});
    Setting colors = {Translate("Settings", "Colours"),
                      "colors",
                      Translate("Settings", "From low to high"),
                      Translate("Settings", "Colours of values"),
                      SettingField(&Plot::colors),
                      &PlotScene::ApplyGradients};
    colors.choices = ColorNames();
    table.push_back(colors);
    table.push_back(
        {Translate("Settings", "Colours"), "color-range", Translate("Settings", "Range of values"),
         Translate("Settings",
                   "Values of Z with the first and the last colour, instead of those of the data"),
         SettingField(&Plot::colorRange), &PlotScene::ApplyColorRange, true});
    Setting follow = {Translate("Settings", "Colours"),
                      "colors-follow-range",
                      Translate("Settings", "Colours follow the Z axis"),
                      Translate("Settings", "First and last colour at the ends of the Z axis"),
                      SettingField(&Plot::colorsFollowRange),
                      &PlotScene::ApplyColorRange};
    follow.key = "C";
    table.push_back(follow);
    table.push_back({Translate("Settings", "Colours"), "gradient-start",
                     Translate("Settings", "All axes: lowest value"),
                     Translate("Settings", "Colour of the smallest value, for axes without one of their own"),
                     SettingField(&Plot::gradientStart), &PlotScene::ApplyGradients});
    table.push_back({Translate("Settings", "Colours"), "gradient-end",
                     Translate("Settings", "All axes: highest value"),
                     Translate("Settings", "Colour of the largest value, for axes without one of their own"),
                     SettingField(&Plot::gradientEnd), &PlotScene::ApplyGradients});
    AddGradient(table, 0);
    AddGradient(table, 1);
    AddGradient(table, 2);
}

void AddLegend(Table& table) {
    Setting legend = {
        Translate("Settings", "Legend"),        "legend",
        Translate("Settings", "Colour legend"), Translate("Settings", "The bar of colours with its numbers"),
        SettingField(&Plot::showsLegend),       &PlotScene::ApplyLegend};
    legend.key = "L";
    legend.without = Translate("Settings", "Without the bar of colours with its numbers");
    table.push_back(legend);
    table.push_back({Translate("Settings", "Legend"), "legend-title", Translate("Settings", "Title"),
                     Translate("Settings", "What the colours of Z mean, above their bar"),
                     SettingField(&Plot::legendTitle), &PlotScene::ApplyLegend, true});
    Setting numbers = {Translate("Settings", "Legend"),
                       "legend-numbers",
                       Translate("Settings", "Numbers"),
                       Translate("Settings", "Eleven numbers beside the bar with decimals that are set, "
                                             "eleven with those that they need, or round ones"),
                       SettingField(&Plot::legendNumbers),
                       &PlotScene::ApplyLegend};
    numbers.choices = LegendNumberNames();
    table.push_back(numbers);
    table.push_back({Translate("Settings", "Legend"), "legend-precision", Translate("Settings", "Decimals"),
                     Translate("Settings", "Decimals of the legend's labels, where they are set"),
                     SettingField(&Plot::legendPrecision), &PlotScene::ApplyLegend, false, 0, maxPrecision});
    Setting groups = {Translate("Settings", "Legend"),
                      "group-names",
                      Translate("Settings", "Names of measure groups"),
                      Translate("Settings", "A list of the measure groups in the corner of the 3-D plot"),
                      SettingField(&Plot::listsGroups),
                      &PlotScene::ApplySwitches};
    groups.key = "N";
    table.push_back(groups);
    Setting points = {Translate("Settings", "Legend"),
                      "list-points",
                      Translate("Settings", "List of points"),
                      Translate("Settings", "A list of named points with their coordinates"),
                      SettingField(&Plot::listsPoints),
                      &PlotScene::ApplyPointList};
    points.key = "W";
    table.push_back(points);
}

void AddShape(Table& table) {
    Setting planes = {Translate("Settings", "View"),
                      "switch-planes",
                      Translate("Settings", "Grid always behind surface"),
                      Translate("Settings", "A grid that stands behind the surface from every side"),
                      SettingField(&Plot::switchesPlanes),
                      &PlotScene::ApplySwitches};
    planes.key = "B";
    planes.without = Translate("Settings", "Without a grid that stands behind the surface from every side");
    table.push_back(planes);
    Setting aspect = {Translate("Settings", "View"),
                      "auto-aspect",
                      Translate("Settings", "Auto aspect"),
                      Translate("Settings", "A box of the same shape whatever the ranges of its axes"),
                      SettingField(&Plot::fitsAspect),
                      &PlotScene::ApplyAspect};
    aspect.key = "A";
    aspect.without = Translate("Settings", "Without a box of the same shape whatever the ranges of its axes");
    table.push_back(aspect);
    Setting exaggeration = {
        Translate("Settings", "View"),
        "exaggeration",
        Translate("Settings", "Exaggeration"),
        Translate("Settings", "How many times as long Z is drawn as X and Y, which have one scale then; 0 "
                              "for lengths as they follow from the ranges"),
        SettingField(&Plot::exaggeration),
        &PlotScene::ApplyAspect,
        true};
    exaggeration.isNotNegative = true;
    table.push_back(exaggeration);
    Setting words = {
        Translate("Settings", "View"),
        "show-exaggeration",
        Translate("Settings", "Exaggeration in the title"),
        Translate("Settings", "How many times as long Z is drawn as X and Y, behind the title of the plot"),
        SettingField(&Plot::showsExaggeration),
        &PlotScene::ApplyTitles};
    words.key = "E";
    table.push_back(words);
}

void AddHand(Table& table) {
    Setting trace = {Translate("Settings", "View"),
                     "trace",
                     Translate("Settings", "Trace the pointer"),
                     Translate("Settings", "Show the point of the surface under the pointer"),
                     SettingField(&Plot::traces),
                     &PlotScene::ApplyTrace};
    trace.key = "T";
    table.push_back(trace);
    Setting reduce = {Translate("Settings", "View"),
                      "reduce-while-moving",
                      Translate("Settings", "Reduce while moving"),
                      Translate("Settings", "Fewer points of large grids while the plot moves"),
                      SettingField(&Plot::reducesMotion),
                      &PlotScene::ApplySwitches};
    reduce.key = "R";
    reduce.without = Translate("Settings", "Without fewer points of large grids while the plot moves");
    table.push_back(reduce);
    Setting upright = {Translate("Settings", "View"),
                       "keep-upright",
                       Translate("Settings", "Keep Z upright"),
                       Translate("Settings", "Left button and arrows turn it like a turntable"),
                       SettingField(&Plot::keepsUpright),
                       &PlotScene::ApplySwitches};
    upright.key = "U";
    upright.without = Translate("Settings", "Left button and arrows turn it freely");
    table.push_back(upright);
}

void AddView(Table& table) {
    AddShape(table);
    AddHand(table);
    Setting fit = {Translate("Settings", "View"),
                   "fit-surfaces",
                   Translate("Settings", "Axes fit all surfaces"),
                   Translate("Settings", "A box as large as all surfaces together"),
                   SettingField(&Plot::fitsSurfaces),
                   &PlotScene::ApplyFit};
    fit.key = "S";
    fit.without = Translate("Settings", "Without a box as large as all surfaces together");
    table.push_back(fit);
    Setting digits = {
        Translate("Settings", "View"),
        "fit-digits",
        Translate("Settings", "Digits for the range"),
        Translate("Settings", "Coordinates of the traced point with the digits that the axes need"),
        SettingField(&Plot::fitsReadOut),
        &PlotScene::ApplySwitches};
    digits.key = "D";
    digits.without =
        Translate("Settings", "Without coordinates of the traced point with the digits that the axes need");
    table.push_back(digits);
    table.push_back({Translate("Settings", "View"), "point-size", Translate("Settings", "Point size"),
                     Translate("Settings", "Radius of measure points in pixels"),
                     SettingField(&Plot::pointSize), &PlotScene::ApplySwitches, false, 1, maxPointSize});
    Setting names = {Translate("Settings", "View"),
                     "point-labels",
                     Translate("Settings", "Names of points"),
                     Translate("Settings", "Names beside measure points, as far as their file has them"),
                     SettingField(&Plot::namesPoints),
                     &PlotScene::ApplyPointNames};
    names.key = "M";
    table.push_back(names);
}

Table MakeTable() {
    Table table;
    table.push_back({Translate("Settings", "Titles"), "title", Translate("Settings", "Plot"),
                     Translate("Settings", "Title of the plot"), SettingField(&Plot::title),
                     &PlotScene::ApplyTitles, true});
    for (int axis = 0; axis < 3; ++axis)
        table.push_back({Translate("Settings", "Titles"), std::string(1, "xyz"[axis]) + "-title",
                         AxisName(axis), Filled(Translate("Settings", "Title of the %1 axis"), "XYZ"[axis]),
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
    if (text != "on" && text != "off")
        throw Failure(Filled(Translate("Settings", "expected on or off, found \"%1\""), text));
    value = text == "on";
}

void Parse(const Setting& setting, const std::string& text, std::optional<unsigned>& value) {
    const auto count = ParseCount(text);
    if (!count || *count < setting.least || *count > setting.most)
        throw Failure(Filled(Translate("Settings", "expected a whole number from %1 to %2, found \"%3\""),
                             setting.least, setting.most, text));
    value = static_cast<unsigned>(*count);
}

void Parse(const Setting& setting, const std::string& text, std::optional<double>& value) {
    const auto number = ParseNumber(text);
    if (setting.isNotNegative && (!number || !(*number >= 0.0)))
        throw Failure(Filled(Translate("Settings", "expected a number from 0 on, found \"%1\""), text));
    if (!number || !FitsSinglePrecision(*number))
        throw Failure(Filled(Translate("Settings", "expected a number, found \"%1\""), text));
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
        throw Failure(
            Filled(Translate("Settings", "expected %1, found \"%2\""), Listed(setting.choices), text));
    value = Choice{text};
}

void Parse(const Setting&, const std::string& text, std::optional<ValueRange>& value) {
    const std::size_t colon = text.find(':');
    const auto from = ParseNumber(text.substr(0, colon));
    const auto to = colon == std::string::npos ? std::nullopt : ParseNumber(text.substr(colon + 1));
    if (!from || !to || !FitsSinglePrecision(*from) || !FitsSinglePrecision(*to) || *from == *to)
        throw Failure(
            Filled(Translate("Settings", "expected MIN:MAX, two different numbers, found \"%1\""), text));
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

std::string WordForChoice(const std::string& choice) {
    for (const char* const known :
         {Marked("Choices", "gradient"), Marked("Choices", "grey"), Marked("Choices", "terrain"),
          Marked("Choices", "plain"), Marked("Choices", "engineering"), Marked("Choices", "powers"),
          Marked("Choices", "date"), Marked("Choices", "set"), Marked("Choices", "fitted"),
          Marked("Choices", "round")})
        if (choice == known) return Translate("Choices", known);
    return choice; // a name
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
