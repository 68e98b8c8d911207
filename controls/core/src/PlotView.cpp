#include "KivoPlotView.h"
#include "PlotViewCore.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <utility>

namespace KivoDrawingTools {

namespace {

constexpr double largestDensity = 8.0;

bool AreGridCounts(unsigned int columns, unsigned int rows) {
    constexpr std::uint64_t most = std::numeric_limits<unsigned int>::max();
    return columns != 0 && rows != 0 && std::uint64_t{columns} * rows <= most;
}

// What lies between two ends at the i-th of so many places.
float Between(double first, double last, unsigned int i, unsigned int count) {
    if (count == 1) return static_cast<float>(first);
    const double share = static_cast<double>(i) / (count - 1);
    return static_cast<float>(first * (1.0 - share) + last * share);
}

} // namespace

CKivoPlotView::CKivoPlotView(SKivoPlotViewEvents events, std::unique_ptr<CKivoFunctionPlotter> plotter)
    : CKivoPlotView(std::move(events), nullptr, std::move(plotter)) {}

CKivoPlotView::CKivoPlotView(SKivoPlotViewEvents events, HWND window,
                             std::unique_ptr<CKivoFunctionPlotter> plotter)
    : m_core(std::make_unique<PlotViewCore>(std::move(events), window, std::move(plotter))) {}

CKivoPlotView::~CKivoPlotView() = default;

CKivoFunctionPlotter& CKivoPlotView::Plotter() {
    m_core->RetrieveForHost();
    m_core->Follow();
    return m_core->Plotter();
}

const std::string& CKivoPlotView::Failure() const {
    return m_core->Failure();
}

int CKivoPlotView::SetGrid(const float* points, unsigned int columns, unsigned int rows) {
    if (!points || !AreGridCounts(columns, rows)) return -3;
    if (m_core->IsLent()) return -1;
    const std::size_t floats = std::size_t{columns} * rows * 3;
    std::unique_ptr<float[]> copy(new float[floats]); // not set to zero first
    std::copy(points, points + floats, copy.get());
    m_core->ShowGrid(std::move(copy), columns, rows);
    return 0;
}

int CKivoPlotView::SetHeights(const float* heights, unsigned int columns, unsigned int rows, double xMin,
                              double xMax, double yMin, double yMax) {
    const double places[] = {xMin, xMax, yMin, yMax};
    const bool areFinite = std::all_of(places, places + 4, [](double place) { return std::isfinite(place); });
    if (!heights || !AreGridCounts(columns, rows) || !areFinite) return -3;
    if (m_core->IsLent()) return -1;
    std::unique_ptr<float[]> points(new float[std::size_t{columns} * rows * 3]);
    float* end = points.get();
    for (unsigned int r = 0; r < rows; ++r)
        for (unsigned int c = 0; c < columns; ++c) {
            *end++ = Between(xMin, xMax, c, columns);
            *end++ = Between(yMin, yMax, r, rows);
            *end++ = *heights++;
        }
    m_core->ShowGrid(std::move(points), columns, rows);
    return 0;
}

int CKivoPlotView::SetColors(std::optional<unsigned long> ink, std::optional<unsigned long> ground) {
    return m_core->SetColors(ink, ground);
}

void CKivoPlotView::Update() {
    m_core->Ask(PlotViewCore::Due::everything);
}

int CKivoPlotView::SetSize(int width, int height, double density) {
    const bool isDensity = density > 0.0 && density <= largestDensity; // no number is none
    if (!isDensity) return -3;
    m_core->SetSize(width, height, density);
    return 0;
}

int CKivoPlotView::SetSmoothing(int factor) {
    if (factor < 1 || factor > 4) return -3;
    m_core->SetSmoothing(factor);
    return 0;
}

void CKivoPlotView::ReduceWhileMoving(bool reduce) {
    m_core->ReduceWhileMoving(reduce);
}

void CKivoPlotView::KeepUpright(bool upright) {
    m_core->KeepUpright(upright);
}

void CKivoPlotView::SetThreaded(bool threaded) {
    m_core->SetThreaded(threaded);
}

void CKivoPlotView::DrawInThread() {
    m_core->DrawInThread();
}

void CKivoPlotView::TakeFrame() {
    m_core->TakeFrame();
}

bool CKivoPlotView::IsDrawingInThread() const {
    return m_core->IsDrawingInThread();
}

void CKivoPlotView::Lend() {
    m_core->Lend();
}

void CKivoPlotView::TakeBack(bool isChanged) {
    m_core->TakeBack(isChanged);
}

bool CKivoPlotView::IsLent() const {
    return m_core->IsLent();
}

void CKivoPlotView::Press(KivoMouseButton button, unsigned int, POINT place) {
    m_core->Press(button, place);
}

void CKivoPlotView::Move(unsigned int flags, POINT place) {
    m_core->Move(flags, place);
}

bool CKivoPlotView::Release(KivoMouseButton button) {
    return m_core->Release(button);
}

void CKivoPlotView::Cancel() {
    m_core->Cancel();
}

void CKivoPlotView::Wheel(int delta, POINT place) {
    m_core->Wheel(delta, place);
}

void CKivoPlotView::Pinch(double factor, POINT place) {
    m_core->Zoom(factor, place);
}

bool CKivoPlotView::PressKey(KivoViewKey key, unsigned int flags) {
    return m_core->PressKey(key, flags);
}

SKivoPlotImage CKivoPlotView::Draw() {
    return m_core->Draw();
}

SKivoPlotImage CKivoPlotView::DrawNow() {
    return m_core->DrawNow();
}

bool CKivoPlotView::IsFrameDue() const {
    return m_core->IsFrameDue();
}

void CKivoPlotView::Wake() {
    m_core->Wake();
}

} // namespace KivoDrawingTools
