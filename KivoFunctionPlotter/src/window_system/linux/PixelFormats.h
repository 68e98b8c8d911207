// Pixel formats.
#pragma once

#include "Win32Names.h"

namespace KivoDrawingTools {

/// The format that a picture with depth and stencil asks for: 8 bits per colour, 24 bits depth, 8 bits
/// stencil.
PIXELFORMATDESCRIPTOR FullFormat();

} // namespace KivoDrawingTools
