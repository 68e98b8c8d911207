#include "Content.h"

#include "FormulaGrid.h"
#include "GridReader.h"
#include "PlotScene.h"

namespace KivoViewer {

Content LoadContent(const Options& options, GridData (*sample)()) {
    Content content;
    if (!options.function.empty())
        content.grid = MakeFormulaGrid(options.function, options.x, options.y);
    else
        content.grid = options.file.empty() ? sample() : ReadGridFile(options.file);
    for (const std::string& path : options.pointFiles)
        content.measureGroups.push_back(ReadPointFile(path));
    for (const std::string& path : options.curveFiles)
        content.curves.push_back(ReadPointFile(path));
    return content;
}

void ShowContent(PlotScene& scene, const Content& content, const Options& options) {
    scene.Settings() = options.settings;
    scene.ShowGrid(content.grid);
    for (const PointFile& group : content.measureGroups)
        scene.AddPoints(PointSet::Kind::measureGroup, group);
    for (const PointFile& curve : content.curves)
        scene.AddPoints(PointSet::Kind::curve, curve);
    scene.ShowFrom(options.viewpoint);
}

} // namespace KivoViewer
