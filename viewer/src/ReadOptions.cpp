#include "ReadOptions.h"

#include "Failure.h"
#include "Language.h"
#include "Numbers.h"
#include "TextLines.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace KivoViewer {

namespace {

constexpr const char* methodNames[] = {"linear", "nearest", "inverse"}; // as the methods follow each other

} // namespace

Region ParseRegion(const std::string& text) {
    std::vector<std::string_view> fields;
    SplitFields(text, ':', fields);
    Region region;
    double* const ends[] = {&region.x0, &region.x1, &region.y0, &region.y1};
    bool isRegion = fields.size() == std::size(ends);
    for (std::size_t i = 0; isRegion && i < fields.size(); ++i) {
        *ends[i] = ParseNumber(fields[i]).value_or(std::nan(""));
        isRegion = std::isfinite(*ends[i]);
    }
    if (!isRegion || !(region.x0 < region.x1) || !(region.y0 < region.y1))
        throw Failure(
            Filled(Translate("CommandLine", "expected four numbers x0:x1:y0:y1 that rise from x0 to x1 and "
                                            "from y0 to y1, found %1"),
                   text));
    return region;
}

std::string TextOf(const Region& region) {
    return FormatNumber(region.x0) + ':' + FormatNumber(region.x1) + ':' + FormatNumber(region.y0) + ':' +
           FormatNumber(region.y1);
}

GridMethod ParseGridMethod(const std::string& text) {
    const auto name = std::find(std::begin(methodNames), std::end(methodNames), text);
    if (name == std::end(methodNames))
        throw Failure(
            Filled(Translate("CommandLine", "expected linear, nearest or inverse, found %1"), text));
    return static_cast<GridMethod>(name - std::begin(methodNames));
}

std::string NameOf(GridMethod method) {
    return methodNames[static_cast<int>(method)];
}

std::string WordFor(GridMethod method) {
    if (method == GridMethod::nearest) return Translate("Files", "nearest");
    return method == GridMethod::linear ? Translate("Files", "linear") : Translate("Files", "inverse");
}

std::vector<std::string> ParseColumns(const std::string& text) {
    std::vector<std::string_view> fields;
    SplitFields(text, ',', fields);
    const bool areNamed =
        std::none_of(fields.begin(), fields.end(), [](std::string_view field) { return field.empty(); });
    if (!areNamed || (fields.size() != 3 && text != "all"))
        throw Failure(
            Filled(Translate("CommandLine", "expected the columns of x, y and z, such as 1,2,4, or all for "
                                            "a matrix, found %1"),
                   text));
    return {fields.begin(), fields.end()};
}

} // namespace KivoViewer
