// A plot widget in a window, for the tests.
#pragma once

#include "KivoPlotWidget.h"
#include "KivoView.h"
#include "SampleGrids.h"
#include "support/BarePlot.h"

#include <QTest>

#include <gtest/gtest.h>

namespace KivoTest {

constexpr int patienceOfQt = 20000; // milliseconds

/// Lets Qt work until it comes true.
template <typename Condition>
bool Comes(Condition condition) {
    return QTest::qWaitFor(condition, patienceOfQt);
}

inline KivoDrawingTools::Image ImageOf(const QImage& picture) {
    const QImage rgba = picture.convertToFormat(QImage::Format_RGBA8888);
    KivoDrawingTools::Image image(rgba.width(), rgba.height());
    for (int y = 0; y < rgba.height(); ++y)
        std::copy_n(rgba.constScanLine(y), 4 * rgba.width(), image.Pixel(0, y));
    return image;
}

inline bool AreSame(const KivoDrawingTools::Image& a, const KivoDrawingTools::Image& b) {
    return a.width == b.width && a.height == b.height && a.width > 0 &&
           KivoDrawingTools::Compare(a, b).max == 0;
}

inline void ShowHill(KivoPlotWidget& plot) {
    const std::vector<float> points = KivoSamples::HillPoints();
    ASSERT_TRUE(plot.setGrid(points.data(), KivoSamples::hillColumns, KivoSamples::hillRows));
}

/// The same hill without a control.
class BareHill : public BarePlot {
public:
    BareHill(int width, int height, double density) : BarePlot(width, height, static_cast<float>(density)) {
        const std::vector<float> points = KivoSamples::HillPoints();
        auto* const taken = new float[points.size()]; // the plotter takes it over
        std::copy(points.begin(), points.end(), taken);
        plotter.SetData(taken, KivoSamples::hillColumns, KivoSamples::hillRows, 1, KivoSamples::hillColumns,
                        3);
    }
};

/// Counts what it paints.
class CountedPlot : public KivoPlotWidget {
public:
    int frames = 0;

protected:
    void paintEvent(QPaintEvent* event) override {
        frames += view().IsFrameDue();
        KivoPlotWidget::paintEvent(event);
    }
};

/// With a hill in a window that the screen shows.
class ShownPlot : public testing::Test {
protected:
    static constexpr int width = 400, height = 300;

    void SetUp() override {
        plot.resize(width, height);
        ShowHill(plot);
        plot.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&plot));
        ASSERT_TRUE(Comes([&] { return plot.frames > 0 && !plot.view().IsFrameDue(); }));
    }

    KivoDrawingTools::SKivoView View() { return GetView(plot.plotter()); }
    float Right() { return static_cast<float>(View().rotation[0]); }

    CountedPlot plot;
};

} // namespace KivoTest
