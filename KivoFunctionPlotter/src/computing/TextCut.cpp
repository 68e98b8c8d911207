#include "TextCut.h"

namespace KivoDrawingTools {

namespace {

// Length in bytes of the character that begins with a byte of UTF-8; 0 for a byte that begins none.
std::size_t CharacterLength(char first) {
    const unsigned int byte = static_cast<unsigned char>(first);
    if (byte < 0x80u) return 1;
    if (byte >= 0xC2u && byte < 0xE0u) return 2;
    if (byte >= 0xE0u && byte < 0xF0u) return 3;
    return byte >= 0xF0u && byte < 0xF5u ? 4 : 0;
}

std::size_t MiddleOfUtf8(const char* text, std::size_t length) {
    const std::size_t middle = length / 2;
    std::size_t cut = middle;
    while (cut > 0 && middle - cut < 3 && (static_cast<unsigned char>(text[cut]) & 0xC0u) == 0x80u)
        --cut;
    return cut + CharacterLength(text[cut]) > middle ? cut : middle;
}

} // namespace

std::size_t MiddleOfText(const char* text, std::size_t length, const TextEncoding& encoding) {
    const std::size_t middle = length / 2;
    if (encoding.isUtf8) return MiddleOfUtf8(text, length);
    if (!encoding.isLeadByte) return middle;
    // Second bytes may look like first ones: only from the start can they be told apart.
    std::size_t cut = 0;
    while (cut < middle) {
        const bool isPair = encoding.isLeadByte(static_cast<unsigned char>(text[cut])) && cut + 1 < length;
        if (isPair && cut + 2 > middle) break;
        cut += isPair ? 2 : 1;
    }
    return cut;
}

} // namespace KivoDrawingTools
