// A GTK 4 host with a GL area beside the plot's picture. GTK draws all of its widgets with OpenGL.
#include "OpenGlHost.h"

#include <KivoHost.h>
#include <KivoPicture.h>
#include <KivoWindow.h>

#include <GL/gl.h>
#include <gtk/gtk.h>

#include <cstdlib>

using namespace KivoDrawingTools;

namespace {

struct Host {
    HWND window = nullptr;
    CKivoFunctionPlotter plotter;
    std::vector<float> points = HillPoints();
    POINT size = {};
    int color = 0;
    GtkWidget* area = nullptr;
    GtkWidget* glArea = nullptr;
    GtkWidget* pages = nullptr;
};

void Fit(Host& host, const POINT& size) {
    if (size.x == host.size.x && size.y == host.size.y) return;
    host.size = size;
    if (!host.window) {
        host.window = CreateOffscreenWindow(size.x, size.y);
        if (host.plotter.OnCreate(host.window, size.x, size.y, true) != 0) std::exit(1);
        host.plotter.SetDataReference(host.points.data(), hillColumns, hillRows, 1, hillColumns, 3);
    }
    ResizeOffscreenWindow(host.window, size.x, size.y);
    host.plotter.OnSize(0, size.x, size.y);
}

void OnDraw(GtkDrawingArea*, cairo_t* cairo, int width, int height, void* data) {
    Host& host = *static_cast<Host*>(data);
    Fit(host, {width, height});
    std::vector<unsigned char> rgba;
    if (CapturePicture(host.plotter, rgba, width, height) != 0) return;
    GdkPixbuf* const picture = gdk_pixbuf_new_from_data(rgba.data(), GDK_COLORSPACE_RGB, TRUE, 8, width,
                                                        height, 4 * width, nullptr, nullptr);
    gdk_cairo_set_source_pixbuf(cairo, picture, 0, 0);
    cairo_paint(cairo);
    g_object_unref(picture);
}

gboolean OnRender(GtkGLArea*, GdkGLContext*, Host* host) {
    const OpenGlColor& color = openGlColors[host->color];
    glClearColor(color.red, color.green, color.blue, 1);
    glClear(GL_COLOR_BUFFER_BIT);
    return TRUE;
}

gboolean OnKey(GtkEventControllerKey*, guint key, guint, GdkModifierType, Host* host) {
    GtkNotebook* const pages = GTK_NOTEBOOK(host->pages);
    if (key == GDK_KEY_t) gtk_notebook_set_current_page(pages, 1 - gtk_notebook_get_current_page(pages));
    if (key == GDK_KEY_c) {
        host->color = 1 - host->color;
        gtk_gl_area_queue_render(GTK_GL_AREA(host->glArea));
    }
    if (ChoosePlot(host->plotter, static_cast<int>(key))) gtk_widget_queue_draw(host->area);
    return TRUE;
}

GtkWidget* MakePages(Host& host) {
    host.area = gtk_drawing_area_new();
    gtk_drawing_area_set_draw_func(GTK_DRAWING_AREA(host.area), OnDraw, &host, nullptr);
    host.glArea = gtk_gl_area_new();
    g_signal_connect(host.glArea, "render", G_CALLBACK(OnRender), &host);
    GtkWidget* const halves = gtk_box_new(GTK_ORIENTATION_HORIZONTAL, 0);
    gtk_box_set_homogeneous(GTK_BOX(halves), TRUE);
    for (GtkWidget* const half : {host.area, host.glArea}) {
        gtk_widget_set_hexpand(half, TRUE);
        gtk_widget_set_vexpand(half, TRUE);
        gtk_box_append(GTK_BOX(halves), half);
    }
    host.pages = gtk_notebook_new();
    gtk_notebook_set_show_tabs(GTK_NOTEBOOK(host.pages), FALSE);
    gtk_notebook_set_show_border(GTK_NOTEBOOK(host.pages), FALSE);
    gtk_notebook_append_page(GTK_NOTEBOOK(host.pages), halves, nullptr);
    gtk_notebook_append_page(GTK_NOTEBOOK(host.pages), gtk_label_new(""), nullptr);
    return host.pages;
}

} // namespace

int main() {
    if (!gtk_init_check()) return 1;
    Host host;
    GMainLoop* const loop = g_main_loop_new(nullptr, FALSE);
    GtkWidget* const window = gtk_window_new();
    GtkEventController* const keys = gtk_event_controller_key_new();
    g_signal_connect(keys, "key-pressed", G_CALLBACK(OnKey), &host);
    gtk_widget_add_controller(window, keys);
    gtk_window_set_child(GTK_WINDOW(window), MakePages(host));
    gtk_window_set_title(GTK_WINDOW(window), openGlTitle);
    gtk_window_set_default_size(GTK_WINDOW(window), openGlWidth, openGlHeight);
    g_signal_connect_swapped(window, "destroy", G_CALLBACK(g_main_loop_quit), loop);
    gtk_window_present(GTK_WINDOW(window));
    g_main_loop_run(loop);
    host.plotter.OnDestroy();
    ReleaseWindow(host.window);
    return 0;
}
