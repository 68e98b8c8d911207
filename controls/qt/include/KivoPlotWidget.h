// The plot as a widget of Qt 6: on X11, Wayland and off-screen, on Windows and elsewhere alike, since it is
// drawn beside the screen and painted as every other widget is. It may be docked, moved to another parent,
// put into a tab, hidden and covered; view and data stay.
//
//     auto* plot = new KivoPlotWidget;
//     plot->setGrid(points, columns, rows);
//     plot->setTitle("Temperature");
//
// The left and the right button turn the plot, with Shift they shift it, with Ctrl they zoom; the middle
// button shifts it; wheel, scrolling and pinches zoom; a finger turns it, two shift and zoom, and one that
// stays where it is opens the menu. The arrow keys turn, plus and minus zoom, Home shows the start view, 0 to
// 3 choose the plot, Ctrl+C copies it. What the widget does not use, it leaves to its parent, as widgets do.
#pragma once

#include <KivoPlotView.h>

#include <QImage>
#include <QList>
#include <QString>
#include <QVector3D>
#include <QWidget>

#include <functional>
#include <memory>

#if defined(KIVO_STATIC)
#define KIVO_QT6WIDGETS_API
#elif defined(KIVO_BUILDING_QT6WIDGETS)
#define KIVO_QT6WIDGETS_API Q_DECL_EXPORT
#else
#define KIVO_QT6WIDGETS_API Q_DECL_IMPORT
#endif

class QMenu;

/// A surface z = f(x, y), to be turned and zoomed by hand. Everything that is not here is the plotter's: set
/// it there, then call refresh().
///
/// Signals come from the event loop, after the event that they are about: a slot may do anything, delete the
/// widget, too. Several of one kind within an event come as one.
class KIVO_QT6WIDGETS_API KivoPlotWidget : public QWidget {
    Q_OBJECT
    Q_PROPERTY(QString title READ title WRITE setTitle)
    Q_PROPERTY(PlotType plotType READ plotType WRITE setPlotType NOTIFY viewChanged)
    Q_PROPERTY(bool tracing READ isTracing WRITE setTracing)
    Q_PROPERTY(bool upright READ isUpright WRITE setUpright)
    Q_PROPERTY(bool reducedWhileMoving READ isReducedWhileMoving WRITE setReducedWhileMoving)
    Q_PROPERTY(bool threadedDrawing READ isDrawingThreaded WRITE setThreadedDrawing)
    Q_PROPERTY(int smoothing READ smoothing WRITE setSmoothing)
    Q_PROPERTY(bool paletteFollowed READ isPaletteFollowed WRITE setPaletteFollowed)

public:
    /// What is shown.
    enum class PlotType {
        Normal, ///< the surface
        XY,     ///< the flat plot of X and Y
        YZ,     ///< the flat plot of Y and Z
        XZ      ///< the flat plot of X and Z
    };
    Q_ENUM(PlotType)

    /// Shows an empty plot. Where nothing can be drawn, as without an OpenGL driver, the widget says so in
    /// words, and all members are harmless.
    /// @throws std::bad_alloc  without memory
    explicit KivoPlotWidget(QWidget* parent = nullptr);
    /// The same with a plotter of a derived class, not bound to a window.
    /// @param layOut  as in SKivoPlotViewEvents; empty: the widget lays the plot out
    explicit KivoPlotWidget(std::unique_ptr<KivoDrawingTools::CKivoFunctionPlotter> plotter,
                            std::function<void(int width, int height)> layOut = {},
                            QWidget* parent = nullptr);
    ~KivoPlotWidget() override;

    /// The plotter, for everything that is shown; refresh() shows it. Window, size and pixel scale are the
    /// widget's, as CKivoPlotView says. With threaded drawing it is to be got anew in each event, and before
    /// arrays change that it reads.
    KivoDrawingTools::CKivoFunctionPlotter& plotter();
    /// What is between the widget and the plotter, for what the widget has no member for.
    KivoDrawingTools::CKivoPlotView& view();

    /// Shows a copy of a grid of points.
    /// @param points  x, y, z of the first row's points from one column to the next, then of the second row
    /// @return whether it is shown: not for null and counts below 1 or beyond 32 bits; nothing changes then
    /// @throws std::bad_alloc  without memory
    bool setGrid(const float* points, int columns, int rows);
    /// The same. @return false, too, for a list of fewer points
    bool setGrid(const QList<QVector3D>& points, int columns, int rows);

    /// Above the plot; empty at first, and without one.
    QString title() const;
    /// Which plot is shown.
    PlotType plotType() const;
    /// Whether the point of the surface under the pointer is shown, and told by pointTraced(); at first it is
    /// not.
    bool isTracing() const;
    /// Whether drags and arrows keep Z upright; at first they do not.
    bool isUpright() const;
    /// Whether large grids show fewer points while the hand moves them; at first they do.
    bool isReducedWhileMoving() const;
    /// Whether plots that take long are drawn in a thread of the widget's, so that the program goes on: what
    /// there is is shown meanwhile, as while the hand moves it, and whatever reaches the plotter stops the
    /// thread. At first they are not. A derived widget whose members the plotter reads calls view().Lend() at
    /// its end. While the plotter is lent, setters of title, plot type and tracing do nothing.
    bool isDrawingThreaded() const;
    /// By how many pixels each is averaged along both sides while nothing moves: 1 to 4, at first 2.
    int smoothing() const;
    /// Whether texts and ground have the colours Text and Base of the widget's palette, so that the plot is
    /// dark where the desktop is; at first they have not.
    bool isPaletteFollowed() const;

    /// Why nothing is drawn, in one sentence; empty where it is.
    QString errorString() const;
    /// The plot as it is shown at rest, in pixels of the device; null where nothing can be drawn.
    QImage picture();
    /// Writes that picture. @return whether that succeeded; false for a format that Qt cannot write
    bool savePicture(const QString& fileName);
    /// The menu that a click with the right button opens: Copy and Save Picture; the caller's to delete. As
    /// with other widgets, contextMenuPolicy decides what is opened, and Qt::NoContextMenu leaves it to the
    /// parent; a drag never opens one.
    QMenu* createStandardContextMenu();

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

public slots:
    /// @{
    /// Sets the property.
    void setTitle(const QString& title);
    void setPlotType(KivoPlotWidget::PlotType type);
    void setTracing(bool tracing);
    void setUpright(bool upright);
    void setReducedWhileMoving(bool reduced);
    void setThreadedDrawing(bool threaded);
    /// @}
    /// Factors other than 1 to 4 change nothing.
    void setSmoothing(int factor);
    /// Off again, ink and ground are those of a new plot.
    void setPaletteFollowed(bool followed);
    /// Shows what has been set of the plotter.
    void refresh();
    /// Shows the plot as it is shown first.
    void resetView();
    /// Puts the picture on the clipboard.
    void copy();
    /// Asks for a file, and writes the picture there.
    void savePictureAs();

signals:
    /// The point under the pointer while tracing, in data coordinates.
    void pointTraced(const QVector3D& point);
    /// There is no such point any more.
    void traceLost();
    /// The hand has turned, shifted or zoomed the plot, or another plot has been chosen.
    void viewChanged();
    /// Nothing can be drawn any more, or from the start.
    /// @param reason  errorString()
    void failed(const QString& reason);

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void changeEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    void followSize();
    void takeInput(QEvent* event);
    void openMenu(const QPoint& position);
    void applyPalette();

    std::unique_ptr<class KivoQtControl> m_control;
    bool m_isPaletteFollowed = false;
    bool m_isMenuDue = false; // by a click that has ended
};
