#include "PlotWidget.h"

#include <KivoHost.h>
#include <KivoView.h>

#include <QMouseEvent>
#include <QPainter>
#include <QThread>

#include <algorithm>
#include <cmath>
#include <utility>

namespace KivoViewer {

namespace {

constexpr int leastResolution = 24; // of a screen

} // namespace

PlotWidget::PlotWidget(QWidget* parent) : PlotWidget(std::make_unique<ViewerPlotter>(), parent) {}

PlotWidget::PlotWidget(std::unique_ptr<ViewerPlotter> plotter, QWidget* parent)
    : KivoPlotWidget(
          std::move(plotter), [this](int width, int height) { m_scene.Resize(width, height); }, parent),
      m_scene(static_cast<ViewerPlotter&>(KivoPlotWidget::plotter()), [this] { Reach(); }) {
    setContextMenuPolicy(Qt::PreventContextMenu); // the menus of the window have it all
    setMinimumSize(160, 120);
    view().SetSmoothing(usualSmoothing);
    setThreadedDrawing(true);
}

// No thread draws the points that go with the scene.
PlotWidget::~PlotWidget() {
    view().Lend();
}

// Another thread that does so has it lent.
void PlotWidget::Reach() {
    if (QThread::currentThread() == thread()) plotter();
}

PlotScene& PlotWidget::Scene() {
    plotter(); // which follows the size
    return m_scene;
}

void PlotWidget::Redraw() {
    setReducedWhileMoving(m_scene.Settings().reducesMotion);
    refresh();
}

void PlotWidget::SetWantedSize(const QSize& size) {
    m_wantedSize = size;
    updateGeometry();
}

// Qt scales the window for a dense screen or, where it is told not to, has more dots per inch.
PictureFormat PlotWidget::Format() const {
    const KivoDrawingTools::POINT size = KivoDrawingTools::ToPixels(width(), height(), devicePixelRatioF());
    PictureFormat format;
    format.width = static_cast<int>(size.x);
    format.height = static_cast<int>(size.y);
    format.dpi = std::clamp(qRound(devicePixelRatioF() * logicalDpiY()), leastResolution, maxResolution / 2);
    return format;
}

void PlotWidget::mousePressEvent(QMouseEvent* event) {
    const bool isPlainLeft = event->buttons() == Qt::LeftButton && event->modifiers() == Qt::NoModifier;
    if (m_marksRegion && isPlainLeft && PlaceAt(event->position())) {
        m_marksRegion = false;
        m_corner = m_oppositeCorner = event->position();
        return;
    }
    if (m_drawsProfiles && isPlainLeft && (m_lineStart = PlaceAt(event->position()))) return;
    const bool isAlone = event->buttons() == event->button(); // else a drag goes on as it began
    if (isAlone) setUpright(event->button() == Qt::LeftButton && m_scene.Settings().keepsUpright);
    KivoPlotWidget::mousePressEvent(event);
}

// Of the right button, the second press of a quick pair begins a drag like any other.
void PlotWidget::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return mousePressEvent(event);
    ShiftView(Scene().Plotter(), ToDevice(event->position()), m_scene.Plotter().PlotCenter());
    Redraw();
}

// ---- A line over the plot -------------------------------------------------------------------------------

std::optional<PlanePoint> PlotWidget::PlaceAt(const QPointF& position) {
    const double density = devicePixelRatioF();
    return Scene().PlaceOf(position.x() * density, position.y() * density);
}

void PlotWidget::DrawLineTo(const QPointF& position) {
    const auto end = PlaceAt(position);
    if (!end || !profileDrawn) return;
    const ProfileLine line = {m_lineStart->x, m_lineStart->y, end->x, end->y};
    if (line.Length() > 0.0) profileDrawn(line);
}

void PlotWidget::mouseMoveEvent(QMouseEvent* event) {
    if (!event->buttons().testFlag(Qt::LeftButton)) { // released elsewhere
        m_lineStart.reset();
        m_corner.reset();
    }
    if (m_corner) {
        m_oppositeCorner = event->position();
        return update();
    }
    if (!m_lineStart) return KivoPlotWidget::mouseMoveEvent(event);
    DrawLineTo(event->position());
}

void PlotWidget::mouseReleaseEvent(QMouseEvent* event) {
    if (m_corner && event->button() == Qt::LeftButton) return EndRegion(event->position());
    if (!m_lineStart || event->button() != Qt::LeftButton) return KivoPlotWidget::mouseReleaseEvent(event);
    DrawLineTo(event->position());
    m_lineStart.reset();
}

// ---- A rectangle over the plot --------------------------------------------------------------------------

// What is too small for a person's eye was no rectangle.
void PlotWidget::EndRegion(const QPointF& position) {
    constexpr double least = 4.0;
    const QPointF start = *std::exchange(m_corner, std::nullopt);
    update();
    const auto a = PlaceAt(start), b = PlaceAt(position);
    const QPointF sides = position - start;
    if (!a || !b || !regionMarked || std::abs(sides.x()) < least || std::abs(sides.y()) < least) return;
    regionMarked({std::min(a->x, b->x), std::max(a->x, b->x), std::min(a->y, b->y), std::max(a->y, b->y)});
}

void PlotWidget::PaintRegion() {
    QPainter painter(this);
    for (const QPen& pen : {QPen(Qt::white, 3.0), QPen(Qt::black, 1.0)}) {
        painter.setPen(pen);
        painter.drawRect(QRectF(*m_corner, m_oppositeCorner).normalized());
    }
}

void PlotWidget::ShowProfileLine(const std::optional<ProfileLine>& line) {
    m_line = line;
    m_marked.reset();
    update();
}

void PlotWidget::MarkProfile(std::optional<double> distance) {
    m_marked = distance;
    update();
}

// While the plot is another thread's, it shows what it did.
void PlotWidget::FindLine() {
    if (view().IsDrawingInThread() || view().IsLent()) return;
    m_lineOnScreen.reset();
    if (!m_line) return;
    const double density = devicePixelRatioF();
    const auto start = m_scene.PixelOf(m_line->x0, m_line->y0), end = m_scene.PixelOf(m_line->x1, m_line->y1);
    if (start && end)
        m_lineOnScreen = QLineF(start->x / density, start->y / density, end->x / density, end->y / density);
}

// In two colours, one of which is seen on whatever is below.
void PlotWidget::paintEvent(QPaintEvent* event) {
    FindLine(); // before a thread draws
    KivoPlotWidget::paintEvent(event);
    if (m_corner) PaintRegion();
    if (!m_line || !m_lineOnScreen) return;
    const QPointF from = m_lineOnScreen->p1(), to = m_lineOnScreen->p2();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    for (const QPen& pen : {QPen(Qt::white, 4.0), QPen(Qt::black, 2.0)}) {
        painter.setPen(pen);
        painter.drawLine(from, to);
    }
    painter.setBrush(Qt::black);
    painter.setPen(QPen(Qt::white, 1.0));
    painter.drawEllipse(from, 4.0, 4.0);
    painter.drawEllipse(to, 4.0, 4.0);
    if (!m_marked) return;
    painter.setBrush(Qt::white);
    painter.setPen(QPen(Qt::black, 2.0));
    painter.drawEllipse(from + (to - from) * (*m_marked / m_line->Length()), 5.0, 5.0);
}

void PlotWidget::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) {
        m_marksRegion = false;
        m_corner.reset();
        update();
    }
    setUpright(m_scene.Settings().keepsUpright);
    KivoPlotWidget::keyPressEvent(event);
}

KivoDrawingTools::POINT PlotWidget::ToDevice(const QPointF& position) const {
    return KivoDrawingTools::ToPixels(position.x(), position.y(), devicePixelRatioF());
}

} // namespace KivoViewer
