// What all example hosts show and say: a surface, its title, and how to look at it.
#pragma once

#include "SampleGrids.h"

#include <KivoFunctionPlotter.h>

using KivoSamples::hillColumns;
using KivoSamples::HillPoints; // three floats x, y, z a point, row by row
using KivoSamples::hillRows;

/// While the plot moves, so many points a side are drawn at most, so that a grid of millions keeps up with
/// the hand; after a rest of so many milliseconds, all.
constexpr unsigned int movingPoints = 150;
constexpr int restTime = 120;

constexpr char hillTitle[] = "sin(x) cos(y)";
constexpr char hillHelp[] = "Drag with the right button; keys 0 to 3 choose the plot, H hides it.";

/// What to say where no window can be had that the plotter draws into.
constexpr char noDisplay[] = "there is no X11 display; set DISPLAY, on Wayland to that of Xwayland, or draw "
                             "off-screen as gtk_image_host does";

/// Chooses the plot that a key from '0' to '3' stands for; draw it afterwards.
/// @return whether the key stands for one
inline bool ChoosePlot(KivoDrawingTools::CKivoFunctionPlotter& plotter, int key) {
    if (key == '0') plotter.SwitchToNormalPlot();
    if (key == '1') plotter.SwitchToXYProjectPlot();
    if (key == '2') plotter.SwitchToYZProjectPlot();
    if (key == '3') plotter.SwitchToZXProjectPlot();
    return key >= '0' && key <= '3';
}
