#include "MainWindow.h"

#include "Background.h"
#include "Failure.h"
#include "FileWatch.h"
#include "Numbers.h"
#include "PlotWidget.h"
#include "PointsPanel.h"
#include "Preferences.h"
#include "SettingsPanel.h"
#include "SurfacesPanel.h"

#include <KivoVersion.h>

#include <QActionGroup>
#include <QApplication>
#include <QDialogButtonBox>
#include <QDockWidget>
#include <QFile>
#include <QGridLayout>
#include <QLabel>
#include <QMenuBar>
#include <QMessageBox>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QStatusBar>
#include <QTimer>
#include <QUndoStack>
#include <QVBoxLayout>

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

namespace KivoViewer {

namespace {

constexpr int panelWidth = 320;

bool IsDark(const QPalette& palette) {
    return palette.color(QPalette::Window).lightness() < 128;
}

QString TableOf(const QString& heading, const std::vector<InputUse>& uses) {
    QString text = QString("<h3>%1</h3><table cellpadding=\"2\">").arg(heading);
    for (const InputUse& use : uses)
        text += QString("<tr><td><b>%1</b>&nbsp;&nbsp;</td><td>%2</td></tr>")
                    .arg(QString::fromStdString(use.input).toHtmlEscaped(),
                         QString::fromStdString(use.effect).toHtmlEscaped());
    return text + "</table>";
}

} // namespace

MainWindow::MainWindow(const Content& content, const Options& options) : m_plot(new PlotWidget(this)) {
    setCentralWidget(m_plot);
    setAcceptDrops(true);
    m_history = new QUndoStack(this);
    m_watch = new FileWatch(this, [this] { WhenIdle([this] { Reload(); }); });
    MakePanels();
    MakeProfile(options.profile);
    m_plot->regionMarked = [this](const Region& region) { ReadRegion(region); };
    FillMenus();
    m_tracePoint = new QLabel(this);
    m_tracePoint->setTextFormat(Qt::PlainText); // of names of files
    m_proportions = new QLabel(this);
    m_proportions->setToolTip(tr("How many times as long Z is drawn as X and Y"));
    statusBar()->addPermanentWidget(m_tracePoint);
    statusBar()->addPermanentWidget(m_proportions);
    m_surfacesDock->setVisible(!content.surfaces.empty());
    m_pointsDock->setVisible(!content.measureGroups.empty() || !content.curves.empty());
    Place(options);
    if (!m_plot->errorString().isEmpty())
        throw Failure(tr("cannot draw: %1").arg(m_plot->errorString()).toStdString());
    Scene().SetDark(IsDark(palette()));
    ShowContent(Scene(), content, options);
    connect(m_plot, &KivoPlotWidget::pointTraced, this, [this](const QVector3D& point) {
        const float coordinates[] = {point.x(), point.y(), point.z()};
        ShowTrace(coordinates);
    });
    connect(m_plot, &KivoPlotWidget::traceLost, this, [this] { ShowTrace(nullptr); });
    m_plot->setFocus();
    ShowTitle(content.grid);
    if (!options.files.empty()) m_path = QFile::decodeName(options.files.front().c_str());
    m_function = {options.function, options.x, options.y};
    m_minus = options.minus;
    m_minusReading = MinusReadingOf(options);
    m_isWatching = options.watches;
    WatchFiles();
    m_plot->Redraw();
    RefreshControls();
    m_isComplete = true;
}

PlotScene& MainWindow::Scene() {
    return m_plot->Scene();
}

// ---- Menus and panels -----------------------------------------------------------------------------------

void MainWindow::FillMenus() {
    QMenu* menu = nullptr;
    auto* const modes = new QActionGroup(this);
    for (const MenuEntry& entry : AllMenuEntries()) {
        const QString title = QString::fromStdString(entry.menu);
        if (!menu || menu->title() != title) menu = menuBar()->addMenu(title);
        if (entry.label.empty()) {
            menu->addSeparator();
        } else if (entry.command == Command::openRecent) {
            QMenu* const recent = menu->addMenu(QString::fromStdString(entry.label));
            connect(recent, &QMenu::aboutToShow, this, [this, recent] { ListRecentFiles(recent); });
        } else {
            QAction* const action = MakeAction(entry);
            menu->addAction(action);
            if (entry.command >= Command::normalPlot && entry.command <= Command::xzPlot) {
                action->setCheckable(true);
                modes->addAction(action);
                m_modes.push_back(action);
            }
            if (entry.command == Command::watchFiles) {
                action->setCheckable(true);
                m_watching = action;
            }
        }
    }
}

QAction* MainWindow::MakeAction(const MenuEntry& entry) {
    QAction* action = nullptr;
    if (entry.command == Command::settingsPanel)
        action = m_panelDock->toggleViewAction();
    else if (entry.command == Command::surfacesPanel)
        action = m_surfacesDock->toggleViewAction();
    else if (entry.command == Command::pointsPanel)
        action = m_pointsDock->toggleViewAction();
    else if (entry.command == Command::profilePanel)
        action = m_profileDock->toggleViewAction();
    else
        action = new QAction(this);
    action->setText(QString::fromStdString(entry.label));
    action->setStatusTip(QString::fromStdString(entry.help));
    if (!entry.key.empty()) action->setShortcut(QKeySequence(QString::fromStdString(entry.key)));
    if (entry.command == Command::none)
        ConnectToggle(action, FindSetting(entry.setting));
    else
        connect(action, &QAction::triggered, this, [this, &entry] { Do(entry); });
    return action;
}

void MainWindow::ConnectToggle(QAction* action, const Setting& setting) {
    action->setCheckable(true);
    connect(action, &QAction::toggled, this, [this, &setting](bool on) {
        PlotSettings wanted = Scene().Settings();
        SetFromText(setting, on ? "on" : "off", wanted);
        Change(setting, wanted);
    });
    m_toggles.push_back({&setting, action});
}

void MainWindow::Do(const MenuEntry& entry) {
    if (IsWaitingForBackground()) return; // what comes by other ways than keys and pointer
    if (DoWithFiles(entry.command)) return;
    switch (entry.command) {
    case Command::quit:
        close();
        return;
    case Command::normalPlot:
    case Command::xyPlot:
    case Command::yzPlot:
    case Command::xzPlot:
        return ChangeMode(static_cast<int>(entry.command) - static_cast<int>(Command::normalPlot));
    case Command::resetView:
        return ResetView();
    case Command::settingsSection:
        return OpenSection(entry.setting);
    case Command::undo:
        return m_history->undo();
    case Command::redo:
        return m_history->redo();
    case Command::resetSettings:
        return ResetSettings();
    case Command::showKeys:
        return ShowKeys();
    case Command::about:
        return ShowAbout();
    case Command::profilePanel:
        return ShowProfilePanel();
    default: // menus, and the panels' own actions
        return;
    }
}

bool MainWindow::DoWithFiles(Command command) {
    switch (command) {
    case Command::open:
        OpenFile();
        return true;
    case Command::addSurface:
        AddSurfaceFiles();
        return true;
    case Command::addPoints:
        AddPointFiles(PointSet::Kind::measureGroup);
        return true;
    case Command::addCurves:
        AddPointFiles(PointSet::Kind::curve);
        return true;
    case Command::saveSession:
        SaveSession();
        return true;
    case Command::subtract:
        Subtract();
        return true;
    case Command::reload:
        Reload();
        return true;
    case Command::readAs:
        ReadAs();
        return true;
    case Command::markRegion:
        MarkRegion();
        return true;
    case Command::readWhole:
        ReadRegion(std::nullopt);
        return true;
    case Command::watchFiles:
        m_isWatching = m_watching->isChecked();
        WatchFiles();
        return true;
    case Command::savePicture:
        SavePicture();
        return true;
    case Command::copyPicture:
        CopyPicture();
        return true;
    case Command::print:
        Print();
        return true;
    default:
        return false;
    }
}

void MainWindow::MakePanels() {
    m_panel = new SettingsPanel(
        Scene(), [this](const Setting& setting, const PlotSettings& wanted) { Change(setting, wanted); },
        [this](const QString& text) { ShowWarning(text); });
    m_panelArea = new QScrollArea(this);
    m_panelArea->setWidget(m_panel);
    m_panelArea->setWidgetResizable(true);
    m_panelArea->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_panelArea->setFocusPolicy(Qt::NoFocus);
    const int bar = m_panelArea->verticalScrollBar()->sizeHint().width() + 2 * m_panelArea->frameWidth();
    m_panelArea->setMinimumWidth(std::max(panelWidth, m_panel->LeastWidth() + bar));
    m_panelDock = MakeDock("settings", tr("Settings"), m_panelArea);
    m_surfaces = new SurfacesPanel(Scene(), {[this](const SurfaceEntry& surface) { ChangeSurface(surface); },
                                             [this](int number) { RemoveSurface(number); },
                                             [this](const QString& text) { ShowWarning(text); }});
    m_surfacesDock = MakeDock("surfaces", tr("Surfaces"), m_surfaces);
    m_points = new PointsPanel(Scene(), [this] { m_plot->Redraw(); });
    m_pointsDock = MakeDock("points", tr("Points and curves"), m_points);
}

QDockWidget* MainWindow::MakeDock(const char* name, const QString& title, QWidget* content) {
    content->setMinimumWidth(std::max(panelWidth, content->minimumWidth()));
    auto* const dock = new QDockWidget(title, this);
    dock->setObjectName(name);
    dock->setWidget(content);
    addDockWidget(Qt::RightDockWidgetArea, dock);
    return dock;
}

// ---- Settings and view ------------------------------------------------------------------------------------

// What the plot cannot show is said and left as it was.
void MainWindow::Change(const Setting& setting, const PlotSettings& wanted) {
    if (IsWaitingForBackground()) return; // the panel shows what is there when that ends
    const PlotSettings before = std::exchange(Scene().Settings(), wanted);
    try {
        ChangeScene(0, [&](PlotScene& scene) { (scene.*setting.apply)(); });
        const auto kind = static_cast<int>(&setting - AllSettings().data());
        Remember(QString::fromStdString(setting.label), IsToggle(setting) ? -1 : kind, before);
    } catch (const Failure& failure) {
        Scene().Settings() = before;
        ShowWarning(QString::fromStdString(failure.what()));
    }
    m_plot->Redraw();
    RefreshControls();
}

// As at first, also where zooming at the pointer has shifted the plot.
void MainWindow::ChangeMode(int mode) {
    Scene().Settings().mode = mode;
    Scene().ApplyView();
    Scene().ResetView();
    m_plot->Redraw();
}

void MainWindow::OpenSection(const std::string& name) {
    m_panelDock->show();
    QWidget* const rows = m_panel->OpenSection(name);
    // The panel has its new height once it is laid out. Where not all fits, the section's beginning counts.
    QTimer::singleShot(0, this, [this, rows] {
        m_panelArea->ensureWidgetVisible(rows);
        if (QWidget* const editor = m_panel->focusWidget()) m_panelArea->ensureWidgetVisible(editor);
    });
}

void MainWindow::ResetView() {
    Scene().ResetView();
    m_plot->Redraw();
}

void MainWindow::ResetSettings() {
    PlotSettings settings;
    settings.mode = Scene().Settings().mode;
    const PlotSettings before = std::exchange(Scene().Settings(), settings);
    ChangeScene(0, [](PlotScene& scene) { scene.ApplyAll(); });
    Remember(tr("Reset all settings"), -1, before);
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
    m_watching->setChecked(m_isWatching);
    const std::optional<double> exaggeration = Scene().Exaggeration();
    m_proportions->setText(
        exaggeration ? tr("Exaggeration %1")
                           .arg(QString::fromStdString(FormatRounded(static_cast<float>(*exaggeration))))
                     : QString());
    m_panel->Refresh();
    m_surfaces->Refresh();
    m_points->Refresh();
    RefreshProfile();
}

void MainWindow::ShowTrace(const float* point) {
    if (point && m_plot->view().IsLent()) return;
    m_tracePoint->setText(point ? QString::fromStdString(Scene().ReadOut(point)) : QString());
}

void MainWindow::ShowWarning(const QString& text) {
    constexpr int milliseconds = 10000;
    statusBar()->showMessage(text, milliseconds);
    QApplication::beep();
}

// ---- The window -------------------------------------------------------------------------------------------

// As last time, unless the command line says what size the plot should have. A size that is of no use here is
// not taken: Qt refuses that of a screen much larger or smaller, in pixels of its own.
void MainWindow::Place(const Options& options) {
    if (options.hasSize) return FitTo(options.width, options.height);
    const WindowState last = RememberedWindow();
    const bool isRestored = restoreGeometry(last.geometry);
    const bool hasSurfaces = !m_surfacesDock->isHidden();
    const bool hasPoints = !m_pointsDock->isHidden();
    const bool hasProfile = !m_profileDock->isHidden();
    restoreState(last.panels);
    m_surfacesDock->setVisible(hasSurfaces);
    m_pointsDock->setVisible(hasPoints);
    m_profileDock->setVisible(hasProfile);
    if (isRestored && IsUsable()) return;
    FitTo(options.width, options.height);
    if (isRestored) move(screen()->availableGeometry().topLeft());
}

bool MainWindow::IsUsable() const {
    constexpr int leastWidth = 400, leastHeight = 300;
    const QRect seen = geometry().intersected(screen()->availableVirtualGeometry());
    return seen.width() >= leastWidth && seen.height() >= leastHeight;
}

// The plot gets the size asked for in pixels of the device, as far as the screen has them. The panel stands
// beside it at first where there is room for both.
void MainWindow::FitTo(int plotWidth, int plotHeight) {
    const QSize room = screen()->availableSize();
    m_plot->SetWantedSize(QSize(plotWidth, plotHeight) / devicePixelRatioF());
    if (sizeHint().width() > room.width()) {
        m_panelDock->hide();
        m_surfacesDock->hide();
        m_pointsDock->hide();
    }
    resize(sizeHint().boundedTo(room));
    resizeDocks({m_panelDock, m_surfacesDock, m_pointsDock}, {3, 1, 1}, Qt::Vertical);
}

// The desktop's theme shows in the palette.
void MainWindow::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && m_isComplete) FollowTheme();
}

void MainWindow::FollowTheme() {
    if (m_plot->view().IsLent()) return WhenIdle([this] { FollowTheme(); });
    if (IsDark(palette()) == Scene().IsDark()) return;
    try {
        Scene().SetDark(IsDark(palette()));
    } catch (const Failure& failure) {
        ShowWarning(QString::fromStdString(failure.what()));
    }
    m_plot->Redraw();
    RefreshControls();
}

void MainWindow::closeEvent(QCloseEvent* event) {
    RememberSettings(Scene().Settings());
    RememberWindow({saveGeometry(), saveState()});
    QMainWindow::closeEvent(event);
}

void MainWindow::ShowTitle(const GridData& grid) {
    const QString title = QString::fromStdString(OneLine(grid.title));
    setWindowTitle(title + " - Kivo Viewer");
}

// In two columns: all in one would be higher than most screens. On small ones they are moved.
void MainWindow::ShowKeys() {
    QDialog dialog(this);
    dialog.setWindowTitle(tr("Keys and mouse"));
    auto* const content = new QWidget;
    auto* const layout = new QGridLayout(content);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setHorizontalSpacing(32);
    const std::vector<InputUse> keys = KeyUses();
    const std::vector<InputUse> mouse = MouseUses();
    const auto middle = keys.begin() + static_cast<std::ptrdiff_t>((keys.size() + mouse.size()) / 2);
    layout->addWidget(new QLabel(TableOf(tr("Keys"), {keys.begin(), middle})), 0, 0, Qt::AlignTop);
    layout->addWidget(
        new QLabel(TableOf(tr("Keys, continued"), {middle, keys.end()}) + TableOf(tr("Mouse"), mouse)), 0, 1,
        Qt::AlignTop);
    auto* const area = new QScrollArea;
    area->setWidget(content);
    area->setFrameShape(QFrame::NoFrame);
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    auto* const rows = new QVBoxLayout(&dialog);
    rows->addWidget(area);
    rows->addWidget(buttons);
    const QSize others = dialog.sizeHint() - area->sizeHint();
    dialog.resize((content->sizeHint() + others).boundedTo(screen()->availableSize() * 0.95));
    dialog.exec();
}

void MainWindow::ShowAbout() {
    QMessageBox::about(this, tr("About Kivo Viewer"),
                       "<h3>Kivo Viewer " KIVO_VERSION "</h3><p>" +
                           tr("Shows surfaces z = f(x, y), drawn by the library KivoFunctionPlotter.") +
                           "</p><p>" + tr("MIT licence.") + "</p>");
}

} // namespace KivoViewer
