// What the window asks about files that leave something open.
#pragma once

#include "ReadOptions.h"

class QWidget;

namespace KivoViewer {

/// Asks how a file is meant. @return the answer, or null where there is none
const Reading* AskForReading(QWidget* parent, const OpenQuestion& question);

/// Asks how a grid is made of scattered points.
/// @param options  how the file is read; gets the answer
/// @return whether there is one
bool AskForGrid(QWidget* parent, const GridQuestion& question, ReadOptions& options);

} // namespace KivoViewer
