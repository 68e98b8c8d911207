// A host in GTK 4, whose widgets have no windows of their own: a drawing area paints the plot's picture. GTK
// draws with OpenGL itself; off-screen the plotter leaves its context current. Input is as in the other
// hosts.
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
    GtkWidget* area = nullptr;
    HWND window = nullptr;
    CKivoFunctionPlotter plotter;
    std::vector<float> points = HillPoints();
    POINT size = {}, pointer = {};
};

// [docs: attach]
// Text is sized for the density of the screen, which the off-screen window cannot know.
void Attach(Plot& plot) {
    int dpi = 0; // in 1024ths
    g_object_get(gtk_widget_get_settings(plot.area), "gtk-xft-dpi", &dpi, nullptr);
    dpi = ToPixels(dpi > 0 ? dpi / 1024.0 : 96, gtk_widget_get_scale_factor(plot.area));
    plot.window = CreateOffscreenWindow(plot.size.x, plot.size.y, dpi);
    if (plot.plotter.OnCreate(plot.window, plot.size.x, plot.size.y, true) != 0) {
        std::fprintf(stderr, "gtk4_image_host: %s\n", LastWindowError());
        std::exit(1);
    }
    plot.plotter.SetDataReference(plot.points.data(), hillColumns, hillRows, 1, hillColumns, 3);
}

void Fit(Plot& plot, const POINT& size) {
    if (size.x == plot.size.x && size.y == plot.size.y) return;
    plot.size = size;
    if (!plot.window) Attach(plot);
    ResizeOffscreenWindow(plot.window, size.x, size.y);
    plot.plotter.OnSize(0, size.x, size.y);
    // GTK's context knows the new size from its next frame on where a software driver draws through GLX.
    g_idle_add_once([](void* area) { gtk_widget_queue_draw(static_cast<GtkWidget*>(area)); }, plot.area);
}

void OnDraw(GtkDrawingArea*, cairo_t* cairo, int width, int height, void* data) {
    Plot& plot = *static_cast<Plot*>(data);
    const int scale = gtk_widget_get_scale_factor(plot.area);
    Fit(plot, ToPixels(width, height, scale));
    std::vector<unsigned char> rgba;
    if (CapturePicture(plot.plotter, rgba, width, height) != 0) return;
    GdkPixbuf* const picture = gdk_pixbuf_new_from_data(rgba.data(), GDK_COLORSPACE_RGB, TRUE, 8, width,
                                                        height, 4 * width, nullptr, nullptr);
    cairo_scale(cairo, 1.0 / scale, 1.0 / scale); // a pixel of the picture is one of the device
    gdk_cairo_set_source_pixbuf(cairo, picture, 0, 0);
    cairo_paint(cairo);
    g_object_unref(picture);
}
// [docs: end]

// The buttons and keys as they were before the event.
unsigned int State(GdkEvent* event) {
    const GdkModifierType state = gdk_event_get_modifier_state(event);
    return KeyState(state & GDK_BUTTON1_MASK, state & GDK_BUTTON2_MASK, state & GDK_BUTTON3_MASK,
                    state & GDK_SHIFT_MASK, state & GDK_CONTROL_MASK);
}

// Events know their place on the surface of the window, which may have a shadow around it.
POINT Place(GdkEvent* event, GtkWidget* area) {
    double x = 0, y = 0, left = 0, top = 0;
    GtkNative* const native = gtk_widget_get_native(area);
    gdk_event_get_position(event, &x, &y);
    gtk_native_get_surface_transform(native, &left, &top);
    gtk_widget_translate_coordinates(GTK_WIDGET(native), area, x - left, y - top, &x, &y);
    return ToPixels(x, y, gtk_widget_get_scale_factor(area));
}

void OnButton(Plot& plot, GdkEvent* event) {
    const guint button = gdk_button_event_get_button(event);
    const bool isPress = gdk_event_get_event_type(event) == GDK_BUTTON_PRESS;
    if (button == 1 && isPress) plot.plotter.OnLButtonDown(State(event) | MK_LBUTTON, plot.pointer);
    if (button == 1 && !isPress) plot.plotter.OnLButtonUp(State(event) & ~MK_LBUTTON, plot.pointer);
    if (button == 3 && isPress) plot.plotter.OnRButtonDown(State(event) | MK_RBUTTON, plot.pointer);
    if (button == 3 && !isPress) plot.plotter.OnRButtonUp(State(event) & ~MK_RBUTTON, plot.pointer);
}

// An off-screen window is its own screen: the wheel's position is that in the window.
gboolean OnScroll(GtkEventController* controller, double, double down, Plot* plot) {
    GdkEvent* const event = gtk_event_controller_get_current_event(controller);
    plot->plotter.OnMouseWheel(State(event), down < 0 ? 120 : -120, plot->pointer);
    gtk_widget_queue_draw(plot->area); // the plotter has drawn, but nobody sees its window
    return TRUE;
}

// GTK grabs the pointer for the area while a button is down.
gboolean OnEvent(GtkEventController*, GdkEvent* event, Plot* plot) {
    const GdkEventType type = gdk_event_get_event_type(event);
    const bool isMotion = type == GDK_MOTION_NOTIFY;
    if (!isMotion && type != GDK_BUTTON_PRESS && type != GDK_BUTTON_RELEASE) return FALSE;
    plot->pointer = Place(event, plot->area);
    isMotion ? plot->plotter.OnMouseMove(State(event), plot->pointer) : OnButton(*plot, event);
    gtk_widget_queue_draw(plot->area);
    return TRUE;
}

gboolean OnKey(GtkEventControllerKey*, guint key, guint, GdkModifierType, Plot* plot) {
    if (ChoosePlot(plot->plotter, static_cast<int>(key))) gtk_widget_queue_draw(plot->area);
    return FALSE;
}

void MakeArea(Plot& plot) {
    plot.area = gtk_drawing_area_new();
    gtk_drawing_area_set_draw_func(GTK_DRAWING_AREA(plot.area), OnDraw, &plot, nullptr);
    GtkEventController* const events = gtk_event_controller_legacy_new();
    constexpr int steps = GTK_EVENT_CONTROLLER_SCROLL_VERTICAL | GTK_EVENT_CONTROLLER_SCROLL_DISCRETE;
    GtkEventController* const wheel = gtk_event_controller_scroll_new(GtkEventControllerScrollFlags(steps));
    g_signal_connect(events, "event", G_CALLBACK(OnEvent), &plot);
    g_signal_connect(wheel, "scroll", G_CALLBACK(OnScroll), &plot);
    gtk_widget_add_controller(plot.area, events);
    gtk_widget_add_controller(plot.area, wheel);
}

} // namespace

int main() {
    if (!gtk_init_check()) {
        std::fprintf(stderr, "gtk4_image_host: there is no display; set DISPLAY or WAYLAND_DISPLAY\n");
        return 1;
    }
    Plot plot;
    GMainLoop* const loop = g_main_loop_new(nullptr, FALSE);
    GtkWidget* const window = gtk_window_new();
    GtkEventController* const keys = gtk_event_controller_key_new();
    g_signal_connect(keys, "key-pressed", G_CALLBACK(OnKey), &plot);
    gtk_widget_add_controller(window, keys);
    MakeArea(plot);
    gtk_window_set_child(GTK_WINDOW(window), plot.area), gtk_window_set_title(GTK_WINDOW(window), hillTitle);
    gtk_window_set_default_size(GTK_WINDOW(window), 900, 600), gtk_window_present(GTK_WINDOW(window));
    g_signal_connect_swapped(window, "destroy", G_CALLBACK(g_main_loop_quit), loop);
    g_main_loop_run(loop);
    plot.plotter.OnDestroy();
    ReleaseWindow(plot.window);
    return 0;
}
