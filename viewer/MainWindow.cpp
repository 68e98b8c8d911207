#include "MainWindow.h"

#include "Failure.h"
#include "GridReader.h"
#include "PlotWidget.h"
#include "PngWriter.h"
#include "PointsPanel.h"
#include "SettingsPanel.h"

#include <KivoPicture.h>

#include <QActionGroup>
#include <QApplication>
#include <QDockWidget>
#include <QFileDialog>
#include <QLabel>
#include <QMenuBar>
#include <QMessageBox>
#include <QScreen>
#include <QScrollArea>
#include <QSignalBlocker>
#include <QStatusBar>

#include <functional>
#include <utility>
#include <vector>

namespace KivoViewer {

namespace {

constexpr int panelWidth = 320;

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

MainWindow::MainWindow(const Content& content, const Options& options) : m_plot(new PlotWidget(this)) {
    setCentralWidget(m_plot);
    MakePanels();
    FillFileMenu();
    FillPlotMenu();
    FillViewMenu();
    m_tracePoint = new QLabel(this);
    statusBar()->addPermanentWidget(m_tracePoint);
    m_pointsDock->setVisible(!content.measureGroups.empty() || !content.curves.empty());
    FitTo(options.width, options.height);
    m_plot->Attach();
    ShowContent(Scene(), content, options);
    m_plot->onTrace = [this](const float* point) { ShowTrace(point); };
    m_plot->setFocus();
    ShowTitle(content.grid);
    RefreshControls();
}

PlotScene& MainWindow::Scene() {
    return m_plot->Scene();
}

void MainWindow::FillFileMenu() {
    QMenu* const menu = menuBar()->addMenu("&File");
    menu->addAction("&Open...", this, [this] { OpenFile(); })->setShortcut(QKeySequence::Open);
    menu->addAction("&Save picture...", this, [this] { SavePicture(); })->setShortcut(QKeySequence::Save);
    menu->addSeparator();
    menu->addAction("Add measure &points...", this, [this] { AddPointFiles(PointSet::Kind::measureGroup); });
    menu->addAction("Add &curves...", this, [this] { AddPointFiles(PointSet::Kind::curve); });
    menu->addSeparator();
    menu->addAction("&Quit", this, [this] { close(); })->setShortcut(Qt::CTRL | Qt::Key_Q);
}

void MainWindow::FillPlotMenu() {
    QMenu* const menu = menuBar()->addMenu("&Plot");
    auto* const modes = new QActionGroup(this);
    const char* const names[] = {"&3-D plot", "&XY projection", "&YZ projection", "X&Z projection"};
    for (int i = 0; i < 4; ++i) {
        QAction* const action = menu->addAction(names[i], this, [this, i] { ChangeMode(i); });
        action->setShortcut(Qt::Key_0 + i);
        action->setCheckable(true);
        modes->addAction(action);
        m_modes.push_back(action);
    }
    menu->addSeparator();
    for (const char* const name : {"inverse-x", "inverse-y", "inverse-z"})
        AddToggle(menu, name);
}

void MainWindow::FillViewMenu() {
    QMenu* const menu = menuBar()->addMenu("&View");
    QAction* const reset = menu->addAction("&Reset view", this, [this] {
        Scene().ResetView();
        m_plot->Redraw();
    });
    reset->setShortcut(Qt::Key_Home);
    menu->addSeparator();
    for (const char* const name : {"frame-lines", "grid-lines", "switch-planes"})
        AddToggle(menu, name);
    menu->addSeparator();
    for (const char* const name : {"x-contours", "y-contours", "z-contours"})
        AddToggle(menu, name);
    menu->addSeparator();
    AddToggle(menu, "trace");
    menu->addSeparator();
    QAction* const panel = m_panelDock->toggleViewAction();
    panel->setText("&Settings panel");
    panel->setShortcut(Qt::Key_F9);
    menu->addAction(panel);
    QAction* const points = m_pointsDock->toggleViewAction();
    points->setText("&Points and curves");
    points->setShortcut(Qt::Key_F10);
    menu->addAction(points);
    menu->addAction("Settings as at &first", this, [this] { ResetSettings(); });
}

void MainWindow::MakePanels() {
    m_panel = new SettingsPanel(
        Scene(), [this](const Setting& setting, const PlotSettings& wanted) { Change(setting, wanted); },
        [this](const QString& text) { ShowWarning(text); });
    auto* const area = new QScrollArea(this);
    area->setWidget(m_panel);
    area->setWidgetResizable(true);
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area->setFocusPolicy(Qt::NoFocus);
    m_panelDock = MakeDock("settings", "Settings", area);
    m_points = new PointsPanel(Scene(), [this] { m_plot->Redraw(); });
    m_pointsDock = MakeDock("points", "Points and curves", m_points);
}

QDockWidget* MainWindow::MakeDock(const char* name, const QString& title, QWidget* content) {
    content->setMinimumWidth(panelWidth);
    auto* const dock = new QDockWidget(title, this);
    dock->setObjectName(name);
    dock->setWidget(content);
    addDockWidget(Qt::RightDockWidgetArea, dock);
    return dock;
}

void MainWindow::AddToggle(QMenu* menu, const std::string& settingName) {
    const Setting& setting = FindSetting(settingName);
    QAction* const action = menu->addAction(QString::fromStdString(setting.label));
    action->setCheckable(true);
    if (setting.key) action->setShortcut(QKeySequence(setting.key));
    connect(action, &QAction::toggled, this, [this, &setting](bool on) {
        PlotSettings wanted = Scene().Settings();
        SetFromText(setting, on ? "on" : "off", wanted);
        Change(setting, wanted);
    });
    m_toggles.push_back({&setting, action});
}

// What the plot cannot show is said and left as it was.
void MainWindow::Change(const Setting& setting, const PlotSettings& wanted) {
    const PlotSettings before = std::exchange(Scene().Settings(), wanted);
    try {
        (Scene().*setting.apply)();
    } catch (const Failure& failure) {
        Scene().Settings() = before;
        ShowWarning(QString::fromStdString(failure.what()));
    }
    m_plot->Redraw();
    RefreshControls();
}

void MainWindow::ChangeMode(int mode) {
    Scene().Settings().mode = mode;
    Scene().ApplyView();
    m_plot->Redraw();
}

void MainWindow::ResetSettings() {
    PlotSettings settings;
    settings.mode = Scene().Settings().mode;
    Scene().Settings() = settings;
    Scene().ApplyAll();
    m_plot->Redraw();
    RefreshControls();
}

void MainWindow::RefreshControls() {
    const PlotSettings& settings = Scene().Settings();
    for (const ToggleAction& toggle : m_toggles) {
        const QSignalBlocker blocker(toggle.action);
        toggle.action->setChecked(TextOf(*toggle.setting, settings) == "on");
    }
    m_modes[static_cast<std::size_t>(settings.mode)]->setChecked(true);
    m_panel->Refresh();
    m_points->Refresh();
}

void MainWindow::ShowTrace(const float* point) {
    QString text;
    if (point) text = QString("x = %1   y = %2   z = %3").arg(point[0]).arg(point[1]).arg(point[2]);
    m_tracePoint->setText(text);
}

void MainWindow::ShowWarning(const QString& text) {
    constexpr int milliseconds = 10000;
    statusBar()->showMessage(text, milliseconds);
    QApplication::beep();
}

// The plot gets the size asked for in pixels of the device, as far as the screen has them. The panel stands
// beside it at first where there is room for both.
void MainWindow::FitTo(int plotWidth, int plotHeight) {
    const QSize room = screen()->availableSize();
    m_plot->SetWantedSize(QSize(plotWidth, plotHeight) / devicePixelRatioF());
    if (sizeHint().width() > room.width()) {
        m_panelDock->hide();
        m_pointsDock->hide();
    }
    resize(sizeHint().boundedTo(room));
    resizeDocks({m_panelDock, m_pointsDock}, {3, 1}, Qt::Vertical);
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
        Scene().Settings() = WithoutDataSettings(Scene().Settings());
        Scene().ShowGrid(grid);
        ShowTitle(grid);
        m_plot->Redraw();
        RefreshControls();
    });
}

void MainWindow::AddPointFiles(PointSet::Kind kind) {
    const QStringList paths = QFileDialog::getOpenFileNames(
        this, kind == PointSet::Kind::curve ? "Add curves" : "Add measure points", QString(),
        "Points x, y, z (*.csv *.xyz *.txt *.dat);;All files (*)");
    for (const QString& path : paths)
        Try(this, [&] { Scene().AddPoints(kind, ReadPointFile(QFile::encodeName(path).toStdString())); });
    if (paths.isEmpty()) return;
    m_points->Refresh();
    m_pointsDock->show();
    m_plot->Redraw();
}

void MainWindow::SavePicture() {
    QString path = QFileDialog::getSaveFileName(this, "Save the picture", "plot.png", "PNG pictures (*.png)");
    if (path.isEmpty()) return;
    Try(this, [&] {
        std::vector<unsigned char> rgba;
        int width = 0;
        int height = 0;
        if (CapturePicture(Scene().Plotter(), rgba, width, height) != 0)
            throw Failure(std::string("cannot draw: ") + KivoDrawingTools::LastWindowError());
        WritePng(QFile::encodeName(path).toStdString(), rgba, width, height);
    });
}

} // namespace KivoViewer
