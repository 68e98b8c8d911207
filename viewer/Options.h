// The command line.
#pragma once

#include "FormulaGrid.h"

#include <optional>
#include <string>

namespace KivoViewer {

/// What the command line asks for.
struct Options {
    std::string information; ///< text to print instead of all else: the help or the version
    std::string file;        ///< grid file, or empty
    std::string function;    ///< formula, or empty
    Range x;                 ///< of the formula
    Range y;                 ///< of the formula
    std::string picture;     ///< PNG file to write, or empty
    int width = 1200;        ///< of the picture, or of the plot in the window, in pixels
    int height = 800;        ///< as above
    int mode = 0;            ///< plot mode as the plotter numbers them
    int dpi = 96;            ///< of the picture
};

/// Throws a Failure for a command line that cannot be followed.
Options ParseOptions(int argc, const char* const* argv);

} // namespace KivoViewer
