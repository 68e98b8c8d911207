// Pictures as files, in the format that the file's name ends in.
#pragma once

#include "Picture.h"

#include <string>
#include <vector>

namespace KivoViewer {

/// What stands for the standard output in place of a file's name.
constexpr const char* standardOutput = "-";

/// Endings of the names of pictures that can be written here, with their points: those of PNG, JPEG, TIFF and
/// WebP as far as Qt has what writes them, and that of PDF.
std::vector<std::string> PictureEndings();

/// Throws a Failure for a name that does not end in one of those, and for the name of a format that cannot
/// leave the background out where that is wanted.
void CheckPictureName(const std::string& path, bool isTransparent);

/// Writes a picture with its resolution, as far as the format has one. A PDF page is as large as the picture
/// at its resolution, and nothing of it is lost but in JPEG files. A file appears whole or not at all: what
/// was there before stays until then. The standard output gets PNG. Throws a Failure that names the file.
/// @param rgba  width * height * 4 bytes, top row first
void WritePictureFile(const std::string& path, const std::vector<unsigned char>& rgba,
                      const PictureFormat& format);

} // namespace KivoViewer
