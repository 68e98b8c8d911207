#include "PngWriter.h"

#include "Failure.h"

#include <png.h>

#include <cerrno>
#include <cmath>
#include <csetjmp>
#include <cstddef>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <new>
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
    std::filesystem::path target = std::filesystem::weakly_canonical(path, error);
    if (error) FailToWrite(path, error.message());
    const std::filesystem::file_status status = std::filesystem::status(target, error);
    if (std::filesystem::exists(status) && !std::filesystem::is_regular_file(status))
        FailToWrite(path, "it is not a file");
    return target;
}

// What libpng needs for one picture, and what it says where it fails.
struct Encoder {
    Encoder() {
        const auto keepMessage = [](png_structp failed, png_const_charp reason) {
            *static_cast<std::string*>(png_get_error_ptr(failed)) = reason;
            png_longjmp(failed, 1);
        };
        const auto ignore = [](png_structp, png_const_charp) {};
        png = png_create_write_struct(PNG_LIBPNG_VER_STRING, &message, keepMessage, ignore);
        if (png) info = png_create_info_struct(png);
        if (!info) throw std::bad_alloc();
    }
    ~Encoder() { png_destroy_write_struct(&png, &info); }
    Encoder(const Encoder&) = delete;
    Encoder& operator=(const Encoder&) = delete;

    std::string message;
    png_structp png = nullptr;
    png_infop info = nullptr;
};

// libpng leaves by a jump where it fails: nothing in here may need a destructor.
bool Encode(const Encoder& encoder, const PictureFormat& format, png_bytepp rows, std::FILE* file) {
    constexpr double metresPerInch = 0.0254;
    if (setjmp(png_jmpbuf(encoder.png))) return false;
    png_init_io(encoder.png, file);
    png_set_IHDR(encoder.png, encoder.info, static_cast<png_uint_32>(format.width),
                 static_cast<png_uint_32>(format.height), 8, PNG_COLOR_TYPE_RGB_ALPHA, PNG_INTERLACE_NONE,
                 PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
    png_set_sRGB_gAMA_and_cHRM(encoder.png, encoder.info, PNG_sRGB_INTENT_PERCEPTUAL);
    const auto dotsPerMetre = static_cast<png_uint_32>(std::lround(format.dpi / metresPerInch));
    png_set_pHYs(encoder.png, encoder.info, dotsPerMetre, dotsPerMetre, PNG_RESOLUTION_METER);
    png_write_info(encoder.png, encoder.info);
    png_write_image(encoder.png, rows);
    png_write_end(encoder.png, encoder.info);
    return true;
}

} // namespace

void WritePng(const std::string& path, const std::vector<unsigned char>& rgba, const PictureFormat& format) {
    TemporaryFile file(TargetOf(path));
    if (!file.Stream()) FailToWrite(path, std::strerror(errno));
    std::vector<png_bytep> rows; // libpng does not write to them, but takes them as if it did
    rows.reserve(static_cast<std::size_t>(format.height));
    for (int y = 0; y < format.height; ++y)
        rows.push_back(const_cast<png_bytep>(rgba.data()) + std::size_t{4} * format.width * y);
    const Encoder encoder;
    if (!Encode(encoder, format, rows.data(), file.Stream())) FailToWrite(path, encoder.message);
    if (!file.Commit()) FailToWrite(path, std::strerror(errno));
}

} // namespace KivoViewer
