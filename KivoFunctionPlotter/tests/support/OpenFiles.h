// What this process has of the system, to tell afterwards whether something has been lost.
#pragma once

#include <filesystem>
#include <iterator>

#include <malloc.h>

namespace KivoTest {

/// As it is when the object is made.
struct OpenFiles {
    long files = CountIn("/proc/self/fd");
    long threads = CountIn("/proc/self/task");
    double megabytes = static_cast<double>(mallinfo2().uordblks) / 1e6; ///< that are allocated

private:
    static long CountIn(const char* folder) {
        return std::distance(std::filesystem::directory_iterator(folder), {});
    }
};

} // namespace KivoTest
