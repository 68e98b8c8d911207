// The manual page.
#pragma once

#include <string>

namespace CLI {
class App;
}

namespace KivoViewer {

/// The page kivo-viewer(1) as source for man, with the options of the command line.
std::string ManualPage(const CLI::App& app);

} // namespace KivoViewer
