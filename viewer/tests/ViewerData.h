// Grids and failures of the viewer, compared.
#pragma once

#include "Failure.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <vector>

namespace KivoTest {

constexpr float hole = std::numeric_limits<float>::quiet_NaN();

/// Whether the values are the same; holes are equal to each other here.
inline testing::AssertionResult AreSame(const std::vector<float>& actual,
                                        const std::vector<float>& expected) {
    bool same = actual.size() == expected.size();
    for (std::size_t i = 0; same && i < actual.size(); ++i)
        same = actual[i] == expected[i] || (std::isnan(actual[i]) && std::isnan(expected[i]));
    if (same) return testing::AssertionSuccess();
    return testing::AssertionFailure()
           << testing::PrintToString(actual) << " is not " << testing::PrintToString(expected);
}

/// The message of the failure that an action ends in; empty where it does not fail.
template <typename Action>
std::string MessageOf(Action action) {
    try {
        action();
    } catch (const KivoViewer::Failure& failure) {
        return failure.what();
    }
    return {};
}

} // namespace KivoTest
