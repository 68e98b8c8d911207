#include "Session.h"

#include "Options.h"
#include "SettingTable.h"

#include <algorithm>
#include <utility>

namespace KivoViewer {

Session SessionOf(PlotScene& scene) {
    Session session;
    session.surfaces = scene.Surfaces();
    session.points = scene.PointSets();
    session.settings = scene.Settings();
    session.view = scene.View();
    return session;
}

Options WithSession(Options options, Session session) {
    options.function = session.function;
    options.x = session.x;
    options.y = session.y;
    options.files.clear();
    options.looks.clear();
    for (const SurfaceEntry& surface : session.surfaces) {
        options.files.push_back(surface.path);
        options.looks.push_back(surface.looks);
    }
    std::vector<std::string> groups, curves; // before those of the command line
    for (const PointSet& set : session.points)
        (set.kind == PointSet::Kind::curve ? curves : groups).push_back(set.path);
    options.pointFiles.insert(options.pointFiles.begin(), groups.begin(), groups.end());
    options.curveFiles.insert(options.curveFiles.begin(), curves.begin(), curves.end());
    PlotSettings settings = session.settings;
    for (const std::string& name : options.settingNames)
        Copy(FindSetting(name), options.settings, settings);
    if (options.hasMode) settings.mode = options.settings.mode;
    options.settings = settings;
    options.session = std::make_shared<const Session>(std::move(session));
    return options;
}

void ShowSession(PlotScene& scene, const Session& session) {
    const std::vector<SurfaceEntry> surfaces = scene.Surfaces();
    for (std::size_t i = 0; i < std::min(surfaces.size(), session.surfaces.size()); ++i) {
        SurfaceEntry surface = session.surfaces[i];
        surface.number = surfaces[i].number;
        scene.ChangeSurface(surface);
    }
    for (const PointSet& set : session.points)
        scene.ChangePoints(set);
    if (session.view && session.view->plotType == scene.Settings().mode) scene.ShowView(*session.view);
}

} // namespace KivoViewer
