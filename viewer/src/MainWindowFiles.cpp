// MainWindow: opening files and giving the picture away.
#include "Background.h"
#include "Failure.h"
#include "FileWatch.h"
#include "GdalReader.h"
#include "MainWindow.h"
#include "PictureFile.h"
#include "PlotWidget.h"
#include "PointsPanel.h"
#include "Preferences.h"
#include "ReadAsDialog.h"
#include "WindowReading.h"

#include <QApplication>
#include <QClipboard>
#include <QDialogButtonBox>
#include <QDockWidget>
#include <QDragEnterEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QFormLayout>
#include <QMenu>
#include <QMessageBox>
#include <QMimeData>
#include <QPainter>
#include <QPointer>
#include <QPrintDialog>
#include <QPrinter>
#include <QSpinBox>
#include <QStatusBar>
#include <QTimer>
#include <QUndoStack>

#include <algorithm>
#include <exception>
#include <functional>
#include <new>
#include <vector>

namespace KivoViewer {

namespace {

std::string NameOf(const QString& path) {
    return QFile::encodeName(path).toStdString();
}

QSpinBox* AddNumber(QFormLayout* form, const QString& label, int value, int most, const QString& unit) {
    auto* const box = new QSpinBox;
    box->setRange(1, most);
    box->setSuffix(' ' + unit);
    box->setValue(value);
    form->addRow(label, box);
    return box;
}

// Has the colours for a light ground, for paper, where the settings have none.
class LightScope {
public:
    explicit LightScope(PlotScene& scene) : m_scene(scene), m_isDark(scene.IsDark()) {
        if (m_isDark) m_scene.SetDark(false);
    }
    ~LightScope() {
        try {
            if (m_isDark) m_scene.SetDark(true);
        } catch (const std::exception&) {
            return; // there is no memory for it: the window stays as the paper is
        }
    }
    LightScope(const LightScope&) = delete;
    LightScope& operator=(const LightScope&) = delete;

private:
    PlotScene& m_scene;
    bool m_isDark;
};

// Asks how large a picture should be. @return whether to go on
bool AskForFormat(QWidget* parent, PictureFormat& format) {
    QDialog dialog(parent);
    dialog.setWindowTitle(MainWindow::tr("Save picture"));
    auto* const form = new QFormLayout(&dialog);
    QSpinBox* const width =
        AddNumber(form, MainWindow::tr("&Width"), format.width, maxPictureSize, MainWindow::tr("pixels"));
    QSpinBox* const height =
        AddNumber(form, MainWindow::tr("&Height"), format.height, maxPictureSize, MainWindow::tr("pixels"));
    QSpinBox* const dpi = AddNumber(form, MainWindow::tr("&Resolution"), format.dpi, maxResolution,
                                    MainWindow::tr("dots per inch"));
    dpi->setToolTip(MainWindow::tr(
        "Texts, lines and points keep their size on paper: with more dots per inch they have more "
        "pixels"));
    width->selectAll();
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Save | QDialogButtonBox::Cancel);
    form->addRow(buttons);
    QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    if (dialog.exec() != QDialog::Accepted) return false;
    format.width = width->value();
    format.height = height->value();
    format.dpi = dpi->value();
    return true;
}

// A copy of the pixels, which go with their array.
QImage CopiedImage(const std::vector<unsigned char>& rgba, const PictureFormat& format) {
    return QImage(rgba.data(), format.width, format.height, QImage::Format_RGBA8888).copy();
}

QStringList LocalFilesIn(const QMimeData& data) {
    QStringList paths;
    for (const QUrl& url : data.urls())
        if (!url.toLocalFile().isEmpty()) paths.append(url.toLocalFile());
    return paths;
}

QString AllFiles() {
    return MainWindow::tr("All files") + " (*)";
}

QString GridFiles() {
    const QString ours = "*.kivo *.asc *.grd *.xyz *.csv *.txt *.dat";
    const QString others = HasGdal() ? " *.tif *.tiff *.hgt *.dem *.nc *.vrt" : "";
    return MainWindow::tr("Grids of points and sessions") + " (" + ours + others + ");;" + AllFiles();
}

} // namespace

bool MainWindow::Try(QWidget* parent, const std::function<void()>& action) {
    try {
        action();
        return true;
    } catch (const Cancelled&) {
        return false;
    } catch (const Failure& failure) {
        QMessageBox message(QMessageBox::Warning, "Kivo Viewer",
                            QString::fromStdString(OneLine(failure.what())), QMessageBox::Ok, parent);
        message.setTextFormat(Qt::PlainText); // of names and fields of files
        message.exec();
    } catch (const std::bad_alloc&) {
        QMessageBox::warning(parent, "Kivo Viewer", tr("There is not enough memory."));
    }
    return false;
}

void MainWindow::ChangeScene(std::size_t points, const std::function<void(PlotScene&)>& action) {
    constexpr std::size_t many = 300000; // which take some hundredths of a second
    DoWithScene(tr("Preparing the plot..."), Scene().PointCount() + points >= many, true, action);
}

void MainWindow::TakePicture(const std::function<void(PlotScene&)>& draw) {
    DoWithScene(tr("Drawing the picture..."), true, false, draw);
}

void MainWindow::DoWithScene(const QString& words, bool isMany, bool isChanged,
                             const std::function<void(PlotScene&)>& action) {
    PlotScene& scene = Scene();
    if (!isMany) return action(scene);
    const PlotWidget::Loan loan(*m_plot, isChanged);
    RunToTheEnd(this, words, [&] { action(scene); });
}

// What is being typed is taken: later the scene is not to be changed, as long as files are read.
void MainWindow::EndEdits() {
    const QPointer<QWidget> editor = focusWidget();
    if (!editor || editor == m_plot) return;
    editor->clearFocus();
    if (editor) editor->setFocus();
}

// Readings in each other would end in the wrong order.
void MainWindow::WhenIdle(const std::function<void()>& action) {
    constexpr int milliseconds = 100;
    if (!IsWaitingForBackground() && !QApplication::activeModalWidget()) return action();
    QTimer::singleShot(milliseconds, this, [this, action] { WhenIdle(action); });
}

// ---- Files in -------------------------------------------------------------------------------------------

void MainWindow::OpenFile() {
    const QString path =
        QFileDialog::getOpenFileName(this, tr("Open a grid of points"), QString(), GridFiles());
    if (!path.isEmpty()) OpenPath(path);
}

// A file that is opened once more has other numbers, and is seen as before.
// @return whether it is shown now
bool MainWindow::OpenPath(const QString& path) {
    if (path.endsWith(".kivo")) return OpenSession(path);
    return OpenReading(AskingReading(path));
}

bool MainWindow::OpenReading(const Reading& reading) {
    EndEdits();
    return Try(this, [&] {
        m_watch->Expect({QFile::decodeName(reading.path.c_str())});
        const GridData grid = ReadGridForWindow(this, reading);
        const QString path = QFile::decodeName(reading.path.c_str());
        const KivoDrawingTools::SKivoView view = Scene().View();
        Scene().Settings() = WithoutDataSettings(Scene().Settings());
        ChangeScene(grid.PointCount(), [&](PlotScene& scene) { scene.ShowGrid(grid); });
        if (!m_path.isEmpty() && QFileInfo(path) == QFileInfo(m_path)) Scene().ShowView(view);
        m_path = path;
        m_function = {};
        m_minus.clear();
        m_history->clear();
        WatchFiles();
        ShowTitle(grid);
        RememberFile(path);
        m_plot->Redraw();
        RefreshControls();
        statusBar()->showMessage(QString::fromStdString(OneLine(grid.note)));
    });
}

std::optional<Reading> MainWindow::FirstReading() {
    const SurfaceEntry first = Scene().Surfaces().front();
    if (first.path.empty()) {
        statusBar()->showMessage(tr("The first surface is of no file"));
        return std::nullopt;
    }
    Reading reading = {{}, first.path, first.reading};
    reading.options.asks = true;
    return reading;
}

// The first surface's file once more, otherwise.
void MainWindow::ReadAs() {
    std::optional<Reading> reading = FirstReading();
    if (reading && AskHowToRead(this, *reading, true)) ShowFirstAs(reading->options, Scene().View());
}

void MainWindow::MarkRegion() {
    if (!FirstReading()) return;
    if (Scene().Settings().mode != xyMode) ChangeMode(xyMode);
    RefreshControls();
    m_plot->MarkRegion();
    statusBar()->showMessage(tr("Drag a rectangle with the left button; Escape ends it"));
}

void MainWindow::ReadRegion(const std::optional<Region>& region) {
    std::optional<Reading> reading = FirstReading();
    if (!reading) return;
    reading->options.region = region;
    KivoDrawingTools::SKivoView view = Scene().View();
    view.zoom = 1.0; // the region is another box
    view.panX = view.panY = 0.0;
    ShowFirstAs(reading->options, view);
}

// The first is opened, the others are laid over it.
void MainWindow::OpenPaths(const QStringList& paths) {
    if (OpenPath(paths.first())) AddSurfacePaths(paths.mid(1));
}

void MainWindow::AddSurfaceFiles() {
    AddSurfacePaths(QFileDialog::getOpenFileNames(this, tr("Add surfaces"), QString(), GridFiles()));
}

// What cannot be read is told, and leaves what is shown.
void MainWindow::AddSurfacePaths(const QStringList& paths) {
    EndEdits();
    for (const QString& path : paths)
        Try(this, [&] {
            m_watch->Expect({path});
            const GridData grid = ReadGridForWindow(this, AskingReading(path));
            ChangeScene(grid.PointCount(), [&](PlotScene& scene) {
                scene.AddSurface(grid, UsualLooks(scene.Surfaces().size()));
            });
            RememberFile(path);
        });
    if (paths.isEmpty()) return;
    if (Scene().Surfaces().size() > 1) m_surfacesDock->show();
    WatchFiles();
    m_plot->Redraw();
    RefreshControls();
}

void MainWindow::ChangeSurface(const SurfaceEntry& surface) {
    if (IsWaitingForBackground()) return;
    Try(this, [&] { ChangeScene(0, [&](PlotScene& scene) { scene.ChangeSurface(surface); }); });
    if (surface.number == 0 && surface.hasLines != Scene().Settings().showsFrameLines) {
        Scene().Settings().showsFrameLines = surface.hasLines;
        Scene().ApplySwitches();
    }
    m_plot->Redraw();
    RefreshControls();
}

void MainWindow::RemoveSurface(int number) {
    if (IsWaitingForBackground()) return;
    Try(this, [&] { ChangeScene(0, [&](PlotScene& scene) { scene.RemoveSurface(number); }); });
    m_plot->Redraw();
    RefreshControls();
}

void MainWindow::ListRecentFiles(QMenu* menu) {
    menu->clear();
    for (const QString& path : RecentFiles()) {
        QAction* const action = menu->addAction(QFileInfo(path).fileName().replace('&', "&&"));
        action->setStatusTip(path);
        connect(action, &QAction::triggered, this, [this, path] { OpenPath(path); });
    }
    if (menu->isEmpty()) menu->addAction(tr("None yet"))->setEnabled(false);
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event) {
    if (!LocalFilesIn(*event->mimeData()).isEmpty()) event->acceptProposedAction();
}

// Files are read afterwards: whoever they come from waits for the end of this.
void MainWindow::dropEvent(QDropEvent* event) {
    const QStringList paths = LocalFilesIn(*event->mimeData());
    if (paths.isEmpty()) return;
    const bool adds = (event->modifiers() & Qt::ShiftModifier) != 0;
    event->setDropAction(Qt::CopyAction); // with Shift the files would be moved
    event->accept();
    QTimer::singleShot(0, this, [=] { WhenIdle([=] { adds ? AddSurfacePaths(paths) : OpenPaths(paths); }); });
}

void MainWindow::AddPointFiles(PointSet::Kind kind) {
    const QStringList paths = QFileDialog::getOpenFileNames(
        this, kind == PointSet::Kind::curve ? tr("Add curves") : tr("Add measure points"), QString(),
        tr("Points x, y, z") + " (*.csv *.xyz *.txt *.dat);;" + AllFiles());
    for (const QString& path : paths)
        Try(this, [&] {
            m_watch->Expect({path});
            const PointFile file = ReadPointsForWindow(this, path);
            const bool isCurve = kind == PointSet::Kind::curve;
            const auto sets = isCurve ? std::vector<PointFile>{file} : GroupsOf(file);
            ChangeScene(file.Count(), [&](PlotScene& scene) {
                for (const PointFile& set : sets)
                    scene.AddPoints(kind, set);
            });
        });
    if (paths.isEmpty()) return;
    WatchFiles();
    m_points->Refresh();
    m_pointsDock->show();
    m_plot->Redraw();
}

// ---- The picture out ------------------------------------------------------------------------------------

void MainWindow::SavePicture() {
    PictureFormat format = m_plot->Format();
    if (!AskForFormat(this, format)) return;
    QString endings;
    for (const std::string& ending : PictureEndings())
        endings += " *" + QString::fromStdString(ending);
    QString path = QFileDialog::getSaveFileName(this, tr("Save the picture"), "plot.png",
                                                tr("Pictures") + " (" + endings.trimmed() + ')');
    if (path.isEmpty()) return;
    if (QFileInfo(path).suffix().isEmpty()) path += ".png";
    Try(this, [&] {
        CheckPictureName(NameOf(path), format.isTransparent);
        TakePicture(
            [&](PlotScene& scene) { WritePictureFile(NameOf(path), CaptureScene(scene, format), format); });
        statusBar()->showMessage(tr("Saved %1").arg(path));
    });
}

void MainWindow::CopyPicture() {
    Try(this, [this] {
        const PictureFormat format = m_plot->Format();
        QImage image;
        TakePicture([&](PlotScene& scene) { image = CopiedImage(CaptureScene(scene, format), format); });
        QApplication::clipboard()->setImage(image);
        statusBar()->showMessage(tr("Copied the picture"));
    });
}

// The plot takes the page's proportions, with texts of 7.5 points. Finer than that nobody sees, and the
// pixels of a page take a hundred megabytes.
void MainWindow::Print() {
    constexpr int finest = 600; // dots per inch
    QPrinter printer(QPrinter::HighResolution);
    printer.setPageOrientation(QPageLayout::Landscape);
    QPrintDialog dialog(&printer, this);
    if (dialog.exec() != QDialog::Accepted) return;
    Try(this, [&] {
        PictureFormat format;
        format.dpi = std::min(printer.resolution(), finest);
        format.scale = 0.8;
        const QSizeF page = printer.pageRect(QPrinter::Inch).size() * format.dpi;
        format.width = std::clamp(qRound(page.width()), 1, maxPictureSize);
        format.height = std::clamp(qRound(page.height()), 1, maxPictureSize);
        QImage image;
        TakePicture([&](PlotScene& scene) {
            const LightScope light(scene);
            image = CopiedImage(CaptureScene(scene, format), format);
        });
        QPainter painter;
        if (!painter.begin(&printer)) throw Failure(tr("the printer cannot be used").toStdString());
        painter.setRenderHint(QPainter::LosslessImageRendering); // by itself Qt takes JPEG
        painter.drawImage(painter.viewport(), image);
    });
}

} // namespace KivoViewer
