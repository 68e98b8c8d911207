// What the library for command lines says, in the user's language.
#pragma once

#include <string>

namespace CLI {
class App;
class ParseError;
} // namespace CLI

namespace KivoViewer {

/// Translates the headings of the help. To be called before options are added: they belong to one.
void TranslateHelp(CLI::App& app);

/// What is wrong with a command line.
std::string WordsFor(const CLI::ParseError& error);

/// Columns of a terminal that a text takes.
std::size_t WidthOf(const std::string& text);

} // namespace KivoViewer
