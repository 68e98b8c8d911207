#include "HelpWords.h"

#include "Language.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <memory>

namespace KivoViewer {

void TranslateHelp(CLI::App& app) {
    const auto formatter = std::make_shared<CLI::Formatter>();
    formatter->label("Usage", Translate("CommandLine", "Usage"));
    formatter->label("OPTIONS", Translate("CommandLine", "OPTIONS"));
    formatter->label("Positionals", Translate("CommandLine", "Positionals"));
    formatter->label("Needs", Translate("CommandLine", "Needs"));
    formatter->label("Excludes", Translate("CommandLine", "Excludes"));
    app.formatter(formatter);
    app.option_defaults()->group(Translate("CommandLine", "Options"));
    app.set_help_flag("-h,--help", Translate("CommandLine", "Print this help message and exit"));
}

std::string WordsFor(const CLI::ParseError& error) {
    return TranslateLike("CommandLine",
                         {Marked("CommandLine", "The following argument was not expected: %1"),
                          Marked("CommandLine", "The following arguments were not expected: %1"),
                          Marked("CommandLine", "%1 requires %2"), Marked("CommandLine", "%1 excludes %2"),
                          Marked("CommandLine", "%1: Value %2 not in range %3 to %4"),
                          Marked("CommandLine", "%1: %2 required %3 missing"),
                          Marked("CommandLine", "%1: At Most %2 required but received %3"),
                          Marked("CommandLine", "Could not convert: %1 = %2"),
                          Marked("CommandLine", "%1 was given a disallowed flag override"),
                          Marked("CommandLine", "%1: Should be true/false or a number")},
                         error.what());
}

// Of the letters that are used here those of Japanese take two.
std::size_t WidthOf(const std::string& text) {
    std::size_t width = 0;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        const bool isFirst = (byte & 0xC0U) != 0x80U;
        if (isFirst) width += byte >= 0xE3U ? 2 : 1;
    }
    return width;
}

} // namespace KivoViewer
