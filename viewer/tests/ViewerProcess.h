// The viewer as a child process.
#pragma once

#include "support/ChildProcess.h"

namespace KivoTest {

/// A running viewer. It is killed with the object.
class ViewerProcess : public ChildProcess {
public:
    explicit ViewerProcess(const std::vector<std::string>& arguments, const Environment& environment = {});
};

/// What a viewer left behind.
struct ViewerResult {
    int exitCode; ///< -1 where it had to be killed
    std::string output;
    std::string errors;
};

/// Runs the viewer to its end.
ViewerResult RunViewer(const std::vector<std::string>& arguments, const Environment& environment = {});

} // namespace KivoTest
