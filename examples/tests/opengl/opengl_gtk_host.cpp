// A GTK 3 host with a GL area beside the plot. GTK believes that its context stays current; what draws the
// plot in its window on the screen has to keep it.
#include "OpenGlHost.h"

#include <KivoHost.h>
#include <KivoWindow.h>

#include <gdk/gdkx.h>
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
    bool isDue = false;
    int color = 0;
    GtkWidget* area = nullptr;
    GtkWidget* glArea = nullptr;
    GtkWidget* pages = nullptr;
};

// [docs: keep]
void OnRealize(GtkWidget* area, Host* host) {
    const CKeepContext keep; // GTK's
    host->window = AttachX11Window(GDK_WINDOW_XID(gtk_widget_get_window(area)));
    host->size = ToPixels(gtk_widget_get_allocated_width(area), gtk_widget_get_allocated_height(area), 1);
    if (host->plotter.OnCreate(host->window, host->size.x, host->size.y, true) != 0) std::exit(1);
    host->plotter.SetDataReference(host->points.data(), hillColumns, hillRows, 1, hillColumns, 3);
}

// Not within GTK's own frame, of which a part is drawn already. A context of GLX that is put back knows the
// window's size of that moment until the next frame: after a change GTK draws once more.
gboolean DrawPlot(gpointer data) {
    Host* const host = static_cast<Host*>(data);
    host->isDue = false;
    if (!host->window) return G_SOURCE_REMOVE;
    const CKeepContext keep;
    gdk_display_sync(gtk_widget_get_display(host->area));
    const POINT size =
        ToPixels(gtk_widget_get_allocated_width(host->area), gtk_widget_get_allocated_height(host->area), 1);
    if (size.x != host->size.x || size.y != host->size.y) {
        host->plotter.OnSize(0, size.x, size.y);
        gtk_widget_queue_draw(host->glArea);
    }
    host->size = size;
    host->plotter.OnDraw();
    return G_SOURCE_REMOVE;
}

gboolean OnDraw(GtkWidget*, cairo_t*, Host* host) {
    if (!host->isDue) g_idle_add(DrawPlot, host);
    host->isDue = true;
    return TRUE;
}
// [docs: end]

void OnUnrealize(GtkWidget*, Host* host) {
    const CKeepContext keep;
    host->plotter.OnDestroy();
    ReleaseWindow(host->window);
    host->window = nullptr;
}

gboolean OnRender(GtkGLArea*, GdkGLContext*, Host* host) {
    const OpenGlColor& color = openGlColors[host->color];
    glClearColor(color.red, color.green, color.blue, 1);
    glClear(GL_COLOR_BUFFER_BIT);
    return TRUE;
}

gboolean OnKey(GtkWidget*, GdkEventKey* event, Host* host) {
    GtkNotebook* const pages = GTK_NOTEBOOK(host->pages);
    if (event->keyval == GDK_KEY_t)
        gtk_notebook_set_current_page(pages, 1 - gtk_notebook_get_current_page(pages));
    if (event->keyval == GDK_KEY_c) {
        host->color = 1 - host->color;
        gtk_widget_queue_draw(host->glArea);
    }
    const CKeepContext keep;
    if (ChoosePlot(host->plotter, static_cast<int>(event->keyval))) gtk_widget_queue_draw(host->area);
    return TRUE;
}

void MakeAreas(Host& host) {
    host.area = gtk_drawing_area_new();
    gtk_widget_set_app_paintable(host.area, TRUE);
    G_GNUC_BEGIN_IGNORE_DEPRECATIONS // there is no other way to keep GTK from painting over the window
        gtk_widget_set_double_buffered(host.area, FALSE);
    G_GNUC_END_IGNORE_DEPRECATIONS
    g_signal_connect(host.area, "realize", G_CALLBACK(OnRealize), &host);
    g_signal_connect(host.area, "unrealize", G_CALLBACK(OnUnrealize), &host);
    g_signal_connect(host.area, "draw", G_CALLBACK(OnDraw), &host);
    host.glArea = gtk_gl_area_new();
    g_signal_connect(host.glArea, "render", G_CALLBACK(OnRender), &host);
}

} // namespace

int main(int argc, char** argv) {
    g_setenv("GDK_BACKEND", "x11", TRUE);
    if (!gtk_init_check(&argc, &argv)) return 1;
    Host host;
    MakeAreas(host);
    GtkWidget* const window = gtk_window_new(GTK_WINDOW_TOPLEVEL);
    GtkWidget* const halves = gtk_box_new(GTK_ORIENTATION_HORIZONTAL, 0);
    gtk_box_set_homogeneous(GTK_BOX(halves), TRUE);
    gtk_box_pack_start(GTK_BOX(halves), host.area, TRUE, TRUE, 0);
    gtk_box_pack_start(GTK_BOX(halves), host.glArea, TRUE, TRUE, 0);
    host.pages = gtk_notebook_new();
    gtk_notebook_set_show_tabs(GTK_NOTEBOOK(host.pages), FALSE);
    gtk_notebook_set_show_border(GTK_NOTEBOOK(host.pages), FALSE);
    gtk_notebook_append_page(GTK_NOTEBOOK(host.pages), halves, nullptr);
    gtk_notebook_append_page(GTK_NOTEBOOK(host.pages), gtk_label_new(""), nullptr);
    gtk_container_add(GTK_CONTAINER(window), host.pages);
    gtk_window_set_title(GTK_WINDOW(window), openGlTitle);
    gtk_window_set_default_size(GTK_WINDOW(window), openGlWidth, openGlHeight);
    g_signal_connect(window, "key-press-event", G_CALLBACK(OnKey), &host);
    g_signal_connect(window, "destroy", G_CALLBACK(gtk_main_quit), nullptr);
    gtk_widget_show_all(window);
    gtk_main();
    return 0;
}
