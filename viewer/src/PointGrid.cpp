// Points that lie on the crossings of a grid's lines.
#include "PointGrid.h"

#include "GridFormats.h"
#include "Language.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <tuple>

namespace KivoViewer {

namespace {

constexpr double missingPoint = std::numeric_limits<double>::quiet_NaN();

struct Lattice {
    std::vector<double> x;
    std::vector<double> y;
    std::vector<double> z; // row by row
    std::vector<bool> isThere;
};

std::vector<double> Distinct(std::vector<double> numbers) {
    std::sort(numbers.begin(), numbers.end());
    numbers.erase(std::unique(numbers.begin(), numbers.end()), numbers.end());
    return numbers;
}

std::size_t IndexOf(const std::vector<double>& rising, double number) {
    return static_cast<std::size_t>(std::lower_bound(rising.begin(), rising.end(), number) - rising.begin());
}

// The coordinates of points that follow each other along the rows, or else along the columns, of a grid.
// @return whether they do
bool FollowRows(const std::vector<double>& fast, const std::vector<double>& slow,
                std::vector<double>& columns, std::vector<double>& rows) {
    const auto isOther = [&slow](double number) { return number != slow[0]; };
    const auto width =
        static_cast<std::size_t>(std::find_if(slow.begin(), slow.end(), isOther) - slow.begin());
    if (width < 2 || slow.size() % width != 0) return false;
    columns.assign(fast.begin(), fast.begin() + static_cast<std::ptrdiff_t>(width));
    for (std::size_t i = 0; i < slow.size(); i += width)
        rows.push_back(slow[i]);
    for (std::size_t i = 0; i < slow.size(); ++i)
        if (slow[i] != rows[i / width] || fast[i] != columns[i % width]) return false;
    const auto isStrict = [](const std::vector<double>& numbers) {
        const double sign = numbers.back() > numbers.front() ? 1.0 : -1.0;
        return std::adjacent_find(numbers.begin(), numbers.end(), [sign](double a, double b) {
                   return !(sign * a < sign * b);
               }) == numbers.end();
    };
    return isStrict(columns) && isStrict(rows);
}

// @return nothing where two points are in one place, or there are far more places than points
std::optional<Lattice> LatticeOf(const PointTable& table) {
    constexpr std::size_t mostPlaces = 10; // for each point
    Lattice lattice = {Distinct(table.x), Distinct(table.y), {}, {}};
    const std::size_t columns = lattice.x.size();
    if (columns > maxPointCount / lattice.y.size()) return std::nullopt;
    const std::size_t places = columns * lattice.y.size();
    if (places / mostPlaces > table.Count()) return std::nullopt;
    lattice.z.assign(places, missingPoint);
    lattice.isThere.assign(places, false);
    for (std::size_t i = 0; i < table.Count(); ++i) {
        const std::size_t place = IndexOf(lattice.y, table.y[i]) * columns + IndexOf(lattice.x, table.x[i]);
        if (lattice.isThere[place]) return std::nullopt;
        lattice.isThere[place] = true;
        lattice.z[place] = table.z[i];
    }
    return lattice;
}

// Cells with all four corners: of a grid that is clipped, about as many as points; of points that are
// scattered over round coordinates few.
std::size_t CellCount(const Lattice& lattice) {
    const std::size_t columns = lattice.x.size();
    const auto& isThere = lattice.isThere;
    std::size_t count = 0;
    for (std::size_t i = columns; i < isThere.size(); ++i)
        count += i % columns > 0 && isThere[i] && isThere[i - 1] && isThere[i - columns] &&
                 isThere[i - columns - 1];
    return count;
}

} // namespace

std::size_t RowLength(const PointTable& table) {
    for (const auto& [fast, slow] : {std::tie(table.x, table.y), std::tie(table.y, table.x)}) {
        std::size_t length = 1;
        while (length < slow.size() && slow[length] == slow[0])
            ++length;
        if (length < 2 || length == slow.size()) continue;
        // A second row says the same.
        const std::size_t second = std::min(length, slow.size() - length);
        if (std::equal(fast.begin(), fast.begin() + static_cast<std::ptrdiff_t>(second),
                       fast.begin() + static_cast<std::ptrdiff_t>(length)))
            return length;
    }
    return 0;
}

std::optional<GridData> OrderedGrid(const PointTable& table) {
    std::vector<double> columns, rows;
    if (FollowRows(table.x, table.y, columns, rows)) return MakeGrid(table.file, columns, rows, table.z);
    columns.clear();
    rows.clear();
    if (!FollowRows(table.y, table.x, columns, rows)) return std::nullopt;
    std::vector<double> z(table.z.size());
    for (std::size_t i = 0; i < z.size(); ++i)
        z[i % columns.size() * rows.size() + i / columns.size()] = table.z[i];
    return MakeGrid(table.file, rows, columns, z);
}

std::optional<GridData> FindGrid(const PointTable& table) {
    auto grid = OrderedGrid(table);
    if (grid) return grid;
    const auto lattice = LatticeOf(table);
    if (!lattice) return std::nullopt;
    const std::size_t missing = lattice->z.size() - table.Count();
    if (missing > 0 && CellCount(*lattice) < table.Count() / 2 + 1) return std::nullopt;
    grid = MakeGrid(table.file, lattice->x, lattice->y, lattice->z);
    if (missing > 0)
        grid->note = Filled(Translate("Files", "%1 of %2 x %3 points are not in the file"), missing,
                            lattice->x.size(), lattice->y.size());
    return grid;
}

} // namespace KivoViewer
