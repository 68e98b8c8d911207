// Pictures as PNG files.
#pragma once

#include <string>
#include <vector>

namespace KivoViewer {

/// Writes a picture. The file appears whole or not at all: what was there before stays until then.
/// @param rgba  width * height * 4 bytes, top row first
/// Throws a Failure that names the file.
void WritePng(const std::string& path, const std::vector<unsigned char>& rgba, int width, int height);

} // namespace KivoViewer
