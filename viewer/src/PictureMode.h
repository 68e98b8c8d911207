// The plot as a file, without a display.
#pragma once

#include "Content.h"
#include "Options.h"

namespace KivoViewer {

/// Draws the content as the options say and writes the file. Throws a Failure.
void WritePicture(const Content& content, const Options& options);

} // namespace KivoViewer
