// The viewer as a child process.
#pragma once

#include <cstdio>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace KivoTest {

/// Variables to set, or to take away where there is no value.
using Environment = std::map<std::string, std::optional<std::string>>;

/// The environment without any display server.
Environment WithoutDisplay();

/// A running viewer. It is killed with the object.
class ViewerProcess {
public:
    explicit ViewerProcess(const std::vector<std::string>& arguments, const Environment& environment = {});
    ~ViewerProcess();
    ViewerProcess(const ViewerProcess&) = delete;
    ViewerProcess& operator=(const ViewerProcess&) = delete;

    int Id() const { return m_id; }
    /// Waits for its end. @return the exit code, 128 + the signal that ended it, or nothing after the time
    std::optional<int> WaitForExit(int milliseconds);
    std::string Output() const; ///< what it has written to standard output
    std::string Errors() const; ///< what it has written to standard error

private:
    struct CloseFile {
        void operator()(std::FILE* file) const { std::fclose(file); }
    };

    int m_id = -1;
    std::optional<int> m_exitCode;
    std::unique_ptr<std::FILE, CloseFile> m_output;
    std::unique_ptr<std::FILE, CloseFile> m_errors;
};

/// What a viewer left behind.
struct ViewerResult {
    int exitCode; ///< -1 where it had to be killed
    std::string output;
    std::string errors;
};

/// Runs the viewer to its end, which must come within half a minute.
ViewerResult RunViewer(const std::vector<std::string>& arguments, const Environment& environment = {});

} // namespace KivoTest
