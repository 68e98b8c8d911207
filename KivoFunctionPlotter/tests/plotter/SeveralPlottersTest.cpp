// Several plotters in one process, several windows of one plotter, and a host that draws with OpenGL itself.
#include "support/Image.h"
#include "support/TestSurfaces.h"
#include "support/TestWindow.h"

#include <future>
#include <memory>

using namespace KivoDrawingTools;

namespace {

constexpr int width = 240;
constexpr int height = 180;

void SetSurface(CKivoFunctionPlotter& plotter, const TestSurface& surface) {
    plotter.SetData(surface.NewArray(), surface.columns, surface.rows, 1, surface.columns, 3);
}

constexpr int pictureCount = 6;

// What a plotter shows first, and then after each turn.
Image Picture(PlotterProbe& plotter, const TestSurface& surface, int number) {
    if (number == 0) {
        SetSurface(plotter, surface);
        plotter.ShowZIsoContours(true);
        plotter.SetPlotTitle(surface.name.c_str());
    } else {
        plotter.Rotate({60, 50}, {60 + 4 * number, 58});
    }
    return CaptureImage(plotter);
}

std::vector<Image> PicturesOf(PlotterProbe& plotter, const TestSurface& surface) {
    std::vector<Image> pictures;
    for (int i = 0; i < pictureCount; ++i)
        pictures.push_back(Picture(plotter, surface, i));
    return pictures;
}

// What a plotter shows that has the process to itself.
std::vector<Image> PicturesAlone(WindowKind kind, const TestSurface& surface) {
    TestPlot plot(kind, width, height);
    return PicturesOf(plot.plotter, surface);
}

void ExpectSamePictures(const std::vector<Image>& actual, const std::vector<Image>& expected,
                        const char* name) {
    ASSERT_EQ(actual.size(), expected.size());
    for (std::size_t i = 0; i < actual.size(); ++i)
        EXPECT_TRUE(ImagesAgree(actual[i], expected[i], 0, 0, name)) << i;
}

class SeveralPlotters : public WindowTest {
protected:
    TestSurface hill = HillSurface(12, 10);
    TestSurface saddle = SaddleSurface(9, 14);
};

} // namespace

TEST_P(SeveralPlotters, TwoInOneThreadKeepApart) {
    const std::vector<Image> hillAlone = PicturesAlone(GetParam(), hill);
    const std::vector<Image> saddleAlone = PicturesAlone(GetParam(), saddle);
    TestPlot first(GetParam(), width, height), second(GetParam(), width, height);
    for (int i = 0; i < pictureCount; ++i) {
        const Image firstPicture = Picture(first.plotter, hill, i);
        EXPECT_TRUE(ImagesAgree(Picture(second.plotter, saddle, i), saddleAlone[i], 0, 0, "second")) << i;
        EXPECT_TRUE(ImagesAgree(firstPicture, hillAlone[i], 0, 0, "first")) << i;
        EXPECT_EQ(wglGetCurrentContext(), nullptr);
    }
}

TEST_P(SeveralPlotters, OneIsDestroyedAndTheOtherGoesOn) {
    const std::vector<Image> expected = PicturesAlone(GetParam(), hill);
    TestPlot survivor(GetParam(), width, height);
    {
        TestPlot other(GetParam(), width, height);
        SetSurface(other.plotter, saddle);
        EXPECT_EQ(other.plotter.Renderscene(), 0);
        EXPECT_EQ(survivor.plotter.Renderscene(), 0);
    }
    ExpectSamePictures(PicturesOf(survivor.plotter, hill), expected, "survivor");
}

TEST_P(SeveralPlotters, OnePlotterMovesFromWindowToWindow) {
    // Lights stand where the camera of the moment puts them: a frame and the data again make all lives alike.
    const auto settledPicture = [&](PlotterProbe& plotter) {
        SetSurface(plotter, hill);
        EXPECT_EQ(plotter.Renderscene(), 0);
        return Picture(plotter, hill, 0);
    };
    TestPlot alone(GetParam(), width, height);
    const Image expected = settledPicture(alone.plotter);
    const TestWindow windows[] = {{GetParam(), width, height}, {GetParam(), width, height}};
    PlotterProbe plotter;
    for (const bool isDestroyedBetween : {true, false})
        for (const TestWindow& window : windows) {
            ASSERT_EQ(plotter.OnCreate(window.Handle(), width, height, true), 0) << LastWindowError();
            EXPECT_TRUE(ImagesAgree(settledPicture(plotter), expected, 0, 0, "moved"));
            if (isDestroyedBetween) {
                EXPECT_EQ(plotter.OnDestroy(), 0);
            }
        }
    plotter.OnDestroy();
}

TEST_P(SeveralPlotters, OneWindowServesOnePlotterAfterAnother) {
    const std::vector<Image> expected = PicturesAlone(GetParam(), saddle);
    const TestWindow window(GetParam(), width, height);
    for (int i = 0; i < 3; ++i) {
        PlotterProbe plotter;
        ASSERT_EQ(plotter.OnCreate(window.Handle(), width, height, true), 0) << LastWindowError();
        ExpectSamePictures(PicturesOf(plotter, saddle), expected, "one after another");
        EXPECT_EQ(plotter.OnDestroy(), 0);
    }
}

TEST_P(SeveralPlotters, OneInEachOfTwoThreads) {
    const std::vector<Image> hillAlone = PicturesAlone(GetParam(), hill);
    const std::vector<Image> saddleAlone = PicturesAlone(GetParam(), saddle);
    for (int i = 0; i < 3; ++i) {
        auto first = std::async(std::launch::async, PicturesAlone, GetParam(), hill);
        auto second = std::async(std::launch::async, PicturesAlone, GetParam(), saddle);
        ExpectSamePictures(first.get(), hillAlone, "first thread");
        ExpectSamePictures(second.get(), saddleAlone, "second thread");
    }
}

// A host that draws with OpenGL itself: its context is replaced by a call and is as it was when it comes
// back.
TEST_P(SeveralPlotters, AHostsOwnContextIsLeftAlone) {
    const std::vector<Image> expected = PicturesAlone(GetParam(), hill);
    TestPlot host(GetParam(), 64, 48); // its context stands for the host's
    TestPlot plot(GetParam(), width, height);
    const auto makeCurrent = [&] { return wglMakeCurrent(host.plotter.m_hDC, host.plotter.m_hGLRC); };
    ASSERT_TRUE(makeCurrent());
    GLuint texture = 0;
    glGenTextures(1, &texture);
    glBindTexture(GL_TEXTURE_2D, texture);
    glClearColor(0.25f, 0.5f, 0.75f, 1.0f);
    glEnable(GL_SCISSOR_TEST);

    SetSurface(plot.plotter, hill);
    EXPECT_EQ(wglGetCurrentContext(), nullptr) << "members release the context";
    ASSERT_TRUE(makeCurrent());
    ExpectSamePictures(PicturesOf(plot.plotter, hill), expected, "beside the host");
    ASSERT_TRUE(makeCurrent());
    EXPECT_EQ(plot.plotter.OnDestroy(), 0);

    ASSERT_TRUE(makeCurrent());
    GLint bound = 0;
    float color[4] = {};
    glGetIntegerv(GL_TEXTURE_BINDING_2D, &bound);
    glGetFloatv(GL_COLOR_CLEAR_VALUE, color);
    EXPECT_EQ(bound, static_cast<GLint>(texture));
    EXPECT_TRUE(glIsTexture(texture));
    EXPECT_EQ(color[1], 0.5f);
    EXPECT_TRUE(glIsEnabled(GL_SCISSOR_TEST));
    EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
    wglMakeCurrent(nullptr, nullptr);
}

KIVO_IN_EVERY_WINDOW(SeveralPlotters);
