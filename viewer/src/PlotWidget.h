// The plot as a Qt widget.
#pragma once

#include "Picture.h"
#include "PlotScene.h"

#include <KivoWindow.h>

#include <QTimer>
#include <QWidget>

#include <functional>
#include <optional>

namespace KivoViewer {

/// A native window of its own in which the plotter draws, smooth frames while the plot is at rest. Qt paints
/// nothing here; it brings the events, which go to the plotter in pixels of the device.
class PlotWidget : public QWidget {
public:
    explicit PlotWidget(QWidget* parent = nullptr);
    ~PlotWidget() override;

    /// Binds the plotter to this widget's window. Throws a Failure.
    void Attach();
    /// What is shown, after all input that came before; Redraw() shows changes of it.
    PlotScene& Scene();
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
    /// A move of the pointer, or a turn of the wheel.
    struct Movement {
        unsigned int keys;
        KivoDrawingTools::POINT place; ///< of the wheel: on the screen
        int wheelDelta;                ///< of one step; 0 for a move
    };

    int ToDevice(double length) const;
    KivoDrawingTools::POINT ToDevice(const QPointF& position) const;
    KivoDrawingTools::POINT ToScreen(const QPointF& globalPosition) const;

    ViewerPlotter& Plotter() { return m_scene.Plotter(); }
    void FollowScreen();
    /// Shows a movement after all input that waits: one frame shows the movements that follow each other.
    void Await(const Movement& movement);
    bool ChangesView(const Movement& movement);
    void ShowWaiting();
    void Show(const Movement& movement);
    /// Whether the next complete frame keeps the hand from what it does.
    bool IsCompleteSlow();
    /// Has a complete, smooth frame drawn when the hand has rested for a moment.
    void AwaitRest();
    void Measure();
    void ReportTrace();

    PlotScene m_scene;
    QSize m_wantedSize;
    KivoDrawingTools::HWND m_window = nullptr;
    std::optional<Movement> m_waiting;
    QTimer m_show;               ///< runs while a movement waits
    QTimer m_rest;               ///< runs while the hand moves
    QTimer m_complete;           ///< runs when it has rested, while input waits
    QTimer m_measure;            ///< runs before the plot is measured
    bool m_isPlain = false;      ///< frames are plain, and show less: a complete one is due
    double m_completeTime = 0.0; ///< that the last complete frame took, in milliseconds
    int m_wheelRemainder = 0;    ///< turned since the last step, in eighths of a degree
};

} // namespace KivoViewer
