// What the widget and the item of Qt Quick share: a plot view, Qt's events as it takes them, and its own when
// a slot may do anything.
#pragma once

#include <KivoPlotView.h>

#include <QBasicTimer>
#include <QColor>
#include <QImage>
#include <QList>
#include <QObject>
#include <QPointF>
#include <QThreadPool>
#include <QVector3D>

#include <functional>
#include <memory>
#include <new>
#include <optional>
#include <stdexcept>

class QKeyEvent;
class QMouseEvent;
class QNativeGestureEvent;
class QTouchEvent;
class QWheelEvent;

/// What a control hears.
struct KivoQtHandlers {
    std::function<void()> redraw;                      ///< as the view's, within its members
    std::function<void(int width, int height)> layOut; ///< as the view's; may be empty
    std::function<void(const QPointF&)> menuRequested; ///< a right click, or a finger that stays; at once
    std::function<void(const QVector3D&)> pointTraced; ///< from the event loop, as those that follow
    std::function<void()> traceLost;
    std::function<void()> viewChanged;
    std::function<void(const QString&)> failed;
};

/// The view's events come within its members, where a slot could not do what it likes: they are handed on
/// from the event loop. No macro of Qt's, so that both controls can be linked statically into one program.
class KivoQtControl : public QObject {
public:
    KivoQtControl(KivoQtHandlers handlers,
                  std::unique_ptr<KivoDrawingTools::CKivoFunctionPlotter> plotter = nullptr);
    ~KivoQtControl() override;
    KivoQtControl(const KivoQtControl&) = delete;
    KivoQtControl& operator=(const KivoQtControl&) = delete;

    KivoDrawingTools::CKivoPlotView& View() { return m_view; }
    KivoDrawingTools::CKivoFunctionPlotter& Plotter() { return m_view.Plotter(); }

    bool SetGrid(const float* points, qint64 columns, qint64 rows);
    bool SetGrid(const QList<QVector3D>& points, qint64 columns, qint64 rows);

    // What a thread that draws leaves alone is asked beside it; of a plotter that is lent it is what was
    // known before, and setters do nothing.
    QString Title();
    void SetTitle(const QString& title);
    int PlotType();
    /// @param type  others than 0 to 3 do nothing
    void SetPlotType(int type);
    bool IsTracing();
    void SetTracing(bool tracing);
    bool IsUpright() const { return m_isUpright; }
    void SetUpright(bool upright);
    bool IsReducedWhileMoving() const { return m_isReduced; }
    void SetReducedWhileMoving(bool reduced);
    bool IsThreaded() const { return m_isThreaded; }
    void SetThreaded(bool threaded);
    int Smoothing() const { return m_smoothing; }
    void SetSmoothing(int factor);
    /// Those that are not valid are those of a new plot.
    void SetColors(const QColor& ink, const QColor& ground);
    void ResetView();
    QString Failure() const { return QString::fromStdString(m_view.Failure()); }

    /// In the toolkit's units.
    /// @param dotsPerInch  that the toolkit's texts are sized for, in its units: the plot's grow as they do
    void SetSize(double width, double height, double density, double dotsPerInch);
    /// Does what may lack memory within an event of Qt's, whose loop nothing may pass: what fails has not
    /// happened.
    template <typename Action>
    static void WithinEvent(Action action) {
        try {
            action();
        } catch (const std::bad_alloc&) {
        } catch (const std::length_error&) {
        }
    }

    /// The present frame; its pixels are the view's.
    QImage Frame();
    /// A frame of its own, at rest.
    QImage Picture();

    /// Takes a mouse's, a wheel's, a key's, a touch's or a gesture's event, whose positions are those in the
    /// control. @return whether it was of use
    bool TakeInput(QEvent* event);
    /// The pointer has been taken away.
    void CancelInput();

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    KivoDrawingTools::SKivoPlotViewEvents Events();
    KivoDrawingTools::POINT ToPixels(const QPointF& place) const;
    bool Take(QEvent* event);
    bool TakePress(const QMouseEvent& event);
    void TakeMove(const QMouseEvent& event);
    bool TakeRelease(const QMouseEvent& event);
    bool TakeWheel(const QWheelEvent& event);
    bool TakeKey(const QKeyEvent& event);
    void TakeTouch(const QTouchEvent& event);
    void AwaitHold(const QPointF& place);
    void EndHold();
    bool TakeGesture(const QNativeGestureEvent& event);
    /// Sends what has been noted since, once the present event is over.
    void SendLater();
    void Send();

    KivoQtHandlers m_handlers;
    double m_density = 1.0;
    bool m_isUpright = false;
    bool m_isReduced = true;
    int m_smoothing = 2;
    bool m_isThreaded = false;
    Qt::MouseButton m_pressed = Qt::NoButton; // that drags
    qsizetype m_fingers = 0;
    double m_span = 0.0; // between two fingers
    QPointF m_touched;   // where the finger is that may stay
    QBasicTimer m_hold;  // until it has
    QBasicTimer m_wake;

    bool m_isSending = false; // waits in the event loop
    bool m_hasViewChanged = false;
    bool m_hasFailed = false;
    bool m_isTraceLost = false;
    std::optional<QVector3D> m_traced;

    KivoDrawingTools::CKivoPlotView m_view; // its events reach the others
    KivoDrawingTools::CKivoFunctionPlotter& m_plotter = m_view.Plotter();
    QString m_title; // as was known last
    int m_plotType = 0;
    bool m_isTracing = false;
    QThreadPool m_threads; // of which there is one at most; waits for it at its end
};
