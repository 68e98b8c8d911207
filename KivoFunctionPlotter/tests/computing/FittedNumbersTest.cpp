// Numbers with the digits that they need, and round ones within a range.
#include "computing/FittedNumbers.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <random>
#include <set>
#include <string>
#include <vector>

using namespace KivoDrawingTools;

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double noNumber = std::numeric_limits<double>::quiet_NaN();

std::vector<std::string> Texts(const NumberSteps& steps) {
    const FittedNumbers numbers(steps);
    std::vector<std::string> texts;
    for (unsigned int i = 0; i < steps.count; ++i)
        texts.push_back(numbers.Text(steps.Value(i)));
    return texts;
}

std::vector<std::string> Even(double min, double max, unsigned int intervals) {
    return Texts({min, (max - min) / intervals, intervals + 1});
}

} // namespace

TEST(FittedNumbers, HaveTheDigitsThatTheyNeed) {
    using testing::ElementsAre;
    EXPECT_THAT(Even(0, 100, 5), ElementsAre("0", "20", "40", "60", "80", "100"));
    EXPECT_THAT(Even(0, 1, 4), ElementsAre("0.00", "0.25", "0.50", "0.75", "1.00"));
    EXPECT_THAT(Even(0, 1, 2), ElementsAre("0.0", "0.5", "1.0"));
    EXPECT_THAT(Even(252, 334, 2), ElementsAre("252", "293", "334"));
    EXPECT_THAT(Even(252, 334, 10).at(1), "260.2");
    EXPECT_THAT(Even(-2e-3, 2e-3, 4), ElementsAre("-0.002", "-0.001", "0.000", "0.001", "0.002"));
    EXPECT_THAT(Even(101325, 101325.5, 2), ElementsAre("101325.00", "101325.25", "101325.50"));
    EXPECT_THAT(Even(5, -5, 2), ElementsAre("5", "0", "-5"));
}

// Single precision has no tenths.
TEST(FittedNumbers, TakeFloatsForWhatTheyMean) {
    const double min = static_cast<double>(0.1f), max = static_cast<double>(0.3f);
    EXPECT_THAT(Even(min, max, 2), testing::ElementsAre("0.1", "0.2", "0.3"));
}

TEST(FittedNumbers, AreShortWhereTheyAreLargeOrSmall) {
    using testing::ElementsAre;
    EXPECT_THAT(Even(0, 1e30, 4), ElementsAre("0", "2.5e29", "5.0e29", "7.5e29", "1.00e30"));
    EXPECT_THAT(Even(-1e30, 1e30, 2), ElementsAre("-1e30", "0", "1e30"));
    EXPECT_THAT(Even(0, 1e-30, 2), ElementsAre("0", "5e-31", "1.0e-30"));
    EXPECT_THAT(Even(0, 2e7, 2), ElementsAre("0", "1e7", "2e7"));
    EXPECT_THAT(Even(0, 9e6, 2), ElementsAre("0", "4500000", "9000000"));
    EXPECT_THAT(Even(0, 1e-4, 2), ElementsAre("0.00000", "0.00005", "0.00010"));
}

TEST(FittedNumbers, HaveNoSignBeforeZero) {
    for (const double scale : {1e-20, 1e-3, 1.0, 7.0, 1e20})
        for (const std::string& text : Even(-scale, scale, 10))
            if (text.find_first_of("123456789") == std::string::npos) {
                EXPECT_EQ(text[0], '0') << text;
            }
    EXPECT_EQ(FittedNumbers({-1.0, 0.5, 5}).Text(-1e-9), "0.0");
    EXPECT_EQ(FittedNumbers({-1.0, 0.5, 5}).Text(-0.0), "0.0");
}

TEST(FittedNumbers, OfEqualValuesHaveSixDigits) {
    EXPECT_THAT(Texts({3.14159265, 0.0, 2}), testing::ElementsAre("3.14159", "3.14159"));
    EXPECT_THAT(Texts({0.0, 0.0, 2}), testing::ElementsAre("0", "0"));
    EXPECT_THAT(Texts({5.0, 0.0, 2}), testing::ElementsAre("5", "5"));
}

TEST(FittedNumbers, OfWhatIsNoNumberAreWords) {
    EXPECT_THAT(Texts({noNumber, 1.0, 2}), testing::Each("NaN"));
    EXPECT_EQ(Texts({-infinity, 1.0, 2}).at(0), "-inf");
    EXPECT_EQ(FittedNumbers({0.0, infinity, 3}).Text(infinity), "inf");
    EXPECT_EQ(FittedNumbers({0.0, 1.0, 0}).Text(2.0), "2");
}

// Read back, each is its value to a twentieth of a step; neighbours differ; none is long.
TEST(FittedNumbers, AreRightToATwentiethOfAStep) {
    std::mt19937 random(3);
    std::uniform_real_distribution<double> mantissa(-10.0, 10.0), power(-38.0, 37.0), share(-6.0, 3.0);
    for (int k = 0; k < 3000; ++k) {
        const double min = mantissa(random) * std::pow(10.0, power(random));
        const double length = std::fabs(min) * std::pow(10.0, share(random));
        const NumberSteps steps = {min, (k % 2 == 0 ? 1.0 : -1.0) * length / 10.0, 11};
        const std::vector<std::string> texts = Texts(steps);
        for (unsigned int i = 0; i < steps.count; ++i) {
            const double read = std::strtod(texts[i].c_str(), nullptr);
            ASSERT_LE(std::fabs(read - steps.Value(i)), std::fabs(steps.step) * 0.0501) << texts[i];
            ASSERT_LE(texts[i].size(), 17u) << texts[i];
        }
        ASSERT_EQ(std::set<std::string>(texts.begin(), texts.end()).size(), 11u) << min << ", " << length;
    }
}

TEST(RoundSteps, AreRoundWithinTheRange) {
    using testing::ElementsAre;
    EXPECT_THAT(Texts(RoundSteps(252, 334, 11)),
                ElementsAre("260", "270", "280", "290", "300", "310", "320", "330"));
    EXPECT_THAT(Texts(RoundSteps(252, 534, 6)), ElementsAre("300", "400", "500"));
    EXPECT_THAT(Texts(RoundSteps(0, 1, 6)), ElementsAre("0.0", "0.2", "0.4", "0.6", "0.8", "1.0"));
    EXPECT_THAT(Texts(RoundSteps(1, 0, 6)), ElementsAre("1.0", "0.8", "0.6", "0.4", "0.2", "0.0"));
    EXPECT_THAT(Texts(RoundSteps(-0.3, 0.3, 5)), ElementsAre("-0.2", "0.0", "0.2"));
    EXPECT_THAT(Texts(RoundSteps(0, 1e30, 3)), ElementsAre("0", "5e29", "1.0e30"));
}

TEST(RoundSteps, AreAsManyAsThereIsRoomFor) {
    std::mt19937 random(9);
    std::uniform_real_distribution<double> mantissa(-10.0, 10.0), power(-38.0, 37.0), share(-5.0, 3.0);
    for (int k = 0; k < 3000; ++k) {
        const double from = mantissa(random) * std::pow(10.0, power(random));
        const double length = std::fabs(from) * std::pow(10.0, share(random));
        const double to = k % 2 == 0 ? from + length : from - length;
        const NumberSteps steps = RoundSteps(from, to, 11);
        ASSERT_GE(steps.count, 4u) << from << " to " << to;
        ASSERT_LE(steps.count, 11u) << from << " to " << to;
        const double low = std::min(from, to), high = std::max(from, to),
                     slack = 1e-5 * std::fabs(steps.step);
        for (unsigned int i = 0; i < steps.count; ++i) {
            ASSERT_GE(steps.Value(i), low - slack);
            ASSERT_LE(steps.Value(i), high + slack);
        }
        // The next ones on both sides lie outside.
        ASSERT_LT(std::min(steps.Value(0), steps.Value(steps.count - 1)) - std::fabs(steps.step),
                  low - slack);
        ASSERT_GT(std::max(steps.Value(0), steps.Value(steps.count - 1)) + std::fabs(steps.step),
                  high + slack);
        ASSERT_EQ(steps.step > 0.0, to > from);
        // 1, 2 or 5 times a power of ten.
        const double digits =
            std::log10(std::fabs(steps.step)) - std::floor(std::log10(std::fabs(steps.step)) + 1e-9);
        ASSERT_TRUE(std::fabs(digits) < 1e-6 || std::fabs(digits - std::log10(2.0)) < 1e-6 ||
                    std::fabs(digits - std::log10(5.0)) < 1e-6)
            << steps.step;
    }
}

TEST(RoundSteps, OfNoRangeAreNone) {
    EXPECT_EQ(RoundSteps(3, 3, 11).count, 0u);
    EXPECT_EQ(RoundSteps(0, infinity, 11).count, 0u);
    EXPECT_EQ(RoundSteps(-infinity, infinity, 11).count, 0u);
    EXPECT_EQ(RoundSteps(noNumber, 1, 11).count, 0u);
    EXPECT_EQ(RoundSteps(0, noNumber, 11).count, 0u);
}
