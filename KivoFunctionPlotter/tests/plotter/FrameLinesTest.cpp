// Frame lines: the list of segments, their drawing, and the picture form.
#include "KivoSurfaces.h"
#include "support/TestSurfaces.h"
#include "support/TestWindow.h"

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

using namespace KivoDrawingTools;

namespace {

using Indices = std::vector<unsigned int>;

Indices Lines(const PlotterProbe& p) {
    return {p.m_framelineIndexArray, p.m_framelineIndexArray + p.m_framelineIndexCount};
}

// A plotter without a window: the list needs none.
struct Grid {
    Grid(unsigned int columns, unsigned int rows) {
        const TestSurface surface = PlaneSurface(columns, rows);
        plotter.SetData(surface.NewArray(), columns, rows, 1, columns, 3);
    }
    PlotterProbe plotter;
};

// The inner lines at multiples of a step; the one a cell before the border is dropped where less than half a
// step would remain there.
std::vector<unsigned int> InnerLines(unsigned int cells, unsigned int step) {
    if (step > cells) step = cells;
    std::vector<unsigned int> lines;
    for (unsigned int line = 1; line < cells; ++line) {
        if (line % step != 0) continue;
        if (line + 1 == cells && cells % step < step / 2) continue;
        lines.push_back(line);
    }
    return lines;
}

Indices ExpectedLines(unsigned int columns, unsigned int rows, unsigned int columnStep,
                      unsigned int rowStep) {
    Indices indices;
    const auto row = [&](unsigned int r) {
        for (unsigned int c = 0; c + 1 < columns; ++c)
            for (const unsigned int end : {c, c + 1})
                indices.push_back(r * columns + end);
    };
    const auto column = [&](unsigned int c) {
        for (unsigned int r = 0; r + 1 < rows; ++r)
            for (const unsigned int end : {r, r + 1})
                indices.push_back(end * columns + c);
    };
    row(0);
    row(rows - 1);
    column(0);
    column(columns - 1);
    for (const unsigned int r : InnerLines(rows - 1, rowStep))
        row(r);
    for (const unsigned int c : InnerLines(columns - 1, columnStep))
        column(c);
    return indices;
}

bool IsMagenta(const unsigned char* pixel) {
    return pixel[0] == 255 && pixel[1] == 0 && pixel[2] == 255;
}

} // namespace

TEST(FrameLines, EveryLineOfAGridOfThreeByThree) {
    Grid grid(3, 3);
    EXPECT_EQ(Lines(grid.plotter), (Indices{0, 1, 1, 2, 6, 7, 7, 8, 0, 3, 3, 6, //
                                            2, 5, 5, 8, 3, 4, 4, 5, 1, 4, 4, 7}));
    EXPECT_EQ(grid.plotter.m_framelineIndexCount, 24);
}

TEST(FrameLines, TheSmallestGridHasItsBorders) {
    Grid grid(2, 2);
    EXPECT_EQ(Lines(grid.plotter), (Indices{0, 1, 2, 3, 0, 2, 1, 3}));
}

TEST(FrameLines, AThinStripBeforeTheBorderIsAvoided) {
    Grid grid(10, 2);
    grid.plotter.SetFrameLineStep(4, 1);
    // Columns 0, 9 and 4; column 8 would leave one cell of four.
    EXPECT_EQ(Lines(grid.plotter).size(), 2u * (9 + 9 + 3));
    EXPECT_EQ(Lines(grid.plotter).back(), 14u);
    grid.plotter.SetFrameLineStep(2, 1);
    EXPECT_EQ(Lines(grid.plotter).size(), 2u * (9 + 9 + 2 + 4)) << "columns 2, 4, 6 and 8";
}

TEST(FrameLines, AllSizesAndSteps) {
    for (unsigned int columns = 2; columns < 13; ++columns)
        for (unsigned int rows = 2; rows < 13; ++rows) {
            Grid grid(columns, rows);
            for (const unsigned int columnStep : {1u, 2u, 3u, 4u, 5u, 7u, 11u, 100u})
                for (const unsigned int rowStep : {1u, 2u, 4u, 6u, 4000000000u}) {
                    grid.plotter.SetFrameLineStep(columnStep, rowStep);
                    ASSERT_EQ(Lines(grid.plotter), ExpectedLines(columns, rows, columnStep, rowStep))
                        << columns << " x " << rows << ", steps " << columnStep << ' ' << rowStep;
                }
        }
}

TEST(FrameLines, StepsBeyondTheGridLeaveTheBorders) {
    Grid grid(6, 5);
    grid.plotter.SetFrameLineStep(5, 4);
    EXPECT_EQ(Lines(grid.plotter).size(), 2u * (5 + 5 + 4 + 4));
    grid.plotter.SetFrameLineStep(99, 99);
    EXPECT_EQ(Lines(grid.plotter).size(), 2u * (5 + 5 + 4 + 4));
}

TEST(FrameLines, AStepOfNothingDrawsNoLines) {
    Grid grid(6, 5);
    for (const auto& [columnStep, rowStep] : {std::pair<unsigned int, unsigned int>{0, 1}, {1, 0}, {0, 0}}) {
        grid.plotter.AssignFramelineIndexData();
        EXPECT_GT(grid.plotter.m_framelineIndexCount, 0);
        grid.plotter.SetFrameLineStep(columnStep, rowStep);
        EXPECT_EQ(grid.plotter.m_framelineIndexCount, 0);
    }
}

TEST(FrameLines, WithoutCellsThereAreNoLines) {
    PlotterProbe none;
    none.SetFrameLineStep(1, 1);
    EXPECT_EQ(none.m_framelineIndexCount, 0);
    for (const auto& [columns, rows] : {std::pair<unsigned int, unsigned int>{1, 5}, {5, 1}, {1, 1}}) {
        Grid grid(columns, rows);
        EXPECT_EQ(grid.plotter.m_framelineIndexCount, 0);
        grid.plotter.SetFrameLineStep(2, 2);
        EXPECT_EQ(grid.plotter.m_framelineIndexCount, 0);
    }
}

TEST(FrameLines, NewDataAndTheShortFormGoBackToStepsOfOne) {
    Grid grid(6, 5);
    const Indices all = Lines(grid.plotter);
    grid.plotter.SetFrameLineStep(2, 2);
    EXPECT_NE(Lines(grid.plotter), all);
    grid.plotter.AssignFramelineIndexData();
    EXPECT_EQ(Lines(grid.plotter), all);
    grid.plotter.SetFrameLineStep(2, 2);
    grid.plotter.SetData(PlaneSurface(6, 5).NewArray(), 6, 5, 1, 6, 3);
    EXPECT_EQ(Lines(grid.plotter), all);
}

TEST(FrameLines, HiddenLinesAreListedAllTheSame) {
    PlotterProbe plotter;
    plotter.ShowFrameLines(false);
    EXPECT_FALSE(plotter.IsShowFrameLines());
    plotter.SetData(PlaneSurface(3, 3).NewArray(), 3, 3, 1, 3, 3);
    EXPECT_EQ(plotter.m_framelineIndexCount, 24);
}

TEST(FrameLines, TheColourIsPackedWithRedInTheLowByte) {
    PlotterProbe plotter;
    plotter.SetFrameLineColor(0x00804020ul);
    const float expected[] = {32 / 255.0f, 64 / 255.0f, 128 / 255.0f, 1};
    for (int i = 0; i < 4; ++i)
        EXPECT_FLOAT_EQ(plotter.m_framelineColor[i], expected[i]);
}

// ---- Drawing

namespace {

class FrameLineDrawing : public WindowTest {
protected:
    FrameLineDrawing() {
        const TestSurface surface = HillSurface(9, 7);
        plotter.SetData(surface.NewArray(), 9, 7, 1, 9, 3);
        plotter.SetFrameLineColor(0x00FF00FFul);
    }

    TestPlot plot{GetParam(), 500, 420};
    PlotterProbe& plotter = plot.plotter;
};

} // namespace

TEST_P(FrameLineDrawing, LinesHaveTheirColourWhateverTheLight) {
    const int all = plot.SurfaceImage().Count(IsMagenta);
    EXPECT_GT(all, 500);
    plotter.SetFrameLineStep(100, 100);
    const int borders = plot.SurfaceImage().Count(IsMagenta);
    EXPECT_GT(borders, 100);
    EXPECT_LT(borders, all / 2);
    plotter.ShowFrameLines(false);
    EXPECT_EQ(plot.SurfaceImage().Count(IsMagenta), 0);
}

// The offset does not depend on the lines: beside them the surface has the same depth with and without.
TEST_P(FrameLineDrawing, TheSurfaceIsPushedBackWhetherLinesShowOrNot) {
    const auto draw = [this](bool isShown, Image& image) {
        plotter.ShowFrameLines(isShown);
        image = plot.SurfaceImage();
        const CurrentContext context(plotter);
        std::vector<float> depths(static_cast<std::size_t>(image.width) * image.height);
        glReadPixels(0, 0, image.width, image.height, GL_DEPTH_COMPONENT, GL_FLOAT, depths.data());
        return depths;
    };
    Image lines, bare;
    const std::vector<float> withLines = draw(true, lines), withoutLines = draw(false, bare);
    int beside = 0, under = 0;
    for (int y = 0; y < lines.height; ++y)
        for (int x = 0; x < lines.width; ++x) {
            const std::size_t i = static_cast<std::size_t>(lines.height - 1 - y) * lines.width + x;
            if (withoutLines[i] == 1.0f) continue; // no surface
            if (IsMagenta(lines.Pixel(x, y))) {
                under += withoutLines[i] > withLines[i] ? 1 : 0;
            } else {
                ++beside;
                ASSERT_EQ(withoutLines[i], withLines[i]) << x << ' ' << y;
            }
        }
    EXPECT_GT(beside, 5000);
    EXPECT_GT(under, 500) << "lines stand before the surface";
}

namespace {

// The picture's pixels of one row or column that are dark, in a band between two lines across it.
std::vector<int> DarkPixels(const unsigned char* texels, bool isRow, int at) {
    std::vector<int> dark;
    for (int i = 0; i < 400; ++i) {
        const unsigned char* texel = texels + (isRow ? at * 400 + i : i * 400 + at) * 4;
        const int level = texel[0];
        EXPECT_TRUE(level == 255 || level == 51) << level;
        EXPECT_TRUE(texel[1] == level && texel[2] == level);
        if (level == 51) dark.push_back(i);
    }
    return dark;
}

// Lines stand on the corners of pixels, so each may come out on either side of its place.
void ExpectLines(const std::vector<int>& dark) {
    for (int line = 1; line < 20; ++line)
        EXPECT_EQ(std::count(dark.begin(), dark.end(), 20 * line) +
                      std::count(dark.begin(), dark.end(), 20 * line - 1),
                  1)
            << line;
    for (const int i : dark)
        EXPECT_TRUE(i % 20 == 0 || i % 20 == 19 || i <= 1) << i;
}

} // namespace

TEST_P(FrameLineDrawing, ThePictureFormIsAGridOfTwentyCells) {
    const CurrentContext context(plotter);
    plotter.CreateFramelineSKivoTexImage();
    EXPECT_EQ(plotter.m_framelineTexWidth, 400);
    EXPECT_EQ(plotter.m_framelineTexHeight, 400);
    EXPECT_NE(plotter.m_framelineTexId, 0u);
    ASSERT_NE(plotter.m_framelineTexels, nullptr);
    for (const int between : {10, 130, 390}) {
        const std::vector<int> across = DarkPixels(plotter.m_framelineTexels, true, between);
        ExpectLines(across);
        EXPECT_TRUE(!across.empty() && across.front() <= 1) << "the left border lies inside";
        ExpectLines(DarkPixels(plotter.m_framelineTexels, false, between));
    }
}

TEST_P(FrameLineDrawing, ThePictureFormPutsTheStateBack) {
    const CurrentContext context(plotter);
    glViewport(3, 4, 55, 66);
    glClearColor(0.125f, 0.25f, 0.5f, 1);
    plotter.ApplyModelViewMatrix();
    glMatrixMode(GL_TEXTURE);
    const Matrix projection = LoadedMatrix(GL_PROJECTION_MATRIX), camera = LoadedMatrix(GL_MODELVIEW_MATRIX);
    GLint buffer = 0, bufferAfter = 0, mode = 0, viewport[4] = {};
    glGetIntegerv(GL_READ_BUFFER, &buffer);
    plotter.CreateFramelineSKivoTexImage();
    GLfloat clear[4] = {};
    glGetIntegerv(GL_READ_BUFFER, &bufferAfter);
    glGetIntegerv(GL_MATRIX_MODE, &mode);
    glGetIntegerv(GL_VIEWPORT, viewport);
    glGetFloatv(GL_COLOR_CLEAR_VALUE, clear);
    EXPECT_EQ(bufferAfter, buffer);
    EXPECT_EQ(mode, GL_TEXTURE);
    EXPECT_EQ((std::vector<int>(viewport, viewport + 4)), (std::vector<int>{3, 4, 55, 66}));
    EXPECT_EQ((std::vector<float>(clear, clear + 4)), (std::vector<float>{0.125f, 0.25f, 0.5f, 1}));
    EXPECT_EQ(LoadedMatrix(GL_PROJECTION_MATRIX), projection);
    EXPECT_EQ(LoadedMatrix(GL_MODELVIEW_MATRIX), camera);
    EXPECT_TRUE(glIsEnabled(GL_LIGHTING));
    EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
}

// As if the step had been set once they are there.
TEST(FrameLines, OfNewDataKeepAStep) {
    const TestSurface surface = PlaneSurface(40, 31);
    PlotterProbe plotter;
    const auto show = [&] { plotter.SetData(surface.NewArray(), 40, 31, 1, 40, 3); };
    show();
    EXPECT_EQ(KeepFrameLineStep(plotter, 7, 4), 0);
    EXPECT_EQ(Lines(plotter), ExpectedLines(40, 31, 1, 1)) << "lines that are there stay";
    show();
    EXPECT_EQ(Lines(plotter), ExpectedLines(40, 31, 7, 4));
    plotter.SetFrameLineStep(2, 3);
    EXPECT_EQ(Lines(plotter), ExpectedLines(40, 31, 2, 3));
    plotter.OnDestroy();
    show();
    EXPECT_EQ(Lines(plotter), ExpectedLines(40, 31, 7, 4)) << "through OnDestroy";
    SKivoSurface looks;
    ASSERT_EQ(GetSurface(plotter, 0, &looks), 0);
    EXPECT_EQ(looks.frameLineStep[0], 7u);
    for (const auto& [columnStep, rowStep] : {std::pair{0u, 4u}, std::pair{7u, 0u}}) {
        KeepFrameLineStep(plotter, 7, 4);
        KeepFrameLineStep(plotter, columnStep, rowStep);
        show();
        EXPECT_EQ(Lines(plotter), ExpectedLines(40, 31, 1, 1)) << "as at first";
    }
}

TEST_P(FrameLineDrawing, ThePictureFormIsMadeWithTheDataAndLaidOverTheSurface) {
    const TestSurface surface = ConstantSurface(3, 3);
    plotter.m_useFramelineTexture = true;
    plotter.SetData(surface.NewArray(), 3, 3, 1, 3, 3);
    EXPECT_EQ(wglGetCurrentContext(), nullptr);
    ASSERT_NE(plotter.m_framelineTexId, 0u);
    // The blue of the surface, darkened where the grid lies; linear filtering gives all levels between.
    const auto darkened = [](const unsigned char* p) { return p[0] == 0 && p[1] == 0 && p[2] < 200; };
    const auto plain = [](const unsigned char* p) { return p[0] == 0 && p[1] == 0 && p[2] == 255; };
    const Image image = plot.SurfaceImage();
    EXPECT_GT(image.Count(darkened), 300);
    EXPECT_GT(image.Count(plain), 300);
    EXPECT_EQ(image.Count(IsMagenta), 0) << "no segments besides";
    plotter.ShowFrameLines(false);
    const Image hidden = plot.SurfaceImage();
    EXPECT_EQ(hidden.Count(darkened), 0);
    const unsigned int name = plotter.m_framelineTexId;
    plotter.ReleaseDataRelativeResource();
    EXPECT_EQ(plotter.m_framelineTexId, 0u);
    EXPECT_EQ(plotter.m_framelineIndexCount, 0);
    const CurrentContext context(plotter);
    EXPECT_FALSE(glIsTexture(name));
}

KIVO_IN_ONE_WINDOW(FrameLineDrawing);
