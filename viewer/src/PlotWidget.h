// The plot of the viewer's window.
#pragma once

#include "Picture.h"
#include "PlotScene.h"

#include <KivoPlotWidget.h>

#include <memory>

namespace KivoViewer {

/// The control with the viewer's scene, turned by the right button alone: the left one has no use here.
class PlotWidget : public KivoPlotWidget {
public:
    explicit PlotWidget(QWidget* parent);

    /// What is shown, laid out for the present size; Redraw() shows changes of it.
    PlotScene& Scene();
    void Redraw();

    /// The size that the layout should give it, as far as there is room.
    void SetWantedSize(const QSize& size);

    /// The present size in pixels of the device, and the dots per inch that the plot is drawn for.
    PictureFormat Format() const;

    QSize sizeHint() const override { return m_wantedSize; }

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    PlotWidget(std::unique_ptr<ViewerPlotter> plotter, QWidget* parent);

    PlotScene m_scene;
    QSize m_wantedSize;
};

} // namespace KivoViewer
