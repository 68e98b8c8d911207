// Views as records: what they tell, what they show on other data and in other windows, and what they refuse.
#include "KivoPicture.h"
#include "KivoView.h"
#include "parts/KivoGridBox.h"
#include "plotter/ViewState.h"
#include "support/TestSurfaces.h"
#include "support/TestWindow.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>
#include <random>
#include <string>
#include <vector>

using namespace KivoDrawingTools;

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

using Switch = int (CKivoFunctionPlotter::*)();
constexpr Switch switches[] = {
    &CKivoFunctionPlotter::SwitchToNormalPlot, &CKivoFunctionPlotter::SwitchToXYProjectPlot,
    &CKivoFunctionPlotter::SwitchToYZProjectPlot, &CKivoFunctionPlotter::SwitchToZXProjectPlot};

void Show(CKivoFunctionPlotter& plotter, Switch show) {
    (plotter.*show)();
}

void SetInverse(CKivoFunctionPlotter& plotter, unsigned int axes) {
    plotter.SetInverseXAxis((axes & 1) != 0);
    plotter.SetInverseYAxis((axes & 2) != 0);
    plotter.SetInverseZAxis((axes & 4) != 0);
}

void SetSurface(CKivoFunctionPlotter& plotter, const TestSurface& surface) {
    plotter.SetData(surface.NewArray(), surface.columns, surface.rows, 1, surface.columns, 3);
}

// Of other ranges than the hill on all axes.
TestSurface OtherSurface() {
    return TerrainSurface(9, 7);
}

class AnyView {
public:
    SKivoView Next() {
        SKivoView view;
        view.plotType = Whole(4);
        std::normal_distribution<double> normal;
        const double x = normal(m_random), y = normal(m_random), z = normal(m_random);
        const double length = std::sqrt(x * x + y * y + z * z);
        const Matrix turn = Rotation(Within(-180.0, 180.0), x / length, y / length, z / length);
        for (int axis = 0; axis < 3; ++axis) {
            std::copy(turn.begin() + 4 * axis, turn.begin() + 4 * axis + 3, view.rotation + 3 * axis);
            view.inverse[axis] = Whole(2) != 0;
        }
        view.panX = Within(-2.0, 2.0);
        view.panY = Within(-2.0, 2.0);
        view.zoom = std::exp(Within(-3.0, 3.0));
        view.mirrored = Whole(2) != 0;
        return view;
    }

    double Within(double low, double high) {
        return std::uniform_real_distribution<double>(low, high)(m_random);
    }
    int Whole(int count) { return static_cast<int>(m_random() % static_cast<unsigned int>(count)); }

private:
    std::mt19937 m_random{11};
};

void ExpectSameView(const SKivoView& view, const SKivoView& expected, double limit) {
    EXPECT_EQ(view.plotType, expected.plotType);
    for (int i = 0; i < 9; ++i)
        EXPECT_NEAR(view.rotation[i], expected.rotation[i], limit) << i;
    EXPECT_NEAR(view.panX, expected.panX, limit * std::max(1.0, std::abs(expected.panX)));
    EXPECT_NEAR(view.panY, expected.panY, limit * std::max(1.0, std::abs(expected.panY)));
    EXPECT_NEAR(view.zoom, expected.zoom, limit * expected.zoom);
    for (int axis = 0; axis < 3; ++axis)
        EXPECT_EQ(view.inverse[axis], expected.inverse[axis]) << axis;
    EXPECT_EQ(view.mirrored, expected.mirrored);
}

// ---- Where the corners of the box stand in the plot, from its lower left corner, as shares of its sides

struct Shares {
    double x;
    double y;
};

struct AxisRanges {
    explicit AxisRanges(const CKivoFunctionPlotter& plotter)
        : min{plotter.GetXAxisMin(), plotter.GetYAxisMin(), plotter.GetZAxisMin()},
          max{plotter.GetXAxisMax(), plotter.GetYAxisMax(), plotter.GetZAxisMax()} {}

    double Corner(int number, int axis) const { return (number >> axis & 1) != 0 ? max[axis] : min[axis]; }

    double min[3];
    double max[3];
};

// How the plots are fitted, as the class's comments and guides say it.
struct Fit {
    std::vector<int> axes;
    double middle[3]; // between minimum and maximum of the data
    double share;
};

Fit FitOf(int plotType) {
    switch (plotType) {
    case 1:
        return {{0, 1}, {0.5, 0.35, 0.5}, 0.55};
    case 2:
        return {{1, 2}, {0.5, 0.35, 0.35}, 0.55};
    case 3:
        return {{0, 2}, {0.35, 0.5, 0.35}, 0.55};
    default:
        return {{0, 1, 2}, {0.5, 0.5, 0.5}, 0.6};
    }
}

// From the view, the data and the size alone.
std::vector<Shares> ExpectedCorners(const SKivoView& view, const TestSurface& surface, const AxisRanges& axes,
                                    double width, double height) {
    const Fit fit = FitOf(view.plotType);
    const double rise = axes.max[2] - axes.min[2];
    double scale[3], squares = 0.0;
    for (int axis = 0; axis < 3; ++axis)
        scale[axis] = axis == 2 ? 1.0 : 1.2 * rise / (axes.max[axis] - axes.min[axis]);
    for (const int axis : fit.axes)
        squares += std::pow((axes.max[axis] - axes.min[axis]) * scale[axis], 2.0);
    const double half = fit.share * 1.01 * std::sqrt(squares) / view.zoom;
    const double sides[] = {2.0 * half * std::max(1.0, width / height),
                            2.0 * half * std::max(1.0, height / width)};
    const double offset[] = {0.5 + 0.055 + view.panX, 0.5 - 0.025 + view.panY};
    std::vector<Shares> corners;
    for (int number = 0; number < 8; ++number) {
        double place[2] = {offset[0], offset[1]};
        for (int axis = 0; axis < 3; ++axis) {
            const double min = surface.Min(axis), max = surface.Max(axis);
            double length =
                (axes.Corner(number, axis) - (min + fit.middle[axis] * (max - min))) * scale[axis];
            if (view.plotType == 0 && view.inverse[axis]) length = -length;
            if (view.mirrored && axis == 0) length = -length;
            for (int i = 0; i < 2; ++i)
                place[i] += view.rotation[3 * axis + i] * length / sides[i];
        }
        corners.push_back({place[0], place[1]});
    }
    return corners;
}

// By the matrices that a frame leaves in OpenGL.
std::vector<Shares> ShownCorners(PlotterProbe& plotter) {
    EXPECT_EQ(plotter.Renderscene(), 0);
    const AxisRanges axes(plotter);
    const CurrentContext context(plotter);
    const Matrix camera = LoadedMatrix(GL_PROJECTION_MATRIX) * LoadedMatrix(GL_MODELVIEW_MATRIX);
    std::vector<Shares> corners;
    for (int number = 0; number < 8; ++number) {
        const Vector4 place =
            camera * Vector4{axes.Corner(number, 0), axes.Corner(number, 1), axes.Corner(number, 2), 1};
        corners.push_back({0.5 + 0.5 * place[0], 0.5 + 0.5 * place[1]});
    }
    return corners;
}

void ExpectCorners(const std::vector<Shares>& corners, const std::vector<Shares>& expected) {
    double size = 1.0;
    for (const Shares& corner : expected)
        size = std::max({size, std::abs(corner.x), std::abs(corner.y)});
    for (std::size_t i = 0; i < 8; ++i) {
        EXPECT_NEAR(corners[i].x, expected[i].x, 2e-6 * size) << i;
        EXPECT_NEAR(corners[i].y, expected[i].y, 2e-6 * size) << i;
    }
}

// ---- Everything that a view consists of

std::string StateOf(const PlotterProbe& plotter) {
    const ViewState state = ViewAccess::Save(plotter);
    std::string words = std::to_string(state.plotType);
    for (const bool flag : state.isInverse)
        words += flag ? " inverse" : " plain";
    const auto add = [&words](const auto& numbers) {
        for (const auto number : numbers) {
            char digits[40];
            std::snprintf(digits, sizeof digits, " %.17g", static_cast<double>(number));
            words += digits;
        }
    };
    add(state.rotation);
    add(state.panFraction);
    add(state.axisScale);
    add(state.volumeTranslate);
    add(state.volume);
    add(state.plotViewport);
    add(state.awaitedPan);
    words += " waiting for " + std::to_string(state.awaitedZoom);
    return words;
}

class View : public WindowTest {
protected:
    View() { SetSurface(plotter, surface); }

    double PlotWidth() const { return plotter.m_plotViewport[2]; }
    double PlotHeight() const { return plotter.m_plotViewport[3]; }

    void ExpectShown(const SKivoView& view) {
        ExpectCorners(ShownCorners(plotter),
                      ExpectedCorners(view, surface, AxisRanges(plotter), PlotWidth(), PlotHeight()));
    }

    TestSurface surface = HillSurface(10, 8);
    TestPlot plot{GetParam(), 400, 240};
    PlotterProbe& plotter = plot.plotter;
};

} // namespace

// ---- What a view tells

TEST_P(View, OfTheStartIsFittedAndUnshifted) {
    const SKivoView view = GetView(plotter);
    EXPECT_EQ(view.plotType, 0);
    EXPECT_EQ(view.panX, 0.0);
    EXPECT_EQ(view.panY, 0.0);
    EXPECT_NEAR(view.zoom, 1.0, 1e-12);
    EXPECT_FALSE(view.inverse[0] || view.inverse[1] || view.inverse[2] || view.mirrored);
    ExpectShown(view);
    double azimuth = 0.0, elevation = 0.0;
    EXPECT_EQ(GetViewAngles(plotter, azimuth, elevation), 0);
    EXPECT_NEAR(azimuth, 45.0, 0.001);
    EXPECT_NEAR(elevation, 25.26, 0.005);
}

TEST_P(View, OfAFlatPlotTellsItsAxes) {
    const double expected[][9] = {
        {1, 0, 0, 0, 1, 0, 0, 0, 1}, {0, 0, 1, 1, 0, 0, 0, 1, 0}, {1, 0, 0, 0, 0, -1, 0, 1, 0}};
    for (int type = 1; type < 4; ++type) {
        Show(plotter, switches[type]);
        const SKivoView view = GetView(plotter);
        EXPECT_EQ(view.plotType, type);
        EXPECT_TRUE(std::equal(view.rotation, view.rotation + 9, expected[type - 1])) << type;
        EXPECT_NEAR(view.zoom, 1.0, 1e-12);
        ExpectShown(view);
    }
}

// A drag pans at 0.8 of its length; both sides of a pixel are as long.
TEST_P(View, TellsPansAsSharesOfThePlot) {
    plotter.Translate({0, 0}, {60, -30});
    SKivoView view = GetView(plotter);
    EXPECT_NEAR(view.panX, 0.8 * 60.0 / PlotWidth(), 1e-6);
    EXPECT_NEAR(view.panY, 0.8 * 30.0 / PlotHeight(), 1e-6);
    EXPECT_NEAR(view.zoom, 1.0, 1e-12);
    plotter.Zoom(0.5f);
    view = GetView(plotter);
    EXPECT_NEAR(view.panX, 2.0 * 0.8 * 60.0 / PlotWidth(), 1e-6);
    EXPECT_NEAR(view.zoom, 2.0, 1e-12);
    ExpectShown(view);
}

TEST_P(View, TellsTurnsInWhateverIsMirrored) {
    for (unsigned int axes = 0; axes < 8; ++axes) {
        SetInverse(plotter, axes);
        plotter.Rotate({0, 0}, {37, -21});
        const SKivoView view = GetView(plotter);
        EXPECT_FALSE(view.mirrored);
        for (int axis = 0; axis < 3; ++axis)
            EXPECT_EQ(view.inverse[axis], (axes >> axis & 1) != 0);
        ExpectShown(view);
    }
}

TEST_P(View, TellsFlatPlotsThatAreMirrored) {
    SetInverse(plotter, 1);
    for (int type = 1; type < 4; ++type) {
        Show(plotter, switches[type]);
        EXPECT_TRUE(GetView(plotter).inverse[0]);
        EXPECT_FALSE(GetView(plotter).mirrored) << "as on entering it";
        ExpectShown(GetView(plotter));
        for (const unsigned int axes : {3u, 2u, 6u, 1u}) {
            SetInverse(plotter, axes);
            ExpectShown(GetView(plotter));
        }
    }
}

TEST_P(View, TellsAVolumeThatIsTurnedRoundAsATurn) {
    plotter.Rotate({0, 0}, {25, 40});
    plotter.Translate({0, 0}, {20, 15});
    plotter.Zoom(-0.8f);
    const SKivoView view = GetView(plotter);
    EXPECT_NEAR(view.zoom, 1.25, 1e-6);
    EXPECT_FALSE(view.mirrored);
    ExpectShown(view);
    const std::vector<Shares> before = ShownCorners(plotter);
    SKivoView closer = view;
    closer.zoom *= 1.5;
    ASSERT_EQ(SetView(plotter, closer), 0);
    ASSERT_EQ(SetView(plotter, view), 0);
    ExpectCorners(ShownCorners(plotter), before);
}

TEST_P(View, TellsWhatNewDataShowInAFlatPlot) {
    plotter.SwitchToXYProjectPlot();
    surface = OtherSurface();
    SetSurface(plotter, surface); // fitted like the 3-D plot, as always
    const SKivoView view = GetView(plotter);
    plotter.Renderscene();
    ExpectShown(view);
    const std::vector<Shares> before = ShownCorners(plotter);
    ASSERT_EQ(SetView(plotter, SKivoView()), 0);
    ASSERT_EQ(SetView(plotter, view), 0);
    ExpectCorners(ShownCorners(plotter), before);
}

// As derived classes leave them.
TEST_P(View, TellsTheNearestOfWhatIsNoRotation) {
    const SKivoView start = GetView(plotter);
    for (double& element : plotter.m_rotationMatrix)
        element *= 3.0;
    SKivoView view = GetView(plotter);
    for (int i = 0; i < 9; ++i)
        EXPECT_NEAR(view.rotation[i], start.rotation[i], 1e-6);
    for (const double element : {0.0, notANumber, infinity, 1e200}) {
        std::fill(plotter.m_rotationMatrix, plotter.m_rotationMatrix + 16, element);
        plotter.m_viewRight = element;
        view = GetView(plotter);
        EXPECT_EQ(SetView(plotter, view), 0) << element;
        ExpectShown(GetView(plotter));
    }
}

// ---- What is shown

TEST_P(View, IsToldAsItWasSet) {
    AnyView any;
    for (int i = 0; i < 300; ++i) {
        const SKivoView view = any.Next();
        ASSERT_EQ(SetView(plotter, view), 0);
        ExpectSameView(GetView(plotter), view, 1e-12);
        EXPECT_EQ(plotter.GetCurrentPlotType(), view.plotType);
        ExpectShown(view);
        if (HasFailure()) return;
    }
}

TEST_P(View, OfAnotherPlotterIsTheSameAtAnySize) {
    const int sizes[][2] = {{400, 240}, {300, 500}, {160, 120}, {73, 600}};
    AnyView any;
    for (const auto& size : sizes) {
        TestPlot other(GetParam(), size[0], size[1]);
        const TestSurface otherSurface = OtherSurface();
        SetSurface(other.plotter, otherSurface);
        for (int i = 0; i < 40; ++i) {
            ASSERT_EQ(SetView(other.plotter, any.Next()), 0);
            ASSERT_EQ(SetView(plotter, GetView(other.plotter)), 0);
            ExpectSameView(GetView(plotter), GetView(other.plotter), 1e-12);
            ExpectShown(GetView(other.plotter));
        }
    }
}

// The box of the axes has the same sides in every plot: its corners, too, are where they were.
TEST_P(View, PutsTheSameCornersInTheSamePlaces) {
    surface = SaddleSurface(9, 7);
    for (std::size_t i = 2; i < surface.points.size(); i += 3)
        surface.points[i] = (i == 2 ? 40.0f : i == 5 ? -10.0f : 7.0f); // axes end where the data end
    for (std::size_t i = 0; i < surface.points.size(); i += 3) {
        surface.points[i] *= 10.0f;
        surface.points[i + 1] = surface.points[i + 1] * 4.0f + 8.0f;
    }
    SetSurface(plotter, surface);
    TestPlot other(GetParam(), 800, 480);
    TestSurface otherSurface = surface;
    for (float& number : otherSurface.points)
        number *= 100.0f;
    SetSurface(other.plotter, otherSurface);
    plotter.Rotate({0, 0}, {50, -20});
    plotter.Translate({0, 0}, {33, 12});
    plotter.Zoom(0.7f);
    ASSERT_EQ(SetView(other.plotter, GetView(plotter)), 0);
    ExpectCorners(ShownCorners(other.plotter), ShownCorners(plotter));
}

TEST_P(View, GoesOnFromTheHand) {
    AnyView any;
    for (int i = 0; i < 20; ++i) {
        SKivoView view = any.Next();
        view.plotType = 0;
        ASSERT_EQ(SetView(plotter, view), 0);
        plotter.Rotate({0, 0}, {12, 5});
        plotter.Translate({0, 0}, {3, 8});
        plotter.Zoom(1.04f);
        ExpectShown(GetView(plotter));
    }
}

// Not one digit of the fields, so that every pixel is the same.
TEST_P(View, ThatIsShownAlreadyChangesNothing) {
    for (const Switch show : switches) {
        Show(plotter, show);
        plotter.Rotate({0, 0}, {31, 17});
        plotter.Translate({0, 0}, {13, 7});
        plotter.Zoom(0.96f);
        const std::string before = StateOf(plotter);
        ASSERT_EQ(SetView(plotter, GetView(plotter)), 0);
        EXPECT_EQ(StateOf(plotter), before);
    }
}

// The light of the new window's first data stands as in the old one when the start view has been shown.
TEST_P(View, OutlivesTheWindow) {
    plotter.Rotate({0, 0}, {31, 17});
    plotter.Translate({0, 0}, {-20, 10});
    plotter.Zoom(0.8f);
    SetInverse(plotter, 5);
    const SKivoView view = GetView(plotter);
    ASSERT_EQ(SetView(plotter, view), 0);
    const Image before = CaptureImage(plotter);
    plotter.OnDestroy();
    ExpectSameView(GetView(plotter), view, 0.0);
    ASSERT_EQ(plotter.OnCreate(plot.window.Handle(), 400, 240, true), 0);
    SetSurface(plotter, surface);
    ASSERT_EQ(ResetView(plotter), 0);
    ASSERT_EQ(SetView(plotter, view), 0);
    EXPECT_TRUE(ImagesAgree(CaptureImage(plotter), before, 2, 0.001, "view-window"));
}

// As hosts keep the zoom of a start view: its matrix, of six digits, is not made a better one by the way.
TEST_P(View, ThatIsNotTurnedKeepsItsMatrix) {
    for (const Switch show : switches) {
        Show(plotter, show);
        const std::vector<double> matrix(plotter.m_rotationMatrix, plotter.m_rotationMatrix + 12);
        SKivoView view = GetView(plotter);
        view.zoom = 1.5;
        ASSERT_EQ(SetView(plotter, view), 0);
        EXPECT_EQ(std::vector<double>(plotter.m_rotationMatrix, plotter.m_rotationMatrix + 12), matrix);
        std::swap_ranges(view.rotation, view.rotation + 3, view.rotation + 3);
        std::swap_ranges(view.rotation + 3, view.rotation + 6, view.rotation + 6);
        ASSERT_EQ(SetView(plotter, view), 0);
        ExpectShown(view);
    }
}

// As hosts keep it while the user drags at the window's border.
TEST_P(View, OutlivesAnotherSizeAndOtherData) {
    AnyView any;
    for (int i = 0; i < 20; ++i) {
        const SKivoView view = any.Next();
        ASSERT_EQ(SetView(plotter, view), 0);
        plotter.OnSize(0, 300 + 20 * i, 500 - 10 * i);
        ASSERT_EQ(SetView(plotter, view), 0);
        ExpectShown(view);
        surface = i % 2 == 0 ? OtherSurface() : HillSurface(10, 8);
        SetSurface(plotter, surface);
        ASSERT_EQ(SetView(plotter, view), 0);
        ExpectShown(view);
    }
}

// Pictures of another size show it as well, and leave it.
TEST_P(View, IsThatOfPictures) {
    SKivoView view = GetView(plotter);
    view.zoom = 1.7;
    view.panX = -0.2;
    ASSERT_EQ(SetView(plotter, view), 0);
    const std::string before = StateOf(plotter);
    TestPlot large(GetParam(), 800, 480);
    SetSurface(large.plotter, surface);
    ASSERT_EQ(SetView(large.plotter, view), 0);
    EXPECT_TRUE(
        ImagesAgree(CaptureImage(plotter, 800, 480), CaptureImage(large.plotter), 255, 0.6, "view-picture"));
    EXPECT_EQ(StateOf(plotter), before);
}

TEST_P(View, KeepsLengthsAndMiddleThatADerivedClassHasSet) {
    plotter.m_axisScale[0] *= 2.0;
    plotter.m_volumeTranslate[1] += 0.25;
    plotter.m_viewFar *= 4.0;
    const double kept[] = {plotter.m_axisScale[0], plotter.m_volumeTranslate[1], plotter.m_viewFar};
    const auto sideOfBox = [&] { // as a share of the plot's height, seen from above
        const Vector4 ends[] = {{plotter.GetXAxisMin(), 0, 0, 1}, {plotter.GetXAxisMax(), 0, 0, 1}};
        const CurrentContext context(plotter);
        const Matrix camera = LoadedMatrix(GL_PROJECTION_MATRIX) * LoadedMatrix(GL_MODELVIEW_MATRIX);
        return 0.5 * ((camera * ends[1])[1] - (camera * ends[0])[1]);
    };
    SKivoView view; // X to the right
    view.rotation[0] = 0.0, view.rotation[1] = 1.0;
    view.rotation[3] = -1.0, view.rotation[4] = 0.0;
    ASSERT_EQ(SetView(plotter, view), 0);
    EXPECT_EQ(plotter.m_axisScale[0], kept[0]);
    EXPECT_EQ(plotter.m_volumeTranslate[1], kept[1]);
    EXPECT_EQ(plotter.m_viewFar, kept[2]);
    // Sides of 2.4, 1.2 and 1, of the diagonal of which 1.2 times 1.01 is the height.
    EXPECT_NEAR(sideOfBox(), 2.4 / (1.212 * std::sqrt(2.4 * 2.4 + 1.2 * 1.2 + 1.0)), 1e-6);
    ExpectSameView(GetView(plotter), view, 1e-12);
}

// ---- The start view again

namespace {

Image NewPicture(WindowKind kind, const TestSurface& surface, int width, int height, unsigned int inverse,
                 Switch show) {
    TestPlot fresh(kind, width, height);
    SetSurface(fresh.plotter, surface);
    SetInverse(fresh.plotter, inverse);
    Show(fresh.plotter, show);
    return CaptureImage(fresh.plotter);
}

void ExpectSamePixels(const Image& image, const Image& expected, const std::string& words) {
    EXPECT_TRUE(image.rgba == expected.rgba) << words << ": " << Compare(image, expected).max;
}

} // namespace

TEST_P(View, OfANewPlotterComesBackPixelForPixel) {
    const TestSurface other = OtherSurface();
    for (int type = 0; type < 4; ++type)
        for (const unsigned int inverse : {0u, 5u}) {
            const Image expected = NewPicture(GetParam(), surface, 400, 240, inverse, switches[type]);
            const Image tall = NewPicture(GetParam(), surface, 200, 230, inverse, switches[type]);
            TestPlot used(GetParam(), 400, 240);
            SetSurface(used.plotter, other);
            SetInverse(used.plotter, 2);
            used.plotter.OnDraw();
            used.plotter.Rotate({0, 0}, {40, 25});
            used.plotter.Translate({0, 0}, {60, 45});
            used.plotter.OnDraw();
            SetSurface(used.plotter, surface);
            SetInverse(used.plotter, inverse);
            Show(used.plotter, switches[type]);
            used.plotter.Rotate({0, 0}, {-30, 5});
            used.plotter.Zoom(0.7f);
            ASSERT_EQ(ResetView(used.plotter), 0);
            const std::string words = std::to_string(type) + ", " + std::to_string(inverse);
            ExpectSamePixels(CaptureImage(used.plotter), expected, words);

            SetInverse(used.plotter, 3); // in a flat plot this mirrors
            SetInverse(used.plotter, inverse);
            used.plotter.SetInverseYAxis((inverse & 2) == 0);
            used.plotter.Zoom(-0.3f);
            used.plotter.SetInverseYAxis((inverse & 2) != 0);
            used.plotter.OnSize(0, 200, 230);
            used.window.Resize(200, 230);
            ASSERT_EQ(ResetView(used.plotter), 0);
            // A hidden window may keep a larger buffer, at another place of which numbers are rounded
            // otherwise.
            EXPECT_LE(Compare(CaptureImage(used.plotter), tall).max, 1) << words << ", tall";
        }
}

TEST_P(View, OfANewPlotterComesBackAfterAnotherWindow) {
    const Image expected = NewPicture(GetParam(), surface, 400, 240, 0, switches[0]);
    SetSurface(plotter, OtherSurface());
    plotter.Translate({0, 0}, {60, 45});
    plotter.OnDestroy();
    ASSERT_EQ(plotter.OnCreate(plot.window.Handle(), 400, 240, true), 0);
    plotter.OnDraw(); // of the box that there was
    SetSurface(plotter, surface);
    EXPECT_FALSE(CaptureImage(plotter).rgba == expected.rgba) << "the pan and the light are those of before";
    ASSERT_EQ(ResetView(plotter), 0);
    ExpectSamePixels(CaptureImage(plotter), expected, "another window");
}

TEST_P(View, ComesBackFromNumbersThatAreNone) {
    const Image expected = NewPicture(GetParam(), surface, 400, 240, 0, switches[0]);
    plotter.Zoom(0.0f);
    std::fill(plotter.m_rotationMatrix, plotter.m_rotationMatrix + 16, notANumber);
    ASSERT_EQ(ResetView(plotter), 0);
    EXPECT_EQ(GetView(plotter).panX, 0.0);
    ExpectSamePixels(CaptureImage(plotter), expected, "without numbers");
}

// Flat plots keep the lengths that the axes have in the 3-D plot.
TEST_P(View, ComesBackWithTheLengthsOfTheAxes) {
    for (int type = 0; type < 4; ++type) {
        Show(plotter, switches[type]);
        plotter.m_axisScale[0] *= 1.5;
        plotter.m_axisScale[1] *= 0.75;
        ASSERT_EQ(ResetView(plotter), 0);
        ExpectSamePixels(CaptureImage(plotter), NewPicture(GetParam(), surface, 400, 240, 0, switches[type]),
                         std::to_string(type));
    }
}

// ---- Angles

TEST_P(View, AnglesGiveTheFixedOrientations) {
    struct Orientation {
        double azimuth, elevation;
        void (PlotterProbe::*apply)();
    };
    const Orientation orientations[] = {
        {0, 0, &PlotterProbe::ApplyFrontView},  {180, 0, &PlotterProbe::ApplyBackView},
        {0, 90, &PlotterProbe::ApplyTopView},   {0, -90, &PlotterProbe::ApplyBottomView},
        {90, 0, &PlotterProbe::ApplyLeftView},  {-90, 0, &PlotterProbe::ApplyRightView},
        {450, 0, &PlotterProbe::ApplyLeftView},
    };
    for (const unsigned int axes : {0u, 1u, 6u})
        for (const Orientation& orientation : orientations) {
            SetInverse(plotter, axes);
            {
                const CurrentContext context(plotter);
                std::invoke(orientation.apply, plotter);
            }
            const std::vector<double> expected(plotter.m_rotationMatrix, plotter.m_rotationMatrix + 16);
            ASSERT_EQ(SetView(plotter, SKivoView()), 0); // another one, and nothing inverse
            SetInverse(plotter, axes);
            ASSERT_EQ(SetViewAngles(plotter, orientation.azimuth, orientation.elevation), 0);
            EXPECT_EQ(std::vector<double>(plotter.m_rotationMatrix, plotter.m_rotationMatrix + 16), expected)
                << orientation.azimuth << ", " << orientation.elevation;
        }
}

TEST_P(View, AnglesAreToldAsTheyWereSetAndKeepTheRest) {
    SKivoView view = GetView(plotter);
    view.zoom = 1.6;
    view.panX = 0.1;
    view.panY = -0.3;
    view.inverse[1] = true;
    ASSERT_EQ(SetView(plotter, view), 0);
    for (double azimuth = -175.0; azimuth <= 180.0; azimuth += 35.5)
        for (const double elevation : {-90.0, -30.0, 0.0, 25.26, 90.0}) {
            ASSERT_EQ(SetViewAngles(plotter, azimuth, elevation), 0);
            double foundAzimuth = 0.0, foundElevation = 0.0;
            EXPECT_EQ(GetViewAngles(plotter, foundAzimuth, foundElevation), 0);
            EXPECT_NEAR(foundAzimuth, azimuth, 1e-9);
            EXPECT_NEAR(foundElevation, elevation, 1e-9);
            SKivoView turned = GetView(plotter);
            std::copy(view.rotation, view.rotation + 9, turned.rotation);
            ExpectSameView(turned, view, 1e-12);
        }
    plotter.Rotate({0, 0}, {40, 40}); // a leaning one
    double azimuth = 0.0, elevation = 0.0;
    EXPECT_EQ(GetViewAngles(plotter, azimuth, elevation), 1);
}

TEST_P(View, AnglesThatAreNoneAreRefused) {
    const std::string before = StateOf(plotter);
    for (const double bad : {notANumber, infinity, -infinity})
        EXPECT_EQ(SetViewAngles(plotter, bad, 0.0), -3);
    for (const double bad : {notANumber, infinity, 90.000001, -91.0})
        EXPECT_EQ(SetViewAngles(plotter, 0.0, bad), -3);
    EXPECT_EQ(StateOf(plotter), before);
    EXPECT_EQ(SetViewAngles(plotter, 1e300, 0.0), 0);
    for (int type = 1; type < 4; ++type) {
        Show(plotter, switches[type]);
        const std::string flat = StateOf(plotter);
        EXPECT_EQ(SetViewAngles(plotter, 0.0, 0.0), -3);
        EXPECT_EQ(StateOf(plotter), flat);
        double azimuth = 0.0, elevation = 0.0;
        EXPECT_EQ(GetViewAngles(plotter, azimuth, elevation), 0);
    }
}

// ---- What is refused

TEST_P(View, ThatIsNoneIsRefusedAndChangesNothing) {
    plotter.Rotate({0, 0}, {31, 17});
    const SKivoView good = GetView(plotter);
    const std::string before = StateOf(plotter);
    std::vector<SKivoView> refused;
    const auto with = [&](const std::function<void(SKivoView&)>& change) {
        refused.push_back(good);
        change(refused.back());
    };
    for (const int type : {-1, 4, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()})
        with([=](SKivoView& view) { view.plotType = type; });
    for (const double bad : {notANumber, infinity, -infinity}) {
        with([=](SKivoView& view) { view.panX = bad; });
        with([=](SKivoView& view) { view.panY = bad; });
        with([=](SKivoView& view) { view.zoom = bad; });
        with([=](SKivoView& view) { view.rotation[8] = bad; });
    }
    for (const double bad : {0.0, -1.0, 1e-60, 1e60, 5e-324})
        with([=](SKivoView& view) { view.zoom = bad; });
    for (const double bad : {1e60, -1e300})
        with([=](SKivoView& view) { view.panY = bad; });
    with([](SKivoView& view) { std::fill(view.rotation, view.rotation + 9, 0.0); });
    with([](SKivoView& view) { view.rotation[4] += 0.0025; });
    with([](SKivoView& view) {
        for (double& number : view.rotation)
            number *= 1.01;
    });
    for (int type = 0; type < 4; ++type)
        with([=](SKivoView& view) {
            view.plotType = type;
            for (double& number : view.rotation)
                number = -number; // a mirror image
        });
    for (const SKivoView& view : refused) {
        EXPECT_EQ(SetView(plotter, view), -3) << &view - refused.data();
        EXPECT_EQ(StateOf(plotter), before);
    }
}

TEST_P(View, OfRoughDigitsIsCorrected) {
    SKivoView rough = GetView(plotter);
    for (double& number : rough.rotation)
        number = std::round(number * 1000.0) / 1000.0;
    ASSERT_EQ(SetView(plotter, rough), 0);
    const Matrix rotation = FromArray(plotter.m_rotationMatrix);
    Matrix transposed = {};
    for (std::size_t row = 0; row < 4; ++row)
        for (std::size_t column = 0; column < 4; ++column)
            transposed[4 * row + column] = rotation[4 * column + row];
    transposed[3] = transposed[7] = transposed[11] = 0.0;
    ExpectMatrixNear(transposed * rotation, Identity(), 1e-14);
}

// As far as single precision goes, and beyond what anybody sees.
TEST_P(View, OfAnyPlaceAndSizeIsDrawn) {
    for (const Switch show : switches) {
        Show(plotter, show);
        for (const double zoom : {1e-30, 1e-6, 1e6, 1e30})
            for (const double pan : {0.0, -1e6, 1e30}) {
                SKivoView view = GetView(plotter);
                view.zoom = zoom;
                view.panX = pan;
                view.panY = -pan;
                if (SetView(plotter, view) != 0) continue;
                ExpectSameView(GetView(plotter), view, 1e-12);
                EXPECT_EQ(plotter.Renderscene(), 0);
                EXPECT_EQ(ResetView(plotter), 0);
            }
    }
    EXPECT_TRUE(ImagesAgree(CaptureImage(plotter), NewPicture(GetParam(), surface, 400, 240, 0, switches[3]),
                            0, 0.0, "view-extremes"));
}

// ---- Before there is a window, or data

namespace {

SKivoView AskedView(int type) {
    AnyView any;
    SKivoView view = any.Next();
    view.plotType = type;
    view.panX = 0.125;
    view.panY = -0.0625;
    view.zoom = 1.75;
    return view;
}

// Each in its order; the view is asked for before the step of that number.
void CreateInSteps(TestPlot& plot, const TestSurface& surface, const SKivoView& view, int asked) {
    PlotterProbe& plotter = plot.plotter;
    const std::function<void()> steps[] = {
        [&] { EXPECT_EQ(plotter.OnCreate(plot.window.Handle(), true), 0); },
        [&] { plotter.OnSize(0, 400, 240); },
        [&] { plotter.OnDraw(); },
        [&] { SetSurface(plotter, surface); },
        [&] {},
    };
    plotter.OnDestroy();
    for (int i = 0; i < 5; ++i) {
        if (i == asked) {
            EXPECT_EQ(SetView(plotter, view), 0);
        }
        if (i >= asked) {
            ExpectSameView(GetView(plotter), view, 1e-12);
            EXPECT_EQ(plotter.GetCurrentPlotType(), view.plotType);
        }
        steps[i]();
    }
}

} // namespace

TEST_P(View, WaitsForWindowAndData) {
    for (int type = 0; type < 4; ++type)
        for (int asked = 0; asked < 5; ++asked) {
            SCOPED_TRACE(std::to_string(type) + ", before step " + std::to_string(asked));
            TestPlot late(GetParam(), 400, 240);
            const SKivoView view = AskedView(type);
            CreateInSteps(late, surface, view, asked);
            ExpectSameView(GetView(late.plotter), view, 1e-12);
            const double width = late.plotter.m_plotViewport[2], height = late.plotter.m_plotViewport[3];
            ExpectCorners(ShownCorners(late.plotter),
                          ExpectedCorners(view, surface, AxisRanges(late.plotter), width, height));
            late.plotter.OnSize(0, 400, 240); // undoes zoom and keeps the pan's length, as always
            EXPECT_NEAR(GetView(late.plotter).zoom, 1.0, 1e-12);
            EXPECT_NEAR(GetView(late.plotter).panX, view.panX / view.zoom, 1e-9);
            EXPECT_NEAR(GetView(late.plotter).panY, view.panY / view.zoom, 1e-9);
        }
}

// Data first, then the window, with or without its size.
TEST_P(View, WaitsForAWindowThatComesLast) {
    for (const bool hasSize : {false, true}) {
        const TestWindow window(GetParam(), 400, 240);
        PlotterProbe late;
        SetSurface(late, surface);
        late.OnSize(0, 400, 240);
        const SKivoView view = AskedView(2);
        EXPECT_EQ(SetView(late, view), 0);
        ExpectSameView(GetView(late), view, 0.0);
        EXPECT_EQ(hasSize ? late.OnCreate(window.Handle(), 300, 240, true)
                          : late.OnCreate(window.Handle(), true),
                  0);
        ExpectSameView(GetView(late), view, 1e-12);
        ExpectCorners(ShownCorners(late), ExpectedCorners(view, surface, AxisRanges(late),
                                                          late.m_plotViewport[2], late.m_plotViewport[3]));
        late.OnDestroy();
    }
}

// One that has never been laid out, and one that is minimised.
TEST_P(View, WaitsForASize) {
    const TestWindow window(GetParam(), 400, 240);
    PlotterProbe late;
    ASSERT_EQ(late.OnCreate(window.Handle(), true), 0);
    SetSurface(late, surface);
    const auto expectShown = [&](const SKivoView& view) {
        ExpectSameView(GetView(late), view, 1e-12);
        ExpectCorners(ShownCorners(late), ExpectedCorners(view, surface, AxisRanges(late),
                                                          late.m_plotViewport[2], late.m_plotViewport[3]));
    };
    for (int type = 0; type < 4; ++type) {
        const SKivoView view = AskedView(type);
        EXPECT_EQ(SetView(late, view), 0);
        ExpectSameView(GetView(late), view, 0.0);
        late.OnSize(0, 400, 240);
        expectShown(view);
        for (const int height : {0, 240}) {
            late.OnSize(0, 0, height);
            EXPECT_EQ(SetView(late, view), 0);
            late.OnDraw();
            late.OnSize(0, 400, 240);
            expectShown(view);
        }
        late.OnSize(0, 0, 0);
    }
    late.OnDestroy();
}

TEST_P(View, WaitsForDataThatCanBeFitted) {
    plotter.OnDestroy();
    const SKivoView view = AskedView(0);
    ASSERT_EQ(SetView(plotter, view), 0);
    ASSERT_EQ(plotter.OnCreate(plot.window.Handle(), 400, 240, true), 0);
    plotter.SetDataReference(nullptr, 0, 0, 1, 0, 3);
    ExpectSameView(GetView(plotter), view, 0.0);
    std::vector<float> endless(27, std::numeric_limits<float>::infinity());
    plotter.SetDataReference(endless.data(), 3, 3, 1, 3, 3);
    ExpectSameView(GetView(plotter), view, 0.0);
    plotter.OnDraw();
    SetSurface(plotter, surface);
    ExpectShown(view);
}

TEST_P(View, ThatWaitsIsTheOneSetLast) {
    plotter.OnDestroy();
    ASSERT_EQ(SetView(plotter, AskedView(1)), 0);
    const SKivoView view = AskedView(0);
    ASSERT_EQ(SetView(plotter, view), 0);
    EXPECT_EQ(SetViewAngles(plotter, 30.0, 10.0), 0);
    SKivoView bad = view;
    bad.zoom = 0.0;
    EXPECT_EQ(SetView(plotter, bad), -3);
    ASSERT_EQ(plotter.OnCreate(plot.window.Handle(), 400, 240, true), 0);
    SetSurface(plotter, surface);
    double azimuth = 0.0, elevation = 0.0;
    EXPECT_EQ(GetViewAngles(plotter, azimuth, elevation), 0);
    EXPECT_NEAR(azimuth, 30.0, 1e-9);
    EXPECT_NEAR(elevation, 10.0, 1e-9);
    EXPECT_NEAR(GetView(plotter).zoom, view.zoom, 1e-12);
}

TEST_P(View, ThatWaitsGoesOnFromInverseAxes) {
    plotter.OnDestroy();
    for (const int type : {0, 1}) {
        SKivoView view = AskedView(type);
        std::fill(view.inverse, view.inverse + 3, false);
        view.mirrored = false;
        ASSERT_EQ(SetView(plotter, view), 0);
        plotter.SetInverseXAxis(true);
        view.inverse[0] = true;
        view.mirrored = type != 0; // made so in the flat plot
        ASSERT_EQ(plotter.OnCreate(plot.window.Handle(), 400, 240, true), 0);
        SetSurface(plotter, surface);
        ExpectShown(view);
        plotter.OnDestroy();
    }
}

TEST_P(View, ThatWaitsIsForgottenByASwitchAndByTheStartView) {
    for (int i = 0; i < 5; ++i) {
        plotter.OnDestroy();
        ASSERT_EQ(SetView(plotter, AskedView(0)), 0);
        ASSERT_EQ(plotter.OnCreate(plot.window.Handle(), 400, 240, true), 0);
        if (i < 4)
            Show(plotter, switches[i]);
        else
            EXPECT_EQ(ResetView(plotter), 0);
        EXPECT_EQ(StateOf(plotter).substr(StateOf(plotter).find("waiting")), "waiting for 0.000000") << i;
        SetSurface(plotter, surface);
        const SKivoView view = GetView(plotter);
        EXPECT_EQ(view.plotType, i % 4);
        if (i % 4 == 0) { // flat plots show new data as they always do
            EXPECT_NEAR(view.zoom, 1.0, 1e-12);
            EXPECT_NEAR(view.panX, 0.0, 1e-12);
        }
    }
}

TEST_P(View, ThatDoesNotFitTheDataIsNotShown) {
    plotter.OnDestroy();
    SKivoView view = AskedView(0);
    view.zoom = 1e300;
    ASSERT_EQ(SetView(plotter, view), 0);
    ASSERT_EQ(plotter.OnCreate(plot.window.Handle(), 400, 240, true), 0);
    SetSurface(plotter, surface);
    EXPECT_NEAR(GetView(plotter).zoom, 1.0, 1e-12);
    EXPECT_EQ(plotter.Renderscene(), 0);
}

// A picture of a plot that has no size yet shows what waits, and takes nothing of it.
TEST_P(View, ThatWaitsIsInPictures) {
    SKivoView view = GetView(plotter);
    view.zoom = 1.5;
    view.panX = 0.1;
    ASSERT_EQ(SetView(plotter, view), 0);
    const Image expected = CaptureImage(plotter, 400, 240);
    TestPlot late(GetParam(), 400, 240);
    late.plotter.OnDestroy();
    std::fill(late.plotter.m_plotViewport, late.plotter.m_plotViewport + 4, 0);
    ASSERT_EQ(late.plotter.OnCreate(late.window.Handle(), true), 0);
    SetSurface(late.plotter, surface);
    ASSERT_EQ(SetView(late.plotter, view), 0);
    for (int i = 0; i < 2; ++i)
        EXPECT_TRUE(ImagesAgree(CaptureImage(late.plotter, 400, 240), expected, 255, 0.05, "view-waiting"));
    late.plotter.OnSize(0, 400, 240);
    ExpectSameView(GetView(late.plotter), view, 1e-12);
}

TEST_P(View, ResetWithoutAWindowTakesThePanBack) {
    plotter.Translate({0, 0}, {60, 45});
    plotter.OnDestroy();
    EXPECT_EQ(ResetView(plotter), 0);
    ASSERT_EQ(plotter.OnCreate(plot.window.Handle(), 400, 240, true), 0);
    SetSurface(plotter, surface);
    EXPECT_EQ(GetView(plotter).panX, 0.0);
}

TEST_P(View, ThatWaitsSurvivesAWindowThatFails) {
    plotter.OnDestroy();
    const SKivoView view = AskedView(3);
    ASSERT_EQ(SetView(plotter, view), 0);
    EXPECT_EQ(plotter.OnCreate(nullptr, 400, 240, true), -1);
    ExpectSameView(GetView(plotter), view, 0.0);
    ASSERT_EQ(plotter.OnCreate(plot.window.Handle(), 400, 240, true), 0);
    SetSurface(plotter, surface);
    ExpectShown(view);
}

KIVO_IN_ONE_WINDOW(View);

// ---- Steps of a hand

namespace {

// Where a data point stands on the screen.
POINT PlaceOf(PlotterProbe& plotter, float x, float y, float z, int windowHeight) {
    float seen[3] = {};
    const CurrentContext context(plotter);
    plotter.ApplyViewVolume();
    plotter.ApplyModelViewMatrix();
    plotter.Project(x, y, z, seen);
    return {static_cast<int>(std::lround(seen[0])), windowHeight - static_cast<int>(std::lround(seen[1]))};
}

void ExpectNear(POINT place, POINT expected) {
    EXPECT_NEAR(place.x, expected.x, 1);
    EXPECT_NEAR(place.y, expected.y, 1);
}

} // namespace

TEST(ViewSteps, TurnUprightPlotsAboutZ) {
    TestPlot plot(WindowKind::offscreen, 400, 300);
    SetSurface(plot.plotter, HillSurface(12, 10));
    ASSERT_EQ(SetViewAngles(plot.plotter, 30.0, 20.0), 0);
    double azimuth = 0.0, elevation = 0.0;
    EXPECT_EQ(TurnView(plot.plotter, 50.0, 5.0), 0);
    EXPECT_EQ(GetViewAngles(plot.plotter, azimuth, elevation), 0);
    EXPECT_NEAR(azimuth, -20.0, 1e-6);
    EXPECT_NEAR(elevation, 25.0, 1e-6);
    EXPECT_EQ(TurnView(plot.plotter, 0.0, 500.0), 0);
    EXPECT_EQ(GetViewAngles(plot.plotter, azimuth, elevation), 0);
    EXPECT_NEAR(azimuth, -20.0, 1e-6);
    EXPECT_NEAR(elevation, 90.0, 1e-6);
}

TEST(ViewSteps, TurnLeaningPlotsOnTheScreen) {
    TestPlot plot(WindowKind::offscreen, 400, 300);
    SetSurface(plot.plotter, HillSurface(12, 10));
    SKivoView leaning;
    const Matrix turn = Rotation(40.0, 0.0, 0.6, 0.8);
    for (int axis = 0; axis < 3; ++axis)
        std::copy(turn.begin() + 4 * axis, turn.begin() + 4 * axis + 3, leaning.rotation + 3 * axis);
    ASSERT_EQ(SetView(plot.plotter, leaning), 0);
    ASSERT_EQ(TurnView(plot.plotter, 10.0, 0.0), 0);
    const SKivoView turned = GetView(plot.plotter);
    for (int axis = 0; axis < 3; ++axis) // about the screen's vertical
        EXPECT_NEAR(turned.rotation[3 * axis + 1], leaning.rotation[3 * axis + 1], 1e-9);
    EXPECT_GT(std::abs(turned.rotation[0] - leaning.rotation[0]), 0.01);
    plot.plotter.SwitchToXYProjectPlot();
    EXPECT_EQ(TurnView(plot.plotter, 10.0, 0.0), -3);
    plot.plotter.SwitchToNormalPlot();
    EXPECT_EQ(TurnView(plot.plotter, notANumber, 0.0), -3);
    EXPECT_EQ(TurnView(plot.plotter, 0.0, infinity), -3);
}

TEST(ViewSteps, KeepWhatIsPointedAtUnderThePointer) {
    for (const Switch show : switches) {
        TestPlot plot(WindowKind::offscreen, 640, 480);
        SetSurface(plot.plotter, HillSurface(12, 10));
        Show(plot.plotter, show);
        const POINT before = PlaceOf(plot.plotter, 1.0f, 0.5f, 0.25f, 480);
        for (const double factor : {1.5, 0.5, 3.0}) {
            ASSERT_EQ(ZoomView(plot.plotter, factor, before), 0);
            ExpectNear(PlaceOf(plot.plotter, 1.0f, 0.5f, 0.25f, 480), before);
        }
        EXPECT_NEAR(GetView(plot.plotter).zoom, 2.25, 1e-6);
        ASSERT_EQ(ShiftView(plot.plotter, {10, 20}, {47, -11}), 0);
        ExpectNear(PlaceOf(plot.plotter, 1.0f, 0.5f, 0.25f, 480), {before.x + 37, before.y - 31});
    }
}

TEST(ViewSteps, AreRefusedWithoutChange) {
    TestPlot plot(WindowKind::offscreen, 400, 300);
    SetSurface(plot.plotter, HillSurface(12, 10));
    const SKivoView before = GetView(plot.plotter);
    for (const double factor : {0.0, -1.0, notANumber, infinity})
        EXPECT_EQ(ZoomView(plot.plotter, factor, {200, 100}), -3) << factor;
    ExpectSameView(GetView(plot.plotter), before, 0.0);
    CKivoFunctionPlotter nowhere; // the view waits for a window
    EXPECT_EQ(ZoomView(nowhere, 2.0, {200, 100}), 0);
    EXPECT_EQ(ShiftView(nowhere, {0, 0}, {5, 5}), 0);
    EXPECT_EQ(TurnView(nowhere, 5.0, 5.0), 0);
    EXPECT_EQ(GetView(nowhere).zoom, 2.0);
}
