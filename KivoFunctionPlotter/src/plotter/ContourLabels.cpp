#include "ContourLabels.h"

#include "computing/FittedNumbers.h"
#include "computing/MarchingSquares.h"
#include "computing/PointBox.h"
#include "ContourAccess.h"
#include "parts/AxisNumbers.h"
#include "parts/KivoGridBox.h"
#include "parts/TextRenderer.h"
#include "PictureDrawing.h"
#include "PointAccess.h"
#include "ScreenTexts.h"
#include "window_system/WindowSystem.h"

#include <algorithm>
#include <atomic>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>

namespace KivoDrawingTools {

namespace {

// Images go while the context is current.
struct NewLabels {
    NewLabels() = default;
    ~NewLabels() {
        for (ContourLabel& label : ofLevel)
            ReleaseTextImage(&label.image);
    }
    NewLabels(const NewLabels&) = delete;
    NewLabels& operator=(const NewLabels&) = delete;

    std::vector<ContourLabel> ofLevel;
};

// Without the rounding of a float, which levels of this size are found with.
double ExactLevel(float level, const LevelSteps& steps, double largest) {
    const auto rounded = static_cast<double>(level);
    if (!(steps.step > 0.0)) return rounded;
    const double exact = steps.first + std::round((rounded - steps.first) / steps.step) * steps.step;
    const double rounding = 4.0 * static_cast<double>(std::numeric_limits<float>::epsilon()) * largest;
    const bool isRounded = std::fabs(exact - rounded) <= rounding; // or a derived class's own level
    return isRounded ? exact : rounded;
}

} // namespace

ContourLabels::~ContourLabels() {
    for (ContourLabel& label : ofLevel)
        delete[] label.image.pixels; // the textures went with the context
}

// ---- A plotter's own ------------------------------------------------------------------------------------

CKivoFunctionPlotter::SOwnContourLabels::SOwnContourLabels() = default;
CKivoFunctionPlotter::SOwnContourLabels::~SOwnContourLabels() = default;

CKivoFunctionPlotter::SOwnContourLabels::SOwnContourLabels(const SOwnContourLabels& other) {
    *this = other;
}

// Texts come with the next contours.
CKivoFunctionPlotter::SOwnContourLabels&
CKivoFunctionPlotter::SOwnContourLabels::operator=(const SOwnContourLabels& other) {
    if (this != &other) labels = other.labels ? std::make_unique<ContourLabels>() : nullptr;
    return *this;
}

// ---- Texts ----------------------------------------------------------------------------------------------

// The host's words for the levels, or numbers with as many digits as tell them apart.
std::vector<ContourLabel> ContourAccess::Words(const CKivoFunctionPlotter& plotter) {
    const float min = plotter.m_boundingBoxMin[2], max = plotter.m_boundingBoxMax[2];
    const double interval = plotter.m_contourInterval[2];
    const LevelSteps steps = interval > 0.0 ? LevelStepsOf(min, max, interval, plotter.m_contourBase[2])
                                            : LevelStepsOf(min, max, plotter.m_isoContourCount);
    AxisNumbers axis = {0.0, nullptr};
    if (plotter.m_gridBox && plotter.m_gridBox->m_numbers[2]) axis = *plotter.m_gridBox->m_numbers[2];
    const FittedNumbers numbers({axis.origin + steps.first, steps.step, steps.count});
    std::vector<ContourLabel> labels;
    for (const SKivoIsoContour& contour : plotter.m_flatZIsoContours)
        labels.push_back({contour.level, {}, {}});
    const double largest = std::max(std::fabs(static_cast<double>(min)), std::fabs(static_cast<double>(max)));
    // A host may trace other contours while it is asked.
    for (ContourLabel& label : labels) {
        const double value = axis.origin + ExactLevel(label.level, steps, largest);
        label.text = axis.Words(value, steps.step).value_or(numbers.Text(value));
    }
    return labels;
}

std::uint64_t ContourAccess::NewRequest(CKivoFunctionPlotter& plotter) {
    static std::atomic<std::uint64_t> requests{0};
    return plotter.m_contourLabels.labels->request = ++requests;
}

bool ContourAccess::IsLatest(const CKivoFunctionPlotter& plotter, std::uint64_t request) {
    return plotter.m_contourLabels.labels && plotter.m_contourLabels.labels->request == request;
}

// False where a text that says something cannot be drawn.
bool ContourAccess::MakeLabels(CKivoFunctionPlotter& plotter, std::uint64_t request) {
    std::vector<ContourLabel> words = Words(plotter);
    const ContextInPlace context(plotter.m_hDC, plotter.m_hGLRC);
    NewLabels made; // gone before the context is
    made.ofLevel.swap(words);
    if (!IsLatest(plotter, request)) return true; // a host has switched them off, or has newer ones
    ContourLabels& labels = *plotter.m_contourLabels.labels;
    labels.lines.clear();
    labels.isGivenUp = plotter.m_hGLRC && !context.IsCurrent();
    if (labels.isGivenUp) return false;
    bool areDrawn = true;
    for (ContourLabel& label : made.ofLevel)
        if (context.IsCurrent() && !label.text.empty()) {
            CreateTextImage(plotter.m_textRenderer, label.text.c_str(), &label.image);
            areDrawn = areDrawn && ScreenTexts::IsDrawable(label.image);
        }
    labels.ofLevel.swap(made.ofLevel);
    return areDrawn;
}

void ContourAccess::FollowLevels(CKivoFunctionPlotter& plotter) noexcept {
    if (!plotter.m_contourLabels.labels) return;
    const std::uint64_t request = NewRequest(plotter);
    try {
        MakeLabels(plotter, request);
    } catch (...) {
        if (IsLatest(plotter, request)) ForgetLabels(plotter); // rather none than those of other contours
    }
}

void ContourAccess::ForgetLabels(CKivoFunctionPlotter& plotter) noexcept {
    ContourLabels* const labels = plotter.m_contourLabels.labels.get();
    if (!labels) return;
    NewRequest(plotter);
    const ContextInPlace context(plotter.m_hDC, plotter.m_hGLRC);
    for (ContourLabel& label : labels->ofLevel)
        ReleaseTextImage(&label.image);
    labels->ofLevel.clear();
    labels->lines.clear();
    labels->placed.clear();
}

int ContourAccess::SetLabeled(CKivoFunctionPlotter& plotter, bool label) {
    std::unique_ptr<ContourLabels>& labels = plotter.m_contourLabels.labels;
    if (label == (labels != nullptr)) return 0;
    if (plotter.m_hGLRC && !ContextInPlace(plotter.m_hDC, plotter.m_hGLRC).IsCurrent()) return -1;
    if (!label) {
        ForgetLabels(plotter);
        labels.reset();
        return 0;
    }
    labels = std::make_unique<ContourLabels>();
    bool areMade = false;
    try {
        areMade = MakeLabels(plotter, NewRequest(plotter));
    } catch (...) {
        ForgetLabels(plotter);
        labels.reset();
        throw;
    }
    if (areMade) return 0;
    ForgetLabels(plotter);
    labels.reset();
    return -1;
}

// ---- In frames ------------------------------------------------------------------------------------------

// What the window shows of the box, and of what is not cut away.
ScreenArea ContourAccess::Area(const CKivoFunctionPlotter& plotter, const PlaneOnScreen& plane) {
    const PointBox cut = plotter.CutBox();
    const auto edge = [&](int axis, bool isEnd) {
        const CKivoGridBox& box = *plotter.m_gridBox;
        return isEnd ? std::min(std::max(box.m_boxMin[axis], box.m_boxMax[axis]), cut.max[axis])
                     : std::max(std::min(box.m_boxMin[axis], box.m_boxMax[axis]), cut.min[axis]);
    };
    ScreenArea area = {plane.At({edge(0, false), edge(1, false)}), {}};
    area.max = area.min;
    for (const bool isRight : {false, true})
        for (const bool isTop : {false, true}) {
            const ScreenVector corner = plane.At({edge(0, isRight), edge(1, isTop)});
            area.min = {std::min(area.min.x, corner.x), std::min(area.min.y, corner.y)};
            area.max = {std::max(area.max.x, corner.x), std::max(area.max.y, corner.y)};
        }
    const ScreenVector size = ScreenTexts::Size(plotter);
    area.min = {std::max(area.min.x, 0.0), std::max(area.min.y, 0.0)};
    area.max = {std::min(area.max.x, size.x), std::min(area.max.y, size.y)};
    return area;
}

// Once for all frames, also where there is no memory for it; the next frame begins anew what is stopped.
void ContourAccess::JoinLines(const std::vector<SKivoIsoContour>& contours, DrawingStop* stop,
                              ContourLabels* labels) {
    std::uint64_t segmentsLeft = 1u << 20; // a frame waits for it
    labels->isGivenUp = true;
    for (const SKivoIsoContour& contour : contours) {
        if (IsStopped(stop)) break;
        labels->lines.push_back(JoinSegments(contour.points, contour.pointCount, segmentsLeft));
    }
    if (labels->lines.size() != contours.size()) labels->lines.clear();
    labels->isGivenUp = false;
}

void ContourAccess::PlaceLabels(CKivoFunctionPlotter& plotter) {
    ContourLabels& labels = *plotter.m_contourLabels.labels;
    if (labels.isGivenUp) return;
    const std::vector<SKivoIsoContour>& contours = plotter.m_flatZIsoContours;
    if (labels.lines.empty()) JoinLines(contours, PictureAccess::Stop(plotter), &labels);
    if (labels.lines.size() != labels.ofLevel.size() || labels.lines.size() != contours.size()) return;
    const PointBox cut = plotter.CutBox();
    std::vector<LabeledLines> levels;
    for (std::size_t i = 0; i < labels.ofLevel.size(); ++i) {
        const ContourLabel& label = labels.ofLevel[i];
        const bool isShown = label.level == contours[i].level && ScreenTexts::IsDrawable(label.image) &&
                             label.level >= cut.min[2] && label.level <= cut.max[2];
        levels.push_back(
            {&labels.lines[i], isShown ? ScreenTexts::SizeOf(plotter, label.image) : TextImageSize()});
    }
    const SpaceOnScreen space = ScreenTexts::Space(plotter);
    const auto wall = static_cast<double>(plotter.m_gridBox->GridFace(2));
    const PlaneOnScreen plane = {space.At(0.0, 0.0, wall), space.along[0], space.along[1]};
    std::vector<PlacedImage> taken = ScreenTexts::Taken(plotter);
    if (plotter.m_arePointsFlat) PointAccess::AddPlaces(plotter, &taken);
    labels.placed = PlaceContourLabels(levels, plane, Area(plotter, plane), taken);
}

// Lines that are drawn now fail the test of depth at the labels.
void ContourAccess::LeaveGaps(CKivoFunctionPlotter& plotter) {
    ContourLabels* const labels = plotter.m_contourLabels.labels.get();
    if (!labels) return;
    labels->placed.clear();
    if (!plotter.m_gridBox || plotter.m_plotViewport[2] <= 0) return;
    try {
        PlaceLabels(plotter);
    } catch (...) { // no memory: the lines are drawn all the same
        labels->placed.clear();
        if (labels->isGivenUp) labels->lines.clear();
    }
    if (labels->placed.empty()) return;
    glColorMask(GL_FALSE, GL_FALSE, GL_FALSE, GL_FALSE);
    {
        const ScreenTexts::PixelScope pixels(plotter);
        glBegin(GL_QUADS);
        for (const PlacedLabel& label : labels->placed)
            for (const auto& [x, y] : {ScreenVector{-1, -1}, {1, -1}, {1, 1}, {-1, 1}}) {
                const ScreenVector corner = label.image.Corner(x, y);
                glVertex3d(corner.x, corner.y, 0.0);
            }
        glEnd();
    }
    glColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_TRUE);
}

void ContourAccess::DrawLabels(const CKivoFunctionPlotter& plotter) {
    const ContourLabels* const labels = plotter.m_contourLabels.labels.get();
    if (!labels || labels->placed.empty()) return;
    glDisable(GL_DEPTH_TEST);
    {
        const ScreenTexts::PixelScope pixels(plotter);
        for (const PlacedLabel& label : labels->placed)
            ScreenTexts::Draw(plotter, label.image, labels->ofLevel[label.level].image);
    }
    glEnable(GL_DEPTH_TEST);
}

} // namespace KivoDrawingTools
