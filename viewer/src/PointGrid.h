// Grids from points.
#pragma once

#include "GridData.h"
#include "PointTable.h"
#include "Progress.h"
#include "ReadOptions.h"

#include <optional>

namespace KivoViewer {

/// The length of the rows, or else columns, of a grid that points are, one after the other; 0 for others.
std::size_t RowLength(const PointTable& table);

/// The grid whose points these are, in the order of its rows or columns; nothing for others.
std::optional<GridData> OrderedGrid(const PointTable& table);

/// The grid whose points these are, in any order. Where most of a grid's points are there, but not all, the
/// others are holes. Throws a Failure for what can be no surface.
/// @return nothing where the points are scattered
std::optional<GridData> FindGrid(const PointTable& table);

/// A regular grid with values between scattered points. Throws a Failure, or Cancelled.
GridData GridScattered(const PointTable& table, const ReadOptions& options, const Progress& progress);

} // namespace KivoViewer
