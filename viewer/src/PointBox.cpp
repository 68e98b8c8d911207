#include "PointBox.h"

#include "GridFormats.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace KivoViewer {

namespace {

struct Ends {
    double least = std::numeric_limits<double>::infinity();
    double most = -std::numeric_limits<double>::infinity();

    // Room on both sides, of what has no length, too.
    void Widen() {
        constexpr double room = 0.05, leastRoom = 1e-3;
        const double more =
            most > least ? room * (most - least) : std::max(leastRoom * std::abs(most), leastRoom);
        least -= more;
        most += more;
    }

    std::vector<double> Three() const { return {least, least + (most - least) / 2.0, most}; }
};

} // namespace

GridData BoxAround(const std::vector<PointFile>& files) {
    Ends ends[3];
    for (const PointFile& file : files)
        for (std::size_t i = 0; i < file.points.size(); ++i) {
            Ends& end = ends[i % 3];
            end.least = std::min(end.least, file.points[i]);
            end.most = std::max(end.most, file.points[i]);
        }
    for (Ends& end : ends)
        end.Widen();
    constexpr double hole = std::numeric_limits<double>::quiet_NaN();
    const std::vector<double> z = {ends[2].least, hole, ends[2].most, hole, hole, hole, hole, hole, hole};
    GridData box = MakeGrid(files.front().name, ends[0].Three(), ends[1].Three(), z);
    box.isBox = true;
    return box;
}

} // namespace KivoViewer
