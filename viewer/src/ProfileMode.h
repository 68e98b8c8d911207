// The profile that the command line asks for.
#pragma once

#include "Content.h"
#include "Options.h"

#include <string>

namespace KivoViewer {

/// Throws a Failure where neither the command line nor a session has a line, which a table needs.
void CheckProfileLine(const Options& options);

/// The table of heights along options.profile, of the surfaces that options show. Throws a Failure where
/// there is none.
std::string ProfileText(const Content& content, const Options& options);

/// Writes a text to a file, whole or not at all, or to the standard output. Throws a Failure that names it.
/// @param path  of the file, or "-"
void WriteTextFile(const std::string& path, const std::string& text);

} // namespace KivoViewer
