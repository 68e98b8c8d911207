// Whole files in memory.
#pragma once

#include "Progress.h"

#include <cstddef>
#include <string>

namespace KivoViewer {

/// What stands for the standard input in place of a file's name.
constexpr const char* standardInput = "-";

/// The most bytes of a file that are read into memory: 1 GiB.
constexpr std::size_t maxFileSize = std::size_t{1} << 30;

/// The bytes of a file of at most that size, or of the standard input. Throws a Failure that names the file,
/// or Cancelled.
std::string ReadFileText(const std::string& path, const Progress& progress = {});

/// The first bytes of a file, at most this many. Throws a Failure that names the file.
std::string ReadFileStart(const std::string& path, std::size_t count);

} // namespace KivoViewer
