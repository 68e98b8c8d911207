#include "ColorSample.h"

#include <KivoColorMap.h>
#include <KivoFunctionPlotter.h>

#include <cmath>

namespace KivoViewer {

namespace {

// A plotter without a window, which has the colours of its points all the same.
class SamplePlotter : public KivoDrawingTools::CKivoFunctionPlotter {
public:
    // Two rows of points that rise from column to column.
    explicit SamplePlotter(unsigned int columns) {
        auto* const points = new float[std::size_t{columns} * 2 * 3]; // the plotter frees it
        float* end = points;
        for (const float y : {0.0f, 1.0f})
            for (unsigned int i = 0; i < columns; ++i, end += 3) {
                end[0] = end[2] = static_cast<float>(i);
                end[1] = y;
            }
        SetData(points, columns, 2, 1, columns, 3);
    }

    Color ColorOf(unsigned int column) const {
        if (!m_colorArray) return {};
        const float* const rgba = m_colorArray + std::size_t{column} * 4;
        const auto byte = [](float channel) {
            return static_cast<unsigned char>(std::lround(channel * 255));
        };
        return {byte(rgba[0]), byte(rgba[1]), byte(rgba[2])};
    }
};

} // namespace

std::vector<Color> ColorSample(const std::string& name, const Color& start, const Color& end,
                               unsigned int count) {
    SamplePlotter plotter(count);
    plotter.SetZGradientColor(start.Packed(), end.Packed());
    SetColorMap(plotter, 2, name.c_str()); // no name of a table: the gradient
    std::vector<Color> colors;
    for (unsigned int i = 0; i < count; ++i)
        colors.push_back(plotter.ColorOf(i));
    return colors;
}

} // namespace KivoViewer
