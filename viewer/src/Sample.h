// What is shown where nobody names data.
#pragma once

#include "GridData.h"

namespace KivoViewer {

/// The terrain in the program.
GridData ReadSample();

} // namespace KivoViewer
