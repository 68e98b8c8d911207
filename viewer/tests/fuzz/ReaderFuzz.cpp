// The viewer's file readers: whatever a file holds, they give a grid or points that keep their promises or a
// Failure.
#include "Failure.h"
#include "GridReader.h"
#include "PointFile.h"
#include "Progress.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>
#include <vector>

namespace {

void Require(bool holds) {
    if (!holds) std::abort();
}

bool IsRising(const std::vector<float>& values) {
    for (std::size_t i = 0; i < values.size(); ++i)
        if (!std::isfinite(values[i]) || (i > 0 && !(values[i] > values[i - 1]))) return false;
    return true;
}

void Check(const KivoViewer::GridData& grid) {
    Require(grid.ColumnCount() >= 2 && grid.RowCount() >= 2);
    Require(grid.z.size() == grid.ColumnCount() * grid.RowCount());
    Require(grid.z.size() <= KivoViewer::maxPointCount);
    Require(IsRising(grid.x) && IsRising(grid.y));
    for (const float value : grid.z)
        Require(!std::isinf(value));
}

void Check(const KivoViewer::PointFile& file) {
    Require(file.Count() > 0 && file.points.size() == 3 * file.Count());
    for (const double coordinate : file.points)
        Require(std::isfinite(coordinate));
}

// What the user says of a file. What would make the grid of scattered points large is left to what these are.
KivoViewer::ReadOptions OptionsOf(unsigned int bits, unsigned int moreBits) {
    constexpr KivoViewer::GridMethod methods[] = {KivoViewer::GridMethod::linear,
                                                  KivoViewer::GridMethod::nearest,
                                                  KivoViewer::GridMethod::inverseDistance};
    KivoViewer::ReadOptions options;
    if ((bits & 1U) != 0) options.columns = {"1", "2", "3"};
    if ((bits & 2U) != 0) options.decimalMark = ',';
    if ((bits & 4U) != 0) options.region = KivoViewer::Region{-2.0, 20.0, 0.0, 30.0};
    if ((bits & 24U) != 0) options.method = methods[(bits >> 3U & 3U) - 1U];
    if ((moreBits & 1U) != 0) options.columns = {"all"};
    if ((moreBits & 2U) != 0) options.columns = {"x", "north", "h"};
    if ((moreBits & 4U) != 0) options.decimalMark = '.';
    if ((moreBits & 8U) != 0) options.radius = 1.5;
    options.asks = (moreBits & 16U) != 0;
    if ((moreBits & 64U) != 0) options.mostPoints = 40;
    return options;
}

void ReadPoints(std::string_view text, const KivoViewer::ReadOptions& options) {
    const KivoViewer::PointFile file = KivoViewer::ReadPoints(text, "points.csv", options);
    Check(file);
    std::size_t count = 0;
    for (const KivoViewer::PointFile& group : KivoViewer::GroupsOf(file)) {
        Check(group);
        count += group.Count();
    }
    Require(count == file.Count());
}

} // namespace

/// The first two bytes choose the file's name, whether it holds a grid or single points, what the user says
/// of it, and whether reading is given up; the rest is its text.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 2) return 0;
    const std::string_view text(reinterpret_cast<const char*>(data) + 2, size - 2);
    const KivoViewer::ReadOptions options = OptionsOf(data[0] >> 2U, data[1]);
    const bool goesOn = (data[1] & 32) == 0;
    try {
        if ((data[0] & 2) != 0)
            ReadPoints(text, options);
        else
            Check(KivoViewer::ReadGrid(
                text, (data[0] & 1) != 0 ? "grid.csv" : "grid.txt", [goesOn](double) { return goesOn; },
                options));
    } catch (const KivoViewer::Failure& failure) {
        Require(!KivoViewer::OneLine(failure.what()).empty());
    } catch (const KivoViewer::Cancelled&) {
        Require(!goesOn);
    }
    return 0;
}
