// What the window asks about files that leave something open.
#pragma once

#include "ReadOptions.h"

#include <cstddef>

class QWidget;

namespace KivoViewer {

/// Asks how a file is meant. @return the answer, or null where there is none
const Reading* AskForReading(QWidget* parent, const OpenQuestion& question);

/// Asks how a grid is made of scattered points. @return whether to go on
bool AskForGrid(QWidget* parent, std::size_t points, GridMethod& method, double& cell);

} // namespace KivoViewer
