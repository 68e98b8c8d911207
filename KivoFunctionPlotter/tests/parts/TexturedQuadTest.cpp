// Text images as quads: their corners, their texture coordinates, and the state around them.
#include "drawing/TexturedQuad.h"
#include "support/Drawing.h"
#include "support/TestWindow.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <vector>

using namespace KivoDrawingTools;

namespace {

constexpr int side = 64; // of the view in pixels, which are its units

class TexturedQuad : public WindowTest {
protected:
    TexturedQuad() {
        plot.plotter.BeginGLOperation();
        glViewport(0, 0, side, side);
        glMatrixMode(GL_PROJECTION);
        glLoadIdentity();
        glOrtho(0, side, 0, side, -1, 1);
        glMatrixMode(GL_MODELVIEW);
        glLoadIdentity();
        glGenTextures(1, &image.texture);
        image.width = 8;
        image.height = 4;
        image.sMax = 0.5f;
        image.tMax = 0.25f;
        image.pixels = pixels.data();
    }
    ~TexturedQuad() override {
        glDeleteTextures(1, &image.texture);
        plot.plotter.EndGLOperation();
    }

    Drawing Draw() {
        return Record([this] { DrawTexturedQuad(center, right.data(), up.data(), 2.0, 3.0, image); });
    }

    // What the routine uses, set to values of its own.
    static void SetState() {
        glEnable(GL_LIGHTING);
        glDisable(GL_BLEND);
        glDisable(GL_TEXTURE_2D);
        glBlendFunc(GL_ONE, GL_DST_COLOR);
        glColor4f(0.125f, 0.25f, 0.5f, 0.75f);
        glTexCoord2f(0.75f, 0.375f);
    }
    static std::vector<float> State() {
        std::vector<float> state;
        for (const GLenum name :
             {GL_LIGHTING, GL_BLEND, GL_TEXTURE_2D, GL_DEPTH_TEST, GL_ALPHA_TEST, GL_BLEND_SRC, GL_BLEND_DST,
              GL_TEXTURE_BINDING_2D, GL_ATTRIB_STACK_DEPTH, GL_MODELVIEW_STACK_DEPTH, GL_MATRIX_MODE}) {
            GLfloat value = 0;
            glGetFloatv(name, &value);
            state.push_back(value);
        }
        return state;
    }
    static std::array<float, 4> CurrentColor() {
        std::array<float, 4> color = {};
        glGetFloatv(GL_CURRENT_COLOR, color.data());
        return color;
    }

    TestPlot plot{GetParam(), side, side};
    std::array<unsigned char, 8 * 4 * 4> pixels = {};
    SKivoTexImage image; // its pixels belong to the test
    const float center[3] = {30, 20, 0.5f};
    std::array<float, 3> right = {1, 0, 0};
    std::array<float, 3> up = {0, 1, 0};
};

} // namespace

TEST_P(TexturedQuad, IsCenterdAndScaledAlongItsSides) {
    const std::vector<DrawnQuad> quads = TexturedQuads(Draw());
    ASSERT_EQ(quads.size(), 1u);
    const double expected[4][2] = {{22, 14}, {38, 14}, {38, 26}, {22, 26}};
    const float shares[4][2] = {{0, 0}, {0.5f, 0}, {0.5f, 0.25f}, {0, 0.25f}};
    for (std::size_t i = 0; i < 4; ++i) {
        EXPECT_NEAR(quads[0].corners[i].x, expected[i][0], 1e-4);
        EXPECT_NEAR(quads[0].corners[i].y, expected[i][1], 1e-4);
        EXPECT_NEAR(quads[0].corners[i].depth, 0.25, 1e-6);
        EXPECT_EQ(quads[0].corners[i].texture[0], shares[i][0]);
        EXPECT_EQ(quads[0].corners[i].texture[1], shares[i][1]);
        EXPECT_EQ(quads[0].corners[i].color, (std::array<float, 4>{1, 1, 1, 1}));
    }
}

TEST_P(TexturedQuad, TurnsWithItsSides) {
    right = {0, 1, 0};
    up = {-1, 0, 0};
    const std::vector<DrawnQuad> quads = TexturedQuads(Draw());
    ASSERT_EQ(quads.size(), 1u);
    const double expected[4][2] = {{36, 12}, {36, 28}, {24, 28}, {24, 12}};
    for (std::size_t i = 0; i < 4; ++i) {
        EXPECT_NEAR(quads[0].corners[i].x, expected[i][0], 1e-4);
        EXPECT_NEAR(quads[0].corners[i].y, expected[i][1], 1e-4);
    }
}

TEST_P(TexturedQuad, LeavesTheStateAsItWasAndTheColourWhite) {
    SetState();
    const std::vector<float> before = State();
    DrawTexturedQuad(center, right.data(), up.data(), 2.0, 3.0, image);
    EXPECT_EQ(State(), before);
    EXPECT_EQ(CurrentColor(), (std::array<float, 4>{1, 1, 1, 1}));
}

TEST_P(TexturedQuad, AnImageWithoutTextureOrPixelsDrawsNothingAndTouchesNothing) {
    for (const bool hasTexture : {false, true})
        for (const bool hasPixels : {false, true}) {
            if (hasTexture && hasPixels) continue;
            SKivoTexImage empty = image;
            if (!hasTexture) empty.texture = 0;
            if (!hasPixels) empty.pixels = nullptr;
            SetState();
            const std::vector<float> before = State();
            const std::array<float, 4> color = CurrentColor();
            const Drawing drawing =
                Record([&] { DrawTexturedQuad(center, right.data(), up.data(), 2.0, 3.0, empty); });
            EXPECT_TRUE(drawing.empty()) << hasTexture << hasPixels;
            EXPECT_EQ(State(), before) << hasTexture << hasPixels;
            EXPECT_EQ(CurrentColor(), color) << hasTexture << hasPixels;
        }
}

KIVO_IN_ONE_WINDOW(TexturedQuad);
