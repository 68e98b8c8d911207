#include "GridReader.h"

#include "Failure.h"
#include "FileText.h"
#include "GridFormats.h"
#include "Numbers.h"

#include <vector>

namespace KivoViewer {

namespace {

enum class Format { asciiGrid, xyz, matrix };

bool EndsInCsv(const std::string& name) {
    if (name.size() < 4) return false;
    const std::string ending = name.substr(name.size() - 4);
    return ending == ".csv" || ending == ".CSV";
}

// Whether two points can be neighbours of a grid in grid order: one of x and y stays.
bool AreNeighbours(const std::vector<std::string_view>& a, const std::vector<std::string_view>& b) {
    return b.size() == 3 &&
           (ParseNumber(a[0]) == ParseNumber(b[0])) != (ParseNumber(a[1]) == ParseNumber(b[1]));
}

Format DetectFormat(TextLines lines) {
    if (!lines.Next()) throw Failure(lines.Name() + ": no data");
    if (IsAsciiGridHeader(lines.Line())) return Format::asciiGrid;
    std::vector<std::string_view> first;
    SplitPoint(lines.Line(), first);
    if (first.size() != 3 || first[0].empty()) return Format::matrix;
    if (AreColumnNames(first) || !EndsInCsv(lines.Name()) || !lines.Next()) return Format::xyz;
    std::vector<std::string_view> second;
    SplitPoint(lines.Line(), second);
    return AreNeighbours(first, second) ? Format::xyz : Format::matrix;
}

} // namespace

GridData ReadGrid(std::string_view text, const std::string& name) {
    TextLines lines(text, name);
    switch (DetectFormat(lines)) {
    case Format::asciiGrid:
        return ReadAsciiGrid(lines);
    case Format::xyz:
        return ReadXyz(lines);
    default:
        return ReadMatrix(lines);
    }
}

GridData ReadGridFile(const std::string& path) {
    return ReadGrid(ReadFileText(path), path);
}

} // namespace KivoViewer
