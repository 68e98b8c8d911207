// The readers of the single formats, and what they share. Each begins with the first line of the text.
#pragma once

#include "GridData.h"
#include "TextLines.h"

#include <string>
#include <string_view>
#include <vector>

namespace KivoViewer {

/// Whether a line opens an ESRI ASCII grid.
bool IsAsciiGridHeader(std::string_view line);
GridData ReadAsciiGrid(TextLines& lines);

/// The fields of a line of points.
void SplitPoint(std::string_view line, std::vector<std::string_view>& fields);
/// Whether these are three column names.
bool AreColumnNames(const std::vector<std::string_view>& fields);
GridData ReadXyz(TextLines& lines);

GridData ReadMatrix(TextLines& lines);

/// A field in quotation marks, shortened to what a message can hold.
std::string Quoted(std::string_view field);
/// A field's number; fails for anything else, infinities and numbers beyond single precision included.
double NumberIn(const TextLines& lines, std::string_view field);
/// The same for a value of the surface: an empty field, "nan" and infinities are holes.
float ValueIn(const TextLines& lines, std::string_view field);

/// Whether the last coordinate lies beyond its predecessor in the direction of the first two, in single
/// precision.
bool IsLastInOrder(const std::vector<double>& coordinates);

/// Makes a grid, titled by the file's name without folders, of coordinates in order, turned so that x and y
/// rise. Fails for fewer than 2 x 2 points and where every value is a hole.
GridData MakeGrid(const TextLines& lines, const std::vector<double>& x, const std::vector<double>& y,
                  std::vector<float> z);

} // namespace KivoViewer
