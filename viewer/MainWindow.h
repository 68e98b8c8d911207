// The viewer's window: menus, the plot, the side panel and the status bar.
#pragma once

#include "GridData.h"
#include "Options.h"
#include "SettingTable.h"

#include <QMainWindow>

#include <vector>

class QDockWidget;
class QLabel;

namespace KivoViewer {

class PlotScene;
class PlotWidget;
class SettingsPanel;

/// Throws a Failure where the plot cannot be drawn on this display.
class MainWindow : public QMainWindow {
public:
    MainWindow(const GridData& grid, const Options& options);

private:
    void FillFileMenu();
    void FillPlotMenu();
    void FillViewMenu();
    void MakePanel();
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

    struct ToggleAction {
        const Setting* setting;
        QAction* action;
    };

    PlotWidget* m_plot; ///< as all widgets, owned by the window
    SettingsPanel* m_panel = nullptr;
    QDockWidget* m_panelDock = nullptr;
    QLabel* m_tracePoint = nullptr;
    std::vector<ToggleAction> m_toggles;
    std::vector<QAction*> m_modes;
};

} // namespace KivoViewer
