#include "TestSurfaces.h"

#include "SampleGrids.h"

#include <algorithm>
#include <cstddef>

namespace KivoDrawingTools {

float* TestSurface::NewArray() const {
    float* array = new float[points.size()];
    std::copy(points.begin(), points.end(), array);
    return array;
}

const float* TestSurface::Point(unsigned int column, unsigned int row) const {
    return points.data() + (std::size_t{row} * columns + column) * 3;
}

float TestSurface::Min(int coordinate) const {
    float least = points[static_cast<std::size_t>(coordinate)];
    for (std::size_t i = static_cast<std::size_t>(coordinate); i < points.size(); i += 3)
        least = std::min(least, points[i]);
    return least;
}

float TestSurface::Max(int coordinate) const {
    float greatest = points[static_cast<std::size_t>(coordinate)];
    for (std::size_t i = static_cast<std::size_t>(coordinate); i < points.size(); i += 3)
        greatest = std::max(greatest, points[i]);
    return greatest;
}

TestSurface PlaneSurface(unsigned int columns, unsigned int rows) {
    return {"plane", columns, rows, KivoSamples::PlanePoints(columns, rows)};
}

TestSurface HillSurface(unsigned int columns, unsigned int rows) {
    return {"hill", columns, rows, KivoSamples::HighHillPoints(columns, rows)};
}

TestSurface SaddleSurface(unsigned int columns, unsigned int rows) {
    return {"saddle", columns, rows, KivoSamples::SaddlePoints(columns, rows)};
}

TestSurface StepSurface(unsigned int columns, unsigned int rows) {
    return {"steps", columns, rows, KivoSamples::StepPoints(columns, rows)};
}

TestSurface NoiseSurface(unsigned int columns, unsigned int rows) {
    return {"noise", columns, rows, KivoSamples::NoisePoints(columns, rows)};
}

TestSurface ConstantSurface(unsigned int columns, unsigned int rows) {
    return {"constant", columns, rows, KivoSamples::ConstantPoints(columns, rows)};
}

TestSurface TerrainSurface(unsigned int columns, unsigned int rows) {
    return {"terrain", columns, rows, KivoSamples::TerrainPoints(columns, rows)};
}

std::vector<TestSurface> AllTestSurfaces() {
    return {PlaneSurface(2, 2),  HillSurface(30, 20),   SaddleSurface(9, 14),  StepSurface(12, 7),
            NoiseSurface(25, 6), ConstantSurface(5, 4), TerrainSurface(33, 21)};
}

} // namespace KivoDrawingTools
