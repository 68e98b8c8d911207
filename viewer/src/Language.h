// Texts in the user's language, for sources without Qt. Those of the window have tr(), as Qt has it.
#pragma once

#include <functional>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace KivoViewer {

/// Finds a text in another language, with %n as it is; what it does not have is empty.
/// @param comment  tells texts of one context apart, or null
/// @param count    that chooses among its plurals; -1: it has none
using Dictionary =
    std::function<std::string(const char* context, const char* text, const char* comment, int count)>;

/// Has texts looked up from now on; none: they are as the sources have them, in English. To be called before
/// the first of them is needed: tables keep theirs.
void SetDictionary(Dictionary dictionary);

/// The text in the user's language. With a count %n stands for that, and (s) for the plural in English.
/// lupdate finds the calls: context and text are literals.
std::string Translate(const char* context, const char* text, const char* comment = nullptr, int count = -1);

/// The text itself, which lupdate finds, and somebody translates later.
constexpr const char* Marked(const char*, const char* text) {
    return text;
}

/// The text with the first value in place of %1, the second of %2 and so on: languages have an order of their
/// own.
std::string FilledWith(std::string_view text, const std::vector<std::string>& values);

inline std::string ValueText(std::string_view value) {
    return std::string(value);
}
inline std::string ValueText(char value) {
    return std::string(1, value);
}
template <typename Number>
auto ValueText(Number value) -> decltype(std::to_string(value)) {
    return std::to_string(value);
}

/// The same with texts, characters and whole numbers.
template <typename... Values>
std::string Filled(std::string_view text, const Values&... values) {
    return FilledWith(text, {ValueText(values)...});
}

/// The names as a choice: a, b or c.
std::string Listed(const std::vector<std::string>& names);

/// A message of another library in the user's language, where it is like one of the patterns.
/// @param patterns  with %1, %2 and so on, in order, for what differs
std::string TranslateLike(const char* context, std::initializer_list<const char*> patterns,
                          const std::string& message);

} // namespace KivoViewer
