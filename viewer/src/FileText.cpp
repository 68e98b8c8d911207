#include "FileText.h"

#include "Failure.h"
#include "Language.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <memory>
#include <system_error>

namespace KivoViewer {

namespace {

constexpr std::size_t blockSize = std::size_t{1} << 20;

// Reads up to count bytes.
std::string ReadBytes(const std::string& path, std::size_t count, const Progress& progress) {
    const auto close = [](std::FILE* file) {
        if (file != stdin) std::fclose(file);
    };
    const std::unique_ptr<std::FILE, decltype(close)> file(
        path == standardInput ? stdin : std::fopen(path.c_str(), "rb"), close);
    if (!file)
        throw Failure(path + ": " + Filled(Translate("Files", "cannot open it: %1"), std::strerror(errno)));
    std::error_code unknown; // of pipes, for example
    const auto size = static_cast<double>(std::filesystem::file_size(path, unknown));
    std::string text;
    if (!unknown && size < static_cast<double>(count))
        text.reserve(static_cast<std::size_t>(size) + blockSize);
    while (text.size() < count) {
        const std::size_t before = text.size();
        text.resize(std::min(count, before + blockSize));
        const std::size_t got = std::fread(text.data() + before, 1, text.size() - before, file.get());
        text.resize(before + got);
        if (got == 0) break;
        if (!unknown) Report(progress, std::min(1.0, static_cast<double>(text.size()) / size));
    }
    if (std::ferror(file.get()))
        throw Failure(path + ": " + Filled(Translate("Files", "cannot read it: %1"), std::strerror(errno)));
    return text;
}

} // namespace

std::string ReadFileText(const std::string& path, const Progress& progress) {
    std::string text = ReadBytes(path, maxFileSize + 1, progress);
    if (text.size() > maxFileSize) throw Failure(path + ": " + Translate("Files", "larger than 1 GiB"));
    return text;
}

std::string ReadFileStart(const std::string& path, std::size_t count) {
    return ReadBytes(path, count, {});
}

} // namespace KivoViewer
