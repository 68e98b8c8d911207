#include "Numbers.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <system_error>

namespace KivoViewer {

namespace {

template <typename Number>
std::optional<Number> ParseWhole(std::string_view text) {
    if (text.size() > 1 && text[0] == '+' && text[1] != '-') text.remove_prefix(1);
    Number number = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number);
    if (error != std::errc() || stop != end) return std::nullopt;
    return number;
}

// @param how  as std::to_chars takes it
template <typename Number, typename... How>
std::string Written(Number number, How... how) {
    if (std::isnan(number)) return "NaN";
    char text[64];
    const auto result = std::to_chars(text, text + sizeof text, number, how...);
    return {text, result.ptr};
}

} // namespace

std::optional<double> ParseNumber(std::string_view text) {
    return ParseWhole<double>(text);
}

std::optional<unsigned long> ParseCount(std::string_view text) {
    return ParseWhole<unsigned long>(text);
}

std::string FormatNumber(float number) {
    return Written(number);
}

std::string FormatNumber(double number) {
    return Written(number);
}

std::string FormatRounded(float number) {
    constexpr int digits = 6;
    return Written(number, std::chars_format::general, digits);
}

double AbsoluteNumber(double origin, float difference) {
    constexpr int digits = 15; // that double precision keeps
    const double meant = *ParseNumber(FormatNumber(difference));
    if (origin == 0.0) return meant;
    return *ParseNumber(Written(origin + meant, std::chars_format::general, digits));
}

std::string FormatStep(double number, double step) {
    constexpr int mostDecimals = 9;
    constexpr double longNumber = 1e15;
    const double decimals = std::ceil(-std::log10(step) - 1e-9); // of powers of ten these are whole
    if (!(decimals <= mostDecimals) || !(std::abs(number) < longNumber)) {
        constexpr double mostDigits = 15.0; // that double precision keeps
        const double digits = std::floor(std::log10(std::abs(number))) + decimals + 1.0;
        const double kept = digits < mostDigits ? std::max(digits, 1.0) : mostDigits; // of what is none, too
        return Written(number, std::chars_format::general, static_cast<int>(kept));
    }
    const std::string text =
        Written(number, std::chars_format::fixed, std::max(static_cast<int>(decimals), 0));
    const bool isZero = text.find_first_not_of("-0.") == std::string::npos;
    return isZero && text[0] == '-' ? text.substr(1) : text;
}

bool FitsSinglePrecision(double number) {
    constexpr double firstTooLarge = 0x1.ffffffp127; // what lies below rounds to the largest float
    return std::abs(number) < firstTooLarge;         // false for what is not a number
}

std::string_view Trimmed(std::string_view text) {
    const std::size_t first = text.find_first_not_of(" \t");
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

} // namespace KivoViewer
