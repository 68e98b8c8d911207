// What the command line asks to show.
#pragma once

#include "GridData.h"
#include "Options.h"
#include "PointFile.h"
#include "Progress.h"

#include <vector>

namespace KivoViewer {

class PlotScene;

/// A grid and what lies over it.
struct Content {
    GridData grid;
    std::vector<GridData> surfaces; ///< over the grid
    std::vector<PointFile> measureGroups;
    std::vector<PointFile> curves;
};

/// Reads the files that the options name. Throws a Failure, and Cancelled.
/// @param sample  the grid where they name none
Content LoadContent(const Options& options, GridData (*sample)(), const Progress& progress = {});

/// How the grid is read that is subtracted from the first.
const ReadOptions& MinusReadingOf(const Options& options);

/// Shows it all as the options say. What cannot be shown so is left out; the first Failure of that is thrown
/// when all the rest is shown.
void ShowContent(PlotScene& scene, const Content& content, const Options& options);

} // namespace KivoViewer
