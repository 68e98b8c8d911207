#include "PngImage.h"

#include "TestOutput.h"

#include <gtest/gtest.h>

#include <png.h>

#include <cmath>
#include <fstream>
#include <iterator>

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

// The chunk pHYs has pixels per unit along x and y, four bytes each, and a unit of 1 for the metre.
int ReadPngResolution(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    const std::size_t chunk = bytes.find("pHYs");
    if (chunk == std::string::npos || chunk > bytes.find("IDAT") || bytes[chunk + 12] != 1) {
        ADD_FAILURE() << path << ": no resolution";
        return 0;
    }
    EXPECT_EQ(bytes.substr(chunk + 4, 4), bytes.substr(chunk + 8, 4)) << "pixels are not square";
    double perMetre = 0.0;
    for (std::size_t i = 0; i < 4; ++i)
        perMetre = perMetre * 256.0 + static_cast<unsigned char>(bytes[chunk + 4 + i]);
    return static_cast<int>(std::lround(perMetre * 0.0254));
}

void KeepPng(const Image& image, const std::string& name) {
    const std::string path = OutputPath(name + ".png");
    png_image png = {};
    png.version = PNG_IMAGE_VERSION;
    png.width = static_cast<png_uint_32>(image.width);
    png.height = static_cast<png_uint_32>(image.height);
    png.format = PNG_FORMAT_RGBA;
    png.flags = PNG_IMAGE_FLAG_FAST;
    EXPECT_TRUE(png_image_write_to_file(&png, path.c_str(), 0, image.rgba.data(), 0, nullptr))
        << path << ": " << png.message;
}

} // namespace KivoTest
