// Numbers at even steps, with the digits that tell them apart, and steps that are round.
#pragma once

#include <string>

namespace KivoDrawingTools {

/// Values from the first one on, each a step from the one before; the step may be negative.
struct NumberSteps {
    double first = 0.0;
    double step = 0.0;
    unsigned int count = 0;

    double Value(unsigned int i) const { return first + i * step; }
    double Last() const { return count == 0 ? first : Value(count - 1); }
};

/// Multiples of 1, 2 or 5 times a power of ten within a range, in its direction: at most mostCount, and of
/// eleven at least four. None where the range has no length, or one that is not finite.
/// @param mostCount  at least 2
NumberSteps RoundSteps(double from, double to, unsigned int mostCount);

/// Writes the numbers of steps: right to a twentieth of a step, without zeros that all of them end in and
/// without a sign before zero. From ten million on, and below a ten-thousandth, with a power of ten: 1.2e30.
class FittedNumbers {
public:
    explicit FittedNumbers(const NumberSteps& steps);

    /// For any values of a range: right to a twentieth of a hundredth of it.
    static FittedNumbers Within(double min, double max);

    std::string Text(double value) const;

private:
    FittedNumbers(double step, double largest);

    int m_decimals = 0; // places after the point of what is written without a power; of others below 0, too
    bool m_hasPower = false; // whether numbers are written with a power of ten
};

} // namespace KivoDrawingTools
