#include "ManualPage.h"

#include "CommandTable.h"

#include <CLI/CLI.hpp>
#include <KivoVersion.h>

#include <vector>

namespace KivoViewer {

namespace {

const char* const head =
    R"man(.TH KIVO-VIEWER 1 "" "KivoFunctionPlotter )man" KIVO_VERSION R"man(" "User Commands"
.SH NAME
kivo\-viewer \- show surfaces z = f(x, y) as 3-D plots
.SH SYNOPSIS
.B kivo\-viewer
.RI [ option ]...
.RI [ FILE ]
.br
.B kivo\-viewer \-\-function
.I FORMULA
.RI [ option ]...
.SH DESCRIPTION
Shows a grid of points in a window, or writes its picture to a file, which needs no display.
Without data it shows a sample terrain.
.PP
The format of a file follows from its content.
.TP
.B ESRI ASCII grid
A header of ncols, nrows, xllcorner or xllcenter, yllcorner or yllcenter, cellsize or dx and dy, and, where values are missing,
NODATA_value; then the values, the northernmost row first.
.TP
.B Surfer grid
Version 6 as text (DSAA) or binary (DSBB), and version 7 (DSRB).
.TP
.B Points
A table with x, y and z in each line, in any order, parted by blanks, tabs, commas or semicolons.
Column names may come first. Scattered points become a grid.
.TP
.B Matrix
Rows of values. Where the first cell is empty or a word, the first row has the values of x and the first column those of y.
.TP
.B Others
What GDAL reads, where the program was built with it: GeoTIFF, netCDF and other rasters.
Its names for parts of files, such as NETCDF:sea.nc:depth, are understood.
.PP
Missing values become holes in the surface. At most 16777216 points are shown; larger rasters are read reduced.
.PP
Files of measure points and curves are tables of points, too. The name \\- stands for the standard input.
.SH OPTIONS
A colour is six hexadecimal digits, with or without #, or a name such as red.
What is not given follows from the data or is as it was in the last window; pictures do not depend on that.
)man";

const char* const tail = R"man(.SH EXIT STATUS
.TP
.B 0
Success.
.TP
.B 2
Failure. One line on standard error says what is wrong, for a text file with the number of the line.
.SH ENVIRONMENT
.TP
.BR WAYLAND_DISPLAY ", " DISPLAY
The display of the window: Wayland or X11, by the plugins that Qt has for them.
.TP
.B QT_QPA_PLATFORM
The plugin to take, such as wayland or xcb.
.SH FILES
.TP
.I ~/.config/KivoFunctionPlotter/kivo\-viewer.conf
What the window remembers: settings, recent files, size and panels.
.SH EXAMPLES
.nf
kivo\-viewer heights.asc \-\-z\-contours \-\-points wells.csv
kivo\-viewer \-\-function "sin(x)*cos(y)" \-\-x \-3:3:50 \-\-y \-2:2:40
kivo\-viewer heights.csv \-\-picture heights.png \-\-size 2400x1600 \-\-dpi 192
.fi
)man";

// Text as man's source: a dash would become a hyphen.
std::string Escaped(const std::string& text) {
    std::string result;
    for (const char c : text) {
        if (c == '-' || c == '\\') result += '\\';
        result += c;
    }
    return result;
}

void AppendOption(const CLI::Option& option, std::string& page) {
    page += ".TP\n.B " + Escaped(option.get_name(false, true));
    if (!option.get_type_name().empty()) page += " \\fI" + Escaped(option.get_type_name()) + "\\fR";
    page += '\n' + Escaped(option.get_description()) + ".\n";
}

void AppendUses(const char* heading, const std::vector<InputUse>& uses, std::string& page) {
    page += std::string(".SH ") + heading + '\n';
    for (const InputUse& use : uses)
        page += ".TP\n.B " + Escaped(use.input) + '\n' + Escaped(use.effect) + ".\n";
}

} // namespace

std::string ManualPage(const CLI::App& app) {
    std::string page = head;
    std::string group;
    for (const CLI::Option* option : app.get_options()) {
        if (option->get_group().empty() || option->get_positional()) continue;
        if (option->get_group() != group) page += ".SS " + (group = option->get_group()) + '\n';
        AppendOption(*option, page);
    }
    AppendUses("MOUSE", MouseUses(), page);
    AppendUses("KEYS", KeyUses(), page);
    return page + tail;
}

} // namespace KivoViewer
