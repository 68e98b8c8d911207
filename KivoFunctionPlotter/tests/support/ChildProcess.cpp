#include "ChildProcess.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <system_error>

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

bool IsIdle(int process) {
    std::error_code error; // threads come and go
    const std::filesystem::directory_iterator threads("/proc/" + std::to_string(process) + "/task", error);
    return std::none_of(begin(threads), end(threads), [](const std::filesystem::directory_entry& thread) {
        std::ifstream file(thread.path() / "stat");
        std::string stat;
        std::getline(file, stat);
        const std::size_t name = stat.rfind(')'); // the state comes after the name, which may hold anything
        return name != std::string::npos && name + 2 < stat.size() &&
               (stat[name + 2] == 'R' || stat[name + 2] == 'D');
    });
}

ChildProcess::ChildProcess(const std::string& program, const std::vector<std::string>& arguments,
                           const Environment& environment)
    : m_output(std::tmpfile()), m_errors(std::tmpfile()) {
    std::vector<std::string> texts{program};
    texts.insert(texts.end(), arguments.begin(), arguments.end());
    std::vector<char*> words;
    for (std::string& text : texts)
        words.push_back(text.data());
    words.push_back(nullptr);
    int input[2] = {-1, -1};
    if (pipe2(input, O_CLOEXEC) == 0) m_input = input[1];
    m_id = fork();
    if (m_id != 0) {
        close(input[0]);
        return;
    }
    Apply(environment);
    dup2(input[0], STDIN_FILENO);
    dup2(fileno(m_output.get()), STDOUT_FILENO);
    dup2(fileno(m_errors.get()), STDERR_FILENO);
    execvp(program.c_str(), words.data());
    _exit(127);
}

ChildProcess::~ChildProcess() {
    close(m_input);
    if (m_id <= 0 || m_exitCode) return;
    kill(m_id, SIGKILL);
    waitpid(m_id, nullptr, 0);
}

std::chrono::nanoseconds ChildProcess::ProcessorTime() const {
    clockid_t clock = 0;
    timespec time = {};
    if (clock_getcpuclockid(m_id, &clock) != 0 || clock_gettime(clock, &time) != 0) return {};
    return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
}

void ChildProcess::Terminate() {
    if (m_id > 0 && !m_exitCode) kill(m_id, SIGTERM);
}

std::optional<int> ChildProcess::WaitForExit(std::chrono::milliseconds time) {
    const auto hasEnded = [this] {
        int status = 0;
        if (!m_exitCode && waitpid(m_id, &status, WNOHANG) == m_id)
            m_exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
        return m_exitCode.has_value();
    };
    WaitFor(hasEnded, time);
    return m_exitCode;
}

std::string ChildProcess::Output() const {
    return Content(m_output.get());
}

std::string ChildProcess::Errors() const {
    return Content(m_errors.get());
}

} // namespace KivoTest
