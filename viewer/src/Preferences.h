// What the viewer remembers from one start to the next.
#pragma once

#include "PlotSettings.h"

#include <QByteArray>
#include <QStringList>

namespace KivoViewer {

/// The settings from last time; those that speak of one data set are not among them.
PlotSettings RememberedSettings();
void RememberSettings(const PlotSettings& settings);

/// Files opened last, the newest first. Those that are gone are left out.
QStringList RecentFiles();
/// Makes a file the newest.
void RememberFile(const QString& path);

/// Size and place of the window and its panels; empty at first.
struct WindowState {
    QByteArray geometry;
    QByteArray panels;
};
WindowState RememberedWindow();
void RememberWindow(const WindowState& state);

} // namespace KivoViewer
