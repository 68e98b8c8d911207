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
        content.grid =
            options.files.empty() ? sample() : ReadGridFile(options.files.front(), {}, options.reading);
    for (std::size_t i = 1; i < options.files.size(); ++i)
        content.surfaces.push_back(ReadGridFile(options.files[i], {}, options.reading));
    for (const std::string& path : options.pointFiles)
        content.measureGroups.push_back(ReadPointFile(path));
    for (const std::string& path : options.curveFiles)
        content.curves.push_back(ReadPointFile(path));
    return content;
}

void ShowContent(PlotScene& scene, const Content& content, const Options& options) {
    scene.Settings() = options.settings;
    scene.ShowGrid(content.grid);
    SurfaceEntry first = scene.Surfaces().front();
    first.looks = options.looks.front();
    scene.ChangeSurface(first);
    for (std::size_t i = 0; i < content.surfaces.size(); ++i)
        scene.AddSurface(content.surfaces[i], options.looks[i + 1]);
    for (const PointFile& group : content.measureGroups)
        scene.AddPoints(PointSet::Kind::measureGroup, group);
    for (const PointFile& curve : content.curves)
        scene.AddPoints(PointSet::Kind::curve, curve);
    scene.ShowFrom(options.viewpoint);
}

} // namespace KivoViewer
