// Labels and titles of the 3-D box read correctly in the picture: neither mirrored nor upside down, in any
// view. Each text is replaced by an F, which differs from all its mirror images.
#include "parts/KivoGridBox.h"
#include "support/Image.h"
#include "support/Matrices.h"
#include "support/TestSurfaces.h"
#include "support/TestWindow.h"

#include <algorithm>
#include <cmath>

using namespace KivoDrawingTools;

namespace {

constexpr int side = 20;   // of the F in pixels, with an empty border of 2
constexpr int padded = 32; // of its texture

// Whether the F has ink at a place, from 0 to 1 to the right and upwards.
bool IsInk(double right, double up) {
    const double x = right * side, y = up * side;
    if (x < 2 || x >= 18 || y < 2 || y >= 18) return false;
    const bool stem = x < 7;
    const bool topBar = y >= 14;
    const bool middleBar = y >= 8 && y < 11 && x < 14;
    return stem || topBar || middleBar;
}

// Whether all around a place is as the place itself; beside the edges of the F the picture is blurred.
bool IsClear(double right, double up) {
    constexpr double reach = 0.075;
    for (const double dx : {-reach, reach})
        for (const double dy : {-reach, reach})
            if (IsInk(right + dx, up + dy) != IsInk(right, up)) return false;
    return true;
}

void TurnIntoF(SKivoTexImage& image) {
    delete[] image.pixels;
    image.pixels = new unsigned char[side * side * 4];
    image.width = image.height = side;
    image.sMax = image.tMax = static_cast<float>(side) / padded;
    for (int y = 0; y < side; ++y)
        for (int x = 0; x < side; ++x) {
            const bool ink = IsInk((x + 0.5) / side, (y + 0.5) / side);
            unsigned char* pixel = image.pixels + (y * side + x) * 4;
            std::fill(pixel, pixel + 3, static_cast<unsigned char>(ink ? 0 : 255));
            pixel[3] = ink ? 255 : 0;
        }
    if (image.texture == 0) glGenTextures(1, &image.texture);
    glBindTexture(GL_TEXTURE_2D, image.texture);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_LINEAR);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
    glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA, padded, padded, 0, GL_RGBA, GL_UNSIGNED_BYTE, nullptr);
    glTexSubImage2D(GL_TEXTURE_2D, 0, 0, 0, side, side, GL_RGBA, GL_UNSIGNED_BYTE, image.pixels);
    glBindTexture(GL_TEXTURE_2D, 0);
}

class LabelPicture : public WindowTest {
protected:
    static constexpr int width = 640;
    static constexpr int height = 480;
    TestPlot plot{GetParam(), width, height};
    PlotterProbe& plotter = plot.plotter;
    int seen = 0;

    void SetUp() override {
        const TestSurface surface = HillSurface(12, 10);
        plotter.SetData(surface.NewArray(), 12, 10, 1, 12, 3);
        plotter.ShowFrameLines(false);
        const CurrentContext context(plotter);
        CKivoGridBox& box = *plotter.m_gridBox;
        for (int axis = 0; axis < 3; ++axis) {
            TurnIntoF(box.m_axisTitleImage[axis]);
            for (unsigned int i = 0; i <= box.m_tickIntervals[axis]; ++i)
                TurnIntoF(box.m_tickLabels[axis][i]);
        }
    }

    // Share of places at which the picture agrees with the F, mirrored or not. Places near the F's edges are
    // passed over: they are blurred.
    double Agreement(const Image& image, const PlacedImage& place, bool mirrorX, bool mirrorY) const {
        int agreeing = 0, asked = 0;
        for (double v = 0.05; v < 1.0; v += 0.05)
            for (double u = 0.05; u < 1.0; u += 0.05) {
                const double right = mirrorX ? 1 - u : u, up = mirrorY ? 1 - v : v;
                if (!IsClear(right, up)) continue;
                const bool ink = IsInk(right, up);
                const double h = (2 * u - 1) * place.halfWidth, k = (2 * v - 1) * place.halfHeight;
                const double x =
                    place.center.x + h * place.right.x + k * place.up.x + plotter.m_plotViewport[0];
                const double y = place.center.y + h * place.right.y + k * place.up.y;
                const int column = static_cast<int>(std::floor(x));
                const int row = height - 1 - static_cast<int>(std::floor(y));
                if (column < 0 || row < 0 || column >= width || row >= height) continue;
                ++asked;
                const unsigned char* rgb = image.Pixel(column, row);
                const bool isDark =
                    *std::max_element(rgb, rgb + 3) < 110; // the surface's colours are brighter
                agreeing += isDark == ink ? 1 : 0;
            }
        return asked == 0 ? 0.0 : static_cast<double>(agreeing) / asked;
    }

    void ExpectReadable(const Image& image, const PlacedImage& place, const std::string& view) {
        if (!place.isShown) return;
        // One that the window cuts cannot be read.
        const double reach = place.halfWidth + place.halfHeight;
        if (place.center.x < reach - plotter.m_plotViewport[0] || place.center.y < reach ||
            place.center.x > plotter.m_plotViewport[2] - reach || place.center.y > height - reach)
            return;
        ++seen;
        const double right = Agreement(image, place, false, false);
        EXPECT_GT(right, 0.85) << view;
        EXPECT_GT(right, Agreement(image, place, true, false)) << view;
        EXPECT_GT(right, Agreement(image, place, false, true)) << view;
        EXPECT_GT(right, Agreement(image, place, true, true)) << view;
    }

    // Planes that do not switch leave labels behind the surface, which hides them: there without it.
    Image Picture() {
        if (plotter.m_gridBox->m_autoSwitchFramePlanes) return CaptureImage(plotter);
        const CurrentContext context(plotter);
        glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
        plotter.ApplyModelViewMatrix();
        glDisable(GL_LIGHTING);
        plotter.m_gridBox->Render(plotter.PixelToWorld(1.0), plotter.m_axisScale, plotter.m_rotationMatrix);
        glEnable(GL_LIGHTING);
        return ReadBuffer(GL_BACK, width, height);
    }

    void LookFrom(double azimuth, double elevation, int inverse) {
        const Matrix turn = Rotation(elevation - 90, 1, 0, 0) * Rotation(azimuth, 0, 0, 1) *
                            Scaling(inverse & 1 ? -1 : 1, inverse & 2 ? -1 : 1, inverse & 4 ? -1 : 1);
        std::copy(turn.begin(), turn.end(), plotter.m_rotationMatrix);
        plotter.m_inverseXAxis = (inverse & 1) != 0;
        plotter.m_inverseYAxis = (inverse & 2) != 0;
        plotter.m_inverseZAxis = (inverse & 4) != 0;
        const Image image = Picture();
        const std::string view =
            std::to_string(azimuth) + " " + std::to_string(elevation) + " " + std::to_string(inverse);
        const AxisLabelLayout& layout = plotter.m_gridBox->m_labelLayout;
        for (int axis = 0; axis < 3; ++axis) {
            for (const PlacedImage& place : layout.Labels(axis))
                ExpectReadable(image, place, view);
            ExpectReadable(image, layout.Title(axis), view);
        }
    }
};

} // namespace

TEST_P(LabelPicture, EveryTextReadsCorrectlyInEveryView) {
    int views = 0;
    for (const bool autoSwitch : {true, false}) {
        plotter.SetAutoSwitchFramePlanes(autoSwitch);
        for (int azimuth = 10; azimuth < 360; azimuth += 40)
            for (int elevation = -70; elevation <= 80; elevation += 30)
                for (int inverse = 0; inverse < 8; ++inverse, ++views)
                    LookFrom(azimuth, elevation, inverse);
    }
    RecordProperty("views", views);
    RecordProperty("texts", seen);
    EXPECT_GT(seen, 10 * views);
}

KIVO_IN_ONE_WINDOW(LabelPicture);
