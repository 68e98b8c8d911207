// Names beside measure points, and texts that groups are listed with.
#include "parts/KivoMeasurePointGroupManager.h"
#include "parts/TextRenderer.h"
#include "PlotType.h"
#include "PointAccess.h"
#include "ScreenTexts.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace KivoDrawingTools {

namespace {

constexpr double nameGap = 3.0;         // pixels between a point and its name, more than images keep clear
constexpr float groundOpacity = 0.7f;   // of what is behind a name
constexpr std::size_t mostNames = 1000; // in a frame: all are compared with each other

// Beside a point: to the right, to the left, above, below.
PlacedImage PlaceBeside(ScreenVector point, double distance, const TextImageSize& size, int side) {
    PlacedImage place;
    place.isShown = true;
    place.halfWidth = 0.5 * size.width;
    place.halfHeight = 0.5 * size.height;
    const double dx = distance + place.halfWidth;
    const double dy =
        place.halfHeight + std::max(distance, place.halfHeight + nameGap); // clear of those beside it
    const ScreenVector offsets[] = {{dx, 0.0}, {-dx, 0.0}, {0.0, dy}, {0.0, -dy}};
    place.center = {point.x + offsets[side].x, point.y + offsets[side].y};
    return place;
}

void MakeIfMissing(STextRenderer* textMaker, const std::string& text, SKivoTexImage* image) noexcept {
    if (ScreenTexts::IsDrawable(*image)) return;
    try {
        CreateTextImage(textMaker, text.c_str(), image);
    } catch (...) { // no memory: the name is not shown
    }
}

bool IsInWindow(const PlacedImage& place, ScreenVector size) {
    return place.center.x >= place.halfWidth && place.center.x <= size.x - place.halfWidth &&
           place.center.y >= place.halfHeight && place.center.y <= size.y - place.halfHeight;
}

} // namespace

struct PointAccess::NamedPoint {
    ScreenVector at;
    double nearness; ///< of its name
    const SKivoTexImage* name;
};

struct PointAccess::PlacedName {
    PlacedImage place;
    double nearness;
    const SKivoTexImage* image;
};

// Images go while the context is current.
struct PointAccess::NewTexts {
    NewTexts() = default;
    ~NewTexts() {
        for (SKivoTexImage& image : images)
            ReleaseTextImage(&image);
    }
    NewTexts(const NewTexts&) = delete;
    NewTexts& operator=(const NewTexts&) = delete;

    std::vector<std::string> texts;
    std::vector<SKivoTexImage> images; ///< none of an empty text
};

// Of the first so many texts; without a window, what its context is going to draw.
int PointAccess::MakeTexts(CKivoFunctionPlotter& plotter, const std::vector<std::string>& texts,
                           std::size_t count, NewTexts& made) {
    const bool isCurrent = plotter.m_hGLRC != nullptr;
    made.texts.assign(texts.begin(), texts.begin() + static_cast<std::ptrdiff_t>(count));
    made.images.resize(count);
    for (std::size_t i = 0; i < count; ++i) {
        if (!isCurrent || made.texts[i].empty()) continue;
        CreateTextImage(plotter.m_textRenderer, made.texts[i].c_str(), &made.images[i]);
        if (!ScreenTexts::IsDrawable(made.images[i])) return -1;
    }
    return 0;
}

int PointAccess::SetNames(CKivoFunctionPlotter& plotter, unsigned int index,
                          const std::vector<std::string>& names) {
    CKivoMeasurePointGroup* const group = plotter.FindMeasureGroup(index);
    if (!group) return -2;
    const ContextInPlace context(plotter.m_hDC, plotter.m_hGLRC);
    if (plotter.m_hGLRC && !context.IsCurrent()) return -1;
    NewTexts made;
    const std::size_t count = std::min<std::size_t>(names.size(), group->m_pointCount);
    if (MakeTexts(plotter, names, count, made) != 0) return -1;
    group->m_pointNames.swap(made.texts);
    group->m_pointNameImages.swap(made.images);
    return 0;
}

int PointAccess::SetListed(CKivoFunctionPlotter& plotter, unsigned int index,
                           const std::vector<std::string>& texts) {
    CKivoMeasurePointGroup* const group = plotter.FindMeasureGroup(index);
    if (!group) return -2;
    const ContextInPlace context(plotter.m_hDC, plotter.m_hGLRC);
    if (plotter.m_hGLRC && !context.IsCurrent()) return -1;
    NewTexts made;
    if (MakeTexts(plotter, texts, texts.size(), made) != 0) return -1;
    group->m_listedTexts.swap(made.texts);
    group->m_listedImages.swap(made.images);
    return 0;
}

// Names of groups alone want no image before they are listed.
void PointAccess::MakeMissingImages(CKivoFunctionPlotter& plotter) noexcept {
    for (unsigned int g = 0; CKivoMeasurePointGroup* const group = plotter.FindMeasureGroup(g); ++g) {
        if (plotter.m_hasGroupNames) MakeIfMissing(group->m_textMaker, group->m_name, &group->m_nameImage);
        for (std::size_t i = 0; i < group->m_pointNames.size(); ++i)
            if (!group->m_pointNames[i].empty())
                MakeIfMissing(group->m_textMaker, group->m_pointNames[i], &group->m_pointNameImages[i]);
        for (std::size_t i = 0; i < group->m_listedTexts.size(); ++i)
            if (!group->m_listedTexts[i].empty())
                MakeIfMissing(group->m_textMaker, group->m_listedTexts[i], &group->m_listedImages[i]);
    }
}

int PointAccess::ListGroups(CKivoFunctionPlotter& plotter, bool list) {
    bool isMissing = false;
    for (unsigned int g = 0; const CKivoMeasurePointGroup* group = plotter.FindMeasureGroup(g); ++g)
        isMissing = isMissing || !ScreenTexts::IsDrawable(group->m_nameImage);
    if (!list || !isMissing || !plotter.m_hGLRC) {
        plotter.m_hasGroupNames = list;
        return 0;
    }
    const ContextInPlace context(plotter.m_hDC, plotter.m_hGLRC);
    if (!context.IsCurrent()) return -1;
    plotter.m_hasGroupNames = true;
    MakeMissingImages(plotter);
    return 0;
}

// Those in the window, in the order of groups and points. A name faces the viewer: what it is brought forward
// by keeps a slope that the point lies on from cutting it.
std::vector<PointAccess::NamedPoint> PointAccess::NamedPoints(const CKivoFunctionPlotter& plotter) {
    std::vector<NamedPoint> points;
    const SpaceOnScreen space = ScreenTexts::Space(plotter);
    const ScreenVector size = ScreenTexts::Size(plotter);
    for (unsigned int g = 0; const CKivoMeasurePointGroup* group = plotter.FindMeasureGroup(g); ++g) {
        if (!group->m_visible) continue;
        const std::size_t stride = group->m_floatsPerPoint;
        for (std::size_t k = 0; k < group->m_pointNameImages.size() && points.size() < mostNames; ++k) {
            const SKivoTexImage& name = group->m_pointNameImages[k];
            const float* const p = group->m_points + k * stride;
            const float point[] = {p[0], stride > 1 ? p[1] : 0.0f, stride > 2 ? p[2] : 0.0f};
            if (!ScreenTexts::IsDrawable(name) || plotter.IsCutAway(point)) continue;
            const ScreenVector at = space.At(static_cast<double>(point[0]), static_cast<double>(point[1]),
                                             static_cast<double>(point[2]));
            const bool isSeen = at.x >= 0.0 && at.x <= size.x && at.y >= 0.0 && at.y <= size.y;
            const double forward =
                ScreenTexts::Pixels(plotter, 2.0 * ScreenTexts::SizeOf(plotter, name).height);
            const double nearness = ScreenTexts::Nearness(plotter, point) + forward;
            if (isSeen) points.push_back({at, std::min(nearness, 0.0), &name});
        }
    }
    return points;
}

std::vector<PlacedImage> PointAccess::Markers(const CKivoFunctionPlotter& plotter,
                                              const std::vector<NamedPoint>& points) {
    std::vector<PlacedImage> markers;
    for (const NamedPoint& point : points) {
        PlacedImage marker;
        marker.isShown = true;
        marker.center = point.at;
        marker.halfWidth = marker.halfHeight = static_cast<double>(plotter.m_pointRadiusPixelSize);
        markers.push_back(marker);
    }
    return markers;
}

// Each on the first side that is free.
std::vector<PointAccess::PlacedName> PointAccess::PlaceNames(const CKivoFunctionPlotter& plotter,
                                                             const std::vector<NamedPoint>& points) {
    std::vector<PlacedName> placed;
    if (points.empty()) return placed;
    std::vector<PlacedImage> taken = ScreenTexts::Taken(plotter);
    const std::vector<PlacedImage> markers = Markers(plotter, points);
    taken.insert(taken.end(), markers.begin(), markers.end());
    const ScreenVector size = ScreenTexts::Size(plotter);
    const double distance = static_cast<double>(plotter.m_pointRadiusPixelSize) + nameGap;
    for (const NamedPoint& point : points)
        for (int side = 0; side < 4; ++side) {
            const PlacedImage place =
                PlaceBeside(point.at, distance, ScreenTexts::SizeOf(plotter, *point.name), side);
            if (!IsInWindow(place, size) || MeetsAny(place, taken)) continue;
            taken.push_back(place);
            placed.push_back({place, point.nearness, point.name});
            break;
        }
    return placed;
}

void PointAccess::AddPlaces(const CKivoFunctionPlotter& plotter, std::vector<PlacedImage>* places) {
    const std::vector<NamedPoint> points = NamedPoints(plotter);
    for (const PlacedName& name : PlaceNames(plotter, points))
        places->push_back(name.place);
    const std::vector<PlacedImage> markers = Markers(plotter, points);
    places->insert(places->end(), markers.begin(), markers.end());
}

void PointAccess::CollectDrawnNames(const CKivoFunctionPlotter& plotter,
                                    std::vector<const SKivoTexImage*>* names) {
    names->clear();
    const bool areShown = plotter.m_plotType == normalPlot || plotter.m_arePointsFlat;
    if (!areShown || !plotter.m_measureGroups || plotter.m_plotViewport[2] <= 0) return;
    for (unsigned int g = 0; const CKivoMeasurePointGroup* group = plotter.FindMeasureGroup(g); ++g)
        if (group->m_visible)
            for (const SKivoTexImage& image : group->m_pointNameImages)
                if (ScreenTexts::IsDrawable(image)) names->push_back(&image);
    if (names->size() <= mostNames) return;
    names->clear();
    for (const NamedPoint& point : NamedPoints(plotter))
        names->push_back(point.name);
}

// Lines and dark surfaces behind a name would make it illegible.
void PointAccess::DrawGround(const CKivoFunctionPlotter& plotter, const PlacedName& name) {
    const float* const ground = plotter.m_backgroundColor;
    glColor4f(ground[0], ground[1], ground[2], groundOpacity);
    glBegin(GL_QUADS);
    for (const auto& [x, y] : {ScreenVector{-1, -1}, {1, -1}, {1, 1}, {-1, 1}}) {
        const ScreenVector corner = name.place.Corner(x, y);
        glVertex3d(corner.x, corner.y, name.nearness);
    }
    glEnd();
}

void PointAccess::DrawNames(const CKivoFunctionPlotter& plotter) noexcept {
    if (!plotter.m_measureGroups || plotter.m_plotViewport[2] <= 0) return;
    try {
        const std::vector<PlacedName> placed = PlaceNames(plotter, NamedPoints(plotter));
        if (placed.empty()) return;
        const ScreenTexts::PixelScope pixels(plotter);
        glPushAttrib(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT | GL_ENABLE_BIT);
        glDepthMask(GL_FALSE); // a name and its ground have the same depth
        glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
        glEnable(GL_BLEND);
        for (const PlacedName& name : placed) {
            DrawGround(plotter, name);
            ScreenTexts::Draw(plotter, name.place, *name.image, name.nearness);
        }
        glPopAttrib();
    } catch (...) { // no memory: a frame without names
    }
}

// ---- The host's side ------------------------------------------------------------------------------------

int SetMeasurePointNames(CKivoFunctionPlotter& plotter, unsigned int index,
                         const std::vector<std::string>& names) {
    return PointAccess::SetNames(plotter, index, names);
}

int SetListedTexts(CKivoFunctionPlotter& plotter, unsigned int index, const std::vector<std::string>& texts) {
    return PointAccess::SetListed(plotter, index, texts);
}

} // namespace KivoDrawingTools
