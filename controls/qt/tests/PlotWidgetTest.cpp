// The plot widget: what it is told and what it tells.
#include "ShownPlot.h"
#include "support/ChildProcess.h"
#include "support/PrivateFolder.h"

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QPointer>
#include <QScopedPointer>
#include <QSignalSpy>

#include <malloc.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <iterator>

using namespace KivoDrawingTools;
using namespace KivoTest;

namespace {

class PlotWidget : public ShownPlot {};

std::ptrdiff_t EntriesOf(const char* folder) {
    return std::distance(std::filesystem::directory_iterator(folder), {});
}

} // namespace

// ---- What is shown

TEST_F(PlotWidget, GrabsAsABarePlotterDraws) {
    const double density = plot.devicePixelRatioF();
    const POINT size = ToPixels(width, height, density);
    BareHill bare(size.x, size.y, density);
    EXPECT_TRUE(AreSame(ImageOf(plot.grab().toImage()), bare.Smooth()));
    EXPECT_TRUE(AreSame(ImageOf(plot.picture()), bare.Smooth()));
}

TEST_F(PlotWidget, GrabsBeforeItIsShown) {
    KivoPlotWidget hidden;
    hidden.resize(240, 180);
    ShowHill(hidden);
    const double density = hidden.devicePixelRatioF();
    const POINT size = ToPixels(240, 180, density);
    BareHill bare(size.x, size.y, density);
    EXPECT_TRUE(AreSame(ImageOf(hidden.grab().toImage()), bare.Smooth()));
}

TEST_F(PlotWidget, TakesGridsInBothForms) {
    const std::vector<float> points = KivoSamples::HillPoints();
    QList<QVector3D> list;
    for (std::size_t i = 0; i < points.size(); i += 3)
        list.append({points[i], points[i + 1], points[i + 2]});
    const int columns = KivoSamples::hillColumns, rows = KivoSamples::hillRows;
    const Image before = ImageOf(plot.picture());
    EXPECT_FALSE(plot.setGrid(nullptr, columns, rows));
    EXPECT_FALSE(plot.setGrid(points.data(), 0, rows));
    EXPECT_FALSE(plot.setGrid(points.data(), columns, -1));
    EXPECT_FALSE(plot.setGrid(list, columns, rows + 1)) << "fewer points than that";
    EXPECT_FALSE(plot.setGrid(list, -1, -1));
    EXPECT_TRUE(AreSame(ImageOf(plot.picture()), before));
    EXPECT_TRUE(plot.setGrid(list.mid(0, columns * 10), columns, 10));
    EXPECT_FALSE(AreSame(ImageOf(plot.picture()), before));
    EXPECT_TRUE(plot.setGrid(list, columns, rows));
    EXPECT_TRUE(AreSame(ImageOf(plot.picture()), before));
}

TEST_F(PlotWidget, PropertiesAreThePlotters) {
    const auto set = [&](const char* name, const QVariant& value) {
        EXPECT_TRUE(plot.setProperty(name, value)) << name;
        EXPECT_EQ(plot.property(name), value) << name;
    };
    set("title", QString::fromUtf8("Temperatur in °C"));
    EXPECT_STREQ(plot.plotter().GetPlotTitle(), "Temperatur in \xc2\xb0"
                                                "C");
    plot.setPlotType(KivoPlotWidget::PlotType::YZ);
    EXPECT_EQ(plot.plotter().GetCurrentPlotType(), 2);
    plot.setPlotType(static_cast<KivoPlotWidget::PlotType>(7));
    EXPECT_EQ(plot.plotType(), KivoPlotWidget::PlotType::YZ);
    set("tracing", true);
    EXPECT_TRUE(plot.plotter().IsTracing());
    for (const char* const name :
         {"tracing", "upright", "reducedWhileMoving", "paletteFollowed", "threadedDrawing"})
        for (const bool value : {true, false})
            set(name, value);
    set("smoothing", 3);
    plot.setSmoothing(5);
    EXPECT_EQ(plot.smoothing(), 3);
    EXPECT_TRUE(plot.view().IsFrameDue());
}

TEST_F(PlotWidget, ShowsWhatWasSetOfThePlotterWhenRefreshed) {
    const int before = plot.frames;
    plot.plotter().SetBackgroundColor(0x000000ff);
    plot.refresh();
    EXPECT_TRUE(Comes([&] { return plot.frames > before; }));
    EXPECT_EQ(plot.grab().toImage().pixelColor(0, 0), QColor(255, 0, 0));
}

TEST_F(PlotWidget, FollowsThePaletteOnDemand) {
    const Image light = ImageOf(plot.picture());
    QPalette dark;
    dark.setColor(QPalette::Base, QColor(20, 30, 40));
    dark.setColor(QPalette::Text, QColor(240, 220, 200));
    plot.setPalette(dark);
    EXPECT_TRUE(AreSame(ImageOf(plot.picture()), light));
    plot.setPaletteFollowed(true);
    const QImage picture = plot.picture();
    EXPECT_EQ(picture.pixelColor(0, 0), QColor(20, 30, 40));
    const Image image = ImageOf(picture);
    EXPECT_GT(image.Count([](const unsigned char* rgb) { return rgb[0] == 240 && rgb[2] == 200; }), 20);
    dark.setColor(QPalette::Base, QColor(0, 0, 60));
    plot.setPalette(dark);
    EXPECT_EQ(plot.picture().pixelColor(0, 0), QColor(0, 0, 60));
    plot.setPaletteFollowed(false);
    EXPECT_TRUE(AreSame(ImageOf(plot.picture()), light));
}

// ---- With a thread

namespace {

// Large enough that no machine draws it at once.
constexpr int manyPoints = 700;

std::vector<float> LargeGrid() {
    std::vector<float> points;
    for (int row = 0; row < manyPoints; ++row)
        for (int column = 0; column < manyPoints; ++column) {
            const auto x = static_cast<float>(column), y = static_cast<float>(row);
            points.insert(points.end(), {x, y, 50.0f * std::sin(x / 60.0f) * std::cos(y / 90.0f)});
        }
    return points;
}

} // namespace

TEST_F(PlotWidget, DrawsInAThreadOnDemand) {
    const std::vector<float> points = LargeGrid();
    EXPECT_FALSE(plot.isDrawingThreaded());
    plot.setThreadedDrawing(true);
    ASSERT_TRUE(plot.setGrid(points.data(), manyPoints, manyPoints));
    ASSERT_TRUE(Comes([&] { return plot.view().IsDrawingInThread(); }));
    const Image picture = ImageOf(plot.picture()); // which is not waited for
    ASSERT_TRUE(plot.setGrid(points.data(), manyPoints, manyPoints));
    ASSERT_TRUE(Comes([&] { return plot.view().IsDrawingInThread(); }));
    ASSERT_TRUE(Comes([&] { return !plot.view().IsDrawingInThread() && !plot.view().IsFrameDue(); }));
    EXPECT_TRUE(AreSame(ImageOf(plot.grab().toImage()), picture));
}

TEST_F(PlotWidget, MayGoWhileAThreadDraws) {
    const std::vector<float> points = LargeGrid();
    for (int i = 0; i < 3; ++i) {
        auto other = std::make_unique<CountedPlot>();
        other->setThreadedDrawing(true);
        other->resize(width, height);
        ASSERT_TRUE(other->setGrid(points.data(), manyPoints, manyPoints));
        other->show();
        ASSERT_TRUE(Comes([&] { return other->view().IsDrawingInThread(); }));
        QTest::qWait(20 * i);
        other.reset();
    }
    EXPECT_TRUE(AreSame(ImageOf(plot.grab().toImage()), ImageOf(plot.picture())));
}

// ---- What it tells

TEST_F(PlotWidget, TellsOnceAfterAnEvent) {
    QSignalSpy changes(&plot, &KivoPlotWidget::viewChanged);
    for (int i = 0; i < 20; ++i)
        QTest::keyClick(&plot, Qt::Key_Right);
    EXPECT_EQ(changes.count(), 0) << "not within the event";
    QCoreApplication::processEvents();
    EXPECT_EQ(changes.count(), 1);
}

TEST_F(PlotWidget, TracesThePointUnderThePointer) {
    QSignalSpy traced(&plot, &KivoPlotWidget::pointTraced), lost(&plot, &KivoPlotWidget::traceLost);
    plot.setTracing(true);
    QTest::mouseMove(&plot, {width / 2 + 20, height / 2});
    ASSERT_TRUE(Comes([&] { return traced.count() > 0; }));
    float point[3];
    ASSERT_TRUE(plot.plotter().GetTracePoint(point));
    EXPECT_EQ(traced.back()[0].value<QVector3D>(), QVector3D(point[0], point[1], point[2]));
    QTest::mouseMove(&plot, {2, height - 2});
    EXPECT_TRUE(Comes([&] { return lost.count() > 0; }));
}

TEST_F(PlotWidget, SlotsMayDeleteIt) {
    auto* const doomed = new KivoPlotWidget;
    const QPointer<KivoPlotWidget> alive(doomed);
    ShowHill(*doomed);
    QObject::connect(doomed, &KivoPlotWidget::viewChanged, [=] { delete doomed; });
    doomed->setPlotType(KivoPlotWidget::PlotType::XY);
    EXPECT_TRUE(Comes([&] { return alive.isNull(); }));
}

TEST_F(PlotWidget, SaysWhatItIsToThoseWhoCannotSeeIt) {
    const auto text = [&](QAccessible::Text kind) {
        return QAccessible::queryAccessibleInterface(&plot)->text(kind).toStdString();
    };
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&plot)->role(), QAccessible::Chart);
    EXPECT_EQ(text(QAccessible::Name), "Plot");
    EXPECT_EQ(text(QAccessible::Description), "A surface over X and Y");
    plot.setTitle("Load");
    plot.setPlotType(KivoPlotWidget::PlotType::XY);
    EXPECT_EQ(text(QAccessible::Name), "Load");
    EXPECT_EQ(text(QAccessible::Description), "Contours over X and Y");
    plot.setAccessibleName("Bearing");
    EXPECT_EQ(text(QAccessible::Name), "Bearing");
}

TEST_F(PlotWidget, CopiesAndSavesItsPicture) {
    plot.copy();
    const Image picture = ImageOf(plot.picture());
    EXPECT_TRUE(AreSame(ImageOf(QApplication::clipboard()->image()), picture));
    QApplication::clipboard()->clear();
    QTest::keyClick(&plot, Qt::Key_C, Qt::ControlModifier);
    EXPECT_TRUE(AreSame(ImageOf(QApplication::clipboard()->image()), picture));
    const PrivateFolder folder;
    const QString file = QString::fromStdString(folder.Path() + "/plot.png");
    EXPECT_TRUE(plot.savePicture(file));
    EXPECT_TRUE(AreSame(ImageOf(QImage(file)), picture));
    EXPECT_FALSE(plot.savePicture(QString::fromStdString(folder.Path() + "/no/plot.png")));
    EXPECT_FALSE(plot.savePicture(file + ".unknown"));
}

// ---- Where nothing can be drawn

// Run by the next test, in a process without OpenGL.
TEST(PlotWidgetWithoutOpenGl, DISABLED_SaysSo) {
    KivoPlotWidget plot;
    QSignalSpy failures(&plot, &KivoPlotWidget::failed);
    plot.resize(400, 300);
    ShowHill(plot);
    const QImage shown = plot.grab().toImage();
    const QColor ground = plot.palette().color(plot.backgroundRole());
    EXPECT_EQ(shown.pixelColor(0, 0), ground);
    EXPECT_GT(ImageOf(shown).Count([&](const unsigned char* rgb) { return rgb[0] != ground.red(); }), 200);
    EXPECT_TRUE(plot.errorString().contains("install an OpenGL driver"));
    EXPECT_TRUE(plot.picture().isNull());
    plot.copy();
    QTest::mousePress(&plot, Qt::LeftButton);
    QTest::mouseMove(&plot, {20, 30});
    QTest::keyClick(&plot, Qt::Key_2);
    plot.setPaletteFollowed(true);
    ASSERT_TRUE(Comes([&] { return failures.count() > 0; }));
    EXPECT_EQ(failures[0][0].toString(), plot.errorString());
}

TEST(PlotWidgetWithoutOpenGl, SaysSo) {
    ChildProcess child(
        "/proc/self/exe",
        {"--gtest_also_run_disabled_tests", "--gtest_filter=PlotWidgetWithoutOpenGl.DISABLED_*"},
        {{"__EGL_VENDOR_LIBRARY_FILENAMES", "/nonexistent"}, {"QT_QPA_PLATFORM", "offscreen"}});
    EXPECT_EQ(child.WaitForExit().value_or(-1), 0) << child.Output();
    EXPECT_NE(child.Output().find("1 test from"), std::string::npos) << child.Output();
}

// ---- What it takes

TEST(PlotWidgets, AHundredLeaveNothing) {
    const auto make = [](int count) {
        for (int i = 0; i < count; ++i) {
            KivoPlotWidget plot;
            plot.resize(120, 90);
            plot.setSmoothing(1);
            ShowHill(plot);
            plot.grab();
            QCoreApplication::processEvents();
        }
    };
    make(10);
    const auto files = EntriesOf("/proc/self/fd"), threads = EntriesOf("/proc/self/task");
    const std::size_t bytes = mallinfo2().uordblks;
    make(100);
    EXPECT_LE(EntriesOf("/proc/self/fd"), files);
    EXPECT_LE(EntriesOf("/proc/self/task"), threads);
    EXPECT_LT(mallinfo2().uordblks, bytes + 100 * 1000) << "a kilobyte for each";
}
