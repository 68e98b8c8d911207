#include "Color.h"

#include "Failure.h"
#include "Language.h"

#include <charconv>
#include <cstdio>

namespace KivoViewer {

namespace {

struct NamedColor {
    const char* name;
    Color color;
};

constexpr NamedColor namedColors[] = {
    {"black", {0, 0, 0}},       {"white", {255, 255, 255}}, {"gray", {128, 128, 128}},
    {"red", {255, 0, 0}},       {"green", {0, 128, 0}},     {"blue", {0, 0, 255}},
    {"yellow", {255, 255, 0}},  {"cyan", {0, 255, 255}},    {"magenta", {255, 0, 255}},
    {"orange", {255, 165, 0}},  {"purple", {128, 0, 128}},  {"brown", {165, 42, 42}},
    {"navy", {0, 0, 128}},      {"teal", {0, 128, 128}},    {"lime", {0, 255, 0}},
    {"silver", {192, 192, 192}}};

unsigned char Byte(unsigned long number, int shift) {
    return static_cast<unsigned char>(number >> shift & 0xFF);
}

} // namespace

unsigned long Color::Packed() const {
    return red | static_cast<unsigned long>(green) << 8 | static_cast<unsigned long>(blue) << 16;
}

bool Color::IsDark() const {
    return 299 * red + 587 * green + 114 * blue < 1000 * 128;
}

Color UnpackColor(unsigned long packed) {
    return {Byte(packed, 0), Byte(packed, 8), Byte(packed, 16)};
}

Color ParseColor(const std::string& text) {
    for (const NamedColor& named : namedColors)
        if (text == named.name) return named.color;
    const std::string digits = text.substr(!text.empty() && text[0] == '#' ? 1 : 0);
    unsigned long number = 0;
    const char* const end = digits.data() + digits.size();
    const auto [stop, error] = std::from_chars(digits.data(), end, number, 16);
    if (digits.size() != 6 || error != std::errc() || stop != end)
        throw Failure(
            Filled(Translate("Settings", "expected a colour such as ff8000 or red, found \"%1\""), text));
    return {Byte(number, 16), Byte(number, 8), Byte(number, 0)};
}

std::string FormatColor(const Color& color) {
    char text[8];
    std::snprintf(text, sizeof text, "#%02x%02x%02x", unsigned{color.red}, unsigned{color.green},
                  unsigned{color.blue});
    return text;
}

} // namespace KivoViewer
