// Surfer grids. All of them have the southernmost row first.
#include "Failure.h"
#include "GridFormats.h"
#include "Language.h"
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

    double StepX() const { return (x1 - x0) / static_cast<double>(columns - 1); }
    double StepY() const { return (y1 - y0) / static_cast<double>(rows - 1); }
};

GridWindow Check(const std::string& name, const Extent& extent, const ReadOptions& options) {
    if (extent.columns < 2 || extent.rows < 2)
        throw Failure(name + ": " +
                      Filled(Translate("Files", "a surface needs at least 2 x 2 points, found %1 x %2"),
                             extent.columns, extent.rows));
    if (!(extent.x0 < extent.x1) || !(extent.y0 < extent.y1))
        throw Failure(name + ": " + Translate("Files", "the ranges of x and y must rise"));
    const double points = static_cast<double>(extent.columns) * static_cast<double>(extent.rows);
    GridSpan columns = {0, extent.columns}, rows = {0, extent.rows};
    if (options.region && points > static_cast<double>(options.mostPoints)) {
        const Region& region = *options.region;
        const double dx = extent.StepX(), dy = extent.StepY();
        columns = CellsWithin(extent.x0 - dx / 2.0, dx, extent.columns, region.x0, region.x1);
        rows = CellsWithin(extent.y0 - dy / 2.0, dy, extent.rows, region.y0, region.y1);
        CheckRegion(name, columns.count, rows.count);
    }
    return WindowOf(name, columns, rows, options.mostPoints);
}

GridData MakeGridOf(const std::string& name, const Extent& extent, const GridWindow& window,
                    const std::vector<double>& z) {
    const auto coordinates = [&](double from, double step, const GridSpan& span) {
        return EvenCoordinates(name, from, step, span);
    };
    GridData grid = MakeGrid(name, coordinates(extent.x0, extent.StepX(), window.columns),
                             coordinates(extent.y0, extent.StepY(), window.rows), z);
    grid.note = window.Note();
    return grid;
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

    std::string_view Next(const std::string& what) {
        if (!HasNext()) m_lines.Fail(Filled(Translate("Files", "the file ends before %1"), what));
        return m_fields[m_next++];
    }

    std::size_t Count(const std::string& what) {
        const std::string_view field = Next(what);
        const auto count = ParseCount(field);
        if (!count) m_lines.Fail(Filled(Translate("Files", "expected %1, found %2"), what, Quoted(field)));
        return *count;
    }

    double Number(const std::string& what) { return NumberIn(m_lines, Next(what)); }

private:
    TextLines& m_lines;
    std::vector<std::string_view> m_fields;
    std::size_t m_next = 0;
};

// The values that are wanted, of all.
std::vector<double> TakeValues(NumberStream& numbers, const TextLines& lines, const Extent& extent,
                               const GridWindow& window) {
    const std::string last = Translate("Files", "the last value");
    std::vector<double> z;
    for (std::size_t r = 0; r < extent.rows; ++r)
        for (std::size_t c = 0; c < extent.columns; ++c) {
            const std::string_view field = numbers.Next(last);
            if (!window.rows.Has(r) || !window.columns.Has(c)) continue;
            const auto number = ParseNumber(field);
            if (!number) lines.Fail(Filled(Translate("Files", "not a number: %1"), Quoted(field)));
            z.push_back(ValueOrHole(*number, blank6));
        }
    if (numbers.HasNext())
        lines.Fail(Filled(Translate("Files", "more than %1 values"), extent.columns * extent.rows));
    return z;
}

GridData ReadText(TextLines& lines, const ReadOptions& options) {
    lines.Next(); // the mark
    NumberStream numbers(lines);
    const std::string ofX = Translate("Files", "the range of x"), ofY = Translate("Files", "the range of y"),
                      ofZ = Translate("Files", "the range of z");
    Extent extent;
    extent.columns = numbers.Count(Translate("Files", "the number of columns"));
    extent.rows = numbers.Count(Translate("Files", "the number of rows"));
    extent.x0 = numbers.Number(ofX);
    extent.x1 = numbers.Number(ofX);
    extent.y0 = numbers.Number(ofY);
    extent.y1 = numbers.Number(ofY);
    numbers.Next(ofZ); // of grids without a value it need not be a number that fits
    numbers.Next(ofZ);
    const GridWindow window = Check(lines.Name(), extent, options);
    return MakeGridOf(lines.Name(), extent, window, TakeValues(numbers, lines, extent, window));
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
        if (count > m_data.size()) throw Failure(m_name + ": " + Translate("Files", "the file is cut off"));
        const std::string_view bytes = m_data.substr(0, count);
        m_data.remove_prefix(count);
        return bytes;
    }

private:
    std::string_view m_data;
    const std::string& m_name;
};

template <typename T>
std::vector<double> TakeValues(Bytes& bytes, const Extent& extent, const GridWindow& window, double blank,
                               const Progress& progress) {
    std::vector<double> z;
    for (std::size_t r = 0; r < extent.rows; ++r) {
        Report(progress, static_cast<double>(r) / static_cast<double>(extent.rows));
        const std::string_view row = bytes.Take(extent.columns * sizeof(T));
        for (std::size_t i = 0; window.rows.Has(r) && i < window.columns.Size(); ++i) {
            T value;
            std::memcpy(&value, row.data() + window.columns.At(i) * sizeof value, sizeof value);
            z.push_back(ValueOrHole(static_cast<double>(value), blank));
        }
    }
    return z;
}

GridData ReadBinary6(Bytes bytes, const std::string& name, const Progress& progress,
                     const ReadOptions& options) {
    Extent extent;
    extent.columns = bytes.Take<std::uint16_t>();
    extent.rows = bytes.Take<std::uint16_t>();
    for (double* const number : {&extent.x0, &extent.x1, &extent.y0, &extent.y1})
        *number = bytes.Take<double>();
    bytes.Take(2 * sizeof(double)); // the range of z
    const GridWindow window = Check(name, extent, options);
    return MakeGridOf(name, extent, window, TakeValues<float>(bytes, extent, window, blank6, progress));
}

// Version 7 is made of sections: a mark of four letters, the size and the content.
GridData ReadBinary7(Bytes bytes, const std::string& name, const Progress& progress,
                     const ReadOptions& options) {
    bytes.Take(bytes.Take<std::uint32_t>()); // the version
    Extent extent;
    GridWindow window;
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
            window = Check(name, extent, options);
        } else if (mark == "DATA") {
            if (extent.rows == 0)
                throw Failure(name + ": " + Translate("Files", "values come before the size of the grid"));
            return MakeGridOf(name, extent, window,
                              TakeValues<double>(section, extent, window, blank, progress));
        }
    }
}

} // namespace

bool IsSurferGrid(std::string_view text) {
    const std::string_view mark = text.substr(0, 4);
    return mark == "DSAA" || mark == "DSBB" || mark == "DSRB";
}

GridData ReadSurferGrid(std::string_view text, const std::string& name, const Progress& progress,
                        const ReadOptions& options) {
    const std::string_view mark = text.substr(0, 4);
    if (mark == "DSAA") {
        TextLines lines(text, name, progress);
        return ReadText(lines, options);
    }
    const Bytes bytes(text.substr(mark.size()), name);
    return mark == "DSBB" ? ReadBinary6(bytes, name, progress, options)
                          : ReadBinary7(bytes, name, progress, options);
}

} // namespace KivoViewer
