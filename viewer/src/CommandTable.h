// The menus and what keys and mouse do, as one table: the window's menus, its help, the text of --help and
// the manual page are made from it.
#pragma once

#include <string>
#include <vector>

namespace KivoViewer {

/// What an entry of a menu does.
enum class Command {
    none, ///< a setting is toggled, or nothing
    open,
    openRecent, ///< a menu of its own with the files opened last
    addSurface,
    addPoints,
    addCurves,
    subtract,
    saveSession,
    reload,
    readAs,
    markRegion,
    readWhole,
    watchFiles, ///< checked while they are
    savePicture,
    copyPicture,
    print,
    quit,
    normalPlot, ///< the four plot modes follow each other as the plotter numbers them
    xyPlot,
    yzPlot,
    xzPlot,
    resetView,
    settingsSection, ///< a section of the side panel is opened
    settingsPanel,
    surfacesPanel,
    pointsPanel,
    profilePanel, ///< with the line drawn in the XY plot
    undo,
    redo,
    resetSettings,
    showKeys,
    about
};

/// An entry of a menu. One without a label parts the others by a line.
struct MenuEntry {
    std::string menu;  ///< with & before the letter that opens it
    std::string label; ///< the same
    std::string key;   ///< a key sequence such as Ctrl+O, or empty
    std::string help;  ///< what it does, in one sentence without a full stop
    Command command = Command::none;
    std::string setting; ///< name of the setting that it toggles, or of the section that it opens, or empty
};

/// All entries, those of a menu together and in order.
const std::vector<MenuEntry>& AllMenuEntries();

/// A key or something done with the mouse, and what comes of it.
struct InputUse {
    std::string input;
    std::string effect;
};

std::vector<InputUse> KeyUses();   ///< of the entries that have keys
std::vector<InputUse> MouseUses(); ///< on the plot

} // namespace KivoViewer
