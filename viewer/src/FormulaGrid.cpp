#include "FormulaGrid.h"

#include "Failure.h"
#include "GridFormats.h"
#include "Language.h"
#include "Numbers.h"

#include <muParser.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <regex>
#include <vector>

namespace KivoViewer {

namespace {

std::vector<double> CoordinatesIn(const Range& range) {
    const double low = std::min(range.from, range.to);
    const double high = std::max(range.from, range.to);
    std::vector<double> coordinates;
    for (std::size_t i = 0; i < range.count; ++i) {
        const double share = static_cast<double>(i) / static_cast<double>(range.count - 1);
        coordinates.push_back(low + (high - low) * share);
        if (i > 0 && !(coordinates[i] > coordinates[i - 1]))
            throw Failure(Filled(Translate("Formula", "the range is too narrow for %1 values"), range.count));
    }
    return coordinates;
}

// muParser names the place in some of its messages only, and counts it from 0.
std::string ErrorWords(const mu::ParserError& error, const std::string& formula) {
    std::string words =
        std::regex_replace(error.GetMsg(), std::regex("( found)? at (expression )?position [0-9]+|\\.$"), "");
    if (error.GetPos() >= 0)
        return Filled(Translate("Formula", "%1 at position %2"), words,
                      std::min<std::size_t>(error.GetPos(), formula.size()) + 1);
    return words;
}

double ValueOf(mu::Parser& parser) {
    const double value = parser.Eval();
    return FitsSinglePrecision(value) ? value : std::numeric_limits<double>::quiet_NaN();
}

std::vector<double> Evaluate(const std::string& formula, const std::vector<double>& columns,
                             const std::vector<double>& rows) {
    double x = 0.0;
    double y = 0.0;
    mu::Parser parser;
    parser.DefineVar("x", &x);
    parser.DefineVar("y", &y);
    parser.DefineConst("pi", std::acos(-1.0));
    parser.DefineConst("e", std::exp(1.0));
    parser.EnableOptimizer(true);
    parser.SetExpr(formula);
    parser.Eval();
    if (parser.GetNumResults() != 1)
        throw Failure(Translate("Formula", "formula: one value is needed, not several parted by commas"));
    std::vector<double> values;
    for (const double row : rows)
        for (const double column : columns) {
            x = column; // anew each time: a formula may assign to its variables
            y = row;
            values.push_back(ValueOf(parser));
        }
    return values;
}

} // namespace

Range ParseRange(const std::string& text) {
    const std::size_t first = text.find(':');
    const std::size_t second = first == std::string::npos ? first : text.find(':', first + 1);
    if (second == std::string::npos)
        throw Failure(Filled(Translate("Formula", "expected from:to:count, found %1"), text));
    const auto from = ParseNumber(text.substr(0, first));
    const auto to = ParseNumber(text.substr(first + 1, second - first - 1));
    const auto count = ParseCount(text.substr(second + 1));
    if (!from || !to || !FitsSinglePrecision(*from) || !FitsSinglePrecision(*to))
        throw Failure(Filled(Translate("Formula", "expected two numbers in %1"), text));
    if (*from == *to) throw Failure(Filled(Translate("Formula", "the range is empty: %1"), text));
    if (!count || *count < 2 || *count > maxPointCount / 2)
        throw Failure(
            Filled(Translate("Formula", "expected a count from 2 to %1 in %2"), maxPointCount / 2, text));
    return {*from, *to, *count};
}

GridData MakeFormulaGrid(const std::string& formula, const Range& x, const Range& y) {
    if (x.count > maxPointCount / y.count)
        throw Failure(Filled(Translate("Files", "too many points; at most %1 can be shown"), maxPointCount));
    const std::vector<double> columns = CoordinatesIn(x);
    const std::vector<double> rows = CoordinatesIn(y);
    std::vector<double> values;
    try {
        values = Evaluate(formula, columns, rows);
    } catch (const mu::ParserError& error) {
        throw Failure(Filled(Translate("Formula", "formula: %1"), ErrorWords(error, formula)));
    }
    if (std::none_of(values.begin(), values.end(), [](double value) { return std::isfinite(value); }))
        throw Failure(Translate("Formula", "formula: no finite value in this range"));
    GridData grid = MakeGrid("formula", columns, rows, values);
    grid.title = "z = " + formula;
    return grid;
}

} // namespace KivoViewer
