#include "CommandTable.h"

#include "Language.h"
#include "SettingTable.h"

#include <string_view>

namespace KivoViewer {

namespace {

using MenuTable = std::vector<MenuEntry>;

void AddLine(MenuTable& table) {
    table.push_back({table.back().menu, {}, {}, {}, Command::none, {}});
}

void AddToggles(MenuTable& table, const std::string& menu, const std::vector<std::string>& names) {
    for (const std::string& name : names) {
        const Setting& setting = FindSetting(name);
        table.push_back({menu, setting.label, setting.key ? setting.key : "",
                         Filled(Translate("Menu", "%1, or not"), setting.help), Command::none, name});
    }
}

void AddEntry(MenuTable& table, const std::string& menu, const std::string& label, const char* key,
              const std::string& help, Command command) {
    table.push_back({menu, label, key, help, command, {}});
}

void AddFileMenu(MenuTable& table) {
    const std::string menu = Translate("Menu", "&File");
    AddEntry(table, menu, Translate("Menu", "&Open..."), "Ctrl+O",
             Translate("Menu", "Open a grid of points, or a session"), Command::open);
    AddEntry(table, menu, Translate("Menu", "Open &recent"), "", Translate("Menu", "Open a grid from before"),
             Command::openRecent);
    AddLine(table);
    AddEntry(table, menu, Translate("Menu", "Add sur&face..."), "Ctrl+L",
             Translate("Menu", "Lay other grids of points over the one that is shown"), Command::addSurface);
    AddEntry(table, menu, Translate("Menu", "Su&btract a grid..."), "Ctrl+Shift+L",
             Translate("Menu", "Show by how much the first surface differs from another grid"),
             Command::subtract);
    AddEntry(table, menu, Translate("Menu", "Add measure &points..."), "Ctrl+M",
             Translate("Menu", "Add measure points"), Command::addPoints);
    AddEntry(table, menu, Translate("Menu", "Add &curves..."), "Ctrl+U", Translate("Menu", "Add curves"),
             Command::addCurves);
    AddLine(table);
    AddEntry(table, menu, Translate("Menu", "Sa&ve session..."), "Ctrl+Shift+S",
             Translate("Menu", "Save files, settings and view, to be opened again"), Command::saveSession);
    AddEntry(table, menu, Translate("Menu", "Read a&gain"), "F5", Translate("Menu", "Read the files again"),
             Command::reload);
    AddEntry(table, menu, Translate("Menu", "Read &as..."), "Ctrl+Shift+O",
             Translate("Menu", "See the first lines of the file, and choose how it is read"),
             Command::readAs);
    AddEntry(table, menu, Translate("Menu", "&Mark a region"), "Ctrl+R",
             Translate("Menu", "Drag a rectangle in the flat plot of XY, to read that part in full detail"),
             Command::markRegion);
    AddEntry(table, menu, Translate("Menu", "Read t&he whole"), "Ctrl+Shift+R",
             Translate("Menu", "Read the first surface's file without a region"), Command::readWhole);
    AddEntry(table, menu, Translate("Menu", "&Watch files"), "",
             Translate("Menu", "Read files again when they change"), Command::watchFiles);
    AddLine(table);
    AddEntry(table, menu, Translate("Menu", "&Save picture..."), "Ctrl+S",
             Translate("Menu", "Save the plot as a picture of any size"), Command::savePicture);
    AddEntry(table, menu, Translate("Menu", "Cop&y picture"), "Ctrl+C",
             Translate("Menu", "Copy the plot to the clipboard"), Command::copyPicture);
    AddEntry(table, menu, Translate("Menu", "Pr&int..."), "Ctrl+P", Translate("Menu", "Print the plot"),
             Command::print);
    AddLine(table);
    AddEntry(table, menu, Translate("Menu", "&Quit"), "Ctrl+Q", Translate("Menu", "End the program"),
             Command::quit);
}

void AddPlotMenu(MenuTable& table) {
    const std::string menu = Translate("Menu", "&Plot");
    AddEntry(table, menu, Translate("Menu", "&3-D plot"), "0", Translate("Menu", "Show the 3-D plot"),
             Command::normalPlot);
    AddEntry(table, menu, Translate("Menu", "&XY projection"), "1",
             Translate("Menu", "Show the flat plot of XY"), Command::xyPlot);
    AddEntry(table, menu, Translate("Menu", "&YZ projection"), "2",
             Translate("Menu", "Show the flat plot of YZ"), Command::yzPlot);
    AddEntry(table, menu, Translate("Menu", "X&Z projection"), "3",
             Translate("Menu", "Show the flat plot of XZ"), Command::xzPlot);
    AddLine(table);
    AddToggles(table, menu, {"inverse-x", "inverse-y", "inverse-z"});
}

void AddViewMenu(MenuTable& table) {
    const std::string menu = Translate("Menu", "&View");
    AddEntry(table, menu, Translate("Menu", "&Reset view"), "Home",
             Translate("Menu", "Undo turning, moving and zooming"), Command::resetView);
    AddLine(table);
    AddToggles(
        table, menu,
        {"frame-lines", "grid-lines", "switch-planes", "auto-aspect", "show-exaggeration", "fit-surfaces"});
    AddLine(table);
    AddToggles(table, menu, {"x-contours", "y-contours", "z-contours", "fill-contours", "label-contours"});
    AddLine(table);
    AddToggles(table, menu, {"trace", "fit-digits", "reduce-while-moving", "keep-upright"});
    AddLine(table);
    AddToggles(table, menu, {"legend", "colors-follow-range", "group-names", "point-labels", "list-points"});
    AddLine(table);
    AddEntry(table, menu, Translate("Menu", "Sur&faces"), "F8",
             Translate("Menu", "Show or hide the list of surfaces"), Command::surfacesPanel);
    AddEntry(table, menu, Translate("Menu", "&Points and curves"), "F10",
             Translate("Menu", "Show or hide the list of points and curves"), Command::pointsPanel);
    AddEntry(table, menu, Translate("Menu", "Profi&le"), "P",
             Translate("Menu", "Draw a line in the flat plot of XY and show the heights along it, or not"),
             Command::profilePanel);
}

// A key for each section of the side panel, so that every setting is within reach of the keyboard.
void AddSettingsMenu(MenuTable& table) {
    const std::string menu = Translate("Menu", "&Settings");
    int number = 0;
    std::string section;
    for (const Setting& setting : AllSettings()) {
        if (setting.section == section) continue;
        section = setting.section;
        ++number;
        table.push_back({menu, Filled(Translate("Menu", "&%1 %2..."), number, section),
                         "Ctrl+" + std::to_string(number),
                         Filled(Translate("Menu", "Go to the settings: %1"), section),
                         Command::settingsSection, section});
    }
    AddLine(table);
    AddEntry(table, menu, Translate("Menu", "Settings &panel"), "F9",
             Translate("Menu", "Show or hide the settings"), Command::settingsPanel);
    AddLine(table);
    AddEntry(table, menu, Translate("Menu", "&Undo"), "Ctrl+Z",
             Translate("Menu", "Take the last change of a setting back"), Command::undo);
    AddEntry(table, menu, Translate("Menu", "Red&o"), "Ctrl+Shift+Z", Translate("Menu", "Make it again"),
             Command::redo);
    AddEntry(table, menu, Translate("Menu", "&Reset all settings"), "Shift+Home",
             Translate("Menu", "Take all settings back"), Command::resetSettings);
}

void AddHelpMenu(MenuTable& table) {
    const std::string menu = Translate("Menu", "&Help");
    AddEntry(table, menu, Translate("Menu", "&Keys and mouse"), "F1",
             Translate("Menu", "Tell what keys and mouse do"), Command::showKeys);
    AddEntry(table, menu, Translate("Menu", "&About"), "", Translate("Menu", "Tell what this program is"),
             Command::about);
}

// As keyboards have them.
std::string WordsForKey(std::string key) {
    for (const char* const name :
         {Marked("Input", "Ctrl"), Marked("Input", "Shift"), Marked("Input", "Home")})
        if (const std::size_t at = key.find(name); at != std::string::npos)
            key.replace(at, std::string_view(name).size(), Translate("Input", name));
    return key;
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
        if (!entry.key.empty()) uses.push_back({WordsForKey(entry.key), entry.help});
    uses.push_back({Translate("Input", "Arrows"),
                    Translate("Input", "Turn the 3-D plot by five degrees, or move a flat one")});
    uses.push_back({Translate("Input", "Shift+arrows"), Translate("Input", "Move the plot")});
    uses.push_back({Translate("Input", "Plus, minus"), Translate("Input", "Zoom")});
    return uses;
}

std::vector<InputUse> MouseUses() {
    return {{Translate("Input", "Left button"), Translate("Input", "Turn the 3-D plot like a turntable")},
            {Translate("Input", "Right button"), Translate("Input", "Turn the 3-D plot freely")},
            {Translate("Input", "Shift + either, or middle"), Translate("Input", "Move the plot")},
            {Translate("Input", "Ctrl + either"), Translate("Input", "Zoom: down enlarges, up shrinks")},
            {Translate("Input", "Left button, with the profile"),
             Translate("Input", "Draw the line in the flat plot of XY")},
            {Translate("Input", "Double click"), Translate("Input", "Bring what is there to the middle")},
            {Translate("Input", "Wheel"), Translate("Input", "Zoom at the pointer")},
            {Translate("Input", "Move, while tracing"),
             Translate("Input", "Show the point of the surface under the pointer")},
            {Translate("Input", "Drop a file"),
             Translate("Input", "Open it; of several the others lie over the first")},
            {Translate("Input", "Shift + drop a file"), Translate("Input", "Lay it over what is shown")}};
}

} // namespace KivoViewer
