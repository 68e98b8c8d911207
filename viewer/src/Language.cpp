#include "Language.h"

#include <optional>
#include <utility>

namespace KivoViewer {

namespace {

Dictionary dictionary;

void ReplaceAll(std::string& text, std::string_view what, const std::string& value) {
    for (std::size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + value.size()))
        text.replace(at, what.size(), value);
}

std::string InEnglish(std::string text, int count) {
    if (count >= 0) ReplaceAll(text, "(s)", count == 1 ? "" : "s");
    return text;
}

// What stands in a message where the pattern has its places, or nothing where it has other words.
std::optional<std::vector<std::string>> ValuesIn(std::string_view message, std::string_view pattern) {
    std::vector<std::string> values;
    while (true) {
        const std::size_t place = pattern.find('%');
        if (message.substr(0, place) != pattern.substr(0, place)) return std::nullopt;
        if (place == std::string_view::npos) return values;
        message.remove_prefix(place);
        pattern.remove_prefix(place + 2);
        const std::string_view next = pattern.substr(0, pattern.find('%'));
        const std::size_t end = next.empty() ? message.size() : message.find(next);
        if (end == std::string_view::npos) return std::nullopt;
        values.emplace_back(message.substr(0, end));
        message.remove_prefix(end);
    }
}

} // namespace

void SetDictionary(Dictionary wanted) {
    dictionary = std::move(wanted);
}

std::string Translate(const char* context, const char* text, const char* comment, int count) {
    std::string found = dictionary ? dictionary(context, text, comment, count) : std::string();
    if (found.empty()) found = InEnglish(text, count);
    if (count >= 0) ReplaceAll(found, "%n", std::to_string(count));
    return found;
}

// In one go: a value may look like a place.
std::string FilledWith(std::string_view text, const std::vector<std::string>& values) {
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool isPlace = text[i] == '%' && i + 1 < text.size() && text[i + 1] >= '1' &&
                             static_cast<std::size_t>(text[i + 1] - '1') < values.size();
        if (isPlace)
            result += values[static_cast<std::size_t>(text[++i] - '1')];
        else
            result += text[i];
    }
    return result;
}

std::string Listed(const std::vector<std::string>& names) {
    std::string list = names.front();
    for (std::size_t i = 1; i + 1 < names.size(); ++i)
        list = Filled(Translate("Lists", "%1, %2"), list, names[i]);
    return names.size() == 1 ? list : Filled(Translate("Lists", "%1 or %2"), list, names.back());
}

std::string TranslateLike(const char* context, std::initializer_list<const char*> patterns,
                          const std::string& message) {
    for (const char* const pattern : patterns)
        if (const auto values = ValuesIn(message, pattern))
            return FilledWith(Translate(context, pattern), *values);
    return message;
}

} // namespace KivoViewer
