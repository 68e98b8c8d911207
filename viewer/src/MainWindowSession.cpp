// MainWindow: sessions, files that are read again, and steps back.
#include "Background.h"
#include "Content.h"
#include "Failure.h"
#include "FileWatch.h"
#include "MainWindow.h"
#include "PlotWidget.h"
#include "Preferences.h"
#include "ReadDialogs.h"
#include "Sample.h"
#include "Session.h"

#include <QDockWidget>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QStatusBar>
#include <QUndoStack>

#include <functional>
#include <new>
#include <optional>
#include <string>
#include <utility>

namespace KivoViewer {

namespace {

// The file that GDAL's name for a part of it names, such as NETCDF:"sea.nc":depth; of other names themselves.
QString FileIn(const QString& name) {
    if (QFileInfo::exists(name)) return name;
    QString inner = name.section(':', 1, -2);
    inner.remove('"');
    return !inner.isEmpty() && QFileInfo::exists(inner) ? inner : name;
}

// All that is going to be read.
QStringList FilesOf(const Options& options) {
    QStringList files;
    for (const auto* const paths : {&options.files, &options.pointFiles, &options.curveFiles})
        for (const std::string& path : *paths)
            files.append(FileIn(QFile::decodeName(path.c_str())));
    files.append(FileIn(QFile::decodeName(options.minus.c_str())));
    return files;
}

// A change of settings that can be taken back. Changes of one number that follow each other are one.
class SettingsStep : public QUndoCommand {
public:
    using Show = std::function<void(const PlotSettings&)>;

    /// @param kind  of the changes that are joined; -1: alone
    SettingsStep(const QString& name, int kind, PlotSettings before, PlotSettings after, Show show)
        : QUndoCommand(name), m_kind(kind), m_before(std::move(before)), m_after(std::move(after)),
          m_show(std::move(show)) {}

    int id() const override { return m_kind; }
    bool mergeWith(const QUndoCommand* other) override {
        m_after = static_cast<const SettingsStep*>(other)->m_after;
        return true;
    }
    void undo() override { m_show(m_before); }
    void redo() override {
        if (std::exchange(m_isShown, true)) m_show(m_after);
    }

private:
    int m_kind;
    PlotSettings m_before;
    PlotSettings m_after;
    Show m_show;
    bool m_isShown = false; // it was made when it was shown already
};

} // namespace

// ---- Steps back -----------------------------------------------------------------------------------------

void MainWindow::Remember(const QString& name, int kind, const PlotSettings& before) {
    m_history->push(new SettingsStep(name, kind, before, Scene().Settings(),
                                     [this](const PlotSettings& settings) { TakeSettings(settings); }));
}

// The plot mode is no setting: it stays.
void MainWindow::TakeSettings(PlotSettings settings) {
    const PlotSettings before = Scene().Settings();
    settings.mode = before.mode;
    try {
        ChangeScene(0, [&](PlotScene& scene) { scene.TakeSettings(settings); });
    } catch (const Failure& failure) {
        Scene().Settings() = before;
        ShowWarning(QString::fromStdString(failure.what()));
    }
    m_plot->Redraw();
    RefreshControls();
}

// ---- Sessions -------------------------------------------------------------------------------------------

Session MainWindow::PresentSession() {
    Session session = SessionOf(Scene());
    session.function = m_function.text;
    session.x = m_function.x;
    session.y = m_function.y;
    session.minus = m_minus;
    session.minusReading = m_minusReading;
    if (!m_profileDock->isHidden()) session.profile = m_profileLine;
    return session;
}

// All of it, or nothing: files are read before anything is shown.
void MainWindow::Show(Session session) {
    const Options options = WithSession(Options(), std::move(session));
    m_watch->Expect(FilesOf(options));
    const Content content =
        MakeInBackground<Content>(this, tr("Reading..."), [options](const Progress& progress) {
            return LoadContent(options, ReadSample, progress);
        });
    std::optional<Failure> failure; // of which the rest is shown
    try {
        std::size_t points = 0;
        for (const GridData& grid : content.surfaces)
            points += grid.PointCount();
        for (const auto* const files : {&content.measureGroups, &content.curves})
            for (const PointFile& file : *files)
                points += file.Count();
        ChangeScene(points + content.grid.PointCount(),
                    [&](PlotScene& scene) { ShowContent(scene, content, options); });
    } catch (const Failure& first) {
        failure = first;
    }
    m_function = {options.function, options.x, options.y};
    m_minus = options.minus;
    m_minusReading = MinusReadingOf(options);
    m_minusReading.asks = false;
    m_path = options.files.empty() ? QString() : QFile::decodeName(options.files.front().c_str());
    m_surfacesDock->setVisible(!content.surfaces.empty() || m_surfacesDock->isVisible());
    m_pointsDock->setVisible(!options.session->points.empty() || m_pointsDock->isVisible());
    TakeProfile(options.profile);
    ShowTitle(content.grid);
    WatchFiles();
    m_plot->Redraw();
    RefreshControls();
    if (failure) throw Failure(*failure);
}

bool MainWindow::OpenSession(const QString& path) {
    EndEdits();
    const bool isShown = Try(this, [&] { Show(ReadSessionFile(QFile::encodeName(path).toStdString())); });
    if (!isShown) return false;
    RememberFile(path);
    m_history->clear();
    return true;
}

void MainWindow::SaveSession() {
    const QString kinds = tr("Sessions") + " (*.kivo);;" + tr("All files") + " (*)";
    QString path = QFileDialog::getSaveFileName(this, tr("Save the session"), "plot.kivo", kinds);
    if (path.isEmpty()) return;
    if (QFileInfo(path).suffix().isEmpty()) path += ".kivo";
    Try(this, [&] {
        WriteSessionFile(PresentSession(), QFile::encodeName(path).toStdString());
        RememberFile(path);
        statusBar()->showMessage(tr("Saved %1").arg(path));
    });
}

// ---- Files again ----------------------------------------------------------------------------------------

void MainWindow::Reload() {
    try {
        Show(PresentSession());
        statusBar()->showMessage(tr("Read again"));
    } catch (const Failure& failure) { // what is written at this moment will be whole with the next change
        ShowWarning(QString::fromStdString(failure.what()));
        WatchFiles();
    } catch (const Cancelled&) {
        WatchFiles();
    } catch (const std::bad_alloc&) {
        ShowWarning(tr("There is not enough memory."));
        WatchFiles();
    }
}

// Asks what one file of the session leaves open, until that is nothing.
void MainWindow::ShowAsking(Session& session, std::string& path, ReadOptions& reading) {
    reading.asks = true;
    while (true) {
        try {
            return Show(session);
        } catch (const OpenQuestion& question) {
            if (question.Readings().front().path.find(path) == std::string::npos) throw; // of another file
            const auto answer = AskForReading(this, question, true);
            if (!answer) throw Cancelled();
            path = answer->path;
            reading = answer->options;
        } catch (const GridQuestion& question) {
            if (!AskForGrid(this, question, reading)) throw Cancelled();
        }
    }
}

// What is set for one data set is not for their difference.
void MainWindow::Subtract() {
    const QString path = QFileDialog::getOpenFileName(this, tr("Subtract a grid of points"));
    if (path.isEmpty()) return;
    Try(this, [&] {
        Session session = PresentSession();
        session.minus = QFile::encodeName(path).toStdString();
        session.minusReading = {};
        session.settings = WithoutDataSettings(session.settings);
        session.surfaces.front().name.clear();
        ShowAsking(session, session.minus, session.minusReading);
        m_history->clear();
    });
}

// The first surface's file otherwise, with all that is shown over it.
void MainWindow::ShowFirstAs(const ReadOptions& reading, const KivoDrawingTools::SKivoView& view) {
    Try(this, [&] {
        Session session = PresentSession();
        session.settings = WithoutDataSettings(session.settings);
        session.view = view;
        SurfaceEntry& first = session.surfaces.front();
        first.reading = reading;
        ShowAsking(session, first.path, first.reading);
        m_history->clear();
    });
}

void MainWindow::WatchFiles() {
    QStringList paths;
    if (m_isWatching) {
        const Session session = PresentSession();
        const auto add = [&paths](const std::string& path) {
            if (!path.empty()) paths.append(FileIn(QFile::decodeName(path.c_str())));
        };
        for (const SurfaceEntry& surface : session.surfaces)
            add(surface.path);
        add(session.minus);
        for (const PointSet& set : session.points)
            add(set.path);
    }
    paths.removeDuplicates();
    m_watch->Watch(paths);
}

} // namespace KivoViewer
