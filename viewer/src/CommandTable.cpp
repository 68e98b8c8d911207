#include "CommandTable.h"

#include "SettingTable.h"

namespace KivoViewer {

namespace {

using MenuTable = std::vector<MenuEntry>;

void AddLine(MenuTable& table) {
    table.push_back({table.back().menu, {}, {}, {}, Command::none, {}});
}

void AddToggles(MenuTable& table, const std::string& menu, const std::vector<std::string>& names) {
    for (const std::string& name : names) {
        const Setting& setting = FindSetting(name);
        table.push_back({menu, setting.label, setting.key ? setting.key : "", setting.help + ", or not",
                         Command::none, name});
    }
}

void AddFileMenu(MenuTable& table) {
    const std::string menu = "&File";
    table.push_back({menu, "&Open...", "Ctrl+O", "Open a grid of points, or a session", Command::open, {}});
    table.push_back({menu, "Open &recent", {}, "Open a grid from before", Command::openRecent, {}});
    AddLine(table);
    table.push_back({menu,
                     "Add sur&face...",
                     "Ctrl+L",
                     "Lay other grids of points over the one that is shown",
                     Command::addSurface,
                     {}});
    table.push_back({menu,
                     "Su&btract a grid...",
                     "Ctrl+Shift+L",
                     "Show by how much the first surface differs from another grid",
                     Command::subtract,
                     {}});
    table.push_back({menu, "Add measure &points...", "Ctrl+M", "Add measure points", Command::addPoints, {}});
    table.push_back({menu, "Add &curves...", "Ctrl+U", "Add curves", Command::addCurves, {}});
    AddLine(table);
    table.push_back({menu,
                     "Sa&ve session...",
                     "Ctrl+Shift+S",
                     "Save files, settings and view, to be opened again",
                     Command::saveSession,
                     {}});
    table.push_back({menu, "Read a&gain", "F5", "Read the files again", Command::reload, {}});
    table.push_back({menu,
                     "Read &as...",
                     "Ctrl+Shift+O",
                     "See the first lines of the file, and choose how it is read",
                     Command::readAs,
                     {}});
    table.push_back({menu, "&Watch files", {}, "Read files again when they change", Command::watchFiles, {}});
    AddLine(table);
    table.push_back({menu,
                     "&Save picture...",
                     "Ctrl+S",
                     "Save the plot as a picture of any size",
                     Command::savePicture,
                     {}});
    table.push_back(
        {menu, "Cop&y picture", "Ctrl+C", "Copy the plot to the clipboard", Command::copyPicture, {}});
    table.push_back({menu, "Pr&int...", "Ctrl+P", "Print the plot", Command::print, {}});
    AddLine(table);
    table.push_back({menu, "&Quit", "Ctrl+Q", "End the program", Command::quit, {}});
}

void AddPlotMenu(MenuTable& table) {
    const std::string menu = "&Plot";
    table.push_back({menu, "&3-D plot", "0", "Show the 3-D plot", Command::normalPlot, {}});
    table.push_back({menu, "&XY projection", "1", "Show the flat plot of XY", Command::xyPlot, {}});
    table.push_back({menu, "&YZ projection", "2", "Show the flat plot of YZ", Command::yzPlot, {}});
    table.push_back({menu, "X&Z projection", "3", "Show the flat plot of XZ", Command::xzPlot, {}});
    AddLine(table);
    AddToggles(table, menu, {"inverse-x", "inverse-y", "inverse-z"});
}

void AddViewMenu(MenuTable& table) {
    const std::string menu = "&View";
    table.push_back(
        {menu, "&Reset view", "Home", "Undo turning, moving and zooming", Command::resetView, {}});
    AddLine(table);
    AddToggles(table, menu, {"frame-lines", "grid-lines", "switch-planes", "auto-aspect", "fit-surfaces"});
    AddLine(table);
    AddToggles(table, menu, {"x-contours", "y-contours", "z-contours", "fill-contours"});
    AddLine(table);
    AddToggles(table, menu, {"trace", "fit-digits", "reduce-while-moving", "keep-upright"});
    AddLine(table);
    AddToggles(table, menu, {"legend", "colors-follow-range", "group-names"});
    AddLine(table);
    table.push_back(
        {menu, "Sur&faces", "F8", "Show or hide the list of surfaces", Command::surfacesPanel, {}});
    table.push_back({menu,
                     "&Points and curves",
                     "F10",
                     "Show or hide the list of points and curves",
                     Command::pointsPanel,
                     {}});
}

// A key for each section of the side panel, so that every setting is within reach of the keyboard.
void AddSettingsMenu(MenuTable& table) {
    const std::string menu = "&Settings";
    int number = 0;
    std::string section;
    for (const Setting& setting : AllSettings()) {
        if (setting.section == section) continue;
        section = setting.section;
        table.push_back({menu, '&' + section + "...", "Ctrl+" + std::to_string(++number),
                         "Go to the settings: " + section, Command::settingsSection, section});
    }
    AddLine(table);
    table.push_back({menu, "Settings &panel", "F9", "Show or hide the settings", Command::settingsPanel, {}});
    AddLine(table);
    table.push_back({menu, "&Undo", "Ctrl+Z", "Take the last change of a setting back", Command::undo, {}});
    table.push_back({menu, "Red&o", "Ctrl+Shift+Z", "Make it again", Command::redo, {}});
    table.push_back(
        {menu, "&Reset all settings", "Shift+Home", "Take all settings back", Command::resetSettings, {}});
}

void AddHelpMenu(MenuTable& table) {
    const std::string menu = "&Help";
    table.push_back({menu, "&Keys and mouse", "F1", "Tell what keys and mouse do", Command::showKeys, {}});
    table.push_back({menu, "&About", {}, "Tell what this program is", Command::about, {}});
}

MenuTable MakeMenuTable() {
    MenuTable table;
    AddFileMenu(table);
    AddPlotMenu(table);
    AddViewMenu(table);
    AddSettingsMenu(table);
    AddHelpMenu(table);
    return table;
}

} // namespace

const std::vector<MenuEntry>& AllMenuEntries() {
    static const MenuTable table = MakeMenuTable();
    return table;
}

std::vector<InputUse> KeyUses() {
    std::vector<InputUse> uses;
    for (const MenuEntry& entry : AllMenuEntries())
        if (!entry.key.empty()) uses.push_back({entry.key, entry.help});
    uses.push_back({"Arrows", "Turn the 3-D plot by five degrees, or move a flat one"});
    uses.push_back({"Shift+arrows", "Move the plot"});
    uses.push_back({"Plus, minus", "Zoom"});
    return uses;
}

std::vector<InputUse> MouseUses() {
    return {{"Left button", "Turn the 3-D plot like a turntable"},
            {"Right button", "Turn the 3-D plot freely"},
            {"Shift + either, or middle", "Move the plot"},
            {"Ctrl + either", "Zoom: down enlarges, up shrinks"},
            {"Double click", "Bring what is there to the middle"},
            {"Wheel", "Zoom at the pointer"},
            {"Move, while tracing", "Show the point of the surface under the pointer"},
            {"Drop a file", "Open it; of several the others lie over the first"},
            {"Shift + drop a file", "Lay it over what is shown"}};
}

} // namespace KivoViewer
