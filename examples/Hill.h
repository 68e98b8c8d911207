// What all example hosts show and say: a surface, its title, and how to look at it.
#pragma once

#include <KivoFunctionPlotter.h>

#include <cmath>
#include <vector>

constexpr unsigned int hillColumns = 60;
constexpr unsigned int hillRows = 50;

constexpr char hillTitle[] = "sin(x) cos(y)";
constexpr char hillHelp[] = "Drag with the right button; keys 0 to 3 choose the plot, H hides it.";

/// What to say where no window can be had that the plotter draws into.
constexpr char noDisplay[] = "there is no X11 display; set DISPLAY, on Wayland to that of Xwayland, or draw "
                             "off-screen as gtk_image_host does";

/// Three floats x, y, z a point, row by row: z = sin(x) cos(y) for x from -3 to 3 and y from -2 to 2.
inline std::vector<float> HillPoints() {
    std::vector<float> points;
    for (unsigned int r = 0; r < hillRows; ++r)
        for (unsigned int c = 0; c < hillColumns; ++c) {
            const float x = -3.0f + 6.0f * static_cast<float>(c) / (hillColumns - 1);
            const float y = -2.0f + 4.0f * static_cast<float>(r) / (hillRows - 1);
            points.insert(points.end(), {x, y, std::sin(x) * std::cos(y)});
        }
    return points;
}

/// Chooses the plot that a key from '0' to '3' stands for; draw it afterwards.
/// @return whether the key stands for one
inline bool ChoosePlot(KivoDrawingTools::CKivoFunctionPlotter& plotter, int key) {
    if (key == '0') plotter.SwitchToNormalPlot();
    if (key == '1') plotter.SwitchToXYProjectPlot();
    if (key == '2') plotter.SwitchToYZProjectPlot();
    if (key == '3') plotter.SwitchToZXProjectPlot();
    return key >= '0' && key <= '3';
}
