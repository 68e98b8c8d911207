// What the hosts have in common that draw with OpenGL themselves beside a plot: the left half of the window
// is the plot, the right half one colour. The key C changes the colour, T shows another page without either,
// 0 to 3 choose the plot.
#pragma once

#include "Hill.h"

constexpr char openGlTitle[] = "OpenGL beside a plot";
constexpr int openGlWidth = 800;
constexpr int openGlHeight = 300;

/// Red, green, blue of the right half.
struct OpenGlColor {
    float red, green, blue;
};
constexpr OpenGlColor openGlColors[] = {{0.0f, 1.0f, 0.0f}, {1.0f, 0.0f, 1.0f}};
