#include "DetailSearch.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace KivoDrawingTools {

namespace {

struct Sample {
    double detail;
    double milliseconds;
};

// Between a frame within the time and one beyond it: time grows with the number of points.
unsigned int Interpolate(const Sample& within, const Sample& beyond, double milliseconds) {
    const double share = (milliseconds - within.milliseconds) / (beyond.milliseconds - within.milliseconds);
    const double fewest = within.detail * within.detail;
    const double points = fewest + share * (beyond.detail * beyond.detail - fewest);
    return static_cast<unsigned int>(std::sqrt(points));
}

} // namespace

unsigned int DetailWithin(double milliseconds, unsigned int longestSide,
                          const std::function<MeasuredFrame(unsigned int)>& measure) {
    constexpr unsigned int coarsest = 10;
    Sample within = {coarsest, 0.0};
    for (std::uint64_t detail = coarsest;; detail *= 2) {
        const auto pointsPerSide = static_cast<unsigned int>(std::min<std::uint64_t>(detail, longestSide));
        const MeasuredFrame frame = measure(pointsPerSide);
        const Sample sample = {static_cast<double>(std::max(pointsPerSide, coarsest)), frame.milliseconds};
        if (frame.milliseconds > milliseconds) return Interpolate(within, sample, milliseconds);
        if (frame.isWhole) return 0;
        within = sample;
    }
}

} // namespace KivoDrawingTools
