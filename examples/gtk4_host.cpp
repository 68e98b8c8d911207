// A host in GTK 4 by the control: a window with a plot. A drag turns it; kivoplot.h tells the rest.
#include "Hill.h"

#include <kivoplot.h>

#include <cstdio>

int main() {
    if (!gtk_init_check()) {
        std::fprintf(stderr, "gtk4_host: there is no display; set DISPLAY or WAYLAND_DISPLAY\n");
        return 1;
    }
    // [docs: control]
    const std::vector<float> points = HillPoints();
    GtkWidget* const window = gtk_window_new();
    GtkWidget* const plot = kivo_plot_new();
    kivo_plot_set_grid(KIVO_PLOT(plot), points.data(), points.size(), hillColumns, hillRows);
    gtk_window_set_child(GTK_WINDOW(window), plot);
    // [docs: end]
    gtk_window_set_title(GTK_WINDOW(window), hillTitle);
    gtk_window_set_default_size(GTK_WINDOW(window), 900, 600);
    gtk_window_present(GTK_WINDOW(window));
    while (g_list_model_get_n_items(gtk_window_get_toplevels()) > 0)
        g_main_context_iteration(nullptr, TRUE);
    return 0;
}
