// Where a text is cut in two.
#pragma once

#include <cstddef>

namespace KivoDrawingTools {

/// How bytes form characters.
struct TextEncoding {
    bool isUtf8;
    /// In other encodings, whether a byte begins a character of two; null: every byte is a character.
    bool (*isLeadByte)(unsigned char byte);
};

/// The middle of the text's bytes, or where the character begins that lies across it. Bytes that are no
/// characters of the encoding count as one each.
std::size_t MiddleOfText(const char* text, std::size_t length, const TextEncoding& encoding);

} // namespace KivoDrawingTools
