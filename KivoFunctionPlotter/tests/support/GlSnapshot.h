// All state of an OpenGL context that can be asked for, and what has become different in it.
#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

namespace KivoTest {

/// The state of the current context, OpenGL 1.1 as a whole: name of the variable and its values.
using GlSnapshot = std::map<std::string, std::vector<double>>;

GlSnapshot TakeSnapshot();
/// The names of the variables that differ.
std::set<std::string> Differences(const GlSnapshot& before, const GlSnapshot& after);
/// Gives all state that a plotter touches values that no layer sets, so that every change shows: an odd
/// colour, line width, blend function and so on. Lighting, depth test and matrices are left as a frame has
/// them.
void SetOddState();

} // namespace KivoTest
