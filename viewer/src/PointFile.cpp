#include "PointFile.h"

#include "Failure.h"
#include "FileText.h"
#include "GridFormats.h"

namespace KivoViewer {

namespace {

constexpr std::size_t maxPoints = 100000; // each is a ball of its own in every frame

} // namespace

PointFile ReadPoints(std::string_view text, const std::string& name) {
    PointFile file;
    file.name = name.substr(name.find_last_of('/') + 1);
    TextLines lines(text, name);
    if (!lines.Next()) throw Failure(name + ": no points");
    std::vector<std::string_view> fields;
    SplitPoint(lines.Line(), fields);
    if (AreColumnNames(fields) && !lines.Next()) lines.Fail("no points after the column names");
    do {
        SplitPoint(lines.Line(), fields);
        if (fields.size() != 3)
            lines.Fail("expected x, y and z, found " + std::to_string(fields.size()) +
                       (fields.size() == 1 ? " value" : " values"));
        for (const std::string_view field : fields)
            file.points.push_back(NumberIn(lines, field));
        if (file.Count() > maxPoints)
            lines.Fail("too many points; at most " + std::to_string(maxPoints) + " can be shown");
    } while (lines.Next());
    return file;
}

PointFile ReadPointFile(const std::string& path) {
    return ReadPoints(ReadFileText(path), path);
}

} // namespace KivoViewer
