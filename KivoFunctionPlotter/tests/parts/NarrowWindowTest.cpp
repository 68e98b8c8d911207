// The legend's numbers and the other texts of windows in which the strip of the legend is narrow.
#include "parts/KivoGradientColorRuler.h"
#include "support/Drawing.h"
#include "support/TestSurfaces.h"
#include "support/TestWindow.h"

#include <algorithm>
#include <functional>
#include <string>
#include <vector>

using namespace KivoDrawingTools;

namespace {

struct Bounds {
    double left = 1e9, bottom = 1e9, right = -1e9, top = -1e9;
    Drawing parts; // a quad or its halves
};

// The bounds of everything textured, in the order in which it is drawn; quads may come as two triangles.
std::vector<Bounds> TextBounds(const Drawing& drawing) {
    std::vector<Bounds> all;
    for (const DrawnPrimitive& primitive : drawing) {
        Bounds bounds;
        bool isTextured = false;
        for (const DrawnVertex& vertex : primitive) {
            bounds = {std::min(bounds.left, vertex.x),
                      std::min(bounds.bottom, vertex.y),
                      std::max(bounds.right, vertex.x),
                      std::max(bounds.top, vertex.y),
                      {primitive}};
            isTextured |= vertex.texture != primitive.front().texture;
        }
        const bool isSliver = bounds.top - bounds.bottom < 1e-6 || bounds.right - bounds.left < 1e-6;
        if (primitive.size() < 3 || !isTextured || isSliver) continue;
        const bool isSecondHalf = !all.empty() && std::abs(all.back().left - bounds.left) < 0.01 &&
                                  std::abs(all.back().right - bounds.right) < 0.01 &&
                                  std::abs(all.back().top - bounds.top) < 0.01 &&
                                  std::abs(all.back().bottom - bounds.bottom) < 0.01;
        if (isSecondHalf)
            all.back().parts.push_back(primitive);
        else
            all.push_back(bounds);
    }
    return all;
}

// Whether a side of one polygon has the other one wholly beyond it.
bool IsSeparatedBySideOf(const DrawnPrimitive& a, const DrawnPrimitive& b) {
    for (std::size_t i = 0; i < a.size(); ++i) {
        const DrawnVertex &from = a[i], &to = a[(i + 1) % a.size()];
        const auto across = [&](const DrawnVertex& v) {
            return (v.x - from.x) * (to.y - from.y) - (v.y - from.y) * (to.x - from.x);
        };
        double lowA = 1e18, highA = -1e18, lowB = 1e18, highB = -1e18;
        for (const DrawnVertex& v : a)
            lowA = std::min(lowA, across(v)), highA = std::max(highA, across(v));
        for (const DrawnVertex& v : b)
            lowB = std::min(lowB, across(v)), highB = std::max(highB, across(v));
        if (highA <= lowB || highB <= lowA) return true;
    }
    return false;
}

bool Meet(const Bounds& a, const Bounds& b) {
    for (const DrawnPrimitive& one : a.parts)
        for (const DrawnPrimitive& other : b.parts)
            if (!IsSeparatedBySideOf(one, other) && !IsSeparatedBySideOf(other, one)) return true;
    return false;
}

class NarrowWindow : public WindowTest {
protected:
    static constexpr std::size_t legendLabels = 11; // drawn last

    // Shows a plot of a hill, so many times as high, in a window of this size.
    void Show(TestPlot& plot, float times, int (CKivoFunctionPlotter::*show)()) {
        TestSurface surface = HillSurface(12, 10);
        for (std::size_t i = 2; i < surface.points.size(); i += 3)
            surface.points[i] *= times;
        plot.plotter.SetData(surface.NewArray(), 12, 10, 1, 12, 3);
        plot.plotter.SetXAxisTitle("X axis");
        plot.plotter.SetYAxisTitle("Y axis");
        plot.plotter.SetZAxisTitle("Z axis");
        std::invoke(show, plot.plotter);
    }

    // The scale at which the legend's numbers are drawn.
    double CheckLegend(TestPlot& plot) {
        PlotterProbe& plotter = plot.plotter;
        std::vector<Bounds> texts;
        {
            const CurrentContext context(plotter);
            texts = TextBounds(Record([&] { plotter.DrawScene(); }));
        }
        EXPECT_GT(texts.size(), legendLabels);
        const CKivoGradientColorRuler* const rulers[] = {plotter.m_zColorRuler, plotter.m_zColorRuler,
                                                         plotter.m_xColorRuler, plotter.m_yColorRuler};
        const CKivoGradientColorRuler& ruler = *rulers[plotter.GetCurrentPlotType()];
        const auto first = texts.end() - legendLabels;
        const double scale = (first->right - first->left) / ruler.m_labels[0].width;
        for (std::size_t i = 0; i < legendLabels; ++i) {
            const Bounds& number = first[static_cast<std::ptrdiff_t>(i)];
            EXPECT_NEAR(number.right - number.left, scale * ruler.m_labels[i].width, 0.05) << "all alike";
            EXPECT_NEAR(number.top - number.bottom, scale * ruler.m_labels[i].height, 0.2);
            if (scale > 0.601) {
                EXPECT_LT(number.right, plotter.m_plotViewport[0] + 0.05) << "it fits into the strip";
            }
            const double right = 0.1 * plotter.m_legendViewport[2] + 0.12 * plotter.m_legendViewport[2];
            EXPECT_GT(number.left, right) << "beside the bar";
            for (auto text = texts.begin(); text != first; ++text)
                EXPECT_FALSE(Meet(*text, number)) << "number " << i << " and a text from " << text->left
                                                  << " to " << text->right << " at " << text->bottom;
        }
        return scale;
    }
};

int (CKivoFunctionPlotter::*const plots[])() = {
    &CKivoFunctionPlotter::SwitchToNormalPlot, &CKivoFunctionPlotter::SwitchToXYProjectPlot,
    &CKivoFunctionPlotter::SwitchToYZProjectPlot, &CKivoFunctionPlotter::SwitchToZXProjectPlot};

} // namespace

TEST_P(NarrowWindow, NoTextOfThePlotMeetsTheLegendsNumbers) {
    const struct {
        int width, height;
        float times;
    } cases[] = {{300, 400, 1.0f}, {480, 640, 5e5f}, {400, 400, 1e3f}, {300, 400, 5e5f}};
    for (const auto& narrow : cases) {
        TestPlot plot(GetParam(), narrow.width, narrow.height);
        for (const auto show : plots) {
            Show(plot, narrow.times, show);
            SCOPED_TRACE(std::to_string(narrow.width) + " x " + std::to_string(narrow.height) + ", z times " +
                         std::to_string(narrow.times) + ", plot " +
                         std::to_string(plot.plotter.GetCurrentPlotType()));
            CheckLegend(plot);
        }
    }
}

TEST_P(NarrowWindow, NumbersShrinkToSixTenthsAsTheStripDoes) {
    double last = 0.0;
    bool isFitted = false;
    for (int width = 160; width <= 460; width += 60) {
        TestPlot plot(GetParam(), width, 400);
        Show(plot, 1.0f, &CKivoFunctionPlotter::SwitchToNormalPlot);
        const double scale = CheckLegend(plot);
        EXPECT_GE(scale, 0.6 - 1e-3) << width;
        EXPECT_LE(scale, 0.9 + 1e-3) << width;
        EXPECT_GE(scale, last - 1e-3) << width;
        isFitted |= scale > 0.61 && scale < 0.89;
        if (width == 160) {
            EXPECT_NEAR(scale, 0.6, 1e-3);
        }
        last = scale;
    }
    EXPECT_NEAR(last, 0.9, 1e-3);
    EXPECT_TRUE(isFitted) << "between them it follows the strip";
}

KIVO_IN_EVERY_WINDOW(NarrowWindow);
