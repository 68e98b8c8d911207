// Binding to a window: results, OpenGL state, pixel format, fonts, viewports.
#include "parts/KivoGradientColorRuler.h"
#include "parts/KivoGridBox.h"
#include "parts/TextRenderer.h"
#include "support/Image.h"
#include "support/TestSurfaces.h"
#include "support/TestWindow.h"

#include <cmath>
#include <cstring>
#include <limits>
#include <string>
#include <vector>

using namespace KivoDrawingTools;

namespace {

std::vector<float> Floats(GLenum name, std::size_t count) {
    std::vector<float> values(count);
    glGetFloatv(name, values.data());
    return values;
}

GLint Integer(GLenum name) {
    GLint value = -1;
    glGetIntegerv(name, &value);
    return value;
}

std::vector<int> Viewport(const int* viewport) {
    return {viewport, viewport + 4};
}

bool IsDark(const unsigned char* pixel) {
    return pixel[0] < 128;
}

class ContextInWindow : public WindowTest {
protected:
    // Black on white from a quarter of the picture's width on, one list for each byte.
    static Image DrawWithLists(GLuint base, const std::string& text) {
        glDisable(GL_LIGHTING);
        glDisable(GL_DEPTH_TEST);
        glViewport(0, 0, 400, 240);
        for (const GLenum mode : {GL_PROJECTION, GL_MODELVIEW}) {
            glMatrixMode(mode);
            glLoadIdentity();
        }
        glClearColor(1, 1, 1, 1);
        glClear(GL_COLOR_BUFFER_BIT);
        glColor3f(0, 0, 0);
        glRasterPos2f(-0.5f, 0);
        glListBase(base);
        glCallLists(static_cast<GLsizei>(text.size()), GL_UNSIGNED_BYTE, text.data());
        return ReadBuffer(GL_BACK, 400, 240);
    }

    TestPlot plot{GetParam(), 400, 240};
    PlotterProbe& plotter = plot.plotter;
};

} // namespace

// ---- OnCreate

TEST(OnCreate, ANullWindowIsRefusedAndLaidOutAllTheSame) {
    PlotterProbe plotter;
    EXPECT_EQ(plotter.OnCreate(nullptr, true), -1);
    EXPECT_EQ(plotter.m_plotViewport[2], 0);
    EXPECT_EQ(plotter.OnCreate(nullptr, 400, 240, true), -1);
    EXPECT_EQ(plotter.m_clientHeight, 240);
    EXPECT_EQ(Viewport(plotter.m_plotViewport), (std::vector<int>{64, 0, 336, 240}));
    EXPECT_EQ(plotter.OnCreate(nullptr, 100, 50, 12, false), -1);
    EXPECT_EQ(Viewport(plotter.m_plotViewport), (std::vector<int>{16, 0, 84, 50}));
    EXPECT_EQ(wglGetCurrentContext(), nullptr);
    EXPECT_EQ(plotter.OnDestroy(), 0);
}

TEST(OnCreate, InitFontNeedsAContext) {
    PlotterProbe plotter;
    EXPECT_EQ(plotter.InitFont(), -1);
    EXPECT_EQ(plotter.SetFont(nullptr), 0);
    EXPECT_NE(plotter.SetDCPixelFormat(nullptr, true), 0);
}

TEST_P(ContextInWindow, OnCreateBindsTheWindowAndLeavesNoContextCurrent) {
    EXPECT_EQ(plotter.m_hWnd, plot.window.Handle());
    EXPECT_NE(plotter.m_hDC, nullptr);
    EXPECT_NE(plotter.m_hGLRC, nullptr);
    EXPECT_EQ(wglGetCurrentContext(), nullptr);
    EXPECT_EQ(plotter.Renderscene(), 0);
    EXPECT_EQ(wglGetCurrentContext(), nullptr);
}

TEST_P(ContextInWindow, TheShortestFormDoesNotLayOut) {
    for (const bool accelerated : {true, false}) {
        TestWindow window(GetParam(), 64, 48);
        PlotterProbe other;
        EXPECT_EQ(other.OnCreate(window.Handle(), accelerated), 0);
        EXPECT_EQ(Viewport(other.m_plotViewport), (std::vector<int>{0, 0, 0, 1}));
        EXPECT_EQ(wglGetCurrentContext(), nullptr);
        other.OnSize(0, 64, 48);
        EXPECT_EQ(other.Renderscene(), 0);
        other.OnDestroy();
    }
}

TEST_P(ContextInWindow, BeginAndEndBracketTheContext) {
    plotter.BeginGLOperation();
    EXPECT_EQ(wglGetCurrentContext(), plotter.m_hGLRC);
    plotter.EndGLOperation();
    EXPECT_EQ(wglGetCurrentContext(), nullptr);
}

TEST_P(ContextInWindow, OnCreateGoesBackToTheStartValues) {
    TestWindow window(GetParam(), 64, 48);
    PlotterProbe other;
    other.m_plotType = 2;
    other.m_traceEnabled = true;
    other.m_hasTracePoint = 1;
    other.SetBackgroundColor(0x00FFFFFFul);
    ASSERT_EQ(other.OnCreate(window.Handle(), true), 0);
    EXPECT_EQ(other.GetCurrentPlotType(), 0);
    EXPECT_FALSE(other.m_traceEnabled);
    EXPECT_EQ(other.m_hasTracePoint, 0);
    EXPECT_EQ(other.m_backgroundColor[2], 233.0f / 255.0f);
    other.OnDestroy();
}

TEST_P(ContextInWindow, HelpersGetTheTextRendererAndTheirGradients) {
    EXPECT_EQ(plotter.m_gridBox->m_textMaker, plotter.m_textRenderer);
    const std::pair<CKivoGradientColorRuler*, CKivoGradientColor*> rulers[] = {
        {plotter.m_xColorRuler, plotter.m_xGradientColor},
        {plotter.m_yColorRuler, plotter.m_yGradientColor},
        {plotter.m_zColorRuler, plotter.m_zGradientColor}};
    for (const auto& [ruler, gradient] : rulers) {
        EXPECT_EQ(ruler->m_textRenderer, plotter.m_textRenderer);
        EXPECT_EQ(ruler->m_gradient, gradient);
        EXPECT_EQ(ruler->m_divisionCount, 10u);
    }
}

// ---- State

TEST_P(ContextInWindow, StateAfterOnCreate) {
    const CurrentContext context(plotter);
    EXPECT_EQ(Floats(GL_COLOR_CLEAR_VALUE, 4), (std::vector<float>{1.0f, 253 / 255.0f, 233 / 255.0f, 1.0f}));
    EXPECT_EQ(Floats(GL_DEPTH_CLEAR_VALUE, 1)[0], 1.0f);
    EXPECT_TRUE(glIsEnabled(GL_DEPTH_TEST));
    EXPECT_EQ(Integer(GL_SHADE_MODEL), GL_SMOOTH);
    EXPECT_EQ(Integer(GL_MATRIX_MODE), GL_MODELVIEW);
    EXPECT_TRUE(glIsEnabled(GL_LIGHTING));
    EXPECT_TRUE(glIsEnabled(GL_LIGHT0));
    EXPECT_FALSE(glIsEnabled(GL_LIGHT1));
    EXPECT_EQ(Integer(GL_LIGHT_MODEL_LOCAL_VIEWER), 0);
    EXPECT_EQ(Integer(GL_LIGHT_MODEL_TWO_SIDE), 1);
    EXPECT_TRUE(glIsEnabled(GL_COLOR_MATERIAL));
    EXPECT_EQ(Integer(GL_COLOR_MATERIAL_FACE), GL_FRONT_AND_BACK);
    EXPECT_EQ(Integer(GL_COLOR_MATERIAL_PARAMETER), GL_AMBIENT_AND_DIFFUSE);
}

TEST_P(ContextInWindow, MaterialAndLight) {
    const CurrentContext context(plotter);
    for (const GLenum face : {GL_FRONT, GL_BACK}) {
        std::vector<float> specular(4), shininess(1), ambient(4);
        glGetMaterialfv(face, GL_SPECULAR, specular.data());
        glGetMaterialfv(face, GL_SHININESS, shininess.data());
        EXPECT_EQ(specular, (std::vector<float>{0.11f, 0.11f, 0.11f, 1.0f}));
        EXPECT_EQ(shininess[0], 0.0f);
        // The rest follows the current colour.
        glColor4f(0.25f, 0.5f, 0.75f, 1.0f);
        glGetMaterialfv(face, GL_AMBIENT, ambient.data());
        EXPECT_EQ(ambient, (std::vector<float>{0.25f, 0.5f, 0.75f, 1.0f}));
    }
    std::vector<float> ambient(4), diffuse(4), specular(4), position(4);
    glGetLightfv(GL_LIGHT0, GL_AMBIENT, ambient.data());
    glGetLightfv(GL_LIGHT0, GL_DIFFUSE, diffuse.data());
    glGetLightfv(GL_LIGHT0, GL_SPECULAR, specular.data());
    glGetLightfv(GL_LIGHT0, GL_POSITION, position.data());
    EXPECT_EQ(ambient, (std::vector<float>{0.65f, 0.65f, 0.65f, 1.0f}));
    EXPECT_EQ(diffuse, (std::vector<float>{0.2f, 0.2f, 0.2f, 1.0f}));
    EXPECT_EQ(specular, (std::vector<float>{0.4f, 0.4f, 0.4f, 1.0f}));
    EXPECT_EQ(position, (std::vector<float>{0.8f, 1.0f, 1.0f, 1.0f}));
}

namespace {

// As axes without ranges have a view without numbers, the lights stand as without one.
TEST_P(ContextInWindow, TheFirstDataPlaceTheLightsAtFinitePoints) {
    const TestSurface surface = HillSurface(8, 6);
    plotter.SetData(surface.NewArray(), 8, 6, 1, 8, 3);
    plotter.OnDraw();
    const CurrentContext context(plotter);
    const auto positionOf = [](GLenum light) {
        std::vector<float> position(4);
        glGetLightfv(light, GL_POSITION, position.data());
        return position;
    };
    const float *low = plotter.m_boundingBoxMin, *high = plotter.m_boundingBoxMax;
    EXPECT_EQ(positionOf(GL_LIGHT0),
              (std::vector<float>{high[0] * 1.2f, high[1] * 1.2f, high[2] * 1.8f, 1.0f}));
    EXPECT_EQ(positionOf(GL_LIGHT1),
              (std::vector<float>{low[0] * 1.2f, low[1] * 1.2f, high[2] * 1.8f, 1.0f}));
}

class OwnLighting : public PlotterProbe {
public:
    int InitLighting() override {
        ++calls;
        hadContext = wglGetCurrentContext() == m_hGLRC && m_hGLRC;
        return -7; // dropped
    }
    int InitCustomized() override {
        ++customized;
        return 0;
    }
    int calls = 0;
    int customized = 0;
    bool hadContext = false;
};

} // namespace

TEST_P(ContextInWindow, ADerivedClassLightsInItsOwnWay) {
    TestWindow window(GetParam(), 64, 48);
    OwnLighting other;
    ASSERT_EQ(other.OnCreate(window.Handle(), 64, 48, true), 0);
    EXPECT_EQ(other.calls, 1);
    EXPECT_TRUE(other.hadContext);
    EXPECT_EQ(other.customized, 0) << "the plotter never calls it";
    const CurrentContext context(other);
    EXPECT_FALSE(glIsEnabled(GL_LIGHTING));
}

namespace {

class EvenLighting : public PlotterProbe {
public:
    int InitLighting() override {
        PlotterProbe::InitLighting();
        const GLfloat even[] = {0.8f, 0.8f, 0.8f, 1.0f};
        const GLfloat none[] = {0.0f, 0.0f, 0.0f, 1.0f};
        glLightfv(GL_LIGHT0, GL_AMBIENT, even);
        glLightfv(GL_LIGHT0, GL_DIFFUSE, none);
        glLightfv(GL_LIGHT0, GL_SPECULAR, none);
        return 0;
    }
};

} // namespace

// OpenGL's own ambient light of 0.2 makes the rest.
TEST_P(ContextInWindow, AmbientLightOfFourFifthsShowsTheColoursOfTheGradient) {
    TestWindow window(GetParam(), 320, 240);
    TestSurface surface = HillSurface(12, 10);
    EvenLighting even;
    ASSERT_EQ(even.OnCreate(window.Handle(), 320, 240, true), 0);
    even.SetDataReference(surface.points.data(), surface.columns, surface.rows, 1, surface.columns, 3);
    even.ShowFrameLines(false);
    const int rgb[] = {153, 102, 51};
    even.SetZGradientStartColor(0x00336699);
    even.SetZGradientEndColor(0x00336699);
    const Image image = CaptureImage(even);
    int shown = 0, others = 0;
    for (int y = 0; y < image.height; ++y)
        for (int x = 60; x < image.width; ++x) { // the legend is on the left
            const unsigned char* const pixel = image.Pixel(x, y);
            const bool isBrown = pixel[0] > pixel[1] + 20 && pixel[1] > pixel[2] + 20;
            (image.IsNear(x, y, rgb, 2) ? shown : others) += isBrown ? 1 : 0;
        }
    EXPECT_GT(shown, 1000);
    EXPECT_EQ(others, 0);
}

TEST(OnCreate, TheHooksReturnZero) {
    PlotterProbe plotter;
    EXPECT_EQ(plotter.InitCustomized(), 0);
}

// ---- Pixel format

TEST_P(ContextInWindow, ThePixelFormatIsWhatDrawingNeeds) {
    // A window takes its own format again and no other.
    PIXELFORMATDESCRIPTOR descriptor = {};
    const int count = DescribePixelFormat(plotter.m_hDC, 1, sizeof(descriptor), &descriptor);
    ASSERT_GE(count, 1);
    int taken = 0;
    for (int format = 1; format <= count; ++format) {
        PIXELFORMATDESCRIPTOR candidate = {};
        DescribePixelFormat(plotter.m_hDC, format, sizeof(candidate), &candidate);
        if (!SetPixelFormat(plotter.m_hDC, format, &candidate)) continue;
        ++taken;
        descriptor = candidate;
    }
    EXPECT_EQ(taken, 1);
    EXPECT_TRUE(descriptor.dwFlags & PFD_SUPPORT_OPENGL);
    EXPECT_TRUE(descriptor.dwFlags & PFD_DRAW_TO_WINDOW);
    EXPECT_EQ(descriptor.iPixelType, PFD_TYPE_RGBA);
    EXPECT_GE(int{descriptor.cColorBits}, 24);
    EXPECT_GE(int{descriptor.cDepthBits}, 24);
    EXPECT_GE(int{descriptor.cStencilBits}, 8);
    const CurrentContext context(plotter);
    EXPECT_EQ(Integer(GL_RED_BITS), 8);
    EXPECT_EQ(Integer(GL_GREEN_BITS), 8);
    EXPECT_EQ(Integer(GL_BLUE_BITS), 8);
    EXPECT_GE(Integer(GL_DEPTH_BITS), 24);
    EXPECT_GE(Integer(GL_STENCIL_BITS), 8);
}

// ---- Viewports and sizes

TEST_P(ContextInWindow, TheClientAreaIsSplitAndTruncated) {
    const struct {
        int cx, cy, legend, plot;
    } sizes[] = {{400, 240, 64, 336}, {101, 50, 16, 84},  {1, 1, 0, 0}, {7, 300, 1, 5},
                 {0, 0, 0, 0},        {999, 1, 159, 839}, {6, 10, 0, 5}};
    for (const auto& size : sizes) {
        plotter.OnSize(12345, size.cx, size.cy);
        EXPECT_EQ(wglGetCurrentContext(), nullptr);
        EXPECT_EQ(plotter.m_clientHeight, size.cy);
        EXPECT_EQ(Viewport(plotter.m_plotViewport), (std::vector<int>{size.legend, 0, size.plot, size.cy}));
        EXPECT_EQ(Viewport(plotter.m_legendViewport), (std::vector<int>{0, 0, size.legend, size.cy}));
        EXPECT_EQ(plotter.Renderscene(), 0);
    }
    plotter.OnSize(0, 400, 240);
    const CurrentContext context(plotter);
    GLint viewport[4] = {};
    glGetIntegerv(GL_VIEWPORT, viewport);
    EXPECT_EQ(Viewport(viewport), (std::vector<int>{64, 0, 336, 240}));
}

TEST_P(ContextInWindow, AViewportBeyondTheNumbersBeginsAtTheLast) {
    constexpr int most = std::numeric_limits<int>::max(), least = std::numeric_limits<int>::min();
    plotter.UpdateViewport(most - 10, most, 1000, 5);
    EXPECT_EQ(plotter.m_plotViewport[0], most);
    EXPECT_EQ(plotter.m_legendViewport[0], most - 10);
    plotter.UpdateViewport(most, 0, most, most);
    EXPECT_EQ(plotter.m_plotViewport[0], most);
    plotter.UpdateViewport(least, least, -1000, least);
    EXPECT_EQ(plotter.m_plotViewport[0], least);
    plotter.UpdateViewport(least, 0, 1000, 5);
    EXPECT_EQ(plotter.m_plotViewport[0], least + 160);
}

// A derived class would read the error as its own.
TEST_P(ContextInWindow, SizesThatShowNothingLeaveNoError) {
    constexpr int most = std::numeric_limits<int>::max(), least = std::numeric_limits<int>::min();
    const TestSurface surface = HillSurface(6, 5);
    plotter.SetDataReference(const_cast<float*>(surface.points.data()), 6, 5, 1, 6, 3);
    plotter.SetPlotTitle("Title");
    float curve[] = {0, 0, 0, 1, 1, 1};
    plotter.AddCurveData(curve, 2, 3);
    const auto expectNoError = [this](const char* step) {
        const CurrentContext context(plotter);
        EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR)) << step;
    };
    expectNoError("before");
    for (const int width : {0, 1, -1, -400, least, 300, most})
        for (const int height : {0, 1, -1, -300, least, 200, most}) {
            SCOPED_TRACE(testing::Message() << width << " x " << height);
            plotter.OnSize(0, width, height);
            expectNoError("size");
            EXPECT_EQ(plotter.m_plotViewport[2], static_cast<int>(width * 0.84));
            EXPECT_EQ(plotter.m_plotViewport[3], height);
            plotter.SwitchToNormalPlot();
            plotter.Trace(POINT{0, 0});
            plotter.Renderscene();
            expectNoError("3-D plot");
            plotter.SwitchToXYProjectPlot();
            plotter.Renderscene();
            expectNoError("XY plot");
            plotter.SwitchToYZProjectPlot();
            plotter.Renderscene();
            plotter.SwitchToZXProjectPlot();
            plotter.Renderscene();
            plotter.SwitchToNormalPlot();
            expectNoError("other plots");
        }
    plotter.OnDestroy();
}

// One point: bounds, view volume and pictures of lines without extent.
TEST_P(ContextInWindow, DataWithoutExtentLeaveNoError) {
    float point[12] = {};
    for (const bool isPicture : {false, true}) {
        plotter.m_useIsoContourTexture = plotter.m_useFramelineTexture = isPicture;
        plotter.SetDataReference(point, 2, 2, 1, 2, 3);
        plotter.Renderscene();
        plotter.SetDataReference(point, 1, 1, 1, 1, 0x40000000u); // points farther apart than OpenGL counts
        plotter.Renderscene();
        const CurrentContext context(plotter);
        EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR)) << isPicture;
    }
    plotter.OnDestroy();
}

TEST_P(ContextInWindow, UpdateViewportSplitsARectangle) {
    plotter.UpdateViewport(11, 22, 101, 77);
    EXPECT_EQ(Viewport(plotter.m_legendViewport), (std::vector<int>{11, 22, 16, 77}));
    EXPECT_EQ(Viewport(plotter.m_plotViewport), (std::vector<int>{27, 22, 84, 77}));
}

TEST_P(ContextInWindow, AWideWindowFitsTheHeightAndATallOneTheWidth) {
    const TestSurface surface = PlaneSurface(4, 4);
    plotter.SetData(surface.NewArray(), 4, 4, 1, 4, 3);
    // Different factors show which side follows which.
    plotter.m_viewVolumeFactor[0] = 2;
    plotter.m_viewVolumeFactor[1] = 1;
    for (const bool isTall : {false, true}) {
        plotter.OnSize(0, isTall ? 250 : 500, isTall ? 420 : 210); // plot area 420 x 210 or 210 x 420
        const double r = plotter.m_viewFar / 15.0;
        EXPECT_NEAR(plotter.m_viewRight, isTall ? r : 4 * r, 1e-5 * r);
        EXPECT_NEAR(plotter.m_viewTop, 2 * r, 1e-5 * r);
        EXPECT_EQ(plotter.m_viewLeft, -plotter.m_viewRight);
        EXPECT_EQ(plotter.m_viewBottom, -plotter.m_viewTop);
        const CurrentContext context(plotter);
        EXPECT_NEAR(LoadedMatrix(GL_PROJECTION_MATRIX)[0], 1 / plotter.m_viewRight, 1e-5);
        EXPECT_NEAR(LoadedMatrix(GL_PROJECTION_MATRIX)[5], 1 / plotter.m_viewTop, 1e-5);
    }
}

TEST_P(ContextInWindow, SizingFitsTheViewOfThePresentPlot) {
    const TestSurface surface = PlaneSurface(4, 4); // x from -3 to 5, y from -2 to 3
    plotter.SetData(surface.NewArray(), 4, 4, 1, 4, 3);
    plotter.Zoom(0.5f);
    const double zoomed = plotter.m_viewRight;
    plotter.OnSize(0, 400, 240);
    EXPECT_NEAR(plotter.m_viewRight, 2 * zoomed, 1e-5);
    EXPECT_NEAR(plotter.m_volumeTranslate[0], -1, 1e-6);
    EXPECT_NEAR(plotter.m_volumeTranslate[1], -0.5, 1e-6);
    plotter.m_plotType = 1;
    plotter.OnSize(0, 400, 240);
    EXPECT_NEAR(plotter.m_volumeTranslate[0], -1, 1e-6);
    EXPECT_NEAR(plotter.m_volumeTranslate[1], 0.25, 1e-6);
    plotter.m_plotType = 2;
    plotter.OnSize(0, 400, 240);
    EXPECT_NEAR(plotter.m_volumeTranslate[0], -1, 1e-6);
    EXPECT_NEAR(plotter.m_volumeTranslate[1], 0.25, 1e-6);
    plotter.m_plotType = 3;
    plotter.OnSize(0, 400, 240);
    EXPECT_NEAR(plotter.m_volumeTranslate[0], 0.2, 1e-6);
    EXPECT_NEAR(plotter.m_volumeTranslate[1], -0.5, 1e-6);
    plotter.m_plotType = 99;
    plotter.OnSize(0, 400, 240);
    EXPECT_NEAR(plotter.m_volumeTranslate[0], -1, 1e-6);
    EXPECT_NEAR(plotter.m_volumeTranslate[1], -0.5, 1e-6);
}

TEST_P(ContextInWindow, SizingUpdatesTheLegend) {
    plotter.OnSize(0, 625, 400); // legend 100 x 400
    const double r = 0.6 * std::sqrt(170000.0);
    EXPECT_NEAR(plotter.m_legendViewVolume[1], r, 1e-6);
    EXPECT_NEAR(plotter.m_legendViewVolume[3], 4 * r, 1e-6);
}

TEST_P(ContextInWindow, AWindowOfAnotherSizeIsFollowed) {
    const TestSurface surface = PlaneSurface(4, 4);
    plotter.SetData(surface.NewArray(), 4, 4, 1, 4, 3);
    for (const auto& size : {std::pair<int, int>{500, 300}, {90, 260}, {400, 240}}) {
        plot.window.Resize(size.first, size.second);
        plotter.OnSize(0, size.first, size.second);
        EXPECT_EQ(plotter.Renderscene(), 0);
        const Image image = CaptureImage(plotter);
        EXPECT_EQ(image.width, size.first);
        EXPECT_EQ(image.height, size.second);
        EXPECT_TRUE(image.IsNear(size.first - 1, 0, {255, 253, 233}));
    }
}

// ---- Fonts

TEST_P(ContextInWindow, TheTextFontHasTheSizeAskedFor) {
    for (const int size : {10, 17}) {
        TestWindow window(GetParam(), 64, 48);
        PlotterProbe other;
        ASSERT_EQ(size == 10 ? other.OnCreate(window.Handle(), 64, 48, true)
                             : other.OnCreate(window.Handle(), 64, 48, size, true),
                  0);
        const STextRenderer& text = *other.m_textRenderer;
        const int dotsPerInch = GetDeviceCaps(text.m_memoryDC, LOGPIXELSY);
        EXPECT_EQ(text.m_fontDescription.lfHeight, -std::lround(size * dotsPerInch / 72.0));
        EXPECT_EQ(text.m_fontDescription.lfWeight, 700);
        EXPECT_STREQ(text.m_fontDescription.lfFaceName, "MS Gothic");
        EXPECT_EQ(text.m_windowDC, other.m_hDC);
        EXPECT_GT(text.m_textMetrics.tmHeight, 0);
        other.OnDestroy();
    }
}

TEST_P(ContextInWindow, SetFontSelectsTheTextFontAgain) {
    STextRenderer& text = *plotter.m_textRenderer;
    const auto height = text.m_textMetrics.tmHeight;
    SelectObject(text.m_memoryDC, text.m_savedFont);
    text.m_textMetrics.tmHeight = -1;
    int anything = 0;
    EXPECT_EQ(plotter.SetFont(&anything), 0);
    EXPECT_EQ(text.m_textMetrics.tmHeight, height);
    EXPECT_EQ(SelectObject(text.m_memoryDC, text.m_font), text.m_font);
}

TEST_P(ContextInWindow, TheBitmapFontHasAListForEveryByte) {
    const CurrentContext context(plotter);
    ASSERT_NE(plotter.m_fontListBase, 0u);
    for (unsigned int glyph = 0; glyph < 256; ++glyph)
        EXPECT_TRUE(glIsList(plotter.m_fontListBase + glyph)) << glyph;
}

// The same glyphs as those of a font made here, in every pixel: Arial of 10 points, of medium weight.
TEST_P(ContextInWindow, TheBitmapFontIsTenPointsHighAndNotBold) {
    const CurrentContext context(plotter);
    const std::string text = "Height 42, Wg%";
    const Image plotted = DrawWithLists(plotter.m_fontListBase, text);
    const int dotsPerInch = GetDeviceCaps(plotter.m_hDC, LOGPIXELSY);
    const GLuint base = glGenLists(256);
    for (const auto& [points, weight] : {std::pair(10, 500), std::pair(10, 700), std::pair(12, 500)}) {
        LOGFONTA description = {};
        description.lfHeight = -static_cast<LONG>(std::lround(points * dotsPerInch / 72.0));
        description.lfWeight = weight;
        description.lfCharSet = DEFAULT_CHARSET;
        description.lfQuality = ANTIALIASED_QUALITY;
        description.lfPitchAndFamily = FF_MODERN | DEFAULT_PITCH;
        std::strcpy(description.lfFaceName, "Arial");
        const HFONT font = CreateFontIndirectA(&description);
        const HGDIOBJ previous = SelectObject(plotter.m_hDC, font);
        EXPECT_TRUE(wglUseFontBitmapsA(plotter.m_hDC, 0, 256, base));
        SelectObject(plotter.m_hDC, previous);
        DeleteObject(font);
        const Image expected = DrawWithLists(base, text);
        EXPECT_GT(expected.Count(IsDark), 60);
        EXPECT_EQ(expected.rgba == plotted.rgba, points == 10 && weight == 500) << points << ' ' << weight;
    }
    glDeleteLists(base, 256);
}

TEST_P(ContextInWindow, TheBitmapFontDraws) {
    const CurrentContext context(plotter);
    const Image image = DrawWithLists(plotter.m_fontListBase, "Height 42");
    const std::vector<float> position = Floats(GL_CURRENT_RASTER_POSITION, 4);
    const int ink = image.Count(IsDark);
    EXPECT_GT(ink, 60);
    EXPECT_LT(ink, 3000);
    EXPECT_GT(position[0], 100 + 30) << "each glyph moves on by its width";
    EXPECT_LT(position[0], 100 + 200);
}

KIVO_IN_EVERY_WINDOW(ContextInWindow);
