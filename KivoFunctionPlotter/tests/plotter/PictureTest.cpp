// The plot as pixels: the presented picture, other sizes, and the state around them.
#include "KivoPicture.h"
#include "support/Image.h"
#include "support/TestOutput.h"
#include "support/TestSurfaces.h"
#include "support/TestWindow.h"

#include <cstdio>
#include <string>
#include <utility>
#include <vector>

using namespace KivoDrawingTools;

namespace {

// A plot that is turned, panned and zoomed.
void Arrange(PlotterProbe& plotter) {
    const TestSurface surface = HillSurface(20, 15);
    plotter.SetData(surface.NewArray(), 20, 15, 1, 20, 3);
    plotter.Rotate(POINT{0, 0}, POINT{41, 17});
    plotter.m_rotationMatrix[12] += 0.1 * plotter.m_viewRight;
    plotter.Zoom(0.8f);
}

void SwitchTo(PlotterProbe& plotter, int type) {
    if (type == 0) plotter.SwitchToNormalPlot();
    if (type == 1) plotter.SwitchToXYProjectPlot();
    if (type == 2) plotter.SwitchToYZProjectPlot();
    if (type == 3) plotter.SwitchToZXProjectPlot();
    ASSERT_EQ(plotter.GetCurrentPlotType(), type);
}

std::vector<double> LayoutOf(const PlotterProbe& p) {
    std::vector<double> values = {p.m_viewLeft, p.m_viewRight, p.m_viewBottom,
                                  p.m_viewTop,  p.m_viewNear,  p.m_viewFar};
    values.push_back(p.m_clientHeight);
    values.push_back(p.m_plotType);
    values.insert(values.end(), p.m_plotViewport, p.m_plotViewport + 4);
    values.insert(values.end(), p.m_legendViewport, p.m_legendViewport + 4);
    values.insert(values.end(), p.m_legendViewVolume, p.m_legendViewVolume + 6);
    values.insert(values.end(), p.m_rotationMatrix, p.m_rotationMatrix + 16);
    values.insert(values.end(), p.m_axisScale, p.m_axisScale + 3);
    values.insert(values.end(), p.m_volumeTranslate, p.m_volumeTranslate + 3);
    values.insert(values.end(), p.m_viewVolumeFactor, p.m_viewVolumeFactor + 3);
    values.insert(values.end(), {p.m_panFractionX, p.m_panFractionY});
    for (const bool isInverse : {p.m_inverseXAxis, p.m_inverseYAxis, p.m_inverseZAxis})
        values.push_back(isInverse);
    return values;
}

class Picture : public WindowTest {
protected:
    TestPlot plot{GetParam(), 320, 240};
    PlotterProbe& plotter = plot.plotter;
};

} // namespace

TEST(Image, IsTheSameAfterWritingAndReadingAFile) {
    Image image(3, 2);
    for (std::size_t i = 0; i < image.rgba.size(); ++i)
        image.rgba[i] = static_cast<unsigned char>(i * 11); // line ends among them
    const std::string path = KivoTest::OutputPath("kivo-image-test.pam");
    ASSERT_TRUE(WritePam(image, path));
    Image read;
    ASSERT_TRUE(ReadPam(path, read));
    EXPECT_EQ(read.width, 3);
    EXPECT_EQ(read.height, 2);
    EXPECT_EQ(read.rgba, image.rgba);
    std::remove(path.c_str());
    EXPECT_FALSE(ReadPam(path, read));
}

TEST(Image, PicturesThatDisagreeAreKeptInTheRunsFolder) {
    Image white(4, 3), black(4, 3);
    white.rgba.assign(white.rgba.size(), 255);
    const std::string path = KivoTest::OutputPath("kivo-image-test");
    EXPECT_NE(std::string(ImagesAgree(white, black, 0, 0, "kivo-image-test").message()).find(path),
              std::string::npos);
    Image read;
    for (const auto& [name, image] : {std::pair{"-actual.pam", white}, {"-expected.pam", black}}) {
        ASSERT_TRUE(ReadPam(path + name, read)) << path << name;
        EXPECT_EQ(read.rgba, image.rgba);
    }
    for (const char* name : {"-actual.pam", "-expected.pam", "-difference.pam"})
        EXPECT_EQ(std::remove((path + name).c_str()), 0) << name;
}

TEST(Image, DifferencesAreMeasured) {
    Image a(10, 1), b(10, 1);
    b.Pixel(4, 0)[1] = 60;
    b.Pixel(5, 0)[3] = 99; // alpha does not count
    EXPECT_EQ(Compare(a, b).max, 60);
    EXPECT_DOUBLE_EQ(Compare(a, b).mean, 2.0);
    EXPECT_TRUE(ImagesAgree(a, b, 60, 2.0, "limits"));
    EXPECT_FALSE(ImagesAgree(a, Image(1, 10), 255, 255, "sizes"));
}

// ---- The window's size

TEST_P(Picture, IsWhatTheWindowShowsInEveryMode) {
    Arrange(plotter);
    for (const int type : {1, 2, 3, 0}) {
        SwitchTo(plotter, type);
        const Image picture = CaptureImage(plotter);
        ASSERT_EQ(picture.width, 320);
        ASSERT_EQ(picture.height, 240);
        EXPECT_EQ(plotter.Renderscene(), 0);
        plot.window.HandleMessages();
        const Image presented = plot.window.Presented(plotter);
        if (presented.rgba.empty()) GTEST_SKIP() << "the window cannot be seen";
        EXPECT_TRUE(ImagesAgree(picture, presented, 0, 0, "presented-" + std::to_string(type)));
    }
}

TEST_P(Picture, HasItsTopRowFirstAndIsOpaque) {
    const TestSurface surface = PlaneSurface(10, 10); // blue below, red above
    plotter.SetData(surface.NewArray(), 10, 10, 1, 10, 3);
    plotter.ShowFrameLines(false);
    const Image image = CaptureImage(plotter);
    double redRows = 0, blueRows = 0;
    int red = 0, blue = 0;
    for (int y = 0; y < 240; ++y)
        for (int x = 60; x < 320; ++x) {
            const unsigned char* p = image.Pixel(x, y);
            if (p[0] > 2 * p[2] && p[0] > 2 * p[1]) redRows += y, ++red;
            if (p[2] > 2 * p[0] && p[2] > 2 * p[1]) blueRows += y, ++blue;
        }
    ASSERT_GT(red, 20);
    ASSERT_GT(blue, 20);
    EXPECT_LT(redRows / red, blueRows / blue);
    EXPECT_EQ(image.Count([](const unsigned char* p) { return p[3] != 255; }), 0);
}

TEST_P(Picture, DoesNotPresentAndLeavesNoContextCurrent) {
    Arrange(plotter);
    plotter.Renderscene();
    const std::vector<double> layout = LayoutOf(plotter);
    CaptureImage(plotter);
    EXPECT_EQ(wglGetCurrentContext(), nullptr);
    EXPECT_EQ(LayoutOf(plotter), layout);
}

TEST_P(Picture, DoesNotDependOnThePackingSetBefore) {
    Arrange(plotter);
    const Image expected = CaptureImage(plotter);
    plotter.BeginGLOperation();
    glPixelStorei(GL_PACK_ALIGNMENT, 8);
    glPixelStorei(GL_PACK_ROW_LENGTH, 999);
    plotter.EndGLOperation();
    const Image image = CaptureImage(plotter);
    plotter.BeginGLOperation();
    GLint alignment = 0, rowLength = 0;
    glGetIntegerv(GL_PACK_ALIGNMENT, &alignment);
    glGetIntegerv(GL_PACK_ROW_LENGTH, &rowLength);
    plotter.EndGLOperation();
    EXPECT_EQ(alignment, 8);
    EXPECT_EQ(rowLength, 999);
    EXPECT_TRUE(ImagesAgree(image, expected, 0, 0, "packing"));
}

// ---- A size of its own

TEST_P(Picture, OfTheWindowsSizeIsTheWindowsPicture) {
    Arrange(plotter);
    EXPECT_TRUE(ImagesAgree(CaptureImage(plotter, 320, 240), CaptureImage(plotter), 0, 0, "own-size"));
}

TEST_P(Picture, OfAnotherSizeIsThatOfAWindowOfThatSize) {
    const int sizes[][2] = {{800, 600}, {333, 500}, {641, 239}, {160, 100}, {320, 241}};
    Arrange(plotter);
    for (const int* size : sizes) {
        const std::string name = std::to_string(size[0]) + "x" + std::to_string(size[1]);
        SCOPED_TRACE(name);
        TestPlot other(GetParam(), size[0], size[1]);
        const TestSurface surface = HillSurface(20, 15);
        other.plotter.SetData(surface.NewArray(), 20, 15, 1, 20, 3);
        std::copy(plotter.m_rotationMatrix, plotter.m_rotationMatrix + 16, other.plotter.m_rotationMatrix);
        other.plotter.Zoom(0.8f);
        // Lines may step by a pixel where a tile begins.
        EXPECT_TRUE(ImagesAgree(CaptureImage(plotter, size[0], size[1]), CaptureImage(other.plotter), 255,
                                0.5, "tiles-" + name));
    }
}

TEST_P(Picture, OfAnotherSizeLeavesThePlotAsItWas) {
    for (const int mode : {0, 1, 2, 3}) {
        Arrange(plotter);
        SwitchTo(plotter, mode);
        const Image before = CaptureImage(plotter);
        const std::vector<double> layout = LayoutOf(plotter);
        CaptureImage(plotter, 700, 300);
        EXPECT_EQ(wglGetCurrentContext(), nullptr);
        EXPECT_EQ(LayoutOf(plotter), layout) << mode;
        EXPECT_TRUE(ImagesAgree(CaptureImage(plotter), before, 0, 0, "afterwards"));
        plotter.SwitchToNormalPlot();
    }
}

TEST_P(Picture, MayBeVeryWideOrHigh) {
    Arrange(plotter);
    for (const bool isWide : {true, false}) {
        const Image image = CaptureImage(plotter, isWide ? 16384 : 8, isWide ? 8 : 16384);
        EXPECT_TRUE(image.IsNear(image.width - 1, 0, {255, 253, 233}));
        EXPECT_TRUE(image.IsNear(image.width - 1, image.height - 1, {255, 253, 233}));
    }
}

TEST_P(Picture, OfARefusedSizeChangesNothing) {
    Arrange(plotter);
    const int sizes[][2] = {{0, 10},     {10, 0},     {-5, 10},          {10, -1},
                            {16385, 10}, {10, 16385}, {1 << 30, 1 << 30}};
    for (const int* size : sizes) {
        std::vector<unsigned char> rgba = {1, 2, 3};
        EXPECT_EQ(CapturePicture(plotter, size[0], size[1], rgba), -3);
        EXPECT_EQ(rgba, (std::vector<unsigned char>{1, 2, 3}));
    }
}

namespace {

void ExpectNoPicture(CKivoFunctionPlotter& plotter) {
    std::vector<unsigned char> rgba = {1, 2, 3};
    int width = 7, height = 8;
    EXPECT_EQ(CapturePicture(plotter, rgba, width, height), -1);
    EXPECT_EQ(width, 7);
    EXPECT_EQ(height, 8);
    EXPECT_EQ(CapturePicture(plotter, 20, 10, rgba), -1);
    EXPECT_EQ(rgba, (std::vector<unsigned char>{1, 2, 3}));
}

} // namespace

TEST_P(Picture, NeedsAWindowAndAContext) {
    PlotterProbe none;
    ExpectNoPicture(none);
    none.OnCreate(nullptr, 320, 240, true);
    ExpectNoPicture(none);
    Arrange(plotter);
    plotter.OnDestroy();
    const std::vector<double> layout = LayoutOf(plotter);
    ExpectNoPicture(plotter);
    EXPECT_EQ(LayoutOf(plotter), layout);
}

// ---- The view of another plotter

TEST_P(Picture, TakesTheViewOfAnother) {
    Arrange(plotter);
    plotter.SetInverseYAxis(true);
    plotter.m_panFractionX = 0.1;
    plotter.m_viewVolumeFactor[2] = 20.0f;
    plotter.m_axisScale[0] *= 1.25; // as a derived class may
    for (const int mode : {0, 1, 2, 3}) {
        SCOPED_TRACE(mode);
        if (mode != 0) SwitchTo(plotter, mode);
        plotter.Zoom(0.9f);
        TestPlot other(GetParam(), 411, 307);
        const TestSurface surface = HillSurface(20, 15);
        other.plotter.SetData(surface.NewArray(), 20, 15, 1, 20, 3);
        EXPECT_NE(LayoutOf(other.plotter), LayoutOf(plotter));
        const std::vector<double> layout = LayoutOf(plotter);
        EXPECT_EQ(TakeView(other.plotter, plotter), 0);
        EXPECT_EQ(wglGetCurrentContext(), nullptr);
        EXPECT_EQ(LayoutOf(plotter), layout);
        EXPECT_EQ(LayoutOf(other.plotter), layout);
        for (const unsigned int matrix : {GL_PROJECTION_MATRIX, GL_MODELVIEW_MATRIX}) {
            plotter.BeginGLOperation();
            plotter.ApplyViewVolume();
            plotter.ApplyModelViewMatrix();
            const Matrix expected = LoadedMatrix(matrix);
            plotter.EndGLOperation();
            const CurrentContext context(other.plotter);
            EXPECT_EQ(LoadedMatrix(matrix), expected);
        }
        EXPECT_TRUE(ImagesAgree(CaptureImage(other.plotter, 320, 240), CaptureImage(plotter, 320, 240), 0, 0,
                                "view-of-another"));
    }
}

TEST_P(Picture, TakesNoViewWhereThereIsNone) {
    Arrange(plotter);
    const std::vector<double> layout = LayoutOf(plotter);
    PlotterProbe none;
    const std::vector<double> layoutOfNone = LayoutOf(none);
    EXPECT_EQ(TakeView(plotter, none), -3);
    EXPECT_EQ(LayoutOf(plotter), layout);
    EXPECT_EQ(TakeView(none, plotter), -1);
    EXPECT_EQ(LayoutOf(none), layoutOfNone);
    EXPECT_EQ(TakeView(plotter, plotter), 0);
    EXPECT_EQ(LayoutOf(plotter), layout);
}

KIVO_IN_EVERY_WINDOW(Picture);
