// Colours as the user writes them and as the plotter takes them.
#pragma once

#include <string>

namespace KivoViewer {

/// An opaque colour, each channel from 0 to 255.
struct Color {
    unsigned char red = 0;
    unsigned char green = 0;
    unsigned char blue = 0;

    /// The same as 0x00BBGGRR.
    unsigned long Packed() const;
    /// Whether it is nearer to black than to white, to the eye.
    bool IsDark() const;
};

Color UnpackColor(unsigned long packed); ///< the colour that 0x00BBGGRR stands for

/// The colour that "#rrggbb", "rrggbb" or a name such as "red" stands for. Throws a Failure that says what is
/// wrong with the text.
Color ParseColor(const std::string& text);

/// A colour as "#rrggbb".
std::string FormatColor(const Color& color);

} // namespace KivoViewer
