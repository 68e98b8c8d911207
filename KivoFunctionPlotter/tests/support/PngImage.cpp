#include "PngImage.h"

#include <gtest/gtest.h>

#include <png.h>

#include <cstdlib>
#include <filesystem>

namespace KivoTest {

using KivoDrawingTools::Image;

Image ReadPng(const std::string& path) {
    png_image png = {};
    png.version = PNG_IMAGE_VERSION;
    if (!png_image_begin_read_from_file(&png, path.c_str())) {
        ADD_FAILURE() << path << ": " << png.message;
        return {};
    }
    png.format = PNG_FORMAT_RGBA;
    Image image(static_cast<int>(png.width), static_cast<int>(png.height));
    EXPECT_TRUE(png_image_finish_read(&png, nullptr, image.rgba.data(), 0, nullptr)) << png.message;
    return image;
}

void KeepPng(const Image& image, const std::string& name) {
    const char* const asked = std::getenv("KIVO_TEST_OUTPUT");
    const std::filesystem::path folder = asked && *asked ? asked : "test-output";
    std::filesystem::create_directories(folder);
    const std::string path = (folder / (name + ".png")).string();
    png_image png = {};
    png.version = PNG_IMAGE_VERSION;
    png.width = static_cast<png_uint_32>(image.width);
    png.height = static_cast<png_uint_32>(image.height);
    png.format = PNG_FORMAT_RGBA;
    EXPECT_TRUE(png_image_write_to_file(&png, path.c_str(), 0, image.rgba.data(), 0, nullptr))
        << path << ": " << png.message;
}

} // namespace KivoTest
