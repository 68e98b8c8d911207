// How a file is read, chosen by the user beside its first lines.
#pragma once

#include "ReadOptions.h"

class QWidget;

namespace KivoViewer {

/// The first lines of a file in a table whose heads name x, y and z, above words on how they are read.
/// @param isGrid  whether the file is to become a surface; else it holds single points
QWidget* MakePreview(const Reading& reading, bool isGrid);

/// Whether the file is a table, which may be read in several ways.
bool IsTable(const Reading& reading, bool isGrid);

/// Asks how a file is read.
/// @param reading  how it was read, or would be; gets the answer
/// @return whether there is one
bool AskHowToRead(QWidget* parent, Reading& reading, bool isGrid);

} // namespace KivoViewer
