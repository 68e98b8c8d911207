#include "PointFile.h"

#include "FileText.h"
#include "GridFormats.h"
#include "PointTable.h"

#include <algorithm>
#include <utility>

namespace KivoViewer {

namespace {

constexpr std::size_t maxPoints = 100000; // each is a ball of its own in every frame

constexpr std::size_t maxGroups = 24; // that a list still shows

} // namespace

std::vector<PointFile> GroupsOf(const PointFile& file) {
    std::vector<PointFile> groups;
    for (std::size_t i = 0; i < file.labels.size(); ++i) {
        const std::string& label = file.labels[i];
        auto group = std::find_if(groups.begin(), groups.end(),
                                  [&label](const PointFile& other) { return other.name == label; });
        if (group == groups.end() && groups.size() == maxGroups) return {file};
        if (group == groups.end())
            group = groups.insert(groups.end(), {label, {}, {}, file.path, label, file.reading});
        const auto first = file.points.begin() + static_cast<std::ptrdiff_t>(3 * i);
        group->points.insert(group->points.end(), first, first + 3);
    }
    if (groups.empty()) return {file};
    for (PointFile& group : groups)
        if (group.name.empty()) group.name = file.name;
    return groups;
}

PointFile ReadPoints(std::string_view text, const std::string& name, const ReadOptions& options) {
    TextLines lines(text, name);
    PointTable table = ReadPointTable(lines, options, false, maxPoints);
    if (table.total > table.Count()) lines.FailAt(table.lineBeyond, TooManyPoints(maxPoints));
    PointFile file;
    file.name = name.substr(name.find_last_of('/') + 1);
    file.labels = std::move(table.labels);
    for (std::size_t i = 0; i < table.Count(); ++i)
        file.points.insert(file.points.end(), {table.x[i], table.y[i], table.z[i]});
    return file;
}

PointFile ReadPointFile(const std::string& path, const ReadOptions& options) {
    PointFile file = ReadPoints(ReadFileText(path), path == standardInput ? "standard input" : path, options);
    file.path = path;
    file.reading = options;
    return file;
}

} // namespace KivoViewer
