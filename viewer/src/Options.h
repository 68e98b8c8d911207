// The command line.
#pragma once

#include "FormulaGrid.h"
#include "Picture.h"
#include "PlotSettings.h"
#include "Profile.h"
#include "ReadOptions.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace KivoViewer {

struct Session;

/// A place in a picture, from the upper left corner.
struct PixelPosition {
    int x = 0;
    int y = 0;
};

/// What the command line asks for.
struct Options {
    std::string information;                ///< text to print instead of all else: the help or the version
    std::string language;                   ///< that texts are in, by its two letters; empty: the desktop's
    bool listsFormats = false;              ///< whether to print those of files, instead of all else
    std::vector<std::string> files;         ///< grid files, the second and so on over the first
    std::vector<SurfaceLooks> looks{1};     ///< of the surfaces: one at least, and one for each file
    ReadOptions reading;                    ///< how the files are read
    std::string function;                   ///< formula, or empty
    std::string minus;                      ///< file of a grid that is subtracted from the first, or empty
    Range x;                                ///< of the formula
    Range y;                                ///< of the formula
    std::string picture;                    ///< file to write, "-" for the standard output, or empty
    int width = 1200;                       ///< of the picture, or of the plot in the window, in pixels
    int height = 800;                       ///< as above
    bool hasSize = false;                   ///< whether the command line gives it
    PictureFormat format;                   ///< of the picture, but for its size
    PlotSettings settings;                  ///< how the plot looks
    Viewpoint viewpoint;                    ///< from where the plot is shown
    std::vector<std::string> settingNames;  ///< of those that the command line sets, by their names
    std::vector<std::string> pointFiles;    ///< measure points, a group for each
    std::vector<std::string> curveFiles;    ///< a curve for each
    std::optional<PixelPosition> traceAt;   ///< of the picture
    std::string sessionFile;                ///< to open, or empty
    std::shared_ptr<const Session> session; ///< that WithSession has added, or null
    bool hasMode = false;                   ///< whether the command line gives it
    std::optional<ProfileLine> profile;     ///< along which heights are asked for
    std::string profileTable;               ///< file for them, "-" for the standard output, or empty
    bool watches = false;                   ///< files are read again when they change
};

/// The language that the command line asks for: its own messages are in it, too. English for the manual page;
/// empty where it does not say. To be checked by the caller.
std::string LanguageIn(int argc, const char* const* argv);

/// Throws a Failure for a command line that cannot be followed.
Options ParseOptions(int argc, const char* const* argv);

} // namespace KivoViewer
