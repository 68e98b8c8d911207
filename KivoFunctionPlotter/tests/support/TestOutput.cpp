#include "TestOutput.h"

#include <cstdlib>
#include <filesystem>

namespace KivoTest {

std::string OutputPath(const std::string& name) {
    const char* const asked = std::getenv("KIVO_TEST_OUTPUT");
    const std::filesystem::path folder = asked && *asked ? asked : KIVO_TEST_OUTPUT_FOLDER;
    std::error_code error; // writing to the file will tell
    std::filesystem::create_directories(folder, error);
    return (folder / name).string();
}

} // namespace KivoTest
