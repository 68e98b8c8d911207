// What the user says of files where these leave something open.
#pragma once

#include "Failure.h"

#include <cstddef>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace KivoViewer {

/// A part of the plane.
struct Region {
    double x0 = 0.0;
    double x1 = 0.0;
    double y0 = 0.0;
    double y1 = 0.0;
};

/// The region that "x0:x1:y0:y1" stands for. Throws a Failure that says what is wrong with the text.
Region ParseRegion(const std::string& text);
/// The text that stands for it.
std::string TextOf(const Region& region);

/// How values between scattered points follow from these.
enum class GridMethod { linear, nearest, inverseDistance };

/// The method of this name: linear, nearest or inverse. Throws a Failure for any other text.
GridMethod ParseGridMethod(const std::string& text);
/// Its name.
std::string NameOf(GridMethod method);
/// Its name in the user's language, for messages.
std::string WordFor(GridMethod method);

/// The columns that "x,y,z" stands for, names or numbers; "all" alone is a matrix of values. Throws a Failure
/// for any other text.
std::vector<std::string> ParseColumns(const std::string& text);

/// The most points that a grid may have: what the plot makes of them then still fits a desktop's memory.
constexpr std::size_t maxPointCount = std::size_t{1} << 24;

/// How files are read.
struct ReadOptions {
    int band = 0;                 ///< of a raster, from 1; 0 for the first
    std::optional<Region> region; ///< of which alone the points are read
    std::vector<std::string>
        columns;          ///< of x, y and z in a table; "all" alone: a matrix; none: as it says itself
    char decimalMark = 0; ///< of a table, point or comma; 0: as it shows itself
    std::optional<GridMethod>
        method;          ///< points are scattered, and a grid is made of them so; none: as they lie
    double cell = 0.0;   ///< of a grid that is made; 0: from the density of the points
    double radius = 0.0; ///< of such a grid: the longest edge of a triangle, or how far a point reaches; 0:
                         ///< any, or three distances
    std::size_t mostPoints = maxPointCount; ///< of a grid; of a larger one every k-th row and column is read

    /// Whether somebody is there to be asked where the file and all of this leave open what is taken for
    /// granted else: how a grid is made of scattered points, and the band of several.
    bool asks = false;

    bool IsMatrix() const { return columns.size() == 1; }
};

/// How a file may be meant.
struct Reading {
    std::string words; ///< for a choice
    std::string path;  ///< of the file, or of its part
    ReadOptions options;
};

/// A file that may be meant in several ways: the message says how the command line chooses.
class OpenQuestion : public Failure {
public:
    OpenQuestion(const std::string& message, std::vector<Reading> readings)
        : Failure(message), m_readings(std::move(readings)) {}
    const std::vector<Reading>& Readings() const { return m_readings; }

private:
    std::vector<Reading> m_readings;
};

/// Scattered points, of which a grid may be made in several ways.
class GridQuestion : public Failure {
public:
    GridQuestion(const std::string& message, std::size_t points, double cell)
        : Failure(message), m_points(points), m_cell(cell) {}
    std::size_t Points() const { return m_points; }
    /// The size of the grid's cells that fits the density of the points.
    double Cell() const { return m_cell; }

private:
    std::size_t m_points;
    double m_cell;
};

} // namespace KivoViewer
