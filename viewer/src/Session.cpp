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
    if (options.minus.empty()) options.minus = session.minus;
    if (!options.profile) options.profile = session.profile;
    options.files.clear();
    options.looks.clear();
    for (const SurfaceEntry& surface : session.surfaces) {
        options.files.push_back(surface.path);
        options.looks.push_back(surface.looks);
    }
    std::vector<std::string> groups, curves; // before those of the command line
    for (const PointSet& set : session.points) {
        std::vector<std::string>& paths = set.kind == PointSet::Kind::curve ? curves : groups;
        const bool isRead = std::find(paths.begin(), paths.end(), set.path) != paths.end();
        if (set.group.empty() || !isRead) paths.push_back(set.path); // a file with several is read once
    }
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

namespace {

bool AreOfOneFile(const PointSet& a, const PointSet& b) {
    return a.kind == b.kind && a.path == b.path;
}

// Of files with several groups some may have been taken away, and others written since.
void ShowPoints(PlotScene& scene, std::vector<PointSet> saved) {
    const std::vector<PointSet> all = saved, shown = scene.PointSets();
    std::vector<PointSet> others;
    for (const PointSet& set : shown) {
        const auto same = std::find_if(saved.begin(), saved.end(), [&set](const PointSet& other) {
            return AreOfOneFile(set, other) && set.group == other.group;
        });
        if (same != saved.end()) {
            same->index = set.index;
            scene.ChangePoints(*same);
            saved.erase(same);
        } else if (std::any_of(all.begin(), all.end(),
                               [&set](const PointSet& other) { return AreOfOneFile(set, other); })) {
            others.push_back(set);
        }
    }
    for (auto set = others.rbegin(); set != others.rend(); ++set)
        scene.RemovePoints(set->kind, set->index);
}

} // namespace

void ShowSession(PlotScene& scene, const Session& session) {
    const std::vector<SurfaceEntry> surfaces = scene.Surfaces();
    for (std::size_t i = 0; i < std::min(surfaces.size(), session.surfaces.size()); ++i) {
        SurfaceEntry surface = session.surfaces[i];
        surface.number = surfaces[i].number;
        if (surface.name.empty()) surface.name = surfaces[i].name;
        scene.ChangeSurface(surface);
    }
    ShowPoints(scene, session.points);
    if (session.view && session.view->plotType == scene.Settings().mode) scene.ShowView(*session.view);
}

} // namespace KivoViewer
