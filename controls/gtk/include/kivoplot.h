// KivoPlot: a widget of GTK 4 that shows a surface z = f(x, y) in three dimensions. A C interface, which
// Python, JavaScript and others reach by introspection (Kivo.Plot); from C++ kivo_plot_get_plotter() has the
// rest.
//
// A drag with the left or the right button turns the plot, with the middle one, or with Shift, it shifts it,
// with Ctrl it zooms, as wheel, touchpad and pinch do. The arrow keys turn, plus and minus zoom, Home resets
// the view, 0 to 3 choose the plot. A click with the right button opens a menu. Everything belongs to the
// thread that GTK runs in, and gtk_init() goes first.
#pragma once

#include <gtk/gtk.h>

#ifdef __cplusplus
#include "KivoFunctionPlotter.h"

#include <functional>
#include <memory>
#endif

#if defined(KIVO_STATIC)
#define KIVO_GTK4_API
#elif defined(_WIN32) && defined(KIVO_BUILDING_GTK4)
#define KIVO_GTK4_API __declspec(dllexport)
#elif defined(_WIN32)
#define KIVO_GTK4_API __declspec(dllimport)
#else
#define KIVO_GTK4_API __attribute__((visibility("default")))
#endif

G_BEGIN_DECLS

/**
 * KivoPlotKind:
 * @KIVO_PLOT_KIND_NORMAL: the 3-D plot
 * @KIVO_PLOT_KIND_XY: X to the right and Y up
 * @KIVO_PLOT_KIND_YZ: Y to the right and Z up
 * @KIVO_PLOT_KIND_XZ: X to the right and Z up
 *
 * The plots that a widget can show.
 */
typedef enum { KIVO_PLOT_KIND_NORMAL, KIVO_PLOT_KIND_XY, KIVO_PLOT_KIND_YZ, KIVO_PLOT_KIND_XZ } KivoPlotKind;

/// The type of these kinds.
#define KIVO_TYPE_PLOT_KIND (kivo_plot_kind_get_type())
/// What KIVO_TYPE_PLOT_KIND is made of.
KIVO_GTK4_API GType kivo_plot_kind_get_type(void);

/**
 * KivoPlot:
 *
 * A plot. Its properties are:
 *
 * - `title`, `x-title`, `y-title`, `z-title`: texts, UTF-8; empty at first
 * - `kind`: which plot is shown
 * - `tracing`: whether the point of the surface under the pointer is marked and told
 * - `frame-lines`, `grid-lines`: lines on the surface and behind it; shown at first
 * - `x-contours`, `y-contours`, `z-contours`: contours of the 3-D plot; hidden at first
 * - `contour-count`: levels of each axis, 1 to 1000; 20 at first
 * - `color-map`: the name of a table of colours, such as "viridis"; null at first, for a gradient of two
 *   colours. Other names change nothing
 * - `smoothing`: by how many pixels each of a plot at rest is averaged along both sides, 1 to 4; 2 at first
 * - `reduce-while-moving`: whether a large surface shows fewer points while it is moved; at first it does
 * - `keep-upright`: whether drags and arrow keys keep Z upright; at first they do not
 * - `follow-theme`: whether ink and ground are those of the widget's style, dark or light; at first black on
 *   the plot's own light ground
 * - `has-menu`: whether a click with the right button, and the menu key, open a menu; at first they do
 * - `failure`: why nothing is drawn, in one sentence, which the widget shows in place of the plot, too; null
 *   where it is. To be read only
 *
 * and its signals, which come from the main loop, not within a call:
 *
 * - `point-traced` (x, y, z): the point under the pointer
 * - `trace-lost`: there is none any more
 * - `view-changed`: the hand has turned, shifted or zoomed the plot, or switched to another one
 */
#define KIVO_TYPE_PLOT (kivo_plot_get_type())
KIVO_GTK4_API G_DECLARE_FINAL_TYPE(KivoPlot, kivo_plot, KIVO, PLOT, GtkWidget)

/**
 * kivo_plot_new:
 *
 * Makes an empty plot, which fills the place that it is given.
 *
 * Returns: (transfer none): the widget
 */
KIVO_GTK4_API GtkWidget* kivo_plot_new(void);

/**
 * kivo_plot_set_grid:
 * @self: a plot
 * @points: (array length=n_numbers): x, y, z of the first row's points from one column to the next, then of
 *   the second row; copied
 * @n_numbers: how many numbers that are
 * @columns: points in a row
 * @rows: number of rows
 *
 * Shows a grid of points. What is no number is a hole.
 *
 * Returns: whether it is shown: not where there are other than 3 * @columns * @rows numbers, none, or no
 *   memory for them
 */
KIVO_GTK4_API gboolean kivo_plot_set_grid(KivoPlot* self, const float* points, gsize n_numbers, guint columns,
                                          guint rows);

/**
 * kivo_plot_set_heights:
 * @self: a plot
 * @heights: (array length=n_heights): z, row by row; copied
 * @n_heights: how many heights
 * @columns: heights in a row
 * @rows: number of rows
 * @x_min: x of the first column
 * @x_max: x of the last column
 * @y_min: y of the first row
 * @y_max: y of the last row
 *
 * Shows heights at evenly spaced places.
 *
 * Returns: whether they are shown: not where there are other than @columns * @rows of them, none, no memory
 *   for them, or places that are not finite
 */
KIVO_GTK4_API gboolean kivo_plot_set_heights(KivoPlot* self, const float* heights, gsize n_heights,
                                             guint columns, guint rows, double x_min, double x_max,
                                             double y_min, double y_max);

/**
 * kivo_plot_set_colors:
 * @self: a plot
 * @low: colour of the smallest value
 * @high: colour of the largest value
 *
 * Colours surface, contours and legends from one colour to the other, over the hues between them. A
 * color-map does not count any more then.
 */
KIVO_GTK4_API void kivo_plot_set_colors(KivoPlot* self, const GdkRGBA* low, const GdkRGBA* high);

/**
 * kivo_plot_set_color_range:
 * @self: a plot
 * @min: z that has the first colour
 * @max: z that has the last colour; the same as @min goes back to the range of the data
 *
 * Holds the colours while data change.
 *
 * Returns: whether it does: not where the values are not finite
 */
KIVO_GTK4_API gboolean kivo_plot_set_color_range(KivoPlot* self, float min, float max);

/**
 * kivo_plot_set_angles:
 * @self: a plot
 * @azimuth: from which side it is seen, in degrees: 0 from the large end of X, 90 from that of Y
 * @elevation: from how high, in degrees: -90 to 90
 *
 * Turns the 3-D plot so that Z points up.
 *
 * Returns: whether it did: not in a flat plot, and for angles beyond their limits
 */
KIVO_GTK4_API gboolean kivo_plot_set_angles(KivoPlot* self, double azimuth, double elevation);

/**
 * kivo_plot_get_angles:
 * @self: a plot
 * @azimuth: (out): as kivo_plot_set_angles() takes it
 * @elevation: (out): as kivo_plot_set_angles() takes it
 *
 * Tells from which side the plot is seen.
 *
 * Returns: whether these angles give the view; it may lean as well
 */
KIVO_GTK4_API gboolean kivo_plot_get_angles(KivoPlot* self, double* azimuth, double* elevation);

/**
 * kivo_plot_zoom:
 * @self: a plot
 * @factor: above 0; above 1 the plot grows
 *
 * Zooms about the middle of the widget. Other factors do nothing.
 */
KIVO_GTK4_API void kivo_plot_zoom(KivoPlot* self, double factor);

/**
 * kivo_plot_reset_view:
 * @self: a plot
 *
 * Shows the plot as a new one shows it.
 */
KIVO_GTK4_API void kivo_plot_reset_view(KivoPlot* self);

/**
 * kivo_plot_get_traced_point:
 * @self: a plot
 * @x: (out): in data coordinates
 * @y: (out): in data coordinates
 * @z: (out): in data coordinates
 *
 * Tells the point that is traced.
 *
 * Returns: whether there is one; without, all are 0
 */
KIVO_GTK4_API gboolean kivo_plot_get_traced_point(KivoPlot* self, float* x, float* y, float* z);

/**
 * kivo_plot_get_picture:
 * @self: a plot
 *
 * Draws the plot at rest, in the pixels that the widget has; gdk_texture_save_to_png() writes it to a file.
 *
 * Returns: (transfer full) (nullable): the picture; null where the widget has no size yet or nothing can be
 *   drawn
 */
KIVO_GTK4_API GdkTexture* kivo_plot_get_picture(KivoPlot* self);

/**
 * kivo_plot_refresh:
 * @self: a plot
 *
 * Shows what has been set of the plotter.
 */
KIVO_GTK4_API void kivo_plot_refresh(KivoPlot* self);

G_END_DECLS

#ifdef __cplusplus
/// Makes a plot with a plotter of a derived class, not bound to a window.
/// @param plotter  null: as kivo_plot_new()
/// @param layOut   as in SKivoPlotViewEvents of KivoPlotView.h; empty: the widget lays the plot out
/// @return the widget; null where there was no memory for it
KIVO_GTK4_API GtkWidget* kivo_plot_new(std::unique_ptr<KivoDrawingTools::CKivoFunctionPlotter> plotter,
                                       std::function<void(int width, int height)> layOut = {});
/// The plotter of a plot, for everything that is shown; kivo_plot_refresh() shows it. CKivoPlotView::Plotter
/// of KivoPlotView.h says what of it is the widget's. It lives as long as the widget.
/// @return null where there was no memory for it
KIVO_GTK4_API KivoDrawingTools::CKivoFunctionPlotter* kivo_plot_get_plotter(KivoPlot* self);
#endif
