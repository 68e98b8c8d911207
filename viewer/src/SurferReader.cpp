// Surfer grids. All of them have the southernmost row first.
#include "Failure.h"
#include "GridFormats.h"
#include "Numbers.h"

#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>

namespace KivoViewer {

namespace {

constexpr double hole = std::numeric_limits<double>::quiet_NaN();
constexpr double blank6 = 1.70141e38; // values from here on are holes, in version 6

double ValueOrHole(double value, double blank) {
    return FitsSinglePrecision(value) && value < blank ? value : hole;
}

// Corners and size of a grid, from one node to the other.
struct Extent {
    std::size_t columns = 0;
    std::size_t rows = 0;
    double x0 = 0.0;
    double x1 = 0.0;
    double y0 = 0.0;
    double y1 = 0.0;
};

void Check(const std::string& name, const Extent& extent) {
    if (extent.columns < 2 || extent.rows < 2)
        throw Failure(name + ": a surface needs at least 2 x 2 points, found " +
                      std::to_string(extent.columns) + " x " + std::to_string(extent.rows));
    if (!(extent.x0 < extent.x1) || !(extent.y0 < extent.y1))
        throw Failure(name + ": the ranges of x and y must rise");
    CheckSize(name, static_cast<double>(extent.columns), static_cast<double>(extent.rows));
}

GridData MakeGridOf(const std::string& name, const Extent& extent, const std::vector<double>& z) {
    const auto coordinates = [&](double from, double to, std::size_t count) {
        return EvenCoordinates(name, from, (to - from) / static_cast<double>(count - 1), count);
    };
    return MakeGrid(name, coordinates(extent.x0, extent.x1, extent.columns),
                    coordinates(extent.y0, extent.y1, extent.rows), z);
}

// ---- Text -----------------------------------------------------------------------------------------------

// The numbers of a text, whatever lines they stand in.
class NumberStream {
public:
    explicit NumberStream(TextLines& lines) : m_lines(lines) {}

    bool HasNext() {
        while (m_next == m_fields.size()) {
            if (!m_lines.Next()) return false;
            SplitFields(m_lines.Line(), ' ', m_fields);
            m_next = 0;
        }
        return true;
    }

    std::string_view Next(const char* what) {
        if (!HasNext()) m_lines.Fail(std::string("the file ends before ") + what);
        return m_fields[m_next++];
    }

    std::size_t Count(const char* what) {
        const std::string_view field = Next(what);
        const auto count = ParseCount(field);
        if (!count) m_lines.Fail(std::string("expected ") + what + ", found " + Quoted(field));
        return *count;
    }

    double Number(const char* what) { return NumberIn(m_lines, Next(what)); }

private:
    TextLines& m_lines;
    std::vector<std::string_view> m_fields;
    std::size_t m_next = 0;
};

GridData ReadText(TextLines& lines) {
    lines.Next(); // the mark
    NumberStream numbers(lines);
    Extent extent;
    extent.columns = numbers.Count("the number of columns");
    extent.rows = numbers.Count("the number of rows");
    extent.x0 = numbers.Number("the range of x");
    extent.x1 = numbers.Number("the range of x");
    extent.y0 = numbers.Number("the range of y");
    extent.y1 = numbers.Number("the range of y");
    numbers.Next("the range of z"); // of grids without a value it need not be a number that fits
    numbers.Next("the range of z");
    Check(lines.Name(), extent);
    std::vector<double> z;
    for (std::size_t i = 0; i < extent.columns * extent.rows; ++i) {
        const std::string_view field = numbers.Next("the last value");
        const auto number = ParseNumber(field);
        if (!number) lines.Fail("not a number: " + Quoted(field));
        z.push_back(ValueOrHole(*number, blank6));
    }
    if (numbers.HasNext())
        lines.Fail("more than " + std::to_string(extent.columns * extent.rows) + " values");
    return MakeGridOf(lines.Name(), extent, z);
}

// ---- Binary ---------------------------------------------------------------------------------------------

// Little-endian numbers one after the other.
class Bytes {
public:
    Bytes(std::string_view data, const std::string& name) : m_data(data), m_name(name) {}

    template <typename T>
    T Take() {
        static_assert(std::is_trivially_copyable_v<T>);
        T value;
        std::memcpy(&value, Take(sizeof value).data(), sizeof value);
        return value;
    }

    std::string_view Take(std::size_t count) {
        if (count > m_data.size()) throw Failure(m_name + ": the file is cut off");
        const std::string_view bytes = m_data.substr(0, count);
        m_data.remove_prefix(count);
        return bytes;
    }

private:
    std::string_view m_data;
    const std::string& m_name;
};

template <typename T>
std::vector<double> TakeValues(Bytes& bytes, const Extent& extent, double blank, const Progress& progress) {
    std::vector<double> z;
    for (std::size_t r = 0; r < extent.rows; ++r) {
        Report(progress, static_cast<double>(r) / static_cast<double>(extent.rows));
        for (std::size_t c = 0; c < extent.columns; ++c)
            z.push_back(ValueOrHole(static_cast<double>(bytes.Take<T>()), blank));
    }
    return z;
}

GridData ReadBinary6(Bytes bytes, const std::string& name, const Progress& progress) {
    Extent extent;
    extent.columns = bytes.Take<std::uint16_t>();
    extent.rows = bytes.Take<std::uint16_t>();
    for (double* const number : {&extent.x0, &extent.x1, &extent.y0, &extent.y1})
        *number = bytes.Take<double>();
    bytes.Take(2 * sizeof(double)); // the range of z
    Check(name, extent);
    return MakeGridOf(name, extent, TakeValues<float>(bytes, extent, blank6, progress));
}

// Version 7 is made of sections: a mark of four letters, the size and the content.
GridData ReadBinary7(Bytes bytes, const std::string& name, const Progress& progress) {
    bytes.Take(bytes.Take<std::uint32_t>()); // the version
    Extent extent;
    double blank = 0.0;
    while (true) {
        const std::string_view mark = bytes.Take(4);
        const std::string_view content = bytes.Take(bytes.Take<std::uint32_t>());
        Bytes section(content, name);
        if (mark == "GRID") {
            extent.rows = section.Take<std::uint32_t>();
            extent.columns = section.Take<std::uint32_t>();
            extent.x0 = section.Take<double>();
            extent.y0 = section.Take<double>();
            extent.x1 = extent.x0 + section.Take<double>() * (static_cast<double>(extent.columns) - 1.0);
            extent.y1 = extent.y0 + section.Take<double>() * (static_cast<double>(extent.rows) - 1.0);
            section.Take(3 * sizeof(double)); // the range of z and a rotation that is not used
            blank = section.Take<double>();
            Check(name, extent);
        } else if (mark == "DATA") {
            if (extent.rows == 0) throw Failure(name + ": values come before the size of the grid");
            return MakeGridOf(name, extent, TakeValues<double>(section, extent, blank, progress));
        }
    }
}

} // namespace

bool IsSurferGrid(std::string_view text) {
    const std::string_view mark = text.substr(0, 4);
    return mark == "DSAA" || mark == "DSBB" || mark == "DSRB";
}

GridData ReadSurferGrid(std::string_view text, const std::string& name, const Progress& progress) {
    const std::string_view mark = text.substr(0, 4);
    if (mark == "DSAA") {
        TextLines lines(text, name, progress);
        return ReadText(lines);
    }
    const Bytes bytes(text.substr(mark.size()), name);
    return mark == "DSBB" ? ReadBinary6(bytes, name, progress) : ReadBinary7(bytes, name, progress);
}

} // namespace KivoViewer
