#include "PngWriter.h"

#include "Failure.h"

#include <png.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <random>
#include <system_error>

namespace KivoViewer {

namespace {

// A file beside the wanted one that is removed unless it is given its name.
class TemporaryFile {
public:
    explicit TemporaryFile(const std::filesystem::path& target) : m_target(target) {
        std::random_device random;
        m_path = target;
        m_path += "." + std::to_string(random()) + ".part";
        m_file = std::fopen(m_path.string().c_str(), "wbx"); // never into a file that exists
        m_exists = m_file != nullptr;
    }
    ~TemporaryFile() {
        if (m_file) std::fclose(m_file);
        std::error_code ignored;
        if (m_exists) std::filesystem::remove(m_path, ignored);
    }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    std::FILE* Stream() const { return m_file; }

    // Gives the file its name. Returns false with errno set where that fails.
    bool Commit() {
        std::FILE* const file = m_file;
        m_file = nullptr;
        if (std::fclose(file) != 0) return false;
        std::error_code error;
        std::filesystem::rename(m_path, m_target, error);
        errno = error.value();
        m_exists = static_cast<bool>(error);
        return !error;
    }

private:
    std::filesystem::path m_target;
    std::filesystem::path m_path;
    std::FILE* m_file = nullptr;
    bool m_exists = false;
};

[[noreturn]] void FailToWrite(const std::string& path, const std::string& reason) {
    throw Failure(path + ": cannot write it: " + reason);
}

// The file behind links; the temporary file belongs beside that.
std::filesystem::path TargetOf(const std::string& path) {
    std::error_code error;
    const std::filesystem::path target = std::filesystem::weakly_canonical(path, error);
    if (error) FailToWrite(path, error.message());
    const std::filesystem::file_status status = std::filesystem::status(target, error);
    if (std::filesystem::exists(status) && !std::filesystem::is_regular_file(status))
        FailToWrite(path, "it is not a file");
    return target;
}

} // namespace

void WritePng(const std::string& path, const std::vector<unsigned char>& rgba, int width, int height) {
    TemporaryFile file(TargetOf(path));
    if (!file.Stream()) FailToWrite(path, std::strerror(errno));
    png_image image = {};
    image.version = PNG_IMAGE_VERSION;
    image.width = static_cast<png_uint_32>(width);
    image.height = static_cast<png_uint_32>(height);
    image.format = PNG_FORMAT_RGBA;
    if (!png_image_write_to_stdio(&image, file.Stream(), 0, rgba.data(), 0, nullptr))
        FailToWrite(path, image.message);
    if (!file.Commit()) FailToWrite(path, std::strerror(errno));
}

} // namespace KivoViewer
