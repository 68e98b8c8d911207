#include "PointBox.h"

#include "GridFormats.h"
#include "Reach.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace KivoViewer {

namespace {

// Room on both sides, of what has no length, too.
Reach Widened(const Reach& reach) {
    constexpr double room = 0.05, leastRoom = 1e-3;
    const double length = reach.Length();
    const double more = length > 0.0 ? room * length : std::max(leastRoom * std::abs(reach.most), leastRoom);
    return Reach({reach.least - more, reach.most + more});
}

std::vector<double> Three(const Reach& reach) {
    return {reach.least, reach.least + reach.Length() / 2.0, reach.most};
}

} // namespace

GridData BoxAround(const std::vector<PointFile>& files) {
    Reach reaches[3];
    for (const PointFile& file : files)
        for (std::size_t i = 0; i < file.points.size(); ++i)
            reaches[i % 3].Take(file.points[i]);
    for (Reach& reach : reaches)
        reach = Widened(reach);
    constexpr double hole = std::numeric_limits<double>::quiet_NaN();
    const std::vector<double> z = {
        reaches[2].least, hole, reaches[2].most, hole, hole, hole, hole, hole, hole};
    GridData box = MakeGrid(files.front().name, Three(reaches[0]), Three(reaches[1]), z);
    box.isBox = true;
    return box;
}

} // namespace KivoViewer
