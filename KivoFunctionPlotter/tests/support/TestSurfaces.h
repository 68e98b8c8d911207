// The sample grids as tests use them.
#pragma once

#include <string>
#include <vector>

namespace KivoDrawingTools {

/// Packed x, y, z triples, row by row.
struct TestSurface {
    std::string name;
    unsigned int columns;
    unsigned int rows;
    std::vector<float> points;

    /// A copy from new[], as the plotter takes it over.
    float* NewArray() const;
    const float* Point(unsigned int column, unsigned int row) const;
    /// Least or greatest value of a coordinate: 0 = x, 1 = y, 2 = z.
    float Min(int coordinate) const;
    float Max(int coordinate) const; ///< as Min
};

// x runs from -3 to 5, y from -2 to 3.
TestSurface PlaneSurface(unsigned int columns, unsigned int rows);    ///< z = 0.5 x + y + 1
TestSurface HillSurface(unsigned int columns, unsigned int rows);     ///< z = 2 sin x cos y
TestSurface SaddleSurface(unsigned int columns, unsigned int rows);   ///< z = x^2 / 4 - y^2 / 2
TestSurface StepSurface(unsigned int columns, unsigned int rows);     ///< z = whole part of x + y
TestSurface NoiseSurface(unsigned int columns, unsigned int rows);    ///< z from 0 to 1, always the same
TestSurface ConstantSurface(unsigned int columns, unsigned int rows); ///< z = 5
/// A sum of sines over x, y from 0 to 100, z within about -30 to 30.
TestSurface TerrainSurface(unsigned int columns, unsigned int rows);

/// One of each of the above, of different sizes.
std::vector<TestSurface> AllTestSurfaces();

} // namespace KivoDrawingTools
