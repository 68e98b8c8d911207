// A program as a child process.
#pragma once

#include "WaitFor.h"

#include <chrono>
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

/// Whether all threads of a process wait for something other than the processor or a disk; also when it has
/// ended.
bool IsIdle(int process);

/// A running program. It is killed with the object. Nothing is ever written to its standard input.
class ChildProcess {
public:
    /// @param program  its path, or a name to look up in PATH
    ChildProcess(const std::string& program, const std::vector<std::string>& arguments,
                 const Environment& environment = {});
    ~ChildProcess();
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    int Id() const { return m_id; }
    bool IsIdle() const { return KivoTest::IsIdle(m_id); }
    /// What all its threads have used of the processor; 0 once it has ended.
    std::chrono::nanoseconds ProcessorTime() const;
    /// Asks it to end.
    void Terminate();
    /// Waits for its end. @return the exit code, 128 + the signal that ended it, or nothing after the time
    std::optional<int> WaitForExit(std::chrono::milliseconds time = patience);
    std::string Output() const; ///< what it has written to standard output
    std::string Errors() const; ///< what it has written to standard error

private:
    struct CloseFile {
        void operator()(std::FILE* file) const { std::fclose(file); }
    };

    int m_id = -1;
    int m_input = -1; // our end of a pipe
    std::optional<int> m_exitCode;
    std::unique_ptr<std::FILE, CloseFile> m_output;
    std::unique_ptr<std::FILE, CloseFile> m_errors;
};

} // namespace KivoTest
