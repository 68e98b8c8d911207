// A host in GTK 3: the plot is a drawing area below a label, with an X window of its own that GTK does not
// paint. It hands the window's XID to the plotter when GTK makes it, takes it back when GTK removes it, and
// forwards the events in pixels of the device. A drag with the right button turns the plot, with Shift it
// pans, with Ctrl it zooms; the wheel zooms too; the keys 0 to 3 choose the plot, and H hides and shows it.
#include "Hill.h"

#include <KivoHost.h>
#include <KivoMotion.h>
#include <KivoWindow.h>

#include <gdk/gdkx.h>
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
    POINT size = {};
    guint rest = 0; // the timer that runs from the last movement on
};

POINT SizeOf(GtkWidget* area) {
    return ToPixels(gtk_widget_get_allocated_width(area), gtk_widget_get_allocated_height(area),
                    gtk_widget_get_scale_factor(area));
}

// [docs: attach]
void OnRealize(GtkWidget* area, Plot* plot) {
    plot->window = AttachX11Window(GDK_WINDOW_XID(gtk_widget_get_window(area))); // makes the X window, too
    plot->size = SizeOf(area);
    if (plot->plotter.OnCreate(plot->window, plot->size.x, plot->size.y, true) != 0) {
        std::fprintf(stderr, "gtk_host: %s\n", LastWindowError());
        std::exit(1);
    }
    plot->plotter.SetDataReference(plot->points.data(), hillColumns, hillRows, 1, hillColumns, 3);
    SetMotionDetail(plot->plotter, movingPoints);
}

void OnUnrealize(GtkWidget*, Plot* plot) {
    plot->plotter.OnDestroy();
    ReleaseWindow(plot->window);
    plot->window = nullptr;
}

// GTK asks for a drawing after every change of size. The plotter has a connection of its own to the server,
// which must not overtake GTK's.
gboolean OnDraw(GtkWidget* area, cairo_t*, Plot* plot) {
    gdk_display_sync(gtk_widget_get_display(area));
    const POINT size = SizeOf(area);
    if (size.x != plot->size.x || size.y != plot->size.y) plot->plotter.OnSize(0, size.x, size.y);
    plot->size = size;
    plot->plotter.OnDraw();
    return TRUE;
}

// [docs: end]

// The buttons and keys as they were before the event.
unsigned int State(guint state) {
    return KeyState(state & GDK_BUTTON1_MASK, state & GDK_BUTTON2_MASK, state & GDK_BUTTON3_MASK,
                    state & GDK_SHIFT_MASK, state & GDK_CONTROL_MASK);
}

gboolean DrawWhole(gpointer data) {
    auto* const plot = static_cast<Plot*>(data);
    plot->rest = 0;
    if (IsDetailReduced(plot->plotter)) gtk_widget_queue_draw(plot->area);
    return G_SOURCE_REMOVE;
}

// To be called with each movement.
void AwaitRest(Plot* plot) {
    if (plot->rest != 0) g_source_remove(plot->rest);
    plot->rest = g_timeout_add(restTime, DrawWhole, plot);
}

// GTK makes one of the moves that come within a frame of the screen.
gboolean OnMotion(GtkWidget* area, GdkEventMotion* event, Plot* plot) {
    const POINT client = ToPixels(event->x, event->y, gtk_widget_get_scale_factor(area));
    plot->plotter.OnMouseMove(State(event->state), client);
    AwaitRest(plot);
    return TRUE;
}

// GTK grabs the pointer for the area while a button is down. Double clicks come on top of their presses.
gboolean OnButton(GtkWidget* area, GdkEventButton* event, Plot* plot) {
    const POINT client = ToPixels(event->x, event->y, gtk_widget_get_scale_factor(area));
    const unsigned int state = State(event->state);
    const bool isPress = event->type == GDK_BUTTON_PRESS;
    const bool isRelease = event->type == GDK_BUTTON_RELEASE;
    if (event->button == 1 && isPress) plot->plotter.OnLButtonDown(state | MK_LBUTTON, client);
    if (event->button == 1 && isRelease) plot->plotter.OnLButtonUp(state & ~MK_LBUTTON, client);
    if (event->button == 3 && isPress) plot->plotter.OnRButtonDown(state | MK_RBUTTON, client);
    if (event->button == 3 && isRelease) plot->plotter.OnRButtonUp(state & ~MK_RBUTTON, client);
    if (IsDetailReduced(plot->plotter) && isRelease) gtk_widget_queue_draw(area);
    return TRUE;
}

// Without GDK_SMOOTH_SCROLL_MASK all devices scroll in whole steps.
gboolean OnScroll(GtkWidget* area, GdkEventScroll* event, Plot* plot) {
    const POINT screen = ToPixels(event->x_root, event->y_root, gtk_widget_get_scale_factor(area));
    if (event->direction == GDK_SCROLL_UP) plot->plotter.OnMouseWheel(State(event->state), 120, screen);
    if (event->direction == GDK_SCROLL_DOWN) plot->plotter.OnMouseWheel(State(event->state), -120, screen);
    AwaitRest(plot);
    return TRUE;
}

GtkWidget* MakeArea(Plot& plot) {
    GtkWidget* const area = gtk_drawing_area_new();
    gtk_widget_set_app_paintable(area, TRUE);
    G_GNUC_BEGIN_IGNORE_DEPRECATIONS // there is no other way to keep GTK from painting over the window
        gtk_widget_set_double_buffered(area, FALSE);
    G_GNUC_END_IGNORE_DEPRECATIONS
    gtk_widget_add_events(area, GDK_BUTTON_PRESS_MASK | GDK_BUTTON_RELEASE_MASK | GDK_POINTER_MOTION_MASK |
                                    GDK_SCROLL_MASK | GDK_VISIBILITY_NOTIFY_MASK);
    g_signal_connect(area, "realize", G_CALLBACK(OnRealize), &plot);
    g_signal_connect(area, "unrealize", G_CALLBACK(OnUnrealize), &plot);
    g_signal_connect(area, "draw", G_CALLBACK(OnDraw), &plot);
    // Where the plotter has covered the window with one of its own, nobody tells that it shows again.
    g_signal_connect(area, "visibility-notify-event", G_CALLBACK(gtk_widget_queue_draw), nullptr);
    g_signal_connect(area, "button-press-event", G_CALLBACK(OnButton), &plot);
    g_signal_connect(area, "button-release-event", G_CALLBACK(OnButton), &plot);
    g_signal_connect(area, "motion-notify-event", G_CALLBACK(OnMotion), &plot);
    g_signal_connect(area, "scroll-event", G_CALLBACK(OnScroll), &plot);
    g_object_set_data(G_OBJECT(area), "plot", &plot);
    plot.area = area;
    return area;
}

gboolean OnKey(GtkWidget*, GdkEventKey* event, GtkWidget* area) {
    auto* const plot = static_cast<Plot*>(g_object_get_data(G_OBJECT(area), "plot"));
    if (event->keyval == GDK_KEY_h) gtk_widget_set_visible(area, !gtk_widget_get_visible(area));
    if (ChoosePlot(plot->plotter, static_cast<int>(event->keyval))) gtk_widget_queue_draw(area);
    return TRUE;
}

} // namespace

int main(int argc, char** argv) {
    g_setenv("GDK_BACKEND", "x11", TRUE); // on Wayland, too: the plotter draws in X11 windows
    if (!gtk_init_check(&argc, &argv)) {
        std::fprintf(stderr, "gtk_host: %s\n", noDisplay);
        return 1;
    }
    Plot plot;
    GtkWidget* const window = gtk_window_new(GTK_WINDOW_TOPLEVEL);
    GtkWidget* const box = gtk_box_new(GTK_ORIENTATION_VERTICAL, 0);
    GtkWidget* const area = MakeArea(plot);
    gtk_box_pack_start(GTK_BOX(box), gtk_label_new(hillHelp), FALSE, FALSE, 0);
    gtk_box_pack_start(GTK_BOX(box), area, TRUE, TRUE, 0);
    gtk_container_add(GTK_CONTAINER(window), box);
    gtk_window_set_title(GTK_WINDOW(window), hillTitle);
    gtk_window_set_default_size(GTK_WINDOW(window), 900, 600);
    g_signal_connect(window, "key-press-event", G_CALLBACK(OnKey), area);
    g_signal_connect(window, "destroy", G_CALLBACK(gtk_main_quit), nullptr);
    gtk_widget_show_all(window);
    gtk_main();
    return 0;
}
