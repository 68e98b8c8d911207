// Pictures as PNG files.
#pragma once

#include "Picture.h"

#include <string>
#include <vector>

namespace KivoViewer {

/// Writes a picture and its resolution. The file appears whole or not at all: what was there before stays
/// until then. Throws a Failure that names the file.
/// @param rgba  width * height * 4 bytes, top row first
void WritePng(const std::string& path, const std::vector<unsigned char>& rgba, const PictureFormat& format);

} // namespace KivoViewer
