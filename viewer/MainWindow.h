// The viewer's window: menus, the plot, the side panel and the status bar.
#pragma once

#include "Content.h"
#include "Options.h"
#include "PlotScene.h"
#include "SettingTable.h"

#include <QMainWindow>

#include <vector>

class QDockWidget;
class QLabel;

namespace KivoViewer {

class PlotWidget;
class PointsPanel;
class SettingsPanel;

/// Throws a Failure where the plot cannot be drawn on this display.
class MainWindow : public QMainWindow {
public:
    MainWindow(const Content& content, const Options& options);

private:
    void FillFileMenu();
    void FillPlotMenu();
    void FillViewMenu();
    void MakePanels();
    QDockWidget* MakeDock(const char* name, const QString& title, QWidget* content);
    void FitTo(int plotWidth, int plotHeight);

    void AddToggle(QMenu* menu, const std::string& settingName);
    void Change(const Setting& setting, const PlotSettings& wanted);
    void ChangeMode(int mode);
    void ResetSettings();
    /// Shows in menus and panel what the settings are.
    void RefreshControls();
    void ShowTrace(const float* point);
    void ShowWarning(const QString& text);

    PlotScene& Scene();
    void ShowTitle(const GridData& grid);
    void OpenFile();
    void SavePicture();
    void AddPointFiles(PointSet::Kind kind);

    struct ToggleAction {
        const Setting* setting;
        QAction* action;
    };

    PlotWidget* m_plot; ///< as all widgets, owned by the window
    SettingsPanel* m_panel = nullptr;
    QDockWidget* m_panelDock = nullptr;
    PointsPanel* m_points = nullptr;
    QDockWidget* m_pointsDock = nullptr;
    QLabel* m_tracePoint = nullptr;
    std::vector<ToggleAction> m_toggles;
    std::vector<QAction*> m_modes;
};

} // namespace KivoViewer
