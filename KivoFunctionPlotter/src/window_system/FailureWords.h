// The words of LastWindowError(), on every platform.
#pragma once

#include <cstddef>
#include <cstring>
#include <string_view>

namespace KivoDrawingTools {

/// At most so many bytes of a text that no character of UTF-8 is cut.
inline std::string_view WholeCharacters(std::string_view text, std::size_t most) {
    if (text.size() <= most) return text;
    while (most > 0 && (static_cast<unsigned char>(text[most]) & 0xC0) == 0x80)
        --most;
    return text.substr(0, most);
}

/// One sentence, kept in place. A thread's may be read as long as the thread runs, by its destructors too:
/// nothing in it is constructed or destroyed, and new words come to where the old ones were.
struct FailureWords {
    static constexpr std::size_t most = 1023;

    void Say(std::string_view words) {
        words = WholeCharacters(words, most);
        std::memmove(text, words.data(), words.size());
        text[words.size()] = '\0';
    }
    bool IsEmpty() const { return text[0] == '\0'; }

    char text[most + 1];
};

} // namespace KivoDrawingTools
