#include "MainWindow.h"

#include "Failure.h"
#include "GridReader.h"
#include "PlotSetup.h"
#include "PlotWidget.h"
#include "PngWriter.h"

#include <KivoPicture.h>

#include <QActionGroup>
#include <QColorDialog>
#include <QFileDialog>
#include <QMenuBar>
#include <QMessageBox>
#include <QScreen>

#include <vector>

namespace KivoViewer {

namespace {

// Tells the user of a failure, where there is one.
void Try(QWidget* parent, const std::function<void()>& action) {
    try {
        action();
    } catch (const Failure& failure) {
        QMessageBox::warning(parent, "Kivo Viewer", QString::fromStdString(OneLine(failure.what())));
    } catch (const std::bad_alloc&) {
        QMessageBox::warning(parent, "Kivo Viewer", "There is not enough memory.");
    }
}

} // namespace

MainWindow::MainWindow(const GridData& grid, const Options& options) : m_plot(new PlotWidget(this)) {
    setCentralWidget(m_plot);
    FillFileMenu();
    FillPlotMenu(options.mode);
    FillViewMenu();
    FitTo(options.width, options.height);
    m_plot->Attach();
    m_plot->SetGrid(grid);
    SwitchMode(m_plot->Plotter(), options.mode);
    m_plot->setFocus();
    ShowTitle(grid);
}

void MainWindow::FillFileMenu() {
    QMenu* const menu = menuBar()->addMenu("&File");
    menu->addAction("&Open...", this, [this] { OpenFile(); })->setShortcut(QKeySequence::Open);
    menu->addAction("&Save picture...", this, [this] { SavePicture(); })->setShortcut(QKeySequence::Save);
    menu->addSeparator();
    menu->addAction("&Quit", this, [this] { close(); })->setShortcut(Qt::CTRL | Qt::Key_Q);
}

void MainWindow::FillPlotMenu(int mode) {
    QMenu* const menu = menuBar()->addMenu("&Plot");
    auto* const modes = new QActionGroup(this);
    const char* const names[] = {"&3-D plot", "&XY projection", "&YZ projection", "X&Z projection"};
    for (int i = 0; i < 4; ++i) {
        QAction* const action = menu->addAction(names[i], this, [this, i] {
            SwitchMode(m_plot->Plotter(), i);
            m_plot->Redraw();
        });
        action->setShortcut(Qt::Key_0 + i);
        action->setCheckable(true);
        action->setChecked(i == mode);
        modes->addAction(action);
    }
    menu->addSeparator();
    AddToggle(menu, "Inverse X axis", false, [this](bool on) { m_plot->Plotter().SetInverseXAxis(on); });
    AddToggle(menu, "Inverse Y axis", false, [this](bool on) { m_plot->Plotter().SetInverseYAxis(on); });
    AddToggle(menu, "Inverse Z axis", false, [this](bool on) { m_plot->Plotter().SetInverseZAxis(on); });
}

void MainWindow::FillViewMenu() {
    QMenu* const menu = menuBar()->addMenu("&View");
    QAction* const reset = menu->addAction("&Reset view", this, [this] {
        m_plot->Plotter().ResetView();
        m_plot->Redraw();
    });
    reset->setShortcut(Qt::Key_Home);
    menu->addSeparator();
    AddToggle(menu, "&Frame lines", true, [this](bool on) {
        m_plot->Plotter().ShowFrameLines(on);
    })->setShortcut(Qt::Key_F);
    AddToggle(menu, "&Grid lines", true, [this](bool on) {
        m_plot->Plotter().ShowGridLines(on);
    })->setShortcut(Qt::Key_G);
    AddToggle(menu, "&Trace the pointer", false, [this](bool on) {
        m_plot->Trace(on);
    })->setShortcut(Qt::Key_T);
    AddToggle(menu, "Contours of equal &x", false,
              [this](bool on) { m_plot->Plotter().ShowXIsoContours(on); });
    AddToggle(menu, "Contours of equal &y", false,
              [this](bool on) { m_plot->Plotter().ShowYIsoContours(on); });
    AddToggle(menu, "Contours of equal &z", false,
              [this](bool on) { m_plot->Plotter().ShowZIsoContours(on); });
    menu->addSeparator();
    menu->addAction("&Background colour...", this, [this] { ChooseBackground(); });
    menu->addAction("Background as at &first", this, [this] {
        m_plot->Plotter().ResetBackgroundColor();
        m_plot->Redraw();
    });
}

QAction* MainWindow::AddToggle(QMenu* menu, const QString& text, bool on,
                               const std::function<void(bool)>& set) {
    QAction* const action = menu->addAction(text);
    action->setCheckable(true);
    action->setChecked(on);
    connect(action, &QAction::toggled, this, [this, set](bool checked) {
        set(checked);
        m_plot->Redraw();
    });
    return action;
}

// The plot gets the size asked for in pixels of the device, as far as the screen has them.
void MainWindow::FitTo(int plotWidth, int plotHeight) {
    const QSize plot = QSize(plotWidth, plotHeight) / devicePixelRatioF();
    resize((plot + QSize(0, menuBar()->sizeHint().height())).boundedTo(screen()->availableSize()));
}

void MainWindow::ShowTitle(const GridData& grid) {
    const QString title = QString::fromStdString(OneLine(grid.title));
    setWindowTitle(title + " - Kivo Viewer");
}

void MainWindow::OpenFile() {
    const QString path =
        QFileDialog::getOpenFileName(this, "Open a grid of points", QString(),
                                     "Grids of points (*.asc *.xyz *.csv *.txt *.dat);;All files (*)");
    if (path.isEmpty()) return;
    Try(this, [&] {
        const GridData grid = ReadGridFile(QFile::encodeName(path).toStdString());
        m_plot->SetGrid(grid);
        ShowTitle(grid);
        m_plot->Redraw();
    });
}

void MainWindow::SavePicture() {
    QString path = QFileDialog::getSaveFileName(this, "Save the picture", "plot.png", "PNG pictures (*.png)");
    if (path.isEmpty()) return;
    Try(this, [&] {
        std::vector<unsigned char> rgba;
        int width = 0;
        int height = 0;
        if (CapturePicture(m_plot->Plotter(), rgba, width, height) != 0)
            throw Failure(std::string("cannot draw: ") + KivoDrawingTools::LastWindowError());
        WritePng(QFile::encodeName(path).toStdString(), rgba, width, height);
    });
}

void MainWindow::ChooseBackground() {
    const QColor color = QColorDialog::getColor(Qt::white, this, "Background colour");
    if (!color.isValid()) return;
    m_plot->Plotter().SetBackgroundColor(static_cast<float>(color.redF()), static_cast<float>(color.greenF()),
                                         static_cast<float>(color.blueF()), 1.0f);
    m_plot->Redraw();
}

} // namespace KivoViewer
