// A picture as a PNG file.
#pragma once

#include <png.h>

#include <string>
#include <vector>

/// @param rgba  width * height * 4 bytes, top row first
/// @return whether the file was written
inline bool WritePng(const std::string& path, const std::vector<unsigned char>& rgba, int width, int height) {
    png_image image = {};
    image.version = PNG_IMAGE_VERSION;
    image.width = static_cast<png_uint_32>(width);
    image.height = static_cast<png_uint_32>(height);
    image.format = PNG_FORMAT_RGBA;
    return png_image_write_to_file(&image, path.c_str(), 0, rgba.data(), 0, nullptr) != 0;
}
