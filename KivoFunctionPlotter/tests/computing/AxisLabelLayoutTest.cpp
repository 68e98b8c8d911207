// Labels and titles of the 3-D box: each placing rule with numbers worked out by hand, and a sweep over
// views, windows and label widths with a geometric check of its own.

#include "computing/AxisLabelLayout.h"
#include "support/Deadline.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <limits>
#include <vector>

namespace KivoDrawingTools {

namespace {

constexpr double radian = 3.14159265358979323846 / 180.0;
constexpr double characterWidth = 7.0;
constexpr double characterHeight = 13.0;

using Polygon = std::vector<ScreenVector>; // convex; two points are a segment

// ---- The check: separating axes of convex polygons, from their corners alone

struct Range {
    double low = std::numeric_limits<double>::infinity();
    double high = -std::numeric_limits<double>::infinity();
};

template <typename Points>
Range RangeAlong(const Points& points, double x, double y) {
    Range range;
    for (const ScreenVector& point : points) {
        range.low = std::min(range.low, point.x * x + point.y * y);
        range.high = std::max(range.high, point.x * x + point.y * y);
    }
    return range;
}

template <typename A, typename B>
bool IsSeparatedBySideOf(const A& a, const B& b) {
    for (std::size_t i = 0; i < a.size(); ++i) {
        const ScreenVector from = a[i];
        const ScreenVector to = a[(i + 1) % a.size()];
        const Range first = RangeAlong(a, from.y - to.y, to.x - from.x);
        const Range second = RangeAlong(b, from.y - to.y, to.x - from.x);
        if (first.high < second.low || second.high < first.low) return true;
    }
    return false;
}

template <typename A, typename B>
bool Meet(const A& a, const B& b) {
    return !IsSeparatedBySideOf(a, b) && !IsSeparatedBySideOf(b, a);
}

using Corners = std::array<ScreenVector, 4>;

Corners CornersOf(const PlacedImage& image) {
    Corners corners;
    const double signs[4][2] = {{-1, -1}, {1, -1}, {1, 1}, {-1, 1}};
    for (int i = 0; i < 4; ++i) {
        const double w = signs[i][0] * image.halfWidth;
        const double h = signs[i][1] * image.halfHeight;
        corners[i] = {image.center.x + w * image.right.x + h * image.up.x,
                      image.center.y + w * image.right.y + h * image.up.y};
    }
    return corners;
}

double Turn(ScreenVector a, ScreenVector b, ScreenVector c) {
    return (b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x);
}

// The convex hull, by walking along its lower and then its upper side.
Polygon HullOf(std::array<ScreenVector, 8> points) {
    std::sort(points.begin(), points.end(),
              [](ScreenVector a, ScreenVector b) { return a.x < b.x || (a.x == b.x && a.y < b.y); });
    Polygon hull;
    for (int side = 0; side < 2; ++side) {
        const std::size_t start = hull.size();
        for (const ScreenVector& point : points) {
            while (hull.size() >= start + 2 && Turn(hull[hull.size() - 2], hull.back(), point) <= 0.0)
                hull.pop_back();
            hull.push_back(point);
        }
        hull.pop_back();
        std::reverse(points.begin(), points.end());
    }
    return hull;
}

// ---- Views as the plotter makes them

struct View {
    double azimuth = 0.0; // degrees
    double elevation = 0.0;
    double roll = 0.0; // on the screen
    bool isStart = false;
    unsigned int inverted = 0; // bits 0, 1, 2: X, Y, Z
    int window[2] = {1024, 768};
    bool isSwitching = true;
    int characters[3] = {3, 3, 3};
    int titleCharacters = 6;
    bool isEachTitleWanted = false;
};

constexpr float dataMin[] = {0, 0, -1};
constexpr float dataMax[] = {100, 10, 1};
constexpr float boxMin[] = {-5, -0.5f, -1.5f};
constexpr float boxMax[] = {115, 11.5f, 2};
constexpr int tickCounts[] = {7, 7, 8};

struct Scene {
    AxisBoxOnScreen box;
    std::array<ScreenVector, 8> corners;
    std::vector<std::array<ScreenVector, 2>> outlines;
};

void SetRotation(const View& view, double* rotation) {
    const double a = view.azimuth * radian, e = view.elevation * radian;
    double columns[3][3] = {{std::cos(a), std::sin(a) * std::sin(e), -std::sin(a) * std::cos(e)},
                            {-std::sin(a), std::cos(a) * std::sin(e), -std::cos(a) * std::cos(e)},
                            {0, std::cos(e), std::sin(e)}};
    if (view.isStart) {
        const double iso[3][3] = {
            {-0.707107, -0.408204, 0.577382}, {0.707107, -0.408204, 0.577382}, {0, 0.816541, 0.577288}};
        const double c = std::cos(-10 * radian), s = std::sin(-10 * radian);
        for (int i = 0; i < 3; ++i) {
            columns[i][0] = iso[i][0];
            columns[i][1] = c * iso[i][1] - s * iso[i][2];
            columns[i][2] = s * iso[i][1] + c * iso[i][2];
        }
    }
    const double cosRoll = std::cos(view.roll * radian), sinRoll = std::sin(view.roll * radian);
    for (auto& column : columns) {
        const double x = column[0], y = column[1];
        column[0] = cosRoll * x - sinRoll * y;
        column[1] = sinRoll * x + cosRoll * y;
    }
    std::fill(rotation, rotation + 16, 0.0);
    for (int i = 0; i < 3; ++i)
        for (int j = 0; j < 3; ++j)
            rotation[4 * i + j] = (view.inverted >> i & 1U) ? -columns[i][j] : columns[i][j];
    rotation[15] = 1.0;
}

// The grid box's edges and tick directions for its back planes.
void SetEdges(const bool* back, float (*base)[3], float (*direction)[3]) {
    const float x[] = {boxMin[0], boxMax[0]}, y[] = {boxMin[1], boxMax[1]}, z[] = {boxMin[2], boxMax[2]};
    const float bases[3][3] = {
        {x[0], y[back[0]], z[!back[1]]}, {x[back[2]], y[0], z[!back[1]]}, {x[back[0]], y[!back[2]], z[0]}};
    const float zAxis[2][2][2] = {{{0, 1}, {-1, 0}}, {{1, 0}, {0, -1}}};
    const float out = back[1] ? -1.0f : 1.0f;
    const float directions[3][3] = {
        {0, 0, out}, {0, 0, out}, {zAxis[back[0]][back[2]][0], zAxis[back[0]][back[2]][1], 0}};
    std::copy(&bases[0][0], &bases[0][0] + 9, base[0]);
    std::copy(&directions[0][0], &directions[0][0] + 9, direction[0]);
}

void AddTicks(const View& view, AxisBoxOnScreen* box) {
    for (int axis = 0; axis < 3; ++axis) {
        AxisEdge& edge = box->axes[axis];
        edge.ticks.resize(tickCounts[axis]);
        for (int i = 0; i < tickCounts[axis]; ++i) {
            const int characters = std::max(1, view.characters[axis] - i % 2);
            edge.ticks[i].fraction = static_cast<double>(i) / (tickCounts[axis] - 1);
            edge.ticks[i].label = {std::max(characterWidth * characters, characterHeight), characterHeight};
        }
        edge.title = {characterWidth * view.titleCharacters, characterHeight};
    }
}

Scene MakeScene(const View& view) {
    double scale[3];
    double diagonal = 0.0;
    for (int i = 0; i < 3; ++i) {
        scale[i] = i == 2 ? 1.0 : 1.2 * (boxMax[2] - boxMin[2]) / (boxMax[i] - boxMin[i]);
        diagonal += std::pow(scale[i] * (boxMax[i] - boxMin[i]), 2);
    }
    const double width = std::floor(0.84 * view.window[0]), height = view.window[1];
    const double halfHeight = 0.6 * std::sqrt(diagonal) * 1.01 * (width >= height ? 1.0 : height / width);
    const double worldPerPixel = 2.0 * halfHeight / height;
    double rotation[16];
    SetRotation(view, rotation);
    bool back[3];
    for (int i = 0; i < 3; ++i) {
        const int axis = (i + 1) % 3; // XZ, XY and YZ lie across Y, Z and X
        back[i] = view.isSwitching ? rotation[4 * axis + 2] >= 0.0 : !(view.inverted >> axis & 1U);
    }
    const auto project = [&](const float* p) {
        ScreenVector eye = {2.0 * halfHeight * width / height * 0.055, -2.0 * halfHeight * 0.025};
        for (int i = 0; i < 3; ++i) {
            const double q = scale[i] * (p[i] - 0.5 * (dataMin[i] + dataMax[i]));
            eye.x += rotation[4 * i] * q;
            eye.y += rotation[4 * i + 1] * q;
        }
        return ScreenVector{width / 2 + eye.x / worldPerPixel, height / 2 + eye.y / worldPerPixel};
    };

    Scene scene;
    for (unsigned int i = 0; i < 8; ++i) {
        const float corner[] = {(i & 1U) ? boxMax[0] : boxMin[0], (i & 2U) ? boxMax[1] : boxMin[1],
                                (i & 4U) ? boxMax[2] : boxMin[2]};
        scene.corners[i] = project(corner);
    }
    // Each back plane is one face: the four corners with one bit fixed.
    for (int i = 0; i < 3; ++i) {
        const unsigned int bit = 1U << (i + 1) % 3, u = 1U << (i + 2) % 3, v = 1U << i;
        const unsigned int first = back[i] ? 0U : bit;
        const unsigned int loop[] = {first, first | u, first | u | v, first | v};
        for (int j = 0; j < 4; ++j)
            scene.outlines.push_back({scene.corners[loop[j]], scene.corners[loop[(j + 1) % 4]]});
    }
    float base[3][3], direction[3][3];
    SetEdges(back, base, direction);
    const float middle[] = {0.5f * (boxMin[0] + boxMax[0]), 0.5f * (boxMin[1] + boxMax[1]),
                            0.5f * (boxMin[2] + boxMax[2])};
    ProjectAxisBox({boxMin, boxMax, {back[2], back[0], back[1]}, base, direction}, worldPerPixel, scale,
                   rotation, project(middle), &scene.box);
    AddTicks(view, &scene.box);
    return scene;
}

// ---- The sweep

struct Counts {
    long views = 0;
    long labels = 0;
    long shown = 0;
    long onShortEdges = 0;
    long thinned = 0;
    long crowdedOut = 0;
    long titles = 0;
    long titlesShown = 0;
};

double Percent(long part, long all) {
    return 100.0 * static_cast<double>(part) / static_cast<double>(all);
}

void Print(const char* name, const Counts& counts) {
    std::printf(
        "%s: %ld views; labels: %ld of %ld shown (%.1f %%), left out: %ld on short edges, %ld thinned, "
        "%ld that would meet something; titles: %ld of %ld shown (%.1f %%)\n",
        name, counts.views, counts.shown, counts.labels, Percent(counts.shown, counts.labels),
        counts.onShortEdges, counts.thinned, counts.crowdedOut, counts.titlesShown, counts.titles,
        Percent(counts.titlesShown, counts.titles));
}

// What images have to keep clear of in one view, and what is shown there.
class Judge {
public:
    Judge(const Scene& scene, const AxisLabelLayout& layout, bool isSwitching)
        : m_scene(scene), m_layout(layout), m_isSwitching(isSwitching), m_hull(HullOf(scene.corners)) {
        for (int axis = 0; axis < 3; ++axis)
            Add(layout.Title(axis));
        m_titleCount = m_shown.size();
        for (int axis = 0; axis < 3; ++axis)
            for (const PlacedImage& label : layout.Labels(axis))
                Add(label);
    }

    // The first fault of what is shown, or null.
    const char* Fault() const {
        for (const PlacedImage& image : m_shown) {
            const double determinant = image.right.x * image.up.y - image.right.y * image.up.x;
            if (std::abs(determinant - 1.0) > 1e-12) return "an image is mirrored or skewed";
            if (image.up.y < 0.0) return "an image is upside down";
        }
        for (std::size_t i = 0; i < m_quads.size(); ++i) {
            const bool mayMeetBox = i < m_titleCount && m_scene.box.isEachTitleWanted;
            if (!mayMeetBox && MeetsBox(m_quads[i])) return "an image meets the box";
            if (!mayMeetBox && m_isSwitching && Meet(m_quads[i], m_hull)) return "an image lies over the box";
            if (IsCut(m_quads[i])) return "an image is cut by the border";
            for (std::size_t j = 0; j < i; ++j)
                if (Meet(m_quads[i], m_quads[j])) return "two images meet";
        }
        return nullptr;
    }

    // Counts the labels, with the reason of each that is left out; false when one has none.
    bool Explain(Counts* counts) const {
        bool isExplained = true;
        for (int axis = 0; axis < 3; ++axis) {
            const AxisEdge& edge = m_scene.box.axes[axis];
            const std::vector<PlacedImage>& labels = m_layout.Labels(axis);
            const bool isShort = std::hypot(edge.end.x - edge.begin.x, edge.end.y - edge.begin.y) < 24.0;
            const std::size_t stride = isShort ? 1 : StrideNeeded(labels);
            for (std::size_t i = 0; i < labels.size(); ++i) {
                const bool isThinned = i % stride != 0;
                ++counts->labels;
                ++(labels[i].isShown ? counts->shown
                   : isShort         ? counts->onShortEdges
                   : isThinned       ? counts->thinned
                                     : counts->crowdedOut);
                if (labels[i].isShown && (isShort || isThinned)) isExplained = false;
                if (!labels[i].isShown && !isShort && !isThinned && !IsCrowded(labels[i]))
                    isExplained = false;
            }
            ++counts->titles;
            counts->titlesShown += m_layout.Title(axis).isShown;
        }
        return isExplained;
    }

private:
    void Add(const PlacedImage& image) {
        if (!image.isShown) return;
        m_shown.push_back(image);
        m_quads.push_back(CornersOf(image));
    }

    bool MeetsBox(const Corners& quad) const {
        for (const auto& line : m_scene.outlines)
            if (Meet(quad, line)) return true;
        for (std::size_t i = 0; i < m_hull.size(); ++i)
            if (Meet(quad, std::array<ScreenVector, 2>{m_hull[i], m_hull[(i + 1) % m_hull.size()]}))
                return true;
        return false;
    }

    bool IsCut(const Corners& quad) const {
        const ScreenVector size = m_scene.box.viewport;
        const Range x = RangeAlong(quad, 1.0, 0.0), y = RangeAlong(quad, 0.0, 1.0);
        return size.x > 0.0 && (x.low < 0.0 || x.high > size.x || y.low < 0.0 || y.high > size.y);
    }

    // With two pixels around it, does the label meet anything?
    bool IsCrowded(PlacedImage label) const {
        if (IsCut(CornersOf(label))) return true;
        label.halfWidth += 2.0;
        label.halfHeight += 2.0;
        const Corners quad = CornersOf(label);
        return MeetsBox(quad) || std::any_of(m_quads.begin(), m_quads.end(),
                                             [&](const Corners& other) { return Meet(quad, other); });
    }

    static std::size_t StrideNeeded(const std::vector<PlacedImage>& labels) {
        for (const std::size_t stride : {1, 2, 5}) {
            bool isApart = true;
            for (std::size_t i = stride; i < labels.size(); i += stride) {
                const PlacedImage& a = labels[i - stride];
                const PlacedImage& b = labels[i];
                isApart = isApart && (std::abs(a.center.x - b.center.x) >= a.halfWidth + b.halfWidth + 2.0 ||
                                      std::abs(a.center.y - b.center.y) >= a.halfHeight + b.halfHeight + 2.0);
            }
            if (isApart) return stride;
        }
        return 10;
    }

    const Scene& m_scene;
    const AxisLabelLayout& m_layout;
    bool m_isSwitching;
    Polygon m_hull;
    std::vector<PlacedImage> m_shown; // the titles first
    std::vector<Corners> m_quads;
    std::size_t m_titleCount = 0;
};

void CheckView(const View& view, bool hasViewport, AxisLabelLayout* layout, Counts* counts) {
    Scene scene = MakeScene(view);
    if (hasViewport)
        scene.box.viewport = {std::floor(0.84 * view.window[0]), static_cast<double>(view.window[1])};
    scene.box.isEachTitleWanted = view.isEachTitleWanted;
    layout->Place(scene.box);
    ++counts->views;
    const Judge judge(scene, *layout, view.isSwitching);
    const char* fault = judge.Fault();
    if (!fault && !judge.Explain(counts)) fault = "a label is shown or left out without reason";
    EXPECT_EQ(nullptr, fault) << fault << ": azimuth " << view.azimuth << ", elevation " << view.elevation
                              << ", inverted " << view.inverted << ", window " << view.window[0] << " x "
                              << view.window[1] << ", characters " << view.characters[0] << ' '
                              << view.characters[1] << ' ' << view.characters[2] << ' '
                              << view.titleCharacters;
}

constexpr int windows[][2] = {{320, 240}, {640, 480}, {1024, 768}, {1920, 1080}, {2560, 1440}};

// Every direction of view, every inversion and every window. Label widths of 1 to 9 characters and titles of
// 1 to 20 take turns, other ones on each axis; the viewport is known in every other view.
Counts Sweep(bool isSwitching) {
    Counts counts;
    AxisLabelLayout layout;
    View view;
    view.isSwitching = isSwitching;
    int step = 0;
    for (int azimuth = 0; azimuth < 360; azimuth += 5)
        for (int elevation = -90; elevation <= 90; elevation += 10)
            for (unsigned int inverted = 0; inverted < 8; ++inverted)
                for (const auto& window : windows) {
                    view.azimuth = azimuth;
                    view.elevation = elevation;
                    view.inverted = inverted;
                    std::copy(window, window + 2, view.window);
                    for (int axis = 0; axis < 3; ++axis)
                        view.characters[axis] = 1 + (step + 3 * axis) % 9;
                    view.titleCharacters = 1 + step % 20;
                    CheckView(view, step / 5 % 2 == 0, &layout, &counts);
                    if (testing::Test::HasFailure()) return counts;
                    ++step;
                }
    return counts;
}

} // namespace

TEST(AxisLabelLayoutSweep, SwitchingPlanes) {
    const Counts counts = Sweep(true);
    Print("switching planes", counts);
    EXPECT_EQ(54720, counts.views);
    EXPECT_LT(80.0, Percent(counts.shown, counts.labels));
    EXPECT_LT(90.0, Percent(counts.titlesShown, counts.titles));
}

TEST(AxisLabelLayoutSweep, FixedPlanes) {
    const Counts counts = Sweep(false);
    Print("fixed planes", counts);
    EXPECT_EQ(54720, counts.views);
    EXPECT_LT(68.0, Percent(counts.shown, counts.labels));
    EXPECT_LT(75.0, Percent(counts.titlesShown, counts.titles));
}

TEST(AxisLabelLayoutSweep, ViewsTurnedOnTheScreen) {
    Counts counts;
    AxisLabelLayout layout;
    View view;
    int step = 0;
    for (int azimuth = 0; azimuth < 360; azimuth += 15)
        for (int elevation = -90; elevation <= 90; elevation += 15)
            for (int roll = 15; roll < 360 && !HasFailure(); roll += 15) {
                view.azimuth = azimuth;
                view.elevation = elevation;
                view.roll = roll;
                view.isSwitching = step % 2 == 0;
                for (int axis = 0; axis < 3; ++axis)
                    view.characters[axis] = 1 + (step + 3 * axis) % 9;
                CheckView(view, step % 4 < 2, &layout, &counts);
                ++step;
            }
    Print("turned on the screen", counts);
}

// In windows with room enough, with planes that do not switch too.
TEST(AxisLabelLayoutSweep, EachTitleThatIsWantedFindsAPlace) {
    AxisLabelLayout layout;
    View view;
    view.isEachTitleWanted = true;
    for (const bool isSwitching : {true, false}) {
        Counts counts;
        Counts before;
        int step = 0;
        view.isSwitching = isSwitching;
        for (int azimuth = 5; azimuth < 360; azimuth += 12)
            for (int elevation = 10; elevation <= 80; elevation += 7)
                for (const auto& window : windows) {
                    if (window[0] < 640) continue;
                    view.azimuth = azimuth;
                    view.elevation = elevation;
                    std::copy(window, window + 2, view.window);
                    view.titleCharacters = 1 + ++step % 12;
                    CheckView(view, true, &layout, &counts);
                    view.isEachTitleWanted = false;
                    CheckView(view, true, &layout, &before);
                    view.isEachTitleWanted = true;
                }
        Print(isSwitching ? "switching planes, each title wanted" : "fixed planes, each title wanted",
              counts);
        Print(isSwitching ? "switching planes, not wanted" : "fixed planes, not wanted", before);
        EXPECT_EQ(counts.titles, counts.titlesShown);
        if (isSwitching) {
            EXPECT_EQ(before.shown, counts.shown) << "nothing to look for";
        } else {
            EXPECT_LT(before.titlesShown, counts.titlesShown);
        }
    }
}

// In small windows some find none; what is shown is clear of all but lines.
TEST(AxisLabelLayoutSweep, TitlesThatAreWantedInSmallWindows) {
    AxisLabelLayout layout;
    Counts counts;
    View view;
    view.isEachTitleWanted = true;
    int step = 0;
    for (int azimuth = 0; azimuth < 360; azimuth += 15)
        for (int elevation = -90; elevation <= 90; elevation += 15)
            for (const int size : {60, 120, 200, 320}) {
                view.azimuth = azimuth;
                view.elevation = elevation;
                view.window[0] = size;
                view.window[1] = 300 - size / 2;
                view.titleCharacters = 1 + ++step % 20;
                view.isSwitching = step % 2 == 0;
                CheckView(view, true, &layout, &counts);
            }
    Print("small windows", counts);
    EXPECT_LT(60.0, Percent(counts.titlesShown, counts.titles));
}

// The ticks of X and Y that end at the corner in front have one and the same place below it for their labels;
// of these two only X's is shown. From 1024 x 768 on that is the one label left out.
TEST(AxisLabelLayoutSweep, StartView) {
    AxisLabelLayout layout;
    const double leastShare[] = {40.0, 75.0, 95.4, 95.4, 95.4};
    for (int window = 0; window < 5; ++window) {
        Counts counts;
        View view;
        view.isStart = true;
        std::copy(windows[window], windows[window] + 2, view.window);
        for (int characters = 1; characters <= 9; ++characters)
            for (unsigned int inverted = 0; inverted < 8; ++inverted) {
                std::fill(view.characters, view.characters + 3, characters);
                view.inverted = inverted;
                CheckView(view, true, &layout, &counts);
            }
        char name[40];
        std::snprintf(name, sizeof name, "start view, %d x %d", view.window[0], view.window[1]);
        Print(name, counts);
        EXPECT_LE(leastShare[window], Percent(counts.shown, counts.labels)) << name;
        if (window < 2) continue;
        EXPECT_EQ(0, counts.thinned) << name;
        EXPECT_EQ(counts.views, counts.crowdedOut) << name;
        EXPECT_EQ(counts.titles, counts.titlesShown) << name;
    }
}

TEST(AxisLabelLayoutSweep, StartViewWithoutTheViewportIsNotCutInLargeWindows) {
    AxisLabelLayout layout;
    for (const auto& window : windows)
        for (int characters = 1; characters <= 9; ++characters) {
            if (window[0] < 640) continue;
            View view;
            view.isStart = true;
            std::copy(window, window + 2, view.window);
            std::fill(view.characters, view.characters + 3, characters);
            Scene scene = MakeScene(view);
            layout.Place(scene.box);
            scene.box.viewport = {std::floor(0.84 * window[0]), static_cast<double>(window[1])};
            EXPECT_EQ(nullptr, Judge(scene, layout, true).Fault())
                << window[0] << " x " << window[1] << ", characters " << characters;
        }
}

// ---- The rules, one by one

namespace {

// A square box seen along Y: corners at 200 and 400 in both directions, X along its lower side, Z along its
// left side, Y end-on. No ticks, no titles.
AxisBoxOnScreen SquareBox() {
    AxisBoxOnScreen box;
    for (unsigned int i = 0; i < 8; ++i)
        box.corners[i] = {(i & 1U) ? 400.0 : 200.0, (i & 4U) ? 400.0 : 200.0};
    box.axes[0].begin = box.corners[0];
    box.axes[0].end = box.corners[1];
    box.axes[0].tickDirection = {0, -1};
    box.axes[1].begin = box.corners[1];
    box.axes[1].end = box.corners[3];
    box.axes[2].begin = box.corners[0];
    box.axes[2].end = box.corners[4];
    box.axes[2].tickDirection = {-1, 0};
    return box;
}

// Ticks evenly from one end of an edge to the other.
void SetTicks(AxisEdge* edge, int count, TextImageSize label) {
    edge->ticks.clear();
    for (int i = 0; i < count; ++i)
        edge->ticks.push_back({static_cast<double>(i) / (count - 1), label});
}

PlacedImage PlaceOne(AxisBoxOnScreen box, int axis, double fraction, TextImageSize size) {
    AxisLabelLayout layout;
    box.axes[axis].ticks = {{fraction, size}};
    layout.Place(box);
    return layout.Labels(axis)[0];
}

// The numbers of the ticks whose labels are shown.
std::vector<int> Shown(const AxisLabelLayout& layout, int axis) {
    std::vector<int> shown;
    for (std::size_t i = 0; i < layout.Labels(axis).size(); ++i)
        if (layout.Labels(axis)[i].isShown) shown.push_back(static_cast<int>(i));
    return shown;
}

void ExpectAt(double x, double y, const PlacedImage& image) {
    EXPECT_TRUE(image.isShown);
    EXPECT_NEAR(x, image.center.x, 1e-9);
    EXPECT_NEAR(y, image.center.y, 1e-9);
}

constexpr TextImageSize label = {50, 20}; // its quad is 40 by 16
const double notNumbers[] = {std::numeric_limits<double>::quiet_NaN(),
                             std::numeric_limits<double>::infinity(),
                             -std::numeric_limits<double>::infinity(), 1e308};

} // namespace

TEST(AxisLabelLayout, LabelsAreFourFifthsOfTheirImagesAndUpright) {
    const PlacedImage placed = PlaceOne(SquareBox(), 0, 0.5, label);
    EXPECT_DOUBLE_EQ(20, placed.halfWidth);
    EXPECT_DOUBLE_EQ(8, placed.halfHeight);
    EXPECT_EQ(1.0, placed.right.x);
    EXPECT_EQ(0.0, placed.right.y);
    EXPECT_EQ(0.0, placed.up.x);
    EXPECT_EQ(1.0, placed.up.y);
}

TEST(AxisLabelLayout, NearSideOfALabelStandsAtTheOffset) {
    ExpectAt(250, 200 - 12.5 - 8, PlaceOne(SquareBox(), 0, 0.25, label));
    ExpectAt(200 - 12.5 - 20, 350, PlaceOne(SquareBox(), 2, 0.75, label));
    AxisBoxOnScreen box = SquareBox();
    box.labelOffset = 30;
    ExpectAt(250, 200 - 30 - 8, PlaceOne(box, 0, 0.25, label));
}

TEST(AxisLabelLayout, LabelsFollowTheirTicks) {
    AxisBoxOnScreen box = SquareBox();
    box.axes[0].otherDirection = {0.6, -0.8};
    box.axes[0].tickDirection = {-0.6, -0.8};
    ExpectAt(300 - 20.5 * 0.75, 200 - 20.5, PlaceOne(box, 0, 0.5, label));
    // The length on the screen says nothing about the way.
    box.axes[0].tickDirection = {-0.3, -0.4};
    ExpectAt(300 - 20.5 * 0.75, 200 - 20.5, PlaceOne(box, 0, 0.5, label));
    // Along (0.8, -0.6), with the box on the upper right: the label reaches 0.6 * 20 + 0.8 * 8 = 18.4 across.
    box = SquareBox();
    box.axes[0].end = {360, 80};
    box.axes[0].tickDirection = {0, -1};
    ExpectAt(280, 140 - 1.25 * (12.5 + 18.4), PlaceOne(box, 0, 0.5, label));
}

TEST(AxisLabelLayout, LabelsLeaveTheirEdgeAtThirtyDegreesOrMore) {
    AxisBoxOnScreen box = SquareBox();
    box.axes[0].tickDirection = {-0.9, -0.3};
    ExpectAt(300 - 20.5 * std::sqrt(3.0), 200 - 20.5, PlaceOne(box, 0, 0.5, label));
    box.axes[0].tickDirection = {0.9, -0.3};
    ExpectAt(300 + 20.5 * std::sqrt(3.0), 200 - 20.5, PlaceOne(box, 0, 0.5, label));
}

TEST(AxisLabelLayout, TicksOfAFaceSeenEdgeOnGiveWayToTheOtherFace) {
    AxisBoxOnScreen box = SquareBox();
    box.axes[0].otherDirection = {0.3, -0.9};
    for (const ScreenVector ticks : {ScreenVector{0, 0}, ScreenVector{-0.9, -0.19}, ScreenVector{0, 1}}) {
        box.axes[0].tickDirection = ticks;
        ExpectAt(300 + 20.5 / 3, 200 - 20.5, PlaceOne(box, 0, 0.5, label));
    }
    box.axes[0].otherDirection = {0, 0};
    ExpectAt(300, 200 - 20.5, PlaceOne(box, 0, 0.5, label));
}

TEST(AxisLabelLayout, TitleStandsAtMidEdgeBeyondTheLabels) {
    AxisLabelLayout layout;
    AxisBoxOnScreen box = SquareBox();
    SetTicks(&box.axes[0], 3, label);
    SetTicks(&box.axes[2], 3, label);
    box.axes[0].title = {60, 20};
    box.axes[2].title = {60, 20};
    layout.Place(box);
    // X: the labels end at 28.5, before 2.8 offsets; Z: they end at 52.5.
    ExpectAt(300, 200 - 35 - 10, layout.Title(0));
    ExpectAt(200 - 56.5 - 10, 300, layout.Title(2));
    EXPECT_FALSE(layout.Title(1).isShown);
    EXPECT_DOUBLE_EQ(30, layout.Title(0).halfWidth);
    EXPECT_DOUBLE_EQ(10, layout.Title(0).halfHeight);
}

TEST(AxisLabelLayout, OnlyLabelsThatThinningLeavesPushTheTitleAway) {
    AxisLabelLayout layout;
    AxisBoxOnScreen box = SquareBox();
    SetTicks(&box.axes[2], 15, {20, 20}); // 14.3 pixels apart, 16 high: every other one is left
    box.axes[2].ticks[1].label = {200, 20};
    box.axes[2].title = {60, 20};
    layout.Place(box);
    ExpectAt(200 - 35 - 10, 300, layout.Title(2));
}

TEST(AxisLabelLayout, TitlesReadAlongTheirAxisAndNeverUpsideDown) {
    AxisLabelLayout layout;
    for (int degrees = 0; degrees < 360; degrees += 15) {
        AxisBoxOnScreen box = SquareBox();
        const double c = std::cos(degrees * radian), s = std::sin(degrees * radian);
        // Below the box, far enough to turn freely.
        box.axes[0].begin = {300 - 100 * c, -300 - 100 * s};
        box.axes[0].end = {300 + 100 * c, -300 + 100 * s};
        box.axes[0].title = {60, 20};
        layout.Place(box);
        const PlacedImage& title = layout.Title(0);
        ASSERT_TRUE(title.isShown) << degrees;
        EXPECT_NEAR(0.0, c * title.right.y - s * title.right.x, 1e-12) << degrees;
        EXPECT_NEAR(-title.right.y, title.up.x, 1e-12) << degrees;
        EXPECT_NEAR(title.right.x, title.up.y, 1e-12) << degrees;
        EXPECT_LE(0.0, title.up.y) << degrees;
    }
}

TEST(AxisLabelLayout, RoundingDoesNotTurnAVerticalTitleOver) {
    AxisLabelLayout layout;
    for (const double lean : {-1e-9, 0.0, 1e-9})
        for (const bool isUpwards : {false, true}) {
            AxisBoxOnScreen box = SquareBox();
            box.axes[2].end.x += lean;
            if (!isUpwards) std::swap(box.axes[2].begin, box.axes[2].end);
            box.axes[2].title = {60, 20};
            layout.Place(box);
            EXPECT_EQ(1.0, layout.Title(2).right.y);
            EXPECT_EQ(-1.0, layout.Title(2).up.x);
        }
}

TEST(AxisLabelLayout, NeighboursThatWouldTouchAreThinned) {
    // The quads are 40 wide, on 200 pixels.
    const struct {
        int ticks;
        int stride;
    } cases[] = {{5, 1},   {6, 2},   {9, 2},    {11, 5},    {21, 5},
                 {41, 10}, {81, 20}, {201, 50}, {401, 100}, {801, 200}};
    AxisLabelLayout layout;
    for (const auto& expected : cases) {
        AxisBoxOnScreen box = SquareBox();
        SetTicks(&box.axes[0], expected.ticks, label);
        layout.Place(box);
        std::vector<int> indices;
        for (int i = 0; i < expected.ticks; i += expected.stride)
            indices.push_back(i);
        EXPECT_EQ(indices, Shown(layout, 0)) << expected.ticks;
    }
}

TEST(AxisLabelLayout, NeighboursKeepTwoPixelsApart) {
    AxisLabelLayout layout;
    AxisBoxOnScreen box = SquareBox();
    SetTicks(&box.axes[0], 2, label);
    box.axes[0].ticks[1].fraction = 0.2101;
    layout.Place(box);
    EXPECT_EQ((std::vector<int>{0, 1}), Shown(layout, 0));
    box.axes[0].ticks[1].fraction = 0.2099;
    layout.Place(box);
    EXPECT_EQ((std::vector<int>{0}), Shown(layout, 0));
}

TEST(AxisLabelLayout, LabelsOnBothSidesOfAMissingOneAreNeighbours) {
    AxisLabelLayout layout;
    AxisBoxOnScreen box = SquareBox();
    SetTicks(&box.axes[0], 9, label);
    for (const int missing : {1, 3, 5, 7})
        box.axes[0].ticks[missing].label = {};
    layout.Place(box);
    EXPECT_EQ((std::vector<int>{0, 2, 4, 6, 8}), Shown(layout, 0));
    // 25 pixels between the ticks: two apart fit, the missing ones bring no others nearer.
    SetTicks(&box.axes[0], 17, label);
    for (int i = 1; i < 17; i += 2)
        box.axes[0].ticks[i].label = {};
    layout.Place(box);
    EXPECT_EQ((std::vector<int>{0, 10}), Shown(layout, 0)); // 5 is missing
}

TEST(AxisLabelLayout, AnAxisShowsAThousandLabelsAtMost) {
    AxisLabelLayout layout;
    AxisBoxOnScreen box = SquareBox();
    box.axes[0].begin.x = -1e6;
    box.axes[0].end.x = 1e6;
    SetTicks(&box.axes[0], 1000, label);
    layout.Place(box);
    EXPECT_EQ(1000U, Shown(layout, 0).size());
    SetTicks(&box.axes[0], 1001, label);
    layout.Place(box);
    EXPECT_EQ(501U, Shown(layout, 0).size());
}

// Labels of all three axes and a title that want one place below the left corner.
TEST(AxisLabelLayout, TitlesThenZThenXThenYLabelsTakeTheirPlaces) {
    AxisLabelLayout layout;
    AxisBoxOnScreen box = SquareBox();
    for (AxisEdge& edge : box.axes) {
        edge.begin = {200, 200};
        edge.end = {400, 200};
        edge.tickDirection = {0, -1};
        edge.ticks = {{0.5, {50, 60}}};
    }
    box.axes[1].title = {60, 20};
    layout.Place(box);
    EXPECT_TRUE(layout.Labels(2)[0].isShown);
    EXPECT_FALSE(layout.Labels(0)[0].isShown);
    EXPECT_FALSE(layout.Labels(1)[0].isShown);
    EXPECT_TRUE(layout.Title(1).isShown); // beyond its own axis's label, and so beyond Z's
    box.axes[2].ticks.clear();
    layout.Place(box);
    EXPECT_TRUE(layout.Labels(0)[0].isShown);
    EXPECT_FALSE(layout.Labels(1)[0].isShown);
    box.axes[0].title = {60, 20};
    box.axes[2].title = {60, 20};
    layout.Place(box);
    EXPECT_TRUE(layout.Title(2).isShown); // at 35 to 55, over the label of X from 12.5 to 60.5
    EXPECT_FALSE(layout.Labels(0)[0].isShown);
    EXPECT_FALSE(layout.Labels(1)[0].isShown);
    EXPECT_TRUE(layout.Title(0).isShown);
    EXPECT_FALSE(layout.Title(1).isShown);
    box.axes[0].ticks.clear();
    layout.Place(box);
    EXPECT_TRUE(layout.Title(2).isShown);
    EXPECT_FALSE(layout.Title(0).isShown);
    EXPECT_TRUE(layout.Title(1).isShown);
}

TEST(AxisLabelLayout, ShortEdgesShowNothing) {
    AxisLabelLayout layout;
    for (const double length : {0.0, 23.9, 24.1}) {
        AxisBoxOnScreen box = SquareBox();
        box.axes[0].end.x = 200 + length;
        box.axes[0].title = {20, 20};
        SetTicks(&box.axes[0], 2, {5, 5});
        layout.Place(box);
        EXPECT_EQ(length > 24, layout.Title(0).isShown) << length;
        EXPECT_EQ(length > 24 ? 2U : 0U, Shown(layout, 0).size()) << length;
    }
}

// The lower side of a box whose front corner is seen at (250, 250), inside the silhouette.
TEST(AxisLabelLayout, OnlyLinesThatAreDrawnAndTheSilhouetteStandInTheWay) {
    AxisBoxOnScreen box = SquareBox();
    const ScreenVector front = {250, 250};
    box.corners[7] = front;
    // From the corner in front to (350, 250): a label 34 below its middle, over the box and clear of all
    // lines.
    box.axes[0].begin = front;
    box.axes[0].end = {350, 250};
    box.corners[2] = {390, 390}; // leaves the square's sides to the other corners
    EXPECT_TRUE(PlaceOne(box, 0, 0.5, label).isShown);
    // The line from the corner in front to (400, 200) would cut it, were it drawn.
    box.corners[3] = {400, 200};
    EXPECT_TRUE(PlaceOne(box, 0, 0.5, label).isShown);
    box.backCorner = 2;
    EXPECT_FALSE(PlaceOne(box, 0, 0.5, label).isShown);
}

TEST(AxisLabelLayout, ASilhouetteThatIsNotDrawnStandsInTheWay) {
    AxisBoxOnScreen box = SquareBox();
    box.backCorner = 7; // the corner in front is 0, the lower left one
    // A vertical edge inside: its label reaches from 12.5 to 52.5 pixels to its left.
    box.axes[2].begin.x = 255;
    box.axes[2].end.x = 255;
    EXPECT_TRUE(PlaceOne(box, 2, 0.5, label).isShown);
    for (unsigned int i : {2U, 6U})
        box.corners[i].x = 260; // the left side is left to the lines of the corner in front
    box.axes[2].begin.x = 240;
    box.axes[2].end.x = 240;
    EXPECT_FALSE(PlaceOne(box, 2, 0.5, label).isShown);
}

TEST(AxisLabelLayout, WhatTheBorderWouldCutIsLeftOut) {
    AxisBoxOnScreen box = SquareBox();
    box.viewport = {600, 600};
    EXPECT_TRUE(PlaceOne(box, 0, 0.5, {50, 234}).isShown); // its lower side at 0.3
    EXPECT_FALSE(PlaceOne(box, 0, 0.5, {50, 235}).isShown);
    EXPECT_TRUE(PlaceOne(box, 2, 0.5, {234, 20}).isShown);
    EXPECT_FALSE(PlaceOne(box, 2, 0.5, {235, 20}).isShown);
    for (AxisEdge& edge : box.axes)
        edge.tickDirection = {};
    box.viewport = {320, 320}; // a label around (300, 179.5) reaches to 320
    EXPECT_TRUE(PlaceOne(box, 0, 0.499, label).isShown);
    EXPECT_FALSE(PlaceOne(box, 0, 0.501, label).isShown);
    EXPECT_TRUE(PlaceOne(box, 2, 0.559, label).isShown);
    EXPECT_FALSE(PlaceOne(box, 2, 0.561, label).isShown);
    box.viewport = {};
    EXPECT_TRUE(PlaceOne(box, 0, 0.501, label).isShown);
}

TEST(AxisLabelLayout, TitlesSlideAlongTheirAxisToStayInside) {
    AxisLabelLayout layout;
    AxisBoxOnScreen box = SquareBox();
    box.axes[0].title = {60, 20};
    box.axes[2].title = {60, 20};
    box.viewport = {320, 600};
    layout.Place(box);
    ExpectAt(289, 155, layout.Title(0)); // one pixel from the border
    ExpectAt(155, 300, layout.Title(2));
    box.viewport = {600, 250};
    layout.Place(box);
    ExpectAt(300, 155, layout.Title(0));
    ExpectAt(155, 219, layout.Title(2));
    // Not past the end of its axis.
    box.viewport = {230.5, 600};
    layout.Place(box);
    EXPECT_FALSE(layout.Title(0).isShown);
    // Nor where sliding does not help.
    for (ScreenVector& corner : box.corners)
        corner.y -= 150;
    box.axes[0].begin.y = box.axes[0].end.y = 50;
    box.viewport = {600, 600};
    layout.Place(box);
    EXPECT_FALSE(layout.Title(0).isShown);
}

TEST(AxisLabelLayout, WantedTitlesMoveInsideTheBorder) {
    AxisLabelLayout layout;
    AxisBoxOnScreen box = SquareBox();
    box.axes[0].title = {60, 20};
    box.isEachTitleWanted = true;
    box.viewport = {600, 600};
    for (ScreenVector& corner : box.corners)
        corner.y -= 165;
    box.axes[0].begin.y = box.axes[0].end.y = 35; // 35 pixels of the 55 that the title asks for
    layout.Place(box);
    ExpectAt(300, 11, layout.Title(0));
    // Labels that it then covers give way.
    SetTicks(&box.axes[0], 3, label);
    layout.Place(box);
    EXPECT_TRUE(layout.Title(0).isShown);
    EXPECT_FALSE(Shown(layout, 0).empty());
    // Too large for the window: there is no place.
    box.axes[0].title = {700, 20};
    layout.Place(box);
    EXPECT_FALSE(layout.Title(0).isShown);
}

TEST(AxisLabelLayout, WantedTitlesStandOverLinesWhereNothingElseIsFree) {
    AxisLabelLayout layout;
    AxisBoxOnScreen box = SquareBox();
    box.axes[0].title = {190, 20};
    box.isEachTitleWanted = true;
    box.viewport = {400, 400}; // the box reaches to its upper and right border
    for (ScreenVector& corner : box.corners)
        corner = {corner.x < 300 ? 10.0 : 390.0, corner.y < 300 ? 10.0 : 390.0};
    box.axes[0].begin = {10, 10};
    box.axes[0].end = {390, 10};
    layout.Place(box);
    const PlacedImage& title = layout.Title(0);
    ASSERT_TRUE(title.isShown);
    EXPECT_GE(title.center.y - title.halfHeight, 0.0);
    EXPECT_LT(title.center.y, 40.0) << "near its edge";
    box.isEachTitleWanted = false;
    layout.Place(box);
    EXPECT_FALSE(layout.Title(0).isShown);
}

TEST(AxisLabelLayout, ImagesKeepClearOfOthers) {
    AxisLabelLayout layout;
    AxisBoxOnScreen box = SquareBox();
    SetTicks(&box.axes[2], 5, label); // from 147.5 to 187.5, 50 apart
    box.axes[2].title = {60, 20};
    PlacedImage other;
    other.isShown = true;
    other.center = {150, 300};
    other.halfWidth = 10;
    other.halfHeight = 30;
    box.others = {other};
    layout.Place(box);
    EXPECT_EQ((std::vector<int>{0, 1, 3, 4}), Shown(layout, 2));
    EXPECT_FALSE(layout.Title(2).isShown) << "it stands at 133.5";
    box.isEachTitleWanted = true;
    box.viewport = {600, 600};
    layout.Place(box);
    EXPECT_TRUE(layout.Title(2).isShown);
    EXPECT_FALSE(MeetsAny(layout.Title(2), box.others));
}

TEST(AxisLabelLayout, StridesGoByOneTwoFive) {
    std::vector<std::size_t> strides = {1};
    while (strides.size() < 8)
        strides.push_back(NextLabelStride(strides.back()));
    EXPECT_EQ(strides, (std::vector<std::size_t>{1, 2, 5, 10, 20, 50, 100, 200}));
}

TEST(AxisLabelLayout, EachFrameStartsAfresh) {
    AxisLabelLayout layout;
    AxisBoxOnScreen box = SquareBox();
    SetTicks(&box.axes[0], 3, label);
    box.axes[0].title = {60, 20};
    layout.Place(box);
    layout.Place(box);
    EXPECT_EQ((std::vector<int>{0, 1, 2}), Shown(layout, 0));
    EXPECT_TRUE(layout.Title(0).isShown);
    layout.Place(SquareBox());
    EXPECT_TRUE(layout.Labels(0).empty());
    EXPECT_FALSE(layout.Title(0).isShown);
}

TEST(AxisLabelLayout, WithoutImageNothingIsShown) {
    AxisLabelLayout layout;
    std::vector<TextImageSize> sizes = {{0, 20}, {50, 0}, {-50, 20}, {50, -20}};
    for (const double value : notNumbers) {
        if (std::isfinite(value)) continue;
        sizes.push_back({value, 20});
        sizes.push_back({50, value});
    }
    for (const TextImageSize size : sizes) {
        AxisBoxOnScreen box = SquareBox();
        SetTicks(&box.axes[0], 3, size);
        box.axes[0].title = size;
        layout.Place(box);
        EXPECT_EQ(3U, layout.Labels(0).size());
        EXPECT_TRUE(Shown(layout, 0).empty());
        EXPECT_FALSE(layout.Title(0).isShown);
    }
}

TEST(AxisLabelLayout, PlacesThatAreNoNumbersShowNothing) {
    AxisLabelLayout layout;
    for (const double value : notNumbers)
        for (int place = 0; place < 3; ++place) {
            AxisBoxOnScreen box = SquareBox();
            SetTicks(&box.axes[0], 3, label);
            SetTicks(&box.axes[2], 3, label);
            box.axes[0].title = {60, 20};
            if (place == 0) box.corners[5].x = std::isfinite(value) ? 2 * value : value;
            if (place == 1) box.axes[0].begin.y = box.axes[0].end.x = value;
            if (place == 2) box.axes[0].ticks[1].fraction = value;
            layout.Place(box);
            for (const int axis : {0, 2})
                for (const PlacedImage& image : layout.Labels(axis))
                    EXPECT_TRUE(!image.isShown || std::isfinite(image.center.x + image.center.y));
            EXPECT_EQ(place == 0 ? 0U : 3U, Shown(layout, 2).size());
            if (place == 1) continue; // finite after all, where the value is
            const auto expected = place == 0 ? std::vector<int>{} : std::vector<int>{0, 2};
            EXPECT_EQ(expected, Shown(layout, 0));
        }
}

TEST(AxisLabelLayout, EndlessEdgesAndOffsetsShowNothing) {
    AxisLabelLayout layout;
    AxisBoxOnScreen box = SquareBox();
    SetTicks(&box.axes[0], 3, label);
    box.axes[0].title = {60, 20};
    box.axes[0].begin = {-7e307, -7e307};
    box.axes[0].end = {8e307, 8e307};
    layout.Place(box);
    EXPECT_TRUE(Shown(layout, 0).empty());
    EXPECT_FALSE(layout.Title(0).isShown);
    box.axes[0].begin = {200, 200};
    box.axes[0].end = {360, 80};
    for (const double value : notNumbers) {
        if (std::isfinite(value)) continue;
        box.labelOffset = value;
        layout.Place(box);
        EXPECT_TRUE(Shown(layout, 0).empty());
        EXPECT_FALSE(layout.Title(0).isShown);
    }
}

TEST(AxisLabelLayout, DirectionsThatAreNoNumbersAreNotFollowed) {
    AxisBoxOnScreen box = SquareBox();
    box.axes[0].tickDirection = {notNumbers[0], notNumbers[0]};
    ExpectAt(300, 200 - 20.5, PlaceOne(box, 0, 0.5, label));
}

TEST(AxisLabelLayout, WithoutTicksTitlesRemain) {
    AxisLabelLayout layout;
    AxisBoxOnScreen box = SquareBox();
    box.axes[0].title = {60, 20};
    layout.Place(box);
    EXPECT_TRUE(layout.Labels(0).empty());
    ExpectAt(300, 155, layout.Title(0));
}

// Comparing all pairs would take minutes.
TEST(AxisLabelLayout, AHundredThousandTicksAreQuick) {
    AxisLabelLayout layout;
    for (const double size : {1e-4, 1.0, 20.0})
        for (const double length : {200.0, 1e4, 1e7}) {
            AxisBoxOnScreen box = SquareBox();
            box.axes[0].begin.x = 300 - length / 2;
            box.axes[0].end.x = 300 + length / 2;
            box.axes[1] = box.axes[0];
            SetTicks(&box.axes[0], 100000, {size, size});
            SetTicks(&box.axes[1], 100000, {size, size});
            SetTicks(&box.axes[2], 100000, {size, size});
            ExpectWithinASecond("placing the labels", [&] { layout.Place(box); });
            EXPECT_FALSE(Shown(layout, 0).empty());
        }
}

// ---- The projection

TEST(ProjectAxisBox, PutsCornersEdgesAndDirectionsOnTheScreen) {
    // X to the right, Y away from the viewer and half up, Z up; a tenth of a unit is a pixel.
    const double rotation[16] = {1, 0, 0, 0, 0, 0.5, -0.8, 0, 0, 0.8, 0.5, 0, 7, 8, 9, 1};
    const double scale[] = {2, 1, 0.5};
    const float low[] = {10, 0, -2}, high[] = {20, 4, 2};
    const bool back[] = {true, false, true};
    const float base[3][3] = {{10, 4, 2}, {20, 0, 2}, {10, 0, -2}};
    const float direction[3][3] = {{0, 0, 1}, {0, 0, 1}, {0, -1, 0}};
    AxisBoxOnScreen box;
    for (int frame = 0; frame < 2; ++frame)
        ProjectAxisBox({low, high, {back[2], back[0], back[1]}, base, direction}, 0.1, scale, rotation,
                       {300, 200}, &box);
    // Half the box: (100, 0), (0, 10) and (0, 8) pixels.
    const double y[] = {182, 202, 198, 218}; // at Y and Z min, Y max, Z max, both max
    for (unsigned int i = 0; i < 8; ++i) {
        EXPECT_NEAR((i & 1U) ? 400 : 200, box.corners[i].x, 1e-9) << i;
        EXPECT_NEAR(y[i >> 1], box.corners[i].y, 1e-9) << i;
    }
    EXPECT_EQ(4U, box.backCorner);
    const struct {
        unsigned int begin, end;
        ScreenVector ticks, other;
    } expected[] = {{6, 7, {0, 0.8}, {0, 0.5}}, {5, 7, {0, 0.8}, {1, 0}}, {0, 4, {0, -0.5}, {-1, 0}}};
    for (int axis = 0; axis < 3; ++axis) {
        const AxisEdge& edge = box.axes[axis];
        EXPECT_EQ(box.corners[expected[axis].begin].x, edge.begin.x);
        EXPECT_EQ(box.corners[expected[axis].begin].y, edge.begin.y);
        EXPECT_EQ(box.corners[expected[axis].end].x, edge.end.x);
        EXPECT_EQ(box.corners[expected[axis].end].y, edge.end.y);
        EXPECT_NEAR(expected[axis].ticks.x, edge.tickDirection.x, 1e-12);
        EXPECT_NEAR(expected[axis].ticks.y, edge.tickDirection.y, 1e-12);
        EXPECT_NEAR(expected[axis].other.x, edge.otherDirection.x, 1e-12);
        EXPECT_NEAR(expected[axis].other.y, edge.otherDirection.y, 1e-12);
    }
}

TEST(ProjectAxisBox, OtherDirectionLeavesABoxOfReversedRanges) {
    const double rotation[16] = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};
    const float low[] = {0, 5, 0}, high[] = {1, 0, 1}; // Y runs from 5 down to 0
    const bool back[] = {true, true, true};
    const float base[3][3] = {{0, 0, 0}, {1, 5, 0}, {1, 5, 0}};
    const float direction[3][3] = {{0, 0, -1}, {0, 0, -1}, {0, -1, 0}};
    AxisBoxOnScreen box;
    for (const double scale : {1.0, -1.0}) {
        const double scales[] = {1, scale, 1};
        ProjectAxisBox({low, high, {back[2], back[0], back[1]}, base, direction}, 0.01, scales, rotation, {},
                       &box);
        const AxisEdge& edge = box.axes[0]; // at Y's maximum, the value 0
        EXPECT_EQ(edge.begin.y, scale * -250);
        EXPECT_EQ(edge.otherDirection.y, scale * -1);
    }
}

TEST(ProjectAxisBox, LargeCoordinatesLoseNothing) {
    const double rotation[16] = {0.6, 0.8, 0, 0, -0.8, 0.6, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};
    const double scale[] = {1, 1, 1};
    const float low[] = {1e7f, 1e7f, 1e7f}, high[] = {1e7f + 10, 1e7f + 10, 1e7f + 10};
    const bool back[] = {true, true, true};
    const float base[3][3] = {{1e7f, 1e7f + 10, 1e7f}, {1e7f + 10, 1e7f, 1e7f}, {1e7f + 10, 1e7f, 1e7f}};
    const float direction[3][3] = {{0, 0, -1}, {0, 0, -1}, {0, -1, 0}};
    AxisBoxOnScreen box;
    ProjectAxisBox({low, high, {back[2], back[0], back[1]}, base, direction}, 0.1, scale, rotation,
                   {100, 100}, &box);
    EXPECT_NEAR(100 + 50 * (0.6 - 0.8), box.corners[7].x, 1e-9);
    EXPECT_NEAR(100 + 50 * (0.8 + 0.6), box.corners[7].y, 1e-9);
}

TEST(ProjectAxisBox, NoLengthAndNoNumbersShowNothing) {
    const double rotation[16] = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};
    const float zero[] = {0, 0, 0};
    const bool back[] = {true, true, true};
    const float base[3][3] = {};
    const float direction[3][3] = {{0, 0, -1}, {0, 0, -1}, {0, -1, 0}};
    AxisLabelLayout layout;
    for (const double value : {1.0, notNumbers[0], notNumbers[1]}) {
        const double scale[] = {value, value, 1};
        AxisBoxOnScreen box;
        ProjectAxisBox({zero, zero, {back[2], back[0], back[1]}, base, direction}, 0.01, scale, rotation, {},
                       &box);
        for (AxisEdge& edge : box.axes) {
            SetTicks(&edge, 4, label);
            edge.title = {60, 20};
        }
        layout.Place(box);
        for (int axis = 0; axis < 3; ++axis) {
            EXPECT_TRUE(Shown(layout, axis).empty());
            EXPECT_FALSE(layout.Title(axis).isShown);
        }
    }
}

} // namespace KivoDrawingTools
