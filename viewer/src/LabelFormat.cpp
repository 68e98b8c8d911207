#include "LabelFormat.h"

#include "Numbers.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace KivoViewer {

namespace {

// The power of ten of a number's first digit, as it is written with this step: 999.99 may be 1000.
int PowerOf(double number, double step) {
    const double size = std::max(std::abs(number), step);
    if (!(size > 0.0)) return 0;
    return static_cast<int>(std::floor(std::log10(size) + 1e-12));
}

// The power of ten in whose digits multiples of a step are exact, as far as that takes no more than two
// digits more than telling them apart.
double DecimalOf(double step) {
    const double power = std::floor(std::log10(step) + 1e-9);
    for (const double more : {0.0, 1.0, 2.0}) {
        const double decimal = std::pow(10.0, power - more);
        const double count = step / decimal;
        if (std::abs(count - std::round(count)) < 1e-5 * count) return decimal;
    }
    return step;
}

// A number in units of a power of ten, with the digits that the step needs in these.
std::string Scaled(double number, double step, int power) {
    constexpr int digitsOfLoneNumber = 5; // after the first
    const double unit = std::pow(10.0, power);
    const double least = step > 0.0 ? step : std::pow(10.0, PowerOf(number, step) - digitsOfLoneNumber);
    return FormatStep(number / unit, DecimalOf(least / unit));
}

// What is left of 0 by rounding is 0.
bool IsZero(double value, double step) {
    constexpr double rounding = 1e-3;
    return std::abs(value) <= step * rounding;
}

std::string InEngineering(double value, double step) {
    constexpr int most = 8; // prefixes on each side
    constexpr const char* prefixes[] = {"y", "z", "a", "f", "p", "n", "µ", "m", "",
                                        "k", "M", "G", "T", "P", "E", "Z", "Y"};
    if (IsZero(value, step)) return "0";
    const int thousands = std::clamp(static_cast<int>(std::floor(PowerOf(value, step) / 3.0)), -most, most);
    return Scaled(value, step, 3 * thousands) + prefixes[thousands + most];
}

std::string Raised(int power) {
    constexpr const char* digits[] = {"⁰", "¹", "²", "³", "⁴", "⁵", "⁶", "⁷", "⁸", "⁹"};
    std::string text;
    for (const char digit : std::to_string(power))
        text += digit == '-' ? "⁻" : digits[digit - '0'];
    return text;
}

std::string InPowers(double value, double step) {
    if (IsZero(value, step)) return "0";
    const int power = PowerOf(value, step);
    return Scaled(value, step, power) + "·10" + Raised(power);
}

struct Date {
    long year;
    int month;
    int day;
};

// Of the Gregorian calendar, also before it came. Years begin in March, so that leap days come last.
Date DateOf(long days) {
    constexpr long daysOf400Years = 146097, fromMarchOf0 = 719468;
    days += fromMarchOf0;
    const long era = (days >= 0 ? days : days - daysOf400Years + 1) / daysOf400Years;
    const long day = days - era * daysOf400Years;
    const long year = (day - day / 1460 + day / 36524 - day / 146096) / 365;
    const long dayOfYear = day - (365 * year + year / 4 - year / 100);
    const int month = static_cast<int>((5 * dayOfYear + 2) / 153); // from March
    const int dayOfMonth = static_cast<int>(dayOfYear - (153 * month + 2) / 5 + 1);
    const int fromJanuary = month < 10 ? month + 3 : month - 9;
    return {era * 400 + year + (fromJanuary <= 2 ? 1 : 0), fromJanuary, dayOfMonth};
}

std::string AsDate(double value, double step) {
    constexpr double farthest = 3e6; // days: what follows are years of more than four digits
    constexpr long secondsOfDay = 86400;
    constexpr double minute = 60.0 / secondsOfDay;
    if (!(std::abs(value) < farthest)) return FormatNumber(value);
    const bool hasTime = step > 0.0 && step < 1.0;
    const bool hasSeconds = hasTime && step < minute;
    const double finest = hasSeconds ? 1.0 : hasTime ? 60.0 : secondsOfDay;
    const auto seconds = static_cast<long>(std::floor(value * secondsOfDay / finest + 0.5) * finest);
    const long days = static_cast<long>(std::floor(static_cast<double>(seconds) / secondsOfDay));
    const long rest = seconds - days * secondsOfDay;
    const Date date = DateOf(days);
    char text[64];
    int length = std::snprintf(text, sizeof text, "%04ld-%02d-%02d", date.year, date.month, date.day);
    if (hasTime)
        length +=
            std::snprintf(text + length, sizeof text - length, " %02ld:%02ld", rest / 3600, rest / 60 % 60);
    if (hasSeconds) std::snprintf(text + length, sizeof text - length, ":%02ld", rest % 60);
    return text;
}

struct NamedFormat {
    const char* name;
    std::string (*write)(double value, double step);
};

constexpr NamedFormat formats[] = {
    {"plain", nullptr}, {"engineering", InEngineering}, {"powers", InPowers}, {"date", AsDate}};

} // namespace

std::vector<std::string> LabelFormatNames() {
    std::vector<std::string> names;
    for (const NamedFormat& format : formats)
        names.emplace_back(format.name);
    return names;
}

LabelFormat LabelFormatOf(const std::string& name) {
    for (const NamedFormat& format : formats)
        if (name == format.name && format.write) return format.write;
    return {};
}

} // namespace KivoViewer
