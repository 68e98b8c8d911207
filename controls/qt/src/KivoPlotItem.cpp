#include "KivoPlotItem.h"

#include "KivoQtControl.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHoverEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPalette>
#include <QPointer>
#include <QQuickWindow>
#include <QScreen>
#include <QSGImageNode>
#include <QTouchEvent>
#include <QWheelEvent>

#include <cmath>
#include <limits>
#include <utility>
#include <vector>

using namespace KivoDrawingTools;

KivoPlotItem::KivoPlotItem(QQuickItem* parent) : QQuickItem(parent) {
    KivoQtHandlers handlers;
    handlers.redraw = [this] { polish(); };
    handlers.menuRequested = [this](const QPointF& position) { emit menuRequested(position); };
    handlers.pointTraced = [this](const QVector3D& point) { emit pointTraced(point); };
    handlers.traceLost = [this] { emit traceLost(); };
    handlers.viewChanged = [this] { tellView(); };
    handlers.failed = [this](const QString& reason) { emit failed(reason); };
    m_control = std::make_unique<KivoQtControl>(std::move(handlers));
    setFlag(ItemHasContents);
    setAcceptedMouseButtons(Qt::LeftButton | Qt::MiddleButton | Qt::RightButton);
    setAcceptHoverEvents(true); // moves without a button are for the trace
    setAcceptTouchEvents(true);
    setActiveFocusOnTab(true);
}

KivoPlotItem::~KivoPlotItem() = default;

void KivoPlotItem::registerType() {
    static const int type = qmlRegisterType<KivoPlotItem>("Kivo", 1, 0, "KivoPlotItem");
    static_cast<void>(type);
}

CKivoFunctionPlotter& KivoPlotItem::plotter() {
    return m_control->Plotter();
}

// ---- What is shown

bool KivoPlotItem::setGrid(const float* points, int columns, int rows) {
    return m_control->SetGrid(points, columns, rows);
}

QVariantList KivoPlotItem::points() const {
    return m_points;
}

void KivoPlotItem::setPoints(const QVariantList& points) {
    m_points = points;
    KivoQtControl::WithinEvent([this] { showPoints(); });
    emit pointsChanged();
}

int KivoPlotItem::columns() const {
    return m_columns;
}

void KivoPlotItem::setColumns(int columns) {
    if (std::exchange(m_columns, columns) == columns) return;
    KivoQtControl::WithinEvent([this] { showPoints(); });
    emit columnsChanged();
}

void KivoPlotItem::componentComplete() {
    QQuickItem::componentComplete();
    KivoQtControl::WithinEvent([this] { showPoints(); });
}

// Until both properties are there, and fit, what was shown stays.
void KivoPlotItem::showPoints() {
    const qsizetype count = m_points.size() / 3;
    const bool areRows = m_columns > 0 && m_points.size() % 3 == 0 && count > 0 && count % m_columns == 0;
    if (!areRows || !isComponentComplete()) return;
    std::vector<float> points;
    points.reserve(static_cast<std::size_t>(m_points.size()));
    for (const QVariant& number : std::as_const(m_points)) {
        bool isNumber = false;
        const float value = number.toFloat(&isNumber);
        points.push_back(isNumber ? value : std::numeric_limits<float>::quiet_NaN());
    }
    m_control->SetGrid(points.data(), m_columns, count / m_columns);
}

QString KivoPlotItem::title() const {
    return m_control->Title();
}

void KivoPlotItem::setTitle(const QString& text) {
    if (text == title()) return;
    m_control->SetTitle(text);
    emit titleChanged();
}

KivoPlotItem::PlotType KivoPlotItem::plotType() const {
    return static_cast<PlotType>(m_control->PlotType());
}

void KivoPlotItem::setPlotType(PlotType type) {
    m_control->SetPlotType(static_cast<int>(type));
}

// Keys change the plot type, too.
void KivoPlotItem::tellView() {
    const bool isOtherType = std::exchange(m_plotType, m_control->PlotType()) != m_control->PlotType();
    const QPointer<KivoPlotItem> self(this); // a slot may delete it
    emit viewChanged();
    if (self && isOtherType) emit plotTypeChanged();
}

bool KivoPlotItem::isTracing() const {
    return m_control->IsTracing();
}

void KivoPlotItem::setTracing(bool tracing) {
    if (tracing == isTracing()) return;
    m_control->SetTracing(tracing);
    emit tracingChanged();
}

bool KivoPlotItem::isUpright() const {
    return m_control->IsUpright();
}

void KivoPlotItem::setUpright(bool upright) {
    if (upright == isUpright()) return;
    m_control->SetUpright(upright);
    emit uprightChanged();
}

bool KivoPlotItem::isDrawingThreaded() const {
    return m_control->IsThreaded();
}

void KivoPlotItem::setThreadedDrawing(bool threaded) {
    if (threaded == isDrawingThreaded()) return;
    m_control->SetThreaded(threaded);
    emit threadedDrawingChanged();
}

int KivoPlotItem::smoothing() const {
    return m_control->Smoothing();
}

void KivoPlotItem::setSmoothing(int factor) {
    const int before = smoothing();
    m_control->SetSmoothing(factor);
    if (smoothing() != before) emit smoothingChanged();
}

QColor KivoPlotItem::inkColor() const {
    return m_ink;
}

void KivoPlotItem::setInkColor(const QColor& color) {
    if (std::exchange(m_ink, color) == color) return;
    m_control->SetColors(m_ink, m_ground);
    emit inkColorChanged();
}

QColor KivoPlotItem::groundColor() const {
    return m_ground;
}

void KivoPlotItem::setGroundColor(const QColor& color) {
    if (std::exchange(m_ground, color) == color) return;
    m_control->SetColors(m_ink, m_ground);
    emit groundColorChanged();
}

QString KivoPlotItem::errorString() const {
    return m_control->Failure();
}

void KivoPlotItem::refresh() {
    m_control->View().Update();
}

void KivoPlotItem::resetView() {
    m_control->ResetView();
}

QImage KivoPlotItem::picture() {
    followSize();
    return m_control->Picture();
}

void KivoPlotItem::copy() {
    const QImage image = picture();
    if (!image.isNull()) QGuiApplication::clipboard()->setImage(image);
}

bool KivoPlotItem::savePicture(const QString& fileName) {
    const QImage image = picture();
    return !image.isNull() && image.save(fileName);
}

// ---- Frames

double KivoPlotItem::density() const {
    return window() ? window()->effectiveDevicePixelRatio() : 1.0;
}

void KivoPlotItem::followSize() {
    constexpr double usualResolution = 96.0;
    const QScreen* const screen = window() ? window()->screen() : nullptr;
    m_control->SetSize(width(), height(), density(),
                       screen ? screen->logicalDotsPerInchY() : usualResolution);
}

void KivoPlotItem::geometryChange(const QRectF& now, const QRectF& before) {
    QQuickItem::geometryChange(now, before);
    if (m_control) followSize();
}

void KivoPlotItem::itemChange(ItemChange change, const ItemChangeData& data) {
    QQuickItem::itemChange(change, data);
    if (!m_control) return;
    if (change == ItemSceneChange || change == ItemDevicePixelRatioHasChanged) followSize();
    if (change == ItemVisibleHasChanged && !data.boolValue) m_control->CancelInput();
}

// In the program's thread, before the one that renders takes the items over.
void KivoPlotItem::updatePolish() {
    const QImage frame = m_control->Frame();
    m_frame = frame.isNull() ? failureFrame() : frame.copy();
    m_isFrameNew = true;
    update();
}

QImage KivoPlotItem::failureFrame() const {
    const POINT size = ToPixels(width(), height(), density());
    if (size.x <= 0 || size.y <= 0 || errorString().isEmpty()) return {};
    QImage frame(size.x, size.y, QImage::Format_RGB32);
    frame.setDevicePixelRatio(density());
    const QPalette palette = QGuiApplication::palette();
    frame.fill(palette.color(QPalette::Window));
    QPainter painter(&frame);
    painter.setPen(palette.color(QPalette::WindowText));
    painter.drawText(QRectF(8, 8, width() - 16, height() - 16), Qt::AlignCenter | Qt::TextWordWrap,
                     errorString());
    return frame;
}

// While the program's thread waits. The frame's pixels are those of the device: where the item begins within
// one, its picture begins with the nearest.
QSGNode* KivoPlotItem::updatePaintNode(QSGNode* old, UpdatePaintNodeData*) {
    if (m_frame.isNull()) {
        delete old;
        return nullptr;
    }
    auto* node = static_cast<QSGImageNode*>(old);
    if (!node) {
        node = window()->createImageNode();
        node->setOwnsTexture(true);
        node->setFiltering(QSGTexture::Nearest);
        m_isFrameNew = true;
    }
    if (std::exchange(m_isFrameNew, false))
        node->setTexture(window()->createTextureFromImage(m_frame, QQuickWindow::TextureIsOpaque));
    const double scale = density();
    const QPointF place = mapToScene({}) * scale;
    node->setRect(QRectF((std::round(place.x()) - place.x()) / scale,
                         (std::round(place.y()) - place.y()) / scale, m_frame.width() / scale,
                         m_frame.height() / scale));
    return node;
}

// ---- Input

void KivoPlotItem::takeInput(QEvent* event) {
    event->setAccepted(m_control->TakeInput(event));
}

// What it begins is not taken away by what it lies in.
void KivoPlotItem::mousePressEvent(QMouseEvent* event) {
    forceActiveFocus(Qt::MouseFocusReason);
    setKeepMouseGrab(true);
    takeInput(event);
}

void KivoPlotItem::mouseDoubleClickEvent(QMouseEvent* event) {
    mousePressEvent(event);
}

void KivoPlotItem::mouseMoveEvent(QMouseEvent* event) {
    takeInput(event);
}

void KivoPlotItem::mouseReleaseEvent(QMouseEvent* event) {
    setKeepMouseGrab(false);
    takeInput(event);
}

void KivoPlotItem::mouseUngrabEvent() {
    m_control->CancelInput();
}

void KivoPlotItem::hoverMoveEvent(QHoverEvent* event) {
    m_control->View().Move(0, ToPixels(event->position().x(), event->position().y(), density()));
}

void KivoPlotItem::wheelEvent(QWheelEvent* event) {
    takeInput(event);
}

void KivoPlotItem::keyPressEvent(QKeyEvent* event) {
    takeInput(event);
}

void KivoPlotItem::touchEvent(QTouchEvent* event) {
    setKeepTouchGrab(event->type() != QEvent::TouchEnd);
    takeInput(event);
}

void KivoPlotItem::touchUngrabEvent() {
    m_control->CancelInput();
}

bool KivoPlotItem::event(QEvent* event) {
    if (event->type() != QEvent::NativeGesture) return QQuickItem::event(event);
    takeInput(event);
    return event->isAccepted();
}
