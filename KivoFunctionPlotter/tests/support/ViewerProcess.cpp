#include "ViewerProcess.h"

#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <thread>

namespace KivoTest {

namespace {

std::string Content(std::FILE* file) {
    std::string text;
    char block[4096];
    for (off_t offset = 0;;) {
        const ssize_t count =
            pread(fileno(file), block, sizeof block, offset); // leaves the writer's position
        if (count <= 0) return text;
        text.append(block, static_cast<std::size_t>(count));
        offset += count;
    }
}

void Apply(const Environment& environment) {
    for (const auto& [name, value] : environment) {
        if (value)
            setenv(name.c_str(), value->c_str(), 1);
        else
            unsetenv(name.c_str());
    }
}

} // namespace

Environment WithoutDisplay() {
    return {{"DISPLAY", std::nullopt}, {"WAYLAND_DISPLAY", std::nullopt}, {"QT_QPA_PLATFORM", std::nullopt}};
}

ViewerProcess::ViewerProcess(const std::vector<std::string>& arguments, const Environment& environment)
    : m_output(std::tmpfile()), m_errors(std::tmpfile()) {
    std::string program = KIVO_VIEWER_PATH;
    std::vector<std::string> texts = arguments;
    std::vector<char*> words{program.data()};
    for (std::string& text : texts)
        words.push_back(text.data());
    words.push_back(nullptr);
    m_id = fork();
    if (m_id != 0) return;
    Apply(environment);
    dup2(fileno(m_output.get()), STDOUT_FILENO);
    dup2(fileno(m_errors.get()), STDERR_FILENO);
    execv(program.c_str(), words.data());
    _exit(127);
}

ViewerProcess::~ViewerProcess() {
    if (m_id <= 0 || m_exitCode) return;
    kill(m_id, SIGKILL);
    waitpid(m_id, nullptr, 0);
}

std::optional<int> ViewerProcess::WaitForExit(int milliseconds) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(milliseconds);
    while (!m_exitCode) {
        int status = 0;
        if (waitpid(m_id, &status, WNOHANG) == m_id)
            m_exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
        else if (std::chrono::steady_clock::now() > end)
            break;
        else
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    return m_exitCode;
}

std::string ViewerProcess::Output() const {
    return Content(m_output.get());
}

std::string ViewerProcess::Errors() const {
    return Content(m_errors.get());
}

ViewerResult RunViewer(const std::vector<std::string>& arguments, const Environment& environment) {
    ViewerProcess viewer(arguments, environment);
    const int exitCode = viewer.WaitForExit(30000).value_or(-1);
    return {exitCode, viewer.Output(), viewer.Errors()};
}

} // namespace KivoTest
