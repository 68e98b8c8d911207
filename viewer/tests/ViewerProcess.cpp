#include "ViewerProcess.h"

namespace KivoTest {

ViewerProcess::ViewerProcess(const std::vector<std::string>& arguments, const Environment& environment)
    : ChildProcess(KIVO_VIEWER_PATH, arguments, environment) {}

ViewerResult RunViewer(const std::vector<std::string>& arguments, const Environment& environment) {
    ViewerProcess viewer(arguments, environment);
    const int exitCode = viewer.WaitForExit().value_or(-1);
    return {exitCode, viewer.Output(), viewer.Errors()};
}

} // namespace KivoTest
