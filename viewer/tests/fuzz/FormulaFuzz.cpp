// The viewer's formula and ranges: whatever is written there, they give a grid or a Failure.
#include "Failure.h"
#include "FormulaGrid.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

namespace {

void Require(bool holds) {
    if (!holds) std::abort();
}

// What stands before the first line end is the range of x, a second line is the formula.
std::string TakeLine(std::string& text) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    const std::string line = text.substr(0, end);
    text.erase(0, end + 1);
    return line;
}

KivoViewer::Range RangeIn(std::string& text) {
    KivoViewer::Range range = {-3.0, 3.0, 5};
    const std::string line = TakeLine(text);
    if (line.empty()) return range;
    range = KivoViewer::ParseRange(line);
    Require(range.count >= 2);
    range.count = std::min<std::size_t>(range.count, 16); // the fuzzer's time goes to the formula
    return range;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::string text(reinterpret_cast<const char*>(data), size);
    try {
        const KivoViewer::Range x = RangeIn(text);
        const KivoViewer::Range y = RangeIn(text);
        const KivoViewer::GridData grid = KivoViewer::MakeFormulaGrid(text, x, y);
        Require(grid.ColumnCount() == x.count && grid.RowCount() == y.count);
        Require(grid.z.size() == x.count * y.count);
        for (const float value : grid.z)
            Require(!std::isinf(value));
    } catch (const KivoViewer::Failure& failure) {
        Require(!KivoViewer::OneLine(failure.what()).empty());
    }
    return 0;
}
