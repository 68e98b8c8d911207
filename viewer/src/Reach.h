// From where to where numbers reach.
#pragma once

#include <algorithm>
#include <limits>
#include <vector>

namespace KivoViewer {

/// The least and the most of the numbers that it was told; without any, nothing lies between them.
struct Reach {
    double least = std::numeric_limits<double>::infinity();
    double most = -std::numeric_limits<double>::infinity();

    Reach() = default;
    explicit Reach(const std::vector<double>& numbers) {
        for (const double number : numbers)
            Take(number);
    }

    void Take(double number) {
        least = std::min(least, number);
        most = std::max(most, number);
    }
    double Length() const { return most - least; }
};

} // namespace KivoViewer
