// Runs a fuzz target over files, for compilers without a fuzzer: <program> FILE-OR-DIRECTORY...
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

std::vector<std::filesystem::path> FilesAt(const std::filesystem::path& place) {
    if (!std::filesystem::is_directory(place)) return {place};
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::directory_iterator(place))
        files.push_back(entry.path());
    std::sort(files.begin(), files.end());
    return files;
}

bool Replay(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) {
        std::printf("cannot open %s\n", path.c_str());
        return false;
    }
    const std::vector<char> bytes{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    std::printf("%s\n", path.c_str());
    std::fflush(stdout); // what stands last is the culprit
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
    return true;
}

} // namespace

int main(int argumentCount, char** arguments) {
    std::size_t count = 0;
    for (int i = 1; i < argumentCount; ++i)
        for (const auto& path : FilesAt(arguments[i])) {
            if (!Replay(path)) return 1;
            ++count;
        }
    std::printf("%zu inputs\n", count);
    return count == 0 ? 1 : 0;
}
