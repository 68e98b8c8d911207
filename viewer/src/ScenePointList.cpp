// PlotScene: the list of measure points in the plot.
#include "Failure.h"
#include "HelpWords.h"
#include "Language.h"
#include "PlotScene.h"

#include <KivoAxis.h>
#include <KivoLegend.h>
#include <KivoPoints.h>
#include <KivoWindow.h>

#include <algorithm>
#include <cstddef>

namespace KivoViewer {

namespace {

constexpr std::size_t mostListed = 24; // that most windows have room for

struct ListedPoint {
    std::string name;
    std::string numbers[3];
};

// What a group is listed with. Points of several names stand below their group's.
struct ListedGroup {
    std::string heading;
    std::vector<ListedPoint> points;
    std::size_t left = 0; ///< points that are not listed
};

std::string Padding(std::size_t width, const std::string& text) {
    const std::size_t own = WidthOf(text);
    return std::string(own < width ? width - own : 0, ' ');
}

// In columns, by a font whose letters are of one width.
std::vector<std::vector<std::string>> AlignedRows(const std::vector<ListedGroup>& groups) {
    std::size_t widths[4] = {};
    for (const ListedGroup& group : groups)
        for (const ListedPoint& point : group.points) {
            widths[0] = std::max(widths[0], WidthOf(point.name));
            for (std::size_t i = 0; i < 3; ++i)
                widths[i + 1] = std::max(widths[i + 1], WidthOf(point.numbers[i]));
        }
    std::vector<std::vector<std::string>> rows;
    for (const ListedGroup& group : groups) {
        rows.emplace_back();
        if (!group.heading.empty()) rows.back().push_back(group.heading);
        for (const ListedPoint& point : group.points) {
            std::string row = point.name + Padding(widths[0], point.name);
            for (std::size_t i = 0; i < 3; ++i)
                row += "  " + Padding(widths[i + 1], point.numbers[i]) + point.numbers[i];
            rows.back().push_back(row);
        }
        if (group.left > 0) rows.back().push_back("and " + std::to_string(group.left) + " more");
    }
    return rows;
}

} // namespace

// With the numbers that a traced point there would have.
void PlotScene::ApplyPointList() {
    std::size_t room = mostListed;
    std::vector<ListedGroup> groups;
    for (const MeasurePoints& group : m_groups) {
        const auto number = static_cast<unsigned int>(groups.size());
        groups.emplace_back();
        ListedGroup& listed = groups.back();
        const bool areNamed = !group.file.labels.empty() || !group.file.group.empty();
        if (!m_settings.listsPoints || !areNamed || !Plotter().IsShowMeasureGroup(number)) continue;
        std::string name;
        Plotter().GetMeasureGroupName(number, &name);
        if (!group.file.labels.empty()) listed.heading = name;
        const std::size_t count = std::min(group.file.Count(), room);
        for (std::size_t i = 0; i < count; ++i) {
            ListedPoint point = {i < group.file.labels.size() ? "  " + group.file.labels[i] : name, {}};
            for (int axis = 0; axis < 3; ++axis)
                point.numbers[axis] =
                    ReadOutNumber(Plotter(), axis, group.differences[3 * i + static_cast<std::size_t>(axis)]);
            listed.points.push_back(point);
        }
        listed.left = group.file.Count() - count;
        room -= count;
    }
    unsigned int number = 0;
    for (const std::vector<std::string>& rows : AlignedRows(groups))
        if (SetListedTexts(Plotter(), number++, rows) != 0)
            throw Failure(Filled(Translate("Plot", "cannot draw: %1"), KivoDrawingTools::LastWindowError()));
    ShowMeasureGroupNames(Plotter(), m_settings.listsGroups || m_settings.listsPoints);
}

} // namespace KivoViewer
