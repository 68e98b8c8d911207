// From the start of a process to its first picture, and to nothing but an OpenGL context.
#include "support/Registration.h"

#include <benchmark/benchmark.h>

#include <chrono>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace KivoBenchmark {

namespace {

// Starts a program and waits until it has written a byte. @return seconds, or a negative number where it
// failed
double SecondsToFirstByte(const char* program) {
    int ends[2];
    if (pipe(ends) != 0) return -1.0;
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
    posix_spawn_file_actions_addclose(&actions, ends[0]);
    char* const arguments[] = {const_cast<char*>(program), nullptr};

    const auto start = std::chrono::steady_clock::now();
    pid_t process = -1;
    const bool isStarted = posix_spawn(&process, program, &actions, nullptr, arguments, environ) == 0;
    posix_spawn_file_actions_destroy(&actions);
    close(ends[1]);
    char byte = 0;
    const bool hasWritten = isStarted && read(ends[0], &byte, 1) == 1;
    const std::chrono::duration<double> elapsed = std::chrono::steady_clock::now() - start;
    close(ends[0]);
    if (isStarted) waitpid(process, nullptr, 0);
    return hasWritten ? elapsed.count() : -1.0;
}

void MeasureStart(benchmark::State& state, const char* program) {
    for (auto _ : state) {
        const double seconds = SecondsToFirstByte(program);
        if (seconds < 0.0) {
            state.SkipWithError("the program failed");
            break;
        }
        state.SetIterationTime(seconds);
    }
}

void FirstPicture(benchmark::State& state) {
    MeasureStart(state, KIVO_FIRST_PICTURE);
}

void FirstContext(benchmark::State& state) {
    MeasureStart(state, KIVO_FIRST_CONTEXT);
}

BENCHMARK(FirstPicture)->Unit(benchmark::kMillisecond)->UseManualTime();
BENCHMARK(FirstContext)->Unit(benchmark::kMillisecond)->UseManualTime();

} // namespace

} // namespace KivoBenchmark
