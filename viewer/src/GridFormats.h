// The readers of the single formats, and what they share. Each begins with the first line of the text.
#pragma once

#include "GridData.h"
#include "GridWindow.h"
#include "Progress.h"
#include "Table.h"
#include "TextLines.h"

#include <string>
#include <string_view>
#include <vector>

namespace KivoViewer {

/// Whether a line opens an ESRI ASCII grid.
bool IsAsciiGridHeader(std::string_view line);
GridData ReadAsciiGrid(TextLines& lines, const ReadOptions& options);

GridData ReadMatrix(TextLines& lines, const TableLayout& layout, const ReadOptions& options);

/// Whether a table holds points, not a matrix of values. Throws an OpenQuestion where it may be either.
/// @param name  of the file, whose ending counts
bool HoldsPoints(const std::string& name, const TableLayout& layout, const ReadOptions& options);

/// A field in quotation marks, shortened to what a message can hold.
std::string Quoted(std::string_view field);
/// A field's number; fails for anything else, infinities and numbers beyond single precision included.
double NumberIn(const TextLines& lines, std::string_view field);
/// A number that was read from a field; fails where it is not finite, or beyond single precision.
double CheckedNumber(const TextLines& lines, std::string_view field, double number);
/// The same for a value of the surface: an empty field, "nan" and infinities are holes.
double ValueIn(const TextLines& lines, std::string_view field);

/// Whether the last coordinate lies beyond its predecessor in the direction of the first two.
bool IsLastInOrder(const std::vector<double>& coordinates);

/// Whether a text opens a Surfer grid, binary or as text.
bool IsSurferGrid(std::string_view text);
/// Reads a Surfer grid: version 6 as text (DSAA) or binary (DSBB), or version 7 (DSRB).
GridData ReadSurferGrid(std::string_view text, const std::string& name, const Progress& progress,
                        const ReadOptions& options);

/// Evenly spaced coordinates. Throws a Failure where double precision cannot tell neighbours apart.
/// @param first  of all; those of the span are returned
std::vector<double> EvenCoordinates(const std::string& name, double first, double step, const GridSpan& span);

/// Says that a grid has too many points.
std::string TooManyPoints(std::size_t mostPoints);
/// Throws a Failure that says so.
[[noreturn]] void FailForSize(const std::string& name, std::size_t mostPoints);
/// Throws it where a grid of this size cannot be shown.
void CheckSize(const std::string& name, double columns, double rows);

/// Throws a Failure where so few columns and rows lie in the region that is asked for that they make no
/// surface.
void CheckRegion(const std::string& name, std::size_t columns, std::size_t rows);

/// Makes a grid of coordinates in order, turned so that x and y rise, as differences to what OriginOf tells.
/// Fails for fewer than 2 x 2 points, where every value is a hole, and where single precision cannot tell
/// neighbours apart even so.
/// @param name  of the file, for messages and, without folders, as the title
GridData MakeGrid(const std::string& name, const std::vector<double>& x, const std::vector<double>& y,
                  const std::vector<double>& z);

} // namespace KivoViewer
