#include "Arguments.h"

#include "SampleGrids.h"

#include <algorithm>
#include <climits>
#include <limits>
#include <utility>

namespace KivoDrawingTools {

float* Arguments::Keep(const std::vector<float>& numbers) {
    m_arrays.push_back(std::make_unique<float[]>(numbers.size()));
    std::copy(numbers.begin(), numbers.end(), m_arrays.back().get());
    return m_arrays.back().get();
}

const char* Arguments::Keep(std::string text) {
    m_texts.push_back(std::move(text));
    return m_texts.back().c_str();
}

// ---- Plausible

namespace {

float* NewArray(const std::vector<float>& numbers) {
    float* const array = new float[numbers.size()];
    std::copy(numbers.begin(), numbers.end(), array);
    return array;
}

} // namespace

GridArguments PlausibleArguments::GridToTakeOver() {
    constexpr unsigned int columns = 12, rows = 10;
    return {NewArray(KivoSamples::HighHillPoints(columns, rows)), columns, rows, 1, columns, 3};
}

GridArguments PlausibleArguments::GridToRefer() {
    static float points[] = {0, 0, 0, 1, 0, 1, 0, 1, 2, 1, 1, 0.5f};
    return {points, 2, 2, 1, 2, 3};
}

PointArguments PlausibleArguments::Points() {
    static float points[] = {-2, -1, 1, 0, 0, 1.5f};
    return {points, 2, 3};
}

// ---- Bad

namespace {

using Limits = std::numeric_limits<float>;

template <typename Value, std::size_t count>
Value Choose(const Value (&values)[count], unsigned int round) {
    static_assert(count <= BadArguments::roundCount, "each has its turn");
    return values[round % count];
}

} // namespace

float BadArguments::Float(float) {
    constexpr float numbers[] = {Limits::quiet_NaN(),
                                 Limits::infinity(),
                                 -Limits::infinity(),
                                 Limits::max(),
                                 Limits::denorm_min(),
                                 0.0f,
                                 3e38f,
                                 -7.5f,
                                 Limits::lowest(),
                                 1e30f};
    return Choose(numbers, m_round);
}

int BadArguments::Int(int) {
    constexpr int numbers[] = {0, -1, INT_MAX, INT_MIN, 1, 16384, 46341, -16384};
    return Choose(numbers, m_round);
}

unsigned int BadArguments::Unsigned(unsigned int) {
    constexpr unsigned int numbers[] = {0, UINT_MAX, INT_MAX, 0x80000000u, 100000, 1};
    return Choose(numbers, m_round);
}

unsigned int BadArguments::GroupIndex() {
    constexpr unsigned int indices[] = {UINT_MAX, 0, 1, 0x80000000u, 1000};
    return Choose(indices, m_round);
}

int BadArguments::Of(Amount amount, int) {
    constexpr int counts[] = {0, 1, 2, 200};
    constexpr int digits[] = {1000, -1, INT_MAX, 0, INT_MIN, 1000000};
    constexpr int heights[] = {0, -1, 1, 100, -20};
    constexpr int sizes[] = {0, -1, 16385, INT_MAX, INT_MIN, 1};
    switch (amount) {
    case Amount::ticks:
    case Amount::contours:
        return Choose(counts, m_round);
    case Amount::digits:
        return Choose(digits, m_round);
    case Amount::textHeight:
        return Choose(heights, m_round);
    case Amount::pictureSize:
        return Choose(sizes, m_round);
    }
    return 0;
}

unsigned int BadArguments::KeyState(unsigned int) {
    constexpr unsigned int states[] = {0, MK_RBUTTON, MK_RBUTTON | MK_CONTROL, MK_RBUTTON | MK_SHIFT,
                                       UINT_MAX};
    return Choose(states, m_round);
}

POINT BadArguments::Point(POINT) {
    constexpr POINT points[] = {{0, 0}, {INT_MAX, INT_MAX}, {INT_MIN, INT_MIN}, {INT_MAX, INT_MIN}, {100, 0}};
    return Choose(points, m_round);
}

unsigned long BadArguments::Color(unsigned long) {
    constexpr unsigned long colors[] = {ULONG_MAX, 0xFF000000ul, 0ul};
    return Choose(colors, m_round);
}

const float* BadArguments::Rgba(const float*) {
    const float number = Float(0.0f);
    return Keep(std::vector<float>{number, 0.5f, -number, number});
}

const char* BadArguments::Text(const char*) {
    static const std::string texts[] = {"",           " ",
                                        "\n",         "\xFF\xFE",
                                        "ab\xE2\x82", "\xC0\x80",
                                        "\x01",       "a\r\n\xCC\x81",
                                        "a\xD7\x90 ", std::string(10000, 'W')};
    static_assert(sizeof texts / sizeof texts[0] == roundCount, "each has its turn");
    return texts[m_round % roundCount].c_str();
}

std::vector<float> BadArguments::BadGrid(GridArguments& grid) {
    constexpr unsigned int widths[] = {10, 1, 0, 2, 6};
    constexpr unsigned int heights[] = {8, 6, 5, 2, 1, 7, 0};
    constexpr unsigned int components[] = {3, 4, 3, 2, 5, 3, 0, 1};
    grid = {nullptr, Choose(widths, m_round), Choose(heights, m_round),
            1,       Choose(widths, m_round), Choose(components, m_round)};
    std::vector<float> points(std::size_t{grid.columns} * grid.rows * grid.components);
    for (std::size_t i = 0; i < points.size(); ++i)
        points[i] = i % 7 == m_round % 7 ? Float(0.0f) : static_cast<float>(i % 11);
    return points;
}

GridArguments BadArguments::GridToTakeOver() {
    GridArguments grid;
    grid.points = NewArray(BadGrid(grid));
    return grid;
}

GridArguments BadArguments::GridToRefer() {
    GridArguments grid;
    grid.points = Keep(BadGrid(grid));
    return grid;
}

PointArguments BadArguments::Points() {
    constexpr unsigned int counts[] = {3, 0, 1, 2};
    constexpr unsigned int floats[] = {3, 1, 0, 4, 2};
    PointArguments points = {nullptr, Choose(counts, m_round), Choose(floats, m_round)};
    std::vector<float> numbers(std::size_t{points.count} * points.floatsPerPoint);
    for (std::size_t i = 0; i < numbers.size(); ++i)
        numbers[i] = i % 3 == 1 ? 1.0f : Float(0.0f);
    if (m_round % 5 != 3) points.points = Keep(numbers);
    return points;
}

} // namespace KivoDrawingTools
