#include "ContourLabelLayout.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <utility>

namespace KivoDrawingTools {

namespace {

constexpr double sampleStep = 4.0;     // pixels
constexpr double labelSpacing = 500.0; // pixels of a line for each label
constexpr double leastLength = 1.5;    // of a line, in widths of its label with gaps
constexpr double mostBend = 0.4;       // of the line away from a straight one, in heights of the label
constexpr double leastChord = 0.85;    // from end to end of a label, in lengths along the line
constexpr double labelBorderGap = 2.0; // pixels between a label and the border
constexpr double longestLine = 1e12;   // pixels, that samples of a line can be numbered along
constexpr double widestLabel = 1e6;    // likewise
// They bound the time that a frame takes.
constexpr std::size_t mostLineSamples = 1u << 20;
constexpr std::size_t mostContourLabels = 400;
constexpr std::size_t mostComparisons = 1u << 22; // of a label with another text

// Points of a line at even distances from its begin that are in sight, one after the other.
struct Run {
    std::int64_t first; ///< number of the first one
    std::vector<ScreenVector> samples;
};

// Whatever is in sight of a line, its samples have the same numbers, and its labels the same places.
struct SampledLine {
    std::size_t level;
    double length; ///< of all of it
    std::vector<Run> runs;
};

double LengthOf(ScreenVector v) {
    return std::hypot(v.x, v.y);
}

ScreenVector Sum(ScreenVector a, ScreenVector b) {
    return {a.x + b.x, a.y + b.y};
}

ScreenVector Difference(ScreenVector a, ScreenVector b) {
    return {a.x - b.x, a.y - b.y};
}

ScreenArea Widened(const ScreenArea& area, double by) {
    return {{area.min.x - by, area.min.y - by}, {area.max.x + by, area.max.y + by}};
}

// Cuts a segment of finite length at an area. The parameters of what is inside are part[0] to part[1]; false:
// nothing is.
bool ClipToArea(ScreenVector a, ScreenVector along, const ScreenArea& area, double* part) {
    part[0] = 0.0;
    part[1] = 1.0;
    const double start[] = {a.x, a.y}, way[] = {along.x, along.y};
    const double min[] = {area.min.x, area.min.y}, max[] = {area.max.x, area.max.y};
    for (int k = 0; k < 2; ++k) {
        if (way[k] == 0.0) {
            if (!(start[k] >= min[k] && start[k] <= max[k])) return false;
            continue;
        }
        double enter = (min[k] - start[k]) / way[k], leave = (max[k] - start[k]) / way[k];
        if (enter > leave) std::swap(enter, leave);
        part[0] = std::max(part[0], enter);
        part[1] = std::min(part[1], leave);
    }
    return part[0] <= part[1];
}

bool IsIn(ScreenVector point, const ScreenArea& area) {
    return point.x >= area.min.x && point.x <= area.max.x && point.y >= area.min.y && point.y <= area.max.y;
}

// Takes the samples of a line in an area, and as many beside it as one of them needs.
class LineSampler {
public:
    LineSampler(const ScreenArea& area, std::int64_t half, std::size_t& samplesLeft)
        : m_area(area), m_inSight(Widened(area, (3.0 * static_cast<double>(half) + 2.0) * sampleStep)),
          m_leastSamples(static_cast<std::size_t>(2 * half) + 1), m_samplesLeft(samplesLeft) {}

    void Add(ScreenVector a, ScreenVector b) {
        const ScreenVector along = Difference(b, a);
        const double length = LengthOf(along), begin = m_length;
        m_length += length; // what is no number stays none
        double part[2];
        if (!(m_length <= longestLine) || !(length > 0.0) || !ClipToArea(a, along, m_inSight, part)) return;
        const auto last = static_cast<std::int64_t>((begin + part[1] * length) / sampleStep);
        auto i = static_cast<std::int64_t>(std::ceil((begin + part[0] * length) / sampleStep));
        for (i = std::max(i, m_next); i <= last && m_samplesLeft > 0; ++i) {
            const double share = (static_cast<double>(i) * sampleStep - begin) / length;
            Take(i, {a.x + share * along.x, a.y + share * along.y});
        }
    }
    // The line from its begin to here, whose runs may be none.
    SampledLine End(std::size_t level, double least) {
        EndRun();
        if (m_length >= least && m_length <= longestLine) return {level, m_length, std::move(m_runs)};
        for (const Run& run : m_runs)
            m_samplesLeft += run.samples.size();
        return {level, 0.0, {}};
    }

private:
    void Take(std::int64_t number, ScreenVector sample) {
        if (m_runs.empty() || number != m_next) {
            EndRun();
            m_runs.push_back({number, {}});
            m_isInArea = false;
        }
        m_isInArea = m_isInArea || IsIn(sample, m_area);
        m_runs.back().samples.push_back(sample);
        m_next = number + 1;
        --m_samplesLeft;
    }
    void EndRun() {
        if (m_runs.empty() || (m_isInArea && m_runs.back().samples.size() >= m_leastSamples)) return;
        m_samplesLeft += m_runs.back().samples.size(); // a scrap has no room for a label
        m_runs.pop_back();
    }

    const ScreenArea& m_area;
    const ScreenArea m_inSight;
    const std::size_t m_leastSamples;
    std::size_t& m_samplesLeft;
    double m_length = 0.0;
    std::int64_t m_next = 0; ///< number of the sample after the last one
    std::vector<Run> m_runs;
    bool m_isInArea = false; ///< whether a sample of the last run is
};

bool IsPlaceable(const TextImageSize& size) {
    return size.width > 0.0 && size.height > 0.0 && size.width <= widestLabel && size.height <= widestLabel;
}

// Samples from the middle of a label to where the line begins again.
std::int64_t HalfSpan(const TextImageSize& label) {
    return static_cast<std::int64_t>(std::ceil((0.5 * label.width + contourLabelGap) / sampleStep));
}

std::vector<SampledLine> SampleLines(const std::vector<LabeledLines>& levels, const PlaneOnScreen& plane,
                                     const ScreenArea& area) {
    std::vector<SampledLine> sampled;
    std::size_t samplesLeft = mostLineSamples;
    for (std::size_t level = 0; level < levels.size(); ++level) {
        const LabeledLines& lines = levels[level];
        if (!IsPlaceable(lines.label)) continue;
        const std::int64_t half = HalfSpan(lines.label);
        std::size_t i = 0;
        for (const std::size_t end : lines.paths->ends) {
            if (samplesLeft == 0) return sampled;
            LineSampler sampler(area, half, samplesLeft);
            ScreenVector last = plane.At(lines.paths->points[i]);
            for (++i; i < end; ++i) {
                const ScreenVector next = plane.At(lines.paths->points[i]);
                sampler.Add(last, next);
                last = next;
            }
            SampledLine line = sampler.End(level, leastLength * 2.0 * static_cast<double>(half) * sampleStep);
            if (!line.runs.empty()) sampled.push_back(std::move(line));
        }
    }
    return sampled;
}

struct Candidate {
    std::int64_t section;
    double cost;
    PlacedImage image;
};

// The label in the middle of a span of samples; false where the line bends too much there.
bool FindCandidate(const ScreenVector* middle, std::int64_t half, const TextImageSize& label,
                   Candidate* candidate) {
    const ScreenVector begin = *(middle - half), end = *(middle + half);
    const ScreenVector chord = Difference(end, begin);
    const double length = LengthOf(chord);
    if (!(length >= leastChord * 2.0 * static_cast<double>(half) * sampleStep)) return false;
    ScreenVector right = {chord.x / length, chord.y / length};
    if (right.x < -1e-9 || (right.x < 1e-9 && right.y < 0.0)) right = {-right.x, -right.y};
    const ScreenVector up = {-right.y, right.x};
    double least = 0.0, most = 0.0;
    for (const ScreenVector* sample = middle - half; sample <= middle + half; ++sample) {
        const ScreenVector offset = Difference(*sample, begin);
        const double height = offset.x * up.x + offset.y * up.y;
        least = std::min(least, height);
        most = std::max(most, height);
    }
    if (most - least > mostBend * label.height) return false;
    const double lift = 0.5 * (least + most);
    PlacedImage& image = candidate->image;
    image.isShown = true;
    image.center = {0.5 * (begin.x + end.x) + lift * up.x, 0.5 * (begin.y + end.y) + lift * up.y};
    image.right = right;
    image.up = up;
    image.halfWidth = 0.5 * label.width + contourLabelGap;
    image.halfHeight = 0.5 * label.height;
    candidate->cost = (most - least) / label.height + 0.25 * std::abs(right.y);
    return true;
}

// A line has a label at most in each of its sections, and in each of its slots one place for it, the best:
// they are the same whatever is in sight, so that labels stay with their lines while a view is moved.
class SlotFinder {
public:
    SlotFinder(const SampledLine& line, const TextImageSize& label)
        : m_label(label), m_half(HalfSpan(label)),
          m_lastMiddle(static_cast<std::int64_t>(line.length / sampleStep) - m_half),
          m_sections(std::max<std::int64_t>(1, static_cast<std::int64_t>(line.length / labelSpacing))),
          m_sectionLength(line.length / static_cast<double>(m_sections)) {}

    /// Adds the places of a run.
    void Find(const Run& run, std::vector<Candidate>* places) const {
        const auto end = run.first + static_cast<std::int64_t>(run.samples.size());
        for (std::int64_t slot = run.first / m_half; slot * m_half < end; ++slot) {
            const std::int64_t from = std::max(slot * m_half, m_half);
            const std::int64_t to = std::min((slot + 1) * m_half, m_lastMiddle + 1);
            if (from - m_half < run.first || to - 1 + m_half >= end) continue; // not all of it is in sight
            Candidate best;
            if (FindBest(run, from, to, &best)) places->push_back(best);
        }
    }

private:
    bool FindBest(const Run& run, std::int64_t from, std::int64_t to, Candidate* best) const {
        best->section = std::min(m_sections - 1, static_cast<std::int64_t>(Along(from) / m_sectionLength));
        best->cost = std::numeric_limits<double>::infinity();
        for (std::int64_t i = from; i < to; ++i) {
            Candidate candidate = *best;
            const auto index = static_cast<std::size_t>(i - run.first);
            if (!FindCandidate(&run.samples[index], m_half, m_label, &candidate)) continue;
            const double share = Along(i) / m_sectionLength - static_cast<double>(best->section);
            candidate.cost += 0.3 * std::abs(share - 0.5);
            if (candidate.cost < best->cost) *best = candidate;
        }
        return std::isfinite(best->cost);
    }
    static double Along(std::int64_t sample) { return static_cast<double>(sample) * sampleStep; }

    const TextImageSize& m_label;
    std::int64_t m_half;
    std::int64_t m_lastMiddle; ///< of a label that the line has room for
    std::int64_t m_sections;
    double m_sectionLength;
};

bool IsWithin(const PlacedImage& image, const ScreenArea& area) {
    return IsIn(image.Corner(-1, -1), area) && IsIn(image.Corner(1, -1), area) &&
           IsIn(image.Corner(1, 1), area) && IsIn(image.Corner(-1, 1), area);
}

// The places of a line that an area has, by sections and there the best first.
std::vector<Candidate> PlacesOf(const SampledLine& line, const TextImageSize& label, const ScreenArea& area) {
    std::vector<Candidate> places;
    const SlotFinder finder(line, label);
    for (const Run& run : line.runs)
        finder.Find(run, &places);
    const auto isOutside = [&](const Candidate& place) { return !IsWithin(place.image, area); };
    places.erase(std::remove_if(places.begin(), places.end(), isOutside), places.end());
    std::stable_sort(places.begin(), places.end(), [](const Candidate& a, const Candidate& b) {
        return a.section != b.section ? a.section < b.section : a.cost < b.cost;
    });
    return places;
}

// What stands somewhere, and how much work is left to find what is free.
struct TakenPlaces {
    std::vector<PlacedImage> images;
    std::size_t comparisonsLeft = mostComparisons;

    bool Take(const PlacedImage& image) {
        comparisonsLeft -= std::min(comparisonsLeft, images.size() + 1);
        if (comparisonsLeft == 0 || MeetsAny(image, images)) return false;
        images.push_back(image);
        return true;
    }
};

} // namespace

ScreenVector PlaneOnScreen::At(LinePoint point) const {
    const auto x = static_cast<double>(point.x), y = static_cast<double>(point.y);
    return {origin.x + x * alongX.x + y * alongY.x, origin.y + x * alongX.y + y * alongY.y};
}

// All but the last step has the screen's origin at the plane's, from which a moved view differs in the area
// and the others alone: not even roundings let a label jump.
std::vector<PlacedLabel> PlaceContourLabels(const std::vector<LabeledLines>& levels,
                                            const PlaneOnScreen& plane, const ScreenArea& area,
                                            const std::vector<PlacedImage>& others) {
    const PlaneOnScreen own = {{0.0, 0.0}, plane.alongX, plane.alongY};
    const ScreenArea ownArea = {Difference(area.min, plane.origin), Difference(area.max, plane.origin)};
    std::vector<SampledLine> lines = SampleLines(levels, own, ownArea);
    std::stable_sort(lines.begin(), lines.end(),
                     [](const SampledLine& a, const SampledLine& b) { return a.length > b.length; });
    TakenPlaces taken = {others};
    for (PlacedImage& other : taken.images)
        other.center = Difference(other.center, plane.origin);
    std::vector<PlacedLabel> placed;
    const ScreenArea inside = Widened(ownArea, -labelBorderGap);
    for (const SampledLine& line : lines) {
        if (placed.size() >= mostContourLabels) break;
        std::int64_t labeledSection = -1;
        for (const Candidate& place : PlacesOf(line, levels[line.level].label, inside)) {
            if (placed.size() >= mostContourLabels) break;
            if (place.section == labeledSection || !taken.Take(place.image)) continue;
            labeledSection = place.section;
            placed.push_back({line.level, place.image});
        }
    }
    for (PlacedLabel& label : placed)
        label.image.center = Sum(label.image.center, plane.origin);
    return placed;
}

} // namespace KivoDrawingTools
