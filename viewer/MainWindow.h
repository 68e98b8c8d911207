// The viewer's window: menus and the plot.
#pragma once

#include "GridData.h"
#include "Options.h"

#include <QMainWindow>

#include <functional>

namespace KivoViewer {

class PlotWidget;

/// Throws a Failure where the plot cannot be drawn on this display.
class MainWindow : public QMainWindow {
public:
    MainWindow(const GridData& grid, const Options& options);

private:
    void FillFileMenu();
    void FillPlotMenu(int mode);
    void FillViewMenu();
    void FitTo(int plotWidth, int plotHeight);

    QAction* AddToggle(QMenu* menu, const QString& text, bool on, const std::function<void(bool)>& set);
    void ShowTitle(const GridData& grid);
    void OpenFile();
    void SavePicture();
    void ChooseBackground();

    PlotWidget* m_plot; ///< owned by the window
};

} // namespace KivoViewer
