#include "Profile.h"

#include "Failure.h"
#include "Language.h"
#include "Numbers.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <limits>
#include <optional>

namespace KivoViewer {

namespace {

constexpr double noHeight = std::numeric_limits<double>::quiet_NaN();

// A place of the line by its share of the whole length.
struct LinePlace {
    double x;
    double y;
};

LinePlace PlaceAt(const ProfileLine& line, double share) {
    if (share >= 1.0) return {line.x1, line.y1};
    return {line.x0 + share * (line.x1 - line.x0), line.y0 + share * (line.y1 - line.y0)};
}

// The cell from one number to the next that holds a value; nothing beyond them.
std::optional<std::size_t> CellOf(const std::vector<double>& numbers, double value) {
    if (numbers.size() < 2 || !(value >= numbers.front()) || !(value <= numbers.back())) return std::nullopt;
    const auto above = std::upper_bound(numbers.begin(), numbers.end(), value);
    const auto index = static_cast<std::size_t>(above - numbers.begin());
    return std::min(index, numbers.size() - 1) - 1;
}

// Where the line crosses one of several parallels, from the first that it may cross.
void AddCrossings(const std::vector<double>& numbers, double from, double to, std::vector<double>& shares) {
    if (from == to) return;
    const auto first = std::lower_bound(numbers.begin(), numbers.end(), std::min(from, to));
    const auto last = std::upper_bound(numbers.begin(), numbers.end(), std::max(from, to));
    for (auto number = first; number < last; ++number)
        shares.push_back((*number - from) / (to - from));
}

// Within a cell the line may cross the diagonal once.
void AddDiagonal(const SurfaceHeights& surface, const ProfileLine& line, double begin, double end,
                 std::vector<double>& shares) {
    const LinePlace middle = PlaceAt(line, 0.5 * (begin + end));
    const auto column = CellOf(surface.x, middle.x), row = CellOf(surface.y, middle.y);
    if (!column || !row) return;
    const double width = surface.x[*column + 1] - surface.x[*column];
    const double height = surface.y[*row + 1] - surface.y[*row];
    const auto above = [&](double share) { // over the diagonal, in shares of the cell
        const LinePlace place = PlaceAt(line, share);
        return (place.y - surface.y[*row]) / height - (place.x - surface.x[*column]) / width;
    };
    const double first = above(begin), last = above(end);
    if ((first < 0.0) == (last < 0.0) || first == last) return;
    const double share = begin + (end - begin) * first / (first - last);
    if (share > begin && share < end) shares.push_back(share);
}

void SortShares(std::vector<double>& shares) {
    constexpr double same = 1e-12; // what rounding makes of one crossing at a corner
    std::sort(shares.begin(), shares.end());
    std::vector<double> kept;
    for (const double share : shares)
        if (share >= 0.0 && share <= 1.0 && (kept.empty() || share - kept.back() > same))
            kept.push_back(share);
    if (1.0 - kept.back() < same) kept.back() = 1.0;
    shares = std::move(kept);
}

// All shares at which the line enters another triangle, from 0 to 1.
std::vector<double> SharesOf(const SurfaceHeights& surface, const ProfileLine& line) {
    std::vector<double> shares = {0.0, 1.0};
    AddCrossings(surface.x, line.x0, line.x1, shares);
    AddCrossings(surface.y, line.y0, line.y1, shares);
    SortShares(shares);
    const std::vector<double> cells = shares;
    for (std::size_t i = 0; i + 1 < cells.size(); ++i)
        AddDiagonal(surface, line, cells[i], cells[i + 1], shares);
    return shares;
}

// The plane of the triangle at a place.
struct Plane {
    double x, y, z; // of a corner
    double alongX, alongY;

    double Height(LinePlace place) const { return z + (place.x - x) * alongX + (place.y - y) * alongY; }
};

std::optional<Plane> PlaneIn(const SurfaceHeights& surface, std::size_t c, std::size_t r, bool isAbove) {
    const double width = surface.x[c + 1] - surface.x[c], height = surface.y[r + 1] - surface.y[r];
    const double low = surface.Height(c, r), high = surface.Height(c + 1, r + 1);
    const double side = isAbove ? surface.Height(c, r + 1) : surface.Height(c + 1, r);
    if (!(height > 0.0) || !std::isfinite(low) || !std::isfinite(high) || !std::isfinite(side))
        return std::nullopt;
    if (isAbove) return Plane{surface.x[c], surface.y[r], low, (high - side) / width, (side - low) / height};
    return Plane{surface.x[c], surface.y[r], low, (side - low) / width, (high - side) / height};
}

// On an edge, that of either side.
std::optional<Plane> PlaneAt(const SurfaceHeights& surface, LinePlace place) {
    const auto column = CellOf(surface.x, place.x), row = CellOf(surface.y, place.y);
    if (!column || !row) return std::nullopt;
    const std::size_t leastColumn = *column - (*column > 0 && place.x == surface.x[*column] ? 1 : 0);
    const std::size_t leastRow = *row - (*row > 0 && place.y == surface.y[*row] ? 1 : 0);
    for (std::size_t r = *row + 1; r-- > leastRow;)
        for (std::size_t c = *column + 1; c-- > leastColumn;) {
            const double right = (place.x - surface.x[c]) / (surface.x[c + 1] - surface.x[c]);
            const double up = (place.y - surface.y[r]) / (surface.y[r + 1] - surface.y[r]);
            auto plane = PlaneIn(surface, c, r, up > right);
            if (!plane && up == right) plane = PlaneIn(surface, c, r, true);
            if (plane) return plane;
        }
    return std::nullopt;
}

// A surface's heights at the shares, and whether it is there between each and the next.
struct Track {
    std::vector<double> heights;
    std::vector<bool> isThere;
};

Track TrackOf(const SurfaceHeights& surface, const ProfileLine& line, const std::vector<double>& shares) {
    Track track = {std::vector<double>(shares.size(), noHeight), std::vector<bool>(shares.size(), false)};
    for (std::size_t i = 0; i + 1 < shares.size(); ++i) {
        const auto plane = PlaneAt(surface, PlaceAt(line, 0.5 * (shares[i] + shares[i + 1])));
        if (!plane) continue;
        track.isThere[i] = true;
        if (std::isnan(track.heights[i])) track.heights[i] = plane->Height(PlaceAt(line, shares[i]));
        track.heights[i + 1] = plane->Height(PlaceAt(line, shares[i + 1]));
    }
    return track;
}

// Whether two heights that follow each other stand at both sides of a gap.
bool IsGap(const Track& track, std::size_t i) {
    return !track.isThere[i] && !std::isnan(track.heights[i]) && !std::isnan(track.heights[i + 1]);
}

} // namespace

double SurfaceHeights::Height(std::size_t column, std::size_t row) const {
    const float difference = z[(row * x.size() + column) * stride];
    return std::isfinite(difference) ? AbsoluteNumber(zOrigin, difference) : noHeight;
}

double ProfileLine::Length() const {
    return std::hypot(x1 - x0, y1 - y0);
}

ProfileLine ParseProfileLine(const std::string& text) {
    double numbers[4] = {};
    std::size_t start = 0;
    for (int i = 0; i < 4; ++i) {
        const std::size_t colon = i < 3 ? text.find(':', start) : text.size();
        const auto number =
            colon == std::string::npos ? std::nullopt : ParseNumber(text.substr(start, colon - start));
        if (!number || !std::isfinite(*number))
            throw Failure(Filled(Translate("CommandLine", "expected X0:Y0:X1:Y1, found \"%1\""), text));
        numbers[i] = *number;
        start = colon + 1;
    }
    const ProfileLine line = {numbers[0], numbers[1], numbers[2], numbers[3]};
    if (!(line.Length() > 0.0) || !std::isfinite(line.Length()))
        throw Failure(Filled(
            Translate("CommandLine", "expected two different points X0:Y0:X1:Y1, found \"%1\""), text));
    return line;
}

std::string TextOf(const ProfileLine& line) {
    return FormatNumber(line.x0) + ':' + FormatNumber(line.y0) + ':' + FormatNumber(line.x1) + ':' +
           FormatNumber(line.y1);
}

std::vector<ProfilePoint> FollowLine(const std::vector<SurfaceHeights>& surfaces, const ProfileLine& line) {
    const double length = line.Length();
    if (!(length > 0.0) || !std::isfinite(length)) return {};
    std::vector<double> shares = {0.0, 1.0};
    for (const SurfaceHeights& surface : surfaces) {
        const std::vector<double> own = SharesOf(surface, line);
        shares.insert(shares.end(), own.begin(), own.end());
    }
    SortShares(shares);
    std::vector<Track> tracks;
    tracks.reserve(surfaces.size());
    for (const SurfaceHeights& surface : surfaces)
        tracks.push_back(TrackOf(surface, line, shares));
    std::vector<ProfilePoint> profile;
    const auto add = [&](double share, const auto& heightOf) {
        const LinePlace place = PlaceAt(line, share);
        profile.push_back({share * length, place.x, place.y, {}});
        for (const Track& track : tracks)
            profile.back().z.push_back(heightOf(track));
    };
    for (std::size_t i = 0; i < shares.size(); ++i) {
        add(shares[i], [i](const Track& track) { return track.heights[i]; });
        const auto hasGap = [i](const Track& track) { return IsGap(track, i); };
        if (i + 1 == shares.size() || std::none_of(tracks.begin(), tracks.end(), hasGap)) continue;
        add(0.5 * (shares[i] + shares[i + 1]), [i](const Track& track) {
            return track.isThere[i] ? 0.5 * (track.heights[i] + track.heights[i + 1]) : noHeight;
        });
    }
    return profile;
}

double HeightAt(const std::vector<ProfilePoint>& profile, std::size_t surface, double distance) {
    const auto after =
        std::lower_bound(profile.begin(), profile.end(), distance,
                         [](const ProfilePoint& point, double value) { return point.distance < value; });
    if (after == profile.end()) return noHeight;
    if (after->distance == distance) return after->z[surface];
    if (after == profile.begin()) return noHeight;
    const ProfilePoint &a = *(after - 1), &b = *after;
    const double share = (distance - a.distance) / (b.distance - a.distance);
    return a.z[surface] + share * (b.z[surface] - a.z[surface]);
}

std::string ProfileTable(const std::vector<ProfilePoint>& profile) {
    std::string text = "distance,x,y,z";
    const std::size_t count = profile.empty() ? 1 : profile.front().z.size();
    for (std::size_t i = 2; i <= count; ++i)
        text += ",z" + std::to_string(i);
    text += '\n';
    // More digits are noise of the computation: heights have single precision.
    const auto write = [&text](double number) {
        char digits[32];
        std::snprintf(digits, sizeof digits, "%.12g", number);
        text += digits;
    };
    for (const ProfilePoint& point : profile) {
        write(point.distance);
        text += ',';
        write(point.x);
        text += ',';
        write(point.y);
        for (const double height : point.z) {
            text += ',';
            if (std::isfinite(height)) write(height);
        }
        text += '\n';
    }
    return text;
}

} // namespace KivoViewer
