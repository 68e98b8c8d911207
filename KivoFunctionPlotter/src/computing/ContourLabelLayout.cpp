#include "ContourLabelLayout.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace KivoDrawingTools {

namespace {

constexpr double sampleStep = 4.0;     // pixels
constexpr double labelSpacing = 500.0; // pixels of a line for each label
constexpr double leastLength = 1.5;    // of a line, in widths of its label with gaps
constexpr double mostBend = 0.4;       // of the line away from a straight one, in heights of the label
constexpr double leastChord = 0.85;    // from end to end of a label, in lengths along the line
constexpr std::size_t mostLineSamples = 1u << 20; // bounds the time that a frame takes
constexpr std::size_t mostContourLabels = 400;    // likewise: all are compared with each other

// A part of a line that lies in the area, as points at even distances along it.
struct Piece {
    std::size_t level;
    std::vector<ScreenVector> samples;
};

double LengthOf(ScreenVector v) {
    return std::hypot(v.x, v.y);
}

ScreenVector Difference(ScreenVector a, ScreenVector b) {
    return {a.x - b.x, a.y - b.y};
}

// Cuts a segment at an area. The parameters of what is inside are from[0] to from[1]; false: nothing is.
bool ClipToArea(ScreenVector a, ScreenVector b, const ScreenArea& area, double* from) {
    from[0] = 0.0;
    from[1] = 1.0;
    const double start[] = {a.x, a.y}, along[] = {b.x - a.x, b.y - a.y};
    const double min[] = {area.min.x, area.min.y}, max[] = {area.max.x, area.max.y};
    for (int k = 0; k < 2; ++k) {
        if (along[k] == 0.0) {
            if (!(start[k] >= min[k] && start[k] <= max[k])) return false;
            continue;
        }
        double enter = (min[k] - start[k]) / along[k], leave = (max[k] - start[k]) / along[k];
        if (enter > leave) std::swap(enter, leave);
        from[0] = std::max(from[0], enter);
        from[1] = std::min(from[1], leave);
    }
    return from[0] < from[1]; // false for what is no number, too
}

// Collects the pieces of lines.
class PieceMaker {
public:
    PieceMaker(std::vector<Piece>& pieces, std::size_t& samplesLeft)
        : m_pieces(pieces), m_samplesLeft(samplesLeft) {}

    void Begin(std::size_t level, std::size_t leastSamples) {
        m_piece.level = level;
        m_leastSamples = leastSamples;
    }
    void Add(ScreenVector a, ScreenVector b, const ScreenArea& area) {
        double part[2];
        if (!ClipToArea(a, b, area, part)) return End();
        const ScreenVector along = Difference(b, a);
        if (part[0] > 0.0) End();
        if (m_piece.samples.empty()) Start({a.x + part[0] * along.x, a.y + part[0] * along.y});
        LineTo({a.x + part[1] * along.x, a.y + part[1] * along.y});
        if (part[1] < 1.0) End();
    }
    void End() {
        if (m_piece.samples.size() >= m_leastSamples) m_pieces.push_back(m_piece);
        m_piece.samples.clear();
    }

private:
    void Start(ScreenVector point) {
        m_last = point;
        m_sinceSample = 0.0;
        m_piece.samples.push_back(point);
    }
    void LineTo(ScreenVector point) {
        double left = LengthOf(Difference(point, m_last));
        while (m_sinceSample + left >= sampleStep && m_samplesLeft > 0) {
            const double share = (sampleStep - m_sinceSample) / left;
            m_last = {m_last.x + share * (point.x - m_last.x), m_last.y + share * (point.y - m_last.y)};
            m_piece.samples.push_back(m_last);
            left -= sampleStep - m_sinceSample;
            m_sinceSample = 0.0;
            --m_samplesLeft;
        }
        m_sinceSample += left;
        m_last = point;
    }

    std::vector<Piece>& m_pieces;
    std::size_t& m_samplesLeft;
    std::size_t m_leastSamples = 0;
    Piece m_piece = {};
    ScreenVector m_last;
    double m_sinceSample = 0.0;
};

bool IsPlaceable(const TextImageSize& size) {
    return size.width > 0.0 && size.height > 0.0 && std::isfinite(size.width) && std::isfinite(size.height);
}

// Samples from the middle of a label to where the line begins again.
std::size_t HalfSpan(const TextImageSize& label) {
    return static_cast<std::size_t>(std::ceil((0.5 * label.width + contourLabelGap) / sampleStep));
}

// A line inside it keeps its labels, whatever their direction, inside the area.
ScreenArea RoomForLines(const ScreenArea& area, const TextImageSize& label) {
    const double margin = 0.5 * label.height + 2.0;
    return {{area.min.x + margin, area.min.y + margin}, {area.max.x - margin, area.max.y - margin}};
}

std::vector<Piece> CollectPieces(const std::vector<LabeledLines>& levels, const PlaneOnScreen& plane,
                                 const ScreenArea& area) {
    std::vector<Piece> pieces;
    std::size_t samplesLeft = mostLineSamples;
    PieceMaker maker(pieces, samplesLeft);
    for (std::size_t level = 0; level < levels.size(); ++level) {
        const LabeledLines& lines = levels[level];
        if (!IsPlaceable(lines.label)) continue;
        const ScreenArea inside = RoomForLines(area, lines.label);
        const double span = 2.0 * static_cast<double>(HalfSpan(lines.label));
        maker.Begin(level, static_cast<std::size_t>(leastLength * span) + 1);
        std::size_t i = 0;
        for (const std::size_t end : lines.paths->ends) {
            ScreenVector last = plane.At(lines.paths->points[i]);
            for (++i; i < end; ++i) {
                const ScreenVector next = plane.At(lines.paths->points[i]);
                maker.Add(last, next, inside);
                last = next;
            }
            maker.End();
        }
    }
    return pieces;
}

struct Candidate {
    double cost;
    PlacedImage image;
};

// The label in the middle of a span of samples; false where the line bends too much there.
bool FindCandidate(const ScreenVector* middle, std::size_t half, const TextImageSize& label,
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

// The best place of a section of a piece that is free.
bool FindFreePlace(const Piece& piece, std::size_t from, std::size_t to, const TextImageSize& label,
                   const std::vector<PlacedImage>& taken, PlacedImage* place) {
    const std::size_t half = HalfSpan(label);
    const std::size_t last = std::min(to, piece.samples.size() - half);
    std::vector<Candidate> candidates;
    for (std::size_t i = std::max(from, half); i < last; ++i) {
        Candidate candidate;
        if (!FindCandidate(&piece.samples[i], half, label, &candidate)) continue;
        const double share = static_cast<double>(i - from) / static_cast<double>(to - from);
        candidate.cost += 0.3 * std::abs(share - 0.5);
        candidates.push_back(candidate);
    }
    std::stable_sort(candidates.begin(), candidates.end(),
                     [](const Candidate& a, const Candidate& b) { return a.cost < b.cost; });
    for (const Candidate& candidate : candidates)
        if (!MeetsAny(candidate.image, taken)) {
            *place = candidate.image;
            return true;
        }
    return false;
}

} // namespace

ScreenVector PlaneOnScreen::At(LinePoint point) const {
    const auto x = static_cast<double>(point.x), y = static_cast<double>(point.y);
    return {origin.x + x * alongX.x + y * alongY.x, origin.y + x * alongX.y + y * alongY.y};
}

std::vector<PlacedLabel> PlaceContourLabels(const std::vector<LabeledLines>& levels,
                                            const PlaneOnScreen& plane, const ScreenArea& area,
                                            const std::vector<PlacedImage>& others) {
    std::vector<Piece> pieces = CollectPieces(levels, plane, area);
    std::stable_sort(pieces.begin(), pieces.end(),
                     [](const Piece& a, const Piece& b) { return a.samples.size() > b.samples.size(); });
    std::vector<PlacedImage> taken = others;
    std::vector<PlacedLabel> placed;
    for (const Piece& piece : pieces) {
        const std::size_t count = piece.samples.size();
        const double length = static_cast<double>(count) * sampleStep;
        const std::size_t sections =
            std::max<std::size_t>(1, static_cast<std::size_t>(length / labelSpacing));
        for (std::size_t k = 0; k < sections && placed.size() < mostContourLabels; ++k) {
            PlacedImage place;
            const TextImageSize& label = levels[piece.level].label;
            if (!FindFreePlace(piece, k * count / sections, (k + 1) * count / sections, label, taken, &place))
                continue;
            taken.push_back(place);
            placed.push_back({piece.level, place});
        }
    }
    return placed;
}

} // namespace KivoDrawingTools
