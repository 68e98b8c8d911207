// The plot as an item of Qt Quick, in the QML module Kivo:
//
//     import Kivo
//     KivoPlotItem {
//         title: "Temperature"
//         columns: 3
//         points: [0, 0, 1,  1, 0, 2,  2, 0, 1,   0, 1, 2,  1, 1, 3,  2, 1, 2]
//     }
//
// It is drawn in the thread of the program and becomes a texture in that which renders. Input is as in
// KivoPlotWidget.h, but that it has no menu of its own: a click with the right button, and a
// finger that stays where it is, are told by menuRequested().
#pragma once

#include <KivoPlotView.h>

#include <QColor>
#include <QImage>
#include <QQuickItem>
#include <QVariant>
#include <QVector3D>

#include <memory>

#if defined(KIVO_STATIC)
#define KIVO_QT6QUICK_API
#elif defined(KIVO_BUILDING_QT6QUICK)
#define KIVO_QT6QUICK_API Q_DECL_EXPORT
#else
#define KIVO_QT6QUICK_API Q_DECL_IMPORT
#endif

/// A surface z = f(x, y), to be turned and zoomed by hand. All properties can be bound. Signals come from the
/// event loop, after the event that they are about.
class KIVO_QT6QUICK_API KivoPlotItem : public QQuickItem {
    Q_OBJECT
    Q_PROPERTY(QVariantList points READ points WRITE setPoints NOTIFY pointsChanged)
    Q_PROPERTY(int columns READ columns WRITE setColumns NOTIFY columnsChanged)
    Q_PROPERTY(QString title READ title WRITE setTitle NOTIFY titleChanged)
    Q_PROPERTY(PlotType plotType READ plotType WRITE setPlotType NOTIFY plotTypeChanged)
    Q_PROPERTY(bool tracing READ isTracing WRITE setTracing NOTIFY tracingChanged)
    Q_PROPERTY(bool upright READ isUpright WRITE setUpright NOTIFY uprightChanged)
    Q_PROPERTY(
        bool threadedDrawing READ isDrawingThreaded WRITE setThreadedDrawing NOTIFY threadedDrawingChanged)
    Q_PROPERTY(int smoothing READ smoothing WRITE setSmoothing NOTIFY smoothingChanged)
    Q_PROPERTY(QColor inkColor READ inkColor WRITE setInkColor NOTIFY inkColorChanged)
    Q_PROPERTY(QColor groundColor READ groundColor WRITE setGroundColor NOTIFY groundColorChanged)
    Q_PROPERTY(QString errorString READ errorString NOTIFY failed)

public:
    /// What is shown.
    enum class PlotType {
        Normal, ///< the surface
        XY,     ///< the flat plot of X and Y
        YZ,     ///< the flat plot of Y and Z
        XZ      ///< the flat plot of X and Z
    };
    Q_ENUM(PlotType)

    /// Shows an empty plot; where nothing can be drawn, the item says so in words.
    /// @throws std::bad_alloc  without memory
    explicit KivoPlotItem(QQuickItem* parent = nullptr);
    ~KivoPlotItem() override;

    /// Makes the item known as `KivoPlotItem` of the module `Kivo`. The library does so by itself where it is
    /// shared; a program that links it statically calls this before it loads QML.
    static void registerType();

    /// The plotter, for everything that is shown; refresh() shows it. With threaded drawing it is to be got
    /// anew in each event.
    KivoDrawingTools::CKivoFunctionPlotter& plotter();

    /// Shows a copy of a grid of points, x, y, z of the first row's points from one column to the next, then
    /// of the second row. The properties points and columns stay.
    /// @return whether it is shown: not for null and counts below 1; nothing changes then
    /// @throws std::bad_alloc  without memory
    bool setGrid(const float* points, int columns, int rows);

    /// As setGrid takes them, as one list of numbers, with as many columns as the property says: the item
    /// shows them when there are whole rows. What is no number in it is a missing value.
    QVariantList points() const;
    /// Of points.
    int columns() const;
    /// Above the plot.
    QString title() const;
    /// Which plot is shown.
    PlotType plotType() const;
    /// Whether the point under the pointer is shown, and told by pointTraced().
    bool isTracing() const;
    /// Whether drags and arrows keep Z upright.
    bool isUpright() const;
    /// Whether plots that take long are drawn in a thread of the item's, so that the program goes on: what
    /// there is is shown meanwhile, as while the hand moves it, and whatever reaches the plotter stops the
    /// thread. At first they are not. Then the thread calls what a derived plotter draws with.
    bool isDrawingThreaded() const;
    /// By how many pixels each is averaged along both sides while nothing moves: 1 to 4.
    int smoothing() const;
    /// Of texts and axes: black at first.
    QColor inkColor() const;
    /// Behind everything; one that is not valid, as at first, is that of a new plot.
    QColor groundColor() const;
    /// Why nothing is drawn; empty where it is.
    QString errorString() const;
    /// The plot as it is shown at rest, in pixels of the device; null where nothing can be drawn.
    QImage picture();

    /// @{
    /// Sets the property.
    void setPoints(const QVariantList& points);
    void setColumns(int columns);
    void setTitle(const QString& title);
    void setPlotType(PlotType type);
    void setTracing(bool tracing);
    void setUpright(bool upright);
    void setThreadedDrawing(bool threaded);
    void setInkColor(const QColor& color);
    void setGroundColor(const QColor& color);
    /// @}
    /// Factors other than 1 to 4 change nothing.
    void setSmoothing(int factor);

public slots:
    /// Shows what has been set of the plotter.
    void refresh();
    /// Shows the plot as it is shown first.
    void resetView();
    /// Puts the picture on the clipboard.
    void copy();
    /// Writes the picture to a file. @return whether that succeeded
    bool savePicture(const QString& fileName);

signals:
    /// @{
    /// The property is another one.
    void pointsChanged();
    void columnsChanged();
    void titleChanged();
    void plotTypeChanged();
    void tracingChanged();
    void uprightChanged();
    void threadedDrawingChanged();
    void smoothingChanged();
    void inkColorChanged();
    void groundColorChanged();
    /// @}
    /// The point under the pointer while tracing, in data coordinates.
    void pointTraced(const QVector3D& point);
    /// There is no such point any more.
    void traceLost();
    /// The hand has turned, shifted or zoomed the plot, or another plot has been chosen.
    void viewChanged();
    /// Nothing can be drawn any more, or from the start.
    void failed(const QString& reason);
    /// A click with the right button, or a finger that stays, in the item's coordinates; not after a drag.
    void menuRequested(const QPointF& position);

protected:
    void componentComplete() override;
    void updatePolish() override;
    QSGNode* updatePaintNode(QSGNode* old, UpdatePaintNodeData* data) override;
    void geometryChange(const QRectF& now, const QRectF& before) override;
    void itemChange(ItemChange change, const ItemChangeData& data) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseUngrabEvent() override;
    void hoverMoveEvent(QHoverEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void touchEvent(QTouchEvent* event) override;
    void touchUngrabEvent() override;
    bool event(QEvent* event) override;

private:
    void takeInput(QEvent* event);
    void showPoints();
    void tellView();
    void followSize();
    QImage failureFrame() const;
    double density() const;

    std::unique_ptr<class KivoQtControl> m_control;
    QVariantList m_points;
    int m_columns = 0;
    QColor m_ink = Qt::black;
    QColor m_ground;
    int m_plotType = 0; // as it was told last
    QImage m_frame;     // drawn in the program's thread; its texture is made in the one that renders
    bool m_isFrameNew = false;
};
