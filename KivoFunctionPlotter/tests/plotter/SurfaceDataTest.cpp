// The surface: bounds, colours, texture coordinates, triangles and normals of a grid, and how it is drawn.
#include "parts/KivoGradientColor.h"
#include "parts/KivoGridBox.h"
#include "support/TestSurfaces.h"
#include "support/TestWindow.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <memory>
#include <stdexcept>
#include <utility>
#include <vector>

using namespace KivoDrawingTools;

namespace {

constexpr float notRead = std::numeric_limits<float>::quiet_NaN();

int Take(PlotterProbe& plotter, const TestSurface& surface) {
    return plotter.SetData(surface.NewArray(), surface.columns, surface.rows, 1, surface.columns, 3);
}

std::vector<unsigned int> Indices(const PlotterProbe& p) {
    return {p.m_indexArray, p.m_indexArray + p.m_indexCount};
}

using Normal = std::array<double, 3>;

Normal FaceNormal(const float* a, const float* b, const float* c) {
    const double u[] = {double{b[0]} - a[0], double{b[1]} - a[1], double{b[2]} - a[2]};
    const double v[] = {double{c[0]} - a[0], double{c[1]} - a[1], double{c[2]} - a[2]};
    const Normal n = {u[1] * v[2] - u[2] * v[1], u[2] * v[0] - u[0] * v[2], u[0] * v[1] - u[1] * v[0]};
    const double length = std::sqrt(n[0] * n[0] + n[1] * n[1] + n[2] * n[2]);
    return {n[0] / length, n[1] / length, n[2] / length};
}

// The average over the triangles that have the point as a corner, found among all triangles.
Normal AverageNormal(const TestSurface& s, unsigned int column, unsigned int row) {
    const float* point = s.Point(column, row);
    Normal sum = {};
    int count = 0;
    for (unsigned int r = 0; r + 1 < s.rows; ++r)
        for (unsigned int c = 0; c + 1 < s.columns; ++c) {
            const float* triangles[2][3] = {{s.Point(c, r), s.Point(c + 1, r), s.Point(c + 1, r + 1)},
                                            {s.Point(c, r), s.Point(c + 1, r + 1), s.Point(c, r + 1)}};
            for (const auto& triangle : triangles) {
                if (std::find(triangle, triangle + 3, point) == triangle + 3) continue;
                const Normal normal = FaceNormal(triangle[0], triangle[1], triangle[2]);
                for (std::size_t i = 0; i < 3; ++i)
                    sum[i] += normal[i];
                ++count;
            }
        }
    EXPECT_EQ(count, 6);
    return {sum[0] / 6, sum[1] / 6, sum[2] / 6};
}

} // namespace

// ---- What is computed needs no window

TEST(SurfaceData, DescribesTheGrid) {
    const TestSurface surface = HillSurface(7, 5);
    PlotterProbe plotter;
    EXPECT_EQ(Take(plotter, surface), 0);
    EXPECT_FALSE(plotter.m_isDataReference);
    EXPECT_EQ(plotter.m_columnCount, 7u);
    EXPECT_EQ(plotter.m_rowCount, 5u);
    EXPECT_EQ(plotter.m_vertexCount, 35u);
    EXPECT_EQ(plotter.m_componentCount, 3u);
    EXPECT_EQ(plotter.m_columnStride, 3u);
    EXPECT_EQ(plotter.m_rowStride, 21u);
    EXPECT_EQ(plotter.m_indexCount, 6u * 6 * 4);
    EXPECT_EQ(plotter.m_normalArray, nullptr) << "normals are built on demand only";
    float* points = surface.NewArray();
    EXPECT_EQ(plotter.SetDataReference(points, 7, 5, 1, 7, 3), 0);
    EXPECT_EQ(plotter.m_points, points);
    EXPECT_TRUE(plotter.m_isDataReference);
    plotter.OnDestroy();
    delete[] points;
}

TEST(SurfaceData, FindsTheBoundsOfEverySurface) {
    for (const TestSurface& surface : AllTestSurfaces()) {
        SCOPED_TRACE(surface.name);
        PlotterProbe plotter;
        Take(plotter, surface);
        for (int i = 0; i < 3; ++i) {
            EXPECT_EQ(plotter.m_boundingBoxMin[i], surface.Min(i));
            EXPECT_EQ(plotter.m_boundingBoxMax[i], surface.Max(i));
        }
        EXPECT_EQ(plotter.m_zGradientColor->m_min, surface.Min(2));
        EXPECT_EQ(plotter.m_xGradientColor->m_max, surface.Max(0));
        EXPECT_EQ(plotter.m_gridBox->m_dataMin, plotter.m_boundingBoxMin);
    }
}

TEST(SurfaceData, TheFirstPointMayBeTheGreatestOrTheLeast) {
    const float points[] = {9, 8, -7, 1, 2, 3, 4, 5, 6, 2, -3, 0};
    PlotterProbe plotter;
    plotter.SetDataReference(const_cast<float*>(points), 2, 2, 1, 2, 3);
    EXPECT_EQ((std::vector<float>(plotter.m_boundingBoxMin, plotter.m_boundingBoxMin + 3)),
              (std::vector<float>{1, -3, -7}));
    EXPECT_EQ((std::vector<float>(plotter.m_boundingBoxMax, plotter.m_boundingBoxMax + 3)),
              (std::vector<float>{9, 8, 6}));
}

TEST(SurfaceData, TwoTrianglesOfTheSmallestGrid) {
    PlotterProbe plotter;
    Take(plotter, PlaneSurface(2, 2));
    EXPECT_EQ(Indices(plotter), (std::vector<unsigned int>{0, 1, 3, 0, 3, 2}));
}

TEST(SurfaceData, TwoTrianglesForEachCellRowByRow) {
    for (const TestSurface& surface : AllTestSurfaces()) {
        PlotterProbe plotter;
        Take(plotter, surface);
        std::vector<unsigned int> expected;
        for (unsigned int cell = 0; cell < (surface.columns - 1) * (surface.rows - 1); ++cell) {
            const unsigned int row = cell / (surface.columns - 1), column = cell % (surface.columns - 1);
            const unsigned int lower = row * surface.columns + column, upper = lower + surface.columns;
            for (const unsigned int corner : {lower, lower + 1, upper + 1, lower, upper + 1, upper})
                expected.push_back(corner);
        }
        EXPECT_EQ(Indices(plotter), expected) << surface.name;
    }
}

TEST(SurfaceData, TextureCoordinatesRunFromZeroToOne) {
    const TestSurface surface = NoiseSurface(9, 6);
    PlotterProbe plotter;
    Take(plotter, surface);
    for (unsigned int r = 0; r < 6; ++r)
        for (unsigned int c = 0; c < 9; ++c) {
            EXPECT_NEAR(plotter.m_texcoordArray[(r * 9 + c) * 2], c / 8.0, 1e-6);
            EXPECT_NEAR(plotter.m_texcoordArray[(r * 9 + c) * 2 + 1], r / 5.0, 1e-6);
        }
}

TEST(SurfaceData, PointsAreColouredByHeightAndOpaque) {
    const TestSurface surface = HillSurface(12, 10);
    PlotterProbe plotter;
    Take(plotter, surface);
    CKivoGradientColor gradient;
    gradient.SetRange(surface.Min(2), surface.Max(2));
    for (unsigned int i = 0; i < plotter.m_vertexCount; ++i) {
        const float* color = plotter.m_colorArray + i * 4;
        const float z = surface.points[i * 3 + 2];
        float expected[3];
        gradient.Evaluate(z, expected);
        for (int k = 0; k < 3; ++k)
            EXPECT_EQ(color[k], expected[k]);
        EXPECT_EQ(color[3], 1.0f);
        if (z == surface.Min(2)) {
            EXPECT_EQ(color[2], 1.0f) << "blue";
        }
        if (z == surface.Max(2)) {
            EXPECT_EQ(color[0], 1.0f) << "red";
        }
    }
}

TEST(SurfaceData, AConstantSurfaceHasTheStartColour) {
    PlotterProbe plotter;
    Take(plotter, ConstantSurface(4, 3));
    for (unsigned int i = 0; i < plotter.m_vertexCount; ++i)
        EXPECT_EQ((std::vector<float>(plotter.m_colorArray + i * 4, plotter.m_colorArray + i * 4 + 4)),
                  (std::vector<float>{0, 0, 1, 1}));
}

TEST(SurfaceData, RecolouringWritesTheSameArrayUnlessItsSizeHasChanged) {
    const TestSurface surface = HillSurface(12, 10);
    PlotterProbe plotter;
    Take(plotter, surface);
    const float* const array = plotter.m_colorArray;
    plotter.SetZGradientStartColor(0x0000FF00ul);
    EXPECT_EQ(plotter.m_colorArray, array);
    plotter.m_rowCount = 9; // as a derived class may
    plotter.AssignColorData();
    plotter.m_rowCount = 10;
    plotter.AssignColorData(); // more than the array of 9 rows has room for
    float expected[3];
    for (unsigned int i = 0; i < plotter.m_vertexCount; ++i) {
        plotter.m_zGradientColor->Evaluate(surface.points[i * 3 + 2], expected);
        EXPECT_TRUE(std::equal(expected, expected + 3, plotter.m_colorArray + i * 4)) << i;
    }
}

TEST(SurfaceData, NormalsAverageTheTouchingTriangles) {
    for (const TestSurface& surface : {HillSurface(8, 7), NoiseSurface(6, 9)}) {
        PlotterProbe plotter;
        Take(plotter, surface);
        plotter.AssignNormalData();
        for (unsigned int r = 0; r < surface.rows; ++r)
            for (unsigned int c = 0; c < surface.columns; ++c) {
                const float* normal = plotter.m_normalArray + (r * surface.columns + c) * 3;
                const bool isBorder = r == 0 || c == 0 || r + 1 == surface.rows || c + 1 == surface.columns;
                const Normal expected = isBorder ? Normal{0, 0, 1} : AverageNormal(surface, c, r);
                for (std::size_t i = 0; i < 3; ++i)
                    EXPECT_NEAR(normal[i], expected[i], 1e-5) << c << ' ' << r;
            }
    }
}

TEST(SurfaceData, AssignPositionDataDoesNothing) {
    PlotterProbe plotter;
    plotter.AssignPositionData();
    EXPECT_EQ(plotter.m_points, nullptr);
}

// ---- Strides and components

// Every second float triple of a wider array; what lies between is no number and must not be read.
TEST(SurfaceData, StridesAddressBoundsColoursAndNormals) {
    const TestSurface surface = HillSurface(5, 4);
    std::vector<float> wide(5 * 2 * 4 * 2 * 3, notRead);
    for (unsigned int r = 0; r < 4; ++r)
        for (unsigned int c = 0; c < 5; ++c)
            std::copy_n(surface.Point(c, r), 3, wide.begin() + (c * 2 + r * 20) * 3);
    PlotterProbe packed, strided;
    Take(packed, surface);
    strided.SetDataReference(wide.data(), 5, 4, 2, 20, 3);
    EXPECT_EQ(strided.m_columnStride, 6u);
    EXPECT_EQ(strided.m_rowStride, 60u);
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(strided.m_boundingBoxMin[i], surface.Min(i));
        EXPECT_EQ(strided.m_boundingBoxMax[i], surface.Max(i));
    }
    EXPECT_TRUE(std::equal(packed.m_colorArray, packed.m_colorArray + 80, strided.m_colorArray));
    packed.AssignNormalData();
    strided.AssignNormalData();
    for (unsigned int r = 0; r < 4; ++r)
        for (unsigned int c = 0; c < 5; ++c)
            for (unsigned int i = 0; i < 3; ++i)
                EXPECT_EQ(strided.m_normalArray[c * 6 + r * 60 + i],
                          packed.m_normalArray[(r * 5 + c) * 3 + i]);
}

TEST(SurfaceData, ColumnsMayLieOneAfterTheOther) {
    const TestSurface surface = HillSurface(5, 4);
    std::vector<float> byColumns(60);
    for (unsigned int r = 0; r < 4; ++r)
        for (unsigned int c = 0; c < 5; ++c)
            std::copy_n(surface.Point(c, r), 3, byColumns.begin() + (c * 4 + r) * 3);
    PlotterProbe packed, plotter;
    Take(packed, surface);
    plotter.SetDataReference(byColumns.data(), 5, 4, 4, 1, 3);
    EXPECT_TRUE(std::equal(packed.m_colorArray, packed.m_colorArray + 80, plotter.m_colorArray));
    EXPECT_EQ(Indices(plotter), Indices(packed));
}

TEST(SurfaceData, PointsOfMoreThanThreeFloatsHaveTheirHeightThird) {
    const TestSurface surface = HillSurface(5, 4);
    PlotterProbe packed;
    Take(packed, surface);
    for (const unsigned int components : {4u, 5u, 7u}) {
        std::vector<float> longer(20 * components, notRead);
        for (unsigned int i = 0; i < 20; ++i)
            std::copy_n(&surface.points[i * 3], 3, longer.begin() + i * components);
        PlotterProbe plotter;
        plotter.SetDataReference(longer.data(), 5, 4, 1, 5, components);
        EXPECT_EQ(plotter.m_columnStride, components);
        EXPECT_EQ(plotter.m_boundingBoxMax[2], surface.Max(2));
        EXPECT_TRUE(std::equal(packed.m_colorArray, packed.m_colorArray + 80, plotter.m_colorArray));
    }
}

TEST(SurfaceData, PointsOfFewerThanThreeFloatsAreNotRead) {
    for (const unsigned int components : {0u, 1u, 2u}) {
        std::vector<float> shorter(4 * components + 1, 1.0f);
        PlotterProbe plotter;
        EXPECT_EQ(plotter.SetDataReference(shorter.data(), 2, 2, 1, 2, components), 0);
        EXPECT_EQ(plotter.m_boundingBoxMax[0], 0.0f);
        EXPECT_EQ(plotter.m_colorArray, nullptr);
        plotter.AssignNormalData();
        EXPECT_EQ(plotter.m_normalArray, nullptr);
    }
}

// ---- Counts beyond all memory

// Strides of 0 address one point, however many there are.
TEST(SurfaceData, CountsThatCannotBeHeldAreRefusedAndEverythingIsAsBefore) {
    struct {
        unsigned int columns, rows, columnStride, rowStride, components;
    } const cases[] = {
        {0x10000u, 0x10000u, 0, 0, 3},       // one point more than numbers of 32 bits
        {3037000500u, 3037000500u, 0, 0, 2}, // whose texture coordinates are few in 64 bits
        {0x80000000u, 0x80000000u, 0, 0, 3}, {0xFFFFFFFFu, 0xFFFFFFFFu, 1, 0xFFFFFFFFu, 3},
        {2, 1, 0x55555556u, 2, 3}, // from one column to the next
        {1, 2, 1, 0xFFFFFFFFu, 3}, // from one row to the next
        {2, 2, 1, 2, 0xFFFFFFFFu},
    };
    const TestSurface surface = HillSurface(5, 4);
    PlotterProbe plotter;
    Take(plotter, surface);
    const float* const before = plotter.m_points;
    const std::unique_ptr<float[]> points(PlaneSurface(3, 3).NewArray());
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << c.columns << " x " << c.rows);
        EXPECT_THROW(
            plotter.SetData(points.get(), c.columns, c.rows, c.columnStride, c.rowStride, c.components),
            std::length_error);
        EXPECT_THROW(plotter.SetDataReference(points.get(), c.columns, c.rows, c.columnStride, c.rowStride,
                                              c.components),
                     std::length_error);
        EXPECT_EQ(plotter.m_points, before);
        EXPECT_FALSE(plotter.m_isDataReference);
        EXPECT_EQ(plotter.m_vertexCount, 20u);
        EXPECT_EQ(plotter.m_columnStride, 3u);
        EXPECT_EQ(plotter.m_boundingBoxMax[2], surface.Max(2));
        EXPECT_EQ(Indices(plotter).size(), 6u * 4 * 3);
        EXPECT_FALSE(plotter.m_flatZIsoContours.empty());
    }
    // A stride that leads to no second point is not used.
    EXPECT_EQ(plotter.SetDataReference(points.get(), 3, 1, 1, 0xFFFFFFFFu, 3), 0);
    EXPECT_EQ(plotter.m_boundingBoxMax[0], 5.0f);
}

// ---- Degenerate grids

TEST(SurfaceData, NarrowGridsHaveNoTriangles) {
    const unsigned int sizes[][2] = {{1, 1}, {1, 6}, {6, 1}};
    for (const unsigned int* size : sizes) {
        SCOPED_TRACE(testing::Message() << size[0] << " x " << size[1]);
        const TestSurface surface = HillSurface(size[0], size[1]);
        PlotterProbe plotter;
        EXPECT_EQ(Take(plotter, surface), 0);
        EXPECT_EQ(plotter.m_indexCount, 0u);
        EXPECT_EQ(plotter.m_framelineIndexCount, 0);
        for (int i = 0; i < 3; ++i) {
            EXPECT_EQ(plotter.m_boundingBoxMin[i], surface.Min(i));
            EXPECT_EQ(plotter.m_boundingBoxMax[i], surface.Max(i));
        }
        ASSERT_NE(plotter.m_colorArray, nullptr);
        ASSERT_NE(plotter.m_texcoordArray, nullptr);
        for (unsigned int i = 0; i < plotter.m_vertexCount; ++i) {
            EXPECT_EQ(plotter.m_colorArray[4 * i + 3], 1.0f);
            for (const unsigned int along : {0u, 1u}) // the other direction has no length to be a share of
                if (size[along] > 1) {
                    EXPECT_FLOAT_EQ(plotter.m_texcoordArray[2 * i + along],
                                    static_cast<float>(i) / static_cast<float>(size[along] - 1));
                }
        }
        EXPECT_TRUE(plotter.m_flatXIsoContours.empty() && plotter.m_flatYIsoContours.empty() &&
                    plotter.m_flatZIsoContours.empty());
        plotter.AssignNormalData();
        EXPECT_EQ(plotter.m_normalArray[2], 1.0f);
    }
}

TEST(SurfaceData, EmptyGridsHaveNothing) {
    const unsigned int sizes[][2] = {{0, 0}, {0, 5}, {5, 0}};
    for (const unsigned int* size : sizes) {
        PlotterProbe plotter;
        Take(plotter, PlaneSurface(3, 3));
        EXPECT_EQ(plotter.SetData(nullptr, size[0], size[1], 1, size[0], 3), 0);
        EXPECT_EQ(plotter.m_vertexCount, 0u);
        EXPECT_EQ(plotter.m_indexCount, 0u);
        EXPECT_EQ(plotter.m_framelineIndexCount, 0);
        plotter.AssignNormalData();
        plotter.SetFrameLineStep(1, 1);
    }
}

// ---- Drawing

namespace {

class SurfaceDrawing : public WindowTest {
protected:
    TestPlot plot{GetParam(), 400, 240};
    PlotterProbe& plotter = plot.plotter;
};

} // namespace

TEST_P(SurfaceDrawing, TakingDataLeavesNoContextCurrent) {
    Take(plotter, HillSurface(6, 6));
    EXPECT_EQ(wglGetCurrentContext(), nullptr);
}

TEST_P(SurfaceDrawing, ShowsThePointsColoursWhereTheyProject) {
    const TestSurface surface = PlaneSurface(9, 9);
    Take(plotter, surface);
    plotter.ShowFrameLines(false);
    const Image image = plot.SurfaceImage();
    const CurrentContext context(plotter);
    for (unsigned int r = 1; r < 8; ++r)
        for (unsigned int c = 1; c < 8; ++c) {
            const float* p = surface.Point(c, r);
            float window[3];
            plotter.Project(p[0], p[1], p[2], window);
            const float* color = plotter.m_colorArray + (r * 9 + c) * 4;
            const int expected[] = {static_cast<int>(color[0] * 255), static_cast<int>(color[1] * 255),
                                    static_cast<int>(color[2] * 255)};
            EXPECT_TRUE(
                image.IsNear(static_cast<int>(window[0]), 239 - static_cast<int>(window[1]), expected, 30))
                << c << ' ' << r;
        }
}

TEST_P(SurfaceDrawing, PointsOfFiveFloatsAreDrawnLikeThoseOfThree) {
    const TestSurface surface = HillSurface(9, 7);
    Take(plotter, surface);
    plotter.ShowFrameLines(false);
    const Image expected = plot.SurfaceImage();
    EXPECT_GT(expected.Count(IsInk), 3000);
    float* longer = new float[63 * 5];
    std::fill(longer, longer + 63 * 5, 77.0f);
    for (unsigned int i = 0; i < 63; ++i)
        std::copy_n(&surface.points[i * 3], 3, longer + i * 5);
    plotter.SetData(longer, 9, 7, 1, 9, 5);
    EXPECT_TRUE(ImagesAgree(plot.SurfaceImage(), expected, 0, 0, "five-floats"));
}

TEST_P(SurfaceDrawing, AFourthFloatIsTheHomogeneousW) {
    const TestSurface surface = HillSurface(9, 7);
    Take(plotter, surface);
    plotter.ShowFrameLines(false);
    const Image expected = plot.SurfaceImage();
    float* homogeneous = new float[63 * 4];
    for (unsigned int i = 0; i < 63; ++i) {
        std::copy_n(&surface.points[i * 3], 3, homogeneous + i * 4);
        homogeneous[i * 4 + 3] = 1.0f;
    }
    plotter.SetData(homogeneous, 9, 7, 1, 9, 4);
    EXPECT_TRUE(ImagesAgree(plot.SurfaceImage(), expected, 0, 0, "w-one"));
    for (unsigned int i = 0; i < 63; ++i)
        homogeneous[i * 4 + 3] = 4.0f; // towards the origin
    const int quarter = plot.SurfaceImage().Count(IsInk);
    EXPECT_LT(quarter, expected.Count(IsInk) / 8);
    EXPECT_GT(quarter, expected.Count(IsInk) / 32);
}

TEST_P(SurfaceDrawing, WithoutReadablePointsNothingIsDrawn) {
    std::vector<float> pairs(8, 1.0f);
    plotter.SetDataReference(pairs.data(), 2, 2, 1, 2, 2);
    EXPECT_EQ(plot.SurfaceImage().Count(IsInk), 0);
    EXPECT_EQ(plotter.Renderscene(), 0);
    plotter.SetData(nullptr, 0, 0, 1, 0, 3);
    EXPECT_EQ(plot.SurfaceImage().Count(IsInk), 0);
    EXPECT_EQ(plotter.Renderscene(), 0);
    Take(plotter, HillSurface(1, 5));
    EXPECT_EQ(plot.SurfaceImage().Count(IsInk), 0);
    EXPECT_EQ(plotter.Renderscene(), 0);
}

TEST_P(SurfaceDrawing, OnceItsArraysAreGoneNothingIsDrawn) {
    Take(plotter, HillSurface(9, 7));
    EXPECT_GT(plot.SurfaceImage().Count(IsInk), 0);
    plotter.ReleaseDataRelativeResource();
    EXPECT_GT(plotter.m_indexCount, 0u);
    EXPECT_EQ(plot.SurfaceImage().Count(IsInk), 0);
    plotter.SetGradientColor(0x000000FFul, 0x0000FF00ul);
    plotter.SetFrameLineStep(2, 2);
    EXPECT_EQ(plotter.m_colorArray, nullptr);
    EXPECT_EQ(plotter.m_framelineIndexArray, nullptr);
    EXPECT_EQ(plotter.Renderscene(), 0);
}

// A row stride that skips rows addresses fewer floats than the packed grid has; those must not be read.
TEST_P(SurfaceDrawing, OverlappingRowsAreNotDrawnPastTheArray) {
    const std::unique_ptr<float[]> points(HillSurface(6, 1).NewArray());
    plotter.SetDataReference(points.get(), 6, 50, 1, 0, 3);
    plot.SurfaceImage();
    EXPECT_EQ(plotter.Renderscene(), 0);
    plotter.OnDestroy();
}

// Where there was no memory for one of the arrays.
TEST_P(SurfaceDrawing, NothingIsDrawnWithoutColoursOrIndices) {
    Take(plotter, HillSurface(9, 7));
    float* const colors = std::exchange(plotter.m_colorArray, nullptr);
    EXPECT_EQ(CountInk(plot.SurfaceImage()), 0);
    plotter.m_colorArray = colors;
    auto* const indices = std::exchange(plotter.m_indexArray, nullptr);
    EXPECT_EQ(CountInk(plot.SurfaceImage()), 0);
    plotter.m_indexArray = indices;
    EXPECT_GT(CountInk(plot.SurfaceImage()), 0);
}

TEST_P(SurfaceDrawing, LeavesTheStateOfArraysAndTexturesOff) {
    Take(plotter, HillSurface(9, 7));
    for (const bool lines : {true, false}) {
        plotter.ShowFrameLines(lines);
        const CurrentContext context(plotter);
        glEnable(GL_LIGHTING);
        glEnable(GL_BLEND);
        plotter.RenderSurface();
        EXPECT_TRUE(glIsEnabled(GL_LIGHTING));
        EXPECT_FALSE(glIsEnabled(GL_BLEND));
        EXPECT_FALSE(glIsEnabled(GL_TEXTURE_2D));
        EXPECT_FALSE(glIsEnabled(GL_POLYGON_OFFSET_FILL));
        EXPECT_FALSE(glIsEnabled(GL_VERTEX_ARRAY));
        EXPECT_FALSE(glIsEnabled(GL_COLOR_ARRAY));
        EXPECT_FALSE(glIsEnabled(GL_TEXTURE_COORD_ARRAY));
        GLint bound = -1;
        GLfloat factor = 0, units = 0;
        glGetIntegerv(GL_TEXTURE_BINDING_2D, &bound);
        glGetFloatv(GL_POLYGON_OFFSET_FACTOR, &factor);
        glGetFloatv(GL_POLYGON_OFFSET_UNITS, &units);
        EXPECT_EQ(bound, 0);
        EXPECT_EQ(factor, 1.0f);
        EXPECT_EQ(units, 1.0f);
        EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
    }
}

KIVO_IN_EVERY_WINDOW(SurfaceDrawing);
