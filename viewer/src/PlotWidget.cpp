#include "PlotWidget.h"

#include <KivoHost.h>
#include <KivoView.h>

#include <QMouseEvent>

#include <algorithm>
#include <utility>

namespace KivoViewer {

namespace {

constexpr int leastResolution = 24; // of a screen

} // namespace

PlotWidget::PlotWidget(QWidget* parent) : PlotWidget(std::make_unique<ViewerPlotter>(), parent) {}

PlotWidget::PlotWidget(std::unique_ptr<ViewerPlotter> plotter, QWidget* parent)
    : KivoPlotWidget(
          std::move(plotter), [this](int width, int height) { m_scene.Resize(width, height); }, parent),
      m_scene(static_cast<ViewerPlotter&>(KivoPlotWidget::plotter())) {
    setContextMenuPolicy(Qt::PreventContextMenu); // the menus of the window have it all
    setMinimumSize(160, 120);
    view().SetSmoothing(usualSmoothing);
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

void PlotWidget::keyPressEvent(QKeyEvent* event) {
    setUpright(m_scene.Settings().keepsUpright);
    KivoPlotWidget::keyPressEvent(event);
}

KivoDrawingTools::POINT PlotWidget::ToDevice(const QPointF& position) const {
    return KivoDrawingTools::ToPixels(position.x(), position.y(), devicePixelRatioF());
}

} // namespace KivoViewer
