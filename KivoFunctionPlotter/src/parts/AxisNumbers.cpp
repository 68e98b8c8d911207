#include "AxisNumbers.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <new>

namespace KivoDrawingTools {

namespace {

constexpr std::size_t longestText = 500; // bytes: more than two lines of an image show

thread_local bool isAsking = false;

struct AskingScope {
    AskingScope() { isAsking = true; }
    ~AskingScope() { isAsking = false; }
    AskingScope(const AskingScope&) = delete;
    AskingScope& operator=(const AskingScope&) = delete;
};

// An image has the room of one line, and shows a text up to its first zero.
std::string OneLine(std::string text) {
    text.resize(std::min({text.size(), text.find('\0'), longestText}));
    std::replace(text.begin(), text.end(), '\n', ' ');
    std::replace(text.begin(), text.end(), '\r', ' ');
    return text;
}

} // namespace

std::optional<std::string> AxisNumbers::Words(double value, double step) const {
    if (!format || isAsking || !std::isfinite(value)) return std::nullopt;
    const AskingScope scope;
    try {
        return OneLine((*format)(value, step));
    } catch (const std::bad_alloc&) {
        throw;
    } catch (...) {
        return std::string();
    }
}

} // namespace KivoDrawingTools
