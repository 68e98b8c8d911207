// A host whose windows the plotter cannot draw into, as in GTK 4 and on Wayland: the plotter draws
// off-screen, the host takes the picture and paints it as any other image. Here it is a GTK 3 drawing area on
// whatever display server there is. A drag with the right button turns the plot, with Shift it pans, with
// Ctrl it zooms; the wheel zooms too; the keys 0 to 3 choose the plot.
#include "Hill.h"

#include <KivoHost.h>
#include <KivoPicture.h>
#include <KivoWindow.h>

#include <gtk/gtk.h>

#include <cstdio>
#include <cstdlib>

using namespace KivoDrawingTools;

namespace {

struct Plot {
    HWND window = nullptr;
    CKivoFunctionPlotter plotter;
    std::vector<float> points = HillPoints();
    POINT size = {};
};

// [docs: attach]
// Text is sized for the density of the screen, which the off-screen window cannot know.
void Attach(Plot& plot, GtkWidget* area) {
    const double dpi = gdk_screen_get_resolution(gtk_widget_get_screen(area));
    plot.window = CreateOffscreenWindow(plot.size.x, plot.size.y,
                                        ToPixels(dpi > 0 ? dpi : 96, gtk_widget_get_scale_factor(area)));
    if (plot.plotter.OnCreate(plot.window, plot.size.x, plot.size.y, true) != 0) {
        std::fprintf(stderr, "gtk_image_host: %s\n", LastWindowError());
        std::exit(1);
    }
    plot.plotter.SetDataReference(plot.points.data(), hillColumns, hillRows, 1, hillColumns, 3);
}

gboolean OnDraw(GtkWidget* area, cairo_t* cairo, Plot* plot) {
    std::vector<unsigned char> rgba;
    int width = 0, height = 0;
    if (CapturePicture(plot->plotter, rgba, width, height) != 0) return TRUE;
    GdkPixbuf* const picture = gdk_pixbuf_new_from_data(rgba.data(), GDK_COLORSPACE_RGB, TRUE, 8, width,
                                                        height, 4 * width, nullptr, nullptr);
    const double scale =
        1.0 / gtk_widget_get_scale_factor(area); // a pixel of the picture is one of the device
    cairo_scale(cairo, scale, scale);
    gdk_cairo_set_source_pixbuf(cairo, picture, 0, 0);
    cairo_paint(cairo);
    g_object_unref(picture);
    return TRUE;
}
// [docs: end]

void OnSizeAllocate(GtkWidget* area, GdkRectangle* allocation, Plot* plot) {
    const POINT size = ToPixels(allocation->width, allocation->height, gtk_widget_get_scale_factor(area));
    if (size.x == plot->size.x && size.y == plot->size.y) return;
    plot->size = size;
    if (!plot->window) Attach(*plot, area);
    ResizeOffscreenWindow(plot->window, size.x, size.y);
    plot->plotter.OnSize(0, size.x, size.y);
}

// The buttons and keys as they were before the event.
unsigned int State(guint state) {
    return KeyState(state & GDK_BUTTON1_MASK, state & GDK_BUTTON2_MASK, state & GDK_BUTTON3_MASK,
                    state & GDK_SHIFT_MASK, state & GDK_CONTROL_MASK);
}

gboolean OnButton(GtkWidget* area, GdkEventButton* event, Plot* plot) {
    const POINT client = ToPixels(event->x, event->y, gtk_widget_get_scale_factor(area));
    const unsigned int state = State(event->state);
    const bool isPress = event->type == GDK_BUTTON_PRESS;
    const bool isRelease = event->type == GDK_BUTTON_RELEASE;
    if (event->button == 1 && isPress) plot->plotter.OnLButtonDown(state | MK_LBUTTON, client);
    if (event->button == 1 && isRelease) plot->plotter.OnLButtonUp(state & ~MK_LBUTTON, client);
    if (event->button == 3 && isPress) plot->plotter.OnRButtonDown(state | MK_RBUTTON, client);
    if (event->button == 3 && isRelease) plot->plotter.OnRButtonUp(state & ~MK_RBUTTON, client);
    return TRUE;
}

gboolean OnMotion(GtkWidget* area, GdkEventMotion* event, Plot* plot) {
    const POINT client = ToPixels(event->x, event->y, gtk_widget_get_scale_factor(area));
    plot->plotter.OnMouseMove(State(event->state), client);
    gtk_widget_queue_draw(area); // the plotter has drawn, but nobody sees its window
    return TRUE;
}

// An off-screen window is its own screen: the wheel's position is that in the window.
gboolean OnScroll(GtkWidget* area, GdkEventScroll* event, Plot* plot) {
    const POINT place = ToPixels(event->x, event->y, gtk_widget_get_scale_factor(area));
    if (event->direction == GDK_SCROLL_UP) plot->plotter.OnMouseWheel(State(event->state), 120, place);
    if (event->direction == GDK_SCROLL_DOWN) plot->plotter.OnMouseWheel(State(event->state), -120, place);
    gtk_widget_queue_draw(area);
    return TRUE;
}

GtkWidget* MakeArea(Plot& plot) {
    GtkWidget* const area = gtk_drawing_area_new();
    gtk_widget_add_events(area, GDK_BUTTON_PRESS_MASK | GDK_BUTTON_RELEASE_MASK | GDK_POINTER_MOTION_MASK |
                                    GDK_SCROLL_MASK);
    g_signal_connect(area, "draw", G_CALLBACK(OnDraw), &plot);
    g_signal_connect(area, "size-allocate", G_CALLBACK(OnSizeAllocate), &plot);
    g_signal_connect(area, "button-press-event", G_CALLBACK(OnButton), &plot);
    g_signal_connect(area, "button-release-event", G_CALLBACK(OnButton), &plot);
    g_signal_connect(area, "motion-notify-event", G_CALLBACK(OnMotion), &plot);
    g_signal_connect(area, "scroll-event", G_CALLBACK(OnScroll), &plot);
    g_object_set_data(G_OBJECT(area), "plot", &plot);
    return area;
}

gboolean OnKey(GtkWidget*, GdkEventKey* event, GtkWidget* area) {
    auto* const plot = static_cast<Plot*>(g_object_get_data(G_OBJECT(area), "plot"));
    if (ChoosePlot(plot->plotter, static_cast<int>(event->keyval))) gtk_widget_queue_draw(area);
    return TRUE;
}

} // namespace

int main(int argc, char** argv) {
    if (!gtk_init_check(&argc, &argv)) {
        std::fprintf(stderr, "gtk_image_host: there is no display; set DISPLAY or WAYLAND_DISPLAY\n");
        return 1;
    }
    Plot plot;
    GtkWidget* const window = gtk_window_new(GTK_WINDOW_TOPLEVEL);
    GtkWidget* const area = MakeArea(plot);
    gtk_container_add(GTK_CONTAINER(window), area);
    gtk_window_set_title(GTK_WINDOW(window), hillTitle);
    gtk_window_set_default_size(GTK_WINDOW(window), 900, 600);
    g_signal_connect(window, "key-press-event", G_CALLBACK(OnKey), area);
    g_signal_connect(window, "destroy", G_CALLBACK(gtk_main_quit), nullptr);
    gtk_widget_show_all(window);
    gtk_main();
    plot.plotter.OnDestroy();
    ReleaseWindow(plot.window);
    return 0;
}
