// The plot as a Qt widget.
#pragma once

#include "Picture.h"
#include "PlotScene.h"

#include <KivoWindow.h>

#include <QTimer>
#include <QWidget>

#include <functional>

namespace KivoViewer {

/// A native window of its own in which the plotter draws, smooth frames while the plot is at rest. Qt paints
/// nothing here; it brings the events, which go to the plotter in pixels of the device.
class PlotWidget : public QWidget {
public:
    explicit PlotWidget(QWidget* parent = nullptr);
    ~PlotWidget() override;

    /// Binds the plotter to this widget's window. Throws a Failure.
    void Attach();
    /// What is shown; Redraw() shows changes of it.
    PlotScene& Scene() { return m_scene; }
    void Redraw();
    /// Called with the traced point after each move of the pointer, with null where there is none.
    std::function<void(const float*)> onTrace;

    /// The size that the layout should give it, as far as there is room.
    void SetWantedSize(const QSize& size);

    /// The present size in pixels of the device, and the dots per inch that the plot is drawn for.
    PictureFormat Format() const;

    QSize sizeHint() const override { return m_wantedSize; }
    QPaintEngine* paintEngine() const override { return nullptr; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    int ToDevice(double length) const;
    KivoDrawingTools::POINT ToDevice(const QPointF& position) const;
    KivoDrawingTools::POINT ToScreen(const QPointF& globalPosition) const;

    ViewerPlotter& Plotter() { return m_scene.Plotter(); }
    void FollowScreen();
    /// Draws plain frames until the plot has rested for a moment: those keep up with the hand.
    void Move();
    void Rest();
    void ReportTrace();

    PlotScene m_scene;
    QSize m_wantedSize;
    KivoDrawingTools::HWND m_window = nullptr;
    QTimer m_rest;            ///< runs while frames are plain
    int m_wheelRemainder = 0; ///< turned since the last step, in eighths of a degree
};

} // namespace KivoViewer
