#include "FileText.h"

#include "Failure.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>
#include <vector>

namespace KivoViewer {

namespace {

constexpr std::size_t maxFileSize = std::size_t{1} << 30;

} // namespace

std::string ReadFileText(const std::string& path) {
    const auto close = [](std::FILE* file) { std::fclose(file); };
    const std::unique_ptr<std::FILE, decltype(close)> file(std::fopen(path.c_str(), "rb"), close);
    if (!file) throw Failure(path + ": cannot open it: " + std::strerror(errno));
    std::string text;
    std::vector<char> block(std::size_t{1} << 16);
    while (const std::size_t count = std::fread(block.data(), 1, block.size(), file.get())) {
        text.append(block.data(), count);
        if (text.size() > maxFileSize) throw Failure(path + ": larger than 1 GiB");
    }
    if (std::ferror(file.get())) throw Failure(path + ": cannot read it: " + std::strerror(errno));
    return text;
}

} // namespace KivoViewer
