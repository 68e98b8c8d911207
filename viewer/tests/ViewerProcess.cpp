#include "ViewerProcess.h"

namespace KivoTest {

namespace {

// Tests look for English texts, whatever the machine's language; those of other languages say which.
Environment InEnglish(Environment environment) {
    environment.insert({{"LC_ALL", "C.UTF-8"}, {"LANGUAGE", std::nullopt}});
    return environment;
}

} // namespace

ViewerProcess::ViewerProcess(const std::vector<std::string>& arguments, const Environment& environment)
    : ChildProcess(KIVO_VIEWER_PATH, arguments, InEnglish(environment)) {}

ViewerResult RunViewer(const std::vector<std::string>& arguments, const Environment& environment) {
    ViewerProcess viewer(arguments, environment);
    const int exitCode = viewer.WaitForExit().value_or(-1);
    return {exitCode, viewer.Output(), viewer.Errors()};
}

} // namespace KivoTest
