// The plot as a Qt widget.
#pragma once

#include "GridData.h"

#include <KivoFunctionPlotter.h>
#include <KivoWindow.h>

#include <QWidget>

namespace KivoViewer {

/// The plotter, with what only a derived class can do.
class ViewerPlotter : public KivoDrawingTools::CKivoFunctionPlotter {
public:
    /// Shows the present plot mode as it was at first: not turned, moved or zoomed.
    void ResetView();
};

/// A native window of its own in which the plotter draws. Qt paints nothing here; it brings the events, which
/// go to the plotter in pixels of the device.
class PlotWidget : public QWidget {
public:
    explicit PlotWidget(QWidget* parent = nullptr);
    ~PlotWidget() override;

    /// Binds the plotter to this widget's window. Throws a Failure.
    void Attach();
    /// Shows a grid from the start view of the present plot mode. To be called after Attach.
    void SetGrid(const GridData& grid);
    /// For settings and pictures. Redraw() shows what was set.
    ViewerPlotter& Plotter() { return m_plotter; }
    /// Shows the point of the surface under the pointer, or stops to.
    void Trace(bool enable);
    void Redraw() { m_plotter.OnDraw(); }

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

    ViewerPlotter m_plotter;
    KivoDrawingTools::HWND m_window = nullptr;
    int m_wheelAngle = 0; ///< turned since the last step, in eighths of a degree
};

} // namespace KivoViewer
