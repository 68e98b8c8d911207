// The viewer's window: menus, the plot, the side panel and the status bar.
#pragma once

#include "CommandTable.h"
#include "Content.h"
#include "Options.h"
#include "Picture.h"
#include "PlotScene.h"
#include "Session.h"
#include "SettingTable.h"

#include <QCoreApplication>
#include <QMainWindow>

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

class QDockWidget;
class QLabel;
class QScrollArea;
class QUndoStack;

namespace KivoViewer {

class FileWatch;
class PlotWidget;
class PointsPanel;
class ProfilePanel;
class SettingsPanel;
class SurfacesPanel;

/// Throws a Failure where the plot cannot be drawn on this display.
class MainWindow : public QMainWindow {
    Q_DECLARE_TR_FUNCTIONS(MainWindow)

public:
    MainWindow(const Content& content, const Options& options);

protected:
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void MakePanels();
    QDockWidget* MakeDock(const char* name, const QString& title, QWidget* content);
    void FillMenus();
    QAction* MakeAction(const MenuEntry& entry);
    void ConnectToggle(QAction* action, const Setting& setting);
    void ListRecentFiles(QMenu* menu);
    void FitTo(int plotWidth, int plotHeight);
    void Place(const Options& options);
    /// Whether there is room for a plot, and on a screen.
    bool IsUsable() const;

    void Do(const MenuEntry& entry);
    /// @return whether the command is one that reads or writes files
    bool DoWithFiles(Command command);
    void Change(const Setting& setting, const PlotSettings& wanted);
    void ChangeMode(int mode);
    void OpenSection(const std::string& name);
    void ResetView();
    void ResetSettings();
    void ShowKeys();
    void ShowAbout();
    /// Shows in menus and panels what the settings are.
    void RefreshControls();
    void ShowTrace(const float* point);
    void ShowWarning(const QString& text);

    PlotScene& Scene();
    void FollowTheme();
    void ShowTitle(const GridData& grid);
    /// Tells the user of a failure, where there is one. Whatever it was has no effect then.
    /// @return whether there was none
    static bool Try(QWidget* parent, const std::function<void()>& action);
    // What was shown before, and in files.
    void Remember(const QString& name, int kind, const PlotSettings& before);
    void TakeSettings(PlotSettings settings);
    Session PresentSession();
    void Show(Session session);
    bool OpenSession(const QString& path);
    void SaveSession();
    void Reload();
    void Subtract();
    void ShowAsking(Session& session, std::string& path, ReadOptions& reading);
    void ShowFirstAs(const ReadOptions& reading, const KivoDrawingTools::SKivoView& view);
    void WatchFiles();

    /// Does something with the scene that takes long where there are many points: in another thread then,
    /// while the window is drawn. Throws what it throws.
    /// @param points  that come to those of the scene
    void ChangeScene(std::size_t points, const std::function<void(PlotScene&)>& action);
    /// The same with a picture of it.
    void TakePicture(const std::function<void(PlotScene&)>& draw);
    void EndEdits();
    void DoWithScene(const QString& words, bool isMany, bool isChanged,
                     const std::function<void(PlotScene&)>& action);
    /// Does something that reads files once nothing else is being read or asked.
    void WhenIdle(const std::function<void()>& action);

    void OpenFile();
    bool OpenPath(const QString& path);
    bool OpenReading(const Reading& reading);
    void ReadAs();
    /// How the first surface was read; nothing where it is of no file, which is told.
    std::optional<Reading> FirstReading();
    void MarkRegion();
    void ReadRegion(const std::optional<Region>& region);
    void OpenPaths(const QStringList& paths);
    void AddSurfaceFiles();
    void AddSurfacePaths(const QStringList& paths);
    void ChangeSurface(const SurfaceEntry& surface);
    void RemoveSurface(int number);
    void AddPointFiles(PointSet::Kind kind);
    // Heights along a line.
    void MakeProfile(const std::optional<ProfileLine>& line);
    void ShowProfilePanel();
    void ShowProfile(const ProfileLine& line);
    void TakeProfile(const std::optional<ProfileLine>& line);
    void RefreshProfile();
    void SaveProfileTable();
    void SaveProfilePicture();

    void SavePicture();
    void CopyPicture();
    void Print();

    struct ToggleAction {
        const Setting* setting;
        QAction* action;
    };

    PlotWidget* m_plot; ///< as all widgets, owned by the window
    SettingsPanel* m_panel = nullptr;
    QScrollArea* m_panelArea = nullptr;
    QDockWidget* m_panelDock = nullptr;
    SurfacesPanel* m_surfaces = nullptr;
    QDockWidget* m_surfacesDock = nullptr;
    PointsPanel* m_points = nullptr;
    QDockWidget* m_pointsDock = nullptr;
    ProfilePanel* m_profile = nullptr;
    QDockWidget* m_profileDock = nullptr;
    std::optional<ProfileLine> m_profileLine;
    QLabel* m_tracePoint = nullptr;
    std::vector<ToggleAction> m_toggles;
    std::vector<QAction*> m_modes;
    /// What the first surface was computed from; no text: nothing.
    struct Function {
        std::string text;
        Range x;
        Range y;
    };

    QLabel* m_proportions = nullptr;
    QUndoStack* m_history = nullptr;
    QAction* m_watching = nullptr; ///< in the menu
    FileWatch* m_watch = nullptr;
    bool m_isWatching = false;
    Function m_function;
    std::string m_minus; ///< file of the grid that is subtracted from the first; or empty
    ReadOptions m_minusReading;
    QString m_path; ///< of the grid file that is shown
    bool m_isComplete = false;
};

} // namespace KivoViewer
