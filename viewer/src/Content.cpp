#include "Content.h"

#include "Difference.h"
#include "Failure.h"
#include "FormulaGrid.h"
#include "GridReader.h"
#include "PlotScene.h"
#include "PointBox.h"
#include "Session.h"

#include <algorithm>
#include <optional>

namespace KivoViewer {

namespace {

GridData ReadWithPath(const std::string& path, const ReadOptions& reading, const Progress& progress) {
    GridData grid = ReadGridFile(path, progress, reading);
    grid.path = path;
    grid.reading = reading;
    grid.reading.asks = false;
    return grid;
}

// A session says for each of its files how it is read, which come before the others.
const ReadOptions& ReadingOf(const Options& options, std::size_t file) {
    const bool isSaved = options.session && file < options.session->surfaces.size();
    return isSaved ? options.session->surfaces[file].reading : options.reading;
}

const ReadOptions& ReadingOf(const Options& options, PointSet::Kind kind, const std::string& path) {
    if (options.session)
        for (const PointSet& set : options.session->points)
            if (set.kind == kind && set.path == path) return set.reading;
    return options.reading;
}

void LoadPoints(const Options& options, Content& content) {
    const auto read = [&options](PointSet::Kind kind, const std::string& path) {
        return ReadPointFile(path, ReadingOf(options, kind, path));
    };
    for (const std::string& path : options.pointFiles)
        content.measureGroups.push_back(read(PointSet::Kind::measureGroup, path));
    for (const std::string& path : options.curveFiles)
        content.curves.push_back(read(PointSet::Kind::curve, path));
}

// A session of the sample names no file for the first surface.
bool HasFile(const Options& options) {
    return !options.files.empty() && !options.files.front().empty();
}

GridData LoadFirst(const Options& options, const Content& content, GridData (*sample)(),
                   const Progress& progress) {
    if (!options.function.empty()) return MakeFormulaGrid(options.function, options.x, options.y);
    if (HasFile(options)) return ReadWithPath(options.files.front(), ReadingOf(options, 0), progress);
    std::vector<PointFile> points = content.measureGroups;
    points.insert(points.end(), content.curves.begin(), content.curves.end());
    return points.empty() ? sample() : BoxAround(points);
}

} // namespace

const ReadOptions& MinusReadingOf(const Options& options) {
    const bool isSaved = options.session && options.session->minus == options.minus;
    return isSaved ? options.session->minusReading : options.reading;
}

Content LoadContent(const Options& options, GridData (*sample)(), const Progress& progress) {
    const std::size_t gridCount = std::max<std::size_t>(options.files.size(), 1) + !options.minus.empty();
    std::size_t grids = 0;
    const Progress ofAll = [&](double share) {
        return !progress || progress((static_cast<double>(grids) + share) / static_cast<double>(gridCount));
    };
    Content content;
    if (HasFile(options))
        content.grid = LoadFirst(options, content, sample, ofAll); // whatever is wrong there comes first
    LoadPoints(options, content);
    if (!HasFile(options)) content.grid = LoadFirst(options, content, sample, ofAll);
    ++grids;
    if (!options.minus.empty()) {
        content.grid =
            DifferenceOf(content.grid, ReadGridFile(options.minus, ofAll, MinusReadingOf(options)));
        ++grids;
    }
    for (std::size_t i = 1; i < options.files.size(); ++i, ++grids)
        content.surfaces.push_back(ReadWithPath(options.files[i], ReadingOf(options, i), ofAll));
    return content;
}

void ShowContent(PlotScene& scene, const Content& content, const Options& options) {
    std::optional<Failure> firstFailure;
    const auto attempt = [&firstFailure](const auto& show) {
        try {
            show();
        } catch (const Failure& failure) {
            if (!firstFailure) firstFailure = failure;
        }
    };
    scene.RemoveAllPoints();
    scene.Settings() = options.settings;
    attempt([&] { scene.ShowGrid(content.grid); });
    SurfaceEntry first = scene.Surfaces().front();
    first.looks = options.looks.front();
    scene.ChangeSurface(first);
    for (std::size_t i = 0; i < content.surfaces.size(); ++i)
        attempt([&] { scene.AddSurface(content.surfaces[i], options.looks[i + 1]); });
    for (const PointFile& file : content.measureGroups)
        for (const PointFile& group : GroupsOf(file))
            attempt([&] { scene.AddPoints(PointSet::Kind::measureGroup, group); });
    for (const PointFile& curve : content.curves)
        attempt([&] { scene.AddPoints(PointSet::Kind::curve, curve); });
    if (options.session) attempt([&] { ShowSession(scene, *options.session); });
    scene.ShowFrom(options.viewpoint);
    if (firstFailure) throw Failure(*firstFailure);
}

} // namespace KivoViewer
