#include "KivoPlotWidget.h"

#include "KivoQtControl.h"
#include "PlotAccessibility.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QFileDialog>
#include <QKeyEvent>
#include <QMenu>
#include <QMessageBox>
#include <QPainter>
#include <QPointer>
#include <QStyle>

#include <cmath>
#include <utility>

using namespace KivoDrawingTools;

KivoPlotWidget::KivoPlotWidget(QWidget* parent) : KivoPlotWidget(nullptr, {}, parent) {}

KivoPlotWidget::KivoPlotWidget(std::unique_ptr<CKivoFunctionPlotter> plotter,
                               std::function<void(int width, int height)> layOut, QWidget* parent)
    : QWidget(parent) {
    KivoQtHandlers handlers;
    handlers.redraw = [this] { update(); };
    handlers.layOut = std::move(layOut);
    handlers.menuRequested = [this](const QPointF& position) { openMenu(position.toPoint()); };
    handlers.pointTraced = [this](const QVector3D& point) { emit pointTraced(point); };
    handlers.traceLost = [this] { emit traceLost(); };
    handlers.viewChanged = [this] { emit viewChanged(); };
    handlers.failed = [this](const QString& reason) { emit failed(reason); };
    m_control = std::make_unique<KivoQtControl>(std::move(handlers), std::move(plotter));
    setAttribute(Qt::WA_OpaquePaintEvent);
    setAttribute(Qt::WA_AcceptTouchEvents);
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true); // moves without a button are for the trace
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    DescribePlotWidgets();
}

KivoPlotWidget::~KivoPlotWidget() = default;

CKivoFunctionPlotter& KivoPlotWidget::plotter() {
    return m_control->Plotter();
}

CKivoPlotView& KivoPlotWidget::view() {
    return m_control->View();
}

// ---- What is shown

bool KivoPlotWidget::setGrid(const float* points, int columns, int rows) {
    return m_control->SetGrid(points, columns, rows);
}

bool KivoPlotWidget::setGrid(const QList<QVector3D>& points, int columns, int rows) {
    return m_control->SetGrid(points, columns, rows);
}

QString KivoPlotWidget::title() const {
    return m_control->Title();
}

void KivoPlotWidget::setTitle(const QString& title) {
    m_control->SetTitle(title);
}

KivoPlotWidget::PlotType KivoPlotWidget::plotType() const {
    return static_cast<PlotType>(m_control->PlotType());
}

void KivoPlotWidget::setPlotType(PlotType type) {
    m_control->SetPlotType(static_cast<int>(type));
}

bool KivoPlotWidget::isTracing() const {
    return m_control->IsTracing();
}

void KivoPlotWidget::setTracing(bool tracing) {
    m_control->SetTracing(tracing);
}

bool KivoPlotWidget::isUpright() const {
    return m_control->IsUpright();
}

void KivoPlotWidget::setUpright(bool upright) {
    m_control->SetUpright(upright);
}

bool KivoPlotWidget::isReducedWhileMoving() const {
    return m_control->IsReducedWhileMoving();
}

void KivoPlotWidget::setReducedWhileMoving(bool reduced) {
    m_control->SetReducedWhileMoving(reduced);
}

bool KivoPlotWidget::isDrawingThreaded() const {
    return m_control->IsThreaded();
}

void KivoPlotWidget::setThreadedDrawing(bool threaded) {
    m_control->SetThreaded(threaded);
}

int KivoPlotWidget::smoothing() const {
    return m_control->Smoothing();
}

void KivoPlotWidget::setSmoothing(int factor) {
    m_control->SetSmoothing(factor);
}

bool KivoPlotWidget::isPaletteFollowed() const {
    return m_isPaletteFollowed;
}

void KivoPlotWidget::setPaletteFollowed(bool followed) {
    if (std::exchange(m_isPaletteFollowed, followed) == followed) return;
    if (followed)
        applyPalette();
    else
        m_control->SetColors({}, {});
}

void KivoPlotWidget::applyPalette() {
    m_control->SetColors(palette().color(QPalette::Text), palette().color(QPalette::Base));
}

void KivoPlotWidget::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    const bool areColors = event->type() == QEvent::PaletteChange || event->type() == QEvent::EnabledChange;
    if (areColors && m_isPaletteFollowed) KivoQtControl::WithinEvent([this] { applyPalette(); });
}

void KivoPlotWidget::refresh() {
    m_control->View().Update();
}

void KivoPlotWidget::resetView() {
    m_control->ResetView();
}

QSize KivoPlotWidget::sizeHint() const {
    return {480, 360};
}

QSize KivoPlotWidget::minimumSizeHint() const {
    return {80, 60};
}

// ---- Pictures

QString KivoPlotWidget::errorString() const {
    return m_control->Failure();
}

QImage KivoPlotWidget::picture() {
    followSize();
    return m_control->Picture();
}

bool KivoPlotWidget::savePicture(const QString& fileName) {
    const QImage image = picture();
    return !image.isNull() && image.save(fileName);
}

void KivoPlotWidget::copy() {
    const QImage image = picture();
    if (!image.isNull()) QApplication::clipboard()->setImage(image);
}

// Neither dialog keeps the program waiting, so that the widget may go while one is open.
void KivoPlotWidget::savePictureAs() {
    auto* const dialog = new QFileDialog(this, tr("Save Picture"), {}, tr("Pictures (*.png *.jpg *.bmp)"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setDefaultSuffix(QStringLiteral("png"));
    connect(dialog, &QFileDialog::fileSelected, this, [this](const QString& name) {
        if (savePicture(name)) return;
        auto* const message = new QMessageBox(QMessageBox::Warning, tr("Save Picture"),
                                              tr("%1 cannot be written.").arg(name), QMessageBox::Ok, this);
        message->setAttribute(Qt::WA_DeleteOnClose);
        message->open();
    });
    dialog->open();
}

// ---- Painting

// A pixel of the frame is one of the device, whatever the scale: Qt's own is taken back.
void KivoPlotWidget::paintEvent(QPaintEvent*) {
    const double density = devicePixelRatioF();
    followSize();
    const QImage frame = m_control->Frame();
    QPainter painter(this);
    if (frame.isNull()) {
        painter.fillRect(rect(), palette().brush(backgroundRole()));
        style()->drawItemText(&painter, rect().marginsRemoved({8, 8, 8, 8}),
                              Qt::AlignCenter | Qt::TextWordWrap, palette(), isEnabled(), errorString(),
                              foregroundRole());
        return;
    }
    const POINT size = ToPixels(width(), height(), density);
    if (size.x != frame.width() || size.y != frame.height()) { // beyond what can be drawn
        painter.drawImage(rect(), frame);
        return;
    }
    // Units that are no whole pixels may end within one, beside the frame.
    if (density != std::floor(density)) painter.fillRect(rect(), frame.pixelColor(0, frame.height() - 1));
    painter.scale(1.0 / density, 1.0 / density);
    painter.drawImage(0, 0, frame);
}

void KivoPlotWidget::resizeEvent(QResizeEvent*) {
    followSize();
}

void KivoPlotWidget::followSize() {
    m_control->SetSize(width(), height(), devicePixelRatioF(), logicalDpiY());
}

// ---- Input

void KivoPlotWidget::takeInput(QEvent* event) {
    event->setAccepted(m_control->TakeInput(event));
}

// X11 asks for the menu with the press, which may begin a drag: it is opened by the release of a click.
bool KivoPlotWidget::event(QEvent* event) {
    switch (event->type()) {
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::TouchCancel:
    case QEvent::NativeGesture:
        takeInput(event);
        return event->isAccepted();
    case QEvent::ContextMenu: {
        const bool isClick = static_cast<QContextMenuEvent*>(event)->reason() == QContextMenuEvent::Mouse;
        if (isClick && !m_isMenuDue) return true;
        return QWidget::event(event);
    }
    default:
        return QWidget::event(event);
    }
}

void KivoPlotWidget::openMenu(const QPoint& position) {
    QContextMenuEvent menu(QContextMenuEvent::Mouse, position, mapToGlobal(position),
                           QApplication::keyboardModifiers());
    const QPointer<KivoPlotWidget> self(this); // a host's menu may have it deleted
    m_isMenuDue = true;
    QApplication::sendEvent(this, &menu);
    if (self) m_isMenuDue = false;
}

void KivoPlotWidget::contextMenuEvent(QContextMenuEvent* event) {
    QMenu* const menu = createStandardContextMenu();
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->popup(event->globalPos());
}

QMenu* KivoPlotWidget::createStandardContextMenu() {
    auto* const menu = new QMenu(this);
    menu->addAction(tr("&Copy"), this, &KivoPlotWidget::copy)->setShortcut(QKeySequence::Copy);
    menu->addAction(tr("&Save Picture..."), this, &KivoPlotWidget::savePictureAs);
    return menu;
}

void KivoPlotWidget::hideEvent(QHideEvent* event) {
    m_control->CancelInput();
    QWidget::hideEvent(event);
}

void KivoPlotWidget::mousePressEvent(QMouseEvent* event) {
    takeInput(event);
}

void KivoPlotWidget::mouseDoubleClickEvent(QMouseEvent* event) {
    takeInput(event);
}

void KivoPlotWidget::mouseMoveEvent(QMouseEvent* event) {
    takeInput(event);
}

void KivoPlotWidget::mouseReleaseEvent(QMouseEvent* event) {
    takeInput(event);
}

void KivoPlotWidget::wheelEvent(QWheelEvent* event) {
    takeInput(event);
}

void KivoPlotWidget::keyPressEvent(QKeyEvent* event) {
    if (event->matches(QKeySequence::Copy)) {
        copy();
        return;
    }
    takeInput(event);
}
