// What is shown, as it is kept in a file.
#pragma once

#include "FormulaGrid.h"
#include "PlotScene.h"
#include "PlotSettings.h"
#include "Profile.h"

#include <KivoView.h>

#include <optional>
#include <string>
#include <vector>

namespace KivoViewer {

struct Options;

/// Where the data are, how they look, and from where they are seen. The data themselves stay in their files.
struct Session {
    std::string function;               ///< of the first surface; empty where it has a file, or is the sample
    Range x;                            ///< of the function
    Range y;                            ///< of the function
    std::string minus;                  ///< file of a grid that is subtracted from the first; or empty
    ReadOptions minusReading;           ///< how that file is read
    std::vector<SurfaceEntry> surfaces; ///< the first, and those over it
    std::vector<PointSet> points;
    PlotSettings settings;
    std::optional<KivoDrawingTools::SKivoView> view;
    std::optional<ProfileLine> profile; ///< whose heights are shown
};

/// @param path  of the file that the text is for: what lies beside or below it is named from there
std::string WriteSession(const Session& session, const std::string& path);
/// Throws a Failure that says what is wrong with the text.
/// @param path  of the file that the text is from
Session ReadSession(const std::string& text, const std::string& path);

void WriteSessionFile(const Session& session, const std::string& path); ///< throws a Failure
Session ReadSessionFile(const std::string& path);                       ///< throws a Failure

/// What the scene shows now.
Session SessionOf(PlotScene& scene);
/// The options with what a session names where they name nothing.
Options WithSession(Options options, Session session);
/// Names, colours and what else a session says beyond the options, when its files are shown.
void ShowSession(PlotScene& scene, const Session& session);

} // namespace KivoViewer
