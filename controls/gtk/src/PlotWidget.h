// What a KivoPlot is made of: the view, and what it takes to show it in a widget.
#pragma once

#include "DeviceArea.h"
#include "Guarded.h"
#include "KivoPlotView.h"

#include <gtk/gtk.h>

#include <functional>
#include <memory>
#include <string>

/// Ends with the widget, which outlives every call of its members.
class PlotWidget {
public:
    /// What is told to the host, from the main loop.
    struct Events {
        std::function<void(const float* point)> traced; ///< null: there is none any more
        std::function<void()> viewChanged;
        std::function<void()> failed;
    };

    PlotWidget(GtkWidget* widget, Events events);
    ~PlotWidget();
    PlotWidget(const PlotWidget&) = delete;
    PlotWidget& operator=(const PlotWidget&) = delete;

    KivoDrawingTools::CKivoPlotView& View() { return *m_view; }
    /// Shows another plotter from now on, not bound to a window. @param layOut as in SKivoPlotViewEvents
    void UsePlotter(std::unique_ptr<KivoDrawingTools::CKivoFunctionPlotter> plotter,
                    std::function<void(int width, int height)> layOut);
    /// Draws a frame where one is due, and shows the last one.
    void Snapshot(GtkSnapshot* snapshot);
    /// A complete frame; null where there is none.
    GdkTexture* Picture();

    void FollowTheme(bool follow);
    bool FollowsTheme() const { return m_followsTheme; }
    /// Takes the style's colours over, where they are followed.
    void TakeTheme();
    /// A place in GTK's units as a pixel of the image.
    KivoDrawingTools::POINT Pixel(double x, double y) const;

private:
    enum Told : unsigned int { nothing = 0, trace = 1, viewChange = 2, failure = 4 };

    KivoDrawingTools::SKivoPlotViewEvents ViewEvents(std::function<void(int width, int height)> layOut = {});
    DeviceArea Area() const;
    void ShowAgainAtNewSize(const DeviceArea& area);
    void WakeIn(int milliseconds);
    void TellLater(unsigned int what);
    void TellNow();
    void SnapshotFailure(GtkSnapshot* snapshot);
    void SnapshotFocus(GtkSnapshot* snapshot);

    GtkWidget* m_widget;
    Events m_events;
    GdkTexture* m_texture = nullptr; // the last frame
    bool m_isSnapshot = false;       // being taken
    bool m_followsTheme = false;
    guint m_waking = 0, m_telling = 0, m_showing = 0; // sources of the main loop
    int m_shownWidth = 0, m_shownHeight = 0;          // in pixels
    unsigned int m_toTell = nothing;
    bool m_isTraced = false;
    float m_point[3] = {};
    double m_imageLeft = 0.0, m_imageTop = 0.0, m_scale = 1.0;
    std::unique_ptr<KivoDrawingTools::CKivoPlotView> m_view; // last: it tells when it is made
};
