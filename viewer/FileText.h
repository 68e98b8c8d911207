// Whole files in memory.
#pragma once

#include <string>

namespace KivoViewer {

/// The bytes of a file of at most 1 GiB. Throws a Failure that names the file.
std::string ReadFileText(const std::string& path);

} // namespace KivoViewer
