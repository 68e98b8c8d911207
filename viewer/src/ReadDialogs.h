// What the window asks about files that leave something open.
#pragma once

#include "ReadOptions.h"

#include <optional>

class QWidget;

namespace KivoViewer {

/// Asks how a file is meant.
/// @param isGrid  whether the file is to become a surface; else it holds single points
/// @return the answer, or nothing where there is none
std::optional<Reading> AskForReading(QWidget* parent, const OpenQuestion& question, bool isGrid);

/// Tells why a file cannot be read, and asks whether it may be read otherwise where there are other ways.
/// @param reading  how it was tried; gets the answer
/// @return whether there is one
bool TellAndAskAgain(QWidget* parent, const Failure& failure, Reading& reading, bool isGrid);

/// Asks how a grid is made of scattered points.
/// @param options  how the file is read; gets the answer
/// @return whether there is one
bool AskForGrid(QWidget* parent, const GridQuestion& question, ReadOptions& options);

} // namespace KivoViewer
