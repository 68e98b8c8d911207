// The plot of the viewer's window.
#pragma once

#include "Picture.h"
#include "PlotScene.h"

#include <KivoPlotWidget.h>

#include <QLineF>

#include <functional>
#include <memory>
#include <optional>

namespace KivoViewer {

/// The control with the viewer's scene. The left button and the arrow keys keep the plot upright, as far as
/// that is set; the right one always turns it freely. A double click with the left one brings what is there
/// to the middle.
class PlotWidget : public KivoPlotWidget {
public:
    explicit PlotWidget(QWidget* parent);
    ~PlotWidget() override;

    /// Has the scene be another thread's alone, as long as it lives; shows changes then.
    class Loan {
    public:
        Loan(PlotWidget& plot, bool isChanged) : m_plot(plot), m_isChanged(isChanged) {
            m_plot.view().Lend();
        }
        ~Loan() { m_plot.view().TakeBack(m_isChanged); }
        Loan(const Loan&) = delete;
        Loan& operator=(const Loan&) = delete;

    private:
        PlotWidget& m_plot;
        bool m_isChanged;
    };

    /// What is shown, laid out for the present size; Redraw() shows changes of it.
    PlotScene& Scene();
    void Redraw();

    /// The size that the layout should give it, as far as there is room.
    void SetWantedSize(const QSize& size);

    /// The present size in pixels of the device, and the dots per inch that the plot is drawn for.
    PictureFormat Format() const;

    QSize sizeHint() const override { return m_wantedSize; }

    // ---- A line over the XY plot, by the left button without keys
    /// A line has been drawn, or is being drawn.
    std::function<void(const ProfileLine&)> profileDrawn;
    void DrawProfiles(bool draws) { m_drawsProfiles = draws; }
    void ShowProfileLine(const std::optional<ProfileLine>& line);
    /// Marks a distance on the line.
    void MarkProfile(std::optional<double> distance);

    // ---- A rectangle over the XY plot, once, by the left button without keys
    std::function<void(const Region&)> regionMarked;
    void MarkRegion() { m_marksRegion = true; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    PlotWidget(std::unique_ptr<ViewerPlotter> plotter, QWidget* parent);
    KivoDrawingTools::POINT ToDevice(const QPointF& position) const;
    std::optional<PlanePoint> PlaceAt(const QPointF& position);
    void DrawLineTo(const QPointF& position);
    void EndRegion(const QPointF& position);
    void Reach();
    void FindLine();
    void PaintRegion();

    PlotScene m_scene;
    QSize m_wantedSize;
    bool m_drawsProfiles = false;
    std::optional<ProfileLine> m_line; ///< shown over the plot
    std::optional<QLineF> m_lineOnScreen;
    std::optional<double> m_marked;        ///< distance on it
    std::optional<PlanePoint> m_lineStart; ///< of the line that is being drawn
    bool m_marksRegion = false;
    std::optional<QPointF> m_corner; ///< of the rectangle that is being drawn
    QPointF m_oppositeCorner;
};

} // namespace KivoViewer
